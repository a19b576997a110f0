#pragma once
// The demo's main window: the client form with a menu to export the clients to a DBF file
// and to walk the last search with the movement buttons.

#include "connection/cConexion.h"

#include <QMainWindow>

namespace zlx::demo {

class ClientForm;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    MainWindow(cConexionPtr oCn, const QString& cWhere, QWidget* parent = nullptr);

    ClientForm* Form() const { return m_form; }
    // Exports the clients and says so in the status bar; false when the file was not written.
    bool ExportClients(const QString& cFileName);

private:
    void BuildMenus();
    void AskAndExport();

    cConexionPtr m_cn;
    ClientForm* m_form;
};

} // namespace zlx::demo
