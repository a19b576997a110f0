#include "ChangeLog.h"

#include "platform/ado/Field.h"
#include "platform/ado/Fields.h"
#include "platform/companion/QtVariant.h"
#include "platform/companion/cMatriz.h"

namespace zlx::demo {

namespace {

const QChar kItemStart(2);
const QChar kValueStart(3);

QString Item(QChar operation, const QString& name, const QStringList& values) {
    return QString(kItemStart) + operation + name + kValueStart + values.join(kValueStart);
}

bool EmptyOnDelete(const QString& value) {
    return value.isEmpty() || value == QStringLiteral("0") || value == QStringLiteral("01/01/1753");
}

QString Quoted(const QString& value) {
    return QStringLiteral("«%1»").arg(value);
}

} // namespace

QString ChangeLog::ValueText(const Variant& xValue) {
    if (xValue.IsEmpty() || xValue.IsNull()) return {};
    return xValue.ToString().trimmed();
}

RecordValues ChangeLog::Capture(const cFichaDB& oFicha) {
    RecordValues values;
    const ado::RecordsetPtr rs = oFicha.Get_RS();
    if (!rs || !oFicha.IsValidRecord()) return values;
    const ado::Fields& fields = rs->GetFields();
    for (int i = 0; i < fields.Count(); ++i)
        values.emplace_back(fields.Item(i).Name(), ValueText(fields.Item(i).Value()));
    return values;
}

QString ChangeLog::Valores(const RecordValues& before, const RecordValues& after, bool lDelete) {
    QString text;
    for (std::size_t i = 0; i < before.size(); ++i) {
        const auto& [name, first] = before[i];
        if (lDelete) {
            if (!EmptyOnDelete(first)) text += Item(u'-', name, {first});
            continue;
        }
        const QString second = i < after.size() ? after[i].second : QString();
        if (first == second) continue;
        if (first.isEmpty())
            text += Item(u'+', name, {second});
        else if (second.isEmpty())
            text += Item(u'-', name, {first});
        else
            text += Item(u'*', name, {first, second});
    }
    return text.left(nMaxValores);
}

bool ChangeLog::Write(cConexion& oCn, const QString& cTabla, std::int32_t nIdFicha,
                      std::int32_t nIdUsuario, std::int32_t nIdPuesto, bool lDelete,
                      const QString& cValores) {
    if (cValores.isEmpty()) return false;
    const QString sql =
        QStringLiteral("INSERT INTO LogFichas (Fecha, ID_Usuario, ID_Puesto, Tabla, ID_Ficha, "
                       "TipoOp, Valores) VALUES (%1,%2,%3,%4,%5,%6,%7)")
            .arg(oCn.PonComillas(FromQVariant(QDateTime::currentDateTime())))
            .arg(nIdUsuario)
            .arg(nIdPuesto)
            .arg(oCn.PonComillas(Variant(cTabla.section(u'.', -1))))
            .arg(nIdFicha)
            .arg(lDelete ? 1 : 0)
            .arg(oCn.PonComillas(Variant(cValores)));
    oCn.Execute(sql, zlxExecuteReturn_Nothing, Variant(std::int16_t(0)), true);
    return oCn.GetLastError() == 0;
}

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
