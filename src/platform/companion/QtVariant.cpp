#include "platform/companion/QtVariant.h"

#include <QDateTime>

namespace zlx {

QVariant ToQVariant(const Variant& value) {
    switch (value.VarType()) {
    case vbEmpty:
    case vbNull:
        return {};
    case vbBoolean:
        return value.ToBool();
    case vbInteger:
    case vbLong:
    case vbByte:
        return value.ToLong();
    case vbSingle:
    case vbDouble:
    case vbCurrency:
    case vbDecimal:
        return value.ToDouble();
    case vbDate: {
        int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
        SplitDate(value.ToDate(), year, month, day, hour, minute, second);
        const QDate date(year, month, day);
        if (hour == 0 && minute == 0 && second == 0) return date;
        return QDateTime(date, QTime(hour, minute, second));
    }
    default:
        return value.ToString();
    }
}

Variant FromQVariant(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return {};
    case QMetaType::Bool:
        return Variant(value.toBool());
    case QMetaType::Int:
    case QMetaType::Short:
    case QMetaType::UInt:
        return Variant(static_cast<std::int32_t>(value.toInt()));
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::LongLong:
        return Variant(value.toDouble());
    case QMetaType::QDate: {
        const QDate d = value.toDate();
        return Variant(MakeDate(d.year(), d.month(), d.day()));
    }
    case QMetaType::QDateTime: {
        const QDateTime t = value.toDateTime();
        return Variant(MakeDate(t.date().year(), t.date().month(), t.date().day(), t.time().hour(),
                                t.time().minute(), t.time().second()));
    }
    default:
        return Variant(value.toString());
    }
}

} // namespace zlx
