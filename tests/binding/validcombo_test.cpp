#include "QtPrinters.h"
#include "WidgetsApplication.h"
#include "binding/cValidCombo.h"
#include "cursor/cFichaDB.h"
#include "platform/companion/ScriptedPickList.h"
#include "platform/widgets/LookupGridWindow.h"
#include "platform/widgets/get.h"
#include "support/ServerDatabaseTest.h"
#include "support/TableDescriptor.h"

#include <QApplication>
#include <QLineEdit>
#include <QTableView>
#include <QTimer>
#include <optional>

using namespace zlx;
using namespace zlx::test;

namespace {

// "clientes" on each engine; Activo: 0 active, 1 inactive, 3 inactive and deleted.
class LookupCombo : public ServerDatabaseTest {
protected:
    LookupCombo() : ServerDatabaseTest("combo") {}
    static void SetUpTestSuite() { EnsureWidgetsApplication(); }

    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        Run("CREATE TABLE clientes (ZolmarID INT NOT NULL IDENTITY(1,1), Nombre VARCHAR(60), "
            "Activo INT DEFAULT 0)");
        for (const char* nombre : {"Garcia Lopez", "Garrido", "Perez", "Perez Gomez", "Ruiz",
                                   "Ruiz Sanz", "Ruiz", "2000 Motos"})
            Insert(nombre, 0);
        Insert("Baja Temporal", 1); // 9
        Insert("Borrado", 3);       // 10
        ASSERT_EQ(m_clientes->Init(m_cn, "clientes", "Nombre"), 0);
        auto globales = std::make_shared<cGlobales>();
        globales->oCn(m_cn);
        m_tav = std::make_shared<TableDescriptor>(m_clientes, globales);
        m_nombre.setText(QString());
    }
    void Insert(const char* nombre, int activo) {
        Run(QStringLiteral("INSERT INTO clientes (Nombre, Activo) VALUES ('%1', %2)")
                .arg(nombre)
                .arg(activo));
    }
    std::int32_t Type(const QString& text, bool lForzarLista = false) {
        m_nombre.setText(text);
        return m_combo.Run(m_tav, &m_nombre, m_update, lForzarLista);
    }
    QStringList ListNames() const {
        QStringList names;
        const cMatriz& data = *m_list.Last().data;
        for (std::int32_t row = 1; row <= data.Rows(); ++row)
            names << data.Item(row, 2).ToString();
        return names;
    }

    cFichaDBPtr m_clientes = std::make_shared<cFichaDB>();
    I_TAVPtr m_tav;
    cValidCombo m_combo;
    ::get m_nombre;
    ::get m_codigo;
    bool m_update = true;
    ScriptedLookupGrid m_list;
    std::optional<ScopedLookupGridPresenter> m_listScope{std::in_place, m_list};
};

TEST_P(LookupCombo, ShortNumbersAreIdentitiesAndLongOnesNames) {
    EXPECT_EQ(Type("2"), 2);
    EXPECT_EQ(m_nombre.Text(), "Garrido");
    EXPECT_EQ(m_clientes->ID(), 2);
    EXPECT_FALSE(m_combo.MostroLista());
    EXPECT_EQ(m_combo.GetSelectedCell("Nombre"), Variant("Garrido"));

    EXPECT_EQ(Type("000000002"), 2);
    // Ten digits or more: the beginning of a name, here of none.
    EXPECT_EQ(Type("2000000000"), 0);
    // Without identity search the number is the beginning of a name.
    m_combo.lBuscarID = false;
    EXPECT_EQ(Type("2"), 8);
    EXPECT_EQ(m_nombre.Text(), "2000 Motos");
    EXPECT_EQ(Type("99"), 0);
    EXPECT_TRUE(m_list.Requests().empty());
    EXPECT_TRUE(m_combo.cSQLSelect.isEmpty());
}

