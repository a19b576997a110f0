#include "QtPrinters.h"
#include "connection/cConexion.h"
#include "frame/LibraryState.h"
#include "platform/companion/RecordingMsgPresenter.h"

#include <QFile>
#include <QObject>
#include <QVariant>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

QString LastLogLine() {
    QFile file(LibraryLog().FileName());
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QList<QByteArray> lines = file.readAll().trimmed().split('\n');
    return QString::fromUtf8(lines.last());
}

} // namespace

TEST(cConexionHelpers, SqlTextThroughTheConnection) {
    const cConexion cn;
    EXPECT_EQ(cn.PonComillas(Variant("O'Brien")), "'O''Brien'");
    EXPECT_EQ(cn.PonComillas(Variant("ab  "), zlxLikeConstantsAfter), "'ab  %'");
    EXPECT_EQ(cn.PonComillas(Variant::Null()), "''");
    EXPECT_EQ(cn.SoloFecha("f"), "CAST(FLOOR(CAST(f AS FLOAT)) AS DATETIME)");
    EXPECT_TRUE(
        cn.SoloHora("f", true).endsWith("RIGHT('00'+RTRIM(CAST(DATEPART(ss,f) AS CHAR)),2)"));
    QString filter;
    EXPECT_TRUE(cn.FiltroPorPalabras("nombre", "**casa  roja", filter));
    EXPECT_EQ(filter, " (((nombre) LIKE '%casa%') AND ((nombre) LIKE '%roja%'))");
    EXPECT_EQ(cn.DatoZLX2ADO(zlxTblColumnTypeDate), 133);
    EXPECT_EQ(cn.DatoZLX2ADO(zlxTblColumnTypeDate, zlxDataProvider_JET40), 7);
    EXPECT_EQ(cn.DatoZLX2OCX(zlxTblColumnTypeCurrency), 1);
    EXPECT_EQ(cn.DatoSQL2ZLX(175), zlxTblColumnTypeCharFixed);
}

TEST(cConexionHelpers, UnknownTypesAreReported) {
    RecordingMsgPresenter messages;
    ScopedMsgPresenter scope(messages);
    cConexion cn;
    EXPECT_EQ(cn.DatoADO2ZLX(202), zlxTblColumnTypeChar);
    EXPECT_EQ(cn.DatoADO2ZLX(999, 5, 2), zlxTblColumnTypeNone);
    EXPECT_TRUE(LastLogLine().endsWith("El método 'ADO2ZLX' no conoce un dato de tipo '999'."))
        << LastLogLine().toStdString();
    EXPECT_TRUE(messages.Messages().empty());

    EXPECT_EQ(cn.DatoADO2OCX(135), 2);
    EXPECT_TRUE(messages.Messages().empty());
    EXPECT_EQ(cn.DatoADO2OCX(999), 0);
    ASSERT_EQ(messages.Messages().size(), 1u);
    EXPECT_TRUE(messages.Last().text.endsWith(
        "Información adicional:<BR><B>El método 'ADO2OCX' no conoce un dato de tipo '999'.</B>"));
    EXPECT_EQ(cn.GetLastError(), zlxConexionError_GenericErr);
}

TEST(cConexionHelpers, FilterClausesFromControlsAndValues) {
    const cConexion cn;
    QObject control;
    control.setProperty("Alias", "C");
    control.setProperty("Campo", "nombre");
    control.setProperty("Text", "gar");
    EXPECT_EQ(cn.Str2Where(&control).ToString(), " AND C.nombre LIKE 'gar%'");
    EXPECT_EQ(cn.Str2Where(nullptr, zlxWhere_Mayor, Variant(2.5), "n").ToString(), " AND n>2.5");
    EXPECT_TRUE(cn.Str2Where(nullptr, zlxWhere_Like, Variant("x")).IsEmpty());
    // Code lists read their numbers as VB does: blanks inside a number are skipped.
    EXPECT_EQ(cn.Str2Where(nullptr, zlxWhere_Codigos, Variant("5-2 2, 0 9"), "c").ToString(),
              " AND ((c BETWEEN 5 AND 22) OR c IN ('0 9'))");

    QObject ticked, unticked, checkedButton;
    ticked.setProperty("Value", 1);
    unticked.setProperty("Value", 0);
    checkedButton.setProperty("checked", true);
    const std::vector<QObject*> boxes{&ticked, &unticked, &checkedButton};
    const Variant values = Variant::Array({Variant(1), Variant(2), Variant(4)});
    EXPECT_EQ(cn.CheckBoxes2Where(boxes, "estado", zlxChk2Where_Todos, values),
              " AND (estado & 5)=5");
    EXPECT_EQ(cn.CheckBoxes2Where(boxes, "estado", zlxChk2Where_Enumerados, values),
              " AND estado IN (1,4)");

    EXPECT_EQ(cn.ReplaceWhere("SELECT * FROM t WHERE a=1 AND b=2", Variant(" AND a=1"),
                              Variant::Array({Variant(" AND a=3"), Variant(" AND c=4")})),
              "SELECT * FROM t WHERE b=2 AND a=3 AND c=4");
}
