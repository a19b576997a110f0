#pragma once
// The events (Qt signals) raised by the objects of a script session: each one is recorded
// with its arguments for the answer of the line during which it was raised, and a handler
// set beforehand hands values back through the event's by-reference parameters (or sets a
// property of the object that raised it, as a VB event procedure would).

#include "platform/variant/Variant.h"

#include <QHash>
#include <QMetaMethod>
#include <memory>
#include <vector>

class QObject;

namespace zlx {

struct ScriptEvent {
    QString source; // the object's name
    QString name;
    std::vector<Variant> args;
};

class ScriptEventSink;

class ScriptEvents {
public:
    ScriptEvents();
    ~ScriptEvents();

    // Starts recording the signals of the object (if it raises any).
    void Watch(const QString& name, const ObjectPtr& object);
    // The next `event` of the object sets these by-reference parameters or properties;
    // throws ScriptError when the object has no such event or the event no such value.
    void Handle(const ObjectPtr& object, const QString& event, QHash<QString, Variant> values);
    // The events raised since the last call.
    std::vector<ScriptEvent> Take();

private:
    friend class ScriptEventSink;
    void Raised(const ScriptEventSink& sink, void** args);
    const ScriptEventSink* FindSink(const Object* object, const QString& event) const;

    std::vector<std::unique_ptr<ScriptEventSink>> m_sinks;
    std::vector<ScriptEvent> m_raised;
    // By sink: the values its next event hands back.
    QHash<const ScriptEventSink*, QHash<QString, Variant>> m_handlers;
};

} // namespace zlx
