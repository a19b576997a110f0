#include "platform/ado/RecordsetXml.h"

#include "platform/ado/AdoErrorTexts.h"
#include "platform/ado/Recordset.h"

#include <QHash>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace zlx::ado {

namespace {

const QString kNsSchema = QStringLiteral("uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882");
const QString kNsDataType = QStringLiteral("uuid:C2F41010-65B3-11d1-A29F-00AA00C14882");
const QString kNsRowset = QStringLiteral("urn:schemas-microsoft-com:rowset");
const QString kNsRow = QStringLiteral("#RowsetSchema");

struct TypeName {
    DataTypeEnum type;
    const char* dtType;
    const char* dbType; // "" when none is written
    bool fixed;
    bool isLong;
};

// The order matters when reading: the first entry that fits wins.
constexpr TypeName kTypes[] = {{adVarWChar, "string", "", false, false},
                               {adWChar, "string", "", true, false},
                               {adLongVarWChar, "string", "", false, true},
                               {adVarChar, "string", "str", false, false},
                               {adChar, "string", "str", true, false},
                               {adLongVarChar, "string", "str", false, true},
                               {adBSTR, "string", "bstr", false, false},
                               {adInteger, "int", "", true, false},
                               {adSmallInt, "i2", "", true, false},
                               {adTinyInt, "i1", "", true, false},
                               {adUnsignedTinyInt, "ui1", "", true, false},
                               {adUnsignedSmallInt, "ui2", "", true, false},
                               {adUnsignedInt, "ui4", "", true, false},
                               {adBigInt, "i8", "", true, false},
                               {adUnsignedBigInt, "ui8", "", true, false},
                               {adSingle, "r4", "", true, false},
                               {adDouble, "float", "", true, false},
                               {adDouble, "r8", "", true, false},
                               {adCurrency, "number", "currency", true, false},
                               {adNumeric, "number", "numeric", true, false},
                               {adDecimal, "number", "decimal", true, false},
                               {adVarNumeric, "number", "varnumeric", true, false},
                               {adNumeric, "number", "", true, false},
                               {adDate, "dateTime", "variantdate", true, false},
                               {adDBTimeStamp, "dateTime", "timestamp", true, false},
                               {adDBTimeStamp, "dateTime", "", true, false},
                               {adDBDate, "date", "", true, false},
                               {adDBTime, "time", "", true, false},
                               {adBoolean, "boolean", "", true, false},
                               {adGUID, "uuid", "", true, false},
                               {adBinary, "bin.hex", "", true, false},
                               {adVarBinary, "bin.hex", "", false, false},
                               {adLongVarBinary, "bin.hex", "", false, true},
                               {adVariant, "string", "variant", false, false}};

const TypeName& TypeNameOf(DataTypeEnum type) {
    for (const TypeName& t : kTypes) {
        if (t.type == type) return t;
    }
    return kTypes[0];
}

[[noreturn]] void Corrupt(const QString& why) {
    RaiseAdoError(adErrReadFile, QStringLiteral("The XML rowset is incomplete or invalid: ") + why);
}

bool IsXmlName(const QString& name) {
    if (name.isEmpty() || name.front().isDigit() || name.front() == u'-' || name.front() == u'.' ||
        name.startsWith(QLatin1String("xml"), Qt::CaseInsensitive)) {
        return false;
    }
    for (QChar c : name) {
        if (!(c.isLetterOrNumber() || c == u'_' || c == u'-' || c == u'.')) return false;
    }
    return true;
}

QString TwoDigits(int v) {
    return QString::number(v).rightJustified(2, u'0');
}

QString DateText(double value, DataTypeEnum type) {
    int y, mo, d, h, mi, s;
    SplitDate(Date{value}, y, mo, d, h, mi, s);
    const QString date =
        QStringLiteral("%1-%2-%3")
            .arg(QString::number(y).rightJustified(4, u'0'), TwoDigits(mo), TwoDigits(d));
    const QString time = TwoDigits(h) + u':' + TwoDigits(mi) + u':' + TwoDigits(s);
    if (type == adDBDate) return date;
    if (type == adDBTime) return time;
    return date + u'T' + time;
}

QString CurrencyText(std::int64_t scaled) {
    const bool negative = scaled < 0;
    const std::uint64_t magnitude =
        negative ? 0 - static_cast<std::uint64_t>(scaled) : static_cast<std::uint64_t>(scaled);
    QString text = QString::number(magnitude / 10000);
    QString fraction = QString::number(magnitude % 10000).rightJustified(4, u'0');
    while (fraction.endsWith(u'0'))
        fraction.chop(1);
    if (!fraction.isEmpty()) text += u'.' + fraction;
    return negative ? u'-' + text : text;
}

QString BinaryText(const Variant& value) {
    QString out;
    if (const VariantArrayPtr bytes = value.ToArray()) {
        for (const Variant& b : bytes->Data()) {
            out += QString::number(b.ToByte(), 16).rightJustified(2, u'0');
        }
        return out;
    }
    return QString::fromLatin1(value.ToString().toUtf8().toHex());
}

QString ValueText(const ColumnStore& column, std::size_t row) {
    const DataTypeEnum type = column.Type();
    switch (column.GetKind()) {
    case ColumnStore::Kind::Text:
        return column.Texts().Get(row);
    case ColumnStore::Kind::Real:
        if (type == adSingle) return QString::number(column.NumberAt(row), 'g', 9);
        if (type == adDouble) return QString::number(column.NumberAt(row), 'g', 17);
        return DateText(column.NumberAt(row), type);
    case ColumnStore::Kind::Currency:
        return CurrencyText(column.Get(row).Get<Currency>()->scaled);
    case ColumnStore::Kind::Decimal:
        return column.Get(row).Get<Decimal>()->ToString();
    case ColumnStore::Kind::Integer:
        if (type == adBoolean)
            return column.NumberAt(row) != 0 ? QStringLiteral("True") : QStringLiteral("False");
        return QString::number(column.Get(row).ToInt64());
    case ColumnStore::Kind::Other:
        break;
    }
    const Variant value = column.Get(row);
    if (type == adBinary || type == adVarBinary || type == adLongVarBinary)
        return BinaryText(value);
    return value.ToInvariantString();
}

void WriteField(QXmlStreamWriter& xml, const Field& field, int number) {
    const FieldDefinition& def = field.Definition();
    const TypeName& t = TypeNameOf(def.type);
    const std::int32_t attributes = field.Attributes();
    xml.writeStartElement(kNsSchema, QStringLiteral("AttributeType"));
    if (IsXmlName(def.name)) {
        xml.writeAttribute(QStringLiteral("name"), def.name);
    } else {
        xml.writeAttribute(QStringLiteral("name"), QStringLiteral("c%1").arg(number - 1));
        xml.writeAttribute(kNsRowset, QStringLiteral("name"), def.name);
    }
    xml.writeAttribute(kNsRowset, QStringLiteral("number"), QString::number(number));
    if (attributes & adFldIsNullable)
        xml.writeAttribute(kNsRowset, QStringLiteral("nullable"), QStringLiteral("true"));
    if (attributes & adFldUnknownUpdatable)
        xml.writeAttribute(kNsRowset, QStringLiteral("writeunknown"), QStringLiteral("true"));
    if (def.keyColumn || (attributes & adFldKeyColumn))
        xml.writeAttribute(kNsRowset, QStringLiteral("keycolumn"), QStringLiteral("true"));
    if (!def.baseTable.isEmpty())
        xml.writeAttribute(kNsRowset, QStringLiteral("basetable"), def.baseTable);
    if (!def.baseColumn.isEmpty())
        xml.writeAttribute(kNsRowset, QStringLiteral("basecolumn"), def.baseColumn);
    xml.writeEmptyElement(kNsSchema, QStringLiteral("datatype"));
    xml.writeAttribute(kNsDataType, QStringLiteral("type"), QLatin1String(t.dtType));
    if (*t.dbType) xml.writeAttribute(kNsRowset, QStringLiteral("dbtype"), QLatin1String(t.dbType));
    xml.writeAttribute(kNsDataType, QStringLiteral("maxLength"), QString::number(def.definedSize));
    if (def.precision > 0)
        xml.writeAttribute(kNsRowset, QStringLiteral("precision"), QString::number(def.precision));
    if (def.type == adNumeric || def.type == adDecimal || def.type == adVarNumeric) {
        xml.writeAttribute(kNsRowset, QStringLiteral("scale"), QString::number(def.numericScale));
    }
    if (attributes & adFldFixed)
        xml.writeAttribute(kNsRowset, QStringLiteral("fixedlength"), QStringLiteral("true"));
    if (attributes & adFldLong)
        xml.writeAttribute(kNsRowset, QStringLiteral("long"), QStringLiteral("true"));
    if (!(attributes & adFldMayBeNull))
        xml.writeAttribute(kNsRowset, QStringLiteral("maybenull"), QStringLiteral("false"));
    xml.writeEndElement();
}

} // namespace

