// The display: every character of the menu has a pattern, and the painter lights the segments that it names.
#include "desktop/kit/segments.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <set>
#include <string>

#include "desktop/kit/screen_colors.h"
#include "desktop/pages/face_widget.h"
#include "menu_view/menu_items.h"
#include "menu_view/menu_mnemonics.h"

namespace counter {
namespace {

constexpr QRgb kLit = 0xFFFF0000;
constexpr QRgb kGhost = 0xFF0000FF;
constexpr QRgb kGround = 0xFF000000;

// A digit 50 high with its corner at (10, 10), on a device of this scale.
QImage Painted(SegmentGlyph glyph, int scale = 1) {
    QImage image(60 * scale, 70 * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(kGround);
    QPainter painter(&image);
    PaintGlyph(painter, {10, 10}, {50}, glyph, {QColor(kLit), QColor(kGhost)});
    return image;
}

// "bcfg.": the segments and the point whose middles have this colour.
std::string PlacesOf(QRgb color, const QImage& image) {
    const struct {
        char Name;
        QPoint Middle;
    } places[] = {{'a', {24, 13}}, {'b', {35, 23}}, {'c', {35, 47}}, {'d', {24, 56}},
                  {'e', {13, 47}}, {'f', {13, 23}}, {'g', {24, 34}}, {'.', {46, 56}}};
    std::string found;
    const auto scale = static_cast<int>(image.devicePixelRatio());
    for (const auto& place : places) {
        if (image.pixel(place.Middle * scale) == color) found += place.Name;
    }
    return found;
}

TEST(Segments, EveryCharacterOfTheMenuHasAPattern) {
    std::string used = "0123456789AbCdEF+-bHh";  // digits, signs, marks of deviations
    for (const MenuItem& item : MenuItems()) used += item.Name;
    for (const SetpointItem& item : SetpointItems()) used += item.Name;
    for (std::string_view text : kModeMnemonics) used += text;
    for (std::string_view text : kFunctionMnemonics) used += text;
    for (const MnemonicOfMode& own : kOwnMnemonics) used += own.Text;
    for (const SegmentGlyph& glyph : GlyphsOf(used)) {
        EXPECT_TRUE(SegmentsOf(glyph.Character)) << glyph.Character;
    }
    EXPECT_FALSE(SegmentsOf('?'));
}

TEST(Segments, NoTwoCharactersOfADigitLookAlike) {
    std::set<SegmentSet> seen;
    for (char character : std::string_view("0123456789AbCdEF-+/ ")) {
        EXPECT_TRUE(seen.insert(*SegmentsOf(character)).second) << character;
    }
}

TEST(Segments, ThePainterLightsWhatThePatternNames) {
    const struct {
        SegmentGlyph Glyph;
        const char *Lit, *Ghost;
    } cases[] = {
        {{' ', false}, "", "abcdefg."}, {{' ', true}, ".", "abcdefg"},  {{'0', false}, "abcdef", "g."},
        {{'1', false}, "bc", "adefg."}, {{'2', true}, "abdeg.", "cf"},  {{'4', false}, "bcfg", "ade."},
        {{'7', true}, "abc.", "defg"},  {{'-', false}, "g", "abcdef."}, {{'+', false}, "g", "abcdef."},
        {{'t', false}, "defg", "abc."}, {{'n', false}, "ceg", "abdf."}, {{'L', false}, "def", "abcg."},
        {{'I', false}, "ef", "abcdg."}, {{'/', false}, "beg", "acdf."}, {{'P', true}, "abefg.", "cd"},
    };
    for (const auto& c : cases) {
        for (int scale : {1, 2, 3}) {
            const QImage image = Painted(c.Glyph, scale);
            EXPECT_EQ(PlacesOf(kLit, image), c.Lit) << c.Glyph.Character << " at " << scale;
            EXPECT_EQ(PlacesOf(kGhost, image), c.Ghost) << c.Glyph.Character << " at " << scale;
        }
    }
    // The upright of a plus crosses the middle segment.
    EXPECT_EQ(Painted({'+', false}).pixel(24, 28), kLit);
    EXPECT_EQ(Painted({'-', false}).pixel(24, 28), kGround);
}

// Small digits are crisp: of a lying segment that is a pixel high or two, no pixel is half lit.
TEST(Segments, EdgesFallOnPixels) {
    for (double height : {9.0, 13.0, 18.0, 23.0}) {
        QImage image(40, 40, QImage::Format_RGB32);
        image.fill(kGround);
        QPainter painter(&image);
        PaintGlyph(painter, {3.3, 4.6}, {height}, {'8', false}, {QColor(kLit), QColor()});
        painter.end();
        const int column = 3 + static_cast<int>(height * 0.29);
        for (int row = 0; row < image.height(); ++row) {
            const QRgb pixel = image.pixel(column, row);
            EXPECT_TRUE(pixel == kLit || pixel == kGround) << height << " high, row " << row;
        }
    }
}

TEST(Segments, ACharacterWithoutPatternIsASmallText) {
    const QImage image = Painted({'?', false});
    EXPECT_NE(image, Painted({' ', false}));
    EXPECT_EQ(PlacesOf(kGhost, image), ".");
}

TEST(Segments, TextsAreCutIntoPlaces) {
    const struct {
        const char* Text;
        std::vector<SegmentGlyph> Glyphs;
    } cases[] = {
        {"", {}},
        {"7.", {{'7', true}}},
        {".", {{' ', true}}},
        {" 7", {{' ', false}, {'7', false}}},
        {"1.2..", {{'1', true}, {'2', true}, {' ', true}}},
    };
    for (const auto& c : cases) EXPECT_EQ(GlyphsOf(c.Text), c.Glyphs) << c.Text;
}

// Colours that are in a picture at least this often.
bool Shows(const QImage& image, const QColor& color, int atLeast) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == color.rgb() ? 1 : 0;
    }
    return count >= atLeast;
}

TEST(Face, ShowsDigitsAndLampsAndSaysThem) {
    FaceWidget face;
    face.resize(face.sizeHint());
    const QImage blank = face.grab().toImage();
    EXPECT_FALSE(Shows(blank, kDisplayDigit, 1));
    face.Show({"-12.5", {false, true, false, false}, "Total"});
    EXPECT_EQ(face.accessibleName(), "-12.5, alarm 1 off, alarm 2 on, alarm 3 off, alarm 4 off");
    EXPECT_TRUE(Shows(face.grab().toImage(), kDisplayDigit, 200));
    // The sign has a place of its own, and of more than six digits the last ones show.
    const auto shown = [&face](const char* digits) {
        face.Show({digits, {}, ""});
        return face.grab().toImage();
    };
    EXPECT_EQ(shown("-1234.56"), shown("-91234.56"));
    EXPECT_EQ(shown("   5"), shown("5"));
    EXPECT_NE(shown("-5"), shown("5"));
    EXPECT_NE(shown("1234.56"), shown("12345.6"));
}

TEST(Face, ALineOfTheSimulatorBecomesDigitsAndLamps) {
    const auto face = ParseFaceLine("..1234 5 1 0100 2 0\n");
    ASSERT_TRUE(face);
    EXPECT_EQ(FaceWidget::PlainText(*face), "-  123.4, alarm 1 off, alarm 2 on, alarm 3 off, alarm 4 off");
    EXPECT_EQ(face->Note, "Item 2");
    EXPECT_FALSE(ParseFaceLine("12345 5 1 0100 2 0\n")) << "a digit is missing";
}

}  // namespace
}  // namespace counter
