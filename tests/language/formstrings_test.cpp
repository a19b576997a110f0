// cIdioma.FormStrings on the controls that carry more than one text: option groups, status
// bars and the record-form toolbar (a stand-in with the toolbar's late-bound members).

#include "QtPrinters.h"
#include "WidgetsApplication.h"
#include "language/cIdioma.h"
#include "platform/widgets/btn.h"
#include "support/ServerDatabaseTest.h"

#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>
#include <array>

// The record-form toolbar as the dictionary sees it: five record buttons and four movement
// buttons reached by index.
class CtlFicha : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;
    Q_INVOKABLE QString BtnCaption(int k) const { return captions.at(k); }
    Q_INVOKABLE void SetBtnCaption(int k, const QString& text) { captions.at(k) = text; }
    Q_INVOKABLE QString BtnToolTip(int k) const { return toolTips.at(k); }
    Q_INVOKABLE void SetBtnToolTip(int k, const QString& text) { toolTips.at(k) = text; }
    Q_INVOKABLE QString BtnMoveToolTip(int k) const { return moveToolTips.at(k); }
    Q_INVOKABLE void SetBtnMoveToolTip(int k, const QString& text) { moveToolTips.at(k) = text; }

    std::array<QString, 5> captions{"&Alta", "&Cambiar", "&Borrar", "&Localizar", "&Nota"};
    std::array<QString, 5> toolTips{"Cliente", "Guardar", "", "Otro", ""};
    std::array<QString, 4> moveToolTips{"Primera", "Anterior", "Siguiente", "Última"};
};

// A status-bar control of an application's: panels from 1 with their text in cText.
class StatusPanels : public QObject {
    Q_OBJECT
    Q_PROPERTY(int Paneles READ Paneles)
public:
    using QObject::QObject;
    int Paneles() const { return static_cast<int>(panels.size()); }
    Q_INVOKABLE QObject* GetPanel(int i) { return panels.at(static_cast<size_t>(i - 1)); }
    Q_INVOKABLE void UpdatePanel(int i, const QString& text) {
        GetPanel(i)->setProperty("cText", text);
    }
    std::vector<QObject*> panels;
};

using namespace zlx;

namespace {

class FormStrings : public test::ServerDatabaseTest {
protected:
    FormStrings() : ServerDatabaseTest("formstr") {}
    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        EnsureWidgetsApplication();
        Run("CREATE TABLE idioma (ZolmarID INT NOT NULL IDENTITY(1,1), clave VARCHAR(30), idioma "
            "INT, texto VARCHAR(500), traduccion VARCHAR(500), revisar INT)");
        const char* const pairs[][2] = {
            {"&Nuevo", "&New"},   {"&Modificar", "&Edit"}, {"&Eliminar", "&Delete"},
            {"&Buscar", "&Find"}, {"Cliente", "Customer"}, {"Guardar", "Save"},
            {"Primera", "First"}, {"Última", "Last"},      {"Hombre", "Man"},
            {"Mujer", "Woman"},   {"Sexo", "Sex"},         {"Listo", "Ready"},
            {"Usuario", "User"},  {"Puesto", "Station"}};
        for (const auto& pair : pairs)
            Run(QStringLiteral("INSERT INTO idioma (clave, idioma, texto, traduccion) VALUES ('', "
                               "5, '%1', '%2')")
                    .arg(QString::fromUtf8(pair[0]), QString::fromUtf8(pair[1])));
        m_idioma.Init(m_cn, zlxIdiomaIngles, m_database);
    }
    cIdioma m_idioma;
};

TEST_P(FormStrings, TheToolbarTakesTheTranslatedSpanishCaptionsAndToolTips) {
    QWidget form;
    auto* toolbar = new CtlFicha(&form);
    toolbar->setObjectName("ctlFicha");
    m_idioma.FormStrings(&form);
    // The captions come from the Spanish ones, not from what the buttons showed; the fifth
    // has no translation and keeps its Spanish text.
    EXPECT_EQ(toolbar->captions,
              (std::array<QString, 5>{"&New", "&Edit", "&Delete", "&Find", "&Comentario"}));
    EXPECT_EQ(toolbar->toolTips, (std::array<QString, 5>{"Customer", "Save", "", "Otro", ""}));
    EXPECT_EQ(toolbar->moveToolTips,
              (std::array<QString, 4>{"First", "Anterior", "Siguiente", "Last"}));
}

TEST_P(FormStrings, OptionGroupsTranslateEveryOption) {
    QWidget form;
    auto* sexo = new btn(&form);
    sexo->setObjectName("btnSexo");
    sexo->setTitle("Sexo");
    sexo->setNumOptions(3);
    sexo->OptCaption(1, "Hombre");
    sexo->OptCaption(2, "Mujer");
    sexo->OptCaption(3, "Otro");
    auto* named = new btn(&form); // an option group named as a plain option
    named->setObjectName("optTipo");
    named->setNumOptions(1);
    named->OptCaption(1, "Cliente");
    auto* loose = new btn(&form); // a name the dictionary does not look at
    loose->setObjectName("grpSexo");
    loose->setNumOptions(1);
    loose->OptCaption(1, "Hombre");
    m_idioma.FormStrings(&form);
    EXPECT_EQ(sexo->title(), "Sex");
    EXPECT_EQ(sexo->OptCaption(1), "Man");
    EXPECT_EQ(sexo->OptCaption(2), "Woman");
    EXPECT_EQ(sexo->OptCaption(3), "Otro");
    EXPECT_EQ(named->OptCaption(1), "Customer");
    EXPECT_EQ(loose->OptCaption(1), "Hombre");
}

TEST_P(FormStrings, StatusBarsTranslateTheirPanels) {
    QMainWindow window;
    window.setWindowTitle("Cliente");
    QStatusBar* bar = window.statusBar();
    auto* user = new QLabel("Usuario");
    bar->addPermanentWidget(user);
    bar->showMessage("Listo");
    StatusPanels panels(&window);
    panels.setObjectName("stbEstado");
    QObject first, second;
    first.setProperty("cText", "Puesto");
    second.setProperty("cText", "Desconocido");
    panels.panels = {&first, &second};
    m_idioma.FormStrings(&window);
    EXPECT_EQ(window.windowTitle(), "Customer");
    EXPECT_EQ(bar->currentMessage(), "Ready");
    EXPECT_EQ(user->text(), "User");
    EXPECT_EQ(first.property("cText").toString(), "Station");
    EXPECT_EQ(second.property("cText").toString(), "Desconocido");
}

ZLX_ON_SERVER_ENGINES(FormStrings);

} // namespace

#include "formstrings_test.moc"
