#include "Demo.h"

#include "DemoData.h"
#include "PrintingMsgPresenter.h"
#include "frame/LibraryState.h"
#include "frame/cGlobales.h"
#include "language/cIdioma.h"
#include "ui/cAppUI.h"
#include "zolmar.h"

#include <QFile>

namespace zlx {

namespace {

const QString kStartUpLine = QStringLiteral("Procedimiento de inicio realizado con éxito");

void Print(std::FILE* out, const QString& text) {
    std::fputs(text.toUtf8().constData(), out);
    std::fputc('\n', out);
}

QString YesNo(bool value) {
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

// The last line of the library log written by this process's start-up ("" when missing).
QString LastStartUpLine() {
    QFile log(LibraryLog().FileName());
    if (!log.open(QIODevice::ReadOnly)) return {};
    const QStringList lines = QString::fromUtf8(log.readAll()).split(u'\n');
    for (auto line = lines.crbegin(); line != lines.crend(); ++line)
        if (line->endsWith(kStartUpLine)) return *line;
    return {};
}

bool ShowStartUp(std::FILE* out) {
    const LibraryState& state = LibraryState::Instance();
    Print(out, QStringLiteral("Registro de la biblioteca: ") + LibraryLog().FileName());
    const QString line = LastStartUpLine();
    Print(out,
          QStringLiteral("  ") + (line.isEmpty() ? QStringLiteral("(sin línea de inicio)") : line));
    Print(out, QStringLiteral("Interruptores: HabilitarRegistro_LogFichas=%1 CtlFichaReadOnly=%2 "
                              "AutoReconectar=%3")
                   .arg(YesNo(state.HabilitarRegistro_LogFichas()), YesNo(state.CtlFichaReadOnly()),
                        YesNo(state.AutoReconectar())));
    return !line.isEmpty();
}

void ShowNumbers(std::FILE* out) {
    cIdioma idioma;
    for (const double amount : {0.0, 1.0, 21.0, 1234.56, 2500000.0, 0.25, -5.0})
        Print(out, QStringLiteral("Num2Text(%1) = %2")
                       .arg(DoubleToString(amount), idioma.Num2Text(amount)));
    Print(out, QStringLiteral("Num2Text(21000, pesetas, femenino) = ") +
                   idioma.Num2Text(21000, 2, QStringLiteral("peseta"), QStringLiteral("pesetas"),
                                   QString(), QString(), true));
    Print(out, QStringLiteral("Long2Text(1515) = ") + idioma.Long2Text(1515));
}

void ShowLists(std::FILE* out) {
    const Variant numbers = Variant::Array({1, 2, 3});
    Print(out, QStringLiteral("ValorEnLista(3, Array(1, 2, 3)) = ") +
                   YesNo(ValorEnLista(Variant(3), numbers)));
    Print(out, QStringLiteral("ValorEnLista(\"3\", Array(1, 2, 3)) = ") +
                   YesNo(ValorEnLista(Variant("3"), numbers)));
    Print(out, QStringLiteral("ValorEnLista(\"A\", Array(\"a\")) = ") +
                   YesNo(ValorEnLista(Variant("A"), Variant::Array({Variant("a")}))));
}

void ShowInput(std::FILE* out) {
    cAppUI ui;
    for (const char* typed : {"Pérez", "12abc", "-5"}) {
        const QString reason = ui.ValidarNombre(Variant(typed));
        Print(
            out,
            QStringLiteral("ValidarNombre(\"%1\") = \"%2\"").arg(QString::fromUtf8(typed), reason));
    }
    Print(out,
          QStringLiteral("String2ID(\"-123x\") = %1").arg(ui.String2ID(QStringLiteral("-123x"))));
}

void ShowMessage(std::FILE* out) {
    PrintingMsgPresenter presenter(out);
    ScopedMsgPresenter installed(presenter);
    cIdioma idioma;
    cAppUI().OK_Message(QStringLiteral("Importe: <B>") + idioma.Num2Text(1234.56) +
                        QStringLiteral("</B><BR>Operación terminada."));
}

} // namespace

int RunDemo(std::FILE* out) {
    Print(out, QStringLiteral("ZolmarDataComponents ") + LibraryVersion());
    const bool started = ShowStartUp(out);
    ShowNumbers(out);
    ShowLists(out);
    ShowInput(out);
    ShowMessage(out);
    const bool data = RunDataDemo(out);
    std::fflush(out);
    return started && data ? 0 : 1;
}

} // namespace zlx
