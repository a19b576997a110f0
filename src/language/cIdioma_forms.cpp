#include "language/cIdioma.h"

#include <QVariant>
#include <QWidget>

namespace zlx {

namespace {

// The text property of that name translated in place; a control without it is left alone.
void TranslateProperty(cIdioma& idioma, QObject& control, const char* name) {
    const QVariant value = control.property(name);
    if (value.isValid()) control.setProperty(name, idioma.Msg(value.toString()));
}

} // namespace

void cIdioma::FormStrings(QWidget* oFrm) {
    if (!oFrm) return;
    if (oFrm->property("Caption").isValid())
        TranslateProperty(*this, *oFrm, "Caption");
    else
        oFrm->setWindowTitle(Msg(oFrm->windowTitle()));
    for (QObject* control : oFrm->findChildren<QObject*>()) {
        const QString prefix = control->objectName().left(3).toLower();
        if (prefix == u"btn" || prefix == u"lbl" || prefix == u"chk" || prefix == u"opt") {
            TranslateProperty(*this, *control, "Caption");
            TranslateProperty(*this, *control, "ToolTip");
        } else if (prefix == u"get") {
            TranslateProperty(*this, *control, "ToolTip");
        } else if (prefix == u"fra") {
            TranslateProperty(*this, *control, "Caption");
        }
    }
}

} // namespace zlx
