#include "QtPrinters.h"
#include "platform/companion/ScriptedSearchGrid.h"
#include "table/cDatos.h"

#include <gtest/gtest.h>

using namespace zlx;

namespace {

// A matrix of one row (the items across) or of one column (the items down).
Variant Items(const QList<Variant>& items, bool across) {
    auto matrix = std::make_shared<cMatriz>();
    const auto count = static_cast<std::int32_t>(items.size());
    matrix->Dimension(1, across ? count : 1, 1, across ? 1 : count);
    for (std::int32_t i = 0; i < count; ++i)
        matrix->SetValue(across ? i + 1 : 1, across ? 1 : i + 1, items[i]);
    return Variant(matrix);
}

// Headers, widths and masks of the grid may come as a cMatriz instead of an array.
TEST(DisplayMatrixArguments, BuscarReadsHeadersWidthsAndMasksFromAMatrix) {
    ScriptedSearchGrid grid;
    ScopedSearchGridPresenter scope(grid);
    cDatos table;
    table.BeginDefineColumns();
    table.AddColumn("nombre", zlxTblColumnTypeChar, 10);
    table.AddColumn("alta", zlxTblColumnTypeDateTime);
    table.AddColumn("saldo", zlxTblColumnTypeDouble);
    table.EndDefineColumns();
    table.InsertRow(Variant::Array({"nombre", "alta", "saldo"}),
                    Variant::Array({"Ana", MakeDate(2024, 3, 1), 12.5}));
    grid.QueuePicks({1});

    const Variant picked =
        table.Buscar("Clientes", Items({"Nombre", "Alta"}, true),
                     Items({std::int32_t(12), std::int32_t(10), std::int32_t(0)}, false), 1, 1, 500,
                     Items({"", "dd/mm/yyyy", "#,##0.00"}, true));
    EXPECT_EQ(picked, Variant("Ana"));
    const SearchGridRequest& shown = grid.Last();
    EXPECT_EQ(shown.headers, (QStringList{"Nombre", "Alta", "saldo"}));
    EXPECT_EQ(shown.widths, (std::vector<std::int32_t>{12, 10, 0}));
    EXPECT_EQ(shown.masks, (QStringList{"", "dd/mm/yyyy", "#,##0.00"}));
}

} // namespace
