#pragma once
// The seam between the connection and the in-memory table. Statements whose result is a table
// (Execute modes 6 to 8, SQLSelect2Vars, GetStructureFromQuery) get it from the one factory
// that the table layer registers when it is part of the program; the connection knows the
// table class by name only. Without a registered factory those results are the default.

#include "platform/ado/Recordset.h"
#include "platform/variant/Variant.h"

#include <memory>

namespace zlx {

class cDatos;

class TableFactory {
public:
    virtual ~TableFactory() = default;
    // A table over the recordset (its rows copied with lMakeLocalCopy, its connection released
    // with lBreakConnection), standing on its first row; Empty when it could not be loaded.
    virtual Variant Load(const ado::RecordsetPtr& rs, bool lBreakConnection,
                         bool lMakeLocalCopy) const = 0;
    // The table a result holds; nullptr when it holds none.
    virtual std::shared_ptr<cDatos> TableOf(const Variant& result) const = 0;
    // The recordset behind a table result; nullptr when it holds no table.
    virtual ado::RecordsetPtr RecordsetOf(const Variant& result) const = 0;
};

void RegisterTableFactory(const TableFactory& factory);
// The registered factory; nullptr when the table layer is not linked in.
const TableFactory* RegisteredTableFactory();

} // namespace zlx
