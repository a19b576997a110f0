#include "script/ScriptRegistry.h"

namespace zlx {

namespace {

QHash<QString, ScriptClass>& Classes() {
    static QHash<QString, ScriptClass> classes; // filled while the program starts
    return classes;
}

} // namespace

const ScriptMember* ScriptClass::Find(const QString& member) const {
    const auto found = members.constFind(member.toLower());
    return found == members.constEnd() ? nullptr : &found.value();
}

const ScriptClass* FindScriptClass(const QString& name) {
    const auto found = Classes().constFind(name.toLower());
    return found == Classes().constEnd() ? nullptr : &found.value();
}

void RegisterScriptClass(ScriptClass scriptClass) {
    const QString key = scriptClass.name.toLower();
    Classes().insert(key, std::move(scriptClass));
}

} // namespace zlx
