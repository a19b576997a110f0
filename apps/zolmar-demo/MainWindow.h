#pragma once
// The demo's main window: the client form with a menu to export the clients to a DBF file,
// and a status bar that says where the data is.

#include "ClientForm.h"

namespace zlx::demo {

class MainWindow : public ClientForm {
    Q_OBJECT
public:
    MainWindow(cConexionPtr oCn, const QString& cWhere, QWidget* parent = nullptr);

    // Exports the clients and says so in the status bar; false when the file was not written.
    bool ExportClients(const QString& cFileName);

private:
    void BuildMenus();
    void AskAndExport();

    cConexionPtr m_cn;
};

} // namespace zlx::demo
