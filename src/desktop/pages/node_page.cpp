#include "desktop/pages/node_page.h"

#include <QPushButton>

#include "desktop/kit/grid.h"
#include "desktop/kit/qt_text.h"

namespace counter {

NodePage::NodePage(NodeView& view, HomeView& home, QWidget* parent)
    : ViewPage(parent), view_(view), home_(home), text_(new QLabel(this)) {
    auto* quit = new QPushButton(QStringLiteral("&Quit"), this);
    quit_ = quit;
    quit->setObjectName(QStringLiteral("cmdQuit"));
    text_->setObjectName(QStringLiteral("lblNode"));
    text_->setWordWrap(true);
    text_->setAlignment(Qt::AlignHCenter);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(2 * kGrid);
    column->addStretch(1);
    column->addWidget(text_);
    column->addWidget(quit, 0, Qt::AlignHCenter);
    column->addStretch(2);
    QObject::connect(quit, &QPushButton::clicked, this, [this] { Leave(); });
    view_.Changed = [this] { text_->setText(QtText(view_.Text())); };
}

NodePage::~NodePage() {
    view_.Changed = nullptr;
}

QString NodePage::Title() const {
    return QtText(home_.Title);
}

}  // namespace counter
