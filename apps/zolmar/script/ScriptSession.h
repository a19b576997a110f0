#pragma once
// `zolmar script`: the library's late-binding surface. Each JSON line creates an object by
// class name, calls a method or reads or writes a property by name, queues answers for the
// message boxes to come or sets an event handler, and is answered by one JSON line:
//
//   {"new": "cConexion", "as": "cn"}                  -> {"ok": "cn"}
//   {"call": "cn.Execute", "args": ["SELECT 1", 1]}   -> {"ok": 1}
//   {"get": "cn.DBName"}   {"set": "d.Filter", "value": "n > 1"}   (both may take "args")
//   {"answers": [2, 1]}    {"handle": "d.QueryInProgress", "set": {"lUserCancel": true}}
//
// An answer carries "out" (the by-reference parameters after the call), "messages" (the
// message boxes shown) and "events" (the signals raised) when there are any; a line that
// cannot be carried out answers {"error": TEXT} and the session goes on.

#include "platform/companion/RecordingMsgPresenter.h"
#include "platform/companion/ScriptedSearchGrid.h"
#include "script/ScriptEvents.h"
#include "script/ScriptObjects.h"

#include <QByteArray>
#include <QJsonObject>

namespace zlx {

class ScriptArgs;
struct ScriptMember;

class ScriptSession {
public:
    ScriptSession();

    // The answer line (without its line end) to one input line; nothing escapes.
    QByteArray Answer(const QByteArray& line);

private:
    // What a line produced: its value and the by-reference parameters of a call.
    struct Result {
        Result(Variant v = Variant()) : value(std::move(v)) {}
        Variant value;
        std::vector<Variant> out;
    };

    Result Run(const QJsonObject& line);
    Result New(const QJsonObject& line);
    Result Invoke(const QString& target, const QJsonObject& line, bool write);
    Result QueueAnswers(const QJsonValue& answers);
    Result Handle(const QString& target, const QJsonValue& values);

    // "name.Member" split at its last dot, the object found.
    std::pair<ObjectPtr, QString> Target(const QString& target) const;
    const ScriptMember& Member(const Object& object, const QString& name) const;
    std::vector<Variant> Arguments(const QJsonValue& args);

    // Values, as `zolmar batch` writes them, plus {"ref": NAME} and {"matriz": ...}.
    Variant ReadValue(const QJsonValue& value);
    bool ReadObject(const QJsonObject& object, Variant& value);
    void WriteValue(QByteArray& out, const Variant& value);
    void WriteObject(QByteArray& out, const ObjectPtr& object);

    QByteArray Reply(const QByteArray& head, const Result* result);

    RecordingMsgPresenter m_messages;
    ScopedMsgPresenter m_messageScope{m_messages};
    ScriptedSearchGrid m_grids; // nothing is picked: the grid's rows never reach the output
    ScopedSearchGridPresenter m_gridScope{m_grids};
    ScriptEvents m_events;
    ScriptObjects m_objects;
};

} // namespace zlx
