#pragma once
// Dates laid out by a mask in the manner of the grid's column masks: "dd/mm/yyyy",
// "d-m-yy", "dd/mm/yyyy hh:nn", "mmmm yyyy" (Spanish month and day names).

#include "platform/variant/Variant.h"

namespace zlx {

// Whether a mask lays out dates (it holds d, m, y, h, n or s placeholders and no digit
// placeholders of a number mask).
bool IsDateMask(const QString& mask);
// yyyy/yy year; mmmm/mmm month name, mm/m month number (minutes right after an hour);
// dddd/ddd day name, dd/d day; hh/h hour; nn/n minutes; ss/s seconds. Anything else is kept.
QString FormatDateMask(const Date& value, const QString& mask);

} // namespace zlx
