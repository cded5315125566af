// Printer: a view on paper, as it is on the screen.
#pragma once

#include <string>

#include "platform/status.h"

namespace counter {

class Printer {
  public:
    virtual ~Printer() = default;
    // Prints the view on show, or text as one document in a fixed pitch, to the printer or PDF file that the
    // user chooses; a user who cancels that choice is no failure.
    virtual Status PrintView() = 0;
    virtual Status PrintText(const std::string& title, const std::string& text) = 0;
    // The same for a document of HTML, in UTF-8.
    virtual Status PrintPages(const std::string& title, const std::string& html) = 0;
    // Into this file, without a question.
    virtual Status WritePdf(const std::string& path, const std::string& title, const std::string& html) = 0;
};

}  // namespace counter
