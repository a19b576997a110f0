#pragma once
// The table layer's side of the connection's table results: loads a cDatos over a recordset.
// cDatos.cpp registers the one instance, so every program with tables has it.

#include "connection/TableFactory.h"

namespace zlx {

class DatosTableFactory : public TableFactory {
public:
    static const DatosTableFactory& Instance();

    Variant Load(const ado::RecordsetPtr& rs, bool lBreakConnection,
                 bool lMakeLocalCopy) const override;
    std::shared_ptr<cDatos> TableOf(const Variant& result) const override;
    ado::RecordsetPtr RecordsetOf(const Variant& result) const override;
};

} // namespace zlx
