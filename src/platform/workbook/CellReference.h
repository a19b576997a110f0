#pragma once
// A cell's "B12" reference: column letters and a row number, both counted from 1.

#include <QString>
#include <optional>

namespace zlx::workbook {

struct CellReference {
    // The largest sheet a workbook holds: XFD1048576.
    static constexpr int kLastColumn = 16384;
    static constexpr int kLastRow = 1048576;

    int row = 0;
    int column = 0;

    static std::optional<CellReference> Parse(QStringView text);
    static QString ColumnLetters(int column);
    QString Text() const { return ColumnLetters(column) + QString::number(row); }
};

} // namespace zlx::workbook
