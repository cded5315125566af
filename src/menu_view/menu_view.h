// MenuView: the whole setup the way the meter's front panel shows it, an item a row, each a name, a sign
// column and six digits, so that someone with the panel's manual can compare digit by digit. Read only.
//
// A view is built when it is opened and thrown away when the main view comes to the front; it has no refresh,
// because nothing changes the image while it is up. It knows no pixels, but how the small grids beside rows
// follow the scrolling.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "menu_view/menu_cells.h"
#include "menu_view/menu_facts.h"
#include "meter/derived_values.h"
#include "meter/meter_identity.h"
#include "meter/setup_image.h"

namespace counter {

inline constexpr int kMostMenuRows = 49;
inline constexpr int kMostSetpoints = 4;

inline constexpr std::string_view kMenuTitle = "CTR  MENU";
inline constexpr std::string_view kInputOptionCaption = "  INPUT OPTION";
inline constexpr std::string_view kNoChangeText = " Do Not Change Calib";  // beside CALib
// A legend on its own: no row carries the mark, required.
inline constexpr std::string_view kLockedText = " * Menu item locked out";
inline constexpr std::string_view kPrintCaption = "Print";
inline constexpr std::string_view kMainMenuCaption = "Main Menu";

// Help of the multiplier grids, whatever the pointer event.
inline constexpr int kScale1HelpId = 2213;
inline constexpr int kScale2HelpId = 2219;
// Of the setpoints, whose rows have no help of their own: the Setup view's, which tells of the ALARM key.
inline constexpr int kSetpointHelpId = 1168;

struct MenuRow {
    ShortText<12> Name;  // with the blank in front
    MenuCells Cells;
};

enum class PointerEvent {
    Primary,
    Secondary,  // the help view is then at a fixed left edge
};

// A grid or label that is shown beside a row of grdMain.
struct Overlay {
    int Row = 0;  // of grdMain; 0: the row isn't there, and so the overlay is hidden
    bool Visible = false;
    int Top = 0;  // in the unit of the layout, of which a row is 270 high
};

struct MenuView {
    // Row 0 of both grids is the header.
    std::array<MenuRow, kMostMenuRows + 1> grdMain;
    std::array<std::int16_t, kMostMenuRows + 1> MenuRowCodes{};
    // Places in MenuItems() and SetpointItems() of what a row shows; none of the header.
    std::array<std::int16_t, kMostMenuRows + 1> MenuRowItems{};
    std::array<std::int16_t, kMostSetpoints + 1> SetPtItems{};
    int MenuRowCount = 0;  // without the header
    std::array<MenuRow, kMostSetpoints + 1> grdSetPt;
    int SetPtRowCount = 0;
    int SetPtHeight = 2;  // rows that grdSetPt has room for, used or not

    DigitCells grdInput;   // the Function, beside InPut
    DigitCells grdScale1;  // the multiplier, beside SCALE1
    DigitCells grdScale2;
    std::string_view lblSigCond;  // the input board; empty where there is none of that code

    int FirstVisibleRow = 1;  // of grdMain
    Overlay InputPlace;
    Overlay Scale1Place;
    Overlay Scale2Place;
    Overlay NoChangePlace;  // of lblNoChange

    int AnalogOption = 0;  // decide which help a row has
    int ProtocolCode = 0;
    MenuFacts Facts;  // that it was built from

    // Lets the overlays follow; `firstVisibleRow` counts from 1.
    void ScrollTo(int firstVisibleRow);

    // The help of a row 1..MenuRowCount of grdMain; 0 for the header and beyond the rows.
    int HelpIdOfRow(int row, PointerEvent event) const;
};

// The whole view. Of `shared` it takes what the Setup view leaves there, see ReadMenuFacts. The image
// changes only where it holds a decimal point code 0 that the view shows.
MenuView BuildMenuView(SetupImage& image, const MeterIdentity& meter, const DerivedValues& shared);

// The help number for a row code.
int MenuHelpId(int code, PointerEvent event, int analogOption, int protocolCode);

// The Modbus Address as a row, "Addr". The meter's panel has no such item, so no view has it either.
MenuRow Row41(const SetupImage& image);

}  // namespace counter
