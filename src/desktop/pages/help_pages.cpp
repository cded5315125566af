#include "desktop/pages/help_pages.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QSvgWidget>
#include <QVBoxLayout>

#include "desktop/kit/control_widget.h"
#include "desktop/kit/grid.h"
#include "desktop/kit/page_body.h"
#include "desktop/kit/qt_text.h"
#include "desktop/kit/spoken.h"

namespace counter {

namespace {

constexpr int kTextCharacters = 40;       // of the text beside a drawing
constexpr QSize kLeastDrawing(600, 373);  // at which its smallest text can be read

// The drawing of a board. Its words are its description.
class BoardDrawing : public QSvgWidget, public Spoken {
  public:
    using QSvgWidget::QSvgWidget;
    QAccessible::Role SpokenRole() const override { return QAccessible::Graphic; }
};

QString WordsIn(const QString& drawing) {
    static const QRegularExpression kText(QStringLiteral("<text[^>]*>([^<]+)</text>"));
    QStringList words;
    for (auto found = kText.globalMatch(drawing); found.hasNext();) words += found.next().captured(1);
    return words.join(QLatin1Char('\n'));
}

QPushButton* Button(const char* name, std::string_view caption, QWidget* parent) {
    auto* button = new PushButton(PlainCaption(caption), parent);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(true);
    return button;
}

QVBoxLayout* Column(QWidget* page) {
    auto* column = new QVBoxLayout(page);
    PadByGrid(column);
    return column;
}

// Print on the left, the way out on the right.
void AddButtons(QVBoxLayout* column, QPushButton* print, QPushButton* leave) {
    auto* row = new QHBoxLayout;
    if (print) row->addWidget(print);
    row->addStretch(1);
    row->addWidget(leave);
    column->addLayout(row);
}

QString Lines(std::span<const std::string_view> lines) {
    QString text;
    for (std::string_view line : lines) text += QtText(line) + QLatin1Char('\n');
    return text;
}

// A printer that fails says so in its own words: in a box, since what is on the page goes on paper next time.
void TellPrint(HelpWorld& world, const QString& title, const Status& status) {
    if (!status.Ok()) world.Dialogs.Show({title.toStdString(), status.Text(), BoxIcon::Stop});
}

}  // namespace

SetupHelpPage::SetupHelpPage(HelpWorld world, QWidget* parent) : ViewPage(parent), world_(std::move(world)) {
    QVBoxLayout* column = Column(this);
    auto* picture = new QLabel(Lines(kSetupHelpLines), this);
    picture->setObjectName("Picture2");
    picture->setTextFormat(Qt::PlainText);
    picture->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    picture->setTextInteractionFlags(Qt::TextSelectableByMouse);
    column->addWidget(new PageBody(this, picture), 1);
    QPushButton* ok = Button("cmdMHelp", kSetupHelpOk, this);
    cmdMHelp_ = ok;
    QObject::connect(ok, &QPushButton::clicked, this, [this] { Leave(); });
    AddButtons(column, nullptr, ok);
}

QString SetupHelpPage::Title() const {
    return QtText(kSetupHelpTitle);
}

BatchHelpPage::BatchHelpPage(HelpWorld world, BatchHelpKind kind, QWidget* parent)
    : ViewPage(parent), world_(std::move(world)), kind_(kind), txtHelp_(new QPlainTextEdit(this)) {
    QVBoxLayout* column = Column(this);
    txtHelp_->setObjectName("txtHelp");
    txtHelp_->setAccessibleName(Title());
    txtHelp_->setReadOnly(true);
    txtHelp_->setLineWrapMode(QPlainTextEdit::NoWrap);
    txtHelp_->setTabChangesFocus(true);
    txtHelp_->setFont(FixedPitchFont(kTableFamily));
    column->addWidget(txtHelp_, 1);
    QPushButton* print = Button("cmdPrint", "Print", this);
    QPushButton* home = Button("cmdMainMenu", "Main Menu", this);
    cmdMainMenu_ = home;
    QObject::connect(print, &QPushButton::clicked, this, [this] { Print(); });
    QObject::connect(home, &QPushButton::clicked, this, [this] { Leave(); });
    AddButtons(column, print, home);
}

QString BatchHelpPage::Title() const {
    return kind_ == BatchHelpKind::Rate ? QStringLiteral("Rate Batch") : QStringLiteral("V-F Batch");
}

void BatchHelpPage::ComeToFront() {
    const auto text = BatchHelpText(world_.Store, world_.HelpFolders, kind_);
    txtHelp_->setPlainText(text ? QtText(*text).remove(QLatin1Char('\r'))
                                : QStringLiteral("The batch reference was not installed."));
}

QWidget* BatchHelpPage::FirstFocus() {
    return txtHelp_;
}

void BatchHelpPage::Print() {
    const Status status =
        world_.Paper.PrintText(Title().toStdString(), txtHelp_->toPlainText().toLatin1().toStdString());
    cmdMainMenu_->setFocus();
    TellPrint(world_, Title(), status);
}

JumperPage::JumperPage(HelpWorld world, const JumperScreen& screen, QWidget* parent)
    : ViewPage(parent),
      world_(std::move(world)),
      screen_(screen),
      drawing_(new BoardDrawing(this)),
      text_(new QLabel(this)) {
    QVBoxLayout* column = Column(this);
    ServeSpoken();
    drawing_->setAccessibleName(Title());
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    text_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    text_->setMinimumWidth(text_->fontMetrics().averageCharWidth() * kTextCharacters);
    drawing_->setMinimumSize(kLeastDrawing);
    auto* body = new PageBody(this);
    body->Column().addWidget(drawing_, 1);
    body->Column().addWidget(text_);
    column->addWidget(body, 1);
    QPushButton* print = Button("cmdPrinter", "Print", this);
    QPushButton* close = Button("cmdClose", "OK", this);
    cmdClose_ = close;
    QObject::connect(print, &QPushButton::clicked, this,
                     [this] { TellPrint(world_, Title(), world_.Paper.PrintView()); });
    QObject::connect(close, &QPushButton::clicked, this, [this] { Leave(); });
    AddButtons(column, print, close);
}

QString JumperPage::Title() const {
    return QtText(screen_.Title);
}

std::string JumperPage::Text() const {
    for (const std::string& folder : world_.HelpFolders) {
        if (screen_.HelpId == 0) break;
        if (const auto text = LoadHelpText(world_.Store, folder, screen_.HelpId)) return *text;
    }
    return Lines(screen_.Lines).toStdString();
}

void JumperPage::ComeToFront() {
    if (screen_.HelpId != 0) world_.Views.HelpId = screen_.HelpId;
    text_->setText(QtText(Text()).remove(QLatin1Char('\r')).trimmed());
    text_->setVisible(!text_->text().isEmpty());
    std::string name = "/";
    name.append(screen_.Form).append(".svg");
    for (const std::string& folder : world_.BoardFolders) {
        std::string drawing;
        if (!world_.Store.Read(folder + name, drawing).Ok()) continue;
        drawing_->load(QByteArray::fromStdString(drawing));
        drawing_->setAccessibleDescription(WordsIn(QString::fromStdString(drawing)));
        drawing_->renderer()->setAspectRatioMode(Qt::KeepAspectRatio);
        return;
    }
}

}  // namespace counter
