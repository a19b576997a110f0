#include "connection/ConexionMessages.h"
#include "connection/StatementText.h"
#include "connection/cConexion.h"
#include "platform/companion/cMatriz.h"

namespace zlx {

template <class Action> bool cConexion::RetryAfterReconnect(Action&& action) {
    for (;;) {
        try {
            action();
            return true;
        } catch (const ado::AdoError&) {
            RecordServerError();
            if (!(ChkCnBroken() && m_reconnected)) return false;
            m_reconnected = false;
        }
    }
}

std::int32_t cConexion::Insert(const QString& cTabla, const Variant& xCampos,
                               const Variant& xValores) {
    if (!xCampos.IsArray()) {
        ShowConexionError(zlxConexionError_InsertBadParameter, {}, {});
        return -1;
    }
    const QString fields = StatementText::FieldList(xCampos);
    // Each value as a piece of the VALUES list; an unwritable one stops the insert.
    const auto piecesOf = [&](const std::function<Variant(std::int32_t)>& cell, std::int32_t first,
                              std::int32_t last, const std::function<QString(std::int32_t)>& where,
                              QString& pieces) {
        for (std::int32_t i = first; i <= last; ++i) {
            const Variant value = cell(i);
            const QString piece = StatementText::ValuePiece(value, m_provider);
            if (value.IsNull() && !IsServer())
                ShowConexionError(zlxConexionError_CadInsertNull, {}, {});
            if (piece.isEmpty()) {
                ShowConexionError(zlxConexionError_InsertBadValue, {}, where(i));
                return false;
            }
            pieces += piece;
        }
        pieces.chop(1);
        return true;
    };
    QString batch;
    if (const VariantArrayPtr values = xValores.ToArray()) {
        QString pieces;
        const auto where = [](std::int32_t i) {
            return QStringLiteral("Posición: (Col.=%1) Valor: ").arg(i);
        };
        if (!piecesOf([&](std::int32_t i) { return values->At(i); }, values->LBound(),
                      values->UBound(), where, pieces))
            return -1;
        batch = StatementText::Insert(cTabla, fields, pieces);
        return RetryAfterReconnect([&] { RunNoRecords(batch, *m_cn); }) ? 0 : -1;
    }
    const auto matrix = xValores.IsObject() && xValores.TypeName() == u"cMatriz"
                            ? std::dynamic_pointer_cast<cMatriz>(xValores.ToObject())
                            : nullptr;
    if (!matrix) return 0;
    for (std::int32_t row = matrix->FirstRow(); row <= matrix->LastRow(); ++row) {
        QString pieces;
        const auto where = [row](std::int32_t col) {
            return QStringLiteral("Posición: (Línea=%1, Col.=%2) Valor: ").arg(row).arg(col);
        };
        if (!piecesOf([&](std::int32_t col) { return matrix->Item(row, col); }, matrix->FirstCol(),
                      matrix->LastCol(), where, pieces))
            return -1;
        batch += StatementText::Insert(cTabla, fields, pieces);
        if (row % 50 == 0) {
            if (!RetryAfterReconnect([&] { RunNoRecords(batch, *m_cn); })) return -1;
            batch.clear();
        }
    }
    if (!batch.isEmpty() && !RetryAfterReconnect([&] { RunNoRecords(batch, *m_cn); })) return -1;
    return 0;
}

std::int32_t cConexion::Update(const QString& cTabla, std::int32_t nZolmarID,
                               const Variant& xCampos, const Variant& xValores) {
    const VariantArrayPtr fields = xCampos.ToArray();
    const VariantArrayPtr values = xValores.ToArray();
    QString assignments;
    const auto add = [&](const Variant& field, const Variant& value) {
        assignments +=
            field.ToString() + QStringLiteral(" = ") + StatementText::ValuePiece(value, m_provider);
    };
    if (fields && values)
        for (std::size_t i = 0; i < fields->Data().size() && i < values->Data().size(); ++i)
            add(fields->Data()[i], values->Data()[i]);
    else
        add(xCampos, xValores);
    assignments.chop(1);
    const QString text = QStringLiteral("UPDATE ") + cTabla + QStringLiteral(" SET ") +
                         assignments + QStringLiteral(" WHERE zolmarID = ") +
                         QString::number(nZolmarID);
    if (RetryAfterReconnect([&] { RunNoRecords(text, *m_cn); })) return 0;
    ShowConexionError(zlxConexionError_GenericErr, {},
                      QStringLiteral("Error en el método 'Update'."));
    return -1;
}

std::int32_t cConexion::RecCount(const QString& cTabla, const QString& cWhere) {
    std::int32_t count = -1;
    if (RetryAfterReconnect([&] {
            const ado::RecordsetPtr rs = RunQuery(StatementText::RecCount(cTabla, cWhere));
            count = rs->GetFields().Item(Variant("cuantos")).Value().ToLong();
        }))
        return count;
    ShowConexionError(zlxConexionError_GenericErr, {},
                      QStringLiteral("Error en el método 'RecCount'."));
    return -1;
}

std::int32_t cConexion::ValorMasAlto(const QString& cTabla, const QString& cCampo) {
    std::int32_t highest = 0;
    if (RetryAfterReconnect([&] {
            const ado::RecordsetPtr rs =
                RunQuery(StatementText::ValorMasAlto(cTabla, cCampo, m_provider));
            const Variant value = rs->GetFields().Item(Variant("ultimo")).Value();
            highest = value.IsNull() ? 0 : value.ToLong();
        }))
        return highest;
    ShowConexionError(zlxConexionError_GenericErr, {},
                      QStringLiteral("Error en el método 'ValorMasAlto'."));
    return 0;
}

} // namespace zlx
