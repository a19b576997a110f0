// A workstation for the save reliability tests: a data-entry form on "clientes" (boxes bound
// to nombre and ciudad) driven by the record form's logic without a display. It opens the
// given server and database and runs one command per input line, answering one line: the
// outcome, then for each message shown meanwhile a tab, its title, a tab and its text.
//
//   edit <id>         shows record <id> and presses Modificar: "editing" or "refused"
//   new               presses Nuevo: "new" or "refused"
//   set <campo> <txt> types the text into the box of that column: "ok"
//   save              saves: "saved" or "failed"
//   save-cancel       saves with a Saving handler that cancels
//   save-cross <id>   saves with a Saving handler that says "saving", waits for a line "go"
//                     and then writes ciudad of record <id> too (cancelling if that fails)
//   save-hang         saves with a Saving handler that says "saving" and never returns
//   answer <n>        answers the next message boxes with <n>: "ok"
//   log on|off        the change log switch: "ok"
//   readonly on|off   the read-only switch of record forms: "ok"
//
// The third argument is the workstation's number, its user and station in the change log.

#include "binding/cDAV_TextoGen.h"
#include "form/CtlFichaLogic.h"
#include "form/HeadlessFichaView.h"
#include "frame/LibraryState.h"
#include "platform/companion/RecordingMsgPresenter.h"
#include "platform/widgets/get.h"

#include <QApplication>
#include <QThread>
#include <QWidget>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <unistd.h>

using namespace zlx;

// The form: its boxes and their descriptors, for the binding.
class PeerForm : public QWidget, public I_CtlFichaForm {
    Q_OBJECT
public:
    explicit PeerForm(std::int32_t station) : m_station(station) {
        for (const char* campo : {"nombre", "ciudad"}) {
            auto* box = new ::get(this);
            box->setObjectName(QString::fromLatin1(campo));
            box->setAlias(QStringLiteral("clientes"));
            box->setCampo(QString::fromLatin1(campo));
            auto descriptor = std::make_shared<cDAV_TextoGen>();
            descriptor->Configure(QString::fromLatin1(campo), 40, QString::fromLatin1(campo));
            m_descriptors[QString::fromLatin1(campo)] = descriptor;
            m_boxes[QString::fromLatin1(campo)] = box;
        }
    }
    Q_INVOKABLE zlx::I_DAVPtr Ctl2DAV(QObject* control) {
        return m_descriptors.at(control->property("Campo").toString());
    }
    Q_INVOKABLE void Refresh() {}

    QObject* FormObject() const override { return const_cast<PeerForm*>(this); }
    std::int32_t ID_User() const override { return m_station; }
    std::int32_t ID_Station() const override { return m_station; }
    QList<QObject*> Boxes() const { return {m_boxes.at("nombre"), m_boxes.at("ciudad")}; }
    ::get* Box(const QString& campo) const { return m_boxes.at(campo); }

private:
    std::int32_t m_station;
    std::map<QString, I_DAVPtr> m_descriptors;
    std::map<QString, ::get*> m_boxes;
};

namespace {

enum class SavingMode { Plain, Cancel, Cross, Hang };

// What the form does while its record is saved.
class PeerEvents : public I_CtlFichaEvents {
public:
    explicit PeerEvents(cConexion& cn) : m_cn(cn) {}
    void Saving(bool& lCancel) override {
        if (mode == SavingMode::Cancel) lCancel = true;
        if (mode == SavingMode::Hang || mode == SavingMode::Cross) {
            std::cout << "saving" << std::endl;
            if (mode == SavingMode::Hang)
                for (;;)
                    QThread::sleep(1);
            std::string go;
            std::getline(std::cin, go);
            m_cn.Execute(QStringLiteral("UPDATE clientes SET ciudad = 'cruce' WHERE ZolmarID = ") +
                         QString::number(crossID));
            if (m_cn.GetLastError() != 0) lCancel = true;
        }
    }

