// Filling recordsets from a connection's results: batches with several results, MaxRecords,
// FetchProgress, and the asynchronous open with its State bits and Cancel.

#include "RecordsetFixture.h"
#include "platform/ado/RecordsetBuilder.h"

using namespace zlx;
using namespace zlx::ado;
using namespace zlx::ado::testing;

namespace {

std::vector<ColumnInfo> NumberColumns() {
    ColumnInfo id;
    id.name = "id";
    id.type = adInteger;
    id.definedSize = 4;
    id.keyColumn = true;
    ColumnInfo name;
    name.name = "nombre";
    name.type = adVarWChar;
    name.definedSize = 20;
    return {id, name};
}

// Delivers `count` rows (id 1..count); stops when the sink says so.
void DeliverRows(ResultSink& sink, int from, int count) {
    for (int i = from; i < from + count; ++i) {
        std::vector<Variant> row{Variant(std::int32_t(i)), Variant(QStringLiteral("n%1").arg(i))};
        if (!sink.Row(row)) return;
    }
}

// Counts a recordset's FetchProgress and FetchComplete signals.
struct SignalLog {
    explicit SignalLog(Recordset& rs) {
        QObject::connect(&rs, &Recordset::FetchProgress,
                         [this](long progress, long) { progressValues.push_back(progress); });
        QObject::connect(&rs, &Recordset::FetchComplete, [this] { ++completions; });
    }
    std::vector<long> progressValues;
    int completions = 0;
};

// A connection stand-in that records what it was asked to run.
struct FakeConnection : Object {
    QString TypeName() const override { return QStringLiteral("Connection"); }
    QStringList commands;
};

} // namespace

TEST(RecordsetFetch, OpenRunsTheSourceAndKeepsFurtherResultsForNextRecordset) {
    auto connection = std::make_shared<FakeConnection>();
    ConnectionLink link;
    link.connection = connection;
    link.run = [&](const QString& text, ResultSink& sink, long) {
        connection->commands << text;
        sink.BeginRowset(NumberColumns());
        DeliverRows(sink, 1, 2500);
        sink.EndRowset();
        sink.RowsAffected(7);
        sink.BeginRowset(NumberColumns());
        DeliverRows(sink, 100, 3);
        sink.EndRowset();
    };
    Recordset rs;
    SignalLog log(rs);
    rs.SetCursorLocation(adUseClient);
    rs.Open("SELECT * FROM t; UPDATE u; SELECT * FROM v", &link, adOpenStatic, adLockOptimistic);
    EXPECT_EQ(connection->commands, QStringList{"SELECT * FROM t; UPDATE u; SELECT * FROM v"});
    EXPECT_EQ(rs.State(), adStateOpen);
    EXPECT_EQ(rs.RecordCount(), 2500);
    EXPECT_EQ(rs.ActiveConnection(), connection);
    EXPECT_EQ(rs.GetFields().Item("id").Attributes() & adFldKeyColumn, adFldKeyColumn);
    EXPECT_EQ(log.progressValues, (std::vector<long>{1000, 2000}));
    EXPECT_EQ(rs.Status(), adRecUnmodified);

    long affected = 0;
    auto update = rs.NextRecordset(&affected);
    ASSERT_TRUE(update);
    EXPECT_EQ(affected, 7);
    EXPECT_EQ(update->State(), adStateClosed);
    EXPECT_EQ(rs.State(), adStateClosed);
    auto third = update->NextRecordset();
    ASSERT_TRUE(third);
    EXPECT_EQ(third->State(), adStateOpen);
    EXPECT_EQ(Codes(*third, "id"), (std::vector<int>{100, 101, 102}));
    EXPECT_EQ(third->NextRecordset(), nullptr);

    rs.SetMaxRecords(10);
    rs.Open({}, &link);
    EXPECT_EQ(rs.RecordCount(), 10);
    EXPECT_EQ(AdoErrorOf([&] { rs.SetMaxRecords(5); }), adErrObjectOpen);
    rs.Requery();
    EXPECT_EQ(rs.RecordCount(), 10);
    EXPECT_EQ(connection->commands.size(), 3);
    rs.Close();
    rs.Open("Clientes", &link, adOpenStatic, adLockReadOnly, adCmdTable);
    rs.Requery();
    EXPECT_EQ(connection->commands.mid(3),
              (QStringList{"SELECT * FROM Clientes", "SELECT * FROM Clientes"}));
    rs.DetachConnection();
    EXPECT_EQ(rs.ActiveConnection(), nullptr);
    EXPECT_EQ(AdoErrorOf([&] { rs.Requery(); }), adErrFeatureNotAvailable);
    EXPECT_EQ(rs.RecordCount(), 10);
    EXPECT_EQ(rs.CursorLocation(), adUseClient);
}

