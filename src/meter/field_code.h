// The stored code of a field that is a byte or bits of one, by its handle.
#pragma once

#include "meter/field_table.h"
#include "meter/setup_image.h"

namespace counter {

// 0 up to the largest that the field's bits hold; bits that the image lacks read as BitsGet reads them.
inline int CodeOf(const SetupImage& image, Field field) {
    const FieldRow& row = RowOf(field);
    return BitsGet(image, row.HiBit, row.LoBit, row.Pos);
}

// `code` must fit the field's bits; the other bits of the byte stay.
inline void PutCode(SetupImage& image, Field field, int code) {
    const FieldRow& row = RowOf(field);
    BitsPut(image, row.HiBit, row.LoBit, row.Pos, code);
}

}  // namespace counter
