#include "script/ScriptRegistry.h"

namespace zlx {

namespace {

QHash<QString, ScriptClass>& Classes() {
    static QHash<QString, ScriptClass> classes; // filled while the program starts
    return classes;
}

} // namespace

const ScriptMember* ScriptClass::Find(const QString& member) const {
    const QString key = member.toLower();
    const auto found = members.constFind(key);
    if (found != members.constEnd()) return &found.value();
    if (!otherMember) return nullptr;
    auto made = otherMembers.find(key);
    if (made == otherMembers.end()) made = otherMembers.emplace(key, otherMember(member)).first;
    return &made->second;
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
