#pragma once
// A Properties collection: named dynamic properties of a Recordset or a Field ("Optimize",
// "Initial Fetch Size", ...). Names compare case-insensitively; an unknown name raises 3265.

#include "platform/variant/Variant.h"

#include <QString>
#include <functional>
#include <vector>

namespace zlx::ado {

class Properties {
public:
    using ChangeHook = std::function<void(const Variant&)>;

    // Declares a property with its initial value; `onChange` runs before a new value is kept
    // (it may throw to refuse the value).
    void Add(const QString& name, const Variant& initial, ChangeHook onChange = {});

    int Count() const { return static_cast<int>(m_items.size()); }
    QString Name(int index) const;
    Variant Item(const QString& name) const;
    Variant Item(int index) const;
    void SetItem(const QString& name, const Variant& value);
    bool Contains(const QString& name) const { return Find(name) >= 0; }

private:
    struct Entry {
        QString name;
        Variant value;
        ChangeHook onChange;
    };
    int Find(const QString& name) const;
    int Require(const QString& name) const;
    std::vector<Entry> m_items;
};

} // namespace zlx::ado
