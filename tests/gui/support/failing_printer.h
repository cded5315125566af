// FailingPrinter: a printer without paper.
#pragma once

#include "platform/printer.h"

namespace counter::test {

class FailingPrinter : public Printer {
  public:
    Status PrintView() override { return {StatusKind::NotFound, "lp0", "out of paper"}; }
    Status PrintText(const std::string&, const std::string& text) override {
        Text = text;
        return PrintView();
    }
    Status PrintPages(const std::string&, const std::string& html) override { return PrintText({}, html); }
    Status WritePdf(const std::string&, const std::string&, const std::string& html) override {
        return PrintText({}, html);
    }
    std::string Text;  // what was to be printed last
};

}  // namespace counter::test
