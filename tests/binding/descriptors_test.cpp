#include "QtPrinters.h"
#include "WidgetsApplication.h"
#include "binding/I_TAV.h"
#include "binding/cDAV_Activo.h"
#include "binding/cDAV_FechaGen.h"
#include "binding/cDAV_NumeroGen.h"
#include "binding/cDAV_TextoGen.h"
#include "binding/cDAV_ZolmarID.h"
#include "language/cIdioma.h"
#include "platform/companion/ScriptedPickList.h"
#include "platform/widgets/get.h"

#include <QFontDatabase>
#include <QLineEdit>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

// A text box that records every late-bound call the descriptors make, in order.
class RecordingBox : public QObject {
    Q_OBJECT
    Q_PROPERTY(int TipoDato READ Zero WRITE setTipoDato)
    Q_PROPERTY(int MaxLength READ Zero WRITE setMaxLength)
    Q_PROPERTY(int Alignment READ Zero WRITE setAlignment)
    Q_PROPERTY(QString ToolTip READ Empty WRITE setToolTip)
public:
    QStringList calls;
    int Zero() const { return 0; }
    QString Empty() const { return {}; }
    void setTipoDato(int v) { calls << QStringLiteral("TipoDato=%1").arg(v); }
    void setMaxLength(int v) { calls << QStringLiteral("MaxLength=%1").arg(v); }
    void setAlignment(int v) { calls << QStringLiteral("Alignment=%1").arg(v); }
    void setToolTip(const QString& v) { calls << QStringLiteral("ToolTip=") + v; }
    Q_INVOKABLE void BeginRefresh() { calls << "BeginRefresh"; }
    Q_INVOKABLE void EndRefresh() { calls << "EndRefresh"; }
    Q_INVOKABLE void FntNumbers() { calls << "FntNumbers"; }
    Q_INVOKABLE void FormatoMascara(const QString& m) { calls << QStringLiteral("Mascara=") + m; }
};

// A translator that marks every text it is asked for.
class MarkingIdioma : public cIdioma {
public:
    QString Msg(const QString& cTexto, const QString& cClave) override {
        EXPECT_TRUE(cClave.isEmpty());
        return QStringLiteral("[") + cTexto + QStringLiteral("]");
    }
};

class Descriptors : public ::testing::Test {
protected:
    static void SetUpTestSuite() { EnsureWidgetsApplication(); }

    // A date box showing a date (the blank date shows it empty).
    static std::unique_ptr<::get> DateBox(QDate date = QDate(1753, 1, 1)) {
        auto box = std::make_unique<::get>();
        box->setTipoDato(2);
        box->setValue(date);
        box->ResetValue();
        return box;
    }
    static QDate Shown(const ::get& box) { return box.property("Value").toDate(); }
    static Date D(int y, int m, int d) { return MakeDate(y, m, d); }
};

struct Expected {
    QString name;
    std::int32_t dataType, width;
    QString mask;
    bool indexed;
    int valueKind;
};

void ExpectShape(const cDAV_Base& dav, const Expected& e) {
    SCOPED_TRACE(dav.TypeName().toStdString());
    EXPECT_EQ(dav.Name(), e.name);
    EXPECT_EQ(dav.I_DAV_Name(), e.name);
    EXPECT_EQ(dav.DataType(), e.dataType);
    EXPECT_EQ(dav.I_DAV_DataType(), e.dataType);
    EXPECT_EQ(dav.Width(), e.width);
    EXPECT_EQ(dav.I_DAV_Width(), e.width);
    EXPECT_EQ(dav.Mask(), e.mask);
    EXPECT_EQ(dav.I_DAV_Mask(), e.mask);
    EXPECT_EQ(dav.Indexed(), e.indexed);
    EXPECT_EQ(dav.I_DAV_Indexed(), e.indexed);
    EXPECT_EQ(dav.Value().VarType(), e.valueKind);
}