void RecordsetXml::Write(const Recordset& recordset, QIODevice& device) {
    QXmlStreamWriter xml(&device);
    xml.setAutoFormatting(true);
    xml.setAutoFormattingIndent(-1);
    xml.writeNamespace(kNsSchema, QStringLiteral("s"));
    xml.writeNamespace(kNsDataType, QStringLiteral("dt"));
    xml.writeNamespace(kNsRowset, QStringLiteral("rs"));
    xml.writeNamespace(kNsRow, QStringLiteral("z"));
    xml.writeStartElement(QStringLiteral("xml"));
    xml.writeStartElement(kNsSchema, QStringLiteral("Schema"));
    xml.writeAttribute(QStringLiteral("id"), QStringLiteral("RowsetSchema"));
    xml.writeStartElement(kNsSchema, QStringLiteral("ElementType"));
    xml.writeAttribute(QStringLiteral("name"), QStringLiteral("row"));
    xml.writeAttribute(QStringLiteral("content"), QStringLiteral("eltOnly"));
    xml.writeAttribute(kNsRowset, QStringLiteral("updatable"), QStringLiteral("true"));
    const Fields& fields = recordset.GetFields();
    QStringList attributeNames;
    for (int i = 0; i < fields.Count(); ++i) {
        WriteField(xml, fields.Item(i), i + 1);
        attributeNames << (IsXmlName(fields.Item(i).Name()) ? fields.Item(i).Name()
                                                            : QStringLiteral("c%1").arg(i));
    }
    xml.writeEmptyElement(kNsSchema, QStringLiteral("extends"));
    xml.writeAttribute(QStringLiteral("type"), QStringLiteral("rs:rowbase"));
    xml.writeEndElement(); // ElementType
    xml.writeEndElement(); // Schema
    xml.writeStartElement(kNsRowset, QStringLiteral("data"));
    const std::vector<ColumnStore>& columns = recordset.Columns();
    for (std::size_t row = 0; row < recordset.PhysicalRowCount(); ++row) {
        if (recordset.RowStatus(row) & adRecDBDeleted) continue;
        xml.writeEmptyElement(kNsRow, QStringLiteral("row"));
        for (std::size_t c = 0; c < columns.size(); ++c) {
            if (!columns[c].IsNull(row)) {
                xml.writeAttribute(attributeNames[c], ValueText(columns[c], row));
            }
        }
    }
    xml.writeEndElement(); // data
    xml.writeEndElement(); // xml
    xml.writeEndDocument();
}

