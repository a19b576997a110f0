#pragma once
// The definition statements that schema management sends, per provider, as text. Nothing
// here runs them.

#include "platform/variant/Variant.h"

#include <QString>

namespace zlx::DdlText {

// The marker that asks for the type's own default instead of a given value.
inline const QString kNoDefault = QStringLiteral("NO DEFAULT");
bool IsNoDefault(const Variant& xDefault);

// The column type written for a zlxTblColumnType; "" for None or an unknown type.
QString ColumnType(int nProvider, int nTipo, std::int32_t nSize, std::int32_t nDec);
// What follows " NOT NULL DEFAULT " for a new column ("" when the type has no default).
QString DefaultLiteral(int nTipo, const Variant& xDefault);

QString CreateDatabase(const QString& cDatabase, const QString& cPath, const QString& cPathAndFile,
                       const QString& cSize);
QString AlterDatabase(const QString& cDatabase);

// "" for a provider that has no tables (Excel).
QString CreateTable(int nProvider, const QString& cTable);
// The identity column ZolmarID, in any case.
bool IsIdentity(const QString& cCampo);
// The key constraint's name of a table's identity column.
QString PrimaryKeyName(const QString& cTable, const QString& cColumn);

// Adding or changing a column; the provider chooses the type names and the default clause.
QString AddColumn(int nProvider, const QString& cTable, const QString& cCampo, int nTipo,
                  std::int32_t nSize, std::int32_t nDec, const Variant& xDefault);
QString AlterColumn(int nProvider, const QString& cTable, const QString& cCampo, int nTipo,
                    std::int32_t nSize, std::int32_t nDec);
QString DropColumn(const QString& cTable, const QString& cCampo);
QString RenameColumn(const QString& cTable, const QString& cCampoOld, const QString& cCampo);
// The shared default object bound to a new SQL Server column of that type.
QString DefaultObject(int nTipo);
QString BindDefault(const QString& cObject, const QString& cTable, const QString& cCampo);
QString UnbindDefault(const QString& cTable, const QString& cCampo);

// One batch of the fill of new columns: identities n-49999 to n.
QString UpdateDefaults(const QString& cTable, const QString& cAssignments, std::int64_t n);

QString CreateIndex(const QString& cTable, const QString& cIndice, const QString& cExpresion);
QString AddPrimaryKey(const QString& cTable, const QString& cExpresion);
QString IndexesRowset(const QString& cTable, const QString& cIndice);
QString DropIndex(const QString& cTable, const QString& cIndice);

QString Reindex(const QString& cDatabase, const QString& cTable);
QString Shrink(const QString& cDatabase);

} // namespace zlx::DdlText
