#include "script/ScriptForm.h"

#include "platform/widgets/btn.h"
#include "platform/widgets/get.h"
#include "platform/widgets/lbl.h"
#include "script/ScriptArgs.h"
#include "script/ScriptControl.h"
#include "script/ScriptFicha.h"

#include <QApplication>

namespace zlx {

namespace {

// A QWidget without a QApplication aborts the program: refuse it as a script error first.
QWidget* CheckedParent() {
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        throw ScriptError(QStringLiteral("a form needs the program's window system"));
    return nullptr;
}

} // namespace

ScriptForm::ScriptForm() : QWidget(CheckedParent()) {
    resize(660, 400);
}

ScriptForm::~ScriptForm() {
    m_ficha.reset(); // the toolbar goes before the controls it binds
}

QWidget* ScriptForm::NewControl(const QString& type) {
    if (type.compare(u"get", Qt::CaseInsensitive) == 0) return new ::get(this);
    if (type.compare(u"btn", Qt::CaseInsensitive) == 0) return new ::btn(this);
    if (type.compare(u"lbl", Qt::CaseInsensitive) == 0) return new ::lbl(this);
    throw ScriptError(QStringLiteral("unknown control type \"%1\" (get, btn or lbl)").arg(type));
}

std::shared_ptr<ScriptControl> ScriptForm::AddControl(const QString& type, const QString& name,
                                                      const QString& campo) {
    QWidget* control = NewControl(type);
    control->setObjectName(name);
    control->setProperty("Campo", campo);
    control->setGeometry(10, m_nextTop, 250, 24);
    m_nextTop += 30;
    return std::make_shared<ScriptControl>(control);
}

std::shared_ptr<ScriptFicha> ScriptForm::Ficha() {
    if (!m_ficha) m_ficha = std::make_shared<ScriptFicha>(*this);
    return m_ficha;
}

} // namespace zlx