TEST_P(LookupCombo, NamesThatIdentifyOneRecordNeedNoList) {
    m_combo.oCtlSay = &m_codigo;
    // One match of the beginning of a name, case aside.
    EXPECT_EQ(Type("garr"), 2);
    EXPECT_EQ(m_nombre.Text(), "Garrido");
    EXPECT_EQ(m_codigo.Text(), "2");
    // Several matches: the one the say control shows, when its name is the one typed.
    m_codigo.setText("7");
    EXPECT_EQ(Type("ruiz"), 7);
    EXPECT_FALSE(m_combo.MostroLista());
    // Without a say control: the first row when no other row has its name ...
    m_combo.oCtlSay = nullptr;
    EXPECT_EQ(Type("perez"), 3);
    EXPECT_EQ(m_nombre.Text(), "Perez");
    // ... or the record the form names.
    m_combo.nID_SinControlSay = 7;
    EXPECT_EQ(Type("Ruiz"), 7);
    EXPECT_TRUE(m_list.Requests().empty());
    // Without updating the controls only the cursor moves.
    m_update = false;
    m_combo.nID_SinControlSay = 0;
    EXPECT_EQ(Type("garr"), 2);
    EXPECT_EQ(m_nombre.Text(), "garr");
    EXPECT_EQ(m_clientes->ID(), 2);
}

TEST_P(LookupCombo, TheListOpensWhenTheTextIsNotEnough) {
    // Two names begin with "gar": the simple list, on its first row.
    m_list.QueuePicks({2});
    EXPECT_EQ(Type("gar"), 2);
    EXPECT_TRUE(m_combo.MostroLista());
    EXPECT_EQ(m_combo.GetSelectedRow(), 2);
    EXPECT_EQ(m_combo.GetSelectedCell("ZolmarID"), Variant(2));
    EXPECT_EQ(m_nombre.Text(), "Garrido");
    const LookupGridRequest& request = m_list.Last();
    EXPECT_EQ(request.title, "clientes");
    EXPECT_EQ(request.style, zlxGridStyle_Simple);
    EXPECT_EQ(request.searchColumn, 1);
    EXPECT_EQ(request.alignment, zlxAlineacion_BajoControl);
    EXPECT_EQ(request.defaultRow, 1);
    EXPECT_EQ(request.headers, QStringList({"ZolmarID", "Nombre"}));
    EXPECT_EQ(ListNames(), QStringList({"Garcia Lopez", "Garrido"}));

    // A name shared by two rows is not enough.
    m_list.QueuePicks({3});
    EXPECT_EQ(Type("Ruiz"), 7);
    EXPECT_EQ(ListNames(), QStringList({"Ruiz", "Ruiz Sanz", "Ruiz"}));
    // Neither is a matching name when the list is wanted anyway, nor one row when forced.
    m_combo.lMostrarListaAunqueNombreCoincida = true;
    m_list.QueuePicks({1});
    EXPECT_EQ(Type("perez"), 3);
    EXPECT_EQ(Type("2", true), 0);
    EXPECT_EQ(m_list.Requests().size(), 4u);
    EXPECT_EQ(ListNames(), QStringList({"Garrido"}));
    // Closed without a pick.
    EXPECT_TRUE(m_combo.MostroLista());
    EXPECT_EQ(m_combo.GetSelectedRow(), 0);
    EXPECT_EQ(m_nombre.Text(), "2");
}

