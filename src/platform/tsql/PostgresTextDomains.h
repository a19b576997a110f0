#pragma once
// VARCHAR(n), NVARCHAR(n) and NCHAR(n) columns on PostgreSQL are domains named after their type
// and length (zlx_varchar_40): VARCHAR(n) and NVARCHAR(n) over bpchar, whose comparisons,
// hashing and length() ignore trailing blanks as SQL Server does while the value keeps them,
// with a check that holds the length (error 8152); NCHAR(n) over character(n). The name keeps
// the T-SQL type, national or not, for the catalog and the driver.

#include "platform/tsql/TsqlToken.h"

#include <QString>
#include <QStringList>

namespace zlx::tsql {

// The domain of a column declared `type` (upper case, VARCHAR(40)); empty for other types.
QString TextDomainName(const QString& type);

// The domains the column types of a CREATE TABLE or ALTER TABLE statement need.
QStringList TextDomainsOf(const Tokens& statement);

// SQL that makes domain `name` (one of TextDomainName's) in the current schema unless it is
// there, under collation `collation`.
QString TextDomainCreation(const QString& name, const QString& collation);

// The T-SQL type of an engine type that is one of these domains (VARCHAR(40)); empty otherwise.
QString TsqlTypeOfTextDomain(const QString& engineType);

} // namespace zlx::tsql
