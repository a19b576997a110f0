// How values cross the script's lines: as `zolmar batch` writes them, with named objects
// ({"ref": NAME} in, {"object": NAME} out) and matrices ({"matriz": rows, "firstRow": r,
// "firstCol": c}).

#include "JsonVariant.h"
#include "platform/companion/cMatriz.h"
#include "script/ScriptArgs.h"
#include "script/ScriptSession.h"

#include <QJsonArray>

namespace zlx {

namespace {

int Bound(const QJsonObject& object, const char* key) {
    const QJsonValue value = object.value(QLatin1String(key));
    if (value.isUndefined()) return 1;
    if (!value.isDouble()) throw ScriptError(QStringLiteral("\"%1\" must be a number").arg(key));
    return value.toInt();
}

void AppendMessages(QByteArray& out, const std::vector<MsgRequest>& messages) {
    out += ",\"messages\":[";
    for (std::size_t i = 0; i < messages.size(); ++i) {
        const MsgRequest& message = messages[i];
        out += i > 0 ? ",{" : "{";
        out += "\"icon\":" + QByteArray::number(message.icon) + ",\"text\":";
        AppendJsonString(out, message.text);
        out += ",\"buttons\":" + QByteArray::number(message.buttons) + ",\"title\":";
        AppendJsonString(out, message.title);
        out += '}';
    }
    out += ']';
}

} // namespace

Variant ScriptSession::ReadValue(const QJsonValue& value) {
    return JsonToVariant(value, [this](const QJsonObject& object, Variant& read) {
        return ReadObject(object, read);
    });
}

bool ScriptSession::ReadObject(const QJsonObject& object, Variant& value) {
    if (object.contains(u"ref")) {
        const QJsonValue name = object.value(u"ref");
        if (!name.isString()) throw ScriptError(QStringLiteral("\"ref\" must be a name"));
        value = Variant(m_objects.Find(name.toString()));
        return true;
    }
    if (!object.contains(u"matriz")) return false;
    const QJsonValue rows = object.value(u"matriz");
    if (!rows.isArray()) throw ScriptError(QStringLiteral("\"matriz\" must be a list of rows"));
    const QJsonArray rowList = rows.toArray();
    const int firstRow = Bound(object, "firstRow");
    const int firstCol = Bound(object, "firstCol");
    const auto cols = static_cast<int>(rowList.isEmpty() ? 0 : rowList.first().toArray().size());
    auto matrix = std::make_shared<cMatriz>();
    matrix->Dimension(firstCol, firstCol + cols - 1, firstRow,
                      firstRow + static_cast<int>(rowList.size()) - 1);
    for (int r = 0; r < rowList.size(); ++r) {
        const QJsonValue row = rowList[r];
        if (!row.isArray() || row.toArray().size() != cols)
            throw ScriptError(
                QStringLiteral("every row of a \"matriz\" must be a list of %1 values").arg(cols));
        for (int c = 0; c < cols; ++c)
            matrix->SetValue(firstCol + c, firstRow + r, ReadValue(row.toArray()[c]));
    }
    value = Variant(matrix);
    return true;
}

void ScriptSession::WriteValue(QByteArray& out, const Variant& value) {
    AppendJson(out, value,
               [this](QByteArray& text, const ObjectPtr& object) { WriteObject(text, object); });
}

// A matrix is written with its cells, and named too so that later lines can reach it.
void ScriptSession::WriteObject(QByteArray& out, const ObjectPtr& object) {
    if (!object) {
        out += "null"; // Nothing
        return;
    }
    const QString name = m_objects.NameOf(object);
    const auto matrix = std::dynamic_pointer_cast<cMatriz>(object);
    if (!matrix) {
        out += "{\"object\":";
        AppendJsonString(out, name);
        out += '}';
        return;
    }
    out += "{\"matriz\":[";
    for (std::int32_t r = matrix->FirstRow(); r <= matrix->LastRow(); ++r) {
        out += r == matrix->FirstRow() ? "[" : ",[";
        for (std::int32_t c = matrix->FirstCol(); c <= matrix->LastCol(); ++c) {
            if (c != matrix->FirstCol()) out += ',';
            WriteValue(out, matrix->GetValue(c, r));
        }
        out += ']';
    }
    out += "],\"firstRow\":" + QByteArray::number(matrix->FirstRow()) +
           ",\"firstCol\":" + QByteArray::number(matrix->FirstCol()) + ",\"object\":";
    AppendJsonString(out, name);
    out += '}';
}

QByteArray ScriptSession::Reply(const QByteArray& head, const Result* result) {
    QByteArray out = '{' + head;
    if (result && !result->out.empty()) {
        out += ",\"out\":[";
        for (std::size_t i = 0; i < result->out.size(); ++i) {
            if (i > 0) out += ',';
            WriteValue(out, result->out[i]);
        }
        out += ']';
    }
    if (!m_messages.Messages().empty()) {
        AppendMessages(out, m_messages.Messages());
        m_messages.Clear();
    }
    const std::vector<ScriptEvent> events = m_events.Take();
    if (!events.empty()) {
        out += ",\"events\":[";
        for (std::size_t i = 0; i < events.size(); ++i) {
            out += i > 0 ? ",{\"source\":" : "{\"source\":";
            AppendJsonString(out, events[i].source);
            out += ",\"name\":";
            AppendJsonString(out, events[i].name);
            out += ",\"args\":[";
            for (std::size_t a = 0; a < events[i].args.size(); ++a) {
                if (a > 0) out += ',';
                WriteValue(out, events[i].args[a]);
            }
            out += "]}";
        }
        out += ']';
    }
    return out + '}';
}

} // namespace zlx
