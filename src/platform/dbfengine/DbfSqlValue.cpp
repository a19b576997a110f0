#include "platform/dbfengine/DbfSqlValue.h"

#include "platform/dbfengine/FolderTable.h"

#include <QRegularExpression>
#include <sqlite3.h>

namespace zlx::dbfengine {

namespace {

bool IsIntegerNumber(const DbfField& field) {
    return (field.type == 'N' || field.type == 'F') && field.decimals == 0 && field.length < 10;
}

QByteArray IsoText(Date date, bool withTime) {
    int year, month, day, hour, minute, second;
    SplitDate(date, year, month, day, hour, minute, second);
    QString text = QStringLiteral("%1-%2-%3")
                       .arg(year, 4, 10, QLatin1Char('0'))
                       .arg(month, 2, 10, QLatin1Char('0'))
                       .arg(day, 2, 10, QLatin1Char('0'));
    if (withTime)
        text += QStringLiteral(" %1:%2:%3")
                    .arg(hour, 2, 10, QLatin1Char('0'))
                    .arg(minute, 2, 10, QLatin1Char('0'))
                    .arg(second, 2, 10, QLatin1Char('0'));
    return text.toLatin1();
}

// Plain ASCII text goes to SQLite as it is, without its padding; other bytes through the
// table's code page.
bool AsciiResult(const char* bytes, std::size_t length, sqlite3_context* context) {
    while (length > 0 && (bytes[length - 1] == ' ' || bytes[length - 1] == '\0'))
        --length;
    for (std::size_t i = 0; i < length; ++i)
        if (static_cast<unsigned char>(bytes[i]) >= 0x80) return false;
    sqlite3_result_text(context, bytes, static_cast<int>(length), SQLITE_TRANSIENT);
    return true;
}

void TextResult(const QString& text, sqlite3_context* context) {
    qsizetype end = text.size();
    while (end > 0 && text[end - 1] == u' ')
        --end;
    const QByteArray utf8 = QStringView(text).left(end).toUtf8();
    sqlite3_result_text(context, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

void NumberResult(const Variant& value, sqlite3_context* context) {
    if (const auto* whole = value.Get<std::int32_t>()) {
        sqlite3_result_int(context, *whole);
    } else if (const auto* money = value.Get<Currency>(); money && money->scaled % 10000 == 0) {
        sqlite3_result_int64(context, money->scaled / 10000);
    } else {
        sqlite3_result_double(context, value.ToDouble());
    }
}

void VariantResult(const Variant& value, const DbfField& field, sqlite3_context* context) {
    if (value.IsNull() || value.IsEmpty()) {
        sqlite3_result_null(context);
    } else if (value.VarType() == vbDate) {
        const QByteArray text = IsoText(value.ToDate(), field.type == 'T');
        sqlite3_result_text(context, text.constData(), static_cast<int>(text.size()),
                            SQLITE_TRANSIENT);
    } else if (value.VarType() == vbBoolean) {
        sqlite3_result_int(context, value.ToBool() ? 1 : 0);
    } else if (value.IsArray()) {
        const VariantArrayPtr array = value.ToArray();
        const std::optional<QByteArray> bytes = array ? array->Bytes() : std::nullopt;
        if (bytes)
            sqlite3_result_blob(context, bytes->constData(), static_cast<int>(bytes->size()),
                                SQLITE_TRANSIENT);
        else
            sqlite3_result_null(context);
    } else if (value.IsNumber()) {
        NumberResult(value, context);
    } else {
        TextResult(value.ToString(), context);
    }
}

std::optional<Date> DateOfText(const QString& text) {
    static const QRegularExpression pattern(QStringLiteral(
        R"(^\s*(\d{4})-?(\d{2})-?(\d{2})(?:[ T](\d{1,2}):(\d{2})(?::(\d{2}))?)?\s*$)"));
    const auto match = pattern.match(text);
    if (!match.hasMatch()) return std::nullopt;
    return MakeDate(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt(),
                    match.captured(4).toInt(), match.captured(5).toInt(),
                    match.captured(6).toInt());
}

QString TextOf(sqlite3_value* value) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(value)),
                             sqlite3_value_bytes(value));
}

Variant NumberOf(sqlite3_value* value) {
    if (sqlite3_value_type(value) == SQLITE_INTEGER) {
        const sqlite3_int64 number = sqlite3_value_int64(value);
        if (number == static_cast<std::int32_t>(number)) return static_cast<std::int32_t>(number);
        return static_cast<double>(number);
    }
    return sqlite3_value_double(value);
}

Variant DateOf(sqlite3_value* value) {
    if (sqlite3_value_type(value) != SQLITE_TEXT) return Date{sqlite3_value_double(value)};
    const QString text = TextOf(value);
    if (text.trimmed().isEmpty()) return Variant::Null();
    if (const auto date = DateOfText(text)) return *date;
    return text; // refused by the field's writer
}

Variant LogicalOf(sqlite3_value* value) {
    if (sqlite3_value_type(value) != SQLITE_TEXT) return sqlite3_value_int64(value) != 0;
    const QString text = TextOf(value).trimmed().toUpper();
    return text == u"T" || text == u".T." || text == u"Y" || text == u"S" || text == u"1" ||
           text == u"TRUE";
}

} // namespace

QString DeclaredTypeOf(const DbfLayout& layout, const DbfField& field) {
    if (layout.IsMemo(field))
        return field.type == 'M' && !field.binary ? QStringLiteral("TEXT") : QStringLiteral("BLOB");
    switch (field.type) {
    case 'C':
        return QStringLiteral("VARCHAR(%1)").arg(field.length);
    case 'N':
    case 'F':
        if (IsIntegerNumber(field)) return QStringLiteral("INT");
        return QStringLiteral("NUMERIC(%1,%2)").arg(field.length).arg(field.decimals);
    case 'I':
        return QStringLiteral("INT");
    case 'Y':
        return QStringLiteral("MONEY");
    case 'B':
        return QStringLiteral("FLOAT");
    case 'D':
        return QStringLiteral("DATE");
    case 'T':
        return QStringLiteral("DATETIME");
    case 'L':
        return QStringLiteral("BIT");
    default:
        return QStringLiteral("VARCHAR(%1)").arg(field.length);
    }
}

std::vector<QString> ColumnNames(const DbfLayout& layout) {
    std::vector<QString> names;
    for (const DbfField& field : layout.fields)
        names.push_back(QString::fromLatin1(field.name).toLower());
    return names;
}

void ResultOf(const FolderTable& table, const DbfField& field, const char* record,
              sqlite3_context* context, QString& problem) {
    if (field.type == 'C' && field.nullBit < 0 &&
        AsciiResult(record + field.offset, field.length, context))
        return;
    VariantResult(table.Value(field, record, problem), field, context);
}

Variant VariantOf(sqlite3_value* value, const DbfField& field) {
    if (sqlite3_value_type(value) == SQLITE_NULL) return Variant::Null();
    switch (field.type) {
    case 'D':
    case 'T':
        return DateOf(value);
    case 'L':
        return LogicalOf(value);
    case 'N':
    case 'F':
    case 'I':
    case 'Y':
    case 'B':
        if (sqlite3_value_type(value) == SQLITE_TEXT) {
            bool number = false;
            const double parsed = TextOf(value).trimmed().toDouble(&number);
            return number ? Variant(parsed) : Variant(TextOf(value));
        }
        return NumberOf(value);
    default:
        if (sqlite3_value_type(value) == SQLITE_FLOAT)
            return QString::number(sqlite3_value_double(value), 'g', 15);
        return TextOf(value);
    }
}

} // namespace zlx::dbfengine
