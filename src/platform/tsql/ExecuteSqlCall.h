#pragma once
// EXEC[UTE] sp_executesql statement [, N'@a type [OUTPUT], ...' [, value | @a = value
// [OUTPUT] ...]]: a text that runs as a batch of its own whose parameters are variables of their
// declared types, given the values passed; OUTPUT parameters hand their values back.

#include "platform/tsql/TsqlToken.h"
#include "platform/tsql/TsqlVariables.h"

#include <optional>

namespace zlx::tsql {

struct SqlParameter {
    QString name; // @name
    VariableType type;
    bool output = false;
};

struct ExecuteSqlCall {
    struct Argument {
        QString parameter; // @name =, empty for a value passed by position
        Tokens value;
        bool output = false;
    };
    // Each parameter with the argument that gives its value (nullptr: none).
    struct Binding {
        const SqlParameter* parameter;
        const Argument* argument;
    };

    Tokens statement;  // a text or a variable
    Tokens parameters; // the same for the parameters' definition; empty without one
    std::vector<Argument> arguments;

    // nullopt when `statement` calls no sp_executesql.
    static std::optional<ExecuteSqlCall> Read(const Tokens& statement);
    // The parameters declared by `definition` ("@a INT, @b VARCHAR(10) OUTPUT").
    static std::vector<SqlParameter> ReadParameters(const QString& definition);
    // Matches the arguments with `declared`: by position first, then by name. A parameter
    // without a value is SQL Server's 8178, a name not declared 8145, a value past the last
    // parameter 8144, OUTPUT asked of a parameter that is not 8162 and of a value that is no
    // variable 179.
    std::vector<Binding> Bind(const std::vector<SqlParameter>& declared, const QString& definition,
                              const QString& text) const;
};

} // namespace zlx::tsql
