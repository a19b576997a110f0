// Pictures of the record form's toolbar on the test form, for a person to look at: the show
// state and the search-list tint that Shift gives.

#include "FichaFormTest.h"

#include <QDir>
#include <QImage>

using namespace zlx;
using namespace zlx::test;

namespace {

class FichaScreenshots : public FichaFormTest {
protected:
    // Saves the form's picture under docs/screenshots and answers it.
    QImage Save(const QString& name) {
        QCoreApplication::processEvents();
        const QImage picture = m_form.grab().toImage();
        const QString folder = QStringLiteral(ZLX_SOURCE_DIR "/docs/screenshots");
        QDir().mkpath(folder);
        picture.save(folder + QStringLiteral("/ctlficha-") + name + QStringLiteral(".png"));
        return picture;
    }
};

TEST_P(FichaScreenshots, ToolbarInShowStateAndWithTheSearchTint) {
    m_form.show();
    const QImage shown = Save("show");
    EXPECT_EQ(shown.width(), m_form.width());

    std::int16_t shift = 16, mask = 1;
    Ctl().Def_KeyDown(shift, mask);
    const QImage tinted = Save("search-tint");
    const QPoint inFirst = Ctl().Toolbar()->MoveButton(0)->geometry().topLeft() + QPoint(3, 3);
    EXPECT_NE(shown.pixel(inFirst), tinted.pixel(inFirst));

    std::int16_t key = 16;
    Ctl().Def_KeyUp(key, mask);
    Action(zlxFormAction_Modificar);
    Save("edit");
    Ctl().Def_Cancelar();
}

// The pictures are the same on both engines.
INSTANTIATE_TEST_SUITE_P(Engines, FichaScreenshots, ::testing::Values("sqlite"),
                         zlx::test::ServerEngineName);

} // namespace
