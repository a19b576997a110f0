// `zolmar mdb-import` on a small Access (Jet 4) file (data/clientes.mdb, written by
// data/make_jet_sample.py): the Jet provider refuses the file until it is converted, then opens
// it with every table, column type, row, index and key in place, the original kept beside it.

#include "MdbImportCommand.h"
#include "QtPrinters.h"
#include "ZolmarProgram.h"
#include "connection/cConexion.h"
#include "support/MessageRecorder.h"
#include "support/TemporaryFolder.h"

#include <QFile>
#include <cstdio>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace zlx {
namespace {

using Rows = std::vector<std::vector<Variant>>;

QByteArray FileBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// What a run of the command printed on its two streams.
struct ImportRun {
    int exitCode = -1;
    QString out, err;
};

QString StreamText(std::FILE* stream) {
    std::rewind(stream);
    QByteArray text;
    char buffer[4096];
    while (const std::size_t n = std::fread(buffer, 1, sizeof buffer, stream))
        text.append(buffer, static_cast<qsizetype>(n));
    std::fclose(stream);
    return QString::fromUtf8(text);
}

ImportRun Import(const QString& path, bool terminal = false) {
    std::FILE* out = std::tmpfile();
    std::FILE* err = std::tmpfile();
    ImportRun run;
    run.exitCode = RunMdbImportCommand({path}, out, err, terminal);
    run.out = StreamText(out);
    run.err = StreamText(err);
    return run;
}

// The names and SQL of the SQLite file's indexes, as the file itself lists them.
QStringList IndexesOf(const QString& path) {
    sqlite3* db = nullptr;
    sqlite3_stmt* statement = nullptr;
    QStringList indexes;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr) ==
            SQLITE_OK &&
        sqlite3_prepare_v2(db,
                           "SELECT sql FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL "
                           "ORDER BY name",
                           -1, &statement, nullptr) == SQLITE_OK)
        while (sqlite3_step(statement) == SQLITE_ROW)
            indexes << QString::fromUtf8(
                reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return indexes;
}

class MdbImport : public ::testing::Test {
protected:
    void SetUp() override {
        m_file = m_dir.filePath(QStringLiteral("clientes.mdb"));
        ASSERT_TRUE(QFile::copy(QStringLiteral(ZLX_MDB_SAMPLE), m_file));
        m_original = FileBytes(m_file);
    }

    Rows Select(cConexion& cn, const QString& sql) {
        const Variant result = cn.Execute(sql, zlxExecuteReturn_Array);
        EXPECT_EQ(cn.GetLastError(), 0) << sql.toStdString();
        Rows rows;
        const VariantArrayPtr array = result.ToArray();
        if (!array) return rows;
        for (std::int32_t r = array->LBound(2); r <= array->UBound(2); ++r) {
            rows.emplace_back();
            for (std::int32_t c = array->LBound(1); c <= array->UBound(1); ++c)
                rows.back().push_back(array->At(c, r));
        }
        return rows;
    }

    test::TemporaryFolder m_dir;
    test::MessageRecorder m_messages;
    QString m_file;
    QByteArray m_original;
};

