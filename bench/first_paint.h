// Ends the program once a window has been painted.
#pragma once

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

class EndsAfterFirstPaint : public QObject {
  public:
    explicit EndsAfterFirstPaint(QWidget& window) { window.installEventFilter(this); }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
        return false;
    }
};
