#include "QtPrinters.h"
#include "WidgetsApplication.h"
#include "binding/cBinding.h"
#include "binding/cDAV_FechaGen.h"
#include "binding/cDAV_NumeroGen.h"
#include "binding/cDAV_TextoGen.h"
#include "platform/companion/cMatriz.h"
#include "platform/companion/cServiciosFecha.h"
#include "platform/widgets/btn.h"
#include "platform/widgets/get.h"
#include "platform/widgets/lbl.h"
#include "support/MessageRecorder.h"
#include "support/ServerDatabaseTest.h"

#include <QLineEdit>
#include <QWidget>
#include <map>

using namespace zlx;
using namespace zlx::test;

namespace {

// A data-entry form: hands out the descriptor of each column and counts its refreshes.
class TestForm : public QWidget {
    Q_OBJECT
public:
    std::map<QString, I_DAVPtr> descriptors;
    int refreshes = 0;

    Q_INVOKABLE zlx::I_DAVPtr Ctl2DAV(QObject* control) {
        const auto found = descriptors.find(control->property("Campo").toString());
        return found == descriptors.end() ? nullptr : found->second;
    }
    Q_INVOKABLE void Refresh() { ++refreshes; }

    ::get* Get(const QString& alias, const QString& campo) {
        auto* box = new ::get(this);
        box->setObjectName(campo);
        box->setAlias(alias);
        box->setCampo(campo);
        return box;
    }
};

bool Enabled(const ::get* box) {
    return box->EnabledGet() && box->EnabledCombo() && box->EnabledBuscar();
}
bool Disabled(const ::get* box) {
    return !box->EnabledGet() && !box->EnabledCombo() && !box->EnabledBuscar();
}

class BindingControls : public ::testing::Test {
protected:
    static void SetUpTestSuite() { EnsureWidgetsApplication(); }
    void SetUp() override {
        m_binding.Init(&m_form, nullptr);
        m_zolmarID = m_form.Get("clientes", "ZolmarID");
        m_grupo = m_form.Get("clientes", "id_Grupo");
        m_nombre = m_form.Get("clientes", "nombre");
        m_notas = m_form.Get("clientes", "notas");
        m_sexo = new ::btn(&m_form);
        m_sexo->setNumOptions(3);
        m_sexo->setProperty("Campo", "sexo");
        m_etiqueta = new ::lbl(&m_form);
        m_etiqueta->setProperty("Campo", "etiqueta");
        m_otro = new QLineEdit(&m_form);
        for (QObject* control : std::initializer_list<QObject*>{m_zolmarID, m_grupo, m_nombre})
            m_binding.Add(control);
        m_binding.Add(m_notas, nullptr, zlxBCNoEdit);
        m_binding.Add(m_sexo);
        m_binding.Add(m_etiqueta);
        m_binding.Add(m_otro);
    }
    bool SexoOptions(bool enabled) const {
        for (int k = 1; k <= 3; ++k)
            if (m_sexo->OptEnabled(k) != enabled) return false;
        return true;
    }

