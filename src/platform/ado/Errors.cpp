#include "platform/ado/Errors.h"

#include "platform/ado/AdoErrorTexts.h"

namespace zlx::ado {

const ErrorRecord& Errors::Item(int index) const {
    if (index < 0 || index >= Count()) RaiseAdoError(adErrItemNotFound);
    return m_records[static_cast<std::size_t>(index)];
}

void Errors::Fill(const AdoError& error) {
    m_records = error.Records();
    if (m_records.empty()) {
        ErrorRecord record;
        record.number = error.Number();
        record.description = error.Description();
        record.source = QStringLiteral("ADODB.Connection");
        m_records.push_back(record);
    }
}

} // namespace zlx::ado
