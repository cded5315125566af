// Reports of what anything may be called.
#include <gtest/gtest.h>

#include "fleet/fleet_report.h"

namespace counter::test {
namespace {

TEST(FleetReport, EscapesWhatTableAndMeterSay) {
    FleetReport report;
    report.Table = "a<b&c.csv";
    report.By = "me@bench";
    MeterReport meter;
    meter.Name = "\"press'\x1B";
    meter.Line = "]]><x>";
    meter.Words = "<script>";
    meter.End = MeterEnd::Different;
    meter.Fields = {{"Setpoint 1", 55, "<1>", "&2", std::nullopt, true, false, true}};
    report.Meters = {meter};
    const std::string junit = JunitReport(report), html = HtmlReport(report);
    for (const std::string& text : {junit, html}) {
        for (const char* raw : {"<b&", "<script>", "<x>", "<1>", "&2", "\"press", "press'", "\x1B"})
            EXPECT_EQ(text.find(raw), std::string::npos) << raw << " in\n" << text;
        for (const char* escaped :
             {"a&lt;b&amp;c.csv", "&quot;press&#39;\xEF\xBF\xBD", "]]&gt;&lt;x&gt;", "&lt;1&gt;", "&amp;2"})
            EXPECT_NE(text.find(escaped), std::string::npos) << escaped << " in\n" << text;
    }
    EXPECT_NE(junit.find("<testcase classname=\"]]&gt;&lt;x&gt;\" name="), std::string::npos) << junit;
    EXPECT_EQ(html.find("http"), std::string::npos) << "the page stands alone";
}

}  // namespace
}  // namespace counter::test
