#pragma once
// The values of one recordset column, stored by kind: integers, currency and reals in plain
// arrays, decimals with a double copy for fast comparison, texts as QStrings, and everything
// else (binary, variants) as Variants, with one null flag per row.

#include "platform/engines/AdoConstants.h"
#include "platform/variant/Variant.h"

#include <QString>
#include <cstdint>
#include <vector>

namespace zlx::ado {

class ColumnStore {
public:
    enum class Kind { Integer, Currency, Real, Decimal, Text, Other };

    ColumnStore(DataTypeEnum type, std::int32_t definedSize, bool isLong);

    static Kind KindOf(DataTypeEnum type);
    Kind GetKind() const { return m_kind; }
    DataTypeEnum Type() const { return m_type; }
    std::size_t Size() const { return m_null.size(); }

    void Reserve(std::size_t rows);
    void AppendNull();
    void Clear();
    // Converts `value` to the column's type; throws AdoError 3421 (wrong type) or 0x80040E21
    // (text longer than the defined size). Empty and Null store a null.
    void Set(std::size_t row, const Variant& value);
    Variant Get(std::size_t row) const;
    bool IsNull(std::size_t row) const { return m_null[row] != 0; }

    // Fast access for the numeric kinds (currency, decimals and dates as their double value).
    double NumberAt(std::size_t row) const;
    // The value as Currency, as CCur of Get(row) gives it, for the number kinds (not Boolean);
    // false for the others. Throws VariantError 94 for a Null, 6 on overflow.
    bool CurrencyAt(std::size_t row, Currency& value) const;
    // Fast access for the text kind.
    const QString& TextAt(std::size_t row) const { return m_texts[row]; }

private:
    void StoreConverted(std::size_t row, const Variant& value);

    DataTypeEnum m_type;
    Kind m_kind;
    std::int32_t m_maxChars; // 0: unlimited
    std::vector<std::uint8_t> m_null;
    std::vector<std::int64_t> m_ints; // integers; currency scaled by 10,000
    std::vector<double> m_reals;      // reals, dates, and the decimals' values
    std::vector<Decimal> m_decimals;
    std::vector<QString> m_texts;
    std::vector<Variant> m_others;
};

} // namespace zlx::ado
