#include "ControlsTestSupport.h"
#include "QtPrinters.h"
#include "WidgetsApplication.h"
#include "platform/companion/FechaPresetList.h"
#include "platform/widgets/LookupGridWindow.h"
#include "platform/widgets/MatrixTableModel.h"
#include "platform/widgets/PopupListWindow.h"
#include "platform/widgets/SearchGridWindow.h"
#include "platform/widgets/btn.h"
#include "platform/widgets/get.h"
#include "platform/widgets/lbl.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QSet>
#include <QTableView>
#include <QTableWidget>
#include <QTimer>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

class PickWindows : public ::testing::Test {
protected:
    static void SetUpTestSuite() { EnsureWidgetsApplication(); }

    // Code, name and balance of `rows` customers named "Cliente 1", "Cliente 2", ...
    static LookupGridRequest Customers(int rows, std::int32_t style) {
        LookupGridRequest request;
        request.title = "Clientes";
        request.data = std::make_shared<cMatriz>();
        request.data->Dimension(1, 3, 1, rows);
        for (int r = 1; r <= rows; ++r) {
            request.data->SetValue(1, r, Variant(std::int32_t(r)));
            request.data->SetValue(2, r, Variant(QStringLiteral("Cliente %1").arg(r)));
            request.data->SetValue(3, r, Variant(r * 10.5));
        }
        request.headers = QStringList{"Código", "Nombre", "Saldo"};
        request.widths = {6, 24, 12};
        request.masks = QStringList{"", "", "#,##0.00"};
        request.style = style;
        request.searchColumn = 2;
        return request;
    }

    static QStringList Items(const QListWidget* list) {
        QStringList items;
        for (int i = 0; i < list->count(); ++i)
            items << list->item(i)->text();
        return items;
    }
};

TEST_F(PickWindows, PopupListShowsTheItemsAndAnswersTheRow) {
    PopupListRequest request;
    request.title = "Fechas a elegir";
    request.items = QStringList{"uno", "dos", "tres"};
    request.defaultRow = 2;
    PopupListWindow window(request);
    EXPECT_EQ(window.windowTitle(), "Fechas a elegir");
    EXPECT_EQ(Items(window.List()), request.items);
    EXPECT_EQ(window.SelectedRow(), 2);
    Press(window.List(), Qt::Key_Down);
    EXPECT_EQ(window.SelectedRow(), 3);

    // Through the presenter the widgets register: Enter picks, Escape picks nothing.
    for (const auto& [key, answer] : {std::pair{Qt::Key_Return, 2}, {Qt::Key_Escape, 0}}) {
        QTimer::singleShot(0, [key] {
            for (QWidget* top : QApplication::topLevelWidgets())
                if (auto* shown = qobject_cast<PopupListWindow*>(top); shown && shown->isVisible())
                    Press(shown->List(), key);
        });
        EXPECT_EQ(CurrentPopupListPresenter().Present(request), answer);
    }
}

TEST_F(PickWindows, LookupGridIsAViewOverAHundredThousandRows) {
    LookupGridRequest request = Customers(100000, zlxGridStyle_Buscar);
    request.defaultRow = 50000;
    LookupGridWindow window(request);
    const MatrixTableModel* model = window.Model();
    EXPECT_EQ(model->rowCount(), 100000);
    EXPECT_EQ(window.SelectedMatrixRow(), 50000);
    EXPECT_EQ(model->headerData(1, Qt::Horizontal).toString(), "Nombre");
    EXPECT_EQ(model->data(model->index(99999, 2)).toString(), "1.050.000,00");
    EXPECT_EQ(model->data(model->index(0, 2), Qt::TextAlignmentRole).toInt(),
              int(Qt::AlignRight | Qt::AlignVCenter));

    ASSERT_NE(window.SearchBox(), nullptr);
    window.SearchBox()->setText("cliente 9999");
    EXPECT_EQ(window.SelectedMatrixRow(), 9999);
    window.SearchBox()->setText("cliente 99999");
    EXPECT_EQ(window.SelectedMatrixRow(), 99999);
    window.SearchBox()->setText("nadie");
    EXPECT_EQ(window.SelectedMatrixRow(), 99999); // no match: the row stays
}

TEST_F(PickWindows, SimpleLookupGridHidesColumnsAndHasNoSearchBox) {
    LookupGridRequest request = Customers(5, zlxGridStyle_Simple);
    request.widths = {0, 20, 10};
    request.defaultRow = 9; // beyond the rows: the last one
    LookupGridWindow window(request);
    EXPECT_EQ(window.SearchBox(), nullptr);
    EXPECT_TRUE(window.View()->isColumnHidden(0));
    EXPECT_EQ(window.SelectedMatrixRow(), 5);

    QTimer::singleShot(0, [] {
        for (QWidget* top : QApplication::topLevelWidgets())
            if (auto* shown = qobject_cast<LookupGridWindow*>(top); shown && shown->isVisible()) {
                shown->View()->setCurrentIndex(shown->Model()->index(2, 1));
                shown->accept();
            }
    });
    EXPECT_EQ(CurrentLookupGridPresenter().Present(request), 3);
    QTimer::singleShot(0, [] {
        for (QWidget* top : QApplication::topLevelWidgets())
            if (auto* shown = qobject_cast<LookupGridWindow*>(top); shown && shown->isVisible())
                shown->reject();
    });
    EXPECT_EQ(CurrentLookupGridPresenter().Present(request), 0);
}

