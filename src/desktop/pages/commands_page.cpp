#include "desktop/pages/commands_page.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QShortcut>
#include <QVBoxLayout>

#include "desktop/kit/box_flow.h"
#include "desktop/kit/grid.h"
#include "desktop/kit/page_body.h"
#include "desktop/kit/qt_text.h"

namespace counter {

namespace {

constexpr int kReadingCharacters = 14;

// A field that shows one reading, in the fixed pitch in which the meter sends it.
void AsReadingField(QWidget* widget) {
    auto* field = static_cast<QLabel*>(widget);
    field->setFont(FixedPitchFont());
    field->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    field->setBackgroundRole(QPalette::Base);
    field->setAutoFillBackground(true);
    field->setTextInteractionFlags(Qt::TextSelectableByMouse);
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance(QLatin1Char('0')) * kReadingCharacters);
}

}  // namespace

CommandsPage::CommandsPage(CommandsView& view, QWidget* parent)
    : ViewPage(parent), view_(view), bound_(view.Controls), strip_(new StatusStrip(this)) {
    QVBoxLayout* column = strip_->LieBelow(this);
    auto* content = new QWidget;
    auto* groups = new BoxFlow(content, 3);
    groups->setContentsMargins(0, 0, 0, 0);
    groups->Add(Readings(), 0, 0, 2);
    groups->Add(Resets(), 0, 1, 2);
    groups->Add(RemoteDisplay(), 0, 2);
    groups->Add(Curve(), 1, 2);
    column->addWidget(new PageBody(this, content), 1);
    column->addLayout(bound_.MakeButtonRow(this, {&view.cmdOK}));
    auto* reading = new QShortcut(QKeySequence(Qt::Key_F5), this);
    QObject::connect(reading, &QShortcut::activated, this, [this] { Read(); });
    bound_.BindSpecial(view.lblErrText, &strip_->Line(), [this] { strip_->ShowLine(view_.lblErrText); });
    bound_.Unfit = [this](const Control&, const std::string& typed) { view_.RefuseTyped(typed); };
    bound_.Refresh();
}

QString CommandsPage::Title() const {
    return QtText(CommandsView::kTitle);
}

// Over Modbus there is no button for all Items.
void CommandsPage::Read() {
    for (Control* button : {&view_.cmdActive, &view_.cmdItem1}) {
        if (view_.Controls.Reach(*button) == Refusal::None) return bound_.Press(*button);
    }
}

void CommandsPage::ComeToFront() {
    view_.Load();
    view_.Activate();
}

// The group's label is the caption of its box.
QGroupBox* CommandsPage::AddGroup(Control& caption) {
    auto* group = new QGroupBox(this);
    bound_.BindSpecial(caption, group, [&caption, group] { group->setTitle(PlainCaption(caption.Caption)); });
    return group;
}

QWidget* CommandsPage::Readings() {
    QGroupBox* group = AddGroup(view_.lblRdgs);
    auto* grid = new QGridLayout(group);
    grid->setSpacing(kGrid);
    Control* const pairs[][2] = {{&view_.cmdItem1, &view_.picItem1},
                                 {&view_.cmdItem2, &view_.picItem2},
                                 {&view_.cmdItem3, &view_.picItem3},
                                 {&view_.cmdPeakRd, &view_.picPeak},
                                 {&view_.cmdValleyRd, &view_.picValley}};
    int row = 0;
    for (Control* button : {&view_.cmdActive, &view_.cmdActiveP})
        grid->addWidget(bound_.Make(*button, group), row++, 0, 1, 2);
    for (const auto& [button, field] : pairs) {
        grid->addWidget(bound_.Make(*button, group), row, 0);
        QWidget* shown = bound_.Make(*field, group);
        AsReadingField(shown);
        shown->setAccessibleName(QtText(button->Caption));
        grid->addWidget(shown, row++, 1);
    }
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(row, 1);
    return group;
}

QWidget* CommandsPage::Resets() {
    QGroupBox* group = AddGroup(view_.lblResets);
    auto* column = new QVBoxLayout(group);
    column->setSpacing(kGrid);
    for (Control* button : {&view_.cmdFRst, &view_.cmdLARst, &view_.cmdMRst, &view_.cmdPeak, &view_.cmdValley,
                            &view_.cmdRmtDspy}) {
        QWidget* made = bound_.Make(*button, group);
        // Two groups have a button "Peak"; a screen reader says which.
        made->setAccessibleName(QtText(button->Caption + " reset"));
        column->addWidget(made);
    }
    column->addStretch(1);
    return group;
}

QWidget* CommandsPage::RemoteDisplay() {
    QGroupBox* group = AddGroup(view_.lblRmtDspy);
    auto* column = new QVBoxLayout(group);
    column->setSpacing(kGrid);
    auto* row = new QHBoxLayout;
    row->addWidget(bound_.Make(view_.lblValue, group));
    QWidget* entry = bound_.Make(view_.txtRmtDspy, group);
    entry->setAccessibleName(QtText(view_.lblValue.Caption));
    static_cast<QLabel*>(bound_.WidgetOf(view_.lblValue))->setBuddy(entry);
    row->addWidget(entry, 1);
    column->addLayout(row);
    for (Control* button : {&view_.cmdDspyOnly, &view_.cmdItm3Only, &view_.cmdBoth, &view_.cmdC})
        column->addWidget(bound_.Make(*button, group));
    auto* help = static_cast<QLabel*>(bound_.Make(view_.lblModeC, group));
    help->setWordWrap(true);
    KeepPlace(help);
    column->addWidget(help);
    return group;
}

QWidget* CommandsPage::Curve() {
    QGroupBox* group = AddGroup(view_.lblCC);
    auto* column = new QVBoxLayout(group);
    column->addWidget(bound_.Make(view_.cmdSendPRM, group));
    column->addStretch(1);
    return group;
}

}  // namespace counter
