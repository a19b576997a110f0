#include "platform/workbook/ZipPackage.h"

#include "platform/workbook/WorkbookError.h"

#include <zip.h>

namespace zlx::workbook {

namespace {

const QString kNotAWorkbook = QStringLiteral("External table is not in the expected format.");

QString ZipMessage(zip_t* archive) {
    return QString::fromUtf8(zip_strerror(archive));
}

} // namespace

ZipPackage::ZipPackage(const QString& path) {
    int error = 0;
    m_archive = zip_open(path.toUtf8().constData(), ZIP_RDONLY, &error);
    if (!m_archive) throw WorkbookError(kNotAWorkbook);
}

ZipPackage::~ZipPackage() {
    if (m_archive) zip_discard(m_archive);
}

bool ZipPackage::Has(const QString& part) const {
    return zip_name_locate(m_archive, part.toUtf8().constData(), 0) >= 0;
}

QByteArray ZipPackage::Read(const QString& part) const {
    zip_stat_t stat;
    zip_stat_init(&stat);
    const QByteArray name = part.toUtf8();
    if (zip_stat(m_archive, name.constData(), 0, &stat) != 0 || !(stat.valid & ZIP_STAT_SIZE))
        throw WorkbookError(kNotAWorkbook);
    zip_file_t* file = zip_fopen(m_archive, name.constData(), 0);
    if (!file) throw WorkbookError(kNotAWorkbook);
    QByteArray data(static_cast<qsizetype>(stat.size), Qt::Uninitialized);
    const zip_int64_t read = zip_fread(file, data.data(), stat.size);
    zip_fclose(file);
    if (read != static_cast<zip_int64_t>(stat.size)) throw WorkbookError(kNotAWorkbook);
    return data;
}

void ZipPackage::ReplaceParts(const QString& path, const std::map<QString, QByteArray>& parts) {
    int error = 0;
    zip_t* archive = zip_open(path.toUtf8().constData(), 0, &error);
    if (!archive) throw WorkbookError(kNotAWorkbook);
    for (const auto& [part, data] : parts) {
        zip_source_t* source =
            zip_source_buffer(archive, data.constData(), static_cast<zip_uint64_t>(data.size()), 0);
        const zip_int64_t index = zip_name_locate(archive, part.toUtf8().constData(), 0);
        const bool stored = source && index >= 0 &&
                            zip_file_replace(archive, static_cast<zip_uint64_t>(index), source,
                                             ZIP_FL_ENC_UTF_8) == 0;
        if (!stored) {
            const QString message = ZipMessage(archive);
            if (source) zip_source_free(source);
            zip_discard(archive);
            throw WorkbookError(QStringLiteral("The workbook could not be written: ") + message);
        }
    }
    // The buffers above live until here: zip_close reads them while writing the new file.
    if (zip_close(archive) != 0) {
        const QString message = ZipMessage(archive);
        zip_discard(archive);
        throw WorkbookError(QStringLiteral("The workbook could not be written: ") + message);
    }
}

} // namespace zlx::workbook
