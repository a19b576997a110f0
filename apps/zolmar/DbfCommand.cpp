#include "DbfCommand.h"

#include "dbf/cDBF.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <cmath>
#include <cstdio>

namespace zlx {

namespace {

void AppendString(QByteArray& out, const QString& text) {
    // A one-element array lets Qt do the escaping; the brackets are dropped.
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    out += array.mid(1, array.size() - 2);
}

QByteArray CurrencyText(Currency value) {
    const std::uint64_t magnitude =
        value.scaled < 0 ? 0 - static_cast<std::uint64_t>(value.scaled) : value.scaled;
    return (value.scaled < 0 ? "-" : "") + QByteArray::number(magnitude / 10000) + '.' +
           QByteArray::number(magnitude % 10000).rightJustified(4, '0');
}

void AppendValue(QByteArray& out, const Variant& value) {
    switch (value.VarType()) {
    case vbNull:
    case vbEmpty:
        out += "null";
        break;
    case vbBoolean:
        out += value.ToBool() ? "true" : "false";
        break;
    case vbDate: {
        int y, m, d, h, n, s;
        SplitDate(value.ToDate(), y, m, d, h, n, s);
        QString text = QStringLiteral("%1-%2-%3")
                           .arg(y, 4, 10, QLatin1Char('0'))
                           .arg(m, 2, 10, QLatin1Char('0'))
                           .arg(d, 2, 10, QLatin1Char('0'));
        if (h != 0 || n != 0 || s != 0)
            text += QStringLiteral(" %1:%2:%3")
                        .arg(h, 2, 10, QLatin1Char('0'))
                        .arg(n, 2, 10, QLatin1Char('0'))
                        .arg(s, 2, 10, QLatin1Char('0'));
        AppendString(out, text);
        break;
    }
    case vbCurrency:
        out += '"' + CurrencyText(value.ToCurrency()) + '"';
        break;
    case vbLong:
        out += QByteArray::number(value.ToLong());
        break;
    case vbDecimal:
        out += value.ToDecimal().ToString().toLatin1();
        break;
    case vbDouble:
        out += std::isfinite(value.ToDouble()) ? DoubleToString(value.ToDouble()).toLatin1()
                                               : QByteArray("null");
        break;
    default:
        if (const VariantArrayPtr bytes = value.ToArray()) {
            out += '[';
            for (std::size_t i = 0; i < bytes->Data().size(); ++i)
                out += (i > 0 ? ", " : "") + QByteArray::number(bytes->Data()[i].ToLong());
            out += ']';
        } else {
            AppendString(out, value.ToString());
        }
    }
}

// The field's length: a character field longer than 255 keeps the high byte in the decimals.
int FieldLength(const DBF_FieldInfo_Type& info) {
    return info.cDataType == QStringLiteral("C") ? info.nFieldLength + 256 * info.nDecimalPlaces
                                                 : info.nFieldLength;
}

int FieldDecimals(const DBF_FieldInfo_Type& info) {
    return info.cDataType == QStringLiteral("C") ? 0 : info.nDecimalPlaces;
}

QByteArray DumpJson(cDBF& dbf) {
    QByteArray out = "{\"version\": " + QByteArray::number(dbf.Version()) + ", \"fields\": [";
    for (int f = 1; f <= dbf.FieldCount(); ++f) {
        const DBF_FieldInfo_Type info = dbf.GetFieldInfo(f);
        out += f > 1 ? ", {\"name\": " : "{\"name\": ";
        AppendString(out, info.cFieldName);
        out += ", \"type\": ";
        AppendString(out, info.cDataType);
        out += ", \"length\": " + QByteArray::number(FieldLength(info)) +
               ", \"decimals\": " + QByteArray::number(FieldDecimals(info)) + '}';
    }
    out += "], \"records\": [";
    for (std::uint32_t row = 1; row <= dbf.RecordCount(); ++row) {
        dbf.CurrentRow(row);
        if (dbf.CurrentRow() == 0) break; // the read error is reported after the listing
        out += row > 1 ? ",\n [" : "\n [";
        for (int f = 1; f <= dbf.FieldCount(); ++f) {
            if (f > 1) out += ", ";
            AppendValue(out, dbf.Field(dbf.GetFieldInfo(f).cFieldName));
        }
        out += ']';
    }
    out += "]}\n";
    return out;
}

int ReportFailure(QIODevice& err, const QString& what, const cDBF& dbf) {
    QString title;
    const QString message = dbf.GetLastErrorMsg(&title);
    QString line = QStringLiteral("zolmar dbf: ") + what;
    if (!message.isEmpty()) line += QStringLiteral(": ") + title + QStringLiteral(": ") + message;
    err.write((line + u'\n').toUtf8());
    return 1;
}

int Dump(const QString& path, int codePage, QIODevice& out, QIODevice& err) {
    cDBF dbf;
    dbf.ShowErrors(false);
    dbf.CodePage(codePage);
    if (!dbf.GetLastErrorMsg().isEmpty())
        return ReportFailure(err, QStringLiteral("bad code page"), dbf);
    if (!dbf.OpenRaw(path)) return ReportFailure(err, QStringLiteral("cannot open ") + path, dbf);
    out.write(DumpJson(dbf));
    if (!dbf.GetLastErrorMsg().isEmpty()) return ReportFailure(err, path, dbf);
    return 0;
}

Variant ValueForField(const QJsonValue& json, const QString& type) {
    static const QRegularExpression isoDate(QStringLiteral("^(\\d{4})-(\\d{2})-(\\d{2})$"));
    if (json.isBool()) return json.toBool();
    if (json.isDouble()) {
        const double number = json.toDouble();
        if (number == std::trunc(number) && std::fabs(number) < 2147483648.0)
            return static_cast<std::int32_t>(number);
        return number;
    }
    if (!json.isString()) return Variant::Null();
    const QString text = json.toString();
    if (type == QStringLiteral("D")) {
        const auto match = isoDate.match(text);
        if (match.hasMatch())
            return MakeDate(match.captured(1).toInt(), match.captured(2).toInt(),
                            match.captured(3).toInt());
    }
    if (type == QStringLiteral("N")) {
        bool ok = false;
        const Decimal number = Decimal::FromString(text, &ok);
        if (ok) return number;
    }
    return text;
}

int Create(const QString& path, QIODevice& in, QIODevice& err) {
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(in.readAll(), &parseError);
    if (!document.isObject()) {
        err.write("zolmar dbf create: the input is not a JSON object: " +
                  parseError.errorString().toUtf8() + '\n');
        return 2;
    }
    cDBF dbf;
    dbf.ShowErrors(false);
    if (!dbf.BeginCreateDBF(path))
        return ReportFailure(err, QStringLiteral("cannot create ") + path, dbf);
    QStringList names, types;
    for (const QJsonValue& field : document.object().value(QStringLiteral("fields")).toArray()) {
        const QJsonObject f = field.toObject();
        QString type = f.value(QStringLiteral("type")).toString();
        dbf.CreateColumn(f.value(QStringLiteral("name")).toString(), type,
                         f.value(QStringLiteral("length")).toInt(),
                         f.value(QStringLiteral("decimals")).toInt());
        if (!dbf.GetLastErrorMsg().isEmpty())
            return ReportFailure(err, QStringLiteral("bad field"), dbf);
        names << f.value(QStringLiteral("name")).toString();
        types << type;
    }
    if (!dbf.EndCreateDBF()) return ReportFailure(err, QStringLiteral("cannot write ") + path, dbf);
    for (const QJsonValue& record : document.object().value(QStringLiteral("records")).toArray()) {
        const QJsonArray values = record.toArray();
        dbf.BeginInsert();
        for (qsizetype i = 0; i < names.size() && i < values.size(); ++i)
            dbf.Field(names[i], ValueForField(values[i], types[i]));
        if (!dbf.EndInsert())
            return ReportFailure(err, QStringLiteral("cannot append to ") + path, dbf);
    }
    dbf.CloseDBF();
    return 0;
}

} // namespace

int RunDbfCommand(const QStringList& args, QIODevice& in, QIODevice& out, QIODevice& err) {
    if (args.size() == 2 && args[0] == QStringLiteral("dump")) return Dump(args[1], 0, out, err);
    if (args.size() == 4 && args[0] == QStringLiteral("dump") &&
        args[1] == QStringLiteral("--codepage") && args[2].toInt() > 0)
        return Dump(args[3], args[2].toInt(), out, err);
    if (args.size() == 2 && args[0] == QStringLiteral("create")) return Create(args[1], in, err);
    err.write("usage: zolmar dbf dump [--codepage N] FILE | zolmar dbf create FILE < table.json\n");
    return 2;
}

int RunDbfCommand(const QStringList& args) {
    QFile in, out, err;
    in.open(stdin, QIODevice::ReadOnly);
    out.open(stdout, QIODevice::WriteOnly);
    err.open(stderr, QIODevice::WriteOnly);
    return RunDbfCommand(args, in, out, err);
}

} // namespace zlx
