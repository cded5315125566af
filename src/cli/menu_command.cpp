// show --as menu: a setup file as the meter's front-panel menu.
#include "cli/cli.h"
#include "cli/cli_files.h"
#include "cli/cli_output.h"
#include "menu_view/menu_beside.h"
#include "menu_view/menu_view.h"
#include "meter/field_code.h"
#include "meter/text.h"

namespace counter {

namespace {

// The meter as the settings tell it, as the desktop tool would know it before a Get; without settings the one
// that the image names.
MeterIdentity IdentityFor(const CommandCall& call, const SetupImage& image) {
    MeterIdentity meter;
    const auto settings = ReadStoredSettings(call);
    meter.MeterType = settings ? settings->MeterType : CodeOf(image, Field::MeterType);
    meter.FirmwareVersion = settings ? settings->FirmwareVersion : CodeOf(image, Field::FirmwareVersion);
    return meter;
}

// `cells` is an array of cells of any length.
template <typename Cells>
Json CellsJson(const Cells& cells) {
    Json list = Json::array();
    for (const MenuCell& cell : cells) list.push_back(std::string(cell.View()));
    return list;
}

Json GridJson(const DigitCells& cells, const Overlay& place) {
    return place.Row > 0 ? CellsJson(cells) : Json(nullptr);
}

std::string NameJson(const MenuRow& row) {
    return std::string(row.Name.View().substr(1));
}

Json MenuJson(const MenuView& view, const SetupImage& image) {
    Json main = Json::array();
    for (std::size_t i = 1; i <= static_cast<std::size_t>(view.MenuRowCount); ++i) {
        const MenuRow& row = view.grdMain[i];
        main.push_back(
            {{"name", NameJson(row)}, {"code", view.MenuRowCodes[i]}, {"cells", CellsJson(row.Cells)}});
    }
    Json setpoints = Json::array();
    for (std::size_t i = 1; i <= static_cast<std::size_t>(view.SetPtRowCount); ++i) {
        const MenuRow& row = view.grdSetPt[i];
        setpoints.push_back({{"name", NameJson(row)}, {"cells", CellsJson(row.Cells)}});
    }
    return {{"main", std::move(main)},
            {"setpoints", std::move(setpoints)},
            {"input", CellsJson(view.grdInput)},
            {"scale1", GridJson(view.grdScale1, view.Scale1Place)},
            {"scale2", GridJson(view.grdScale2, view.Scale2Place)},
            {"inputOption", std::string(view.lblSigCond)},
            {"noChangeRow", view.NoChangePlace.Row},
            {"setup", Utf8(image.SetupData)}};
}

// A row of either grid: the name, then columns of two characters with a blank between them.
std::string Line(const MenuRow& row, const std::string& beside) {
    std::string line(row.Name.View());
    line.resize(14, ' ');
    for (const MenuCell& cell : row.Cells) {
        std::string_view shown = cell.View();
        if (shown.size() > 1) shown.remove_prefix(1);
        line.append(shown).append(3 - shown.size(), ' ');
    }
    if (!beside.empty()) line += "  " + beside;
    line.erase(line.find_last_not_of(' ') + 1);
    return line + "\n";
}

std::string MenuTable(const MenuView& view) {
    std::string text = std::string(kMenuTitle) + "\n" + std::string(kInputOptionCaption) + " " +
                       std::string(view.lblSigCond) + "\n\n";
    for (int row = 0; row <= view.MenuRowCount; ++row) {
        text += Line(view.grdMain[static_cast<std::size_t>(row)], row == 0 ? "" : BesideMenuRow(view, row));
    }
    if (view.SetPtRowCount > 0) text += "\n";
    for (int row = 0; view.SetPtRowCount > 0 && row <= view.SetPtRowCount; ++row) {
        text += Line(view.grdSetPt[static_cast<std::size_t>(row)], {});
    }
    return text;
}

}  // namespace

int ShowMenu(const CommandCall& call, SetupImage& image) {
    const MenuView view = BuildMenuView(image, IdentityFor(call, image), DerivedValues{});
    if (call.Json) {
        WriteJson(call, MenuJson(view, image));
    } else {
        call.World.Out << MenuTable(view);
    }
    return kDone;
}

}  // namespace counter
