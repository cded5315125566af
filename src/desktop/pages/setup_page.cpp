#include "desktop/pages/setup_page.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>
#include <map>
#include <memory>
#include <utility>

#include "desktop/kit/access_keys.h"
#include "desktop/kit/page_body.h"
#include "desktop/kit/qt_text.h"
#include "session/take_setup.h"

namespace counter {

namespace {

constexpr int kLiveCharacters = 8;  // "-.00001" is the longest reading

}  // namespace

SetupPage::SetupPage(SetupView& view, QWidget* parent)
    : ViewPage(parent),
      view_(view),
      bound_(view.Controls),
      layout_(view, bound_),
      entry_({view.Program.Views, view.Program.Image, view.Program.Derived, view.Program.Link}),
      tabs_(new QTabWidget(this)),
      dialog_(new DigitEntryDialog(entry_, this)),
      beside_(new QHBoxLayout),
      live_(view.Program),
      cmdChanges_(new QPushButton(QStringLiteral("Changes"), this)) {
    auto* column = new QVBoxLayout(this);
    PadByGrid(column);
    beside_->setSpacing(kGrid);
    beside_->addWidget(tabs_, 1);
    column->addLayout(beside_, 1);
    AddPages();
    OfferChanges(column);
    column->addWidget(MakeFoot());
    Connect();
    view_.Load();
    ShowAll();
}

// The dialog goes first: closing, it still asks the entry that it shows.
SetupPage::~SetupPage() {
    QObject::disconnect(qApp, nullptr, this, nullptr);  // the focus moves on while its widgets go
    delete dialog_;
    live_.Changed = nullptr;
    live_.Stop();
    view_.OpenDigitEntry = nullptr;
    view_.OpenHelp = nullptr;
    view_.ShowMainMenu = nullptr;
    view_.TakeFocus = nullptr;
}

void SetupPage::AddPages() {
    tabs_->tabBar()->setObjectName(ObjectName(view_.Buttons.tabSetup));
    tabs_->setElideMode(Qt::ElideNone);
    tabs_->setFocusPolicy(Qt::NoFocus);  // the strip takes it, the frame around it has no name
    tabs_->tabBar()->setFocusPolicy(Qt::TabFocus);
    constexpr void (*kLayOuts[])(SetupLayout&, QWidget*) = {
        LayOutInputDisplay,  LayOutScaling, LayOutFilter,   LayOutAlarms,
        LayOutCommunication, LayOutAnalog,  LayOutLockouts,
    };
    for (std::size_t i = 0; i < kTabCaptions.size(); ++i) AddPage(kLayOuts[i], kTabCaptions[i]);
    bound_.BindSpecial(view_.Buttons.tabSetup, tabs_->tabBar(), [this] { ShowTabs(); });
    QObject::connect(tabs_, &QTabWidget::currentChanged, this, [this](int tab) {
        if (showingTabs_) return;
        if (view_.Controls.ComeToTab(tab) != Refusal::None) ShowAll();
    });
}

// Only where font or scale are too large for the window does a page have fewer columns, and scroll.
void SetupPage::AddPage(void (*layOut)(SetupLayout&, QWidget*), std::string_view caption) {
    auto* page = new QWidget;
    layOut(layout_, page);
    tabs_->addTab(new PageBody(tabs_, page), PlainCaption(caption));
}

QWidget* SetupPage::MakeFoot() {
    ViewButtons& buttons = view_.Buttons;
    auto* foot = new QWidget(this);
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kGrid);
    row->addWidget(bound_.Make(buttons.cmdRead, foot));
    auto* reading = static_cast<QLabel*>(bound_.Make(buttons.lblValue, foot));
    reading->setFont(FixedPitchFont());
    reading->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    reading->setMargin(kGrid / 2);
    reading->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    reading->setMinimumWidth(reading->fontMetrics().horizontalAdvance(QLatin1Char('0')) * kLiveCharacters +
                             2 * kGrid);
    row->addWidget(reading);
    row->addWidget(bound_.Make(buttons.picText, foot), 1);
    row->addWidget(cmdChanges_);
    cmdFind_ = AddTool(*row, "cmdFind", QStringLiteral("Find"), QKeySequence::Find);
    cmdPanel_ = AddTool(*row, "cmdPanel", QStringLiteral("Side panel"), Qt::Key_F9);
    cmdPanel_->setCheckable(true);
    row->addWidget(bound_.Make(buttons.cmdMainMenu, foot));
    ConnectTools();
    return foot;
}