TEST(RecordsetFetch, ReadOnlyConnectedRecordsetRefusesChanges) {
    ConnectionLink link;
    link.connection = std::make_shared<FakeConnection>();
    link.run = [](const QString&, ResultSink& sink, long) {
        sink.BeginRowset(NumberColumns());
        DeliverRows(sink, 1, 3);
        sink.EndRowset();
    };
    Recordset rs;
    rs.Open("SELECT", &link, adOpenForwardOnly, adLockReadOnly);
    EXPECT_EQ(AdoErrorOf([&] { rs.AddNew(); }), adErrFeatureNotAvailable);
    EXPECT_EQ(AdoErrorOf([&] { rs.Delete(); }), adErrFeatureNotAvailable);
    EXPECT_EQ(AdoErrorOf([&] { rs.GetFields().Item(0).SetValue(Variant(5)); }),
              adErrFeatureNotAvailable);
    rs.DetachConnection();
    rs.Delete();
    rs.MoveNext();
    EXPECT_EQ(Codes(rs, "id"), (std::vector<int>{2, 3}));
}

namespace {

// An asynchronous command: executing for `idlePolls` polls, then 1,000 rows per poll.
struct AsyncScript {
    int idlePolls = 2;
    int total = 3500;
    int delivered = 0;
    int polls = 0;
    bool cancelled = false;
    bool started = false;

    ConnectionLink Link(ObjectPtr connection) {
        ConnectionLink link;
        link.connection = std::move(connection);
        link.start = [this](const QString&, long) { started = true; };
        link.cancel = [this] { cancelled = true; };
        link.poll = [this](ResultSink& sink) {
            if (++polls <= idlePolls) return false;
            if (delivered == 0) sink.BeginRowset(NumberColumns());
            const int chunk = std::min(1000, total - delivered);
            DeliverRows(sink, delivered + 1, chunk);
            delivered += chunk;
            if (delivered < total) return false;
            sink.EndRowset();
            return true;
        };
        return link;
    }
};

} // namespace

TEST(RecordsetFetch, AsynchronousOpenGoesThroughExecutingAndFetching) {
    AsyncScript script;
    const ConnectionLink link = script.Link(std::make_shared<FakeConnection>());
    Recordset rs;
    SignalLog log(rs);
    rs.Open("SELECT", &link, adOpenStatic, adLockBatchOptimistic, adAsyncExecute | adAsyncFetch);
    EXPECT_TRUE(script.started);
    EXPECT_EQ(rs.State(), adStateExecuting); // first poll
    EXPECT_EQ(AdoErrorOf([&] { rs.RecordCount(); }), adErrStillExecuting);
    EXPECT_EQ(AdoErrorOf([&] { rs.Close(); }), adErrStillExecuting);
    EXPECT_EQ(rs.State(), adStateExecuting); // second poll
    EXPECT_EQ(rs.State(), adStateOpen | adStateFetching);
    EXPECT_EQ(rs.State(), adStateOpen | adStateFetching);
    EXPECT_EQ(rs.State(), adStateOpen | adStateFetching);
    EXPECT_EQ(rs.State(), adStateOpen);
    EXPECT_EQ(rs.RecordCount(), 3500);
    EXPECT_EQ(log.progressValues, (std::vector<long>{1000, 2000, 3000}));
    EXPECT_EQ(log.completions, 1);
    EXPECT_FALSE(script.cancelled);
}

TEST(RecordsetFetch, CancelKeepsFetchedRowsOrLeavesTheRecordsetClosed) {
    AsyncScript fetching;
    const ConnectionLink link = fetching.Link(std::make_shared<FakeConnection>());
    Recordset rs;
    rs.Open("SELECT", &link, adOpenStatic, adLockOptimistic, 48);
    while (!(rs.State() & adStateFetching)) {
    }
    EXPECT_EQ(rs.State(), adStateOpen | adStateFetching);
    rs.Cancel();
    EXPECT_TRUE(fetching.cancelled);
    EXPECT_EQ(rs.State(), adStateOpen);
    EXPECT_EQ(rs.RecordCount(), 2000);
    rs.MoveLast();
    EXPECT_EQ(rs.GetFields().Item("id").Value().ToLong(), 2000);

    AsyncScript executing;
    executing.idlePolls = 100;
    const ConnectionLink slow = executing.Link(std::make_shared<FakeConnection>());
    Recordset other;
    other.Open("SELECT", &slow, adOpenStatic, adLockOptimistic, 48);
    EXPECT_EQ(other.State(), adStateExecuting);
    other.Cancel();
    EXPECT_TRUE(executing.cancelled);
    EXPECT_EQ(other.State(), adStateClosed);
    EXPECT_EQ(AdoErrorOf([&] { other.MoveFirst(); }), adErrObjectClosed);
}

