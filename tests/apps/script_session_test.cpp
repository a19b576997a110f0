// `zolmar script` lines answered in this process: values both ways, named objects, by-reference
// parameters, message boxes, event handlers and the errors of lines that cannot be run.

#include "QtPrinters.h"
#include "script/ScriptRegistry.h"
#include "script/ScriptSession.h"

#include <QObject>
#include <gtest/gtest.h>

namespace zlx {

// An object whose event asks its handler through a by-reference flag, as the record form's
// events do.
class Preguntador : public QObject, public Object {
    Q_OBJECT
public:
    QString TypeName() const override { return QStringLiteral("Preguntador"); }
    bool Preguntar(const QString& cQue) {
        bool lCancel = false;
        std::int32_t nVeces = 1;
        emit Pregunta(cQue, lCancel, nVeces);
        m_veces = nVeces;
        return lCancel;
    }
    int m_veces = 0;
    QString m_nota;

signals:
    void Pregunta(const QString& cQue, bool& lCancel, std::int32_t& nVeces);
};

namespace {

void PreguntadorMembers(ScriptClassBuilder<Preguntador>& c) {
    c.Method("Preguntar", 1, 1,
             [](Preguntador& o, ScriptArgs& a) { return o.Preguntar(a.String(0)); });
    c.Property(
        "Veces", [](Preguntador& o) { return o.m_veces; },
        [](Preguntador& o, const Variant& v) { o.m_veces = v.ToLong(); });
    c.Property(
        "Nota", [](Preguntador& o) { return o.m_nota; },
        [](Preguntador& o, const Variant& v) { o.m_nota = v.ToString(); });
}
const ScriptRegistration<Preguntador> registration(QStringLiteral("Preguntador"),
                                                   PreguntadorMembers);

class ScriptSessionTest : public ::testing::Test {
protected:
    QByteArray Line(const char* line) { return m_session.Answer(QByteArray(line)); }
    ScriptSession m_session;
};

TEST_F(ScriptSessionTest, MatricesTravelAsRowsAndKeepTheirName) {
    EXPECT_EQ(Line(R"({"new": "cMatriz", "as": "m"})"), R"({"ok":"m"})");
    EXPECT_EQ(Line(R"({"call": "m.Dimension", "args": [0, 1, 5, 6]})"), R"({"ok":null})");
    EXPECT_EQ(Line(R"({"call": "m.SetValue", "args": [1, 6, {"date": "2024-02-29 10:30:00"}]})"),
              R"({"ok":null})");
    EXPECT_EQ(Line(R"({"call": "m.getvalue", "args": [1, 6]})"),
              R"({"ok":{"date":"2024-02-29 10:30:00"}})");
    EXPECT_EQ(Line(R"({"get": "m.Rows"})"), R"({"ok":2})");

    // A matrix given by value is a new one; a table loaded from it answers it as rows.
    EXPECT_EQ(Line(R"({"new": "cDatos", "as": "d"})"), R"({"ok":"d"})");
    EXPECT_EQ(Line(R"({"call": "d.LoadMatriz", "args": [{"matriz": [["a", 1], ["b", null]]}, 0]})"),
              R"({"ok":2,"out":[2]})");
    EXPECT_EQ(
        Line(R"({"call": "d.GetMatriz"})"),
        R"({"ok":{"matriz":[["a",1],["b",null]],"firstRow":0,"firstCol":0,"object":"cMatriz1"}})");
    EXPECT_EQ(Line(R"({"call": "cMatriz1.LookupValue", "args": ["b", 0, 1, "no"]})"),
              R"({"ok":null})");
    // The same object answers the same name.
    EXPECT_EQ(Line(R"({"new": "cGlobales", "as": "g"})"), R"({"ok":"g"})");
    EXPECT_EQ(Line(R"({"set": "g.oApp", "value": {"ref": "d"}})"), R"({"ok":true})");
    EXPECT_EQ(Line(R"({"get": "g.oApp"})"), R"({"ok":{"object":"d"}})");
    EXPECT_EQ(Line(R"({"get": "g.oCn"})"), R"({"ok":null})");
}

TEST_F(ScriptSessionTest, ByReferenceParametersComeBackInOut) {
    Line(R"({"new": "cConexion", "as": "cn"})");
    EXPECT_EQ(Line(R"({"call": "cn.Connection_String", "args": [2, "", "sqlite:/tmp/x"]})"),
              R"({"ok":"Provider=SQLOLEDB.1;Persist Security Info=False;Database=master;)"
              R"(Server=sqlite:/tmp/x","out":[2]})");
    Line(R"({"new": "cDBF", "as": "f"})");
    // An error title asked for comes back even when there is no error.
    EXPECT_EQ(Line(R"({"call": "f.GetLastErrorMsg", "args": ["?"]})"), R"({"ok":"","out":[""]})");
    EXPECT_EQ(Line(R"({"call": "f.GetLastErrorMsg"})"), R"({"ok":""})");
}

TEST_F(ScriptSessionTest, MessageBoxesAnswerFromTheQueueThenWithTheFirstButton) {
    Line(R"({"new": "cAppUI", "as": "ui"})");
    EXPECT_EQ(Line(R"({"answers": [2, 1]})"), R"({"ok":true})");
    EXPECT_EQ(
        Line(R"({"call": "ui.YN_Message", "args": ["¿Borrar la ficha?"]})"),
        QString::fromUtf8(R"({"ok":false,"messages":[{"icon":32514,"text":"¿Borrar la ficha?",)"
                          R"("buttons":4,"title":"Confirmación"}]})")
            .toUtf8());
    EXPECT_EQ(
        Line(R"({"call": "ui.YN_Message", "args": ["Otra<BR>vez", 4, "T", 32515]})"),
        R"({"ok":true,"messages":[{"icon":32515,"text":"Otra<BR>vez","buttons":4,"title":"T"}]})");
    EXPECT_EQ(Line(R"({"call": "ui.YN_Message", "args": ["Y ahora"]})").left(10), R"({"ok":true)");
    EXPECT_EQ(Line(R"({"answers": [1, "no"]})"),
              R"({"error":"\"answers\" must be a list of numbers"})");
}

