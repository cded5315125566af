#include "desktop/kit/qt_printer.h"

#include <QFile>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QTemporaryDir>
#include <QWidget>

#include "desktop/kit/html_paper.h"
#include "desktop/kit/paper_page.h"
#include "desktop/kit/qt_text.h"
#include "system/disk_files.h"

namespace counter {

namespace {

// A widget reaches a printer as a picture in the printer's resolution: enough for small letters, and a page
// of it is 35 megabytes, not half a gigabyte as with the best that a PDF can hold.
constexpr int kViewDpi = 300;
constexpr double kHeadMargin = 8;      // pixels of the view
constexpr double kTextPoints = 10;     // size of a printed text
constexpr double kSmallestPoints = 6;  // down to which long lines are made to fit

void AskUser(QPrinter& printer, QWidget* over, const std::function<void(bool)>& done) {
    auto* dialog = new QPrintDialog(&printer, over);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QAbstractPrintDialog::PrintToFile);
    QObject::connect(dialog, &QDialog::finished, dialog,
                     [done](int result) { done(result == QDialog::Accepted); });
    dialog->open();
}

bool IsFile(const QPrinter& printer) {
    return printer.outputFormat() == QPrinter::PdfFormat || !printer.outputFileName().isEmpty();
}

// False: the device can't be drawn on.
using PaperDraw = std::function<bool(QPrinter&)>;

PaperDraw Painted(const std::function<void(QPainter&)>& draw) {
    return [draw](QPrinter& printer) {
        QPainter painter;
        if (!painter.begin(&printer)) return false;
        draw(painter);
        return true;
    };
}

Status PrintOn(QPrinter& printer, const PaperDraw& draw) {
    const std::string name = printer.printerName().toStdString();
    if (!draw(printer)) {
        return {printer.isValid() ? StatusKind::Other : StatusKind::NotFound, name,
                "the printer doesn't answer"};
    }
    if (printer.printerState() != QPrinter::Error) return {};
    return {StatusKind::Other, name, "was not printed to its end"};
}

// Printed aside first: a full disk or a kill in the middle must not leave half of it where an older one
// was. A full disk is no error to the one who draws; the file then lacks its end.
Status PrintInto(QPrinter& printer, const PaperDraw& draw) {
    const std::string path = QFile::encodeName(printer.outputFileName()).toStdString();
    const QTemporaryDir aside;
    if (!aside.isValid()) return {StatusKind::Other, path, aside.errorString().toStdString()};
    printer.setOutputFileName(aside.filePath(QStringLiteral("printed.pdf")));
    DiskFiles files;
    std::string content;
    if (PrintOn(printer, draw).Ok())
        files.Read(QFile::encodeName(printer.outputFileName()).toStdString(), content);
    if (content.find("%%EOF", content.size() - std::min<std::size_t>(content.size(), 16)) ==
        std::string::npos)
        return {StatusKind::Other, path, "was not printed to its end"};
    return files.Write(path, content);
}

// Paper is light, whatever the screen is, as long as it lives.
class LightOnPaper {
  public:
    explicit LightOnPaper(QWidget& widget)
        : widget_(widget), own_(widget.palette()), wasOwn_(widget.testAttribute(Qt::WA_SetPalette)) {
        widget_.setPalette(QPalette(kPaperButton));
    }
    ~LightOnPaper() { widget_.setPalette(wasOwn_ ? own_ : QPalette()); }
    LightOnPaper(const LightOnPaper&) = delete;
    LightOnPaper& operator=(const LightOnPaper&) = delete;

