#include "connection/TableFactory.h"

namespace zlx {

namespace {

// Set once, while the program starts; read by every connection.
const TableFactory*& Slot() {
    static const TableFactory* factory = nullptr;
    return factory;
}

} // namespace

void RegisterTableFactory(const TableFactory& factory) {
    Slot() = &factory;
}

const TableFactory* RegisteredTableFactory() {
    return Slot();
}

} // namespace zlx
