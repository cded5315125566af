#include "desktop/pages/send_curve_dialog.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

#include "desktop/kit/grid.h"
#include "desktop/kit/page_body.h"
#include "desktop/kit/qt_text.h"

namespace counter {

namespace {

constexpr int kTextLines = 20;  // the explanation, and what the transfer writes below it
constexpr int kTextColumns = 78;

}  // namespace

SendCurveDialog::SendCurveDialog(SendCurveView& view, QWidget* parent)
    : QDialog(parent), view_(view), bound_(view.Controls, Characters::System) {
    setWindowTitle(QtText(SendCurveView::kTitle));
    auto* column = new QVBoxLayout(this);
    PadByGrid(column);
    auto* text = static_cast<QLabel*>(bound_.Make(view.picSend, this));
    text->setFont(FixedPitchFont());
    text->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    text->setBackgroundRole(QPalette::Base);
    text->setAutoFillBackground(true);
    text->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    text->setMargin(kGrid);
    const QFontMetrics metrics = text->fontMetrics();
    text->setMinimumSize(metrics.horizontalAdvance(QLatin1Char('0')) * kTextColumns + 4 * kGrid,
                         metrics.lineSpacing() * kTextLines);
    auto* body = new PageBody(this);
    body->Column().addWidget(text);
    column->addWidget(body, 1);
    auto* group = static_cast<QGroupBox*>(bound_.MakeGroup(view.fraVF, this));
    auto* options = new QHBoxLayout(group);
    for (Control* option : {&view.optMainBd, &view.optVFBd}) options->addWidget(bound_.Make(*option, group));
    column->addWidget(group);
    auto* grid = new QGridLayout;
    Control* const pairs[][2] = {{&view.lblPath, &view.txtPath}, {&view.lblFileName, &view.txtFileName}};
    for (const auto& [label, entry] : pairs) {
        const int row = grid->rowCount();
        grid->addWidget(bound_.Make(*label, this), row, 0);
        grid->addWidget(bound_.Make(*entry, this), row, 1);
        bound_.WidgetOf(*entry)->setAccessibleName(QtText(label->Caption));
    }
    column->addLayout(grid);
    column->addLayout(bound_.MakeButtonRow(this, {&view.cmdGo, &view.cmdCancel, &view.cmdDone}));
    bound_.Refresh();
}

void SendCurveDialog::OpenFresh(std::function<void()> closed) {
    closed_ = std::move(closed);
    view_.CloseDialog = [this] {
        hide();
        view_.Unload();
        if (closed_) closed_();
    };
    view_.Load();
    resize(sizeHint().boundedTo(ScreenRoom(*this).size()));
    open();
    bound_.WidgetOf(view_.txtFileName)->setFocus();
}

void SendCurveDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_F1) return QDialog::keyPressEvent(event);
    event->accept();
    if (OpenHelp) OpenHelp(view_.cmdGo.HelpNumber);
}

void SendCurveDialog::reject() {
    if (view_.Cancel()) return;
    view_.Controls.Click(view_.cmdDone);
}

}  // namespace counter
