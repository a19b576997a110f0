// zolmar-demo: a small client-management application on the library. With a display it
// opens the client form; without one (or with --script) it runs a scripted editing session
// offscreen and writes its screenshots to a folder. With --json it reads the lines of
// `zolmar script`, its client form being the object ClientesDemo.

#include "DemoDatabase.h"
#include "LockHolder.h"
#include "MainWindow.h"
#include "ScriptedSession.h"
#include "frame/LibraryState.h"
#include "script/ScriptCommand.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QStandardPaths>
#include <cstdio>
#include <optional>

using namespace zlx;
using namespace zlx::demo;

namespace {

bool HasDisplay() {
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

struct Options {
    QString data;
    DemoDatabaseSettings settings;
    QString script;
    std::int32_t holdLock = 0;
    bool json = false;
};

Options ReadOptions(const QApplication& app) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Demostración de Zolmar: ficha de clientes"));
    parser.addHelpOption();
    const QCommandLineOption data(QStringLiteral("data"),
                                  QStringLiteral("Carpeta de datos del servidor embebido."),
                                  QStringLiteral("carpeta"));
    const QCommandLineOption server(QStringLiteral("server"),
                                    QStringLiteral("Servidor: postgres:<conninfo>."),
                                    QStringLiteral("servidor"));
    const QCommandLineOption database(QStringLiteral("database"),
                                      QStringLiteral("Nombre de la base de datos."),
                                      QStringLiteral("nombre"), QStringLiteral("zolmardemo"));
    const QCommandLineOption script(
        QStringLiteral("script"),
        QStringLiteral("Sesión guiada sin usuario; las capturas van a la carpeta."),
        QStringLiteral("carpeta"));
    const QCommandLineOption hold(QStringLiteral("hold-lock"),
                                  QStringLiteral("Bloquea el cliente hasta cerrar la entrada."),
                                  QStringLiteral("id"));
    const QCommandLineOption json(
        QStringLiteral("json"),
        QStringLiteral("Órdenes de zolmar script por la entrada estándar, con la ficha de "
                       "clientes como objeto ClientesDemo."));
    parser.addOptions({data, server, database, script, hold, json});
    parser.process(app);
    Options options;
    options.data = parser.isSet(data)
                       ? parser.value(data)
                       : QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                             QStringLiteral("/zolmar-demo");
    options.settings.database = parser.value(database);
    options.settings.server = parser.isSet(server) ? parser.value(server)
                                                   : QStringLiteral("sqlite:") + options.data +
                                                         QStringLiteral("/servidor");
    options.holdLock = parser.value(hold).toInt();
    options.json = parser.isSet(json);
    if (parser.isSet(script))
        options.script = parser.value(script);
    else if (!HasDisplay())
        options.script = options.data + QStringLiteral("/capturas");
    return options;
}

// The arguments a second process needs to open the same database.
QStringList SameDatabase(const Options& options) {
    return {QCoreApplication::applicationFilePath(), QStringLiteral("--server"),
            options.settings.server, QStringLiteral("--database"), options.settings.database};
}

} // namespace

int main(int argc, char** argv) {
    if (!HasDisplay() && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("zolmar-demo"));
    const Options options = ReadOptions(app);
    if (options.json) return RunScriptCommand();
    if (options.settings.server.startsWith(QStringLiteral("sqlite:")))
        QDir().mkpath(options.settings.server.mid(7));
    // Without a user nobody could answer a dialog: messages go to the console.
    std::optional<ScopedMsgPresenter> console;
    if (!options.script.isEmpty() || options.holdLock > 0) console.emplace(ConsoleMsgPresenter());
    QString error;
    const cConexionPtr cn = DemoDatabase::Open(options.settings, error);
    if (!cn) {
        std::fprintf(stderr, "%s\n", error.toUtf8().constData());
        return 1;
    }
    if (options.holdLock > 0) return HoldLock(cn, options.holdLock);
    // The record toolbar writes the change log of every edit and deletion.
    LibraryState::Instance().HabilitarRegistro_LogFichas(true);
    if (options.script.isEmpty()) {
        MainWindow window(cn, options.settings.server);
        window.resize(780, 680);
        window.show();
        return QApplication::exec();
    }
    QDir().mkpath(options.script);
    ScriptedSession session(cn, options.settings.server, QDir(options.script),
                            SameDatabase(options));
    return session.Run() ? 0 : 2;
}
