// zolmar: the library's command line.

#include "BatchFunctions.h"
#include "BatchRunner.h"
#include "DbfCommand.h"
#include "Demo.h"
#include "MdbImportCommand.h"
#include "SqlCommand.h"
#include "script/ScriptCommand.h"
#include "zolmar.h"

#include <QApplication>
#include <QCoreApplication>
#include <cstdio>
#include <cstring>
#include <memory>
#include <unistd.h>

namespace {

int Usage() {
    std::fprintf(
        stderr,
        "usage: zolmar --version | demo | batch < calls.jsonl | dbf dump FILE | dbf create FILE < "
        "table.json | sql --provider N --server S --db NAME [TEXT] | script < lines.jsonl | "
        "mdb-import FILE\n");
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    const bool script = argc == 2 && std::strcmp(argv[1], "script") == 0;
    // A script's forms need widgets: offscreen when there is no display to show them on.
    if (script && qEnvironmentVariableIsEmpty("DISPLAY") &&
        qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The connection's waits turn the application's event loop.
    const std::unique_ptr<QCoreApplication> app =
        script ? std::make_unique<QApplication>(argc, argv)
               : std::make_unique<QCoreApplication>(argc, argv);
    QStringList args;
    for (int i = 2; i < argc; ++i)
        args << QString::fromLocal8Bit(argv[i]);
    if (argc >= 2 && std::strcmp(argv[1], "dbf") == 0) return zlx::RunDbfCommand(args);
    if (argc >= 2 && std::strcmp(argv[1], "sql") == 0)
        return zlx::RunSqlCommand(args, stdin, stdout);
    if (argc >= 2 && std::strcmp(argv[1], "mdb-import") == 0)
        return zlx::RunMdbImportCommand(args, stdout, stderr, isatty(STDERR_FILENO));
    if (argc != 2) return Usage();
    if (std::strcmp(argv[1], "--version") == 0) {
        std::printf("zolmar %s\n", zlx::LibraryVersion().toUtf8().constData());
        return 0;
    }
    if (std::strcmp(argv[1], "demo") == 0) return zlx::RunDemo(stdout);
    if (std::strcmp(argv[1], "script") == 0) return zlx::RunScriptCommand();
    if (std::strcmp(argv[1], "batch") == 0)
        return zlx::RunBatch(stdin, stdout, zlx::LibraryBatchFunctions(), isatty(STDIN_FILENO));
    return Usage();
}
