#include "language/cIdioma.h"
#include "platform/companion/LateBinding.h"

#include <QLabel>
#include <QStatusBar>
#include <QVariant>
#include <QWidget>

namespace zlx {

namespace {

// The record-form toolbar's five record buttons and four movement buttons.
constexpr int nToolbarButtons = 5;
constexpr int nToolbarMoveButtons = 4;

// The text property of that name translated in place; a control without it is left alone.
void TranslateProperty(cIdioma& idioma, QObject& control, const char* name) {
    const QVariant value = control.property(name);
    if (value.isValid()) control.setProperty(name, idioma.Msg(value.toString()));
}

// An indexed text read through `getter`(k) and written back through `setter`(k, text).
bool ReadIndexed(QObject& control, const char* getter, int k, QString& text) {
    return QMetaObject::invokeMethod(&control, getter, Qt::DirectConnection,
                                     Q_RETURN_ARG(QString, text), Q_ARG(int, k));
}

void TranslateIndexed(cIdioma& idioma, QObject& control, const char* getter, const char* setter,
                      int k) {
    QString text;
    if (!ReadIndexed(control, getter, k, text)) return;
    QMetaObject::invokeMethod(&control, setter, Qt::DirectConnection, Q_ARG(int, k),
                              Q_ARG(QString, idioma.Msg(text)));
}

// Each option caption of an option group (options numbered from 1).
void TranslateOptions(cIdioma& idioma, QObject& group) {
    const QVariant count = group.property("NumOptions");
    if (!count.isValid()) return;
    for (int k = 1; k <= count.toInt(); ++k)
        TranslateIndexed(idioma, group, "OptCaption", "OptCaption", k);
}

// The record-form toolbar: its captions from the Spanish ones whatever they show now, its
// tool tips from what they say.
void TranslateToolbar(cIdioma& idioma, QObject& toolbar) {
    static const char* const captions[nToolbarButtons] = {"&Nuevo", "&Modificar", "&Eliminar",
                                                          "&Buscar", "&Comentario"};
    for (int k = 0; k < nToolbarButtons; ++k) {
        QMetaObject::invokeMethod(&toolbar, "SetBtnCaption", Qt::DirectConnection, Q_ARG(int, k),
                                  Q_ARG(QString, idioma.Msg(QString::fromUtf8(captions[k]))));
        TranslateIndexed(idioma, toolbar, "BtnToolTip", "SetBtnToolTip", k);
    }
    for (int k = 0; k < nToolbarMoveButtons; ++k)
        TranslateIndexed(idioma, toolbar, "BtnMoveToolTip", "SetBtnMoveToolTip", k);
}

// A Qt status bar: the message it shows and the text of each plain label placed on it (the
// library's own labels are translated by their names like anywhere else on the form).
void TranslateQtStatusBar(cIdioma& idioma, QStatusBar& bar) {
    if (!bar.currentMessage().isEmpty()) bar.showMessage(idioma.Msg(bar.currentMessage()));
    for (QLabel* panel : bar.findChildren<QLabel*>())
        if (ControlTypeName(panel) == u"QLabel") panel->setText(idioma.Msg(panel->text()));
}

// A status-bar control of the application's: Paneles panels (numbered from 1) whose texts
// are the cText of GetPanel(i), written back with UpdatePanel(i, text).
void TranslatePanels(cIdioma& idioma, QObject& bar) {
    const QVariant count = bar.property("Paneles");
    if (!count.isValid()) return;
    for (int i = 1; i <= count.toInt(); ++i) {
        QObject* panel = nullptr;
        if (!QMetaObject::invokeMethod(&bar, "GetPanel", Qt::DirectConnection,
                                       Q_RETURN_ARG(QObject*, panel), Q_ARG(int, i)) ||
            !panel)
            continue;
        QMetaObject::invokeMethod(&bar, "UpdatePanel", Qt::DirectConnection, Q_ARG(int, i),
                                  Q_ARG(QString, idioma.Msg(panel->property("cText").toString())));
    }
}

void TranslateStatusBar(cIdioma& idioma, QObject& control) {
    if (auto* bar = qobject_cast<QStatusBar*>(&control))
        TranslateQtStatusBar(idioma, *bar);
    else
        TranslatePanels(idioma, control);
}

void TranslateControl(cIdioma& idioma, QObject& control) {
    const QString prefix = control.objectName().left(3).toLower();
    if (ControlTypeName(&control) == u"CtlFicha") {
        TranslateToolbar(idioma, control);
    } else if (qobject_cast<QStatusBar*>(&control) || prefix == u"stb") {
        TranslateStatusBar(idioma, control);
    } else if (prefix == u"btn" || prefix == u"lbl" || prefix == u"chk" || prefix == u"opt") {
        TranslateProperty(idioma, control, "Caption");
        TranslateProperty(idioma, control, "ToolTip");
        if (prefix == u"btn" || prefix == u"opt") TranslateOptions(idioma, control);
    } else if (prefix == u"get") {
        TranslateProperty(idioma, control, "ToolTip");
    } else if (prefix == u"fra") {
        TranslateProperty(idioma, control, "Caption");
    }
}

} // namespace

void cIdioma::FormStrings(QWidget* oFrm) {
    if (!oFrm) return;
    if (oFrm->property("Caption").isValid())
        TranslateProperty(*this, *oFrm, "Caption");
    else
        oFrm->setWindowTitle(Msg(oFrm->windowTitle()));
    for (QObject* control : oFrm->findChildren<QObject*>())
        TranslateControl(*this, *control);
}

} // namespace zlx
