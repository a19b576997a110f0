#pragma once
// Turns what a user types into a search field, or ticks in a group of check boxes, into
// pieces of a WHERE clause. Every piece starts with " AND " so pieces can be appended.

#include "connection/SqlConstants.h"
#include "platform/variant/Variant.h"

#include <QString>
#include <vector>

class QObject;

namespace zlx::WhereBuilder {

// The condition for one value on one field ("" when there is none). Text values follow the
// search language: * wildcards, | escapes, "*" not empty, "''" empty, "**" word lists,
// code lists and ranges in zlxWhere_Codigos mode.
QString Condition(const QString& cField, const Variant& xValor, int nModo = zlxWhere_Like);

// The same for a bound control: its `Text`, on the field `Alias`.`Campo`.
QString ControlCondition(const QObject& oControl, int nModo = zlxWhere_Like);

// Check boxes: box i is ticked when its value is not 0 and goes with aValues[i].
QString CheckBoxes(const std::vector<Variant>& aBoxValues, const QString& cField, int nModo,
                   const std::vector<Variant>& aValues);

// Removes the replaced pieces from a filter and appends the substitutes.
QString ReplaceWhere(const QString& cFiltroOriginal, const std::vector<QString>& aSustituidos,
                     const std::vector<QString>& aSustitutos);

} // namespace zlx::WhereBuilder
