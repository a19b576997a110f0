#pragma once
// Small builders of SQL text: quoted literals, date-only and time-only expressions and the
// word-by-word LIKE filter. The connection's methods of the same names delegate here.

#include "connection/SqlConstants.h"
#include "platform/variant/Variant.h"

#include <QString>

namespace zlx::SqlText {

// The value as a SQL string literal: quotes doubled, NUL characters as blanks, optional
// LIKE wildcards, trailing blanks removed. Null gives ''.
QString PonComillas(const Variant& xValor, int nLike = zlxLikeConstantsNone);

// T-SQL expression with the date of `cCampo` at midnight.
QString SoloFecha(const QString& cCampo);

// T-SQL expression giving "hh:mm" (or "hh:mm:ss") of `cCampo`.
QString SoloHora(const QString& cCampo, bool lSegundos = false);

// For a search text starting with "**": every following word must occur in the column.
// Appends to `cFiltroPorPalabras` and answers whether a filter was built.
bool FiltroPorPalabras(const QString& cCampo, const QString& cTextoBuscado,
                       QString& cFiltroPorPalabras);

} // namespace zlx::SqlText
