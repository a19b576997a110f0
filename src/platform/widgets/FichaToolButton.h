#pragma once
// One button of the record-form toolbar: a tool button with a face colour given as a Windows
// colour (0x00BBGGRR, -1 automatic), clicks that can be posted to the event queue, closing a
// window later, and a status bar that shows its tool tip while the mouse is over it.

#include <QPointer>
#include <QToolButton>
#include <cstdint>

namespace zlx {

class FichaToolButton : public QToolButton {
    Q_OBJECT
    Q_PROPERTY(int BackColor READ BackColor WRITE SetBackColor)

public:
    explicit FichaToolButton(QWidget* parent = nullptr);

    std::int32_t BackColor() const { return m_backColor; }
    void SetBackColor(std::int32_t color);
    // Clicks the button from the event queue, after the current event.
    void PostClick();
    // Closes the window with this id (QWidget::winId) from the event queue.
    void PostClose(std::int64_t windowId);
    void SetStatusBar(QObject* statusBar) { m_statusBar = statusBar; }
    QObject* StatusBar() const { return m_statusBar; }

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void ShowInStatusBar(const QString& text) const;

    std::int32_t m_backColor = -1;
    QPointer<QObject> m_statusBar;
};

} // namespace zlx