TEST_F(ScriptSessionTest, HandlersAnswerTheNextEventThroughItsParameters) {
    Line(R"({"new": "Preguntador", "as": "p"})");
    EXPECT_EQ(Line(R"({"call": "p.Preguntar", "args": ["¿Seguir?"]})"),
              QString::fromUtf8(R"({"ok":false,"events":[{"source":"p","name":"Pregunta",)"
                                R"("args":["¿Seguir?",false,1]}]})")
                  .toUtf8());
    EXPECT_EQ(Line(R"({"handle": "p.pregunta", "set": {"lCancel": true, "nVeces": 3}})"),
              R"({"ok":true})");
    EXPECT_EQ(Line(R"({"call": "p.Preguntar", "args": ["x"]})"),
              R"({"ok":true,"events":[{"source":"p","name":"Pregunta","args":["x",false,1]}]})");
    EXPECT_EQ(Line(R"({"get": "p.Veces"})"), R"({"ok":3})");
    // A handler answers one event only.
    EXPECT_EQ(Line(R"({"call": "p.Preguntar", "args": ["y"]})").left(12), R"({"ok":false,)");

    // A name that is no by-reference parameter sets the object's property while the event
    // is handled.
    EXPECT_EQ(Line(R"({"handle": "p.Pregunta", "set": {"Nota": "visto"}})"), R"({"ok":true})");
    EXPECT_EQ(Line(R"({"get": "p.Nota"})"), R"({"ok":""})");
    Line(R"({"call": "p.Preguntar", "args": ["z"]})");
    EXPECT_EQ(Line(R"({"get": "p.Nota"})"), R"({"ok":"visto"})");
    EXPECT_EQ(
        Line(R"({"handle": "p.Pregunta", "set": {"cQue": "otra"}})"),
        R"({"error":"Pregunta has neither a by-reference parameter nor a property \"cQue\""})");
    EXPECT_EQ(Line(R"({"handle": "p.Pregunta", "set": {"nVeces": "muchas"}})"),
              R"({"error":"Type mismatch","number":13})");
    EXPECT_EQ(Line(R"({"handle": "p.Respuesta", "set": {"lCancel": true}})"),
              R"({"error":"Preguntador has no event \"Respuesta\""})");
}

TEST_F(ScriptSessionTest, LinesThatCannotRunAnswerAnErrorAndTheSessionGoesOn) {
    Line(R"({"new": "cMatriz", "as": "m"})");
    const std::pair<const char*, const char*> cases[] = {
        {"oops", R"({"error":"invalid JSON: illegal value"})"},
        {"[1]", R"({"error":"a line must be a JSON object"})"},
        {R"({"nada": 1})",
         R"({"error":"a line must hold \"new\", \"call\", \"get\", \"set\", \"answers\" or \"handle\""})"},
        {R"({"new": "cNada"})", R"({"error":"unknown class \"cNada\""})"},
        {R"({"new": "cMatriz", "as": "a.b"})", R"({"error":"\"a.b\" cannot name an object"})"},
        {R"({"call": "x.Rows"})", R"({"error":"unknown object \"x\""})"},
        {R"({"call": "m"})", R"({"error":"\"m\" must be OBJECT.MEMBER"})"},
        {R"({"call": "m.Nada"})", R"({"error":"cMatriz has no member \"Nada\""})"},
        {R"({"call": "m.GetValue", "args": [1]})",
         R"({"error":"cMatriz.GetValue takes 2 arguments, got 1"})"},
        {R"({"call": "m.LookupValue", "args": [1]})",
         R"({"error":"cMatriz.LookupValue takes 3 to 5 arguments, got 1"})"},
        {R"({"call": "m.GetValue", "args": ["uno", 1]})",
         R"({"error":"argument 1: Type mismatch"})"},
        {R"({"call": "m.GetValue", "args": "uno"})", R"({"error":"\"args\" must be a list"})"},
        {R"({"set": "m.Rows", "value": 3})", R"({"error":"cMatriz.Rows cannot be set"})"},
        {R"({"set": "m.Rows"})", R"({"error":"cMatriz.Rows cannot be set"})"},
        {R"({"call": "m.AddRow", "args": [{"ref": 1}]})", R"({"error":"\"ref\" must be a name"})"},
        {R"({"call": "m.AddRow", "args": [{"x": 1}]})",
         R"j({"error":"unsupported JSON object (expected {\"date\": ...} or {\"hex\": ...})"})j"},
        {R"({"call": "m.AddRow", "args": [{"matriz": [[1], [2, 3]]}]})",
         R"({"error":"every row of a \"matriz\" must be a list of 1 values"})"},
        // A VB run-time error raised by the library keeps its number.
        {R"({"call": "m.LoadFromArray", "args": [5]})", R"({"error":"Type mismatch","number":13})"},
        {R"({"new": "cDatos", "as": "d"})", R"({"ok":"d"})"},
        {R"({"call": "d.LoadcDatos", "args": [{"ref": "m"}]})",
         R"({"error":"argument 1: a cMatriz is not the object this member takes"})"},
    };
    for (const auto& [line, answer] : cases)
        EXPECT_EQ(Line(line), QByteArray(answer)) << line;
    EXPECT_EQ(Line(R"({"get": "m.Rows"})"), R"({"ok":0})");
}

} // namespace
} // namespace zlx

#include "script_session_test.moc"
