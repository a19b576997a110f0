#pragma once
// Helpers for the application's forms: message boxes with the library's defaults, checks of
// typed values, button groups, closing and validation of forms, and the library switches.

#include "platform/variant/Variant.h"

#include <QList>

class QObject;
class QWidget;

namespace zlx {

class cAppUI : public Object {
public:
    QString TypeName() const override { return QStringLiteral("cAppUI"); }

    std::int32_t OK_Message(const QString& cCad, std::int32_t nTipo = 0,
                            const QString& cTitulo = QStringLiteral("Información"),
                            std::int32_t nIcono = 32516, bool lGrande = false);
    bool YN_Message(const QString& cCad, std::int32_t nTipo = 4,
                    const QString& cTitulo = QStringLiteral("Confirmación"),
                    std::int32_t nIcono = 32514, bool lGrande = false);

    // The reason a typed value is not acceptable, or "" when it is.
    QString ValidarNombre(const Variant& xTexto, bool lBloquearAsterisco = true,
                          bool lBloquearComienzaNumero = true, bool lBloquearComienzaMas = true,
                          bool lBloquearComienzaMenos = true) const;
    // "-123" refers to the record with identity 123; anything else gives 0.
    std::int32_t String2ID(const QString& cTxt) const;
    // How many controls of the array hold the value 0.
    std::int32_t CountZerosInCtls(const QList<QObject*>& oCtlArray) const;
    void DisableBtnFicha(const QList<QWidget*>& aBotones, bool lVisible, bool lEnabled,
                         std::int32_t nPrimerIndice = -1, std::int32_t nUltimoIndice = -1) const;
    // Shows a stored search result (a (column, row) array) in the search window again and
    // answers the first column of the picked row as a number (0 when nothing is picked).
    std::int32_t RepeatLastSearch(const Variant& aResultados, const Variant& aTitles,
                                  const Variant& aWidths, std::int32_t nFirstVisibleColumn,
                                  const QString& cWindowTitle, double nCustomZoomFactor = 1.0);
    bool CanUnloadForm(QWidget* oFrm) const;
    bool ValidateLastControl(QWidget* oFrm, bool lTodos = false) const;

    // The library-wide switches, shared by every cAppUI of the process.
    bool HabilitarRegistro_LogFichas() const;
    void HabilitarRegistro_LogFichas(bool value);
    bool CtlFichaReadOnly() const;
    void CtlFichaReadOnly(bool value);
    bool AutoReconectar() const;
    void AutoReconectar(bool value);

    // The value of a control as the library reads it: its Value, value or text property.
    static Variant ControlValue(const QObject* control);
};

using cAppUIPtr = std::shared_ptr<cAppUI>;

} // namespace zlx
