#include "platform/tsql/BoundDefaults.h"

namespace zlx::tsql {

void BoundDefaults::Create(const QString& name, const Tokens& value,
                           const TranslationContext& context) {
    const TsqlTranslator translator(context);
    Value created{translator.Expression(value).trimmed(), {}};
    created.asDate = created.sql;
    if (value.size() == 1 && value.front().kind == TokenKind::String) {
        const QString iso = NormalizedDateLiteral(value.front().text, context.dayMonthYear);
        if (!iso.isEmpty()) {
            Tokens date = value;
            date.front().text = iso;
            created.asDate = translator.Expression(date).trimmed();
        }
    }
    m_values.insert(name.toLower(), created);
}

QString BoundDefaults::For(const QString& name, std::optional<ColumnKind> kind) const {
    const auto found = m_values.constFind(name.toLower());
    if (found == m_values.constEnd()) return {};
    return kind == ColumnKind::Date ? found->asDate : found->sql;
}

} // namespace zlx::tsql
