#include "binding/BoundControl.h"

#include "binding/I_DAV.h"

#include <QMetaType>

namespace zlx::BoundControl {

namespace {

const QString kGet = QStringLiteral("get");
const QString kBtn = QStringLiteral("btn");
const QString kLbl = QStringLiteral("lbl");

bool Flag(const QObject* control, const char* property) {
    return GetControlProperty(control, property).ToBool();
}

void SetFlag(QObject* control, const char* property, bool value) {
    SetControlProperty(control, property, Variant(value));
}

bool HasMethod(const QObject* control, const char* signature) {
    return control->metaObject()->indexOfMethod(signature) >= 0;
}

// Companion controls publish "Enabled"; any other widget answers to Qt's own "enabled".
void SetEnabledProperty(QObject* control, bool value) {
    const bool published = control->metaObject()->indexOfProperty("Enabled") >= 0;
    SetFlag(control, published ? "Enabled" : "enabled", value);
}

std::int32_t NumOptions(const QObject* control) {
    return GetControlProperty(control, "NumOptions").ToLong();
}

bool OptionFlag(QObject* control, const char* method, int option) {
    bool value = false;
    QMetaObject::invokeMethod(control, method, Qt::DirectConnection, Q_RETURN_ARG(bool, value),
                              Q_ARG(int, option));
    return value;
}

void SetOptionFlag(QObject* control, const char* method, int option, bool value) {
    QMetaObject::invokeMethod(control, method, Qt::DirectConnection, Q_ARG(int, option),
                              Q_ARG(bool, value));
}

} // namespace

void RegisterDescriptorType() {
    qRegisterMetaType<I_DAVPtr>("zlx::I_DAVPtr");
    qRegisterMetaType<I_DAVPtr>("I_DAVPtr");
}

QString Text(const QObject* control, const char* property) {
    return GetControlProperty(control, property).ToString();
}

QString TablePart(const QString& table) {
    return table.mid(table.lastIndexOf(u'.') + 1).toUpper();
}

bool InTable(const QObject* control, const QString& table) {
    return table.isEmpty() || Text(control, "Alias").toUpper() == TablePart(table);
}

void ResetValue(QObject* control) {
    if (!control) return;
    if (HasMethod(control, "ResetValue()")) CallControl(control, "ResetValue");
    if (HasMethod(control, "ResetValue(bool)"))
        QMetaObject::invokeMethod(control, "ResetValue", Qt::DirectConnection, Q_ARG(bool, true));
}

bool IsIdentity(const QObject* control) {
    const QString column = Text(control, "Campo").toUpper();
    return column == QStringLiteral("ZOLMARID") || column.startsWith(QStringLiteral("ID_"));
}

void SetEnabled(QObject* control, bool enabled) {
    if (!control) return;
    if (ControlTypeName(control) != kGet) {
        SetEnabledProperty(control, enabled);
        return;
    }
    SetFlag(control, "EnabledGet", enabled);
    SetFlag(control, "EnabledCombo", enabled);
    SetFlag(control, "EnabledBuscar", enabled);
}

void StoreEnabled(QObject* control, bool enabled) {
    if (!control) return;
    const QString type = ControlTypeName(control);
    if (type == kGet) {
        SetFlag(control, "lInternalPreEnabledGet", enabled);
        SetFlag(control, "lInternalPreEnabledBtnCombo", enabled);
        SetFlag(control, "lInternalPreEnabledBtnBuscar", enabled);
    } else if (type == kBtn) {
        SetFlag(control, "lInternalPreEnabled", enabled);
        for (int k = 1; k <= NumOptions(control); ++k)
            SetOptionFlag(control, "OptionPreEnabled", k, enabled);
    } else if (type == kLbl) {
        SetFlag(control, "lInternalPreEnabled", enabled);
    } else {
        SetEnabledProperty(control, enabled);
    }
}

void ApplyStoredEnabled(QObject* control) {
    if (!control) return;
    const QString type = ControlTypeName(control);
    if (type == kGet) {
        SetFlag(control, "EnabledGet", Flag(control, "lInternalPreEnabledGet"));
        SetFlag(control, "EnabledCombo", Flag(control, "lInternalPreEnabledBtnCombo"));
        SetFlag(control, "EnabledBuscar", Flag(control, "lInternalPreEnabledBtnBuscar"));
    } else if (type == kBtn) {
        CallControl(control, "BeginRefresh");
        SetEnabledProperty(control, Flag(control, "lInternalPreEnabled"));
        for (int k = 1; k <= NumOptions(control); ++k)
            SetOptionFlag(control, "OptEnabled", k, OptionFlag(control, "OptionPreEnabled", k));
        CallControl(control, "EndRefresh");
    } else if (type == kLbl) {
        SetEnabledProperty(control, Flag(control, "lInternalPreEnabled"));
    }
}

} // namespace zlx::BoundControl
