#include "QtPrinters.h"
#include "connection/cConexion.h"
#include "platform/companion/RecordingMsgPresenter.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace zlx;

namespace {

// A connection to a single-file database: a provider other than SQL Server.
class JetConexion : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_cn.Init(zlxDataProvider_JET40, m_dir.filePath("datos.db")));
        m_cn.Execute("CREATE TABLE t (ZolmarID INTEGER PRIMARY KEY, nombre TEXT)",
                     zlxExecuteReturn_Nothing_NoRowCount);
        ASSERT_EQ(m_cn.GetLastError(), 0);
    }
    test::TemporaryFolder m_dir;
    RecordingMsgPresenter m_messages;
    ScopedMsgPresenter m_scope{m_messages};
    cConexion m_cn;
};

} // namespace

TEST_F(JetConexion, ANullThatTheProviderCannotWriteIsReportedByUpdate) {
    m_cn.Execute("INSERT INTO t (ZolmarID, nombre) VALUES (1, 'ana')");
    EXPECT_EQ(m_cn.Update("t", 1, Variant("nombre"), Variant::Null()), -1);
    ASSERT_EQ(m_messages.Messages().size(), 2u);
    EXPECT_TRUE(
        m_messages.Messages()[0].text.contains("El método 'CadInsert' no admite valores nulos."));
    EXPECT_TRUE(m_messages.Last().text.endsWith("Error en el método 'Update'.</B>"));
    EXPECT_EQ(m_cn.Execute("SELECT nombre FROM t", zlxExecuteReturn_Value).ToString(), "ana");
}

TEST_F(JetConexion, TableResultsNeedTheTableLayer) {
    // This program has no table layer linked in: the table kinds answer their default.
    EXPECT_EQ(m_cn.Execute("SELECT 1 AS uno", zlxExecuteReturn_cDatos_Copy, Variant(-3)).ToLong(),
              -3);
    EXPECT_EQ(m_cn.GetStructureFromQuery("t"), nullptr);
    Variant first(7);
    EXPECT_FALSE(m_cn.SQLSelect2Vars("SELECT 1", first));
    EXPECT_EQ(first.ToLong(), 0);
}

namespace {

// A translation service that marks every text it translates.
class MarkingTranslator : public MsgTranslator {
public:
    QString Msg(const QString& cText, const QString&) override { return "[" + cText + "]"; }
    void SetMsgBoxStrings(cMsgBox&) override {}
};

} // namespace

TEST(cConexion, TheTranslatorIsKeptForAsLongAsTheConnectionUsesIt) {
    RecordingMsgPresenter messages;
    ScopedMsgPresenter scope(messages);
    cConexion cn;
    std::weak_ptr<MsgTranslator> watched;
    {
        auto translator = std::make_shared<MarkingTranslator>();
        watched = translator;
        cn.SetIdioma(translator);
    }
    EXPECT_FALSE(watched.expired());
    EXPECT_EQ(cn.Insert("t", Variant("a"), Variant(1)), -1);
    ASSERT_EQ(messages.Messages().size(), 1u);
    EXPECT_EQ(messages.Last().title, "[Se ha detectado un error]");
    cn.SetIdioma(nullptr);
    EXPECT_TRUE(watched.expired());
}

TEST(cConexion, EveryMethodBeforeInitAnswersItsFailureValue) {
    RecordingMsgPresenter messages;
    ScopedMsgPresenter scope(messages);
    cConexion cn;
    const Variant fields = Variant::Array({Variant("a")});
    EXPECT_EQ(cn.Execute("SELECT 1", zlxExecuteReturn_Value, Variant(-9)).ToLong(), -9);
    EXPECT_EQ(cn.GetLastError(), zlxConexionError_ExecuteFailed);
    EXPECT_EQ(cn.Execute("SELECT 1", zlxExecuteReturn_cDatos_Copy, Variant(-9), true).ToLong(), -9);
    ado::RecordsetPtr rs;
    EXPECT_EQ(cn.Open_RecordSet(rs, "t", 3, 2, 0, 1, "", true), -1);
    EXPECT_EQ(cn.Insert("t", fields, Variant::Array({Variant(1)})), -1);
    EXPECT_EQ(cn.Update("t", 1, fields, Variant::Array({Variant(1)})), -1);
    EXPECT_EQ(cn.RecCount("t"), -1);
    EXPECT_EQ(cn.ValorMasAlto("t", "a"), 0);
    Variant first(5);
    EXPECT_FALSE(cn.SQLSelect2Vars("SELECT 1", first));
    EXPECT_EQ(cn.GetStructureFromQuery("t"), nullptr);
    EXPECT_FALSE(cn.ExecuteAsync("SELECT 1"));
    cn.CancelAsyncOp();
    cn.CancelAsyncOp(true);
    cn.BeginTrans("a");
    cn.CommitTrans("a", true);
    cn.RollBackTrans("a");
    EXPECT_EQ(cn.InternalTransactionCount(), 0);
    EXPECT_EQ(cn.TransactionCount(), 0);
    EXPECT_TRUE(cn.DebugTransactionInfo().contains("Contador de transacciones de Zolmar=0"));
    EXPECT_EQ(cn.xLock(zlxLockTypeEdit, true, "t", 1, 1), 0);
    EXPECT_EQ(cn.ServerRegRead("HKEY_LOCAL_MACHINE", "a", "b"), nullptr);
    EXPECT_EQ(cn.GetSQLDefaultPathForData(), "");
    EXPECT_FALSE(cn.AddLinkedServer("otro"));
    EXPECT_FALSE(cn.DropLinkedServer("otro"));
    EXPECT_EQ(cn.GetSQLVersion().scaled, 0);
    EXPECT_FALSE(cn.ChkCnBroken());
    EXPECT_EQ(cn.ChkError(), 0);
    EXPECT_FALSE(cn.CheckNativeCode(208));
    EXPECT_EQ(cn.GetSQLErrorMessages(),
              "El servidor SQL no ha retornado ningún mensaje desde la última operación");
    cn.DBName("otra");
    EXPECT_EQ(cn.DBName(), "otra");
    cn.Close_Connection();
    // The failures that show messages name the connection that is missing.
    ASSERT_FALSE(messages.Messages().empty());
    EXPECT_TRUE(messages.Messages()[0].text.contains(
        "The connection cannot be used to perform this operation."));
}

TEST(cConexion, AReplacedMainConnectionBringsItsEvents) {
    cConexion cn;
    std::vector<QString> completed;
    QObject::connect(&cn, &cConexion::ConnectComplete, [&](bool lOK, const QString& cInfo) {
        completed.push_back(QString::number(lOK) + cInfo);
    });
    test::TemporaryFolder dir;
    auto first = std::make_shared<ado::Connection>();
    auto second = std::make_shared<ado::Connection>();
    cn.cn(first);
    cn.cn(second);
    EXPECT_EQ(cn.cn(), second);
    first->Open("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + dir.filePath("a.db"));
    EXPECT_TRUE(completed.empty()); // the replaced connection is no longer heard
    second->Open("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + dir.filePath("b.db"));
    EXPECT_EQ(completed, std::vector<QString>{"1"});
    EXPECT_EQ(cn.Execute("SELECT 2", zlxExecuteReturn_Value).ToLong(), 2);
    cn.cnXLock(first);
    EXPECT_EQ(cn.cnXLock(), first);
}
