#pragma once
// VARCHAR(n), NVARCHAR(n) and NCHAR(n) columns on PostgreSQL are domains named after their type
// and length (zlx_varchar_40): VARCHAR(n) and NVARCHAR(n) over bpchar, whose comparisons,
// hashing and length() ignore trailing blanks as SQL Server does while the value keeps them,
// with a check that holds the length (error 8152); NCHAR(n) over character(n). TEXT, NTEXT,
// VARCHAR(MAX) and NVARCHAR(MAX) are domains over bpchar without a length (zlx_text,
// zlx_nvarchar_max). The name keeps the T-SQL type, national or not, for the catalog and the
// driver.

#include "platform/tsql/TsqlToken.h"

#include <QString>
#include <QStringList>

namespace zlx::tsql {

// The domain of a column declared `type` (upper case, VARCHAR(40), TEXT); empty for other
// types.
QString TextDomainName(const QString& type);

// The domains the column types of a CREATE TABLE or ALTER TABLE statement need.
QStringList TextDomainsOf(const Tokens& statement);

// The PL/pgSQL that makes, once in a database's schema, zlx_text_domain(name), which makes
// domain `name` (one of TextDomainName's) in the current schema unless it is there.
QString TextDomainFunction();

// SQL that turns the text columns of the current schema made before these domains (text,
// varchar(n), and character(n) marked national, under the database collation) into them.
QString OlderTextColumnsConversion();

// The T-SQL type of an engine type that is one of these domains (VARCHAR(40), NTEXT); empty
// otherwise.
QString TsqlTypeOfTextDomain(const QString& engineType);

} // namespace zlx::tsql
