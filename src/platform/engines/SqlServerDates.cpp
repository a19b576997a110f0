#include "platform/engines/SqlServerDates.h"

#include "platform/engines/SqlServerErrors.h"

#include <QRegularExpression>
#include <QStringList>
#include <map>
#include <variant>

namespace zlx::ado {
namespace {

// The earliest year of a DATETIME.
constexpr int kFirstYear = 1753;
constexpr qint64 kMsecsPerDay = 86400000;
constexpr int kTicksPerMsec = 10000; // 100-nanosecond units

struct Fields {
    int year = 1900, month = 1, day = 1;
    int hour = 0, minute = 0, second = 0, msec = 0;
    int fraction = 0; // in 100-nanosecond units
    int fractionDigits = 0;
};

// Two-digit years below 50 are of this century, as SQL Server's default cut-off (2049) reads.
int FullYear(const QString& digits) {
    const int year = digits.toInt();
    if (digits.size() > 2) return year;
    return year < 50 ? 2000 + year : 1900 + year;
}

// The date fields of `text` (nullopt when it is not a date written in a known form).
std::optional<Fields> DateFields(const QString& text, DateOrder order) {
    static const QRegularExpression compact(QStringLiteral(R"(^(\d{4}|\d{2})(\d{2})(\d{2})$)"));
    static const QRegularExpression separated(
        QStringLiteral(R"(^(\d{1,4})([/.-])(\d{1,2})\2(\d{1,4})$)"));
    Fields fields;
    if (const auto match = compact.match(text); match.hasMatch()) {
        fields.year = FullYear(match.captured(1));
        fields.month = match.captured(2).toInt();
        fields.day = match.captured(3).toInt();
        return fields;
    }
    const auto match = separated.match(text);
    if (!match.hasMatch()) return std::nullopt;
    const QString first = match.captured(1), second = match.captured(3), third = match.captured(4);
    if (first.size() > 2) {
        // A year written first: the rest is day then month under DATEFORMAT dmy (ydm).
        fields.year = FullYear(first);
        const bool dayFirst = order == DateOrder::DayMonthYear;
        fields.day = (dayFirst ? second : third).toInt();
        fields.month = (dayFirst ? third : second).toInt();
        return fields;
    }
    switch (order) {
    case DateOrder::DayMonthYear:
        fields = {FullYear(third), second.toInt(), first.toInt()};
        break;
    case DateOrder::MonthDayYear:
        fields = {FullYear(third), first.toInt(), second.toInt()};
        break;
    case DateOrder::YearMonthDay:
        fields = {FullYear(first), second.toInt(), third.toInt()};
        break;
    }
    return fields;
}

// hh:mi[:ss[.fff]] [AM|PM] into `fields`; false when it is not a time.
bool ReadTime(const QString& text, Fields& fields) {
    static const QRegularExpression time(
        QStringLiteral(R"(^(\d{1,2}):(\d{1,2})(?::(\d{1,2})(?:[.:](\d{1,7}))?)?\s*(AM|PM)?$)"),
        QRegularExpression::CaseInsensitiveOption);
    const auto match = time.match(text);
    if (!match.hasMatch()) return false;
    fields.hour = match.captured(1).toInt();
    fields.minute = match.captured(2).toInt();
    fields.second = match.captured(3).toInt();
    // Milliseconds, rounded from a longer fraction (1000 carries into the second).
    fields.msec = qRound(match.captured(4).leftJustified(4, u'0').left(4).toInt() / 10.0);
    fields.fraction = match.captured(4).leftJustified(7, u'0').toInt();
    fields.fractionDigits = static_cast<int>(match.capturedLength(4));
    const QString half = match.captured(5).toUpper();
    if (!half.isEmpty() && fields.hour <= 12)
        fields.hour = fields.hour % 12 + (half == u"PM" ? 12 : 0);
    return true;
}

// A DATETIME takes three digits of a second's fraction at most and starts in 1753.
DateReading Reading(const Fields& fields) {
    const QDate date(fields.year, fields.month, fields.day);
    const QTime time(fields.hour, fields.minute, fields.second, fields.msec);
    if (!time.isValid() || fields.fractionDigits > 3) return {{}, kNativeDateConversion};
    if (!date.isValid() || fields.year < kFirstYear) return {{}, kNativeDateOutOfRange};
    return {RoundedToDatetime(QDateTime(date, time, Qt::UTC)), 0};
}

// The other date types take seven digits and start in year 1.
DateReading WideReading(const Fields& fields) {
    const QDate date(fields.year, fields.month, fields.day);
    const QTime time(fields.hour, fields.minute, fields.second);
    if (!time.isValid()) return {{}, kNativeDateConversion};
    if (!date.isValid() || fields.year < 1) return {{}, kNativeDateOutOfRange};
    return {QDateTime(date, time, Qt::UTC).addMSecs(fields.fraction / kTicksPerMsec), 0,
            fields.fraction % kTicksPerMsec};
}

// The weekday of `date` counted from SET DATEFIRST's day (1) on.
int Weekday(const QDate& date, int dateFirst) {
    return (date.dayOfWeek() - dateFirst + 7) % 7 + 1;
}

qint64 FloorDivide(qint64 value, qint64 divisor) {
    return value / divisor - ((value % divisor != 0) && ((value < 0) != (divisor < 0)) ? 1 : 0);
}

// The milliseconds of a unit of time, for DATEADD and DATEDIFF.
qint64 UnitMsecs(DateUnit unit) {
    switch (unit) {
    case DateUnit::Hour:
        return 3600000;
    case DateUnit::Minute:
        return 60000;
    case DateUnit::Second:
        return 1000;
    default:
        return 1;
    }
}

} // namespace

std::optional<DateUnit> DateUnitNamed(const QString& name) {
    static const std::map<QString, DateUnit> units = {
        {QStringLiteral("year"), DateUnit::Year},
        {QStringLiteral("yy"), DateUnit::Year},
        {QStringLiteral("yyyy"), DateUnit::Year},
        {QStringLiteral("quarter"), DateUnit::Quarter},
        {QStringLiteral("qq"), DateUnit::Quarter},
        {QStringLiteral("q"), DateUnit::Quarter},
        {QStringLiteral("month"), DateUnit::Month},
        {QStringLiteral("mm"), DateUnit::Month},
        {QStringLiteral("m"), DateUnit::Month},
        {QStringLiteral("dayofyear"), DateUnit::DayOfYear},
        {QStringLiteral("dy"), DateUnit::DayOfYear},
        {QStringLiteral("y"), DateUnit::DayOfYear},
        {QStringLiteral("day"), DateUnit::Day},
        {QStringLiteral("dd"), DateUnit::Day},
        {QStringLiteral("d"), DateUnit::Day},
        {QStringLiteral("week"), DateUnit::Week},
        {QStringLiteral("wk"), DateUnit::Week},
        {QStringLiteral("ww"), DateUnit::Week},
        {QStringLiteral("weekday"), DateUnit::Weekday},
        {QStringLiteral("dw"), DateUnit::Weekday},
        {QStringLiteral("w"), DateUnit::Weekday},
        {QStringLiteral("hour"), DateUnit::Hour},
        {QStringLiteral("hh"), DateUnit::Hour},
        {QStringLiteral("minute"), DateUnit::Minute},
        {QStringLiteral("mi"), DateUnit::Minute},
        {QStringLiteral("n"), DateUnit::Minute},
        {QStringLiteral("second"), DateUnit::Second},
        {QStringLiteral("ss"), DateUnit::Second},
        {QStringLiteral("s"), DateUnit::Second},
        {QStringLiteral("millisecond"), DateUnit::Millisecond},
        {QStringLiteral("ms"), DateUnit::Millisecond},
        {QStringLiteral("microsecond"), DateUnit::Microsecond},
        {QStringLiteral("mcs"), DateUnit::Microsecond},
        {QStringLiteral("nanosecond"), DateUnit::Nanosecond},
        {QStringLiteral("ns"), DateUnit::Nanosecond},
    };
    const auto found = units.find(name.toLower());
    if (found == units.end()) return std::nullopt;
    return found->second;
}

QString DateUnitName(DateUnit unit) {
    static const char* const names[] = {
        "year", "quarter", "month",  "dayofyear",   "day",         "week",      "weekday",
        "hour", "minute",  "second", "millisecond", "microsecond", "nanosecond"};
    return QString::fromLatin1(names[static_cast<int>(unit)]);
}

QString DateOrderName(DateOrder order) {
    switch (order) {
    case DateOrder::DayMonthYear:
        return QStringLiteral("dmy");
    case DateOrder::YearMonthDay:
        return QStringLiteral("ymd");
    default:
        return QStringLiteral("mdy");
    }
}

DateOrder DateOrderNamed(const QString& name) {
    if (name.compare(u"dmy", Qt::CaseInsensitive) == 0) return DateOrder::DayMonthYear;
    if (name.compare(u"ymd", Qt::CaseInsensitive) == 0) return DateOrder::YearMonthDay;
    return DateOrder::MonthDayYear;
}

namespace {

// The month (1-12) that `word` names in the language, full or short, in any case; 0: none.
int NamedMonth(const QString& word, MonthNames names) {
    if (names == MonthNames::None) return 0;
    const bool spanish = names == MonthNames::Spanish;
    for (int month = 1; month <= 12; ++month) {
        if (word.compare(MonthName(month, spanish), Qt::CaseInsensitive) == 0 ||
            word.compare(ShortMonthName(month, spanish), Qt::CaseInsensitive) == 0)
            return month;
    }
    return 0;
}

// A date written with its month's name, 'Mar 15 2024', 'Mar 15, 2024' or '15 Mar 2024' (a two-
// digit year too), then a time or not; nullopt when the text is not written so.
std::optional<std::variant<Fields, int>> NamedMonthFields(const QString& text, MonthNames names) {
    static const QRegularExpression named(QStringLiteral(
        R"(^(?:(\p{L}+)\s+(\d{1,2}),?|(\d{1,2})\s+(\p{L}+),?)\s+(\d{4}|\d{2})(?:\s+(.+))?$)"));
    const auto match = named.match(text.simplified());
    if (!match.hasMatch()) return std::nullopt;
    const bool monthFirst = match.capturedLength(1) > 0;
    Fields fields;
    fields.month = NamedMonth(match.captured(monthFirst ? 1 : 4), names);
    if (fields.month == 0) return std::nullopt;
    fields.day = match.captured(monthFirst ? 2 : 3).toInt();
    fields.year = FullYear(match.captured(5));
    if (match.capturedLength(6) > 0 && !ReadTime(match.captured(6), fields))
        return kNativeDateConversion;
    return fields;
}

// The fields of a text date read in `order`, or the error that reading it raises.
std::variant<Fields, int> ReadFields(const QString& input, DateOrder order, MonthNames names) {
    const QString text = input.trimmed();
    if (const auto named = NamedMonthFields(text, names)) return *named;
    static const QRegularExpression iso(QStringLiteral(
        R"(^(\d{4})-(\d{1,2})-(\d{1,2})T(\d{1,2}:\d{1,2}(?::\d{1,2}(?:\.\d{1,7})?)?)$)"));
    Fields fields;
    if (const auto match = iso.match(text); match.hasMatch()) {
        // ISO 8601 with its T reads year, month, day whatever DATEFORMAT says.
        fields.year = match.captured(1).toInt();
        fields.month = match.captured(2).toInt();
        fields.day = match.captured(3).toInt();
        ReadTime(match.captured(4), fields);
        return fields;
    }
    const qsizetype blank = text.indexOf(u' ');
    const QString datePart = blank < 0 ? text : text.left(blank);
    const QString timePart = blank < 0 ? QString() : text.mid(blank + 1).trimmed();
    if (ReadTime(text, fields)) return fields; // a time alone ('8:05 PM' too): 1900-01-01
    const auto date = DateFields(datePart, order);
    if (!date) return kNativeDateConversion;
    fields = *date;
    if (!timePart.isEmpty() && !ReadTime(timePart, fields)) return kNativeDateConversion;
    return fields;
}

} // namespace

DateReading ReadDate(const QString& input, DateOrder order, MonthNames names) {
    const auto fields = ReadFields(input, order, names);
    if (const int* error = std::get_if<int>(&fields)) return {{}, *error};
    return Reading(std::get<Fields>(fields));
}

DateReading ReadWideDate(const QString& input, DateOrder order, MonthNames names) {
    // A year written first is followed by the month: these types know no ydm order.
    static const QRegularExpression yearFirst(QStringLiteral(R"(^\s*\d{3,4}[/.-])"));
    const auto fields = ReadFields(
        input, yearFirst.match(input).hasMatch() ? DateOrder::YearMonthDay : order, names);
    if (const int* error = std::get_if<int>(&fields)) return {{}, *error};
    return WideReading(std::get<Fields>(fields));
}

std::optional<DateReading> ReadNamedMonthDate(const QString& text, MonthNames names) {
    const auto fields = NamedMonthFields(text.trimmed(), names);
    if (!fields) return std::nullopt;
    if (const int* error = std::get_if<int>(&*fields)) return DateReading{{}, *error};
    return Reading(std::get<Fields>(*fields));
}

std::optional<DateOrder> StyleOrder(int style) {
    switch (style % 100) {
    case 1:
    case 10:
        return DateOrder::MonthDayYear;
    case 3:
    case 4:
    case 5:
        return DateOrder::DayMonthYear;
    case 2:
    case 11:
    case 12:
    case 20:
    case 21:
    case 23:
    case 25:
        return DateOrder::YearMonthDay;
    default:
        return std::nullopt;
    }
}

QString DateErrorText(int error) {
    return error == kNativeDateOutOfRange
               ? QStringLiteral("The conversion of a varchar data type to a datetime data type "
                                "resulted in an out-of-range value.")
               : QStringLiteral(
                     "Conversion failed when converting date and/or time from character string.");
}

QDateTime RoundedToDatetime(const QDateTime& value) {
    const int msec = value.time().msec();
    const int ticks = (msec * 3 + 5) / 10; // 300 a second, half a tick rounding up
    return value.addMSecs((ticks * 10 + 1) / 3 - msec);
}

QString IsoDateText(const QDateTime& value) {
    const QTime time = value.time();
    return value.toString(time.msec() ? QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz")
                                      : QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

QString StyleFormat(int style) {
    static const std::map<int, const char*> formats = {
        {1, "MM/dd/yy"},
        {101, "MM/dd/yyyy"},
        {2, "yy.MM.dd"},
        {102, "yyyy.MM.dd"},
        {3, "dd/MM/yy"},
        {103, "dd/MM/yyyy"},
        {4, "dd.MM.yy"},
        {104, "dd.MM.yyyy"},
        {5, "dd-MM-yy"},
        {105, "dd-MM-yyyy"},
        {8, "HH:mm:ss"},
        {108, "HH:mm:ss"},
        {10, "MM-dd-yy"},
        {110, "MM-dd-yyyy"},
        {11, "yy/MM/dd"},
        {111, "yyyy/MM/dd"},
        {12, "yyMMdd"},
        {112, "yyyyMMdd"},
        {20, "yyyy-MM-dd HH:mm:ss"},
        {120, "yyyy-MM-dd HH:mm:ss"},
        {21, "yyyy-MM-dd HH:mm:ss.zzz"},
        {121, "yyyy-MM-dd HH:mm:ss.zzz"},
        {23, "yyyy-MM-dd"},
        {0, "MMM _d yyyy _h:mmAP"},
        {100, "MMM _d yyyy _h:mmAP"},
        {6, "dd MMM yy"},
        {106, "dd MMM yyyy"},
        {7, "MMM dd, yy"},
        {107, "MMM dd, yyyy"},
        {9, "MMM _d yyyy _h:mm:ss:zzzAP"},
        {109, "MMM _d yyyy _h:mm:ss:zzzAP"},
        {13, "dd MMM yyyy HH:mm:ss:zzz"},
        {113, "dd MMM yyyy HH:mm:ss:zzz"},
        {14, "HH:mm:ss:zzz"},
        {114, "HH:mm:ss:zzz"},
        {kTimeOfDayStyle, "HH:mm:ss.zzz"},
    };
    const auto found = formats.find(style);
    return found == formats.end() ? QString() : QString::fromLatin1(found->second);
}

bool StyleNamesMonth(int style) {
    return StyleFormat(style).contains(u"MMM");
}

bool StyleHasColonMilliseconds(int style) {
    return StyleFormat(style).contains(u":zzz");
}

namespace {

// A field of text quoted in a Qt format.
QString Quoted(const QString& text) {
    return u'\'' + text + u'\'';
}

// `format` with the fields Qt does not write (month names, fields aligned with a blank, AM or PM)
// written for `value` as quoted text.
QString NamedFieldsWritten(QString format, const QDateTime& value, bool spanish) {
    const int hour = value.time().hour();
    return format
        .replace(QStringLiteral("MMM"), Quoted(ShortMonthName(value.date().month(), spanish)))
        .replace(QStringLiteral("_d"),
                 Quoted(QString::number(value.date().day()).rightJustified(2)))
        .replace(QStringLiteral("_h"),
                 Quoted(QString::number((hour + 11) % 12 + 1).rightJustified(2)))
        .replace(QStringLiteral("AP"),
                 Quoted(hour < 12 ? QStringLiteral("AM") : QStringLiteral("PM")));
}

} // namespace

QString StyleText(const DateReading& moment, int style, int digits, bool spanish) {
    QString format = NamedFieldsWritten(StyleFormat(style), moment.value, spanish);
    if (format.isEmpty() || digits == 3 || !format.endsWith(u".zzz"))
        return moment.value.toString(format);
    format.chop(4);
    const QString fraction = QStringLiteral("%1").arg(
        moment.value.time().msec() * kTicksPerMsec + moment.ticks, 7, 10, QChar(u'0'));
    return moment.value.toString(format) + (digits > 0 ? u'.' + fraction.left(digits) : QString());
}

qint64 DatePartOf(DateUnit unit, const QDateTime& value, int dateFirst) {
    const QDate date = value.date();
    const QTime time = value.time();
    switch (unit) {
    case DateUnit::Year:
        return date.year();
    case DateUnit::Quarter:
        return (date.month() - 1) / 3 + 1;
    case DateUnit::Month:
        return date.month();
    case DateUnit::DayOfYear:
        return date.dayOfYear();
    case DateUnit::Day:
        return date.day();
    case DateUnit::Week: {
        // Week 1 holds 1 January; a week starts on SET DATEFIRST's day.
        const int offset = Weekday(QDate(date.year(), 1, 1), dateFirst) - 1;
        return (date.dayOfYear() - 1 + offset) / 7 + 1;
    }
    case DateUnit::Weekday:
        return Weekday(date, dateFirst);
    case DateUnit::Hour:
        return time.hour();
    case DateUnit::Minute:
        return time.minute();
    case DateUnit::Second:
        return time.second();
    case DateUnit::Millisecond:
        return time.msec();
    case DateUnit::Microsecond:
        return time.msec() * qint64(1000);
    case DateUnit::Nanosecond:
        return time.msec() * qint64(1000000);
    }
    return 0;
}

qint64 DatePartOf(DateUnit unit, const DateReading& moment, int dateFirst) {
    const qint64 part = DatePartOf(unit, moment.value, dateFirst);
    if (unit == DateUnit::Microsecond) return part + moment.ticks / 10;
    if (unit == DateUnit::Nanosecond) return part + moment.ticks * qint64(100);
    return part;
}

QString DateNameOf(DateUnit unit, const QDateTime& value, int dateFirst, bool spanish) {
    if (unit == DateUnit::Month) return MonthName(value.date().month(), spanish);
    if (unit == DateUnit::Weekday) return WeekdayName(value.date().dayOfWeek(), spanish);
    return QString::number(DatePartOf(unit, value, dateFirst));
}

QDateTime DateAdd(DateUnit unit, qint64 count, const QDateTime& value) {
    switch (unit) {
    case DateUnit::Year:
        return value.addYears(static_cast<int>(count));
    case DateUnit::Quarter:
        return value.addMonths(static_cast<int>(count * 3));
    case DateUnit::Month:
        return value.addMonths(static_cast<int>(count));
    case DateUnit::DayOfYear:
    case DateUnit::Day:
    case DateUnit::Weekday:
        return value.addDays(count);
    case DateUnit::Week:
        return value.addDays(count * 7);
    default:
        return value.addMSecs(count * UnitMsecs(unit));
    }
}

qint64 DateDiff(DateUnit unit, const QDateTime& from, const QDateTime& to) {
    const QDate a = from.date(), b = to.date();
    switch (unit) {
    case DateUnit::Year:
        return b.year() - a.year();
    case DateUnit::Quarter:
        return (b.year() * 4 + (b.month() - 1) / 3) - (a.year() * 4 + (a.month() - 1) / 3);
    case DateUnit::Month:
        return (b.year() * 12 + b.month()) - (a.year() * 12 + a.month());
    case DateUnit::DayOfYear:
    case DateUnit::Day:
    case DateUnit::Weekday:
        return a.daysTo(b);
    case DateUnit::Week:
        // Weeks are counted from Sunday to Sunday whatever SET DATEFIRST says.
        return a.addDays(-(a.dayOfWeek() % 7)).daysTo(b.addDays(-(b.dayOfWeek() % 7))) / 7;
    default: {
        const qint64 step = UnitMsecs(unit);
        const qint64 start = from.toMSecsSinceEpoch(), end = to.toMSecsSinceEpoch();
        return FloorDivide(end, step) - FloorDivide(start, step);
    }
    }
}

QString MonthName(int month, bool spanish) {
    static const QStringList spanishNames = {
        QStringLiteral("enero"),   QStringLiteral("febrero"),   QStringLiteral("marzo"),
        QStringLiteral("abril"),   QStringLiteral("mayo"),      QStringLiteral("junio"),
        QStringLiteral("julio"),   QStringLiteral("agosto"),    QStringLiteral("septiembre"),
        QStringLiteral("octubre"), QStringLiteral("noviembre"), QStringLiteral("diciembre")};
    static const QStringList englishNames = {
        QStringLiteral("January"), QStringLiteral("February"), QStringLiteral("March"),
        QStringLiteral("April"),   QStringLiteral("May"),      QStringLiteral("June"),
        QStringLiteral("July"),    QStringLiteral("August"),   QStringLiteral("September"),
        QStringLiteral("October"), QStringLiteral("November"), QStringLiteral("December")};
    return (spanish ? spanishNames : englishNames).value(month - 1);
}

// As SQL Server's languages write them in dates (sys.syslanguages' shortmonths).
QString ShortMonthName(int month, bool spanish) {
    static const QStringList spanishNames = {
        QStringLiteral("Ene"), QStringLiteral("Feb"), QStringLiteral("Mar"), QStringLiteral("Abr"),
        QStringLiteral("May"), QStringLiteral("Jun"), QStringLiteral("Jul"), QStringLiteral("Ago"),
        QStringLiteral("Sep"), QStringLiteral("Oct"), QStringLiteral("Nov"), QStringLiteral("Dic")};
    static const QStringList englishNames = {
        QStringLiteral("Jan"), QStringLiteral("Feb"), QStringLiteral("Mar"), QStringLiteral("Apr"),
        QStringLiteral("May"), QStringLiteral("Jun"), QStringLiteral("Jul"), QStringLiteral("Aug"),
        QStringLiteral("Sep"), QStringLiteral("Oct"), QStringLiteral("Nov"), QStringLiteral("Dec")};
    return (spanish ? spanishNames : englishNames).value(month - 1);
}

QString WeekdayName(int isoWeekday, bool spanish) {
    static const QStringList spanishNames = {QStringLiteral("lunes"),     QStringLiteral("martes"),
                                             QStringLiteral("miércoles"), QStringLiteral("jueves"),
                                             QStringLiteral("viernes"),   QStringLiteral("sábado"),
                                             QStringLiteral("domingo")};
    static const QStringList englishNames = {
        QStringLiteral("Monday"),   QStringLiteral("Tuesday"), QStringLiteral("Wednesday"),
        QStringLiteral("Thursday"), QStringLiteral("Friday"),  QStringLiteral("Saturday"),
        QStringLiteral("Sunday")};
    return (spanish ? spanishNames : englishNames).value(isoWeekday - 1);
}

} // namespace zlx::ado
