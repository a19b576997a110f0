#include "QtPrinters.h"
#include "support/ServerDatabaseTest.h"

#include <QObject>
#include <QVariant>
#include <memory>

using namespace zlx;

namespace {

// What a user could type into a search field or a caller pass as a value, meant to end the
// condition and run a statement of its own.
const char* const kHostileTexts[] = {
    "1)) ; DELETE FROM t WHERE ((1=1",
    "1, 2)) ; DELETE FROM t WHERE ((1=1",
    "x' ; DELETE FROM t ; --",
    "'' ; DELETE FROM t ; --",
    "*' OR 1=1 ; DELETE FROM t ; --",
    "**a' ; DELETE FROM t ; --",
    "3-' ; DELETE FROM t ; --",
    "0x1 ; DELETE FROM t",
    "1 ; DROP TABLE t",
};

class HostileInput : public test::ServerDatabaseTest {
protected:
    HostileInput() : ServerDatabaseTest("hostile") {}
    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        Run("CREATE TABLE t (ZolmarID INT NOT NULL IDENTITY(1,1), codigo INT, nombre "
            "VARCHAR(60))");
        for (int i = 1; i <= 5; ++i)
            Run(QStringLiteral("INSERT INTO t (codigo, nombre) VALUES (%1, 'n%1')").arg(i));
    }
    // The query an application builds from the pieces, run as it would run it.
    void Query(const QString& pieces) {
        m_cn->Execute("SELECT count(*) FROM t C WHERE 1=1" + pieces, zlxExecuteReturn_Value,
                      Variant(0), true);
    }
    void ExpectTableIntact(const QString& input) {
        EXPECT_EQ(
            m_cn->Execute("SELECT count(*) FROM t", zlxExecuteReturn_Value, Variant(-1)).ToLong(),
            5)
            << input.toStdString();
        EXPECT_EQ(m_cn->Execute("SELECT sum(codigo) FROM t", zlxExecuteReturn_Value, Variant(-1))
                      .ToLong(),
                  15)
            << input.toStdString();
    }
};

} // namespace

TEST_P(HostileInput, TypedTextNeverRunsAsAStatement) {
    for (const char* typed : kHostileTexts) {
        const QString text = QString::fromUtf8(typed);
        QObject control;
        control.setProperty("Alias", "C");
        for (int mode = zlxWhere_Like; mode <= zlxWhere_ListaPalabras; ++mode) {
            control.setProperty("Campo", mode == zlxWhere_Like || mode == zlxWhere_ListaPalabras
                                             ? "nombre"
                                             : "codigo");
            control.setProperty("Text", text);
            const QString fromControl = m_cn->Str2Where(&control, mode).ToString();
            Query(fromControl);
            Query(m_cn->Str2Where(nullptr, mode, Variant(text), "C.nombre").ToString());
            // The piece swapped into a filter that already holds one.
            Query(m_cn->ReplaceWhere(" WHERE C.codigo > 0 AND C.codigo < 9",
                                     Variant(" AND C.codigo < 9"), Variant(fromControl))
                      .mid(7));
            ExpectTableIntact(text + " / mode " + QString::number(mode));
        }
        QString filter;
        m_cn->FiltroPorPalabras("C.nombre", "**" + text, filter);
        Query(" AND" + filter);

        std::vector<std::unique_ptr<QObject>> boxes;
        std::vector<QObject*> controls;
        for (int i = 0; i < 3; ++i) {
            boxes.push_back(std::make_unique<QObject>());
            boxes.back()->setProperty("Value", 1);
            controls.push_back(boxes.back().get());
        }
        const Variant values = Variant::Array({Variant(1), Variant(text), Variant(4)});
        for (int mode : {zlxChk2Where_Enumerados, zlxChk2Where_Alguno, zlxChk2Where_Todos})
            Query(m_cn->CheckBoxes2Where(controls, "C.codigo", mode, values));
        ExpectTableIntact(text);
    }
}

TEST_P(HostileInput, CodeListsKeepNumbersAndFindTheRows) {
    QObject control;
    control.setProperty("Alias", "C");
    control.setProperty("Campo", "codigo");
    control.setProperty("Text", "1, 3-4, 5x, 2");
    const QString piece = m_cn->Str2Where(&control, zlxWhere_Codigos).ToString();
    EXPECT_EQ(piece, " AND ((C.codigo BETWEEN 3 AND 4) OR C.codigo IN (1, '5x', 2))");
    control.setProperty("Text", "1, 3-4, 2");
    EXPECT_EQ(m_cn->Execute("SELECT count(*) FROM t C WHERE 1=1" +
                                m_cn->Str2Where(&control, zlxWhere_Codigos).ToString(),
                            zlxExecuteReturn_Value)
                  .ToLong(),
              4);
    EXPECT_TRUE(m_messages.Messages().empty());
}

ZLX_ON_SERVER_ENGINES(HostileInput);
