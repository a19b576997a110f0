#pragma once
// What the binding asks of a bound control, reached by name: its texts, its table, its
// ResetValue pair, its identity role and the enabled state of each control kind. A control
// that no longer exists is left alone.

#include "platform/companion/LateBinding.h"

namespace zlx::BoundControl {

// Registers the field descriptor pointer for the form's invokable Ctl2DAV under the spellings a
// form may use for it.
void RegisterDescriptorType();

QString Text(const QObject* control, const char* property);
// The table part of a name that may carry an owner or database prefix, upper-cased.
QString TablePart(const QString& table);
// Whether the control's Alias names the table; an empty table matches every control.
bool InTable(const QObject* control, const QString& table);
// ResetValue without argument, then with True.
void ResetValue(QObject* control);
// A column named ZolmarID or beginning with ID_.
bool IsIdentity(const QObject* control);

// Sets the enabled state at once, stores it for later, or applies the stored state.
void SetEnabled(QObject* control, bool enabled);
void StoreEnabled(QObject* control, bool enabled);
void ApplyStoredEnabled(QObject* control);

} // namespace zlx::BoundControl
