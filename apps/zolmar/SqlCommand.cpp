#include "SqlCommand.h"

#include "JsonVariant.h"
#include "connection/cConexion.h"
#include "platform/companion/RecordingMsgPresenter.h"
#include "platform/companion/cMatriz.h"
#include "schema/cBaseDatos.h"
#include "table/cDatos.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace zlx {

namespace {

struct SqlOptions {
    int provider = zlxDataProvider_MSDE;
    QString server, database, file, user, password, text;
    int mode = zlxExecuteReturn_Nothing;
    Variant defaultValue = Variant(std::int16_t(0));
    bool hasText = false;
    bool createDatabase = false;
    long timeoutSeconds = -1; // the connection's own unless given
};

long SecondsOption(const QString& value) {
    bool ok = false;
    const long seconds = value.toLong(&ok);
    if (!ok || seconds < 0)
        throw std::invalid_argument(
            ("--timeout needs a number of seconds, not " + value).toStdString());
    return seconds;
}

// Reads "--name value" pairs and at most one statement; throws on anything else.
SqlOptions ParseOptions(const QStringList& args) {
    SqlOptions options;
    for (int i = 0; i < args.size(); ++i) {
        const QString& arg = args[i];
        if (arg == u"--create-db") {
            options.createDatabase = true;
            continue;
        }
        if (!arg.startsWith(QStringLiteral("--"))) {
            if (options.hasText) throw std::invalid_argument("more than one statement given");
            options.text = arg;
            options.hasText = true;
            continue;
        }
        if (i + 1 >= args.size())
            throw std::invalid_argument(("missing value after " + arg).toStdString());
        const QString value = args[++i];
        if (arg == u"--provider")
            options.provider = value.toInt();
        else if (arg == u"--server")
            options.server = value;
        else if (arg == u"--db")
            options.database = value;
        else if (arg == u"--file")
            options.file = value;
        else if (arg == u"--user")
            options.user = value;
        else if (arg == u"--password")
            options.password = value;
        else if (arg == u"--mode")
            options.mode = value.toInt();
        else if (arg == u"--default")
            options.defaultValue = Variant(value);
        else if (arg == u"--timeout")
            options.timeoutSeconds = SecondsOption(value);
        else
            throw std::invalid_argument(("unknown option " + arg).toStdString());
    }
    return options;
}

void AppendRows(QByteArray& out, const VariantArrayPtr& rows) {
    out += '[';
    for (std::int32_t r = rows->LBound(2); r <= rows->UBound(2); ++r) {
        out += r == rows->LBound(2) ? "[" : ",[";
        for (std::int32_t c = rows->LBound(1); c <= rows->UBound(1); ++c) {
            if (c != rows->LBound(1)) out += ',';
            AppendJson(out, rows->At(c, r));
        }
        out += ']';
    }
    out += ']';
}

void AppendRecordset(QByteArray& out, ado::Recordset& rs) {
    out += "{\"columns\":[";
    for (int i = 0; i < rs.GetFields().Count(); ++i) {
        if (i > 0) out += ',';
        AppendJsonString(out, rs.GetFields().Item(i).Name());
    }
    out += "],\"rows\":";
    if (rs.IsEOF())
        out += "[]";
    else
        AppendRows(out, rs.GetRows().ToArray());
    out += '}';
}

// A statement that gives no rows (an UPDATE, a CREATE) run in a mode that answers rows: it ran,
// and there is no rowset to show. Mode 3 answers it as a closed recordset; modes 4 and 5 fail
// as ADO fails reading a closed recordset (3704), after the statement ran.
const QByteArray kNoRowset = "{\"ok\":null,\"rowset\":false}";

// The connection tells the failure's ADO number only in the message it shows.
bool FailedOnClosedRecordset(int mode, const std::vector<MsgRequest>& messages) {
    const QString closed = QStringLiteral("Código del error: %1").arg(ado::adErrObjectClosed);
    return (mode == zlxExecuteReturn_Array || mode == zlxExecuteReturn_cMatriz) &&
           messages.size() == 1 && messages.front().text.contains(closed);
}

// The result of one call in the shape of its mode.
QByteArray ResultJson(const Variant& result, int mode, const cConexion& cn) {
    QByteArray out = "{\"ok\":";
    const auto rs = result.IsObject() ? result.As<ado::Recordset>() : nullptr;
    if (rs && rs->State() == ado::adStateClosed) return kNoRowset;
    if (mode == zlxExecuteReturn_Nothing || mode == zlxExecuteReturn_Nothing_NoRowCount) {
        out += "true,\"nTally\":" + QByteArray::number(cn.nTally());
    } else if (const auto matrix = result.IsObject() ? result.As<cMatriz>() : nullptr) {
        AppendRows(out, matrix->GetVariant().ToArray());
    } else if (rs) {
        AppendRecordset(out, *rs);
    } else if (const auto table = result.IsObject() ? result.As<cDatos>() : nullptr) {
        AppendRecordset(out, *table->Get_RS());
    } else if (mode == zlxExecuteReturn_Array && result.IsArray()) {
        AppendRows(out, result.ToArray());
    } else {
        AppendJson(out, result);
    }
    return out + '}';
}

QByteArray ErrorJson(const cConexion& cn, const std::vector<MsgRequest>& messages) {
    QByteArray out = "{\"error\":{\"GetLastError\":" + QByteArray::number(cn.GetLastError()) +
                     ",\"native\":" + QByteArray::number(cn.GetLastSQLNativeError()) +
                     ",\"description\":";
    AppendJsonString(out, cn.GetLastErrorDescription());
    out += ",\"messages\":[";
    for (std::size_t i = 0; i < messages.size(); ++i) {
        if (i > 0) out += ',';
        AppendJsonString(out, MsgMarkupToPlainText(messages[i].text));
    }
    return out + "]}}";
}

// Runs one statement; answers its JSON line and whether it failed.
std::pair<QByteArray, bool> RunOne(cConexion& cn, const QString& sql, int mode,
                                   const Variant& defaultValue) {
    RecordingMsgPresenter recorder;
    // Nobody answers the shell's questions: a statement that ran out of time is not run again.
    recorder.SetDefaultAnswer(MsgAnswerNegative);
    ScopedMsgPresenter scope(recorder);
    const Variant result = cn.Execute(sql, mode, defaultValue);
    if (FailedOnClosedRecordset(mode, recorder.Messages())) return {kNoRowset, false};
    if (cn.GetLastError() != 0 || !recorder.Messages().empty())
        return {ErrorJson(cn, recorder.Messages()), true};
    return {ResultJson(result, mode, cn), false};
}

void WriteLine(std::FILE* out, const QByteArray& line) {
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), out);
    std::fputc('\n', out);
    std::fflush(out);
}

