#pragma once
// The record-form toolbar's view: five record buttons (Nuevo, Modificar, Eliminar, Buscar,
// Comentario) with their pictures and captions, then the four movement buttons (first,
// previous, next, last) with pictures only. It draws and lays out; what a click does is the
// record form's business.

#include "platform/widgets/FichaToolButton.h"

#include <QWidget>
#include <array>

class QHBoxLayout;

namespace zlx {

class FichaToolbar : public QWidget {
    Q_OBJECT
public:
    static constexpr int kRecordButtons = 5;
    static constexpr int kMoveButtons = 4;

    explicit FichaToolbar(QWidget* parent = nullptr);

    FichaToolButton* RecordButton(int n) const { return m_record.at(n); }
    FichaToolButton* MoveButton(int n) const { return m_move.at(n); }
    // The picture number each button carries.
    static int RecordImage(int n) { return 205 + n; }
    static int MoveImage(int n) { return 201 + n; }

signals:
    void RecordClicked(int n);
    void MoveClicked(int n);

private:
    FichaToolButton* AddButton(QHBoxLayout* layout, int image, const QString& caption,
                               const QString& toolTip);

    std::array<FichaToolButton*, kRecordButtons> m_record{};
    std::array<FichaToolButton*, kMoveButtons> m_move{};
};

} // namespace zlx
