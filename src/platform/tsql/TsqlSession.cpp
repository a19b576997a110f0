#include "platform/tsql/TsqlSession.h"

#include "platform/engines/DriverErrors.h"
#include "platform/engines/SqliteDriver.h"
#include "platform/tsql/BatchParser.h"
#include "platform/tsql/BatchSplitter.h"
#include "platform/tsql/CheckConflicts.h"
#include "platform/tsql/ColumnAdditions.h"
#include "platform/tsql/ConstraintNames.h"
#include "platform/tsql/ForeignKeyConflicts.h"
#include "platform/tsql/NamedDefaults.h"
#include "platform/tsql/PrintStatement.h"
#include "platform/tsql/StatementTokens.h"
#include "platform/tsql/TokenLists.h"
#include "platform/tsql/TsqlBatchInterpreter.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"
#include "platform/tsql/UncommittableTransaction.h"
#include "platform/variant/ZlxAssert.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QScopeGuard>
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

// A definition answers no rows: what the engine reports as a rowset while it runs one (SQLite
// checks the rows of a table against an added column's constraint with a query) is told as the
// count of a definition.
class DefinitionSink : public ado::ResultSink {
public:
    explicit DefinitionSink(ado::ResultSink& target) : m_target(target) {}
    void BeginRowset(const std::vector<ado::ColumnInfo>&) override {}
    bool Row(std::vector<Variant>&) override { return true; }
    void EndRowset() override { m_target.RowsAffected(-1); }
    void RowsAffected(std::int64_t count) override { m_target.RowsAffected(count); }
    void Info(const ado::ErrorRecord& record) override { m_target.Info(record); }

private:
    ado::ResultSink& m_target;
};

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

// BEGIN/ROLLBACK TRAN[SACTION] name: the name, empty without one.
QString NameAfterTransactionWord(const Tokens& statement) {
    if (statement.size() < 3 ||
        !(statement[1].IsWord(u"TRAN") || statement[1].IsWord(u"TRANSACTION")))
        return {};
    return statement[2].text;
}

} // namespace

ado::DriverPtr OpenTsqlSession(ado::DriverPtr native) {
    if (!EngineDialect::For(*native, nullptr)) return native;
    return std::make_unique<TsqlSession>(std::move(native));
}

TsqlSession::TsqlSession(ado::DriverPtr inner)
    : m_inner(std::move(inner)), m_dialect(EngineDialect::For(*m_inner, this)) {
    ZLX_ASSERT(m_dialect, "a session runs over an engine that needs T-SQL translated");
    if (auto* postgres = dynamic_cast<ado::PostgresDriver*>(m_inner.get())) {
        m_pipeline = std::make_unique<StatementPipeline>(*postgres, *m_dialect);
        // BIT columns are the engine's type for them, read back as Booleans.
        postgres->ReadAsBoolean(m_dialect->ColumnType(QStringLiteral("BIT")));
    }
    m_preparing = dynamic_cast<ado::SqliteDriver*>(m_inner.get());
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
    SettleSentRun();
    m_cancelled = false; // here, so that a Cancel right after the start is not lost
    m_worker.Start([this, batch](ado::ResultSink& sink) { RunBatch(batch, sink, 0); });
}

bool TsqlSession::PollExecute(ado::ResultSink& sink) {
    return m_worker.Poll(sink);
}

void TsqlSession::UseDatabase(const QString& database) {
    m_worker.Abandon();
    SettleSentRun();
    ForgetDefinitions();
    m_inner->UseDatabase(database);
    m_dialect->DatabaseChanged();
    Prepare();
}

// What the session remembers of tables and columns, and the translations made with it.
void TsqlSession::ForgetDefinitions() {
    m_translations.DefinitionsChanged();
    m_identityColumns.clear();
    m_engineNames.clear();
    m_textColumns.clear();
    m_typedColumns.clear();
    m_columnTypes.clear();
    m_nullableColumns.clear();
    m_tableColumns.clear();
}

// The per-connection objects the catalog queries read.
void TsqlSession::Prepare() {
    m_tranCount = 0;
    const QString application =
        QSysInfo::machineHostName() + u':' + QString::number(QCoreApplication::applicationPid());
    for (const QString& statement : m_dialect->CatalogStatements(application))
        Run(statement);
}

TranslationContext TsqlSession::Context() {
    TranslationContext context;
    context.dialect = m_dialect.get();
    context.dayMonthYear = m_dateFormat == u"dmy";
    context.dateFirst = m_dateFirst;
    context.spanishNames = SpanishNames();
    context.jetDates = m_dialect->JetDates();
    context.globalValue = [this](const QString& name) { return GlobalValue(name); };
    context.randomValue = [this](std::optional<std::int64_t> seed) {
        if (seed) m_random.Seed(*seed);
        return m_random.Next();
    };
    context.databaseAlias = [this](const QString& database) {
        return m_dialect->DatabaseAlias(database);
    };
    if (m_dialect->KeepsLocksApart())
        context.locksSchema = [this](const QString& database) {
            return m_dialect->LocksSchema(database);
        };
    context.columnDefault = [this](const QString& table, const QString& column) {
        return m_dialect->ColumnDefault(table, column);
    };
    context.isTextColumn = [this](const QString& column) { return IsTextColumn(column); };
    context.isDateColumn = [this](const QString& column) {
        return CountsColumn(m_typedColumns, QStringLiteral("date:") + column,
                            m_dialect->DateColumnCount(SqlString(column)));
    };
    context.isIntegerColumn = [this](const QString& column) {
        return CountsColumn(m_typedColumns, QStringLiteral("integer:") + column,
                            m_dialect->IntegerColumnCount(SqlString(column)));
    };
    context.tableColumns = [this](const QString& table) { return ColumnsOf(table); };
    context.columnType = [this](const QString& column) { return ColumnTypeNamed(column); };
    if (!m_dialect->NullsOrder(false).isEmpty())
        context.mayBeNull = [this](const QString& column) { return MayBeNull(column); };
    return context;
}

