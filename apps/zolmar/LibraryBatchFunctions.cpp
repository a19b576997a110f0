// The table of library functions behind `zolmar batch`: one entry per function, with the
// method's own defaults for the arguments left out.

#include "BatchFunctions.h"
#include "connection/cConexion.h"
#include "language/cIdioma.h"
#include "ui/cAppUI.h"

#include <QObject>
#include <QVariant>
#include <memory>

namespace zlx {

namespace {

Variant Num2Text(const BatchArguments& a) {
    return cIdioma().Num2Text(a.Double(0), a.Long(1, 2), a.String(2), a.String(3), a.String(4),
                              a.String(5), a.Bool(6, false), a.Bool(7, true));
}

Variant Long2Text(const BatchArguments& a) {
    return cIdioma().Long2Text(a.Long(0));
}

Variant ValidarNombre(const BatchArguments& a) {
    return cAppUI().ValidarNombre(a.At(0), a.Bool(1, true), a.Bool(2, true), a.Bool(3, true),
                                  a.Bool(4, true));
}

Variant String2ID(const BatchArguments& a) {
    return cAppUI().String2ID(a.String(0));
}

// The SQL text helpers are the connection's; they need no open connection.
Variant PonComillas(const BatchArguments& a) {
    return cConexion().PonComillas(a.At(0), a.Long(1, zlxLikeConstantsNone));
}

Variant SoloFecha(const BatchArguments& a) {
    return cConexion().SoloFecha(a.String(0));
}

Variant SoloHora(const BatchArguments& a) {
    return cConexion().SoloHora(a.String(0), a.Bool(1, false));
}

// The filter text, or "" when the search text is not a word list.
Variant FiltroPorPalabras(const BatchArguments& a) {
    QString filter;
    cConexion().FiltroPorPalabras(a.String(0), a.String(1), filter);
    return filter;
}

Variant DatoADO2ZLX(const BatchArguments& a) {
    return cConexion().DatoADO2ZLX(a.Long(0), a.Long(1, 0), a.Long(2, 0));
}

Variant DatoZLX2ADO(const BatchArguments& a) {
    return cConexion().DatoZLX2ADO(a.Long(0), a.Long(1, zlxDataProvider_MSDE));
}

Variant DatoADO2OCX(const BatchArguments& a) {
    return cConexion().DatoADO2OCX(a.Long(0));
}

Variant DatoZLX2OCX(const BatchArguments& a) {
    return cConexion().DatoZLX2OCX(a.Long(0));
}

Variant DatoSQL2ZLX(const BatchArguments& a) {
    return cConexion().DatoSQL2ZLX(a.Long(0));
}

// Without a control: mode, value and field name, as the connection's Str2Where takes them.
Variant Str2Where(const BatchArguments& a) {
    const Variant condition = cConexion().Str2Where(nullptr, a.Long(0, zlxWhere_Like),
                                                    a.Given(1) ? a.At(1) : Variant(), a.String(2));
    return condition.IsEmpty() || condition.ToString().isEmpty() ? Variant() : condition;
}

// Ticked flags as booleans, the field, the mode and the value of each box.
Variant CheckBoxes2Where(const BatchArguments& a) {
    std::vector<std::unique_ptr<QObject>> boxes;
    std::vector<QObject*> controls;
    const VariantArrayPtr ticked = a.At(0).ToArray();
    for (const Variant& flag : ticked ? ticked->Data() : std::vector<Variant>{a.At(0)}) {
        boxes.push_back(std::make_unique<QObject>());
        boxes.back()->setProperty("Value", flag.ToBool() ? 1 : 0);
        controls.push_back(boxes.back().get());
    }
    return cConexion().CheckBoxes2Where(controls, a.String(1), a.Long(2), a.At(3));
}

Variant ReplaceWhere(const BatchArguments& a) {
    return cConexion().ReplaceWhere(a.String(0), a.At(1), a.At(2));
}

BatchFunctions MakeLibraryBatchFunctions() {
    BatchFunctions functions;
    functions.Add(QStringLiteral("Num2Text"), 1, 8, Num2Text);
    functions.Add(QStringLiteral("Long2Text"), 1, 1, Long2Text);
    functions.Add(QStringLiteral("ValidarNombre"), 1, 5, ValidarNombre);
    functions.Add(QStringLiteral("String2ID"), 1, 1, String2ID);
    functions.Add(QStringLiteral("PonComillas"), 1, 2, PonComillas);
    functions.Add(QStringLiteral("SoloFecha"), 1, 1, SoloFecha);
    functions.Add(QStringLiteral("SoloHora"), 1, 2, SoloHora);
    functions.Add(QStringLiteral("FiltroPorPalabras"), 2, 2, FiltroPorPalabras);
    functions.Add(QStringLiteral("DatoADO2ZLX"), 1, 3, DatoADO2ZLX);
    functions.Add(QStringLiteral("DatoZLX2ADO"), 1, 2, DatoZLX2ADO);
    functions.Add(QStringLiteral("DatoADO2OCX"), 1, 1, DatoADO2OCX);
    functions.Add(QStringLiteral("DatoZLX2OCX"), 1, 1, DatoZLX2OCX);
    functions.Add(QStringLiteral("DatoSQL2ZLX"), 1, 1, DatoSQL2ZLX);
    functions.Add(QStringLiteral("Str2Where"), 3, 3, Str2Where);
    functions.Add(QStringLiteral("CheckBoxes2Where"), 4, 4, CheckBoxes2Where);
    functions.Add(QStringLiteral("ReplaceWhere"), 3, 3, ReplaceWhere);
    return functions;
}

} // namespace

const BatchFunctions& LibraryBatchFunctions() {
    static const BatchFunctions functions = MakeLibraryBatchFunctions();
    return functions;
}

} // namespace zlx
