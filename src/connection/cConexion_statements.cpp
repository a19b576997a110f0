#include "connection/ConexionMessages.h"
#include "connection/StatementText.h"
#include "connection/cConexion.h"
#include "platform/companion/cMatriz.h"
#include "platform/engines/EarlierBatchFailure.h"

#include <utility>

namespace zlx {

std::optional<cConexion::Failure> cConexion::RunWithReconnect(const std::function<void()>& action) {
    bool ranAgain = false;
    for (;;) {
        try {
            action();
            ClearErrorState();
            return std::nullopt;
        } catch (const ado::AdoError& e) {
            RecordServerError();
            if (!RunAgainAfterReconnect(ranAgain)) return Failure{e.Number(), e.Description()};
        } catch (const VariantError& e) {
            return Failure{e.Number(), e.Description()};
        }
    }
}

QString cConexion::ValuePiece(const Variant& value) {
    if (value.IsNull() && !IsServer()) ShowConexionError(zlxConexionError_CadInsertNull, {}, {});
    return StatementText::ValuePiece(value, m_provider);
}

std::int32_t cConexion::Insert(const QString& cTabla, const Variant& xCampos,
                               const Variant& xValores) {
    if (!xCampos.IsArray()) {
        ShowConexionError(zlxConexionError_InsertBadParameter, {}, {});
        return -1;
    }
    const QString head = StatementText::InsertHead(cTabla, StatementText::FieldList(xCampos));
    // Appends an INSERT of the values to `text`; answers the position of an unwritable value.
    const auto appendInsert = [&](QString& text, const auto& cell, std::int32_t first,
                                  std::int32_t last) -> std::optional<std::int32_t> {
        text += head;
        for (std::int32_t i = first; i <= last; ++i) {
            const QString piece = ValuePiece(cell(i));
            if (piece.isEmpty()) return i;
            text += piece;
        }
        if (last >= first) text.chop(1); // the last piece's comma
        text += QStringLiteral(") ");
        return std::nullopt;
    };
    if (const VariantArrayPtr values = xValores.ToArray()) {
        QString statement;
        if (const auto bad = appendInsert(
                statement, [&](std::int32_t i) { return values->At(i); }, values->LBound(),
                values->UBound())) {
            ShowConexionError(zlxConexionError_InsertBadValue, {},
                              QStringLiteral("Posición: (Col.=%1) Valor: ").arg(*bad));
            return -1;
        }
        return RunWithReconnect([&] { RunNoRecords(statement, Main()); }) ? -1 : 0;
    }
    const auto matrix = xValores.IsObject() && xValores.TypeName() == u"cMatriz"
                            ? std::dynamic_pointer_cast<cMatriz>(xValores.ToObject())
                            : nullptr;
    if (!matrix) return 0;
    QString batch, sent, unanswered;
    for (std::int32_t row = matrix->FirstRow(); row <= matrix->LastRow(); ++row) {
        if (const auto bad = appendInsert(
                batch, [&](std::int32_t col) { return matrix->Item(row, col); }, matrix->FirstCol(),
                matrix->LastCol())) {
            // The batches before it are answered first: a failure among them stops the insert.
            if (!SendInsertBatch({}, sent, unanswered)) return -1;
            ShowConexionError(
                zlxConexionError_InsertBadValue, {},
                QStringLiteral("Posición: (Línea=%1, Col.=%2) Valor: ").arg(row).arg(*bad));
            return -1;
        }
        if (row % 50 == 0) {
            if (!SendInsertBatch(batch, sent, unanswered)) return -1;
            batch = QString(); // `sent` keeps the text until its answers are read
            batch.reserve(sent.size());
        }
    }
    if (!batch.isEmpty() && !SendInsertBatch(batch, sent, unanswered)) return -1;
    return SendInsertBatch({}, sent, unanswered) ? 0 : -1;
}

bool cConexion::SendInsertBatch(const QString& next, QString& sent, QString& unanswered) {
    return !RunWithReconnect([&] {
        if (!unanswered.isEmpty()) RunNoRecords(unanswered, Main());
        unanswered.clear();
        try {
            next.isEmpty() ? Main().SettleDeferred() : Main().ExecuteDeferred(next);
        } catch (const ado::EarlierBatchFailure&) {
            // Run again only when the link was lost and reopened (RunWithReconnect).
            unanswered = std::exchange(sent, QString());
            throw;
        }
        sent = next;
    });
}

std::int32_t cConexion::Update(const QString& cTabla, std::int32_t nZolmarID,
                               const Variant& xCampos, const Variant& xValores) {
    const auto failed = RunWithReconnect([&] {
        const VariantArrayPtr fields = xCampos.ToArray();
        const VariantArrayPtr values = xValores.ToArray();
        QString assignments;
        // A list of names with a single value (or the other way round) is a type mismatch.
        const auto add = [&](const Variant& field, const Variant& value) {
            assignments += field.ToString() + QStringLiteral(" = ") + ValuePiece(value);
        };
        if (fields && values)
            for (std::size_t i = 0; i < fields->Data().size() && i < values->Data().size(); ++i)
                add(fields->Data()[i], values->Data()[i]);
        else
            add(xCampos, xValores);
        assignments.chop(1);
        RunNoRecords(QStringLiteral("UPDATE ") + cTabla + QStringLiteral(" SET ") + assignments +
                         QStringLiteral(" WHERE zolmarID = ") + QString::number(nZolmarID),
                     Main());
    });
    if (!failed) return 0;
    ShowConexionError(zlxConexionError_GenericErr, *failed,
                      QStringLiteral("Error en el método 'Update'."));
    return -1;
}

std::int32_t cConexion::RecCount(const QString& cTabla, const QString& cWhere) {
    std::int32_t count = -1;
    const auto failed = RunWithReconnect([&] {
        const ado::RecordsetPtr rs = RunQuery(StatementText::RecCount(cTabla, cWhere));
        count = rs->GetFields().Item(Variant("cuantos")).Value().ToLong();
    });
    if (!failed) return count;
    ShowConexionError(zlxConexionError_GenericErr, *failed,
                      QStringLiteral("Error en el método 'RecCount'."));
    return -1;
}

std::int32_t cConexion::ValorMasAlto(const QString& cTabla, const QString& cCampo) {
    std::int32_t highest = 0;
    const auto failed = RunWithReconnect([&] {
        const ado::RecordsetPtr rs =
            RunQuery(StatementText::ValorMasAlto(cTabla, cCampo, m_provider));
        const Variant value = rs->GetFields().Item(Variant("ultimo")).Value();
        highest = value.IsNull() ? 0 : value.ToLong();
    });
    if (!failed) return highest;
    ShowConexionError(zlxConexionError_GenericErr, *failed,
                      QStringLiteral("Error en el método 'ValorMasAlto'."));
    return 0;
}

} // namespace zlx
