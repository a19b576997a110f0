#include "ui/cAppUI.h"

#include "frame/LibraryState.h"
#include "frame/cGlobales.h"
#include "platform/companion/cMsgBox.h"
#include "platform/variant/NumberText.h"

#include <QCoreApplication>
#include <QWidget>

namespace zlx {

namespace {

const QString kRequired = QStringLiteral("Este dato es necesario; no puede quedar sin introducir");

QString ValidateText(const QString& typed, bool asterisk, bool number, bool plus, bool minus) {
    const QString text = typed.trimmed();
    if (text.isEmpty()) return kRequired;
    if (asterisk && text.contains(u'*'))
        return QStringLiteral("Este dato no puede contener el símbolo \"*\"");
    if (plus && text.startsWith(u'+'))
        return QStringLiteral("Este dato no puede comenzar por el símbolo \"+\"");
    if (minus && text.startsWith(u'-'))
        return QStringLiteral("Este dato no puede comenzar por el símbolo \"-\"");
    if (number && NumberText::Val(text) > 0)
        return QStringLiteral("Este dato no puede comenzar por un número");
    return {};
}

bool IsBusyControl(const QObject* control) {
    static const QStringList kinds = {"btn", "get", "grd", "StBar", "lbl", "CtlFicha"};
    return kinds.contains(QString::fromLatin1(control->metaObject()->className())) &&
           control->property("UncompletedEvents").toInt() > 0;
}

// Runs "<name>_Validate" of the form for one control; true when the control passes.
bool RunValidation(QWidget* form, QWidget* control) {
    const QString name = control->objectName();
    const bool isButton = name.startsWith(QStringLiteral("btn"));
    const bool isGet = name.startsWith(QStringLiteral("get"));
    if (!control->isVisibleTo(form) || !control->isEnabled() || !(isButton || isGet)) return true;
    if (isGet && !control->property("ShownEnabled").toBool()) return true;
    const QByteArray method = (name + QStringLiteral("_Validate")).toLatin1();
    bool cancel = false;
    const QVariant index = control->property("Index");
    // A call that fails (no such procedure) lets the control pass.
    if (index.isValid())
        QMetaObject::invokeMethod(form, method.constData(), Qt::DirectConnection,
                                  Q_ARG(int, index.toInt()), Q_ARG(bool&, cancel));
    else
        QMetaObject::invokeMethod(form, method.constData(), Qt::DirectConnection,
                                  Q_ARG(bool&, cancel));
    return !cancel;
}

// The control whose validation runs when the form asks for its last control: the active
// one, or for buttons and reports the control they recorded in CtrlFocus.
QWidget* LastControl(QWidget* form) {
    QWidget* active = form->focusWidget();
    if (!active) return nullptr;
    const QString name = active->objectName();
    if (!name.startsWith(QStringLiteral("btn")) && !name.startsWith(QStringLiteral("rpt")))
        return active;
    for (QWidget* child : form->findChildren<QWidget*>()) {
        const QString kind = QString::fromLatin1(child->metaObject()->className());
        if (kind == u"get" || kind == u"btn")
            return qobject_cast<QWidget*>(child->property("CtrlFocus").value<QObject*>());
    }
    return nullptr;
}

} // namespace

std::int32_t cAppUI::OK_Message(const QString& cCad, std::int32_t nTipo, const QString& cTitulo,
                                std::int32_t nIcono, bool lGrande) {
    cMsgBox box;
    box.SetIcon(nIcono);
    if (lGrande) box.SetFont(QStringLiteral("Verdana"), 13);
    const std::int32_t answer = box.ShowMessage(cCad, nTipo, cTitulo);
    if (QCoreApplication::instance()) QCoreApplication::processEvents();
    return answer;
}

bool cAppUI::YN_Message(const QString& cCad, std::int32_t nTipo, const QString& cTitulo,
                        std::int32_t nIcono, bool lGrande) {
    return OK_Message(cCad, nTipo, cTitulo, nIcono, lGrande) == 1;
}

QString cAppUI::ValidarNombre(const Variant& xTexto, bool lBloquearAsterisco,
                              bool lBloquearComienzaNumero, bool lBloquearComienzaMas,
                              bool lBloquearComienzaMenos) const {
    if (xTexto.VarType() == vbDate)
        return xTexto == Variant(BlankDate())
                   ? QStringLiteral("Esta fecha es necesaria; no puede quedar sin introducir")
                   : QString();
    if (xTexto.VarType() == vbString)
        return ValidateText(xTexto.ToString(), lBloquearAsterisco, lBloquearComienzaNumero,
                            lBloquearComienzaMas, lBloquearComienzaMenos);
    return xTexto == Variant(0) ? kRequired : QString();
}

std::int32_t cAppUI::String2ID(const QString& cTxt) const {
    if (!cTxt.startsWith(u'-')) return 0;
    qsizetype end = 1;
    while (end < cTxt.size() && cTxt[end] >= u'0' && cTxt[end] <= u'9')
        ++end;
    const qsizetype digits = end - 1;
    if (digits == 0 || digits >= 10) return 0;
    return cTxt.mid(1, digits).toInt();
}

Variant cAppUI::ControlValue(const QObject* control) {
    for (const char* name : {"Value", "value", "text"}) {
        const QVariant value = control->property(name);
        if (!value.isValid()) continue;
        if (value.typeId() == QMetaType::QString) return Variant(value.toString());
        if (value.typeId() == QMetaType::Bool) return Variant(value.toBool());
        return Variant(value.toDouble());
    }
    return Variant();
}

std::int32_t cAppUI::CountZerosInCtls(const QList<QObject*>& oCtlArray) const {
    std::int32_t zeros = 0;
    // A control's text compares with 0 as a number, as VB compares a text with a number.
    for (const QObject* control : oCtlArray) {
        const Variant value = ControlValue(control);
        if (!value.IsEmpty() && value.IsNumeric() && value.ToDouble() == 0.0) ++zeros;
    }
    return zeros;
}

void cAppUI::DisableBtnFicha(const QList<QWidget*>& aBotones, bool lVisible, bool lEnabled,
                             std::int32_t nPrimerIndice, std::int32_t nUltimoIndice) const {
    const std::int32_t upper = static_cast<std::int32_t>(aBotones.size()) - 1;
    const std::int32_t first = nPrimerIndice > 0 ? nPrimerIndice : 0;
    const std::int32_t last = nUltimoIndice >= 0 && nUltimoIndice < upper ? nUltimoIndice : upper;
    for (std::int32_t i = first; i <= last; ++i) {
        aBotones[i]->setVisible(lVisible);
        if (lVisible) aBotones[i]->setEnabled(lEnabled);
    }
}

bool cAppUI::CanUnloadForm(QWidget* oFrm) const {
    for (const QObject* control : oFrm->findChildren<QObject*>()) {
        if (!IsBusyControl(control)) continue;
        const auto globales = oFrm->property("oAppGlobal").value<cGlobalesPtr>();
        const cKeyboardPtr keyboard = globales ? globales->oKeyboard() : nullptr;
        return keyboard && keyboard->CheckUnload();
    }
    return true;
}

bool cAppUI::ValidateLastControl(QWidget* oFrm, bool lTodos) const {
    QList<QWidget*> candidates;
    if (lTodos) {
        candidates = oFrm->findChildren<QWidget*>();
    } else if (QWidget* last = LastControl(oFrm)) {
        candidates = {last};
    }
    for (QWidget* control : candidates) {
        if (!RunValidation(oFrm, control)) {
            control->setFocus();
            return false;
        }
    }
    return true;
}

bool cAppUI::HabilitarRegistro_LogFichas() const {
    return LibraryState::Instance().HabilitarRegistro_LogFichas();
}
void cAppUI::HabilitarRegistro_LogFichas(bool value) {
    LibraryState::Instance().HabilitarRegistro_LogFichas(value);
}
bool cAppUI::CtlFichaReadOnly() const {
    return LibraryState::Instance().CtlFichaReadOnly();
}
void cAppUI::CtlFichaReadOnly(bool value) {
    LibraryState::Instance().CtlFichaReadOnly(value);
}
bool cAppUI::AutoReconectar() const {
    return LibraryState::Instance().AutoReconectar();
}
void cAppUI::AutoReconectar(bool value) {
    LibraryState::Instance().AutoReconectar(value);
}

} // namespace zlx
