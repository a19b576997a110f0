#include "platform/tsql/TsqlSession.h"

#include "platform/engines/DriverErrors.h"
#include "platform/tsql/BatchSplitter.h"
#include "platform/tsql/EngineErrorMap.h"
#include "platform/tsql/SqliteTableRebuild.h"
#include "platform/tsql/SystemCatalog.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSysInfo>
#include <QThread>

namespace zlx::tsql {
namespace {

// Collects the rows of an internal query.
class RowsSink : public ado::ResultSink {
public:
    void BeginRowset(const std::vector<ado::ColumnInfo>&) override {}
    bool Row(std::vector<Variant>& values) override {
        rows.push_back(values);
        return true;
    }
    void EndRowset() override {}
    void RowsAffected(std::int64_t) override {}
    std::vector<std::vector<Variant>> rows;
};

// Passes a statement's results on, counting them for @@ROWCOUNT; counts stay back under
// SET NOCOUNT ON.
class CountingSink : public ado::ResultSink {
public:
    CountingSink(ado::ResultSink& target, bool noCount) : m_target(target), m_noCount(noCount) {}
    void BeginRowset(const std::vector<ado::ColumnInfo>& columns) override {
        rows = 0;
        m_target.BeginRowset(columns);
    }
    bool Row(std::vector<Variant>& values) override {
        ++rows;
        return m_target.Row(values);
    }
    void EndRowset() override { m_target.EndRowset(); }
    void RowsAffected(std::int64_t count) override {
        rows = count;
        if (!m_noCount) m_target.RowsAffected(count);
    }
    void Info(const ado::ErrorRecord& record) override { m_target.Info(record); }
    std::int64_t rows = 0;

private:
    ado::ResultSink& m_target;
    bool m_noCount;
};

QString SqlString(const QString& value) {
    return u'\'' + QString(value).replace(u'\'', QStringLiteral("''")) + u'\'';
}

bool StartsWith(const Tokens& statement, std::initializer_list<QStringView> words) {
    size_t i = 0;
    for (QStringView word : words) {
        if (i >= statement.size() || !statement[i].IsWord(word)) return false;
        ++i;
    }
    return true;
}

// The text of a procedure or DBCC argument: a string's value or a name as written.
QString ArgumentText(const Tokens& tokens, size_t from, size_t to) {
    if (to == from + 1 && tokens[from].kind == TokenKind::String) return tokens[from].text;
    QString text;
    for (size_t i = from; i < to; ++i)
        text += tokens[i].text;
    return text;
}

// Comma-separated arguments from `from` to `to` (exclusive), each as text.
QStringList Arguments(const Tokens& tokens, size_t from, size_t to) {
    QStringList arguments;
    size_t start = from;
    int depth = 0;
    for (size_t i = from; i <= to; ++i) {
        if (i < to && tokens[i].IsSymbol(u"("))
            ++depth;
        else if (i < to && tokens[i].IsSymbol(u")"))
            --depth;
        else if (i == to || (depth == 0 && tokens[i].IsSymbol(u","))) {
            if (i > start) arguments << ArgumentText(tokens, start, i);
            start = i + 1;
        }
    }
    return arguments;
}

// The possibly qualified name (t, db..t, db.dbo.t) that begins at `first`, as written.
QString QualifiedNameAt(const Tokens& statement, size_t first) {
    if (first >= statement.size()) return {};
    size_t end = first + 1;
    while (end < statement.size() && statement[end].IsSymbol(u".")) {
        ++end;
        if (end < statement.size() && !statement[end].IsSymbol(u".")) ++end;
    }
    return TokensToSql(Tokens(statement.begin() + first, statement.begin() + end));
}

} // namespace

TsqlSession::TsqlSession(ado::DriverPtr inner) : m_inner(std::move(inner)) {}

Target TsqlSession::EngineTarget() const {
    return m_inner->Dialect() == ado::SqlDialect::PostgreSQL ? Target::PostgreSQL : Target::SQLite;
}

void TsqlSession::Connect(const ado::ConnectParams& params) {
    m_params = params;
    m_inner->Connect(params);
    Prepare();
}

void TsqlSession::StartConnect(const ado::ConnectParams& params) {
    m_params = params;
    m_inner->StartConnect(params);
}

bool TsqlSession::PollConnect() {
    if (!m_inner->PollConnect()) return false;
    Prepare();
    return true;
}

void TsqlSession::StartExecute(const QString& batch) {
    m_worker.Start([this, batch](ado::ResultSink& sink) { RunBatch(batch, sink, 0); });
}

bool TsqlSession::PollExecute(ado::ResultSink& sink) {
    return m_worker.Poll(sink);
}

void TsqlSession::UseDatabase(const QString& database) {
    m_worker.Abandon();
    m_inner->UseDatabase(database);
    m_attached.clear(); // a SQLite reopen drops every attachment
    m_identityColumns.clear();
    m_textColumns.clear();
    Prepare();
}

// The per-connection objects the catalog queries read.
void TsqlSession::Prepare() {
    m_tranCount = 0;
    const QString application =
        QSysInfo::machineHostName() + u':' + QString::number(QCoreApplication::applicationPid());
    for (const QString& statement : CatalogStatements(EngineTarget(), application))
        Run(statement);
}

QString TsqlSession::ServerFolder() const {
    return m_params.target;
}

// sysdatabases and sysprocesses of a SQLite server are the folder's files and this
// machine's processes, read when a statement asks for them.
void TsqlSession::RefreshCatalog(const QString& batch) {
    if (EngineTarget() != Target::SQLite) return;
    const bool objects = batch.contains(u"sysobjects", Qt::CaseInsensitive) ||
                         batch.contains(u"syscolumns", Qt::CaseInsensitive) ||
                         batch.contains(u"object_id", Qt::CaseInsensitive);
    if (objects && QFileInfo(ServerFolder()).isDir() &&
        m_inner->CurrentDatabase().compare(u"master", Qt::CaseInsensitive) != 0) {
        for (const QString& statement : SqliteObjectViews(LocksSchema(QString())))
            Run(statement);
    }
    if (batch.contains(u"sysdatabases", Qt::CaseInsensitive)) {
        Run(QStringLiteral("DELETE FROM temp.sysdatabases"));
        const QDir folder(ServerFolder());
        for (const QFileInfo& file :
             folder.entryInfoList({QStringLiteral("*.sqlite")}, QDir::Files)) {
            if (file.completeBaseName().contains(u'.')) continue; // a database's locks file
            Run(QStringLiteral("INSERT INTO temp.sysdatabases VALUES (%1, %2)")
                    .arg(SqlString(file.completeBaseName()), SqlString(file.absoluteFilePath())));
        }
    }
    if (batch.contains(u"sysprocesses", Qt::CaseInsensitive)) {
        Run(QStringLiteral("DELETE FROM temp.sysprocesses"));
        const QString host = SqlString(QSysInfo::machineHostName());
        for (const QString& entry : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
            bool numeric = false;
            const int pid = entry.toInt(&numeric);
            if (numeric)
                Run(QStringLiteral("INSERT INTO temp.sysprocesses VALUES (%1, %2)")
                        .arg(host)
                        .arg(pid));
        }
    }
}

TranslationContext TsqlSession::Context() {
    TranslationContext context;
    context.target = EngineTarget();
    context.dayMonthYear = m_dateFormat == u"dmy";
    context.jetDates = EngineTarget() == Target::SQLite && !QFileInfo(ServerFolder()).isDir();
    context.globalValue = [this](const QString& name) { return GlobalValue(name); };
    context.databaseAlias = [this](const QString& database) { return DatabaseAlias(database); };
    if (context.target == Target::SQLite && QFileInfo(ServerFolder()).isDir())
        context.locksSchema = [this](const QString& database) { return LocksSchema(database); };
    context.columnDefault = [this](const QString& table, const QString& column) {
        for (const auto& row :
             Query(QStringLiteral("SELECT dflt_value FROM pragma_table_info(%1) WHERE name = %2 "
                                  "COLLATE NOCASE")
                       .arg(SqlString(table), SqlString(column))))
            return row.at(0).IsNull() ? QString() : row.at(0).ToString();
        return QString();
    };
    context.isTextColumn = [this](const QString& column) { return IsTextColumn(column); };
    return context;
}

// Whether some table or view of the current database has a text column of that name.
bool TsqlSession::IsTextColumn(const QString& column) {
    const QString key = column.toLower();
    const auto known = m_textColumns.constFind(key);
    if (known != m_textColumns.constEnd()) return *known;
    const QString sql =
        EngineTarget() == Target::SQLite
            ? QStringLiteral("SELECT count(*) FROM main.sqlite_master m, pragma_table_info(m.name) "
                             "p WHERE m.type IN ('table', 'view') AND p.name = %1 COLLATE NOCASE "
                             "AND (upper(p.type) LIKE '%CHAR%' OR upper(p.type) LIKE '%TEXT%')")
            : QStringLiteral("SELECT count(*) FROM information_schema.columns WHERE table_schema "
                             "= current_schema() AND column_name = lower(%1) AND data_type IN "
                             "('character varying', 'character', 'text')");
    const auto rows = Query(sql.arg(SqlString(column)));
    const bool text = !rows.empty() && rows[0].at(0).ToLong() > 0;
    m_textColumns.insert(key, text);
    return text;
}

QString TsqlSession::GlobalValue(const QString& name) const {
    if (name == u"@@IDENTITY")
        return m_identity ? QString::number(*m_identity) : QStringLiteral("NULL");
    if (name == u"@@ROWCOUNT") return QString::number(m_rowCount);
    if (name == u"@@TRANCOUNT") return QString::number(m_tranCount);
    if (name == u"@@ERROR") return QStringLiteral("0");
    if (name == u"@@SPID") return QString::number(QCoreApplication::applicationPid());
    return QString();
}

// SQLite reaches another database of the server folder by attaching its file.
// A name in another database of the server folder that has no file is an unknown object.
void TsqlSession::RequireDatabaseFile(const QString& database) const {
    if (!QFileInfo(ServerFolder()).isDir() || database.compare(u"master", Qt::CaseInsensitive) == 0)
        return;
    if (!QFile::exists(QDir(ServerFolder()).filePath(database + QStringLiteral(".sqlite"))))
        ThrowStatementError(QStringLiteral("Invalid object name '%1..'.").arg(database),
                            ado::kNativeInvalidObject, QStringLiteral("42S02"));
}

QString TsqlSession::DatabaseAlias(const QString& database) {
    if (EngineTarget() == Target::PostgreSQL) return database.toLower();
    if (database.compare(m_inner->CurrentDatabase(), Qt::CaseInsensitive) == 0)
        return QStringLiteral("main");
    const QString alias = database.toLower();
    if (!m_attached.contains(alias)) {
        const QString file = QDir(ServerFolder()).filePath(database + QStringLiteral(".sqlite"));
        RequireDatabaseFile(database);
        Run(QStringLiteral("ATTACH DATABASE %1 AS \"%2\"").arg(SqlString(file), alias));
        m_attached << alias;
    }
    return alias;
}

// The `locks` table of a SQLite database lives in "<database>.locks.sqlite" beside it, so
// that the lock connection can write there while the main one holds a write transaction.
QString TsqlSession::LocksSchema(const QString& database) {
    const QString name = database.isEmpty() ? m_inner->CurrentDatabase() : database;
    const QString alias = name.toLower() + QStringLiteral("_locks");
    if (!m_attached.contains(alias)) {
        RequireDatabaseFile(name);
        const QString file = QDir(ServerFolder()).filePath(name + QStringLiteral(".locks.sqlite"));
        QFile created(file);
        if (!created.exists() &&
            !created.open(QIODevice::WriteOnly)) // an empty file is an empty database
            ThrowStatementError(QStringLiteral("Could not create '%1'.").arg(file), 5105);
        Run(QStringLiteral("ATTACH DATABASE %1 AS \"%2\"").arg(SqlString(file), alias));
        m_attached << alias;
    }
    return alias;
}

void TsqlSession::Execute(const QString& batch, ado::ResultSink& sink, int timeoutSeconds) {
    // A cancelled asynchronous batch may still be ending on the worker: the engine's
    // connection is free only after it.
    m_worker.Abandon();
    RunBatch(batch, sink, timeoutSeconds);
}

void TsqlSession::RunBatch(const QString& batch, ado::ResultSink& sink, int timeoutSeconds) {
    RefreshCatalog(batch);
    for (const Tokens& statement : SplitBatch(Tokenize(batch))) {
        try {
            RunStatement(statement, sink, timeoutSeconds);
        } catch (const ado::AdoError& error) {
            AbortTransactionAfter(error);
            throw;
        }
    }
}

// WAITFOR DELAY 'hh:mm[:ss[.mmm]]': the session waits itself, in short steps, so that the
// command time-out and Cancel end the wait as they end a statement on the engine.
void TsqlSession::RunWaitFor(const Tokens& statement, int timeoutSeconds) {
    static const QRegularExpression delay(
        QStringLiteral(R"(^(\d{1,2}):(\d{2})(?::(\d{2})(?:\.(\d{1,3}))?)?$)"));
    const auto match = statement.size() == 3 && statement[1].IsWord(u"DELAY") &&
                               statement[2].kind == TokenKind::String
                           ? delay.match(statement[2].text)
                           : QRegularExpressionMatch();
    if (!match.hasMatch()) ThrowUnsupported(TokensToSql(statement));
    const qint64 total =
        ((match.captured(1).toLongLong() * 60 + match.captured(2).toLongLong()) * 60 +
         match.captured(3).toLongLong()) *
            1000 +
        match.captured(4).leftJustified(3, u'0').toLongLong();
    m_cancelled = false;
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < total) {
        if (m_cancelled) ado::ThrowCanceled(EngineName());
        if (timeoutSeconds > 0 && clock.elapsed() >= qint64(timeoutSeconds) * 1000)
            ado::ThrowTimeout(EngineName());
        QThread::msleep(static_cast<unsigned long>(std::min<qint64>(10, total - clock.elapsed())));
    }
}

