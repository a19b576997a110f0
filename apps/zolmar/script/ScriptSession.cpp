#include "script/ScriptSession.h"

#include "JsonVariant.h"
#include "script/ScriptRegistry.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace zlx {

namespace {

QString Text(const QJsonObject& line, const char* key) {
    const QJsonValue value = line.value(QLatin1String(key));
    if (!value.isString() || value.toString().isEmpty())
        throw ScriptError(QStringLiteral("\"%1\" must be a name").arg(QLatin1String(key)));
    return value.toString();
}

QString CountText(const ScriptMember& member) {
    return member.minArgs == member.maxArgs
               ? QString::number(member.minArgs)
               : QStringLiteral("%1 to %2").arg(member.minArgs).arg(member.maxArgs);
}

} // namespace

ScriptSession::ScriptSession()
    : m_objects(
          [this](const QString& name, const ObjectPtr& object) { m_events.Watch(name, object); }) {}

QByteArray ScriptSession::Answer(const QByteArray& line) {
    QByteArray head;
    std::optional<Result> result;
    try {
        QJsonParseError parseError{};
        const QJsonDocument document = QJsonDocument::fromJson(line, &parseError);
        if (parseError.error != QJsonParseError::NoError)
            throw ScriptError("invalid JSON: " + parseError.errorString());
        if (!document.isObject()) throw ScriptError(QStringLiteral("a line must be a JSON object"));
        result = Run(document.object());
        head = "\"ok\":";
        WriteValue(head, result->value);
    } catch (const VariantError& error) {
        head = "\"error\":";
        AppendJsonString(head, error.Description());
        head += ",\"number\":" + QByteArray::number(error.Number());
    } catch (const std::exception& error) {
        head = "\"error\":";
        AppendJsonString(head, QString::fromUtf8(error.what()));
    }
    return Reply(head, result ? &*result : nullptr);
}

ScriptSession::Result ScriptSession::Run(const QJsonObject& line) {
    if (line.contains(u"new")) return New(line);
    if (line.contains(u"call")) return Invoke(Text(line, "call"), line, false);
    if (line.contains(u"get")) return Invoke(Text(line, "get"), line, false);
    if (line.contains(u"handle")) return Handle(Text(line, "handle"), line.value(u"set"));
    if (line.contains(u"set")) return Invoke(Text(line, "set"), line, true);
    if (line.contains(u"answers")) return QueueAnswers(line.value(u"answers"));
    throw ScriptError(QStringLiteral(
        "a line must hold \"new\", \"call\", \"get\", \"set\", \"answers\" or \"handle\""));
}

ScriptSession::Result ScriptSession::New(const QJsonObject& line) {
    const QString className = Text(line, "new");
    const ScriptClass* scriptClass = FindScriptClass(className);
    if (!scriptClass) throw ScriptError(QStringLiteral("unknown class \"%1\"").arg(className));
    if (!scriptClass->create)
        throw ScriptError(QStringLiteral("%1 cannot be created by name").arg(scriptClass->name));
    const ObjectPtr object = scriptClass->create();
    if (!line.contains(u"as")) return Result(m_objects.NameOf(object));
    const QString name = Text(line, "as");
    m_objects.Name(name, object);
    return Result(name);
}

ScriptSession::Result ScriptSession::Invoke(const QString& target, const QJsonObject& line,
                                            bool write) {
    const auto [object, memberName] = Target(target);
    const ScriptMember& member = Member(*object, memberName);
    ScriptArgs args(Arguments(line.value(u"args")));
    const auto count = static_cast<int>(args.Count());
    if (count < member.minArgs || count > member.maxArgs)
        throw ScriptError(QStringLiteral("%1.%2 takes %3 arguments, got %4")
                              .arg(object->TypeName(), memberName, CountText(member))
                              .arg(count));
    if (!write) {
        Result result(member.get(*object, args));
        result.out = args.OutValues();
        // "as" names the object answered, as "new" names the one made.
        if (line.contains(u"as") && result.value.IsObject() && result.value.ToObject())
            m_objects.Name(Text(line, "as"), result.value.ToObject());
        return result;
    }
    if (!member.set)
        throw ScriptError(
            QStringLiteral("%1.%2 cannot be set").arg(object->TypeName(), memberName));
    if (!line.contains(u"value")) throw ScriptError(QStringLiteral("\"set\" needs a \"value\""));
    member.set(*object, args, ReadValue(line.value(u"value")));
    return Result(true);
}

ScriptSession::Result ScriptSession::QueueAnswers(const QJsonValue& answers) {
    if (!answers.isArray())
        throw ScriptError(QStringLiteral("\"answers\" must be a list of numbers"));
    for (const QJsonValue& answer : answers.toArray()) {
        if (!answer.isDouble())
            throw ScriptError(QStringLiteral("\"answers\" must be a list of numbers"));
        m_messages.QueueAnswers({answer.toInt()});
    }
    return Result(true);
}

ScriptSession::Result ScriptSession::Handle(const QString& target, const QJsonValue& values) {
    if (!values.isObject())
        throw ScriptError(QStringLiteral("\"set\" must be an object of parameter values"));
    const auto [object, event] = Target(target);
    QHash<QString, Variant> converted;
    const QJsonObject given = values.toObject();
    for (auto it = given.begin(); it != given.end(); ++it)
        converted.insert(it.key(), ReadValue(it.value()));
    m_events.Handle(object, event, std::move(converted));
    return Result(true);
}

std::pair<ObjectPtr, QString> ScriptSession::Target(const QString& target) const {
    const qsizetype dot = target.lastIndexOf(u'.');
    if (dot <= 0 || dot == target.size() - 1)
        throw ScriptError(QStringLiteral("\"%1\" must be OBJECT.MEMBER").arg(target));
    return {m_objects.Find(target.left(dot)), target.mid(dot + 1)};
}

const ScriptMember& ScriptSession::Member(const Object& object, const QString& name) const {
    const ScriptClass* scriptClass = FindScriptClass(object.TypeName());
    const ScriptMember* member = scriptClass ? scriptClass->Find(name) : nullptr;
    if (!member)
        throw ScriptError(QStringLiteral("%1 has no member \"%2\"").arg(object.TypeName(), name));
    return *member;
}

std::vector<Variant> ScriptSession::Arguments(const QJsonValue& args) {
    if (args.isUndefined()) return {};
    if (!args.isArray()) throw ScriptError(QStringLiteral("\"args\" must be a list"));
    std::vector<Variant> values;
    for (const QJsonValue& arg : args.toArray())
        values.push_back(ReadValue(arg));
    return values;
}

} // namespace zlx