int RunLines(cConexion& cn, const SqlOptions& options, std::FILE* in, std::FILE* out) {
    char* buffer = nullptr;
    std::size_t capacity = 0;
    while (getline(&buffer, &capacity, in) > 0) {
        const QJsonDocument doc = QJsonDocument::fromJson(QByteArray(buffer).trimmed());
        if (!doc.isObject() || !doc.object().value(u"sql").isString()) {
            WriteLine(out, R"({"error":"a line must be {\"sql\": TEXT, \"mode\": M}"})");
            continue;
        }
        const QJsonObject call = doc.object();
        const int mode = call.value(u"mode").toInt(options.mode);
        WriteLine(out, RunOne(cn, call.value(u"sql").toString(), mode, options.defaultValue).first);
    }
    std::free(buffer);
    return 0;
}

// --create-db: the database is made as the library makes its databases; one that exists
// already is used as it is.
bool CreateDatabase(const SqlOptions& options, const QString& database) {
    cBaseDatos maker;
    maker.Init_Connection(options.provider, database, {}, options.user, options.password,
                          options.server);
    const int result = maker.Create_Database();
    return result == zlxDBConstantsNoError || result == zlxDBConstantsExisteDB;
}

} // namespace

int RunSqlCommand(const QStringList& args, std::FILE* in, std::FILE* out) {
    SqlOptions options;
    try {
        options = ParseOptions(args);
    } catch (const std::exception& e) {
        QByteArray line = "{\"error\":";
        AppendJsonString(line, QString::fromUtf8(e.what()));
        WriteLine(out, line + '}');
        return 2;
    }
    RecordingMsgPresenter recorder;
    ScopedMsgPresenter scope(recorder);
    cConexion cn;
    QString errors;
    const QString database =
        options.provider == zlxDataProvider_MSDE ? options.database : options.file;
    if (options.createDatabase && !CreateDatabase(options, database)) {
        WriteLine(out, ErrorJson(cn, recorder.Messages()));
        return 1;
    }
    if (!cn.Init(options.provider, database, options.server, options.user, options.password, 16,
                 false, &errors) ||
        (cn.cn() && cn.cn()->State() != ado::adStateOpen)) {
        WriteLine(out, ErrorJson(cn, recorder.Messages()));
        return 1;
    }
    if (options.timeoutSeconds >= 0) cn.cn()->CommandTimeout(options.timeoutSeconds);
    if (!options.hasText) return RunLines(cn, options, in, out);
    const auto [line, failed] = RunOne(cn, options.text, options.mode, options.defaultValue);
    WriteLine(out, line);
    return failed ? 1 : 0;
}

} // namespace zlx
