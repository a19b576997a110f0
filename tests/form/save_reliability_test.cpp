// Saving a record from two workstations at once, each a process of its own (workstation_peer)
// with the record form's logic on the same database: lock conflicts, a vetoed save, a deadlock
// between two saves and a workstation killed in the middle of a save.

#include "QtPrinters.h"
#include "support/ServerDatabaseTest.h"

#include <QProcess>
#include <memory>

using namespace zlx;
using namespace zlx::test;

namespace {

// One workstation process: a command in, its answer out (outcome, then title and text of
// each message shown meanwhile).
class Workstation {
public:
    Workstation(const QString& server, const QString& database, int station) {
        m_process.start(QStringLiteral(WORKSTATION_PEER_BIN),
                        {server, database, QString::number(station)});
        m_pid = m_process.processId();
        m_ready = ReadLine() == "ready";
    }
    ~Workstation() {
        if (m_process.state() == QProcess::NotRunning) return;
        m_process.closeWriteChannel();
        if (!m_process.waitForFinished(10000)) m_process.kill();
        m_process.waitForFinished();
    }
    bool Ready() const { return m_ready; }
    // The process id, also once the process has ended.
    qint64 Pid() const { return m_pid; }

    void Send(const QString& command) {
        m_process.write(command.toUtf8() + '\n');
        m_process.waitForBytesWritten();
    }
    // The next answer, split at its tabs.
    QStringList Answer() { return ReadLine().split(u'\t'); }
    QString Do(const QString& command) {
        Send(command);
        m_last = Answer();
        return m_last.first();
    }
    // The messages of the last answer: title and text pairs.
    QStringList Messages() const { return m_last.mid(1); }
    void Kill() {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    QString ReadLine() {
        while (!m_process.canReadLine())
            if (!m_process.waitForReadyRead(60000))
                return "no answer: " + QString::fromUtf8(m_process.readAllStandardError());
        return QString::fromUtf8(m_process.readLine()).chopped(1);
    }

    QProcess m_process;
    qint64 m_pid = 0;
    bool m_ready = false;
    QStringList m_last;
};

const QString kDeadlockTitle = "Se ha detectado un error de interbloqueo";
const QString kDeadlockText = "El servidor está ocupado y la operación no puede realizarse en "
                              "este momento.<BR>Inténtelo nuevamente en unos segundos.";

class SaveReliability : public ServerDatabaseTest {
protected:
    SaveReliability() : ServerDatabaseTest("fiable") {}
    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        Run("CREATE TABLE locks (ZolmarID INT NOT NULL IDENTITY(1,1), tabla VARCHAR(128), "
            "id_zolmar INT, maquina VARCHAR(20), usr_windows VARCHAR(20), usr_zolmar INT, "
            "pid INT, cuando DATETIME, tipo INT, subtipo VARCHAR(20), ClientName VARCHAR(50))");
        Run("CREATE TABLE clientes (ZolmarID INT NOT NULL IDENTITY(1,1), nombre VARCHAR(40), "
            "ciudad VARCHAR(40), Activo INT DEFAULT 0, FechaModificacion DATETIME)");
        Run("INSERT INTO clientes (nombre, ciudad) VALUES ('Ana', 'Soria')");
        Run("INSERT INTO clientes (nombre, ciudad) VALUES ('Luis', 'Lugo')");
    }
    void TearDown() override {
        m_a.reset();
        m_b.reset();
        DropDatabaseFromNewSession();
    }
    // Both workstations up; false (with a failure) when one did not start.
    bool StartBoth() {
        m_a = std::make_unique<Workstation>(Server(), m_database, 1);
        m_b = std::make_unique<Workstation>(Server(), m_database, 2);
        EXPECT_TRUE(m_a->Ready() && m_b->Ready());
        return m_a->Ready() && m_b->Ready();
    }
    QString Stored(int id, const QString& column = "nombre") {
        return m_cn
            ->Execute("SELECT " + column + " FROM clientes WHERE ZolmarID=" + QString::number(id),
                      zlxExecuteReturn_Value, Variant())
            .ToString();
    }
    std::int32_t Locks(const Workstation& station) {
        return m_cn->RecCount("locks", "pid = " + QString::number(station.Pid()));
    }

