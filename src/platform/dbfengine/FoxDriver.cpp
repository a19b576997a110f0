#include "platform/dbfengine/FoxDriver.h"

#include "platform/dbfengine/DbfVirtualTable.h"
#include "platform/dbfengine/FoxDdl.h"
#include "platform/dbfengine/FoxFunctions.h"
#include "platform/dbfengine/FoxPlusOperator.h"
#include "platform/dbfengine/FoxSqlText.h"
#include "platform/dbfengine/TableRewrite.h"
#include "platform/dbfformat/DbfFile.h"
#include "platform/dbfformat/DbfNewTable.h"
#include "platform/dbfformat/DbfRecordLock.h"
#include "platform/engines/DriverErrors.h"
#include "platform/engines/SqliteDriver.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <sys/stat.h>

namespace zlx::dbfengine {

namespace {

const QString kSource = QStringLiteral("Visual FoxPro");

[[noreturn]] void Fail(const QString& message, const char* state = "42000") {
    ado::ThrowCommandFailed(message, kSource, 0, state);
}

QString Quoted(const QString& name) {
    return u'"' + QString(name).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

QString SqlString(const QString& text) {
    return u'\'' + QString(text).replace(u'\'', QStringLiteral("''")) + u'\'';
}

quint64 InodeOf(const QString& path) {
    struct stat status {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_ino : 0;
}

int FieldIndex(const std::vector<DbfFieldDefinition>& fields, const QString& name) {
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (QString::fromLatin1(fields[i].name).compare(name, Qt::CaseInsensitive) == 0)
            return static_cast<int>(i);
    return -1;
}

} // namespace

FoxDriver::FoxDriver(bool hideDeleted) : m_hideDeleted(hideDeleted) {}

FoxDriver::~FoxDriver() {
    Disconnect();
}

void* FoxDriver::NativeHandle() const {
    return m_sqlite ? m_sqlite->NativeHandle() : nullptr;
}

bool FoxDriver::IsConnected() const {
    return m_sqlite && m_sqlite->IsConnected();
}

void FoxDriver::Connect(const ado::ConnectParams& params) {
    Disconnect();
    // A table's file names its folder, whether the file is there yet or not.
    QFileInfo target(params.target);
    if (target.isFile() || target.suffix().compare(u"dbf", Qt::CaseInsensitive) == 0)
        target = QFileInfo(target.absolutePath());
    if (!target.isDir())
        ado::ThrowConnectFailed(QStringLiteral("Invalid path or file name: ") + params.target,
                                kSource, 0, "08001");
    m_folder = target.absoluteFilePath();
    auto sqlite = std::make_unique<ado::SqliteDriver>(ado::SqliteDriver::Layout::SingleFile);
    ado::ConnectParams memory = params;
    memory.target = QStringLiteral(":memory:");
    memory.mode = ado::adModeReadWrite;
    sqlite->Connect(memory);
    auto* db = static_cast<sqlite3*>(sqlite->NativeHandle());
    m_module = DbfModule::Register(db, m_hideDeleted);
    if (!m_module)
        ado::ThrowConnectFailed(QStringLiteral("The DBF module could not be loaded."), kSource, 0,
                                "08001");
    InstallFoxFunctions(db);
    FoxPlusOperator::Install(db);
    m_sqlite = std::move(sqlite);
    RunSql(QStringLiteral("CREATE TEMP TABLE sysobjects(name TEXT, xtype TEXT)"));
    SyncTables();
}

void FoxDriver::Disconnect() {
    if (m_sqlite) m_sqlite->Disconnect();
    m_sqlite.reset();
    m_module.reset();
    m_tables.clear();
}

void FoxDriver::RunSql(const QString& sql) {
    ado::DiscardingSink discard;
    m_sqlite->Execute(sql, discard, 0);
}

// The virtual tables follow the folder: a table for each .dbf there now, none for a file gone.
void FoxDriver::SyncTables() {
    std::map<QString, std::pair<QString, quint64>> found;
    const QFileInfoList files = QDir(m_folder).entryInfoList(
        {QStringLiteral("*.dbf"), QStringLiteral("*.DBF")}, QDir::Files, QDir::Name);
    for (const QFileInfo& file : files)
        found.emplace(file.completeBaseName().toLower(),
                      std::make_pair(file.absoluteFilePath(), InodeOf(file.absoluteFilePath())));
    if (found == m_tables) return;
    for (const auto& [name, file] : m_tables)
        if (found.count(name) == 0 || found[name] != file)
            RunSql(QStringLiteral("DROP TABLE IF EXISTS ") + Quoted(name));
    for (const auto& [name, file] : found) {
        if (m_tables.count(name) != 0 && m_tables[name] == file) continue;
        try {
            RunSql(QStringLiteral("CREATE VIRTUAL TABLE %1 USING dbf(%2)")
                       .arg(Quoted(name), SqlString(file.first)));
        } catch (const ado::AdoError&) {
            found.erase(name); // a file this reader cannot read is not a table
            if (found.empty()) break;
        }
    }
    m_tables = found;
    QString rows;
    for (const auto& [name, file] : m_tables)
        rows += QStringLiteral("INSERT INTO sysobjects VALUES (%1, 'U');").arg(SqlString(name));
    RunSql(QStringLiteral("DELETE FROM sysobjects;") + rows);
}

QString FoxDriver::TableFile(const QString& table) const {
    const auto it = m_tables.find(table.toLower());
    if (it == m_tables.end()) Fail(QStringLiteral("File '%1.dbf' does not exist.").arg(table));
    return it->second.first;
}

void FoxDriver::Execute(const QString& batch, ado::ResultSink& sink, int timeoutSeconds) {
    if (!IsConnected()) ado::ThrowNotConnected();
    for (const QString& statement : FoxSqlText::Statements(batch))
        RunStatement(statement, sink, timeoutSeconds);
}

void FoxDriver::RunStatement(const QString& statement, ado::ResultSink& sink, int timeoutSeconds) {
    SyncTables();
    if (const std::optional<FoxDdl> ddl = FoxDdl::Parse(statement)) {
        RunDdl(*ddl);
        SyncTables();
        sink.RowsAffected(-1);
        return;
    }
    try {
        m_sqlite->Execute(FoxSqlText::ToSqlite(statement), sink, timeoutSeconds);
    } catch (...) {
        m_module->ReleaseFiles();
        throw;
    }
    m_module->ReleaseFiles();
}

void FoxDriver::RunDdl(const FoxDdl& ddl) {
    switch (ddl.kind) {
    case FoxDdl::Kind::CreateTable:
        return CreateTable(ddl);
    case FoxDdl::Kind::DropTable:
        return DropTable(ddl.table);
    case FoxDdl::Kind::Pack:
        return Pack(ddl.table);
    default:
        return ChangeColumns(ddl);
    }
}

void FoxDriver::CreateTable(const FoxDdl& ddl) {
    if (m_tables.count(ddl.table.toLower()) != 0)
        Fail(QStringLiteral("File '%1.dbf' already exists.").arg(ddl.table));
    for (std::size_t i = 0; i < ddl.fields.size(); ++i)
        if (FieldIndex({ddl.fields.begin(), ddl.fields.begin() + static_cast<long>(i)},
                       QString::fromLatin1(ddl.fields[i].name)) >= 0)
            Fail(QStringLiteral("Field %1 is a duplicate.")
                     .arg(QString::fromLatin1(ddl.fields[i].name)));
    const QString path = m_folder + u'/' + ddl.table.toLower() + QStringLiteral(".dbf");
    if (!DbfNewTable::Create(path, ddl.fields))
        Fail(QStringLiteral("File '%1' could not be created.").arg(path), "HY000");
}

// ALTER TABLE: the new list of fields, each value carried over from the field of its name.
void FoxDriver::ChangeColumns(const FoxDdl& ddl) {
    TableRewrite rewrite;
    rewrite.path = TableFile(ddl.table);
    const std::vector<DbfFieldDefinition> old = TableRewrite::FieldsOf(rewrite.path);
    rewrite.fields = old;
    const QString name =
        ddl.kind == FoxDdl::Kind::DropColumn ? ddl.column : QString::fromLatin1(ddl.fields[0].name);
    const int at = FieldIndex(old, name);
    if (ddl.kind == FoxDdl::Kind::AddColumn) {
        if (at >= 0) Fail(QStringLiteral("Field %1 already exists.").arg(name));
        rewrite.fields.push_back(ddl.fields[0]);
    } else if (at < 0) {
        Fail(QStringLiteral("Field %1 is not found.").arg(name));
    } else if (ddl.kind == FoxDdl::Kind::AlterColumn) {
        rewrite.fields[static_cast<std::size_t>(at)] = ddl.fields[0];
        rewrite.fields[static_cast<std::size_t>(at)].name = old[static_cast<std::size_t>(at)].name;
    } else {
        if (old.size() == 1) Fail(QStringLiteral("A table needs at least one field."));
        rewrite.fields.erase(rewrite.fields.begin() + at);
    }
    for (const DbfFieldDefinition& field : rewrite.fields)
        rewrite.sources.push_back(FieldIndex(old, QString::fromLatin1(field.name)));
    rewrite.Run();
}

void FoxDriver::Pack(const QString& table) {
    TableRewrite rewrite;
    rewrite.path = TableFile(table);
    rewrite.fields = TableRewrite::FieldsOf(rewrite.path);
    for (std::size_t i = 0; i < rewrite.fields.size(); ++i)
        rewrite.sources.push_back(static_cast<int>(i));
    rewrite.dropDeleted = true;
    rewrite.Run();
}

void FoxDriver::DropTable(const QString& table) {
    const QString path = TableFile(table);
    {
        DbfFile file;
        if (!file.Open(path, false, true))
            Fail(QStringLiteral("File '%1' is in use.").arg(path), "HY000");
        const DbfRecordLock whole(file.Handle(), DbfRecordLock::Kind::Exclusive, 0, 0);
        QFile::remove(path);
    }
    const QFileInfo info(path);
    for (const char* extension : {".fpt", ".FPT", ".cdx", ".CDX"})
        QFile::remove(info.absolutePath() + u'/' + info.completeBaseName() +
                      QString::fromLatin1(extension));
}

void FoxDriver::StartExecute(const QString& batch) {
    m_pending = batch;
}

bool FoxDriver::PollExecute(ado::ResultSink& sink) {
    Execute(std::exchange(m_pending, QString()), sink, 0);
    return true;
}

void FoxDriver::Cancel() {
    if (m_sqlite) m_sqlite->Cancel();
}

void FoxDriver::Rollback() {
    Fail(QStringLiteral("Driver not capable: free tables have no transactions, their changes "
                        "are already written."),
         "HYC00");
}

} // namespace zlx::dbfengine
