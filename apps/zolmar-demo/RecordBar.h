#pragma once
// The record toolbar of the client form: the record buttons Nuevo, Modificar, Eliminar and
// Buscar and the four movement buttons. In show state they are visible; while a record is
// edited or created they are hidden and the form's own save and cancel buttons take over.

#include <QWidget>
#include <array>

class QToolButton;

namespace zlx::demo {

enum RecordButton { RecordNuevo = 0, RecordModificar = 1, RecordEliminar = 2, RecordBuscar = 3 };
enum MoveButton { MoveFirst = 0, MovePrevious = 1, MoveNext = 2, MoveLast = 3 };

class RecordBar : public QWidget {
    Q_OBJECT
public:
    explicit RecordBar(QWidget* parent = nullptr);

    QToolButton* Button(int nBtn) const { return m_record.at(nBtn); }
    QToolButton* MovementButton(int nBtn) const { return m_move.at(nBtn); }
    // Show state: the buttons visible, each enabled as told; edit state: all hidden.
    void ShowState(bool lShowing, bool lValidRecord);

signals:
    // lShift: the Shift key was held (Buscar then repeats the last search).
    void RecordClicked(int nBtn, bool lShift);
    void MoveClicked(int nBtn);

private:
    QToolButton* MakeButton(const QString& caption, const QString& tip, int icon);

    std::array<QToolButton*, 4> m_record{};
    std::array<QToolButton*, 4> m_move{};
};

} // namespace zlx::demo
