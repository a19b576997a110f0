#include "ScriptClientForm.h"

#include "DemoDatabase.h"
#include "frame/LibraryState.h"
#include "script/ScriptArgs.h"
#include "script/ScriptControl.h"
#include "script/ScriptFicha.h"

#include <QDir>
#include <QTreeWidget>

namespace zlx::demo {

ScriptClientForm::~ScriptClientForm() {
    m_ficha.reset(); // the toolbar gets its form's handlers back before the form goes
}

void ScriptClientForm::Open(const QString& cServer, const QString& cDatabase) {
    if (m_window) throw ScriptError(QStringLiteral("the client form is already open"));
    if (cServer.startsWith(QStringLiteral("sqlite:"))) QDir().mkpath(cServer.mid(7));
    QString error;
    const cConexionPtr cn = DemoDatabase::Open({cServer, cDatabase}, error);
    if (!cn) throw ScriptError(error);
    LibraryState::Instance().HabilitarRegistro_LogFichas(true);
    m_window = std::make_unique<MainWindow>(cn, cServer);
    m_window->resize(780, 680);
    m_window->show();
}

MainWindow& ScriptClientForm::Window() const {
    if (!m_window) throw ScriptError(QStringLiteral("the client form is not open (call Open)"));
    return *m_window;
}

std::shared_ptr<ScriptFicha> ScriptClientForm::Ficha() {
    if (!m_ficha) m_ficha = std::make_shared<ScriptFicha>(Window(), *Window().Ficha(), Window());
    return m_ficha;
}

std::shared_ptr<ScriptControl> ScriptClientForm::Control(const QString& cName) const {
    auto* control = Window().findChild<QWidget*>(cName);
    if (!control) throw ScriptError(QStringLiteral("the form has no control \"%1\"").arg(cName));
    return std::make_shared<ScriptControl>(control);
}

Variant ScriptClientForm::ChangeLog() const {
    std::vector<Variant> rows;
    const QTreeWidget* log = Window().LogList();
    for (int i = 0; i < log->topLevelItemCount(); ++i) {
        QStringList cells;
        for (int column = 0; column < log->columnCount(); ++column)
            cells << log->topLevelItem(i)->text(column);
        rows.emplace_back(cells.join(u'|'));
    }
    return Variant::Array(rows);
}

} // namespace zlx::demo
