#include "platform/engines/TextValue.h"

#include "platform/engines/IsoDate.h"

#include <QRegularExpression>

namespace zlx::ado {

namespace {

Variant Integer(const QString& text) {
    const qint64 value = text.toLongLong();
    if (value == static_cast<std::int32_t>(value)) return Variant(static_cast<std::int32_t>(value));
    return Variant::FromInt64(value);
}

Variant Money(const QString& text) {
    QString digits = text;
    digits.remove(QRegularExpression(QStringLiteral("[^0-9.-]")));
    return Variant(Currency::FromDecimal(Decimal::FromString(digits)));
}

} // namespace

Variant ValueFromText(const QString& text, DataTypeEnum type) {
    switch (type) {
    case adBoolean:
        return Variant(text == u't' || text == u'1' ||
                       text.compare(QStringLiteral("true"), Qt::CaseInsensitive) == 0);
    case adUnsignedTinyInt:
        return Variant(static_cast<std::uint8_t>(text.toUShort()));
    case adSmallInt:
        return Variant(static_cast<std::int16_t>(text.toShort()));
    case adInteger:
        return Integer(text);
    case adBigInt:
        return Variant::FromInt64(text.toLongLong());
    case adSingle:
        return Variant(text.toFloat());
    case adDouble:
        return Variant(text.toDouble());
    case adCurrency:
        return Money(text);
    case adNumeric: {
        bool ok = false;
        const Decimal value = Decimal::FromString(text, &ok);
        return ok ? Variant(value) : Variant(text.toDouble()); // NaN has no Decimal form
    }
    case adDBDate:
    case adDBTime:
    case adDBTimeStamp: {
        const auto date = ParseIsoDate(text);
        return date ? Variant(*date) : Variant(text);
    }
    case adGUID: // SQL Server spells a uniqueidentifier in capitals, PostgreSQL in small letters
        return Variant(text.toUpper());
    default:
        return Variant(text);
    }
}

} // namespace zlx::ado
