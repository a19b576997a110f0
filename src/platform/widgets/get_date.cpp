// The date kind of the "get" box: Spanish day-month-year input, the blank date shown empty,
// the calendar pop-up and the named presets.

#include "platform/companion/FechaPresetList.h"
#include "platform/companion/PickList.h"
#include "platform/widgets/get.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QRegularExpression>
#include <QToolButton>

namespace {

// Two-digit years: 00 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999.
int FullYear(int year, qsizetype digits) {
    if (digits > 2) return year;
    return year < 30 ? 2000 + year : 1900 + year;
}

// "1/2/2024", "01-02-24", "1.2.2024", "01022024" or "010224"; an invalid date otherwise.
QDate ParseSpanishDate(const QString& text) {
    static const QRegularExpression separated(
        QStringLiteral(R"(^(\d{1,2})[/.\-](\d{1,2})[/.\-](\d{2}|\d{4})$)"));
    static const QRegularExpression compact(QStringLiteral(R"(^(\d{2})(\d{2})(\d{2}|\d{4})$)"));
    QRegularExpressionMatch match = separated.match(text);
    if (!match.hasMatch()) match = compact.match(text);
    if (!match.hasMatch()) return {};
    const QString year = match.captured(3);
    return QDate(FullYear(year.toInt(), year.size()), match.captured(2).toInt(),
                 match.captured(1).toInt());
}

} // namespace

QDate get::TypedDate(bool* valid) const {
    const QString text = m_editor->text().trimmed();
    if (text.isEmpty()) {
        *valid = true;
        return zlx::cServiciosFecha::ToQDate(zlx::BlankDate());
    }
    const QDate date = ParseSpanishDate(text);
    *valid = date.isValid();
    return date;
}

bool get::ValidateFecha() const {
    bool valid = false;
    switch (m_kind) {
    case TipoFecha:
        TypedDate(&valid);
        return valid;
    case TipoNumero:
        return m_mask.Parse(m_editor->text()).has_value();
    default:
        return true;
    }
}

void get::ShowDate(const QDate& date) {
    const bool blank = !date.isValid() || date == zlx::cServiciosFecha::ToQDate(zlx::BlankDate());
    m_editor->setText(blank ? QString() : date.toString(QStringLiteral("dd/MM/yyyy")));
}

void get::AplicarPreset(int nPreset) {
    setValue(zlx::cServiciosFecha::ToQDate(m_fechas.FechaPreset(nPreset)));
}

int get::ElegirPreset() {
    QStringList labels;
    for (const zlx::FechaPresetRow& row : zlx::FechaPresetList::UnaFecha())
        labels << row.label;
    zlx::PopupListRequest request;
    request.title = QStringLiteral("Fechas a elegir");
    request.items = labels;
    request.alignment = zlx::zlxAlineacion_BajoControl;
    const int picked = zlx::CurrentPopupListPresenter().Present(request);
    if (picked < 1 || picked > labels.size()) return 0;
    const int code = zlx::FechaPresetList::UnaFecha()[static_cast<std::size_t>(picked - 1)].desde;
    AplicarPreset(code);
    return code;
}

void get::ShowCalendar() {
    if (m_kind != TipoFecha || !m_enabledGet) return;
    if (!m_calendar) {
        m_calendar = new QCalendarWidget(this);
        m_calendar->setWindowFlags(Qt::Popup);
        m_calendar->setFirstDayOfWeek(Qt::Monday);
        m_calendar->setLocale(QLocale(QLocale::Spanish, QLocale::Spain));
        m_calendar->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_calendar, &QCalendarWidget::clicked, this, [this](const QDate& date) {
            setValue(date);
            m_calendar->close();
        });
    }
    bool valid = false;
    const QDate shown = TypedDate(&valid);
    const bool blank = !valid || shown == zlx::cServiciosFecha::ToQDate(zlx::BlankDate());
    m_calendar->setSelectedDate(blank ? m_fechas.Hoy() : shown);
    m_calendar->move(mapToGlobal(QPoint(0, height())));
    m_calendar->show();
}
