#include "platform/widgets/DateMask.h"

#include <QDateTime>
#include <QLocale>

namespace zlx {

namespace {

// The length of the run of `letter` starting at `i`.
qsizetype RunLength(const QString& mask, qsizetype i) {
    qsizetype end = i;
    while (end < mask.size() && mask[end].toLower() == mask[i].toLower())
        ++end;
    return end - i;
}

QString Padded(int value, qsizetype run) {
    return run >= 2 ? QString::number(value).rightJustified(2, u'0') : QString::number(value);
}

} // namespace

bool IsDateMask(const QString& mask) {
    if (mask.contains(u'#') || mask.contains(u'0')) return false;
    for (const QChar c : mask)
        if (QStringLiteral("dmyhns").contains(c.toLower())) return true;
    return false;
}

QString FormatDateMask(const Date& value, const QString& mask) {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    SplitDate(value, year, month, day, hour, minute, second);
    const QLocale spanish(QLocale::Spanish, QLocale::Spain);
    const QDate date(year, month, day);
    QString out;
    bool afterHour = false;
    for (qsizetype i = 0; i < mask.size();) {
        const QChar letter = mask[i].toLower();
        const qsizetype run = RunLength(mask, i);
        switch (letter.unicode()) {
        case 'y':
            out += run >= 4 ? QString::number(year).rightJustified(4, u'0') : Padded(year % 100, 2);
            break;
        case 'm':
            if (afterHour && run <= 2)
                out += Padded(minute, run);
            else if (run >= 3)
                out +=
                    spanish.monthName(month, run >= 4 ? QLocale::LongFormat : QLocale::ShortFormat);
            else
                out += Padded(month, run);
            break;
        case 'd':
            if (run >= 3)
                out += spanish.dayName(date.dayOfWeek(),
                                       run >= 4 ? QLocale::LongFormat : QLocale::ShortFormat);
            else
                out += Padded(day, run);
            break;
        case 'h':
            out += Padded(hour, run);
            break;
        case 'n':
            out += Padded(minute, run);
            break;
        case 's':
            out += Padded(second, run);
            break;
        default:
            out += mask.mid(i, run);
        }
        if (QStringLiteral("ymdhns").contains(letter)) afterHour = letter == u'h';
        i += run;
    }
    return out;
}

} // namespace zlx
