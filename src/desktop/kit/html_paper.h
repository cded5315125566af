// A document of HTML on pages of paper.
#pragma once

#include <QByteArray>
#include <string>

class QPagedPaintDevice;

namespace counter {

// A4 upright; all pages with their number. `html` in UTF-8. Needs no window.
QByteArray PdfOfHtml(const std::string& title, const std::string& html);

// On the paper that the device has.
void PrintHtml(QPagedPaintDevice& device, const std::string& html);

}  // namespace counter
