#include "desktop/pages/facts_block.h"

#include <QShortcut>
#include <QVBoxLayout>

#include "desktop/kit/grid.h"
#include "desktop/kit/qt_text.h"
#include "desktop/kit/screen_colors.h"
#include "desktop/kit/wrapped_text.h"

namespace counter {

namespace {

constexpr int kRowsBeside = 4;  // of the backups: the facts, and what is left below them

QLabel* MakeHeading(const QString& text, QWidget* parent) {
    auto* heading = new QLabel(text, parent);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    heading->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    return heading;
}

}  // namespace

FactsBlock::FactsBlock(const Session& session, QWidget* parent)
    : QWidget(parent), facts_(session), grid_(new QGridLayout(this)) {
    grid_->setContentsMargins(0, 0, 0, 0);
    grid_->setHorizontalSpacing(2 * kGrid);
    grid_->setVerticalSpacing(kGrid);
    grid_->setColumnStretch(1, 1);
}

// Once there is a backup.
void FactsBlock::MakeBackups() {
    beside_ = new QWidget(this);
    auto* column = new QVBoxLayout(beside_);
    column->setContentsMargins(0, 0, 0, 0);
    QLabel* heading = MakeHeading(QStringLiteral("Latest backups"), beside_);
    backups_ = new QListWidget(beside_);
    backups_->setObjectName(QStringLiteral("lstBackups"));
    backups_->setAccessibleName(heading->text());
    backups_->setToolTip(QStringLiteral("A double click opens the backup"));
    backups_->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    column->addWidget(heading);
    column->addWidget(backups_, 1);
    grid_->addWidget(beside_, 0, 2, kRowsBeside, 1);
    grid_->setRowStretch(kRowsBeside - 1, 1);  // the facts stay together where the list is higher
    QObject::connect(backups_, &QListWidget::itemDoubleClicked, this, [this] { OpenCurrent(); });
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* enter = new QShortcut(QKeySequence(key), backups_, [this] { OpenCurrent(); });
        enter->setContext(Qt::WidgetShortcut);
    }
}

// The row's label, made with its heading where it was not yet.
QLabel* FactsBlock::TextOf(std::size_t row) {
    if (row < texts_.size()) return texts_[row];
    const HomeFact& fact = facts_.Facts[row];
    auto* text = new WrappedText(this);
    text->setObjectName(QtText(fact.Name));
    text->setAccessibleName(QtText(fact.Heading));
    const int place = static_cast<int>(row);
    auto* heading = new QVBoxLayout;
    heading->addWidget(MakeHeading(QtText(fact.Heading), this));
    if (row == 0 && link_) heading->addWidget(link_, 0, Qt::AlignLeft);
    heading->addStretch(1);
    grid_->addLayout(heading, place, 0);
    grid_->addWidget(text, place, 1);
    texts_.push_back(text);
    return text;
}

void FactsBlock::Follow() {
    if (!facts_.Follow()) return;
    for (std::size_t row = 0; row < facts_.Facts.size(); ++row) {
        const HomeFact& fact = facts_.Facts[row];
        QLabel* text = TextOf(row);
        text->setText(SystemText(fact.Text));
        QPalette palette;
        if (fact.Bad) palette.setColor(QPalette::WindowText, TextColorOf(ColorRed, palette));
        text->setPalette(palette);
    }
    ShowBackups();
}

void FactsBlock::ShowBackups() {
    const bool any = !facts_.Backups.empty();
    if (!backups_ && !any) return;
    if (!backups_) MakeBackups();
    beside_->setVisible(any);
    backups_->clear();
    for (const BackupFact& backup : facts_.Backups) backups_->addItem(SystemText(backup.Words));
}

void FactsBlock::OpenCurrent() {
    const int row = backups_->currentRow();
    if (row < 0 || !OpenBackup) return;
    const std::string path = facts_.Backups[static_cast<std::size_t>(row)].Path;
    OpenBackup(path);
}

}  // namespace counter