// A button of the window's own, with a key.
QPushButton* SetupPage::AddTool(QHBoxLayout& foot, const char* name, const QString& caption,
                                const QKeySequence& key) {
    auto* button = new PushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(true);
    button->setToolTip(key.toString(QKeySequence::NativeText));
    button->setProperty(kOwnKey, true);
    QObject::connect(new QShortcut(key, this), &QShortcut::activated, button, &QPushButton::click);
    foot.addWidget(button);
    return button;
}

void SetupPage::ConnectTools() {
    QObject::connect(cmdFind_, &QPushButton::clicked, this, [this] { ComeToSearch(); });
    QObject::connect(cmdPanel_, &QPushButton::clicked, this, [this](bool shown) {
        panelWished_ = shown;
        PlacePanel();
    });
    // The field that had the focus last stays told while the focus is elsewhere.
    QObject::connect(qApp, &QApplication::focusChanged, this,
                     [this](QWidget*, QWidget* now) { TellOfField(now); });
}

void SetupPage::MakePanel() {
    panel_ = new SetupPanel(view_, live_, this);
    panel_->HelpText = HelpText;
    panel_->MeterSetup = MeterSetup;
    panel_->setFixedWidth(panel_->Width());
    beside_->addWidget(panel_);
}

// What the user wishes, where the strip of tabs keeps its room; without a wish only where all pages do.
bool SetupPage::PanelWanted() const {
    const int panel = fontMetrics().averageCharWidth() * SetupPanel::kColumns + 5 * kGrid;
    const int left = width() - 2 * kGrid - panel;
    if (left < tabs_->tabBar()->sizeHint().width()) return false;
    return panelWished_.value_or(left >= tabs_->sizeHint().width());
}

void SetupPage::TellOfField(const QWidget* widget) {
    const Control* control = panel_ && widget ? bound_.ControlOf(widget) : nullptr;
    if (control && control->Tab != kEveryTab) panel_->TellOf(*control);
}

void SetupPage::PlacePanel() {
    placing_ = false;
    const bool shown = PanelWanted();
    if (shown && !panel_) {
        MakePanel();
        TellOfField(QApplication::focusWidget());
    }
    if (panel_ && panel_->isHidden() == shown) panel_->setVisible(shown);
    if (!shown) live_.Stop();
    cmdPanel_->setChecked(shown);
    const bool narrow = panelWished_.value_or(false) && !shown;
    cmdPanel_->setToolTip(narrow ? QStringLiteral("The window is too narrow for the panel")
                                 : QStringLiteral("F9"));
    if (shown) panel_->Refresh();
}

void SetupPage::ComeToSearch() {
    if (entry_.Shown()) return;
    if (!finder_) {
        // Read once: each key that is typed asks for the help of every field.
        const auto words = [this, read = std::make_shared<std::map<int, std::string>>()](int number) {
            const auto [place, fresh] = read->try_emplace(number);
            if (fresh && HelpText) place->second = HelpText(number);
            return place->second;
        };
        finder_ = new FieldFinder(view_, words, this);
        finder_->GoTo = [this](const Control& control) { GoTo(control); };
    }
    finder_->Present();
}

void SetupPage::GoTo(const Control& control) {
    if (ComeTo(view_, control) != Refusal::None) return;
    MoveFocus(control);
}