TEST_F(MdbImport, TheJetProviderRefusesAnAccessFileNamingTheImportUntilItIsConverted) {
    cConexion refused;
    EXPECT_FALSE(refused.Init(zlxDataProvider_JET40, m_file));
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_TRUE(m_messages.Last().text.contains(
        "'" + m_file + "' es un fichero de Access (Jet); conviértalo con: zolmar mdb-import " +
        m_file))
        << m_messages.Last().text.toStdString();
    EXPECT_EQ(FileBytes(m_file), m_original); // looked at, never touched
    m_messages.Clear();

    // Access 2007's files are refused in the same words.
    const QString accdb = m_dir.filePath(QStringLiteral("nuevo.accdb"));
    QFile file(accdb);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("\0\1\0\0Standard ACE DB\0", 20) + QByteArray(4076, '\0'));
    file.close();
    EXPECT_FALSE(refused.Init(zlxDataProvider_JET40, accdb));
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_TRUE(m_messages.Last().text.contains("conviértalo con: zolmar mdb-import " + accdb));
    m_messages.Clear();

    ASSERT_EQ(Import(m_file).exitCode, 0);
    cConexion cn;
    ASSERT_TRUE(cn.Init(zlxDataProvider_JET40, m_file));
    EXPECT_EQ(Select(cn, "SELECT COUNT(*) FROM Clientes")[0][0].ToLong(), 3);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(MdbImport, EveryColumnTypeComesBackAsTheJetProviderReadsIt) {
    ASSERT_EQ(Import(m_file).exitCode, 0);
    cConexion cn;
    ASSERT_TRUE(cn.Init(zlxDataProvider_JET40, m_file));
    const Rows rows = Select(cn, "SELECT Id, Nombre, Saldo, Alta, Activo, Notas, Puntos, Nivel, "
                                 "Codigo, Ratio FROM Clientes ORDER BY Id");
    ASSERT_EQ(rows.size(), 3u);
    const std::vector<Variant>& first = rows[0];
    EXPECT_EQ(first[0].ToLong(), 1);
    EXPECT_EQ(first[1].ToString(), "Peña Álvarez");
    EXPECT_EQ(first[2].VarType(), vbCurrency);
    EXPECT_EQ(first[2].ToCurrency().scaled, 12507500);
    EXPECT_EQ(first[3].VarType(), vbDate);
    EXPECT_EQ(first[3].ToDate(), MakeDate(2021, 3, 14, 9, 30, 0));
    EXPECT_EQ(first[4].VarType(), vbBoolean);
    EXPECT_TRUE(first[4].ToBool());
    EXPECT_EQ(first[5].ToString(), "Cliente preferente");
    EXPECT_DOUBLE_EQ(first[6].ToDouble(), 3.5);
    EXPECT_EQ(first[7].ToLong(), 2);
    EXPECT_EQ(first[8].ToLong(), 101);
    EXPECT_DOUBLE_EQ(first[9].ToDouble(), 0.25);

    const std::vector<Variant>& second = rows[1];
    EXPECT_EQ(second[1].ToString(), "Zoë Martín");
    EXPECT_EQ(second[2].ToCurrency().scaled, -405000);
    EXPECT_EQ(second[3].ToDate(), MakeDate(1999, 12, 31));
    EXPECT_FALSE(second[4].ToBool());
    EXPECT_TRUE(second[5].IsNull());
    EXPECT_EQ(second[8].ToLong(), -7);

    const std::vector<Variant>& third = rows[2];
    EXPECT_TRUE(third[3].IsNull());
    EXPECT_TRUE(third[6].IsNull());
    EXPECT_TRUE(third[9].IsNull());
    EXPECT_EQ(third[7].ToLong(), 255);
    EXPECT_EQ(third[8].ToLong(), 32767);

    const Rows orders = Select(cn, "SELECT Numero, Cliente, Importe, Fecha FROM Pedidos "
                                   "ORDER BY Numero");
    ASSERT_EQ(orders.size(), 3u);
    EXPECT_EQ(orders[0][0].ToLong(), 1001);
    EXPECT_DOUBLE_EQ(orders[0][2].ToDouble(), 99.95);
    EXPECT_EQ(orders[0][3].ToDate(), MakeDate(2024, 2, 29));
    EXPECT_EQ(orders[2][3].ToDate(), MakeDate(2024, 3, 2, 18, 45, 10));
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(MdbImport, KeysAndIndexesKeepWorking) {
    ASSERT_EQ(Import(m_file).exitCode, 0);
    EXPECT_EQ(IndexesOf(m_file),
              QStringList{R"(CREATE INDEX "Pedidos_Cliente" ON "Pedidos" ("Cliente"))"});
    cConexion cn;
    ASSERT_TRUE(cn.Init(zlxDataProvider_JET40, m_file));
    // The autonumber key goes on after the highest imported number.
    cn.Execute("INSERT INTO Clientes (Nombre) VALUES ('Nueva')");
    EXPECT_EQ(cn.Execute("SELECT Id FROM Clientes WHERE Nombre = 'Nueva'", zlxExecuteReturn_Value)
                  .ToLong(),
              4);
    // A repeated order number breaks the primary key; a repeated customer does not.
    cn.Execute("INSERT INTO Pedidos (Numero, Cliente) VALUES (1004, 1)");
    EXPECT_EQ(cn.GetLastError(), 0);
    {
        test::MessageRecorder quiet;
        cn.Execute("INSERT INTO Pedidos (Numero, Cliente) VALUES (1001, 2)");
        EXPECT_NE(cn.GetLastError(), 0);
    }
    EXPECT_EQ(cn.Execute("SELECT COUNT(*) FROM Pedidos WHERE Cliente = 1", zlxExecuteReturn_Value)
                  .ToLong(),
              3);
}

TEST_F(MdbImport, TheOriginalIsKeptAndNoEarlierCopyIsOverwritten) {
    const ImportRun first = Import(m_file);
    ASSERT_EQ(first.exitCode, 0) << first.err.toStdString();
    EXPECT_EQ(FileBytes(m_file + ".jet"), m_original);
    EXPECT_FALSE(QFile::exists(m_file + ".importing"));
    EXPECT_EQ(first.out, m_file +
                             " converted: 2 tables, 6 rows, 3 indexes (2 primary keys); the "
                             "original is kept as " +
                             m_file +
                             ".jet\n"
                             "  Clientes: 10 columns, 3 rows, indexes: PrimaryKey "
                             "(primary key)\n"
                             "  Pedidos: 4 columns, 3 rows, indexes: PrimaryKey "
                             "(primary key), Cliente\n");
    EXPECT_EQ(first.err, "Clientes: 3 rows\nPedidos: 3 rows\n");

    // An already converted file is left as it is.
    const QByteArray converted = FileBytes(m_file);
    const ImportRun again = Import(m_file);
    EXPECT_EQ(again.exitCode, 1);
    EXPECT_EQ(again.err, "zolmar mdb-import: " + m_file +
                             " is already a Jet provider database; there is nothing to convert\n");
    EXPECT_EQ(FileBytes(m_file), converted);

    // The Access file put back and converted once more: its copy takes the next free name.
    ASSERT_TRUE(QFile::remove(m_file));
    ASSERT_TRUE(QFile::copy(QStringLiteral(ZLX_MDB_SAMPLE), m_file));
    const ImportRun second = Import(m_file, true);
    ASSERT_EQ(second.exitCode, 0) << second.err.toStdString();
    EXPECT_TRUE(second.out.contains("the original is kept as " + m_file + ".1.jet\n"));
    EXPECT_EQ(FileBytes(m_file + ".jet"), m_original);
    EXPECT_EQ(FileBytes(m_file + ".1.jet"), m_original);
    // On a terminal the progress is a bar redrawn in place, ending full.
    EXPECT_TRUE(second.err.startsWith("\r[")) << second.err.toStdString();
    EXPECT_TRUE(
        second.err.endsWith("[##############################] 100%  Pedidos: 3 rows\033[K\n"))
        << second.err.toStdString();
}

TEST_F(MdbImport, AFileThatIsNotAnAccessDatabaseIsLeftAlone) {
    const QString other = m_dir.filePath(QStringLiteral("notas.mdb"));
    QFile file(other);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(8192, 'x'));
    file.close();
    const ImportRun run = Import(other);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.err, "zolmar mdb-import: not an Access database that can be read\n");
    EXPECT_EQ(FileBytes(other), QByteArray(8192, 'x'));
    EXPECT_FALSE(QFile::exists(other + ".jet"));
    EXPECT_FALSE(QFile::exists(other + ".importing"));

    EXPECT_EQ(Import(m_dir.filePath(QStringLiteral("falta.mdb"))).exitCode, 1);
    std::FILE* sink = std::tmpfile();
    EXPECT_EQ(RunMdbImportCommand({}, sink, sink, false), 2);
    EXPECT_EQ(StreamText(sink), "usage: zolmar mdb-import FILE\n");
}

TEST_F(MdbImport, TheProgramConvertsFromTheCommandLine) {
    const test::ProgramRun run = test::Zolmar({"mdb-import", m_file});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_TRUE(run.out.startsWith((m_file + " converted: 2 tables, 6 rows").toUtf8()));
    EXPECT_EQ(FileBytes(m_file + ".jet"), m_original);
}

} // namespace
} // namespace zlx
