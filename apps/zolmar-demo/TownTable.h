#pragma once
// The towns table as the lookup field sees it: its record cursor and the shared context that
// carries the connection.

#include "binding/I_TAV.h"
#include "connection/cConexion.h"
#include "cursor/cFichaDB.h"

namespace zlx::demo {

class TownTable : public I_TAV {
public:
    explicit TownTable(const cConexionPtr& oCn) {
        m_globales->oCn(oCn);
        m_ficha->Init(oCn, QStringLiteral("municipios"), QStringLiteral("nombre"));
    }
    QString Name() const override { return QStringLiteral("municipios"); }
    cFichaDBPtr FichaDB() const override { return m_ficha; }
    cGlobalesPtr Globales() const override { return m_globales; }

private:
    cGlobalesPtr m_globales = std::make_shared<cGlobales>();
    cFichaDBPtr m_ficha = std::make_shared<cFichaDB>();
};

} // namespace zlx::demo
