#include "platform/tsql/ThrowStatement.h"

#include "platform/tsql/TokenLists.h"
#include "platform/tsql/TsqlErrors.h"

#include <algorithm>

namespace zlx::tsql {
std::optional<ThrowStatement> ThrowStatement::Read(const Tokens& statement) {
    if (statement.empty() || !statement.front().IsWord(u"THROW")) return std::nullopt;
    ThrowStatement thrown;
    thrown.values = SplitAtCommas(statement, 1, statement.size());
    const bool complete =
        thrown.values.empty() || (thrown.values.size() == 3 &&
                                  std::none_of(thrown.values.begin(), thrown.values.end(),
                                               [](const Tokens& value) { return value.empty(); }));
    if (!complete)
        ThrowStatementError(
            QStringLiteral("Incorrect syntax near '%1'.").arg(statement.back().text),
            ado::kNativeSyntax);
    return thrown;
}

Tokens ThrowStatement::Query() const {
    return SelectList(values);
}

ado::AdoError ThrowStatement::Error(const std::vector<Variant>& answered, int& state) const {
    const std::int64_t number = answered.at(0).ToInt64();
    state = static_cast<int>(answered.at(2).ToInt64());
    if (number < 50000) {
        state = 1;
        return StatementError(QStringLiteral("Error number %1 in the THROW statement is outside "
                                             "the valid range. Specify an error number in the "
                                             "valid range of 50000 to 2147483647.")
                                  .arg(number),
                              35100);
    }
    return StatementError(answered.at(1).IsNull() ? QString() : answered.at(1).ToInvariantString(),
                          static_cast<std::int32_t>(number));
}

} // namespace zlx::tsql
