#include "platform/workbook/Workbook.h"

#include "platform/workbook/WorkbookError.h"
#include "platform/workbook/XlsReader.h"
#include "platform/workbook/XlsxSheetEditor.h"
#include "platform/workbook/XlsxSheetParser.h"
#include "platform/workbook/ZipPackage.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <map>

namespace zlx::workbook {

namespace {

enum class Format { Xlsx, Xls, Unknown };

// The container decides, not the file's extension: a zip is an .xlsx, a compound file an .xls.
Format FormatOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return Format::Unknown;
    const QByteArray head = file.read(8);
    if (head.startsWith("PK\x03\x04")) return Format::Xlsx;
    if (head == QByteArray::fromHex("d0cf11e0a1b11ae1")) return Format::Xls;
    return Format::Unknown;
}

} // namespace

Workbook::Workbook(const QString& path, std::vector<Sheet> sheets, bool readOnly)
    : m_path(path), m_stamp(FileStamp()), m_readOnly(readOnly) {
    for (Sheet& sheet : sheets)
        m_tables.emplace_back(m_sheets.emplace_back(std::move(sheet)));
}

std::unique_ptr<Workbook> Workbook::Open(const QString& path) {
    if (!QFileInfo(path).isFile())
        throw WorkbookError(QStringLiteral("Could not find file '%1'.").arg(path));
    switch (FormatOf(path)) {
    case Format::Xlsx: {
        XlsxContents contents = XlsxReader::Read(ZipPackage(path));
        std::vector<Sheet> sheets = std::move(contents.sheets);
        contents.sheets.clear();
        std::unique_ptr<Workbook> workbook(new Workbook(path, std::move(sheets), false));
        workbook->m_xlsx = std::move(contents);
        return workbook;
    }
    case Format::Xls:
        return std::unique_ptr<Workbook>(new Workbook(path, XlsReader::Read(path), true));
    case Format::Unknown:
        break;
    }
    throw WorkbookError(QStringLiteral("External table is not in the expected format."));
}

QString Workbook::FileStamp() const {
    const QFileInfo file(m_path);
    return file.lastModified().toString(Qt::ISODateWithMs) + u'/' + QString::number(file.size());
}

void Workbook::Save() {
    std::map<QString, QByteArray> parts;
    std::map<Sheet*, QString> texts;
    for (Sheet& sheet : m_sheets) {
        if (sheet.dirty.empty()) continue;
        texts[&sheet] = XlsxSheetEditor::Apply(sheet, m_xlsx.dateOffset);
        parts[sheet.layout.part] = texts[&sheet].toUtf8();
    }
    if (parts.empty()) return;
    if (ChangedOnDisk())
        throw WorkbookError(QStringLiteral("The workbook was changed by another program after it "
                                           "was opened. Open it again to change it."));
    ZipPackage::ReplaceParts(m_path, parts);
    m_stamp = FileStamp();
    // The rewritten parts are what the next change is written into.
    const XlsxSheetParser parser(m_xlsx.sharedStrings, m_xlsx.styles, m_xlsx.dateOffset);
    for (auto& [sheet, text] : texts) {
        sheet->layout.text = text;
        sheet->dirty.clear();
        parser.Parse(*sheet);
    }
}

} // namespace zlx::workbook
