#pragma once
// Late-bound access to controls, the library's controls and an application's own alike: the
// type name a control answers to ("get", "btn", "lbl"), its default property (the shown
// value), and methods and properties reached by name.

#include "platform/variant/Variant.h"

#include <QObject>
#include <QString>

namespace zlx {

// The run-time class name without any namespace, so an application's own controls declared
// inside a namespace answer the same as the library's.
QString ControlTypeName(const QObject* control);
// The name of the default property: the class's "DefaultProperty" class information, else
// "Value".
QByteArray DefaultPropertyName(const QObject* control);
Variant GetDefaultValue(const QObject* control);
void SetDefaultValue(QObject* control, const Variant& value);
// A property by name (Empty when the control has none) and its assignment.
Variant GetControlProperty(const QObject* control, const char* name);
void SetControlProperty(QObject* control, const char* name, const Variant& value);
// Calls a method without arguments, or with one text or number argument; false when the
// control has no such method.
bool CallControl(QObject* control, const char* method);
bool CallControl(QObject* control, const char* method, const QString& argument);

} // namespace zlx
