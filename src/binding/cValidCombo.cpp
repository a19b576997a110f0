#include "binding/cValidCombo.h"

#include "connection/SqlText.h"
#include "cursor/cFichaDB.h"
#include "platform/companion/LateBinding.h"
#include "platform/companion/cMsgBox.h"
#include "table/cDatos.h"

namespace zlx {

namespace {

// Up to this many rows the list is the simple one; from here on it has a search box.
constexpr std::int32_t kSimpleListRows = 11;
// With this many rows or more a matching first name is not enough: the list is shown.
constexpr std::int32_t kNameMatchRows = 50;
// An identity has fewer digits than this; a longer number is searched as a name.
constexpr qsizetype kIdentityDigits = 10;

QString TextOf(const QObject* control) {
    return GetControlProperty(control, "Text").ToString();
}

bool SameName(const QString& a, const QString& b) {
    return a.trimmed().compare(b.trimmed(), Qt::CaseInsensitive) == 0;
}

bool IsWholeNumber(const QString& text) {
    if (text.isEmpty()) return false;
    for (const QChar c : text)
        if (!c.isDigit()) return false;
    return true;
}

QString ReplacedIgnoringCase(QString text, const QString& from, const QString& to) {
    return text.replace(from, to, Qt::CaseInsensitive);
}

// The query with `column` inserted as its first selected column.
QString WithFirstColumn(const QString& query, const QString& column) {
    const QString upper = query.toUpper();
    qsizetype at = 0;
    if (upper.startsWith(QStringLiteral("SELECT TOP "))) {
        at = 11;
        while (at < query.size() && query.at(at).isDigit())
            ++at;
        while (at < query.size() && query.at(at).isSpace())
            ++at;
    } else if (upper.startsWith(QStringLiteral("SELECT DISTINCT "))) {
        at = 16;
    } else if (upper.startsWith(QStringLiteral("SELECT "))) {
        at = 7;
    }
    return query.left(at) + column + query.mid(at);
}

// A value as a term of a row filter: numbers as they are, anything else quoted.
QString FilterTerm(const Variant& value) {
    const QString text = value.ToInvariantString().trimmed();
    return IsWholeNumber(text) ? text : SqlText::PonComillas(text);
}

// The query's rows as a matrix numbered from 1, as the lookup grid reads it.
cMatrizPtr RowsFromOne(cDatos& rows) {
    const Variant read = rows.GetRows();
    auto matrix = std::make_shared<cMatriz>();
    const VariantArrayPtr cells = read.ToArray();
    if (!cells || cells->Rank() != 2) return matrix;
    Variant shifted =
        Variant::MakeArray({{1, cells->Bounds()[0].count}, {1, cells->Bounds()[1].count}});
    shifted.ToArray()->Data() = std::move(cells->Data());
    matrix->LoadFromArray(shifted);
    return matrix;
}

} // namespace

cValidCombo::cValidCombo() = default;
cValidCombo::~cValidCombo() = default;

std::int32_t cValidCombo::Run(I_TAVPtr& oTAV, QObject* oCtlGET, bool& lUpdateControls,
                              bool lForzarLista) {
    m_rows.reset();
    m_listShown = false;
    m_selectedRow = 0;
    const cGlobalesPtr globales = oTAV ? oTAV->Globales() : nullptr;
    m_cn = globales ? std::dynamic_pointer_cast<cConexion>(globales->oCn()) : nullptr;
    m_cursor = oTAV ? oTAV->FichaDB() : nullptr;
    if (!m_cn || !m_cursor) return 0;

    const QString typed = oCtlGET ? TextOf(oCtlGET).trimmed() : QString();
    QString query = cSQLSelect.isEmpty() ? BuildQuery(typed) : cSQLSelect;
    if (oCtlGET) {
        bool deleted = false;
        const QString condition = InactiveShownCondition(query, typed, deleted);
        if (deleted) return -1;
        if (!condition.isEmpty()) query = ReplacedIgnoringCase(query, cSQLActivo, condition);
    }
    m_rows = RunIntoRows(query);
    if (!m_rows || m_rows->RecCount() == 0) return 0;
    if (!AcceptedWithoutList(typed, lForzarLista) && ShowList() == 0) return 0;
    return Choose(oCtlGET, lUpdateControls);
}

QString cValidCombo::BuildQuery(const QString& typed) {
    QString query = QStringLiteral("SELECT ") + cCodigo + u',' + cNombre +
                    QStringLiteral(" FROM ") + m_cursor->Table() + QStringLiteral(" A");
    if (typed.isEmpty()) {
        if (lFlagActivo) query += QStringLiteral(" WHERE A.activo=0");
        return query;
    }
    if (!IsWholeNumber(typed) || !lBuscarID || typed.size() >= kIdentityDigits)
        query += QStringLiteral(" WHERE ") +
                 m_cn->Str2Where(nullptr, zlxWhere_Like, Variant(typed), QStringLiteral("A.Nombre"))
                     .ToString()
                     .mid(4);
    else
        query += QStringLiteral(" WHERE A.ZolmarID=") + typed;
    if (lFlagActivo) {
        query += QStringLiteral(" AND A.Activo=0");
        cSQLActivo = QStringLiteral("A.Activo");
    }
    return query;
}

QString cValidCombo::InactiveShownCondition(const QString& query, const QString& typed,
                                            bool& deleted) {
    if (!oCtlSay || cSQLActivo.isEmpty() || TextOf(oCtlSay).isEmpty()) return {};
    const Variant shown = GetDefaultValue(oCtlSay);
    if (!shown.IsNumeric() || shown.ToDouble() == 0) return {};
    const qsizetype activo = cSQLActivo.toUpper().indexOf(QStringLiteral("ACTIVO"));
    const QString condition = cSQLActivo.left(std::max<qsizetype>(activo, 0)) +
                              QStringLiteral("ZolmarID=") + shown.ToInvariantString() +
                              QStringLiteral(" AND 1>");
    const auto probe = RunIntoRows(WithFirstColumn(
        ReplacedIgnoringCase(query, cSQLActivo, condition), cSQLActivo + QStringLiteral(", ")));
    if (!probe || probe->RecCount() != 1 || !probe->FieldExist(cCodigo) ||
        !probe->FieldExist(cNombre) || !probe->FieldExist(QStringLiteral("Activo")))
        return {};
    probe->MoveFirst();
    if (probe->Field(cCodigo).ToInvariantString() != shown.ToInvariantString() ||
        !SameName(probe->Field(cNombre).ToString(), typed))
        return {};
    const std::int32_t flags = probe->Field(QStringLiteral("Activo")).ToLong();
    deleted = (flags & 2) != 0;
    return !deleted && (flags & 1) ? condition : QString();
}

std::shared_ptr<cDatos> cValidCombo::RunIntoRows(const QString& query) const {
    return m_cn->Execute(query, zlxExecuteReturn_cDatos_Disconnected).As<cDatos>();
}

bool cValidCombo::AcceptedWithoutList(const QString& typed, bool lForzarLista) {
    if (lForzarLista) return false;
    if (m_rows->RecCount() == 1) {
        m_rows->MoveFirst();
        return true;
    }
    if (!oCtlSay && nID_SinControlSay >= 1)
        return LocateCode(Variant(nID_SinControlSay)) && NameOfCurrentRowIs(typed);
    if (oCtlSay) return LocateCode(Variant(TextOf(oCtlSay))) && NameOfCurrentRowIs(typed);
    return m_rows->RecCount() < kNameMatchRows && !lMostrarListaAunqueNombreCoincida &&
           OnlyFirstRowHasTheName(typed);
}

bool cValidCombo::OnlyFirstRowHasTheName(const QString& typed) {
    m_rows->MoveFirst();
    const QString first = m_rows->Field(cNombre).ToString();
    if (!SameName(first, typed)) return false;
    const std::int32_t count = m_rows->RecCount();
    for (std::int32_t row = 2; row <= count; ++row)
        if (SameName(m_rows->DataCell(cNombre, row).ToString(), first)) return false;
    m_rows->MoveFirst();
    return true;
}

bool cValidCombo::NameOfCurrentRowIs(const QString& typed) {
    return SameName(m_rows->Field(cNombre).ToString(), typed);
}

bool cValidCombo::LocateCode(const Variant& code) {
    if (code.IsEmpty() || code.IsNull() || code.ToInvariantString().trimmed().isEmpty())
        return false;
    return m_rows->Locate(cCodigo + QStringLiteral(" = ") + FilterTerm(code)) > 0;
}

std::int32_t cValidCombo::ShowList() {
    LookupGridRequest request = ListRequest();
    if (oCtlSay && m_rows->FieldExist(QStringLiteral("ZolmarID"))) {
        const Variant shown = GetDefaultValue(oCtlSay);
        if (shown.IsNumeric()) {
            const std::int32_t row =
                m_rows->Locate(QStringLiteral("ZolmarID=") + shown.ToInvariantString());
            if (row > 0) nDefault = row;
        }
    }
    request.defaultRow = nDefault;
    m_selectedRow = CurrentLookupGridPresenter().Present(request);
    m_listShown = true;
    if (m_selectedRow < 1 || m_selectedRow > request.data->Rows()) return m_selectedRow = 0;
    // The chosen row is found again by its code, as the list may have been given other rows.
    if (!LocateCode(request.data->Item(m_selectedRow, 1))) return 0;
    return m_selectedRow;
}

LookupGridRequest cValidCombo::ListRequest() const {
    LookupGridRequest request;
    request.title = m_cursor->Table();
    const std::int32_t columns = m_rows->FieldCount();
    for (std::int32_t column = 0; column < columns; ++column)
        request.headers << Caption(m_rows->ColumnInfo(column).cName);
    if (const VariantArrayPtr headers = aHeaders.ToArray())
        for (std::size_t k = 0; k < headers->Data().size() && k < std::size_t(columns); ++k)
            request.headers[qsizetype(k)] = headers->Data()[k].ToString();
    request.widths.assign(std::size_t(columns), -1);
    if (const VariantArrayPtr widths = aWidths.ToArray())
        for (std::size_t k = 0; k < widths->Data().size() && k < std::size_t(columns); ++k)
            request.widths[k] = widths->Data()[k].ToLong();
    if (lHideID && m_rows->FieldExist(cCodigo))
        request.widths[std::size_t(m_rows->FieldNumber(cCodigo))] = 0;
    const std::int32_t count = m_rows->RecCount();
    request.style = count < kSimpleListRows ? zlxGridStyle_Simple : zlxGridStyle_Buscar;
    request.searchColumn = count < kSimpleListRows ? 1 : nSearchColumn;
    request.alignment = nAlineacion;
    request.data = RowsFromOne(*m_rows);
    return request;
}

// The code and name columns are captioned as the combo names them, whatever case the engine
// gives its result columns.
QString cValidCombo::Caption(const QString& column) const {
    for (const QString& named : {cCodigo, cNombre})
        if (column.compare(named, Qt::CaseInsensitive) == 0) return named;
    return column;
}

std::int32_t cValidCombo::Choose(QObject* oCtlGET, bool lUpdateControls) {
    const Variant code = m_rows->Field(cCodigo);
    const std::int32_t id =
        (m_rows->FieldExist(QStringLiteral("ZolmarID")) ? m_rows->Field(QStringLiteral("ZolmarID"))
                                                        : code)
            .ToLong();
    if (lUpdateControls) {
        if (oCtlGET) SetDefaultValue(oCtlGET, m_rows->Field(cNombre));
        if (oCtlSay) SetControlProperty(oCtlSay, "Text", Variant(code.ToString()));
    }
    m_cursor->SeekID(id);
    return id;
}

Variant cValidCombo::GetSelectedCell(const QString& cColumn) {
    if (m_rows && m_rows->FieldExist(cColumn)) return m_rows->Field(cColumn);
    cMsgBox box;
    box.SetIcon(MsgIconError);
    box.ShowMessage(QStringLiteral("Error: la columna ") + cColumn + QStringLiteral(" no existe"),
                    0, QStringLiteral("cValidCombo:GetSelectedCell"));
    return {};
}

} // namespace zlx
