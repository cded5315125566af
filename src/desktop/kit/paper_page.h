// What a page puts on paper by itself, where a picture of its widgets would be no more than a picture.
#pragma once

#include <QPainter>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <memory>

namespace counter {

struct PaperWork {
    QStringList Head;                     // lines above the view: what it is, of which meter, when
    QWidget* Part = nullptr;              // not printed as it is on the screen; null: there is none
    std::function<void(QPainter&)> Draw;  // in its place, in its own coordinates
    std::unique_ptr<QWidget> Instead;     // printed in the place of the whole page; null: the page itself
};

// A page of such a kind; the printer asks it.
class PaperPage {
  public:
    virtual ~PaperPage() = default;
    virtual PaperWork OnPaper() = 0;
};

}  // namespace counter
