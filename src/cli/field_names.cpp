#include "cli/field_names.h"

#include "meter/text.h"

namespace counter {

std::optional<Field> FieldNamed(std::string_view name) {
    const std::string wanted = SmallLetters(Trimmed(name));
    for (const FieldRow& row : FieldTable()) {
        if (SmallLetters(Trimmed(row.Name)) == wanted) return row.Handle;
    }
    return std::nullopt;
}

std::vector<std::string> FieldNames() {
    std::vector<std::string> names;
    for (const FieldRow& row : FieldTable()) names.emplace_back(Trimmed(row.Name));
    return names;
}

}  // namespace counter
