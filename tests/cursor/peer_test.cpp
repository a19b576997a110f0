// One process walks and refreshes while another edits and deletes the records it walks.

#include "CursorTest.h"
#include "QtPrinters.h"

#include <QProcess>

using namespace zlx;
using namespace zlx::test;

namespace {

class CursorBesideAnotherProcess : public CursorTest {
protected:
    void TearDown() override {
        if (m_peer.state() != QProcess::NotRunning) {
            m_peer.closeWriteChannel();
            m_peer.waitForFinished(10000);
        }
        CursorTest::TearDown();
    }
    // Sends one command to the other process and waits for its answer.
    QByteArray Peer(const QByteArray& command) {
        m_peer.write(command + '\n');
        m_peer.waitForBytesWritten();
        while (!m_peer.canReadLine())
            if (!m_peer.waitForReadyRead(30000)) return "timeout";
        return m_peer.readLine().trimmed();
    }
    QProcess m_peer;
};

TEST_P(CursorBesideAnotherProcess, WalksPastChangesAndDeletions) {
    for (int id = 1; id <= 10; ++id)
        Add(QStringLiteral("n%1").arg(id), "x", id / 3);
    m_peer.start(QStringLiteral(CURSOR_PEER_BIN), {Server(), m_database});
    ASSERT_TRUE(m_peer.waitForReadyRead(30000)) << m_peer.readAllStandardError().toStdString();
    ASSERT_EQ(m_peer.readLine().trimmed(), "ready");

    ASSERT_EQ(Open("grupo"), 0);
    ASSERT_EQ(m_ficha->MoveFirst(), 1);
    m_ficha->ResetUpdatedFlag();
    Date seen{0};
    EXPECT_FALSE(m_ficha->RecordUpdated(seen));
    ASSERT_EQ(Peer("update 1"), "ok");
    EXPECT_TRUE(m_ficha->RecordUpdated(seen));
    EXPECT_EQ(m_ficha->Field("nombre"), Variant("peer"));

    ASSERT_EQ(Peer("delete 2"), "ok");
    EXPECT_EQ(m_ficha->MoveNext(), 3);
    ASSERT_EQ(Peer("delete 3"), "ok");
    EXPECT_EQ(m_ficha->Refresh(), -1);
    EXPECT_FALSE(m_ficha->IsValidRecord());
    // Refresh left no record: seek back to where the walk was.
    ASSERT_EQ(m_ficha->SeekID(1), 1);
    EXPECT_EQ(m_ficha->MoveNext(), 4);
    ASSERT_EQ(Peer("delete 5"), "ok");
    EXPECT_EQ(m_ficha->MoveNext(), 6);
    ASSERT_EQ(Peer("delete 6"), "ok");
    EXPECT_EQ(m_ficha->MovePrevious(), 4);
    ASSERT_EQ(Peer("delete 10"), "ok");
    EXPECT_EQ(m_ficha->MoveLast(), 9);
    ASSERT_EQ(Peer("delete 9"), "ok");
    EXPECT_EQ(m_ficha->MoveNext(), 8);
    EXPECT_EQ(Walk(), (std::vector<std::int32_t>{1, 4, 7, 8}));
    EXPECT_TRUE(m_messages.Messages().empty());
}

ZLX_ON_SERVER_ENGINES(CursorBesideAnotherProcess);

} // namespace
