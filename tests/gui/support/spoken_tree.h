// What readers of the screen, and fingers at the keyboard, find in a window.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QProgressBar>
#include <QRadioButton>
#include <QTabBar>
#include <map>
#include <string>

namespace counter::test {

// Whatever can take the focus says what it is, and by which name.
inline void ExpectSpoken(QAccessibleInterface* element, const std::string& when) {
    if (!element || !element->isValid() || element->state().invisible) return;
    const QString name = element->text(QAccessible::Name).trimmed();
    const QString object = element->object() ? element->object()->objectName() : QString();
    const QAccessible::Role role = element->role();
    const bool filler =
        role == QAccessible::Client || role == QAccessible::NoRole || role == QAccessible::LayeredPane;
    const std::string which = when + ": " + object.toStdString() + " '" + name.toStdString() + "'";
    if (element->state().focusable && !element->state().disabled) {
        EXPECT_FALSE(filler) << which << " is a filler of role " << role;
        EXPECT_FALSE(name.isEmpty() || name == object) << which << " has no name, role " << role;
    }
    const bool option = qobject_cast<QRadioButton*>(element->object()) != nullptr;
    EXPECT_TRUE(!option || role == QAccessible::RadioButton) << which << " is no option";
    for (int i = 0; i < element->childCount(); ++i) ExpectSpoken(element->child(i), which);
}

// Each button and tab on show has an access key that no other caption has, and so have all fields but a few.
class KeysOf {
  public:
    explicit KeysOf(const QWidget& window, std::string when) : when_(std::move(when)) {
        const auto* main = qobject_cast<const QMainWindow*>(&window);
        if (main && main->menuWidget()->isVisible()) {
            for (const QAction* heading : main->menuWidget()->actions()) Expect(heading->text());
        }
        for (const QWidget* widget : window.findChildren<QWidget*>()) {
            if (widget->isVisible() && widget->window() == &window) Look(*widget);
        }
        EXPECT_LE(without_, 3) << when_;
    }

  private:
    void Look(const QWidget& widget) {
        if (const auto* strip = qobject_cast<const QTabBar*>(&widget)) {
            for (int tab = 0; tab < strip->count(); ++tab) Expect(strip->tabText(tab));
        } else if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
            if (label->buddy() && label->buddy()->isEnabled()) Expect(label->text(), true);
        } else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
            if (button->isEnabled() && !button->property("ownKey").toBool())
                Expect(button->text(), button->isCheckable());
        }
    }
    void Expect(const QString& caption, bool field = false) {
        const QKeySequence key = QKeySequence::mnemonic(caption);
        if (caption.trimmed().isEmpty()) return;
        EXPECT_TRUE(field || !key.isEmpty()) << when_ << ": " << caption.toStdString() << " has no key";
        without_ += key.isEmpty() ? 1 : 0;
        if (key.isEmpty()) return;
        QString& owner = keys_[key.toString().back()];
        EXPECT_TRUE(owner.isEmpty()) << when_ << ": " << caption.toStdString() << " and "
                                     << owner.toStdString();
        owner = caption;
    }

    const std::string when_;
    std::map<QChar, QString> keys_;
    int without_ = 0;
};

}  // namespace counter::test
