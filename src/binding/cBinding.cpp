#include "binding/cBinding.h"

#include "binding/BoundControl.h"
#include "platform/ado/AdoErrorTexts.h"
#include "platform/ado/Connection.h"

namespace zlx {

namespace {

const QString kNoField = QStringLiteral("No existe el campo: ");

QString FieldName(const QObject* control) {
    return BoundControl::Text(control, "Alias") + u'.' + BoundControl::Text(control, "Campo");
}

// The empty value a control of the given data kind shows.
Variant EmptyValue(std::int32_t tipoDato) {
    switch (tipoDato) {
    case 0:
        return Variant(QString());
    case 1:
        return Variant(std::int16_t(0));
    case 2:
        return Variant(BlankDate());
    default:
        return Variant();
    }
}

QString DateLiteralText(const Variant& value) {
    int year, month, day, hour, minute, second;
    SplitDate(value.ToDate(), year, month, day, hour, minute, second);
    return QString::asprintf("%04d%02d%02d", year, month, day);
}

} // namespace

cBinding::cBinding() : m_msgBox(std::make_shared<cMsgBox>()) {
    BoundControl::RegisterDescriptorType();
}

cBinding::~cBinding() = default;

void cBinding::Init(QObject* oForm, cConexionPtr oCnOrigen) {
    m_form = oForm;
    m_cn = std::move(oCnOrigen);
}

void cBinding::Add(QObject* oControl, cFichaDBPtr oFicha, std::int32_t nTipo) {
    if (oFicha && !oFicha->IsValidField(BoundControl::Text(oControl, "Campo"))) {
        Message(kNoField + FieldName(oControl), 1, QStringLiteral("Error: cBinding.Add"));
        return;
    }
    I_DAVPtr descriptor = oFicha ? DescriptorFromForm(oControl) : nullptr;
    m_entries.push_back({oControl, std::move(descriptor), std::move(oFicha), nTipo});
}

I_DAVPtr cBinding::DescriptorFromForm(QObject* control) const {
    I_DAVPtr descriptor;
    if (m_form)
        QMetaObject::invokeMethod(m_form, "Ctl2DAV", Qt::DirectConnection,
                                  Q_RETURN_ARG(zlx::I_DAVPtr, descriptor),
                                  Q_ARG(QObject*, control));
    return descriptor;
}

void cBinding::RefreshForm() const {
    if (m_form) QMetaObject::invokeMethod(m_form, "Refresh", Qt::DirectConnection);
}

void cBinding::InitControls() {
    for (const Entry& entry : m_entries) {
        if (!entry.cursor) continue;
        if (!entry.descriptor) {
            Message(kNoField + FieldName(entry.control), 1,
                    QStringLiteral("Error: cBinding.InitControls"));
            continue;
        }
        entry.descriptor->ConfigureControl(entry.control);
    }
}

void cBinding::ResetValueForNotBindedCtls(const QString& cTabla) {
    for (const Entry& entry : m_entries)
        if (!entry.cursor && BoundControl::InTable(entry.control, cTabla))
            BoundControl::ResetValue(entry.control);
}

void cBinding::Field2Control(bool lVaciar, const QString& cTabla) {
    bool emptying = lVaciar;
    for (const Entry& entry : m_entries) {
        if (!entry.control || !BoundControl::InTable(entry.control, cTabla)) continue;
        if (entry.cursor) {
            if (!entry.cursor->IsValidRecord())
                emptying = true;
            else if (!emptying)
                FillControl(entry);
        }
        if (emptying) {
            SetDefaultValue(entry.control,
                            EmptyValue(GetControlProperty(entry.control, "TipoDato").ToLong()));
            BoundControl::ResetValue(entry.control);
        }
    }
    RefreshForm();
}

void cBinding::FillControl(const Entry& entry) const {
    const Variant value = entry.cursor->Field(BoundControl::Text(entry.control, "Campo"));
    BoundControl::ResetValue(entry.control);
    SetDefaultValue(entry.control, value);
}

QString cBinding::Control2Field(const QString& cTabla, std::int32_t nID) {
    const auto fail = [this](const auto& error) {
        const QString text = QStringLiteral("Error en Control2Field: ") +
                             QString::number(error.Number()) + QStringLiteral("-> ") +
                             error.Description();
        Message(text, 0, QStringLiteral("Información"));
        return text;
    };
    try {
        QString list = Assignments(cTabla);
        if (list.isEmpty()) return {};
        list.chop(2);
        ExecuteOnConnection(QStringLiteral("UPDATE ") + cTabla + QStringLiteral(" SET ") + list +
                            QStringLiteral(" WHERE zolmarID = ") + QString::number(nID));
        return {};
    } catch (const ado::AdoError& error) {
        return fail(error);
    } catch (const VariantError& error) {
        return fail(error);
    }
}

QString cBinding::Assignments(const QString& cTabla) const {
    const QString table = BoundControl::TablePart(cTabla);
    QString list;
    for (const Entry& entry : m_entries) {
        if (!entry.cursor || (entry.flags & zlxBCNoUpdate)) continue;
        if (BoundControl::Text(entry.control, "Alias").toUpper() != table) continue;
        list += Assignment(entry.control);
    }
    return list;
}

QString cBinding::Assignment(QObject* control) const {
    const QString column = BoundControl::Text(control, "Campo") + QStringLiteral(" = ");
    switch (GetControlProperty(control, "TipoDato").ToLong()) {
    case 0:
        return column + Quoted(GetControlProperty(control, "ValorVerdadero")) +
               QStringLiteral(", ");
    case 1:
        return column +
               Variant(GetDefaultValue(control).ToDouble()).ToString().replace(u',', u'.') +
               QStringLiteral(", ");
    case 2:
        return column + Quoted(Variant(DateLiteralText(GetDefaultValue(control)))) +
               QStringLiteral(", ");
    default:
        return {};
    }
}

QString cBinding::Quoted(const Variant& value) const {
    if (!m_cn) ado::RaiseAdoError(3704);
    return m_cn->PonComillas(value, 0);
}

void cBinding::ExecuteOnConnection(const QString& statement) const {
    const ado::ConnectionPtr connection = m_cn ? m_cn->cn() : nullptr;
    if (!connection) ado::RaiseAdoError(3704);
    long affected = 0;
    connection->Execute(statement, affected, ado::adOptionUnspecified);
}

void cBinding::EnableGets(bool lEnabled, int nModo) {
    for (const Entry& entry : m_entries) {
        if (nModo == zlxEnableGetsDespues) {
            BoundControl::ApplyStoredEnabled(entry.control);
            continue;
        }
        const bool wanted =
            BoundControl::IsIdentity(entry.control) || (!(entry.flags & zlxBCNoEdit) && lEnabled);
        if (nModo == zlxEnableGetsAntes)
            BoundControl::StoreEnabled(entry.control, wanted);
        else
            BoundControl::SetEnabled(entry.control, wanted);
    }
}

void cBinding::ShowValues() {
    try {
        cMatriz listing;
        listing.Dimension(1, 5, 1, Count());
        for (std::int32_t row = 1; row <= Count(); ++row) {
            const Entry& entry = m_entries[row - 1];
            if (!entry.control) continue;
            listing.SetValue(1, row, BoundControl::Text(entry.control, "Alias").leftJustified(25));
            listing.SetValue(2, row, BoundControl::Text(entry.control, "Campo").leftJustified(25));
            listing.SetValue(3, row, BoundControl::Text(entry.control, "Name").leftJustified(25));
            if (entry.cursor && entry.cursor->IsValidRecord())
                listing.SetValue(4, row,
                                 entry.cursor->Field(BoundControl::Text(entry.control, "Campo"))
                                     .ToString()
                                     .leftJustified(40));
        }
        listing.ShowData();
    } catch (const std::exception&) {
        m_msgBox->SetIcon(MsgIconWarning);
        m_msgBox->ShowMessage(QStringLiteral("Error mostrando valores"), MsgButtonsOk,
                              QStringLiteral("Error en FichaDB"));
    }
}

void cBinding::Message(const QString& text, std::int32_t nTipo, const QString& title) const {
    m_msgBox->SetIcon(MsgIconInformation);
    m_msgBox->ShowMessage(text, nTipo, title);
}

} // namespace zlx
