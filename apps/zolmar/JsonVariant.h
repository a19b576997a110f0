#pragma once
// JSON values and library Variants, both ways, as the command line exchanges them:
// null is Null, numbers are Double, {"date": "YYYY-MM-DD HH:MM:SS"} is a Date,
// {"hex": "..."} is a Byte array and JSON arrays are arrays with lower bound 0.

#include "platform/variant/Variant.h"

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <functional>
#include <stdexcept>

namespace zlx {

// A JSON value that has no Variant form (an unknown object, a malformed date or hex text).
class JsonConversionError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// How a caller gives JSON objects other than dates and bytes a Variant form (`zolmar script`
// reads {"ref": NAME} and {"matriz": ...}); answers false to leave the object unsupported.
using JsonObjectReader = std::function<bool(const QJsonObject& object, Variant& value)>;
// How a caller writes library objects (`zolmar script` names them).
using JsonObjectWriter = std::function<void(QByteArray& out, const ObjectPtr& object)>;

// Throws JsonConversionError.
Variant JsonToVariant(const QJsonValue& value, const JsonObjectReader& readObject = {});

// Appends the compact JSON text of the value. Arrays of higher rank nest with the first
// index outermost; objects become {"object": TypeName} unless `writeObject` is given,
// error values {"vberror": code}.
void AppendJson(QByteArray& out, const Variant& value, const JsonObjectWriter& writeObject = {});
void AppendJsonString(QByteArray& out, const QString& text);
QByteArray VariantToJson(const Variant& value);

} // namespace zlx
