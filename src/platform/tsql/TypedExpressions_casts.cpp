// A number cast to a text type: SQL Server writes a DECIMAL with its scale (CAST(12.50 AS
// VARCHAR(10)) is '12.50', where SQLite writes 12.5), MONEY with two places and a FLOAT with six
// significant digits (PostgreSQL would write numeric(19,4)'s four places and every digit of a
// float); a text too short for the number is '*' for an integer to CHAR or VARCHAR and error
// 8115 otherwise, where the engines would cut it. A text cast to VARBINARY is the bytes SQL
// Server keeps of it (a byte a character, two for a national text), where SQLite would give its
// UTF-8 and PostgreSQL read it as escapes, and an integer its type's bytes, the highest first;
// VARBINARY(n) keeps the first n bytes (an integer's last n). A binary value cast to a text type is
// the text SQL Server reads in its bytes, or in CONVERT's styles 1 and 2 their hexadecimal digits,
// where PostgreSQL would write escapes ('\x616263') and SQLite read UTF-8.

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlFormat.h"
#include "platform/tsql/TsqlLiterals.h"
#include "platform/tsql/TypeNames.h"
#include "platform/tsql/TypedExpressions.h"

#include <QRegularExpression>
#include <algorithm>

namespace zlx::tsql {
namespace {

constexpr std::int32_t kNativeExplicitConversion = 529;

// The bytes SQL Server keeps of a value of an integer type; 0 for any other type.
int IntegerSize(const QString& type) {
    if (type == u"TINYINT") return 1;
    if (type == u"SMALLINT") return 2;
    if (type == u"INT" || type == u"INTEGER") return 4;
    return type == u"BIGINT" ? 8 : 0;
}

struct TextTarget {
    QString name; // lower case, without its length
    int length;   // 0: any
};

std::optional<TextTarget> TextTargetOf(const QString& type) {
    static const QRegularExpression unsized(QStringLiteral("^(N?VARCHAR)\\(MAX\\)$"));
    if (const auto match = unsized.match(type); match.hasMatch())
        return TextTarget{match.captured(1).toLower(), 0};
    const auto sized = SizedTextType(type);
    if (!sized) return std::nullopt;
    return TextTarget{type.section(u'(', 0, 0).toLower(), sized->length.toInt()};
}

// How SQL Server writes a number of `type` as text: its NumberText format and scale; nullopt
// for a type that is no number's.
std::optional<std::pair<QChar, int>> NumberTextFormat(const QString& type) {
    if (!IntegerTypeOf(type).isEmpty()) return std::pair{QChar(u'i'), 0};
    if (type == u"MONEY" || type == u"SMALLMONEY") return std::pair{QChar(u'm'), 0};
    if (type == u"FLOAT" || type == u"REAL") return std::pair{QChar(u'f'), 0};
    if (const auto digits = DecimalType(type)) return std::pair{QChar(u'd'), digits->scale};
    return std::nullopt;
}

} // namespace

void TypedExpressions::WrapNumberTextCasts() {
    for (size_t i = 0; i + 1 < m_t.size(); ++i) {
        const bool cast = m_t[i].IsWord(u"CAST");
        if (!(cast || m_t[i].IsWord(u"CONVERT")) || !m_t.SymbolAt(i + 1, u"(")) continue;
        const QString type = m_t.ConversionType(i);
        const auto target = TextTargetOf(type);
        if (!target && !VarbinaryLength(type)) continue;
        const size_t close = m_t.Close(i + 1);
        const std::vector<size_t> commas = m_t.Commas(i + 1, close);
        if (!cast && (commas.empty() || commas.size() > 2)) continue;
        const bool styled = !cast && commas.size() == 2;
        if (styled && !target)
            ThrowUnsupported(QStringLiteral("CONVERT a %1 con estilo").arg(type));
        const size_t first = cast ? i + 2 : commas.front() + 1;
        const size_t end = cast ? m_t.DepthZeroWord(i + 2, u"AS") : styled ? commas.back() : close;
        const auto found = OperandAt(first) ? Chain(first, false) : std::nullopt;
        const bool whole = found && found->last == end;
        if (!target)
            WrapTextBytes(whole ? *found : Typed{first, end, {}, false}, type);
        else if (whole && IsBinaryValue(*found))
            WrapBinaryText(*found, styled ? commas.back() : 0, close, type);
        else if (whole && styled)
            WrapStyledNumberText(*found, commas.back(), close, target->name, target->length);
        else if (whole)
            WrapNumberText(*found, target->name, target->length);
    }
}

// CONVERT(VARCHAR(n), number, style): MONEY in style 1 has thousands separators, in style 2 four
// places, in style 0 as without one; the style of an integer or DECIMAL changes nothing; a
// FLOAT's scientific styles are refused. A value of no number type keeps its style (a date's).
void TypedExpressions::WrapStyledNumberText(const Typed& value, size_t comma, size_t close,
                                            const QString& target, int length) {
    const QString type = NumberTypeOf(value);
    const Token* style = m_t.At(comma + 1);
    if (type.isEmpty() || !style || style->kind != TokenKind::Number || comma + 2 != close) return;
    const int number = style->text.toInt();
    const bool money = type == u"MONEY" || type == u"SMALLMONEY";
    const bool real = type == u"FLOAT" || type == u"REAL";
    if ((money && number > 2) || (real && number != 0))
        ThrowUnsupported(QStringLiteral("CONVERT con estilo %1 de %2").arg(number).arg(type));
    m_dropped.push_back(comma);
    m_dropped.push_back(comma + 1);
    if (money && number == 1)
        return AddWrap(
            value.first, value.last,
            NumberSql(QStringLiteral("\x01"), 2, 2, 1, QStringLiteral(","), QStringLiteral(".")));
    if (money && number == 2)
        return AddWrap(value.first, value.last,
                       NumberSql(QStringLiteral("\x01"), 4, 4, 1, QString(), QStringLiteral(".")));
    WrapNumberText(value, target, length);
}

bool TypedExpressions::IsBinaryValue(const Typed& value) const {
    const QString& type = value.type;
    const bool binaryLiteral = value.last == value.first + 1 && IsBinaryLiteral(m_t[value.first]);
    return binaryLiteral || type.startsWith(u"VARBINARY") || type.startsWith(u"BINARY") ||
           type == u"IMAGE";
}

// A binary value to text type `target`: the text its bytes hold (style 0), or their digits after
// 0x (style 1) or alone (style 2); `comma` (0: none) is CONVERT's before its style. An IMAGE
// value is error 529, as on SQL Server, which converts it only to binary types.
void TypedExpressions::WrapBinaryText(const Typed& value, size_t comma, size_t close,
                                      const QString& target) {
    if (value.type == u"IMAGE")
        ThrowStatementError(
            QStringLiteral("Explicit conversion from data type image to %1 is not allowed.")
                .arg(target.section(u'(', 0, 0).toLower()),
            kNativeExplicitConversion);
    int style = 0;
    if (comma != 0) {
        const Token* given = m_t.At(comma + 1);
        style = given && given->kind == TokenKind::Number && comma + 2 == close
                    ? given->text.toInt()
                    : -1;
        if (style < 0 || style > 2)
            ThrowUnsupported(QStringLiteral("CONVERT de un valor binario con estilo %1")
                                 .arg(given ? given->text : QString()));
        m_dropped.push_back(comma);
        m_dropped.push_back(comma + 1);
    }
    if (style == 0)
        return AddWrap(value.first, value.last,
                       m_dialect.BytesText(QStringLiteral("\x01"), target.startsWith(u'N')));
    // In parentheses: a wrap whose end is a lone ")" would read as the end of the call around it.
    const QString digits = m_dialect.BinaryHex(QStringLiteral("\x01"));
    AddWrap(
        value.first, value.last,
        QStringLiteral("(%1%2)").arg(style == 1 ? QStringLiteral("'0x' || ") : QString(), digits));
}

// A binary value stays as it is; a text becomes its bytes and an integer the last of its bytes
// that `target` (a VARBINARY type) keeps, the highest first, where a longer value is cut on the
// left; any other value is refused.
void TypedExpressions::WrapTextBytes(const Typed& value, const QString& target) {
    const QString& type = value.type;
    const bool null = value.last == value.first + 1 && m_t.WordAt(value.first, u"NULL");
    if (null || IsBinaryValue(value)) return;
    if (const int size = IntegerSize(type); size > 0) {
        const int kept = *VarbinaryLength(target);
        return AddWrap(value.first, value.last,
                       m_dialect.IntegerBytes(QStringLiteral("\x01"),
                                              kept == 0 ? size : std::min(size, kept)));
    }
    if (!IsTextType(type) || type == u"TEXT" || type == u"NTEXT")
        ThrowUnsupported(QStringLiteral("CAST AS %1 de %2")
                             .arg(target, type.isEmpty()
                                              ? QStringLiteral("un valor de tipo no conocido")
                                              : type));
    AddWrap(value.first, value.last,
            m_dialect.TextBytes(QStringLiteral("\x01"), IsNationalType(type)));
}

void TypedExpressions::WrapNumberText(const Typed& value, const QString& target, int length) {
    const QString type = NumberTypeOf(value);
    const auto format = NumberTextFormat(type);
    if (!format) return;
    // The engines write an integer's digits as SQL Server does: only a length that may be too
    // short for them needs the call.
    const int widest = type == u"BIGINT" ? 20 : 11;
    if (format->first == u'i' && (length == 0 || length >= widest)) return;
    AddWrap(value.first, value.last,
            m_dialect.NumberText(QStringLiteral("\x01"), format->first, format->second, length,
                                 target));
}

// LEN of a number counts the characters of its text as CAST AS VARCHAR writes it (LEN(12.50) is
// 5), where the engines would count their own text or have no LEN of a number.
void TypedExpressions::WrapLengthOfNumber(const Typed& value) {
    if (const auto format = NumberTextFormat(NumberTypeOf(value)))
        AddWrap(value.first, value.last,
                m_dialect.NumberText(QStringLiteral("\x01"), format->first, format->second, 0,
                                     QStringLiteral("varchar")));
}

} // namespace zlx::tsql
