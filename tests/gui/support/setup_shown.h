// Whether the widgets of the Setup view show what its controls say.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <string>

#include "desktop/kit/control_widget.h"
#include "desktop/pages/setup_page.h"

namespace counter::test {

// What a widget shows that differs from what its control says; an empty text: nothing.
inline std::string Difference(const SetupPage& page, const Control& control) {
    const QWidget* widget = page.Bound().WidgetOf(control);
    bool enabled = control.Enabled, visible = control.Visible;
    for (const Control* around = control.Container; around; around = around->Container) {
        enabled = enabled && around->Enabled;
        visible = visible && around->Visible;
    }
    if (control.Tab != kEveryTab) visible = visible && control.Tab == page.View().CurrentTab();
    std::string text = control.Caption;
    QString shown = QString::fromStdString(text);
    if (auto* list = qobject_cast<const QComboBox*>(widget)) {
        text = control.ListIndex < 0 ? "" : control.Entries[static_cast<std::size_t>(control.ListIndex)];
        shown = list->currentText();
        if (list->count() != static_cast<int>(control.Entries.size())) return "has other entries";
    } else if (auto* value = qobject_cast<const QLineEdit*>(widget)) {
        text = control.Text;
        shown = value->text();
    } else if (auto* button = qobject_cast<const QAbstractButton*>(widget)) {
        shown = button->text().remove('&');
        if (button->isCheckable() && button->isChecked() != (control.Value == 1)) return "is set otherwise";
    } else if (auto* row = dynamic_cast<const CaptionRow*>(widget)) {
        shown = const_cast<CaptionRow*>(row)->Caption().text().remove('&');
    }
    if (shown.toStdString() != text) return "shows '" + shown.toStdString() + "', not '" + text + "'";
    if (widget->isVisible() != visible) return visible ? "is hidden" : "is on show";
    if (widget->isEnabled() != enabled) return enabled ? "is disabled" : "is enabled";
    return {};
}

inline void ExpectShown(const SetupPage& page, const std::string& when) {
    const int tab = page.View().CurrentTab();
    EXPECT_EQ(page.findChild<QTabWidget*>()->currentIndex(), tab) << when;
    for (const Control& control : page.View().Controls) {
        const std::string difference = Difference(page, control);
        EXPECT_TRUE(difference.empty()) << when << ": " << control.FullName() << " " << difference;
    }
}

// Focus and help number are of what is on show.
inline void ExpectInView(const SetupPage& page, int helpId) {
    const QWidget* focus = page.window()->focusWidget();
    EXPECT_TRUE(!focus || focus->isVisible()) << focus->objectName().toStdString();
    const auto helps = [&](const Control& control) {
        return control.HelpNumber == helpId &&
               (control.Tab == kEveryTab || control.Tab == page.View().CurrentTab());
    };
    const Form& form = page.View().Controls;
    EXPECT_TRUE(std::any_of(form.begin(), form.end(), helps)) << "help " << helpId;
}

}  // namespace counter::test
