#include "desktop/pages/report_dialog.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "desktop/kit/access_keys.h"
#include "desktop/kit/control_widget.h"
#include "desktop/kit/grid.h"
#include "desktop/kit/page_body.h"
#include "desktop/kit/qt_text.h"

namespace counter {

namespace {

constexpr QSize kReportSize(720, 420);

}  // namespace

ReportDialog::ReportDialog(const std::string& title, const std::string& text, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmReport"));
    setWindowTitle(SystemText(title));
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);
    auto* column = new QVBoxLayout(this);
    PadByGrid(column);
    auto* page = new QPlainTextEdit(SystemText(text), this);
    page->setObjectName(QStringLiteral("txtReport"));
    page->setAccessibleName(SystemText(title));
    page->setReadOnly(true);
    page->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    page->setLineWrapMode(QPlainTextEdit::NoWrap);
    page->setTabChangesFocus(true);
    page->setFont(FixedPitchFont());
    column->addWidget(page, 1);
    auto* row = new QHBoxLayout;
    auto* copy = new PushButton(QStringLiteral("Copy"), this);
    copy->setObjectName(QStringLiteral("cmdCopy"));
    auto* close = new PushButton(QStringLiteral("OK"), this);
    close->setObjectName(QStringLiteral("cmdOK"));
    close->setDefault(true);
    row->addWidget(copy);
    row->addStretch(1);
    row->addWidget(close);
    column->addLayout(row);
    QObject::connect(copy, &QPushButton::clicked, this,
                     [page] { QApplication::clipboard()->setText(page->toPlainText()); });
    QObject::connect(close, &QPushButton::clicked, this, &QDialog::accept);
    resize(SizeOnScreen(*this, kReportSize));
    close->setFocus();
    GiveAccessKeys(*this);
}

}  // namespace counter
