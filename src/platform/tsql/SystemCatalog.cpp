#include "platform/tsql/SystemCatalog.h"

#include "platform/tsql/EngineDialect.h"

#include <string_view>

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

// SQL Server's name of the type numbered `xtype`.
const char* TypeNameOf(int xtype) {
    switch (xtype) {
    case 34:
        return "image";
    case 35:
        return "text";
    case 40:
        return "date";
    case 41:
        return "time";
    case 42:
        return "datetime2";
    case 48:
        return "tinyint";
    case 52:
        return "smallint";
    case 56:
        return "int";
    case 58:
        return "smalldatetime";
    case 59:
        return "real";
    case 60:
        return "money";
    case 61:
        return "datetime";
    case 62:
        return "float";
    case 99:
        return "ntext";
    case 104:
        return "bit";
    case 106:
        return "decimal";
    case 108:
        return "numeric";
    case 127:
        return "bigint";
    case 167:
        return "varchar";
    case 165:
        return "varbinary";
    case 173:
        return "binary";
    case 175:
        return "char";
    case 231:
        return "nvarchar";
    case 239:
        return "nchar";
    default:
        return "sql_variant";
    }
}

QString CharacterLengthOf(const TypeRule& rule, const CatalogTypes& types, const QString& type) {
    if (rule.length == std::string_view("-1")) return QStringLiteral("-1"); // a (MAX) type
    switch (rule.xtype) {
    case 165:
    case 173:
    case 167:
    case 175:
    case 231:
    case 239:
        return FillPattern(types.declaredSize, {type});
    case 34:
    case 35:
        return QStringLiteral("2147483647");
    case 99:
        return QStringLiteral("1073741823");
    default:
        return QStringLiteral("NULL");
    }
}

} // namespace

QString DataTypeExpression(const CatalogTypes& types, const QString& typeText) {
    return CaseOver(types, typeText, [](const TypeRule& rule, const QString&) {
        return u'\'' + QString::fromLatin1(TypeNameOf(rule.xtype)) + u'\'';
    });
}

QString CharacterLengthExpression(const CatalogTypes& types, const QString& typeText) {
    return CaseOver(types, typeText, [&types](const TypeRule& rule, const QString& type) {
        return CharacterLengthOf(rule, types, type);
    });
}

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
