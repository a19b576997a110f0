#include "platform/dbfformat/DbfTable.h"
#include "platform/dbfformat/DbfTexts.h"
#include "table/DbfRecordLoader.h"
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
        std::vector<std::pair<const DbfField*, std::int32_t>> loaded; // fields and column types
        BeginDefineColumns();
        for (const DbfField& field : dbf.Layout().fields) {
            const DbfColumn column = ColumnForDbfField(dbf.Layout(), field);
            if (column.type == zlxTblColumnTypeNone) continue;
            AddColumn(dbf.CodePage().Decode(field.name.constData(),
                                            static_cast<std::size_t>(field.name.size())),
                      column.type, column.size);
            loaded.emplace_back(&field, column.type);
        }
        EndDefineColumns();
        m_rs->BeginLoading(dbf.RecordCount());
        DbfRecordLoader loader(dbf, *m_rs);
        for (std::size_t c = 0; c < loaded.size(); ++c) {
            const auto [field, type] = loaded[c];
            // A single-byte page gives one character per byte: the texts' exact room.
            if (TextsLookDistinct(dbf, *field))
                m_rs->LoadingColumn(static_cast<int>(c))
                    .KeepTextsInBuffer(std::size_t{dbf.RecordCount()} * field->length);
            loader.AddField(*field, type);
        }
        const QString failure = loader.LoadAll(m_tally);
        if (!failure.isEmpty()) return FailDbfLoad(m_lastError, failure);
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
