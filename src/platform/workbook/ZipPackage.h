#pragma once
// The zip container of an .xlsx (libzip): its parts read by name, and changed parts written
// back in place.

#include <QByteArray>
#include <QString>
#include <map>

struct zip;

namespace zlx::workbook {

class ZipPackage {
public:
    // Throws WorkbookError when the file is not a zip archive.
    explicit ZipPackage(const QString& path);
    ~ZipPackage();
    ZipPackage(const ZipPackage&) = delete;
    ZipPackage& operator=(const ZipPackage&) = delete;

    bool Has(const QString& part) const;
    // Throws WorkbookError when the part is missing or unreadable.
    QByteArray Read(const QString& part) const;

    // Replaces the given parts of the file at `path`; every other part is copied as it was.
    // libzip writes a new archive beside the old one and renames it over the old, so a
    // failure leaves the previous workbook whole.
    static void ReplaceParts(const QString& path, const std::map<QString, QByteArray>& parts);

private:
    zip* m_archive = nullptr;
};

} // namespace zlx::workbook
