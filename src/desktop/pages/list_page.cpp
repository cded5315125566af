#include "desktop/pages/list_page.h"

#include <QPaintEvent>
#include <QPainter>
#include <QVBoxLayout>

#include "desktop/kit/qt_text.h"

namespace counter {

namespace {

constexpr int kTwipsPerInch = 1440;
constexpr int kReadingCharacters = 8;
constexpr int kCellMargin = 2;
constexpr int kTallest = 13, kSmallest = 8;  // pixels of the font
constexpr int kClosest = 75;                 // percent of the font's own width

}  // namespace

// The cells as the view has them; what is painted is only what changed.
class ReadingGrid : public QWidget {
  public:
    ReadingGrid(ListView& view, QWidget* parent) : QWidget(parent), view_(view) {
        FitFont();
        setFocusPolicy(Qt::StrongFocus);
        setAttribute(Qt::WA_OpaquePaintEvent);  // nothing behind it is painted first
        setMinimumSize(fontMetrics().averageCharWidth() * 8 * ListView::kColumns / 2,
                       fontMetrics().height() * 10);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    }

    // The view sizes its grid by these.
    void TellSize() {
        view_.GridWidth = Twips(width());
        view_.GridHeight = Twips(height());
        view_.LineHeight = Twips(fontMetrics().height());
    }

    void Follow() {
        if (rows_ != view_.ListRows || shown_.size() != Count()) {
            rows_ = view_.ListRows;
            shown_.assign(Count(), std::string());
            update();
        }
        for (int row = 0; row < rows_; ++row) {
            for (int column = 0; column < ListView::kColumns; ++column) FollowCell(row, column);
        }
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painter.fillRect(event->rect(), palette().base());
        const int first = std::min(rows_, event->rect().top() / std::max(1, RowPixels()));
        for (int row = first; row < rows_ && row * RowPixels() <= event->rect().bottom(); ++row) {
            for (int column = 0; column < ListView::kColumns; ++column) {
                const QRect cell = CellRect(row, column);
                if (cell.intersects(event->rect())) PaintCell(painter, cell, row, column);
            }
        }
    }
    void mousePressEvent(QMouseEvent*) override { view_.PressTable(); }
    void resizeEvent(QResizeEvent*) override {
        FitFont();
        TellSize();
    }

  private:
    // A reading has a sign, six digits and a point. Where a column is too narrow for them, they are set
    // closer together, and smaller only when that is not enough.
    void FitFont() {
        QFont font = FixedPitchFont();
        font.setPixelSize(kTallest);
        const int room = width() / ListView::kColumns - 2 * kCellMargin;
        const QString widest(kReadingCharacters, QLatin1Char('0'));
        while (QFontMetrics(font).horizontalAdvance(widest) > room && font.pixelSize() > kSmallest) {
            const int stretch = 100 * room / QFontMetrics(font).horizontalAdvance(widest);
            QFont closer = font;
            closer.setStretch(std::max(stretch, kClosest));
            if (QFontMetrics(closer).horizontalAdvance(widest) <= room) {
                font = closer;
                break;
            }
            font.setPixelSize(font.pixelSize() - 1);
        }
        setFont(font);
    }
    // In front of a positive reading is a blank for its sign.
    static QString Shown(const std::string& text) {
        const QString shown = QtText(text);
        return shown.size() > kReadingCharacters ? shown.trimmed() : shown;
    }

    static bool IsBlank(const std::string& text) { return text.find_first_not_of(' ') == std::string::npos; }

    int Twips(int pixels) const { return pixels * kTwipsPerInch / logicalDpiY(); }
    std::size_t Count() const { return static_cast<std::size_t>(rows_) * ListView::kColumns; }

    int RowPixels() const { return view_.RowHeight * logicalDpiY() / kTwipsPerInch; }

    QRect CellRect(int row, int column) const {
        const int left = width() * column / ListView::kColumns;
        const int right = width() * (column + 1) / ListView::kColumns;
        return {left, row * RowPixels(), right - left, RowPixels()};
    }

    static std::size_t IndexOf(int row, int column) {
        return static_cast<std::size_t>(row) * ListView::kColumns + static_cast<std::size_t>(column);
    }
    void FollowCell(int row, int column) {
        std::string& shown = shown_[IndexOf(row, column)];
        const std::string& cell = view_.Cell(row, column);
        if (shown == cell) return;
        const bool looksTheSame = IsBlank(shown) && IsBlank(cell);
        shown = cell;
        if (!looksTheSame) update(CellRect(row, column));
    }

    void PaintCell(QPainter& painter, const QRect& cell, int row, int column) {
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(cell.adjusted(0, 0, -1, -1));
        const std::string& text = shown_[IndexOf(row, column)];
        if (IsBlank(text)) return;
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(cell.adjusted(kCellMargin, 0, -kCellMargin, 0), Qt::AlignVCenter | Qt::AlignLeft,
                         Shown(text));
    }

    ListView& view_;
    int rows_ = 0;
    std::vector<std::string> shown_;
};

ListPage::ListPage(ListView& view, QWidget* parent)
    : ViewPage(parent),
      view_(view),
      bound_(view.Controls),
      grid_(new ReadingGrid(view, this)),
      strip_(new StatusStrip(this)) {
    QVBoxLayout* column = strip_->LieBelow(this);
    column->addWidget(grid_, 1);
    column->addLayout(
        bound_.MakeButtonRow(this, {&view.cmdPause, &view.cmdContin, &view.cmdPrint, &view.cmdEnd}));
    bound_.BindSpecial(view.grdList, grid_, [this] { grid_->Follow(); });
    bound_.BindSpecial(view.lblStatus, &strip_->Line(), [this] { strip_->ShowLine(view_.lblStatus); });
    view_.Drawn = [this] { grid_->Follow(); };
    grid_->setAccessibleName("Readings");
    bound_.Refresh();
}

ListPage::~ListPage() {
    view_.Drawn = nullptr;
}

QString ListPage::Title() const {
    return QtText(ListView::kTitle);
}

void ListPage::ComeToFront() {
    grid_->TellSize();
    view_.Load();
    view_.Activate();
}

void ListPage::mousePressEvent(QMouseEvent*) {
    view_.PressTable();
}

}  // namespace counter
