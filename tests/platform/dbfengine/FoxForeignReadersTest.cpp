// Tables written by the FoxPro folder engine open in other programs that read DBF files:
// shapelib's dbfdump and GDAL's ogrinfo.

#include "FoxFolder.h"
#include "QtPrinters.h"

#include <QProcess>
#include <gtest/gtest.h>

namespace zlx::dbfengine::testing {
namespace {

QString Output(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        return QStringLiteral("failed: ") + QString::fromUtf8(process.readAllStandardError());
    return QString::fromUtf8(process.readAllStandardOutput());
}

class FoxForeignReadersTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_fox.Run("CREATE TABLE socios (nombre C(10), saldo N(8,2), alta D, activo L)");
        m_fox.Run("INSERT INTO socios VALUES ('Ana', 12.5, {^2024-01-31}, .T.)");
        m_fox.Run("INSERT INTO socios VALUES ('Bea', -3, {^2023-02-28}, .F.)");
        m_fox.Run("INSERT INTO socios VALUES ('Carmen', 7, NULL, .F.)");
        m_fox.Run("UPDATE socios SET saldo = 99.99 WHERE nombre = 'Carmen'");
        m_fox.Run("CREATE TABLE diario (codigo I, momento T, texto M, nombre C(5))");
        m_fox.Run("INSERT INTO diario VALUES (42, {^2024-05-06 07:08:09}, 'largo', 'uno')");
    }
    FoxFolder m_fox;
};

TEST_F(FoxForeignReadersTest, DbfdumpReadsEveryRecord) {
    const QString dump = Output("dbfdump", {"-m", m_fox.Path("socios.dbf")});
    for (const char* expected : {"NOMBRE: Ana", "SALDO:    12.50", "SALDO:    -3.00",
                                 "NOMBRE: Carmen", "SALDO:    99.99", "Record: 2"})
        EXPECT_TRUE(dump.contains(expected)) << expected << "\n" << dump.toStdString();
    EXPECT_FALSE(dump.contains("Record: 3"));
    EXPECT_TRUE(Output("dbfdump", {"-m", m_fox.Path("diario.dbf")}).contains("NOMBRE: uno"));
}

TEST_F(FoxForeignReadersTest, OgrinfoReadsTypesAndAnswersQueries) {
    const QString all = Output("ogrinfo", {"-q", "-al", m_fox.Path("socios.dbf")});
    for (const char* expected :
         {"NOMBRE (String) = Ana", "SALDO (Real) = 12.50", "ALTA (Date) = 2024/01/31",
          "ALTA (Date) = 2023/02/28", "ACTIVO (String) = T", "OGRFeature(socios):2"})
        EXPECT_TRUE(all.contains(expected)) << expected << "\n" << all.toStdString();
    const QString query = Output("ogrinfo", {"-q", m_fox.Path("socios.dbf"), "-sql",
                                             "SELECT nombre FROM socios WHERE saldo > 10 ORDER BY "
                                             "nombre DESC"});
    const qsizetype carmen = query.indexOf("OGRFeature(socios):2\n  nombre (String) = Carmen");
    const qsizetype ana = query.indexOf("OGRFeature(socios):0\n  nombre (String) = Ana");
    EXPECT_TRUE(carmen >= 0 && ana > carmen) << query.toStdString();
    EXPECT_FALSE(query.contains("Bea"));
    EXPECT_TRUE(Output("ogrinfo", {"-q", "-al", m_fox.Path("diario.dbf")})
                    .contains("NOMBRE (String) = uno"));
}

} // namespace
} // namespace zlx::dbfengine::testing
