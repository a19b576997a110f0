#include "platform/ado/FieldIndex.h"

#include <algorithm>
#include <numeric>

namespace zlx::ado {

void FieldIndex::Build() {
    m_byText.clear();
    m_numberRows.clear();
    const ColumnStore::Kind kind = m_column.GetKind();
    if (kind == ColumnStore::Kind::Text || kind == ColumnStore::Kind::Other) {
        for (std::size_t row = 0; row < m_column.Size(); ++row) {
            if (m_column.IsNull(row)) continue;
            const QString text = kind == ColumnStore::Kind::Text ? m_column.TextAt(row).toString()
                                                                 : m_column.Get(row).ToString();
            m_byText[text.toCaseFolded()].push_back(static_cast<std::uint32_t>(row));
        }
    } else {
        std::vector<std::uint32_t> rows;
        rows.reserve(m_column.Size());
        for (std::size_t row = 0; row < m_column.Size(); ++row) {
            if (!m_column.IsNull(row)) rows.push_back(static_cast<std::uint32_t>(row));
        }
        std::stable_sort(rows.begin(), rows.end(), [this](std::uint32_t a, std::uint32_t b) {
            return m_column.NumberAt(a) < m_column.NumberAt(b);
        });
        m_numberRows = std::move(rows);
    }
    m_built = true;
}

std::span<const std::uint32_t> FieldIndex::Lookup(const Variant& value) {
    if (!m_built) Build();
    const ColumnStore::Kind kind = m_column.GetKind();
    if (kind == ColumnStore::Kind::Text || kind == ColumnStore::Kind::Other) {
        const auto it = m_byText.constFind(value.ToString().toCaseFolded());
        if (it == m_byText.constEnd()) return {};
        return {it->data(), it->size()};
    }
    const double key = value.ToDouble();
    const auto first = std::lower_bound(
        m_numberRows.begin(), m_numberRows.end(), key,
        [this](std::uint32_t row, double k) { return m_column.NumberAt(row) < k; });
    const auto last =
        std::upper_bound(first, m_numberRows.end(), key, [this](double k, std::uint32_t row) {
            return k < m_column.NumberAt(row);
        });
    return {m_numberRows.data() + (first - m_numberRows.begin()),
            static_cast<std::size_t>(last - first)};
}

} // namespace zlx::ado
