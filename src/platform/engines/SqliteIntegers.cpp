#include "platform/engines/SqliteIntegers.h"

#include "platform/engines/SqliteValues.h"

#include <QByteArray>
#include <QRegularExpression>
#include <QString>
#include <algorithm>
#include <cmath>
#include <limits>
#include <sqlite3.h>

namespace zlx::ado::SqliteIntegers {
namespace {

struct IntegerType {
    const char* name;
    qint64 low;
    qint64 high;
    int bytes;
    const char* columnName; // as the text overflow error names the column's type
};

constexpr IntegerType kTypes[] = {
    {"tinyint", 0, 255, 1, "INT1"},
    {"smallint", -32768, 32767, 2, "INT2"},
    {"int", std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max(), 4, "int"},
    {"bigint", std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max(), 8, "bigint"},
};

const IntegerType& TypeNamed(sqlite3_value* name) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(name));
    for (const IntegerType& type : kTypes)
        if (text && qstrcmp(text, type.name) == 0) return type;
    return kTypes[2];
}

void Fail(sqlite3_context* context, const QString& message) {
    SqliteValues::FailConversion(context, message.toUtf8().constData());
}

void FailExpression(sqlite3_context* context, const IntegerType& type) {
    Fail(context, QStringLiteral("Arithmetic overflow error converting expression to data type "
                                 "%1.")
                      .arg(QLatin1StringView(type.name)));
}

// A number converted to a narrower type: SQL Server names the small types and the value.
void FailConversion(sqlite3_context* context, const IntegerType& type, const QString& value) {
    if (type.bytes > 2) return FailExpression(context, type);
    Fail(context, QStringLiteral("Arithmetic overflow error for data type %1, value = %2.")
                      .arg(QLatin1StringView(type.name), value));
}

void FailText(sqlite3_context* context, const IntegerType& type, const QString& text) {
    if (type.bytes == 8) return FailExpression(context, type);
    const QString overflowed =
        QStringLiteral("The conversion of the varchar value '%1' overflowed an %2 column.")
            .arg(text, QLatin1StringView(type.columnName));
    Fail(context, type.bytes == 4 ? overflowed
                                  : overflowed + QStringLiteral(" Use a larger integer column."));
}

bool InRange(const IntegerType& type, qint64 value) {
    return value >= type.low && value <= type.high;
}

// 2^63 itself is past bigint's range, though the largest bigint reads as it as a real.
bool FitsReal(const IntegerType& type, double number) {
    if (type.bytes == 8) return number >= -std::ldexp(1.0, 63) && number < std::ldexp(1.0, 63);
    return number >= static_cast<double>(type.low) && number <= static_cast<double>(type.high);
}

void ResultInRange(sqlite3_context* context, const IntegerType& type, qint64 value) {
    if (InRange(type, value))
        sqlite3_result_int64(context, value);
    else
        FailConversion(context, type, QString::number(value));
}

// A text as SQL Server reads it into an integer type: blanks around a whole number.
void FromText(sqlite3_context* context, const IntegerType& type, sqlite3_value* value) {
    static const QRegularExpression whole(QStringLiteral(R"(^\s*([+-]?\d+)\s*$)"));
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(value)),
                                           sqlite3_value_bytes(value));
    if (text.trimmed().isEmpty()) return sqlite3_result_int64(context, 0);
    const auto match = whole.match(text);
    if (!match.hasMatch())
        return Fail(context, QStringLiteral("Conversion failed when converting the varchar value "
                                            "'%1' to data type %2.")
                                 .arg(text, QLatin1StringView(type.name)));
    bool fits = false;
    const qint64 number = match.captured(1).toLongLong(&fits);
    if (!fits || !InRange(type, number)) return FailText(context, type, text);
    sqlite3_result_int64(context, number);
}

