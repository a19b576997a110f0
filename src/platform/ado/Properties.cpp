#include "platform/ado/Properties.h"

#include "platform/ado/AdoErrorTexts.h"
#include "platform/engines/AdoConstants.h"

namespace zlx::ado {

void Properties::Add(const QString& name, const Variant& initial, ChangeHook onChange) {
    m_items.push_back(Entry{name, initial, std::move(onChange)});
}

int Properties::Find(const QString& name) const {
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (m_items[i].name.compare(name, Qt::CaseInsensitive) == 0) return static_cast<int>(i);
    }
    return -1;
}

int Properties::Require(const QString& name) const {
    const int index = Find(name);
    if (index < 0) RaiseAdoError(adErrItemNotFound, QStringLiteral("(\"%1\")").arg(name));
    return index;
}

QString Properties::Name(int index) const {
    if (index < 0 || index >= Count()) RaiseAdoError(adErrItemNotFound);
    return m_items[index].name;
}

Variant Properties::Item(const QString& name) const {
    return m_items[Require(name)].value;
}

Variant Properties::Item(int index) const {
    if (index < 0 || index >= Count()) RaiseAdoError(adErrItemNotFound);
    return m_items[index].value;
}

void Properties::SetItem(const QString& name, const Variant& value) {
    Entry& entry = m_items[Require(name)];
    if (entry.onChange) entry.onChange(value);
    entry.value = value;
}

} // namespace zlx::ado
