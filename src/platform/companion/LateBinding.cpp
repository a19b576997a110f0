#include "platform/companion/LateBinding.h"

#include "platform/companion/QtVariant.h"

#include <QMetaClassInfo>

namespace zlx {

QString ControlTypeName(const QObject* control) {
    if (!control) return {};
    const QString name = QString::fromLatin1(control->metaObject()->className());
    return name.mid(name.lastIndexOf(u':') + 1);
}

QByteArray DefaultPropertyName(const QObject* control) {
    const QMetaObject* meta = control->metaObject();
    const int index = meta->indexOfClassInfo("DefaultProperty");
    return index >= 0 ? QByteArray(meta->classInfo(index).value()) : QByteArrayLiteral("Value");
}

Variant GetDefaultValue(const QObject* control) {
    return control ? FromQVariant(control->property(DefaultPropertyName(control).constData()))
                   : Variant();
}

void SetDefaultValue(QObject* control, const Variant& value) {
    if (control) control->setProperty(DefaultPropertyName(control).constData(), ToQVariant(value));
}

Variant GetControlProperty(const QObject* control, const char* name) {
    return control ? FromQVariant(control->property(name)) : Variant();
}

void SetControlProperty(QObject* control, const char* name, const Variant& value) {
    if (control) control->setProperty(name, ToQVariant(value));
}

bool CallControl(QObject* control, const char* method) {
    return control && QMetaObject::invokeMethod(control, method, Qt::DirectConnection);
}

bool CallControl(QObject* control, const char* method, const QString& argument) {
    return control && QMetaObject::invokeMethod(control, method, Qt::DirectConnection,
                                                Q_ARG(QString, argument));
}

} // namespace zlx
