#include "MainWindow.h"

#include "ClientForm.h"
#include "DemoDatabase.h"
#include "platform/companion/cMsgBox.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QMenuBar>
#include <QStatusBar>

namespace zlx::demo {

MainWindow::MainWindow(cConexionPtr oCn, const QString& cWhere, QWidget* parent)
    : QMainWindow(parent), m_cn(oCn), m_form(new ClientForm(std::move(oCn), 1, this)) {
    setWindowTitle(QStringLiteral("Zolmar Demo: clientes"));
    setCentralWidget(m_form);
    BuildMenus();
    statusBar()->showMessage(QStringLiteral("Datos en %1").arg(cWhere));
}

void MainWindow::BuildMenus() {
    QMenu* file = menuBar()->addMenu(QStringLiteral("&Archivo"));
    file->addAction(QStringLiteral("&Exportar clientes a DBF..."), this, &MainWindow::AskAndExport);
    file->addSeparator();
    file->addAction(QStringLiteral("&Salir"), this, &QWidget::close);
    QMenu* view = menuBar()->addMenu(QStringLiteral("&Ver"));
    QAction* walk = view->addAction(QStringLiteral("&Recorrer la última búsqueda"));
    walk->setCheckable(true);
    connect(walk, &QAction::toggled, this, [this](bool on) { m_form->SetSearchNavigation(on); });
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
