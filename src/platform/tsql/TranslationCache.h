#pragma once
// The engine texts of statements already translated, so that a statement checked before its
// batch runs is not translated a second time to run, and a statement sent again is not
// translated again at all. Only a translation that depends on nothing but the statement and
// the session's settings is kept: one that consulted no catalog (column kinds, defaults, a
// table's columns, another database, the locks tables) and wrote no @@ or @ value into the
// text. A kept translation is found again only under the same DATEFORMAT, DATEFIRST and
// LANGUAGE, and only until a definition or the database changes.

#include "platform/tsql/TsqlToken.h"
#include "platform/tsql/TsqlTranslator.h"

#include <QHash>
#include <QString>

namespace zlx::tsql {

class TranslationCache {
public:
    // What a statement is translated under; the translator's settings of the session.
    struct Settings {
        bool dayMonthYear = false;
        int dateFirst = 7;
        bool spanishNames = false;
    };

    // The lookup key of `statement` under `settings`.
    static QString KeyOf(const Tokens& statement, const Settings& settings);
    // The translation kept under `key`, or nullptr; valid until the next Check.
    const Translation* Find(const QString& key) const;
    // Translates `statement` as the check before a batch runs does: with the session's
    // `context`, except that the kinds of columns, their defaults and a table's columns are
    // not read from the catalog and other databases are not attached (each such question
    // answers as if it had not been asked). Keeps the translation under `key` when no such
    // question came up, as the session's own. Throws what the translator throws.
    void Check(const QString& key, const Tokens& statement, TranslationContext context);
    // A table, column, default or the current database changed: nothing kept is used again.
    void DefinitionsChanged();

private:
    // Enough for the statements an application repeats; a full cache starts again.
    static constexpr qsizetype kMostKept = 512;
    static bool MayKeep(const Tokens& statement);
    QHash<QString, Translation> m_kept;
};

} // namespace zlx::tsql