// Below the pages, hidden until its button is pressed: then a page that lacks the room scrolls.
void SetupPage::OfferChanges(QVBoxLayout* column) {
    cmdChanges_->setObjectName(QStringLiteral("cmdChanges"));
    cmdChanges_->setCheckable(true);
    cmdChanges_->setAutoDefault(false);
    cmdChanges_->setToolTip(QStringLiteral("F8"));
    cmdChanges_->setProperty(kOwnKey, true);
    QObject::connect(new QShortcut(QKeySequence(Qt::Key_F8), this), &QShortcut::activated, cmdChanges_,
                     &QPushButton::click);
    QObject::connect(cmdChanges_, &QPushButton::toggled, this, [this, column](bool wanted) {
        if (wanted && !changes_) MakeChanges(column);
        if (changes_) changes_->setVisible(wanted);
    });
    const auto undo = [this] { view_.Undo(); };
    const auto redo = [this] { view_.Redo(); };
    QObject::connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z), this), &QShortcut::activated, this,
                     undo);
    for (const QKeyCombination keys : {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y})
        QObject::connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, this, redo);
}

void SetupPage::MakeChanges(QVBoxLayout* column) {
    changes_ = new ChangesList(view_.Program, this);
    column->insertWidget(column->count() - 1, changes_);  // above the foot
    changes_->OfferUndo([this] { view_.Undo(); }, [this] { view_.Redo(); });
    changes_->Chosen = [this](Field field) { ComeToField(field); };
    changes_->GoBack = [this] {
        if (GoBack) GoBack();
    };
    GiveAccessKeys(*window());
}

void SetupPage::ShowChanges() {
    const int fields = view_.Program.Origin.From == SetupSource::Nothing ? 0 : FieldsChanged(view_.Program);
    const QString caption =
        QStringLiteral("Changes") + (fields > 0 ? QStringLiteral(" (%1)").arg(fields) : "");
    if (cmdChanges_->text() != caption) cmdChanges_->setText(caption);
    if (changes_) changes_->Follow();
    if (Acted) Acted(fields > 0);
}

void SetupPage::FollowTransfers() {
    if (changes_) changes_->Follow();
}

void SetupPage::ComeToField(Field field) {
    const std::string why = view_.ComeToField(field);
    if (!why.empty()) view_.Program.Dialogs.Show({"Changes", why});
}

void SetupPage::Connect() {
    auto* reading = new QShortcut(QKeySequence(Qt::Key_F5), this);
    QObject::connect(reading, &QShortcut::activated, this, [this] { bound_.Press(view_.Buttons.cmdRead); });
    view_.Controls.Changed = [this] { ShowAll(); };
    bound_.Refused = [this](const Control&, Refusal) { ShowAll(); };
    view_.OpenDigitEntry = [this] { OpenEntry(); };
    // Whatever asks for help, the page on show is the one to come back to.
    view_.OpenHelp = [this](int helpNumber) {
        view_.Program.Views.PageTab = view_.CurrentTab();
        Unmark();
        if (OpenHelp) OpenHelp(helpNumber);
    };
    view_.ShowMainMenu = [this] {
        if (ShowMainMenu) ShowMainMenu();
    };
    view_.TakeFocus = [this](const Control& control) { MoveFocus(control); };
    bound_.TypedOnValue = [this](const Control& control, char key) {
        if (view_.Program.Views.EntryTarget == &control) dialog_->TypeFirst(key);
    };
    dialog_->Closed = [this] { CloseEntry(); };
    dialog_->OpenHelp = view_.OpenHelp;
    entry_.ShowHourglass = [this](bool shown) { view_.Program.Home.ShowHourglass(shown); };
    dialog_->Followed = [this] { bound_.Refresh(); };
    dialog_->Beep = [this] { view_.Program.Dialogs.Beep(); };
}

// A field that is clicked in the pause after the one before it comes when that is done.
void SetupPage::OpenEntry() {
    Control*& target = view_.Program.Views.EntryTarget;
    if (dialog_->Pausing()) {
        wanted_ = std::exchange(target, edited_);
        return;
    }
    edited_ = target;
    entry_.OpenDigitEntry();
    ShowAll();  // the field that is edited is marked
    dialog_->Present(bound_.WidgetOf(*target), view_.Program.Views.LowPlace);
}

