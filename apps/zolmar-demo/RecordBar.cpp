#include "RecordBar.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QStyle>
#include <QToolButton>

namespace zlx::demo {

RecordBar::RecordBar(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("CtlFicha"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    m_record = {MakeButton(QStringLiteral("&Nuevo"), QStringLiteral("Crear un cliente nuevo"),
                           QStyle::SP_FileIcon),
                MakeButton(QStringLiteral("&Modificar"),
                           QStringLiteral("Modificar el cliente que se muestra"),
                           QStyle::SP_FileDialogDetailedView),
                MakeButton(QStringLiteral("&Borrar"),
                           QStringLiteral("Eliminar el cliente que se muestra"),
                           QStyle::SP_TrashIcon),
                MakeButton(QStringLiteral("B&uscar"),
                           QStringLiteral("Buscar un cliente (Mayúsculas: repetir la última "
                                          "búsqueda)"),
                           QStyle::SP_FileDialogContentsView)};
    m_move = {MakeButton({}, QStringLiteral("Primer cliente"), QStyle::SP_MediaSkipBackward),
              MakeButton({}, QStringLiteral("Cliente anterior"), QStyle::SP_MediaSeekBackward),
              MakeButton({}, QStringLiteral("Cliente siguiente"), QStyle::SP_MediaSeekForward),
              MakeButton({}, QStringLiteral("Último cliente"), QStyle::SP_MediaSkipForward)};
    for (int i = 0; i < 4; ++i) {
        layout->addWidget(m_record[i]);
        connect(m_record[i], &QToolButton::clicked, this, [this, i] {
            emit RecordClicked(i, QApplication::keyboardModifiers() & Qt::ShiftModifier);
        });
    }
    layout->addSpacing(16);
    for (int i = 0; i < 4; ++i) {
        layout->addWidget(m_move[i]);
        connect(m_move[i], &QToolButton::clicked, this, [this, i] { emit MoveClicked(i); });
    }
    layout->addStretch();
}

QToolButton* RecordBar::MakeButton(const QString& caption, const QString& tip, int icon) {
    auto* button = new QToolButton(this);
    button->setIcon(style()->standardIcon(static_cast<QStyle::StandardPixmap>(icon)));
    button->setToolTip(tip);
    button->setAutoRaise(true);
    if (!caption.isEmpty()) {
        button->setText(caption);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    }
    return button;
}

void RecordBar::ShowState(bool lShowing, bool lValidRecord) {
    for (QToolButton* button : m_record)
        button->setVisible(lShowing);
    for (QToolButton* button : m_move) {
        button->setVisible(lShowing);
        button->setEnabled(lValidRecord);
    }
    m_record[RecordModificar]->setEnabled(lValidRecord);
    m_record[RecordEliminar]->setEnabled(lValidRecord);
}

} // namespace zlx::demo
