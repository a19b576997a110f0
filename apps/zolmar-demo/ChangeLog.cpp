#include "ChangeLog.h"

#include "platform/companion/QtVariant.h"
#include "platform/companion/cMatriz.h"

namespace zlx::demo {

namespace {

const QChar kItemStart(2);
const QChar kValueStart(3);

QString Quoted(const QString& value) {
    return QStringLiteral("«%1»").arg(value);
}

} // namespace

std::vector<ChangeLogRow> ChangeLog::Read(cConexion& oCn, const QString& cTabla,
                                          std::int32_t nIdFicha) {
    std::vector<ChangeLogRow> rows;
    const Variant result =
        oCn.Execute(QStringLiteral("SELECT Fecha, ID_Usuario, TipoOp, Valores FROM LogFichas "
                                   "WHERE Tabla=%1 AND ID_Ficha=%2 ORDER BY Fecha DESC, "
                                   "ZolmarID DESC")
                        .arg(oCn.PonComillas(Variant(cTabla)))
                        .arg(nIdFicha),
                    zlxExecuteReturn_cMatriz, Variant(), true);
    const auto matrix = result.IsObject() ? result.As<cMatriz>() : nullptr;
    for (std::int32_t row = matrix ? matrix->FirstRow() : 0; matrix && row <= matrix->LastRow();
         ++row)
        rows.push_back({ToQVariant(matrix->GetValue(0, row)).toDateTime(),
                        matrix->GetValue(1, row).ToLong(), matrix->GetValue(2, row).ToLong() == 1,
                        Describe(matrix->GetValue(3, row).ToString())});
    return rows;
}

QStringList ChangeLog::Describe(const QString& cValores) {
    QStringList lines;
    for (const QString& item : cValores.split(kItemStart, Qt::SkipEmptyParts)) {
        const QStringList parts = item.mid(1).split(kValueStart);
        const QString name = parts.value(0);
        switch (item.at(0).unicode()) {
        case u'+':
            lines << QStringLiteral("%1: %2 (nuevo)").arg(name, Quoted(parts.value(1)));
            break;
        case u'*':
            lines << QStringLiteral("%1: %2 → %3")
                         .arg(name, Quoted(parts.value(1)), Quoted(parts.value(2)));
            break;
        case u'-':
            lines << QStringLiteral("%1: %2 (quitado)").arg(name, Quoted(parts.value(1)));
            break;
        default:
            lines << item;
        }
    }
    return lines;
}

} // namespace zlx::demo
