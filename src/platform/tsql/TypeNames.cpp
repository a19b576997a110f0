#include "platform/tsql/TypeNames.h"

#include <QRegularExpression>
#include <algorithm>

namespace zlx::tsql {

QString LookUpType(std::span<const TypeName> types, const QString& type) {
    for (const TypeName& name : types) {
        if (type == QLatin1StringView(name.tsql)) return QString::fromLatin1(name.engine);
    }
    return {};
}

std::optional<SizedText> SizedTextType(const QString& type) {
    static const QRegularExpression sized(
        QStringLiteral("^(N?VARCHAR|N?CHAR)\\s*(\\(\\s*(\\d+)\\s*\\))?$"));
    const auto match = sized.match(type);
    if (!match.hasMatch()) return std::nullopt;
    return SizedText{match.captured(1).endsWith(u"VARCHAR"),
                     match.captured(3).isEmpty() ? QStringLiteral("30") : match.captured(3)};
}

QString MaxAsLength(const QString& type) {
    static const QRegularExpression unlimited(QStringLiteral("^(N?VARCHAR)\\s*\\(\\s*MAX\\s*\\)$"));
    const auto match = unlimited.match(type);
    return match.hasMatch() ? match.captured(1) + QStringLiteral("(2147483647)") : type;
}

std::optional<int> VarbinaryLength(const QString& type) {
    static const QRegularExpression binary(
        QStringLiteral("^VARBINARY\\s*(\\(\\s*(\\d+|MAX)\\s*\\))?$"));
    const auto match = binary.match(type);
    if (!match.hasMatch()) return std::nullopt;
    const QString length = match.captured(2);
    return length.isEmpty() ? 30 : length == u"MAX" ? 0 : length.toInt();
}

std::optional<DecimalDigits> DecimalType(const QString& type) {
    static const QRegularExpression decimal(
        QStringLiteral(
            "^(?:DEC(?:IMAL)?|NUMERIC)\\s*(?:\\(\\s*(\\d+)\\s*(?:,\\s*(\\d+)\\s*)?\\))?$"),
        QRegularExpression::CaseInsensitiveOption);
    const QString written = type.trimmed().toUpper();
    if (written == u"MONEY") return DecimalDigits{19, 4};
    if (written == u"SMALLMONEY") return DecimalDigits{10, 4};
    const auto match = decimal.match(written);
    if (!match.hasMatch()) return std::nullopt;
    return DecimalDigits{match.captured(1).isEmpty() ? 18 : match.captured(1).toInt(),
                         match.captured(2).isEmpty() ? 0 : match.captured(2).toInt()};
}

std::optional<DecimalDigits> IntegerDigits(const QString& type) {
    if (type == u"TINYINT") return DecimalDigits{3, 0};
    if (type == u"SMALLINT") return DecimalDigits{5, 0};
    if (type == u"INT" || type == u"INTEGER") return DecimalDigits{10, 0};
    if (type == u"BIGINT") return DecimalDigits{19, 0};
    return std::nullopt;
}

std::optional<DecimalDigits> LiteralDigits(const QString& text) {
    static const QRegularExpression plain(QStringLiteral(R"(^(\d*)(?:\.(\d*))?$)"));
    const auto match = plain.match(text);
    if (!match.hasMatch()) return std::nullopt;
    QString whole = match.captured(1);
    while (whole.startsWith(u'0'))
        whole.remove(0, 1);
    const int scale = static_cast<int>(match.captured(2).size());
    return DecimalDigits{std::max(1, static_cast<int>(whole.size()) + scale), scale};
}

bool IsTextType(const QString& type) {
    for (QStringView text : {u"CHAR", u"VARCHAR", u"NCHAR", u"NVARCHAR", u"TEXT", u"NTEXT"}) {
        if (type == text || (type.startsWith(text) && type.mid(text.size()).startsWith(u'(')))
            return true;
    }
    return false;
}

bool IsNationalType(const QString& type) {
    return type.startsWith(u"NCHAR") || type.startsWith(u"NVARCHAR") || type == u"NTEXT";
}

QString IntegerTypeOf(const QString& type) {
    for (QStringView integer : {u"TINYINT", u"SMALLINT", u"INT", u"INTEGER", u"BIGINT"}) {
        if (type == integer) return type == u"BIGINT" ? type : QStringLiteral("INT");
    }
    return {};
}

} // namespace zlx::tsql
