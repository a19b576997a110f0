#include "platform/workbook/CellConversion.h"

#include "platform/workbook/SerialDate.h"

namespace zlx::workbook {

namespace {

using Kind = CellValue::Kind;

CellValue ToNumber(const CellValue& value) {
    if (value.kind != Kind::Text) return CellValue::Number(value.number);
    bool ok = false;
    const double number = value.text.trimmed().toDouble(&ok);
    return ok ? CellValue::Number(number) : CellValue{};
}

CellValue ToDate(const CellValue& value) {
    if (value.kind == Kind::Number) return CellValue::Date(value.number);
    if (value.kind != Kind::Text) return CellValue{};
    const auto serial = SerialDate::FromIso(value.text);
    return serial ? CellValue::Date(*serial) : CellValue{};
}

CellValue ToBoolean(const CellValue& value) {
    if (value.kind == Kind::Number) return CellValue::Boolean(value.number != 0);
    if (value.kind != Kind::Text) return CellValue{};
    const QString text = value.text.trimmed();
    for (const char* word : {"TRUE", "VERDADERO", "1", "-1"})
        if (text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0)
            return CellValue::Boolean(true);
    for (const char* word : {"FALSE", "FALSO", "0"})
        if (text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0)
            return CellValue::Boolean(false);
    return CellValue{};
}

} // namespace

QString CellConversion::AsText(const CellValue& value) {
    switch (value.kind) {
    case Kind::Text:
        return value.text;
    case Kind::Number:
        return QString::number(value.number, 'g', 15);
    case Kind::Boolean:
        return value.number != 0 ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
    case Kind::Date:
        return SerialDate::ToIso(value.number);
    default:
        return {};
    }
}

CellValue CellConversion::To(Kind kind, const CellValue& value) {
    if (value.IsEmpty() || value.kind == kind) return value;
    switch (kind) {
    case Kind::Number:
        return ToNumber(value);
    case Kind::Date:
        return ToDate(value);
    case Kind::Boolean:
        return ToBoolean(value);
    case Kind::Text:
        return CellValue::Text(AsText(value));
    default:
        return CellValue{};
    }
}

} // namespace zlx::workbook
