// ReportDialog: a page of text with columns, to read and to copy.
#pragma once

#include <QDialog>
#include <string>

namespace counter {

// Of its own accord gone once it is closed. `text` in UTF-8.
class ReportDialog : public QDialog {
  public:
    ReportDialog(const std::string& title, const std::string& text, QWidget* parent);
};

}  // namespace counter
