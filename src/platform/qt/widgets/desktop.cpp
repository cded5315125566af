#include "platform/qt/widgets/desktop.h"

#include <QApplication>

namespace counter {

Desktop::Desktop(Session& session)
    : session_(session), home_(session), window_(std::make_unique<MainWindow>()) {
    homePage_ = new HomePage(home_, window_.get());
    window_->AddPage(homePage_);
    window_->setMenuBar(homePage_->MenuBar());
    pages_[ViewId::Home] = homePage_;
    home_.Open = [this](ViewId view) { return Open(view); };
    const std::function<void()> shown = session_.Home.Changed;
    session_.Home.Changed = [this, shown] {
        shown();
        ShowHourglass();
    };
    home_.Load();
}

Desktop::~Desktop() {
    if (hourglassShown_) QApplication::restoreOverrideCursor();
}

void Desktop::GoHome() {
    if (ViewPage* page = window_->Current(); page && page != homePage_) page->PutAway();
    window_->ShowPage(homePage_, true);
    homePage_->ComeToFront();
    ShowHourglass();
}

bool Desktop::Open(ViewId view) {
    ViewPage* page = PageOf(view);
    if (!page) return false;
    page->ComeToFront();
    window_->ShowPage(page, false);
    return true;
}

ViewPage* Desktop::PageOf(ViewId view) {
    if (auto made = pages_.find(view); made != pages_.end()) return made->second;
    ViewPage* page = MakePage(view);
    if (!page) return nullptr;
    window_->AddPage(page);
    return pages_[view] = page;
}

ViewPage* Desktop::MakePage(ViewId) {
    return nullptr;
}

void Desktop::ShowHourglass() {
    if (session_.Home.Hourglass == hourglassShown_) return;
    hourglassShown_ = session_.Home.Hourglass;
    if (hourglassShown_) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

}  // namespace counter
