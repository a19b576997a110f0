#include "platform/dbfformat/DbfTable.h"
#include "platform/dbfformat/DbfTexts.h"
#include "table/cDatos.h"

#include <QFile>
#include <algorithm>
#include <string>

namespace zlx {

namespace {

// The column a DBF field loads into: its type and size; None for the field types that have
// no column (binary memos, pictures, Visual FoxPro's varbinary).
struct DbfColumn {
    std::int32_t type = zlxTblColumnTypeNone;
    std::int32_t size = 0;
};

DbfColumn ColumnForDbfField(const DbfLayout& layout, const DbfField& field) {
    switch (field.type) {
    case 'D':
    case 'T':
        return {zlxTblColumnTypeDateTime, 0};
    case 'L':
        return {zlxTblColumnTypeI1, 0};
    case 'C':
    case 'V':
        return {zlxTblColumnTypeChar, static_cast<std::int32_t>(field.length)};
    case 'I':
        return {zlxTblColumnTypeI4, 0};
    case 'Y':
        return {zlxTblColumnTypeCurrency, 0};
    case 'M':
        return field.binary ? DbfColumn{} : DbfColumn{zlxTblColumnTypeMemo, 0};
    case 'B':
        return layout.visualFoxPro ? DbfColumn{zlxTblColumnTypeDouble, 0} : DbfColumn{};
    case 'N':
    case 'F':
        break;
    default:
        return {};
    }
    if (field.decimals >= 5) return {zlxTblColumnTypeDouble, 0};
    if (field.decimals >= 1) return {zlxTblColumnTypeCurrency, 0};
    if (field.length < 10) return {zlxTblColumnTypeI4, 0};
    if (field.length < 15) return {zlxTblColumnTypeCurrency, 0};
    return {zlxTblColumnTypeDecimal, static_cast<std::int32_t>(field.length)};
}

// A logical field reads as a Boolean; its I1 column keeps 1 for true and 0 for false.
Variant ColumnValue(const Variant& value, std::int32_t type) {
    if (type == zlxTblColumnTypeI1 && value.VarType() == vbBoolean)
        return Variant(std::uint8_t(value.ToBool() ? 1 : 0));
    return value;
}

// A DBF field being loaded into its column.
struct LoadedField {
    const DbfField* field;
    std::int32_t type;
    bool standsAlone; // its bytes are its whole value (see DbfTable::StandsAlone)
    ado::ColumnStore* column;
    QString text; // the field's text buffer, reused record after record
    DbfFieldCodec::PlainValue plain;
    bool isPlain = false; // `plain` holds this record's value
};

// The field's value in the record as a Variant, as its column takes it.
Variant VariantOf(const DbfTable& dbf, const char* record, LoadedField& field, QString& problem) {
    return ColumnValue(dbf.ValueReusing(*field.field, record, problem, field.text), field.type);
}

// Reads the field's value in the record without a Variant where it can; false when only the
// Variant reading takes it.
bool ReadPlain(const DbfTable& dbf, const char* record, LoadedField& loaded) {
    const DbfField& field = *loaded.field;
    if (!loaded.standsAlone) return dbf.PlainValue(field, record, loaded.text, loaded.plain);
    return DbfFieldCodec::DecodePlain(field.type, record + field.offset, field.length,
                                      field.decimals, dbf.CodePage(), loaded.text, loaded.plain);
}

// A character field of a big file whose first records all hold different texts (names,
// codes): its column keeps its texts in one buffer from the start rather than first filling
// a table of distinct values.
bool TextsLookDistinct(DbfTable& dbf, const DbfField& field) {
    constexpr std::uint32_t kSampled = 256;
    if (field.type != 'C' || !dbf.StandsAlone(field) ||
        dbf.RecordCount() <= ado::TextColumn::kMostValues)
        return false;
    std::vector<char> record(dbf.RecordLength());
    std::vector<std::string> texts;
    for (std::uint32_t r = 1; r <= kSampled; ++r) {
        if (!dbf.ReadRecord(r, record.data())) return false;
        texts.emplace_back(record.data() + field.offset, field.length);
    }
    std::sort(texts.begin(), texts.end());
    return std::adjacent_find(texts.begin(), texts.end()) == texts.end();
}

// Appends the plain value read into the column, as storing its Variant would; false when
// the column takes it only through the Variant.
bool AppendPlain(LoadedField& loaded) {
    using Kind = DbfFieldCodec::PlainValue::Kind;
    const DbfFieldCodec::PlainValue& value = loaded.plain;
    ado::ColumnStore& column = *loaded.column;
    switch (value.kind) {
    case Kind::Null:
        column.AppendNull();
        return true;
    case Kind::Integer:
        return column.AppendInteger(value.integer);
    case Kind::Logical:
        return loaded.type == zlxTblColumnTypeI1 && column.AppendInteger(value.integer);
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

// The DBF field a column is written to; no type letter when the column has none (memo,
// image, or a text column without a size).
struct DbfShape {
    char type = 0;
    std::int32_t length = 0;
    std::int32_t decimals = 0;
};

DbfShape ShapeOfColumn(const zlxDatoColumnInfo& column) {
    switch (column.nType) {
    case zlxTblColumnTypeI1:
        return {'N', 3, 0};
    case zlxTblColumnTypeI2:
        return {'N', 5, 0};
    case zlxTblColumnTypeI4:
        return {'N', 10, 0};
    case zlxTblColumnTypeI8:
        return {'N', 16, 0};
    case zlxTblColumnTypeSingle:
        return {'N', 11, 4};
    case zlxTblColumnTypeDouble:
    case zlxTblColumnTypeDecimal:
        return {'N', 16, 6};
    case zlxTblColumnTypeChar:
    case zlxTblColumnTypeCharFixed:
        if (column.nSize < 1) return {};
        return {'C', std::min(column.nSize, 255), 0};
    case zlxTblColumnTypeDate:
    case zlxTblColumnTypeDateTime:
        return {'D', 8, 0};
    case zlxTblColumnTypeTime:
        return {'C', 8, 0};
    case zlxTblColumnTypeCurrency:
        return {'N', 16, 4};
    default:
        return {};
    }
}

// A record that cannot be read ends the load: the message, then LastError 12.
std::int32_t FailDbfLoad(std::int32_t& lastError, const QString& message) {
    cMsgBox().ShowMessage(message, 0, DbfTexts::kRecordReadTitle);
    lastError = zlxDatosError_Err_LoadDBF;
    return 0;
}

QString FieldNameOfColumn(const QString& name, std::int32_t number) {
    if (name.isEmpty()) return QStringLiteral("FLD%1").arg(number, 7, 10, QLatin1Char('0'));
    return name.left(10).toUpper();
}

} // namespace

bool cDatos::SaveToXMLFile(const QString& cFileName) {
    if (QFile::exists(cFileName)) QFile::remove(cFileName);
    if (QFile::exists(cFileName)) return false;
    try {
        m_rs->Save(cFileName, ado::adPersistXML);
    } catch (...) {
        // failures are answered by the file's absence
    }
    return QFile::exists(cFileName);
}

std::int32_t cDatos::LoadFromXMLFile(const QString& cFileName) {
    try {
        auto rs = std::make_shared<ado::Recordset>();
        rs->Open(cFileName);
        if (rs->State() == ado::adStateClosed) return 0;
        return LoadRecordSet(rs, true, true, true, false);
    } catch (...) {
        m_lastError = zlxDatosError_Err_LoadXML;
        return 0;
    }
}

std::int32_t cDatos::LoadFile_DBF(const QString& cDBF_FileName) {
    DbfTable dbf;
    QString refusal;
    if (!dbf.Open(cDBF_FileName, 0, refusal)) {
        if (!refusal.isEmpty()) cMsgBox().ShowMessage(refusal, 0, DbfTexts::kOpenTitle);
        m_lastError = zlxDatosError_Err_LoadDBF;
        return 0;
    }
    try {
        m_lastError = zlxDatosError_None;
        std::vector<LoadedField> loaded;
        BeginDefineColumns();
        for (const DbfField& field : dbf.Layout().fields) {
            const DbfColumn column = ColumnForDbfField(dbf.Layout(), field);
            if (column.type == zlxTblColumnTypeNone) continue;
            AddColumn(dbf.CodePage().Decode(field.name.constData(),
                                            static_cast<std::size_t>(field.name.size())),
                      column.type, column.size);
            loaded.push_back({&field, column.type, dbf.StandsAlone(field), nullptr, {}, {}});
        }
        EndDefineColumns();
        m_rs->BeginLoading(dbf.RecordCount());
        for (std::size_t c = 0; c < loaded.size(); ++c) {
            LoadedField& field = loaded[c];
            field.column = &m_rs->LoadingColumn(static_cast<int>(c));
            // A single-byte page gives one character per byte: the texts' exact room.
            if (TextsLookDistinct(dbf, *field.field))
                field.column->KeepTextsInBuffer(std::size_t{dbf.RecordCount()} *
                                                field.field->length);
        }
        std::vector<char> record(dbf.RecordLength());
        std::vector<Variant> values(loaded.size()); // the values read only as Variants
        // Stored records are added to the recordset a batch at a time, and before a failure.
        constexpr std::size_t kRecordsAddedTogether = 4096;
        std::size_t stored = 0;
        const auto addStored = [&](std::size_t more = 0) {
            m_rs->EndLoadedRecords(stored + more);
            stored = 0;
        };
        // The record is added with the fields read before the unreadable one.
        const auto failRecord = [&](std::size_t failed, const QString& problem) {
            addStored();
            m_rs->AddNew();
            for (std::size_t done = 0; done < failed; ++done) {
                QString ignored;
                m_rs->SetCurrentValue(static_cast<int>(done),
                                      VariantOf(dbf, record.data(), loaded[done], ignored));
            }
            return FailDbfLoad(m_lastError, problem);
        };
        for (std::uint32_t r = 1; r <= dbf.RecordCount(); ++r) {
            if (!dbf.ReadRecord(r, record.data())) {
                addStored();
                return FailDbfLoad(m_lastError, DbfTexts::kRecordReadFailed);
            }
            ++m_tally;
            // The whole record is read before any of it is stored: a field that cannot be
            // read (a memo) leaves the record being added with the fields before it.
            for (std::size_t c = 0; c < loaded.size(); ++c) {
                LoadedField& field = loaded[c];
                field.isPlain = ReadPlain(dbf, record.data(), field);
                if (field.isPlain) continue;
                QString problem;
                values[c] = VariantOf(dbf, record.data(), field, problem);
                if (!problem.isEmpty()) return failRecord(c, problem);
            }
            try {
                for (std::size_t c = 0; c < loaded.size(); ++c) {
                    LoadedField& field = loaded[c];
                    if (field.isPlain && AppendPlain(field)) continue;
                    QString ignored; // a plain value is never a memo's
                    if (field.isPlain) values[c] = VariantOf(dbf, record.data(), field, ignored);
                    field.column->Append(values[c]);
                    values[c] = Variant(); // lets the text buffer be reused
                }
            } catch (...) {
                addStored(1); // the record keeps the fields stored before
                throw;
            }
            if (++stored == kRecordsAddedTogether) addStored();
        }
        addStored();
        dbf.Close();
        const std::int32_t result = FinishLoad(static_cast<std::int32_t>(loaded.size()));
        m_lastError = zlxDatosError_None;
        return result;
    } catch (...) {
        m_lastError = zlxDatosError_Err_LoadDBF;
        return 0;
    }
}

bool cDatos::CreateDBF(const QString& cFileName, bool lCopyData) {
    std::vector<DbfFieldDefinition> fields;
    std::vector<std::int32_t> columns;
    for (std::int32_t c = 0; c < FieldCount(); ++c) {
        const zlxDatoColumnInfo info = ColumnInfo(c);
        const DbfShape shape = ShapeOfColumn(info);
        if (shape.type == 0) continue;
        fields.push_back({DbfCodePage().Encode(FieldNameOfColumn(info.cName, c + 1)), shape.type,
                          static_cast<std::uint8_t>(shape.length),
                          static_cast<std::uint8_t>(shape.decimals)});
        columns.push_back(c);
    }
    DbfTable dbf;
    QString refusal;
    if (!DbfTable::Create(cFileName, fields) || !dbf.Open(cFileName, 0, refusal)) return false;
    if (!lCopyData) return true;
    std::vector<char> record(dbf.RecordLength());
    std::uint32_t count = 0;
    while (Scan()) {
        dbf.BlankRecord(record.data());
        for (std::size_t f = 0; f < columns.size(); ++f)
            dbf.SetValue(dbf.Layout().fields[f], record.data(), Field_ByColumnNumber(columns[f]));
        if (!dbf.WriteRecord(++count, record.data())) {
            EndScan();
            dbf.Close();
            QFile::remove(cFileName);
            return false;
        }
    }
    dbf.SetRecordCount(count);
    if (dbf.WriteHeader()) return true;
    dbf.Close();
    QFile::remove(cFileName);
    return false;
}

} // namespace zlx
