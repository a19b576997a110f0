#include "dbf/cDBF.h"
#include "platform/ado/AdoErrorTexts.h"
#include "table/cDatos.h"

#include <QFile>

namespace zlx {

namespace {

// The column a DBF field loads into: its type, size and decimals; None for the field
// types that have no column.
struct DbfColumn {
    std::int32_t type = zlxTblColumnTypeNone;
    std::int32_t size = 0;
};

DbfColumn ColumnForDbfField(const DBF_FieldInfo_Type& info) {
    const QChar type = info.cDataType.isEmpty() ? QChar() : info.cDataType.at(0).toUpper();
    if (type == u'D') return {zlxTblColumnTypeDateTime, 0};
    if (type == u'L') return {zlxTblColumnTypeI1, 0};
    if (type == u'C') return {zlxTblColumnTypeChar, info.nFieldLength};
    if (type != u'N') return {};
    if (info.nDecimalPlaces >= 5) return {zlxTblColumnTypeDouble, 0};
    if (info.nDecimalPlaces >= 1) return {zlxTblColumnTypeCurrency, 0};
    if (info.nFieldLength < 10) return {zlxTblColumnTypeI4, 0};
    if (info.nFieldLength < 15) return {zlxTblColumnTypeCurrency, 0};
    return {zlxTblColumnTypeDecimal, info.nFieldLength};
}

// A logical field reads as a Boolean; its I1 column keeps 1 for true and 0 for false.
Variant ColumnValue(const Variant& value, std::int32_t type) {
    if (type == zlxTblColumnTypeI1 && value.VarType() == vbBoolean)
        return Variant(std::uint8_t(value.ToBool() ? 1 : 0));
    return value;
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
    cDBF dbf;
    if (!dbf.OpenRaw(cDBF_FileName)) {
        m_lastError = zlxDatosError_Err_LoadDBF;
        return 0;
    }
    try {
        m_lastError = zlxDatosError_None;
        const std::uint32_t records = dbf.RecordCount();
        struct Loaded {
            QString name;
            std::int32_t type;
        };
        std::vector<Loaded> loaded;
        BeginDefineColumns();
        for (std::int32_t f = 1; f <= dbf.FieldCount(); ++f) {
            const DBF_FieldInfo_Type info = dbf.GetFieldInfo(f);
            const DbfColumn column = ColumnForDbfField(info);
            if (column.type == zlxTblColumnTypeNone) continue;
            AddColumn(info.cFieldName, column.type, column.size);
            loaded.push_back({info.cFieldName, column.type});
        }
        EndDefineColumns();
        for (std::uint32_t r = 1; r <= records; ++r) {
            dbf.SetCurrentRow(r);
            if (dbf.CurrentRow() != static_cast<std::int32_t>(r))
                ado::RaiseAdoError(ado::adErrReadFile);
            ++m_tally;
            m_rs->AddNew();
            for (std::size_t c = 0; c < loaded.size(); ++c) {
                m_rs->SetCurrentValue(static_cast<int>(c),
                                      ColumnValue(dbf.Field(loaded[c].name), loaded[c].type));
            }
        }
        dbf.CloseDBF();
        const std::int32_t result = FinishLoad(static_cast<std::int32_t>(loaded.size()));
        m_lastError = zlxDatosError_None;
        return result;
    } catch (...) {
        m_lastError = zlxDatosError_Err_LoadDBF;
        return 0;
    }
}

bool cDatos::CreateDBF(const QString& cFileName, bool lCopyData) {
    cDBF dbf;
    return dbf.CreateFromDatos(cFileName, *this, lCopyData);
}

} // namespace zlx
