#include "platform/widgets/get.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>
#include <QValidator>

namespace {

// Keeps typed numbers within the digits and decimals of the box's mask.
class MaskValidator : public QValidator {
public:
    explicit MaskValidator(const get& box) : QValidator(box.Editor()), m_box(box) {}
    State validate(QString& input, int&) const override {
        if (m_box.TipoDato() != get::TipoNumero) return Acceptable;
        return zlx::GetMask(m_box.Mascara()).Accepts(input) ? Acceptable : Invalid;
    }

private:
    const get& m_box;
};

QToolButton* MakeButton(QWidget* parent, const QString& name, const QString& text) {
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setText(text);
    button->setFocusPolicy(Qt::NoFocus);
    button->hide();
    return button;
}

} // namespace

get::get(QWidget* parent)
    : QWidget(parent), m_editor(new QLineEdit(this)),
      m_combo(MakeButton(this, QStringLiteral("combo"), QStringLiteral("▼"))),
      m_search(MakeButton(this, QStringLiteral("buscar"), QStringLiteral("…"))),
      m_calendarButton(MakeButton(this, QStringLiteral("calendario"), QStringLiteral("▦"))) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(1);
    layout->addWidget(m_editor, 1);
    layout->addWidget(m_combo);
    layout->addWidget(m_calendarButton);
    layout->addWidget(m_search);
    setFocusProxy(m_editor);
    m_editor->setValidator(new MaskValidator(*this));
    connect(m_editor, &QLineEdit::textEdited, this, [this] { m_changed = true; });
    connect(m_editor, &QLineEdit::textChanged, this, &get::Change);
    connect(m_editor, &QLineEdit::editingFinished, this, &get::FinishEditing);
    connect(m_combo, &QToolButton::clicked, this, &get::ClickCombo);
    connect(m_search, &QToolButton::clicked, this, &get::ClickBuscar);
    connect(m_calendarButton, &QToolButton::clicked, this, &get::ShowCalendar);
}

void get::setTipoDato(int kind) {
    if (kind == m_kind) return;
    // What was typed is shown again in the new kind; an empty box stays empty.
    const QVariant value = Value();
    const bool empty = m_editor->text().isEmpty();
    m_kind = kind;
    ApplyKind();
    if (!empty) setValue(value);
}

void get::ApplyKind() {
    m_editor->setMaxLength(m_kind == TipoTexto && m_maxLength > 0 ? m_maxLength : 32767);
    ApplyAlignment();
    ApplyButtons();
}

void get::setMaxLength(int length) {
    m_maxLength = std::max(0, length);
    ApplyKind();
}

void get::setAlignment(int alignment) {
    m_alignment = alignment;
    ApplyAlignment();
}

void get::ApplyAlignment() {
    const int alignment = m_alignment >= 0 ? m_alignment : (m_kind == TipoNumero ? 1 : 0);
    const Qt::Alignment horizontal = alignment == 1   ? Qt::AlignRight
                                     : alignment == 2 ? Qt::AlignHCenter
                                                      : Qt::AlignLeft;
    m_editor->setAlignment(horizontal | Qt::AlignVCenter);
}

void get::setToolTipText(const QString& text) {
    setToolTip(text);
    m_editor->setToolTip(text);
}

void get::FormatoMascara(const QString& mask) {
    const QVariant value = Value();
    m_mask = zlx::GetMask(mask);
    if (m_kind == TipoNumero && !m_editor->text().isEmpty()) setValue(value);
}

QString get::DisplayNumber(double value) const {
    return m_mask.IsNumber() ? m_mask.Display(value)
                             : zlx::Variant(value).ToString(); // no mask: as CStr writes it
}

QVariant get::Value() const {
    switch (m_kind) {
    case TipoNumero:
        return m_mask.Parse(m_editor->text()).value_or(0.0);
    case TipoFecha: {
        bool valid = false;
        const QDate date = TypedDate(&valid);
        return valid && date.isValid() ? date : zlx::cServiciosFecha::ToQDate(zlx::BlankDate());
    }
    default:
        return m_editor->text();
    }
}

QVariant get::ValorVerdadero() const {
    return Value();
}

void get::setValue(const QVariant& value) {
    switch (m_kind) {
    case TipoNumero: {
        double number = value.toDouble();
        if (value.typeId() == QMetaType::QString)
            number = zlx::GetMask().Parse(value.toString()).value_or(0.0);
        m_editor->setText(DisplayNumber(number));
        break;
    }
    case TipoFecha: {
        if (value.typeId() == QMetaType::QString) {
            m_editor->setText(value.toString());
            ShowDate(Value().toDate());
        } else {
            ShowDate(value.toDate());
        }
        break;
    }
    default:
        m_editor->setText(value.toString());
    }
    m_changed = true;
}

QString get::Text() const {
    return m_editor->text();
}

void get::setText(const QString& text) {
    m_editor->setText(text);
    m_changed = true;
}

void get::setEnabledGet(bool enabled) {
    m_enabledGet = enabled;
    m_editor->setEnabled(enabled);
    ApplyButtons();
}

void get::setEnabledCombo(bool enabled) {
    m_enabledCombo = enabled;
    ApplyButtons();
}

void get::setEnabledBuscar(bool enabled) {
    m_enabledBuscar = enabled;
    ApplyButtons();
}

void get::setBtnCombo(bool shown) {
    m_showCombo = shown;
    ApplyButtons();
}

void get::setBtnBuscar(bool shown) {
    m_showBuscar = shown;
    ApplyButtons();
}

void get::ApplyButtons() {
    m_combo->setVisible(m_showCombo);
    m_combo->setEnabled(m_enabledCombo);
    m_search->setVisible(m_showBuscar);
    m_search->setEnabled(m_enabledBuscar);
    m_calendarButton->setVisible(m_kind == TipoFecha);
    m_calendarButton->setEnabled(m_enabledGet);
}

void get::BeginRefresh() {
    m_refresh.Begin();
}

void get::EndRefresh() {
    m_refresh.End();
}

void get::FntNumbers() {
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setPointSizeF(m_editor->font().pointSizeF());
    m_editor->setFont(fixed);
}

void get::ResetValue() {
    m_changed = false;
}

void get::ResetValue(bool lRedisplay) {
    if (lRedisplay) {
        const bool changed = m_changed;
        setValue(Value());
        m_changed = changed;
        m_editor->setCursorPosition(0);
    }
    ResetValue();
}

void get::FinishEditing() {
    bool cancel = false;
    emit Validate(cancel);
    if (cancel) {
        m_editor->setFocus();
        return;
    }
    // The value is shown again in its display form ("1234,5" becomes "1.234,50").
    if (m_kind == TipoNumero || (m_kind == TipoFecha && ValidateFecha())) {
        const bool changed = m_changed;
        setValue(Value());
        m_changed = changed;
    }
}
