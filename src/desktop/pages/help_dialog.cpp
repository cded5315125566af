#include "desktop/pages/help_dialog.h"

#include <QTextCursor>
#include <QTextEdit>
#include <QVBoxLayout>

#include "desktop/kit/access_keys.h"
#include "desktop/kit/control_widget.h"
#include "desktop/kit/grid.h"
#include "desktop/kit/page_body.h"
#include "desktop/kit/qt_text.h"

namespace counter {

namespace {

constexpr int kTwipsPerInch = 1440;
constexpr int kStandardWidth = 7200;  // twips
constexpr int kLines = 18;            // of text in sight; longer ones scroll
constexpr int kTableColumns = 82;     // a text that is a table shows its whole width

}  // namespace

HelpDialog::HelpDialog(const HelpContent& content, QWidget* parent) : QDialog(parent), place_(content.Place) {
    setWindowTitle(QtText(content.Title));
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);
    auto* column = new QVBoxLayout(this);
    PadByGrid(column);
    auto* text = MakeText(content);
    column->addWidget(text);
    auto* ok = new PushButton(QStringLiteral("OK"), this);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setDefault(true);
    column->addWidget(ok, 0, Qt::AlignHCenter);
    QObject::connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    QObject::connect(this, &QDialog::finished, this, [this] {
        if (Closed) Closed();
    });
    const int twips = content.Width > 0 ? content.Width : kStandardWidth;
    const int columns = content.FixedPitch ? text->fontMetrics().horizontalAdvance('0') * kTableColumns : 0;
    const QSize wanted(std::max(twips * logicalDpiX() / kTwipsPerInch, columns), sizeHint().height());
    resize(wanted.boundedTo(ScreenRoom(*this).size()));
    ok->setFocus();
    GiveAccessKeys(*this);
}

QTextEdit* HelpDialog::MakeText(const HelpContent& content) {
    auto* text = new QTextEdit(this);
    text->setObjectName(QStringLiteral("lblText"));
    text->setAccessibleName(QtText(content.Title));
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setTabChangesFocus(true);
    if (content.FixedPitch) {
        text->setFont(FixedPitchFont(kTableFamily));
        text->setLineWrapMode(QTextEdit::NoWrap);
    }
    QTextCursor cursor(text->document());
    for (const HelpPiece& piece : content.Pieces) {
        QTextCharFormat format;
        if (piece.Emphasised) format.setFontWeight(QFont::Bold);
        cursor.insertText(QtText(piece.Text).remove(QLatin1Char('\r')), format);
    }
    text->moveCursor(QTextCursor::Start);  // what is inserted moves it on, and a long text would show its end
    text->setMinimumHeight(
        std::min(text->fontMetrics().lineSpacing() * kLines, ScreenRoom(*this).height() * 2 / 3));
    return text;
}

// Placed once its frame is known; where the system places windows itself, it stays where that puts it.
void HelpDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (place_ == HelpPlace::Middle || parentWidget() == nullptr) return;
    const QRect over = parentWidget()->window()->frameGeometry();
    const QRect own = frameGeometry();
    const int left = place_ == HelpPlace::LeftEdge ? over.left() : over.right() - own.width();
    move(left, over.center().y() - own.height() / 2);
}

}  // namespace counter
