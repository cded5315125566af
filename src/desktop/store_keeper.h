// StoreKeeper: keeps the readings of the views in the store of the program folder, the one that counterctl
// uses too.
#pragma once

#include "readings/reading_keeper.h"
#include "recording/recorder.h"
#include "session/session.h"

namespace counter {

class StoreKeeper : public ReadingKeeper {
  public:
    static constexpr const char* kFile = "readings.db";

    explicit StoreKeeper(Session& session) : program_(session), recorder_(session.Pump) {}

    Status Begin() override;
    void Take(std::string_view frame) override { recorder_.Take(frame); }
    Status End() override { return recorder_.End(); }
    std::string Words() const override;

  private:
    Session& program_;
    Recorder recorder_;
};

}  // namespace counter
