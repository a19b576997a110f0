#pragma once
// The companion label "lbl": a caption that can also show a column's value (Alias, Campo and
// the default property "Value"), with the stored ("pre-enabled") state the binding applies
// later. See get.h for why the class is declared outside the zlx namespace.

#include <QLabel>
#include <QVariant>

class lbl : public QLabel {
    Q_OBJECT
    Q_CLASSINFO("DefaultProperty", "Value")
    Q_PROPERTY(QString Caption READ text WRITE setText)
    Q_PROPERTY(QVariant Value READ Value WRITE setValue)
    Q_PROPERTY(QVariant ValorVerdadero READ Value)
    Q_PROPERTY(int TipoDato READ TipoDato)
    Q_PROPERTY(QString ToolTip READ toolTip WRITE setToolTip)
    Q_PROPERTY(QString Alias MEMBER m_alias)
    Q_PROPERTY(QString Campo MEMBER m_campo)
    Q_PROPERTY(QString Name READ objectName)
    Q_PROPERTY(bool Enabled READ isEnabled WRITE setEnabled)
    Q_PROPERTY(bool lInternalPreEnabled MEMBER m_preEnabled)

public:
    explicit lbl(QWidget* parent = nullptr) : QLabel(parent) {}
    explicit lbl(const QString& caption, QWidget* parent = nullptr) : QLabel(caption, parent) {}

    QVariant Value() const { return text(); }
    // Shown as the library writes values: "1,5", "31/12/2024".
    void setValue(const QVariant& value);
    int TipoDato() const { return 0; }
    Q_INVOKABLE void ResetValue() {}
    Q_INVOKABLE void ResetValue(bool) {}

private:
    bool m_preEnabled = true;
    QString m_alias, m_campo;
};

namespace zlx {
using lbl = ::lbl;
}
