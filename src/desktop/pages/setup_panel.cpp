#include "desktop/pages/setup_panel.h"

#include <QHBoxLayout>
#include <QTextCursor>
#include <QTimer>
#include <QVBoxLayout>

#include "desktop/kit/grid.h"
#include "desktop/kit/qt_text.h"
#include "help/help_text.h"

namespace counter {

namespace {

constexpr int kLiveValueCharacters = 8;
constexpr const char* kNoControl =
    "The field that has the focus is told here: its range, what the meter had, its help.";

class FactsText {
  public:
    explicit FactsText(QTextEdit& shown) : cursor_(shown.document()) {
        shown.clear();
        bold_.setFontWeight(QFont::Bold);
    }
    void Heading(const std::string& text) { cursor_.insertText(QtText(text), bold_); }
    // Nothing for a fact that there isn't.
    void Fact(const char* name, const std::string& text) {
        if (text.empty()) return;
        cursor_.insertText(QStringLiteral("\n%1: ").arg(QLatin1String(name)), plain_);
        cursor_.insertText(QtText(text), plain_);
    }
    void Help(const std::string& text) {
        cursor_.insertText(QStringLiteral("\n\n"), plain_);
        for (const HelpSegment& segment : HelpSegments(text))
            cursor_.insertText(QtText(segment.Text).remove(QLatin1Char('\r')),
                               segment.Emphasised ? bold_ : plain_);
    }

  private:
    QTextCursor cursor_;
    QTextCharFormat plain_, bold_;
};

QTextEdit* MakeFacts(QWidget* parent) {
    auto* text = new QTextEdit(parent);
    text->setObjectName(QStringLiteral("txtFacts"));
    text->setAccessibleName(QStringLiteral("About the field"));
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setTabChangesFocus(true);
    text->setPlainText(QLatin1String(kNoControl));
    return text;
}

}  // namespace

SetupPanel::SetupPanel(SetupView& view, LiveValue& live, QWidget* parent)
    : QWidget(parent), view_(view), live_(live), txtFacts_(MakeFacts(this)) {
    setObjectName(QStringLiteral("setupPanel"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kGrid);
    column->addWidget(txtFacts_, 1);
    AddLive(*column);
    live_.Changed = [this] { ShowLive(); };
    ShowLive();
}

void SetupPanel::AddLive(QVBoxLayout& column) {
    auto* row = new QHBoxLayout;
    row->setSpacing(kGrid);
    chkLive_ = new QCheckBox(QStringLiteral("Live value of Item 1"), this);
    chkLive_->setObjectName(QStringLiteral("chkLive"));
    lblLive_ = new QLabel(this);
    lblLive_->setObjectName(QStringLiteral("lblLive"));
    lblLive_->setAccessibleName(QStringLiteral("Item 1"));
    lblLive_->setFont(FixedPitchFont());
    lblLive_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lblLive_->setMinimumWidth(lblLive_->fontMetrics().horizontalAdvance(QLatin1Char('0')) *
                              kLiveValueCharacters);
    lblTrouble_ = new QLabel(this);
    lblTrouble_->setObjectName(QStringLiteral("lblTrouble"));
    lblTrouble_->setWordWrap(true);
    row->addWidget(chkLive_, 1);
    row->addWidget(lblLive_);
    column.addLayout(row);
    column.addWidget(lblTrouble_);
    QObject::connect(chkLive_, &QCheckBox::clicked, this, [this](bool on) {
        if (on) {
            live_.Start();
        } else {
            live_.Stop();
        }
        ShowLive();
    });
}

int SetupPanel::Width() const {
    return fontMetrics().averageCharWidth() * kColumns + 4 * kGrid;
}

void SetupPanel::TellOf(const Control& control) {
    told_ = &control;
    Refresh();
}

void SetupPanel::Refresh() {
    if (filling_ || isHidden()) return;
    filling_ = true;
    QTimer::singleShot(0, this, [this] { Fill(); });
}

// What is on show already is left alone, with the place to which it was scrolled.
void SetupPanel::Fill() {
    filling_ = false;
    if (isHidden()) return;
    ShowLive();
    if (!told_) return;
    const SetupImage* meter = MeterSetup ? MeterSetup() : nullptr;
    const ControlFacts facts = FactsOf(view_, *told_, meter);
    if (facts_ == facts && helpShown_ == told_->HelpNumber) return;
    const bool another = helpShown_ != told_->HelpNumber || !facts_ || facts_->Caption != facts.Caption;
    facts_ = facts;
    helpShown_ = told_->HelpNumber;
    FactsText text(*txtFacts_);
    text.Heading(facts.Caption);
    text.Fact("On", facts.Where);
    text.Fact("Range", facts.Range);
    text.Fact("Counted", facts.Unit);
    text.Fact("In the meter at the last Get", meter ? facts.Meter : "");
    text.Fact("Now", facts.WhyNot);
    if (HelpText) text.Help(HelpText(helpShown_));
    if (another) txtFacts_->moveCursor(QTextCursor::Start);
}

void SetupPanel::ShowLive() {
    const std::string never = live_.WhyNever();
    chkLive_->setEnabled(never.empty());
    chkLive_->setChecked(live_.On());
    chkLive_->setToolTip(QtText(never));
    lblLive_->setText(QtText(live_.Text()));
    lblLive_->setEnabled(live_.On());
    lblTrouble_->setText(QtText(live_.Trouble()));
    lblTrouble_->setVisible(!live_.Trouble().empty());
}

}  // namespace counter