// As SQL Server with XACT_ABORT ON (the library's setting), and as a deadlock victim always:
// a statement that fails on the engine ends the whole transaction. PostgreSQL could not go
// on with it anyway; on SQLite a statement refused before reaching the engine leaves it open.
void TsqlSession::AbortTransactionAfter(const ado::AdoError& error) {
    const bool refused =
        !error.Records().empty() && error.Records().front().nativeError == ado::kNativeSyntax;
    if (m_tranCount == 0 || (refused && EngineTarget() == Target::SQLite)) return;
    m_tranCount = 0;
    try {
        m_inner->Rollback();
    } catch (const ado::AdoError&) {
        // the engine may have ended the transaction itself (a broken link, a victim)
    }
}

void TsqlSession::RunStatement(const Tokens& statement, ado::ResultSink& sink, int timeoutSeconds) {
    // Statements that may change a table's columns forget the identity columns known so far.
    for (QStringView word : {u"CREATE", u"ALTER", u"DROP", u"EXEC", u"EXECUTE", u"USE"}) {
        if (statement.front().IsWord(word)) {
            m_identityColumns.clear();
            m_textColumns.clear();
        }
    }
    if (statement.front().IsWord(u"IF")) {
        RunIf(statement, sink, timeoutSeconds);
        return;
    }
    if (statement.front().IsWord(u"USE") && statement.size() == 2) {
        UseDatabase(statement[1].text);
        m_rowCount = 0;
        return;
    }
    for (QStringView word :
         {u"DECLARE", u"PRINT", u"WHILE", u"SAVE", u"RAISERROR", u"GOTO", u"RETURN", u"ELSE"}) {
        if (statement.front().IsWord(word)) ThrowUnsupported(statement.front().text);
    }
    if (statement.front().IsWord(u"WAITFOR")) {
        RunWaitFor(statement, timeoutSeconds);
        m_rowCount = 0;
        return;
    }
    if (statement.front().IsWord(u"DBCC")) {
        RunDbcc(statement);
        m_rowCount = 0;
        return;
    }
    if (RunSetOption(statement) || RunTransactionStatement(statement) ||
        RunProcedure(statement, sink) || RunDatabaseStatement(statement) ||
        RunDefinition(statement)) {
        m_rowCount = 0;
        return;
    }
    RunTranslated(statement, sink, timeoutSeconds);
}

