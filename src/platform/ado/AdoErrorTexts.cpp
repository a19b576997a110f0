#include "platform/ado/AdoErrorTexts.h"

#include "platform/engines/AdoConstants.h"

namespace zlx::ado {

QString AdoErrorText(std::int32_t number) {
    switch (number) {
    case adErrInvalidArgument:
        return QStringLiteral("Arguments are of the wrong type, are out of acceptable range, or "
                              "are in conflict with one another.");
    case adErrOpeningFile:
        return QStringLiteral("File could not be opened.");
    case adErrReadFile:
        return QStringLiteral("File could not be read.");
    case adErrWriteFile:
        return QStringLiteral("Write to file failed.");
    case adErrNoCurrentRecord:
        return QStringLiteral("Either BOF or EOF is True, or the current record has been "
                              "deleted. Requested operation requires a current record.");
    case adErrIllegalOperation:
        return QStringLiteral("Operation is not allowed in this context.");
    case adErrFeatureNotAvailable:
        return QStringLiteral("Object or provider is not capable of performing requested "
                              "operation.");
    case adErrItemNotFound:
        return QStringLiteral("Item cannot be found in the collection corresponding to the "
                              "requested name or ordinal.");
    case adErrObjectInCollection:
        return QStringLiteral("Object is already in collection. Cannot append.");
    case adErrDataConversion:
        return QStringLiteral("Application uses a value of the wrong type for the current "
                              "operation.");
    case adErrObjectClosed:
        return QStringLiteral("Operation is not allowed when the object is closed.");
    case adErrObjectOpen:
        return QStringLiteral("Operation is not allowed when the object is open.");
    case adErrInvalidConnection:
        return QStringLiteral("The connection cannot be used to perform this operation. It is "
                              "either closed or invalid in this context.");
    case adErrStillExecuting:
        return QStringLiteral("Operation is not allowed when the object is still executing.");
    case adErrOperationCancelled:
        return QStringLiteral("Operation has been cancelled by the user.");
    case adHrMultipleStep:
        return QStringLiteral("Multiple-step operation generated errors. Check each status "
                              "value.");
    case adHrCommandFailed:
        return QStringLiteral("Syntax error or access violation.");
    default:
        return QStringLiteral("Unspecified error.");
    }
}

void RaiseAdoError(std::int32_t number, const QString& detail) {
    QString text = AdoErrorText(number);
    if (!detail.isEmpty()) text += QLatin1Char(' ') + detail;
    throw AdoError(number, text);
}

} // namespace zlx::ado
