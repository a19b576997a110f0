#include "platform/tsql/PrintStatement.h"

#include "platform/tsql/TsqlErrors.h"

namespace zlx::tsql {

ado::ErrorRecord PrintMessage(const Tokens& statement) {
    QString text;
    // Texts joined by "+": a string at every even place after PRINT, a "+" between them.
    for (size_t i = 1; i < statement.size(); ++i) {
        const Token& token = statement[i];
        const bool textPlace = i % 2 == 1;
        if (textPlace && token.kind == TokenKind::String)
            text += token.text;
        else if (textPlace || !token.IsSymbol(u"+") || i + 1 == statement.size())
            ThrowUnsupported(QStringLiteral("PRINT de una expresión"));
    }
    if (statement.size() < 2) ThrowUnsupported(QStringLiteral("PRINT"));
    ado::ErrorRecord record;
    record.description = text;
    record.source = QStringLiteral("Microsoft OLE DB Provider for SQL Server");
    record.sqlState = QStringLiteral("01000");
    return record;
}

} // namespace zlx::tsql
