#pragma once
// The values of one recordset column, stored by kind: integers, currency and reals in plain
// arrays, decimals as a 64-bit mantissa and a scale (wider ones aside) with a double copy for
// fast comparison, texts in a TextColumn, and everything else (binary, variants) as Variants.
// The null flags are kept only once the column has had a null.

#include "platform/ado/HugePageAllocator.h"
#include "platform/ado/TextColumn.h"
#include "platform/engines/AdoConstants.h"
#include "platform/variant/Variant.h"

#include <QString>
#include <QStringView>
#include <cstdint>
#include <vector>

namespace zlx::ado {

class ColumnStore {
public:
    enum class Kind { Integer, Currency, Real, Decimal, Text, Other };

    // `texts`: how a text column starts out (a one-row store checking values keeps no
    // dictionary of them).
    ColumnStore(DataTypeEnum type, std::int32_t definedSize, bool isLong,
                TextColumn::Layout texts = TextColumn::Layout::Dictionary);

    static Kind KindOf(DataTypeEnum type);
    Kind GetKind() const { return m_kind; }
    DataTypeEnum Type() const { return m_type; }
    std::size_t Size() const { return m_size; }

    void Reserve(std::size_t rows);
    // A text column still empty keeps its texts in one buffer (see TextColumn::UseBuffer).
    void KeepTextsInBuffer(std::size_t chars) {
        if (m_kind == Kind::Text) m_texts.UseBuffer(chars);
    }
    void AppendNull();
    // Appends a row holding `value`, converted as Set does; on an error the row is left null.
    void Append(const Variant& value);
    // Loaders' appends of a value already of the column's kind, stored as Set stores the
    // matching Variant (an integer as Long, currency's scaled value, a date's or a double's
    // value, a text within the defined size); each answers false, appending nothing, when the
    // column is of another kind.
    bool AppendInteger(std::int64_t value);
    bool AppendCurrency(std::int64_t scaled);
    bool AppendReal(double value);
    bool AppendText(QStringView text);
    // Bulk forms of those appends for `count` values at once, for a loader that knows the
    // column's kind and that its values fit it (integers in the column's range). A non-zero
    // `nulls[i]` (when given) appends a Null; its value should be 0.
    void AppendIntegers(const std::int64_t* values, std::size_t count);
    void AppendCurrencies(const std::int64_t* scaled, std::size_t count);
    void AppendReals(const double* values, const std::uint8_t* nulls, std::size_t count);
    // `count` texts of a text column, each written by `write(i, out)` into room for `most`
    // characters at `out` and answering its length (see TextColumn::AppendWritten); `most`
    // within the column's defined size.
    template <class Writer>
    void AppendWrittenTexts(std::size_t count, std::size_t most, Writer&& write) {
        m_texts.AppendWritten(count, most, write);
        EndAppend(count);
    }
    void Clear();
    // Converts `value` to the column's type; throws AdoError 3421 (wrong type) or 0x80040E21
    // (text longer than the defined size). Empty and Null store a null.
    void Set(std::size_t row, const Variant& value);
    Variant Get(std::size_t row) const;
    bool IsNull(std::size_t row) const { return !m_null.empty() && m_null[row] != 0; }
    // True when no row is null.
    bool HasNoNulls() const;

    // Fast access for the numeric kinds (currency, decimals and dates as their double value).
    double NumberAt(std::size_t row) const;
    // The stored integer of the integer and currency kinds (currency scaled by 10,000).
    std::int64_t IntegerAt(std::size_t row) const { return m_ints[row]; }
    // The value as Currency, as CCur of Get(row) gives it, for the number kinds (not Boolean);
    // false for the others. Throws VariantError 94 for a Null, 6 on overflow.
    bool CurrencyAt(std::size_t row, Currency& value) const;
    // The Currency total of `rows`, as adding CurrencyAt of each in turn gives it; false for
    // the kinds CurrencyAt refuses.
    bool CurrencyTotal(const std::vector<std::uint32_t>& rows, Currency& total) const;
    // Fast access for the text kind; valid until the column next changes.
    QStringView TextAt(std::size_t row) const { return m_texts.At(row); }
    const TextColumn& Texts() const { return m_texts; }

private:
    void StoreConverted(std::size_t row, const Variant& value);
    bool AppendDirect(const Variant& value);
    void EndAppend(std::size_t count = 1);
    void AppendDefault();
    void SetNull(std::size_t row, bool null);
    void StoreDecimal(std::size_t row, const Decimal& value);
    Decimal DecimalAt(std::size_t row) const;
    bool AddsUpWithoutOverflow(std::size_t count) const;

    DataTypeEnum m_type;
    Kind m_kind;
    std::int32_t m_maxChars; // 0: unlimited
    std::size_t m_size = 0;
    LargeVector<std::uint8_t> m_null; // empty while no row is null
    std::size_t m_nullCount = 0;
    // The magnitudes of every currency value ever stored, OR-ed together: a bound that tells a
    // total it cannot overflow without reading the values.
    std::uint64_t m_magnitudes = 0;
    LargeVector<std::int64_t> m_ints;    // integers; currency scaled by 10,000; decimal mantissas
    LargeVector<double> m_reals;         // reals, dates, and the decimals' values
    LargeVector<std::uint8_t> m_scales;  // decimals: the scale, or kWideDecimal
    std::vector<Decimal> m_wideDecimals; // decimals whose mantissa needs more than 63 bits
    TextColumn m_texts;
    std::vector<Variant> m_others;
};

} // namespace zlx::ado
