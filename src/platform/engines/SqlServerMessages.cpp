#include "platform/engines/SqlServerMessages.h"

#include <QRegularExpression>

namespace zlx::ado {

namespace {

// One message: its number, the us_english wording it is recognised by (%1... for its parts;
// nullptr for the text Text() fills) and its Spanish text. A number's first entry is the one
// Text() uses; later ones only reword the layer's own English variants.
struct Message {
    std::int32_t native;
    const char* english;
    const char* spanish;
};

constexpr Message kMessages[] = {
    {102, "Incorrect syntax near '%1'.", "Sintaxis incorrecta cerca de '%1'."},
    {105, "Unclosed quotation mark after the character string '%1'.",
     "Falta la comilla de cierre después de la cadena de caracteres '%1'."},
    {110, nullptr,
     "Hay menos columnas en la instrucción INSERT que valores en la cláusula VALUES. El número de "
     "valores de VALUES debe coincidir con el de columnas de INSERT."},
    {113, "Missing end comment mark '*/'.", "Falta la marca de fin de comentario '*/'."},
    {134,
     "The variable name '%1' has already been declared. Variable names must be unique within a "
     "query batch or stored procedure.",
     "El nombre de variable '%1' ya se ha declarado. Los nombres de variable deben ser únicos en "
     "cada lote de consultas o procedimiento almacenado."},
    {135, "Cannot use a %1 statement outside the scope of a WHILE statement.",
     "No se puede utilizar la instrucción %1 fuera del ámbito de una instrucción WHILE."},
    {136, "Cannot use a %1 statement outside the scope of a WHILE statement.",
     "No se puede utilizar la instrucción %1 fuera del ámbito de una instrucción WHILE."},
    {137, "Must declare the scalar variable \"%1\".", "Debe declarar la variable escalar \"%1\"."},
    {141,
     "A SELECT statement that assigns a value to a variable must not be combined with "
     "data-retrieval operations.",
     "Una instrucción SELECT que asigna un valor a una variable no debe combinarse con operaciones "
     "de recuperación de datos."},
    {156, "Incorrect syntax near the keyword '%1'.",
     "Sintaxis incorrecta cerca de la palabra clave '%1'."},
    {174, "The %1 function requires %2 argument(s).",
     "La función %1 requiere al menos %2 argumentos."},
    {174, "The %1 function requires %2 to %3 arguments.",
     "La función %1 requiere al menos entre %2 y %3 argumentos."},
    {174, "The %1 function requires more arguments.", "La función %1 requiere más argumentos."},
    {174, "The %1 function requires a different number of arguments.",
     "La función %1 requiere otro número de argumentos."},
    {178, "A RETURN statement with a return value cannot be used in this context.",
     "En este contexto no se puede utilizar la instrucción RETURN con un valor de retorno."},
    {189, "The %1 function requires %2 to %3 arguments.",
     "La función %1 requiere al menos entre %2 y %3 argumentos."},
    {195, nullptr, "'%1' no es un nombre de función integrada reconocido."},
    {207, "Invalid column name '%1'.", "El nombre de columna '%1' no es válido."},
    {208, "Invalid object name '%1'.", "El nombre de objeto '%1' no es válido."},
    {209, nullptr, "El nombre de columna '%1' es ambiguo."},
    {220, "Arithmetic overflow error for data type %1, value = %2.",
     "Error de desbordamiento aritmético para el tipo de datos %1, valor = %2."},
    {241, "Conversion failed when converting date and/or time from character string.",
     "Error al convertir una cadena de caracteres en fecha y/u hora."},
    {242, "The conversion of a %1 data type to a %2 data type resulted in an out-of-range value.",
     "La conversión del tipo de datos %1 en %2 produjo un valor fuera de intervalo."},
    {244,
     "The conversion of the %1 value '%2' overflowed an %3 column. Use a larger integer column.",
     "La conversión del valor %1 '%2' ha desbordado una columna %3. Utilice una columna de tipo "
     "integer mayor."},
    {245, "Conversion failed when converting the %1 value '%2' to data type %3.",
     "Error de conversión al convertir el valor %1 '%2' al tipo de datos %3."},
    {248, "The conversion of the %1 value '%2' overflowed an int column.",
     "La conversión del valor %1 '%2' ha desbordado una columna int."},
    {289, "Cannot construct data type %1, some of the arguments have values which are not valid.",
     "No se puede construir el tipo de datos %1; algunos de los argumentos tienen valores que no "
     "son "
     "válidos."},
    {512,
     "Subquery returned more than 1 value. This is not permitted when the subquery follows =, !=, "
     "<, <= , >, >= or when the subquery is used as an expression.",
     "La subconsulta ha devuelto más de un valor, lo que no es correcto cuando va a continuación "
     "de "
     "=, !=, <, <= , >, >= o cuando se utiliza como expresión."},
    {529, "Explicit conversion from data type %1 to %2 is not allowed.",
     "No se permite la conversión explícita del tipo de datos %1 a %2."},
    {530,
     "The statement terminated. The maximum recursion %1 has been exhausted before statement "
     "completion.",
     "La instrucción ha terminado. Se agotó el máximo de recursividad %1 antes de completar la "
     "instrucción."},
    {515, nullptr,
     "No se puede insertar el valor NULL en la columna '%1', tabla '%2'. La columna no admite "
     "valores NULL. Error de %3."},
    {536, "Invalid length parameter passed to the RIGHT function.",
     "Se ha pasado un parámetro de longitud no válido a la función RIGHT."},
    {537, "Invalid length parameter passed to the LEFT or SUBSTRING function.",
     "Se ha pasado un parámetro de longitud no válido a la función LEFT o SUBSTRING."},
    {544,
     "Cannot insert explicit value for identity column in table '%1' when IDENTITY_INSERT is set "
     "to OFF.",
     "No se puede insertar un valor explícito en la columna de identidad de la tabla '%1' cuando "
     "IDENTITY_INSERT es OFF."},
    {547, nullptr,
     "Instrucción %1 en conflicto con la restricción %2 \"%3\". El conflicto ha aparecido en la "
     "base de datos \"%4\", tabla \"%5\"."},
    {628, "Cannot issue SAVE TRANSACTION when there is no active transaction.",
     "No se puede ejecutar SAVE TRANSACTION cuando no hay ninguna transacción activa."},
    {942, nullptr, "No se puede abrir la base de datos '%1' por estar sin conexión."},
    {1038,
     "An object or column name is missing or empty. For SELECT INTO statements, verify each column "
     "has a name. For other statements, look for empty alias names. Aliases defined as \"\" or [] "
     "are not allowed. Change the alias to a valid name.",
     "Falta o está vacío un nombre de objeto o columna. Compruebe si todas las columnas de las "
     "instrucciones SELECT INTO tienen un nombre. Para otras instrucciones, busque si hay nombres "
     "de alias vacíos. No se permiten los alias definidos como \"\" o []. Cambie el alias por un "
     "nombre válido."},
    {1062, "The TOP N WITH TIES clause is not allowed without a corresponding ORDER BY clause.",
     "No se permite la cláusula TOP N WITH TIES sin la correspondiente cláusula ORDER BY."},
    {1205, nullptr,
     "La transacción (Id. de proceso %1) quedó en interbloqueo en bloqueo recursos con otro "
     "proceso y fue elegida como sujeto del interbloqueo. Vuelva a ejecutar la transacción."},
    {1801, "Database '%1' already exists.",
     "La base de datos '%1' ya existe. Elija un nombre diferente para la base de datos."},
    {1802, "Could not create database '%1'.",
     "Error de CREATE DATABASE. No se pueden crear algunos archivos de la lista. Consulte los "
     "errores relacionados."},
    {1913, nullptr,
     "Error en la operación porque ya existe un índice o estadísticas con el nombre '%1' en tabla "
     "'%2'."},
    {2601, nullptr,
     "No se puede insertar una fila de clave duplicada en el objeto '%1' con índice único '%2'. El "
     "valor de la clave duplicada es %3."},
    {2627, nullptr,
     "Infracción de la restricción %1 '%2'. No se puede insertar una clave duplicada en el objeto "
     "'%3'. El valor de la clave duplicada es %4."},
    {2705, nullptr,
     "Los nombres de columna de cada tabla deben ser únicos. El nombre de columna '%1' de la tabla "
     "'%2' se especificó más de una vez."},
    {2714, nullptr, "Ya hay un objeto con el nombre '%1' en la base de datos."},
    {2739, "The text, ntext, and image data types are invalid for local variables.",
     "Los tipos de datos text, ntext e image no son válidos para las variables locales."},
    {3623, "An invalid floating point operation occurred.",
     "Se produjo una operación de punto flotante no válida."},
    {3701, nullptr, "No se puede quitar %1 '%2' porque no existe o no tiene permiso."},
    {3701, "Cannot drop the database '%1', because it does not exist.",
     "No se puede quitar la base de datos '%1' porque no existe o no tiene permiso."},
    {3726, "Could not drop object '%1' because it is referenced by a FOREIGN KEY constraint.",
     "No se puede quitar el objeto '%1' porque se hace referencia a él en una restricción "
     "FOREIGN KEY."},
    {3728, "'%1' is not a constraint.", "'%1' no es una restricción."},
    {3902, "The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION.",
     "La solicitud COMMIT TRANSACTION no tiene la correspondiente BEGIN TRANSACTION."},
    {3903, "The ROLLBACK TRANSACTION request has no corresponding BEGIN TRANSACTION.",
     "La solicitud ROLLBACK TRANSACTION no tiene la correspondiente BEGIN TRANSACTION."},
    {4060, "Cannot open database \"%1\" requested by the login. The login failed.",
     "No se puede abrir la base de datos \"%1\" solicitada por el inicio de sesión. Error de "
     "inicio "
     "de sesión."},
    {4127,
     "At least one of the arguments to COALESCE must be an expression that is not the NULL "
     "constant.",
     "Al menos uno de los argumentos de COALESCE debe ser una expresión que no sea la constante "
     "NULL."},
    {4712,
     "Cannot truncate table '%1' because it is being referenced by a FOREIGN KEY "
     "constraint.",
     "No se puede truncar la tabla '%1' porque se hace referencia a ella en una restricción "
     "FOREIGN KEY."},
    {4901, nullptr,
     "ALTER TABLE solo permite agregar columnas que puedan contener valores NULL, que tengan "
     "especificada una definición DEFAULT o que sean columnas de identidad o de marca de tiempo; "
     "si "
     "no se cumple ninguna de estas condiciones, la tabla debe estar vacía para permitir agregar "
     "la "
     "columna. No se puede agregar la columna '%1' a la tabla no vacía '%2' porque no cumple estas "
     "condiciones."},
    {5105, "Could not create '%1'.",
     "Error de activación de archivo. El nombre de archivo físico '%1' puede ser incorrecto."},
    {6401, "Cannot roll back %1. No transaction or savepoint of that name was found.",
     "No se puede revertir %1. No se encontró ninguna transacción o punto de almacenamiento con "
     "ese "
     "nombre."},
    {7997, "'%1' does not contain an identity column.",
     "'%1' no contiene una columna de identidad."},
    {8102, "Cannot update identity column '%1'.",
     "No se puede actualizar la columna de identidad '%1'."},
    {8111, "Cannot define PRIMARY KEY constraint on nullable column in table '%1'.",
     "No se puede definir la restricción PRIMARY KEY en una columna que admite valores NULL en la "
     "tabla '%1'."},
    {8114, "Error converting data type %1 to %2.", "Error al convertir el tipo de datos %1 a %2."},
    {8115, "Arithmetic overflow error converting %1 to data type %2.",
     "Error de desbordamiento aritmético al convertir %1 al tipo de datos %2."},
    {8116, "Argument data type %1 is invalid for argument %2 of %3 function.",
     "El tipo de datos %1 del argumento no es válido para el argumento %2 de la función %3."},
    {8117, "Operand data type %1 is invalid for %2 operator.",
     "El tipo de datos %1 del operando no es válido para el operador %2."},
    {8134, "Divide by zero error encountered.", "Error de división entre cero."},
    {8152, "String or binary data would be truncated.",
     "Los datos de cadena o binarios se truncarían."},
    {9810, "The datepart %1 is not supported by date function %2 for data type %3.",
     "La función de fecha %2 no admite la parte de fecha %1 para el tipo de datos %3."},
    {10741, "A TOP cannot be used in the same query or sub-query as an OFFSET.",
     "No se puede usar TOP en la misma consulta o subconsulta que OFFSET."},
    {10742, "The offset specified in an OFFSET clause may not be negative.",
     "El desplazamiento especificado en una cláusula OFFSET no puede ser negativo."},
    {10743, "The number of rows provided for an OFFSET clause must be an integer.",
     "El número de filas proporcionado para una cláusula OFFSET debe ser un entero."},
    {10744, "The number of rows provided for a FETCH clause must be greater then zero.",
     "El número de filas proporcionado para una cláusula FETCH debe ser mayor que cero."},
};

// The English words SQL Server puts in a part where the Spanish text has its own.
QString SpanishPart(const QString& part) {
    return part == u"expression" ? QStringLiteral("expresión") : part;
}

QRegularExpression EnglishPattern(const char* english) {
    QString pattern = QRegularExpression::escape(QString::fromUtf8(english));
    static const QRegularExpression placeholder(QStringLiteral("\\\\%\\d"));
    pattern.replace(placeholder, QStringLiteral("(.*?)"));
    return QRegularExpression(u'^' + pattern + u'$',
                              QRegularExpression::DotMatchesEverythingOption);
}

bool IsQuote(QChar c) {
    return c == u'\'' || c == u'"';
}

QString PartOf(const QStringList& parts, QChar digit) {
    const int index = digit.digitValue() - 1;
    return index < parts.size() ? parts[index] : QString();
}

// One sentence of a text with its parts; empty when an unquoted part of it is empty.
QString FillSentence(const QString& sentence, const QStringList& parts) {
    QString filled;
    for (qsizetype i = 0; i < sentence.size(); ++i) {
        if (sentence[i] != u'%' || i + 1 >= sentence.size() || !sentence[i + 1].isDigit()) {
            filled += sentence[i];
            continue;
        }
        const QString part = PartOf(parts, sentence[i + 1]);
        const bool quoted = i > 0 && IsQuote(sentence[i - 1]) && i + 2 < sentence.size() &&
                            sentence[i + 2] == sentence[i - 1];
        if (!part.isEmpty()) {
            filled += part;
        } else if (quoted) {
            filled.chop(filled.endsWith(u' ' + sentence[i - 1]) ? 2 : 1);
            ++i; // the closing quote
        } else {
            return QString();
        }
        ++i;
    }
    return filled;
}

QString Fill(const QString& text, const QStringList& parts) {
    QStringList kept;
    for (const QString& sentence : text.split(QStringLiteral(". "))) {
        const QString filled = FillSentence(sentence, parts);
        if (!filled.isEmpty()) kept << filled;
    }
    QString result = kept.join(QStringLiteral(". "));
    if (!result.endsWith(u'.')) result += u'.';
    return result;
}

} // namespace

QString SqlServerMessages::Text(std::int32_t native, const QStringList& parts) {
    for (const Message& message : kMessages)
        if (message.native == native) return Fill(QString::fromUtf8(message.spanish), parts);
    return QString();
}

QString SqlServerMessages::FromEnglish(std::int32_t native, const QString& english) {
    for (const Message& message : kMessages) {
        if (message.native != native || !message.english) continue;
        const QRegularExpressionMatch match = EnglishPattern(message.english).match(english);
        if (!match.hasMatch()) continue;
        QStringList parts;
        for (int i = 1; i <= match.lastCapturedIndex(); ++i)
            parts << SpanishPart(match.captured(i));
        return Fill(QString::fromUtf8(message.spanish), parts);
    }
    return english;
}

} // namespace zlx::ado
