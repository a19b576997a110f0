#pragma once
// The record form control as a Qt widget: the toolbar (five record buttons, four movement
// buttons) on a data-entry form, with the record form's logic behind it. Its class name is
// "CtlFicha" outside any namespace, so that late-bound code (a form's busy check, the
// translation of a form's texts) recognises it by its type name; inside the library it is
// zlx::CtlFicha.
//
// Every public operation of the logic is a public member (CtlFichaLogic); the captions and
// tool tips and the busy counter are also reachable by name. The form it sits on is reached
// through QtFichaForm (its oAppGlobal object and, when the form derives from
// I_CtlFichaEvents, its event handlers); SetEvents hands the events to another handler.

#include "form/CtlFichaLogic.h"
#include "form/QtFichaForm.h"
#include "form/QtFichaView.h"

#include <QWidget>

namespace zlx {

// What the widget puts behind the logic's interfaces; built before the logic.
struct CtlFichaParts {
    explicit CtlFichaParts(QWidget* owner) : view(owner), form(owner) {}
    QtFichaView view;
    QtFichaForm form;
};

} // namespace zlx

class CtlFicha : public QWidget, private zlx::CtlFichaParts, public zlx::CtlFichaLogic {
    Q_OBJECT
    Q_PROPERTY(int UncompletedEvents READ UncompletedEvents)
    Q_PROPERTY(int FileStatus READ FileStatus WRITE FileStatus)
    Q_PROPERTY(int FormStatus READ FormStatus WRITE FormStatus)
    Q_PROPERTY(bool IsNewRecord READ IsNewRecord)
    Q_PROPERTY(bool IsShowing READ IsShowing)
    Q_PROPERTY(bool MostrarBotonComentario READ MostrarBotonComentario WRITE MostrarBotonComentario)
    Q_PROPERTY(QString Name READ objectName)

public:
    explicit CtlFicha(QWidget* parent = nullptr);
    ~CtlFicha() override;

    using zlx::CtlFichaLogic::BtnCaption;
    using zlx::CtlFichaLogic::BtnMoveToolTip;
    using zlx::CtlFichaLogic::BtnToolTip;
    Q_INVOKABLE QString BtnCaption(int nBtn) const { return CtlFichaLogic::BtnCaption(nBtn); }
    Q_INVOKABLE void SetBtnCaption(int nBtn, const QString& value) { BtnCaption(nBtn, value); }
    Q_INVOKABLE QString BtnToolTip(int nBtn) const { return CtlFichaLogic::BtnToolTip(nBtn); }
    Q_INVOKABLE void SetBtnToolTip(int nBtn, const QString& value) { BtnToolTip(nBtn, value); }
    Q_INVOKABLE QString BtnMoveToolTip(int nBtn) const {
        return CtlFichaLogic::BtnMoveToolTip(nBtn);
    }
    Q_INVOKABLE void SetBtnMoveToolTip(int nBtn, const QString& value) {
        BtnMoveToolTip(nBtn, value);
    }

    zlx::FichaToolbar* Toolbar() const { return view.Toolbar(); }
    // The form's own objects as the control reaches them.
    zlx::QtFichaForm& FormAccess() { return form; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
};

namespace zlx {
using CtlFicha = ::CtlFicha;
}
