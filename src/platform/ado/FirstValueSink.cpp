#include "platform/ado/FirstValueSink.h"

#include "platform/ado/ColumnStore.h"
#include "platform/ado/RecordsetBuilder.h"

namespace zlx::ado {

void FirstValueSink::BeginRowset(const std::vector<ColumnInfo>& columns) {
    if (m_first != First::None) return;
    m_first = First::Rowset;
    m_reading = true;
    m_hasColumn = !columns.empty();
    if (m_hasColumn) m_column = columns.front();
}

bool FirstValueSink::Row(std::vector<Variant>& values) {
    if (!m_reading || m_hasRow) return true;
    m_hasRow = true;
    if (!m_hasColumn || values.empty()) return true;
    // Stored and read back as the recordset's column would store it.
    const FieldDefinition field = Field::Completed(RecordsetBuilder::DefinitionOf(m_column));
    ColumnStore store(field.type, field.definedSize, (field.attributes & adFldLong) != 0);
    store.Append(values.front());
    m_value = store.Get(0);
    return true;
}

void FirstValueSink::RowsAffected(std::int64_t) {
    if (m_first == First::None) m_first = First::Count;
}

} // namespace zlx::ado
