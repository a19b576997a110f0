#include "platform/companion/cLogFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QSysInfo>
#include <pwd.h>
#include <unistd.h>

namespace zlx {

namespace {

bool CanAppend(const QString& path, bool truncate) {
    QFile file(path);
    return file.open(truncate ? QIODevice::WriteOnly | QIODevice::Truncate
                              : QIODevice::WriteOnly | QIODevice::Append);
}

} // namespace

QString cLogFile::UserStateFolder() {
    QString base = qEnvironmentVariable("XDG_STATE_HOME");
    if (base.isEmpty()) base = QDir::homePath() + QStringLiteral("/.local/state");
    return base + QStringLiteral("/zolmar");
}

bool cLogFile::OpenLog(const QString& cFolder, const QString& cName, int nMode, bool lTimeStamp,
                       int nMaxKB) {
    m_timeStamp = lTimeStamp;
    m_maxBytes = nMaxKB > 0 ? qint64(nMaxKB) * 1024 : 0;
    m_midLine = false;
    const QString fileName = cName + QStringLiteral(".log");
    const bool truncate = nMode != 0;
    for (const QString& folder : {cFolder, UserStateFolder()}) {
        if (folder.isEmpty() || !QDir().mkpath(folder)) continue;
        const QString path = QDir(folder).filePath(fileName);
        if (CanAppend(path, truncate)) {
            m_path = path;
            return true;
        }
    }
    m_path.clear();
    return false;
}

void cLogFile::RollOverIfFull() {
    if (m_maxBytes == 0 || m_midLine || QFileInfo(m_path).size() < m_maxBytes) return;
    const QString previous = m_path + QStringLiteral(".1");
    QFile::remove(previous);
    QFile::rename(m_path, previous);
}

void cLogFile::WriteLine(const QString& cText, bool lNewLine) {
    if (m_path.isEmpty()) return;
    RollOverIfFull();
    QFile file(m_path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append)) return;
    QString line;
    if (m_timeStamp && !m_midLine)
        line = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz "));
    line += cText;
    if (lNewLine) line += u'\n';
    m_midLine = !lNewLine;
    // One write per line and the file closed at once: nothing is lost if the process dies.
    file.write(line.toUtf8());
}

QString cLogFile::ComputerName() const {
    return QSysInfo::machineHostName();
}

QString cLogFile::UserName() const {
    const QString fromEnvironment = qEnvironmentVariable("USER");
    if (!fromEnvironment.isEmpty()) return fromEnvironment;
    const passwd* entry = getpwuid(getuid());
    return entry ? QString::fromLocal8Bit(entry->pw_name) : QString();
}

} // namespace zlx
