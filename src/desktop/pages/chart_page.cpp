#include "desktop/pages/chart_page.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "desktop/kit/grid.h"
#include "desktop/kit/qt_text.h"
#include "desktop/pages/reading_strip.h"

namespace counter {

namespace {

constexpr int kEntryCharacters = 14;
constexpr int kLeastCharacters = 8;  // in a window that is narrow

}  // namespace

ChartPage::ChartPage(ChartView& view, std::string_view title, QWidget* parent)
    : ViewPage(parent),
      view_(view),
      title_(QtText(title)),
      bound_(view.Controls),
      chart_(new ChartWidget(view.Chart, this)),
      strip_(new StatusStrip(this)) {
    QVBoxLayout* column = strip_->LieBelow(this);
    AddScaleEntry(*column);
    column->addWidget(chart_, 1);
    auto* figures = new ReadingStrip(view, bound_, this);
    column->addWidget(figures);
    column->addLayout(bound_.MakeButtonRow(this, {&view.cmdNewScale, &view.cmdPause, &view.cmdContinue,
                                                  &view.cmdSave, &view.cmdPrint, &view.cmdEnd}));
    bound_.BindSpecial(view.Picture1, chart_, [this] { chart_->Follow(); });
    bound_.BindSpecial(view.lblStatus, &strip_->Line(), [this] { strip_->ShowLine(view_.lblStatus); });
    view_.Drawn = [this, figures] {
        chart_->Follow();
        figures->FollowReadings();
    };
    view_.SaveBitmap = [this](const std::string& path) {
        return SaveChartBitmap(view_.Chart, chart_->size() * chart_->devicePixelRatioF(), path);
    };
    bound_.Refresh();
}

ChartPage::~ChartPage() {
    view_.Drawn = nullptr;
    view_.SaveBitmap = nullptr;
}

QString ChartPage::Title() const {
    return title_;
}

// The place of the entry stays when it closes, so that the chart keeps its size.
void ChartPage::AddScaleEntry(QVBoxLayout& column) {
    auto* row = new QHBoxLayout;
    row->setSpacing(kGrid);
    Control* const pairs[][2] = {{&view_.lblMidVal, &view_.txtMidVal},
                                 {&view_.lblSmallVal, &view_.txtSmallVal},
                                 {&view_.lblThird, &view_.txtThird}};
    for (const auto& [label, entry] : pairs) {
        QWidget* caption = bound_.Make(*label, this);
        QWidget* field = bound_.Make(*entry, this);
        field->setAccessibleName(QtText(label->Caption));
        const int digit = field->fontMetrics().horizontalAdvance(QLatin1Char('0'));
        field->setMinimumWidth(digit * kLeastCharacters);
        field->setMaximumWidth(digit * kEntryCharacters);
        row->addWidget(caption);
        row->addWidget(field);
    }
    row->addWidget(bound_.Make(view_.cmdOK, this));
    row->addStretch(1);
    for (int i = 0; i < row->count(); ++i) {
        if (QWidget* widget = row->itemAt(i)->widget()) KeepPlace(widget);
    }
    column.addLayout(row);
}

void ChartPage::ComeToFront() {
    view_.Load();
    view_.Activate();
}

}  // namespace counter
