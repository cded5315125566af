// ChangesList: in which fields the setup in memory differs from what came, who changed them, and the ways
// back.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <functional>

#include "session/change_list.h"

namespace counter {

class ChangesList : public QWidget {
  public:
    ChangesList(const Session& session, QWidget* parent);

    // Shows what has changed, where that is another than before. Cheap while it is hidden.
    void Follow();

    // A double click on a row, or Enter; may be empty.
    std::function<void(Field)> Chosen;
    // The setup that was in memory before; may be empty.
    std::function<void()> GoBack;
    // From now on there are buttons for these two.
    void OfferUndo(std::function<void()> undo, std::function<void()> redo);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void Fill(const std::vector<SetupChange>& changes);
    void ChooseCurrent();
    QPushButton* AddButton(const char* name, const QString& caption, std::function<void()> pressed);

    const Session& session_;
    QLabel* heading_;
    QTreeWidget* rows_;
    QPushButton* back_;
    QPushButton* undo_ = nullptr;
    QPushButton* redo_ = nullptr;
    std::vector<SetupChange> shown_;
};

// "3 fields changed since what was read from the meter"
QString ChangedWords(const Session& session);

}  // namespace counter
