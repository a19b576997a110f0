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

constexpr int kTicksPerMsec = 10000;

// The fraction of a second rounded half up to `digits` digits (seven keep it).
DateReading ToDigits(const DateReading& moment, int digits) {
    int step = 1;
    for (int k = digits; k < 7; ++k)
        step *= 10;
    const int msec = moment.value.time().msec();
    const int fraction = msec * kTicksPerMsec + moment.ticks;
    const int rounded = (fraction + step / 2) / step * step;
    return {moment.value.addMSecs(rounded / kTicksPerMsec - msec), 0, rounded % kTicksPerMsec};
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

DateReading FitToType(const DateReading& moment, DateType type) {
    const QDateTime& value = moment.value;
    switch (type.kind) {
    case DateTypeKind::Date:
        return {QDateTime(value.date(), QTime(0, 0), Qt::UTC), 0};
    case DateTypeKind::Time: {
        const DateReading rounded = ToDigits(moment, type.digits);
        return {QDateTime(QDate(1900, 1, 1), rounded.value.time(), Qt::UTC), 0, rounded.ticks};
    }
    case DateTypeKind::SmallDateTime: {
        const QDateTime minute = ToMinute(value);
        if (minute < SmallDateTimeFirst() || minute >= SmallDateTimeEnd())
            return {{}, kNativeDateOutOfRange};
        return {minute, 0};
    }
    case DateTypeKind::DateTime2: {
        const DateReading rounded = ToDigits(moment, type.digits);
        if (rounded.value.date().year() > 9999) return {{}, kNativeDateOutOfRange};
        return rounded;
    }
    default:
        if (value.date().year() < 1753) return {{}, kNativeDateOutOfRange};
        return {RoundedToDatetime(value), 0};
    }
}

DateReading ReadAsType(const QString& text, DateOrder order, DateType type, MonthNames names) {
    const bool wide =
        type.kind != DateTypeKind::DateTime && type.kind != DateTypeKind::SmallDateTime;
    const DateReading reading =
        wide ? ReadWideDate(text, order, names) : ReadDate(text, order, names);
    // An impossible date is no date for these types (241), where DATETIME says out of range.
    if (reading.error) return {{}, wide ? kNativeDateConversion : reading.error};
    return FitToType(reading, type);
}

QString StoredDateText(const DateReading& moment, DateType type) {
    const QDateTime& value = moment.value;
    const QString text = type.kind != DateTypeKind::Time ? IsoDateText(value)
                         : value.time().msec()           ? value.toString(u"HH:mm:ss.zzz")
                                                         : value.toString(u"HH:mm:ss");
    if (moment.ticks == 0) return text;
    // A time of no whole millisecond was written without its fraction.
    const QString milliseconds = value.time().msec() ? QString() : QStringLiteral(".000");
    return text + milliseconds + QStringLiteral("%1").arg(moment.ticks, 4, 10, QChar(u'0'));
}

QString OutOfRangeText(const QString& from, DateType type) {
    return QStringLiteral("The conversion of a %1 data type to a %2 data type resulted in an "
                          "out-of-range value.")
        .arg(from, type.Name());
}

} // namespace zlx::ado
