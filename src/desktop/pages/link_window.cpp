#include "desktop/pages/link_window.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QShortcut>
#include <QVBoxLayout>

#include "desktop/kit/grid.h"
#include "desktop/kit/page_body.h"
#include "desktop/kit/qt_text.h"
#include "desktop/pages/help_dialog.h"
#include "shell/link_help.h"

namespace counter {

namespace {

constexpr int kFirstRow = 1;       // of a grid: an empty one counts one row
constexpr int kCaptionWidth = 34;  // of all groups, in characters
constexpr int kWidestGroup = 120;  // wider fields read no better
constexpr int kStripLines = 3;

}  // namespace

LinkWindow::LinkWindow(LinkSetup& view)
    : view_(view), bound_(view.Controls, Characters::System), strip_(new StatusStrip(this)) {
    setWindowTitle(QtText(LinkSetup::kTitle));
    auto* help = new QShortcut(QKeySequence(Qt::Key_F1), this);
    QObject::connect(help, &QShortcut::activated, this, [this] { ShowHelp(); });
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    auto* body = new PageBody(this);
    QVBoxLayout* column = &body->Column();
    PadByGrid(column);
    auto* buttons = new QVBoxLayout;
    PadByGrid(buttons);
    whole->setSpacing(0);
    whole->addWidget(body, 1);
    whole->addLayout(buttons);
    whole->addWidget(strip_);
    strip_->KeepLines(kStripLines);

    QGridLayout* line = AddGroup(*column, "Line");
    for (Control* control : {&view.cboPort, &view.txtDevice, &view.cboBaud}) AddRow(*line, *control);
    line->addWidget(bound_.Make(view.cmdRefresh, this), kFirstRow, 2);
    for (Control* control : {&view.chkEcho, &view.chkWork}) AddWide(*line, *control);
    QGridLayout* meter = AddGroup(*column, "Meter");
    for (Control* control : {&view.cboProtocol, &view.cboParity, &view.cboAddress, &view.txtModbus,
                             &view.cboMeter, &view.txtVersion})
        AddRow(*meter, *control);
    AddWide(*meter, view.chkWakeUp);
    QGridLayout* node = AddGroup(*column, "Ethernet node");
    AddWide(*node, view.chkNode);
    for (Control* control : {&view.txtNode, &view.txtNodeIp, &view.txtNodeUdp, &view.txtTcp})
        AddRow(*node, *control);
    column->addStretch(1);
    AddButtons(*buttons);
    bound_.BindSpecial(view.lblResult, &strip_->Line(), [this] { strip_->ShowLine(view_.lblResult); });
    bound_.Bind(view_.pbFind, &strip_->Bar());
    strip_->Bar().setAccessibleName("Progress of the search");
    bound_.Refresh();
}

// The lists have their entries by now.
void LinkWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous()) resize(sizeHint().boundedTo(ScreenRoom(*this).size()));
}

void LinkWindow::ShowHelp() {
    HelpContent content{"Counter Link Help", 0, {}};
    for (const LinkHelpPiece& piece : kLinkHelp)
        content.Pieces.push_back({std::string(piece.Text), piece.Emphasised});
    (new HelpDialog(content, this))->open();
}

void LinkWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1) return ShowHelp();
    if (event->key() != Qt::Key_Escape || !view_.Cancel()) QWidget::keyPressEvent(event);
}

void LinkWindow::closeEvent(QCloseEvent* event) {
    if (!view_.MayClose()) return event->ignore();
    view_.StopSearch();
    QWidget::closeEvent(event);
}

QGridLayout* LinkWindow::AddGroup(QVBoxLayout& column, const QString& title) {
    auto* group = new QGroupBox(title, this);
    auto* grid = new QGridLayout(group);
    grid->setSpacing(kGrid);
    grid->setColumnStretch(1, 1);
    group->setMaximumWidth(fontMetrics().averageCharWidth() * kWidestGroup);
    column.addWidget(group);
    return grid;
}

void LinkWindow::AddRow(QGridLayout& grid, Control& control) {
    auto* caption = new QLabel(QtText(control.Caption), this);
    caption->setMinimumWidth(caption->fontMetrics().averageCharWidth() * kCaptionWidth);
    QWidget* field = bound_.Make(control, this);
    caption->setBuddy(field);
    const int row = grid.rowCount();
    grid.addWidget(caption, row, 0);
    grid.addWidget(field, row, 1);
}

void LinkWindow::AddWide(QGridLayout& grid, Control& control) {
    grid.addWidget(bound_.Make(control, this), grid.rowCount(), 0, 1, 3);
}

void LinkWindow::AddButtons(QVBoxLayout& column) {
    auto* row = new QHBoxLayout;
    row->addWidget(bound_.Make(view_.cmdTest, this));
    row->addWidget(bound_.Make(view_.cmdFind, this));
    row->addStretch(1);
    row->addWidget(bound_.Make(view_.cmdSave, this));
    row->addWidget(bound_.Make(view_.cmdSaveOpen, this));
    row->addWidget(bound_.Make(view_.cmdClose, this));
    column.addLayout(row);
}

}  // namespace counter
