#include "platform/tsql/TsqlLiterals.h"

#include "platform/tsql/TsqlErrors.h"

#include <QRegularExpression>
#include <cstdint>
#include <limits>

namespace zlx::tsql {

QString QuoteString(const QString& value) {
    QString doubled = value;
    doubled.replace(u'\'', QStringLiteral("''"));
    return u'\'' + doubled + u'\'';
}

bool IsBinaryLiteral(const Token& number) {
    return number.text.startsWith(u"0x", Qt::CaseInsensitive);
}

QString HexDigits(const QString& literal) {
    const QString digits = literal.mid(2).toLower();
    return digits.size() % 2 ? u'0' + digits : digits;
}

bool HasDateShape(const QString& text) {
    return !text.isEmpty() && text[0].isDigit() &&
           (text.contains(u'/') || (text.size() >= 8 && text.left(8).toLongLong() > 0));
}

QString WithoutTrailingBlanks(const QString& text) {
    qsizetype size = text.size();
    while (size > 0 && text[size - 1] == u' ')
        --size;
    return text.left(size);
}

qint64 CheckedInt(qint64 value) {
    if (value > std::numeric_limits<std::int32_t>::max() ||
        value < std::numeric_limits<std::int32_t>::min())
        ThrowStatementError(QStringLiteral("Arithmetic overflow error converting expression to "
                                           "data type int."),
                            ado::kNativeArithmeticOverflow, QStringLiteral("22003"));
    return value;
}

void RequireIntegerText(const QString& text) {
    static const QRegularExpression integer(QStringLiteral(R"(^\s*[+-]?\d+\s*$)"));
    if (!integer.match(text).hasMatch())
        ThrowStatementError(QStringLiteral("Conversion failed when converting the varchar "
                                           "value '%1' to data type int.")
                                .arg(text),
                            ado::kNativeValueConversion, QStringLiteral("22018"));
}

QString TextAsNumber(const QString& text, const Token& number) {
    static const QRegularExpression decimal(QStringLiteral(R"(^\s*[+-]?(\d+\.?\d*|\.\d+)\s*$)"));
    const bool integral =
        !number.text.contains(u'.') && !number.text.contains(u'e') && !number.text.contains(u'E');
    if (integral && text.trimmed().isEmpty()) return QStringLiteral("0");
    if (integral) RequireIntegerText(text);
    if (!integral && !decimal.match(text).hasMatch())
        ThrowStatementError(QStringLiteral("Error converting data type varchar to numeric."),
                            ado::kNativeNumericConversion, QStringLiteral("22018"));
    return text.trimmed();
}

QString WithoutEscapes(const QString& pattern, QChar escape) {
    QString plain;
    for (qsizetype k = 0; k < pattern.size(); ++k) {
        if (pattern[k] != escape || k + 1 == pattern.size()) {
            plain += pattern[k];
            continue;
        }
        const QChar escaped = pattern[++k];
        plain += escaped == u'%' || escaped == u'_' || escaped == u'['
                     ? u'[' + QString(escaped) + u']'
                     : QString(escaped);
    }
    return plain;
}

} // namespace zlx::tsql
