// The table of library functions behind `zolmar batch`: one entry per function, with the
// method's own defaults for the arguments left out.

#include "BatchFunctions.h"
#include "language/cIdioma.h"
#include "ui/cAppUI.h"

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

BatchFunctions MakeLibraryBatchFunctions() {
    BatchFunctions functions;
    functions.Add(QStringLiteral("Num2Text"), 1, 8, Num2Text);
    functions.Add(QStringLiteral("Long2Text"), 1, 1, Long2Text);
    functions.Add(QStringLiteral("ValidarNombre"), 1, 5, ValidarNombre);
    functions.Add(QStringLiteral("String2ID"), 1, 1, String2ID);
    return functions;
}

} // namespace

const BatchFunctions& LibraryBatchFunctions() {
    static const BatchFunctions functions = MakeLibraryBatchFunctions();
    return functions;
}

} // namespace zlx
