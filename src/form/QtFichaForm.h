#pragma once
// The Qt form that holds a record form control (the control's window), its controls and its
// application object, behind the logic's form and controls interfaces. Everything the form
// offers is reached by name:
// - the Qt property "oAppGlobal" (a QObject*) is the application's global object, whose
//   properties ID_User, ID_Station (integers) and MainDB (text) are read, and whose invokable
//   methods are called when it has them: bool YN_TransMsg(QString text, int icon, QString
//   title), void AlertSound() and void RefrescarDatosLogFichas(QObject* form,
//   zlx::cFichaDBPtr cursor);
// - a form that also derives from I_CtlFichaEvents handles the control's events.

#include "form/I_CtlFichaControls.h"
#include "form/I_CtlFichaForm.h"

#include <QMetaType>
#include <QPointer>
#include <QWidget>

Q_DECLARE_METATYPE(zlx::cFichaDBPtr)

namespace zlx {

class QtFichaForm : public I_CtlFichaForm, public I_CtlFichaControls {
public:
    // `control` is the record form control; its window is the form.
    explicit QtFichaForm(QWidget* control) : m_control(control) {}

    QObject* FormObject() const override { return Window(); }
    std::int64_t hWnd() const override;
    QObject* ActiveControl() const override;
    std::int32_t MousePointer() const override { return m_mousePointer; }
    void MousePointer(std::int32_t value) override;
    bool Enabled() const override;
    void Enabled(bool value) override;
    void DoEvents() override;

    std::int32_t ID_User() const override;
    std::int32_t ID_Station() const override;
    QString MainDB() const override;
    bool YN_TransMsg(const QString& cText, std::int32_t nIcon, const QString& cTitle) override;
    void AlertSound() override;
    void RefrescarDatosLogFichas(const cFichaDBPtr& oFichaDB) override;
    I_CtlFichaEvents* FormEvents() const override;

    bool Enabled(QObject* oCtl) const override;
    void Enabled(QObject* oCtl, bool value) override;
    bool Visible(QObject* oCtl) const override;
    void Visible(QObject* oCtl, bool value) override;
    QString Name(QObject* oCtl) const override;
    void SetFocus(QObject* oCtl) override;
    void SetText(QObject* oCtl, const QString& cText) override;

    // The application's global object (nullptr when the form has none).
    QObject* AppGlobal() const;

private:
    QWidget* Window() const { return m_control ? m_control->window() : nullptr; }

    QPointer<QWidget> m_control;
    std::int32_t m_mousePointer = 0;
};

} // namespace zlx
