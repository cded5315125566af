// FactsBlock: what the home view tells below its text, and the latest backups.
#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <functional>
#include <vector>

#include "shell/home_facts.h"

namespace counter {

class FactsBlock : public QWidget {
  public:
    FactsBlock(const Session& session, QWidget* parent);

    // Shows what has changed.
    void Follow();

    // A double click on a backup, or Enter; may be empty.
    std::function<void(const std::string& path)> OpenBackup;

    // Below the heading of the meter; the button of a control of the view.
    void ShowLinkButton(QWidget* button) { link_ = button; }

  private:
    QLabel* TextOf(std::size_t row);
    void MakeBackups();
    void ShowBackups();
    void OpenCurrent();

    HomeFacts facts_;
    QGridLayout* grid_;
    std::vector<QLabel*> texts_;
    QWidget* link_ = nullptr;
    QWidget* beside_ = nullptr;  // the backups with their heading
    QListWidget* backups_ = nullptr;
};

}  // namespace counter