TEST_F(PickWindows, GridCellsTakeDateMasks) {
    const Variant when(MakeDate(2024, 3, 7, 9, 5, 0));
    EXPECT_EQ(SearchGridWindow::CellText(when, "dd/mm/yyyy"), "07/03/2024");
    EXPECT_EQ(SearchGridWindow::CellText(when, "d-m-yy"), "7-3-24");
    EXPECT_EQ(SearchGridWindow::CellText(when, "dd/mm/yyyy hh:mm"), "07/03/2024 09:05");
    EXPECT_EQ(SearchGridWindow::CellText(when, "hh:nn:ss"), "09:05:00");
    EXPECT_EQ(SearchGridWindow::CellText(when, "mmmm yyyy"), "marzo 2024");
    EXPECT_EQ(SearchGridWindow::CellText(when, "dddd d"), "jueves 7");
    EXPECT_EQ(SearchGridWindow::CellText(when, ""), "07/03/2024 09:05:00");
    // A number mask leaves a date as it is; a date mask leaves a number to the number rules.
    EXPECT_EQ(SearchGridWindow::CellText(when, "#,##0.00"), when.ToString());
    EXPECT_EQ(SearchGridWindow::CellText(Variant(2.5), "dd/mm/yyyy"), "2,5");

    SearchGridRequest request;
    request.data = std::make_shared<cMatriz>();
    request.data->Dimension(1, 1, 1, 1);
    request.data->SetValue(1, 1, when);
    request.masks = QStringList{"dd/mm/yyyy"};
    SearchGridWindow window(request);
    EXPECT_EQ(window.Table()->item(0, 0)->text(), "07/03/2024");
}

// Screenshots a person looks at: a form with each control kind, the date presets and a
// lookup list. Each image must exist and show something.
TEST_F(PickWindows, Screenshots) {
    const auto check = [](const QString& path) {
        const QImage image(path);
        ASSERT_FALSE(image.isNull()) << path.toStdString();
        EXPECT_GT(image.width(), 100);
        QSet<QRgb> colours;
        for (int y = 0; y < image.height(); y += 3)
            for (int x = 0; x < image.width(); x += 3)
                colours.insert(image.pixel(x, y));
        EXPECT_GT(colours.size(), 4) << "a blank image: " << path.toStdString();
    };

    QWidget form;
    form.setWindowTitle("Facturas");
    auto* layout = new QGridLayout(&form);
    auto* number = new ::get(&form);
    number->setTipoDato(1);
    number->FormatoMascara("(7,2)");
    number->setValue(1234.5);
    auto* date = new ::get(&form);
    date->setTipoDato(2);
    date->setValue(QDate(2024, 5, 15));
    auto* name = new ::get(&form);
    name->setValue(QString("Construcciones Pérez"));
    name->setBtnCombo(true);
    name->setBtnBuscar(true);
    auto* code = new ::get(&form);
    code->setMaxLength(7);
    code->setAlignment(1);
    code->FntNumbers();
    code->setValue(QString("1207"));
    code->setEnabledGet(false);
    auto* options = new ::btn(&form);
    options->setTitle("Forma de pago");
    options->setNumOptions(3);
    options->OptCaption(1, "Contado");
    options->OptCaption(2, "Transferencia");
    options->OptCaption(3, "Recibo");
    options->OptEnabled(3, false);
    options->setValue(2);
    const QList<std::pair<QString, QWidget*>> rows = {
        {"Código", code}, {"Cliente", name}, {"Fecha", date}, {"Importe", number}};
    for (int r = 0; r < rows.size(); ++r) {
        layout->addWidget(new ::lbl(rows[r].first, &form), r, 0);
        layout->addWidget(rows[r].second, r, 1);
    }
    layout->addWidget(options, 0, 2, 4, 1);
    form.resize(520, 170);
    form.show();
    check(SaveScreenshot(form, "controls-form"));

    PopupListRequest presets;
    presets.title = "Fechas a elegir";
    for (const FechaPresetRow& row : FechaPresetList::UnaFecha())
        presets.items << row.label;
    PopupListWindow list(presets);
    list.show();
    check(SaveScreenshot(list, "date-presets"));

    LookupGridRequest lookup = Customers(40, zlxGridStyle_Buscar);
    lookup.defaultRow = 3;
    LookupGridWindow grid(lookup);
    grid.show();
    grid.SearchBox()->setText("Cliente 12");
    check(SaveScreenshot(grid, "lookup-list"));
}

} // namespace