    SavingMode mode = SavingMode::Plain;
    std::int32_t crossID = 0;

private:
    cConexion& m_cn;
};

QString OneLine(QString text) {
    return text.replace(u'\t', u' ').replace(u'\n', QStringLiteral("\\n"));
}

class Workstation {
public:
    Workstation(cConexionPtr cn, std::int32_t station)
        : m_cn(std::move(cn)), m_form(station), m_events(*m_cn) {
        m_view.Attach(&m_ctl);
        m_ficha->Init(m_cn, QStringLiteral("clientes"), QStringLiteral("nombre"));
        m_ficha->MoveFirst();
        auto globales = std::make_shared<cGlobales>();
        globales->oCn(m_cn);
        m_ctl.SetForm(&m_form);
        m_ctl.SetEvents(&m_events);
        m_ctl.AsociarFicha(m_ficha, QStringLiteral("clientes"), 1, getpid(), globales);
        cBinding& binding = *m_ctl.BindingControls();
        binding.Init(&m_form, m_cn);
        for (QObject* box : m_form.Boxes())
            binding.Add(box, m_ficha);
        binding.InitControls();
    }

    QString Run(const std::string& command, std::istream& arguments) {
        if (command == "edit") {
            std::int32_t id = 0;
            arguments >> id;
            m_ficha->SeekID(id);
            m_ctl.ButtonClick(zlxCtlFichaBtn_Modificar);
            return m_ctl.FileStatus() == zlxFileStat_EditRecord ? "editing" : "refused";
        }
        if (command == "new") {
            m_ctl.ButtonClick(zlxCtlFichaBtn_Nuevo);
            return m_ctl.FileStatus() == zlxFileStat_NewRecord ? "new" : "refused";
        }
        if (command == "set") {
            std::string campo, text;
            arguments >> campo;
            std::getline(arguments >> std::ws, text);
            m_form.Box(QString::fromStdString(campo))->setText(QString::fromStdString(text));
            return "ok";
        }
        if (command == "log" || command == "readonly") {
            std::string on;
            arguments >> on;
            if (command == "log")
                LibraryState::Instance().HabilitarRegistro_LogFichas(on == "on");
            else
                LibraryState::Instance().CtlFichaReadOnly(on == "on");
            return "ok";
        }
        if (command == "answer") {
            std::int32_t answer = 0;
            arguments >> answer;
            m_messages.SetDefaultAnswer(answer);
            return "ok";
        }
        m_events.mode = command == "save-cancel"  ? SavingMode::Cancel
                        : command == "save-cross" ? SavingMode::Cross
                        : command == "save-hang"  ? SavingMode::Hang
                                                  : SavingMode::Plain;
        if (m_events.mode == SavingMode::Cross) arguments >> m_events.crossID;
        return m_ctl.Def_Guardar() ? "saved" : "failed";
    }

    // The messages shown since the last call, one tab-separated title and text each.
    QString Messages() {
        QString line;
        for (const MsgRequest& message : m_messages.Messages())
            line += u'\t' + OneLine(message.title) + u'\t' + OneLine(message.text);
        m_messages.Clear();
        return line;
    }

private:
    RecordingMsgPresenter m_messages;
    ScopedMsgPresenter m_scope{m_messages};
    cConexionPtr m_cn;
    cFichaDBPtr m_ficha = std::make_shared<cFichaDB>();
    PeerForm m_form;
    PeerEvents m_events;
    HeadlessFichaView m_view;
    CtlFichaLogic m_ctl{m_view};
};

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc != 4) return 2;
    auto cn = std::make_shared<cConexion>();
    if (!cn->Init(zlxDataProvider_MSDE, QString::fromLocal8Bit(argv[2]),
                  QString::fromLocal8Bit(argv[1])))
        return 1;
    Workstation station(cn, QString::fromLocal8Bit(argv[3]).toInt());
    std::cout << "ready" << std::endl;
    std::string line;
    while (std::getline(std::cin, line)) {
        std::istringstream words(line);
        std::string command;
        words >> command;
        const QString outcome = station.Run(command, words);
        std::cout << (outcome + station.Messages()).toStdString() << std::endl;
    }
    return 0;
}

#include "workstation_peer.moc"
