#include "cursor/OrderIndex.h"

#include "connection/SqlText.h"
#include "frame/LibraryState.h"

#include <QRegularExpression>

namespace zlx {

namespace {

QString BareTable(const QString& cTabla) {
    return cTabla.section(u'.', -1);
}

} // namespace

QString OrderIndex::Name(const QString& cTabla, const QString& cOrden) {
    QString columns = cOrden.toUpper();
    columns.replace(QRegularExpression(QStringLiteral("[^A-Z0-9_]+")), QStringLiteral("_"));
    return QStringLiteral("IX_") + BareTable(cTabla) + u'_' + columns;
}

QString OrderIndex::CreateStatement(const QString& cTabla, const QString& cOrden) {
    if (cOrden.contains(u'+')) return {};
    return QStringLiteral("CREATE INDEX ") + Name(cTabla, cOrden) + QStringLiteral(" ON ") +
           cTabla + u'(' + cOrden + QStringLiteral(", ZolmarID)");
}

bool OrderIndex::Exists(cConexion& oCn, const QString& cTabla, const QString& cOrden) {
    const QString sql = QStringLiteral("EXEC sp_indexes_rowset ") +
                        SqlText::PonComillas(BareTable(cTabla)) + QStringLiteral(", ") +
                        SqlText::PonComillas(Name(cTabla, cOrden));
    return !oCn.Execute(sql, zlxExecuteReturn_Value, Variant(""), true).ToString().isEmpty();
}

bool OrderIndex::Ensure(cConexion& oCn, const QString& cTabla, const QString& cOrden) {
    if (Exists(oCn, cTabla, cOrden)) return true;
    const QString sql = CreateStatement(cTabla, cOrden);
    if (sql.isEmpty()) return false;
    oCn.Execute(sql, zlxExecuteReturn_Nothing_NoRowCount);
    return oCn.GetLastError() == 0;
}

void OrderIndex::WarnIfMissing(cConexion& oCn, const QString& cTabla, const QString& cOrden) {
    if (Exists(oCn, cTabla, cOrden)) return;
    LibraryLog().WriteLine(QStringLiteral("Aviso: el cursor de ") + cTabla +
                           QStringLiteral(" se ordena por ") + cOrden +
                           QStringLiteral(" sin índice (") + Name(cTabla, cOrden) +
                           QStringLiteral("); cada movimiento recorrerá la tabla"));
}

} // namespace zlx
