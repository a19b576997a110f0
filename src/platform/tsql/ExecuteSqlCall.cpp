#include "platform/tsql/ExecuteSqlCall.h"

#include "platform/tsql/TokenLists.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"

#include <algorithm>

namespace zlx::tsql {
namespace {

[[noreturn]] void ThrowSyntaxNear(const QString& text) {
    ThrowStatementError(QStringLiteral("Incorrect syntax near '%1'.").arg(text),
                        ado::kNativeSyntax);
}

bool IsOutputWord(const Token& token) {
    return token.IsWord(u"OUTPUT") || token.IsWord(u"OUT");
}

// [@name =] value [OUTPUT]
ExecuteSqlCall::Argument ReadArgument(Tokens item) {
    ExecuteSqlCall::Argument argument;
    if (!item.empty() && IsOutputWord(item.back())) {
        argument.output = true;
        item.pop_back();
    }
    if (item.size() > 2 && item[0].kind == TokenKind::Variable && item[1].IsSymbol(u"=")) {
        argument.parameter = item[0].text;
        item.erase(item.begin(), item.begin() + 2);
    }
    if (item.empty()) ThrowSyntaxNear(QStringLiteral(","));
    argument.value = std::move(item);
    return argument;
}

} // namespace

std::optional<ExecuteSqlCall> ExecuteSqlCall::Read(const Tokens& statement) {
    const size_t name =
        !statement.empty() && (statement[0].IsWord(u"EXEC") || statement[0].IsWord(u"EXECUTE")) ? 1
                                                                                                : 0;
    if (name >= statement.size() || !statement[name].IsWord(u"sp_executesql")) return std::nullopt;
    std::vector<Tokens> items = SplitAtCommas(statement, name + 1, statement.size());
    if (items.empty())
        ThrowStatementError(QStringLiteral("Procedure or function 'sp_executesql' expects "
                                           "parameter '@statement', which was not supplied."),
                            201);
    ExecuteSqlCall call;
    for (size_t i = 0; i < items.size(); ++i) {
        const Argument argument = ReadArgument(items[i]);
        if (i == 0 && argument.parameter.isEmpty())
            call.statement = argument.value;
        else if (i == 1 && argument.parameter.isEmpty())
            call.parameters = argument.value;
        else
            call.arguments.push_back(argument);
    }
    return call;
}

std::vector<SqlParameter> ExecuteSqlCall::ReadParameters(const QString& definition) {
    const Tokens tokens = Tokenize(definition);
    std::vector<SqlParameter> parameters;
    for (const Tokens& item : SplitAtCommas(tokens, 0, tokens.size())) {
        if (item.size() < 2 || item[0].kind != TokenKind::Variable)
            ThrowSyntaxNear(item.empty() ? QStringLiteral(",") : item[0].text);
        size_t first = item[1].IsWord(u"AS") ? 2 : 1;
        size_t end = first;
        SqlParameter parameter{item[0].text, VariableType::Read(item, first, end), false};
        if (end < item.size() && IsOutputWord(item[end])) {
            parameter.output = true;
            ++end;
        }
        if (end != item.size()) ThrowSyntaxNear(item[end].text);
        parameters.push_back(parameter);
    }
    return parameters;
}

std::vector<ExecuteSqlCall::Binding> ExecuteSqlCall::Bind(const std::vector<SqlParameter>& declared,
                                                          const QString& definition,
                                                          const QString& text) const {
    std::vector<Binding> bindings;
    for (const SqlParameter& parameter : declared)
        bindings.push_back({&parameter, nullptr});
    size_t position = 0;
    for (const Argument& argument : arguments) {
        auto bound = bindings.end();
        if (argument.parameter.isEmpty()) {
            if (position < bindings.size()) bound = bindings.begin() + position++;
        } else {
            bound = std::find_if(bindings.begin(), bindings.end(), [&](const Binding& b) {
                return b.parameter->name.compare(argument.parameter, Qt::CaseInsensitive) == 0;
            });
        }
        if (bound == bindings.end() && argument.parameter.isEmpty())
            ThrowStatementError(QStringLiteral("Procedure or function sp_executesql has too many "
                                               "arguments specified."),
                                8144);
        if (bound == bindings.end())
            ThrowStatementError(QStringLiteral("%1 is not a parameter for procedure sp_executesql.")
                                    .arg(argument.parameter),
                                8145);
        if (argument.output && !bound->parameter->output)
            ThrowStatementError(QStringLiteral("The formal parameter \"%1\" was not declared as an "
                                               "OUTPUT parameter, but the actual parameter passed "
                                               "in requested output.")
                                    .arg(bound->parameter->name),
                                8162);
        if (argument.output &&
            (argument.value.size() != 1 || argument.value[0].kind != TokenKind::Variable))
            ThrowStatementError(QStringLiteral("Cannot use the OUTPUT option when passing a "
                                               "constant to a stored procedure."),
                                179);
        bound->argument = &argument;
    }
    for (const Binding& binding : bindings)
        if (!binding.argument)
            ThrowStatementError(QStringLiteral("The parameterized query '(%1)%2' expects the "
                                               "parameter '%3', which was not supplied.")
                                    .arg(definition, text, binding.parameter->name),
                                8178);
    return bindings;
}

} // namespace zlx::tsql
