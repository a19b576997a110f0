#pragma once
// What the statement builder needs of a record cursor to update the record it stands on: the
// cursor's connection, its table and the current record's identity. The record cursor
// implements it; the connection layer never sees the cursor itself.

#include "connection/cConexion.h"

namespace zlx {

class CurrentRecord {
public:
    virtual ~CurrentRecord() = default;
    virtual cConexionPtr oCn() const = 0;
    virtual QString Table() const = 0;
    virtual std::int32_t ID() const = 0;
};

} // namespace zlx
