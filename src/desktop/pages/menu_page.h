// MenuPage: the whole setup as the meter's panel shows it, in the program's window.
//
// The row in focus stands in words at the side. What is shown beside a row of the main grid (Function,
// multipliers, a note) follows its scrolling. The view is rebuilt each time that it comes to the front and
// thrown away when it is put away.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QTextEdit>
#include <functional>

#include "desktop/kit/paper_page.h"
#include "desktop/kit/view_page.h"
#include "desktop/pages/help_dialog.h"
#include "desktop/pages/segment_grid.h"
#include "menu_view/menu_view.h"
#include "platform/printer.h"
#include "session/session.h"

namespace counter {

class MenuPage : public ViewPage, public PaperPage {
  public:
    MenuPage(Session& session, Printer& printer, QWidget* parent);
    ~MenuPage() override;

    QString Title() const override;
    void ComeToFront() override;
    void PutAway() override;
    void Leave() override;
    // Help of the row that the keys move from, or of what stands beside the rows and has the focus.
    void HelpKey() override;
    QWidget* FirstFocus() override { return grdMain_; }
    // All rows, those that are scrolled out of the window as well.
    PaperWork OnPaper() override;

    // The marks of the rows go off, once the help window is closed.
    void ClearMark();

    // The help window opens over this page; its number is in Session::Views too. May be empty, as may GoHome.
    std::function<void(int helpId, HelpPlace place)> OpenRowHelp;
    std::function<void()> GoHome;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    // Whichever grid gets the focus, its row is told.
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    QWidget* MakeSide();
    void Wire();
    void Help(int helpId, PointerEvent event);
    void Touch(int helpId);
    void ShowView();
    void PlaceOverlays();
    void Place(QWidget* widget, const Overlay& overlay);
    void Print();
    void TellRow(SegmentGrid* grid);

    Session& session_;
    Printer& printer_;
    MenuView view_;
    SegmentGrid* grdMain_;
    QWidget* beside_;  // the strip where the overlays are
    SegmentGrid* grdInput_;
    SegmentGrid* grdScale1_;
    SegmentGrid* grdScale2_;
    QLabel* lblNoChange_;
    SegmentGrid* grdSetPt_;
    QLabel* lblSigCond_;
    QTextEdit* txtWords_;
    QPushButton* cmdPrinter_;
    QPushButton* cmdMainMenu_;
};

}  // namespace counter