bool TsqlSession::RunSetOption(const Tokens& statement) {
    if (!statement.front().IsWord(u"SET") || statement.size() < 3) return false;
    const Token& option = statement[1];
    const QString value = statement[2].text;
    if (option.IsWord(u"NOCOUNT"))
        m_noCount = value.compare(u"ON", Qt::CaseInsensitive) == 0;
    else if (option.IsWord(u"DATEFORMAT"))
        m_dateFormat = value.toLower();
    else if (option.IsWord(u"DATEFIRST"))
        m_dateFirst = value.toInt();
    else if (option.IsWord(u"LANGUAGE"))
        m_language = value;
    else if (!(option.IsWord(u"XACT_ABORT") || option.IsWord(u"ANSI_NULLS") ||
               option.IsWord(u"QUOTED_IDENTIFIER") || option.IsWord(u"ANSI_WARNINGS") ||
               option.IsWord(u"ARITHABORT") || option.IsWord(u"IDENTITY_INSERT")))
        ThrowUnsupported(QStringLiteral("SET ") + option.text);
    return true;
}

// BEGIN/COMMIT/ROLLBACK [TRAN[SACTION]] [name]: only the outermost level reaches the engine,
// and ROLLBACK undoes every level.
bool TsqlSession::RunTransactionStatement(const Tokens& statement) {
    const bool begin = StartsWith(statement, {u"BEGIN", u"TRAN"}) ||
                       StartsWith(statement, {u"BEGIN", u"TRANSACTION"});
    if (begin) {
        BeginTransaction();
        return true;
    }
    if (statement.front().IsWord(u"COMMIT")) {
        if (m_tranCount == 0)
            ThrowStatementError(
                QStringLiteral(
                    "The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION."),
                ado::kNativeCommitWithoutBegin, QStringLiteral("25000"));
        Commit();
        return true;
    }
    if (statement.front().IsWord(u"ROLLBACK")) {
        if (m_tranCount == 0)
            ThrowStatementError(
                QStringLiteral(
                    "The ROLLBACK TRANSACTION request has no corresponding BEGIN TRANSACTION."),
                ado::kNativeRollbackWithoutBegin, QStringLiteral("25000"));
        Rollback();
        return true;
    }
    return false;
}

