#include "platform/ado/RecordsetWriter.h"

#include "platform/variant/DateLiteral.h"

#include <QStringList>

namespace zlx::ado {

namespace {
QString QuotedPart(const QString& name) {
    for (QChar c : name) {
        if (!(c.isLetterOrNumber() || c == u'_')) return u'[' + name + u']';
    }
    return name;
}

// A name, or a table of another database "database..table", each part quoted as it needs.
QString Quoted(const QString& name) {
    QStringList parts = name.split(u'.');
    for (QString& part : parts)
        if (!part.isEmpty()) part = QuotedPart(part);
    return parts.join(u'.');
}

// A one-dimensional array of Bytes as a binary literal 0x...; empty when the value is not one.
QString BinaryLiteral(const Variant& value) {
    const VariantArrayPtr array = value.ToArray();
    const std::optional<QByteArray> bytes = array ? array->Bytes() : std::nullopt;
    if (!bytes) return {};
    return QStringLiteral("0x") + QString::fromLatin1(bytes->toHex().toUpper());
}
} // namespace

RecordsetWriter::RecordsetWriter(const Fields& fields) : m_fields(fields) {
    for (int i = 0; i < fields.Count(); ++i) {
        const FieldDefinition& def = fields.Item(i).Definition();
        if (def.baseTable.isEmpty()) continue;
        if (m_table.isEmpty()) {
            m_table = def.baseTable;
        } else if (m_table.compare(def.baseTable, Qt::CaseInsensitive) != 0) {
            m_table.clear(); // a join: no single table to write to
            m_keys.clear();
            return;
        }
        if (def.keyColumn) m_keys.push_back(i);
    }
}

QString RecordsetWriter::ColumnName(int field) const {
    const FieldDefinition& def = m_fields.Item(field).Definition();
    return Quoted(def.baseColumn.isEmpty() ? def.name : def.baseColumn);
}

QString RecordsetWriter::Literal(const Variant& value) {
    switch (value.VarType()) {
    case vbEmpty:
    case vbNull:
        return QStringLiteral("NULL");
    case vbBoolean:
        return value.ToBool() ? QStringLiteral("1") : QStringLiteral("0");
    case vbDate:
        return ServerDateLiteral(value.ToDate());
    case vbString:
        return u'\'' + value.ToString().replace(u'\'', QStringLiteral("''")) + u'\'';
    default:
        if (value.IsArray()) {
            const QString binary = BinaryLiteral(value);
            if (!binary.isEmpty()) return binary;
        }
        return value.IsNumeric()
                   ? value.ToInvariantString()
                   : u'\'' + value.ToInvariantString().replace(u'\'', QStringLiteral("''")) + u'\'';
    }
}

QString RecordsetWriter::WhereKey(const std::vector<Variant>& original) const {
    QStringList parts;
    for (int key : m_keys) {
        parts << (original[key].IsNull()
                      ? ColumnName(key) + QStringLiteral(" IS NULL")
                      : ColumnName(key) + QStringLiteral(" = ") + Literal(original[key]));
    }
    return QStringLiteral(" WHERE ") + parts.join(QStringLiteral(" AND "));
}

QString RecordsetWriter::InsertSql(const std::vector<Variant>& values) const {
    QStringList columns;
    QStringList literals;
    for (int i = 0; i < m_fields.Count(); ++i) {
        if (m_fields.Item(i).Definition().baseTable.isEmpty() || values[i].IsNull()) continue;
        columns << ColumnName(i);
        literals << Literal(values[i]);
    }
    if (columns.isEmpty())
        return QStringLiteral("INSERT INTO %1 DEFAULT VALUES").arg(Quoted(m_table));
    return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
        .arg(Quoted(m_table), columns.join(QStringLiteral(", ")),
             literals.join(QStringLiteral(", ")));
}

QString RecordsetWriter::UpdateSql(const std::vector<Variant>& original,
                                   const std::vector<Variant>& current) const {
    QStringList sets;
    for (int i = 0; i < m_fields.Count(); ++i) {
        if (m_fields.Item(i).Definition().baseTable.isEmpty()) continue;
        const bool same = original[i].IsNull()
                              ? current[i].IsNull()
                              : !current[i].IsNull() && original[i].Equals(current[i]);
        if (!same) sets << ColumnName(i) + QStringLiteral(" = ") + Literal(current[i]);
    }
    if (sets.isEmpty()) return {};
    return QStringLiteral("UPDATE %1 SET %2")
               .arg(Quoted(m_table), sets.join(QStringLiteral(", "))) +
           WhereKey(original);
}

QString RecordsetWriter::DeleteSql(const std::vector<Variant>& original) const {
    return QStringLiteral("DELETE FROM %1").arg(Quoted(m_table)) + WhereKey(original);
}

} // namespace zlx::ado
