#include "platform/tsql/TranslationCache.h"

#include "platform/engines/AdoError.h"
#include "platform/engines/ErrorKinds.h"

#include <algorithm>

namespace zlx::tsql {

std::optional<Translation> TranslationCache::Find(const StatementShape& shape) const {
    const auto found = m_kept.constFind(shape.Key());
    if (found == m_kept.constEnd()) return std::nullopt;
    Translation translation = found->translation;
    if (!found->pieces.isEmpty()) translation.sql = Written(*found, shape.Values());
    return translation;
}

std::optional<PreparedTranslation>
TranslationCache::FindPrepared(const StatementShape& shape) const {
    const auto found = m_kept.constFind(shape.Key());
    if (found == m_kept.constEnd() || found->prepared.isEmpty() || !shape.Bindable())
        return std::nullopt;
    PreparedTranslation prepared{found->translation, shape.Parameters()};
    prepared.translation.sql = found->prepared;
    return prepared;
}

void TranslationCache::Check(const StatementShape& shape, const Tokens& statement,
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
    checking.randomValue = CheckedRandomValue;
    const bool mayKeep = MayKeep(statement);
    // A column's one type in the database is read as a table's columns are: what the session's
    // own definitions change forgets the translation (DefinitionsChanged).
    const auto typeOf = std::move(checking.columnType);
    checking.columnType = [&consulted, &typeOf, mayKeep](const QString& column) {
        const QString type = mayKeep && typeOf ? typeOf(column) : QString();
        if (type.isEmpty()) consulted = true;
        return type;
    };
    const auto columnsOf = std::move(checking.tableColumns);
    // A table of another database would be attached to be read; one that does not exist yet
    // may be made by a statement ahead in the batch.
    checking.tableColumns = [&consulted, &columnsOf, mayKeep](const QString& table) {
        TableColumns columns;
        if (mayKeep && columnsOf && !table.contains(u'.')) columns = columnsOf(table);
        if (columns.empty()) consulted = true;
        return columns;
    };
    Translation translation;
    try {
        translation = TsqlTranslator(checking).Translate(statement);
    } catch (const ado::AdoError& error) {
        // A lost link, a time-out or a cancel met while reading columns is the statement's own
        // failure, not a refusal of its text.
        if (ado::IsLinkLost(error.Records()) || ado::IsTimeout(error.Records()) ||
            ado::IsCanceled(error.Records()))
            throw;
        checking.tableColumns = [&consulted](const QString&) {
            consulted = true;
            return TableColumns();
        };
        TsqlTranslator(std::move(checking)).Translate(statement);
        return; // refused only with the columns: refused when it runs
    }
    if (consulted || !translation.databases.isEmpty() || !mayKeep) return;
    Kept kept{std::move(translation), {}, {}, {}};
    kept.prepared = kept.translation.sql.trimmed();
    if (!shape.Slots().empty()) {
        std::optional<Kept> general = WithSlots(shape, statement, kept.translation, checking);
        if (!general || consulted) return;
        kept = std::move(*general);
    }
    if (m_kept.size() >= kMostKept) m_kept.clear();
    m_kept.insert(shape.Key(), std::move(kept));
}

// The translation of the statement with stand-ins in its slots, cut where they were written.
// Kept only when each stand-in is written as it stands and the cut text, written with the
// statement's own literals, is the statement's own translation.
std::optional<TranslationCache::Kept>
TranslationCache::WithSlots(const StatementShape& shape, const Tokens& statement,
                            const Translation& translation,
                            const TranslationContext& checking) const {
    const Tokens standIns = shape.WithStandIns(statement);
    if (standIns.empty()) return std::nullopt;
    Translation general;
    try {
        general = TsqlTranslator(checking).Translate(standIns);
    } catch (const ado::AdoError&) {
        return std::nullopt;
    }
    if (general.exclusiveTables != translation.exclusiveTables ||
        general.identityStart != translation.identityStart)
        return std::nullopt;
    struct Place {
        qsizetype at;
        qsizetype size;
        std::size_t slot;
    };
    std::vector<Place> places;
    for (std::size_t slot = 0; slot < shape.Slots().size(); ++slot) {
        const QString text = shape.StandInText(slot, statement);
        const std::size_t before = places.size();
        for (qsizetype at = general.sql.indexOf(text); at >= 0;
             at = general.sql.indexOf(text, at + text.size()))
            places.push_back({at, text.size(), slot});
        if (places.size() == before) return std::nullopt;
    }
    std::sort(places.begin(), places.end(),
              [](const Place& a, const Place& b) { return a.at < b.at; });
    Kept kept{general, {}, {}, {}};
    bool parameters = true;
    qsizetype from = 0;
    for (const Place& place : places) {
        if (place.at < from) return std::nullopt;
        parameters = parameters && IsWholeToken(general.sql, place.at, place.size);
        kept.pieces << general.sql.mid(from, place.at - from);
        kept.slotOrder.push_back(place.slot);
        from = place.at + place.size;
    }
    kept.pieces << general.sql.mid(from);
    if (Written(kept, shape.Values()) != translation.sql) return std::nullopt;
    kept.translation.sql.clear();
    if (parameters) kept.prepared = WithParameters(kept, shape.Slots().size());
    return kept;
}

QString TranslationCache::WithParameters(const Kept& kept, std::size_t count) {
    std::vector<QString> numbers;
    for (std::size_t slot = 1; slot <= count; ++slot)
        numbers.push_back(u'?' + QString::number(slot));
    // Without the blanks around it: the same statement later in a batch shares it.
    return Written(kept, numbers).trimmed();
}

// Whether the `size` characters at `at` are a token of their own of the engine's text, outside
// any quoted text, quoted name or comment: a parameter may stand in their place.
bool TranslationCache::IsWholeToken(const QString& sql, qsizetype at, qsizetype size) {
    QChar closing; // of the quoted text or name open at `at`, or '\n' or '*' for a comment
    for (qsizetype i = 0; i < at; ++i) {
        const QChar c = sql[i];
        const QChar next = i + 1 < sql.size() ? sql[i + 1] : QChar();
        if (closing == u'*') {
            if (c == u'*' && next == u'/') {
                closing = QChar();
                ++i;
            }
        } else if (!closing.isNull()) {
            if (c == closing) closing = QChar();
        } else if (c == u'\'' || c == u'"' || c == u'`') {
            closing = c;
        } else if (c == u'[') {
            closing = u']';
        } else if ((c == u'-' && next == u'-') || (c == u'/' && next == u'*')) {
            closing = c == u'-' ? QChar(u'\n') : QChar(u'*');
            ++i;
        }
    }
    const auto joins = [](QChar c) {
        return c.isLetterOrNumber() || c == u'_' || c == u'.' || c == u'\'' || c == u'"' ||
               c == u'$' || c == u'@' || c == u'?' || c == u':';
    };
    return closing.isNull() && (at == 0 || !joins(sql[at - 1])) &&
           (at + size == sql.size() || !joins(sql[at + size]));
}

QString TranslationCache::Written(const Kept& kept, const std::vector<QString>& values) {
    // Written into room reserved once: one allocation for the whole text.
    qsizetype size = 0;
    for (const QString& piece : kept.pieces)
        size += piece.size();
    for (const std::size_t slot : kept.slotOrder)
        size += values[slot].size();
    QString sql;
    sql.reserve(size);
    sql += kept.pieces.front();
    for (std::size_t k = 0; k < kept.slotOrder.size(); ++k) {
        sql += values[kept.slotOrder[k]];
        sql += kept.pieces[static_cast<qsizetype>(k) + 1];
    }
    return sql;
}

void TranslationCache::DefinitionsChanged() {
    m_kept.clear();
}

// @@ values (SCOPE_IDENTITY() too) and RAND's are written into the text as they stand when it
// is translated, @ variables may be too; the locks tables are named per database by the session.
bool TranslationCache::MayKeep(const Tokens& statement) {
    for (const Token& token : statement) {
        if (token.kind == TokenKind::Global || token.kind == TokenKind::Variable ||
            token.IsWord(u"SCOPE_IDENTITY") || token.IsWord(u"RAND"))
            return false;
        if ((token.kind == TokenKind::Word || token.kind == TokenKind::QuotedName) &&
            token.text.compare(u"locks", Qt::CaseInsensitive) == 0)
            return false;
    }
    return true;
}

} // namespace zlx::tsql
