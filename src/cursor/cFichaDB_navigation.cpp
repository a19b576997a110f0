// Moves, seeks, finds and refreshes of the record cursor.

#include "connection/SqlText.h"
#include "cursor/FichaDBText.h"
#include "cursor/cFichaDB.h"

namespace zlx {

using namespace FichaDBText;

QString cFichaDB::FirstColumnLiteral() const {
    return SqlText::PonComillas(m_rs->GetFields().Item(0).Value());
}

std::int32_t cFichaDB::MoveToEdge(bool last) {
    if (!IsOpen()) return 0;
    if (m_origen == zlxFichaDBOrigenTabla) {
        if (m_rs->RecordCount() > 0) last ? m_rs->MoveLast() : m_rs->MoveFirst();
        return 0;
    }
    if (!LightCursor()) return 0;
    if (m_orderIsIdentity) return Query(FirstInOrder(m_table, m_filter, m_order, last));
    if (Query(BoundaryValue(m_table, m_filter, m_order, last), false) == -1) {
        // Nothing qualifies: the recordset is left empty, still with every column.
        Query(AnyWithOrderValue(m_table, m_filter, m_order));
        return -1;
    }
    if (!IsOpen()) return 0;
    const std::int32_t result =
        Query(FirstOfValueWithOrderValue(m_table, m_filter, m_order, FirstColumnLiteral(), last));
    if (m_order.contains(u'+') && result >= 1)
        m_lastOrderLiteral =
            SqlText::PonComillas(m_rs->GetFields().Item(m_rs->GetFields().Count() - 1).Value());
    return result;
}

std::int32_t cFichaDB::MovePrevious(bool lRedraw) {
    Q_UNUSED(lRedraw);
    return Step(true);
}

std::int32_t cFichaDB::StepInTable(bool back) {
    if (m_rs->RecordCount() > 0) {
        if (back) {
            m_rs->MovePrevious();
            if (m_rs->IsBOF()) m_rs->MoveFirst();
        } else {
            m_rs->MoveNext();
            if (m_rs->IsEOF()) m_rs->MoveLast();
        }
    }
    return 0;
}

std::int32_t cFichaDB::Step(bool back) {
    if (!IsOpen() || AtEnd()) return 0;
    if (m_origen == zlxFichaDBOrigenTabla) return StepInTable(back);
    if (!LightCursor()) return 0;
    const std::int32_t id = ID();
    std::int32_t result = 0;
    if (m_orderIsIdentity) {
        result = Query(NextByIdentity(m_table, m_filter,
                                      m_rs->Collect(Variant(m_order)).ToInvariantString(), back));
    } else {
        QString literal;
        if (!CurrentOrderLiteral(id, literal)) return 0;
        result = NextInOrder(literal, id, back);
    }
    // Past the end of the order the cursor stays on the last (first) record.
    if (result < 0) return back ? MoveFirst() : MoveLast();
    return result;
}

bool cFichaDB::CurrentOrderLiteral(std::int32_t id, QString& literal) {
    if (!m_order.contains(u'+')) {
        // A column of the record; an order that is neither a column nor an expression raises.
        literal = SqlText::PonComillas(m_rs->Collect(Variant(m_order)));
        return true;
    }
    const std::int32_t found = Query(OrderValueOf(m_table, m_order, id), false);
    if (found == -1) {
        // The record is gone: go on from the value it had when it was last reached.
        literal = m_lastOrderLiteral;
        return true;
    }
    if (!IsOpen()) return false;
    literal = FirstColumnLiteral();
    m_lastOrderLiteral = literal;
    return true;
}

std::int32_t cFichaDB::NextInOrder(const QString& literal, std::int32_t id, bool back) {
    const std::int32_t same = Query(SameValueNext(m_table, m_filter, m_order, literal, id, back));
    if (same != -1) return same;
    if (Query(NextValue(m_table, m_filter, m_order, literal, back), false) == -1) return -1;
    if (!IsOpen()) return 0;
    return Query(FirstOfValue(m_table, m_filter, m_order, FirstColumnLiteral(), back));
}

std::int32_t cFichaDB::SeekID(std::int32_t nID_Zolmar) {
    if (!IsOpen()) return 0;
    const std::int32_t remembered = AtEnd() ? 0 : ID();
    if (LightCursor()) {
        if (nID_Zolmar < 1) return 0;
        const std::int32_t found = Query(Seek(m_table, nID_Zolmar));
        return found == -1 ? remembered : found;
    }
    if (m_origen != zlxFichaDBOrigenTabla || m_rs->RecordCount() == 0) return 0;
    m_rs->MoveFirst();
    m_rs->Find(QStringLiteral("zolmarID=") + QString::number(nID_Zolmar));
    return m_rs->IsEOF() ? 0 : ID();
}

std::int32_t cFichaDB::Find(const QString& cExp) {
    const std::int32_t found = Query(FichaDBText::Find(m_table, cExp, m_filter, m_order));
    return found == -1 ? 0 : found;
}

std::int32_t cFichaDB::Refresh() {
    if (!LightCursor() || !IsOpen() || AtEnd()) return 0;
    return Query(FichaDBText::Refresh(m_table, ID()));
}

bool cFichaDB::IsFiltered() {
    if (!LightCursor() || !IsOpen()) return false;
    if (AtEnd()) return true;
    return Query(InFilter(m_table, ID(), m_filter)) == -1;
}

} // namespace zlx
