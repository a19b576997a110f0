// The demo's scripted session as a separate process on each server engine: what it leaves in
// the database (the client created, edited and deleted, another client edited, the change
// log, no lock left behind), the DBF export and the screenshots.

#include "connection/cConexion.h"
#include "platform/companion/cMatriz.h"
#include "support/EngineTest.h"
#include "table/cDatos.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <unistd.h>

using namespace zlx;
using namespace zlx::test;

namespace {

const QString S = QString(QChar(2));
const QString V = QString(QChar(3));

class DemoSession : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        if (Stopped()) return;
        m_shots = m_dir.filePath("capturas");
    }
    void TearDown() override {
        if (Stopped()) return;
        cConexion cleanup;
        if (cleanup.Init(zlxDataProvider_MSDE, {}, Server()))
            cleanup.Execute("DROP DATABASE " + m_database, 0, Variant(0), true);
    }

    // Runs the session; its output is kept for the assertions.
    int RunSession() {
        QProcess demo;
        demo.setProcessChannelMode(QProcess::MergedChannels);
        demo.start(ZOLMAR_DEMO_BIN,
                   {"--server", Server(), "--database", m_database, "--script", m_shots});
        if (!demo.waitForFinished(300000)) demo.kill();
        m_output = QString::fromUtf8(demo.readAll());
        return demo.exitStatus() == QProcess::NormalExit ? demo.exitCode() : -1;
    }

    void Open() { ASSERT_TRUE(m_cn.Init(zlxDataProvider_MSDE, m_database, Server())); }
    Variant Value(const QString& sql) {
        return m_cn.Execute(sql, zlxExecuteReturn_Value, Variant("ninguno"));
    }
    // The change log of one client as "TipoOp|Valores" lines, oldest first, one text.
    std::string Log(std::int32_t id) {
        QStringList rows;
        const Variant result = m_cn.Execute("SELECT TipoOp, Valores FROM LogFichas WHERE "
                                            "Tabla='clientes' AND ID_Ficha=" +
                                                QString::number(id) + " ORDER BY ZolmarID",
                                            zlxExecuteReturn_cMatriz);
        const auto matrix = result.IsObject() ? result.As<cMatriz>() : nullptr;
        for (std::int32_t row = matrix ? matrix->FirstRow() : 0; matrix && row <= matrix->LastRow();
             ++row)
            rows << matrix->GetValue(0, row).ToString() + "|" + matrix->GetValue(1, row).ToString();
        return Text(rows);
    }
    static std::string Text(const QStringList& lines) { return lines.join('\n').toStdString(); }

    // The identity column's name as the cursor reports it: PostgreSQL folds it to lower case.
    QString IdColumn() const {
        return Server().startsWith("postgres:") ? QString("zolmarid") : QString("zolmarID");
    }

    QString m_database = "demo" + QString::number(getpid());
    QString m_shots;
    QString m_output;
    cConexion m_cn;
};

TEST_P(DemoSession, ScriptedSessionLeavesItsChangesLogAndScreenshots) {
    ASSERT_EQ(RunSession(), 0) << m_output.toStdString();
    EXPECT_TRUE(m_output.contains("Capturas en: " + QDir(m_shots).absolutePath()))
        << m_output.toStdString();
    // A new client without a name was refused by the form's check, the record left in new
    // state.
    EXPECT_TRUE(m_output.contains(
        "mensaje \"No se puede guardar el cliente\": El nombre del cliente no puede quedar "
        "vacío.\n[ok] Sin nombre no se guarda y la ficha sigue en alta"));
    // The lock conflict was shown to the user as the lock layer's question, and refused.
    EXPECT_TRUE(m_output.contains("mensaje \"No se ha conseguido el bloqueo.\": El puesto '"))
        << m_output.toStdString();
    EXPECT_TRUE(m_output.contains("Tipo de bloqueo: 'Modificar registro Nº "));
    EXPECT_TRUE(m_output.contains("[ok] La modificación se rechaza por el bloqueo"));
    EXPECT_FALSE(m_output.contains("[FALLO]"));
    Open();

    // The client created (with the next free code, C0007 having been taken by another
    // workstation before the save), edited and deleted is gone; the record toolbar logged its
    // edit and its deletion (not its creation) as user 1 on station 1.
    EXPECT_EQ(Value("SELECT COUNT(*) FROM clientes WHERE nombre LIKE 'Talleres%'").ToLong(), 0);
    EXPECT_EQ(Value("SELECT COUNT(*) FROM clientes").ToLong(), 6);
    const std::int32_t created =
        Value("SELECT MAX(ID_Ficha) FROM LogFichas WHERE TipoOp=1").ToLong();
    ASSERT_GT(created, 6);
    EXPECT_EQ(Log(created),
              Text({"0|" + S + "*nombre" + V + "Talleres Rivas, S.L." + V +
                        "Talleres Rivas Hermanos, S.L." + S + "*limite" + V + "25000,5" + V +
                        "30000" + S + "-notas" + V + "Alta desde la demostración",
                    "1|" + S + "-" + IdColumn() + V + QString::number(created) + S + "-codigo" + V +
                        "C0008" + S + "-nombre" + V + "Talleres Rivas Hermanos, S.L." + S + "-nif" +
                        V + "B91234567" + S + "-tipo" + V + "2" + S + "-municipio" + V + "41091" +
                        S + "-limite" + V + "30000"}));
    EXPECT_EQ(Value("SELECT COUNT(*) FROM LogFichas WHERE ID_Usuario=1 AND ID_Puesto=1 AND "
                    "Tabla='clientes'")
                  .ToLong(),
              3);

    // The client found by the search was edited: its row and its log.
    const std::int32_t found = Value("SELECT ZolmarID FROM clientes WHERE codigo='C0002'").ToLong();
    EXPECT_EQ(Value("SELECT limite FROM clientes WHERE codigo='C0002'").ToDouble(), 4000);
    EXPECT_EQ(Value("SELECT notas FROM clientes WHERE codigo='C0002'").ToString(),
              "Límite ampliado");
    EXPECT_EQ(Log(found), Text({"0|" + S + "*limite" + V + "3200,5" + V + "4000" + S + "+notas" +
                                V + "Límite ampliado"}));
    // The client locked by the other process is unchanged, and no lock is left.
    EXPECT_EQ(Log(Value("SELECT ZolmarID FROM clientes WHERE codigo='C0003'").ToLong()), "");
    EXPECT_EQ(Value("SELECT COUNT(*) FROM locks").ToLong(), 0);

    cDatos exported;
    EXPECT_EQ(exported.LoadFile_DBF(QDir(m_shots).filePath("clientes.dbf")), 1);
    EXPECT_EQ(exported.RecCount(), 6);
    for (const char* shot : {"demo-ficha.png", "demo-nuevo.png", "demo-edicion.png",
                             "demo-busqueda.png", "demo-bloqueo.png", "demo-historial.png"}) {
        const QImage image(QDir(m_shots).filePath(shot));
        EXPECT_GT(image.width(), 200) << shot;
        EXPECT_GT(image.height(), 80) << shot;
    }
}

ZLX_ON_SERVER_ENGINES(DemoSession);

} // namespace
