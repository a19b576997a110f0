#include "script/ScriptControl.h"

#include "platform/companion/LateBinding.h"
#include "script/ScriptArgs.h"

#include <QMetaProperty>

namespace zlx {

QString ScriptControl::TypeName() const {
    return m_control ? ControlTypeName(m_control) : QStringLiteral("Control");
}

QWidget& ScriptControl::Control() const {
    if (!m_control) throw ScriptError(QStringLiteral("the control no longer exists"));
    return *m_control;
}

void ScriptControl::CheckHas(const QString& name) const {
    const QByteArray property = name.toLatin1();
    if (Control().metaObject()->indexOfProperty(property.constData()) < 0 &&
        !Control().dynamicPropertyNames().contains(property))
        throw ScriptError(QStringLiteral("%1 has no member \"%2\"").arg(TypeName(), name));
}

Variant ScriptControl::Property(const QString& name) const {
    CheckHas(name);
    return GetControlProperty(&Control(), name.toLatin1().constData());
}

void ScriptControl::SetProperty(const QString& name, const Variant& value) {
    CheckHas(name);
    SetControlProperty(&Control(), name.toLatin1().constData(), value);
}

} // namespace zlx
