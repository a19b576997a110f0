#pragma once
// A literal of a statement sent as the value of one of its parameters: a text or a whole
// number, bound as the engine would have read the literal.

#include <QString>
#include <cstdint>
#include <variant>

namespace zlx::ado {

using BoundValue = std::variant<QString, std::int64_t>;

} // namespace zlx::ado