bool TsqlSession::SpanishNames() const {
    return m_language.startsWith(u"Espa", Qt::CaseInsensitive) ||
           m_language.compare(u"Spanish", Qt::CaseInsensitive) == 0;
}

// Whether some table or view of the current database has a text column of that name.
bool TsqlSession::IsTextColumn(const QString& column) {
    return CountsColumn(m_textColumns, column, m_dialect->TextColumnCount(SqlString(column)));
}

// Whether some table of the current database has a column of that name that accepts NULL.
bool TsqlSession::MayBeNull(const QString& column) {
    return CountsColumn(m_nullableColumns, column,
                        m_dialect->NullableColumnCount(SqlString(column)));
}

QString TsqlSession::ColumnTypeNamed(const QString& column) {
    const QString key = column.toLower();
    const auto found = m_columnTypes.constFind(key);
    if (found != m_columnTypes.constEnd()) return *found;
    return *m_columnTypes.insert(key, m_dialect->ColumnTypeNamed(column));
}

bool TsqlSession::CountsColumn(QHash<QString, bool>& known, const QString& column,
                               const QString& countSql) {
    const QString key = column.toLower();
    const auto found = known.constFind(key);
    if (found != known.constEnd()) return *found;
    const auto rows = Query(countSql);
    const bool counted = !rows.empty() && rows[0].at(0).ToLong() > 0;
    known.insert(key, counted);
    return counted;
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

void TsqlSession::Execute(const QString& batch, ado::ResultSink& sink, int timeoutSeconds) {
    // A cancelled asynchronous batch may still be ending on the worker: the engine's
    // connection is free only after it.
    m_worker.Abandon();
    SettleSentRun();
    m_cancelled = false;
    RunBatch(batch, sink, timeoutSeconds);
}

// The whole batch is checked before any of it runs: a construct this layer refuses runs
// nothing (as a batch that does not compile on SQL Server) and leaves a transaction as it was.
void TsqlSession::RunBatch(const QString& batch, ado::ResultSink& sink, int timeoutSeconds) {
    const Tokens tokens = Tokenize(batch);
    RefuseModules(tokens);
    if (TsqlBatchInterpreter::Needed(tokens))
        return TsqlBatchInterpreter(*this, sink, timeoutSeconds).Run(batch, tokens);
    const std::vector<Tokens> statements = SplitBatch(tokens);
    m_batchStatements = &statements;
    m_checkedShapes.assign(statements.size(), std::nullopt);
    const auto forget = qScopeGuard([this] {
        m_batchStatements = nullptr;
        m_checkedShapes.clear();
    });
    CheckKeepingSettings([&] {
        for (const Tokens& statement : statements)
            Check(statement);
    });
    m_dialect->RefreshCatalog(batch);
    const bool pipelined = m_pipeline && statements.size() > 1;
    std::size_t current = 0;
    try {
        for (; current < statements.size(); ++current) {
            if (pipelined && Pipelined(current, statements[current], sink, timeoutSeconds))
                continue;
            FlushPipeline(sink, timeoutSeconds);
            RunStatement(statements[current], sink, timeoutSeconds);
        }
        FlushPipeline(sink, timeoutSeconds, true);
    } catch (const StatementPipeline::Failure& failure) {
        AbortTransactionAfter(failure.error);
        throw SqlServerError(failure.error, statements[failure.index]);
    } catch (const ado::AdoError& error) {
        AbortTransactionAfter(error);
        throw SqlServerError(error, statements[current]);
    }
}

// A data statement joins the run sent in one round trip when its translation is one engine
// statement; the run goes first when the statement fails before reaching the engine.
bool TsqlSession::Pipelined(std::size_t index, const Tokens& statement, ado::ResultSink& sink,
                            int timeoutSeconds) {
    if (!StatementPipeline::MayJoin(statement)) return false;
    Translation translation;
    QString identityColumn;
    try {
        CheckIdentityWrite(statement);
        translation = RunTranslation(statement);
        if (statement.front().IsWord(u"INSERT")) {
            const size_t name = statement.size() > 1 && statement[1].IsWord(u"INTO") ? 2 : 1;
            identityColumn = IdentityColumn(EngineObjectName(QualifiedNameAt(statement, name)));
        }
    } catch (const ado::AdoError&) {
        FlushPipeline(sink, timeoutSeconds);
        throw;
    }
    if (translation.sql.contains(u';') ||
        (m_tranCount > 0 && !translation.exclusiveTables.isEmpty()))
        return false;
    using Effect = StatementPipeline::IdentityEffect;
    const Effect identity = !identityColumn.isEmpty()             ? Effect::Answers
                            : statement.front().IsWord(u"INSERT") ? Effect::Clears
                                                                  : Effect::Keeps;
    m_pipeline->Add(index,
                    identityColumn.isEmpty()
                        ? translation.sql
                        : m_dialect->InsertReturningIdentity(translation.sql, identityColumn),
                    identity);
    if (m_pipeline->Full())
        FlushPipeline(sink, timeoutSeconds, index + 1 == m_batchStatements->size());
    return true;
}

void TsqlSession::FlushPipeline(ado::ResultSink& sink, int timeoutSeconds, bool mayDefer) {
    if (!m_pipeline || !m_pipeline->Waiting()) return;
    SettleSentRun();
    if (!mayDefer || m_deferring.isEmpty())
        return m_pipeline->Flush({m_rowCount, m_identity, m_noCount, m_tranCount > 0}, sink,
                                 timeoutSeconds);
    m_pipeline->Send(m_tranCount > 0, timeoutSeconds);
    if (m_pipeline->Sent()) m_sentBatch = m_deferring;
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
// Inside TRY the transaction only becomes uncommittable: the count stays for CATCH to see and
// roll back, and the engine's transaction too unless a statement's savepoint could not undo
// its failure (THROW and the layer's own errors leave the engine's transaction as it was).
void TsqlSession::AbortTransactionAfter(const ado::AdoError& error) {
    SettleSentRun(); // a failure of the run sent before comes first
    const bool broken = std::exchange(m_statementBroke, false);
    const bool refused =
        !error.Records().empty() && error.Records().front().nativeError == ado::kNativeSyntax;
    if (m_tranCount == 0 || (refused && m_dialect->RefusalKeepsTransaction())) return;
    const bool inTry = m_tryDepth > 0;
    if (!inTry) m_tranCount = 0;
    m_uncommittable = inTry;
    if (inTry && !broken) return;
    if (std::exchange(m_engineTransactionEnded, inTry)) return;
    try {
        m_inner->Rollback();
    } catch (const ado::AdoError&) {
        // the engine may have ended the transaction itself (a broken link, a victim)
    }
    m_dialect->IdentitiesRolledBack(true);
}

ado::AdoError TsqlSession::SqlServerError(const ado::AdoError& error, const Tokens& statement) {
    const QString database = CurrentDatabase();
    const ado::AdoError named = WithCheckColumnNamed(
        WithForeignKeyNamed(error, statement, *m_dialect, database), statement, *m_dialect,
        [this](const QString& table) { return ColumnsOf(table); }, database);
    return WithSqlServerNumbers(named, statement, database);
}

void TsqlSession::RunUndoable(const std::function<void()>& run) {
    if (m_tryDepth == 0 || m_tranCount == 0 || m_engineTransactionEnded) {
        run();
        return;
    }
    static const QString savepoint = QStringLiteral("zlx_statement");
    Run(QStringLiteral("SAVEPOINT ") + savepoint);
    try {
        run();
    } catch (const ado::AdoError&) {
        try {
            Run(QStringLiteral("ROLLBACK TO SAVEPOINT ") + savepoint);
            Run(QStringLiteral("RELEASE SAVEPOINT ") + savepoint);
            m_dialect->IdentitiesRolledBack(false);
        } catch (const ado::AdoError&) {
            m_statementBroke = true; // the engine ended the transaction with the failure
        }
        throw;
    }
    if (m_tranCount > 0) Run(QStringLiteral("RELEASE SAVEPOINT ") + savepoint);
}

bool TsqlSession::SetsDateOption(const Tokens& statement) {
    return statement.size() >= 3 && statement.front().IsWord(u"SET") &&
           IsAnyWord(statement[1], {u"DATEFORMAT", u"DATEFIRST", u"LANGUAGE"});
}

// SET DATEFORMAT, DATEFIRST and LANGUAGE act on the statements after them as the batch runs, so
// the check reads those statements under them too, and then leaves the session as it was.
void TsqlSession::CheckKeepingSettings(const std::function<void()>& check) {
    const QString dateFormat = m_dateFormat, language = m_language;
    const int dateFirst = m_dateFirst;
    const auto restore = qScopeGuard([&] {
        m_dateFormat = dateFormat;
        m_language = language;
        m_dateFirst = dateFirst;
    });
    check();
}

void TsqlSession::Check(const Tokens& statement) {
    if (SetsDateOption(statement)) {
        RunSetOption(statement);
        return;
    }
    if (const auto block = BlockBody(statement)) {
        for (const Tokens& inner : SplitBatch(*block))
            Check(inner);
        return;
    }
    CheckCoalesceArguments(statement);
    if (statement.front().IsWord(u"IF")) {
        const IfParts parts = SplitIf(statement);
        TsqlTranslator(CheckingContext()).Translate(parts.condition);
        Check(parts.body);
        return;
    }
    RefuseUnsupported(statement);
    for (QStringView word : {u"SELECT", u"INSERT", u"UPDATE", u"DELETE", u"WITH"}) {
        if (statement.front().IsWord(word)) CheckTranslation(statement);
    }
}

void TsqlSession::CheckCoalesceArguments(const Tokens& statement) {
    for (size_t i = 0; i + 1 < statement.size(); ++i) {
        if (!statement[i].IsWord(u"COALESCE") || !statement[i + 1].IsSymbol(u"(")) continue;
        size_t close = i + 1;
        for (int depth = 0; close < statement.size(); ++close) {
            if (statement[close].IsSymbol(u"(")) ++depth;
            if (statement[close].IsSymbol(u")") && --depth == 0) break;
        }
        const std::vector<Tokens> arguments = SplitAtCommas(statement, i + 2, close);
        const auto isNull = [](const Tokens& a) { return a.size() == 1 && a[0].IsWord(u"NULL"); };
        if (!arguments.empty() && std::all_of(arguments.begin(), arguments.end(), isNull))
            ThrowStatementError(QStringLiteral("At least one of the arguments to COALESCE must be "
                                               "an expression that is not the NULL constant."),
                                4127);
    }
}

void TsqlSession::RefuseUnsupported(const Tokens& statement) {
    for (QStringView word : {u"DECLARE", u"WHILE", u"RAISERROR", u"GOTO", u"RETURN", u"ELSE"}) {
        if (statement.front().IsWord(word)) ThrowUnsupported(statement.front().text);
    }
    // The engines read common table expressions in a SELECT only; they cannot change a table
    // through one, and the library's forms of INSERT, UPDATE and DELETE begin with their word.
    if (statement.front().IsWord(u"WITH")) {
        const auto proper = StatementProper(statement);
        if (proper.empty()) ThrowUnsupported(u"WITH"_qs);
        if (!proper.front().IsWord(u"SELECT"))
            ThrowUnsupported(u"WITH ... "_qs + proper.front().text);
    }
}

// A context that translates without touching the engine: databases are not attached and no
// catalog is read (the checked text is thrown away).
TranslationContext TsqlSession::CheckingContext() {
    TranslationContext context;
    context.dialect = m_dialect.get();
    context.dayMonthYear = m_dateFormat == u"dmy";
    context.dateFirst = m_dateFirst;
    context.spanishNames = SpanishNames();
    context.jetDates = m_dialect->JetDates();
    context.globalValue = [this](const QString& name) { return GlobalValue(name); };
    context.randomValue = CheckedRandomValue;
    return context;
}

TranslationCache::Settings TsqlSession::TranslationSettings() const {
    return {m_dateFormat == u"dmy", m_dateFirst, SpanishNames()};
}

// The check asks the session's context, but not the questions that only running may ask
// (TranslationCache::Check leaves those out).
void TsqlSession::CheckTranslation(const Tokens& statement) {
    StatementShape shape(statement, TranslationSettings());
    if (!m_translations.Knows(shape)) m_translations.Check(shape, statement, Context());
    if (auto* checked = CheckedShape(statement)) *checked = std::move(shape);
}

Translation TsqlSession::RunTranslation(const Tokens& statement) {
    std::optional<StatementShape> fresh;
    std::optional<Translation> kept = m_translations.Find(ShapeOf(statement, fresh));
    return kept ? std::move(*kept) : TsqlTranslator(Context()).Translate(statement);
}

std::optional<PreparedTranslation> TsqlSession::RunPrepared(const Tokens& statement) {
    if (!m_preparing) return std::nullopt;
    std::optional<StatementShape> fresh;
    return m_translations.FindPrepared(ShapeOf(statement, fresh));
}

const StatementShape& TsqlSession::ShapeOf(const Tokens& statement,
                                           std::optional<StatementShape>& fresh) {
    const auto settings = TranslationSettings();
    std::optional<StatementShape>* checked = CheckedShape(statement);
    if (checked && *checked && (*checked)->ReadUnder(settings)) return **checked;
    return fresh.emplace(statement, settings);
}

// Only a statement of the batch itself: the parts of a block or an IF are made anew each time.
std::optional<StatementShape>* TsqlSession::CheckedShape(const Tokens& statement) {
    if (!m_batchStatements) return nullptr;
    const std::less<const Tokens*> before;
    const Tokens* first = m_batchStatements->data();
    if (before(&statement, first) || !before(&statement, first + m_batchStatements->size()))
        return nullptr;
    return &m_checkedShapes[static_cast<std::size_t>(&statement - first)];
}

void TsqlSession::RunStatement(const Tokens& statement, ado::ResultSink& sink, int timeoutSeconds) {
    if (const auto block = BlockBody(statement)) {
        for (const Tokens& inner : SplitBatch(*block))
            RunStatement(inner, sink, timeoutSeconds);
        return;
    }
    if (const auto plain = WithoutCheckOption(statement))
        return RunStatement(*plain, sink, timeoutSeconds);
    if (ChecksConstraint(statement)) {
        m_rowCount = 0;
        return;
    }
    if (const std::vector<Tokens> additions = EachAddition(statement); !additions.empty()) {
        for (const Tokens& addition : additions)
            RunStatement(addition, sink, timeoutSeconds);
        return;
    }
    // Statements that may change a table or its columns (sp_rename called without EXEC too).
    const Token& first = statement.front();
    if (IsAnyWord(first, {u"CREATE", u"ALTER", u"DROP", u"EXEC", u"EXECUTE", u"USE"}) ||
        (first.kind == TokenKind::Word && first.text.startsWith(u"sp_", Qt::CaseInsensitive)))
        ForgetDefinitions();
    if (statement.front().IsWord(u"IF")) {
        RunIf(statement, sink, timeoutSeconds);
        return;
    }
    if (statement.front().IsWord(u"USE") && statement.size() == 2) {
        UseDatabase(statement[1].text);
        m_rowCount = 0;
        return;
    }
    RefuseUnsupported(statement);
    if (m_uncommittable) RefuseInUncommittableTransaction(statement, m_transactionName);
    if (statement.front().IsWord(u"PRINT")) {
        sink.Info(PrintMessage(statement));
        m_rowCount = 0;
        return;
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
    else if (option.IsWord(u"IDENTITY_INSERT"))
        SetIdentityInsert(statement);
    else if (!IsSessionDefault(statement))
        ThrowUnsupported(QStringLiteral("SET ") + option.text + u' ' + value);
    return true;
}

// The options the session always has, as the library sets them: setting them so changes nothing,
// setting them otherwise would change answers the layer does not give. Reading uncommitted rows
// reads committed ones, as a NOLOCK hint does.
bool TsqlSession::IsSessionDefault(const Tokens& statement) {
    const Token& option = statement[1];
    const bool on = statement[2].IsWord(u"ON");
    if (option.IsWord(u"ARITHABORT")) return on || statement[2].IsWord(u"OFF");
    if (IsAnyWord(option, {u"XACT_ABORT", u"ANSI_NULLS", u"QUOTED_IDENTIFIER", u"ANSI_WARNINGS",
                           u"CONCAT_NULL_YIELDS_NULL", u"ANSI_PADDING"}))
        return on;
    return option.IsWord(u"TRANSACTION") && statement.size() == 6 &&
           statement[2].IsWord(u"ISOLATION") && statement[3].IsWord(u"LEVEL") &&
           statement[4].IsWord(u"READ") &&
           (statement[5].IsWord(u"COMMITTED") || statement[5].IsWord(u"UNCOMMITTED"));
}

// BEGIN/COMMIT/ROLLBACK [TRAN[SACTION]] [name]: only the outermost level reaches the engine,
// and ROLLBACK undoes every level.
bool TsqlSession::RunTransactionStatement(const Tokens& statement) {
    const auto run = [this](const QString& sql) { Run(sql); };
    if (QString savepoint; Savepoints::IsSave(statement, savepoint)) {
        m_savepoints.Save(savepoint, m_tranCount > 0, *m_dialect, run);
        return true;
    }
    const bool begin = StartsWith(statement, {u"BEGIN", u"TRAN"}) ||
                       StartsWith(statement, {u"BEGIN", u"TRANSACTION"});
    if (begin) {
        if (m_tranCount == 0) m_transactionName = NameAfterTransactionWord(statement);
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
        // Only the outermost transaction's name may be rolled back to.
        const QString name = NameAfterTransactionWord(statement);
        if (!name.isEmpty() && m_savepoints.RollBackTo(name, *m_dialect, run)) {
            m_dialect->IdentitiesRolledBack(false);
            return true;
        }
        if (!name.isEmpty() && name != m_transactionName)
            ThrowStatementError(
                QStringLiteral("Cannot roll back %1. No transaction or savepoint of that name "
                               "was found.")
                    .arg(name),
                ado::kNativeRollbackUnknownName, QStringLiteral("25000"));
        Rollback();
        return true;
    }
    return false;
}

void TsqlSession::BeginTransaction() {
    m_worker.Abandon();
    SettleSentRun();
    if (m_tranCount == 0) {
        m_savepoints.Clear();
        try {
            m_inner->BeginTransaction();
        } catch (const ado::AdoError& error) {
            throw m_dialect->MapError(error);
        }
    }
    ++m_tranCount;
}

void TsqlSession::Commit() {
    m_worker.Abandon();
    SettleSentRun();
    if (m_tranCount == 1) {
        try {
            m_inner->Commit();
        } catch (const ado::AdoError& error) {
            throw m_dialect->MapError(error);
        }
        m_dialect->IdentitiesCommitted();
    }
    m_tranCount = std::max(0, m_tranCount - 1);
}

void TsqlSession::Rollback() {
    m_worker.Abandon();
    SettleSentRun();
    m_tranCount = 0;
    m_uncommittable = false;
    if (std::exchange(m_engineTransactionEnded, false)) return; // it ended with the error
    try {
        m_inner->Rollback();
    } catch (const ado::AdoError& error) {
        throw m_dialect->MapError(error);
    }
    m_dialect->IdentitiesRolledBack(true);
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
    const QStringList arguments = ArgumentList(statement, 3, statement.size() - 1);
    const Token& command = statement[1];
    if (command.IsWord(u"CHECKIDENT")) {
        const QString table = EngineObjectName(arguments.value(0));
        std::optional<std::int64_t> seed;
        if (arguments.size() > 2) seed = arguments[2].toLongLong();
        // NORESEED only reports the identity.
        if (arguments.value(1).compare(u"NORESEED", Qt::CaseInsensitive) != 0)
            Reseed(table, seed, IdentityStep(table));
    } else if (command.IsWord(u"DBREINDEX")) {
        Run(m_dialect->ReindexSql(EngineObjectName(arguments.value(0))));
    } else if (!command.IsWord(u"SHRINKDATABASE")) {
        // SHRINKDATABASE has nothing to do: both engines give space back on their own.
        ThrowUnsupported(QStringLiteral("DBCC ") + command.text);
    }
}

// Every INSERT asks for its table's name: a name keeps its engine spelling until the database
// or a definition changes.
QString TsqlSession::EngineObjectName(const QString& tsqlName) {
    const auto known = m_engineNames.constFind(tsqlName);
    if (known != m_engineNames.constEnd()) return *known;
    const QString name = TsqlTranslator(Context()).Expression(Tokenize(tsqlName)).trimmed();
    m_engineNames.insert(tsqlName, name);
    return name;
}

// Without a seed the identity moves up to the highest value in the table when that is past
// it; with one, the next row gets seed + step (seed itself before the identity's first value).
void TsqlSession::Reseed(const QString& table, std::optional<std::int64_t> seed,
                         std::int64_t step) {
    const QString column = IdentityColumn(table);
    if (column.isEmpty())
        ThrowStatementError(QStringLiteral("'%1' does not contain an identity column.").arg(table),
                            7997);
    if (seed)
        m_dialect->SetIdentity(table, column,
                               m_dialect->IdentityTaken(table, column) ? *seed : *seed - step);
    else
        m_dialect->RaiseIdentity(table, column);
}

std::int64_t TsqlSession::IdentityStep(const QString& table) {
    for (const TableColumn& found : m_dialect->ColumnsOf(table))
        if (found.identity) return found.step;
    return 1;
}

// The identity column of a table, "" when it has none.
QString TsqlSession::IdentityColumn(const QString& table) {
    // Looked up once per table: an INSERT must not cost a catalog query each time.
    const auto known = m_identityColumns.constFind(table);
    if (known != m_identityColumns.constEnd()) return *known;
    const QString column = m_dialect->FindIdentityColumn(table);
    m_identityColumns.insert(table, column);
    return column;
}

// A table's columns, looked up once per table as its identity column is.
TableColumns TsqlSession::ColumnsOf(const QString& tsqlTable) {
    const QString table = EngineObjectName(tsqlTable);
    const auto known = m_tableColumns.constFind(table);
    if (known != m_tableColumns.constEnd()) return *known;
    // None for a table not made yet (the check before a batch asks) or a view the engine does
    // not describe: the statement that makes a table forgets them (ForgetDefinitions).
    return *m_tableColumns.insert(table, m_dialect->ColumnsOf(table));
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
    const QStringList arguments = ArgumentList(statement, last + 1, statement.size());
    if (procedure == u"sp_bindefault" || procedure == u"sp_unbindefault") {
        const QString target = arguments.value(procedure == u"sp_bindefault" ? 1 : 0);
        const int dot = target.lastIndexOf(u'.');
        const QString table = EngineObjectName(target.left(dot));
        const QString column = EngineObjectName(target.mid(dot + 1));
        QString value; // none: unbound
        if (procedure == u"sp_bindefault") {
            const TableColumns columns = ColumnsOf(target.left(dot));
            const TableColumn* bound = FindColumn(columns, target.mid(dot + 1));
            value = m_defaults.For(arguments.value(0),
                                   bound ? std::optional(bound->kind) : std::nullopt);
        }
        m_dialect->ChangeDefault(table, column, value);
        return true;
    }
    if (procedure == u"sp_indexes_rowset") {
        // An index is found by its SQL Server name: a primary key's constraint name, or the
        // name of an index made by CREATE INDEX (EngineIndexName); it is answered by that name.
        const QString table = arguments.value(0);
        const QString index = arguments.value(1);
        const QString bare = table.section(u'.', -1);
        CountingSink counting(sink, m_noCount);
        ExecuteMapped(m_dialect->IndexesQuery(m_dialect->IndexSchemaOf(table))
                          .arg(SqlString(bare),
                               index.isEmpty() ? QStringLiteral("NULL") : SqlString(index),
                               SqlString(EngineIndexName(bare, index))),
                      counting, 0);
        return true;
    }
    if (procedure == u"sp_rename" &&
        arguments.value(2).compare(u"COLUMN", Qt::CaseInsensitive) == 0) {
        const QString old = arguments.value(0);
        const int dot = old.lastIndexOf(u'.');
        Run(QStringLiteral("ALTER TABLE %1 RENAME COLUMN %2 TO %3")
                .arg(EngineObjectName(old.left(dot)), EngineObjectName(old.mid(dot + 1)),
                     EngineObjectName(arguments.value(1))));
        return true;
    }
    if (procedure == u"sp_rename" && arguments.size() == 2) {
        Run(QStringLiteral("ALTER TABLE %1 RENAME TO %2")
                .arg(EngineObjectName(arguments[0]), m_dialect->QuoteName(arguments[1])));
        return true;
    }
    ThrowUnsupported(statement[last].text);
}

// CREATE/DROP/ALTER DATABASE: what a database is belongs to the dialect.
bool TsqlSession::RunDatabaseStatement(const Tokens& statement) {
    if (statement.size() < 3 || !statement[1].IsWord(u"DATABASE")) return false;
    const QString database = statement[2].text;
    if (statement.front().IsWord(u"CREATE")) {
        m_dialect->CreateDatabase(database);
        return true;
    }
    if (statement.front().IsWord(u"DROP")) {
        m_dialect->DropDatabase(database);
        return true;
    }
    if (statement.front().IsWord(u"ALTER"))
        return true; // file and recovery options mean nothing to these engines
    return false;
}

// The definitions that need more than a translation.
bool TsqlSession::RunDefinition(const Tokens& statement) {
    CheckKeyColumns(statement);
    RefuseReferencedTable(statement, *m_dialect);
    if (const QString constraint = DroppedConstraint(statement); !constraint.isEmpty()) {
        const QString table = EngineObjectName(QualifiedNameAt(statement, 2));
        if (m_dialect->DropNamedDefault(table, constraint)) return true;
        if (!m_dialect->HasConstraint(table, constraint))
            ThrowStatementError(QStringLiteral("'%1' is not a constraint.").arg(constraint),
                                ado::kNativeNotAConstraint, QStringLiteral("42000"));
        if (m_dialect->DropConstraint(table, constraint)) return true;
    }
    if (StartsWith(statement, {u"CREATE", u"DEFAULT"}) && statement.size() >= 5 &&
        statement[3].IsWord(u"AS")) {
        m_defaults.Create(statement[2].text, Tokens(statement.begin() + 4, statement.end()),
                          Context());
        return true;
    }
    // DROP INDEX t.i, or DROP INDEX i ON [schema.]t.
    if (StartsWith(statement, {u"DROP", u"INDEX"}) && statement.size() >= 5 &&
        (statement[3].IsSymbol(u".") || statement[3].IsWord(u"ON"))) {
        const bool on = statement[3].IsWord(u"ON");
        const QString& table = on ? statement.back().text : statement[2].text;
        const QString& index = on ? statement[2].text : statement[4].text;
        Run(QStringLiteral("DROP INDEX ") + m_dialect->IndexSchemaOf(table) +
            EngineIndexName(table, index));
        return true;
    }
    if (StartsWith(statement, {u"TRUNCATE", u"TABLE"}) && statement.size() >= 3) {
        const QString table = TsqlTranslator(Context())
                                  .Expression(Tokens(statement.begin() + 2, statement.end()))
                                  .trimmed();
        Run(m_dialect->TruncateSql(table));
        if (!m_dialect->TruncateRestartsIdentity() && !IdentityColumn(table).isEmpty())
            Reseed(table, 0);
        return true;
    }
    // The key or check ALTER TABLE t ADD adds has its name, as its translation would.
    const Tokens named = WithConstraintsNamed(statement);
    return AddCheckConstraint(named) || m_dialect->RunDefinition(named);
}

// ALTER TABLE t ADD CONSTRAINT name CHECK (...) on an engine that adds it otherwise: the check
// as the translation writes it. WITH NOCHECK, which would keep rows that break it, is refused.
bool TsqlSession::AddCheckConstraint(const Tokens& statement) {
    if (!StartsWith(statement, {u"ALTER", u"TABLE"})) return false;
    const size_t add = StatementTokens(statement).QualifiedNameEnd(2);
    if (add < statement.size() && statement[add].IsWord(u"WITH") && add + 1 < statement.size() &&
        statement[add + 1].IsWord(u"NOCHECK"))
        ThrowUnsupported(QStringLiteral("ALTER TABLE ... WITH NOCHECK"));
    if (add + 3 >= statement.size() || !statement[add].IsWord(u"ADD") ||
        !statement[add + 1].IsWord(u"CONSTRAINT") || !statement[add + 3].IsWord(u"CHECK"))
        return false;
    const QString sql = TsqlTranslator(Context()).Translate(statement).sql;
    static const QRegularExpression constraint(QStringLiteral("\\bCONSTRAINT\\b"),
                                               QRegularExpression::CaseInsensitiveOption);
    const qsizetype at = sql.indexOf(constraint);
    // A lone name is taken without its brackets, as the other definitions take it.
    const QString table = add == 3 ? statement[2].text : QualifiedNameAt(statement, 2);
    return at >= 0 && m_dialect->AddCheckConstraint(EngineObjectName(table), sql.mid(at).trimmed());
}

// SET IDENTITY_INSERT table ON|OFF: one table of the session at a time.
void TsqlSession::SetIdentityInsert(const Tokens& statement) {
    const QString table = EngineObjectName(QualifiedNameAt(statement, 2));
    // The values written while it was on count for the next identity, as on SQL Server.
    if (!m_identityInsertTable.isEmpty())
        m_dialect->RaiseIdentity(m_identityInsertTable, IdentityColumn(m_identityInsertTable));
    if (statement.back().IsWord(u"ON"))
        m_identityInsertTable = table;
    else if (m_identityInsertTable == table)
        m_identityInsertTable.clear();
}

// A Jet database file takes explicit AUTOINCREMENT values, as Jet does.
void TsqlSession::CheckIdentityWrite(const Tokens& statement) {
    if (m_dialect->JetDates()) return;
    const bool insert = statement.front().IsWord(u"INSERT");
    if (!insert && !statement.front().IsWord(u"UPDATE")) return;
    const size_t name = insert && statement.size() > 1 && statement[1].IsWord(u"INTO") ? 2 : 1;
    const QString written = QualifiedNameAt(statement, name).trimmed();
    const QString table = EngineObjectName(written);
    CheckIdentityWrites(statement, written, IdentityColumn(table), table == m_identityInsertTable);
}

void TsqlSession::CheckKeyColumns(const Tokens& statement) {
    if (!StartsWith(statement, {u"ALTER", u"TABLE"}) ||
        std::none_of(statement.begin(), statement.end(),
                     [](const Token& t) { return t.IsWord(u"PRIMARY"); }))
        return;
    const QString written = QualifiedNameAt(statement, 2).trimmed();
    CheckKeyColumnsNotNull(statement, written, ColumnsOf(written));
}

// A statement kept prepared runs with its literals bound; an INSERT, which may be rewritten to
// answer its identity, runs its text.
void TsqlSession::RunTranslated(const Tokens& statement, ado::ResultSink& sink,
                                int timeoutSeconds) {
    CheckIdentityWrite(statement);
    const bool insert = statement.front().IsWord(u"INSERT");
    const std::optional<PreparedTranslation> prepared =
        insert ? std::nullopt : RunPrepared(statement);
    const Translation translation = prepared ? prepared->translation : RunTranslation(statement);
    if (m_tranCount > 0) {
        for (const QString& table : translation.exclusiveTables)
            Run(m_dialect->ExclusiveLockSql(table));
    }
    if (insert) {
        const size_t name = statement.size() > 1 && statement[1].IsWord(u"INTO") ? 2 : 1;
        RunInsert(translation.sql, EngineObjectName(QualifiedNameAt(statement, name)), sink,
                  timeoutSeconds);
        return;
    }
    CountingSink counting(sink, m_noCount);
    DefinitionSink definition(counting);
    ado::ResultSink& target =
        statement.front().IsWord(u"ALTER") ? static_cast<ado::ResultSink&>(definition) : counting;
    if (!prepared || !ExecutePrepared(*prepared, target, timeoutSeconds))
        ExecuteMapped(prepared ? RunTranslation(statement).sql : translation.sql, target,
                      timeoutSeconds);
    m_rowCount = counting.rows;
    // CREATE TABLE t (... IDENTITY(s, 1)): the next identity is s.
    if (translation.identityStart && statement.size() > 2 && statement[0].IsWord(u"CREATE"))
        Reseed(EngineObjectName(QualifiedNameAt(statement, 2)), *translation.identityStart);
    if (translation.defaultAfterAdd)
        m_dialect->ChangeDefault(EngineObjectName(QualifiedNameAt(statement, 2)),
                                 translation.defaultAfterAdd->first,
                                 translation.defaultAfterAdd->second);
    for (const NamedDefault& named : NamedDefaultsOf(statement))
        m_dialect->NameDefault(EngineObjectName(QualifiedNameAt(statement, 2)), named.column,
                               named.name);
}

// An INSERT also sets @@IDENTITY when its table has an identity column: from the INSERT
// itself where the engine can answer it, else from the engine's last identity.
void TsqlSession::RunInsert(const QString& sql, const QString& table, ado::ResultSink& sink,
                            int timeoutSeconds) {
    const QString column = IdentityColumn(table);
    const QString returning =
        column.isEmpty() ? QString() : m_dialect->InsertReturningIdentity(sql, column);
    if (!returning.isEmpty()) {
        RowsSink rows;
        ExecuteMapped(returning, rows, timeoutSeconds);
        m_rowCount = static_cast<std::int64_t>(rows.rows.size());
        if (!rows.rows.empty())
            m_identity = static_cast<std::int64_t>(rows.rows.back().at(0).ToDouble());
        NoteIdentityTaken(table);
        if (!m_noCount) sink.RowsAffected(m_rowCount);
        return;
    }
    CountingSink counting(sink, m_noCount);
    ExecuteMapped(sql, counting, timeoutSeconds);
    m_rowCount = counting.rows;
    if (column.isEmpty())
        m_identity.reset(); // @@IDENTITY after an INSERT into a table without identity
    else if (m_rowCount > 0)
        m_identity =
            static_cast<std::int64_t>(Query(m_dialect->LastIdentitySql()).at(0).at(0).ToDouble());
    NoteIdentityTaken(table);
}

// A value taken inside a transaction stays taken when it is rolled back (see
// EngineDialect::NoteIdentityTaken).
void TsqlSession::NoteIdentityTaken(const QString& table) {
    if (m_identity && m_tranCount > 0) m_dialect->NoteIdentityTaken(table, *m_identity);
}

void TsqlSession::ExecuteMapped(const QString& sql, ado::ResultSink& sink, int timeoutSeconds) {
    SettleSentRun();
    try {
        m_inner->Execute(sql, sink, timeoutSeconds);
    } catch (const ado::AdoError& error) {
        throw m_dialect->MapError(m_dialect->WithBrokenKeyNamed(error, [&] {
            RowsSink ignored;
            m_inner->Execute(sql, ignored, timeoutSeconds);
        }));
    }
}

bool TsqlSession::ExecutePrepared(const PreparedTranslation& prepared, ado::ResultSink& sink,
                                  int timeoutSeconds) {
    try {
        return m_preparing->ExecuteKept(prepared.translation.sql, prepared.parameters, sink,
                                        timeoutSeconds);
    } catch (const ado::AdoError& error) {
        throw m_dialect->MapError(m_dialect->WithBrokenKeyNamed(error, [&] {
            RowsSink ignored;
            m_preparing->ExecuteKept(prepared.translation.sql, prepared.parameters, ignored,
                                     timeoutSeconds);
        }));
    }
}

std::vector<std::vector<Variant>> TsqlSession::Query(const QString& sql) {
    RowsSink rows;
    ExecuteMapped(sql, rows, 0);
    return std::move(rows.rows);
}

} // namespace zlx::tsql
