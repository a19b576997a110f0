#include "script/ScriptEvents.h"

#include "script/ScriptRegistry.h"

#include <QObject>
#include <QVariant>

namespace zlx {

// Receives one signal of one object: a QObject whose only slot is the whole of qt_metacall,
// connected by index, so that any signature arrives with its raw argument pointers.
class ScriptEventSink : public QObject {
public:
    ScriptEventSink(ScriptEvents& events, QString sourceName, Object& source, QObject& sender,
                    QMetaMethod signal)
        : m_events(events), m_sourceName(std::move(sourceName)), m_source(source),
          m_signal(signal) {
        QMetaObject::connect(&sender, signal.methodIndex(), this, SlotIndex(),
                             Qt::DirectConnection);
    }

    int qt_metacall(QMetaObject::Call call, int id, void** args) override {
        id = QObject::qt_metacall(call, id, args);
        if (id < 0 || call != QMetaObject::InvokeMetaMethod) return id;
        if (id == 0) m_events.Raised(*this, args);
        return id - 1;
    }

    const QString& SourceName() const { return m_sourceName; }
    Object& Source() const { return m_source; }
    const QMetaMethod& Signal() const { return m_signal; }
    QString EventName() const { return QString::fromLatin1(m_signal.name()); }

    // The parameter's index when it is passed by reference and has that name, else -1.
    int ByRefParameter(const QString& name) const {
        for (int i = 0; i < m_signal.parameterCount(); ++i)
            if (IsByRef(i) && QString::fromLatin1(m_signal.parameterNames()[i])
                                      .compare(name, Qt::CaseInsensitive) == 0)
                return i;
        return -1;
    }
    bool IsByRef(int i) const {
        const QByteArray type = m_signal.parameterTypes()[i];
        return type.endsWith('&') && !type.startsWith("const ");
    }
    // The parameter's type; Qt knows none for a reference, so "bool&" is found as bool.
    QMetaType ParameterType(int i) const {
        const QMetaType known = m_signal.parameterMetaType(i);
        if (known.isValid()) return known;
        QByteArray type = m_signal.parameterTypes()[i];
        type.chop(1);
        if (type == "std::int32_t" || type == "int32_t") return QMetaType::fromType<std::int32_t>();
        return QMetaType::fromName(type);
    }

private:
    static int SlotIndex() { return QObject::staticMetaObject.methodCount(); }

    ScriptEvents& m_events;
    QString m_sourceName;
    Object& m_source;
    QMetaMethod m_signal;
};

namespace {

Variant FromQVariant(const QVariant& value) {
    switch (value.metaType().id()) {
    case QMetaType::UnknownType:
        return Variant();
    case QMetaType::Bool:
        return Variant(value.toBool());
    case QMetaType::Double:
    case QMetaType::Float:
        return Variant(value.toDouble());
    case QMetaType::QString:
        return Variant(value.toString());
    default:
        break;
    }
    bool isNumber = false;
    const qlonglong number = value.toLongLong(&isNumber);
    if (isNumber && number >= INT32_MIN && number <= INT32_MAX)
        return Variant(static_cast<std::int32_t>(number));
    if (isNumber) return Variant(static_cast<double>(number));
    return Variant(value.toString());
}

// Writes a handler's value into a by-reference argument of a known type.
void WriteBack(const QMetaType& type, void* argument, const Variant& value) {
    switch (type.id()) {
    case QMetaType::Bool:
        *static_cast<bool*>(argument) = value.ToBool();
        break;
    case QMetaType::Int:
        *static_cast<int*>(argument) = value.ToLong();
        break;
    case QMetaType::Short:
        *static_cast<short*>(argument) = value.ToInt();
        break;
    case QMetaType::Double:
        *static_cast<double*>(argument) = value.ToDouble();
        break;
    case QMetaType::QString:
        *static_cast<QString*>(argument) = value.ToString();
        break;
    default:
        break; // refused when the handler was set
    }
}

bool CanWriteBack(const QMetaType& type) {
    const int id = type.id();
    return id == QMetaType::Bool || id == QMetaType::Int || id == QMetaType::Short ||
           id == QMetaType::Double || id == QMetaType::QString;
}

const ScriptMember* SettableProperty(const Object& object, const QString& name) {
    const ScriptClass* scriptClass = FindScriptClass(object.TypeName());
    const ScriptMember* member = scriptClass ? scriptClass->Find(name) : nullptr;
    return member && member->set && member->minArgs == 0 ? member : nullptr;
}

} // namespace

ScriptEvents::ScriptEvents() = default;
ScriptEvents::~ScriptEvents() = default;

void ScriptEvents::Watch(const QString& name, const ObjectPtr& object) {
    auto* sender = dynamic_cast<QObject*>(object.get());
    if (!sender) return;
    const QMetaObject* meta = sender->metaObject();
    for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() == QMetaMethod::Signal)
            m_sinks.push_back(
                std::make_unique<ScriptEventSink>(*this, name, *object, *sender, method));
    }
}

const ScriptEventSink* ScriptEvents::FindSink(const Object* object, const QString& event) const {
    for (const auto& sink : m_sinks)
        if (&sink->Source() == object && sink->EventName().compare(event, Qt::CaseInsensitive) == 0)
            return sink.get();
    return nullptr;
}

void ScriptEvents::Handle(const ObjectPtr& object, const QString& event,
                          QHash<QString, Variant> values) {
    const ScriptEventSink* sink = FindSink(object.get(), event);
    if (!sink)
        throw ScriptError(QStringLiteral("%1 has no event \"%2\"").arg(object->TypeName(), event));
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        const int parameter = sink->ByRefParameter(it.key());
        const QMetaType type = parameter >= 0 ? sink->ParameterType(parameter) : QMetaType();
        if (parameter >= 0 && CanWriteBack(type)) {
            QVariant trial(type);
            WriteBack(type, trial.data(), it.value()); // a value that does not convert fails now
        } else if (!SettableProperty(*object, it.key())) {
            throw ScriptError(
                QStringLiteral("%1 has neither a by-reference parameter nor a property \"%2\"")
                    .arg(sink->EventName(), it.key()));
        }
    }
    m_handlers.insert(sink, std::move(values));
}

void ScriptEvents::Raised(const ScriptEventSink& sink, void** args) {
    const QMetaMethod& signal = sink.Signal();
    ScriptEvent event{sink.SourceName(), sink.EventName(), {}};
    for (int i = 0; i < signal.parameterCount(); ++i)
        event.args.push_back(FromQVariant(QVariant(sink.ParameterType(i), args[i + 1])));
    m_raised.push_back(std::move(event));

    const auto handler = m_handlers.find(&sink);
    if (handler == m_handlers.end()) return;
    const QHash<QString, Variant> values = handler.value();
    m_handlers.erase(handler); // a handler answers one event
    for (auto it = values.cbegin(); it != values.cend(); ++it) {
        const int parameter = sink.ByRefParameter(it.key());
        if (parameter >= 0) {
            WriteBack(sink.ParameterType(parameter), args[parameter + 1], it.value());
        } else {
            ScriptArgs noIndex({});
            SettableProperty(sink.Source(), it.key())->set(sink.Source(), noIndex, it.value());
        }
    }
}

std::vector<ScriptEvent> ScriptEvents::Take() {
    return std::exchange(m_raised, {});
}

} // namespace zlx
