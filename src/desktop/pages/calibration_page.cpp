#include "desktop/pages/calibration_page.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "desktop/kit/grid.h"
#include "desktop/kit/page_body.h"
#include "desktop/kit/qt_text.h"

namespace counter {

namespace {

constexpr int kFrequencyCharacters = 14;

void SetCharacters(QWidget* widget) {
    widget->setFixedWidth(widget->fontMetrics().horizontalAdvance(QLatin1Char('0')) * kFrequencyCharacters);
}

}  // namespace

CalibrationPage::CalibrationPage(CalibrationView& view, QWidget* parent)
    : ViewPage(parent), view_(view), bound_(view.Controls) {
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(3 * kGrid, 2 * kGrid, 3 * kGrid, kGrid);
    whole->setSpacing(kGrid);
    auto* body = new PageBody(this);
    QVBoxLayout* column = &body->Column();
    for (Control* text : {&view.lblProc, &view.picCAL1}) column->addWidget(bound_.Make(*text, this));
    QFont bold = font();
    bold.setBold(true);
    bound_.WidgetOf(view.lblProc)->setFont(bold);
    auto* ask = new QHBoxLayout;
    ask->addWidget(bound_.Make(view.lblEnter, this));
    ask->addWidget(bound_.Make(view.txtFreq, this));
    ask->addStretch(1);
    SetCharacters(bound_.WidgetOf(view.txtFreq));
    bound_.WidgetOf(view.txtFreq)->setAccessibleName(QtText(view.lblEnter.Caption));
    column->addLayout(ask);
    for (Control* text : {&view.picCAL2, &view.lblCalc, &view.lblReturn})
        column->addWidget(bound_.Make(*text, this));
    auto* factor = new QHBoxLayout;
    for (Control* part : {&view.lblSet, &view.txtScaleFactor, &view.lblPPM, &view.lblRange})
        factor->addWidget(bound_.Make(*part, this));
    factor->addStretch(1);
    SetCharacters(bound_.WidgetOf(view.txtScaleFactor));
    column->addLayout(factor);
    column->addWidget(bound_.Make(view.lblDone, this));
    column->addStretch(1);
    whole->addWidget(body, 1);
    whole->addLayout(bound_.MakeButtonRow(this, {&view.cmdOK, &view.cmdCANCEL}));
    for (Control* stage : {&view.lblCalc, &view.lblReturn, &view.lblSet, &view.txtScaleFactor, &view.lblPPM,
                           &view.lblRange, &view.lblDone})
        KeepPlace(bound_.WidgetOf(*stage));
    bound_.Refresh();
}

QString CalibrationPage::Title() const {
    return QtText(CalibrationView::kTitle);
}

void CalibrationPage::Leave() {
    if (view_.Running()) {
        view_.WantEnd();
        QApplication::beep();
        return;
    }
    view_.Controls.Click(view_.cmdOK.Visible ? view_.cmdOK : view_.cmdCANCEL);
}

}  // namespace counter
