#pragma once
// What one worksheet cell holds, as the workbook readers find it and the writer stores it.

#include <QString>

namespace zlx::workbook {

struct CellValue {
    enum class Kind { Empty, Number, Text, Boolean, Date };

    Kind kind = Kind::Empty;
    double number = 0; // numbers, booleans (1/0) and dates (the sheet's serial day number)
    QString text;      // texts
    int style = -1;    // the cell's style index in an .xlsx ("s"), -1 when it has none

    static CellValue Number(double value) { return {Kind::Number, value, {}, -1}; }
    static CellValue Text(const QString& value) { return {Kind::Text, 0, value, -1}; }
    static CellValue Boolean(bool value) { return {Kind::Boolean, value ? 1.0 : 0.0, {}, -1}; }
    static CellValue Date(double serial) { return {Kind::Date, serial, {}, -1}; }

    bool IsEmpty() const { return kind == Kind::Empty; }
    // Same kind and value; the style does not count.
    bool SameValue(const CellValue& other) const;
};

} // namespace zlx::workbook
