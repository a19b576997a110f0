#include "QtPrinters.h"
#include "frame/LibraryState.h"
#include "frame/cGlobales.h"
#include "platform/companion/cMatriz.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace zlx;

TEST(LibraryState, StartUpOpensTheLogBesideTheLibraryAndClearsTheSwitches) {
    LibraryState& state = LibraryState::Instance();
    EXPECT_FALSE(state.AutoReconectar());
    EXPECT_FALSE(state.CtlFichaReadOnly());
    EXPECT_FALSE(state.HabilitarRegistro_LogFichas());
    ASSERT_NE(state.Keyboard(), nullptr);
    EXPECT_EQ(&LibraryKeyboard(), state.Keyboard().get());
    EXPECT_EQ(&LibraryLog(), &state.Log());
    EXPECT_EQ(state.Log().FileName(), LibraryState::LibraryFolder() + "/ZolmarDataCtl.log");
    QFile log(state.Log().FileName());
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    const QString lines = QString::fromUtf8(log.readAll());
    EXPECT_TRUE(lines.contains("Procedimiento de inicio realizado con éxito\n"));
    state.AutoReconectar(true);
    EXPECT_TRUE(LibraryState::Instance().AutoReconectar());
    state.AutoReconectar(false);
}

TEST(cGlobales, ConfigureStoresWhatItIsGiven) {
    struct App : Object {
        QString TypeName() const override { return "App"; }
    };
    auto app = std::make_shared<App>();
    auto log = std::make_shared<cLogFile>();
    cGlobales globales;
    globales.Configure(nullptr, nullptr, nullptr, log, app);
    EXPECT_EQ(globales.oApp(), app);
    EXPECT_EQ(globales.oLogFile(), log);
    EXPECT_EQ(globales.oAppClass(), nullptr);
    EXPECT_EQ(globales.xOtros().VarType(), vbInteger);
    EXPECT_EQ(globales.xOtros().ToLong(), 0);
    globales.Configure(nullptr, nullptr, nullptr, nullptr, nullptr, app, Variant("datos"));
    EXPECT_EQ(globales.oAppClass(), app);
    EXPECT_EQ(globales.oLogFile(), nullptr);
    EXPECT_EQ(globales.xOtros().ToString(), "datos");
}

TEST(ValorEnLista, ComparesByVariantEquality) {
    const Variant numbers = Variant::Array({1, 2, 3});
    EXPECT_TRUE(ValorEnLista(Variant(3), numbers));
    EXPECT_TRUE(ValorEnLista(Variant(3.0), numbers));
    EXPECT_FALSE(ValorEnLista(Variant("3"), numbers));
    EXPECT_FALSE(ValorEnLista(Variant("a"), Variant::Array({})));
    EXPECT_FALSE(ValorEnLista(Variant("A"), Variant::Array({Variant("a")})));
    EXPECT_FALSE(ValorEnLista(Variant::Null(), Variant::Array({Variant::Null()})));
    EXPECT_FALSE(ValorEnLista(Variant(1), Variant(1)));
    auto matrix = std::make_shared<cMatriz>();
    matrix->Dimension(1, 2, 1, 1);
    matrix->SetValue(2, 1, Variant("x"));
    EXPECT_TRUE(ValorEnLista(Variant("x"), Variant(matrix)));
}
