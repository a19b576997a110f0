#include "platform/companion/KeyTracker.h"

#include "platform/companion/cKeyboard.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace zlx {

KeyTracker& KeyTracker::Instance() {
    static KeyTracker* tracker = [] {
        auto* created = new KeyTracker; // lives as long as the process
        if (QCoreApplication::instance())
            created->AttachToApplication();
        else
            qAddPreRoutine(&KeyTracker::AttachWhenApplicationStarts);
        return created;
    }();
    return *tracker;
}

void KeyTracker::AttachWhenApplicationStarts() {
    Instance().AttachToApplication();
}

void KeyTracker::AttachToApplication() {
    if (m_attached) return;
    QCoreApplication::instance()->installEventFilter(this);
    m_attached = true;
}

bool KeyTracker::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (type == QEvent::KeyPress || type == QEvent::KeyRelease) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (!key->isAutoRepeat()) {
            const int code = cKeyboard::VirtualKeyOf(key->key());
            if (type == QEvent::KeyPress)
                m_down.insert(code);
            else
                m_down.remove(code);
        }
    } else if (type == QEvent::ApplicationDeactivate) {
        m_down.clear(); // key releases in other applications never reach us
    }
    return QObject::eventFilter(watched, event);
}

} // namespace zlx
