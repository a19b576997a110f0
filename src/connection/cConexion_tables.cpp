#include "connection/StatementText.h"
#include "connection/cConexion.h"
#include "table/cDatos.h"

namespace zlx {

namespace {

// The value an out-argument is reset to, by the kind it holds now.
Variant EmptyOfKind(const Variant& current) {
    if (current.VarType() == vbDate) return Variant(BlankDate());
    if (current.VarType() == vbString) return Variant(QString());
    return Variant(std::int16_t(0));
}

// The value of an empty column, by its type.
Variant EmptyOfColumn(const zlxDatoColumnInfo& column) {
    switch (column.nType) {
    case zlxTblColumnTypeChar:
    case zlxTblColumnTypeCharFixed:
    case zlxTblColumnTypeMemo:
        return Variant(QString());
    case zlxTblColumnTypeDate:
    case zlxTblColumnTypeTime:
    case zlxTblColumnTypeDateTime:
        return Variant(BlankDate());
    default:
        return Variant(std::int16_t(0));
    }
}

std::shared_ptr<cDatos> AsTable(const Variant& result) {
    return result.IsObject() ? result.As<cDatos>() : nullptr;
}

} // namespace

// Modes 6 to 8: a client-side static recordset loaded into a table (a copy for 6, the
// recordset itself disconnected for 7 and still connected for 8).
Variant cConexion::TableResult(const QString& cSQL, int nTipoRet, const Variant& xDefault,
                               bool lHideError) {
    ado::RecordsetPtr rs;
    if (Open_RecordSet(rs, cSQL, ado::adUseClient, ado::adCmdText, ado::adOpenStatic,
                       ado::adLockOptimistic, {}, lHideError) == -1) {
        m_lastError = zlxConexionError_ExecuteFailed;
        return xDefault;
    }
    if (!rs) return xDefault;
    auto table = std::make_shared<cDatos>();
    table->LoadRecordSet(rs, nTipoRet != zlxExecuteReturn_cDatos_Connected,
                         nTipoRet == zlxExecuteReturn_cDatos_Copy, true, false);
    if (table->LastError() != 0) return xDefault;
    return Variant(table);
}

bool cConexion::SQLSelect2Vars(const QString& cSQL, Variant& xVar1, Variant* xVar2, Variant* xVar3,
                               Variant* xVar4, Variant* xVar5) {
    Variant* vars[] = {&xVar1, xVar2, xVar3, xVar4, xVar5};
    const auto table = AsTable(Execute(cSQL, zlxExecuteReturn_cDatos_Disconnected));
    if (!table) {
        for (Variant* var : vars) {
            if (var) *var = EmptyOfKind(*var);
        }
        return false;
    }
    const bool hasRows = table->RecCount() > 0;
    for (std::int32_t i = 0; i < std::min<std::int32_t>(table->FieldCount(), 5); ++i) {
        const Variant value =
            hasRows ? table->Field_ByColumnNumber(i) : EmptyOfColumn(table->ColumnInfo(i));
        if (!value.IsNull() && vars[i]) *vars[i] = value;
    }
    return true;
}

std::shared_ptr<cDatos> cConexion::GetStructureFromQuery(const QString& cTable,
                                                         const QString& cFields) {
    return AsTable(Execute(StatementText::StructureQuery(cTable, cFields),
                           zlxExecuteReturn_cDatos_Disconnected));
}

} // namespace zlx
