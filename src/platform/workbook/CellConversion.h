#pragma once
// A cell's value turned into another kind: a number column's text that reads as a number, a
// text column's number as its text.

#include "platform/workbook/CellValue.h"

namespace zlx::workbook {

class CellConversion {
public:
    // Empty when `value` has no meaning as `kind`.
    static CellValue To(CellValue::Kind kind, const CellValue& value);
    static QString AsText(const CellValue& value);
};

} // namespace zlx::workbook
