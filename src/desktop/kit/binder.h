// Binder: one form and the widgets that show it, bound by the controls' names.
//
// It listens only to what a user does (activated, clicked, keys), and compares before it sets, so no echo can
// arise. The form refuses what a user could not reach; the widget then goes back to what the form says.
#pragma once

#include <QObject>
#include <functional>
#include <initializer_list>
#include <unordered_map>
#include <vector>

#include "controls/form.h"
#include "desktop/kit/qt_text.h"

class QAction;
class QHBoxLayout;
class QLineEdit;
class QWidget;

namespace counter {

class CaptionRow;

class Binder : public QObject {
  public:
    // The form's texts are in these characters; what a user types becomes such a text.
    explicit Binder(Form& form, Characters characters = Characters::Meter);
    ~Binder() override;

    // Makes the widget of a control and binds it.
    QWidget* Make(Control& control, QWidget* parent);
    // A frame that only wraps one control, as a row: the frame's caption, then the control, then the labels
    // that are in the frame.
    CaptionRow* MakeRow(Control& frame, Control& inner, QWidget* parent);
    // A group box, for a frame that holds more; its widgets are made with it as parent.
    QWidget* MakeGroup(Control& frame, QWidget* parent) { return Make(frame, parent); }
    // Buttons at the foot of a view, from the left in the order given; the last is alone at the right edge.
    QHBoxLayout* MakeButtonRow(QWidget* parent, std::initializer_list<Control*> buttons);
    // A widget that was made elsewhere, of the class that MakeWidget makes for the kind.
    void Bind(Control& control, QWidget* widget);
    // A control that a window shows itself (tab strip, menu entry): `show` sets what it shows.
    void BindSpecial(Control& control, QWidget* widget, std::function<void()> show);
    // A menu entry and its action, which takes over its flags.
    void BindAction(Control& control, QAction* action);

    // A button, as by its user.
    void Press(const Control& button);

    // Shows what the form says; what is shown already is left alone.
    void Refresh();

    QWidget* WidgetOf(const Control& control) const;
    // Null where the widget is none of the form's.
    Control* ControlOf(const QObject* widget) const;
    // Controls that no widget shows; asked for by tests.
    std::vector<const Control*> Unbound() const;

    // Told of each action that the form refused; may be empty.
    std::function<void(const Control&, Refusal)> Refused;
    // A digit or a sign was typed on a value, after that was clicked because of it; may be empty.
    std::function<void(const Control&, char key)> TypedOnValue;
    // Told of what was typed, in UTF-8, where it has characters that the meter lacks: the entry stays as it
    // was. May be empty.
    std::function<void(const Control&, const std::string& typed)> Unfit;

  protected:
    // Focus coming by a user, clicks on labels, Enter in entries.
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    struct Bound {
        Control* Of;
        QWidget* Shown;              // null: an action
        std::function<void()> Show;  // of a special one
    };

    void Listen(Control& control, QWidget* widget);
    void Typed(Control& entry, QLineEdit& line);
    void Done(const Control& control, Refusal refusal);
    void ShowOne(const Bound& bound);
    QWidget* Window() const;
    void GiveKeys();
    QWidget* FocusOfOurs() const;
    void HandFocusOn(QWidget& from);
    void MoveFocus(const Control& control);

    Form& form_;
    const Characters characters_;
    std::vector<Bound> bound_;
    std::unordered_map<const QObject*, Control*> byWidget_;
    std::unordered_map<const Control*, QWidget*> byControl_;
    bool movingFocus_ = false;
};

}  // namespace counter
