#include "platform/widgets/FichaToolButton.h"

#include <QTimer>

namespace zlx {

FichaToolButton::FichaToolButton(QWidget* parent) : QToolButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
}

void FichaToolButton::SetBackColor(std::int32_t color) {
    m_backColor = color;
    QPalette face = parentWidget() ? parentWidget()->palette() : QPalette();
    if (color != -1) {
        const QColor rgb(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF);
        face.setColor(QPalette::Button, rgb);
        face.setColor(QPalette::Window, rgb);
    }
    setPalette(face);
    setAutoFillBackground(color != -1);
    update();
}

void FichaToolButton::PostClick() {
    QTimer::singleShot(0, this, [this] { click(); });
}

void FichaToolButton::PostClose(std::int64_t windowId) {
    QTimer::singleShot(0, this, [windowId] {
        if (QWidget* window = QWidget::find(static_cast<WId>(windowId))) window->close();
    });
}

void FichaToolButton::ShowInStatusBar(const QString& text) const {
    if (m_statusBar)
        QMetaObject::invokeMethod(m_statusBar, "showMessage", Qt::DirectConnection,
                                  Q_ARG(QString, text));
}

void FichaToolButton::enterEvent(QEnterEvent* event) {
    ShowInStatusBar(toolTip());
    QToolButton::enterEvent(event);
}

void FichaToolButton::leaveEvent(QEvent* event) {
    ShowInStatusBar(QString());
    QToolButton::leaveEvent(event);
}

} // namespace zlx