void SetupPage::CloseEntry() {
    view_.EntryClosed();
    if (Control* next = std::exchange(wanted_, nullptr)) view_.Controls.Click(*next);
}

// The help number comes first: the view may be left again while it is built.
void SetupPage::ComeToFront() {
    DropEntry();
    view_.Controls.Focus(view_.Buttons.tabSetup);
    view_.Activate();
}

void SetupPage::PutAway() {
    DropEntry();
    live_.Stop();
    if (finder_) finder_->hide();
    view_.PutAway();
}

void SetupPage::Leave() {
    view_.Controls.Click(view_.Buttons.cmdMainMenu);
}

void SetupPage::HelpClosed() {
    DropEntry();
    view_.ComeBack();
}

// What comes next builds the view in full, and no field looks edited.
void SetupPage::DropEntry() {
    if (entry_.Shown()) view_.Program.Views.EntryTarget->BackColor = ColorWhite;
    dialog_->Drop();
    wanted_ = nullptr;
    view_.Program.Views.EntryReturn = 0;
}

// The field that help was asked for out of its digit entry is no longer edited.
void SetupPage::Unmark() {
    if (Control* target = view_.Program.Views.EntryTarget) target->BackColor = ColorWhite;
    bound_.Refresh();
}

void SetupPage::MoveFocus(const Control& control) {
    ShowAll();  // a widget that was hidden or disabled takes no focus
    QWidget* const widget = bound_.WidgetOf(control);
    if (!widget) return;
    widget->setFocus(Qt::OtherFocusReason);
    for (QWidget* around = widget; around; around = around->parentWidget()) {
        if (auto* body = qobject_cast<QScrollArea*>(around)) body->ensureWidgetVisible(widget);
    }
}

void SetupPage::ShowAll() {
    bound_.Refresh();
    layout_.Follow();
    ShowWhy();
    ShowChanges();
    if (panel_) panel_->Refresh();
}

// What is disabled says why under the pointer.
void SetupPage::ShowWhy() {
    for (const Control& control : view_.Controls) {
        QWidget* widget = bound_.WidgetOf(control);
        if (!widget || widget->focusPolicy() == Qt::NoFocus || control.Kind == ControlKind::TabStrip)
            continue;
        const bool disabled = view_.Controls.Reach(control) == Refusal::Disabled;
        const QString why = QtText(view_.WhyRefused(Refusal::Disabled, control));
        const QString tip = disabled ? widget->accessibleName() + ' ' + why : QString();
        if (widget->toolTip() != tip) widget->setToolTip(tip);
    }
}

// A tab that isn't offered stays where it is and says why. The one on show is never disabled, or the strip
// would go to another by itself.
void SetupPage::ShowTabs() {
    const Control& strip = view_.Buttons.tabSetup;
    showingTabs_ = true;
    tabs_->setCurrentIndex(strip.ListIndex);
    for (int i = 0; i < tabs_->count(); ++i) {
        const bool offered = strip.Offered[static_cast<std::size_t>(i)];
        const bool enabled = offered || i == strip.ListIndex;
        if (tabs_->tabBar()->isTabEnabled(i) != enabled) tabs_->tabBar()->setTabEnabled(i, enabled);
        const QString why = QtText(view_.WhyNotOffered(i));
        if (tabs_->tabToolTip(i) != why) tabs_->setTabToolTip(i, why);
    }
    showingTabs_ = false;
}

// The widths of captions follow once all of them have the new font.
void SetupPage::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        QMetaObject::invokeMethod(
            this,
            [this] {
                layout_.Follow();
                if (panel_) panel_->setFixedWidth(panel_->Width());
                PlacePanel();
            },
            Qt::QueuedConnection);
    ViewPage::changeEvent(event);
}

// Once the page stands: the panel mustn't make it later.
void SetupPage::resizeEvent(QResizeEvent* event) {
    ViewPage::resizeEvent(event);
    if (std::exchange(placing_, true)) return;
    QTimer::singleShot(0, this, [this] { PlacePanel(); });
}

}  // namespace counter
