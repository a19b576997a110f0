#include "platform/engines/SqliteServerFolder.h"

#include <QDir>
#include <QFileInfo>

namespace zlx::ado {

bool SqliteServerFolder::IsFolder() const {
    return QFileInfo(m_folder).isDir();
}

QString SqliteServerFolder::DatabaseFile(const QString& database) const {
    return QDir(m_folder).filePath(database + QStringLiteral(".sqlite"));
}

QString SqliteServerFolder::LocksFile(const QString& database) const {
    return QDir(m_folder).filePath(database + QStringLiteral(".locks.sqlite"));
}

bool SqliteServerFolder::HasDatabase(const QString& database) const {
    return QFileInfo::exists(DatabaseFile(database));
}

std::vector<std::pair<QString, QString>> SqliteServerFolder::Databases() const {
    std::vector<std::pair<QString, QString>> databases;
    for (const QFileInfo& file :
         QDir(m_folder).entryInfoList({QStringLiteral("*.sqlite")}, QDir::Files)) {
        if (file.completeBaseName().contains(u'.')) continue; // a database's locks file
        databases.emplace_back(file.completeBaseName(), file.absoluteFilePath());
    }
    return databases;
}

bool SqliteServerFolder::IsMaster(const QString& database) {
    return database.compare(u"master", Qt::CaseInsensitive) == 0;
}

} // namespace zlx::ado
