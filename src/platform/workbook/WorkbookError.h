#pragma once
// A workbook that cannot be read or written: the message the provider reports.

#include <QString>
#include <stdexcept>

namespace zlx::workbook {

class WorkbookError : public std::runtime_error {
public:
    explicit WorkbookError(const QString& message)
        : std::runtime_error(message.toStdString()), m_message(message) {}
    const QString& Message() const { return m_message; }

private:
    QString m_message;
};

} // namespace zlx::workbook
