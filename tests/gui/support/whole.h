// Whether all of a window can be read, whatever the size of the font.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QTabBar>
#include <QTest>
#include <string>

namespace counter::test {

// Another size of the program's font, as long as it lives.
class FontScale {
  public:
    explicit FontScale(double factor) : before_(QApplication::font()) {
        QFont font = before_;
        font.setPointSizeF(font.pointSizeF() * factor);
        QApplication::setFont(font);
    }
    ~FontScale() { QApplication::setFont(before_); }

  private:
    QFont before_;
};

// It is in reach: of what scrolls only up and down, and of nothing that is wider than the window.
inline void ExpectInReach(const QWidget& widget, const QWidget& window, const std::string& name) {
    const QWidget* within = &window;
    for (const QWidget* around = widget.parentWidget(); around && around != &window;
         around = around->parentWidget()) {
        if (qobject_cast<const QScrollArea*>(around)) within = around;
        if (within != &window) break;
    }
    const QRect place(widget.mapTo(within, QPoint()), widget.size());
    EXPECT_TRUE(place.left() >= 0 && place.right() < within->width()) << name << " is cut at the side";
    const bool scrolls = within != &window;
    EXPECT_TRUE(scrolls || (place.top() >= 0 && place.bottom() < within->height()))
        << name << " is out of reach";
}

// Every widget with a text has the room that its text needs and lies within what it is in; it may have to be
// scrolled sideways where the window is too small for its font.
inline void ExpectWhole(const QWidget& shown, const std::string& when, bool mayScroll = false) {
    for (const QWidget* widget : shown.findChildren<QWidget*>()) {
        const bool text = qobject_cast<const QLabel*>(widget) || qobject_cast<const QComboBox*>(widget) ||
                          qobject_cast<const QAbstractButton*>(widget) ||
                          qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QGroupBox*>(widget);
        // The arrows of a strip of tabs that is too long are no texts.
        if (!text || !widget->isVisible() || qobject_cast<const QTabBar*>(widget->parentWidget())) continue;
        const std::string name = when + ": " + widget->objectName().toStdString();
        const QSize need = widget->minimumSizeHint();
        EXPECT_TRUE(widget->width() >= need.width() && widget->height() >= need.height())
            << name << " " << QTest::toString(widget->size()) << " needs " << QTest::toString(need);
        if (widget->objectName() == "lblNoChange") continue;  // scrolls away with the row that it is beside
        if (!mayScroll) ExpectInReach(*widget, shown, name);
        EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << name << " sticks out";
    }
    for (const QTabBar* strip : shown.findChildren<QTabBar*>()) {
        for (int tab = 0; tab < strip->count(); ++tab)
            EXPECT_GE(strip->tabRect(tab).width(),
                      strip->fontMetrics().horizontalAdvance(strip->tabText(tab)))
                << when;
    }
}

}  // namespace counter::test
