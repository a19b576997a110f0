// cBaseDatos: tables and columns.

#include "schema/DdlText.h"
#include "schema/SchemaErrors.h"
#include "schema/cBaseDatos.h"

namespace zlx {
namespace {

// Runs a step of a column change; a statement the provider could not run is passed over.
template <class Action> void PassingOver(Action&& action) {
    try {
        action();
    } catch (const ado::AdoError& error) {
        if (error.Number() != kErrStatement) throw;
    }
}

} // namespace

int cBaseDatos::Create_Table(const QString& cTabla, bool lCreateIndex) {
    if (!cTabla.isEmpty()) m_table = cTabla;
    if (m_provider == zlxDataProvider_EXCEL) {
        ShowMessage(QStringLiteral("Este proveedor (Excel) no puede crear tablas"),
                    ErrorTitle("Create_Table"));
        return zlxDBConstantsNoSoporte;
    }
    try {
        if (TableExists(m_table)) return zlxDBConstantsExisteTabla;
        Run(DdlText::CreateTable(m_provider, m_table));
    } catch (const ado::AdoError&) {
        ReportError();
        return zlxDBConstantsErrorGrave;
    }
    if (lCreateIndex && (IsJet() || IsServer()) &&
        Create_Index(QStringLiteral("zolmarID"), zlxIndexTypeYes, {}, false) ==
            zlxDBConstantsErrorGrave)
        return zlxDBConstantsErrorGrave;
    return zlxDBConstantsNoError;
}

int cBaseDatos::Delete_Table(const QString& cTabla) {
    if (!cTabla.isEmpty()) m_table = cTabla;
    const QString title = ErrorTitle("Delete_Table");
    if (m_provider == zlxDataProvider_EXCEL) {
        ShowMessage(QStringLiteral("Este proveedor (EXCEL) no puede borrar Bases de Datos"), title);
        return zlxDBConstantsNoSoporte;
    }
    try {
        if (!TableExists(m_table)) return zlxDBConstantsNoExisteTabla;
        Run("DROP TABLE " + m_table);
        return zlxDBConstantsNoError;
    } catch (const ado::AdoError& error) {
        ShowMessage(QString::number(error.Number()) + ": " + error.Description(), title);
        return zlxDBConstantsErrorGrave;
    }
}

int cBaseDatos::Create_Column(const QString& cCampo, int nTipo, std::int32_t nSize,
                              std::int32_t nDec, const Variant& xDefault, bool lIndex,
                              bool lUpdateDefaults) {
    const QString title = ErrorTitle("Create_Column");
    if (m_table.isEmpty()) {
        ShowMessage(QStringLiteral("No se ha especificado la tabla"), title);
        return zlxDBConstantsNoExisteTabla;
    }
    if (m_provider == zlxDataProvider_EXCEL) {
        ShowMessage(QStringLiteral("Este proveedor (Excel) no puede crear tablas"), title);
        return zlxDBConstantsNoSoporte;
    }
    try {
        return AddOrAlterColumn(cCampo, nTipo, nSize, nDec, xDefault, lIndex, lUpdateDefaults);
    } catch (const ado::AdoError&) {
        ReportError();
        return zlxDBConstantsErrorGrave;
    }
}

int cBaseDatos::AddOrAlterColumn(const QString& cCampo, int nTipo, std::int32_t nSize,
                                 std::int32_t nDec, const Variant& xDefault, bool lIndex,
                                 bool lUpdateDefaults) {
    const int state = ColumnState(cCampo, nTipo, nSize, nDec);
    QString sql;
    if (state == zlxChkCampo_No_Existe)
        sql = DdlText::AddColumn(m_provider, m_table, cCampo, nTipo, nSize, nDec, xDefault);
    else if (state == zlxChkCampo_Diferente)
        sql = DdlText::AlterColumn(m_provider, m_table, cCampo, nTipo, nSize, nDec);
    int result = zlxDBConstantsNoError;
    if (IsServer()) {
        result = AddServerColumn(cCampo, nTipo, state, sql, lIndex, lUpdateDefaults);
    } else if (!sql.isEmpty()) {
        PassingOver([&] { Run(sql); });
    }
    if ((IsJet() || IsServer()) && lIndex) Create_Index(cCampo, zlxIndexTypeYes);
    return result;
}

// The SQL Server form: the column's own index and shared default object go with it, and the
// rows already in the table get the default.
int cBaseDatos::AddServerColumn(const QString& cCampo, int nTipo, int state, const QString& cSQL,
                                bool lIndex, bool lUpdateDefaults) {
    if (state == zlxChkCampo_Diferente && !DdlText::IsIdentity(cCampo))
        PassingOver([&] { Run(DdlText::UnbindDefault(m_table, cCampo)); });
    const bool indexed = IndexExists(cCampo, false);
    if (!cSQL.isEmpty() || indexed != lIndex) {
        if (indexed) Delete_Index(cCampo);
        if (!cSQL.isEmpty()) PassingOver([&] { Run(cSQL); });
        if (lIndex) Create_Index(cCampo, zlxIndexTypeYes);
        if (!DdlText::IsIdentity(cCampo))
            PassingOver(
                [&] { Run(DdlText::BindDefault(DdlText::DefaultObject(nTipo), m_table, cCampo)); });
    }
    if (state != zlxChkCampo_No_Existe) return zlxDBConstantsNoError;
    RememberNewColumn(cCampo);
    if (lUpdateDefaults && Create_Column_UpdateDefaults() != zlxDBConstantsNoError)
        return zlxDBConstantsErrorGrave;
    return zlxDBConstantsNoError;
}

void cBaseDatos::RememberNewColumn(const QString& cCampo) {
    if (m_highestId == 0) {
        m_highestId = m_cn->Execute("SELECT ISNULL(MAX(ZolmarID),0) FROM " + m_table,
                                    zlxExecuteReturn_Value, Variant(std::int32_t(-1)))
                          .ToLong();
        if (m_highestId == -1) {
            ShowMessage("Error actualizando tabla " + m_table +
                        ": no se ha podido encontrar el ZolmarID mayor");
            m_highestId = 2147483647;
        }
    }
    m_pendingDefaults += ", " + cCampo + "=DEFAULT";
}

int cBaseDatos::Create_Column_UpdateDefaults() {
    if (m_pendingDefaults.isEmpty()) return zlxDBConstantsNoError;
    try {
        // From the top down, 50,000 identities a statement: no single statement (and so no
        // transaction) holds the whole table.
        for (std::int64_t n = m_highestId; n > 0; n -= 50000)
            Run(DdlText::UpdateDefaults(m_table, m_pendingDefaults, n));
    } catch (const ado::AdoError&) {
        ReportError();
        return zlxDBConstantsErrorGrave;
    }
    m_pendingDefaults.clear();
    m_highestId = 0;
    return zlxDBConstantsNoError;
}

int cBaseDatos::Delete_Column(const QString& cCampo) {
    const QString title = ErrorTitle("Delete_Column");
    if (m_table.isEmpty()) {
        ShowMessage(QStringLiteral("No se ha especificado la tabla de datos."), title);
        return zlxDBConstantsNoExisteTabla;
    }
    if (m_provider == zlxDataProvider_EXCEL) {
        ShowMessage(QStringLiteral("Este proveedor (Excel) no puede crear tablas"), title);
        return zlxDBConstantsNoSoporte;
    }
    try {
        if (ColumnState(cCampo, zlxTblColumnTypeNone, 0, 0) != zlxChkCampo_OK) {
            ShowMessage("No existe el campo " + cCampo + ".", title);
            return zlxDBConstantsNoExisteCampo;
        }
        if (ColumnCount() == 1) {
            ShowMessage(QStringLiteral("Sólo queda una columna: no puede eliminarse"), title);
            return zlxDBConstantsErrorGrave;
        }
        IndexExists(cCampo, true);
        if (IsServer() && !DdlText::IsIdentity(cCampo)) {
            try {
                Run(DdlText::UnbindDefault(m_table, cCampo));
            } catch (const ado::AdoError&) {
                // a column without a bound default is dropped all the same
            }
        }
        Run(DdlText::DropColumn(m_table, cCampo));
        return zlxDBConstantsNoError;
    } catch (const ado::AdoError&) {
        ReportError();
        return zlxDBConstantsErrorGrave;
    }
}

int cBaseDatos::ColumnCount() {
    if (IsServer()) {
        long affected = -1;
        return Cn().Execute("SELECT TOP 1 * FROM " + m_table, affected, -1)->GetFields().Count();
    }
    return static_cast<int>(OpenCatalog().Columns(m_table).size());
}

bool cBaseDatos::Rename_Column(const QString& cCampo, const QString& cCampoOld) {
    try {
        if (ColumnState(cCampoOld, zlxTblColumnTypeNone, 0, 0) == zlxChkCampo_No_Existe ||
            ColumnState(cCampo, zlxTblColumnTypeNone, 0, 0) != zlxChkCampo_No_Existe)
            return false;
        if (IsServer()) {
            Run(DdlText::RenameColumn(m_table, cCampoOld, cCampo));
            return true;
        }
        if (IsJet()) {
            OpenCatalog().RenameColumn(m_table, cCampoOld, cCampo);
            return true;
        }
    } catch (const ado::AdoError&) {
        ReportError();
        return false;
    }
    ShowMessage(QStringLiteral("Este proveedor no puede renombrar campos"),
                QStringLiteral("Información"));
    return false;
}

} // namespace zlx
