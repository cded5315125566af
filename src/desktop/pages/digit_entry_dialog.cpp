#include "desktop/pages/digit_entry_dialog.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/kit/access_keys.h"
#include "desktop/kit/control_widget.h"
#include "desktop/kit/grid.h"
#include "desktop/kit/qt_text.h"

namespace counter {

namespace {

// The title tells the field and its limits: it is to be read whole, between the buttons that frames have.
int WidthOfTitle(const QWidget& window) {
    constexpr int kFrame = 140;  // pixels
    const int text = window.fontMetrics().horizontalAdvance(window.windowTitle());
    return std::min(text * 11 / 10 + kFrame, window.screen()->availableGeometry().width() * 3 / 4);
}

}  // namespace

DigitEntryDialog::DigitEntryDialog(DigitEntry& entry, QWidget* parent)
    : QDialog(parent),
      entry_(entry),
      bound_(entry.Controls),
      front_(new DigitFront(entry, this)),
      width_(new QSpacerItem(0, 0)) {
    setObjectName(QStringLiteral("frmEntVal"));
    setWindowTitle(QLatin1String(DigitEntry::kTitle));
    setWindowModality(Qt::WindowModal);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(2 * kGrid, 2 * kGrid, 2 * kGrid, kGrid);
    column->setSpacing(2 * kGrid);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(front_, 0, Qt::AlignHCenter);
    column->addItem(width_);
    auto* buttons = new QHBoxLayout;
    column->addLayout(buttons);
    AddButtons(*buttons);
    front_->Acted = [this] { Follow(); };
    entry_.Controls.Changed = [this] { Follow(); };
    entry_.OpenHelp = [this](int helpNumber) {
        hide();
        if (OpenHelp) OpenHelp(helpNumber);
    };
}

void DigitEntryDialog::AddButtons(QHBoxLayout& layout) {
    layout.addStretch(1);
    for (const char* name : {"cmdOK", "cmdCancel"}) {
        Control& control = *entry_.Controls.Find(name);
        auto* button = new PushButton(QtText(control.Caption), this);
        button->setObjectName(ObjectName(control));
        bound_.BindSpecial(control, button, [] {});
        QObject::connect(button, &QPushButton::clicked, this, [this, &control] { Press(control); });
        layout.addWidget(button);
    }
    findChild<QPushButton*>(QStringLiteral("cmdOK"))->installEventFilter(this);
}

// OK hides the dialog and pauses. In the pause it may have been dropped with its view, and opened again from
// there. A byte that was refused is typed anew.
void DigitEntryDialog::Press(Control& button) {
    if (!entry_.Shown()) return;
    const int opening = opening_;
    pausing_ = true;
    entry_.Controls.Click(button);
    if (opening != opening_) return;
    pausing_ = false;
    if (entry_.Shown()) return front_->setFocus(Qt::OtherFocusReason);
    if (Closed) Closed();
}

void DigitEntryDialog::Present(const QWidget* field, bool lowPlace) {
    beepsHeard_ = entry_.Beeps();
    setWindowTitle(QtText(entry_.Title()));
    front_->Refresh();
    GiveAccessKeys(*this);
    width_->changeSize(WidthOfTitle(*this), 0);
    layout()->invalidate();
    adjustSize();
    if (field) {
        const QRect place(field->mapToGlobal(QPoint()), field->size());
        move(PlaceBeside(place, size(), field->screen()->availableGeometry(), lowPlace));
    }
    open();
    front_->setFocus(Qt::OtherFocusReason);
}

void DigitEntryDialog::TypeFirst(char key) {
    if (!entry_.Shown() || isHidden()) return;
    entry_.FirstKey(key);
    Follow();
}

void DigitEntryDialog::Drop() {
    ++opening_;
    pausing_ = false;
    entry_.Unload();
    hide();
}

void DigitEntryDialog::Follow() {
    if (isHidden()) return;
    front_->Refresh();
    if (entry_.Beeps() > beepsHeard_) front_->Blink(entry_.RefusedBox());
    if (Beep && entry_.Beeps() > beepsHeard_) Beep();
    beepsHeard_ = entry_.Beeps();
    if (Followed) Followed();
    if (!entry_.Shown()) hide();
}

void DigitEntryDialog::reject() {
    Press(*entry_.Controls.Find("cmdCancel"));
}

void DigitEntryDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_F1) return QDialog::keyPressEvent(event);
    event->accept();
    if (entry_.Shown()) entry_.HelpKey();
}

bool DigitEntryDialog::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(object, event);
    const QByteArray typed = TypedBy(*static_cast<QKeyEvent*>(event));
    if (typed != "." || !entry_.Shown()) return QDialog::eventFilter(object, event);
    entry_.KeyOnOk('.');
    Follow();
    return true;
}

QPoint PlaceBeside(const QRect& field, const QSize& dialog, const QRect& screen, bool lowPlace) {
    // The window's frame is above the given place, so a row of the page is left free for it.
    const int frame = field.height() + kGrid;
    const int below = field.bottom() + frame + (lowPlace ? field.height() : 0);
    const int above = field.top() - dialog.height() - kGrid;
    const bool fits = below + dialog.height() <= screen.bottom();
    const int right = screen.right() - dialog.width();
    const int left = std::max(screen.left(), std::min(field.left(), right));
    return {left, fits ? below : std::max(screen.top() + frame, above)};
}

}  // namespace counter
