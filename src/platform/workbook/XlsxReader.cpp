#include "platform/workbook/XlsxReader.h"

#include "platform/workbook/WorkbookError.h"
#include "platform/workbook/XlsxSheetParser.h"
#include "platform/workbook/XlsxStyles.h"
#include "platform/workbook/ZipPackage.h"

#include <QDir>
#include <QXmlStreamReader>
#include <map>

namespace zlx::workbook {

namespace {

const QString kNotAWorkbook = QStringLiteral("External table is not in the expected format.");

struct Relationship {
    QString type;
    QString target;
};

// The relationships of a part, by id, their targets made paths inside the package.
std::map<QString, Relationship> ReadRelationships(const ZipPackage& package, const QString& part) {
    const qsizetype slash = part.lastIndexOf(u'/');
    const QString folder = slash < 0 ? QString() : part.left(slash + 1);
    const QString file = part.mid(slash + 1);
    const QString relsPart = folder + QStringLiteral("_rels/") + file + QStringLiteral(".rels");
    std::map<QString, Relationship> relationships;
    if (!package.Has(relsPart)) return relationships;
    QXmlStreamReader xml(package.Read(relsPart));
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() != u"Relationship")
            continue;
        const auto attributes = xml.attributes();
        const QString target = attributes.value(QLatin1String("Target")).toString();
        const QString path =
            target.startsWith(u'/') ? target.mid(1) : QDir::cleanPath(folder + target);
        relationships[attributes.value(QLatin1String("Id")).toString()] = {
            attributes.value(QLatin1String("Type")).toString(), path};
    }
    return relationships;
}

QString TargetOfType(const std::map<QString, Relationship>& relationships, QStringView type) {
    for (const auto& [id, relationship] : relationships)
        if (relationship.type.endsWith(type)) return relationship.target;
    return {};
}

QStringList ReadSharedStrings(const ZipPackage& package, const QString& part) {
    QStringList strings;
    if (part.isEmpty() || !package.Has(part)) return strings;
    QXmlStreamReader xml(package.Read(part));
    int phonetic = 0;
    bool inText = false;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement()) {
            if (xml.name() == u"si") strings.append(QString());
            if (xml.name() == u"rPh") ++phonetic;
            inText = xml.name() == u"t" && phonetic == 0;
        } else if (xml.isEndElement()) {
            if (xml.name() == u"rPh") --phonetic;
            inText = false;
        } else if (xml.isCharacters() && inText && !strings.isEmpty()) {
            strings.last() += xml.text();
        }
    }
    if (xml.hasError()) throw WorkbookError(kNotAWorkbook);
    return strings;
}

struct SheetEntry {
    QString name;
    QString relationshipId;
};

std::vector<SheetEntry> ReadSheetList(const QByteArray& workbookXml, bool& date1904) {
    std::vector<SheetEntry> sheets;
    QXmlStreamReader xml(workbookXml);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement) continue;
        const auto attributes = xml.attributes();
        if (xml.name() == u"workbookPr") {
            const auto value = attributes.value(QLatin1String("date1904"));
            date1904 = value == u"1" || value == u"true";
        } else if (xml.name() == u"sheet") {
            QString id;
            for (const auto& attribute : attributes)
                if (attribute.name() == u"id") id = attribute.value().toString();
            sheets.push_back({attributes.value(QLatin1String("name")).toString(), id});
        }
    }
    if (xml.hasError()) throw WorkbookError(kNotAWorkbook);
    return sheets;
}

} // namespace

XlsxContents XlsxReader::Read(const ZipPackage& package) {
    QString workbookPart = TargetOfType(ReadRelationships(package, QString()), u"/officeDocument");
    if (workbookPart.isEmpty()) workbookPart = QStringLiteral("xl/workbook.xml");
    if (!package.Has(workbookPart)) throw WorkbookError(kNotAWorkbook);
    const auto relationships = ReadRelationships(package, workbookPart);
    XlsxContents contents;
    contents.sharedStrings =
        ReadSharedStrings(package, TargetOfType(relationships, u"/sharedStrings"));
    const QString stylesPart = TargetOfType(relationships, u"/styles");
    if (!stylesPart.isEmpty() && package.Has(stylesPart))
        contents.styles = XlsxStyles(package.Read(stylesPart));
    bool date1904 = false;
    const auto entries = ReadSheetList(package.Read(workbookPart), date1904);
    contents.dateOffset = date1904 ? 1462 : 0;
    const XlsxSheetParser parser(contents.sharedStrings, contents.styles, contents.dateOffset);
    for (const SheetEntry& entry : entries) {
        const auto relationship = relationships.find(entry.relationshipId);
        // Chart sheets and dialog sheets hold no cells: they are not tables.
        if (relationship == relationships.end() ||
            !relationship->second.type.endsWith(u"/worksheet"))
            continue;
        Sheet sheet;
        sheet.name = entry.name;
        sheet.layout.part = relationship->second.target;
        sheet.layout.text = QString::fromUtf8(package.Read(sheet.layout.part));
        parser.Parse(sheet);
        contents.sheets.push_back(std::move(sheet));
    }
    return contents;
}

} // namespace zlx::workbook
