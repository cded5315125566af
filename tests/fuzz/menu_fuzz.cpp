// The menu of any image: three bytes of meter and display, the rest is the image as it is.
#include "fuzz_input.h"
#include "menu_view/menu_view.h"

using namespace counter;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    MeterIdentity meter;
    meter.MeterType = data[0] % 9;
    meter.FirmwareVersion = data[1];
    DerivedValues shared;
    shared.ClockMode = data[2] % 2 == 0 ? 0 : 5;
    shared.ItemDecPts[3] = data[2] / 2;
    SetupImage image;
    image.SetupData = fuzz::TextOf(data + 3, size - 3);

    MenuView view = BuildMenuView(image, meter, shared);
    fuzz::Require(view.MenuRowCount >= 10 && view.MenuRowCount <= kMostMenuRows);  // 10 are always shown
    fuzz::Require(view.SetPtRowCount <= kMostSetpoints);
    fuzz::Require(image.SetupData.size() == size - 3);
    for (int row = 1; row <= view.MenuRowCount; ++row) {
        const MenuRow& line = view.grdMain[static_cast<std::size_t>(row)];
        for (const MenuCell& cell : line.Cells) fuzz::Require(!cell.View().empty());
        fuzz::Require(view.HelpIdOfRow(row, PointerEvent::Primary) >= 2200);
    }
    // What was repaired stays repaired: a second view is the first.
    SetupImage again = image;
    fuzz::Require(BuildMenuView(again, meter, shared).MenuRowCount == view.MenuRowCount);
    fuzz::Require(again.SetupData == image.SetupData);
    return 0;
}
