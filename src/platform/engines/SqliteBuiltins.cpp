#include "platform/engines/SqliteBuiltins.h"

#include "platform/engines/SqliteArithmetic.h"
#include "platform/engines/SqliteFunctionTable.h"
#include "platform/engines/SqliteValues.h"

#include <QDate>
#include <QRegularExpression>
#include <QUuid>
#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

namespace zlx::ado::SqliteBuiltins {
namespace {

using SqliteValues::AnyNull;
using SqliteValues::IsNull;
using SqliteValues::ResultText;
using SqliteValues::Text;

constexpr char kInvalidFloat[] = "An invalid floating point operation occurred.";

// Code page 1252 from 0x80 to 0x9F; the five positions it leaves free keep their own code.
constexpr char16_t kCp1252High[32] = {
    0x20AC, 0x81,   0x201A, 0x192,  0x201E, 0x2026, 0x2020, 0x2021, 0x2C6,  0x2030, 0x160,
    0x2039, 0x152,  0x8D,   0x17D,  0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x2DC,  0x2122, 0x161,  0x203A, 0x153,  0x9D,   0x17E,  0x178};

// The decimal digits of a number argument rounded to `decimals`; empty for a text that is no
// number.
QString Rounded(sqlite3_value* value, int decimals) {
    return SqliteArithmetic::RoundedDecimal(SqliteArithmetic::NumberText(value), decimals);
}

// log(x) and log(x, base): x and the base must be positive, the base not 1.
void Log(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    const double x = sqlite3_value_double(values[0]);
    const double base = count == 2 ? sqlite3_value_double(values[1]) : std::exp(1.0);
    if (x <= 0 || base <= 0 || base == 1) return sqlite3_result_error(context, kInvalidFloat, -1);
    sqlite3_result_double(context, std::log(x) / std::log(base));
}

// sqrt(x): x must not be negative (SQLite answers NULL).
void SquareRoot(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    const double x = sqlite3_value_double(values[0]);
    if (x < 0) return sqlite3_result_error(context, kInvalidFloat, -1);
    sqlite3_result_double(context, std::sqrt(x));
}

// power(x, y): a negative x to a fraction and 0 to a negative power have no real result (SQLite
// answers NULL and infinity).
void Power(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    const double x = sqlite3_value_double(values[0]);
    const double y = sqlite3_value_double(values[1]);
    if ((x < 0 && y != std::trunc(y)) || (x == 0 && y < 0))
        return sqlite3_result_error(context, kInvalidFloat, -1);
    sqlite3_result_double(context, std::pow(x, y));
}

// The digit SOUNDEX gives an English letter (upper case): 0 for a vowel or Y, -1 for H and W,
// which leave the letters around them neighbours.
int SoundexDigit(char16_t letter) {
    static constexpr char kDigits[] = "01230120022455012623010202";
    if (letter == u'H' || letter == u'W') return -1;
    return kDigits[letter - u'A'] - '0';
}

// SQL Server's SOUNDEX: the first letter in capitals and the digits of the consonants after it
// up to the first character that is no letter, neighbours of one digit (H or W between them
// too) written once, padded with zeros to four characters. None for a text that does not start
// with an English letter or holds a character past ASCII before its code is whole.
std::optional<QString> SoundexCode(const QString& text) {
    const auto upper = [&text](qsizetype i) -> char16_t {
        const char16_t c = text[i].unicode();
        return c >= u'a' && c <= u'z' ? c - (u'a' - u'A') : c;
    };
    const auto english = [](char16_t c) { return c >= u'A' && c <= u'Z'; };
    if (text.isEmpty() || !english(upper(0))) return std::nullopt;
    QString code(QChar(upper(0)));
    int last = SoundexDigit(upper(0));
    for (qsizetype i = 1; i < text.size() && code.size() < 4; ++i) {
        const char16_t letter = upper(i);
        if (letter >= 0x80) return std::nullopt;
        if (!english(letter)) break;
        const int digit = SoundexDigit(letter);
        if (digit < 0) continue;
        if (digit > 0 && digit != last) code += QChar(u'0' + digit);
        last = digit;
    }
    return code.leftJustified(4, u'0');
}

// The code, or the refusal of a text SQL Server's SOUNDEX is not known to code alike.
bool ResultSoundex(sqlite3_context* context, sqlite3_value* value, QString& code) {
    const std::optional<QString> found = SoundexCode(Text(value));
    if (!found) {
        sqlite3_result_error(
            context,
            "Construcción T-SQL no soportada: SOUNDEX de un texto que no es de letras ASCII", -1);
        return false;
    }
    code = *found;
    return true;
}

// zlx_soundex(text)
void Soundex(sqlite3_context* context, int count, sqlite3_value** values) {
    QString code;
    if (AnyNull(context, count, values) || !ResultSoundex(context, values[0], code)) return;
    ResultText(context, code);
}

// zlx_difference(a, b): 4 for the same SOUNDEX codes; otherwise 1 for the same first character
// and 1 for each digit of b's code found in a's, each search going on from the last one found.
void Difference(sqlite3_context* context, int count, sqlite3_value** values) {
    QString a, b;
    if (AnyNull(context, count, values) || !ResultSoundex(context, values[0], a) ||
        !ResultSoundex(context, values[1], b))
        return;
    if (a == b) return sqlite3_result_int(context, 4);
    int level = a.front() == b.front() ? 1 : 0;
    qsizetype from = 1;
    for (qsizetype i = 1; i < 4; ++i) {
        const qsizetype found = a.indexOf(b[i], from);
        if (found < 0) continue;
        ++level;
        from = found;
    }
    sqlite3_result_int(context, level);
}

// zlx_str(value, length, decimals): the value rounded to `decimals` places and right-aligned
// in `length` characters, with fewer places when they do not fit, stars when the whole part
// does not.
void Str(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    const int length = sqlite3_value_int(values[1]);
    const int decimals = std::min(sqlite3_value_int(values[2]), 16);
    if (length <= 0 || length > 8000 || decimals < 0) return sqlite3_result_null(context);
    if (Rounded(values[0], 0).isEmpty())
        return sqlite3_result_error(context, "Error converting data type varchar to float.", -1);
    for (int places = decimals; places >= 0; --places) {
        QString text = Rounded(values[0], places);
        if (text == u"-0") text = QStringLiteral("0");
        if (text.size() <= length) return ResultText(context, text.rightJustified(length));
    }
    ResultText(context, QString(length, u'*'));
}

// zlx_number(value, minDecimals, maxDecimals, minDigits, groupSeparator, decimalSeparator):
// the value rounded to maxDecimals places, trailing zeros dropped down to minDecimals, the
// whole part of at least minDigits digits (none for a zero when minDigits is 0), grouped by
// thousands when a group separator is given.
void Number(sqlite3_context* context, int count, sqlite3_value** values) {
    if (IsNull(values[0])) return sqlite3_result_null(context);
    if (AnyNull(context, count, values)) return;
    const int minDecimals = sqlite3_value_int(values[1]);
    const QString rounded = Rounded(values[0], sqlite3_value_int(values[2]));
    if (rounded.isEmpty())
        return sqlite3_result_error(context, "Error converting data type varchar to float.", -1);
    QString whole = rounded.section(u'.', 0, 0);
    QString fraction = rounded.section(u'.', 1);
    const bool negative = whole.startsWith(u'-');
    whole.remove(u'-');
    while (fraction.size() > minDecimals && fraction.endsWith(u'0'))
        fraction.chop(1);
    while (whole.startsWith(u'0'))
        whole.remove(0, 1);
    whole = whole.rightJustified(sqlite3_value_int(values[3]), u'0');
    const QString group = Text(values[4]);
    for (qsizetype at = whole.size() - 3; !group.isEmpty() && at > 0; at -= 3)
        whole.insert(at, group);
    const bool zero = !rounded.contains(QRegularExpression(QStringLiteral("[1-9]")));
    ResultText(context, (negative && !zero ? QStringLiteral("-") : QString()) + whole +
                            (fraction.isEmpty() ? QString() : Text(values[5]) + fraction));
}

void Replicate(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    const sqlite3_int64 times = sqlite3_value_int64(values[1]);
    if (times < 0) return sqlite3_result_null(context);
    ResultText(context, Text(values[0]).repeated(static_cast<qsizetype>(times)));
}

void Reverse(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    QString text = Text(values[0]);
    std::reverse(text.begin(), text.end());
    ResultText(context, text);
}

// stuff(text, start, length, insert): NULL for a start outside the text or a negative length;
// a NULL insert only deletes.
void Stuff(sqlite3_context* context, int, sqlite3_value** values) {
    if (AnyNull(context, 3, values)) return;
    const QString text = Text(values[0]);
    const sqlite3_int64 start = sqlite3_value_int64(values[1]);
    const sqlite3_int64 length = sqlite3_value_int64(values[2]);
    if (start < 1 || start > text.size() || length < 0) return sqlite3_result_null(context);
    ResultText(context, QString(text).replace(start - 1, length, Text(values[3])));
}

// The code page 1252 code of a character ('?' for one it lacks).
int Cp1252Code(char16_t character) {
    int code = character < 0x100 ? character : '?';
    for (int i = 0; i < 32; ++i)
        if (kCp1252High[i] == character) code = 0x80 + i;
    return code;
}

// ascii(text): the code page 1252 code of its first character.
void Ascii(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    const QString text = Text(values[0]);
    if (text.isEmpty()) return sqlite3_result_null(context);
    sqlite3_result_int(context, Cp1252Code(text[0].unicode()));
}

// zlx_text_bytes(text, national): the bytes SQL Server keeps of a text, a byte a character in
// code page 1252 or, national, two a character (UTF-16, the low byte first); a blob as it is.
void TextBytes(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    if (sqlite3_value_type(values[0]) == SQLITE_BLOB)
        return sqlite3_result_value(context, values[0]);
    const QString text = Text(values[0]);
    const bool national = sqlite3_value_int(values[1]) != 0;
    std::string bytes;
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        if (national) {
            bytes += static_cast<char>(unit & 0xFF);
            bytes += static_cast<char>(unit >> 8);
        } else {
            bytes += static_cast<char>(Cp1252Code(unit));
        }
    }
    sqlite3_result_blob(context, bytes.data(), static_cast<int>(bytes.size()), SQLITE_TRANSIENT);
}

// zlx_bytes_text(blob, national): the text SQL Server reads in a binary value, a character a
// byte in code page 1252 or, national, one every two bytes (UTF-16, the low byte first); a text
// as it is.
void BytesText(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    if (sqlite3_value_type(values[0]) != SQLITE_BLOB)
        return sqlite3_result_value(context, values[0]);
    const auto* bytes = static_cast<const unsigned char*>(sqlite3_value_blob(values[0]));
    const int size = sqlite3_value_bytes(values[0]);
    const bool national = sqlite3_value_int(values[1]) != 0;
    if (national && size % 2 != 0)
        return sqlite3_result_error(
            context, "Construcción T-SQL no soportada: un binario de longitud impar a NVARCHAR",
            -1);
    QString text;
    for (int i = 0; i < size; i += national ? 2 : 1) {
        const unsigned char byte = bytes[i];
        const char16_t unit = national ? static_cast<char16_t>(byte | bytes[i + 1] << 8)
                              : byte >= 0x80 && byte < 0xA0 ? kCp1252High[byte - 0x80]
                                                            : byte;
        // The library's texts end at a zero character.
        if (unit == 0)
            return sqlite3_result_error(
                context, "Construcción T-SQL no soportada: el carácter 0 en un texto", -1);
        text += QChar(unit);
    }
    ResultText(context, text);
}

// zlx_hex(blob): the bytes' hexadecimal digits in capitals; NULL for NULL (hex() answers '').
void Hex(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    const QByteArray bytes(static_cast<const char*>(sqlite3_value_blob(values[0])),
                           sqlite3_value_bytes(values[0]));
    ResultText(context, QString::fromLatin1(bytes.toHex().toUpper()));
}

// zlx_integer_bytes(integer, count): the integer's last `count` bytes, the highest first (two's
// complement), as SQL Server keeps an integer in a binary value.
void IntegerBytes(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    const auto value = static_cast<quint64>(sqlite3_value_int64(values[0]));
    const int size = std::clamp(sqlite3_value_int(values[1]), 0, 8);
    QByteArray bytes;
    for (int i = size - 1; i >= 0; --i)
        bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
    sqlite3_result_blob(context, bytes.constData(), static_cast<int>(bytes.size()),
                        SQLITE_TRANSIENT);
}

// char(code): the character of code page 1252; NULL outside 0-255.
void Char(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    const sqlite3_int64 code = sqlite3_value_int64(values[0]);
    if (code < 0 || code > 255) return sqlite3_result_null(context);
    const char16_t c =
        code >= 0x80 && code < 0xA0 ? kCp1252High[code - 0x80] : static_cast<char16_t>(code);
    ResultText(context, QString(QChar(c)));
}

void NationalChar(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    const sqlite3_int64 code = sqlite3_value_int64(values[0]);
    if (code < 0 || code > 0xFFFF || (code >= 0xD800 && code < 0xE000))
        return sqlite3_result_null(context);
    ResultText(context, QString(QChar(static_cast<char16_t>(code))));
}

// concat(...): NULLs as empty texts.
void Concat(sqlite3_context* context, int count, sqlite3_value** values) {
    QString text;
    for (int i = 0; i < count; ++i)
        text += Text(values[i]);
    ResultText(context, text);
}

// zlx_concat_ws(separator, value, ...): the values that are not NULL, the separator between them.
void ConcatWithSeparator(sqlite3_context* context, int count, sqlite3_value** values) {
    const QString separator = Text(values[0]);
    QStringList parts;
    for (int i = 1; i < count; ++i)
        if (!IsNull(values[i])) parts << Text(values[i]);
    ResultText(context, parts.join(separator));
}

// isnumeric(value): 1 for a number, and for a text that converts to some number type (an
// integer, a real with an exponent, money with a currency sign and thousands commas, or the
// bare sign, point or currency sign that money accepts); 0 otherwise and for NULL.
void IsNumeric(sqlite3_context* context, int, sqlite3_value** values) {
    static const QRegularExpression real(
        QStringLiteral(R"(^\s*[+-]?(\d+\.?\d*|\.\d+)([eEdD][+-]?\d+)?\s*$)"));
    static const QRegularExpression money(
        QStringLiteral(R"(^\s*([+-]\s*)?([$€£¥]\s*)?([+-]\s*)?[\d,]*(\.\d*)?\s*$)"));
    const int type = sqlite3_value_type(values[0]);
    if (type == SQLITE_INTEGER || type == SQLITE_FLOAT) return sqlite3_result_int(context, 1);
    const QString text = Text(values[0]);
    const bool numeric = type == SQLITE_TEXT && !text.trimmed().isEmpty() &&
                         (real.match(text).hasMatch() || money.match(text).hasMatch());
    sqlite3_result_int(context, numeric ? 1 : 0);
}

// quotename(name, quote): the name between the quote and its partner, the closing one
// doubled inside; NULL past 128 characters or for another quote character.
void QuoteName(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    const QString name = Text(values[0]);
    const QString quote = Text(values[1]);
    static const QString accepted = QStringLiteral("[]\"'()<>{}`");
    static const QString opening = QStringLiteral("[[\"'((<<{{`");
    static const QString closing = QStringLiteral("]]\"'))>>}}`");
    const qsizetype kind = quote.size() == 1 ? accepted.indexOf(quote) : -1;
    if (kind < 0 || name.size() > 128) return sqlite3_result_null(context);
    const QChar open = opening[kind];
    const QChar close = closing[kind];
    ResultText(context, open + QString(name).replace(close, QString(2, close)) + close);
}

void NewId(sqlite3_context* context, int, sqlite3_value**) {
    ResultText(context, QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper());
}

void DateFromParts(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    const QDate date(sqlite3_value_int(values[0]), sqlite3_value_int(values[1]),
                     sqlite3_value_int(values[2]));
    if (!date.isValid() || date.year() < 1)
        return sqlite3_result_error(context,
                                    "Cannot construct data type date, some of the arguments have "
                                    "values which are not valid.",
                                    -1);
    ResultText(context, date.toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral(" 00:00:00"));
}

// zlx_zeropad(n, width): the integer n with zeros before it up to `width` digits.
void ZeroPad(sqlite3_context* context, int count, sqlite3_value** values) {
    if (AnyNull(context, count, values)) return;
    ResultText(context, QString::number(sqlite3_value_int64(values[0]))
                            .rightJustified(sqlite3_value_int(values[1]), u'0'));
}

// The running count, mean and sum of squared differences of an aggregate (Welford's).
struct Spread {
    sqlite3_int64 count;
    double mean;
    double squares;
};

void SpreadStep(sqlite3_context* context, int, sqlite3_value** values) {
    if (IsNull(values[0])) return;
    auto* spread = static_cast<Spread*>(sqlite3_aggregate_context(context, sizeof(Spread)));
    if (!spread) return sqlite3_result_error_nomem(context);
    const double x = sqlite3_value_double(values[0]);
    ++spread->count;
    const double delta = x - spread->mean;
    spread->mean += delta / static_cast<double>(spread->count);
    spread->squares += delta * (x - spread->mean);
}

// The variance of the values, of a sample (`sample`) or of the whole population; its square
// root for a standard deviation. NULL without values, and for a sample of one.
template <bool sample, bool root> void SpreadFinal(sqlite3_context* context) {
    const auto* spread = static_cast<Spread*>(sqlite3_aggregate_context(context, 0));
    const sqlite3_int64 divisor = spread ? spread->count - (sample ? 1 : 0) : 0;
    if (!spread || spread->count == 0 || divisor == 0) return sqlite3_result_null(context);
    const double variance = spread->squares / static_cast<double>(divisor);
    sqlite3_result_double(context, root ? std::sqrt(variance) : variance);
}

// zlx_recursion(level, limit): the level of a row a common table expression adds to itself,
// which must not lie past the statement's MAXRECURSION.
void Recursion(sqlite3_context* context, int, sqlite3_value** values) {
    const sqlite3_int64 level = sqlite3_value_int64(values[0]);
    const sqlite3_int64 limit = sqlite3_value_int64(values[1]);
    if (level <= limit) return sqlite3_result_int64(context, level);
    const std::string message = "The statement terminated. The maximum recursion " +
                                std::to_string(limit) +
                                " has been exhausted before statement completion.";
    sqlite3_result_error(context, message.c_str(), -1);
}

} // namespace

