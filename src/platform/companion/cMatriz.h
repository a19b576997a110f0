#pragma once
// A two-dimensional table of variant cells with its own row and column bounds: 1-based when
// the library dimensions it, 0-based when it takes over a GetRows (column, row) array.

#include "platform/variant/Variant.h"

#include <functional>

namespace zlx {

class cMatriz : public Object {
public:
    cMatriz();
    QString TypeName() const override { return QStringLiteral("cMatriz"); }

    std::int32_t Rows() const;
    std::int32_t Cols() const;
    std::int32_t FirstRow() const { return m_cells->LBound(2); }
    std::int32_t LastRow() const { return m_cells->UBound(2); }
    std::int32_t FirstCol() const { return m_cells->LBound(1); }
    std::int32_t LastCol() const { return m_cells->UBound(1); }

    // The default member: m(row, column).
    Variant Item(std::int32_t nRow, std::int32_t nCol) const { return GetValue(nCol, nRow); }
    // The whole contents as a (column, row) array with the matrix's bounds (a copy).
    Variant GetVariant() const;

    // Discards the contents; (1, 4, 1, 0) gives four columns and no rows.
    void Dimension(std::int32_t nFirstCol, std::int32_t nLastCol, std::int32_t nFirstRow,
                   std::int32_t nLastRow);
    Variant GetValue(std::int32_t nCol, std::int32_t nRow) const;
    void SetValue(std::int32_t nCol, std::int32_t nRow, const Variant& xValue);
    // Takes over a (column, row) array keeping its bounds; a one-dimensional array becomes a
    // single row. Anything else is a type mismatch (error 13).
    void LoadFromArray(const Variant& aData);
    // Appends a row after the last one, its cells from the array's elements in column order
    // (fewer elements leave the other cells Empty; an empty array, an empty row).
    void AddRow(const Variant& aValues);
    // The result column of the first row whose search column equals xSearch (variant
    // equality, or case-insensitive text with lTextCompare), else xDefault.
    Variant LookupValue(const Variant& xSearch, std::int32_t nSearchCol, std::int32_t nResultCol,
                        const Variant& xDefault = Variant(), bool lTextCompare = false) const;
    // Shows the matrix in a grid window (on the console when there is no user interface).
    void ShowData(const QString& cTitle = QString()) const;

    // How ShowData shows a matrix; the widgets library registers its grid window.
    using Viewer = std::function<void(const cMatriz&, const QString& title)>;
    static void RegisterViewer(Viewer viewer);
    // The text a viewer shows for a cell.
    static QString CellText(const Variant& value);
    // The matrix as tab-separated lines on standard output.
    static void PrintToConsole(const cMatriz& matrix, const QString& title);

private:
    VariantArrayPtr m_cells; // (column, row)
};

using cMatrizPtr = std::shared_ptr<cMatriz>;

} // namespace zlx
