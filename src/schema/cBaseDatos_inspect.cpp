// cBaseDatos: indexes and the inspection of databases, tables and columns.

#include "connection/SqlText.h"
#include "connection/TypeMapping.h"
#include "schema/DdlText.h"
#include "schema/SchemaErrors.h"
#include "schema/cBaseDatos.h"

namespace zlx {
namespace {

bool SameName(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

int AdoToZlx(int type) {
    return TypeMapping::AdoToZlx(type).value_or(zlxTblColumnTypeNone);
}

} // namespace

int cBaseDatos::Create_Index(const QString& cIndice, int nTipo, const QString& cExpresion,
                             bool lBorrar) {
    if (m_table.isEmpty()) {
        ShowMessage(QStringLiteral("No se ha especificado la tabla"), ErrorTitle("Create_Index"));
        return zlxDBConstantsNoExisteTabla;
    }
    if (!IsJet() && !IsServer()) return zlxDBConstantsNoSoporte;
    try {
        // With lBorrar an index that is there is dropped and made again; without it, it stays.
        if (IndexExists(cIndice, lBorrar) && !lBorrar) return zlxDBConstantsExisteIndice;
        const QString expression = cExpresion.isEmpty() ? cIndice : cExpresion;
        if (IsJet()) {
            AppendCatalogIndex(cIndice, nTipo, expression);
        } else if (expression.contains(u',')) {
            return zlxDBConstantsNoSoporte;
        } else {
            Run(DdlText::IsIdentity(cIndice) ? DdlText::AddPrimaryKey(m_table, expression)
                                             : DdlText::CreateIndex(m_table, cIndice, expression));
        }
        return zlxDBConstantsNoError;
    } catch (const ado::AdoError&) {
        ReportError();
        return zlxDBConstantsErrorGrave;
    }
}

void cBaseDatos::AppendCatalogIndex(const QString& cIndice, int nTipo, const QString& cExpresion) {
    ado::CatalogIndex index;
    index.Name = cIndice;
    if (DdlText::IsIdentity(cIndice)) {
        index.Name = DdlText::PrimaryKeyName(m_table, cExpresion);
        nTipo = zlxIndexTypePrimary;
    }
    for (const QString& column : cExpresion.split(u','))
        index.Columns << column.trimmed();
    index.PrimaryKey = index.Unique = nTipo == zlxIndexTypePrimary;
    OpenCatalog().AppendIndex(m_table, index);
}

int cBaseDatos::Delete_Index(const QString& cIndice) {
    const QString title = ErrorTitle("Delete_Index");
    if (m_table.isEmpty()) {
        ShowMessage(QStringLiteral("No se ha especificado la tabla de datos."), title);
        return zlxDBConstantsNoExisteTabla;
    }
    if (!IsJet() && !IsServer()) {
        ShowMessage(QStringLiteral("Con este proveedor no se pueden borrar indices"), title);
        return zlxDBConstantsNoSoporte;
    }
    try {
        return IndexExists(cIndice, true) ? zlxDBConstantsNoError : zlxDBConstantsNoExisteIndice;
    } catch (const ado::AdoError&) {
        ReportError();
        return zlxDBConstantsErrorGrave;
    }
}

bool cBaseDatos::ExisteIndice(const Variant& cIndice, bool lDelete) {
    try {
        return IndexExists(cIndice.ToString(), lDelete);
    } catch (const ado::AdoError&) {
        return false;
    }
}

// True when the index was there when asked (and, with lDelete, it has now been dropped).
bool cBaseDatos::IndexExists(const QString& cIndice, bool lDelete) {
    const QString name =
        DdlText::IsIdentity(cIndice) ? DdlText::PrimaryKeyName(m_table, cIndice) : cIndice;
    if (IsServer()) {
        if (Query(DdlText::IndexesRowset(m_table, name)).empty()) return false;
        if (lDelete) Run(DdlText::DropIndex(m_table, name));
        return true;
    }
    if (!IsJet() && m_provider != zlxDataProvider_FOX) return false;
    ado::Catalog catalog = OpenCatalog();
    for (const ado::CatalogIndex& index : catalog.Indexes(m_table)) {
        if (!SameName(index.Name, name)) continue;
        if (lDelete) catalog.DeleteIndex(m_table, index.Name);
        return true;
    }
    return false;
}

int cBaseDatos::ChkCampo(const QString& cCampo, int nTipo, std::int32_t nSize, std::int32_t nDec) {
    try {
        return ColumnState(cCampo, nTipo, nSize, nDec);
    } catch (const ado::AdoError&) {
        return zlxChkCampo_No_Existe;
    }
}

int cBaseDatos::ColumnState(const QString& cCampo, int nTipo, std::int32_t nSize,
                            std::int32_t nDec) {
    if (IsServer()) return ServerColumnState(cCampo, nTipo, nSize);
    if (IsJet()) return CatalogColumnState(cCampo, nTipo, nSize, nDec);
    return zlxChkCampo_No_Existe;
}

int cBaseDatos::ServerColumnState(const QString& cCampo, int nTipo, std::int32_t nSize) {
    long affected = -1;
    const ado::RecordsetPtr rs = Cn().Execute("SELECT * FROM syscolumns WHERE id = object_id('" +
                                                  m_table + "')" + " AND name='" + cCampo + "'",
                                              affected, -1);
    if (rs->IsEOF()) return zlxChkCampo_No_Existe;
    // Both are Null for a column of a type that SQL Server does not have (TIME).
    const Variant xtype = rs->Collect("xtype");
    const Variant length = rs->Collect("length");
    const int type =
        xtype.IsNull() ? zlxTblColumnTypeNone : TypeMapping::SqlServerToZlx(xtype.ToLong());
    const bool sameSize = !length.IsNull() && length.ToLong() == nSize;
    rs->MoveNext();
    if (!rs->IsEOF()) return zlxChkCampo_No_Existe;
    if (nTipo != zlxTblColumnTypeNone &&
        (type != nTipo || (nTipo == zlxTblColumnTypeChar && !sameSize)))
        return zlxChkCampo_Diferente;
    return zlxChkCampo_OK;
}

int cBaseDatos::CatalogColumnState(const QString& cCampo, int nTipo, std::int32_t nSize,
                                   std::int32_t nDec) {
    for (const ado::CatalogColumn& column : OpenCatalog().Columns(m_table)) {
        if (!SameName(column.Name, cCampo)) continue;
        if (nTipo == zlxTblColumnTypeNone) return zlxChkCampo_OK;
        const bool different = AdoToZlx(column.Type) != nTipo ||
                               (nTipo == zlxTblColumnTypeChar && column.DefinedSize != nSize) ||
                               (column.Type == ado::adNumeric &&
                                (column.Precision != nSize || column.NumericScale != nDec));
        return different ? zlxChkCampo_Diferente : zlxChkCampo_OK;
    }
    return zlxChkCampo_No_Existe;
}

bool cBaseDatos::ExisteDatabase(const Variant& cDataBase) {
    if (!IsServer()) {
        ShowMessage(
            QStringLiteral("La función ExisteDatabase no está soportada por este proveedor"));
        return false;
    }
    if (!m_cn) return false;
    return m_cn->Execute("SELECT count(*) FROM sysdatabases WHERE name = '" + cDataBase.ToString() +
                             "'",
                         zlxExecuteReturn_Value)
               .ToLong() > 0;
}

bool cBaseDatos::ExisteTabla(const QString& cTabla) {
    try {
        return TableExists(cTabla);
    } catch (const ado::AdoError&) {
        return false;
    }
}

bool cBaseDatos::TableExists(const QString& cTabla) {
    if (IsServer())
        return Query("SELECT name FROM sysobjects WHERE xtype = 'U' AND name = '" + cTabla + "'")
                   .size() == 1;
    return OpenCatalog().Table(cTabla).has_value();
}

Variant cBaseDatos::GetTableStructure() {
    if (m_table.isEmpty()) {
        ShowMessage(QStringLiteral("No se ha especificado la tabla"),
                    QStringLiteral("Información"));
        return Variant();
    }
    try {
        const auto columns = OpenCatalog().Columns(m_table);
        Variant result =
            Variant::MakeArray({{1, static_cast<std::int32_t>(columns.size())}, {1, 6}});
        VariantArray& cells = *result.ToArray();
        for (std::int32_t i = 1; i <= static_cast<std::int32_t>(columns.size()); ++i) {
            const ado::CatalogColumn& column = columns[i - 1];
            cells.At(i, 1) = Variant(column.Name);
            cells.At(i, 2) = Variant(std::int32_t(AdoToZlx(column.Type)));
            cells.At(i, 3) = Variant(std::int32_t(column.Type));
            cells.At(i, 4) = Variant(column.DefinedSize);
            cells.At(i, 5) = Variant(std::int32_t(column.Precision));
            cells.At(i, 6) = Variant(column.NumericScale);
        }
        return result;
    } catch (const ado::AdoError&) {
        return Variant();
    }
}

} // namespace zlx
