#include "table/DatosTableFactory.h"

#include "table/cDatos.h"

namespace zlx {

const DatosTableFactory& DatosTableFactory::Instance() {
    static const DatosTableFactory factory;
    return factory;
}

Variant DatosTableFactory::Load(const ado::RecordsetPtr& rs, bool lBreakConnection,
                                bool lMakeLocalCopy) const {
    auto table = std::make_shared<cDatos>();
    table->LoadRecordSet(rs, lBreakConnection, lMakeLocalCopy, true, false);
    return table->LastError() == 0 ? Variant(ObjectPtr(table)) : Variant();
}

std::shared_ptr<cDatos> DatosTableFactory::TableOf(const Variant& result) const {
    return result.IsObject() ? result.As<cDatos>() : nullptr;
}

ado::RecordsetPtr DatosTableFactory::RecordsetOf(const Variant& result) const {
    const auto table = TableOf(result);
    return table ? table->Get_RS() : nullptr;
}

} // namespace zlx