TEST_F(Descriptors, EachClassDescribesItsColumn) {
    cDAV_FechaGen fecha;
    ExpectShape(fecha, {"", 12, 8, "", false, vbDate});
    fecha.Configure("FechaAlta", "Fecha de alta", true);
    ExpectShape(fecha, {"FechaAlta", 12, 8, "", true, vbDate});
    EXPECT_EQ(fecha.Value(), Variant(Date{}));

    cDAV_NumeroGen numero;
    ExpectShape(numero, {"", 3, 4, "(7,0)", false, vbDouble});
    numero.Configure("Importe", 12, "Importe", "(9,2)", 6, true);
    ExpectShape(numero, {"Importe", 6, 8, "(9,2)", true, vbDouble});

    cDAV_TextoGen texto;
    ExpectShape(texto, {"", 7, 0, "x", false, vbString});
    texto.Configure("Nombre", 40, "Nombre del cliente", "", true);
    ExpectShape(texto, {"Nombre", 7, 40, "x", true, vbString});
    texto.Configure("Notas", 0, "Notas");
    EXPECT_EQ(texto.DataType(), 9);
    texto.Configure("Letra", 1, "Letra");
    EXPECT_EQ(texto.DataType(), 7);

    ExpectShape(cDAV_ZolmarID(), {"zolmarID", 3, 4, "(7)", true, vbLong});
    ExpectShape(cDAV_Activo(), {"Activo", 1, 1, "(2,0)", true, vbDouble});
}

TEST_F(Descriptors, NumberWidthIsTheStorageSizeOfItsType) {
    const std::vector<std::pair<int, int>> sizes = {{1, 1},  {2, 2},  {3, 4},  {4, 8},
                                                    {5, 4},  {6, 8},  {7, 0},  {10, 0},
                                                    {13, 0}, {14, 8}, {15, 12}};
    cDAV_NumeroGen numero;
    for (const auto& [type, width] : sizes) {
        numero.Configure("N", 30, "", "", type);
        EXPECT_EQ(numero.Width(), width) << "type " << type;
    }
    EXPECT_EQ(numero.Mask(), "(7,0)"); // an empty mask keeps the default
}

TEST_F(Descriptors, ValuesAreConvertedAsTheColumnKeepsThem) {
    cDAV_NumeroGen entero;
    entero.Configure("Unidades", 5, "");
    entero.Value(Variant(2.5));
    EXPECT_EQ(entero.Value(), Variant(2.0));
    entero.Value(Variant("3,5"));
    EXPECT_EQ(entero.Value(), Variant(4.0));
    EXPECT_THROW(entero.Value(Variant(3e9)), VariantError);
    entero.Configure("Importe", 12, "", "(9,4)", 14); // currency keeps whole numbers only
    entero.Value(Variant(7.6));
    EXPECT_EQ(entero.I_DAV_Value(), Variant(8.0));

    cDAV_NumeroGen real;
    real.Configure("Peso", 8, "", "(5,3)", 6);
    real.Value(Variant(2.5));
    EXPECT_EQ(real.Value(), Variant(2.5));
    real.Configure("Ratio", 8, "", "", 5);
    real.I_DAV_Value(Variant(0.25));
    EXPECT_EQ(real.Value(), Variant(0.25));

    cDAV_TextoGen texto;
    texto.Value(Variant(1.5));
    EXPECT_EQ(texto.Value(), Variant("1,5"));
    EXPECT_THROW(texto.Value(Variant::Null()), VariantError);

    cDAV_FechaGen fecha;
    fecha.Value(Variant("31/12/2024"));
    EXPECT_EQ(fecha.Value(), Variant(D(2024, 12, 31)));
    EXPECT_THROW(fecha.Value(Variant("mañana")), VariantError);

    cDAV_ZolmarID id;
    id.Value(Variant(41.5));
    EXPECT_EQ(id.Value(), Variant(std::int32_t(42)));
    cDAV_Activo activo;
    activo.Value(Variant(std::int16_t(2)));
    EXPECT_EQ(activo.Value(), Variant(2.0));
    EXPECT_EQ(activo.Value().VarType(), vbDouble);
}

