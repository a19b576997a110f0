#pragma once
// RAISERROR's message text: printf's conversions % [flags] [width] [.precision] [h|l] type, with
// d, i, u, o, x, X taking a number, s a text, * a width or precision from the arguments, %% a
// percent sign and a missing argument written "(null)"; at most 2,047 characters.

#include "platform/variant/Variant.h"

#include <vector>

namespace zlx::tsql {

// Throws SQL Server's 2786 for an argument whose kind does not fit its conversion.
QString FormatRaisedText(const QString& format, const std::vector<Variant>& arguments);

} // namespace zlx::tsql
