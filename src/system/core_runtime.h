// CoreRuntime: the application object of a program without a display.
//
// The pump, the port and the search for the program folder need one to live: main makes it first.
#pragma once

#include <memory>

class QCoreApplication;

namespace counter {

class CoreRuntime {
  public:
    CoreRuntime();
    ~CoreRuntime();
    CoreRuntime(const CoreRuntime&) = delete;
    CoreRuntime& operator=(const CoreRuntime&) = delete;

  private:
    std::unique_ptr<QCoreApplication> application_;
};

// Gives numbers their point and the system's reasons their English back, which an application object takes
// over from the user's language. To be called once after the application object was made; CoreRuntime does.
void SettleLocale();

}  // namespace counter
