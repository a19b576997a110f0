#include "platform/tsql/TsqlVariables.h"

#include "platform/engines/SqlServerDates.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <limits>

namespace zlx::tsql {
namespace {

[[noreturn]] void ThrowConversion(const QString& text, const QString& type) {
    ThrowStatementError(
        QStringLiteral("Conversion failed when converting the varchar value '%1' to data type %2.")
            .arg(text, type.toLower()),
        ado::kNativeValueConversion);
}

[[noreturn]] void ThrowNumericOverflow() {
    ThrowStatementError(
        QStringLiteral("Arithmetic overflow error converting numeric to data type numeric."),
        ado::kNativeArithmeticOverflow);
}

// The integer types' ranges; TINYINT and SMALLINT report the value (220), INT does not (8115).
void CheckIntegerRange(const QString& type, qint64 value) {
    struct Range {
        const char* name;
        qint64 low;
        qint64 high;
    };
    static constexpr Range ranges[] = {
        {"TINYINT", 0, 255},
        {"SMALLINT", -32768, 32767},
        {"INT", std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()},
        {"INTEGER", std::numeric_limits<std::int32_t>::min(),
         std::numeric_limits<std::int32_t>::max()}};
    for (const Range& range : ranges) {
        if (type != QLatin1String(range.name) || (value >= range.low && value <= range.high))
            continue;
        if (range.high > 32767)
            ThrowStatementError(
                QStringLiteral("Arithmetic overflow error converting expression to data type int."),
                ado::kNativeArithmeticOverflow);
        ThrowStatementError(
            QStringLiteral("Arithmetic overflow error for data type %1, value = %2.")
                .arg(type.toLower())
                .arg(value),
            ado::kNativeTypeOverflow);
    }
}

// The integer of an engine's value: a number loses its fraction, a text must hold an integer.
qint64 IntegerOf(const Variant& value, const QString& type) {
    static const QRegularExpression integer(QStringLiteral(R"(^\s*[+-]?\d+\s*$)"));
    const QString text = value.ToInvariantString();
    if (value.Get<QString>() && !integer.match(text).hasMatch()) ThrowConversion(text, type);
    bool ok = false;
    const qint64 number = text.trimmed().section(u'.', 0, 0).toLongLong(&ok);
    if (!ok)
        ThrowStatementError(
            QStringLiteral("Arithmetic overflow error converting expression to data type %1.")
                .arg(type.toLower()),
            ado::kNativeArithmeticOverflow);
    return number;
}

[[noreturn]] void ThrowNotNumeric(const QString& type) {
    ThrowStatementError(QStringLiteral("Error converting data type varchar to %1.").arg(type),
                        ado::kNativeNumericConversion);
}

double FloatOf(const Variant& value) {
    if (!value.Get<QString>()) return value.ToDouble();
    bool ok = false;
    const double number = value.Get<QString>()->trimmed().toDouble(&ok);
    if (!ok) ThrowNotNumeric(QStringLiteral("float"));
    return number;
}

// Adds one unit in the last place to a string of decimal digits.
QString Incremented(QString digits) {
    for (qsizetype i = digits.size(); i-- > 0;) {
        if (digits[i] != u'9') {
            digits[i] = QChar(digits[i].unicode() + 1);
            return digits;
        }
        digits[i] = u'0';
    }
    return u'1' + digits;
}

// A number's text rounded half away from zero to `scale` places, as DECIMAL(p, s) keeps it.
QString RoundedDecimal(const Variant& value, int precision, int scale) {
    QString text = value.ToInvariantString().trimmed();
    if (text.contains(u'e', Qt::CaseInsensitive))
        text = QString::number(value.ToDouble(), 'f', scale + 1);
    const bool negative = text.startsWith(u'-');
    if (negative || text.startsWith(u'+')) text.remove(0, 1);
    QString whole = text.section(u'.', 0, 0);
    QString fraction = text.section(u'.', 1);
    static const QRegularExpression number(QStringLiteral(R"(^(\d+\.?\d*|\.\d+)$)"));
    if (!number.match(text).hasMatch()) ThrowNotNumeric(QStringLiteral("numeric"));
    const bool up = fraction.size() > scale && fraction[scale] >= u'5';
    fraction = fraction.left(scale).leftJustified(scale, u'0');
    QString digits = whole + fraction;
    if (up) digits = Incremented(digits);
    whole = digits.left(digits.size() - scale);
    fraction = digits.right(scale);
    while (whole.size() > 1 && whole.startsWith(u'0'))
        whole.remove(0, 1);
    if (whole.isEmpty()) whole = QStringLiteral("0");
    if (whole != u"0" && whole.size() > precision - scale) ThrowNumericOverflow();
    const bool zero = std::all_of(digits.begin(), digits.end(), [](QChar c) { return c == u'0'; });
    return (negative && !zero ? QStringLiteral("-") : QString()) + whole +
           (scale > 0 ? u'.' + fraction : QString());
}

QString BitOf(const Variant& value) {
    if (const bool* flag = value.Get<bool>()) return *flag ? QStringLiteral("1") : u"0"_qs;
    const QString text = value.ToInvariantString().trimmed();
    if (text.compare(u"TRUE", Qt::CaseInsensitive) == 0) return QStringLiteral("1");
    if (text.compare(u"FALSE", Qt::CaseInsensitive) == 0) return QStringLiteral("0");
    bool ok = false;
    const double number = text.toDouble(&ok);
    if (!ok) ThrowConversion(text, QStringLiteral("bit"));
    return number != 0 ? QStringLiteral("1") : QStringLiteral("0");
}

[[noreturn]] void ThrowNoDate() {
    ThrowStatementError(ado::DateErrorText(ado::kNativeDateConversion), ado::kNativeDateConversion);
}

// The moment an engine's value tells: an OLE date (to the millisecond), or a date's ISO text as
// the embedded engine stores it (to the 100-nanosecond tick).
ado::DateReading MomentOf(const Variant& value) {
    if (!value.Get<Date>()) {
        const ado::DateReading reading =
            ado::ReadWideDate(value.ToInvariantString(), ado::DateOrder::YearMonthDay);
        if (reading.error) ThrowNoDate();
        return reading;
    }
    // An OLE date's whole part counts days, its fraction (of either sign) the time of day.
    const double date = value.Get<Date>()->value;
    const double days = std::trunc(date);
    const qint64 msecs = std::llround(std::fabs(date - days) * 86400000.0);
    return {QDateTime(QDate(1899, 12, 30).addDays(static_cast<qint64>(days)), QTime(0, 0), Qt::UTC)
                .addMSecs(msecs)};
}

// The value as a variable of the date type `type` keeps it, as the text of its literal:
// DATETIME and SMALLDATETIME 'yyyymmdd hh:mm:ss[.mmm]', which they read whatever DATEFORMAT
// says; the others their stored ISO text, which they read year first.
QString DateOf(const Variant& value, const ado::DateType& type) {
    const ado::DateReading fitted = ado::FitToType(MomentOf(value), type);
    if (fitted.error)
        ThrowStatementError(ado::OutOfRangeText(QStringLiteral("datetime"), type), fitted.error);
    const QDateTime& moment = fitted.value;
    if (type.kind != ado::DateTypeKind::DateTime && type.kind != ado::DateTypeKind::SmallDateTime)
        return ado::StoredDateText(fitted, type);
    return moment.toString(moment.time().msec() ? QStringLiteral("yyyyMMdd HH:mm:ss.zzz")
                                                : QStringLiteral("yyyyMMdd HH:mm:ss"));
}

QString TextOf(const Variant& value, const VariableType& type) {
    QString text = value.ToInvariantString();
    if (type.length > 0) {
        text.truncate(type.length);
        if (type.fixed) text = text.leftJustified(type.length, u' ');
    }
    return text;
}

QString BinaryOf(const Variant& value, const VariableType& type) {
    QByteArray bytes;
    if (const auto array = value.ToArray(); array && array->Bytes())
        bytes = *array->Bytes();
    else
        bytes = value.ToInvariantString().toLatin1();
    if (type.length > 0) bytes.truncate(type.length);
    return QStringLiteral("0x") + QString::fromLatin1(bytes.toHex()).toUpper();
}

// The value `value` has once given to a variable of `type`, as its literal's text.
QString Converted(const Variant& value, const VariableType& type) {
    // A BIT column's value is 1 or 0 to any other type (a Boolean's True is -1).
    if (const bool* flag = value.Get<bool>(); flag && type.kind != VariableKind::Bit)
        return Converted(Variant(*flag ? 1 : 0), type);
    switch (type.kind) {
    case VariableKind::Integer: {
        const qint64 integer = IntegerOf(value, type.name);
        CheckIntegerRange(type.name, integer);
        return QString::number(integer);
    }
    case VariableKind::Bit:
        return BitOf(value);
    case VariableKind::Decimal:
        return RoundedDecimal(value, type.precision, type.scale);
    case VariableKind::Float:
        return QString::number(FloatOf(value), 'g', 17);
    case VariableKind::Text:
        return TextOf(value, type);
    case VariableKind::Date:
        return DateOf(value, type.DateTypeOf());
    case VariableKind::Binary:
        return BinaryOf(value, type);
    }
    return {};
}

struct TypeWord {
    const char* name;
    VariableKind kind;
};

constexpr TypeWord kTypeWords[] = {
    {"INT", VariableKind::Integer},        {"INTEGER", VariableKind::Integer},
    {"BIGINT", VariableKind::Integer},     {"SMALLINT", VariableKind::Integer},
    {"TINYINT", VariableKind::Integer},    {"BIT", VariableKind::Bit},
    {"DECIMAL", VariableKind::Decimal},    {"NUMERIC", VariableKind::Decimal},
    {"DEC", VariableKind::Decimal},        {"MONEY", VariableKind::Decimal},
    {"SMALLMONEY", VariableKind::Decimal}, {"FLOAT", VariableKind::Float},
    {"REAL", VariableKind::Float},         {"CHAR", VariableKind::Text},
    {"NCHAR", VariableKind::Text},         {"VARCHAR", VariableKind::Text},
    {"NVARCHAR", VariableKind::Text},      {"DATETIME", VariableKind::Date},
    {"SMALLDATETIME", VariableKind::Date}, {"DATETIME2", VariableKind::Date},
    {"DATE", VariableKind::Date},          {"TIME", VariableKind::Date},
    {"BINARY", VariableKind::Binary},      {"VARBINARY", VariableKind::Binary},
};

// The numbers in parentheses after a type word: (n), (p, s) or (MAX as 0).
std::vector<int> TypeArguments(const Tokens& tokens, size_t open, size_t& end) {
    std::vector<int> arguments;
    end = open;
    if (open >= tokens.size() || !tokens[open].IsSymbol(u"(")) return arguments;
    size_t i = open + 1;
    for (; i < tokens.size() && !tokens[i].IsSymbol(u")"); ++i) {
        if (tokens[i].IsSymbol(u",")) continue;
        bool ok = tokens[i].IsWord(u"MAX");
        const int number = ok ? 0 : tokens[i].text.toInt(&ok);
        if (!ok || tokens[i].kind == TokenKind::String)
            ThrowStatementError(QStringLiteral("Incorrect syntax near '%1'.").arg(tokens[i].text),
                                ado::kNativeSyntax);
        arguments.push_back(number);
    }
    if (i == tokens.size())
        ThrowStatementError(QStringLiteral("Incorrect syntax near '('."), ado::kNativeSyntax);
    end = i + 1;
    return arguments;
}

// The digits of a second TIME(n) and DATETIME2(n) keep (7 when not given); the other date types
// take no length (2716).
int DateDigits(const QString& name, const std::vector<int>& arguments) {
    const bool sized = name == u"TIME" || name == u"DATETIME2";
    if (!sized && !arguments.empty())
        ThrowStatementError(QStringLiteral("Column, parameter, or variable #1: Cannot specify a "
                                           "column width on data type %1.")
                                .arg(name.toLower()),
                            2716);
    const int digits = arguments.empty() ? 7 : arguments.front();
    if (sized && (digits > 7 || arguments.size() > 1))
        ThrowStatementError(QStringLiteral("Specified scale %1 is invalid for '%2' data type.")
                                .arg(digits)
                                .arg(name.toLower()),
                            1002);
    return sized ? digits : 3;
}

} // namespace

VariableType VariableType::Read(const Tokens& tokens, size_t first, size_t& end) {
    if (first >= tokens.size() || tokens[first].kind != TokenKind::Word)
        ThrowStatementError(QStringLiteral("Incorrect syntax near the keyword 'DECLARE'."),
                            ado::kNativeSyntax);
    VariableType type;
    type.name = tokens[first].text.toUpper();
    if (type.name == u"TEXT" || type.name == u"NTEXT" || type.name == u"IMAGE")
        ThrowStatementError(
            QStringLiteral(
                "The text, ntext, and image data types are invalid for local variables."),
            2739);
    const auto word = std::find_if(std::begin(kTypeWords), std::end(kTypeWords),
                                   [&](const TypeWord& w) { return type.name == w.name; });
    if (word == std::end(kTypeWords))
        ThrowUnsupported(QStringLiteral("DECLARE @variable ") + tokens[first].text);
    type.kind = word->kind;
    const std::vector<int> arguments = TypeArguments(tokens, first + 1, end);
    switch (type.kind) {
    case VariableKind::Decimal:
        type.precision = type.name.endsWith(u"MONEY") ? (type.name == u"MONEY" ? 19 : 10)
                                                      : (arguments.empty() ? 18 : arguments[0]);
        type.scale = type.name.endsWith(u"MONEY") ? 4 : (arguments.size() > 1 ? arguments[1] : 0);
        break;
    case VariableKind::Text:
    case VariableKind::Binary:
        // Without a length a variable holds one character (or byte).
        type.length = arguments.empty() ? 1 : arguments[0];
        type.fixed = type.name == u"CHAR" || type.name == u"NCHAR" || type.name == u"BINARY";
        type.national = type.name.startsWith(u'N');
        break;
    case VariableKind::Date:
        type.precision = DateDigits(type.name, arguments);
        break;
    default:
        break;
    }
    return type;
}

QString VariableType::SqlType() const {
    switch (kind) {
    case VariableKind::Decimal:
        // MONEY keeps its name, so that arithmetic over the variable is MONEY's.
        return name == u"MONEY" ? name : QStringLiteral("DECIMAL(%1,%2)").arg(precision).arg(scale);
    case VariableKind::Float:
        return QStringLiteral("FLOAT");
    case VariableKind::Date:
        return DateTypeOf().Spelling();
    default:
        return name;
    }
}

ado::DateType VariableType::DateTypeOf() const {
    ado::DateType type = *ado::DateType::Named(name);
    if (type.kind == ado::DateTypeKind::Time || type.kind == ado::DateTypeKind::DateTime2)
        type.digits = precision;
    return type;
}

void TsqlVariables::Declare(const QString& name, const VariableType& type) {
    if (IsDeclared(name))
        ThrowStatementError(QStringLiteral("The variable name '%1' has already been declared. "
                                           "Variable names must be unique within a query batch "
                                           "or stored procedure.")
                                .arg(name),
                            134);
    m_variables.insert(name.toLower(), Variable{type, std::nullopt});
}

const TsqlVariables::Variable& TsqlVariables::Find(const QString& name) const {
    const auto found = m_variables.constFind(name.toLower());
    if (found == m_variables.constEnd())
        ThrowStatementError(QStringLiteral("Must declare the scalar variable \"%1\".").arg(name),
                            137);
    return *found;
}

const VariableType& TsqlVariables::TypeOf(const QString& name) const {
    return Find(name).type;
}

std::optional<QString> TsqlVariables::ValueText(const QString& name) const {
    return Find(name).value;
}

void TsqlVariables::Assign(const QString& name, const Variant& value) {
    Find(name);
    Variable& variable = m_variables[name.toLower()];
    variable.value = value.IsNull() || value.IsEmpty()
                         ? std::nullopt
                         : std::optional<QString>(Converted(value, variable.type));
}

Tokens TsqlVariables::Substitute(const Tokens& statement, bool placeholders) const {
    Tokens out;
    out.reserve(statement.size());
    for (const Token& token : statement) {
        if (token.kind != TokenKind::Variable) {
            out.push_back(token);
            continue;
        }
        Tokens literal = Literal(Find(token.text), placeholders);
        literal.front().leading = token.leading;
        out.insert(out.end(), literal.begin(), literal.end());
    }
    return out;
}

// The literal of a variable's value in its type: an INT's number, a text, CAST(... AS BIGINT),
// CAST(... AS DECIMAL(p, s)), CAST('yyyymmdd hh:mm:ss[.mmm]' AS DATETIME), or NULL.
Tokens TsqlVariables::Literal(const Variable& variable, bool placeholder) const {
    const VariableType& type = variable.type;
    static const QString zero = QStringLiteral("0");
    const std::optional<QString> value =
        placeholder ? (type.kind == VariableKind::Date ? u"19000101 00:00:00"_qs : zero)
                    : variable.value;
    if (!value) return {Token{TokenKind::Word, QStringLiteral("NULL"), {}}};
    switch (type.kind) {
    case VariableKind::Text: {
        Token text{TokenKind::String, *value, {}};
        text.national = type.national;
        return {text};
    }
    case VariableKind::Date:
        return Tokenize(QStringLiteral("CAST('%1' AS %2)").arg(*value, type.SqlType()));
    case VariableKind::Decimal:
    case VariableKind::Float:
        return Tokenize(QStringLiteral("CAST(%1 AS %2)").arg(*value, type.SqlType()));
    case VariableKind::Integer:
        // A bare whole number is an INT to arithmetic: the other integer types say theirs.
        if (type.name != u"INT" && type.name != u"INTEGER")
            return Tokenize(QStringLiteral("CAST(%1 AS %2)").arg(*value, type.name));
        // A negative number goes in parentheses: "5 - -1" would start a comment.
        if (value->startsWith(u'-')) return Tokenize(u'(' + *value + u')');
        [[fallthrough]];
    default:
        return {Token{TokenKind::Number, *value, {}}};
    }
}

} // namespace zlx::tsql
