#pragma once
// The engine texts of statements already translated, so that a statement checked before its
// batch runs is not translated a second time to run, and a statement sent again is not
// translated again at all. Only a translation that depends on nothing but the statement, the
// session's settings and the columns of the tables it names is kept: one that consulted no
// other catalog question (columns known by name alone, defaults, another database, the locks
// tables) and wrote no @@ or @ value into the text. A kept translation is found again only
// under the same DATEFORMAT, DATEFIRST and LANGUAGE, and only until a definition or the
// database changes.
// Statements that differ only in the literals StatementShape takes out share one translation,
// kept as the text around those literals. For an engine that keeps statements prepared, the
// same text is kept with numbered parameters (?1, ?2...) where the literals go.

#include "platform/tsql/StatementShape.h"
#include "platform/tsql/TsqlToken.h"
#include "platform/tsql/TsqlTranslator.h"

#include <QHash>
#include <QString>
#include <optional>

namespace zlx::tsql {

// A kept translation as an engine that prepares statements runs it: `translation.sql` with
// the literals of the statement's shape as its parameters ?1..?n, `parameters` their values.
struct PreparedTranslation {
    Translation translation;
    std::vector<ado::BoundValue> parameters;
};

class TranslationCache {
public:
    using Settings = StatementShape::Settings;

    // The kept translation of the statement of `shape`, written with its literals.
    std::optional<Translation> Find(const StatementShape& shape) const;
    // The same with its literals as parameters; nullopt when not kept, or when a literal
    // cannot be a parameter in its place.
    std::optional<PreparedTranslation> FindPrepared(const StatementShape& shape) const;
    bool Knows(const StatementShape& shape) const { return m_kept.contains(shape.Key()); }
    // Translates `statement` as the check before a batch runs does: with the session's
    // `context`, except that columns known by name alone and defaults are not read from the
    // catalog and other databases are not attached (each such question answers as if it had
    // not been asked). The columns of the tables the statement names are read when the table
    // exists. Keeps the translation when no other question came up, as the
    // session's own. Throws what the translator throws without the table's columns: a value
    // that does not convert to its column fails when its statement runs, not before the
    // statements ahead of it.
    void Check(const StatementShape& shape, const Tokens& statement, TranslationContext context);
    // A table, column, default or the current database changed: nothing kept is used again.
    void DefinitionsChanged();

private:
    // A translation, and where it has slots the engine text between their literals.
    struct Kept {
        Translation translation;
        QStringList pieces;                 // one more than `slotOrder`; empty: no slot
        std::vector<std::size_t> slotOrder; // the slot whose literal follows each piece
        QString prepared;                   // with ?1..?n in the slots; empty: not possible
    };
    // Enough for the statements an application repeats; a full cache starts again.
    static constexpr qsizetype kMostKept = 512;
    static bool MayKeep(const Tokens& statement);
    static QString Written(const Kept& kept, const std::vector<QString>& values);
    static QString WithParameters(const Kept& kept, std::size_t count);
    static bool IsWholeToken(const QString& sql, qsizetype at, qsizetype size);
    std::optional<Kept> WithSlots(const StatementShape& shape, const Tokens& statement,
                                  const Translation& translation,
                                  const TranslationContext& checking) const;
    QHash<QString, Kept> m_kept;
};

} // namespace zlx::tsql
