#include "connection/StatementText.h"
#include "connection/TableFactory.h"
#include "connection/TypeMapping.h"
#include "connection/cConexion.h"

namespace zlx {

namespace {

// The value an out-argument is reset to, by the kind it holds now.
Variant EmptyOfKind(const Variant& current) {
    if (current.VarType() == vbDate) return Variant(BlankDate());
    if (current.VarType() == vbString) return Variant(QString());
    return Variant(std::int16_t(0));
}

// The value of an empty column, by its library column type.
Variant EmptyOfColumn(const ado::Field& field) {
    switch (TypeMapping::AdoToZlx(field.Type()).value_or(zlxTblColumnTypeNone)) {
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
    const TableFactory* factory = RegisteredTableFactory();
    if (!rs || !factory) return xDefault;
    const Variant table = factory->Load(rs, nTipoRet != zlxExecuteReturn_cDatos_Connected,
                                        nTipoRet == zlxExecuteReturn_cDatos_Copy);
    return table.IsEmpty() ? xDefault : table;
}

bool cConexion::SQLSelect2Vars(const QString& cSQL, Variant& xVar1, Variant* xVar2, Variant* xVar3,
                               Variant* xVar4, Variant* xVar5) {
    Variant* vars[] = {&xVar1, xVar2, xVar3, xVar4, xVar5};
    const TableFactory* factory = RegisteredTableFactory();
    // The table (kept while its recordset is read) stands on its first row.
    const Variant table = factory ? Execute(cSQL, zlxExecuteReturn_cDatos_Disconnected) : Variant();
    const ado::RecordsetPtr rs = factory ? factory->RecordsetOf(table) : nullptr;
    if (!rs) {
        for (Variant* var : vars) {
            if (var) *var = EmptyOfKind(*var);
        }
        return false;
    }
    const bool hasRows = rs->RecordCount() > 0;
    const ado::Fields& fields = rs->GetFields();
    for (int i = 0; i < std::min(fields.Count(), 5); ++i) {
        const Variant value = hasRows ? fields.Item(i).Value() : EmptyOfColumn(fields.Item(i));
        if (!value.IsNull() && vars[i]) *vars[i] = value;
    }
    return true;
}

std::shared_ptr<cDatos> cConexion::GetStructureFromQuery(const QString& cTable,
                                                         const QString& cFields) {
    const TableFactory* factory = RegisteredTableFactory();
    if (!factory) return nullptr;
    return factory->TableOf(Execute(StatementText::StructureQuery(cTable, cFields),
                                    zlxExecuteReturn_cDatos_Disconnected));
}

} // namespace zlx
