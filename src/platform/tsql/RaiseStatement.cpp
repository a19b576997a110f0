#include "platform/tsql/RaiseStatement.h"

#include "platform/tsql/RaiseMessageFormat.h"
#include "platform/tsql/TokenLists.h"
#include "platform/tsql/TsqlErrors.h"

#include <algorithm>

namespace zlx::tsql {
namespace {

[[noreturn]] void ThrowSyntaxNear(const QString& text) {
    ThrowStatementError(QStringLiteral("Incorrect syntax near '%1'.").arg(text),
                        ado::kNativeSyntax);
}

// An informational message travels as PRINT's do (SQLSTATE 01000), an error as any other.
RaisedMessage ErrorMessage(const QString& text, std::int32_t native, int severity, int state) {
    RaisedMessage message;
    message.record = StatementError(text, native).Records().front();
    if (severity <= 10) {
        message.record.number = 0;
        message.record.sqlState = QStringLiteral("01000");
    }
    message.severity = severity;
    message.state = state;
    return message;
}

// The WITH options after the closing parenthesis at `close`: LOG, NOWAIT, SETERROR.
bool ReadOptions(const Tokens& statement, size_t close) {
    if (close + 1 == statement.size()) return false;
    if (!statement[close + 1].IsWord(u"WITH") || close + 2 == statement.size())
        ThrowSyntaxNear(statement[close + 1].text);
    bool log = false;
    for (size_t i = close + 2; i < statement.size(); i += 2) {
        const Token& option = statement[i];
        if (!option.IsWord(u"LOG") && !option.IsWord(u"NOWAIT") && !option.IsWord(u"SETERROR"))
            ThrowSyntaxNear(option.text);
        log = log || option.IsWord(u"LOG");
        if (i + 1 < statement.size() && !statement[i + 1].IsSymbol(u","))
            ThrowSyntaxNear(statement[i + 1].text);
    }
    return log;
}

} // namespace

std::optional<RaiseStatement> RaiseStatement::Read(const Tokens& statement) {
    if (statement.empty() || !statement.front().IsWord(u"RAISERROR")) return std::nullopt;
    if (statement.size() < 2 || !statement[1].IsSymbol(u"("))
        ThrowSyntaxNear(statement.size() < 2 ? u"RAISERROR"_qs : statement[1].text);
    size_t close = 1;
    for (int depth = 0; close < statement.size(); ++close) {
        if (statement[close].IsSymbol(u"("))
            ++depth;
        else if (statement[close].IsSymbol(u")") && --depth == 0)
            break;
    }
    if (close == statement.size()) ThrowSyntaxNear(statement.back().text);
    RaiseStatement raise;
    raise.values = SplitAtCommas(statement, 2, close);
    if (raise.values.size() < 3) ThrowSyntaxNear(statement[close].text);
    // At most 20 arguments after the state.
    if (raise.values.size() > 23)
        ThrowStatementError(QStringLiteral("Too many substitution parameters for RAISERROR. "
                                           "Cannot exceed 20 substitution parameters."),
                            2747);
    for (const Tokens& value : raise.values)
        if (value.empty()) ThrowSyntaxNear(QStringLiteral(","));
    raise.withLog = ReadOptions(statement, close);
    return raise;
}

Tokens RaiseStatement::Query() const {
    return SelectList(values);
}

RaisedMessage RaiseStatement::Message(const std::vector<Variant>& answered) const {
    // A severity below 0 is 0 and one past 25 is 25; a negative state is 1.
    const int severity = std::clamp(static_cast<int>(answered.at(1).ToInt64()), 0, 25);
    const int state = std::max(1, static_cast<int>(answered.at(2).ToInt64()));
    if (severity > 18 && !withLog)
        return ErrorMessage(QStringLiteral("Error severity levels greater than 18 can only be "
                                           "specified by members of the sysadmin role, using the "
                                           "WITH LOG option."),
                            2754, 16, 1);
    if (severity > 19) ThrowUnsupported(QStringLiteral("RAISERROR con gravedad %1").arg(severity));
    const Variant& message = answered.front();
    if (message.VarType() == vbString || message.IsNull())
        return ErrorMessage(
            FormatRaisedText(message.IsNull() ? QString() : message.ToInvariantString(),
                             std::vector<Variant>(answered.begin() + 3, answered.end())),
            50000, severity, state);
    const std::int64_t number = message.ToInt64();
    if (number < 13000 || number == 50000)
        return ErrorMessage(QStringLiteral("Error number %1 is invalid. The number must be from "
                                           "13000 through 2147483647 and it cannot be 50000.")
                                .arg(number),
                            2732, 16, 1);
    if (number < 50000)
        ThrowUnsupported(
            QStringLiteral("RAISERROR de un mensaje de sys.messages (%1)").arg(number));
    return ErrorMessage(QStringLiteral("Error %1, severity %2, state %3 was raised, but no message "
                                       "with that error number was found in sys.messages. If "
                                       "error is larger than 50000, make sure the user-defined "
                                       "message is added using sp_addmessage.")
                            .arg(number)
                            .arg(severity)
                            .arg(state),
                        18054, 16, 1);
}

} // namespace zlx::tsql