namespace {

bool IsTrue(QStringView text) {
    return text.compare(u"true", Qt::CaseInsensitive) == 0 || text == u"1" || text == u"-1";
}

class XmlRowsetReader {
public:
    XmlRowsetReader(Recordset& target, QIODevice& device) : m_target(target), m_xml(&device) {}

    void Run() {
        while (!m_xml.atEnd()) {
            if (m_xml.readNext() != QXmlStreamReader::StartElement) continue;
            const QStringView ns = m_xml.namespaceUri();
            const QStringView name = m_xml.name();
            if (ns == kNsSchema && name == u"AttributeType")
                ReadAttributeType();
            else if (ns == kNsSchema && name == u"datatype")
                ReadDataType(m_xml.attributes());
            else if (ns == kNsRowset && name == u"data")
                BeginData();
            else if (ns == kNsRowset && (name == u"original" || name == u"delete"))
                m_xml.skipCurrentElement();
            else if (ns == kNsRow && name == u"row")
                ReadRow();
        }
        if (m_xml.hasError()) Corrupt(m_xml.errorString());
        if (!m_dataSeen) Corrupt(QStringLiteral("no rs:data element."));
    }

private:
    struct PendingField {
        FieldDefinition def;
        QString dtType;
        QString dbType;
        bool fixed = false;
        bool isLong = false;
    };

