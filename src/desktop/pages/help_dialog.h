// HelpDialog: the window of a help text, over the window that opened it.
#pragma once

#include <QDialog>
#include <functional>
#include <string>
#include <vector>

class QTextEdit;

namespace counter {

struct HelpPiece {
    std::string Text;  // CR LF ends a line
    bool Emphasised = false;
};

// Where the window is, within the one that it is over.
enum class HelpPlace { Middle, LeftEdge, RightEdge };

struct HelpContent {
    std::string Title;
    int Width = 0;  // twips, 1/1440 inch; 0: the standard width
    std::vector<HelpPiece> Pieces;
    bool FixedPitch = false;  // the text is a table
    HelpPlace Place = HelpPlace::Middle;
};

class HelpDialog : public QDialog {
  public:
    HelpDialog(const HelpContent& content, QWidget* parent);

    // Shown by open(), modal over its parent; deletes itself once closed.

    // By the button, Enter, Escape or the window's own button. May be empty.
    std::function<void()> Closed;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QTextEdit* MakeText(const HelpContent& content);

    HelpPlace place_;
};

}  // namespace counter
