#pragma once
// A statement as the translation cache files it: its tokens with the literals whose value
// cannot change the translation taken out (a plain text or a small whole number compared with
// a column in a SELECT or DELETE, a plain text or number stored by an INSERT), and those
// literals as the engine's text writes them. The record cursor's moves and the INSERTs of a
// matrix differ only in such literals, so each kind shares one translation.

#include "platform/engines/BoundValue.h"
#include "platform/tsql/TsqlToken.h"

#include <QString>
#include <vector>

namespace zlx::tsql {

class StatementShape {
public:
    // What a statement is translated under; the translator's settings of the session.
    struct Settings {
        bool dayMonthYear = false;
        int dateFirst = 7;
        bool spanishNames = false;
    };

    StatementShape(const Tokens& statement, const Settings& settings);

    // Whether the shape was read under `settings` (a SET statement may run between the check
    // and the run of a statement).
    bool ReadUnder(const Settings& settings) const {
        return settings.dayMonthYear == m_settings.dayMonthYear &&
               settings.dateFirst == m_settings.dateFirst &&
               settings.spanishNames == m_settings.spanishNames;
    }

    // The lookup key: the statement without the values of the literals taken out.
    const QString& Key() const { return m_key; }
    // The token index of each literal taken out, in order.
    const std::vector<std::size_t>& Slots() const { return m_slots; }
    // Each literal taken out as the engine's text writes it ('it''s', 12).
    const std::vector<QString>& Values() const { return m_values; }
    // Each literal taken out as the value of a parameter in its place, when every one reads
    // bound as it reads written (a text without NUL, a whole number): Bindable().
    const std::vector<ado::BoundValue>& Parameters() const { return m_parameters; }
    bool Bindable() const { return m_bindable; }

    // `statement` with a stand-in of the same kind in each slot, no two alike and none found
    // elsewhere in the statement; empty when a stand-in would be ambiguous.
    Tokens WithStandIns(const Tokens& statement) const;
    // The engine's text of the stand-in of slot `slot`.
    QString StandInText(std::size_t slot, const Tokens& statement) const;

private:
    static bool IsSlot(const Tokens& statement, std::size_t i, bool insert);
    static bool IsPlainText(const Token& token);
    static bool IsSmallWholeNumber(const Token& token);
    static bool IsPlainNumber(const Token& token);
    static QString EngineText(const Token& token);
    void AddParameter(const Token& literal);
    static QString StandInValue(std::size_t slot, TokenKind kind);

    Settings m_settings;
    QString m_key;
    std::vector<std::size_t> m_slots;
    std::vector<QString> m_values;
    std::vector<ado::BoundValue> m_parameters;
    bool m_bindable = true;
};

} // namespace zlx::tsql
