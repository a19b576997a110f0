#include "platform/workbook/SerialDate.h"

#include <QDateTime>
#include <QRegularExpression>
#include <cmath>

namespace zlx::workbook {

namespace {

const QDate kEpoch(1899, 12, 30);
constexpr double kSecondsPerDay = 86400.0;

} // namespace

QString SerialDate::ToIso(double serial) {
    const qint64 seconds = std::llround(serial * kSecondsPerDay);
    const qint64 days = seconds >= 0 ? seconds / 86400 : -((-seconds + 86399) / 86400);
    const QDateTime moment(kEpoch.addDays(days),
                           QTime(0, 0).addSecs(static_cast<int>(seconds - days * 86400)));
    return moment.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

std::optional<double> SerialDate::FromIso(const QString& text) {
    static const QRegularExpression pattern(QStringLiteral(
        R"(^\s*(\d{4})-(\d{2})-(\d{2})(?:[ T](\d{2}):(\d{2})(?::(\d{2})(?:\.\d+)?)?)?\s*$)"));
    const auto match = pattern.match(text);
    if (!match.hasMatch()) return std::nullopt;
    const QDate day(match.captured(1).toInt(), match.captured(2).toInt(),
                    match.captured(3).toInt());
    const QTime time(match.captured(4).toInt(), match.captured(5).toInt(),
                     match.captured(6).toInt());
    if (!day.isValid() || !time.isValid()) return std::nullopt;
    return static_cast<double>(kEpoch.daysTo(day)) +
           time.msecsSinceStartOfDay() / 1000.0 / kSecondsPerDay;
}

} // namespace zlx::workbook
