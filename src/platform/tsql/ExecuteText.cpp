#include "platform/tsql/ExecuteText.h"

#include "platform/tsql/TsqlErrors.h"

namespace zlx::tsql {

std::optional<ExecuteText> ExecuteText::Read(const Tokens& statement) {
    if (statement.size() < 2 ||
        !(statement.front().IsWord(u"EXEC") || statement.front().IsWord(u"EXECUTE")) ||
        !statement[1].IsSymbol(u"("))
        return std::nullopt;
    ExecuteText text;
    size_t i = 2;
    for (;; i += 2) {
        if (i >= statement.size() ||
            (statement[i].kind != TokenKind::String && statement[i].kind != TokenKind::Variable))
            ThrowStatementError(QStringLiteral("Incorrect syntax near '%1'.")
                                    .arg(statement[std::min(i, statement.size() - 1)].text),
                                ado::kNativeSyntax);
        text.pieces.push_back(statement[i]);
        if (i + 1 < statement.size() && statement[i + 1].IsSymbol(u")")) break;
        if (i + 1 >= statement.size() || !statement[i + 1].IsSymbol(u"+"))
            ThrowStatementError(QStringLiteral("Incorrect syntax near '%1'.")
                                    .arg(statement[std::min(i + 1, statement.size() - 1)].text),
                                ado::kNativeSyntax);
    }
    if (i + 2 < statement.size())
        ThrowUnsupported(QStringLiteral("EXEC (...) ") + statement[i + 2].text);
    return text;
}

QString ExecuteText::Text(const TsqlVariables& variables) const {
    QString text;
    for (const Token& piece : pieces) {
        if (piece.kind == TokenKind::String) {
            text += piece.text;
            continue;
        }
        if (variables.TypeOf(piece.text).kind != VariableKind::Text)
            ThrowUnsupported(
                QStringLiteral("EXEC de la variable %1, que no es de texto").arg(piece.text));
        text += variables.ValueText(piece.text).value_or(QString());
    }
    return text;
}

} // namespace zlx::tsql
