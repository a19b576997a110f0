#pragma once
// The failure being handled inside a catch block, whatever the layer that raised it.

#include <QString>
#include <cstdint>

namespace zlx {

struct DatosFailure {
    std::int32_t number = 0;
    QString description;
};

// Call only inside a catch block: the number and description of the exception in flight
// (ADO errors, VB run-time errors, anything else as error 5).
DatosFailure CurrentFailure();

} // namespace zlx
