#include "platform/tsql/SystemCatalog.h"

#include "platform/tsql/EngineDialect.h"

namespace zlx::tsql {
namespace {

QString LengthOf(const TypeRule& rule, const CatalogTypes& types, const QString& type) {
    const QString length = QString::fromLatin1(rule.length);
    const QString size = FillPattern(types.declaredSize, {type});
    if (length == u"n") return size;
    if (length == u"2n") return QStringLiteral("2 * ") + size;
    if (length == u"p")
        return QStringLiteral("CASE WHEN %1 <= 9 THEN 5 WHEN %1 <= 19 THEN 9 WHEN %1 <= 28 THEN 13 "
                              "ELSE 17 END")
            .arg(size);
    return length;
}

template <typename Column>
QString CaseOver(const CatalogTypes& types, const QString& typeText, Column column) {
    const QString type = FillPattern(types.typeText, {typeText});
    QString out = QStringLiteral("CASE");
    for (const TypeRule& rule : types.rules)
        out += QStringLiteral(" WHEN %1 LIKE '%2' THEN %3")
                   .arg(type, QString::fromLatin1(rule.pattern), column(rule, type));
    return out + QStringLiteral(" END");
}

} // namespace

QString XtypeExpression(const CatalogTypes& types, const QString& typeText) {
    return CaseOver(types, typeText, [](const TypeRule& rule, const QString&) {
        return QString::number(rule.xtype);
    });
}

QString LengthExpression(const CatalogTypes& types, const QString& typeText) {
    return CaseOver(types, typeText, [&types](const TypeRule& rule, const QString& type) {
        return LengthOf(rule, types, type);
    });
}

} // namespace zlx::tsql