    void ReadAttributeType() {
        if (m_dataSeen) Corrupt(QStringLiteral("schema after data."));
        const QXmlStreamAttributes a = m_xml.attributes();
        PendingField f;
        const QString attributeName = a.value(QStringLiteral("name")).toString();
        if (attributeName.isEmpty()) Corrupt(QStringLiteral("a field without a name."));
        f.def.name = a.hasAttribute(kNsRowset, QStringLiteral("name"))
                         ? a.value(kNsRowset, QStringLiteral("name")).toString()
                         : attributeName;
        std::int32_t attributes = adFldMayBeNull;
        if (IsTrue(a.value(kNsRowset, QStringLiteral("nullable")))) attributes |= adFldIsNullable;
        if (IsTrue(a.value(kNsRowset, QStringLiteral("writeunknown"))))
            attributes |= adFldUnknownUpdatable | adFldUpdatable;
        f.def.keyColumn = IsTrue(a.value(kNsRowset, QStringLiteral("keycolumn")));
        f.def.baseTable = a.value(kNsRowset, QStringLiteral("basetable")).toString();
        f.def.baseColumn = a.value(kNsRowset, QStringLiteral("basecolumn")).toString();
        f.def.attributes = attributes;
        m_fields.push_back(f);
        m_attributeNames.insert(attributeName, static_cast<int>(m_fields.size()) - 1);
        ReadDataType(a); // the data type may also sit on the AttributeType itself
    }

    void ReadDataType(const QXmlStreamAttributes& a) {
        if (m_fields.empty()) Corrupt(QStringLiteral("s:datatype outside a field."));
        PendingField& f = m_fields.back();
        if (a.hasAttribute(kNsDataType, QStringLiteral("type")))
            f.dtType = a.value(kNsDataType, QStringLiteral("type")).toString();
        if (a.hasAttribute(kNsRowset, QStringLiteral("dbtype")))
            f.dbType = a.value(kNsRowset, QStringLiteral("dbtype")).toString();
        if (a.hasAttribute(kNsDataType, QStringLiteral("maxLength")))
            f.def.definedSize = Number(a.value(kNsDataType, QStringLiteral("maxLength")));
        if (a.hasAttribute(kNsRowset, QStringLiteral("precision")))
            f.def.precision =
                static_cast<std::uint8_t>(Number(a.value(kNsRowset, QStringLiteral("precision"))));
        if (a.hasAttribute(kNsRowset, QStringLiteral("scale")))
            f.def.numericScale =
                static_cast<std::uint8_t>(Number(a.value(kNsRowset, QStringLiteral("scale"))));
        if (IsTrue(a.value(kNsRowset, QStringLiteral("fixedlength")))) f.fixed = true;
        if (IsTrue(a.value(kNsRowset, QStringLiteral("long")))) f.isLong = true;
        if (a.value(kNsRowset, QStringLiteral("maybenull")) == u"false")
            f.def.attributes &= ~adFldMayBeNull;
    }

    static int Number(QStringView text) {
        bool ok = false;
        const int n = text.toInt(&ok);
        if (!ok || n < 0) Corrupt(QStringLiteral("bad number '%1'.").arg(text));
        return n;
    }

    static DataTypeEnum ResolveType(const PendingField& f) {
        const QString dtType = f.dtType.isEmpty() ? QStringLiteral("string") : f.dtType;
        for (const TypeName& t : kTypes) {
            if (dtType.compare(QLatin1String(t.dtType), Qt::CaseInsensitive) != 0) continue;
            if (f.dbType.compare(QLatin1String(t.dbType), Qt::CaseInsensitive) != 0) continue;
            if (dtType == u"string" || dtType == u"bin.hex") {
                if (t.fixed != f.fixed || t.isLong != f.isLong) continue;
            }
            return t.type;
        }
        for (const TypeName& t : kTypes) { // an unknown dbtype: the dt:type decides
            if (dtType.compare(QLatin1String(t.dtType), Qt::CaseInsensitive) == 0) return t.type;
        }
        Corrupt(QStringLiteral("unknown type '%1'.").arg(dtType));
    }

    void BeginData() {
        if (m_dataSeen) Corrupt(QStringLiteral("two rs:data elements."));
        if (m_fields.empty()) Corrupt(QStringLiteral("no fields."));
        m_dataSeen = true;
        Fields& fields = m_target.GetFields();
        fields.Clear();
        for (PendingField& f : m_fields) {
            f.def.type = ResolveType(f);
            if (f.fixed) f.def.attributes |= adFldFixed;
            if (f.isLong) f.def.attributes |= adFldLong;
            // A saved schema names each column once.
            if (fields.IndexOf(f.def.name) >= 0) Corrupt(AdoErrorText(adErrObjectInCollection));
            fields.Define(f.def);
        }
        m_target.PrepareColumns();
    }

