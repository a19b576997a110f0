#include "connection/cSQLStrings.h"

#include "connection/SqlText.h"
#include "platform/engines/ErrorKinds.h"

namespace zlx {

namespace {

bool InRange(double value, int nNumberSize) {
    switch (nNumberSize) {
    case zlxTblColumnTypeI1:
        return value >= 0 && value <= 255;
    case zlxTblColumnTypeI2:
        return value >= -32768 && value <= 32767;
    case zlxTblColumnTypeI4:
        return value >= -2147483648.0 && value <= 2147483647.0;
    default:
        return true;
    }
}

} // namespace

void cSQLStrings::Reset() {
    m_cn.reset();
    m_table.clear();
    m_condition.clear();
    m_names.clear();
    m_values.clear();
    m_statement.clear();
    m_insert = m_identity = false;
    m_count = 0;
}

void cSQLStrings::BeginInsert(cConexionPtr oConexion, const QString& cTabla, bool lGetIdentity) {
    Reset();
    m_cn = std::move(oConexion);
    m_table = cTabla;
    m_insert = true;
    m_identity = lGetIdentity;
}

void cSQLStrings::BeginUpdate(cConexionPtr oConexion, const QString& cTabla,
                              const QString& cFiltro) {
    Reset();
    m_cn = std::move(oConexion);
    m_table = cTabla;
    // A positive number alone names the record by its identity.
    const Variant filter(cFiltro);
    const bool identity = filter.IsNumeric() && filter.ToDouble() > 0 &&
                          Variant(filter.ToDouble()).ToInvariantString() == cFiltro;
    m_condition = identity ? QStringLiteral("ZolmarID = ") + cFiltro : cFiltro;
}

void cSQLStrings::BeginUpdateCurrentRecord(const CurrentRecord& oFichaDB) {
    BeginUpdate(oFichaDB.oCn(), oFichaDB.Table(),
                QStringLiteral("ZolmarID=") + QString::number(oFichaDB.ID()));
}

QString cSQLStrings::Literal(const Variant& value, bool lIsSQLExpression, std::int32_t nMaxLength) {
    const auto kind = value.VarType();
    if (kind == vbBoolean && !lIsSQLExpression)
        return value.ToBool() ? QStringLiteral("-1") : QStringLiteral("0");
    if (lIsSQLExpression || (kind != vbString && kind != vbDate))
        return value.IsNull() ? QString() : value.ToInvariantString();
    QString text = value.ToString();
    if (kind == vbString)
        while (text.endsWith(u' '))
            text.chop(1);
    if (nMaxLength > 0) text = text.left(nMaxLength);
    return SqlText::PonComillas(Variant(text));
}

bool cSQLStrings::LeftOut(const Variant& value, int nNumberSize) const {
    if (value.IsEmpty() || value.IsNull()) return true;
    if (value.IsNumber()) return value.ToDouble() == 0.0 || !InRange(value.ToDouble(), nNumberSize);
    switch (value.VarType()) {
    case vbDate:
        return value == Variant(BlankDate()) || value.ToDate().value == 0.0;
    case vbString:
        return value.ToString().isEmpty();
    case vbBoolean:
        return m_insert && !value.ToBool();
    default:
        return false;
    }
}

void cSQLStrings::AddField(const QString& cNuevoCampo, const Variant& xNuevoValor,
                           bool lIsSQLExpression, std::int32_t nMaxLength, bool lUpdateIfEmpty,
                           int nNumberSize) {
    const bool tested = m_insert || !lUpdateIfEmpty;
    if (tested && LeftOut(xNuevoValor, nNumberSize)) return;
    const QString literal = Literal(xNuevoValor, lIsSQLExpression, nMaxLength);
    if (m_insert) {
        m_names += cNuevoCampo + u',';
        m_values += literal + u',';
    } else {
        m_names += cNuevoCampo + u'=' + literal + u',';
    }
    ++m_count;
}

void cSQLStrings::RecordStatus(std::int32_t nNuevoEstado) {
    AddField(QStringLiteral("Activo"), Variant(nNuevoEstado));
}

QString cSQLStrings::EndStr() {
    const auto withoutLastComma = [](const QString& list) { return list.left(list.size() - 1); };
    if (m_insert) {
        m_statement =
            m_count > 0
                ? QStringLiteral("INSERT INTO ") + m_table + QStringLiteral(" (") +
                      withoutLastComma(m_names) + QStringLiteral(") VALUES (") +
                      withoutLastComma(m_values) + u')'
                : QStringLiteral("INSERT INTO ") + m_table + QStringLiteral(" DEFAULT VALUES");
        if (m_identity)
            m_statement = QStringLiteral("SET NOCOUNT ON ; ") + m_statement +
                          QStringLiteral(" ; SELECT @@Identity ; SET NOCOUNT OFF");
    } else if (m_count > 0) {
        m_statement = QStringLiteral("UPDATE ") + m_table + QStringLiteral(" SET ") +
                      withoutLastComma(m_names);
        if (!m_condition.isEmpty()) m_statement += QStringLiteral(" WHERE ") + m_condition;
    } else {
        m_statement.clear();
    }
    return m_statement;
}

Variant cSQLStrings::Execute(int nTipoRet, const Variant& xDefaultValue, bool lHideError) {
    Variant xDefault = xDefaultValue;
    if (nTipoRet == zlxExecuteReturn_Nothing || nTipoRet == zlxExecuteReturn_Nothing_NoRowCount)
        xDefault = Variant(false);
    if (m_statement.isEmpty()) EndStr();
    if (m_statement.isEmpty() || !m_cn) return xDefault;
    const Variant result = m_cn->Execute(m_statement, nTipoRet, xDefault, lHideError);
    // Only a duplicate key of this statement itself is repaired.
    if (m_cn->GetLastError() == zlxConexionError_None || !m_cn->cn() ||
        !ado::IsDuplicateKey(m_cn->cn()->GetErrors().Records()))
        return result;
    // A duplicate key after identities were reused: repair the seed and try once more.
    m_cn->Execute(QStringLiteral("DBCC CHECKIDENT ('") + m_table + QStringLiteral("')"),
                  zlxExecuteReturn_Nothing_NoRowCount);
    return m_cn->Execute(m_statement, nTipoRet, xDefault, lHideError);
}

} // namespace zlx
