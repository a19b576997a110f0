#pragma once
// One DBF field whose bytes are its whole value (see DbfTable::StandsAlone) loaded into its
// column a run of records at a time, straight from the read block: the field's type is looked
// at once per run rather than once per value, and the run's values go into the column
// together. Texts of a single-byte page, plain numbers, dates and logicals; a number that only
// the general reading takes (an exponent, more than 18 digits) ends the run at its record.

#include "platform/ado/ColumnStore.h"
#include "platform/dbfformat/DbfTable.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace zlx {

class DbfColumnLoader {
public:
    // The loader of the field into the column; nothing when the field or the column is not one
    // it loads (memos, binary and wide fields, flagged values, multi-byte pages).
    static std::optional<DbfColumnLoader> For(const DbfTable& dbf, const DbfField& field,
                                              ado::ColumnStore& column);

    // Reads the field in `count` records from `records` on, RecordLength() bytes apart, and
    // answers how many records from the first it read: fewer than `count` when the field's
    // value in the next one needs the general reading.
    std::size_t Read(const char* records, std::size_t count);
    // Appends the values of the first `count` records read to the column.
    void Append(const char* records, std::size_t count);

private:
    enum class Shape { Text, Date, Logical, Integer, Currency, Real };

    DbfColumnLoader(const DbfTable& dbf, const DbfField& field, ado::ColumnStore& column,
                    Shape shape);
    std::size_t ReadNumbers(const char* records, std::size_t count);
    void ReadDates(const char* records, std::size_t count);
    void ReadLogicals(const char* records, std::size_t count);
    void AppendTexts(const char* records, std::size_t count);

    const DbfCodePage* m_codePage;
    std::size_t m_recordLength;
    std::uint32_t m_offset;
    std::uint32_t m_length;
    std::uint8_t m_decimals;
    ado::ColumnStore* m_column;
    Shape m_shape;
    std::vector<std::int64_t> m_integers; // the run's integers, currency and logicals
    std::vector<double> m_reals;          // the run's reals and dates
    std::vector<std::uint8_t> m_nulls;    // the run's blank dates
};

} // namespace zlx
