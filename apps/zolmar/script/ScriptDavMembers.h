#pragma once
// The I_DAV members every field descriptor class offers to `zolmar script`, under their own
// names and their interface names (I_DAV_Name, ...).

#include "binding/cDAV_Base.h"
#include "script/ScriptRegistry.h"

namespace zlx {

template <class T> void DavMembers(ScriptClassBuilder<T>& c) {
    for (const QString& prefix : {QString(), QStringLiteral("I_DAV_")}) {
        c.Property(prefix + QStringLiteral("Name"), [](T& o) { return o.Name(); });
        c.Property(prefix + QStringLiteral("Width"), [](T& o) { return o.Width(); });
        c.Property(prefix + QStringLiteral("DataType"), [](T& o) { return o.DataType(); });
        c.Property(prefix + QStringLiteral("Indexed"), [](T& o) { return o.Indexed(); });
        c.Property(prefix + QStringLiteral("Mask"), [](T& o) { return o.Mask(); });
        c.Property(
            prefix + QStringLiteral("Value"), [](T& o) { return o.Value(); },
            [](T& o, const Variant& v) { o.Value(v); });
    }
}

} // namespace zlx