void TsqlSession::BeginTransaction() {
    m_worker.Abandon();
    if (m_tranCount == 0) {
        try {
            m_inner->BeginTransaction();
        } catch (const ado::AdoError& error) {
            throw MappedError(error, EngineTarget());
        }
    }
    ++m_tranCount;
}

void TsqlSession::Commit() {
    m_worker.Abandon();
    if (m_tranCount == 1) {
        try {
            m_inner->Commit();
        } catch (const ado::AdoError& error) {
            throw MappedError(error, EngineTarget());
        }
    }
    m_tranCount = std::max(0, m_tranCount - 1);
}

void TsqlSession::Rollback() {
    m_worker.Abandon();
    m_tranCount = 0;
    try {
        m_inner->Rollback();
    } catch (const ado::AdoError& error) {
        throw MappedError(error, EngineTarget());
    }
}

void TsqlSession::RunIf(const Tokens& statement, ado::ResultSink& sink, int timeoutSeconds) {
    const IfParts parts = SplitIf(statement);
    const QString condition = TsqlTranslator(Context()).Expression(parts.condition);
    const auto rows = Query(QStringLiteral("SELECT CASE WHEN ") + condition.trimmed() +
                            QStringLiteral(" THEN 1 ELSE 0 END"));
    if (!rows.empty() && rows.front().at(0).ToLong() == 1)
        RunStatement(parts.body, sink, timeoutSeconds);
}

