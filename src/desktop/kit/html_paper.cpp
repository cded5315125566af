#include "desktop/kit/html_paper.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>
#include <QTextDocument>

#include "desktop/kit/qt_text.h"

namespace counter {

namespace {

constexpr int kSheetDpi = 300;

}  // namespace

void PrintHtml(QPagedPaintDevice& device, const std::string& html) {
    QTextDocument document;
    document.setHtml(SystemText(html));
    document.print(&device);
}

QByteArray PdfOfHtml(const std::string& title, const std::string& html) {
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setResolution(kSheetDpi);
        writer.setTitle(SystemText(title));
        PrintHtml(writer, html);
    }
    return content;
}

}  // namespace counter