    MessageRecorder m_messages;
    TestForm m_form;
    cBinding m_binding;
    ::get *m_zolmarID, *m_grupo, *m_nombre, *m_notas;
    ::btn* m_sexo;
    ::lbl* m_etiqueta;
    QLineEdit* m_otro;
};

TEST_F(BindingControls, EnablingDirectlyKeepsIdentitiesOnAndNoEditOff) {
    EXPECT_EQ(m_binding.Count(), 7);
    m_binding.EnableGets(false);
    EXPECT_TRUE(Enabled(m_zolmarID));
    EXPECT_TRUE(Enabled(m_grupo));
    EXPECT_TRUE(Disabled(m_nombre));
    EXPECT_FALSE(m_sexo->isEnabled());
    EXPECT_FALSE(m_etiqueta->isEnabled());
    EXPECT_FALSE(m_otro->isEnabled());

    m_binding.EnableGets(true);
    EXPECT_TRUE(Enabled(m_nombre));
    EXPECT_TRUE(Disabled(m_notas));
    EXPECT_TRUE(m_sexo->isEnabled());
    EXPECT_TRUE(m_etiqueta->isEnabled());
    EXPECT_TRUE(m_otro->isEnabled());
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(BindingControls, StoredStateIsAppliedLaterWhateverTheSecondCallAsks) {
    m_binding.EnableGets(false);
    m_sexo->OptEnabled(2, false);
    m_binding.EnableGets(true, zlxEnableGetsAntes);
    // Stored only: the companion controls keep their state; any other control takes it now.
    EXPECT_TRUE(Disabled(m_nombre));
    EXPECT_TRUE(m_nombre->property("lInternalPreEnabledGet").toBool());
    EXPECT_FALSE(m_sexo->isEnabled());
    EXPECT_TRUE(m_sexo->OptionPreEnabled(3));
    EXPECT_FALSE(m_etiqueta->isEnabled());
    EXPECT_TRUE(m_otro->isEnabled());

    m_otro->setEnabled(false);
    m_binding.EnableGets(false, zlxEnableGetsDespues);
    EXPECT_TRUE(Enabled(m_nombre));
    EXPECT_TRUE(Disabled(m_notas));
    EXPECT_TRUE(Enabled(m_zolmarID));
    EXPECT_TRUE(m_sexo->isEnabled());
    EXPECT_TRUE(SexoOptions(true));
    EXPECT_TRUE(m_etiqueta->isEnabled());
    EXPECT_FALSE(m_otro->isEnabled()); // left alone

    delete m_otro; // a control that is gone is passed over
    m_binding.EnableGets(false);
    m_binding.EnableGets(false, zlxEnableGetsAntes);
    m_binding.Field2Control(true);
    EXPECT_EQ(m_binding.Count(), 7);

    m_binding.EnableGets(false, zlxEnableGetsAntes);
    m_binding.EnableGets(true, zlxEnableGetsDespues);
    EXPECT_TRUE(Disabled(m_nombre));
    EXPECT_TRUE(Enabled(m_grupo));
    EXPECT_FALSE(m_sexo->isEnabled());
    EXPECT_TRUE(SexoOptions(false));
    EXPECT_FALSE(m_etiqueta->isEnabled());
}

TEST_F(BindingControls, UnboundControlsOfOneTableAreReset) {
    ::get* ajeno = m_form.Get("proveedores", "nombre");
    m_binding.Add(ajeno);
    m_nombre->setHasChanged(true);
    ajeno->setHasChanged(true);
    m_binding.ResetValueForNotBindedCtls("dbo.CLIENTES");
    EXPECT_FALSE(m_nombre->HasChanged());
    EXPECT_TRUE(ajeno->HasChanged());
    m_binding.ResetValueForNotBindedCtls();
    EXPECT_FALSE(ajeno->HasChanged());
}

TEST_F(BindingControls, UnboundControlsAreEmptiedOnlyWhenAsked) {
    m_nombre->setProperty("Value", "Ana");
    m_grupo->setTipoDato(1);
    m_grupo->setProperty("Value", 7);
    m_binding.Field2Control();
    EXPECT_EQ(m_nombre->property("Value").toString(), "Ana");
    EXPECT_EQ(m_form.refreshes, 1);
    m_binding.Field2Control(true, "proveedores");
    EXPECT_EQ(m_nombre->property("Value").toString(), "Ana");
    m_binding.Field2Control(true, "x.Clientes");
    EXPECT_EQ(m_nombre->property("Value").toString(), "");
    EXPECT_EQ(m_grupo->property("Value").toDouble(), 0.0);
    EXPECT_EQ(m_form.refreshes, 3);
}

// A form over two tables on each engine: "clientes" with one record and "vacia" with none.
class BindingOnEngines : public ServerDatabaseTest {
protected:
    BindingOnEngines() : ServerDatabaseTest("binding") {}
    static void SetUpTestSuite() { EnsureWidgetsApplication(); }

    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        Run("CREATE TABLE clientes (ZolmarID INT NOT NULL IDENTITY(1,1), nombre VARCHAR(60), "
            "importe FLOAT, alta DATETIME, notas VARCHAR(20))");
        Run("CREATE TABLE vacia (ZolmarID INT NOT NULL IDENTITY(1,1), nombre VARCHAR(60))");
        Run("INSERT INTO clientes (nombre, importe, alta, notas) "
            "VALUES ('Ana', 10.5, '20240131', 'fija')");
        ASSERT_EQ(m_clientes->Init(m_cn, "clientes", "nombre"), 0);
        ASSERT_EQ(m_clientes->MoveFirst(), 1);
        ASSERT_EQ(m_vacia->Init(m_cn, "vacia", "nombre"), 0);

        auto importe = std::make_shared<cDAV_NumeroGen>();
        importe->Configure("importe", 12, "Importe", "(9,2)", 6);
        auto nombre = std::make_shared<cDAV_TextoGen>();
        nombre->Configure("nombre", 60, "Nombre");
        auto alta = std::make_shared<cDAV_FechaGen>();
        alta->Configure("alta", "Alta");
        auto notas = std::make_shared<cDAV_TextoGen>();
        notas->Configure("notas", 20, "Notas");
        m_form.descriptors = {
            {"nombre", nombre}, {"importe", importe}, {"alta", alta}, {"notas", notas}};
        m_binding.Init(&m_form, m_cn);
        m_nombre = m_form.Get("clientes", "nombre");
        m_importe = m_form.Get("clientes", "importe");
        m_alta = m_form.Get("Clientes", "alta");
        m_notas = m_form.Get("clientes", "notas");
    }
    void BindClientes() {
        m_binding.Add(m_nombre, m_clientes);
        m_binding.Add(m_importe, m_clientes);
        m_binding.Add(m_alta, m_clientes);
        m_binding.Add(m_notas, m_clientes, zlxBCNoUpdate);
        m_binding.InitControls();
    }
    Variant Stored(const QString& column) {
        EXPECT_EQ(m_clientes->SeekID(1), 1);
        return m_clientes->Field(column);
    }

    TestForm m_form;
    cBinding m_binding;
    cFichaDBPtr m_clientes = std::make_shared<cFichaDB>();
    cFichaDBPtr m_vacia = std::make_shared<cFichaDB>();
    ::get *m_nombre, *m_importe, *m_alta, *m_notas;
};

TEST_P(BindingOnEngines, ControlsShowTheRecordAndWriteItBack) {
    BindClientes();
    // The descriptors set the controls up: number kind with its mask, date kind.
    EXPECT_EQ(m_importe->TipoDato(), 1);
    EXPECT_EQ(m_alta->TipoDato(), 2);
    m_binding.Field2Control();
    EXPECT_EQ(m_nombre->property("Value").toString(), "Ana");
    EXPECT_EQ(m_importe->property("Value").toDouble(), 10.5);
    EXPECT_EQ(m_alta->property("Value").toDate(), QDate(2024, 1, 31));
    EXPECT_EQ(m_notas->property("Value").toString(), "fija");
    EXPECT_EQ(m_form.refreshes, 1);

    const QString hostile = "'; DROP TABLE clientes; --";
    m_nombre->setText(hostile);
    m_importe->setText("1234,5");
    m_alta->setProperty("Value", QDate(2024, 2, 29));
    m_notas->setText("cambiada");
    EXPECT_EQ(m_binding.Control2Field("dbo.clientes", 1), "");
    EXPECT_EQ(Stored("nombre"), Variant(hostile));
    EXPECT_EQ(Stored("importe").ToDouble(), 1234.5);
    EXPECT_EQ(Stored("alta").ToDate(), MakeDate(2024, 2, 29));
    EXPECT_EQ(Stored("notas"), Variant("fija")); // never written back
    EXPECT_EQ(m_cn->RecCount("clientes", {}), 1);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(BindingOnEngines, NothingToWriteForAnotherTable) {
    BindClientes();
    m_nombre->setText("Otra");
    // An empty table name matches only controls without a table.
    EXPECT_EQ(m_binding.Control2Field("", 1), "");
    EXPECT_EQ(m_binding.Control2Field("proveedores", 1), "");
    EXPECT_EQ(Stored("nombre"), Variant("Ana"));
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(BindingOnEngines, AnEmptyCursorEmptiesItsControlAndEveryLaterOne) {
    ::get* primero = m_form.Get("clientes", "nombre");
    ::get* vacio = m_form.Get("vacia", "nombre");
    vacio->setProperty("Value", "resto");
    m_binding.Add(primero, m_clientes);
    m_binding.Add(vacio, m_vacia);
    BindClientes();
    m_binding.Field2Control();
    EXPECT_EQ(primero->property("Value").toString(), "Ana"); // before the empty cursor
    EXPECT_EQ(vacio->property("Value").toString(), "");
    // Every later control is emptied, though its cursor stands on a record.
    EXPECT_EQ(m_nombre->property("Value").toString(), "");
    EXPECT_EQ(m_importe->property("Value").toDouble(), 0.0);
    EXPECT_EQ(m_alta->property("Value").toDate(), cServiciosFecha::ToQDate(BlankDate()));
    EXPECT_EQ(m_notas->property("Value").toString(), "");
    // Only the controls of one table.
    m_nombre->setText("Eva");
    m_binding.Field2Control(false, "dbo.clientes");
    EXPECT_EQ(m_nombre->property("Value").toString(), "Ana");
    EXPECT_EQ(m_importe->property("Value").toDouble(), 10.5);
}

TEST_P(BindingOnEngines, UnknownColumnsAndMissingDescriptorsAreReported) {
    ::get* telefono = m_form.Get("clientes", "telefono");
    m_binding.Add(telefono, m_clientes);
    EXPECT_EQ(m_binding.Count(), 0);
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_EQ(m_messages.Last().text, "No existe el campo: clientes.telefono");
    EXPECT_EQ(m_messages.Last().title, "Error: cBinding.Add");
    EXPECT_EQ(m_messages.Last().buttons, 1);
    EXPECT_EQ(m_messages.Last().icon, 32516);

    m_form.descriptors.erase("notas");
    BindClientes();
    EXPECT_EQ(m_binding.Count(), 4);
    ASSERT_EQ(m_messages.Messages().size(), 2u);
    EXPECT_EQ(m_messages.Last().text, "No existe el campo: clientes.notas");
    EXPECT_EQ(m_messages.Last().title, "Error: cBinding.InitControls");
    EXPECT_EQ(m_messages.Last().buttons, 1);
    EXPECT_EQ(m_importe->TipoDato(), 1); // the entries after it are still set up
}

TEST_P(BindingOnEngines, AFailedUpdateIsShownAndAnswered) {
    BindClientes();
    Run("DROP TABLE clientes");
    const QString answer = m_binding.Control2Field("clientes", 1);
    EXPECT_TRUE(answer.startsWith("Error en Control2Field: ")) << answer.toStdString();
    EXPECT_TRUE(answer.contains("-> ")) << answer.toStdString();
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_EQ(m_messages.Last().text, answer);
    EXPECT_EQ(m_messages.Last().title, "Información");
    EXPECT_EQ(m_messages.Last().buttons, 0);
    EXPECT_EQ(m_messages.Last().icon, 32516);
}

TEST_P(BindingOnEngines, ValuesAreListedPaddedWithTheirColumns) {
    QStringList lines;
    cMatriz::RegisterViewer([&lines](const cMatriz& listing, const QString&) {
        for (std::int32_t row = 1; row <= listing.LastRow(); ++row) {
            QString line;
            for (std::int32_t col = 1; col <= 5; ++col)
                line += listing.GetValue(col, row).ToString() + u'|';
            lines << line;
        }
    });
    ::get* libre = m_form.Get("", "");
    libre->setObjectName("libre");
    m_binding.Add(m_nombre, m_clientes);
    m_binding.Add(libre);
    m_binding.ShowValues();
    const QString pad25(25, u' ');
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0], "clientes" + pad25.left(17) + "|nombre" + pad25.left(19) + "|nombre" +
                            pad25.left(19) + "|Ana" + QString(37, u' ') + "||");
    EXPECT_EQ(lines[1], pad25 + "|" + pad25 + "|libre" + pad25.left(20) + "|||");
}

ZLX_ON_SERVER_ENGINES(BindingOnEngines);

} // namespace

#include "binding_test.moc"
