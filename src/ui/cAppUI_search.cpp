// cAppUI: showing a stored search result again in the search window.

#include "table/cDatos.h"
#include "ui/cAppUI.h"

namespace zlx {

namespace {

// Element `index` of a list argument as text ("" when the list has no such element).
QString ListElement(const Variant& list, std::int32_t index) {
    const VariantArrayPtr array = list.ToArray();
    if (!array || array->Rank() != 1 || index < array->LBound() || index > array->UBound())
        return {};
    const Variant& element = array->At(index);
    return element.IsNull() ? QString() : element.ToString();
}

} // namespace

std::int32_t cAppUI::RepeatLastSearch(const Variant& aResultados, const Variant& aTitles,
                                      const Variant& aWidths, std::int32_t nFirstVisibleColumn,
                                      const QString& cWindowTitle, double nCustomZoomFactor) {
    // A result that cannot be loaded is a search with nothing to show.
    cDatos table;
    std::int32_t nullColumn = 0;
    try {
        cMatriz results;
        if (const auto given = aResultados.IsObject() ? aResultados.As<cMatriz>() : nullptr)
            results = *given;
        else
            results.LoadFromArray(aResultados);
        if (results.Rows() == 0) return 0;
        table.LoadMatriz(&results, &nullColumn);
    } catch (const std::exception&) {
        return 0;
    }
    if (table.RecCount() == 0) return 0;
    if (nullColumn > 0)
        OK_Message(QStringLiteral("Se ha detectado que <B>la columna Nº ") +
                       QString::number(nullColumn - 1) + QStringLiteral(" (<I>") +
                       ListElement(aTitles, nullColumn - 1) +
                       QStringLiteral("</I>)</B> contiene valores nulos.<BR>") +
                       QStringLiteral("Póngase en contacto con Zolmar Soft, S.L. para corregir "
                                      "esta situación."),
                   0, QStringLiteral("Valores nulos en la búsqueda"), 32515);
    const QString title = cWindowTitle.isEmpty()
                              ? QStringLiteral("Resultado de la búsqueda: (<n>) filas")
                              : cWindowTitle;
    const Variant picked = table.Buscar(title, aTitles, aWidths, 1, nFirstVisibleColumn + 1, 500,
                                        Variant(), nCustomZoomFactor, false);
    // What the first column holds is the identity of a record; anything else answers 0.
    try {
        return picked.IsEmpty() || picked.IsNull() ? 0 : picked.ToLong();
    } catch (const VariantError&) {
        return 0;
    }
}

} // namespace zlx
