#include "platform/workbook/CellValue.h"

namespace zlx::workbook {

bool CellValue::SameValue(const CellValue& other) const {
    if (kind != other.kind) return false;
    return kind == Kind::Text ? text == other.text : number == other.number;
}

} // namespace zlx::workbook
