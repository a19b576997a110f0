#pragma once
// The data part of `zolmar demo`: a database on the embedded server, statements through
// cConexion, and a DBF export read back.

#include <cstdio>

namespace zlx {

// Answers false when a step failed (what failed is printed).
bool RunDataDemo(std::FILE* out);

} // namespace zlx
