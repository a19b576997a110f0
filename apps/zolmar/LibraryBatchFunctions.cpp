// The table of library functions behind `zolmar batch`: one entry per function, with the
// method's own defaults for the arguments left out.

#include "BatchFunctions.h"
#include "connection/SqlText.h"
#include "connection/WhereBuilder.h"
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

Variant PonComillas(const BatchArguments& a) {
    return SqlText::PonComillas(a.At(0), a.Long(1, zlxLikeConstantsNone));
}

Variant SoloFecha(const BatchArguments& a) {
    return SqlText::SoloFecha(a.String(0));
}

Variant SoloHora(const BatchArguments& a) {
    return SqlText::SoloHora(a.String(0), a.Bool(1, false));
}

// The filter text, or "" when the search text is not a word list.
Variant FiltroPorPalabras(const BatchArguments& a) {
    QString filter;
    SqlText::FiltroPorPalabras(a.String(0), a.String(1), filter);
    return filter;
}

// Without a control: mode, value and field name, as the connection's Str2Where takes them.
Variant Str2Where(const BatchArguments& a) {
    const QString field = a.String(2);
    if (field.isEmpty()) return Variant();
    const QString condition =
        WhereBuilder::Condition(field, a.Given(1) ? a.At(1) : Variant(), a.Long(0, zlxWhere_Like));
    return condition.isEmpty() ? Variant() : Variant(condition);
}

std::vector<Variant> Elements(const Variant& list) {
    const VariantArrayPtr array = list.ToArray();
    return array ? array->Data() : std::vector<Variant>{list};
}

std::vector<QString> Texts(const Variant& list) {
    std::vector<QString> texts;
    for (const Variant& item : Elements(list))
        texts.push_back(item.ToString());
    return texts;
}

// Ticked flags as booleans, the field, the mode and the value of each box.
Variant CheckBoxes2Where(const BatchArguments& a) {
    std::vector<Variant> boxes;
    for (const Variant& ticked : Elements(a.At(0)))
        boxes.push_back(Variant(std::int32_t(ticked.ToBool() ? 1 : 0)));
    return WhereBuilder::CheckBoxes(boxes, a.String(1), a.Long(2), Elements(a.At(3)));
}

Variant ReplaceWhere(const BatchArguments& a) {
    return WhereBuilder::ReplaceWhere(a.String(0), Texts(a.At(1)), Texts(a.At(2)));
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
