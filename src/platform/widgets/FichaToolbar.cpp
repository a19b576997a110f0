#include "platform/widgets/FichaToolbar.h"

#include "platform/widgets/FichaToolbarIcons.h"

#include <QHBoxLayout>

namespace zlx {

namespace {

const char* const kRecordCaptions[] = {"&Nuevo", "&Modificar", "&Borrar", "B&uscar", "C&omentario"};
const char* const kRecordToolTips[] = {"Crear una ficha nueva", "Modificar la ficha actual",
                                       "Eliminar la ficha actual", "Buscar fichas",
                                       "Comentario de la ficha actual"};
const char* const kMoveToolTips[] = {"Primera ficha", "Ficha anterior", "Ficha siguiente",
                                     "Última ficha"};

} // namespace

FichaToolbar::FichaToolbar(QWidget* parent) : QWidget(parent) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    for (int n = 0; n < kRecordButtons; ++n) {
        m_record[n] = AddButton(layout, RecordImage(n), QString::fromUtf8(kRecordCaptions[n]),
                                QString::fromUtf8(kRecordToolTips[n]));
        m_record[n]->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        connect(m_record[n], &QToolButton::clicked, this, [this, n] { emit RecordClicked(n); });
    }
    layout->addStretch(1);
    for (int n = 0; n < kMoveButtons; ++n) {
        m_move[n] = AddButton(layout, MoveImage(n), QString(), QString::fromUtf8(kMoveToolTips[n]));
        m_move[n]->setToolButtonStyle(Qt::ToolButtonIconOnly);
        connect(m_move[n], &QToolButton::clicked, this, [this, n] { emit MoveClicked(n); });
    }
}

FichaToolButton* FichaToolbar::AddButton(QHBoxLayout* layout, int image, const QString& caption,
                                         const QString& toolTip) {
    auto* button = new FichaToolButton(this);
    button->setIcon(FichaToolbarIcons::Icon(image));
    button->setIconSize(QSize(20, 20));
    button->setText(caption);
    button->setToolTip(toolTip);
    button->setMinimumHeight(30);
    button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed); // captions never cut
    layout->addWidget(button);
    return button;
}

} // namespace zlx