// DBCC CHECKIDENT ('t' [, RESEED [, n]]), DBCC DBREINDEX ('t'), DBCC SHRINKDATABASE (d).
void TsqlSession::RunDbcc(const Tokens& statement) {
    if (statement.size() < 4 || !statement[2].IsSymbol(u"(") || !statement.back().IsSymbol(u")"))
        ThrowStatementError(QStringLiteral("Incorrect syntax near 'DBCC'."), ado::kNativeSyntax);
    const QStringList arguments = Arguments(statement, 3, statement.size() - 1);
    const Token& command = statement[1];
    if (command.IsWord(u"CHECKIDENT")) {
        const QString table = EngineName(arguments.value(0));
        std::optional<std::int64_t> seed;
        if (arguments.size() > 2) seed = arguments[2].toLongLong();
        Reseed(table, seed);
    } else if (command.IsWord(u"DBREINDEX")) {
        const QString table = EngineName(arguments.value(0));
        Run((EngineTarget() == Target::SQLite ? QStringLiteral("REINDEX ")
                                              : QStringLiteral("REINDEX TABLE ")) +
            table);
    } else if (!command.IsWord(u"SHRINKDATABASE")) {
        // SHRINKDATABASE has nothing to do: both engines give space back on their own.
        ThrowUnsupported(QStringLiteral("DBCC ") + command.text);
    }
}

// The engine's spelling of a T-SQL object name such as "db..t" or "[t]".
QString TsqlSession::EngineName(const QString& tsqlName) {
    return TsqlTranslator(Context()).Expression(Tokenize(tsqlName)).trimmed();
}

// The schema, written "x.", that an index of the table must name: on SQLite the attached
// database that holds the table; "" for the main database and on PostgreSQL (where an index
// is made in its table's schema).
QString TsqlSession::EngineSchemaOf(const QString& tsqlTable) {
    if (EngineTarget() != Target::SQLite) return QString();
    const QString name = EngineName(tsqlTable);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? QString() : name.left(dot + 1);
}

// Without a seed the identity moves up to the highest value in the table; with one, the
// next row gets seed + 1.
void TsqlSession::Reseed(const QString& table, std::optional<std::int64_t> seed) {
    const QString column = IdentityColumn(table);
    if (column.isEmpty())
        ThrowStatementError(QStringLiteral("'%1' does not contain an identity column.").arg(table),
                            7997);
    std::int64_t value = 0;
    if (seed) {
        value = *seed;
    } else {
        const auto rows = Query(QStringLiteral("SELECT max(%1) FROM %2").arg(column, table));
        value = rows.empty() || rows[0][0].IsNull() ? 0 : rows[0][0].ToDouble();
    }
    if (EngineTarget() == Target::PostgreSQL) {
        Query(QStringLiteral("SELECT setval(pg_get_serial_sequence(%1, %2), %3, false)")
                  .arg(SqlString(table), SqlString(column))
                  .arg(value + 1));
        return;
    }
    const int dot = table.lastIndexOf(u'.');
    const QString schema = dot < 0 ? QStringLiteral("main") : table.left(dot);
    const QString bare = table.mid(dot + 1);
    Run(QStringLiteral("DELETE FROM %1.sqlite_sequence WHERE name = %2 COLLATE NOCASE")
            .arg(schema, SqlString(bare)));
    Run(QStringLiteral("INSERT INTO %1.sqlite_sequence (name, seq) VALUES (%2, %3)")
            .arg(schema, SqlString(bare))
            .arg(value));
}

// The identity column of a table, "" when it has none.
QString TsqlSession::IdentityColumn(const QString& table) {
    // Looked up once per table: an INSERT must not cost a catalog query each time.
    const auto known = m_identityColumns.constFind(table);
    if (known != m_identityColumns.constEnd()) return *known;
    const QString column = FindIdentityColumn(table);
    m_identityColumns.insert(table, column);
    return column;
}

