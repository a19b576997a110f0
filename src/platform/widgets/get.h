#pragma once
// The companion text box "get": a line edit for text, numbers or dates, with an optional
// drop-down button and search button, bound to a table column through Alias and Campo.
//
// The control classes "get", "btn" and "lbl" are declared outside the zlx namespace on
// purpose: late-bound code recognises a control by its run-time class name, and Qt names a
// class with its namespace ("zlx::get"). Inside the library they are zlx::get and so on.
//
// Every property and method the library calls by name is a Qt property or invokable, so
// QObject::property / setProperty and QMetaObject::invokeMethod reach it. The default
// property (the shown value) is "Value".

#include "platform/companion/cServiciosFecha.h"
#include "platform/widgets/GetMask.h"
#include "platform/widgets/RefreshBracket.h"

#include <QCalendarWidget>
#include <QPointer>
#include <QVariant>
#include <QWidget>

class QLineEdit;
class QToolButton;

class get : public QWidget {
    Q_OBJECT
    Q_CLASSINFO("DefaultProperty", "Value")
    Q_PROPERTY(int TipoDato READ TipoDato WRITE setTipoDato)
    Q_PROPERTY(int MaxLength READ MaxLength WRITE setMaxLength)
    Q_PROPERTY(int Alignment READ Alignment WRITE setAlignment)
    Q_PROPERTY(QString Mascara READ Mascara WRITE FormatoMascara)
    Q_PROPERTY(QString ToolTip READ ToolTip WRITE setToolTipText)
    Q_PROPERTY(QVariant Value READ Value WRITE setValue)
    Q_PROPERTY(QVariant ValorVerdadero READ ValorVerdadero)
    Q_PROPERTY(QString Text READ Text WRITE setText)
    Q_PROPERTY(bool HasChanged READ HasChanged WRITE setHasChanged)
    Q_PROPERTY(QString Alias READ Alias WRITE setAlias)
    Q_PROPERTY(QString Campo READ Campo WRITE setCampo)
    Q_PROPERTY(QString Name READ objectName)
    Q_PROPERTY(bool Enabled READ isEnabled WRITE setEnabled)
    Q_PROPERTY(bool EnabledGet READ EnabledGet WRITE setEnabledGet)
    Q_PROPERTY(bool EnabledCombo READ EnabledCombo WRITE setEnabledCombo)
    Q_PROPERTY(bool EnabledBuscar READ EnabledBuscar WRITE setEnabledBuscar)
    Q_PROPERTY(bool BtnCombo READ BtnCombo WRITE setBtnCombo)
    Q_PROPERTY(bool BtnBuscar READ BtnBuscar WRITE setBtnBuscar)
    Q_PROPERTY(bool ShownEnabled READ ShownEnabled)
    Q_PROPERTY(bool lInternalPreEnabledGet MEMBER m_preEnabledGet)
    Q_PROPERTY(bool lInternalPreEnabledBtnCombo MEMBER m_preEnabledCombo)
    Q_PROPERTY(bool lInternalPreEnabledBtnBuscar MEMBER m_preEnabledBuscar)

public:
    enum TipoDatoKind { TipoTexto = 0, TipoNumero = 1, TipoFecha = 2 };

    explicit get(QWidget* parent = nullptr);

    int TipoDato() const { return m_kind; }
    void setTipoDato(int kind);
    int MaxLength() const { return m_maxLength; }
    void setMaxLength(int length);
    // 0 left, 1 right, 2 centre.
    int Alignment() const { return m_alignment; }
    void setAlignment(int alignment);
    QString Mascara() const { return m_mask.Text(); }
    QString ToolTip() const { return toolTip(); }
    void setToolTipText(const QString& text);

    // Text kind: the text; number kind: the number (0 when empty); date kind: the date, the
    // blank date (1753-01-01) when the box is empty.
    QVariant Value() const;
    void setValue(const QVariant& value);
    // The value as typed, before display formatting (the text itself in text kind).
    QVariant ValorVerdadero() const;
    QString Text() const;
    void setText(const QString& text);
    bool HasChanged() const { return m_changed; }
    void setHasChanged(bool changed) { m_changed = changed; }