// A result may repeat a column name (a self-join) or leave it empty: every column is kept,
// by position; the name finds the first.
TEST(RecordsetFetch, RepeatedAndEmptyColumnNamesAreKept) {
    ConnectionLink link;
    link.connection = std::make_shared<FakeConnection>();
    link.run = [](const QString&, ResultSink& sink, long) {
        std::vector<ColumnInfo> columns = NumberColumns();
        columns[1].name = "ID";
        columns.push_back(columns[1]);
        columns.back().name.clear();
        sink.BeginRowset(columns);
        std::vector<Variant> row{Variant(std::int32_t(7)), Variant(QStringLiteral("siete")),
                                 Variant(QStringLiteral("otro"))};
        sink.Row(row);
        sink.EndRowset();
    };
    Recordset rs;
    rs.Open("SELECT", &link);
    Fields& fields = rs.GetFields();
    ASSERT_EQ(fields.Count(), 3);
    EXPECT_EQ(fields.Item(0).Name(), "id");
    EXPECT_EQ(fields.Item(1).Name(), "ID");
    EXPECT_EQ(fields.Item(2).Name(), "");
    EXPECT_EQ(fields.Item("ID").Index(), 0);
    EXPECT_EQ(fields.Item(0).Value().ToLong(), 7);
    EXPECT_EQ(fields.Item(1).Value().ToString(), "siete");
    EXPECT_EQ(fields.Item(2).Value().ToString(), "otro");
    // A recordset built by hand still names each field once.
    Recordset made;
    made.GetFields().Append("a", adInteger);
    EXPECT_EQ(AdoErrorOf([&] { made.GetFields().Append("A", adInteger); }),
              adErrObjectInCollection);
}

namespace {

// A table "Clientes" (id key, nombre) on a connection that records every other statement.
struct TableConnection {
    QStringList written;
    bool failUpdates = false;

    ConnectionLink Link() {
        ConnectionLink link;
        link.connection = std::make_shared<FakeConnection>();
        link.run = [this](const QString& text, ResultSink& sink, long) {
            if (!text.startsWith(u"SELECT")) {
                if (failUpdates && text.startsWith(u"UPDATE")) {
                    throw AdoError(adHrCommandFailed, QStringLiteral("conflict"));
                }
                written << text;
                sink.RowsAffected(1);
                return;
            }
            std::vector<ColumnInfo> columns = NumberColumns();
            for (ColumnInfo& c : columns) {
                c.baseTable = QStringLiteral("Clientes");
                c.baseColumn = c.name;
            }
            sink.BeginRowset(columns);
            DeliverRows(sink, 1, 2);
            sink.EndRowset();
        };
        return link;
    }
};

} // namespace

TEST(RecordsetWriteBack, ChangesReachTheTableByKey) {
    TableConnection table;
    const ConnectionLink link = table.Link();
    Recordset rs;
    rs.Open("SELECT id, nombre FROM Clientes", &link, adOpenKeyset, adLockOptimistic);
    rs.Update(Variant("nombre"), Variant("O'Brien"));
    rs.AddNew(Names({"id", "nombre"}), Values({Variant(std::int32_t(3)), Variant("Tres")}));
    rs.AddNew();
    rs.GetFields().Item("id").SetValue(Variant(std::int32_t(4)));
    rs.Update();
    rs.MoveFirst();
    rs.MoveNext();
    rs.Delete();
    EXPECT_EQ(table.written, (QStringList{"UPDATE Clientes SET nombre = 'O''Brien' WHERE id = 1",
                                          "INSERT INTO Clientes (id, nombre) VALUES (3, 'Tres')",
                                          "INSERT INTO Clientes (id) VALUES (4)",
                                          "DELETE FROM Clientes WHERE id = 2"}));
    EXPECT_EQ(Codes(rs, "id"), (std::vector<int>{1, 3, 4}));

    table.failUpdates = true;
    rs.MoveFirst();
    rs.GetFields().Item("nombre").SetValue(Variant("Otro"));
    EXPECT_EQ(AdoErrorOf([&] { rs.Update(); }), adHrCommandFailed);
    rs.CancelUpdate();
    EXPECT_EQ(rs.GetFields().Item("nombre").Value().ToString(), "O'Brien");
}

TEST(RecordsetWriteBack, BatchLocksAndDetachedRecordsetsWriteNothing) {
    TableConnection table;
    const ConnectionLink link = table.Link();
    Recordset batch;
    batch.Open("SELECT id, nombre FROM Clientes", &link, adOpenStatic, adLockBatchOptimistic);
    batch.Update(Variant("nombre"), Variant("x"));
    Recordset detached;
    detached.Open("SELECT id, nombre FROM Clientes", &link, adOpenStatic, adLockOptimistic);
    detached.DetachConnection();
    detached.Delete();
    EXPECT_TRUE(table.written.isEmpty());
    EXPECT_EQ(batch.GetFields().Item("nombre").Value().ToString(), "x");
}
