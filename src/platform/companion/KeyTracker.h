#pragma once
// Remembers which keys are held down, from every key event the application receives.

#include <QObject>
#include <QSet>

namespace zlx {

class KeyTracker : public QObject {
public:
    // The process's tracker, filtering the application's events from the moment the
    // application object exists.
    static KeyTracker& Instance();
    bool IsDown(int virtualKey) const { return m_down.contains(virtualKey); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    KeyTracker() = default;
    void AttachToApplication();
    static void AttachWhenApplicationStarts();
    QSet<int> m_down;
    bool m_attached = false;
};

} // namespace zlx