  private:
    static constexpr QColor kPaperButton{0xEF, 0xEF, 0xEF};
    QWidget& widget_;
    const QPalette own_;
    const bool wasOwn_;
};

// Lines above the view, in letters of the view's own size. Returns how high they are.
double DrawHead(QPainter& painter, const QWidget& widget, const QStringList& lines) {
    QFont font = widget.font();
    font.setPixelSize(QFontInfo(font).pixelSize());  // of the view's coordinates, not of the printer's points
    painter.setFont(font);
    painter.setPen(Qt::black);
    const QFontMetricsF metrics(font);
    double top = 0;
    for (const QString& line : lines) {
        painter.drawText(QPointF(kHeadMargin, top + metrics.ascent()), line);
        top += metrics.lineSpacing();
    }
    return lines.isEmpty() ? 0 : top + kHeadMargin;
}

QSizeF WithHead(const QWidget& widget, const QStringList& head) {
    const double line = QFontMetricsF(widget.font()).lineSpacing();
    return {static_cast<double>(widget.width()),
            widget.height() + (head.isEmpty() ? 0 : line * static_cast<double>(head.size()) + kHeadMargin)};
}

PaperWork WorkOf(QWidget& page) {
    auto* own = dynamic_cast<PaperPage*>(&page);
    return own ? own->OnPaper() : PaperWork();
}

bool IsWide(QWidget& page) {
    const PaperWork work = WorkOf(page);
    const QSize size = (work.Instead ? *work.Instead : page).size();
    return size.width() > size.height();
}

// As large as the page lets it be, in the middle of its upper edge; all in the widget's coordinates.
void DrawWidget(QPainter& painter, const QRectF& page, QWidget& onShow) {
    const PaperWork work = WorkOf(onShow);
    QWidget& widget = work.Instead ? *work.Instead : onShow;
    const QSizeF whole = WithHead(widget, work.Head);
    const double scale = std::min(page.width() / whole.width(), page.height() / whole.height());
    painter.translate((page.width() - whole.width() * scale) / 2, 0);
    painter.scale(scale, scale);
    painter.translate(0, DrawHead(painter, widget, work.Head));
    const LightOnPaper light(widget);
    const QRect part = work.Part ? QRect(work.Part->mapTo(&widget, QPoint()), work.Part->size()) : QRect();
    widget.render(&painter, QPoint(), QRegion(widget.rect()) - part,
                  QWidget::DrawWindowBackground | QWidget::DrawChildren);
    if (!work.Part) return;
    painter.translate(part.topLeft());
    painter.setClipRect(QRect(QPoint(), part.size()));
    work.Draw(painter);
}

QStringList LinesOf(const std::string& text) {
    QString lines = QtText(text);
    lines.remove(QLatin1Char('\r'));
    while (lines.endsWith(QLatin1Char('\n'))) lines.chop(1);
    return lines.split(QLatin1Char('\n'));
}

qsizetype Longest(const QStringList& lines) {
    qsizetype longest = 1;
    for (const QString& line : lines) longest = std::max(longest, line.size());
    return longest;
}

QFont TextFont(QPainter& painter, double width, qsizetype characters) {
    QFont font = FixedPitchFont(kTableFamily);
    font.setPointSizeF(kTextPoints);
    const QFontMetricsF metrics(font, painter.device());
    const double needed = metrics.horizontalAdvance(QLatin1Char('0')) * static_cast<double>(characters);
    if (needed > width) font.setPointSizeF(std::max(kSmallestPoints, kTextPoints * width / needed));
    return font;
}

void DrawText(QPainter& painter, QPrinter& printer, const QRectF& page, const std::string& text) {
    const QStringList lines = LinesOf(text);
    painter.setFont(TextFont(painter, page.width(), Longest(lines)));
    const QFontMetricsF metrics(painter.font(), &printer);
    double top = 0;
    for (const QString& line : lines) {
        if (top + metrics.height() > page.height()) {
            printer.newPage();
            top = 0;
        }
        painter.drawText(QPointF(0, top + metrics.ascent()), line);
        top += metrics.lineSpacing();
    }
}

QRectF PageOf(const QPrinter& printer) {
    return {QPointF(), printer.pageRect(QPrinter::DevicePixel).size()};
}

}  // namespace

QtPrinter::QtPrinter(Pump& pump, View view) : QtPrinter(pump, std::move(view), nullptr) {
    choose_ = [this](QPrinter& printer, const std::function<void(bool)>& done) {
        AskUser(printer, view_(), done);
    };
}

QtPrinter::QtPrinter(Pump& pump, View view, Choose choose)
    : pump_(pump), view_(std::move(view)), choose_(std::move(choose)) {}

Status QtPrinter::PrintView() {
    QWidget* widget = view_();
    if (widget == nullptr) return {};
    QPrinter printer(QPrinter::HighResolution);
    printer.setResolution(kViewDpi);
    printer.setDocName(widget->window()->windowTitle());
    printer.setPageOrientation(IsWide(*widget) ? QPageLayout::Landscape : QPageLayout::Portrait);
    return Run(printer, Painted([&](QPainter& painter) { DrawWidget(painter, PageOf(printer), *widget); }));
}

Status QtPrinter::PrintText(const std::string& title, const std::string& text) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QtText(title));
    return Run(printer,
               Painted([&](QPainter& painter) { DrawText(painter, printer, PageOf(printer), text); }));
}

Status QtPrinter::PrintPages(const std::string& title, const std::string& html) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QtText(title));
    return Run(printer, [&html](QPrinter& chosen) {
        PrintHtml(chosen, html);
        return chosen.isValid();
    });
}

Status QtPrinter::WritePdf(const std::string& path, const std::string& title, const std::string& html) {
    return DiskFiles().Write(path, PdfOfHtml(title, html).toStdString());
}

Status QtPrinter::Run(QPrinter& printer, const std::function<bool(QPrinter&)>& draw) {
    bool answered = false;
    bool chosen = false;
    choose_(printer, [&](bool print) {
        answered = true;
        chosen = print;
    });
    pump_.WaitUntil(
        Pump::kForever, [&] { return answered; }, "the print dialog");
    if (!chosen) return {};
    return IsFile(printer) ? PrintInto(printer, draw) : PrintOn(printer, draw);
}

}  // namespace counter