QString TsqlSession::FindIdentityColumn(const QString& table) {
    QString sql;
    if (EngineTarget() == Target::PostgreSQL) {
        sql = QStringLiteral("SELECT CAST(attname AS text) FROM pg_attribute WHERE attrelid = "
                             "to_regclass(%1) AND "
                             "attidentity <> ''")
                  .arg(SqlString(table));
    } else {
        const int dot = table.lastIndexOf(u'.');
        const QString schema = dot < 0 ? QStringLiteral("main") : table.left(dot);
        const QString bare = table.mid(dot + 1);
        const auto definition = Query(
            QStringLiteral("SELECT sql FROM %1.sqlite_master WHERE type = 'table' AND name = %2 "
                           "COLLATE NOCASE")
                .arg(schema, SqlString(bare)));
        if (definition.empty() ||
            !definition[0][0].ToString().contains(u"AUTOINCREMENT", Qt::CaseInsensitive))
            return QString();
        sql = QStringLiteral("SELECT name FROM pragma_table_info(%1, %2) WHERE pk = 1")
                  .arg(SqlString(bare), SqlString(schema));
    }
    const auto rows = Query(sql);
    return rows.empty() ? QString() : rows[0][0].ToString();
}

// The stored procedures the library calls; anything else is named as unsupported.
bool TsqlSession::RunProcedure(const Tokens& statement, ado::ResultSink& sink) {
    size_t name = 0;
    if (statement.front().IsWord(u"EXEC") || statement.front().IsWord(u"EXECUTE")) name = 1;
    if (name >= statement.size()) return false;
    // master.dbo.sp_x arrives as master . dbo . sp_x: the procedure is the last part.
    size_t last = name;
    while (last + 2 < statement.size() && statement[last + 1].IsSymbol(u"."))
        last += 2;
    const QString procedure = statement[last].text.toLower();
    if (!procedure.startsWith(u"sp_") && !procedure.startsWith(u"xp_"))
        return name == 1 ? (ThrowUnsupported(QStringLiteral("EXEC ") + statement[last].text), true)
                         : false;
    const QStringList arguments = Arguments(statement, last + 1, statement.size());
    if (procedure == u"sp_bindefault" || procedure == u"sp_unbindefault") {
        const QString target = arguments.value(procedure == u"sp_bindefault" ? 1 : 0);
        const int dot = target.lastIndexOf(u'.');
        const QString table = EngineName(target.left(dot));
        const QString column = EngineName(target.mid(dot + 1));
        const QString value = procedure == u"sp_bindefault"
                                  ? m_defaults.value(arguments.value(0).toLower())
                                  : QString();
        if (EngineTarget() == Target::PostgreSQL)
            Run(QStringLiteral("ALTER TABLE %1 ALTER COLUMN %2 %3")
                    .arg(table, column,
                         value.isEmpty() ? QStringLiteral("DROP DEFAULT")
                                         : QStringLiteral("SET DEFAULT ") + value));
        else
            Rebuilder(table).ChangeDefault(column, value);
        return true;
    }
    if (procedure == u"sp_indexes_rowset") {
        // An index is found by its SQL Server name: a primary key's constraint name, or the
        // name of an index made by CREATE INDEX (EngineIndexName); it is answered by that name.
        const QString table = arguments.value(0);
        const QString index = arguments.value(1);
        const QString schema = EngineSchemaOf(table);
        const QString sql =
            EngineTarget() == Target::SQLite
                ? QStringLiteral("SELECT tbl_name AS TABLE_NAME, ifnull(%2, name) AS INDEX_NAME "
                                 "FROM ") +
                      (schema.isEmpty() ? QStringLiteral("main.") : schema) +
                      QStringLiteral("sqlite_master WHERE type = 'index' AND tbl_name = %1 "
                                     "COLLATE NOCASE AND (%2 IS NULL OR name = %2 COLLATE NOCASE "
                                     "OR name = %3 COLLATE NOCASE)")
                : QStringLiteral("SELECT CAST(tablename AS text) AS TABLE_NAME, "
                                 "CAST(COALESCE(%2, indexname) AS text) AS INDEX_NAME FROM "
                                 "pg_indexes WHERE schemaname = current_schema() AND tablename = "
                                 "lower(%1) AND (%2 IS NULL OR indexname = lower(%2) OR indexname "
                                 "= lower(%3))");
        const QString bare = table.section(u'.', -1);
        CountingSink counting(sink, m_noCount);
        try {
            m_inner->Execute(sql.arg(SqlString(bare),
                                     index.isEmpty() ? QStringLiteral("NULL") : SqlString(index),
                                     SqlString(EngineIndexName(bare, index))),
                             counting, 0);
        } catch (const ado::AdoError& error) {
            throw MappedError(error, EngineTarget());
        }
        return true;
    }
    if (procedure == u"sp_rename" &&
        arguments.value(2).compare(u"COLUMN", Qt::CaseInsensitive) == 0) {
        const QString old = arguments.value(0);
        const int dot = old.lastIndexOf(u'.');
        Run(QStringLiteral("ALTER TABLE %1 RENAME COLUMN %2 TO %3")
                .arg(EngineName(old.left(dot)), EngineName(old.mid(dot + 1)),
                     EngineName(arguments.value(1))));
        return true;
    }
    ThrowUnsupported(statement[last].text);
}

