#include "desktop/pages/changes_list.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QShortcut>
#include <QVBoxLayout>
#include <utility>

#include "desktop/kit/access_keys.h"
#include "desktop/kit/grid.h"
#include "desktop/kit/qt_text.h"
#include "session/take_setup.h"

namespace counter {

namespace {

constexpr int kChangeLines = 6;  // that are seen at once where there is little room
constexpr int kFieldRole = Qt::UserRole;

}  // namespace

QString ChangedWords(const Session& session) {
    if (session.Origin.From == SetupSource::Nothing) return QStringLiteral("No setup is in memory.");
    const int fields = FieldsChanged(session);
    const QString origin = SystemText(OriginInWords(session.Origin));
    if (fields == 0) return "No field differs from " + origin + ".";
    return (fields == 1 ? QStringLiteral("1 field differs")
                        : QStringLiteral("%1 fields differ").arg(fields)) +
           " from " + origin + ".";
}

ChangesList::ChangesList(const Session& session, QWidget* parent)
    : QWidget(parent), session_(session), heading_(new QLabel(this)), rows_(new QTreeWidget(this)) {
    setObjectName(QStringLiteral("changes"));
    rows_->setObjectName(QStringLiteral("lstChanges"));
    rows_->setAccessibleName(QStringLiteral("Changes"));
    rows_->setHeaderLabels(
        {QStringLiteral("Field"), QStringLiteral("Old"), QStringLiteral("New"), QStringLiteral("Who")});
    rows_->setRootIsDecorated(false);
    rows_->setUniformRowHeights(true);
    rows_->header()->setStretchLastSection(true);
    heading_->setObjectName(QStringLiteral("lblChanges"));
    heading_->setWordWrap(true);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kGrid / 2);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(kGrid);
    buttons->addWidget(heading_, 1);
    column->addLayout(buttons);
    column->addWidget(rows_, 1);
    column->addStretch(0);
    rows_->setVisible(false);
    back_ = AddButton("cmdBackTo", QStringLiteral("Back to the Setup Before"), [this] {
        if (GoBack) GoBack();
    });
    const int line = rows_->fontMetrics().height() + kGrid / 2;
    rows_->setMinimumHeight((kChangeLines + 1) * line);
    QObject::connect(rows_, &QTreeWidget::itemDoubleClicked, this, [this] { ChooseCurrent(); });
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* enter = new QShortcut(QKeySequence(key), rows_, [this] { ChooseCurrent(); });
        enter->setContext(Qt::WidgetShortcut);
    }
}

QPushButton* ChangesList::AddButton(const char* name, const QString& caption, std::function<void()> pressed) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    static_cast<QHBoxLayout*>(layout()->itemAt(0)->layout())->addWidget(button);
    QObject::connect(button, &QPushButton::clicked, this, std::move(pressed));
    return button;
}

void ChangesList::OfferUndo(std::function<void()> undo, std::function<void()> redo) {
    undo_ = AddButton("cmdUndo", QStringLiteral("Undo"), std::move(undo));
    redo_ = AddButton("cmdRedo", QStringLiteral("Redo"), std::move(redo));
    for (QPushButton* button : {undo_, redo_}) button->setProperty(kOwnKey, true);
    undo_->setToolTip(QStringLiteral("Ctrl+Z"));
    redo_->setToolTip(QStringLiteral("Ctrl+Shift+Z or Ctrl+Y"));
}

void ChangesList::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Follow();
}

void ChangesList::Follow() {
    if (!isVisible()) return;
    if (const QString words = ChangedWords(session_); heading_->text() != words) heading_->setText(words);
    back_->setVisible(session_.SetupBefore.has_value());
    back_->setEnabled(session_.Home.Transfers == 0);
    if (session_.SetupBefore)
        back_->setToolTip("Brings back the setup from " +
                          SystemText(OriginInWords(session_.SetupBefore->Origin)) +
                          ", as it was; this one is kept in its place.");
    if (undo_) undo_->setEnabled(session_.Changes.CanUndo());
    if (redo_) redo_->setEnabled(session_.Changes.CanRedo());
    std::vector<SetupChange> changes = ListChanges(session_);
    if (changes == shown_) return;
    rows_->setVisible(!changes.empty());
    Fill(changes);
    shown_ = std::move(changes);
}

// The row of the same field stays the current one.
void ChangesList::Fill(const std::vector<SetupChange>& changes) {
    const QTreeWidgetItem* before = rows_->currentItem();
    const QVariant current = before ? before->data(0, kFieldRole) : QVariant();
    rows_->clear();
    for (const SetupChange& change : changes) {
        auto* row = new QTreeWidgetItem(
            rows_, {QtText(change.Name), QtText(change.Old), QtText(change.New), QtText(change.Who)});
        row->setData(0, kFieldRole, static_cast<int>(change.Of));
        if (row->data(0, kFieldRole) == current) rows_->setCurrentItem(row);
    }
    for (int i = 0; i < rows_->columnCount() - 1; ++i) rows_->resizeColumnToContents(i);
}

void ChangesList::ChooseCurrent() {
    const QTreeWidgetItem* row = rows_->currentItem();
    if (row && Chosen) Chosen(static_cast<Field>(row->data(0, kFieldRole).toInt()));
}

}  // namespace counter
