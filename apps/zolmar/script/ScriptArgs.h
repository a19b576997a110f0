#pragma once
// The positional arguments of one late-bound call, converted on demand with the library's
// rules (CLng, CStr, CBool, ...); an argument not given takes the method's default. A
// conversion that fails names the argument. By-reference parameters hand their value after
// the call back to the script.

#include "platform/variant/Variant.h"

#include <deque>
#include <stdexcept>
#include <vector>

namespace zlx {

// A line that cannot be carried out; its text is the answer's "error".
class ScriptError : public std::runtime_error {
public:
    explicit ScriptError(const QString& text) : std::runtime_error(text.toStdString()) {}
};

class ScriptArgs {
public:
    explicit ScriptArgs(const std::vector<Variant>& values)
        : m_values(values.begin(), values.end()) {}

    std::size_t Count() const { return m_values.size(); }
    bool Given(std::size_t i) const { return i < m_values.size(); }

    Variant Value(std::size_t i, const Variant& fallback = Variant()) const {
        return Given(i) ? m_values[i] : fallback;
    }
    QString String(std::size_t i, const QString& fallback = {}) const;
    std::int32_t Long(std::size_t i, std::int32_t fallback = 0) const;
    double Double(std::size_t i, double fallback = 0) const;
    bool Bool(std::size_t i, bool fallback = false) const;

    // A library object passed as {"ref": NAME}; Null, Empty or an argument not given is
    // Nothing (nullptr). An object of another class is refused.
    template <class T> std::shared_ptr<T> Object(std::size_t i) const {
        const ObjectPtr object = AnyObject(i);
        if (!object) return nullptr;
        auto typed = std::dynamic_pointer_cast<T>(object);
        if (!typed) throw WrongObject(i, object->TypeName());
        return typed;
    }
    ObjectPtr AnyObject(std::size_t i) const;

    // A by-reference parameter: the Variant the method reads and writes (Empty when not
    // given). Its value after the call is answered in "out".
    Variant& Ref(std::size_t i);
    // A by-reference parameter of another type: the method's value after the call.
    void Out(std::size_t i, const Variant& value) { Ref(i) = value; }
    // The by-reference parameters in the order the method declares them, after the call.
    std::vector<Variant> OutValues() const;

private:
    template <class Convert> auto Converted(std::size_t i, Convert convert) const;
    ScriptError WrongObject(std::size_t i, const QString& typeName) const;

    std::deque<Variant> m_values; // a deque keeps earlier Ref()s valid while later ones grow it
    std::vector<std::size_t> m_refs;
};

} // namespace zlx
