#pragma once
// A table descriptor that hands out a record cursor and the shared context, as an
// application's descriptor of a looked-up table does.

#include "binding/I_TAV.h"

namespace zlx::test {

class TableDescriptor : public I_TAV {
public:
    TableDescriptor(cFichaDBPtr cursor, cGlobalesPtr globales)
        : m_cursor(std::move(cursor)), m_globales(std::move(globales)) {}
    cFichaDBPtr FichaDB() const override { return m_cursor; }
    cGlobalesPtr Globales() const override { return m_globales; }

private:
    cFichaDBPtr m_cursor;
    cGlobalesPtr m_globales;
};

} // namespace zlx::test