TEST_F(Descriptors, ConfigureControlSetsTheBoxInItsOrder) {
    const auto calls = [](I_DAV& dav) {
        RecordingBox box;
        dav.ConfigureControl(&box);
        return box.calls;
    };
    cDAV_FechaGen fecha;
    fecha.Configure("Fecha", "Fecha de la factura");
    EXPECT_EQ(calls(fecha), (QStringList{"TipoDato=2", "ToolTip=Fecha de la factura"}));

    cDAV_NumeroGen numero;
    numero.Configure("Importe", 12, "Importe total", "(9,2)");
    EXPECT_EQ(calls(numero), (QStringList{"BeginRefresh", "TipoDato=1", "MaxLength=12",
                                          "Mascara=(9,2)", "ToolTip=Importe total", "EndRefresh"}));
    numero.Configure("id_Cliente", 12, "Cliente");
    EXPECT_EQ(calls(numero),
              (QStringList{"BeginRefresh", "TipoDato=0", "MaxLength=7", "Alignment=1", "FntNumbers",
                           "ToolTip=Cliente", "EndRefresh"}));
    numero.Configure("IDX", 12, "Índice"); // "ID" without the underscore is a number
    EXPECT_EQ(calls(numero).at(1), "TipoDato=1");

    cDAV_TextoGen texto;
    texto.Configure("Nombre", 40, "Nombre del cliente");
    EXPECT_EQ(calls(texto), (QStringList{"BeginRefresh", "TipoDato=0", "MaxLength=40", "Mascara=x",
                                         "ToolTip=Nombre del cliente", "EndRefresh"}));
    cDAV_ZolmarID id;
    EXPECT_EQ(calls(id),
              (QStringList{"BeginRefresh", "TipoDato=0", "MaxLength=7", "Alignment=1",
                           "ToolTip=Identificador de la tabla", "FntNumbers", "EndRefresh"}));
    cDAV_Activo activo;
    EXPECT_EQ(calls(activo), (QStringList{"BeginRefresh", "TipoDato=1", "MaxLength=2",
                                          "Mascara=(2,0)", "ToolTip=Activo", "EndRefresh"}));
}