// Binary data read as an integer: its last bytes, big-endian, as many as the type holds.
void FromBlob(sqlite3_context* context, const IntegerType& type, sqlite3_value* value) {
    const auto* bytes = static_cast<const unsigned char*>(sqlite3_value_blob(value));
    const int size = sqlite3_value_bytes(value);
    quint64 number = 0;
    for (int i = std::max(0, size - type.bytes); i < size; ++i)
        number = (number << 8) | bytes[i];
    const int bits = 8 * type.bytes;
    if (type.low < 0 && bits < 64 && (number >> (bits - 1)) != 0) number -= quint64{1} << bits;
    sqlite3_result_int64(context, static_cast<qint64>(number));
}

void Cast(sqlite3_context* context, int, sqlite3_value** values) {
    sqlite3_value* value = values[0];
    const IntegerType& type = TypeNamed(values[1]);
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
        return sqlite3_result_null(context);
    case SQLITE_INTEGER:
        return ResultInRange(context, type, sqlite3_value_int64(value));
    case SQLITE_FLOAT: {
        const double whole = std::trunc(sqlite3_value_double(value));
        if (!FitsReal(type, whole))
            return FailConversion(context, type, QString::number(whole, 'f', 0));
        return sqlite3_result_int64(context, static_cast<qint64>(whole));
    }
    case SQLITE_BLOB:
        return FromBlob(context, type, value);
    default:
        return FromText(context, type, value);
    }
}

// SQLite goes over to floating point when a 64-bit result overflows: a real is out of range.
void Result(sqlite3_context* context, int, sqlite3_value** values) {
    sqlite3_value* value = values[0];
    const IntegerType& type = TypeNamed(values[1]);
    if (sqlite3_value_type(value) == SQLITE_INTEGER && !InRange(type, sqlite3_value_int64(value)))
        return FailExpression(context, type);
    if (sqlite3_value_type(value) == SQLITE_FLOAT && !FitsReal(type, sqlite3_value_double(value)))
        return FailExpression(context, type);
    sqlite3_result_value(context, value);
}

// What a BIT column stores: 1 for any number but 0, the words TRUE and FALSE in any case.
void Bit(sqlite3_context* context, int, sqlite3_value** values) {
    sqlite3_value* value = values[0];
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
        return sqlite3_result_null(context);
    case SQLITE_INTEGER:
        return sqlite3_result_int(context, sqlite3_value_int64(value) != 0 ? 1 : 0);
    case SQLITE_FLOAT:
        return sqlite3_result_int(context, sqlite3_value_double(value) != 0 ? 1 : 0);
    case SQLITE_BLOB: {
        const auto* bytes = static_cast<const unsigned char*>(sqlite3_value_blob(value));
        const int size = sqlite3_value_bytes(value);
        return sqlite3_result_int(
            context, std::any_of(bytes, bytes + size, [](unsigned char b) { return b != 0; }));
    }
    default:
        break;
    }
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(value)),
                                           sqlite3_value_bytes(value));
    const QString word = text.trimmed();
    if (word.compare(u"TRUE", Qt::CaseInsensitive) == 0) return sqlite3_result_int(context, 1);
    if (word.compare(u"FALSE", Qt::CaseInsensitive) == 0) return sqlite3_result_int(context, 0);
    bool number = false;
    const double read = word.toDouble(&number);
    if (!number)
        return Fail(context, QStringLiteral("Conversion failed when converting the varchar value "
                                            "'%1' to data type bit.")
                                 .arg(text));
    sqlite3_result_int(context, read != 0 ? 1 : 0);
}

} // namespace

void Install(sqlite3* db) {
    const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    sqlite3_create_function(db, "zlx_integer", 2, flags, nullptr, &Cast, nullptr, nullptr);
    sqlite3_create_function(db, "zlx_try_integer", 2, flags,
                            const_cast<char*>(SqliteValues::kTryConversion), &Cast, nullptr,
                            nullptr);
    sqlite3_create_function(db, "zlx_integer_result", 2, flags, nullptr, &Result, nullptr, nullptr);
    sqlite3_create_function(db, "zlx_bit", 1, flags, nullptr, &Bit, nullptr, nullptr);
}

} // namespace zlx::ado::SqliteIntegers
