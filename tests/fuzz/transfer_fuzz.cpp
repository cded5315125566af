// A whole Get with a meter that answers anything: one byte of protocol and version, then the replies, each
// with its length in front; a length of 255 is the end of the line. The Get ends, with a number or with a
// whole image, and the next one is possible.
#include "fuzz_get.h"

using namespace counter;

namespace {

class AnythingLine : public test::MeterLine {
  public:
    AnythingLine(test::VirtualPump& pump, std::string_view replies) : MeterLine(pump, {}), replies_(replies) {
        Unplug();
    }
    void Output(std::string_view bytes) override {
        MeterLine::Output(bytes);
        if (replies_.empty()) return;
        const std::size_t length = static_cast<unsigned char>(replies_[0]);
        const std::string_view reply = replies_.substr(1, length);
        replies_.remove_prefix(1 + reply.size());
        if (length == 255) return GoAway();
        if (!reply.empty()) Inject(reply);
    }

  private:
    std::string_view replies_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    test::VirtualPump pump;
    test::MemoryFiles store;
    test::RecordedDialogs boxes;
    store.Contents["home/Settings.SSS"] = fuzz::SettingsOfByte(data[0]);
    AnythingLine line(pump, fuzz::TextOf(data + 1, size - 1));
    Session session{pump, line, boxes, {store, "home"}};
    Start(session);
    fuzz::GetTwice(session, 120000);
    return 0;
}
