#pragma once
// The statements the library sends, each with the text every engine receives. The
// translations assume @@IDENTITY 41, @@ROWCOUNT 3, the default 1 for clientes.Activo, the
// text columns Nombre, Apellidos, texto and Nota and, on SQLite, "empresa" as the current
// database.

#include <vector>

struct Golden {
    const char* tsql;
    const char* sqlite;
    const char* postgres;
};

const std::vector<Golden>& GoldenCorpus();
