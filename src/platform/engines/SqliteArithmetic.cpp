#include "platform/engines/SqliteArithmetic.h"

#include "platform/engines/SqliteValues.h"

#include <QRegularExpression>
#include <QString>
#include <cmath>
#include <sqlite3.h>

namespace zlx::ado::SqliteArithmetic {

using SqliteValues::FailConversion;

// The digits of a plain decimal text ("-12.345") rounded half away from zero to `scale`
// places; empty when the text is no such number.
QString RoundedDecimal(const QString& text, int scale) {
    static const QRegularExpression number(QStringLiteral(R"(^([+-]?)(\d*)(?:\.(\d*))?$)"));
    const auto match = number.match(text.trimmed());
    if (!match.hasMatch() || (match.captured(2).isEmpty() && match.captured(3).isEmpty()))
        return {};
    const QString fraction = match.captured(3);
    QString digits = match.captured(2) + fraction.left(scale).leftJustified(scale, u'0');
    if (fraction.size() > scale && fraction[scale] >= u'5') {
        qsizetype i = digits.size() - 1;
        for (; i >= 0 && digits[i] == u'9'; --i)
            digits[i] = u'0';
        if (i >= 0)
            digits[i] = QChar(digits[i].unicode() + 1);
        else
            digits.prepend(u'1');
    }
    const QString whole = digits.left(digits.size() - scale);
    const QString sign = match.captured(1) == u"-" ? QStringLiteral("-") : QString();
    return sign + (whole.isEmpty() ? QStringLiteral("0") : whole) +
           (scale > 0 ? u'.' + digits.right(scale) : QString());
}

// A number as text: a real's 15 significant digits, written without an exponent.
QString NumberText(sqlite3_value* value) {
    if (sqlite3_value_type(value) == SQLITE_INTEGER)
        return QString::number(sqlite3_value_int64(value));
    if (sqlite3_value_type(value) == SQLITE_FLOAT) {
        const QString text = QString::number(sqlite3_value_double(value), 'g', 15);
        return text.contains(u'e') ? QString::number(sqlite3_value_double(value), 'f', 15) : text;
    }
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(value)));
}

namespace {

void Divisor(sqlite3_context* context, int, sqlite3_value** values) {
    sqlite3_value* value = values[0];
    const int type = sqlite3_value_numeric_type(value);
    const bool zero = (type == SQLITE_INTEGER && sqlite3_value_int64(value) == 0) ||
                      (type == SQLITE_FLOAT && sqlite3_value_double(value) == 0.0);
    if (zero)
        sqlite3_result_error(context, "Divide by zero error encountered.", -1);
    else
        sqlite3_result_value(context, value);
}

void Decimal(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL) return sqlite3_result_null(context);
    const int precision = sqlite3_value_int(values[1]);
    const int scale = sqlite3_value_int(values[2]);
    const QString rounded = RoundedDecimal(NumberText(values[0]), scale);
    if (rounded.isEmpty())
        return FailConversion(context, "Error converting data type varchar to numeric.");
    QString whole = rounded.section(u'.', 0, 0);
    whole.remove(u'-');
    while (whole.size() > 1 && whole.startsWith(u'0'))
        whole.remove(0, 1);
    if (whole != u"0" && whole.size() > precision - scale)
        return FailConversion(context,
                              "Arithmetic overflow error converting numeric to data type numeric.");
    if (scale > 0 || whole.size() > 18)
        sqlite3_result_double(context, rounded.toDouble());
    else
        sqlite3_result_int64(context, rounded.toLongLong());
}

// A number in ten-thousandths, as MONEY holds it (rounded to four places); false when it is no
// number.
bool TenThousandths(sqlite3_value* value, qint64& units) {
    const QString rounded = RoundedDecimal(NumberText(value), 4);
    bool ok = false;
    units = QString(rounded).remove(u'.').toLongLong(&ok);
    return ok;
}

// MONEY divided: the quotient of the two values in ten-thousandths, the places after the fourth
// dropped (SQL Server truncates a MONEY quotient where it rounds a product).
void MoneyQuotient(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL ||
        sqlite3_value_type(values[1]) == SQLITE_NULL)
        return sqlite3_result_null(context);
    qint64 dividend = 0, divisor = 0;
    if (!TenThousandths(values[0], dividend) || !TenThousandths(values[1], divisor))
        return sqlite3_result_error(context, "Error converting data type varchar to money.", -1);
    if (divisor == 0) return sqlite3_result_error(context, "Divide by zero error encountered.", -1);
    const auto quotient = static_cast<qint64>(static_cast<__int128>(dividend) * 10000 / divisor);
    if (quotient % 10000 == 0) return sqlite3_result_int64(context, quotient / 10000);
    sqlite3_result_double(context, static_cast<double>(quotient) / 10000.0);
}

