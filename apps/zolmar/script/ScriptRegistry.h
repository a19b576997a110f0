#pragma once
// The classes `zolmar script` can create and drive by name: for each, how to make one and a
// table of its members (methods and properties), each a callable over positional Variants.
//
// To make a class scriptable, add one file apps/zolmar/script/ScriptClass_<class>.cpp (the
// build picks it up by its name) that fills the class's table:
//
//     #include "script/ScriptRegistry.h"
//     #include "schema/cBaseDatos.h"
//
//     namespace zlx {
//     namespace {
//     void Members(ScriptClassBuilder<cBaseDatos>& c) {
//         // name, fewest and most arguments, what the call does (a = the arguments)
//         c.Method("CreateDatabase", 1, 2, [](cBaseDatos& o, ScriptArgs& a) {
//             return o.CreateDatabase(a.String(0), a.Bool(1, false));
//         });
//         c.Property("LastError", [](cBaseDatos& o) { return o.LastError(); });
//         c.Property("Tabla", [](cBaseDatos& o) { return o.Tabla(); },
//                    [](cBaseDatos& o, const Variant& v) { o.Tabla(v.ToString()); });
//     }
//     const ScriptRegistration<cBaseDatos> registration(QStringLiteral("cBaseDatos"), Members);
//     } // namespace
//     } // namespace zlx
//
// Arguments: a.String(i, default), a.Long, a.Double, a.Bool, a.Value (the Variant as given),
// a.Object<cConexion>(i) for {"ref": NAME}; by-reference parameters: a.Ref(i) (a Variant&)
// or a.Out(i, value) after the call. A callable returns anything a Variant holds (a
// shared_ptr to a library object becomes a named object) or nothing. Names are found without
// regard to case, as VB's late binding finds them. A class that cannot be created by name
// (it only comes as a result) registers with the constructor that takes a factory, giving
// nullptr.

#include "script/ScriptArgs.h"

#include <QHash>
#include <QString>
#include <functional>
#include <memory>
#include <type_traits>
#include <unordered_map>

namespace zlx {

struct ScriptMember {
    int minArgs = 0;
    int maxArgs = 0;
    bool isProperty = false;
    // A method's call or a property's read.
    std::function<Variant(Object&, ScriptArgs&)> get;
    // A property's write: the index arguments and the value (empty when read-only).
    std::function<void(Object&, ScriptArgs&, const Variant&)> set;
};

struct ScriptClass {
    QString name;
    std::function<ObjectPtr()> create;    // empty: not creatable by name
    QHash<QString, ScriptMember> members; // by lower-case name
    QStringList memberNames;              // as registered, in order
    // Makes a member for a name not in the table (a control's Qt properties); empty: none.
    std::function<ScriptMember(const QString& name)> otherMember;

    // The members otherMember made, by lower-case name (a node map: found members stay put).
    mutable std::unordered_map<QString, ScriptMember> otherMembers;

    const ScriptMember* Find(const QString& member) const;
};

// The registered class of that name (any case), or nullptr.
const ScriptClass* FindScriptClass(const QString& name);
// Adds (or replaces) a class; the registrations below and tests call it.
void RegisterScriptClass(ScriptClass scriptClass);

template <class T> class ScriptClassBuilder {
public:
    explicit ScriptClassBuilder(ScriptClass& target) : m_class(target) {}

    // fn(T&, ScriptArgs&) returning a value or nothing.
    template <class Fn> void Method(const QString& name, int minArgs, int maxArgs, Fn fn) {
        ScriptMember& member = Add(name, minArgs, maxArgs, false);
        member.get = [fn](Object& o, ScriptArgs& a) {
            T& self = dynamic_cast<T&>(o);
            if constexpr (std::is_void_v<std::invoke_result_t<Fn, T&, ScriptArgs&>>) {
                fn(self, a);
                return Variant();
            } else {
                return Variant(fn(self, a));
            }
        };
    }

    // get(T&) returns the value; set(T&, const Variant&) writes it (omit for read-only).
    template <class Get> void Property(const QString& name, Get get) {
        ScriptMember& member = Add(name, 0, 0, true);
        member.get = [get](Object& o, ScriptArgs&) { return Variant(get(dynamic_cast<T&>(o))); };
    }
    template <class Get, class Set> void Property(const QString& name, Get get, Set set) {
        Property(name, get);
        m_class.members[name.toLower()].set = [set](Object& o, ScriptArgs&, const Variant& v) {
            set(dynamic_cast<T&>(o), v);
        };
    }

    // A property with index arguments: get(T&, ScriptArgs&), set(T&, ScriptArgs&, value).
    template <class Get, class Set>
    void IndexedProperty(const QString& name, int indexArgs, Get get, Set set) {
        ScriptMember& member = Add(name, indexArgs, indexArgs, true);
        member.get = [get](Object& o, ScriptArgs& a) {
            return Variant(get(dynamic_cast<T&>(o), a));
        };
        member.set = [set](Object& o, ScriptArgs& a, const Variant& v) {
            set(dynamic_cast<T&>(o), a, v);
        };
    }

    // Any other name is a property: get(T&, name) reads it, set(T&, name, value) writes it.
    template <class Get, class Set> void OtherProperties(Get get, Set set) {
        m_class.otherMember = [get, set](const QString& name) {
            ScriptMember member{0, 0, true, {}, {}};
            member.get = [get, name](Object& o, ScriptArgs&) {
                return Variant(get(dynamic_cast<T&>(o), name));
            };
            member.set = [set, name](Object& o, ScriptArgs&, const Variant& v) {
                set(dynamic_cast<T&>(o), name, v);
            };
            return member;
        };
    }

private:
    ScriptMember& Add(const QString& name, int minArgs, int maxArgs, bool isProperty) {
        m_class.memberNames.append(name);
        ScriptMember& member = m_class.members[name.toLower()];
        member = ScriptMember{minArgs, maxArgs, isProperty, {}, {}};
        return member;
    }
    ScriptClass& m_class;
};

// Registers a class when the program starts (one static object per ScriptClass_*.cpp).
template <class T> class ScriptRegistration {
public:
    using Members = void (*)(ScriptClassBuilder<T>&);

    // `name` is the class's TypeName.
    ScriptRegistration(const QString& name, Members members)
        : ScriptRegistration(
              name, [] { return std::make_shared<T>(); }, members) {}
    ScriptRegistration(const QString& name, std::function<ObjectPtr()> create, Members members) {
        ScriptClass scriptClass{name, std::move(create), {}, {}, {}, {}};
        ScriptClassBuilder<T> builder(scriptClass);
        members(builder);
        RegisterScriptClass(std::move(scriptClass));
    }
};

} // namespace zlx
