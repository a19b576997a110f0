#pragma once
// A control of a script's form as a named object: its Qt properties are read and written by
// name ({"set": "getNombre.Text", "value": "Ana"}). The form owns the widget.

#include "platform/variant/Variant.h"

#include <QPointer>
#include <QWidget>

namespace zlx {

class ScriptControl : public Object {
public:
    explicit ScriptControl(QWidget* control) : m_control(control) {}

    // The control's own type name: "get", "btn" or "lbl".
    QString TypeName() const override;
    // Throws ScriptError when the control is gone or has no such property.
    Variant Property(const QString& name) const;
    void SetProperty(const QString& name, const Variant& value);
    QWidget* Widget() const { return m_control; }

private:
    QWidget& Control() const;
    void CheckHas(const QString& name) const;

    QPointer<QWidget> m_control;
};

} // namespace zlx
