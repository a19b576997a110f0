#include "QtPrinters.h"
#include "platform/companion/ScriptedSearchGrid.h"
#include "support/MessageRecorder.h"
#include "ui/cAppUI.h"

#include <gtest/gtest.h>

using namespace zlx;

namespace {

// A stored search as a (column, row) array: identity, name and town of three clients.
Variant StoredSearch(const Variant& thirdTown = Variant("Bilbao")) {
    Variant results = Variant::MakeArray({{0, 3}, {0, 3}});
    const Variant rows[3][3] = {{std::int32_t(4), "Ana", "Madrid"},
                                {std::int32_t(17), "Bea", "Sevilla"},
                                {std::int32_t(23), "Carlos", thirdTown}};
    for (std::int32_t r = 0; r < 3; ++r)
        for (std::int32_t c = 0; c < 3; ++c)
            results.ToArray()->At(c, r) = rows[r][c];
    return results;
}

class RepeatSearch : public ::testing::Test {
protected:
    test::MessageRecorder messages;
    ScriptedSearchGrid grid;
    ScopedSearchGridPresenter scopedGrid{grid};
    cAppUI ui;
    const Variant titles = Variant::Array({"ID", "Nombre", "Ciudad"});
    const Variant widths = Variant::Array({std::int32_t(0), std::int32_t(20), std::int32_t(12)});
};

TEST_F(RepeatSearch, ShowsTheStoredRowsAndAnswersThePickedIdentity) {
    grid.QueuePicks({2});
    EXPECT_EQ(ui.RepeatLastSearch(StoredSearch(), titles, widths, 1, "", 1.25), 17);
    const SearchGridRequest& shown = grid.Last();
    EXPECT_EQ(shown.title, "Resultado de la búsqueda: (3) filas");
    EXPECT_EQ(shown.headers, (QStringList{"ID", "Nombre", "Ciudad"}));
    EXPECT_EQ(shown.widths, (std::vector<std::int32_t>{0, 20, 12}));
    EXPECT_TRUE(shown.searchMode);
    EXPECT_EQ(shown.searchColumn, 2);
    EXPECT_FALSE(shown.descending);
    EXPECT_DOUBLE_EQ(shown.zoom, 1.25);
    EXPECT_EQ(shown.data->GetValue(2, 3), Variant("Carlos"));
    EXPECT_TRUE(messages.Messages().empty());

    // Closing the window, a result without rows or no result at all answer 0.
    EXPECT_EQ(ui.RepeatLastSearch(StoredSearch(), titles, widths, 1, "Clientes"), 0);
    EXPECT_EQ(grid.Last().title, "Clientes");
    EXPECT_EQ(grid.Requests().size(), 2u);
    EXPECT_EQ(ui.RepeatLastSearch(Variant::MakeArray({{0, 3}, {0, 0}}), titles, widths, 1, ""), 0);
    EXPECT_EQ(ui.RepeatLastSearch(Variant(), titles, widths, 1, ""), 0);
    EXPECT_EQ(grid.Requests().size(), 2u);
}

TEST_F(RepeatSearch, NullValuesAreReportedBeforeTheWindowOpens) {
    grid.QueuePicks({3});
    EXPECT_EQ(
        ui.RepeatLastSearch(StoredSearch(Variant::Null()), titles, widths, 1, "Clientes: <n>"), 23);
    ASSERT_EQ(messages.Messages().size(), 1u);
    EXPECT_EQ(messages.Last().text,
              "Se ha detectado que <B>la columna Nº 2 (<I>Ciudad</I>)</B> contiene valores "
              "nulos.<BR>Póngase en contacto con Zolmar Soft, S.L. para corregir esta situación.");
    EXPECT_EQ(messages.Last().title, "Valores nulos en la búsqueda");
    EXPECT_EQ(messages.Last().icon, 32515);
    EXPECT_EQ(messages.Last().buttons, 0);
    EXPECT_EQ(grid.Last().title, "Clientes: 3");
}

} // namespace
