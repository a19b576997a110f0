#include "frame/cGlobales.h"

#include "platform/companion/cMatriz.h"

#include <algorithm>

namespace zlx {

void cGlobales::Configure(ObjectPtr oCnActual, ObjectPtr oIdiomaActual,
                          cKeyboardPtr oKeyboardActual, cLogFilePtr oLogFileActual,
                          ObjectPtr oAppActual, ObjectPtr oAppClassActual,
                          const Variant& xOtrosDatos) {
    m_cn = std::move(oCnActual);
    m_idioma = std::move(oIdiomaActual);
    m_keyboard = std::move(oKeyboardActual);
    m_logFile = std::move(oLogFileActual);
    m_app = std::move(oAppActual);
    m_appClass = std::move(oAppClassActual);
    m_otros = xOtrosDatos;
}

bool ValorEnLista(const Variant& xValor, const Variant& aLista) {
    VariantArrayPtr items = aLista.ToArray();
    if (!items && aLista.IsObject())
        if (const auto matrix = std::dynamic_pointer_cast<cMatriz>(aLista.ToObject()))
            items = matrix->GetVariant().ToArray();
    if (!items) return false;
    const auto& data = items->Data();
    return std::any_of(data.begin(), data.end(), [&](const Variant& v) { return v == xValor; });
}

} // namespace zlx
