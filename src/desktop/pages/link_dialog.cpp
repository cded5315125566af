#include "desktop/pages/link_dialog.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/kit/grid.h"
#include "desktop/kit/page_body.h"
#include "desktop/kit/qt_text.h"

namespace counter {

namespace {

constexpr int kHelpOfCounter = 3115;
constexpr int kResultLines = 3;
constexpr QSize kLinkSize(560, 300);

}  // namespace

LinkDialog::LinkDialog(LinkSwitch& view, QWidget* parent)
    : QDialog(parent), view_(view), bound_(view.Controls, Characters::System), strip_(new StatusStrip(this)) {
    setObjectName(QStringLiteral("frmLink"));
    setWindowTitle(QtText(LinkSwitch::kTitle));
    setWindowModality(Qt::WindowModal);
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    auto* body = new PageBody(this);
    auto* grid = new QGridLayout;
    grid->setSpacing(kGrid);
    grid->setColumnStretch(1, 1);
    for (Control* control : {&view.cboPort, &view.cboBaud, &view.cboAddress, &view.txtModbus}) {
        const int row = grid->rowCount();
        auto* caption = new QLabel(QtText(control->Caption), this);
        QWidget* field = bound_.Make(*control, this);
        caption->setBuddy(field);
        grid->addWidget(caption, row, 0);
        grid->addWidget(field, row, 1);
    }
    auto* ways = new QHBoxLayout;
    for (Control* control : {&view.cmdFind, &view.cmdFile}) ways->addWidget(bound_.Make(*control, this));
    ways->addStretch(1);
    PadByGrid(&body->Column());
    body->Column().addLayout(grid);
    body->Column().addLayout(ways);
    body->Column().addStretch(1);
    auto* buttons = bound_.MakeButtonRow(this, {&view.cmdUse, &view.cmdKeep, &view.cmdClose});
    buttons->setContentsMargins(kGrid, 0, kGrid, 0);
    static_cast<QPushButton*>(bound_.WidgetOf(view.cmdUse))->setDefault(true);
    whole->addWidget(body, 1);
    whole->addLayout(buttons);
    whole->addWidget(strip_);
    strip_->KeepLines(kResultLines);
    bound_.BindSpecial(view.lblResult, &strip_->Line(), [this] { strip_->ShowLine(view_.lblResult); });
    bound_.Bind(view.pbFind, &strip_->Bar());
    strip_->Bar().setAccessibleName("Progress of the search");
    bound_.Refresh();
    view_.Close = [this] {
        hide();
        if (Closed) Closed();
    };
}

void LinkDialog::OpenFresh() {
    view_.Load();
    resize(SizeOnScreen(*this, kLinkSize));
    open();
    bound_.WidgetOf(view_.cboAddress.Enabled ? view_.cboAddress : view_.txtModbus)->setFocus();
}

void LinkDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_F1) return QDialog::keyPressEvent(event);
    event->accept();
    if (OpenHelp) OpenHelp(kHelpOfCounter);
}

void LinkDialog::reject() {
    view_.Controls.Click(view_.cmdClose);
}

}  // namespace counter
