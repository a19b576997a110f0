#pragma once
// The objects of a script session by name: those a line created ("as") and those a call
// answered, which take a generated name (the class name and a number: "cDatos1").

#include "platform/variant/Variant.h"

#include <QHash>
#include <functional>
#include <unordered_map>

namespace zlx {

class ScriptObjects {
public:
    // Called once for each object the first time it is named.
    using NewObjectListener = std::function<void(const QString& name, const ObjectPtr& object)>;
    explicit ScriptObjects(NewObjectListener listener) : m_listener(std::move(listener)) {}

    // Gives the object this name (a name already in use now stands for it).
    void Name(const QString& name, const ObjectPtr& object);
    // The object's name, generating one when it has none yet.
    QString NameOf(const ObjectPtr& object);
    // Throws ScriptError for an unknown name.
    ObjectPtr Find(const QString& name) const;

private:
    void Remember(const QString& name, const ObjectPtr& object);

    NewObjectListener m_listener;
    QHash<QString, ObjectPtr> m_byName;
    struct Named {
        QString firstName;
        ObjectPtr object; // kept alive, so that no later object takes its address
    };
    std::unordered_map<const Object*, Named> m_nameOf;
    QHash<QString, int> m_generated; // per class name
};

} // namespace zlx
