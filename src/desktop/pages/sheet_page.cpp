#include "desktop/pages/sheet_page.h"

#include <QTextBrowser>
#include <QVBoxLayout>

#include "desktop/kit/qt_text.h"

namespace counter {

namespace {

// The sheet is shown as it will be on paper, whatever the palette of the screen.
constexpr const char* kPaper = "QTextBrowser { background: white; color: black; }";

}  // namespace

SheetPage::SheetPage(SheetView& view, QWidget* parent)
    : ViewPage(parent),
      view_(view),
      bound_(view.Controls, Characters::System),
      strip_(new StatusStrip(this)),
      sheet_(new QTextBrowser(this)) {
    QVBoxLayout* column = strip_->LieBelow(this);
    sheet_->setObjectName(QStringLiteral("txtSheet"));
    sheet_->setAccessibleName(QtText(SheetView::kTitle));
    sheet_->setStyleSheet(QLatin1String(kPaper));
    sheet_->setTabChangesFocus(true);
    sheet_->setOpenLinks(false);
    column->addWidget(sheet_, 1);
    column->addLayout(bound_.MakeButtonRow(
        this, {&view.cmdAgainst, &view.cmdPrint, &view.cmdPdf, &view.cmdHtml, &view.cmdMainMenu}));
    bound_.BindSpecial(view.lblStatus, &strip_->Line(), [this] { strip_->ShowLine(view_.lblStatus); });
    view.Controls.Changed = [this] { ShowAll(); };
    ShowAll();
}

SheetPage::~SheetPage() {
    view_.Controls.Changed = nullptr;
}

QString SheetPage::Title() const {
    return QtText(SheetView::kTitle);
}

void SheetPage::ShowAll() {
    if (view_.Html() != shown_) {
        shown_ = view_.Html();
        sheet_->setHtml(SystemText(shown_));
    }
    bound_.Refresh();
}

}  // namespace counter
