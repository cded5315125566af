#include "desktop/pages/chart_page.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <utility>

#include "desktop/kit/chart_files.h"
#include "desktop/kit/grid.h"
#include "desktop/kit/qt_text.h"

namespace counter {

namespace {

constexpr int kEntryCharacters = 14;
constexpr QLatin1String kBetween("    ");

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
    column->addLayout(bound_.MakeButtonRow(this, {&view.cmdNewScale, &view.cmdPause, &view.cmdContinue,
                                                  &view.cmdSave, &view.cmdPrint, &view.cmdEnd}));
    NameChart();
    bound_.BindSpecial(view.lblStatus, &strip_->Line(), [this] { strip_->ShowLine(view_.lblStatus); });
    view_.Drawn = [this] { chart_->Follow(); };
    view_.SaveBitmap = [this](const std::string& path) {
        return SaveChartPicture(chart_->Layers(), chart_->size(), chart_->devicePixelRatioF(), path,
                                PictureFormat::Bmp);
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

// The state and the scale change with the controls, the last reading comes between; whoever reads the
// screen is told of the former and hears the latter when he asks.
void ChartPage::NameChart() {
    bound_.BindSpecial(view_.Picture1, chart_, [this] {
        chart_->Follow();
        const QString state = QtText(view_.Describe()).section(QLatin1Char('.'), 0, 0);
        if (std::exchange(described_, state) != state) chart_->TellDescription();
    });
    chart_->setAccessibleName(title_.left(1) + title_.mid(1).toLower());
    chart_->Describe = [this] { return QtText(view_.Describe()); };
}

PaperWork ChartPage::OnPaper() {
    const WallTime now = view_.Program.Pump.LocalTime();
    const QDateTime date(QDate(now.Year, now.Month, now.Day), QTime(now.Hour, now.Minute));
    const QString meter = QStringLiteral("Meter address %1").arg(view_.Program.Settings.MeterAddressValue);
    return {{title_ + kBetween + date.toString(QStringLiteral("yyyy-MM-dd HH:mm")) + kBetween + meter,
             QtText(view_.ScaleText())},
            chart_,
            [this](QPainter& painter) { PaintChart(painter, chart_->rect(), chart_->Layers()); }};
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
        field->setFixedWidth(field->fontMetrics().horizontalAdvance(QLatin1Char('0')) * kEntryCharacters);
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
