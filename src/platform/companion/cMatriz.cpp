#include "platform/companion/cMatriz.h"

#include <QStringList>
#include <cstdio>

namespace zlx {

namespace {

cMatriz::Viewer& RegisteredViewer() {
    static cMatriz::Viewer viewer;
    return viewer;
}

} // namespace

QString cMatriz::CellText(const Variant& value) {
    if (value.IsNull()) return QStringLiteral("Null");
    if (value.IsObject() || value.IsArray()) return value.TypeName();
    return value.ToString();
}

void cMatriz::PrintToConsole(const cMatriz& m, const QString& title) {
    QString text = title.isEmpty() ? QString() : title + u'\n';
    for (std::int32_t row = m.FirstRow(); row <= m.LastRow(); ++row) {
        QStringList cells;
        for (std::int32_t col = m.FirstCol(); col <= m.LastCol(); ++col)
            cells << CellText(m.GetValue(col, row));
        text += cells.join(u'\t') + u'\n';
    }
    std::fputs(text.toLocal8Bit().constData(), stdout);
}

cMatriz::cMatriz()
    : m_cells(std::make_shared<VariantArray>(std::vector<VariantArray::Bound>{{1, 0}, {1, 0}})) {}

std::int32_t cMatriz::Rows() const {
    return m_cells->Bounds()[1].count;
}
std::int32_t cMatriz::Cols() const {
    return m_cells->Bounds()[0].count;
}

Variant cMatriz::GetVariant() const {
    return Variant(std::make_shared<VariantArray>(*m_cells));
}

void cMatriz::Dimension(std::int32_t nFirstCol, std::int32_t nLastCol, std::int32_t nFirstRow,
                        std::int32_t nLastRow) {
    m_cells = std::make_shared<VariantArray>(
        std::vector<VariantArray::Bound>{{nFirstCol, std::max(0, nLastCol - nFirstCol + 1)},
                                         {nFirstRow, std::max(0, nLastRow - nFirstRow + 1)}});
}

Variant cMatriz::GetValue(std::int32_t nCol, std::int32_t nRow) const {
    return m_cells->At(nCol, nRow);
}

void cMatriz::SetValue(std::int32_t nCol, std::int32_t nRow, const Variant& xValue) {
    m_cells->At(nCol, nRow) = xValue;
}

void cMatriz::LoadFromArray(const Variant& aData) {
    const VariantArrayPtr source = aData.ToArray();
    if (!source || source->Rank() < 1 || source->Rank() > 2)
        throw VariantError(vbErrTypeMismatch, QStringLiteral("Type mismatch"));
    if (source->Rank() == 2) {
        m_cells = std::make_shared<VariantArray>(*source);
        return;
    }
    Dimension(source->LBound(), source->UBound(), 1, 1);
    m_cells->Data() = source->Data();
}

void cMatriz::AddRow(const Variant& aValues) {
    const std::int32_t row = LastRow() + 1;
    m_cells->RedimPreserveLast(row);
    const VariantArrayPtr values = aValues.ToArray();
    if (!values) return;
    const auto& items = values->Data();
    const std::int32_t count =
        std::min<std::int32_t>(Cols(), static_cast<std::int32_t>(items.size()));
    for (std::int32_t i = 0; i < count; ++i)
        m_cells->At(FirstCol() + i, row) = items[static_cast<std::size_t>(i)];
}

Variant cMatriz::LookupValue(const Variant& xSearch, std::int32_t nSearchCol,
                             std::int32_t nResultCol, const Variant& xDefault,
                             bool lTextCompare) const {
    for (std::int32_t row = FirstRow(); row <= LastRow(); ++row) {
        const Variant& cell = m_cells->At(nSearchCol, row);
        const bool found = lTextCompare ? cell.Compare(xSearch, true) == 0 : cell == xSearch;
        if (found) return m_cells->At(nResultCol, row);
    }
    return xDefault;
}

void cMatriz::ShowData(const QString& cTitle) const {
    if (RegisteredViewer())
        RegisteredViewer()(*this, cTitle);
    else
        PrintToConsole(*this, cTitle);
}

void cMatriz::RegisterViewer(Viewer viewer) {
    RegisteredViewer() = std::move(viewer);
}

} // namespace zlx
