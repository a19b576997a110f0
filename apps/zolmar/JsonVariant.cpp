#include "JsonVariant.h"

#include <QDate>
#include <QJsonArray>
#include <QJsonObject>
#include <QLocale>
#include <QTime>
#include <algorithm>
#include <cctype>
#include <cmath>

namespace zlx {

namespace {

Variant DateFromText(const QString& text) {
    const QDate day = QDate::fromString(text.left(10), QStringLiteral("yyyy-MM-dd"));
    QTime time(0, 0, 0);
    if (text.size() > 10) {
        if (text[10] != u' ')
            time = QTime();
        else
            time = QTime::fromString(text.mid(11), QStringLiteral("HH:mm:ss"));
    }
    if (!day.isValid() || !time.isValid())
        throw JsonConversionError("invalid date \"" + text.toStdString() +
                                  "\" (expected YYYY-MM-DD HH:MM:SS)");
    return MakeDate(day.year(), day.month(), day.day(), time.hour(), time.minute(), time.second());
}

Variant BytesFromHex(const QString& text) {
    const QByteArray hex = text.toLatin1();
    const bool allHex = std::all_of(hex.begin(), hex.end(), [](char c) {
        return std::isxdigit(static_cast<unsigned char>(c));
    });
    if (hex.size() % 2 != 0 || !allHex)
        throw JsonConversionError("invalid hex \"" + text.toStdString() + "\"");
    const QByteArray bytes = QByteArray::fromHex(hex);
    Variant array = Variant::MakeArray({{0, static_cast<std::int32_t>(bytes.size())}});
    auto& data = array.ToArray()->Data();
    for (qsizetype i = 0; i < bytes.size(); ++i)
        data[i] = Variant(static_cast<std::uint8_t>(bytes[i]));
    return array;
}

Variant ObjectToVariant(const QJsonObject& object, const JsonObjectReader& readObject) {
    Variant read;
    if (readObject && readObject(object, read)) return read;
    if (object.size() == 1 && object.contains(QLatin1String("date")) &&
        object.value(QLatin1String("date")).isString())
        return DateFromText(object.value(QLatin1String("date")).toString());
    if (object.size() == 1 && object.contains(QLatin1String("hex")) &&
        object.value(QLatin1String("hex")).isString())
        return BytesFromHex(object.value(QLatin1String("hex")).toString());
    throw JsonConversionError(
        "unsupported JSON object (expected {\"date\": ...} or {\"hex\": ...})");
}

void AppendNumber(QByteArray& out, double value) {
    if (!std::isfinite(value)) {
        out += "null";
        return;
    }
    out += QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
}

void AppendDate(QByteArray& out, Date date) {
    int year, month, day, hour, minute, second;
    SplitDate(date, year, month, day, hour, minute, second);
    out += "{\"date\":\"";
    out += QByteArray::number(year).rightJustified(4, '0') + '-' +
           QByteArray::number(month).rightJustified(2, '0') + '-' +
           QByteArray::number(day).rightJustified(2, '0') + ' ' +
           QByteArray::number(hour).rightJustified(2, '0') + ':' +
           QByteArray::number(minute).rightJustified(2, '0') + ':' +
           QByteArray::number(second).rightJustified(2, '0');
    out += "\"}";
}

bool IsByteVector(const VariantArray& array) {
    return array.Rank() == 1 && array.Size() > 0 &&
           std::all_of(array.Data().begin(), array.Data().end(),
                       [](const Variant& v) { return v.VarType() == vbByte; });
}

// The elements of dimension `dimension` (0-based) and below, at the given leading indexes.
void AppendArrayLevel(QByteArray& out, const VariantArray& array, std::vector<std::int32_t>& at,
                      int dimension, const JsonObjectWriter& writeObject) {
    const VariantArray::Bound bound = array.Bounds()[dimension];
    out += '[';
    for (std::int32_t i = 0; i < bound.count; ++i) {
        if (i > 0) out += ',';
        at[dimension] = bound.lower + i;
        if (dimension + 1 == array.Rank())
            AppendJson(out, array.At(at), writeObject);
        else
            AppendArrayLevel(out, array, at, dimension + 1, writeObject);
    }
    out += ']';
}

void AppendArray(QByteArray& out, const VariantArray& array, const JsonObjectWriter& writeObject) {
    if (IsByteVector(array)) {
        QByteArray bytes;
        bytes.reserve(static_cast<qsizetype>(array.Size()));
        for (const Variant& v : array.Data())
            bytes += static_cast<char>(*v.Get<std::uint8_t>());
        out += "{\"hex\":\"" + bytes.toHex() + "\"}";
        return;
    }
    if (array.Rank() == 0) {
        out += "[]";
        return;
    }
    std::vector<std::int32_t> at(static_cast<std::size_t>(array.Rank()));
    AppendArrayLevel(out, array, at, 0, writeObject);
}

} // namespace

Variant JsonToVariant(const QJsonValue& value, const JsonObjectReader& readObject) {
    switch (value.type()) {
    case QJsonValue::Null:
        return Variant::Null();
    case QJsonValue::Bool:
        return Variant(value.toBool());
    case QJsonValue::Double:
        return Variant(value.toDouble());
    case QJsonValue::String:
        return Variant(value.toString());
    case QJsonValue::Array: {
        const QJsonArray items = value.toArray();
        std::vector<Variant> elements;
        elements.reserve(static_cast<std::size_t>(items.size()));
        for (const QJsonValue& item : items)
            elements.push_back(JsonToVariant(item, readObject));
        return Variant::Array(std::move(elements));
    }
    case QJsonValue::Object:
        return ObjectToVariant(value.toObject(), readObject);
    case QJsonValue::Undefined:
        break;
    }
    return Variant();
}

void AppendJsonString(QByteArray& out, const QString& text) {
    out += '"';
    for (const char c : text.toUtf8()) {
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20)
                out += "\\u00" + QByteArray::number(static_cast<int>(c), 16).rightJustified(2, '0');
            else
                out += c;
        }
    }
    out += '"';
}

void AppendJson(QByteArray& out, const Variant& value, const JsonObjectWriter& writeObject) {
    switch (value.VarType()) {
    case vbEmpty:
    case vbNull:
        out += "null";
        return;
    case vbBoolean:
        out += value.ToBool() ? "true" : "false";
        return;
    case vbByte:
    case vbInteger:
    case vbLong:
        out += QByteArray::number(value.ToLong());
        return;
    case vbSingle:
    case vbDouble:
        AppendNumber(out, value.ToDouble());
        return;
    case vbCurrency:
    case vbDecimal:
        out += value.ToInvariantString().toLatin1();
        return;
    case vbDate:
        AppendDate(out, *value.Get<Date>());
        return;
    case vbString:
        AppendJsonString(out, *value.Get<QString>());
        return;
    case vbError:
        out += "{\"vberror\":" + QByteArray::number(value.Get<ErrorValue>()->code) + '}';
        return;
    case vbObject:
        if (writeObject) {
            writeObject(out, value.ToObject());
            return;
        }
        out += "{\"object\":";
        AppendJsonString(out, value.TypeName());
        out += '}';
        return;
    default:
        break;
    }
    if (const VariantArrayPtr array = value.ToArray())
        AppendArray(out, *array, writeObject);
    else
        out += "null";
}

QByteArray VariantToJson(const Variant& value) {
    QByteArray out;
    AppendJson(out, value);
    return out;
}

} // namespace zlx
