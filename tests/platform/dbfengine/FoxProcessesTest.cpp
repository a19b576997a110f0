// Processes sharing a FoxPro folder: inserting into one table at once, and one killed while it
// rewrites a table.

#include "FoxFolder.h"
#include "QtPrinters.h"
#include "platform/dbfformat/DbfNewTable.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QThread>
#include <csignal>
#include <gtest/gtest.h>

namespace zlx::dbfengine::testing {
namespace {

QProcess* StartPeer(const QStringList& arguments, QObject* parent) {
    auto* peer = new QProcess(parent);
    peer->start(QStringLiteral(ZLX_FOX_PEER), arguments);
    return peer;
}

// A table (n N(8), texto C(40)) of `rows` records n = 1.., texto "fila n", written at once.
void WriteLargeTable(const QString& path, int rows) {
    QByteArray bytes =
        DbfNewTable::Header({{"N", 'N', 8, 0}, {"TEXTO", 'C', 40, 0}}, QDate(2024, 1, 1));
    bytes[4] = static_cast<char>(rows & 0xff);
    bytes[5] = static_cast<char>((rows >> 8) & 0xff);
    bytes[6] = static_cast<char>((rows >> 16) & 0xff);
    for (int n = 1; n <= rows; ++n)
        bytes += ' ' + QByteArray::number(n).rightJustified(8, ' ') +
                 ("fila " + QByteArray::number(n)).leftJustified(40, ' ');
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes + '\x1A');
}

TEST(FoxProcessesTest, TwoProcessesInsertingAtOnceLoseNothing) {
    FoxFolder fox;
    fox.Run("CREATE TABLE diario (tag C(4), n N(6))");
    QObject owner;
    constexpr int kEach = 400;
    QList<QProcess*> peers;
    for (const char* tag : {"uno", "dos"})
        peers << StartPeer({"insert", fox.Folder(), "diario", QString::number(kEach), tag}, &owner);
    // This process inserts too, meanwhile.
    for (int i = 1; i <= 100; ++i)
        fox.Run(QStringLiteral("INSERT INTO diario (tag, n) VALUES ('tres', %1)").arg(i));
    for (QProcess* peer : peers) {
        ASSERT_TRUE(peer->waitForFinished(120000));
        EXPECT_EQ(peer->exitCode(), 0) << peer->readAllStandardError().toStdString();
    }
    EXPECT_EQ(fox.Text("SELECT tag, COUNT(*), COUNT(DISTINCT n), SUM(n) FROM diario GROUP BY tag "
                       "ORDER BY tag"),
              "dos|400|400|80200;tres|100|100|5050;uno|400|400|80200");
    // No record past the count, none missing: the file ends right after the last one.
    const QFileInfo file(fox.Path("diario.dbf"));
    const int headerLength = 32 + 2 * 32 + 1;
    EXPECT_EQ(file.size(), headerLength + 900 * (1 + 4 + 6) + 1);
}

TEST(FoxProcessesTest, AKilledRewriteLeavesTheTableWhole) {
    FoxFolder fox;
    WriteLargeTable(fox.Path("grande.dbf"), 300000);
    QObject owner;
    QProcess* peer =
        StartPeer({"alter", fox.Folder(), "ALTER TABLE grande ADD otra C(60)"}, &owner);
    ASSERT_TRUE(peer->waitForStarted());
    // Killed as soon as its new file exists, half written.
    bool rewriting = false;
    for (int wait = 0; wait < 60000 && !rewriting && peer->state() == QProcess::Running; ++wait) {
        rewriting = !QDir(fox.Folder()).entryList({"*.tmp"}, QDir::Files | QDir::Hidden).isEmpty();
        if (!rewriting) QThread::usleep(500);
    }
    ASSERT_TRUE(rewriting) << "the rewrite was never seen under way";
    ::kill(static_cast<pid_t>(peer->processId()), SIGKILL);
    ASSERT_TRUE(peer->waitForFinished(10000));
    EXPECT_EQ(peer->exitStatus(), QProcess::CrashExit);

    EXPECT_EQ(fox.Text("SELECT COUNT(*), SUM(n), MAX(texto) FROM grande"),
              "300000|45000150000|fila 99999");
    EXPECT_EQ(fox.Rowset("SELECT * FROM grande WHERE 1 = 0").columns.size(), 2u);
    // The table is free again: the same change made here succeeds.
    fox.Run("ALTER TABLE grande ADD otra C(60)");
    EXPECT_EQ(fox.Text("SELECT n, texto, otra FROM grande WHERE n = 300000"),
              "300000|fila 300000|");
}

} // namespace
} // namespace zlx::dbfengine::testing
