#pragma once
// The defaults that CREATE DEFAULT name AS value makes and sp_bindefault binds to columns, kept
// by name for the session. SQL Server converts a bound default to its column's type when a row
// takes it: a text written as a date ('17530101') is a date in a date column and stays the text
// in any other.

#include "platform/tsql/TableColumns.h"
#include "platform/tsql/TsqlToken.h"
#include "platform/tsql/TsqlTranslator.h"

#include <QHash>
#include <optional>

namespace zlx::tsql {

class BoundDefaults {
public:
    // The default `name` of the T-SQL expression `value`, written in the engine's SQL under
    // `context`.
    void Create(const QString& name, const Tokens& value, const TranslationContext& context);
    // The engine's expression of default `name` for a column of `kind` (unknown: as written);
    // empty for a default never made.
    QString For(const QString& name, std::optional<ColumnKind> kind) const;

private:
    struct Value {
        QString sql;    // as written
        QString asDate; // read as a date, for a date column
    };
    QHash<QString, Value> m_values; // lower-case name -> value
};

} // namespace zlx::tsql
