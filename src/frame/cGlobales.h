#pragma once
// What an application hands to the library's controls and classes: its connection, its
// translation service, keyboard, log, its own objects and any further data.

#include "platform/companion/cKeyboard.h"
#include "platform/companion/cLogFile.h"
#include "platform/variant/Variant.h"

#include <QMetaType>

namespace zlx {

class cGlobales : public Object {
public:
    QString TypeName() const override { return QStringLiteral("cGlobales"); }

    void Configure(ObjectPtr oCnActual, ObjectPtr oIdiomaActual, cKeyboardPtr oKeyboardActual,
                   cLogFilePtr oLogFileActual, ObjectPtr oAppActual,
                   ObjectPtr oAppClassActual = nullptr,
                   const Variant& xOtrosDatos = Variant(std::int16_t(0)));

    ObjectPtr oCn() const { return m_cn; }
    void oCn(ObjectPtr value) { m_cn = std::move(value); }
    ObjectPtr oIdioma() const { return m_idioma; }
    void oIdioma(ObjectPtr value) { m_idioma = std::move(value); }
    cKeyboardPtr oKeyboard() const { return m_keyboard; }
    void oKeyboard(cKeyboardPtr value) { m_keyboard = std::move(value); }
    cLogFilePtr oLogFile() const { return m_logFile; }
    void oLogFile(cLogFilePtr value) { m_logFile = std::move(value); }
    ObjectPtr oApp() const { return m_app; }
    void oApp(ObjectPtr value) { m_app = std::move(value); }
    ObjectPtr oAppClass() const { return m_appClass; }
    void oAppClass(ObjectPtr value) { m_appClass = std::move(value); }
    const Variant& xOtros() const { return m_otros; }
    void xOtros(const Variant& value) { m_otros = value; }

private:
    ObjectPtr m_cn, m_idioma, m_app, m_appClass;
    cKeyboardPtr m_keyboard;
    cLogFilePtr m_logFile;
    Variant m_otros = Variant(std::int16_t(0));
};

using cGlobalesPtr = std::shared_ptr<cGlobales>;

// True when an element of the list equals the value (variant equality: numbers by value,
// strings exactly, a number never equals a string). The list is an array of any rank, walked
// in storage order, or a cMatriz; anything else holds nothing.
bool ValorEnLista(const Variant& xValor, const Variant& aLista);

} // namespace zlx

// Forms carry their cGlobales in the Qt property "oAppGlobal".
Q_DECLARE_METATYPE(zlx::cGlobalesPtr)
