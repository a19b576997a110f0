#pragma once
// SQL Server's message texts for the native numbers the library gives, in the language its
// sessions run in (SET LANGUAGE Español: sys.messages language 3082), so that an application
// shows the same description whatever the engine. The layer and the functions it installs in
// the engines word their errors as SQL Server's us_english texts; FromEnglish rewords those, and
// Text fills a message from the parts an engine's own error names.

#include <QString>
#include <QStringList>
#include <cstdint>

namespace zlx::ado {

class SqlServerMessages {
public:
    // The text of `native` with %1, %2... replaced by `parts` in order. A quoted part that is
    // empty leaves out its quotes, a sentence whose unquoted part is empty is left out (the
    // duplicate key's value when the engine does not tell it). Empty for a number without text.
    static QString Text(std::int32_t native, const QStringList& parts = {});

    // `english`, SQL Server's us_english text of `native` (as this library words it), in the
    // session's language with the same parts; `english` itself when it is no text of `native`.
    static QString FromEnglish(std::int32_t native, const QString& english);
};

} // namespace zlx::ado
