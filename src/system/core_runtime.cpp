#include "system/core_runtime.h"

#include <QCoreApplication>
#include <clocale>

namespace counter {

namespace {

// The application object keeps references to both for as long as it lives. It gets no arguments: they are
// the program's own business.
struct Arguments {
    char Name[16] = "counter-setup";
    char* Values[2] = {Name, nullptr};
    int Count = 1;
};

Arguments& StaticArguments() {
    static Arguments arguments;
    return arguments;
}

}  // namespace

CoreRuntime::CoreRuntime()
    : application_(std::make_unique<QCoreApplication>(StaticArguments().Count, StaticArguments().Values)) {
    SettleLocale();
}

CoreRuntime::~CoreRuntime() = default;

void SettleLocale() {
    std::setlocale(LC_NUMERIC, "C");
    std::setlocale(LC_MESSAGES, "C");
}

}  // namespace counter
