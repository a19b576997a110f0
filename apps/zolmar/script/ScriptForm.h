#pragma once
// A data-entry form made by a script: a top-level window holding controls ("get", "btn",
// "lbl") bound to columns and one record toolbar. It has what the library asks a form for by
// name: oAppGlobal, Ctl2DAV and Refresh (and no <control>_Validate handlers).

#include "binding/I_DAV.h"
#include "script/ScriptAppGlobal.h"

#include <QWidget>
#include <memory>

namespace zlx {

class ScriptControl;
class ScriptFicha;

class ScriptForm : public QWidget, public Object {
    Q_OBJECT
    Q_PROPERTY(QObject* oAppGlobal READ AppGlobal)

public:
    // Throws ScriptError when the program has no window system (no QApplication).
    ScriptForm();
    ~ScriptForm() override;

    QString TypeName() const override { return QStringLiteral("ScriptForm"); }
    QObject* AppGlobal() { return &m_app; }
    ScriptAppGlobal& App() { return m_app; }
    Q_INVOKABLE zlx::I_DAVPtr Ctl2DAV(QObject*) { return nullptr; }
    Q_INVOKABLE void Refresh() {}

    // A control of that type ("get", "btn" or "lbl") and name, bound to the column `campo`.
    std::shared_ptr<ScriptControl> AddControl(const QString& type, const QString& name,
                                              const QString& campo);
    // The form's record toolbar, made on first use.
    std::shared_ptr<ScriptFicha> Ficha();

private:
    QWidget* NewControl(const QString& type);

    ScriptAppGlobal m_app;
    std::shared_ptr<ScriptFicha> m_ficha;
    int m_nextTop = 50; // controls go one under another, below the toolbar
};

} // namespace zlx
