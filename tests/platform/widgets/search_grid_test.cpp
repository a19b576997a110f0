#include "QtPrinters.h"
#include "WidgetsApplication.h"
#include "platform/companion/SearchGrid.h"
#include "platform/widgets/SearchGridWindow.h"

#include <QAbstractButton>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableWidget>
#include <QTimer>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

void Key(QWidget* widget, int key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(widget, &press);
}

// A double click as the mouse makes it: press, release, double-click press, release.
void DoubleClick(QWidget* viewport, QPoint at) {
    const QPointF global = viewport->mapToGlobal(QPointF(at));
    for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease,
                              QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
        const Qt::MouseButtons held =
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, QPointF(at), global, Qt::LeftButton, held, Qt::NoModifier);
        QApplication::sendEvent(viewport, &event);
    }
}

class SearchGrid : public ::testing::Test {
protected:
    static void SetUpTestSuite() { EnsureWidgetsApplication(); }

    // Code, name and amount of four clients, in the order a query returned them.
    static SearchGridRequest Clients() {
        SearchGridRequest request;
        request.title = "Clientes";
        request.data = std::make_shared<cMatriz>();
        request.data->Dimension(1, 3, 1, 4);
        const Variant rows[4][3] = {{7, "pérez", Currency::FromDouble(1234.5)},
                                    {3, "Álvarez", Currency::FromDouble(-0.25)},
                                    {9, "Perales", Variant::Null()},
                                    {5, "ortiz", Currency::FromDouble(1000000)}};
        for (int r = 0; r < 4; ++r)
            for (int c = 0; c < 3; ++c)
                request.data->SetValue(c + 1, r + 1, rows[r][c]);
        request.headers = QStringList{"Código", "Nombre", "Saldo"};
        request.widths = {0, 20, 12};
        request.masks = QStringList{"", "", "#,##0.00"};
        request.types = {1, 0, 1};
        request.searchMode = true;
        request.searchColumn = 2;
        return request;
    }

    static QStringList Column(const QTableWidget* table, int column) {
        QStringList texts;
        for (int r = 0; r < table->rowCount(); ++r)
            texts << table->item(r, column)->text();
        return texts;
    }
};

TEST_F(SearchGrid, MasksLayNumbersOutTheSpanishWay) {
    EXPECT_EQ(SearchGridWindow::FormatNumber(Variant(1234567.891), "#,##0.00"), "1.234.567,89");
    EXPECT_EQ(SearchGridWindow::FormatNumber(Currency::FromDouble(2.675), "#,##0.00"), "2,68");
    EXPECT_EQ(SearchGridWindow::FormatNumber(Currency::FromDouble(12.5), "#,##0.0000"), "12,5000");
    EXPECT_EQ(SearchGridWindow::FormatNumber(Variant(-999.996), "#,##0.00"), "-1.000,00");
    EXPECT_EQ(SearchGridWindow::FormatNumber(Variant(-0.001), "0.00"), "0,00");
    EXPECT_EQ(SearchGridWindow::FormatNumber(Variant(0.5), "#.##"), ",5");
    EXPECT_EQ(SearchGridWindow::FormatNumber(Variant(3.10), "0.0#"), "3,1");
    EXPECT_EQ(SearchGridWindow::FormatNumber(Variant(std::int32_t(42)), "000"), "042");
    EXPECT_EQ(SearchGridWindow::FormatNumber(Variant(1500.0), "#,##0 €;(#,##0)"), "1.500 €");
    EXPECT_EQ(SearchGridWindow::FormatNumber(Variant(1e20), "#,##0"),
              "100.000.000.000.000.000.000");
    // Masks are for numbers: text keeps its value, Null shows as a blank.
    EXPECT_EQ(SearchGridWindow::CellText(Variant("abc"), "#,##0.00"), "abc");
    EXPECT_EQ(SearchGridWindow::CellText(Variant::Null(), "#,##0.00"), "");
    EXPECT_EQ(SearchGridWindow::CellText(Variant(2.5), ""), "2,5");
}

