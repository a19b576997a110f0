#include "platform/ado/RecordsetBuilder.h"

#include "platform/ado/Recordset.h"

namespace zlx::ado {

RecordsetBuilder::RecordsetBuilder(Recordset& target) : m_target(target) {}

Recordset& RecordsetBuilder::NextTarget() {
    if (m_results++ == 0) return m_target;
    auto next = std::make_shared<Recordset>();
    next->SetCursorLocation(m_target.CursorLocation());
    next->SetCursorType(m_target.CursorType());
    next->SetLockType(m_target.LockType());
    next->SetSource(m_target.Source());
    m_target.PushNextResult(next);
    return *next;
}

FieldDefinition RecordsetBuilder::DefinitionOf(const ColumnInfo& c) {
    FieldDefinition def;
    def.name = c.name;
    def.type = c.type;
    def.definedSize = c.definedSize;
    def.precision = c.precision;
    def.numericScale = c.numericScale;
    def.attributes = c.attributes == 0 ? adFldUnspecified : c.attributes;
    def.baseTable = c.baseTable;
    def.baseColumn = c.baseColumn;
    def.keyColumn = c.keyColumn;
    def.baseTableId = c.baseTableId;
    def.baseColumnNumber = c.baseColumnNumber;
    def.autoIncrement = c.autoIncrement;
    return def;
}

void RecordsetBuilder::BeginRowset(const std::vector<ColumnInfo>& columns) {
    Recordset& target = NextTarget();
    target.GetFields().Clear();
    for (const ColumnInfo& c : columns)
        target.GetFields().Define(DefinitionOf(c));
    target.PrepareColumns();
    target.SetStateBits(adStateOpen | adStateFetching);
    m_current = &target;
    m_fetching = true;
    m_rows = 0;
}

bool RecordsetBuilder::Row(std::vector<Variant>& values) {
    if (m_cancelled || m_current == nullptr) return false;
    const long max = m_current->MaxRecords();
    if (max > 0 && m_rows >= max) return false;
    m_current->AppendRow(values);
    ++m_rows;
    if (m_rows % kProgressEvery == 0) emit m_current->FetchProgress(static_cast<long>(m_rows), -1);
    return !m_cancelled;
}

void RecordsetBuilder::EndRowset() {
    Finish();
}

void RecordsetBuilder::Finish() {
    if (!m_fetching) return;
    m_fetching = false;
    m_current->FinishOpen(adStateOpen);
    emit m_current->FetchComplete();
}

void RecordsetBuilder::RowsAffected(std::int64_t count) {
    Recordset& target = NextTarget();
    target.SetRecordsAffected(count);
    target.SetStateBits(adStateClosed);
}

} // namespace zlx::ado