TEST_F(Descriptors, ConfiguredBoxesTakeInputAsTheirColumnNeeds) {
    cDAV_NumeroGen importe;
    importe.Configure("Importe", 10, "Importe total", "(7,2)");
    ::get box;
    importe.ConfigureControl(&box);
    box.Editor()->setText("1234,5");
    emit box.Editor()->editingFinished();
    EXPECT_EQ(box.Text(), "1.234,50");
    EXPECT_EQ(box.ValorVerdadero().toDouble(), 1234.5);
    EXPECT_EQ(box.ToolTip(), "Importe total");
    EXPECT_TRUE(box.updatesEnabled());

    cDAV_ZolmarID id;
    ::get idBox;
    id.ConfigureControl(&idBox);
    EXPECT_EQ(idBox.TipoDato(), 0);
    EXPECT_EQ(idBox.Editor()->maxLength(), 7);
    EXPECT_EQ(idBox.Editor()->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
    EXPECT_EQ(idBox.Editor()->font().family(),
              QFontDatabase::systemFont(QFontDatabase::FixedFont).family());

    cDAV_FechaGen fecha;
    ::get dateBox;
    fecha.ConfigureControl(&dateBox);
    EXPECT_EQ(dateBox.TipoDato(), 2);
}

TEST_F(Descriptors, InterfaceShellsAnswerEmptyValues) {
    I_DAV dav;
    EXPECT_EQ(dav.Name(), "");
    EXPECT_EQ(dav.Width(), 0);
    EXPECT_EQ(dav.DataType(), 0);
    EXPECT_FALSE(dav.Indexed());
    dav.Value(Variant(5));
    EXPECT_TRUE(dav.Value().IsEmpty());
    RecordingBox box;
    dav.ConfigureControl(&box);
    EXPECT_TRUE(box.calls.isEmpty());

    I_TAV tav;
    EXPECT_FALSE(tav.Configure(std::make_shared<cGlobales>(), nullptr, "Clientes", true));
    EXPECT_TRUE(tav.EnumerateDAVs().empty());
    EXPECT_EQ(tav.Str2DAV("Nombre"), nullptr);
    EXPECT_EQ(tav.Name(), "");
    EXPECT_EQ(tav.SeekID(3), 0);
    EXPECT_TRUE(tav.Field("Nombre").IsEmpty());
    EXPECT_EQ(tav.FichaDB(), nullptr);
    EXPECT_EQ(tav.Globales(), nullptr);
}

TEST_F(Descriptors, ValidateChecksTheDateAndItsBounds) {
    cDAV_FechaGen fecha;
    auto box = DateBox(QDate(2024, 5, 15));
    EXPECT_TRUE(fecha.Validate(box.get()));
    EXPECT_TRUE(fecha.Validate(box.get(), true, D(2024, 5, 15), D(2024, 5, 15)));
    EXPECT_FALSE(fecha.Validate(box.get(), true, D(2024, 5, 16)));
    EXPECT_FALSE(fecha.Validate(box.get(), false, Date{}, D(2024, 5, 14)));

    box->setText("30/02/2024");
    EXPECT_FALSE(fecha.Validate(box.get()));

    // The blank date passes a bound only when empty dates are valid.
    box->setText("");
    EXPECT_TRUE(fecha.Validate(box.get()));
    EXPECT_TRUE(fecha.Validate(box.get(), true, D(2000, 1, 1)));
    EXPECT_FALSE(fecha.Validate(box.get(), false, D(2000, 1, 1)));

    QObject notABox; // no ValidateFecha: not a date
    EXPECT_FALSE(fecha.Validate(&notABox));
}

TEST_F(Descriptors, RangePresetsFillTheFromAndToBoxes) {
    ScriptedPopupList list;
    ScopedPopupListPresenter scope(list);
    MarkingIdioma idioma;
    cDAV_FechaGen fecha;
    fecha.oFecha()->Hoy(QDate(2024, 5, 15));
    auto single = DateBox(QDate(2024, 1, 9)), desde = DateBox(), hasta = DateBox();
    desde->setHasChanged(true);
    std::int32_t nFecha = 6, nDesde = 9, nHasta = 9;

    list.QueuePicks({9});
    fecha.AjustarGetsDesdeCombos(idioma, true, single.get(), desde.get(), hasta.get(), nFecha,
                                 nDesde, nHasta);
    EXPECT_EQ(list.Last().title, "[Fechas a elegir]");
    EXPECT_EQ(list.Last().items,
              (QStringList{"[En blanco]", "[Ayer y Hoy]", "[Hoy - Mañana]", "[Semana en curso]",
                           "[Mes en curso]", "[Trimestre en curso]", "[Año en curso]",
                           "[Ejercicio en curso]", "[Mes anterior]", "[Trimestre anterior]",
                           "[Año anterior]", "[Ejercicio anterior]"}));
    EXPECT_EQ(std::tuple(nFecha, nDesde, nHasta), std::tuple(0, 17, 18));
    EXPECT_EQ(Shown(*desde), QDate(2024, 4, 1));
    EXPECT_EQ(Shown(*hasta), QDate(2024, 4, 30));
    EXPECT_FALSE(desde->HasChanged());
    EXPECT_FALSE(hasta->HasChanged());
    EXPECT_EQ(single->Text(), ""); // the single date is blanked

    // "En blanco" blanks the pair and leaves the single date alone.
    single->setValue(QDate(2024, 1, 9));
    list.QueuePicks({1});
    fecha.AjustarGetsDesdeCombos(idioma, true, single.get(), desde.get(), hasta.get(), nFecha,
                                 nDesde, nHasta);
    EXPECT_EQ(std::tuple(nFecha, nDesde, nHasta), std::tuple(0, 0, 0));
    EXPECT_EQ(desde->Text(), "");
    EXPECT_EQ(hasta->Text(), "");
    EXPECT_EQ(Shown(*single), QDate(2024, 1, 9));

    // Closing the list changes nothing.
    nDesde = 5;
    fecha.AjustarGetsDesdeCombos(idioma, true, single.get(), desde.get(), hasta.get(), nFecha,
                                 nDesde, nHasta);
    EXPECT_EQ(nDesde, 5);
    EXPECT_EQ(Shown(*single), QDate(2024, 1, 9));
}

TEST_F(Descriptors, SingleDatePresetsFillTheDateBox) {
    ScriptedPopupList list;
    ScopedPopupListPresenter scope(list);
    cIdioma idioma; // Castellano: the texts as they are
    cDAV_FechaGen fecha;
    fecha.oFecha()->Hoy(QDate(2024, 5, 15));
    auto single = DateBox(), desde = DateBox(QDate(2024, 2, 1)), hasta = DateBox(QDate(2024, 2, 9));
    single->setHasChanged(true);
    std::int32_t nFecha = 0, nDesde = 4, nHasta = 5;

    list.QueuePicks({16});
    fecha.AjustarGetsDesdeCombos(idioma, false, single.get(), desde.get(), hasta.get(), nFecha,
                                 nDesde, nHasta);
    EXPECT_EQ(list.Last().title, "Fechas a elegir");
    ASSERT_EQ(list.Last().items.size(), 21);
    EXPECT_EQ(list.Last().items.mid(0, 5),
              (QStringList{"\"Hoy\"", "\"Ayer\"", "\"Mañana\"", "Primer día de la semana en curso",
                           "Último día de la semana en curso"}));
    EXPECT_EQ(
        list.Last().items.mid(11, 4),
        (QStringList{"Primer día del ejercicio en curso", "Último día del ejercicio en curso",
                     "Primer día del ejercicio anterior", "Último día del ejercicio anterior"}));
    EXPECT_EQ(list.Last().items.mid(15),
              (QStringList{"Primer día del mes anterior", "Último día del mes anterior",
                           "Primer día del trimestre anterior", "Último día del trimestre anterior",
                           "Primer día del año anterior", "Último día del año anterior"}));
    EXPECT_EQ(std::tuple(nFecha, nDesde, nHasta), std::tuple(17, 0, 0));
    EXPECT_EQ(Shown(*single), QDate(2024, 4, 1));
    EXPECT_FALSE(single->HasChanged());
    EXPECT_EQ(desde->Text(), "");
    EXPECT_EQ(hasta->Text(), "");

    // Without the pair; the picked row's code equals the row up to 15.
    list.QueuePicks({15});
    fecha.AjustarGetsDesdeCombos(idioma, false, single.get());
    EXPECT_EQ(Shown(*single), QDate(2023, 12, 31));
    // The fiscal year set on the calculator moves the "ejercicio" presets.
    fecha.oFecha()->PrimerMesEjercicio(7);
    list.QueuePicks({12});
    fecha.AjustarGetsDesdeCombos(idioma, false, single.get(), nullptr, nullptr, nFecha, nDesde,
                                 nHasta);
    EXPECT_EQ(nFecha, 12);
    EXPECT_EQ(Shown(*single), QDate(2023, 7, 1));
}

TEST_F(Descriptors, TripleFilterKeepsTheSingleDateAndTheRangeApart) {
    cDAV_FechaGen fecha;
    auto single = DateBox(QDate(2024, 3, 1)), desde = DateBox(QDate(2024, 1, 1)),
         hasta = DateBox(QDate(2024, 1, 31));
    const QList<QObject*> boxes = {single.get(), desde.get(), hasta.get()};
    std::int32_t nFecha = 1, nDesde = 6, nHasta = 7;

    // Nothing changed: nothing happens.
    EXPECT_FALSE(fecha.ValidateTripleFilter(1, boxes, nFecha, nDesde, nHasta));
    EXPECT_EQ(std::tuple(nFecha, nDesde, nHasta), std::tuple(1, 6, 7));

    // The user typed a "to" date: the single date goes and the "to" code is cleared.
    hasta->setHasChanged(true);
    EXPECT_FALSE(fecha.ValidateTripleFilter(2, boxes, nFecha, nDesde, nHasta));
    EXPECT_EQ(std::tuple(nFecha, nDesde, nHasta), std::tuple(0, 6, 0));
    EXPECT_EQ(single->Text(), "");
    EXPECT_EQ(desde->Text(), "01/01/2024");
    desde->setHasChanged(true);
    fecha.ValidateTripleFilter(1, boxes, nFecha, nDesde, nHasta);
    EXPECT_EQ(nDesde, 0);

    // The user typed the single date: the pair goes and every code is cleared.
    single->setValue(QDate(2024, 3, 1));
    nDesde = 4;
    nHasta = 5;
    nFecha = 1;
    EXPECT_FALSE(fecha.ValidateTripleFilter(0, boxes, nFecha, nDesde, nHasta));
    EXPECT_EQ(std::tuple(nFecha, nDesde, nHasta), std::tuple(0, 0, 0));
    EXPECT_EQ(desde->Text(), "");
    EXPECT_EQ(hasta->Text(), "");
    EXPECT_EQ(single->Text(), "01/03/2024");

    // A pair without the single box: only the codes change.
    const QList<QObject*> pair = {single.get(), desde.get()};
    desde->setValue(QDate(2024, 6, 1));
    nFecha = 3;
    fecha.ValidateTripleFilter(1, pair, nFecha, nDesde, nHasta);
    EXPECT_EQ(nFecha, 0);
    EXPECT_EQ(single->Text(), "01/03/2024");
}

} // namespace

#include "descriptors_test.moc"
