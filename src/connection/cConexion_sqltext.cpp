#include "connection/SqlText.h"
#include "connection/TypeMapping.h"
#include "connection/WhereBuilder.h"
#include "connection/cConexion.h"

#include <QVariant>

namespace zlx {

namespace {

std::vector<Variant> ElementsOf(const Variant& list) {
    const VariantArrayPtr array = list.ToArray();
    return array ? array->Data() : std::vector<Variant>{list};
}

std::vector<QString> TextsOf(const Variant& list) {
    std::vector<QString> texts;
    for (const Variant& item : ElementsOf(list))
        texts.push_back(item.ToString());
    return texts;
}

// A check box's value: its Value property, or whether a Qt button is checked.
Variant BoxValue(const QObject* box) {
    if (!box) return Variant(0);
    const QVariant value = box->property("Value");
    if (value.isValid()) return Variant(value.toInt());
    return Variant(box->property("checked").toBool() ? 1 : 0);
}

} // namespace

QString cConexion::PonComillas(const Variant& xValor, int nLike) const {
    return SqlText::PonComillas(xValor, nLike);
}

QString cConexion::SoloFecha(const QString& cCampo) const {
    return SqlText::SoloFecha(cCampo);
}

QString cConexion::SoloHora(const QString& cCampo, bool lSegundos) const {
    return SqlText::SoloHora(cCampo, lSegundos);
}

bool cConexion::FiltroPorPalabras(const QString& cCampo, const QString& cTextoBuscado,
                                  QString& cFiltroPorPalabras) const {
    return SqlText::FiltroPorPalabras(cCampo, cTextoBuscado, cFiltroPorPalabras);
}

int cConexion::DatoADO2ZLX(int nTipo, std::int32_t, std::int32_t) {
    const auto type = TypeMapping::AdoToZlx(nTipo);
    if (type) return *type;
    Log(QStringLiteral("El método 'ADO2ZLX' no conoce un dato de tipo '%1'.").arg(nTipo));
    return zlxTblColumnTypeNone;
}

int cConexion::DatoZLX2ADO(int nTipo, int nProveedor) const {
    return TypeMapping::ZlxToAdo(nTipo, nProveedor);
}

int cConexion::DatoADO2OCX(int nTipo) {
    const auto type = TypeMapping::AdoToDisplay(nTipo);
    if (type) return *type;
    ShowConexionError(
        zlxConexionError_GenericErr, {},
        QStringLiteral("El método 'ADO2OCX' no conoce un dato de tipo '%1'.").arg(nTipo));
    return zlxDisplayText;
}

int cConexion::DatoZLX2OCX(int nTipo) const {
    return TypeMapping::ZlxToDisplay(nTipo);
}

int cConexion::DatoSQL2ZLX(std::int32_t nTipo) const {
    return TypeMapping::SqlServerToZlx(nTipo);
}

Variant cConexion::Str2Where(QObject* oControl, int nModo, const Variant& xFltValor,
                             const QString& cFldName) const {
    if (oControl) return Variant(WhereBuilder::ControlCondition(*oControl, nModo));
    if (cFldName.isEmpty()) return Variant();
    return Variant(WhereBuilder::Condition(cFldName, xFltValor, nModo));
}

QString cConexion::CheckBoxes2Where(const std::vector<QObject*>& aCheckBoxes, const QString& cField,
                                    int nModo, const Variant& aValues) const {
    std::vector<Variant> boxes;
    for (const QObject* box : aCheckBoxes)
        boxes.push_back(BoxValue(box));
    return WhereBuilder::CheckBoxes(boxes, cField, nModo, ElementsOf(aValues));
}

QString cConexion::ReplaceWhere(const QString& cFiltroOriginal, const Variant& aFiltrosSustituidos,
                                const Variant& aFiltrosSustitutos) const {
    return WhereBuilder::ReplaceWhere(cFiltroOriginal, TextsOf(aFiltrosSustituidos),
                                      TextsOf(aFiltrosSustitutos));
}

} // namespace zlx
