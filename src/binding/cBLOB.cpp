#include "binding/cBLOB.h"

#include "connection/SqlText.h"
#include "connection/cSQLStrings.h"
#include "platform/ado/Errors.h"
#include "platform/dbfformat/Cp1252.h"

namespace zlx {

namespace {

// The bytes of an array, each element converted as CByte converts it (a text, its
// Windows-1252 bytes).
QByteArray RawBytes(const Variant& value) {
    const VariantArrayPtr array = value.ToArray();
    if (!array)
        return value.VarType() == vbString ? Cp1252::Encode(value.ToString()) : QByteArray();
    if (std::optional<QByteArray> bytes = array->Bytes()) return *std::move(bytes);
    QByteArray bytes;
    for (const Variant& item : array->Data())
        bytes.append(static_cast<char>(item.ToByte()));
    return bytes;
}

} // namespace

bool cBLOB::Init(cConexionPtr oExistingCn, const QString& cDataBase, const QString& cTableName) {
    m_cn = std::move(oExistingCn);
    m_table = cDataBase + QStringLiteral("..") + cTableName;
    return m_cn && !cDataBase.isEmpty() && !cTableName.isEmpty();
}

QString cBLOB::Selection(int nTipo, const QString& cNombre) const {
    QString text = QStringLiteral(" WHERE nombre=") + SqlText::PonComillas(cNombre);
    if (nTipo != zlxBLOBTypeAny) text += QStringLiteral(" AND tipo=") + QString::number(nTipo);
    return text;
}

Variant cBLOB::Value(int nTipo, const QString& cNombre) {
    ado::RecordsetPtr rs;
    if (m_cn->Open_RecordSet(rs, QStringLiteral("SELECT Contenido FROM ") + m_table +
                                     Selection(nTipo, cNombre)) != 0)
        return Variant(QString());
    QByteArray bytes;
    if (!rs->IsEOF()) bytes = RawBytes(rs->GetFields().Item(0).Value());
    rs->Close();
    if (bytes.isEmpty()) return Variant(QString());
    if (IsText(nTipo)) return Variant(Cp1252::Decode(bytes.constData(), bytes.size()));
    return Variant::FromBytes(bytes);
}

std::int32_t cBLOB::FindOrAdd(int nTipo, const QString& cNombre) {
    const std::int32_t id =
        m_cn->Execute(QStringLiteral("SELECT ZolmarID FROM ") + m_table + Selection(nTipo, cNombre),
                      zlxExecuteReturn_Value, Variant(0))
            .ToLong();
    if (id != 0) return id;
    cSQLStrings insert;
    insert.BeginInsert(m_cn, m_table, true);
    insert.AddField(QStringLiteral("Tipo"), Variant(std::int32_t(nTipo)));
    insert.AddField(QStringLiteral("Nombre"), Variant(cNombre));
    insert.EndStr();
    return insert.Execute(zlxExecuteReturn_Value, Variant(0)).ToLong();
}

void cBLOB::Value(int nTipo, const QString& cNombre, const Variant& xContenido) {
    const std::int32_t id = FindOrAdd(nTipo, cNombre);
    if (id == 0) return;
    ado::RecordsetPtr rs;
    if (m_cn->Open_RecordSet(rs,
                             QStringLiteral("SELECT ZolmarID, Contenido FROM ") + m_table +
                                 QStringLiteral(" WHERE ZolmarID=") + QString::number(id),
                             ado::adUseServer, ado::adCmdText, ado::adOpenStatic,
                             ado::adLockOptimistic) != 0)
        return;
    const QByteArray bytes =
        IsText(nTipo) ? Cp1252::Encode(xContenido.ToString()) : RawBytes(xContenido);
    try {
        rs->GetFields().Item(QStringLiteral("Contenido")).AppendChunk(Variant::FromBytes(bytes));
        rs->Update();
    } catch (const ado::AdoError&) {
        // Reported as the connection reports a failed statement.
        m_cn->ChkError();
    }
    rs->Close();
}

std::int32_t cBLOB::Delete(int nTipo, const QString& cNombre) {
    m_cn->Execute(QStringLiteral("DELETE FROM ") + m_table + Selection(nTipo, cNombre),
                  zlxExecuteReturn_Nothing);
    return m_cn->nTally();
}

} // namespace zlx