// zlx_remainder(a, b, places): a % b of decimals of `places` places, computed on their scaled
// integers, the sign the dividend's (on reals 0.3 % 0.1 would be 0.1, not 0.0).
void Remainder(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL ||
        sqlite3_value_type(values[1]) == SQLITE_NULL)
        return sqlite3_result_null(context);
    const double unit = std::pow(10.0, sqlite3_value_int(values[2]));
    const double dividend = sqlite3_value_double(values[0]) * unit;
    const double divisor = sqlite3_value_double(values[1]) * unit;
    if (std::llround(divisor) == 0 && std::fabs(divisor) < 1)
        return sqlite3_result_error(context, "Divide by zero error encountered.", -1);
    if (std::fabs(dividend) >= 9e18 || std::fabs(divisor) >= 9e18)
        return sqlite3_result_double(context, std::fmod(dividend, divisor) / unit);
    const sqlite3_int64 rest = std::llround(dividend) % std::llround(divisor);
    sqlite3_result_double(context, static_cast<double>(rest) / unit);
}

// CAST(x AS FLOAT): a text is a number between blanks, with a fraction and an exponent or not,
// and a blank text 0 (SQLite reads any text, "doce" as 0).
void Real(sqlite3_context* context, int, sqlite3_value** values) {
    static const QRegularExpression number(
        QStringLiteral(R"(^\s*[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?\s*$)"));
    sqlite3_value* value = values[0];
    if (sqlite3_value_type(value) == SQLITE_NULL) return sqlite3_result_null(context);
    if (sqlite3_value_type(value) != SQLITE_TEXT)
        return sqlite3_result_double(context, sqlite3_value_double(value));
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(value)),
                                           sqlite3_value_bytes(value));
    if (text.trimmed().isEmpty()) return sqlite3_result_double(context, 0);
    if (!number.match(text).hasMatch())
        return FailConversion(context, "Error converting data type varchar to float.");
    sqlite3_result_double(context, text.trimmed().toDouble());
}

// A plain decimal text ("-12.345") cut after `places` fraction digits.
QString TruncatedDecimal(const QString& text, int places) {
    const qsizetype point = text.indexOf(u'.');
    if (point < 0) return text;
    return places == 0 ? text.left(point) : text.left(point + 1 + places);
}

// An integer rounded (or cut, `truncate`) to a multiple of 10^-places.
sqlite3_int64 RoundedInteger(sqlite3_int64 value, int places, bool truncate) {
    if (places >= 0) return value;
    if (places < -18) return 0;
    sqlite3_int64 unit = 1;
    for (int i = 0; i < -places; ++i)
        unit *= 10;
    const sqlite3_int64 rest = value % unit;
    const bool away = !truncate && 2 * (rest < 0 ? -rest : rest) >= unit;
    return value - rest + (away ? (rest < 0 ? -unit : unit) : 0);
}

// ROUND(x, places [, function]) as SQL Server rounds: half away from zero, a negative count of
// places rounding to tens, hundreds...; a function other than 0 cuts instead of rounding; an
// integer stays an integer.
void Round(sqlite3_context* context, int count, sqlite3_value** values) {
    for (int i = 0; i < count; ++i)
        if (sqlite3_value_type(values[i]) == SQLITE_NULL) return sqlite3_result_null(context);
    const int places = sqlite3_value_int(values[1]);
    const bool truncate = count == 3 && sqlite3_value_int(values[2]) != 0;
    if (sqlite3_value_numeric_type(values[0]) == SQLITE_INTEGER)
        return sqlite3_result_int64(
            context, RoundedInteger(sqlite3_value_int64(values[0]), places, truncate));
    const double value = sqlite3_value_double(values[0]);
    if (places >= 0) {
        const QString text = NumberText(values[0]);
        return sqlite3_result_double(
            context,
            (truncate ? TruncatedDecimal(text, places) : RoundedDecimal(text, places)).toDouble());
    }
    const double unit = std::pow(10.0, -places);
    const double units = truncate
                             ? std::trunc(value / unit)
                             : RoundedDecimal(QString::number(value / unit, 'f', 15), 0).toDouble();
    sqlite3_result_double(context, units * unit);
}

} // namespace

void Install(sqlite3* db) {
    sqlite3_create_function(db, "zlx_divisor", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                            &Divisor, nullptr, nullptr);
    sqlite3_create_function(db, "zlx_decimal", 3, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                            &Decimal, nullptr, nullptr);
    sqlite3_create_function(db, "zlx_money_quotient", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                            nullptr, &MoneyQuotient, nullptr, nullptr);
    sqlite3_create_function(db, "zlx_remainder", 3, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                            &Remainder, nullptr, nullptr);
    sqlite3_create_function(db, "zlx_float", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, &Real,
                            nullptr, nullptr);
    // The conversions of TRY_CAST and TRY_CONVERT, which answer NULL where these fail.
    void* const tryConversion = const_cast<char*>(SqliteValues::kTryConversion);
    sqlite3_create_function(db, "zlx_try_decimal", 3, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                            tryConversion, &Decimal, nullptr, nullptr);
    sqlite3_create_function(db, "zlx_try_float", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                            tryConversion, &Real, nullptr, nullptr);
    for (const int arguments : {2, 3})
        sqlite3_create_function(db, "round", arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                                &Round, nullptr, nullptr);
}

} // namespace zlx::ado::SqliteArithmetic
