#pragma once
// FORMAT(value, format[, culture]) as SQL Server formats through .NET: the standard number
// formats (N, F, C, P, D with a precision), custom number patterns ('#,##0.00', '000', '0.0 %'),
// the standard date formats (d, D, t, T, g, G, f, F) and custom date patterns ('dd/MM/yyyy',
// 'dddd d MMMM yyyy HH:mm'), under the culture of the session's language (es-ES for Spanish,
// en-US otherwise) or the one named. The format string must be a literal; what this writer does
// not know is refused with 0x80040E14 naming FORMAT, never formatted otherwise.

#include "platform/tsql/TranslationContext.h"
#include "platform/tsql/TsqlDateFunctions.h"

#include <vector>

namespace zlx::tsql {

// The engines' zlx_number call: `value` with `minDecimals` to `maxDecimals` places, at least
// `minDigits` whole digits, `group` between thousands and `point` before the places.
QString NumberSql(const QString& value, int minDecimals, int maxDecimals, int minDigits,
                  const QString& group, const QString& point);

class FormatWriter {
public:
    explicit FormatWriter(const TranslationContext& context);

    QString Call(const std::vector<CallArgument>& arguments) const;

private:
    struct Culture;
    // What the translator knows of the value's type; Unknown where the session was not asked
    // (the check before a batch runs), which takes the kind the format asks for.
    enum class Kind { Date, Integer, OtherNumber, Text, Unknown };
    Kind KindOf(const CallArgument& value) const;

    QString Number(const CallArgument& value, Kind kind, const QString& format,
                   const Culture& culture) const;
    QString StandardNumber(const QString& value, Kind kind, QChar letter, int precision,
                           const Culture& culture) const;
    QString CustomNumber(const QString& value, const QString& format, const Culture& culture) const;
    QString Date(const QString& value, const QString& format, const Culture& culture) const;
    // One run of a custom date pattern's letters ("dd", "MMMM") as engine SQL.
    QString DateField(const QString& value, QChar letter, int count, const Culture& culture) const;

    const TranslationContext& m_context;
    const EngineDialect& m_dialect;
};

} // namespace zlx::tsql
