#pragma once
// The demo's client window as an object of the script language ("ClientesDemo"), so that a
// whole editing session can be scripted: open it on a database, press the toolbar's buttons
// and read its events, type into the controls by name, save, cancel and read the change log.

#include "MainWindow.h"
#include "platform/variant/Variant.h"

#include <memory>

namespace zlx {
class ScriptControl;
class ScriptFicha;
} // namespace zlx

namespace zlx::demo {

class ScriptClientForm : public Object {
public:
    ~ScriptClientForm() override;

    QString TypeName() const override { return QStringLiteral("ClientesDemo"); }
    // Creates what the database lacks and shows the form on its first client; throws
    // ScriptError with the reason when the database cannot be opened.
    void Open(const QString& cServer, const QString& cDatabase);
    MainWindow& Window() const;
    // The form's record toolbar; its events reach the script, then the form.
    std::shared_ptr<ScriptFicha> Ficha();
    // A control of the form by its name ("txtNombre", "optTipo", ...).
    std::shared_ptr<ScriptControl> Control(const QString& cName) const;
    // The shown client's change log, a row "date|user|operation|changes" each.
    Variant ChangeLog() const;

private:
    std::unique_ptr<MainWindow> m_window;
    std::shared_ptr<ScriptFicha> m_ficha;
};

} // namespace zlx::demo
