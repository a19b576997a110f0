#pragma once
// The index a field's "Optimize" property builds: numbers as a sorted array searched by
// halving, texts grouped by their case-folded value, so that an equality Find or Filter on
// the field looks its rows up.

#include "platform/ado/ColumnStore.h"

#include <QHash>
#include <span>
#include <vector>

namespace zlx::ado {

class FieldIndex {
public:
    explicit FieldIndex(const ColumnStore& column) : m_column(column) {}

    void Invalidate() { m_built = false; }
    // Physical rows holding `value` (as FilterCriteria compiled it), in physical order.
    std::span<const std::uint32_t> Lookup(const Variant& value);

private:
    void Build();
    const ColumnStore& m_column;
    bool m_built = false;
    QHash<QString, std::vector<std::uint32_t>> m_byText;
    std::vector<std::uint32_t> m_numberRows; // non-null rows, by value (stable)
};

} // namespace zlx::ado
