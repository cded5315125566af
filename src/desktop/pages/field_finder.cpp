#include "desktop/pages/field_finder.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "desktop/kit/access_keys.h"
#include "desktop/kit/control_widget.h"
#include "desktop/kit/grid.h"
#include "desktop/kit/page_body.h"
#include "desktop/kit/qt_text.h"

namespace counter {

namespace {

constexpr int kColumns = 64;  // of the list, in average letters
constexpr int kLines = 14;

}  // namespace

FieldFinder::FieldFinder(SetupView& view, HelpWords help, QWidget* parent)
    : QDialog(parent),
      view_(view),
      help_(std::move(help)),
      txtFind_(new QLineEdit(this)),
      lstHits_(new QListWidget(this)),
      lblWhy_(new QLabel(this)) {
    setObjectName(QStringLiteral("fieldFinder"));
    setWindowTitle(QStringLiteral("Find a field"));
    setWindowModality(Qt::WindowModal);
    txtFind_->setObjectName(QStringLiteral("txtFind"));
    lstHits_->setObjectName(QStringLiteral("lstHits"));
    lstHits_->setAccessibleName(QStringLiteral("Fields that were found"));
    lblWhy_->setObjectName(QStringLiteral("lblWhy"));
    lblWhy_->setWordWrap(true);
    lblWhy_->setMinimumHeight(2 * lblWhy_->fontMetrics().lineSpacing());
    lblWhy_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto* column = new QVBoxLayout(this);
    PadByGrid(column);
    auto* row = new QHBoxLayout;
    auto* caption = new QLabel(QStringLiteral("Words of caption, value or help"), this);
    caption->setBuddy(txtFind_);
    txtFind_->setAccessibleName(caption->text());
    row->addWidget(caption);
    row->addWidget(txtFind_, 1);
    column->addLayout(row);
    column->addWidget(lstHits_, 1);
    column->addWidget(lblWhy_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    auto* go = new PushButton(QStringLiteral("Go to"), this);
    auto* close = new PushButton(QStringLiteral("Close"), this);
    go->setObjectName(QStringLiteral("cmdGoTo"));
    close->setObjectName(QStringLiteral("cmdClose"));
    go->setDefault(true);
    buttons->addWidget(go);
    buttons->addWidget(close);
    column->addLayout(buttons);
    QObject::connect(txtFind_, &QLineEdit::textChanged, this, [this] { Search(); });
    QObject::connect(lstHits_, &QListWidget::currentRowChanged, this, [this] { TellWhy(); });
    QObject::connect(lstHits_, &QListWidget::itemDoubleClicked, this, [this] { Pick(); });
    QObject::connect(go, &QPushButton::clicked, this, [this] { Pick(); });
    QObject::connect(close, &QPushButton::clicked, this, &QDialog::reject);
    txtFind_->installEventFilter(this);
    const QSize wanted(fontMetrics().averageCharWidth() * kColumns,
                       fontMetrics().lineSpacing() * kLines * 3 / 2);
    resize(wanted.expandedTo(sizeHint()).boundedTo(ScreenRoom(*this).size()));
}

void FieldFinder::Present() {
    Search();
    GiveAccessKeys(*this);
    open();
    txtFind_->setFocus(Qt::OtherFocusReason);
    txtFind_->selectAll();
}

void FieldFinder::Search() {
    hits_ = SearchFields(view_, txtFind_->text().toLatin1().toStdString(), help_);
    lstHits_->clear();
    for (const FieldHit& hit : hits_) {
        auto* item = new QListWidgetItem(QtText(hit.Line), lstHits_);
        if (hit.Why.empty()) continue;
        item->setForeground(palette().color(QPalette::Disabled, QPalette::Text));
        item->setToolTip(QtText(hit.Why));
        item->setData(Qt::AccessibleDescriptionRole, QtText(hit.Why));
    }
    lstHits_->setCurrentRow(hits_.empty() ? -1 : 0);
    TellWhy();
}

void FieldFinder::TellWhy() {
    const int row = lstHits_->currentRow();
    QString text;
    if (hits_.empty() && !txtFind_->text().trimmed().isEmpty())
        text = QStringLiteral("No field has these words.");
    if (row >= 0 && row < static_cast<int>(hits_.size()))
        text = QtText(hits_[static_cast<std::size_t>(row)].Why);
    lblWhy_->setText(text);
}

void FieldFinder::Pick() {
    const int row = lstHits_->currentRow();
    if (row < 0 || row >= static_cast<int>(hits_.size())) return;
    const FieldHit hit = hits_[static_cast<std::size_t>(row)];
    if (!hit.Why.empty()) return TellWhy();
    accept();
    if (GoTo) GoTo(*hit.Found);
}

bool FieldFinder::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            QCoreApplication::sendEvent(lstHits_, event);
            return true;
        }
    }
    return QDialog::eventFilter(object, event);
}

}  // namespace counter
