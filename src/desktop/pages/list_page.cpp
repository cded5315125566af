#include "desktop/pages/list_page.h"

#include <QVBoxLayout>

#include "desktop/kit/qt_text.h"
#include "desktop/pages/reading_grid.h"
#include "desktop/pages/reading_strip.h"

namespace counter {

ListPage::ListPage(ListView& view, QWidget* parent)
    : ViewPage(parent),
      view_(view),
      bound_(view.Controls),
      grid_(new ReadingGrid(view, this)),
      strip_(new StatusStrip(this)) {
    QVBoxLayout* column = strip_->LieBelow(this);
    column->addWidget(grid_, 1);
    auto* figures = new ReadingStrip(view, bound_, this);
    column->addWidget(figures);
    column->addLayout(
        bound_.MakeButtonRow(this, {&view.cmdPause, &view.cmdContin, &view.cmdPrint, &view.cmdEnd}));
    bound_.BindSpecial(view.grdList, grid_, [this] { grid_->Follow(); });
    bound_.BindSpecial(view.lblStatus, &strip_->Line(), [this] { strip_->ShowLine(view_.lblStatus); });
    view_.Drawn = [this, figures] {
        grid_->Follow();
        figures->FollowReadings();
    };
    view_.Measure = [this](const std::string& reading) { grid_->Measure(reading); };
    grid_->setAccessibleName("Readings");
    bound_.Refresh();
}

ListPage::~ListPage() {
    view_.Drawn = nullptr;
    view_.Measure = nullptr;
}

QString ListPage::Title() const {
    return QtText(ListView::kTitle);
}

void ListPage::ComeToFront() {
    view_.Load();
    grid_->BeginAnew();
    view_.Activate();
}

void ListPage::mousePressEvent(QMouseEvent*) {
    view_.PressTable();
}

}  // namespace counter
