#include "platform/engines/SqliteNumberText.h"

#include "platform/engines/SqliteArithmetic.h"
#include "platform/engines/SqliteFunctionTable.h"
#include "platform/engines/SqliteValues.h"

#include <QRegularExpression>

namespace zlx::ado::SqliteNumberText {
namespace {

using SqliteArithmetic::NumberText;
using SqliteArithmetic::RoundedDecimal;

// Six significant digits, the exponent of three digits as SQL Server writes it.
QString FloatText(double value) {
    static const QRegularExpression exponent(QStringLiteral("e([+-])(\\d+)$"));
    QString text = QString::number(value, 'g', 6);
    const auto match = exponent.match(text);
    if (match.hasMatch())
        text.replace(match.capturedStart(), match.capturedLength(),
                     u'e' + match.captured(1) + match.captured(2).rightJustified(3, u'0'));
    return text;
}

QString Written(sqlite3_value* value, QChar format, int scale) {
    if (format == u'f') return FloatText(sqlite3_value_double(value));
    if (format == u'i') return QString::number(sqlite3_value_int64(value));
    return RoundedDecimal(NumberText(value), format == u'm' ? 2 : scale);
}

// The name SQL Server's overflow message gives the number's type.
QString SourceName(QChar format) {
    if (format == u'i') return QStringLiteral("expression");
    if (format == u'f') return QStringLiteral("float");
    return format == u'm' ? QStringLiteral("money") : QStringLiteral("numeric");
}

void NumberToText(sqlite3_context* context, int count, sqlite3_value** values) {
    if (SqliteValues::AnyNull(context, count, values)) return;
    const QString written = SqliteValues::Text(values[1]);
    const QChar format = written.isEmpty() ? QChar(u'd') : written.front();
    const QString text = Written(values[0], format, sqlite3_value_int(values[2]));
    const int length = sqlite3_value_int(values[3]);
    if (length <= 0 || text.size() <= length) return SqliteValues::ResultText(context, text);
    const QString target = SqliteValues::Text(values[4]);
    if (format == u'i' && !target.startsWith(u'n'))
        return SqliteValues::ResultText(context, QStringLiteral("*"));
    const QByteArray message = QStringLiteral("Arithmetic overflow error converting %1 to data "
                                              "type %2.")
                                   .arg(SourceName(format), target)
                                   .toUtf8();
    sqlite3_result_error(context, message.constData(), -1);
}

constexpr SqliteScalarFunction kFunctions[] = {{"zlx_number_text", 5, &NumberToText}};

} // namespace

void Install(sqlite3* db) {
    InstallDeterministic(db, kFunctions);
}

} // namespace zlx::ado::SqliteNumberText
