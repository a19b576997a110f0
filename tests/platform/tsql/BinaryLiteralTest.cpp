// Binary literals (0x...) in statements: stored in IMAGE and VARBINARY columns and read back as
// the same bytes on every engine.
#include "SessionFixture.h"

#include <gtest/gtest.h>

using namespace zlx;

namespace {

// The binary values of each row as hex digits ("NULL" for a null), one row a line.
class HexSink : public ado::ResultSink {
public:
    void BeginRowset(const std::vector<ado::ColumnInfo>&) override {}
    bool Row(std::vector<Variant>& values) override {
        QStringList cells;
        for (const Variant& value : values)
            cells << Hex(value);
        rows << cells.join(u'|');
        return true;
    }
    void EndRowset() override {}
    void RowsAffected(std::int64_t) override {}
    QStringList rows;

private:
    static QString Hex(const Variant& value) {
        if (value.IsNull()) return QStringLiteral("NULL");
        const VariantArrayPtr bytes = value.ToArray();
        if (!bytes) return QStringLiteral("not binary: ") + value.ToInvariantString();
        QString hex;
        for (const Variant& byte : bytes->Data())
            hex += QStringLiteral("%1").arg(byte.ToInt(), 2, 16, QChar(u'0'));
        return hex;
    }
};

class BinaryLiteralTest : public test::SessionFixture {
protected:
    QStringList Bytes(const QString& query) {
        HexSink sink;
        m_session->Execute(query, sink, 0);
        return sink.rows;
    }
};

} // namespace

ZLX_ON_SERVER_ENGINES(BinaryLiteralTest);

TEST_P(BinaryLiteralTest, LiteralsStoreAndReadBackAsBytes) {
    Exec(QStringLiteral("CREATE TABLE adjuntos (id INT NOT NULL, Foto IMAGE NULL, "
                        "Firma VARBINARY(10) NULL)"));
    Exec(QStringLiteral("INSERT INTO adjuntos (id, Foto, Firma) VALUES (1, 0x00FF10, 0xABcd)"));
    // 0x alone is an empty value, not NULL; an odd count of digits takes a leading zero.
    Exec(QStringLiteral("INSERT INTO adjuntos (id, Foto, Firma) VALUES (2, 0x, 0x123)"));
    Exec(QStringLiteral("INSERT INTO adjuntos (id) VALUES (3)"));
    EXPECT_EQ(Bytes(QStringLiteral("SELECT Foto, Firma FROM adjuntos ORDER BY id")),
              (QStringList{"00ff10|abcd", "|0123", "NULL|NULL"}));
    EXPECT_EQ(Value(QStringLiteral("SELECT id FROM adjuntos WHERE Firma = 0x0123")),
              QStringLiteral("2"));
    Exec(QStringLiteral("UPDATE adjuntos SET Foto = 0X0A0B WHERE id = 3"));
    EXPECT_EQ(Bytes(QStringLiteral("SELECT Foto FROM adjuntos WHERE id = 3")), QStringList{"0a0b"});
}