// CREATE/DROP/ALTER DATABASE: PostgreSQL schemas or SQLite files in the server folder.
bool TsqlSession::RunDatabaseStatement(const Tokens& statement) {
    if (statement.size() < 3 || !statement[1].IsWord(u"DATABASE")) return false;
    const QString database = statement[2].text;
    const bool postgres = EngineTarget() == Target::PostgreSQL;
    if (statement.front().IsWord(u"CREATE")) {
        if (postgres) {
            Run(QStringLiteral("CREATE SCHEMA \"%1\"").arg(database.toLower()));
        } else {
            QFile file(QDir(ServerFolder()).filePath(database + QStringLiteral(".sqlite")));
            if (file.exists())
                ThrowStatementError(QStringLiteral("Database '%1' already exists.").arg(database),
                                    1801);
            if (!file.open(QIODevice::WriteOnly))
                ThrowStatementError(QStringLiteral("Could not create database '%1'.").arg(database),
                                    1802);
        }
        return true;
    }
    if (statement.front().IsWord(u"DROP")) {
        if (postgres) {
            Run(QStringLiteral("DROP SCHEMA \"%1\" CASCADE").arg(database.toLower()));
        } else {
            for (const QString& alias :
                 {database.toLower(), database.toLower() + QStringLiteral("_locks")}) {
                if (m_attached.removeAll(alias) > 0)
                    Run(QStringLiteral("DETACH DATABASE \"%1\"").arg(alias));
            }
            QFile::remove(
                QDir(ServerFolder()).filePath(database + QStringLiteral(".locks.sqlite")));
            if (!QFile::remove(QDir(ServerFolder()).filePath(database + QStringLiteral(".sqlite"))))
                ThrowStatementError(
                    QStringLiteral("Cannot drop the database '%1', because it does not exist.")
                        .arg(database),
                    3701);
        }
        return true;
    }
    if (statement.front().IsWord(u"ALTER"))
        return true; // file and recovery options mean nothing to these engines
    return false;
}

// The definitions that need more than a translation.
bool TsqlSession::RunDefinition(const Tokens& statement) {
    if (StartsWith(statement, {u"CREATE", u"DEFAULT"}) && statement.size() >= 5 &&
        statement[3].IsWord(u"AS")) {
        m_defaults.insert(statement[2].text.toLower(),
                          TsqlTranslator(Context())
                              .Expression(Tokens(statement.begin() + 4, statement.end()))
                              .trimmed());
        return true;
    }
    if (StartsWith(statement, {u"DROP", u"INDEX"}) && statement.size() >= 5 &&
        statement[3].IsSymbol(u".")) {
        Run(QStringLiteral("DROP INDEX ") + EngineSchemaOf(statement[2].text) +
            EngineIndexName(statement[2].text, statement[4].text));
        return true;
    }
    if (StartsWith(statement, {u"TRUNCATE", u"TABLE"}) && statement.size() >= 3) {
        const QString table = TsqlTranslator(Context())
                                  .Expression(Tokens(statement.begin() + 2, statement.end()))
                                  .trimmed();
        if (EngineTarget() == Target::PostgreSQL) {
            Run(QStringLiteral("TRUNCATE TABLE ") + table + QStringLiteral(" RESTART IDENTITY"));
        } else {
            Run(QStringLiteral("DELETE FROM ") + table);
            if (!IdentityColumn(table).isEmpty()) Reseed(table, 0);
        }
        return true;
    }
    // SQLite cannot add a primary key to a table: a unique index of that name stands for it.
    if (EngineTarget() == Target::SQLite && StartsWith(statement, {u"ALTER", u"TABLE"}) &&
        statement.size() >= 8 && statement[3].IsWord(u"ADD") &&
        statement[4].IsWord(u"CONSTRAINT") && statement[6].IsWord(u"PRIMARY")) {
        size_t open = 7;
        while (open < statement.size() && !statement[open].IsSymbol(u"("))
            ++open;
        size_t close = open;
        while (close < statement.size() && !statement[close].IsSymbol(u")"))
            ++close;
        Run(QStringLiteral("CREATE UNIQUE INDEX %1%2 ON %3 (%4)")
                .arg(EngineSchemaOf(statement[2].text), statement[5].text,
                     EngineName(statement[2].text).section(u'.', -1),
                     Arguments(statement, open + 1, close).join(QStringLiteral(", "))));
        return true;
    }
    if (EngineTarget() == Target::SQLite && StartsWith(statement, {u"ALTER", u"TABLE"}) &&
        statement.size() > 6 && statement[3].IsWord(u"ALTER") && statement[4].IsWord(u"COLUMN")) {
        Rebuilder(EngineName(statement[2].text))
            .ChangeType(statement[5].text,
                        TokensToSql(Tokens(statement.begin() + 6, statement.end())).trimmed());
        return true;
    }
    if (EngineTarget() == Target::SQLite && StartsWith(statement, {u"ALTER", u"TABLE"}) &&
        statement.size() == 6 && statement[3].IsWord(u"DROP") &&
        statement[4].IsWord(u"CONSTRAINT")) {
        Run(QStringLiteral("DROP INDEX ") + EngineSchemaOf(statement[2].text) + statement[5].text);
        return true;
    }
    return false;
}

