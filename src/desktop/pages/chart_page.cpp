#include "desktop/pages/chart_page.h"

#include <QAbstractButton>
#include <QDateTime>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QShortcut>
#include <QVBoxLayout>
#include <utility>

#include "desktop/kit/chart_files.h"
#include "desktop/kit/control_widget.h"
#include "desktop/kit/grid.h"
#include "desktop/kit/qt_text.h"
#include "desktop/pages/reading_strip.h"

namespace counter {

namespace {

constexpr int kEntryCharacters = 14;
constexpr QLatin1String kBetween("    ");
constexpr int kLeastCharacters = 8;  // in a window that is narrow

}  // namespace

ChartPage::ChartPage(ChartView& view, std::string_view title, QWidget* parent)
    : ViewPage(parent),
      view_(view),
      title_(QtText(title)),
      bound_(view.Controls),
      chart_(new ChartWidget(view.Chart, this)),
      explorer_(view, *chart_),
      strip_(new StatusStrip(this)) {
    QVBoxLayout* column = strip_->LieBelow(this);
    AddScaleEntry(*column);
    column->addWidget(chart_, 1);
    auto* figures = new ReadingStrip(view, bound_, this);
    column->addWidget(figures);
    column->addLayout(MakeOptions());
    column->addLayout(bound_.MakeButtonRow(this, {&view.cmdNewScale, &view.cmdPause, &view.cmdContinue,
                                                  &view.cmdSave, &view.cmdPrint, &view.cmdEnd}));
    NameChart();
    bound_.BindSpecial(view.lblStatus, &strip_->Line(), [this] { strip_->ShowLine(view_.lblStatus); });
    view_.Drawn = [this, figures] {
        explorer_.Follow();
        figures->FollowReadings();
    };
    view_.SaveBitmap = [this](const std::string& path) {
        return SaveChartPicture(chart_->Layers(), chart_->size(), chart_->devicePixelRatioF(), path,
                                PictureFormat::Bmp);
    };
    view_.SavePicture = [this](const std::string& path) {
        return SaveChartPicture(chart_->Layers(), chart_->size(), chart_->devicePixelRatioF(), path,
                                PictureFormatOf(path));
    };
    bound_.Refresh();
    setTabOrder(bound_.WidgetOf(view.cmdLast), chart_);
    Explain();  // captions are shown by now: a new one takes a button's key
}

ChartPage::~ChartPage() {
    view_.Drawn = nullptr;
    view_.SaveBitmap = nullptr;
    view_.SavePicture = nullptr;
}

QString ChartPage::Title() const {
    return title_;
}

// The state and the scale change with the controls, the last reading comes between; whoever reads the
// screen is told of the former and hears the latter when he asks.
void ChartPage::NameChart() {
    bound_.BindSpecial(view_.Picture1, chart_, [this] {
        explorer_.FollowAll();
        const QString state = QtText(view_.Describe()).section(QLatin1Char('.'), 0, 0);
        if (std::exchange(described_, state) != state) chart_->TellDescription();
    });
    chart_->setObjectName(ObjectName(view_.Picture1));
    chart_->setAccessibleName(title_.left(1) + title_.mid(1).toLower());
    chart_->Describe = [this] {
        const std::string cursor = explorer_.CursorText();
        return QtText(view_.Describe() + (cursor.empty() ? "" : " Cursor: " + cursor + "."));
    };
}

PaperWork ChartPage::OnPaper() {
    const WallTime now = view_.Program.Pump.LocalTime();
    const QDateTime date(QDate(now.Year, now.Month, now.Day), QTime(now.Hour, now.Minute));
    const QString meter = QStringLiteral("Meter address %1").arg(view_.Program.Settings.MeterAddressValue);
    return {{title_ + kBetween + date.toString(QStringLiteral("yyyy-MM-dd HH:mm")) + kBetween + meter,
             QtText(view_.ScaleText())},
            chart_,
            [this](QPainter& painter) { PaintChart(painter, chart_->rect(), chart_->Layers()); },
            nullptr};
}

// The place of the entry stays when it closes, so that the chart keeps its size. Captions stand above the
// numbers, so that all of it has room on a small screen with large letters.
void ChartPage::AddScaleEntry(QVBoxLayout& column) {
    auto* entry = new QGridLayout;
    entry->setHorizontalSpacing(kGrid);
    entry->setVerticalSpacing(0);
    Control* const pairs[][2] = {{&view_.lblMidVal, &view_.txtMidVal},
                                 {&view_.lblSmallVal, &view_.txtSmallVal},
                                 {&view_.lblThird, &view_.txtThird}};
    int place = 0;
    for (const auto& [label, number] : pairs) {
        QWidget* field = bound_.Make(*number, this);
        field->setAccessibleName(QtText(label->Caption));
        const int digit = field->fontMetrics().horizontalAdvance(QLatin1Char('0'));
        field->setMinimumWidth(digit * kLeastCharacters);
        field->setMaximumWidth(digit * kEntryCharacters);
        entry->addWidget(bound_.Make(*label, this), 0, place);
        entry->addWidget(field, 1, place++);
    }
    for (Control* button : {&view_.cmdOK, &view_.cmdAuto, &view_.cmdLast})
        entry->addWidget(bound_.Make(*button, this), 1, place++);
    entry->setColumnStretch(place, 1);
    for (int i = 0; i < entry->count(); ++i) {
        if (QWidget* widget = entry->itemAt(i)->widget()) KeepPlace(widget);
    }
    column.addLayout(entry);
}

// How the chart is looked at: beside the buttons, since none of it changes what the meter does.
QHBoxLayout* ChartPage::MakeOptions() {
    auto* row = new QHBoxLayout;
    row->setSpacing(kGrid);
    QLabel* caption = nullptr;
    for (Control* control : view_.Options) {
        QWidget* widget = bound_.Make(*control, this);
        row->addWidget(widget);
        if (caption) {
            caption->setBuddy(widget);
            widget->setAccessibleName(caption->text());
        }
        caption = qobject_cast<QLabel*>(widget);
    }
    row->addStretch(1);
    row->addWidget(bound_.Make(view_.cmdPicture, this));
    return row;
}

void ChartPage::Explain() {
    const struct {
        const char *Name, *Tip;
    } tips[] = {{"cmdNewScale", "Ends the run and asks for a scale"},
                {"cmdAuto", "A scale that the latest readings fill"},
                {"cmdLast", "The scale of the last run"},
                {"cboItem", "Which value of a frame with several is shown"},
                {"cboSecond", "A second value of the same frames, in another colour"},
                {"chkSetpoints", "Setpoints of the setup in memory, of the alarms that watch the item"},
                {"chkRolling", "The newest reading stays at the right edge and the chart never ends"},
                {"cmdPicture", "The chart as a PNG, SVG or BMP file"}};
    for (const auto& [name, tip] : tips) {
        if (auto* widget = findChild<QWidget*>(QLatin1String(name))) widget->setToolTip(QLatin1String(tip));
    }
}

void ChartPage::ComeToFront() {
    view_.Load();
    view_.Activate();
}

}  // namespace counter
