#pragma once
// DECIMAL, VARBINARY and BINARY columns on PostgreSQL are domains named after their declared
// type, so that the catalog tells them from the types the engine would make them: DECIMAL(p,s)
// is zlx_decimal_p_s over numeric(p,s) (a NUMERIC column stays numeric), VARBINARY(n) and
// VARBINARY(MAX) zlx_varbinary_n and zlx_varbinary_max, BINARY(n) zlx_binary_n, over bytea
// (an IMAGE column is zlx_image). Columns made before these domains keep their types.

#include "platform/tsql/TsqlToken.h"

#include <QString>
#include <QStringList>

namespace zlx::tsql {

// The domain of a column declared `type` (upper case: DECIMAL(9, 2), VARBINARY(MAX)); empty
// for other types.
QString TypeDomainName(const QString& type);

// The domains the column types of a CREATE TABLE or ALTER TABLE statement need.
QStringList TypeDomainsOf(const Tokens& statement);

// The PL/pgSQL that makes, once in a database's schema, zlx_type_domain(name), which makes
// domain `name` (one of TypeDomainName's) in the current schema unless it is there.
QString TypeDomainFunction();

// The T-SQL type of an engine type that is one of these domains (DECIMAL(9,2),
// VARBINARY(MAX)); empty otherwise.
QString TsqlTypeOfTypeDomain(const QString& engineType);

} // namespace zlx::tsql
