// Texts run as batches of their own: EXEC (text) and sp_executesql.
#include "platform/tsql/ExecuteSqlCall.h"
#include "platform/tsql/ExecuteText.h"
#include "platform/tsql/TsqlBatchInterpreter.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlSession.h"
#include "platform/tsql/TsqlTokenizer.h"
#include "platform/tsql/VariableAssignment.h"

namespace zlx::tsql {
namespace {

Tokens SetStatement(const QString& variable, const Tokens& value) {
    Tokens set = Tokenize(QStringLiteral("SET %1 =").arg(variable));
    set.insert(set.end(), value.begin(), value.end());
    set[3].leading = QStringLiteral(" ");
    return set;
}

} // namespace

// The text's results and counts are the caller's; @@ROWCOUNT after it is its last statement's.
void TsqlBatchInterpreter::RunText(const ExecuteText& text) {
    const QString sql = text.Text(m_variables);
    m_current.clear();
    TsqlBatchInterpreter(*this).Run(sql, Tokenize(sql));
}

// The parameters are the text's variables, given the values passed as literals of their types
// before its first statement; OUTPUT ones give theirs back to the caller's variables.
void TsqlBatchInterpreter::RunExecuteSql(const ExecuteSqlCall& call) {
    const std::optional<QString> text = ParameterText(call.statement, QStringLiteral("@statement"));
    const QString definition =
        call.parameters.empty()
            ? QString()
            : ParameterText(call.parameters, QStringLiteral("@params")).value_or(QString());
    if (!text) return; // a NULL statement runs nothing
    const std::vector<SqlParameter> declared = ExecuteSqlCall::ReadParameters(definition);
    const std::vector<ExecuteSqlCall::Binding> bindings = call.Bind(declared, definition, *text);
    TsqlVariables parameters;
    std::vector<BatchNode> prologue;
    for (const ExecuteSqlCall::Binding& binding : bindings) {
        parameters.Declare(binding.parameter->name, binding.parameter->type);
        prologue.push_back({BatchNode::Kind::Statement,
                            SetStatement(binding.parameter->name, Bound(binding.argument->value)),
                            {},
                            1});
    }
    m_current.clear();
    TsqlBatchInterpreter inner(*this);
    inner.RunWith(*text, Tokenize(*text), std::move(parameters), std::move(prologue));
    const std::int64_t rowCount = m_session.m_rowCount;
    for (const ExecuteSqlCall::Binding& binding : bindings) {
        if (!binding.argument->output) continue;
        const Token name{TokenKind::Variable, binding.parameter->name, {}};
        const Tokens value = inner.m_variables.Substitute({name});
        Assign(
            *VariableAssignment::Read(SetStatement(binding.argument->value.front().text, value)));
    }
    m_session.m_rowCount = rowCount;
}

std::optional<QString> TsqlBatchInterpreter::ParameterText(const Tokens& value,
                                                           const QString& parameter) const {
    const bool national =
        value.size() == 1 && ((value[0].kind == TokenKind::String && value[0].national) ||
                              (value[0].kind == TokenKind::Variable &&
                               m_variables.TypeOf(value[0].text).kind == VariableKind::Text &&
                               m_variables.TypeOf(value[0].text).national));
    if (!national)
        ThrowStatementError(
            QStringLiteral("Procedure expects parameter '%1' of type 'ntext/nchar/nvarchar'.")
                .arg(parameter),
            214);
    if (value[0].kind == TokenKind::String) return value[0].text;
    return m_variables.ValueText(value[0].text);
}

} // namespace zlx::tsql
