#include "desktop/kit/binder.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QProgressBar>
#include <algorithm>
#include <optional>

#include "desktop/kit/access_keys.h"
#include "desktop/kit/control_widget.h"
#include "desktop/kit/screen_colors.h"
#include "meter/text.h"

namespace counter {

namespace {

void ShowEntries(const Control& control, QComboBox& list, Characters characters) {
    bool same = list.count() == static_cast<int>(control.Entries.size());
    for (int i = 0; same && i < list.count(); ++i)
        same = list.itemText(i) == TextOf(control.Entries[static_cast<std::size_t>(i)], characters);
    if (!same) {
        list.clear();
        for (std::string_view entry : control.Entries) list.addItem(TextOf(entry, characters));
    }
    if (list.currentIndex() != control.ListIndex) list.setCurrentIndex(control.ListIndex);
}

// Widgets of a caption share a property of that name but no class.
void ShowCaption(const Control& control, QWidget& widget) {
    const bool hasKey = control.Kind == ControlKind::Button && control.Caption.find('&') != std::string::npos;
    const QString caption = hasKey ? QtText(control.Caption) : PlainCaption(control.Caption);
    const char* name = control.Kind == ControlKind::Frame ? "title" : "text";
    // The mark of an access key that was given to it is no other caption.
    const bool same = WithoutKey(widget.property(name).toString()) == WithoutKey(caption);
    if (!same) widget.setProperty(name, caption);
}

void ShowLine(const QString& text, QLineEdit& line) {
    if (line.text() == text) return;
    line.setText(text);
    line.setCursorPosition(0);
}

// That of a field has an access key. One with a name of its own says its text as well.
void ShowLabel(const QString& text, QLabel& label) {
    const bool key = label.buddy() != nullptr;
    const QString shown = key ? WithoutKey(label.text()) : label.text();
    if (shown != text) label.setText(key ? WithoutKeys(text) : text);
    if (!label.accessibleName().isEmpty() && label.accessibleDescription() != text)
        label.setAccessibleDescription(text);
}

void ShowValue(const Control& control, QWidget* widget, Characters characters) {
    switch (control.Kind) {
        case ControlKind::List:
            return ShowEntries(control, *static_cast<QComboBox*>(widget), characters);
        case ControlKind::Check:
        case ControlKind::Option:
            static_cast<QAbstractButton*>(widget)->setChecked(control.Value == 1);
            return ShowCaption(control, *widget);
        case ControlKind::Value:
        case ControlKind::Entry:
            return ShowLine(TextOf(control.Text, characters), *static_cast<QLineEdit*>(widget));
        case ControlKind::Picture:
            return ShowLabel(TextOf(control.Text, characters), *static_cast<QLabel*>(widget));
        case ControlKind::Label:
            return ShowLabel(TextOf(control.Caption, characters), *static_cast<QLabel*>(widget));
        case ControlKind::Progress:
            return static_cast<QProgressBar*>(widget)->setValue(control.Value);
        default:
            if (auto* row = dynamic_cast<CaptionRow*>(widget))
                return ShowLabel(QtText(control.Caption), row->Caption());
            return ShowCaption(control, *widget);
    }
}

// A colour that no rule has set, or the one at rest, is the system's own.
void ShowColors(const Control& control, QWidget* widget) {
    const QPalette& whole = widget->parentWidget() ? widget->parentWidget()->palette() : widget->palette();
    QPalette palette;
    const bool text =
        control.TextColor && *control.TextColor != ColorBlack && *control.TextColor != ColorGray;
    if (text) {
        const QColor color = TextColorOf(*control.TextColor, whole);
        for (auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
            palette.setColor(role, color);
    }
    const bool back =
        control.BackColor && *control.BackColor != ColorWhite && *control.BackColor != ColorGray;
    if (back) {
        const QColor color = BackColorOf(*control.BackColor, whole);
        for (auto role : {QPalette::Base, QPalette::Button, QPalette::Window}) palette.setColor(role, color);
    }
    if (palette == widget->palette() && palette.resolveMask() == widget->palette().resolveMask()) return;
    const bool label = control.Kind == ControlKind::Label || control.Kind == ControlKind::Picture;
    if (label) widget->setAutoFillBackground(back);
    widget->setPalette(palette);
}

// What a reader of the screen says: the control's own caption, or that of the frame around it. A label is
// read by the text that it shows at the time.
void NameForAccess(const Control& control, QWidget* widget) {
    if (control.Kind == ControlKind::Label || control.Kind == ControlKind::Picture) return;
    std::string name = control.Caption;
    for (const Control* around = control.Container; name.empty() && around; around = around->Container)
        name = around->Caption;
    if (name.empty()) name = control.FullName();
    std::erase(name, '&');
    widget->setAccessibleName(QtText(name).trimmed());
}

bool CanHaveFocus(const QWidget& widget, const QWidget* window) {
    return widget.isVisibleTo(window) && widget.isEnabledTo(window);
}

}  // namespace

Binder::Binder(Form& form, Characters characters) : form_(form), characters_(characters) {
    form_.Changed = [this] { Refresh(); };
    form_.FocusMoved = [this](const Control& control) { MoveFocus(control); };
}

Binder::~Binder() {
    form_.Changed = nullptr;
    form_.FocusMoved = nullptr;
}

QWidget* Binder::Make(Control& control, QWidget* parent) {
    QWidget* widget = MakeWidget(control, parent);
    Bind(control, widget);
    return widget;
}

CaptionRow* Binder::MakeRow(Control& frame, Control& inner, QWidget* parent) {
    auto* row = new CaptionRow(parent, frame.Caption);
    row->setObjectName(ObjectName(frame));
    BindSpecial(frame, row, [] {});
    row->AddField(Make(inner, row), 1);
    for (Control& other : form_) {
        if (other.Container == &frame && &other != &inner) row->AddField(Make(other, row));
    }
    return row;
}

QHBoxLayout* Binder::MakeButtonRow(QWidget* parent, std::initializer_list<Control*> buttons) {
    auto* row = new QHBoxLayout;
    for (Control* button : buttons) {
        if (button == *(buttons.end() - 1)) row->addStretch(1);
        row->addWidget(Make(*button, parent));
    }
    return row;
}

void Binder::Bind(Control& control, QWidget* widget) {
    BindSpecial(control, widget, nullptr);
    Listen(control, widget);
}

void Binder::BindSpecial(Control& control, QWidget* widget, std::function<void()> show) {
    bound_.push_back({&control, widget, std::move(show)});
    byWidget_[widget] = &control;
    byControl_[&control] = widget;
    NameForAccess(control, widget);
    widget->installEventFilter(this);
}

void Binder::BindAction(Control& control, QAction* action) {
    action->setObjectName(ObjectName(control));
    byWidget_[action] = &control;
    bound_.push_back({&control, nullptr, [&control, action] {
                          action->setEnabled(control.Enabled);
                          action->setVisible(control.Visible);
                          if (action->isCheckable()) action->setChecked(control.Value == 1);
                      }});
}

void Binder::Listen(Control& control, QWidget* widget) {
    Control* const of = &control;
    if (auto* list = qobject_cast<QComboBox*>(widget)) {
        connect(list, &QComboBox::activated, this,
                [this, of](int index) { Done(*of, form_.Select(*of, index)); });
    } else if (auto* box = qobject_cast<QCheckBox*>(widget)) {
        connect(box, &QCheckBox::clicked, this,
                [this, of](bool on) { Done(*of, form_.Check(*of, on ? 1 : 0)); });
    } else if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
        connect(button, &QAbstractButton::clicked, this, [this, of] { Done(*of, form_.Click(*of)); });
    } else if (auto* value = dynamic_cast<ValueBox*>(widget)) {
        value->Opened = [this, of] { Done(*of, form_.Click(*of)); };
        value->Typed = [this, of](char key) {
            Done(*of, form_.Click(*of));
            if (TypedOnValue) TypedOnValue(*of, key);
        };
    } else if (auto* entry = qobject_cast<QLineEdit*>(widget)) {
        connect(entry, &QLineEdit::textEdited, this, [this, of, entry] { Typed(*of, *entry); });
        connect(entry, &QLineEdit::returnPressed, this, [this, of] { Done(*of, form_.Enter(*of)); });
    }
}

// What does not fit goes back whole, and the cursor to where it was.
void Binder::Typed(Control& entry, QLineEdit& line) {
    const std::string typed = line.text().toStdString();
    const auto text = characters_ == Characters::System ? std::optional(typed) : FromUtf8(typed);
    if (text) return Done(entry, form_.Type(entry, *text));
    const auto added = line.text().size() - QtText(entry.Text).size();
    const auto cursor = std::max<qsizetype>(line.cursorPosition() - added, 0);
    if (Unfit) Unfit(entry, typed);
    Refresh();
    line.setCursorPosition(static_cast<int>(cursor));
}

void Binder::Done(const Control& control, Refusal refusal) {
    if (refusal == Refusal::None) return;  // the form has told what changed
    if (Refused) Refused(control, refusal);
    Refresh();
}

// A widget that is hidden or disabled while it has the focus passes it on, which no user did.
void Binder::Refresh() {
    const bool before = movingFocus_;
    movingFocus_ = true;
    QWidget* focus = FocusOfOurs();
    for (const Bound& bound : bound_) ShowOne(bound);
    if (focus) HandFocusOn(*focus);
    movingFocus_ = before;
    GiveKeys();
}

QWidget* Binder::Window() const {
    const auto first =
        std::find_if(bound_.begin(), bound_.end(), [](const Bound& bound) { return bound.Shown; });
    return first == bound_.end() ? nullptr : first->Shown->window();
}

// What comes on show may bring captions with it.
void Binder::GiveKeys() {
    if (QWidget* window = Window()) GiveAccessKeys(*window);
}

QWidget* Binder::FocusOfOurs() const {
    const QWidget* window = Window();
    QWidget* focus = window ? window->focusWidget() : nullptr;
    return ControlOf(focus) ? focus : nullptr;
}

// The toolkit itself finds nothing where what takes its place comes on show a little later, and does not look
// behind another window: keys would go where nobody sees them.
void Binder::HandFocusOn(QWidget& from) {
    const QWidget* window = from.window();
    const QWidget* now = window->focusWidget();
    if (CanHaveFocus(from, window) || (now && CanHaveFocus(*now, window))) return;
    for (QWidget* next = from.nextInFocusChain(); next != &from; next = next->nextInFocusChain()) {
        if (!(next->focusPolicy() & Qt::TabFocus) || !CanHaveFocus(*next, window)) continue;
        next->setFocus(Qt::OtherFocusReason);
        return;
    }
    from.clearFocus();
}

void Binder::ShowOne(const Bound& bound) {
    const Control& control = *bound.Of;
    QWidget* widget = bound.Shown;
    if (bound.Show) {
        bound.Show();
        if (!widget) return;
    } else {
        ShowValue(control, widget, characters_);
        ShowColors(control, widget);
    }
    if (auto* row = dynamic_cast<CaptionRow*>(widget)) ShowValue(control, row, characters_);
    const bool hidden = widget->testAttribute(Qt::WA_WState_ExplicitShowHide) && widget->isHidden();
    if (hidden == control.Visible) widget->setVisible(control.Visible);
    const bool disabled = widget->testAttribute(Qt::WA_ForceDisabled);
    if (disabled == control.Enabled) widget->setEnabled(control.Enabled);
}

void Binder::Press(const Control& button) {
    if (auto* widget = qobject_cast<QAbstractButton*>(WidgetOf(button))) widget->click();
}

QWidget* Binder::WidgetOf(const Control& control) const {
    auto found = byControl_.find(&control);
    return found == byControl_.end() ? nullptr : found->second;
}

Control* Binder::ControlOf(const QObject* widget) const {
    auto found = byWidget_.find(widget);
    return found == byWidget_.end() ? nullptr : found->second;
}

std::vector<const Control*> Binder::Unbound() const {
    std::vector<const Control*> list;
    for (const Control& control : form_) {
        const bool shown = std::any_of(bound_.begin(), bound_.end(),
                                       [&control](const Bound& bound) { return bound.Of == &control; });
        if (!shown) list.push_back(&control);
    }
    return list;
}

void Binder::MoveFocus(const Control& control) {
    QWidget* widget = WidgetOf(control);
    if (!widget) return;
    const bool before = movingFocus_;
    movingFocus_ = true;
    Refresh();  // a widget that was hidden or disabled takes no focus
    widget->setFocus(Qt::OtherFocusReason);
    movingFocus_ = before;
}

bool Binder::eventFilter(QObject* object, QEvent* event) {
    Control* control = ControlOf(object);
    if (!control) return false;
    if (event->type() == QEvent::FocusIn && !movingFocus_) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason == Qt::MouseFocusReason || reason == Qt::ShortcutFocusReason) form_.Focus(*control);
        if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason) form_.FocusByTab(*control);
    }
    const bool label = control->Kind == ControlKind::Label || control->Kind == ControlKind::Picture;
    if (event->type() == QEvent::MouseButtonPress && label) form_.Click(*control);
    return false;
}

}  // namespace counter
