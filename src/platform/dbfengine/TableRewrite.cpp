#include "platform/dbfengine/TableRewrite.h"

#include "platform/dbfengine/FieldWriter.h"
#include "platform/dbfformat/DbfNewTable.h"
#include "platform/dbfformat/DbfRecordLock.h"
#include "platform/dbfformat/DbfTable.h"
#include "platform/engines/DriverErrors.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace zlx::dbfengine {

namespace {

const QString kSource = QStringLiteral("Visual FoxPro");
constexpr std::size_t kChunkBytes = 1024 * 1024;

[[noreturn]] void Fail(const QString& message) {
    ado::ThrowCommandFailed(message, kSource, 0, "HY000");
}

void OpenTable(DbfTable& table, const QString& path, bool shared) {
    QString refusal;
    if (!table.Open(path, 0, refusal, shared))
        Fail(refusal.isEmpty() ? QStringLiteral("File '") + path +
                                     QStringLiteral("' is not accessible or is in use.")
                               : refusal);
}

bool SameShape(const DbfField& a, const DbfField& b) {
    return a.type == b.type && a.length == b.length && a.decimals == b.decimals;
}

void SyncFolderOf(const QString& path) {
    const int fd = ::open(QFile::encodeName(QFileInfo(path).absolutePath()).constData(),
                          O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

// Writes records to the new file in large chunks, the record count last.
class RecordSink {
public:
    explicit RecordSink(DbfTable& table) : m_table(table) {}
    void Add(const char* record) {
        m_buffer.insert(m_buffer.end(), record, record + m_table.RecordLength());
        ++m_count;
        if (m_buffer.size() >= kChunkBytes) Flush();
    }
    void Finish() {
        m_buffer.push_back(0x1A);
        Flush();
        m_table.SetRecordCount(m_count);
        if (!m_table.WriteHeader() || ::fsync(m_table.Handle()) != 0)
            Fail(QStringLiteral("The new table could not be written."));
    }

private:
    void Flush() {
        std::size_t done = 0;
        while (done < m_buffer.size()) {
            const ssize_t n =
                ::pwrite(m_table.Handle(), m_buffer.data() + done, m_buffer.size() - done,
                         static_cast<off_t>(m_position + done));
            if (n <= 0) Fail(QStringLiteral("The new table could not be written."));
            done += static_cast<std::size_t>(n);
        }
        m_position += m_buffer.size();
        m_buffer.clear();
    }

    DbfTable& m_table;
    std::vector<char> m_buffer;
    std::uint64_t m_position = m_table.Layout().HeaderLength();
    std::uint32_t m_count = 0;
};

} // namespace

std::vector<DbfFieldDefinition> TableRewrite::FieldsOf(const QString& path) {
    DbfTable table;
    OpenTable(table, path, true);
    std::vector<DbfFieldDefinition> fields;
    for (const DbfField& field : table.Layout().fields)
        fields.push_back(
            {field.name, field.type, static_cast<std::uint8_t>(field.length), field.decimals});
    return fields;
}

void TableRewrite::Run() const {
    DbfTable old;
    OpenTable(old, path, true);
    const DbfRecordLock whole(old.Handle(), DbfRecordLock::Kind::Exclusive, 0, 0);
    old.ReadHeader();
    const QString memoPath = DbfNewTable::MemoPath(path);
    const bool hasMemo =
        std::any_of(fields.begin(), fields.end(), [](const auto& f) { return f.type == 'M'; });
    if (hasMemo && !QFileInfo::exists(memoPath) && !DbfNewTable::CreateMemoFile(memoPath))
        Fail(QStringLiteral("The memo file could not be created."));

    const QFileInfo info(path);
    const QString temporary = info.absolutePath() + QStringLiteral("/.") + info.fileName() + u'.' +
                              QString::number(QCoreApplication::applicationPid()) +
                              QStringLiteral(".tmp");
    const QByteArray header = DbfNewTable::Header(fields, QDate::currentDate());
    QFile file(temporary);
    if (header.isEmpty() || !file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(header) != header.size())
        Fail(QStringLiteral("The new table could not be written."));
    file.close();
    DbfTable fresh;
    OpenTable(fresh, temporary, false);
    RecordSink sink(fresh);
    std::vector<char> from(old.RecordLength()), to(fresh.RecordLength());
    for (std::uint32_t row = 1; row <= old.RecordCount(); ++row) {
        if (!old.ReadRecord(row, from.data())) {
            QFile::remove(temporary);
            Fail(QStringLiteral("Record %1 of '%2' could not be read.").arg(row).arg(path));
        }
        if (dropDeleted && from[0] == '*') continue;
        fresh.BlankRecord(to.data());
        to[0] = from[0];
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (sources[i] < 0) continue;
            const DbfField& source = old.Layout().fields[static_cast<std::size_t>(sources[i])];
            const DbfField& target = fresh.Layout().fields[i];
            if (SameShape(source, target)) {
                std::memcpy(to.data() + target.offset, from.data() + source.offset, target.length);
                continue;
            }
            QString problem;
            WriteField(fresh, memoPath, target, to.data(), old.Value(source, from.data(), problem));
        }
        sink.Add(to.data());
    }
    sink.Finish();
    fresh.Close();
    if (::rename(QFile::encodeName(temporary).constData(), QFile::encodeName(path).constData()) !=
        0) {
        QFile::remove(temporary);
        Fail(QStringLiteral("The table '%1' could not be replaced.").arg(path));
    }
    SyncFolderOf(path);
}

} // namespace zlx::dbfengine
