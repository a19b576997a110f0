#pragma once
// JSON values and library Variants, both ways, as the command line exchanges them:
// null is Null, numbers are Double, {"date": "YYYY-MM-DD HH:MM:SS"} is a Date,
// {"hex": "..."} is a Byte array and JSON arrays are arrays with lower bound 0.

#include "platform/variant/Variant.h"

#include <QByteArray>
#include <QJsonValue>
#include <stdexcept>

namespace zlx {

// A JSON value that has no Variant form (an unknown object, a malformed date or hex text).
class JsonConversionError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Throws JsonConversionError.
Variant JsonToVariant(const QJsonValue& value);

// Appends the compact JSON text of the value. Arrays of higher rank nest with the first
// index outermost; objects become {"object": TypeName}, error values {"vberror": code}.
void AppendJson(QByteArray& out, const Variant& value);
void AppendJsonString(QByteArray& out, const QString& text);
QByteArray VariantToJson(const Variant& value);

} // namespace zlx
