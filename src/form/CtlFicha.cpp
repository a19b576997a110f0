#include "form/CtlFicha.h"

#include "platform/companion/cKeyboard.h"

#include <QKeyEvent>

CtlFicha::CtlFicha(QWidget* parent) : QWidget(parent), CtlFichaParts(this), CtlFichaLogic(view) {
    setObjectName(QStringLiteral("CtlFicha"));
    setFocusPolicy(Qt::StrongFocus);
    SetForm(&form);
    SetControls(&form);
    connect(Toolbar(), &zlx::FichaToolbar::RecordClicked, this, [this](int n) { ButtonClick(n); });
    connect(Toolbar(), &zlx::FichaToolbar::MoveClicked, this,
            [this](int n) { MoveButtonClick(n); });
}

CtlFicha::~CtlFicha() = default;

void CtlFicha::keyPressEvent(QKeyEvent* event) {
    std::int16_t keyCode = static_cast<std::int16_t>(zlx::cKeyboard::VirtualKeyOf(event->key()));
    std::int16_t shift = zlx::cKeyboard::ShiftMaskOf(event->modifiers());
    ControlKeyDown(keyCode, shift);
    if (keyCode == 0)
        event->accept();
    else
        QWidget::keyPressEvent(event);
}

void CtlFicha::keyReleaseEvent(QKeyEvent* event) {
    std::int16_t keyCode = static_cast<std::int16_t>(zlx::cKeyboard::VirtualKeyOf(event->key()));
    std::int16_t shift = zlx::cKeyboard::ShiftMaskOf(event->modifiers());
    ControlKeyUp(keyCode, shift);
    QWidget::keyReleaseEvent(event);
}
