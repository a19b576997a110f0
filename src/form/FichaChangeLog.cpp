#include "form/FichaChangeLog.h"

#include "platform/ado/Recordset.h"

#include <QDateTime>
#include <vector>

namespace zlx {

namespace {

constexpr int nNameCol = 1;
constexpr int nFirstCol = 2;
constexpr int nSecondCol = 3;

const QChar cItemStart(2);
const QChar cValueStart(3);

// The row of the matrix where a capture of nFields fields starts, growing or creating the
// matrix as the capture needs.
std::int32_t FirstCaptureRow(cMatrizPtr& oMatriz, bool lPrimera, bool lAlternate,
                             std::int32_t nFields) {
    if (!oMatriz) {
        oMatriz = std::make_shared<cMatriz>();
        oMatriz->Dimension(nNameCol, nSecondCol, 1, nFields);
        return 1;
    }
    if (!lAlternate) return 1;
    if (lPrimera) {
        const std::int32_t first = oMatriz->LastRow() + 1;
        for (std::int32_t i = 0; i < nFields; ++i)
            oMatriz->AddRow(Variant::Array({}));
        return first;
    }
    return oMatriz->LastRow() - nFields + 1;
}

// The cursor adds its order expression to the record it reads after some moves; it is not a
// field of the table and comes and goes between captures.
bool IsTableField(const ado::Field& field) {
    return field.Name().compare(u"LastExpressionForMoveWithOrder", Qt::CaseInsensitive) != 0;
}

std::vector<const ado::Field*> TableFields(const ado::Fields& fields) {
    std::vector<const ado::Field*> result;
    for (int i = 0; i < fields.Count(); ++i)
        if (IsTableField(fields.Item(i))) result.push_back(&fields.Item(i));
    return result;
}

Variant CurrentValue(const ado::Field& field) {
    try {
        return field.Value();
    } catch (const std::exception&) {
        return Variant(); // no current record: nothing to capture
    }
}

QString Item(QChar operation, const QString& name, const QString& value) {
    return QString(cItemStart) + operation + name + cValueStart + value;
}

QString ChangeItem(const QString& name, const QString& first, const QString& second) {
    if (first == second) return {};
    if (first.isEmpty()) return Item(u'+', name, second);
    if (second.isEmpty()) return Item(u'-', name, first);
    return Item(u'*', name, first) + cValueStart + second;
}

bool WorthLoggingOnDelete(const QString& value) {
    return !value.isEmpty() && value != QStringLiteral("0") &&
           value != QStringLiteral("01/01/1753");
}

QString DeleteItem(const QString& name, const QString& value) {
    return WorthLoggingOnDelete(value) ? Item(u'-', name, value) : QString();
}

QString TableWithoutPrefix(const QString& cTabla) {
    return cTabla.mid(cTabla.lastIndexOf(u'.') + 1);
}

Date Now() {
    const QDateTime now = QDateTime::currentDateTime();
    const QDate day = now.date();
    const QTime time = now.time();
    return MakeDate(day.year(), day.month(), day.day(), time.hour(), time.minute(), time.second());
}

} // namespace

void FichaChangeLog::Capture(cMatrizPtr& oMatriz, bool lPrimera, const cFichaDB& oFichaDB,
                             bool lAlternate) {
    const ado::RecordsetPtr rs = oFichaDB.Get_RS();
    if (!rs) return;
    const std::vector<const ado::Field*> fields = TableFields(rs->GetFields());
    const auto count = static_cast<std::int32_t>(fields.size());
    const std::int32_t first = FirstCaptureRow(oMatriz, lPrimera, lAlternate, count);
    const QString prefix = lAlternate ? oFichaDB.Table() + u'.' : QString();
    for (std::int32_t i = 0; i < count; ++i) {
        const ado::Field& field = *fields[static_cast<std::size_t>(i)];
        if (lPrimera) oMatriz->SetValue(nNameCol, first + i, Variant(prefix + field.Name()));
        oMatriz->SetValue(lPrimera ? nFirstCol : nSecondCol, first + i, CurrentValue(field));
    }
}

QString FichaChangeLog::ValueText(const Variant& xValue) {
    if (xValue.IsEmpty() || xValue.IsNull()) return {};
    return xValue.ToString();
}

QString FichaChangeLog::Valores(const cMatriz& oMatriz, bool lDelete) {
    QString valores;
    for (std::int32_t row = oMatriz.FirstRow(); row <= oMatriz.LastRow(); ++row) {
        const QString name = ValueText(oMatriz.GetValue(nNameCol, row));
        const QString first = ValueText(oMatriz.GetValue(nFirstCol, row));
        valores += lDelete ? DeleteItem(name, first)
                           : ChangeItem(name, first, ValueText(oMatriz.GetValue(nSecondCol, row)));
        if (valores.size() >= nMaxValores) break;
    }
    return valores.left(nMaxValores);
}

QString FichaChangeLog::LogTable(const QString& cTabla, const QString& cMainDB) {
    if (cTabla.contains(u'.')) return cMainDB + QStringLiteral("..LogFichas");
    return QStringLiteral("LogFichas");
}

QString FichaChangeLog::InsertStatement(const cConexion& oCn, const LogFichasOrigin& origin,
                                        bool lDelete, const QString& cValores, const Date& dFecha) {
    return QStringLiteral("INSERT INTO ") + LogTable(origin.cTabla, origin.cMainDB) +
           QStringLiteral(" (Fecha, ID_Usuario, ID_Puesto, Tabla, ID_Ficha, TipoOp, Valores)") +
           QStringLiteral(" VALUES (") + oCn.PonComillas(Variant(dFecha)) + u',' +
           QString::number(origin.nIdUsuario) + u',' + QString::number(origin.nIdPuesto) + u',' +
           oCn.PonComillas(Variant(TableWithoutPrefix(origin.cTabla))) + u',' +
           QString::number(origin.nIdFicha) + u',' + (lDelete ? u'1' : u'0') + u',' +
           oCn.PonComillas(Variant(cValores)) + u')';
}

bool FichaChangeLog::Write(cConexion& oCn, const cMatrizPtr& oMatriz, bool lDelete,
                           const LogFichasOrigin& origin) {
    if (!oMatriz) return false;
    const QString valores = Valores(*oMatriz, lDelete);
    if (valores.isEmpty()) return false;
    try {
        oCn.Execute(InsertStatement(oCn, origin, lDelete, valores, Now()), zlxExecuteReturn_Nothing,
                    Variant(std::int16_t(0)), true);
        return oCn.GetLastError() == 0;
    } catch (const std::exception&) {
        return false; // the log never stops a save or a delete
    }
}

} // namespace zlx
