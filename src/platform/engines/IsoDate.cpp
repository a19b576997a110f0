#include "platform/engines/IsoDate.h"

#include <QRegularExpression>

namespace zlx::ado {

std::optional<Date> ParseIsoDate(const QString& text) {
    static const QRegularExpression pattern(QStringLiteral(
        R"(^\s*(?:(\d{4})-(\d{2})-(\d{2}))?(?:[ T]?(\d{2}):(\d{2})(?::(\d{2})(?:\.(\d+))?)?)?)"));
    const auto match = pattern.match(text);
    if (!match.hasMatch() || (match.capturedLength(1) == 0 && match.capturedLength(4) == 0))
        return std::nullopt;
    const bool hasDay = match.capturedLength(1) > 0;
    Date value =
        MakeDate(hasDay ? match.captured(1).toInt() : 1899, hasDay ? match.captured(2).toInt() : 12,
                 hasDay ? match.captured(3).toInt() : 30, match.captured(4).toInt(),
                 match.captured(5).toInt(), match.captured(6).toInt());
    if (match.capturedLength(7) > 0) {
        const double fraction = (QStringLiteral("0.") + match.captured(7)).toDouble();
        value.value += fraction / 86400.0;
    }
    return value;
}

} // namespace zlx::ado
