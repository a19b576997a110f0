#include "platform/tsql/TranslationCache.h"

#include <cstdint>

namespace zlx::tsql {

namespace {

// A length as two characters, so that no text can pass for the boundary between two others.
void AppendSized(QString& key, const QString& text) {
    const auto size = static_cast<std::uint32_t>(text.size());
    key += QChar(static_cast<char16_t>(size & 0xFFFF));
    key += QChar(static_cast<char16_t>(size >> 16));
    key += text;
}

} // namespace

QString TranslationCache::KeyOf(const Tokens& statement, const Settings& settings) {
    QString key;
    key.reserve(8 + static_cast<qsizetype>(statement.size()) * 12);
    key += settings.dayMonthYear ? u'd' : u'm';
    key += QChar(static_cast<char16_t>(settings.dateFirst));
    key += settings.spanishNames ? u's' : u'e';
    for (const Token& token : statement) {
        key += QChar(static_cast<char16_t>(u'A' + static_cast<int>(token.kind)));
        key += token.national ? u'N' : u'-';
        AppendSized(key, token.leading);
        AppendSized(key, token.text);
    }
    return key;
}

const Translation* TranslationCache::Find(const QString& key) const {
    const auto found = m_kept.constFind(key);
    return found == m_kept.constEnd() ? nullptr : &*found;
}

void TranslationCache::Check(const QString& key, const Tokens& statement,
                             TranslationContext checking) {
    // Another database shows in the translation's list of them; the locks tables in MayKeep.
    checking.databaseAlias = nullptr;
    checking.locksSchema = nullptr;
    bool consulted = false;
    const auto noColumn = [&consulted](const QString&) {
        consulted = true;
        return false;
    };
    checking.isTextColumn = noColumn;
    checking.isDateColumn = noColumn;
    checking.isIntegerColumn = noColumn;
    checking.mayBeNull = [&consulted](const QString&) {
        consulted = true;
        return true;
    };
    checking.columnDefault = [&consulted](const QString&, const QString&) {
        consulted = true;
        return QString();
    };
    // Read at the check, a table's columns would raise a text's conversion error before the
    // statements ahead of it had run.
    checking.tableColumns = [&consulted](const QString&) {
        consulted = true;
        return TableColumns();
    };
    Translation translation = TsqlTranslator(std::move(checking)).Translate(statement);
    if (consulted || !translation.databases.isEmpty() || !MayKeep(statement)) return;
    if (m_kept.size() >= kMostKept) m_kept.clear();
    m_kept.insert(key, std::move(translation));
}

void TranslationCache::DefinitionsChanged() {
    m_kept.clear();
}

// @@ values (SCOPE_IDENTITY() too) are written into the text as they stand when it is
// translated, @ variables may be too; the locks tables are named per database by the session.
bool TranslationCache::MayKeep(const Tokens& statement) {
    for (const Token& token : statement) {
        if (token.kind == TokenKind::Global || token.kind == TokenKind::Variable ||
            token.IsWord(u"SCOPE_IDENTITY"))
            return false;
        if ((token.kind == TokenKind::Word || token.kind == TokenKind::QuotedName) &&
            token.text.compare(u"locks", Qt::CaseInsensitive) == 0)
            return false;
    }
    return true;
}

} // namespace zlx::tsql
