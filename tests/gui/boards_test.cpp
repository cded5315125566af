// The drawings of boards that come with the program: each jumper screen has one, it is whole at any size, it
// can be read in black and white, and it names a jumper only where the text beside it does.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

#include "help/help_screens.h"

namespace counter {
namespace {

QByteArray Drawing(const JumperScreen& screen) {
    const auto name = QString::fromUtf8(screen.Form.data(), static_cast<qsizetype>(screen.Form.size()));
    QFile file(QCoreApplication::applicationDirPath() + "/../share/boards/" + name + ".svg");
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// On a black ground, as in dark mode.
QImage Picture(QSvgRenderer& drawing, int width) {
    QImage picture(width, width * 560 / 900, QImage::Format_RGB32);
    picture.fill(Qt::black);
    QPainter painter(&picture);
    drawing.render(&painter);
    return picture;
}

// The share of dark pixels inside `area`, in percent.
double Ink(const QImage& picture, const QRect& area) {
    int dark = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) dark += qGray(picture.pixel(x, y)) < 128;
    }
    return 100.0 * dark / (area.width() * area.height());
}

TEST(Boards, EveryScreenHasADrawingThatIsWholeAtAnySize) {
    for (const JumperScreen& screen : kJumperScreens) {
        SCOPED_TRACE(screen.Form);
        QSvgRenderer drawing(Drawing(screen));
        ASSERT_TRUE(drawing.isValid());
        EXPECT_EQ(drawing.viewBox(), QRect(0, 0, 900, 560));
        for (int width : {450, 1350}) {
            const QImage picture = Picture(drawing, width);
            const QRect sheet = picture.rect().adjusted(width / 40, width / 40, -width / 40, -width / 40);
            QRect board = sheet;
            board.setRight(width / 2);
            const QRect table = sheet.adjusted(width / 2, 0, 0, 0);
            EXPECT_GT(Ink(picture, board), 3.0) << width;
            EXPECT_GT(Ink(picture, table), 2.0) << width;
            EXPECT_LT(Ink(picture, sheet), 25.0) << width << ": the sheet is white";
            const QRect margin(width - width / 40, width / 20, width / 50, sheet.height() - width / 20);
            EXPECT_EQ(Ink(picture, margin), 0.0) << width << ": nothing runs out of the sheet";
        }
    }
}

TEST(Boards, AreGrayWithTextThatCanBeReadAndNameJumpersOnlyAsTold) {
    const QRegularExpression colour("#([0-9a-f]{2})([0-9a-f]{2})([0-9a-f]{2})\"");
    const QRegularExpression letter(">([a-z])</text>");
    const QRegularExpression size("font-size=\"([0-9]+)\"");
    for (const JumperScreen& screen : kJumperScreens) {
        SCOPED_TRACE(screen.Form);
        const QString text = Drawing(screen);
        for (auto found = colour.globalMatch(text); found.hasNext();) {
            const QRegularExpressionMatch match = found.next();
            EXPECT_TRUE(match.captured(1) == match.captured(2) && match.captured(2) == match.captured(3));
        }
        for (auto found = size.globalMatch(text); found.hasNext();)
            EXPECT_GE(found.next().captured(1).toInt(), 14);
        const bool rs232 = screen.Lines.data() == kRs232HLines.data();
        const QString told = screen.Lines.empty() ? "" : rs232 ? "efg" : "abcd";
        QString named;
        for (auto found = letter.globalMatch(text); found.hasNext();) named += found.next().captured(1);
        EXPECT_EQ(named, told + told) << "once at the headers, once in the table";
        if (screen.HelpId == 0) continue;
        // All that is known of these is in the text beside them.
        EXPECT_TRUE(text.contains("jumper block"));
        for (const char* word : {"Positions", "As found", "Write"}) EXPECT_FALSE(text.contains(word)) << word;
    }
}

}  // namespace
}  // namespace counter
