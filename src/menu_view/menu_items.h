// The items of the meter's menu in the order in which its panel steps through them: one table, a row an item,
// to be held beside the meter's manual.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "menu_view/menu_cells.h"
#include "menu_view/menu_facts.h"
#include "meter/field_table.h"
#include "meter/setup_image.h"

namespace counter {

enum class ValueForm {
    Plain,
    BlanksInFront,  // two, which bring five digits to the right
    BlanksBehind,   // two, which bring them to the left
    Clock,          // hours, minutes, seconds where the meter shows a clock
};

// A value of the image; its type code, position and point are those of the field table.
struct MenuValue {
    Field Of = Field::Count;
    ValueForm Form = ValueForm::Plain;
};

// Bits hi..lo of the byte at a position; position 0 is a blank digit.
struct MenuBits {
    int Pos = 0;
    int HiBit = 0;
    int LoBit = 0;
};

// How an item's cells are made.
enum class MenuCellsBy { Value, Points, Text, Multiplier, Digits };

struct MenuItem {
    int Order = 0;          // 1..49
    std::string_view Name;  // as the panel spells it
    int Code = 0;           // which help it has; two pairs of items share one, which is meant so
    int Kind = 0;           // 0 to 4 values by how they are entered, 5 texts, 6 digits
    MenuCellsBy By = MenuCellsBy::Value;
    bool (*Shown)(const MenuFacts&) = nullptr;

    MenuValue Value;  // of texts and points only its field
    std::array<MenuBits, 6> Digits{};
    void (*Correct)(const MenuFacts&, MenuDigits&) = nullptr;                    // of digits; may be none
    std::string (*Text)(const SetupImage&, const MenuFacts&) = nullptr;          // of texts and points
    std::string_view (*NameEnd)(const SetupImage&, const MenuFacts&) = nullptr;  // may be none
};

std::span<const MenuItem> MenuItems();

// The digits of an item whose cells are made of them, as the panel shows them.
MenuDigits DigitsOfItem(const SetupImage& image, const MenuFacts& facts, const MenuItem& item);

// A setpoint, in the list that the meter's alarm key opens.
struct SetpointItem {
    std::string_view Name;
    MenuValue Value;
    Field AlarmState;
    int LeastRelayOption;  // RelayBoard that has the alarm: any, or the one with four relays
};

std::span<const SetpointItem> SetpointItems();

}  // namespace counter
