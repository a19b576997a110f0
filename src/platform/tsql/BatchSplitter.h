#pragma once
// Cuts a tokenized T-SQL batch into statements. A statement ends at ";" or where a keyword
// begins one that cannot continue the previous statement, as in
// "INSERT INTO t VALUES (1) SELECT @@Identity". "IF cond stmt" stays one statement.

#include "platform/tsql/TsqlToken.h"

#include <QStringList>
#include <initializer_list>
#include <optional>
#include <span>

namespace zlx::tsql {

std::vector<Tokens> SplitBatch(const Tokens& tokens);

// Whether `token` is a word that begins a statement (SELECT, INSERT, SET, IF, BEGIN ...).
bool IsStarterWord(const Token& token);

// The statement proper: after a WITH list of common table expressions, from the word that
// begins the statement reading them (empty while that word has not come yet).
std::span<const Token> StatementProper(std::span<const Token> statement);

// Whether the statement begins with these words, in order.
bool StartsWith(const Tokens& statement, std::initializer_list<QStringView> words);

// The parts of an "IF <condition> <statement>": `condition` has neither IF nor the body.
struct IfParts {
    Tokens condition;
    Tokens body;
};
IfParts SplitIf(const Tokens& statement);

// The statements' tokens inside a BEGIN ... END block; nullopt when `statement` is not one.
std::optional<Tokens> BlockBody(const Tokens& statement);

// The comma-separated arguments of a procedure or DBCC from `from` to `to` (exclusive), each
// as text: a string's value or a name as written.
QStringList ArgumentList(const Tokens& tokens, size_t from, size_t to);

} // namespace zlx::tsql
