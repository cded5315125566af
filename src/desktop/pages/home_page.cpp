#include "desktop/pages/home_page.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "desktop/kit/access_keys.h"
#include "desktop/kit/control_widget.h"
#include "desktop/kit/grid.h"
#include "desktop/kit/page_body.h"
#include "desktop/kit/qt_text.h"
#include "desktop/kit/wrapped_text.h"

namespace counter {

namespace {

constexpr int kTallLines = 20;  // of the text area, and at rest
constexpr int kShortLines = 9;

struct MenuKey {
    HomeItem Item;
    QKeyCombination Keys;
};

// The menu shows them; data/help tells them under 3103.
constexpr MenuKey kMenuKeys[] = {
    {HomeItem::Open, Qt::CTRL | Qt::Key_O},
    {HomeItem::Save, Qt::CTRL | Qt::Key_S},
    {HomeItem::SaveAs, Qt::CTRL | Qt::SHIFT | Qt::Key_S},
    {HomeItem::Get, Qt::CTRL | Qt::Key_G},
    {HomeItem::Put, Qt::CTRL | Qt::Key_U},
};

QKeySequence KeysOf(HomeItem item) {
    for (const MenuKey& key : kMenuKeys) {
        if (key.Item == item) return key.Keys;
    }
    return {};
}

}  // namespace

HomePage::HomePage(HomeView& view, const Session& session, QWidget* parent)
    : ViewPage(parent),
      view_(view),
      bound_(view.Controls),
      menu_(new QMenuBar(parent)),
      strip_(new StatusStrip(this)),
      session_(session),
      facts_(new FactsBlock(session, this)) {
    AddMenu();
    AddText();
    bound_.Refresh();
}

HomePage::~HomePage() = default;

QString HomePage::Title() const {
    return QtText(view_.Title);
}

void HomePage::ComeToFront() {
    view_.Activate();
    ShowFacts();
}

void HomePage::ShowFacts() {
    if (!isVisibleTo(window())) return;
    facts_->Follow();
    if (!changes_ && session_.Origin.From != SetupSource::Nothing) MakeChanges();
    if (changes_) changes_->Follow();
}

// In place of the empty room at the end.
void HomePage::MakeChanges() {
    changes_ = new ChangesList(session_, this);
    delete column_->takeAt(column_->count() - 1);
    column_->addWidget(changes_, 1);
    changes_->GoBack = [this] { view_.GoBack(); };
    changes_->Chosen = [this](Field field) {
        if (FieldChosen) FieldChosen(field);
    };
    GiveAccessKeys(*window());
}

QWidget* HomePage::FirstFocus() {
    return bound_.WidgetOf(view_.cmdOK.Visible ? view_.cmdOK : view_.cmdMenuHelp);
}

void HomePage::AddMenu() {
    QMenu* under = nullptr;
    for (const HomeMenuRow& row : HomeMenu()) {
        Control& control = *view_.Controls.Find(row.Name);
        if (row.Heading) {
            under = AddHeading(control);
        } else {
            if (row.Item == HomeItem::Exit) AddRecent(*under);
            QAction* entry = AddEntry(control, *under, row.Opens || row.Item == HomeItem::Glossary);
            entry->setShortcut(KeysOf(row.Item));
            entry->setCheckable(row.Ticked);
        }
    }
}

// What was opened or saved last; a file that has gone is told when it is picked.
void HomePage::AddRecent(QMenu& under) {
    QMenu* recent = under.addMenu(QStringLiteral("Open &Recent"));
    recent->setObjectName(QStringLiteral("mnuRecent"));
    QObject::connect(&under, &QMenu::aboutToShow, this, [this, recent] {
        recent->clear();
        for (const std::string& path : view_.RecentSetups()) {
            const auto number = recent->actions().size() + 1;
            QAction* action =
                recent->addAction(QStringLiteral("&%1  %2").arg(number).arg(WithoutKeys(SystemText(path))));
            QObject::connect(action, &QAction::triggered, this, [this, path] { view_.OpenFile(path); });
        }
        recent->setEnabled(!recent->isEmpty());
    });
}

// The entries drop down when the view says that they can be used, which for the readings is some exchanges
// with the meter later; so the heading is an action of its own and its menu pops up below it.
QMenu* HomePage::AddHeading(Control& heading) {
    auto* menu = new QMenu(menu_);
    menu->setObjectName(ObjectName(heading));
    QAction* action = menu_->addAction(QtText(heading.Caption));
    if (&heading != &view_.Menu(HomeItem::Readings)) {
        action->setMenu(menu);
        QObject::connect(menu, &QMenu::aboutToShow, this,
                         [this, &heading] { view_.Controls.Click(heading); });
    } else {
        QObject::connect(action, &QAction::triggered, this, [this, &heading, menu, action] {
            if (view_.Controls.Click(heading) != Refusal::None || !isVisible()) return;
            menu->popup(menu_->mapToGlobal(menu_->actionGeometry(action).bottomLeft()));
        });
    }
    bound_.BindAction(heading, action);
    return menu;
}

// A view, or help, opens once the menu has gone: a menu that was worked by keys gives the focus back to where
// it was, and must not take it from the view.
QAction* HomePage::AddEntry(Control& entry, QMenu& under, bool opensView) {
    QAction* action = under.addAction(QtText(entry.Caption));
    QObject::connect(action, &QAction::triggered, this, [this, &entry, opensView] {
        const auto click = [this, &entry] { view_.Controls.Click(entry); };
        if (opensView) {
            QTimer::singleShot(0, this, click);
        } else {
            click();
        }
    });
    bound_.BindAction(entry, action);
    return action;
}

void HomePage::AddText() {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kGrid);
    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(kGrid, kGrid, kGrid, 0);
    auto* text = new WrappedText(this);
    textArea_ = text;
    text->setObjectName(ObjectName(view_.picText));
    text->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    text->setAutoFillBackground(true);
    text->setBackgroundRole(QPalette::Base);
    text->setForegroundRole(QPalette::Text);
    text->setMargin(kGrid);
    for (Control* control : {&view_.cmdMenuHelp, &view_.cmdOK, &view_.cmdVerify, &view_.lblWait})
        buttons->addWidget(bound_.Make(*control, this));
    buttons->addStretch(1);
    for (Control* control : {&view_.lblTest, &view_.lblTest1, &view_.lblTest2})
        buttons->addWidget(bound_.Make(*control, this));
    auto* body = new PageBody(this);
    body->Column().setContentsMargins(kGrid, 0, kGrid, 0);
    body->Column().addWidget(textArea_);
    body->Column().addSpacing(kGrid);
    body->Column().addWidget(facts_);
    body->Column().addStretch(1);
    column_ = &body->Column();
    facts_->ShowLinkButton(bound_.Make(view_.cmdLink, facts_));
    facts_->OpenBackup = [this](const std::string& path) { view_.OpenBackup(path); };
    column->addLayout(buttons);
    column->addWidget(body, 1);
    column->addWidget(strip_);
    bound_.BindSpecial(view_.lblPGText, &strip_->Line(), [this] { strip_->ShowLine(view_.lblPGText); });
    bound_.Bind(view_.pbBar, &strip_->Bar());
    strip_->Bar().setAccessibleName("Progress of the transfer");
    strip_->AddCancel(bound_.Make(view_.cmdCancel, strip_), [this] { view_.CancelTransfer(); });
    bound_.BindSpecial(view_.picText, textArea_, [this] { ShowText(); });
}

void HomePage::ShowText() {
    auto* text = static_cast<QLabel*>(textArea_);
    if (const QString shown = QtText(view_.picText.Text); text->text() != shown) text->setText(shown);
    const int lines = view_.TallText() ? kTallLines : kShortLines;
    const int height = text->fontMetrics().lineSpacing() * lines + 2 * kGrid;
    if (text->minimumHeight() != height) text->setMinimumHeight(height);
}

}  // namespace counter
