#include "platform/tsql/KeyConstraints.h"

namespace zlx::tsql {

void KeyConstraints::Note(const QString& table, const QStringList& keys) {
    QStringList lower;
    for (const QString& key : keys)
        lower << key.toLower();
    m_keys.insert(table.toLower(), lower);
}

bool KeyConstraints::Contains(const QString& key) const {
    const QString lower = key.toLower();
    for (const QStringList& keys : m_keys)
        if (keys.contains(lower)) return true;
    return false;
}

} // namespace zlx::tsql