TEST_P(LookupCombo, LongListsAreSearchableAndOpenOnTheShownRecord) {
    m_combo.oCtlSay = &m_codigo;
    m_codigo.setText("6");
    m_combo.lHideID = true;
    m_combo.nSearchColumn = 2;
    m_combo.aHeaders = Variant::Array({"Código", "Cliente"});
    m_combo.aWidths = Variant::Array({Variant(6), Variant(30)});
    Insert("Zapata", 0);
    m_list.QueuePicks({5});
    EXPECT_EQ(Type(""), 5);
    const LookupGridRequest& request = m_list.Last();
    EXPECT_EQ(request.data->Rows(), 11);
    EXPECT_EQ(request.style, zlxGridStyle_Buscar);
    EXPECT_EQ(request.searchColumn, 2);
    EXPECT_EQ(request.defaultRow, 6);
    EXPECT_EQ(request.headers, QStringList({"Código", "Cliente"}));
    EXPECT_EQ(request.widths, std::vector<std::int32_t>({0, 30}));
    EXPECT_EQ(m_codigo.Text(), "5");
    EXPECT_EQ(m_nombre.Text(), "Ruiz");
    EXPECT_EQ(m_combo.nDefault, 6);
}

TEST_P(LookupCombo, InactiveRecordsOnlyWhenAlreadyShownAndDeletedOnesRefused) {
    m_combo.lFlagActivo = true;
    EXPECT_EQ(Type("Baja"), 0);
    EXPECT_EQ(m_combo.cSQLActivo, "A.Activo");
    // Without a text the list holds the active records alone.
    EXPECT_EQ(Type(""), 0);
    EXPECT_EQ(m_list.Last().data->Rows(), 8);

    m_combo.oCtlSay = &m_codigo;
    m_codigo.setText("9");
    EXPECT_EQ(Type("baja temporal"), 9);
    EXPECT_EQ(m_clientes->ID(), 9);
    // Only under its own name.
    m_codigo.setText("9");
    EXPECT_EQ(Type("Garrido"), 2);
    m_codigo.setText("10");
    EXPECT_EQ(Type("Borrado"), -1);
    EXPECT_EQ(m_nombre.Text(), "Borrado");
    EXPECT_EQ(m_list.Requests().size(), 1u);
}

TEST_P(LookupCombo, AGivenQueryAndTheLimitsOfRun) {
    m_combo.cSQLSelect = "SELECT ZolmarID, Nombre, Activo FROM clientes WHERE Activo > 0";
    m_list.QueuePicks({2});
    EXPECT_EQ(Type("nada que ver"), 10);
    EXPECT_EQ(m_combo.GetSelectedCell("Activo"), Variant(3));
    EXPECT_EQ(m_combo.GetSelectedCell("Telefono"), Variant());
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_EQ(m_messages.Messages()[0].text, "Error: la columna Telefono no existe");
    EXPECT_EQ(m_messages.Messages()[0].title, "cValidCombo:GetSelectedCell");

    I_TAVPtr none = std::make_shared<TableDescriptor>(m_clientes, nullptr);
    EXPECT_EQ(m_combo.Run(none, &m_nombre, m_update, true), 0);
    EXPECT_FALSE(m_combo.MostroLista());
    EXPECT_EQ(m_combo.GetSelectedCell("Nombre"), Variant());
    EXPECT_EQ(m_messages.Messages().size(), 2u);
}

// The real lookup window: typing into its search box moves to the first matching name and
// Enter picks it.
TEST_P(LookupCombo, TheLookupWindowPicksWhatIsTyped) {
    m_listScope.reset();
    for (int k = 0; k < 6; ++k)
        Insert("Zapata", 0);
    m_combo.nSearchColumn = 2;
    QString shownTitle;
    QTimer::singleShot(0, [&] {
        auto* window = qobject_cast<LookupGridWindow*>(QApplication::activeModalWidget());
        ASSERT_NE(window, nullptr);
        shownTitle = window->windowTitle();
        ASSERT_NE(window->SearchBox(), nullptr);
        window->SearchBox()->setText("Ruiz S");
        window->accept();
    });
    EXPECT_EQ(Type(""), 6);
    EXPECT_EQ(shownTitle, "clientes");
    EXPECT_EQ(m_nombre.Text(), "Ruiz Sanz");
}

ZLX_ON_SERVER_ENGINES(LookupCombo);

} // namespace