SqliteTableRebuild TsqlSession::Rebuilder(const QString& table) {
    const int dot = table.lastIndexOf(u'.');
    auto run = [this](const QString& sql) {
        QStringList values;
        for (const auto& row : Query(sql))
            values << (row.at(0).IsNull() ? QString() : row.at(0).ToInvariantString());
        return values;
    };
    return SqliteTableRebuild(run, dot < 0 ? QStringLiteral("main") : table.left(dot),
                              table.mid(dot + 1));
}

void TsqlSession::RunTranslated(const Tokens& statement, ado::ResultSink& sink,
                                int timeoutSeconds) {
    const Translation translation = TsqlTranslator(Context()).Translate(statement);
    if (m_tranCount > 0) {
        for (const QString& table : translation.exclusiveTables)
            Run(EngineTarget() == Target::PostgreSQL
                    ? QStringLiteral("LOCK TABLE %1 IN ACCESS EXCLUSIVE MODE").arg(table)
                    // a write that changes nothing takes SQLite's write lock for the transaction
                    : QStringLiteral("DELETE FROM %1 WHERE 0").arg(table));
    }
    if (statement.front().IsWord(u"INSERT")) {
        const size_t name = statement.size() > 1 && statement[1].IsWord(u"INTO") ? 2 : 1;
        RunInsert(translation.sql, EngineName(QualifiedNameAt(statement, name)), sink,
                  timeoutSeconds);
        return;
    }
    CountingSink counting(sink, m_noCount);
    try {
        m_inner->Execute(translation.sql, counting, timeoutSeconds);
    } catch (const ado::AdoError& error) {
        throw MappedError(error, EngineTarget());
    }
    m_rowCount = counting.rows;
    // CREATE TABLE t (... IDENTITY(s, 1)): the next identity is s.
    if (translation.identityStart && statement.size() > 2 && statement[0].IsWord(u"CREATE"))
        Reseed(EngineName(QualifiedNameAt(statement, 2)), *translation.identityStart - 1);
}

// An INSERT also sets @@IDENTITY when its table has an identity column.
void TsqlSession::RunInsert(const QString& sql, const QString& table, ado::ResultSink& sink,
                            int timeoutSeconds) {
    const QString column = IdentityColumn(table);
    try {
        if (EngineTarget() == Target::PostgreSQL && !column.isEmpty()) {
            RowsSink rows;
            m_inner->Execute(sql + QStringLiteral(" RETURNING ") + column, rows, timeoutSeconds);
            m_rowCount = static_cast<std::int64_t>(rows.rows.size());
            if (!rows.rows.empty())
                m_identity = static_cast<std::int64_t>(rows.rows.back().at(0).ToDouble());
            if (!m_noCount) sink.RowsAffected(m_rowCount);
            return;
        }
        CountingSink counting(sink, m_noCount);
        m_inner->Execute(sql, counting, timeoutSeconds);
        m_rowCount = counting.rows;
    } catch (const ado::AdoError& error) {
        throw MappedError(error, EngineTarget());
    }
    if (EngineTarget() == Target::SQLite && !column.isEmpty() && m_rowCount > 0)
        m_identity = static_cast<std::int64_t>(
            Query(QStringLiteral("SELECT last_insert_rowid()")).at(0).at(0).ToDouble());
}

std::vector<std::vector<Variant>> TsqlSession::Query(const QString& sql) {
    RowsSink rows;
    try {
        m_inner->Execute(sql, rows, 0);
    } catch (const ado::AdoError& error) {
        throw MappedError(error, EngineTarget());
    }
    return std::move(rows.rows);
}

void TsqlSession::Run(const QString& sql) {
    Query(sql);
}

} // namespace zlx::tsql
