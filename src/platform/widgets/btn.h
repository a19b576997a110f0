#pragma once
// The companion option group "btn": a frame of option buttons numbered from 1, whose value
// is the number of the chosen option (0 when none), bound to a column through Alias and
// Campo. Each option can be enabled on its own, and like the "get" box it keeps a stored
// ("pre-enabled") state that the binding applies later. See get.h for why the class is
// declared outside the zlx namespace.

#include "platform/widgets/RefreshBracket.h"

#include <QGroupBox>
#include <QVariant>
#include <vector>

class QButtonGroup;
class QRadioButton;
class QVBoxLayout;

class btn : public QGroupBox {
    Q_OBJECT
    Q_CLASSINFO("DefaultProperty", "Value")
    Q_PROPERTY(int NumOptions READ NumOptions WRITE setNumOptions)
    Q_PROPERTY(QVariant Value READ Value WRITE setValue)
    Q_PROPERTY(QVariant ValorVerdadero READ Value)
    Q_PROPERTY(int TipoDato READ TipoDato)
    Q_PROPERTY(QString Caption READ title WRITE setTitle)
    Q_PROPERTY(QString ToolTip READ toolTip WRITE setToolTip)
    Q_PROPERTY(bool HasChanged MEMBER m_changed)
    Q_PROPERTY(QString Alias MEMBER m_alias)
    Q_PROPERTY(QString Campo MEMBER m_campo)
    Q_PROPERTY(QString Name READ objectName)
    Q_PROPERTY(bool Enabled READ isEnabled WRITE setEnabled)
    Q_PROPERTY(bool lInternalPreEnabled MEMBER m_preEnabled)

public:
    explicit btn(QWidget* parent = nullptr);

    int NumOptions() const { return static_cast<int>(m_options.size()); }
    // Adds or removes options at the end; new ones are captioned "Opción k" until told.
    void setNumOptions(int count);
    // The chosen option, 1-based; 0 when none is chosen.
    QVariant Value() const;
    void setValue(const QVariant& value);
    int TipoDato() const { return 1; }

    // Option k (from 1): its caption, whether it can be chosen now, and its stored state.
    // An option number out of range reads as "" / False and is not written.
    Q_INVOKABLE QString OptCaption(int k) const;
    Q_INVOKABLE void OptCaption(int k, const QString& caption);
    Q_INVOKABLE bool OptEnabled(int k) const;
    Q_INVOKABLE void OptEnabled(int k, bool enabled);
    Q_INVOKABLE bool OptionPreEnabled(int k) const;
    Q_INVOKABLE void OptionPreEnabled(int k, bool enabled);

    Q_INVOKABLE void BeginRefresh();
    Q_INVOKABLE void EndRefresh();
    Q_INVOKABLE void ResetValue() { m_changed = false; }
    Q_INVOKABLE void ResetValue(bool) { ResetValue(); }

    QRadioButton* Option(int k) const;

signals:
    // The user chose option k.
    void Click(int k);

private:
    QRadioButton* m_none; // checked when no option is chosen
    QButtonGroup* m_group;
    QVBoxLayout* m_layout;
    std::vector<QRadioButton*> m_options;
    std::vector<bool> m_preEnabledOptions;
    zlx::RefreshBracket m_refresh{*this};
    bool m_changed = false;
    bool m_preEnabled = true;
    QString m_alias, m_campo;
};

namespace zlx {
using btn = ::btn;
}
