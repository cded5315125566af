#include "desktop/pages/compare_page.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QShortcut>
#include <QTableWidget>
#include <QVBoxLayout>
#include <set>

#include "desktop/kit/control_widget.h"
#include "desktop/kit/grid.h"
#include "desktop/kit/qt_text.h"

namespace counter {

ComparePage::ComparePage(CompareView& view, QWidget* parent)
    : ViewPage(parent),
      view_(view),
      bound_(view.Controls, Characters::System),
      strip_(new StatusStrip(this)),
      table_(new QTableWidget(this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kGrid);
    auto* inner = new QVBoxLayout;
    inner->setContentsMargins(kGrid, kGrid, kGrid, 0);
    inner->setSpacing(kGrid);
    inner->addWidget(MakeChoices());
    auto* other = static_cast<QLabel*>(bound_.Make(view.lblOther, this));
    other->setWordWrap(true);
    inner->addWidget(other);
    MakeTable();
    inner->addWidget(table_, 1);
    inner->addLayout(
        bound_.MakeButtonRow(this, {&view.cmdTake, &view.cmdCsv, &view.cmdCopy, &view.cmdMainMenu}));
    column->addLayout(inner, 1);
    column->addWidget(strip_);
    bound_.BindSpecial(view.lblStatus, &strip_->Line(), [this] { strip_->ShowLine(view_.lblStatus); });
    bound_.Bind(view.pbBar, &strip_->Bar());
    strip_->Bar().setAccessibleName(QStringLiteral("Progress of the transfer"));
    strip_->AddCancel(bound_.Make(view.cmdCancel, strip_), [&view] { view.Cancel(); });
    view.Controls.Changed = [this] { ShowAll(); };
    view.ToClipboard = [](const std::string& text) { QApplication::clipboard()->setText(SystemText(text)); };
    ShowAll();
}

ComparePage::~ComparePage() {
    view_.Controls.Changed = nullptr;
    view_.ToClipboard = nullptr;
}

QString ComparePage::Title() const {
    return QtText(CompareView::kTitle);
}

QWidget* ComparePage::MakeChoices() {
    auto* choices = new QWidget(this);
    auto* row = new QHBoxLayout(choices);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kGrid);
    row->addWidget(bound_.Make(view_.cmdFile, choices));
    row->addWidget(bound_.Make(view_.cmdMeter, choices));
    row->addWidget(bound_.MakeRow(view_.Backup.Frame, view_.Backup.Inner, choices));
    row->addWidget(bound_.Make(view_.chkDiffer, choices));
    row->addStretch(1);
    return choices;
}

void ComparePage::MakeTable() {
    table_->setObjectName(QStringLiteral("grdCompare"));
    table_->setAccessibleName(QStringLiteral("Fields of both setups"));
    QStringList headings;
    for (const std::string_view heading : kCompareHeadings) headings += QtText(heading);
    table_->setColumnCount(static_cast<int>(headings.size()));
    table_->setHorizontalHeaderLabels(headings);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + kGrid);
    QHeaderView& header = *table_->horizontalHeader();
    header.setSectionResizeMode(QHeaderView::ResizeToContents);
    for (const int values : {2, 3}) header.setSectionResizeMode(values, QHeaderView::Stretch);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setTabKeyNavigation(false);
    QObject::connect(table_, &QTableWidget::itemSelectionChanged, this, [this] { TellMarks(); });
    auto* copy = new QShortcut(QKeySequence::Copy, table_);
    copy->setContext(Qt::WidgetShortcut);
    QObject::connect(copy, &QShortcut::activated, this, [this] { bound_.Press(view_.cmdCopy); });
}

void ComparePage::TellMarks() {
    std::set<std::size_t> rows;
    for (const QModelIndex& index : table_->selectionModel()->selectedRows())
        rows.insert(static_cast<std::size_t>(index.row()));
    view_.Mark({rows.begin(), rows.end()});
}

void ComparePage::ShowAll() {
    ShowRows();
    TellMarks();
    bound_.Refresh();
}

// Only what is another is set anew: the marks of rows that stay as they are stay as well.
void ComparePage::ShowRows() {
    std::vector<std::vector<std::string>> rows;
    for (const FieldPair& row : view_.Rows()) rows.push_back(CellsOf(row));
    if (rows == shown_) return;
    shown_ = rows;
    table_->clearSelection();
    table_->setRowCount(static_cast<int>(rows.size()));
    int line = 0;
    for (const auto& cells : rows) {
        int place = 0;
        for (const std::string& cell : cells)
            table_->setItem(line, place++, new QTableWidgetItem(SystemText(cell)));
        ++line;
    }
}

}  // namespace counter
