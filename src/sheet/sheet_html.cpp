#include "sheet/sheet_html.h"

namespace counter {

namespace {

constexpr const char* kHead =
    "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>Setup sheet</title>\n"
    "<style>\n"
    "body { font-family: sans-serif; font-size: 10pt; color: #000000; background: #ffffff; }\n"
    "h1 { font-size: 16pt; }\n"
    "h2 { font-size: 12pt; margin-top: 14px; margin-bottom: 4px; }\n"
    "th { text-align: left; }\n"
    ".off { color: #707070; }\n"
    ".cells { font-family: monospace; }\n"
    "@page { margin: 15mm; }\n"
    "@media print { tr { page-break-inside: avoid; } h2 { page-break-after: avoid; } }\n"
    "</style>\n</head>\n<body>\n";

std::string Escaped(const std::string& text) {
    std::string safe;
    for (const char c : text) {
        switch (c) {
            case '&':
                safe += "&amp;";
                break;
            case '<':
                safe += "&lt;";
                break;
            case '>':
                safe += "&gt;";
                break;
            case '"':
                safe += "&quot;";
                break;
            default:
                safe += c;
        }
    }
    return safe;
}

std::string Heading(const std::string& text) {
    return "<h2>" + Escaped(text) + "</h2>\n";
}

std::string Paragraph(const std::string& text) {
    return "<p>" + Escaped(text) + "</p>\n";
}

std::string Cell(const std::string& content, const char* attributes = "") {
    return std::string("<td") + attributes + ">" + (content.empty() ? "&nbsp;" : content) + "</td>";
}

constexpr const char* kTable = "<table border=\"1\" cellspacing=\"0\" cellpadding=\"1\" width=\"100%\">\n";
constexpr const char* kNarrow = "<table border=\"1\" cellspacing=\"0\" cellpadding=\"1\">\n";

std::string FactsTable(const SetupSheet& sheet) {
    std::string html = kNarrow;
    for (const auto& [name, text] : sheet.Facts)
        html += "<tr><th>" + Escaped(name) + "</th>" + Cell(Escaped(text)) + "</tr>\n";
    return html + "</table>\n";
}

std::string Indent(int level) {
    std::string blanks;
    for (int i = 0; i < 4 * level; ++i) blanks += "&nbsp;";
    return blanks;
}

std::string LineRow(const SheetLine& line) {
    const std::string caption = Indent(line.Level) + Escaped(line.Caption);
    if (line.Heading) return "<tr><th colspan=\"2\">" + caption + "</th></tr>\n";
    const char* const style = line.Active ? " width=\"50%\"" : " width=\"50%\" class=\"off\"";
    if (line.Value.empty()) {
        const std::string cell = caption + (line.Active ? "" : " (not in use)");
        return "<tr>" + Cell(cell, line.Active ? " colspan=\"2\"" : " colspan=\"2\" class=\"off\"") +
               "</tr>\n";
    }
    const std::string value = Escaped(line.Value) + (line.Active ? "" : " (not in use)");
    return "<tr>" + Cell(caption, style) + Cell(value, style) + "</tr>\n";
}

std::string PageSection(const SheetSection& page) {
    std::string html = Heading(page.Caption);
    if (!page.WhyNot.empty()) return html + Paragraph("Not offered. " + page.WhyNot);
    if (page.Lines.empty()) return html + Paragraph("Nothing is set here.");
    html += kTable;
    for (const SheetLine& line : page.Lines) html += LineRow(line);
    return html + "</table>\n";
}

std::string MenuTable(const std::vector<SheetMenuRow>& rows) {
    std::string html = std::string(kNarrow) + "<tr><th>Item</th>";
    for (const char* heading : {"S", "1", "2", "3", "4", "5", "6", ""})
        html += std::string("<th align=\"center\">") + heading + "&nbsp;</th>";
    html += "</tr>\n";
    for (const SheetMenuRow& row : rows) {
        html += "<tr>" + Cell(Escaped(row.Name), " class=\"cells\"");
        for (const std::string& cell : row.Cells)
            html += Cell(Escaped(cell), " class=\"cells\" align=\"center\" width=\"26\"");
        html += Cell(Escaped(row.Beside)) + "</tr>\n";
    }
    return html + "</table>\n";
}

std::string MenuSection(const SetupSheet& sheet) {
    if (sheet.Menu.empty()) return Heading("Front-panel menu") + Paragraph("The meter has no front panel.");
    std::string html = Heading("Front-panel menu");
    if (!sheet.InputOption.empty()) html += Paragraph("Input option: " + sheet.InputOption);
    html += MenuTable(sheet.Menu);
    if (!sheet.Setpoints.empty()) html += Heading("Setpoints, by the ALARM key") + MenuTable(sheet.Setpoints);
    return html;
}

std::string ChangesSection(const SetupSheet& sheet) {
    if (sheet.Against.empty()) return {};
    std::string html = Heading("Changes against " + sheet.Against);
    if (sheet.Changes.empty()) return html + Paragraph("No field differs.");
    html += std::string(kTable) + "<tr><th>Field</th><th>There</th><th>In this setup</th></tr>\n";
    for (const SheetChange& change : sheet.Changes)
        html += "<tr>" + Cell(Escaped(change.Field)) + Cell(Escaped(change.Was)) + Cell(Escaped(change.Is)) +
                "</tr>\n";
    return html + "</table>\n";
}

}  // namespace

std::string SheetHtml(const SetupSheet& sheet) {
    std::string html = kHead + ("<h1>" + std::string(kSheetTitle)) + "</h1>\n" + FactsTable(sheet);
    html += ChangesSection(sheet);
    if (!sheet.WhyNoPages.empty())
        html += Heading("Fields") + Paragraph("The Setup view can't be opened: " + sheet.WhyNoPages);
    for (const SheetSection& page : sheet.Pages) html += PageSection(page);
    return html + MenuSection(sheet) + "</body>\n</html>\n";
}

}  // namespace counter
