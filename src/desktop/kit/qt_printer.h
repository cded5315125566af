// QtPrinter: what is on show, or a text, on paper or as a PDF file.
#pragma once

#include <functional>
#include <string>

#include "platform/printer.h"
#include "platform/pump.h"

class QPainter;
class QPrinter;
class QWidget;

namespace counter {

class QtPrinter : public Printer {
  public:
    // What PrintView prints; may return null, nothing is on show.
    using View = std::function<QWidget*()>;
    // Lets the user choose printer and pages, then calls back, now or later: false where he cancelled.
    using Choose = std::function<void(QPrinter&, std::function<void(bool)>)>;

    // Asks by the system's print dialog over the view, which offers a PDF file even without any printer.
    QtPrinter(Pump& pump, View view);
    QtPrinter(Pump& pump, View view, Choose choose);
    QtPrinter(const QtPrinter&) = delete;
    QtPrinter& operator=(const QtPrinter&) = delete;

    Status PrintView() override;
    Status PrintText(const std::string& title, const std::string& text) override;
    Status PrintPages(const std::string& title, const std::string& html) override;
    Status WritePdf(const std::string& path, const std::string& title, const std::string& html) override;

  private:
    // Chosen, `draw` draws, false where it can't begin; the failure with its reason.
    Status Run(QPrinter& printer, const std::function<bool(QPrinter&)>& draw);

    Pump& pump_;
    View view_;
    Choose choose_;
};

}  // namespace counter
