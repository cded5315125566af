#include "sheet/setup_sheet.h"

#include <algorithm>
#include <cstdio>

#include "controls/form_lines.h"
#include "menu_view/menu_beside.h"
#include "meter/field_value.h"
#include "meter/meter_words.h"
#include "meter/text.h"

namespace counter {

namespace {

std::string Read(const SetupImage& image, Field field) {
    return Printable(ValueOfField(image, field).Text);
}

std::string MeterText(const SetupImage& image) {
    return Read(image, Field::MeterType) + ", firmware " + Read(image, Field::FirmwareVersion) + ", " +
           (ExtendedMeterFromSetup(image) ? "Extended" : "Basic");
}

std::string LineOf(const SetupImage& image) {
    const bool modbus = CodeOf(image, Field::SerialProtocol) != 0;
    return Read(image, Field::SerialProtocol) + ", " + Read(image, Field::BaudRate) + " baud, address " +
           Read(image, modbus ? Field::ModbusAddress : Field::Address);
}

void AddFacts(SetupSheet& sheet, const SetupImage& image, const SheetFacts& facts) {
    const std::pair<std::string, std::string> all[] = {{"Meter", MeterText(image)},
                                                       {"Line of the meter", LineOf(image)},
                                                       {"File", facts.File},
                                                       {"Setup", facts.From},
                                                       {"Sheet made", facts.Date}};
    for (const auto& fact : all) {
        if (!fact.second.empty()) sheet.Facts.push_back(fact);
    }
}

// Parts of a text between runs of `between`, two or more, without blanks at their ends.
std::vector<std::string> Parts(const std::string& text, char between) {
    std::vector<std::string> parts;
    const std::string run(2, between);
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find(run, start), text.size());
        parts.emplace_back(Trimmed(std::string_view(text).substr(start, end - start)));
        start = std::min(text.find_first_not_of(between, end), text.size());
    }
    return parts;
}

// A unit stands behind its value; a heading of columns names the parts of an entry.
std::string ValueWithLabels(const FormLine& line) {
    const std::vector<std::string> columns = Parts(line.Beside, '-'), parts = Parts(line.Value, ' ');
    if (columns.size() < 2 || parts.size() > columns.size())
        return line.Value + (line.Beside.empty() ? "" : " " + line.Beside);
    std::string value;
    for (std::size_t i = 0; i < parts.size(); ++i)
        value += (i == 0 ? "" : "; ") + columns[i] + ": " + parts[i];
    return value;
}

// Buttons act, and say nothing of a setup; a heading goes with the last of its lines.
std::vector<SheetLine> LinesFor(const Form& form, int tab) {
    std::vector<FormLine> lines = LinesOfPage(form, tab);
    std::erase_if(lines, [](const FormLine& line) { return line.Of->Kind == ControlKind::Button; });
    std::vector<SheetLine> made;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const FormLine& line = lines[i];
        const bool empty = i + 1 == lines.size() || lines[i + 1].Level <= line.Level;
        if (line.Heading && empty) continue;
        made.push_back({line.Level, line.Heading, line.Heading || line.Of->Enabled, Printable(line.Caption),
                        Printable(ValueWithLabels(line))});
    }
    return made;
}

void AddPages(SetupSheet& sheet, const SetupView& view) {
    const Control* strip = TabStripOf(view.Controls);
    for (std::size_t tab = 0; strip && tab < strip->Entries.size(); ++tab) {
        SheetSection page{Printable(strip->Entries[tab]), {}, {}};
        if (strip->Offered[tab]) {
            page.Lines = LinesFor(view.Controls, static_cast<int>(tab));
        } else {
            page.WhyNot = view.WhyNotOffered(static_cast<int>(tab));
        }
        sheet.Pages.push_back(std::move(page));
    }
}

SheetMenuRow SheetRow(const MenuRow& row, const std::string& beside) {
    SheetMenuRow made{std::string(Trimmed(row.Name.View())), {}, beside};
    for (std::size_t i = 0; i < row.Cells.size(); ++i) made.Cells[i] = Trimmed(row.Cells[i].View());
    return made;
}

// The menu may mend a decimal point in the image that it is built from: a copy.
void AddMenu(SetupSheet& sheet, const Session& session) {
    if (!HasPanel(session.Identity.MeterType)) return;
    SetupImage image = session.Image;
    const MenuView view = BuildMenuView(image, session.Identity, session.Derived);
    sheet.InputOption = Trimmed(view.lblSigCond);
    for (int row = 1; row <= view.MenuRowCount; ++row)
        sheet.Menu.push_back(SheetRow(view.grdMain[static_cast<std::size_t>(row)], BesideMenuRow(view, row)));
    for (int row = 1; row <= view.SetPtRowCount; ++row)
        sheet.Setpoints.push_back(SheetRow(view.grdSetPt[static_cast<std::size_t>(row)], {}));
}

void AddChanges(SetupSheet& sheet, const SetupImage& image, const std::optional<SheetAgainst>& against) {
    if (!against) return;
    sheet.Against = against->Name;
    for (const FieldDifference& difference : CompareFiles(against->Image, image))
        sheet.Changes.push_back({std::string(Trimmed(difference.Name)), Printable(difference.A.Text),
                                 Printable(difference.B.Text)});
}

}  // namespace

SetupSheet MakeSheet(const SetupView& view, const SheetFacts& facts,
                     const std::optional<SheetAgainst>& against) {
    SetupSheet sheet = MakeBareSheet(view.Program, {}, facts, against);
    AddPages(sheet, view);
    return sheet;
}

SetupSheet MakeBareSheet(const Session& session, const std::string& why, const SheetFacts& facts,
                         const std::optional<SheetAgainst>& against) {
    SetupSheet sheet;
    sheet.WhyNoPages = why;
    AddFacts(sheet, session.Image, facts);
    AddMenu(sheet, session);
    AddChanges(sheet, session.Image, against);
    return sheet;
}

std::string SheetDate(const WallTime& now) {
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d", now.Year, now.Month, now.Day, now.Hour,
                  now.Minute);
    return text;
}

}  // namespace counter
