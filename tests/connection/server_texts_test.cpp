// The descriptions a failed statement leaves in cConexion are SQL Server's Spanish texts, with
// the object, column, constraint and value it names, on both engines.

#include "QtPrinters.h"
#include "support/ServerDatabaseTest.h"

using namespace zlx;

namespace {

class ServerTexts : public test::ServerDatabaseTest {
protected:
    ServerTexts() : ServerDatabaseTest("texts") {}
    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        Run("CREATE TABLE clientes (codigo INT NOT NULL, nombre VARCHAR(5) NOT NULL, "
            "edad TINYINT, CONSTRAINT pk_clientes PRIMARY KEY (codigo))");
        Run("CREATE UNIQUE INDEX ix_nombre ON clientes (nombre)");
        Run("INSERT INTO clientes (codigo, nombre) VALUES (1, 'Ana')");
    }

    // The description of the error `sql` gives, checking its native number.
    QString Failure(const QString& sql, std::int32_t native) {
        m_cn->Execute(sql, 0, Variant(0), true);
        EXPECT_EQ(m_cn->GetLastSQLNativeError(), native) << sql.toStdString();
        return m_cn->GetLastErrorDescription();
    }
};

} // namespace

TEST_P(ServerTexts, DuplicateKeysNameTheObjectAndWhatTheEngineTells) {
    // SQLite names neither the constraint nor the value; PostgreSQL names both.
    EXPECT_EQ(Failure("INSERT INTO clientes (codigo, nombre) VALUES (1, 'Eva')", 2627),
              Postgres() ? "Infracción de la restricción PRIMARY KEY 'pk_clientes'. No se puede "
                           "insertar una clave duplicada en el objeto 'dbo.clientes'. El valor de "
                           "la clave duplicada es (1)."
                         : "Infracción de la restricción PRIMARY KEY. No se puede insertar una "
                           "clave duplicada en el objeto 'dbo.clientes'.");
    EXPECT_EQ(Failure("INSERT INTO clientes (codigo, nombre) VALUES (2, 'Ana')", 2601),
              Postgres() ? "No se puede insertar una fila de clave duplicada en el objeto "
                           "'dbo.clientes' con índice único 'ix_nombre'. El valor de la "
                           "clave duplicada es (Ana)."
                         : "No se puede insertar una fila de clave duplicada en el objeto "
                           "'dbo.clientes' con índice único.");
}

TEST_P(ServerTexts, NullsAndNamesThatDoNotExist) {
    const QString table = m_database + ".dbo.clientes";
    EXPECT_EQ(Failure("INSERT INTO clientes (codigo, nombre) VALUES (3, NULL)", 515),
              "No se puede insertar el valor NULL en la columna 'nombre', tabla '" + table +
                  "'. La columna no admite valores NULL. Error de INSERT.");
    EXPECT_EQ(Failure("UPDATE clientes SET nombre = NULL", 515),
              "No se puede insertar el valor NULL en la columna 'nombre', tabla '" + table +
                  "'. La columna no admite valores NULL. Error de UPDATE.");
    EXPECT_EQ(Failure("SELECT * FROM proveedores", 208),
              "El nombre de objeto 'proveedores' no es válido.");
    EXPECT_EQ(Failure("SELECT apellido FROM clientes", 207),
              "El nombre de columna 'apellido' no es válido.");
    EXPECT_EQ(Failure("SELECT codigo FROM clientes a, clientes b", 209),
              "El nombre de columna 'codigo' es ambiguo.");
}

TEST_P(ServerTexts, ConversionsOverflowDivisionAndTruncation) {
    EXPECT_EQ(Failure("SELECT 'Ana' + 1", 245),
              "Error de conversión al convertir el valor varchar 'Ana' al tipo de datos int.");
    EXPECT_EQ(Failure("SELECT 1/0", 8134), "Error de división entre cero.");
    EXPECT_EQ(Failure("SELECT 2147483647 + 1", 8115),
              "Error de desbordamiento aritmético al convertir expresión al tipo de datos int.");
    EXPECT_EQ(Failure("INSERT INTO clientes (codigo, nombre) VALUES (4, 'Bernardo')", 8152),
              "Los datos de cadena o binarios se truncarían.");
    EXPECT_EQ(Failure("SELECT CAST('x' AS DECIMAL(5,2))", 8114),
              "Error al convertir el tipo de datos varchar a numeric.");
}

TEST_P(ServerTexts, ObjectsThatExistOrCannotBeDropped) {
    EXPECT_EQ(Failure("CREATE TABLE clientes (a INT)", 2714),
              "Ya hay un objeto con el nombre 'clientes' en la base de datos.");
    EXPECT_EQ(Failure("CREATE INDEX ix_nombre ON clientes (nombre)", 1913),
              "Error en la operación porque ya existe un índice o estadísticas con el nombre "
              "'ix_nombre' en tabla 'dbo.clientes'.");
    EXPECT_EQ(Failure("ALTER TABLE clientes ADD nombre INT", 2705),
              "Los nombres de columna de cada tabla deben ser únicos. El nombre de columna "
              "'nombre' de la tabla 'clientes' se especificó más de una vez.");
    EXPECT_EQ(Failure("DROP TABLE proveedores", 3701),
              "No se puede quitar la tabla 'proveedores' porque no existe o no tiene permiso.");
    EXPECT_EQ(Failure("CREATE DATABASE " + m_database, 1801),
              "La base de datos '" + m_database +
                  "' ya existe. Elija un nombre diferente para la base de datos.");
}

TEST_P(ServerTexts, IdentitiesAndTransactions) {
    Run("CREATE TABLE fichas (ZolmarID INT NOT NULL IDENTITY(1,1), nombre VARCHAR(9))");
    EXPECT_EQ(Failure("INSERT INTO fichas (ZolmarID, nombre) VALUES (5, 'a')", 544),
              "No se puede insertar un valor explícito en la columna de identidad de la tabla "
              "'fichas' cuando IDENTITY_INSERT es OFF.");
    EXPECT_EQ(Failure("UPDATE fichas SET ZolmarID = 5", 8102),
              "No se puede actualizar la columna de identidad 'ZolmarID'.");
    EXPECT_EQ(Failure("COMMIT TRANSACTION", 3902),
              "La solicitud COMMIT TRANSACTION no tiene la correspondiente BEGIN TRANSACTION.");
    EXPECT_EQ(Failure("ROLLBACK TRANSACTION", 3903),
              "La solicitud ROLLBACK TRANSACTION no tiene la correspondiente BEGIN TRANSACTION.");
}

TEST_P(ServerTexts, TheMessageShownCarriesTheSpanishDescription) {
    m_cn->Execute("SELECT 1/0");
    ASSERT_FALSE(m_messages.Messages().empty());
    EXPECT_TRUE(m_messages.Last().text.startsWith(
        "Descripción del error:<BR><B>Error de división entre cero.</B><BR><BR>"))
        << m_messages.Last().text.toStdString();
}

ZLX_ON_SERVER_ENGINES(ServerTexts);
