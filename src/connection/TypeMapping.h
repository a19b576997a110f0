#pragma once
// Translations between ADO data types, the library's column types, SQL Server catalogue
// types (xtype) and the display types of the bound controls.

#include "connection/SqlConstants.h"

#include <optional>

namespace zlx::TypeMapping {

// The library column type of an ADO type; nullopt for a type the library does not know.
std::optional<zlxTblColumnType> AdoToZlx(int nTipo);

// The ADO type the library uses for a column type; 0 for an unknown one. Jet (provider 1)
// has only one date type.
int ZlxToAdo(int nTipo, int nProveedor = zlxDataProvider_MSDE);

// The display type of an ADO type; nullopt for a type the library does not know.
std::optional<zlxDisplayType> AdoToDisplay(int nTipo);

zlxDisplayType ZlxToDisplay(int nTipo);

// The library column type of a SQL Server xtype; None for the others.
zlxTblColumnType SqlServerToZlx(int nTipo);

} // namespace zlx::TypeMapping
