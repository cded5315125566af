// ColumnList: a list whose entries are in columns, under a heading that says where each begins.
#pragma once

#include <QComboBox>

namespace counter {

// "Meter Reset       Func Reset          Meter Reset" has three parts, two blanks or more between them. In
// the heading runs of "-" are between the columns, and its columns are wider than those of the entries, so
// each entry is drawn with blanks that put its parts below the columns. Box and heading have one fixed pitch.
class ColumnList : public QComboBox {
  public:
    ColumnList(QWidget* parent, const QString& heading);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    // Pixels from the box's left edge to the text in it, for the heading above.
    int TextInset() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    // A turning wheel must not change a setup.
    void wheelEvent(QWheelEvent* event) override;

  private:
    QRect TextRect() const;

    QString heading_;
};

// The entry with its parts moved below the heading's columns; parts that the heading lacks are left out.
QString SpreadEntry(const QString& entry, const QString& heading);

}  // namespace counter
