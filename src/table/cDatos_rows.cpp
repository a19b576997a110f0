#include "frame/LibraryState.h"
#include "table/DatosFailure.h"
#include "table/cDatos.h"

namespace zlx {

namespace {

bool IsAll(const QString& cFor) {
    return cFor.trimmed().compare(QLatin1String("ALL"), Qt::CaseInsensitive) == 0;
}

// A matrix argument stands for the array its GetVariant member gives.
std::shared_ptr<cMatriz> AsMatrix(const Variant& value) {
    return value.IsObject() && value.TypeName() == u"cMatriz" ? value.As<cMatriz>() : nullptr;
}

QString CriteriaValue(const Variant& value) {
    if (value.VarType() == vbDate) return u'\'' + value.ToString() + u'\'';
    if (const QString* text = value.Get<QString>()) {
        QString quoted = *text;
        return u'\'' + quoted.replace(u'\'', QLatin1String("''")) + u'\'';
    }
    return value.ToInvariantString();
}

Currency AddCurrency(Currency a, Currency b) {
    Currency sum;
    if (__builtin_add_overflow(a.scaled, b.scaled, &sum.scaled))
        throw VariantError(vbErrOverflow, QStringLiteral("Overflow"));
    return sum;
}

} // namespace

bool cDatos::FieldAndValueLists(const Variant& xCampos, const Variant& xValores, Variant& fields,
                                Variant& values) const {
    const auto matrixValues = [&]() -> std::optional<Variant> {
        if (const auto matrix = AsMatrix(xValores)) return matrix->GetVariant();
        return std::nullopt;
    };
    if (const auto matrix = AsMatrix(xCampos)) {
        fields = matrix->GetVariant();
        values = matrixValues().value_or(Variant::Array({xValores}));
    } else if (xCampos.VarType() == vbString) {
        fields = Variant::Array({xCampos});
        values = matrixValues().value_or(Variant::Array({xValores}));
    } else if (xCampos.IsArray()) {
        fields = xCampos;
        values = matrixValues().value_or(xValores);
    } else {
        return false;
    }
    return true;
}

std::int32_t cDatos::InsertRow(const Variant& xCampos, const Variant& xValores) {
    m_lastError = zlxDatosError_None;
    Variant fields, values;
    if (!FieldAndValueLists(xCampos, xValores, fields, values)) {
        m_lastError = zlxDatosError_BadFields;
        return 0;
    }
    m_rs->AddNew(fields, values);
    ++m_recCount;
    m_currentRow = m_recCount;
    m_tally = m_lastError == zlxDatosError_None ? 1 : 0;
    return ByPosition();
}

std::int32_t cDatos::InsertRowFromCDatos(cDatos& oSource, const Variant& aSourceFields,
                                         const Variant& aTargetFields) {
    QString trace = QStringLiteral("A");
    std::int32_t loop = 0;
    try {
        const bool sourceGiven = aSourceFields.VarType() != vbBoolean;
        const bool targetGiven = aTargetFields.VarType() != vbBoolean;
        const std::int32_t count =
            sourceGiven ? aSourceFields.ToArray()->Bounds()[0].count : oSource.FieldCount();
        trace = QStringLiteral("B");
        Variant sourceNames = Variant::MakeArray({{0, count}});
        Variant values = Variant::MakeArray({{0, count}});
        auto& names = sourceNames.ToArray()->Data();
        trace = sourceGiven ? QStringLiteral("C2") : QStringLiteral("C1");
        for (loop = 0; loop < count; ++loop) {
            names[loop] = sourceGiven ? aSourceFields.ToArray()->Data()[loop]
                                      : Variant(oSource.ColumnInfo(loop).cName);
        }
        Variant targetNames;
        if (targetGiven) {
            trace = QStringLiteral("D3");
            targetNames = aTargetFields;
        } else if (sourceGiven) {
            trace = QStringLiteral("D2");
            targetNames = aSourceFields;
        } else {
            trace = QStringLiteral("D1");
            targetNames = Variant::MakeArray({{0, count}});
            for (loop = 0; loop < count; ++loop)
                targetNames.ToArray()->At(loop) = Variant(ColumnInfo(loop).cName);
        }
        trace = QStringLiteral("E");
        for (loop = 0; loop < count; ++loop)
            values.ToArray()->At(loop) = oSource.Field(names[loop].ToString());
        trace = QStringLiteral("F");
        const std::int32_t row = InsertRow(targetNames, values);
        trace = QStringLiteral("G");
        return row;
    } catch (...) {
        const DatosFailure failure = CurrentFailure();
        LibraryLog().WriteLine(QStringLiteral("Error en cDatos.InsertRowFromCDatos():\r\n"
                                              "    Tipo de error: %1 (%2)\r\n"
                                              "    Traza del error: %3 (nBucle=%4)")
                                   .arg(failure.number)
                                   .arg(failure.description, trace)
                                   .arg(loop),
                               true);
        cMsgBox box;
        box.SetIcon(MsgIconError);
        box.ShowMessage(QStringLiteral("Se ha detectado un error que puede forzar la finalización "
                                       "del programa. Consulte el fichero "
                                       "ZOLMARDATACOMPONENTS.LOG para ver los detalles"));
        throw;
    }
}

std::int32_t cDatos::Delete(const QString& cFor, bool lDeleteAll) {
    const QString condition = lDeleteAll ? QStringLiteral("ALL") : cFor;
    if (condition.isEmpty() && m_scanning) {
        m_rs->Delete(ado::adAffectCurrent);
        --m_recCount;
        return m_currentRow;
    }
    if (m_currentRow < 1 || m_currentRow > m_recCount) {
        m_lastError = zlxDatosError_InvalidRow;
        return 0;
    }
    m_lastError = zlxDatosError_None;
    const Variant savedFilter = m_rs->Filter();
    try {
        if (!condition.isEmpty()) {
            m_tally = 0;
            m_rs->SetFilter(Variant(IsAll(condition) ? QString() : condition));
            while (!m_rs->IsEOF()) {
                m_rs->Delete(ado::adAffectCurrent);
                m_rs->MoveNext();
                ++m_tally;
            }
            m_rs->SetFilter(savedFilter);
            m_recCount = m_rs->RecordCount();
            m_currentRow = m_recCount + 1;
        } else {
            m_rs->Delete(ado::adAffectCurrent);
            --m_recCount;
            m_tally = 1;
            if (m_rs->Status() & ado::adRecDBDeleted) m_rs->MoveNext();
        }
        if (m_connected) m_rs->Requery(ado::adOptionUnspecified);
        if (m_recCount == 0)
            m_currentRow = 1;
        else if (m_currentRow > m_recCount)
            CurrentRow(m_recCount);
        return ByPosition();
    } catch (...) {
        m_lastError = CurrentFailure().number == ado::adErrFeatureNotAvailable
                          ? zlxDatosError_Err_CanNotDelete
                          : zlxDatosError_Err_GenericErr;
        if (!condition.isEmpty()) {
            try {
                m_rs->SetFilter(savedFilter);
            } catch (...) {
                // the filter was valid when it was saved; nothing else to restore
            }
        }
        return 0;
    }
}

std::int32_t cDatos::Update(const Variant& xCampos, const Variant& xValores, const QString& cFor) {
    if ((m_currentRow < 1 || m_currentRow > m_recCount) && !(cFor.isEmpty() && m_scanning)) {
        m_lastError = zlxDatosError_InvalidRow;
        return 0;
    }
    m_lastError = zlxDatosError_None;
    Variant fields, values;
    if (!FieldAndValueLists(xCampos, xValores, fields, values)) {
        m_lastError = zlxDatosError_BadFields;
        return 0;
    }
    if (cFor.isEmpty()) {
        m_rs->Update(fields, values);
        m_tally = 1;
        return ByPosition();
    }
    const Variant savedFilter = m_rs->Filter();
    m_rs->SetFilter(Variant(IsAll(cFor) ? QString() : cFor));
    m_tally = 0;
    while (!m_rs->IsEOF()) {
        m_rs->Update(fields, values);
        m_rs->MoveNext();
        ++m_tally;
    }
    m_rs->SetFilter(savedFilter);
    CurrentRow(m_recCount);
    return ByPosition();
}

// ---------------------------------------------------------------------------------------
// Searching

bool cDatos::OnDeletedRow() const {
    return m_rs->AbsolutePosition() == ado::adPosUnknown && !m_rs->IsEOF() &&
           (m_rs->Status() & ado::adRecDBDeleted);
}

void cDatos::RestoreView(const Variant& savedFilter) {
    m_rs->SetFilter(savedFilter);
    CurrentRow(m_currentRow);
}

std::int32_t cDatos::Locate(const QString& cFor, bool lRest) {
    if (m_recCount == 0) {
        m_lastError = zlxDatosError_InvalidRow;
        return 0;
    }
    m_lastError = zlxDatosError_None;
    const bool deleted = OnDeletedRow();
    if (deleted && lRest) {
        m_rs->MoveNext();
    }
    if (!lRest || m_rs->IsEOF() || (!deleted && m_rs->AbsolutePosition() < 1)) m_rs->MoveFirst();
    if (m_rs->IsEOF()) {
        m_lastError = zlxDatosError_InvalidRow;
        return 0;
    }
    const Variant start = m_rs->Bookmark();
    const Variant savedFilter = m_rs->Filter();
    m_rs->SetFilter(Variant(cFor));
    // With lRest the search goes on after the starting row: the first matching row that
    // comes after it in the table's order.
    if (lRest) {
        while (!m_rs->IsEOF() &&
               m_rs->CompareBookmarks(m_rs->Bookmark(), start) != ado::adCompareGreaterThan)
            m_rs->MoveNext();
    }
    if (m_rs->IsEOF()) {
        RestoreView(savedFilter);
        m_lastError = zlxDatosError_InvalidRow;
        return 0;
    }
    const Variant found = m_rs->Bookmark();
    m_rs->SetFilter(savedFilter);
    m_rs->SetBookmark(found);
    m_currentRow = m_rs->AbsolutePosition();
    return m_currentRow;
}

std::int32_t cDatos::Find(const QString& cFor, bool lRest) {
    if (m_recCount == 0) {
        m_lastError = zlxDatosError_InvalidRow;
        return 0;
    }
    if (lRest && OnDeletedRow()) m_rs->MoveNext();
    if (!lRest || m_rs->AbsolutePosition() < 1) m_rs->MoveFirst();
    m_rs->Find(cFor, 0, ado::adSearchForward);
    if (m_rs->IsEOF()) {
        CurrentRow(m_currentRow);
        m_lastError = zlxDatosError_InvalidRow;
        return 0;
    }
    CurrentRow(m_rs->AbsolutePosition());
    return m_currentRow;
}

std::int32_t cDatos::SeekRow(const QString& cColumn, const Variant& xValue, bool lRest) {
    return Find(cColumn + QStringLiteral(" = ") + CriteriaValue(xValue), lRest);
}

// ---------------------------------------------------------------------------------------
// Walking and totals

bool cDatos::Scan(const QString& cFor, bool lFromFirstRow) {
    if (m_recCount == 0) {
        m_lastError = zlxDatosError_InvalidRow;
        return false;
    }
    if (m_scanning) {
        m_rs->MoveNext();
        if (m_rs->IsEOF()) {
            if (m_scanCondition) m_rs->SetFilter(m_savedFilter);
            m_scanning = false;
            CurrentRow(1);
            return false;
        }
        m_lastError = zlxDatosError_None;
        ++m_currentRow;
        ++m_tally;
        return true;
    }
    m_savedFilter = m_rs->Filter();
    m_scanCondition = !cFor.isEmpty();
    if (m_scanCondition) {
        m_rs->SetFilter(Variant(cFor));
        if (lFromFirstRow && m_rs->RecordCount() > 0) CurrentRow(1);
    } else if (lFromFirstRow) {
        CurrentRow(1);
    }
    if (m_rs->IsEOF()) {
        m_tally = 0;
        if (m_scanCondition) m_rs->SetFilter(m_savedFilter);
        CurrentRow(1);
        return false;
    }
    m_tally = 1;
    m_lastError = zlxDatosError_None;
    m_scanning = true;
    return true;
}

void cDatos::EndScan() {
    if (!m_scanning) return;
    const Variant current = m_rs->Filter();
    if (current.VarType() != m_savedFilter.VarType() || !current.Equals(m_savedFilter))
        m_rs->SetFilter(m_savedFilter);
    m_scanning = false;
}

Variant cDatos::Sum(const Variant& xCampos, const QString& cFor) {
    std::vector<std::int32_t> columns;
    const bool several = xCampos.IsArray();
    if (several) {
        for (const Variant& name : xCampos.ToArray()->Data())
            columns.push_back(FieldNumber(name.ToString()));
    } else {
        columns.push_back(FieldNumber(xCampos.ToString()));
    }
    std::vector<Currency> totals(columns.size());
    if (m_recCount > 0) {
        const std::int32_t savedRow = m_currentRow;
        const Variant savedFilter = m_rs->Filter();
        if (!cFor.isEmpty())
            m_rs->SetFilter(Variant(cFor));
        else
            CurrentRow(1);
        m_tally = m_rs->IsEOF() ? 0 : 1;
        // Number columns are added up in their store; any other column row by row.
        bool added = true;
        for (std::size_t i = 0; i < columns.size() && added; ++i)
            added = m_rs->TotalOfVisible(columns[i], totals[i]);
        if (added) {
            m_tally = m_rs->RecordCount();
        } else {
            totals.assign(columns.size(), Currency{});
            while (!m_rs->IsEOF()) {
                for (std::size_t i = 0; i < columns.size(); ++i)
                    totals[i] =
                        AddCurrency(totals[i], Field_ByColumnNumber(columns[i]).ToCurrency());
                m_rs->MoveNext();
                if (!m_rs->IsEOF()) {
                    ++m_currentRow;
                    ++m_tally;
                }
            }
        }
        if (!cFor.isEmpty()) m_rs->SetFilter(savedFilter);
        CurrentRow(savedRow);
    }
    if (!several) return Variant(totals.front());
    Variant result = Variant::MakeArray({{1, static_cast<std::int32_t>(totals.size())}});
    for (std::size_t i = 0; i < totals.size(); ++i)
        result.ToArray()->At(static_cast<std::int32_t>(i + 1)) = Variant(totals[i]);
    return result;
}

} // namespace zlx
