#include "platform/tsql/TypeNames.h"

#include <QRegularExpression>

namespace zlx::tsql {

QString LookUpType(std::span<const TypeName> types, const QString& type) {
    for (const TypeName& name : types) {
        if (type == QLatin1StringView(name.tsql)) return QString::fromLatin1(name.engine);
    }
    return {};
}

std::optional<SizedText> SizedTextType(const QString& type) {
    static const QRegularExpression sized(
        QStringLiteral("^(N?VARCHAR|N?CHAR)\\s*(\\(\\s*(\\d+)\\s*\\))?$"));
    const auto match = sized.match(type);
    if (!match.hasMatch()) return std::nullopt;
    return SizedText{match.captured(1).endsWith(u"VARCHAR"),
                     match.captured(3).isEmpty() ? QStringLiteral("30") : match.captured(3)};
}

} // namespace zlx::tsql
