#include "table/DbfRecordLoader.h"

#include "connection/SqlConstants.h"
#include "platform/dbfformat/DbfTexts.h"

#include <algorithm>

namespace zlx {

namespace {

// Stored records are added to the recordset a batch at a time, and before a failure.
constexpr std::size_t kRecordsAddedTogether = 4096;

// A logical field reads as a Boolean; its I1 column keeps 1 for true and 0 for false.
Variant ColumnValue(const Variant& value, std::int32_t type) {
    if (type == zlxTblColumnTypeI1 && value.VarType() == vbBoolean)
        return Variant(std::uint8_t(value.ToBool() ? 1 : 0));
    return value;
}

// Appends the plain value read into the column, as storing its Variant would; false when
// the column takes it only through the Variant.
bool AppendPlain(const DbfFieldCodec::PlainValue& value, std::int32_t type,
                 ado::ColumnStore& column) {
    using Kind = DbfFieldCodec::PlainValue::Kind;
    switch (value.kind) {
    case Kind::Null:
        column.AppendNull();
        return true;
    case Kind::Integer:
        return column.AppendInteger(value.integer);
    case Kind::Logical:
        return type == zlxTblColumnTypeI1 && column.AppendInteger(value.integer);
    case Kind::Currency:
        return column.AppendCurrency(value.integer);
    case Kind::Double:
    case Kind::Date:
        return column.AppendReal(value.real);
    case Kind::Text:
        return column.AppendText(value.text);
    }
    return false;
}

} // namespace

void DbfRecordLoader::AddField(const DbfField& field, std::int32_t columnType) {
    ado::ColumnStore& store = m_rs.LoadingColumn(static_cast<int>(m_fields.size()));
    LoadedField& loaded = m_fields.emplace_back();
    loaded.field = &field;
    loaded.type = columnType;
    loaded.standsAlone = m_dbf.StandsAlone(field);
    loaded.column = &store;
    loaded.runs = DbfColumnLoader::For(m_dbf, field, store);
}

QString DbfRecordLoader::LoadAll(std::int32_t& tally) {
    const bool inRuns = std::all_of(m_fields.begin(), m_fields.end(),
                                    [](const LoadedField& loaded) { return loaded.runs; });
    const std::size_t length = m_dbf.RecordLength();
    std::uint32_t row = 1;
    while (row <= m_dbf.RecordCount()) {
        std::uint32_t available = 0;
        const char* records = m_dbf.RecordsFrom(row, available);
        if (!records) {
            AddStored();
            return DbfTexts::kRecordReadFailed;
        }
        const std::size_t loaded = inRuns ? LoadRun(records, available) : 0;
        tally += static_cast<std::int32_t>(loaded);
        row += static_cast<std::uint32_t>(loaded);
        if (loaded == available) continue;
        ++tally;
        const QString problem = LoadRecord(records + loaded * length);
        if (!problem.isEmpty()) return problem;
        ++row;
    }
    AddStored();
    return {};
}

// Loads the records of the run up to the first holding a value only the general reading
// takes; answers how many it loaded.
std::size_t DbfRecordLoader::LoadRun(const char* records, std::size_t count) {
    for (LoadedField& loaded : m_fields)
        count = loaded.runs->Read(records, count);
    for (LoadedField& loaded : m_fields)
        loaded.runs->Append(records, count);
    m_stored += count;
    if (m_stored >= kRecordsAddedTogether) AddStored();
    return count;
}

// The whole record is read before any of it is stored: a field that cannot be read (a memo)
// leaves the record being added with the fields before it.
QString DbfRecordLoader::LoadRecord(const char* record) {
    for (std::size_t c = 0; c < m_fields.size(); ++c) {
        LoadedField& loaded = m_fields[c];
        loaded.isPlain = ReadPlain(record, loaded);
        if (loaded.isPlain) continue;
        QString problem;
        loaded.value = VariantOf(record, loaded, problem);
        if (!problem.isEmpty()) return FailRecord(record, c, problem);
    }
    try {
        AppendRecord(record);
    } catch (...) {
        AddStored(1); // the record keeps the fields stored before
        throw;
    }
    if (++m_stored >= kRecordsAddedTogether) AddStored();
    return {};
}

void DbfRecordLoader::AppendRecord(const char* record) {
    for (LoadedField& loaded : m_fields) {
        if (loaded.isPlain && AppendPlain(loaded.plain, loaded.type, *loaded.column)) continue;
        QString ignored; // a plain value is never a memo's
        if (loaded.isPlain) loaded.value = VariantOf(record, loaded, ignored);
        loaded.column->Append(loaded.value);
        loaded.value = Variant(); // lets the text buffer be reused
    }
}

// Reads the field's value in the record without a Variant where it can; false when only the
// Variant reading takes it.
bool DbfRecordLoader::ReadPlain(const char* record, LoadedField& loaded) const {
    const DbfField& field = *loaded.field;
    if (!loaded.standsAlone) return m_dbf.PlainValue(field, record, loaded.text, loaded.plain);
    return DbfFieldCodec::DecodePlain(field.type, record + field.offset, field.length,
                                      field.decimals, m_dbf.CodePage(), loaded.text, loaded.plain);
}

// The field's value in the record as a Variant, as its column takes it.
Variant DbfRecordLoader::VariantOf(const char* record, LoadedField& loaded,
                                   QString& problem) const {
    return ColumnValue(m_dbf.ValueReusing(*loaded.field, record, problem, loaded.text),
                       loaded.type);
}

// The record is added with the fields read before the unreadable one.
QString DbfRecordLoader::FailRecord(const char* record, std::size_t failed,
                                    const QString& problem) {
    AddStored();
    m_rs.AddNew();
    for (std::size_t done = 0; done < failed; ++done) {
        QString ignored;
        m_rs.SetCurrentValue(static_cast<int>(done), VariantOf(record, m_fields[done], ignored));
    }
    return problem;
}

void DbfRecordLoader::AddStored(std::size_t more) {
    m_rs.EndLoadedRecords(m_stored + more);
    m_stored = 0;
}

} // namespace zlx
