#include "connection/StatementText.h"

#include "connection/SqlText.h"
#include "platform/variant/DateLiteral.h"
#include "platform/variant/NumberText.h"

namespace zlx::StatementText {

namespace {

QString Wrap(const QString& cSQL, const QString& tail) {
    const QString separator = cSQL.trimmed().endsWith(u';') ? QString() : QStringLiteral(" ;");
    return QStringLiteral("SET NOCOUNT ON ; ") + cSQL + separator + tail;
}

qsizetype LineEnd(const QString& text, qsizetype start) {
    if (text.size() - start <= 120) return text.size();
    const QString window = text.mid(start, 120);
    for (const QString& breakAfter :
         {QStringLiteral(", "), QStringLiteral(" "), QStringLiteral(",")}) {
        const qsizetype at = window.lastIndexOf(breakAfter);
        if (at >= 0) return start + at + breakAfter.size();
    }
    return start + 120;
}

} // namespace

QString WithRowCount(const QString& cSQL) {
    return Wrap(cSQL, QStringLiteral(" SELECT @@RowCount ; SET NOCOUNT OFF"));
}

QString WithIdentity(const QString& cSQL) {
    return Wrap(cSQL, QStringLiteral(" SELECT @@Identity; SET NOCOUNT OFF"));
}

QString ValuePiece(const Variant& value, int provider) {
    const bool sqlServer = provider == zlxDataProvider_MSDE;
    if (value.IsNumber()) return value.ToString().replace(u',', u'.') + u',';
    switch (value.VarType()) {
    case vbNull:
        return sqlServer ? QStringLiteral("DEFAULT,") : QString();
    case vbDate:
        return (sqlServer ? ServerDateLiteral(value.ToDate()) : SqlText::PonComillas(value)) + u',';
    case vbString:
        return SqlText::PonComillas(value) + u',';
    default:
        return {};
    }
}

QString InsertHead(const QString& cTabla, const QString& fields) {
    return QStringLiteral("INSERT INTO ") + cTabla + u' ' + fields + QStringLiteral(" VALUES (");
}

QString FieldList(const Variant& xCampos) {
    QStringList names;
    for (const Variant& name : xCampos.ToArray()->Data())
        names << name.ToString();
    return u'(' + names.join(u',') + u')';
}

QString RecCount(const QString& cTabla, const QString& cWhere) {
    QString text = QStringLiteral("SELECT count(*) AS cuantos FROM ") + cTabla;
    if (!cWhere.isEmpty()) text += QStringLiteral(" WHERE ") + cWhere;
    return text;
}

QString ValorMasAlto(const QString& cTabla, const QString& cCampo, int provider) {
    if (provider == zlxDataProvider_FOX)
        return QStringLiteral("SELECT max(%1) AS ultimo FROM %2").arg(cCampo, cTabla);
    return QStringLiteral("SELECT isnull(max(%1),0) AS ultimo FROM %2").arg(cCampo, cTabla);
}

QString StructureQuery(const QString& cTable, const QString& cFields) {
    return QStringLiteral("SELECT TOP 1 ") + cFields + QStringLiteral(" FROM ") + cTable +
           QStringLiteral(" WHERE 1 = 0");
}

QString WrapLines(const QString& cSQL) {
    QString text;
    for (qsizetype start = 0; start < cSQL.size();) {
        const qsizetype end = LineEnd(cSQL, start);
        text += cSQL.mid(start, end - start) + u'\r';
        start = end;
    }
    return text;
}

Version ParseVersion(const QString& text) {
    Version v;
    const QStringList parts = text.split(u'.');
    const auto part = [](const QString& piece) {
        return static_cast<std::int32_t>(Variant(NumberText::Val(piece)).ToLong());
    };
    // Each piece up to the next dot; the last one takes the rest of the text.
    v.major = part(parts.value(0));
    v.minor = parts.size() > 1 ? part(parts.value(1)) : 0;
    v.build = parts.size() > 2 ? part(parts.value(2)) : 0;
    v.revision = parts.size() > 3 ? part(parts.mid(3).join(u'.')) : 0;
    v.number = Variant(QStringLiteral("%1.%2").arg(v.major).arg(v.minor)).ToCurrency();
    return v;
}

QString QuotedName(const QString& description) {
    const qsizetype first = description.indexOf(u'\''), last = description.lastIndexOf(u'\'');
    return first >= 0 && last > first ? description.mid(first + 1, last - first - 1) : QString();
}

} // namespace zlx::StatementText
