#pragma once
// The form that holds a record form control, and the application's global object it carries
// (oAppGlobal), as the control's logic needs them. Every member has a harmless default, so a
// program without a display implements only what it uses.

#include "cursor/cFichaDB.h"

#include <QString>

class QObject;

namespace zlx {

class I_CtlFichaEvents;

class I_CtlFichaForm {
public:
    virtual ~I_CtlFichaForm() = default;

    // The form as the binding and the application's global object receive it.
    virtual QObject* FormObject() const { return nullptr; }
    virtual std::int64_t hWnd() const { return 0; }
    // The control that has the focus on the form (nullptr when none).
    virtual QObject* ActiveControl() const { return nullptr; }
    virtual std::int32_t MousePointer() const { return m_mousePointer; }
    virtual void MousePointer(std::int32_t value) { m_mousePointer = value; }
    // The whole window on or off (while a save or a search runs).
    virtual bool Enabled() const { return m_enabled; }
    virtual void Enabled(bool value) { m_enabled = value; }
    // Lets pending window messages run.
    virtual void DoEvents() {}

    // The application's global object.
    virtual std::int32_t ID_User() const { return 0; }
    virtual std::int32_t ID_Station() const { return 0; }
    virtual QString MainDB() const { return {}; }
    // A yes/no question through the application's translated message box; true for yes.
    virtual bool YN_TransMsg(const QString& cText, std::int32_t nIcon, const QString& cTitle);
    virtual void AlertSound() {}
    // The application shows the change log of the record the cursor is on.
    virtual void RefrescarDatosLogFichas(const cFichaDBPtr&) {}
    // The form's own handler of the control's events, when it has one.
    virtual I_CtlFichaEvents* FormEvents() const { return nullptr; }

private:
    std::int32_t m_mousePointer = 0;
    bool m_enabled = true;
};

} // namespace zlx
