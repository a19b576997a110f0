#include "platform/engines/AdoError.h"

namespace zlx::ado {

AdoError::AdoError(std::int32_t number, const QString& description,
                   std::vector<ErrorRecord> records)
    : std::runtime_error(description.toStdString()), m_number(number),
      m_records(std::move(records)) {}

} // namespace zlx::ado