    std::unique_ptr<Workstation> m_a, m_b;
};

TEST_P(SaveReliability, TheSecondWorkstationCannotEditARecordBeingEdited) {
    if (!StartBoth()) return;
    ASSERT_EQ(m_a->Do("edit 1"), "editing");
    EXPECT_EQ(Locks(*m_a), 1);
    // Asked whether to try again, the second workstation gives up.
    ASSERT_EQ(m_b->Do("answer 2"), "ok");
    EXPECT_EQ(m_b->Do("edit 1"), "refused");
    ASSERT_EQ(m_b->Messages().size(), 2);
    EXPECT_EQ(m_b->Messages()[0], "No se ha conseguido el bloqueo.");
    EXPECT_TRUE(m_b->Messages()[1].startsWith("El puesto '<B>"));
    EXPECT_TRUE(m_b->Messages()[1].contains("..CLIENTES</B>'<BR>"));
    EXPECT_TRUE(m_b->Messages()[1].endsWith("<BR><BR>¿Desea reintentar la operación?"));
    EXPECT_EQ(Locks(*m_b), 0);

    ASSERT_EQ(m_a->Do("set nombre Ana Belén"), "ok");
    EXPECT_EQ(m_a->Do("save"), "saved");
    EXPECT_EQ(Stored(1), "Ana Belén");
    EXPECT_EQ(Locks(*m_a), 0);
    // Released, the record can be edited from the other workstation.
    ASSERT_EQ(m_b->Do("edit 1"), "editing");
    ASSERT_EQ(m_b->Do("set ciudad Burgos"), "ok");
    EXPECT_EQ(m_b->Do("save"), "saved");
    EXPECT_EQ(Stored(1, "ciudad"), "Burgos");
    EXPECT_EQ(Stored(1), "Ana Belén");
}

TEST_P(SaveReliability, ASavingHandlerThatCancelsWritesNothing) {
    if (!StartBoth()) return;
    // An edit: nothing written, the form stays in edit with its lock and saves when asked
    // again.
    ASSERT_EQ(m_a->Do("edit 1"), "editing");
    ASSERT_EQ(m_a->Do("set nombre Eva"), "ok");
    EXPECT_EQ(m_a->Do("save-cancel"), "failed");
    EXPECT_EQ(Stored(1), "Ana");
    EXPECT_EQ(Locks(*m_a), 1);
    ASSERT_EQ(m_b->Do("answer 2"), "ok");
    EXPECT_EQ(m_b->Do("edit 1"), "refused");
    EXPECT_EQ(m_a->Do("save"), "saved");
    EXPECT_EQ(Stored(1), "Eva");
    EXPECT_EQ(Locks(*m_a), 0);
    // A new record: no record and no lock left behind.
    ASSERT_EQ(m_b->Do("new"), "new");
    ASSERT_EQ(m_b->Do("set nombre Nuria"), "ok");
    EXPECT_EQ(m_b->Do("save-cancel"), "failed");
    EXPECT_EQ(m_cn->RecCount("clientes"), 2);
    EXPECT_EQ(Locks(*m_b), 0);
    EXPECT_EQ(m_b->Do("save"), "saved");
    EXPECT_EQ(m_cn->RecCount("clientes", "nombre = 'Nuria'"), 1);
    EXPECT_EQ(Locks(*m_b), 0);
}

TEST_P(SaveReliability, OfTwoCrossedSavesOneSucceedsAndTheOtherCanRetry) {
    if (!StartBoth()) return;
    ASSERT_EQ(m_a->Do("edit 1"), "editing");
    ASSERT_EQ(m_b->Do("edit 2"), "editing");
    ASSERT_EQ(m_a->Do("set nombre Ana A"), "ok");
    ASSERT_EQ(m_b->Do("set nombre Luis B"), "ok");
    // Each save writes its own record, then the other's.
    ASSERT_EQ(m_a->Do("save-cross 2"), "saving");
    std::vector<QStringList> outcomes;
    m_b->Send("save-cross 1");
    const QStringList b = m_b->Answer(); // a server with one writer refuses b at once
    m_a->Send("go");
    if (b.first() == "saving") {
        m_b->Send("go");
        outcomes.push_back(m_b->Answer());
    } else {
        outcomes.push_back(b);
    }
    outcomes.push_back(m_a->Answer());
    const bool aWon = outcomes[1].first() == "saved";
    const QStringList& won = aWon ? outcomes[1] : outcomes[0];
    const QStringList& lost = aWon ? outcomes[0] : outcomes[1];
    EXPECT_EQ(won.first(), "saved");
    EXPECT_EQ(lost.first(), "failed");
    ASSERT_GE(lost.size(), 3);
    if (Postgres()) {
        EXPECT_EQ(lost[lost.size() - 2], kDeadlockTitle);
        EXPECT_EQ(lost.last(), kDeadlockText);
    } else {
        // SQLite has one writer, so two saves make no cycle: the second waits for the first
        // until its busy time-out and fails in writing its controls.
        EXPECT_EQ(lost[lost.size() - 2], "Información");
        // The busy engine's error reads as SQL Server's deadlock (1205), its process id varies.
        EXPECT_TRUE(lost.last().startsWith(
            "Error en Control2Field: -2147217900-> La transacción (Id. de proceso "))
            << lost.last().toStdString();
    }
    Workstation& winner = aWon ? *m_a : *m_b;
    Workstation& loser = aWon ? *m_b : *m_a;
    EXPECT_EQ(Locks(winner), 0);
    EXPECT_EQ(Locks(loser), 1); // still editing its record
    // The winner's record and the cross write stand; the loser's record is untouched.
    EXPECT_EQ(Stored(aWon ? 1 : 2), aWon ? "Ana A" : "Luis B");
    EXPECT_EQ(Stored(aWon ? 2 : 1, "ciudad"), "cruce");
    EXPECT_EQ(Stored(aWon ? 2 : 1), aWon ? "Luis" : "Ana");
    // Tried again, the loser saves.
    EXPECT_EQ(loser.Do("save"), "saved");
    EXPECT_EQ(Stored(1), "Ana A");
    EXPECT_EQ(Stored(2), "Luis B");
    EXPECT_EQ(Locks(loser), 0);
}

TEST_P(SaveReliability, AWorkstationKilledWhileSavingLeavesTheRecordWhole) {
    if (!StartBoth()) return;
    ASSERT_EQ(m_a->Do("edit 1"), "editing");
    ASSERT_EQ(m_a->Do("set nombre Ana Killed"), "ok");
    ASSERT_EQ(m_a->Do("set ciudad Nowhere"), "ok");
    ASSERT_EQ(m_a->Do("save-hang"), "saving"); // inside the save's transaction
    m_a->Kill();
    EXPECT_EQ(Stored(1), "Ana");
    EXPECT_EQ(Stored(1, "ciudad"), "Soria");
    // Its lock is left behind until another workstation meets it and finds it stale.
    EXPECT_EQ(Locks(*m_a), 1);
    ASSERT_EQ(m_b->Do("edit 1"), "editing");
    EXPECT_EQ(Locks(*m_a), 0);
    ASSERT_EQ(m_b->Do("set nombre Ana María"), "ok");
    EXPECT_EQ(m_b->Do("save"), "saved");
    EXPECT_EQ(Stored(1), "Ana María");
    EXPECT_EQ(Stored(1, "ciudad"), "Soria");
}

TEST_P(SaveReliability, ANewRecordOfAKilledWorkstationIsNotThere) {
    if (!StartBoth()) return;
    ASSERT_EQ(m_a->Do("new"), "new");
    ASSERT_EQ(m_a->Do("set nombre Nadie"), "ok");
    ASSERT_EQ(m_a->Do("save-hang"), "saving");
    m_a->Kill();
    EXPECT_EQ(m_cn->RecCount("clientes"), 2);
    EXPECT_EQ(m_cn->RecCount("clientes", "nombre = 'Nadie'"), 0);
    ASSERT_EQ(m_b->Do("new"), "new");
    ASSERT_EQ(m_b->Do("set nombre Pilar"), "ok");
    EXPECT_EQ(m_b->Do("save"), "saved");
    EXPECT_EQ(m_cn->RecCount("clientes"), 3);
    EXPECT_EQ(m_cn->RecCount("clientes", "nombre = 'Pilar' AND ZolmarID = 3"), 1);
    EXPECT_EQ(Locks(*m_a), 0);
    EXPECT_EQ(Locks(*m_b), 0);
}

TEST_P(SaveReliability, OnlyCompletedEditsOfAWorkstationWithTheLogOnAreLogged) {
    Run("CREATE TABLE LogFichas (ZolmarID INT NOT NULL IDENTITY(1,1), Fecha DATETIME, "
        "ID_Usuario INT, ID_Puesto INT, Tabla VARCHAR(128), ID_Ficha INT, TipoOp SMALLINT, "
        "Valores VARCHAR(8000))");
    if (!StartBoth()) return;
    ASSERT_EQ(m_a->Do("log on"), "ok");
    ASSERT_EQ(m_a->Do("edit 1"), "editing");
    ASSERT_EQ(m_a->Do("set nombre Ana A"), "ok");
    EXPECT_EQ(m_a->Do("save"), "saved");
    ASSERT_EQ(m_cn->RecCount("LogFichas"), 1);
    const Variant logged = m_cn->Execute(
        "SELECT ID_Usuario, ID_Puesto, Tabla, ID_Ficha, TipoOp, Valores FROM LogFichas",
        zlxExecuteReturn_Array, Variant());
    ASSERT_TRUE(logged.IsArray());
    const VariantArrayPtr row = logged.ToArray();
    EXPECT_EQ(row->At(0, 0).ToLong(), 1);
    EXPECT_EQ(row->At(1, 0).ToLong(), 1);
    EXPECT_EQ(row->At(2, 0).ToString(), "clientes");
    EXPECT_EQ(row->At(3, 0).ToLong(), 1);
    EXPECT_EQ(row->At(4, 0).ToLong(), 0);
    EXPECT_EQ(row->At(5, 0).ToString(),
              QString(QChar(2)) + "*nombre" + QChar(3) + "Ana" + QChar(3) + "Ana A");
    // The other workstation has the log off.
    ASSERT_EQ(m_b->Do("edit 2"), "editing");
    ASSERT_EQ(m_b->Do("set nombre Luis B"), "ok");
    EXPECT_EQ(m_b->Do("save"), "saved");
    // A vetoed save, and a save cut short by the end of its workstation, log nothing.
    ASSERT_EQ(m_a->Do("edit 1"), "editing");
    ASSERT_EQ(m_a->Do("set nombre Ana C"), "ok");
    EXPECT_EQ(m_a->Do("save-cancel"), "failed");
    ASSERT_EQ(m_a->Do("save-hang"), "saving");
    m_a->Kill();
    EXPECT_EQ(m_cn->RecCount("LogFichas"), 1);
    EXPECT_EQ(Stored(1), "Ana A");
}

TEST_P(SaveReliability, AReadOnlyWorkstationNeitherEditsNorCreates) {
    if (!StartBoth()) return;
    ASSERT_EQ(m_a->Do("readonly on"), "ok");
    EXPECT_EQ(m_a->Do("edit 1"), "refused");
    EXPECT_EQ(m_a->Do("new"), "refused");
    EXPECT_TRUE(m_a->Messages().empty());
    EXPECT_EQ(Locks(*m_a), 0);
    // Only that workstation: the other edits the record it could not.
    EXPECT_EQ(m_b->Do("edit 1"), "editing");
    ASSERT_EQ(m_a->Do("readonly off"), "ok");
    ASSERT_EQ(m_a->Do("answer 2"), "ok");
    EXPECT_EQ(m_a->Do("edit 1"), "refused"); // now by the other's lock
    EXPECT_EQ(m_a->Messages().size(), 2);
    EXPECT_EQ(m_a->Do("edit 2"), "editing");
}

ZLX_ON_SERVER_ENGINES(SaveReliability);

} // namespace
