#include "QtPrinters.h"
#include "binding/cBLOB.h"
#include "support/ServerDatabaseTest.h"

#include <QRandomGenerator>

using namespace zlx;
using namespace zlx::test;

namespace {

class BlobStore : public ServerDatabaseTest {
protected:
    BlobStore() : ServerDatabaseTest("blob") {}
    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        m_datos = m_database + "d";
        m_cn->Execute("IF EXISTS (SELECT name FROM sysdatabases WHERE name='" + m_datos +
                      "') DROP DATABASE " + m_datos);
        Run("CREATE DATABASE " + m_datos);
        Run("CREATE TABLE " + m_datos +
            "..BLOBs (ZolmarID INT NOT NULL IDENTITY(1,1), tipo INT DEFAULT 0, nombre "
            "VARCHAR(100), contenido IMAGE)");
        // The store is in another database than the connection's.
        ASSERT_TRUE(m_blob.Init(m_cn, m_datos));
    }
    void TearDown() override {
        m_cn->Execute("DROP DATABASE " + m_datos, 0, Variant(0), true);
        ServerDatabaseTest::TearDown();
    }
    std::int32_t IdOf(const QString& nombre) {
        return m_cn
            ->Execute("SELECT ZolmarID FROM " + m_datos + "..BLOBs WHERE nombre = '" + nombre + "'",
                      zlxExecuteReturn_Value, Variant(0))
            .ToLong();
    }
    static QByteArray Bytes(const Variant& value) {
        const VariantArrayPtr array = value.ToArray();
        return array ? array->Bytes().value_or(QByteArray()) : QByteArray();
    }

    // The texts of the messages shown, one a line.
    QString Shown() const {
        QStringList texts;
        for (const MsgRequest& message : m_messages.Messages())
            texts << message.text;
        return texts.join(u'\n');
    }

    QString m_datos;
    cBLOB m_blob;
};

TEST_P(BlobStore, TextsAreKeptAsWindows1252Bytes) {
    EXPECT_EQ(m_blob.QualifiedTable(), m_datos + "..BLOBs");
    const QString text = QString::fromUtf8("Informe de ventas: 12 € — año «2024»\r\nÚltima línea");
    m_blob.Value(zlxBLOBTypeReport, "Ventas", Variant(text));
    EXPECT_EQ(m_blob.Value(zlxBLOBTypeReport, "Ventas"), Variant(text));
    // Read as any type, the same object comes back as its bytes.
    const QByteArray stored = Bytes(m_blob.Value(zlxBLOBTypeAny, "Ventas"));
    ASSERT_EQ(stored.size(), text.size());
    EXPECT_EQ(static_cast<unsigned char>(stored.at(text.indexOf(u'€'))), 0x80);
    EXPECT_EQ(static_cast<unsigned char>(stored.at(text.indexOf(u'ñ'))), 0xF1);
    // Another type of the same name is another object.
    EXPECT_EQ(m_blob.Value(zlxBLOBTypeStoredProc, "Ventas"), Variant(QString()));
    EXPECT_EQ(m_blob.Value(zlxBLOBTypeReport, "Nada"), Variant(QString()));
    EXPECT_EQ(Shown(), "");
}

TEST_P(BlobStore, ReplacingKeepsTheIdentityAndDeleteCountsRows) {
    // A table of the same name in the connection's own database is not the store.
    Run("CREATE TABLE BLOBs (ZolmarID INT NOT NULL IDENTITY(1,1), tipo INT DEFAULT 0, nombre "
        "VARCHAR(100), contenido IMAGE)");
    Run("INSERT INTO BLOBs (tipo, nombre) VALUES (2, 'sp_uno')");
    m_blob.Value(zlxBLOBTypeStoredProc, "sp_uno", Variant("SELECT 1"));
    m_blob.Value(zlxBLOBTypeFile, "logo.png", Variant::FromBytes(QByteArray("\x89PNG\0\x01", 6)));
    const std::int32_t id = IdOf("sp_uno");
    ASSERT_GT(id, 0);
    m_blob.Value(zlxBLOBTypeStoredProc, "sp_uno", Variant("SELECT 2 -- más largo que antes"));
    EXPECT_EQ(IdOf("sp_uno"), id);
    EXPECT_EQ(m_blob.Value(zlxBLOBTypeStoredProc, "sp_uno"),
              Variant(QString::fromUtf8("SELECT 2 -- más largo que antes")));
    EXPECT_EQ(Bytes(m_blob.Value(zlxBLOBTypeFile, "logo.png")), QByteArray("\x89PNG\0\x01", 6));
    // A new object of type "any" leaves tipo at its default.
    // Bytes given one Variant each are stored the same.
    m_blob.Value(zlxBLOBTypeAny, "suelto",
                 Variant::Array({Variant(std::uint8_t('a')), Variant(std::uint8_t(0))}));
    EXPECT_EQ(Bytes(m_blob.Value(zlxBLOBTypeAny, "suelto")), QByteArray("a\0", 2));
    EXPECT_EQ(m_cn->Execute("SELECT tipo FROM " + m_datos + "..BLOBs WHERE nombre = 'suelto'",
                            zlxExecuteReturn_Value, Variant(-1)),
              Variant(0));
    EXPECT_EQ(m_blob.Delete(zlxBLOBTypeReport, "sp_uno"), 0);
    EXPECT_EQ(m_blob.Delete(zlxBLOBTypeStoredProc, "sp_uno"), 1);
    EXPECT_EQ(m_blob.Delete(zlxBLOBTypeStoredProc, "sp_uno"), 0);
    EXPECT_EQ(m_blob.Delete(zlxBLOBTypeAny, "logo.png"), 1);
    EXPECT_EQ(m_cn->RecCount(m_datos + "..BLOBs"), 1);
    EXPECT_EQ(m_cn->Execute("SELECT COUNT(*) FROM BLOBs WHERE contenido IS NULL",
                            zlxExecuteReturn_Value, Variant(-1)),
              Variant(1));
    EXPECT_EQ(Shown(), "");
}

TEST_P(BlobStore, TwentyMegabyteFile) {
    QByteArray file(20 * 1024 * 1024, Qt::Uninitialized);
    QRandomGenerator random(7);
    random.fillRange(reinterpret_cast<quint32*>(file.data()), file.size() / 4);
    m_blob.Value(zlxBLOBTypeFile, "copia.bak", Variant::FromBytes(file));
    EXPECT_EQ(Bytes(m_blob.Value(zlxBLOBTypeFile, "copia.bak")), file);
    EXPECT_EQ(Shown(), "");
}

TEST_P(BlobStore, MissingTableIsReportedByTheConnection) {
    cBLOB missing;
    EXPECT_FALSE(missing.Init(m_cn, ""));
    ASSERT_TRUE(missing.Init(m_cn, m_datos, "NoHay"));
    EXPECT_EQ(missing.Value(zlxBLOBTypeReport, "x"), Variant(QString()));
    EXPECT_EQ(m_messages.Messages().size(), 1u);
    missing.Value(zlxBLOBTypeReport, "x", Variant("texto"));
    EXPECT_GE(m_messages.Messages().size(), 2u);
    EXPECT_EQ(missing.Delete(zlxBLOBTypeReport, "x"), 0);
    for (const MsgRequest& message : m_messages.Messages())
        EXPECT_TRUE(message.text.contains("NoHay", Qt::CaseInsensitive))
            << message.text.toStdString();
}

ZLX_ON_SERVER_ENGINES(BlobStore);

} // namespace
