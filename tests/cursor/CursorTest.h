#pragma once
// A record cursor over a scratch table "clientes" on each server engine, and a second
// connection that plays another workstation.

#include "cursor/cFichaDB.h"
#include "support/ServerDatabaseTest.h"

#include <vector>

namespace zlx::test {

class CursorTest : public ServerDatabaseTest {
protected:
    CursorTest() : ServerDatabaseTest("cursor") {}

    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        Run("CREATE TABLE clientes (ZolmarID INT NOT NULL IDENTITY(1,1), nombre VARCHAR(40), "
            "apellidos VARCHAR(40), grupo INT, Activo INT DEFAULT 0, FechaModificacion DATETIME)");
    }

    // Adds records in order; each gets the next identity.
    void Add(const QString& nombre, const QString& apellidos, int grupo) {
        Run("INSERT INTO clientes (nombre, apellidos, grupo) VALUES ('" + nombre + "', '" +
            apellidos + "', " + QString::number(grupo) + ")");
    }
    // Thirteen records: 5, 9 and 12 share the lowest group; every other one has its own.
    void AddThirteen() {
        for (int id = 1; id <= 13; ++id)
            Add(QStringLiteral("n%1").arg(id), QStringLiteral("a%1").arg(id),
                id == 5 || id == 9 || id == 12 ? 10 : 20 + id);
    }

    std::int32_t Open(const QString& order, const QString& filter = {}) {
        return m_ficha->Init(m_cn, "clientes", order, filter);
    }
    // Every identity reached from the first move on, stopping when a move stays put (or after
    // 50 moves, so that a cursor going round in circles fails instead of hanging).
    std::vector<std::int32_t> Walk(bool backwards = false) {
        std::vector<std::int32_t> ids;
        std::int32_t id = backwards ? m_ficha->MoveLast() : m_ficha->MoveFirst();
        while (id > 0 && (ids.empty() || ids.back() != id) && ids.size() < 50) {
            ids.push_back(id);
            id = backwards ? m_ficha->MovePrevious() : m_ficha->MoveNext();
        }
        return ids;
    }

    // Another workstation on the same database.
    cConexionPtr Other() {
        auto other = std::make_shared<cConexion>();
        EXPECT_TRUE(other->Init(zlxDataProvider_MSDE, m_database, Server()));
        return other;
    }

    cFichaDBPtr m_ficha = std::make_shared<cFichaDB>();
};

} // namespace zlx::test
