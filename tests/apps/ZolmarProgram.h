#pragma once
// Runs the built `zolmar` program as a user would: its arguments, standard input and what it
// writes on standard output.

#include <QByteArray>
#include <QProcess>
#include <QStringList>
#include <QTemporaryFile>

namespace zlx::test {

struct ProgramRun {
    int exitCode = -1;
    QByteArray out;
};

inline ProgramRun Zolmar(const QStringList& arguments, const QByteArray& input = QByteArray()) {
    QProcess process;
    QTemporaryFile inputFile;
    if (!inputFile.open()) return {};
    inputFile.write(input);
    inputFile.close();
    process.setStandardInputFile(inputFile.fileName());
    process.start(QStringLiteral(ZOLMAR_BIN), arguments);
    if (!process.waitForFinished(60000)) return {};
    return {process.exitCode(), process.readAllStandardOutput()};
}

} // namespace zlx::test
