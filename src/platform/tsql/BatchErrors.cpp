#include "platform/tsql/BatchErrors.h"

#include "platform/tsql/TsqlTokenizer.h"

namespace zlx::tsql {
namespace {

enum class ErrorFunction { Number, Message, Severity, State, Line, Procedure, TransactionState };

struct FunctionName {
    QStringView name;
    ErrorFunction function;
};

constexpr FunctionName kFunctions[] = {
    {u"ERROR_NUMBER", ErrorFunction::Number},
    {u"ERROR_MESSAGE", ErrorFunction::Message},
    {u"ERROR_SEVERITY", ErrorFunction::Severity},
    {u"ERROR_STATE", ErrorFunction::State},
    {u"ERROR_LINE", ErrorFunction::Line},
    {u"ERROR_PROCEDURE", ErrorFunction::Procedure},
    {u"XACT_STATE", ErrorFunction::TransactionState},
};

// The function called without arguments at `i`, if it is one of them.
std::optional<ErrorFunction> FunctionAt(const Tokens& tokens, size_t i) {
    if (tokens[i].kind != TokenKind::Word || i + 2 >= tokens.size() ||
        !tokens[i + 1].IsSymbol(u"(") || !tokens[i + 2].IsSymbol(u")"))
        return std::nullopt;
    for (const FunctionName& known : kFunctions)
        if (tokens[i].IsWord(known.name)) return known.function;
    return std::nullopt;
}

Tokens NumberLiteral(std::int64_t value) {
    // A negative number goes in parentheses: "5 - -1" would start a comment.
    return value < 0 ? Tokenize(QStringLiteral("(%1)").arg(value))
                     : Tokens{Token{TokenKind::Number, QString::number(value), {}}};
}

} // namespace

std::int32_t BatchError::Number() const {
    return error.Records().empty() ? 0 : error.Records().front().nativeError;
}

QString BatchError::Message() const {
    return error.Records().empty() ? error.Description() : error.Records().front().description;
}

void BatchErrors::Note(const BatchError& raised) {
    if (!m_noted) m_noted = raised;
}

BatchError BatchErrors::Take(const ado::AdoError& error, int line) {
    BatchError taken = m_noted.value_or(BatchError{error, 16, 1, line, false});
    m_noted.reset();
    return taken;
}

Tokens BatchErrors::Substitute(const Tokens& statement, int transactionState,
                               bool placeholders) const {
    Tokens out;
    out.reserve(statement.size());
    const BatchError* current = Current();
    for (size_t i = 0; i < statement.size(); ++i) {
        const std::optional<ErrorFunction> function = FunctionAt(statement, i);
        if (!function) {
            out.push_back(statement[i]);
            continue;
        }
        Tokens value;
        if (*function == ErrorFunction::TransactionState)
            value = NumberLiteral(placeholders ? 0 : transactionState);
        else if (*function == ErrorFunction::Procedure || (!current && !placeholders))
            value = {Token{TokenKind::Word, QStringLiteral("NULL"), {}}};
        else if (*function == ErrorFunction::Message)
            value = {
                Token{TokenKind::String, placeholders ? QString() : current->Message(), {}, true}};
        else if (placeholders)
            value = NumberLiteral(0);
        else
            value = NumberLiteral(*function == ErrorFunction::Number     ? current->Number()
                                  : *function == ErrorFunction::Severity ? current->severity
                                  : *function == ErrorFunction::State    ? current->state
                                                                         : current->line);
        value.front().leading = statement[i].leading;
        out.insert(out.end(), value.begin(), value.end());
        i += 2;
    }
    return out;
}

} // namespace zlx::tsql
