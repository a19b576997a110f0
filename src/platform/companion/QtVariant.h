#pragma once
// Values crossing between the library's variants and Qt properties: a control's default
// property is a QVariant, the library's values are Variants.

#include "platform/variant/Variant.h"

#include <QVariant>

namespace zlx {

// Empty and Null become an invalid QVariant, a date without time a QDate, a date with time a
// QDateTime, numbers a double or an int, texts a QString, Booleans a bool.
QVariant ToQVariant(const Variant& value);
// The way back: an invalid QVariant is Empty, QDate and QDateTime are dates, int a Long,
// double a Double, anything else its text.
Variant FromQVariant(const QVariant& value);

} // namespace zlx
