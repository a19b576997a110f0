#include "ControlsTestSupport.h"
#include "QtPrinters.h"
#include "WidgetsApplication.h"
#include "platform/companion/LateBinding.h"
#include "platform/companion/ScriptedPickList.h"
#include "platform/widgets/btn.h"
#include "platform/widgets/get.h"
#include "platform/widgets/lbl.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QRadioButton>
#include <QToolButton>
#include <gtest/gtest.h>

using namespace zlx;

namespace app {
// An application's own control, declared in its own namespace.
class get : public QLineEdit {
    Q_OBJECT
};
} // namespace app

namespace {

class Controls : public ::testing::Test {
protected:
    static void SetUpTestSuite() { EnsureWidgetsApplication(); }
};

QDate Blank() {
    return QDate(1753, 1, 1);
}

TEST_F(Controls, NumberBoxTakesSpanishInputWithinItsMask) {
    ::get box;
    box.setProperty("TipoDato", 1);
    QMetaObject::invokeMethod(&box, "FormatoMascara", Q_ARG(QString, "(7,2)"));
    Type(box.Editor(), "1234,5", true);
    EXPECT_EQ(box.property("Text").toString(), "1.234,50");
    EXPECT_EQ(box.property("Value").toDouble(), 1234.5);
    EXPECT_EQ(box.property("ValorVerdadero").toDouble(), 1234.5);
    EXPECT_TRUE(box.property("HasChanged").toBool());
    EXPECT_EQ(box.Editor()->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);

    // Digits beyond the mask are refused: seven before the comma, two after it.
    box.setProperty("Text", "");
    Type(box.Editor(), "123456789,123", true);
    EXPECT_EQ(box.property("Text").toString(), "1.234.567,12");
    box.setProperty("Value", -0.5);
    EXPECT_EQ(box.property("Text").toString(), "-0,50");
    box.setProperty("Value", QString("2.500,75"));
    EXPECT_EQ(box.property("Value").toDouble(), 2500.75);

    // A whole-number mask has no comma; an empty box is 0.
    box.FormatoMascara("(2,0)");
    box.setProperty("Text", "");
    Type(box.Editor(), "1,57", true);
    EXPECT_EQ(box.property("Text").toString(), "15");
    box.setProperty("Text", "");
    EXPECT_EQ(box.property("Value").toDouble(), 0.0);

    // A code shows through its own layout: no grouping, leading zeros kept.
    box.FormatoMascara("(5,0);00000");
    box.setProperty("Value", 4013);
    EXPECT_EQ(box.property("Text").toString(), "04013");
    box.setProperty("Text", "");
    Type(box.Editor(), "410915", true);
    EXPECT_EQ(box.property("Text").toString(), "41091");
    EXPECT_EQ(box.property("Value").toDouble(), 41091.0);
}

TEST_F(Controls, TextBoxKeepsItsLengthAndResetValueClearsTheChange) {
    ::get box;
    box.setProperty("MaxLength", 5);
    Type(box.Editor(), "Zaragoza");
    EXPECT_EQ(box.property("Value").toString(), "Zarag");
    EXPECT_TRUE(box.property("HasChanged").toBool());
    QMetaObject::invokeMethod(&box, "ResetValue");
    EXPECT_FALSE(box.property("HasChanged").toBool());
    box.setProperty("Alignment", 2);
    EXPECT_EQ(box.Editor()->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
    box.setProperty("ToolTip", "Ciudad");
    EXPECT_EQ(box.Editor()->toolTip(), "Ciudad");
}

TEST_F(Controls, RefreshBracketsNestAndShowOnceAtTheEnd) {
    ::get box;
    QMetaObject::invokeMethod(&box, "BeginRefresh");
    QMetaObject::invokeMethod(&box, "BeginRefresh");
    QMetaObject::invokeMethod(&box, "EndRefresh");
    EXPECT_FALSE(box.updatesEnabled());
    QMetaObject::invokeMethod(&box, "EndRefresh");
    EXPECT_TRUE(box.updatesEnabled());
    QMetaObject::invokeMethod(&box, "EndRefresh"); // an unmatched end changes nothing
    EXPECT_TRUE(box.updatesEnabled());
}

TEST_F(Controls, EnabledPartsAndButtons) {
    ::get box;
    box.setProperty("BtnCombo", true);
    box.setProperty("BtnBuscar", true);
    int combo = 0, search = 0;
    QObject::connect(&box, &::get::ClickCombo, [&] { ++combo; });
    QObject::connect(&box, &::get::ClickBuscar, [&] { ++search; });
    box.ComboButton()->click();
    box.SearchButton()->click();
    EXPECT_EQ(combo, 1);
    EXPECT_EQ(search, 1);

    EXPECT_TRUE(box.property("ShownEnabled").toBool());
    box.setProperty("EnabledGet", false);
    box.setProperty("EnabledCombo", false);
    EXPECT_FALSE(box.property("ShownEnabled").toBool());
    EXPECT_FALSE(box.Editor()->isEnabled());
    EXPECT_FALSE(box.ComboButton()->isEnabled());
    EXPECT_TRUE(box.SearchButton()->isEnabled());
    box.setProperty("EnabledGet", true);
    box.setProperty("Enabled", false);
    EXPECT_FALSE(box.property("ShownEnabled").toBool());

    // The stored states are only kept; the binding applies them.
    box.setProperty("lInternalPreEnabledGet", false);
    box.setProperty("lInternalPreEnabledBtnCombo", false);
    box.setProperty("lInternalPreEnabledBtnBuscar", false);
    EXPECT_FALSE(box.property("lInternalPreEnabledGet").toBool());
    EXPECT_FALSE(box.property("lInternalPreEnabledBtnCombo").toBool());
    EXPECT_FALSE(box.property("lInternalPreEnabledBtnBuscar").toBool());
    EXPECT_TRUE(box.property("EnabledGet").toBool());
}

TEST_F(Controls, ValidateSignalCanKeepTheUserInTheBox) {
    ::get box;
    box.setProperty("TipoDato", 1);
    box.FormatoMascara("(7,2)");
    bool refuse = true;
    QObject::connect(&box, &::get::Validate, [&](bool& Cancel) { Cancel = refuse; });
    Type(box.Editor(), "5", true);
    EXPECT_EQ(box.property("Text").toString(), "5"); // refused: left as typed
    refuse = false;
    Press(box.Editor(), Qt::Key_Return);
    EXPECT_EQ(box.property("Text").toString(), "5,00");
}

TEST_F(Controls, DateBoxReadsSpanishDatesAndShowsTheBlankDateEmpty) {
    ::get box;
    box.setProperty("TipoDato", 2);
    EXPECT_FALSE(box.CalendarButton()->isHidden());
    Type(box.Editor(), "1/2/24", true);
    EXPECT_EQ(box.property("Value").toDate(), QDate(2024, 2, 1));
    EXPECT_EQ(box.property("Text").toString(), "01/02/2024");
    bool valid = false;
    QMetaObject::invokeMethod(&box, "ValidateFecha", Q_RETURN_ARG(bool, valid));
    EXPECT_TRUE(valid);

    box.setProperty("Text", "31/02/2024");
    EXPECT_FALSE(box.ValidateFecha());
    EXPECT_EQ(box.property("Value").toDate(), Blank());
    box.setProperty("Text", "15121999");
    EXPECT_EQ(box.property("Value").toDate(), QDate(1999, 12, 15));

    box.setProperty("Value", Blank());
    EXPECT_EQ(box.property("Text").toString(), "");
    EXPECT_TRUE(box.ValidateFecha());
    EXPECT_EQ(box.property("Value").toDate(), Blank());
    // Through the library's variants: a date goes in and comes back as the same date.
    SetDefaultValue(&box, Variant(MakeDate(2025, 3, 9)));
    EXPECT_EQ(box.Text(), "09/03/2025");
    EXPECT_EQ(GetDefaultValue(&box), Variant(MakeDate(2025, 3, 9)));
}

TEST_F(Controls, CalendarPopUpPicksTheDate) {
    ::get box;
    box.setProperty("TipoDato", 2);
    box.Fechas().Hoy(QDate(2024, 5, 15));
    box.ShowCalendar();
    ASSERT_NE(box.Calendar(), nullptr);
    EXPECT_EQ(box.Calendar()->selectedDate(), QDate(2024, 5, 15)); // blank box: today
    EXPECT_EQ(box.Calendar()->firstDayOfWeek(), Qt::Monday);
    emit box.Calendar()->clicked(QDate(2024, 6, 3));
    EXPECT_EQ(box.property("Value").toDate(), QDate(2024, 6, 3));
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(box.Calendar(), nullptr);
    box.ShowCalendar();
    ASSERT_NE(box.Calendar(), nullptr);
    EXPECT_EQ(box.Calendar()->selectedDate(), QDate(2024, 6, 3));
    box.Calendar()->close();
}

// The date of every preset code for a fixed day: Wednesday 15 May 2024.
TEST_F(Controls, DatePresetsForAFixedDay) {
    ::get box;
    box.setProperty("TipoDato", 2);
    box.Fechas().Hoy(QDate(2024, 5, 15));
    const std::vector<std::pair<int, QDate>> expected = {
        {0, Blank()},        {1, {2024, 5, 15}},   {2, {2024, 5, 14}},  {3, {2024, 5, 16}},
        {4, {2024, 5, 13}},  {5, {2024, 5, 19}},   {6, {2024, 5, 1}},   {7, {2024, 5, 31}},
        {8, {2024, 4, 1}},   {9, {2024, 6, 30}},   {10, {2024, 1, 1}},  {11, {2024, 12, 31}},
        {12, {2024, 1, 1}},  {13, {2024, 12, 31}}, {14, {2023, 1, 1}},  {15, {2023, 12, 31}},
        {16, Blank()},       {17, {2024, 4, 1}},   {18, {2024, 4, 30}}, {19, {2024, 1, 1}},
        {20, {2024, 3, 31}}, {21, {2023, 1, 1}},   {22, {2023, 12, 31}}};
    for (const auto& [code, date] : expected) {
        box.AplicarPreset(code);
        EXPECT_EQ(box.property("Value").toDate(), date) << "code " << code;
    }
    box.AplicarPreset(1);
    EXPECT_EQ(box.Text(), "15/05/2024");
    box.AplicarPreset(0);
    EXPECT_EQ(box.Text(), "");
}

TEST_F(Controls, DatePresetsAtTheEdgesOfWeeksMonthsAndFiscalYears) {
    cServiciosFecha fechas;
    const auto day = [&](int code) { return cServiciosFecha::ToQDate(fechas.FechaPreset(code)); };
    fechas.Hoy(QDate(2024, 3, 3)); // a Sunday in a leap year's March
    EXPECT_EQ(day(zlxFecha_PrimerDiaSemana), QDate(2024, 2, 26));
    EXPECT_EQ(day(zlxFecha_UltimoDiaSemana), QDate(2024, 3, 3));
    EXPECT_EQ(day(zlxFecha_UltimoDiaMesAnterior), QDate(2024, 2, 29));
    fechas.Hoy(QDate(2025, 1, 1));
    EXPECT_EQ(day(zlxFecha_Ayer), QDate(2024, 12, 31));
    EXPECT_EQ(day(zlxFecha_PrimerDiaTrimestreAnterior), QDate(2024, 10, 1));
    EXPECT_EQ(day(zlxFecha_UltimoDiaTrimestreAnterior), QDate(2024, 12, 31));
    EXPECT_EQ(day(zlxFecha_PrimerDiaMesAnterior), QDate(2024, 12, 1));

    // A fiscal year from April: in January the current one began the April before.
    fechas.PrimerMesEjercicio(4);
    EXPECT_EQ(day(zlxFecha_PrimerDiaEjercicio), QDate(2024, 4, 1));
    EXPECT_EQ(day(zlxFecha_UltimoDiaEjercicio), QDate(2025, 3, 31));
    EXPECT_EQ(day(zlxFecha_PrimerDiaEjercicioAnterior), QDate(2023, 4, 1));
    EXPECT_EQ(day(zlxFecha_UltimoDiaEjercicioAnterior), QDate(2024, 3, 31));
    fechas.Hoy(QDate(2025, 4, 1));
    EXPECT_EQ(day(zlxFecha_PrimerDiaEjercicio), QDate(2025, 4, 1));
    fechas.PrimerMesEjercicio(13); // out of range: the calendar year
    EXPECT_EQ(day(zlxFecha_PrimerDiaEjercicio), QDate(2025, 1, 1));
}

TEST_F(Controls, DateBoxPresetListOffersTheSingleDates) {
    ScriptedPopupList list;
    ScopedPopupListPresenter scope(list);
    ::get box;
    box.setProperty("TipoDato", 2);
    box.Fechas().Hoy(QDate(2024, 5, 15));
    list.QueuePicks({16, 0});
    EXPECT_EQ(box.ElegirPreset(), 17);
    EXPECT_EQ(box.property("Value").toDate(), QDate(2024, 4, 1));
    EXPECT_EQ(list.Last().title, "Fechas a elegir");
    ASSERT_EQ(list.Last().items.size(), 21);
    EXPECT_EQ(list.Last().items.first(), "\"Hoy\"");
    EXPECT_EQ(list.Last().items[2], "\"Mañana\"");
    EXPECT_EQ(list.Last().items.last(), "Último día del año anterior");
    EXPECT_EQ(box.ElegirPreset(), 0); // closed without a pick: the date stays
    EXPECT_EQ(box.property("Value").toDate(), QDate(2024, 4, 1));
}

TEST_F(Controls, OptionGroupEnablesEachOption) {
    ::btn group;
    group.setProperty("NumOptions", 3);
    ASSERT_EQ(group.property("NumOptions").toInt(), 3);
    EXPECT_EQ(group.property("Value").toInt(), 0);
    group.setProperty("Value", 2);
    EXPECT_TRUE(group.Option(2)->isChecked());
    EXPECT_EQ(group.property("Value").toInt(), 2);

    QMetaObject::invokeMethod(&group, "OptEnabled", Q_ARG(int, 2), Q_ARG(bool, false));
    bool enabled = true;
    QMetaObject::invokeMethod(&group, "OptEnabled", Q_RETURN_ARG(bool, enabled), Q_ARG(int, 2));
    EXPECT_FALSE(enabled);
    EXPECT_FALSE(group.Option(2)->isEnabled());
    EXPECT_TRUE(group.OptEnabled(1));
    EXPECT_FALSE(group.OptEnabled(4)); // no such option

    // Stored states: kept per option, applied by whoever asks for them.
    group.OptionPreEnabled(3, false);
    group.setProperty("lInternalPreEnabled", false);
    EXPECT_FALSE(group.OptionPreEnabled(3));
    EXPECT_TRUE(group.OptionPreEnabled(1));
    EXPECT_FALSE(group.property("lInternalPreEnabled").toBool());
    EXPECT_TRUE(group.isEnabled());
    group.BeginRefresh();
    for (int k = 1; k <= group.NumOptions(); ++k)
        group.OptEnabled(k, group.OptionPreEnabled(k));
    group.EndRefresh();
    EXPECT_TRUE(group.OptEnabled(1));
    EXPECT_FALSE(group.OptEnabled(3));

    // A click is a change; removing the chosen option leaves none chosen.
    int clicked = 0;
    QObject::connect(&group, &::btn::Click, [&](int k) { clicked = k; });
    group.Option(1)->click();
    EXPECT_EQ(clicked, 1);
    group.setProperty("Value", 3);
    group.setProperty("NumOptions", 2);
    EXPECT_EQ(group.property("Value").toInt(), 0);
    EXPECT_EQ(group.OptCaption(2), "Opción 2");
}

TEST_F(Controls, LateBoundNamesAnswerOnEveryControl) {
    ::get box;
    ::btn group;
    ::lbl label("Cliente");
    EXPECT_STREQ(box.metaObject()->className(), "get");
    EXPECT_STREQ(group.metaObject()->className(), "btn");
    EXPECT_STREQ(label.metaObject()->className(), "lbl");
    app::get own;
    EXPECT_EQ(ControlTypeName(&own), "get");
    EXPECT_EQ(ControlTypeName(&box), "get");

    for (const char* name : {"TipoDato",
                             "MaxLength",
                             "Alignment",
                             "Mascara",
                             "ToolTip",
                             "Value",
                             "ValorVerdadero",
                             "Text",
                             "HasChanged",
                             "Alias",
                             "Campo",
                             "Name",
                             "Enabled",
                             "EnabledGet",
                             "EnabledCombo",
                             "EnabledBuscar",
                             "ShownEnabled",
                             "lInternalPreEnabledGet",
                             "lInternalPreEnabledBtnCombo",
                             "lInternalPreEnabledBtnBuscar"})
        EXPECT_GE(box.metaObject()->indexOfProperty(name), 0) << name;
    for (const char* name : {"NumOptions", "Value", "lInternalPreEnabled", "Enabled", "Alias",
                             "Campo", "Caption", "HasChanged"})
        EXPECT_GE(group.metaObject()->indexOfProperty(name), 0) << name;
    for (const char* name : {"Caption", "Value", "lInternalPreEnabled", "Enabled", "Alias"})
        EXPECT_GE(label.metaObject()->indexOfProperty(name), 0) << name;

    box.setObjectName("getCliente");
    box.setProperty("Alias", "Facturas");
    box.setProperty("Campo", "ID_Cliente");
    EXPECT_EQ(box.property("Name").toString(), "getCliente");
    EXPECT_EQ(GetControlProperty(&box, "Campo"), Variant("ID_Cliente"));
    EXPECT_EQ(DefaultPropertyName(&group), "Value");
    EXPECT_TRUE(CallControl(&box, "FntNumbers"));
    EXPECT_FALSE(CallControl(&box, "NoExiste"));

    SetDefaultValue(&label, Variant(1.5));
    EXPECT_EQ(label.text(), "1,5");
    label.setProperty("Caption", "Proveedor");
    EXPECT_EQ(label.property("Value").toString(), "Proveedor");
}

} // namespace

#include "controls_test.moc"
