#include "meter/field_table.h"

#include <gtest/gtest.h>

#include "digest.h"

namespace counter {
namespace {

TEST(FieldTable, AllRowsAreTheReviewedOnes) {
    std::string all;
    for (const FieldRow& row : FieldTable()) {
        all += std::string(row.Name) + "=" + std::string(FieldName(row.Handle));
        for (const int number : {static_cast<int>(row.Handle), static_cast<int>(row.Kind), row.Pos,
                                 row.Digits, row.HiBit, row.LoBit, row.ValueCode})
            all += "/" + std::to_string(number);
        for (const std::string_view entry : row.Entries) all += "|" + std::string(entry);
        for (const int code : row.Codes) all += "|" + std::to_string(code);
        all += "\n";
    }
    EXPECT_EQ(DigestOf(all), 4138341295U) << all;
}

}  // namespace
}  // namespace counter
