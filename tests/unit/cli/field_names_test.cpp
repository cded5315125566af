// The record of fields and controls: each field is changed through its control.
#include "cli/field_names.h"

#include <set>

#include "edit_bench.h"
#include "meter/text.h"
#include "setup_view/setup_view.h"
#include "support/bench_meter.h"

namespace counter::test {
namespace {

// A legal value other than the present one, for a control of `show --as setup`; empty where it has none.
std::string OtherValue(const Json& control, const std::string& present) {
    if (control.contains("text")) return present == "7" ? "8" : "7";
    if (control.contains("value")) return present == "0" ? "1" : "0";
    for (const std::string entry : control["entries"]) {
        if (Trimmed(entry) != present && !Trimmed(entry).empty()) return entry;
    }
    return {};
}

// Of the controls that change a field the first one that is filled, as the view shows it.
Json ShownOf(const Json& controls, const std::vector<Control*>& changing) {
    for (const Control* control : changing) {
        const Json& shown = controls[control->FullName()];
        if (!shown.contains("entries") || !shown["entries"].empty()) return shown;
    }
    return {{"entries", Json::array()}};
}

// Changes the field on the setup "b". True where the view let it be changed; then the field must read
// otherwise.
bool IsChanged(EditBench& bench, const Json& controls, const FieldRow& row,
               const std::vector<Control*>& changing) {
    const std::string name(row.Name);
    bench.Run({"fields", "b", name});
    const std::string present = bench.Out.substr(0, bench.Out.find('\n'));
    const std::string value = OtherValue(ShownOf(controls, changing), present);
    if (value.empty() || bench.Run({"set", "b", "--out", "e", name + "=" + value}) != 0) return false;
    bench.Run({"fields", "e", name});
    EXPECT_NE(bench.Out, present + "\n") << name << "=" << value;
    return true;
}

TEST(FieldNames, EachFieldIsChangedByItsControl) {
    BenchMeter meter;
    const SetupView view(meter.Program);
    const auto controlsOf = [&view](Field field) { return view.ControlsOf(field, 0); };
    std::set<Field> left;
    for (const FieldRow& row : FieldTable()) {
        // Entry forms are told by two options; set_test has them.
        const std::vector<Control*> changing = controlsOf(row.Handle);
        if (!changing.empty() && changing[0]->Kind != ControlKind::Option) left.insert(row.Handle);
    }
    EXPECT_GT(left.size(), 100U);
    const Words setups[] = {
        {"Relay Option=4-Relay Board", "Analog Option=16 Bit Dual Unipolar"},
        {"Serial Protocol=Modbus ASCII", "optCoord1[0]=1", "optCoord2[0]=1"},
        {"Display Type=Rmt Dsply C", "Recognition Char=Custom Char"},
        {"Input Option=V-F Converter", "Square Root=1"},
        {"Input Option=V-F Converter", "Function=Batch"},
        {"Function=Batch"},
        {"Function=A, A Total"},
        {"Function=A / B"},
        {"Mode=Stopwatch"},
        {"Input Option=Quadrature"},
    };
    EditBench bench;
    for (const Words& setup : setups) {
        Words line = {"set", "d", "--out", "b"};
        line.insert(line.end(), setup.begin(), setup.end());
        EXPECT_EQ(bench.Run(line), 0) << bench.Err;
        EXPECT_EQ(bench.Run({"show", "b", "--as", "setup", "--json"}), 0);
        const Json controls = bench.View()["controls"];
        std::erase_if(
            left, [&](Field field) { return IsChanged(bench, controls, RowOf(field), controlsOf(field)); });
    }
    for (const Field field : left) ADD_FAILURE() << FieldName(field) << " was never changed";
}

}  // namespace
}  // namespace counter::test
