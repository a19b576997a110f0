#include "script/ScriptArgs.h"

#include <algorithm>

namespace zlx {

template <class Convert> auto ScriptArgs::Converted(std::size_t i, Convert convert) const {
    try {
        return convert(m_values[i]);
    } catch (const VariantError& error) {
        throw ScriptError(QStringLiteral("argument %1: %2").arg(i + 1).arg(error.Description()));
    }
}

QString ScriptArgs::String(std::size_t i, const QString& fallback) const {
    if (!Given(i)) return fallback;
    return Converted(i, [](const Variant& v) { return v.ToString(); });
}

std::int32_t ScriptArgs::Long(std::size_t i, std::int32_t fallback) const {
    if (!Given(i)) return fallback;
    return Converted(i, [](const Variant& v) { return v.ToLong(); });
}

double ScriptArgs::Double(std::size_t i, double fallback) const {
    if (!Given(i)) return fallback;
    return Converted(i, [](const Variant& v) { return v.ToDouble(); });
}

bool ScriptArgs::Bool(std::size_t i, bool fallback) const {
    if (!Given(i)) return fallback;
    return Converted(i, [](const Variant& v) { return v.ToBool(); });
}

ObjectPtr ScriptArgs::AnyObject(std::size_t i) const {
    if (!Given(i) || m_values[i].IsNull() || m_values[i].IsEmpty()) return nullptr;
    if (!m_values[i].IsObject())
        throw ScriptError(
            QStringLiteral("argument %1: an object is needed ({\"ref\": NAME})").arg(i + 1));
    return m_values[i].ToObject();
}

ScriptError ScriptArgs::WrongObject(std::size_t i, const QString& typeName) const {
    return ScriptError(QStringLiteral("argument %1: a %2 is not the object this member takes")
                           .arg(i + 1)
                           .arg(typeName));
}

Variant& ScriptArgs::Ref(std::size_t i) {
    if (m_values.size() <= i) m_values.resize(i + 1);
    if (std::find(m_refs.begin(), m_refs.end(), i) == m_refs.end()) m_refs.push_back(i);
    return m_values[i];
}

std::vector<Variant> ScriptArgs::OutValues() const {
    std::vector<std::size_t> refs = m_refs;
    std::sort(refs.begin(), refs.end());
    std::vector<Variant> values;
    for (const std::size_t i : refs)
        values.push_back(m_values[i]);
    return values;
}

} // namespace zlx
