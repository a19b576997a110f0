// CtlFichaLogic: the movement buttons, and the walk through the list of the last search.

#include "form/CtlFichaLogic.h"
#include "table/cDatos.h"

namespace zlx {

void CtlFichaLogic::MoveButtonClick(int nButton) {
    if (nButton < 0 || nButton >= kFichaMoveButtons) return;
    ++m_uncompleted;
    Events().BeforeMove(nButton);
    const std::int32_t previousID = CurrentID();
    std::int32_t reached = 0;
    if (!(SearchListMode() && MoveInLastSearch(nButton, previousID))) reached = MoveCursor(nButton);
    if (reached != previousID) {
        Events().AfterMove(nButton);
        ShowButtons(false);
    } else {
        m_view.Beep();
    }
    --m_uncompleted;
}

std::int32_t CtlFichaLogic::MoveCursor(int nButton) {
    if (!m_ficha) return 0;
    switch (nButton) {
    case zlxCtlFichaMove_First:
        return m_ficha->MoveFirst();
    case zlxCtlFichaMove_Previous:
        return m_ficha->MovePrevious(true);
    case zlxCtlFichaMove_Next:
        return m_ficha->MoveNext();
    default:
        return m_ficha->MoveLast();
    }
}

bool CtlFichaLogic::LastSearchRows(cMatriz& rows) const {
    const VariantArrayPtr array = m_lastSearchData.ToArray();
    if (!array) return false;
    try {
        rows.LoadFromArray(m_lastSearchData);
    } catch (const std::exception&) {
        return false;
    }
    return rows.Rows() > 0;
}

bool CtlFichaLogic::MoveInLastSearch(int nButton, std::int32_t previousID) {
    cMatriz rows;
    if (!LastSearchRows(rows)) return false;
    const std::int32_t first = rows.FirstRow();
    const std::int32_t last = rows.LastRow();
    const std::int32_t idColumn = rows.FirstCol();
    std::int32_t found = first - 1;
    for (std::int32_t row = first; row <= last && found < first; ++row)
        if (rows.GetValue(idColumn, row) == Variant(previousID)) found = row;
    const bool notFound = found < first;
    std::int32_t chosen = first - 1;
    switch (nButton) {
    case zlxCtlFichaMove_First:
        chosen = first;
        break;
    case zlxCtlFichaMove_Last:
        chosen = last;
        break;
    case zlxCtlFichaMove_Previous:
        chosen = notFound ? last : found - 1;
        break;
    default:
        chosen = notFound ? first : (found < last ? found + 1 : first - 1);
        break;
    }
    if (chosen >= first)
        ShowSearchListIdentity(rows.GetValue(idColumn, chosen).ToLong(), previousID);
    return true;
}

void CtlFichaLogic::ShowSearchListIdentity(std::int32_t id, std::int32_t previousID) {
    if (id < 1 || !m_ficha) return;
    if (m_ficha->SeekID(id) > 0 && m_ficha->IsValidRecord() && !m_ficha->IsFiltered()) {
        ShowButtons(false);
        return;
    }
    if (previousID > 0) m_ficha->SeekID(previousID);
}

bool CtlFichaLogic::RunSearchListDialog() {
    if (!m_lastSearchData.IsArray()) return false;
    cMatriz rows;
    if (!LastSearchRows(rows)) return false;
    cDatos table;
    std::int32_t nullColumn = 0;
    try {
        table.LoadMatriz(&rows, &nullColumn);
    } catch (const std::exception&) {
        return false;
    }
    if (nullColumn > 0) {
        const VariantArrayPtr headers = m_lastSearchHdrStrings.ToArray();
        const std::int32_t index = nullColumn - 1;
        const QString header = headers && headers->Rank() == 1 && index >= headers->LBound() &&
                                       index <= headers->UBound() && !headers->At(index).IsNull()
                                   ? headers->At(index).ToString()
                                   : QString();
        Message(QStringLiteral("Se ha detectado que <B>la columna Nº ") + QString::number(index) +
                    QStringLiteral(" (<I>") + header +
                    QStringLiteral("</I>)</B> contiene valores nulos.<BR>") +
                    QStringLiteral("Póngase en contacto con Zolmar Soft, S.L. para corregir esta "
                                   "situación."),
                32515, 0, QStringLiteral("Valores nulos en la búsqueda"));
    }
    const Variant picked = table.Buscar(
        Translated(QStringLiteral("Resultado de la búsqueda: (<n>) filas")), m_lastSearchHdrStrings,
        m_lastSearchHdrWidths, 1, m_lastSearchFirstVisibleColumn + 1, 500, Variant(), 1.0, false);
    std::int32_t id = 0;
    try {
        id = picked.IsEmpty() || picked.IsNull() ? 0 : picked.ToLong();
    } catch (const VariantError&) {
        id = 0;
    }
    ShowSearchListIdentity(id, CurrentID());
    return true;
}

void CtlFichaLogic::ShowLastSearch() {
    cMatriz rows;
    if (LastSearchRows(rows)) rows.ShowData();
}

} // namespace zlx
