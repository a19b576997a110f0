#include "script/ScriptObjects.h"

#include "script/ScriptArgs.h"

namespace zlx {

void ScriptObjects::Name(const QString& name, const ObjectPtr& object) {
    if (name.isEmpty() || name.contains(u'.'))
        throw ScriptError(QStringLiteral("\"%1\" cannot name an object").arg(name));
    Remember(name, object);
}

QString ScriptObjects::NameOf(const ObjectPtr& object) {
    const auto known = m_nameOf.find(object.get());
    if (known != m_nameOf.end()) return known->second.firstName;
    const QString typeName = object->TypeName();
    QString name;
    do
        name = typeName + QString::number(++m_generated[typeName]);
    while (m_byName.contains(name));
    Remember(name, object);
    return name;
}

ObjectPtr ScriptObjects::Find(const QString& name) const {
    const ObjectPtr object = m_byName.value(name);
    if (!object) throw ScriptError(QStringLiteral("unknown object \"%1\"").arg(name));
    return object;
}

void ScriptObjects::Remember(const QString& name, const ObjectPtr& object) {
    m_byName.insert(name, object);
    if (m_nameOf.emplace(object.get(), Named{name, object}).second && m_listener)
        m_listener(name, object);
}

} // namespace zlx