TEST_F(SearchGrid, ShowsRowsOrderedByTheSearchColumnWithHeadersWidthsAndMasks) {
    SearchGridWindow window(Clients());
    const QTableWidget* table = window.Table();
    EXPECT_EQ(window.windowTitle(), "Clientes");
    EXPECT_EQ(table->horizontalHeaderItem(0)->text(), "Código");
    EXPECT_EQ(table->horizontalHeaderItem(2)->text(), "Saldo");
    EXPECT_TRUE(table->isColumnHidden(0));
    EXPECT_FALSE(table->isColumnHidden(1));
    EXPECT_GT(table->columnWidth(1), table->columnWidth(2));
    // Text in dictionary order: case and accents do not come first.
    EXPECT_EQ(Column(table, 1), (QStringList{"Álvarez", "ortiz", "Perales", "pérez"}));
    EXPECT_EQ(Column(table, 2), (QStringList{"-0,25", "1.000.000,00", "", "1.234,50"}));
    EXPECT_EQ(window.MatrixRow(0), 2);
    EXPECT_EQ(window.MatrixRow(3), 1);
    EXPECT_EQ(table->item(0, 2)->textAlignment(), int(Qt::AlignRight | Qt::AlignVCenter));
    EXPECT_EQ(table->item(0, 1)->textAlignment(), int(Qt::AlignLeft | Qt::AlignVCenter));

    SearchGridRequest descending = Clients();
    descending.descending = true;
    descending.searchColumn = 1;
    SearchGridWindow reversed(descending);
    EXPECT_EQ(Column(reversed.Table(), 0), (QStringList{"9", "7", "5", "3"}));
}

TEST_F(SearchGrid, TypingMovesToTheFirstRowThatBeginsWithTheText) {
    SearchGridWindow window(Clients());
    ASSERT_NE(window.SearchBox(), nullptr);
    EXPECT_EQ(window.SelectedMatrixRow(), 2); // the first row shown
    window.SearchBox()->setText("PE");
    EXPECT_EQ(window.Table()->currentRow(), 2);
    EXPECT_EQ(window.SelectedMatrixRow(), 3);
    window.SearchBox()->setText("pér");
    EXPECT_EQ(window.SelectedMatrixRow(), 1);
    // No row begins with it: the selection stays.
    window.SearchBox()->setText("pérezz");
    EXPECT_EQ(window.SelectedMatrixRow(), 1);
    window.SearchBox()->setText("á");
    EXPECT_EQ(window.SelectedMatrixRow(), 2);
    window.SearchBox()->setText("");
    EXPECT_EQ(window.Table()->currentRow(), 0);
}

TEST_F(SearchGrid, EnterOrDoubleClickPicksAndEscapeCancels) {
    {
        SearchGridWindow window(Clients());
        window.show();
        window.SearchBox()->setText("ort");
        QTimer::singleShot(0, [&] { Key(window.SearchBox(), Qt::Key_Return); });
        EXPECT_EQ(window.exec(), QDialog::Accepted);
        EXPECT_EQ(window.SelectedMatrixRow(), 4);
    }
    {
        SearchGridWindow window(Clients());
        window.show();
        QTimer::singleShot(0, [&] {
            QTableWidget* table = window.Table();
            const QRect cell = table->visualItemRect(table->item(2, 1));
            DoubleClick(table->viewport(), cell.center());
        });
        EXPECT_EQ(window.exec(), QDialog::Accepted);
        EXPECT_EQ(window.SelectedMatrixRow(), 3);
    }
    {
        SearchGridWindow window(Clients());
        window.show();
        QTimer::singleShot(0, [&] { Key(window.SearchBox(), Qt::Key_Escape); });
        EXPECT_EQ(window.exec(), QDialog::Rejected);
    }
}

TEST_F(SearchGrid, LookingModeKeepsTheOrderAndZoomScalesTheFont) {
    SearchGridRequest request = Clients();
    request.searchMode = false;
    request.widths.clear();
    SearchGridWindow plain(request);
    EXPECT_EQ(plain.SearchBox(), nullptr);
    EXPECT_FALSE(plain.Table()->isColumnHidden(0));
    EXPECT_EQ(Column(plain.Table(), 0), (QStringList{"7", "3", "9", "5"}));

    request.zoom = 2.0;
    SearchGridWindow zoomed(request);
    EXPECT_DOUBLE_EQ(zoomed.Table()->font().pointSizeF(), plain.Table()->font().pointSizeF() * 2);
}

// With the widgets linked, the grid requests of the library open this window.
TEST_F(SearchGrid, LinkedWidgetsPresentTheWindow) {
    QTimer::singleShot(0, [] {
        for (QWidget* top : QApplication::topLevelWidgets())
            if (auto* window = qobject_cast<SearchGridWindow*>(top)) {
                window->SearchBox()->setText("p");
                window->accept();
            }
    });
    EXPECT_EQ(CurrentSearchGridPresenter().Present(Clients()), 3);
}

} // namespace
