#include "platform/tsql/TranslationContext.h"

#include "platform/tsql/TsqlDateFunctions.h"
#include "platform/variant/ZlxAssert.h"

namespace zlx::tsql {

const EngineDialect& DialectOf(const TranslationContext& context) {
    ZLX_ASSERT(context.dialect, "a translation names its engine's dialect");
    return *context.dialect;
}

double CheckedRandomValue(std::optional<std::int64_t>) {
    return 0;
}

DateFunctionWriter DateWriterFor(const TranslationContext& context) {
    DateSettings settings;
    settings.order = context.dayMonthYear ? DateOrder::DayMonthYear : DateOrder::MonthDayYear;
    settings.dateFirst = context.dateFirst;
    settings.spanish = context.spanishNames;
    return DateFunctionWriter(*context.dialect, settings);
}

} // namespace zlx::tsql
