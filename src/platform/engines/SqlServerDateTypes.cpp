#include "platform/engines/SqlServerDateTypes.h"

#include "platform/engines/SqlServerErrors.h"

#include <QRegularExpression>

namespace zlx::ado {
namespace {

constexpr qint64 kMsecsPerMinute = 60000;
// SMALLDATETIME rounds up from 29.999 seconds.
constexpr qint64 kSmallDateTimeRoundUp = 29999;

const QDateTime& SmallDateTimeFirst() {
    static const QDateTime first(QDate(1900, 1, 1), QTime(0, 0), Qt::UTC);
    return first;
}

const QDateTime& SmallDateTimeEnd() {
    static const QDateTime end(QDate(2079, 6, 7), QTime(0, 0), Qt::UTC);
    return end;
}

QDateTime ToMinute(const QDateTime& value) {
    const qint64 intoMinute = value.time().msecsSinceStartOfDay() % kMsecsPerMinute;
    return value.addMSecs((intoMinute >= kSmallDateTimeRoundUp ? kMsecsPerMinute : 0) - intoMinute);
}

// Milliseconds rounded half up to `digits` digits (three or more keep them).
QDateTime ToDigits(const QDateTime& value, int digits) {
    if (digits >= 3) return value;
    qint64 step = 1;
    for (int k = digits; k < 3; ++k)
        step *= 10;
    const qint64 msec = value.time().msec();
    return value.addMSecs((msec + step / 2) / step * step - msec);
}

} // namespace

std::optional<DateType> DateType::Named(const QString& name) {
    static const QRegularExpression pattern(
        QStringLiteral(
            "^\\s*(DATETIME2|DATETIME|SMALLDATETIME|DATE|TIME)\\s*(?:\\(\\s*(\\d)\\s*\\))?\\s*$"),
        QRegularExpression::CaseInsensitiveOption);
    const auto match = pattern.match(name);
    if (!match.hasMatch()) return std::nullopt;
    const QString base = match.captured(1).toUpper();
    const bool sized = base == u"DATETIME2" || base == u"TIME";
    if (match.hasCaptured(2) && !sized) return std::nullopt;
    DateType type;
    type.kind = base == u"DATETIME2"       ? DateTypeKind::DateTime2
                : base == u"SMALLDATETIME" ? DateTypeKind::SmallDateTime
                : base == u"DATE"          ? DateTypeKind::Date
                : base == u"TIME"          ? DateTypeKind::Time
                                           : DateTypeKind::DateTime;
    type.digits = sized ? (match.hasCaptured(2) ? match.captured(2).toInt() : 7) : 3;
    return type;
}

QString DateType::Name() const {
    switch (kind) {
    case DateTypeKind::SmallDateTime:
        return QStringLiteral("smalldatetime");
    case DateTypeKind::Date:
        return QStringLiteral("date");
    case DateTypeKind::Time:
        return QStringLiteral("time");
    case DateTypeKind::DateTime2:
        return QStringLiteral("datetime2");
    default:
        return QStringLiteral("datetime");
    }
}

QString DateType::Spelling() const {
    const QString name = Name().toUpper();
    if (kind != DateTypeKind::Time && kind != DateTypeKind::DateTime2) return name;
    return QStringLiteral("%1(%2)").arg(name).arg(digits);
}

DateReading FitToType(const QDateTime& value, DateType type) {
    switch (type.kind) {
    case DateTypeKind::Date:
        return {QDateTime(value.date(), QTime(0, 0), Qt::UTC), 0};
    case DateTypeKind::Time:
        return {QDateTime(QDate(1900, 1, 1), ToDigits(value, type.digits).time(), Qt::UTC), 0};
    case DateTypeKind::SmallDateTime: {
        const QDateTime minute = ToMinute(value);
        if (minute < SmallDateTimeFirst() || minute >= SmallDateTimeEnd())
            return {{}, kNativeDateOutOfRange};
        return {minute, 0};
    }
    case DateTypeKind::DateTime2: {
        const QDateTime rounded = ToDigits(value, type.digits);
        if (rounded.date().year() > 9999) return {{}, kNativeDateOutOfRange};
        return {rounded, 0};
    }
    default:
        if (value.date().year() < 1753) return {{}, kNativeDateOutOfRange};
        return {RoundedToDatetime(value), 0};
    }
}

DateReading ReadAsType(const QString& text, DateOrder order, DateType type) {
    const bool wide =
        type.kind != DateTypeKind::DateTime && type.kind != DateTypeKind::SmallDateTime;
    const DateReading reading = wide ? ReadWideDate(text, order) : ReadDate(text, order);
    // An impossible date is no date for these types (241), where DATETIME says out of range.
    if (reading.error) return {{}, wide ? kNativeDateConversion : reading.error};
    return FitToType(reading.value, type);
}

QString StoredDateText(const QDateTime& value, DateType type) {
    if (type.kind != DateTypeKind::Time) return IsoDateText(value);
    return value.toString(value.time().msec() ? QStringLiteral("HH:mm:ss.zzz")
                                              : QStringLiteral("HH:mm:ss"));
}

QString OutOfRangeText(const QString& from, DateType type) {
    return QStringLiteral("The conversion of a %1 data type to a %2 data type resulted in an "
                          "out-of-range value.")
        .arg(from, type.Name());
}

} // namespace zlx::ado
