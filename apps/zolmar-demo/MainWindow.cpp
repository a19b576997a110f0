#include "MainWindow.h"

#include "DemoDatabase.h"
#include "platform/companion/cMsgBox.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QMenuBar>
#include <QStatusBar>

namespace zlx::demo {

namespace {

// The demo's one workstation and its user, as the locks and the change log record them.
constexpr std::int32_t kUser = 1;
constexpr std::int32_t kStation = 1;

} // namespace

MainWindow::MainWindow(cConexionPtr oCn, const QString& cWhere, QWidget* parent)
    : ClientForm(oCn, kUser, kStation, parent), m_cn(std::move(oCn)) {
    setWindowTitle(QStringLiteral("Zolmar Demo: clientes"));
    BuildMenus();
    statusBar()->showMessage(QStringLiteral("Datos en %1").arg(cWhere));
}

void MainWindow::BuildMenus() {
    QMenu* file = menuBar()->addMenu(QStringLiteral("&Archivo"));
    file->addAction(QStringLiteral("&Exportar clientes a DBF..."), this, &MainWindow::AskAndExport);
    file->addSeparator();
    file->addAction(QStringLiteral("&Salir"), this, &QWidget::close);
}

void MainWindow::AskAndExport() {
    const QString name = QFileDialog::getSaveFileName(this, QStringLiteral("Exportar clientes"),
                                                      QDir::home().filePath("clientes.dbf"),
                                                      QStringLiteral("Tablas dBASE (*.dbf)"));
    if (name.isEmpty()) return;
    if (!ExportClients(name)) {
        cMsgBox box;
        box.SetIcon(MsgIconError);
        box.ShowMessage(QStringLiteral("No se pudo escribir el fichero <B>%1</B>.").arg(name),
                        MsgButtonsOk, QStringLiteral("Exportar clientes"));
    }
}

bool MainWindow::ExportClients(const QString& cFileName) {
    const bool written = DemoDatabase::ExportClients(*m_cn, cFileName);
    if (written)
        statusBar()->showMessage(QStringLiteral("Clientes exportados a %1").arg(cFileName));
    return written;
}

} // namespace zlx::demo
