// The catalog of SQL Server's Spanish message texts: parts filled in order, parts the engine
// does not tell left out with their quotes or their sentence, and the layer's English texts
// reworded with their parts.

#include "QtPrinters.h"
#include "platform/engines/SqlServerMessages.h"

#include <gtest/gtest.h>

using zlx::ado::SqlServerMessages;

TEST(SqlServerMessages, PartsAreFilledAndUnknownOnesLeftOut) {
    EXPECT_EQ(SqlServerMessages::Text(2627, {"PRIMARY KEY", "pk_t", "dbo.t", "(1, 'a')"}),
              "Infracción de la restricción PRIMARY KEY 'pk_t'. No se puede insertar una clave "
              "duplicada en el objeto 'dbo.t'. El valor de la clave duplicada es (1, 'a').");
    // No name: its quotes go; no value: its sentence goes.
    EXPECT_EQ(SqlServerMessages::Text(2627, {"UNIQUE KEY", "", "dbo.t"}),
              "Infracción de la restricción UNIQUE KEY. No se puede insertar una clave duplicada "
              "en el objeto 'dbo.t'.");
    EXPECT_EQ(SqlServerMessages::Text(2601, {"dbo.t", "", ""}),
              "No se puede insertar una fila de clave duplicada en el objeto 'dbo.t' con índice "
              "único.");
    // A part is put in as it is, even when it looks like a placeholder.
    EXPECT_EQ(SqlServerMessages::Text(208, {"%2"}), "El nombre de objeto '%2' no es válido.");
    EXPECT_EQ(SqlServerMessages::Text(8134), "Error de división entre cero.");
    EXPECT_EQ(SqlServerMessages::Text(50000, {"x"}), "");
}

TEST(SqlServerMessages, EnglishTextsAreRewordedWithTheirParts) {
    EXPECT_EQ(
        SqlServerMessages::FromEnglish(
            245, "Conversion failed when converting the varchar value 'a'b' to data type int."),
        "Error de conversión al convertir el valor varchar 'a'b' al tipo de datos int.");
    EXPECT_EQ(
        SqlServerMessages::FromEnglish(
            8115, "Arithmetic overflow error converting expression to data type smallint."),
        "Error de desbordamiento aritmético al convertir expresión al tipo de datos smallint.");
    EXPECT_EQ(SqlServerMessages::FromEnglish(174, "The format function requires 2 to 3 arguments."),
              "La función format requiere al menos entre 2 y 3 argumentos.");
    EXPECT_EQ(SqlServerMessages::FromEnglish(137, "Must declare the scalar variable \"@x\"."),
              "Debe declarar la variable escalar \"@x\".");
    // Another number's text, the layer's own refusals and users' texts stay as they are.
    EXPECT_EQ(SqlServerMessages::FromEnglish(208, "Divide by zero error encountered."),
              "Divide by zero error encountered.");
    EXPECT_EQ(SqlServerMessages::FromEnglish(102, "Construcción T-SQL no soportada: GOTO"),
              "Construcción T-SQL no soportada: GOTO");
    EXPECT_EQ(SqlServerMessages::FromEnglish(50000, "Saldo insuficiente"), "Saldo insuficiente");
}
