#pragma once
// Builds one INSERT or UPDATE field by field and runs it on a connection. Values that are
// "empty" can be left out so that the column keeps its default.

#include "connection/CurrentRecord.h"
#include "connection/SqlConstants.h"
#include "connection/cConexion.h"

namespace zlx {

class cSQLStrings : public Object {
public:
    QString TypeName() const override { return QStringLiteral("cSQLStrings"); }

    void BeginInsert(cConexionPtr oConexion, const QString& cTabla, bool lGetIdentity = true);
    void BeginUpdate(cConexionPtr oConexion, const QString& cTabla, const QString& cFiltro);
    // An update of the record the cursor stands on ("ZolmarID=" + its identity).
    void BeginUpdateCurrentRecord(const CurrentRecord& oFichaDB);
    void AddField(const QString& cNuevoCampo, const Variant& xNuevoValor,
                  bool lIsSQLExpression = false, std::int32_t nMaxLength = 0,
                  bool lUpdateIfEmpty = true, int nNumberSize = zlxTblColumnTypeNone);
    // The record status column "Activo" (0 normal is left out of an insert).
    void RecordStatus(std::int32_t nNuevoEstado);
    QString EndStr();
    Variant Execute(int nTipoRet = zlxExecuteReturn_Nothing,
                    const Variant& xDefaultValue = Variant(std::int16_t(0)),
                    bool lHideError = false);

private:
    void Reset();
    bool LeftOut(const Variant& value, int nNumberSize) const;
    static QString Literal(const Variant& value, bool lIsSQLExpression, std::int32_t nMaxLength);

    cConexionPtr m_cn;
    QString m_table, m_condition, m_names, m_values, m_statement;
    bool m_insert = false;
    bool m_identity = false;
    std::int32_t m_count = 0;
};

using cSQLStringsPtr = std::shared_ptr<cSQLStrings>;

} // namespace zlx