    void ReadRow() {
        if (!m_dataSeen) Corrupt(QStringLiteral("z:row before rs:data."));
        std::vector<Variant> values(m_fields.size(), Variant::Null());
        for (const QXmlStreamAttribute& a : m_xml.attributes()) {
            const auto it = m_attributeNames.constFind(a.name().toString());
            if (it == m_attributeNames.constEnd()) {
                Corrupt(QStringLiteral("unknown attribute '%1'.").arg(a.name()));
            }
            values[*it] = ParseValue(m_target.Columns()[*it].Type(), a.value());
        }
        try {
            m_target.AppendRow(values);
        } catch (const AdoError& e) {
            Corrupt(e.Description());
        }
    }

    static Variant ParseValue(DataTypeEnum type, QStringView text) {
        bool ok = true;
        Variant value;
        switch (ColumnStore::KindOf(type)) {
        case ColumnStore::Kind::Text:
            return Variant(text.toString());
        case ColumnStore::Kind::Integer:
            if (type == adBoolean) return Variant(IsTrue(text));
            value = Variant::FromInt64(text.toLongLong(&ok));
            break;
        case ColumnStore::Kind::Currency:
        case ColumnStore::Kind::Decimal:
            value = Variant(Decimal::FromString(text.toString(), &ok));
            break;
        case ColumnStore::Kind::Real:
            if (type == adSingle || type == adDouble)
                value = Variant(text.toDouble(&ok));
            else
                value = Variant(ParseDate(text, ok));
            break;
        case ColumnStore::Kind::Other:
            if (type == adBinary || type == adVarBinary || type == adLongVarBinary)
                return ParseBinary(text);
            value = Variant(text.toString());
            break;
        }
        if (!ok) Corrupt(QStringLiteral("bad value '%1'.").arg(text));
        return value;
    }

    static Date ParseDate(QStringView text, bool& ok) {
        static const QRegularExpression pattern(QStringLiteral(
            R"(^(?:(\d{4})-(\d{2})-(\d{2}))?(?:T?(\d{2}):(\d{2})(?::(\d{2}))?(?:\.\d+)?)?$)"));
        const QRegularExpressionMatch m = pattern.match(text);
        ok = m.hasMatch() && !text.isEmpty();
        if (!ok) return Date{};
        const auto part = [&m](int i, int fallback) {
            return m.capturedView(i).isEmpty() ? fallback : m.capturedView(i).toInt();
        };
        const int month = part(2, 12);
        const int day = part(3, 30);
        const int hour = part(4, 0);
        const int minute = part(5, 0);
        const int second = part(6, 0);
        ok = month >= 1 && month <= 12 && day >= 1 && day <= 31 && hour < 24 && minute < 60 &&
             second < 60;
        return ok ? MakeDate(part(1, 1899), month, day, hour, minute, second) : Date{};
    }

    static Variant ParseBinary(QStringView text) {
        if (text.size() % 2 != 0) Corrupt(QStringLiteral("odd bin.hex length."));
        std::vector<Variant> bytes;
        for (qsizetype i = 0; i < text.size(); i += 2) {
            bool ok = false;
            const uint b = text.mid(i, 2).toUInt(&ok, 16);
            if (!ok) Corrupt(QStringLiteral("bad bin.hex value."));
            bytes.emplace_back(static_cast<std::uint8_t>(b));
        }
        return Variant::Array(std::move(bytes));
    }

    Recordset& m_target;
    QXmlStreamReader m_xml;
    std::vector<PendingField> m_fields;
    QHash<QString, int> m_attributeNames;
    bool m_dataSeen = false;
};

} // namespace

void RecordsetXml::Read(Recordset& recordset, QIODevice& device) {
    XmlRowsetReader reader(recordset, device);
    try {
        reader.Run();
    } catch (...) {
        recordset.GetFields().Clear();
        recordset.PrepareColumns();
        recordset.SetStateBits(adStateClosed);
        throw;
    }
    recordset.FinishOpen(adStateOpen);
}

} // namespace zlx::ado
