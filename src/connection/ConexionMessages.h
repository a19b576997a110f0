#pragma once
// The texts with which the connection reports failures: the composed error message, the
// listing of the server's messages and the log lines of the native-code checks.

#include "platform/engines/AdoError.h"

#include <QString>
#include <functional>
#include <vector>

namespace zlx::ConexionMessages {

// A translation applied to the message and title (identity when none is installed).
using Translate = std::function<QString(const QString&)>;

struct ComposedMessage {
    QString text;
    QString title;
};

// The error message for a zlxConexionErrors code, with the failing error's description and
// number and the caller's additional information.
ComposedMessage Compose(int nError, const QString& description, std::int32_t errorNumber,
                        const QString& cInfo, const Translate& translate = {});

// The text appended for each code (empty for codes without one).
QString CodeText(int nError, const QString& cInfo);

// The description that replaces a failed SQL Server open: the nine likely causes.
QString ServerUnreachableDescription();

// "El servidor SQL ha retornado ..." listing of the given errors.
QString ServerMessages(const std::vector<ado::ErrorRecord>& errors);

// The log text of a search for a native code among the errors.
QString NativeCodeCheck(std::int32_t nSearchedCode, const std::vector<ado::ErrorRecord>& errors,
                        bool found);

// One ChkError step: the run-time error line (when number is not 0) and the errors up to and
// including errors[upTo].
QString ErrorDump(std::int32_t runtimeNumber, const QString& runtimeDescription,
                  const std::vector<ado::ErrorRecord>& errors, std::size_t upTo);

} // namespace zlx::ConexionMessages