    QString Alias() const { return m_alias; }
    void setAlias(const QString& alias) { m_alias = alias; }
    QString Campo() const { return m_campo; }
    void setCampo(const QString& campo) { m_campo = campo; }

    bool EnabledGet() const { return m_enabledGet; }
    void setEnabledGet(bool enabled);
    bool EnabledCombo() const { return m_enabledCombo; }
    void setEnabledCombo(bool enabled);
    bool EnabledBuscar() const { return m_enabledBuscar; }
    void setEnabledBuscar(bool enabled);
    // Whether the box shows its drop-down and search buttons at all (both hidden by default).
    bool BtnCombo() const { return m_showCombo; }
    void setBtnCombo(bool shown);
    bool BtnBuscar() const { return m_showBuscar; }
    void setBtnBuscar(bool shown);
    // Whether the user can type into the box now.
    bool ShownEnabled() const { return isEnabled() && m_enabledGet; }

    // A batch of changes is shown once, at the outermost EndRefresh.
    Q_INVOKABLE void BeginRefresh();
    Q_INVOKABLE void EndRefresh();
    // The numeric font: fixed-pitch digits.
    Q_INVOKABLE void FntNumbers();
    Q_INVOKABLE void FormatoMascara(const QString& mask);
    // The current value becomes the unchanged one (HasChanged False); with lRedisplay the
    // value is also shown again in its display form.
    Q_INVOKABLE void ResetValue();
    Q_INVOKABLE void ResetValue(bool lRedisplay);
    // Date kind: whether the typed text is a date (an empty box is the blank date, valid).
    // Other kinds: whether the text is a value of the kind.
    Q_INVOKABLE bool ValidateFecha() const;

    // Date kind: shows the date of a preset code (zlxFechaPresetConstants).
    Q_INVOKABLE void AplicarPreset(int nPreset);
    // Date kind: lets the user pick a preset from the pop-up list "Fechas a elegir" and shows
    // its date; answers the code picked, 0 when nothing was picked.
    Q_INVOKABLE int ElegirPreset();
    // Date kind: opens the calendar below the box, on the shown date (today when blank).
    Q_INVOKABLE void ShowCalendar();

    // The date services the presets and the blank date come from.
    zlx::cServiciosFecha& Fechas() { return m_fechas; }

    QLineEdit* Editor() const { return m_editor; }
    QToolButton* ComboButton() const { return m_combo; }
    QToolButton* SearchButton() const { return m_search; }
    QToolButton* CalendarButton() const { return m_calendarButton; }
    // The open calendar pop-up; nullptr when closed.
    QCalendarWidget* Calendar() const { return m_calendar; }

signals:
    // The text changed (typed or assigned).
    void Change();
    void ClickCombo();
    void ClickBuscar();
    // The user leaves the box; setting Cancel keeps the focus in it.
    void Validate(bool& Cancel);

private:
    void ApplyButtons();
    void ApplyAlignment();
    void ApplyKind();
    void FinishEditing();
    void ShowDate(const QDate& date);
    QDate TypedDate(bool* valid) const;
    QString DisplayNumber(double value) const;

    QLineEdit* m_editor;
    QToolButton* m_combo;
    QToolButton* m_search;
    QToolButton* m_calendarButton;
    // Cleared by Qt when the pop-up closes (it deletes itself on close).
    QPointer<QCalendarWidget> m_calendar;
    zlx::GetMask m_mask;
    zlx::cServiciosFecha m_fechas;
    int m_kind = TipoTexto;
    int m_maxLength = 0;
    int m_alignment = -1; // -1: the kind's own (numbers right, others left)
    zlx::RefreshBracket m_refresh{*this};
    bool m_changed = false;
    bool m_enabledGet = true, m_enabledCombo = true, m_enabledBuscar = true;
    bool m_showCombo = false, m_showBuscar = false;
    bool m_preEnabledGet = true, m_preEnabledCombo = true, m_preEnabledBuscar = true;
    QString m_alias, m_campo;
};

namespace zlx {
using get = ::get;
}
