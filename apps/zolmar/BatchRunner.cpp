#include "BatchRunner.h"

#include "BatchFunctions.h"
#include "JsonVariant.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdlib>

namespace zlx {

namespace {

QByteArray ErrorLine(const QString& text) {
    QByteArray out("{\"error\":");
    AppendJsonString(out, text);
    out += '}';
    return out;
}

// The function name and converted arguments of a call line; throws with the reason when
// the line is not a call.
std::pair<QString, std::vector<Variant>> ParseCall(const QByteArray& line) {
    QJsonParseError parseError{};
    const QJsonDocument document = QJsonDocument::fromJson(line, &parseError);
    if (parseError.error != QJsonParseError::NoError)
        throw JsonConversionError("invalid JSON: " + parseError.errorString().toStdString());
    if (!document.isObject()) throw JsonConversionError("a call must be a JSON object");
    const QJsonObject call = document.object();
    const QJsonValue fn = call.value(QLatin1String("fn"));
    if (!fn.isString()) throw JsonConversionError("\"fn\" must be a function name");
    const QJsonValue args = call.value(QLatin1String("args"));
    if (!args.isUndefined() && !args.isArray())
        throw JsonConversionError("\"args\" must be an array");
    std::vector<Variant> values;
    for (const QJsonValue& arg : args.toArray())
        values.push_back(JsonToVariant(arg));
    return {fn.toString(), std::move(values)};
}

} // namespace

QByteArray AnswerBatchLine(const QByteArray& line, const BatchFunctions& functions) {
    try {
        auto [name, values] = ParseCall(line);
        QByteArray out("{\"ok\":");
        AppendJson(out, functions.Call(name, BatchArguments(std::move(values))));
        out += '}';
        return out;
    } catch (const VariantError& error) {
        return ErrorLine(error.Description());
    } catch (const std::exception& error) {
        return ErrorLine(QString::fromUtf8(error.what()));
    }
}

int RunBatch(std::FILE* in, std::FILE* out, const BatchFunctions& functions, bool flushEachLine) {
    char* buffer = nullptr;
    std::size_t capacity = 0;
    ssize_t length;
    QByteArray answers;
    while ((length = getline(&buffer, &capacity, in)) >= 0) {
        QByteArray line = QByteArray::fromRawData(buffer, length);
        while (line.endsWith('\n') || line.endsWith('\r'))
            line.chop(1);
        answers += AnswerBatchLine(line, functions);
        answers += '\n';
        if (flushEachLine || answers.size() >= 64 * 1024) {
            std::fwrite(answers.constData(), 1, static_cast<std::size_t>(answers.size()), out);
            answers.clear();
            if (flushEachLine) std::fflush(out);
        }
    }
    std::free(buffer);
    std::fwrite(answers.constData(), 1, static_cast<std::size_t>(answers.size()), out);
    return std::fflush(out) == 0 ? 0 : 1;
}

} // namespace zlx