void Install(sqlite3* db) {
    const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    static constexpr SqliteScalarFunction functions[] = {
        {"zlx_recursion", 2, &Recursion},
        {"zlx_log", 1, &Log},
        {"zlx_log", 2, &Log},
        {"zlx_sqrt", 1, &SquareRoot},
        {"zlx_power", 2, &Power},
        {"zlx_soundex", 1, &Soundex},
        {"zlx_difference", 2, &Difference},
        {"zlx_str", 3, &Str},
        {"zlx_number", 6, &Number},
        {"zlx_replicate", 2, &Replicate},
        {"zlx_reverse", 1, &Reverse},
        {"zlx_stuff", 4, &Stuff},
        {"zlx_ascii", 1, &Ascii},
        {"zlx_text_bytes", 2, &TextBytes},
        {"zlx_bytes_text", 2, &BytesText},
        {"zlx_hex", 1, &Hex},
        {"zlx_integer_bytes", 2, &IntegerBytes},
        {"zlx_char", 1, &Char},
        {"zlx_nchar", 1, &NationalChar},
        {"zlx_concat", -1, &Concat},
        {"zlx_concat_ws", -1, &ConcatWithSeparator},
        {"zlx_isnumeric", 1, &IsNumeric},
        {"zlx_quotename", 2, &QuoteName},
        {"zlx_datefromparts", 3, &DateFromParts},
        {"zlx_zeropad", 2, &ZeroPad},
    };
    InstallDeterministic(db, functions);
    // Not deterministic: each call draws anew.
    sqlite3_create_function(db, "zlx_newid", 0, SQLITE_UTF8, nullptr, &NewId, nullptr, nullptr);
    const struct {
        const char* name;
        void (*final)(sqlite3_context*);
    } aggregates[] = {
        {"zlx_stdev", &SpreadFinal<true, true>},
        {"zlx_stdevp", &SpreadFinal<false, true>},
        {"zlx_var", &SpreadFinal<true, false>},
        {"zlx_varp", &SpreadFinal<false, false>},
    };
    for (const auto& a : aggregates)
        sqlite3_create_function(db, a.name, 1, flags, nullptr, nullptr, &SpreadStep, a.final);
}

} // namespace zlx::ado::SqliteBuiltins
