#include "desktop/pages/menu_page.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

#include "desktop/kit/control_widget.h"
#include "desktop/kit/grid.h"
#include "desktop/kit/qt_text.h"
#include "menu_view/menu_words.h"
#include "meter/text.h"

namespace counter {

namespace {

// Of the layout in which overlays are placed.
constexpr int kLayoutRow = 270;
constexpr int kLayoutFirstRow = 440;

QLabel* MakeText(const char* name, std::string_view text, QWidget* parent) {
    auto* label = new QLabel(QtText(text), parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QPushButton* MakeButton(const char* name, std::string_view caption, QWidget* parent) {
    auto* button = new PushButton(PlainCaption(caption), parent);
    button->setObjectName(QLatin1String(name));
    return button;
}

// The row in words: by the keys it scrolls, and can be copied.
QTextEdit* MakeWords(QWidget* parent) {
    constexpr int kFewLines = 3;  // a low window scrolls
    auto* text = new QTextEdit(parent);
    text->setObjectName(QStringLiteral("txtWords"));
    text->setAccessibleName(QStringLiteral("The row in words"));
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setTabChangesFocus(true);
    text->setMinimumHeight(text->fontMetrics().lineSpacing() * kFewLines);
    return text;
}

HelpPlace PlaceFor(PointerEvent event) {
    return event == PointerEvent::Secondary ? HelpPlace::LeftEdge : HelpPlace::RightEdge;
}

}  // namespace

MenuPage::MenuPage(Session& session, Printer& printer, QWidget* parent)
    : ViewPage(parent),
      session_(session),
      printer_(printer),
      grdMain_(new SegmentGrid("grdMain", this)),
      beside_(new QWidget(this)),
      grdInput_(new SegmentGrid("grdInput", beside_)),
      grdScale1_(new SegmentGrid("grdScale1", beside_)),
      grdScale2_(new SegmentGrid("grdScale2", beside_)),
      lblNoChange_(MakeText("lblNoChange", kNoChangeText, beside_)),
      grdSetPt_(new SegmentGrid("grdSetPt", this)),
      lblSigCond_(MakeText("lblSigCond", "", this)),
      txtWords_(MakeWords(this)),
      cmdPrinter_(MakeButton("CmdPrinter", kPrintCaption, this)),
      cmdMainMenu_(MakeButton("cmdMainMenu", kMainMenuCaption, this)) {
    grdMain_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    // A click on these opens nothing that would take the mark off again.
    for (SegmentGrid* grid : {grdInput_, grdSetPt_}) grid->setSelectionMode(QAbstractItemView::NoSelection);
    auto* row = new QHBoxLayout(this);
    PadByGrid(row);
    row->addWidget(grdMain_);
    row->addWidget(beside_);
    row->addStretch(1);
    row->addWidget(MakeSide());
    ShowView();
    Wire();
}

// A grid that goes lets go of its row, which must not be told any more.
MenuPage::~MenuPage() {
    for (SegmentGrid* grid : {grdMain_, grdSetPt_}) {
        grid->removeEventFilter(this);
        grid->disconnect(this);
    }
}

QWidget* MenuPage::MakeSide() {
    auto* side = new QWidget(this);
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kGrid);
    auto* option = new QVBoxLayout;
    option->setSpacing(kGrid / 2);
    option->addWidget(MakeText("lblInputOption", kInputOptionCaption, side));
    option->addWidget(lblSigCond_);
    column->addLayout(option);
    column->addSpacing(kGrid);
    column->addWidget(grdSetPt_);
    column->addSpacing(kGrid);
    column->addWidget(MakeText("lblLocked", kLockedText, side));
    column->addWidget(txtWords_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(kGrid);
    buttons->addStretch(1);
    buttons->addWidget(cmdPrinter_);
    buttons->addWidget(cmdMainMenu_);
    column->addLayout(buttons);
    return side;
}

void MenuPage::Wire() {
    grdMain_->Picked = [this](int row, PointerEvent event) { Help(view_.HelpIdOfRow(row, event), event); };
    grdMain_->Moved = [this](int row) { Touch(view_.HelpIdOfRow(row, PointerEvent::Primary)); };
    grdScale1_->Picked = [this](int, PointerEvent event) { Help(kScale1HelpId, event); };
    grdScale2_->Picked = [this](int, PointerEvent event) { Help(kScale2HelpId, event); };
    for (SegmentGrid* grid : {grdMain_, grdSetPt_}) {
        grid->installEventFilter(this);
        QObject::connect(grid, &QTableWidget::currentCellChanged, this, [this, grid] { TellRow(grid); });
    }
    grdMain_->Scrolled = [this](int firstVisibleRow) {
        view_.ScrollTo(firstVisibleRow);
        PlaceOverlays();
    };
    QObject::connect(cmdPrinter_, &QPushButton::clicked, this, [this] { Print(); });
    QObject::connect(cmdMainMenu_, &QPushButton::clicked, this, [this] { Leave(); });
}

QString MenuPage::Title() const {
    return QtText(kMenuTitle);
}

void MenuPage::ComeToFront() {
    {
        const SetupActScope opening(session_.Changes, session_.Image, {"", "as the menu was opened"});
        view_ = BuildMenuView(session_.Image, session_.Identity, session_.Derived);
    }
    ShowView();
    grdMain_->setCurrentCell(0, 0, QItemSelectionModel::NoUpdate);
    grdMain_->scrollToTop();
    TellRow(grdMain_);
}

void MenuPage::PutAway() {
    view_ = MenuView();
    ShowView();
    txtWords_->clear();
}

void MenuPage::Leave() {
    if (GoHome) GoHome();
}

void MenuPage::HelpKey() {
    if (grdScale1_->hasFocus()) return Help(kScale1HelpId, PointerEvent::Primary);
    if (grdScale2_->hasFocus()) return Help(kScale2HelpId, PointerEvent::Primary);
    if (grdSetPt_->hasFocus()) return Help(kSetpointHelpId, PointerEvent::Primary);
    const int row = grdInput_->hasFocus() ? view_.InputPlace.Row : grdMain_->CurrentRow();
    Help(view_.HelpIdOfRow(row, PointerEvent::Primary), PointerEvent::Primary);
}

void MenuPage::ClearMark() {
    for (SegmentGrid* grid : {grdMain_, grdScale1_, grdScale2_}) grid->ClearMark();
}

void MenuPage::Touch(int helpId) {
    if (helpId != 0) session_.Views.HelpId = helpId;
}

void MenuPage::Help(int helpId, PointerEvent event) {
    if (helpId == 0) return;
    Touch(helpId);
    if (OpenRowHelp) OpenRowHelp(helpId, PlaceFor(event));
}

void MenuPage::ShowView() {
    const auto filled = [](int rows) { return static_cast<std::size_t>(rows) + 1; };
    grdMain_->ShowRows(std::span(view_.grdMain).first(filled(view_.MenuRowCount)));
    grdSetPt_->ShowRows(std::span(view_.grdSetPt).first(filled(view_.SetPtRowCount)));
    grdSetPt_->FixRows(view_.SetPtHeight);
    grdInput_->ShowDigits(view_.grdInput, QStringLiteral("Function"));
    grdScale1_->ShowDigits(view_.grdScale1, QStringLiteral("Multiplier of SCALE1"));
    grdScale2_->ShowDigits(view_.grdScale2, QStringLiteral("Multiplier of SCALE2"));
    lblSigCond_->setText(QtText(view_.lblSigCond));
    beside_->setMinimumWidth(std::max(grdInput_->width(), lblNoChange_->sizeHint().width()));
    PlaceOverlays();
}

void MenuPage::PlaceOverlays() {
    Place(grdInput_, view_.InputPlace);
    Place(grdScale1_, view_.Scale1Place);
    Place(grdScale2_, view_.Scale2Place);
    Place(lblNoChange_, view_.NoChangePlace);
}

// Beside its row, middle on middle.
void MenuPage::Place(QWidget* widget, const Overlay& overlay) {
    const int firstRow = grdMain_->horizontalHeader()->height() + grdMain_->frameWidth();
    const int rowHeight = grdMain_->RowHeight();
    const int top = firstRow + (overlay.Top - kLayoutFirstRow) * rowHeight / kLayoutRow;
    const QSize size = widget->sizeHint();
    widget->setGeometry(0, top + (rowHeight - size.height()) / 2, size.width(), size.height());
    widget->setVisible(overlay.Visible);
}

// A second page, as high as its rows; the first stays as it is scrolled.
PaperWork MenuPage::OnPaper() {
    auto whole = std::make_unique<MenuPage>(session_, printer_, nullptr);
    whole->ComeToFront();
    whole->setFont(font());
    whole->cmdPrinter_->hide();
    whole->cmdMainMenu_->hide();
    const int around = 2 * kGrid;
    whole->resize(width(), std::max(height(), whole->grdMain_->sizeHint().height() + around));
    PaperWork work;
    work.Instead = std::move(whole);
    return work;
}

void MenuPage::Print() {
    const Status status = printer_.PrintView();
    if (!status.Ok()) session_.Dialogs.Show({std::string(kMenuTitle), status.Text(), BoxIcon::Stop});
}

void MenuPage::TellRow(SegmentGrid* grid) {
    const int row = std::max(grid->CurrentRow(), 1);
    const bool ofMenu = grid == grdMain_;
    const int rows = ofMenu ? view_.MenuRowCount : view_.SetPtRowCount;
    if (row > rows) return txtWords_->clear();
    const auto place = static_cast<std::size_t>(row);
    const MenuRow& shown = ofMenu ? view_.grdMain[place] : view_.grdSetPt[place];
    QString text = QtText(Trimmed(shown.Name));
    for (const MenuWords& words :
         ofMenu ? WordsOfRow(view_, session_.Image, row) : WordsOfSetpoint(view_, row))
        text += QLatin1Char('\n') + QtText(LineOf(words));
    if (txtWords_->toPlainText() != text) txtWords_->setPlainText(text);
}

bool MenuPage::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::FocusIn) TellRow(static_cast<SegmentGrid*>(object));
    return ViewPage::eventFilter(object, event);
}

void MenuPage::resizeEvent(QResizeEvent* event) {
    ViewPage::resizeEvent(event);
    PlaceOverlays();
}

void MenuPage::showEvent(QShowEvent* event) {
    ViewPage::showEvent(event);
    PlaceOverlays();
}

}  // namespace counter
