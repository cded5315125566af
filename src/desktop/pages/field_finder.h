// FieldFinder: the dialog that searches all pages of the Setup view for a field and goes to it.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <functional>
#include <vector>

#include "setup_view/field_search.h"

namespace counter {

class FieldFinder : public QDialog {
  public:
    FieldFinder(SetupView& view, HelpWords help, QWidget* parent);

    // Opens with what was typed last, all of it marked. Doesn't wait.
    void Present();
    // The user picked a field that can be reached; the dialog has closed. May be empty.
    std::function<void(const Control&)> GoTo;

  protected:
    // The arrows of the line move in the list.
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void Search();
    void TellWhy();
    void Pick();

    SetupView& view_;
    HelpWords help_;
    QLineEdit* txtFind_;
    QListWidget* lstHits_;
    QLabel* lblWhy_;
    std::vector<FieldHit> hits_;
};

}  // namespace counter
