// The table of fields and controls, held against the view: each field is changed through its control.
#include "cli/field_names.h"

#include <set>

#include "edit_bench.h"
#include "meter/text.h"

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

// The control that a field hangs on, as the view shows it; of an array the first element that is filled.
Json ShownOf(const Json& controls, Field field) {
    const std::string control(ControlOfField(field));
    for (const auto& [name, shown] : controls.items()) {
        const bool filled = !shown.contains("entries") || !shown["entries"].empty();
        if (filled && (name == control || name.substr(0, name.find('[')) == control)) return shown;
    }
    return {{"entries", Json::array()}};
}

// Changes the field on the setup "b". True where the view let it be changed; then the field must read
// otherwise.
bool IsChanged(EditBench& bench, const Json& controls, const FieldRow& row) {
    const std::string name(row.Name);
    bench.Run({"fields", "b", name});
    const std::string present = bench.Out.substr(0, bench.Out.find('\n'));
    const std::string value = OtherValue(ShownOf(controls, row.Handle), present);
    if (value.empty() || bench.Run({"set", "b", "--out", "e", name + "=" + value}) != 0) return false;
    bench.Run({"fields", "e", name});
    EXPECT_NE(bench.Out, present + "\n") << name << "=" << value;
    return true;
}

TEST(FieldNames, EachFieldIsChangedByItsControl) {
    std::set<Field> left;
    for (const FieldRow& row : FieldTable()) {
        // Entry forms are told by two options; set_test has them.
        const std::string_view control = ControlOfField(row.Handle);
        if (!control.empty() && !control.starts_with("opt")) left.insert(row.Handle);
    }
    EXPECT_GT(left.size(), 100U);
    const Words setups[] = {
        {"Relay Option=4-Relay Board", "Analog Option=16 Bit Dual Unipolar"},
        {"Serial Protocol=Modbus ASCII", "optCoord1[0]=1", "optCoord2[0]=1"},
        {"Display Type=Rmt Dsply C"},
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
        std::erase_if(left, [&](Field field) { return IsChanged(bench, controls, RowOf(field)); });
    }
    for (const Field field : left) ADD_FAILURE() << FieldName(field) << " was never changed";
}

}  // namespace
}  // namespace counter::test
