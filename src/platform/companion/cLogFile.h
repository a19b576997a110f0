#pragma once
// A text log: one time-stamped line per call, appended to "<folder>/<name>.log".

#include "platform/variant/Variant.h"

#include <QString>

namespace zlx {

class cLogFile : public Object {
public:
    QString TypeName() const override { return QStringLiteral("cLogFile"); }

    // Opens (creates) the log. nMode 0 appends to an existing file, any other value starts
    // it anew; lTimeStamp puts the date and time before each line; past nMaxKB kilobytes the
    // file is moved to "<name>.log.1" and a new one begun. A folder that cannot be written
    // is replaced by the user's state folder ($XDG_STATE_HOME or ~/.local/state)/zolmar.
    bool OpenLog(const QString& cFolder, const QString& cName, int nMode = 0,
                 bool lTimeStamp = true, int nMaxKB = 1024);
    // Appends one line; with lNewLine False the next line continues this one.
    void WriteLine(const QString& cText, bool lNewLine = true);

    QString FileName() const { return m_path; }
    QString ComputerName() const;
    QString UserName() const;

    static QString UserStateFolder();

private:
    void RollOverIfFull();
    QString m_path;
    bool m_timeStamp = true;
    bool m_midLine = false;
    qint64 m_maxBytes = 1024 * 1024;
};

using cLogFilePtr = std::shared_ptr<cLogFile>;

} // namespace zlx
