#include "table/DatosFailure.h"

#include "platform/engines/AdoError.h"
#include "platform/variant/Variant.h"

#include <exception>

namespace zlx {

DatosFailure CurrentFailure() {
    try {
        throw;
    } catch (const ado::AdoError& e) {
        return {e.Number(), e.Description()};
    } catch (const VariantError& e) {
        return {e.Number(), e.Description()};
    } catch (const std::exception& e) {
        return {5, QString::fromUtf8(e.what())};
    }
}

} // namespace zlx
