#include "form/QtFichaForm.h"

#include "form/I_CtlFichaEvents.h"

#include <QApplication>

namespace zlx {

namespace {

QWidget* AsWidget(QObject* object) {
    return qobject_cast<QWidget*>(object);
}

// Mouse pointers by their numbers: 11 hourglass, 13 arrow and hourglass, 0 the default.
void ApplyPointer(QWidget* window, std::int32_t pointer) {
    if (!window) return;
    if (pointer == 11)
        window->setCursor(Qt::WaitCursor);
    else if (pointer == 13)
        window->setCursor(Qt::BusyCursor);
    else
        window->unsetCursor();
}

} // namespace

std::int64_t QtFichaForm::hWnd() const {
    QWidget* window = Window();
    return window ? static_cast<std::int64_t>(window->winId()) : 0;
}

// The focus widget, or the control it belongs to: the nearest widget up the chain whose class
// declares a Name property (the companion controls), else the focus widget itself.
QObject* QtFichaForm::ActiveControl() const {
    QWidget* window = Window();
    QWidget* focus = QApplication::focusWidget();
    if (!window || !focus || focus->window() != window) return nullptr;
    for (QWidget* widget = focus; widget && widget != window; widget = widget->parentWidget())
        if (widget->metaObject()->indexOfProperty("Name") >= 0) return widget;
    return focus;
}

void QtFichaForm::MousePointer(std::int32_t value) {
    m_mousePointer = value;
    ApplyPointer(Window(), value);
}

bool QtFichaForm::Enabled() const {
    const QWidget* window = Window();
    return !window || window->isEnabled();
}

void QtFichaForm::Enabled(bool value) {
    if (QWidget* window = Window()) window->setEnabled(value);
}

void QtFichaForm::DoEvents() {
    QCoreApplication::processEvents();
}

QObject* QtFichaForm::AppGlobal() const {
    const QWidget* window = Window();
    return window ? window->property("oAppGlobal").value<QObject*>() : nullptr;
}

std::int32_t QtFichaForm::ID_User() const {
    const QObject* app = AppGlobal();
    return app ? app->property("ID_User").toInt() : 0;
}

std::int32_t QtFichaForm::ID_Station() const {
    const QObject* app = AppGlobal();
    return app ? app->property("ID_Station").toInt() : 0;
}

QString QtFichaForm::MainDB() const {
    const QObject* app = AppGlobal();
    return app ? app->property("MainDB").toString() : QString();
}

bool QtFichaForm::YN_TransMsg(const QString& cText, std::int32_t nIcon, const QString& cTitle) {
    QObject* app = AppGlobal();
    bool answer = false;
    if (app && QMetaObject::invokeMethod(app, "YN_TransMsg", Qt::DirectConnection,
                                         Q_RETURN_ARG(bool, answer), Q_ARG(QString, cText),
                                         Q_ARG(int, nIcon), Q_ARG(QString, cTitle)))
        return answer;
    return I_CtlFichaForm::YN_TransMsg(cText, nIcon, cTitle);
}

void QtFichaForm::AlertSound() {
    QObject* app = AppGlobal();
    if (!app || !QMetaObject::invokeMethod(app, "AlertSound", Qt::DirectConnection))
        QApplication::beep();
}

void QtFichaForm::RefrescarDatosLogFichas(const cFichaDBPtr& oFichaDB) {
    if (QObject* app = AppGlobal())
        QMetaObject::invokeMethod(app, "RefrescarDatosLogFichas", Qt::DirectConnection,
                                  Q_ARG(QObject*, Window()), Q_ARG(zlx::cFichaDBPtr, oFichaDB));
}

I_CtlFichaEvents* QtFichaForm::FormEvents() const {
    return dynamic_cast<I_CtlFichaEvents*>(Window());
}

bool QtFichaForm::Enabled(QObject* oCtl) const {
    const QWidget* widget = AsWidget(oCtl);
    return widget && widget->isEnabled();
}

void QtFichaForm::Enabled(QObject* oCtl, bool value) {
    if (QWidget* widget = AsWidget(oCtl)) widget->setEnabled(value);
}

// Visible when the form is: a control of a form not yet shown counts as visible.
bool QtFichaForm::Visible(QObject* oCtl) const {
    const QWidget* widget = AsWidget(oCtl);
    return widget && widget->isVisibleTo(widget->window());
}

void QtFichaForm::Visible(QObject* oCtl, bool value) {
    if (QWidget* widget = AsWidget(oCtl)) widget->setVisible(value);
}

QString QtFichaForm::Name(QObject* oCtl) const {
    return oCtl ? oCtl->objectName() : QString();
}

void QtFichaForm::SetFocus(QObject* oCtl) {
    if (QWidget* widget = AsWidget(oCtl)) widget->setFocus(Qt::OtherFocusReason);
}

void QtFichaForm::SetText(QObject* oCtl, const QString& cText) {
    if (!oCtl) return;
    oCtl->setProperty(oCtl->metaObject()->indexOfProperty("Text") >= 0 ? "Text" : "text", cText);
}

} // namespace zlx
