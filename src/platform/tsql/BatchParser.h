#pragma once
// Reads a T-SQL batch that declares variables or steers its own flow (DECLARE, BEGIN ... END,
// IF ... ELSE, WHILE with BREAK and CONTINUE, RETURN, BEGIN TRY ... END TRY BEGIN CATCH ...
// END CATCH) into a tree whose leaves are the
// statements a session runs one at a time. What SQL Server refuses when it compiles a batch
// is refused here, before anything runs: a variable not declared before its use (137), one
// declared twice (134), BREAK or CONTINUE outside a WHILE (135, 136), an ELSE or END out of
// place (156), THROW without arguments outside a CATCH block (10704).

#include "platform/tsql/TsqlToken.h"
#include "platform/tsql/TsqlVariables.h"

#include <vector>

namespace zlx::tsql {

struct BatchNode {
    enum class Kind { Statement, Block, If, While, Break, Continue, Return, Try };
    Kind kind = Kind::Statement;
    Tokens tokens;                   // the statement; IF and WHILE: the condition
    std::vector<BatchNode> children; // a block's statements; IF: then [, else]; WHILE: the body;
                                     // TRY: the TRY block and the CATCH block
    int line = 1;                    // where the statement or condition starts in the batch
};

struct ParsedBatch {
    std::vector<BatchNode> statements;
    TsqlVariables variables; // every variable of the batch, NULL
};

// Procedures, functions and triggers (whose bodies the layer would have to keep and run) and
// ALTER VIEW are refused by name, before their parameters read as undeclared variables.
void RefuseModules(const Tokens& tokens);

// A DECLARE becomes a block of "SET @v = value" statements, one per variable given a value.
// `declared` are variables the batch has before its first statement (sp_executesql's
// parameters).
ParsedBatch ParseBatch(const Tokens& tokens, TsqlVariables declared = {});

} // namespace zlx::tsql
