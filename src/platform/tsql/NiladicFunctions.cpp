#include "platform/tsql/NiladicFunctions.h"

namespace zlx::tsql {
namespace {

// The call a niladic function's word stands for; empty for any other word.
QString CallFor(const Token& token) {
    if (token.IsWord(u"CURRENT_TIMESTAMP")) return QStringLiteral("GETDATE");
    if (token.IsWord(u"CURRENT_USER") || token.IsWord(u"SESSION_USER"))
        return QStringLiteral("USER_NAME");
    if (token.IsWord(u"SYSTEM_USER")) return QStringLiteral("SUSER_SNAME");
    return {};
}

} // namespace

void NiladicFunctions::Rewrite() {
    for (size_t i = 0; i < m_t.size(); ++i) {
        const QString call = CallFor(m_t[i]);
        if (call.isEmpty() || m_t.SymbolAt(i + 1, u"(") || m_t.SymbolAt(i - 1, u".")) continue;
        Token name = m_t[i];
        name.text = call;
        m_t.Splice(i, i + 1, {name, Raw(QStringLiteral("(")), Raw(QStringLiteral(")"))});
        i += 2;
    }
}

} // namespace zlx::tsql
