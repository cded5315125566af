// The rules of single rows of the menu: texts that come from lists, digits that are shown otherwise than they
// are stored, and ends of names. Nothing here changes the image.
#pragma once

#include <string>
#include <string_view>

#include "menu_view/menu_cells.h"
#include "menu_view/menu_facts.h"
#include "meter/setup_image.h"

namespace counter {

// Texts of rows.
std::string ModeText(const SetupImage& image, const MenuFacts& facts);
std::string Point1Text(const SetupImage& image, const MenuFacts& facts);
std::string Point2Text(const SetupImage& image, const MenuFacts& facts);
std::string ResolutionText(const SetupImage& image, const MenuFacts& facts);

// Corrections of digits; d1 is digits[0].
void CorrectSetup(const MenuFacts& facts, MenuDigits& digits);
void CorrectConfig(const MenuFacts& facts, MenuDigits& digits);
void CorrectDisplayItem(const MenuFacts& facts, MenuDigits& digits);
void CorrectSources(const MenuFacts& facts, MenuDigits& digits);
void CorrectAlarmStates(const MenuFacts& facts, MenuDigits& digits);
void CorrectAnalog(const MenuFacts& facts, MenuDigits& digits);

// Ends of names. The mark of a deviation is "b" for a band, "H" for hysteresis, "h" for span hysteresis.
std::string_view Deviation1Mark(const SetupImage& image, const MenuFacts& facts);
std::string_view Deviation2Mark(const SetupImage& image, const MenuFacts& facts);
std::string_view Deviation3Mark(const SetupImage& image, const MenuFacts& facts);
std::string_view Deviation4Mark(const SetupImage& image, const MenuFacts& facts);
// " 1" where there is a second analog output.
std::string_view FirstOutput(const SetupImage& image, const MenuFacts& facts);

}  // namespace counter
