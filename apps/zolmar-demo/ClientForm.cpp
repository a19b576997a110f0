#include "ClientForm.h"

#include "ChangeLog.h"
#include "TownTable.h"
#include "binding/cDAV_Activo.h"
#include "binding/cDAV_FechaGen.h"
#include "binding/cDAV_NumeroGen.h"
#include "binding/cDAV_TextoGen.h"
#include "binding/cDAV_ZolmarID.h"
#include "binding/cValidCombo.h"
#include "frame/cGlobales.h"
#include "language/cIdioma.h"
#include "platform/widgets/btn.h"
#include "platform/widgets/get.h"
#include "platform/widgets/lbl.h"

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <unistd.h>

namespace zlx::demo {

namespace {

const QString kTablaText = QString::fromLatin1(ClientForm::kTabla);

// A descriptor for a control that is not an edit box (the option group, the identity label):
// the binding reads and writes it by its default property, nothing needs configuring.
template <class Descriptor> class NotConfigured : public Descriptor {
public:
    void ConfigureControl(QObject*) override {}
};

template <class Descriptor, class... Args> I_DAVPtr Describe(Args&&... args) {
    auto descriptor = std::make_shared<Descriptor>();
    descriptor->Configure(std::forward<Args>(args)...);
    return descriptor;
}

QLabel* Caption(const QString& text, QWidget* buddy) {
    auto* label = new QLabel(text);
    label->setBuddy(buddy);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

// A box wide enough for n characters of its font, its buttons included.
void WidthInCharacters(QWidget* box, int n, int extra = 0) {
    box->setFixedWidth(box->fontMetrics().horizontalAdvance(QString(n, u'W')) * 3 / 4 + 16 + extra);
}

QString StatusText(std::int32_t nActivo) {
    switch (nActivo) {
    case zlxFichaDBStatusNormal:
        return QStringLiteral("Normal");
    case zlxFichaDBStatusInactivo:
        return QStringLiteral("Inactivo");
    case zlxFichaDBStatusBorrado:
        return QStringLiteral("Borrado");
    default:
        return {};
    }
}

} // namespace

ClientForm::ClientForm(cConexionPtr oCn, std::int32_t nIdUsuario, std::int32_t nIdPuesto,
                       QWidget* parent)
    : QMainWindow(parent), m_cn(std::move(oCn)), m_app(nIdUsuario, nIdPuesto, m_cn->DBName()) {
    setObjectName(QStringLiteral("frmClientes"));
    setWindowTitle(QStringLiteral("Clientes"));
    m_descriptors = {
        {"codigo", Describe<cDAV_TextoGen>("codigo", 10, "Código del cliente")},
        {"nombre", Describe<cDAV_TextoGen>("nombre", 60, "Nombre o razón social")},
        {"nif", Describe<cDAV_TextoGen>("nif", 12, "NIF o CIF")},
        {"tipo", Describe<NotConfigured<cDAV_NumeroGen>>("tipo", 1, "Tipo de cliente", "(1,0)", 2)},
        {"municipio",
         Describe<cDAV_NumeroGen>("municipio", 5, "Código del municipio", "(5,0);00000")},
        {"fnacimiento", Describe<cDAV_FechaGen>("fnacimiento", "Fecha de nacimiento")},
        {"limite", Describe<cDAV_NumeroGen>("limite", 12, "Límite de crédito", "(9,2)", 6)},
        {"Activo", std::make_shared<cDAV_Activo>()},
        {"ZolmarID", std::make_shared<NotConfigured<cDAV_ZolmarID>>()},
        {"notas", Describe<cDAV_TextoGen>("notas", 200, "Notas")},
    };
    m_towns = std::make_shared<TownTable>(m_cn);
    BuildLayout();
    if (m_ficha->Init(m_cn, kTablaText, QStringLiteral("codigo")) == 0) m_ficha->MoveFirst();
    BindControls();
    ConnectControls();
    auto globales = std::make_shared<cGlobales>();
    globales->oCn(m_cn);
    m_ctl->AsociarFicha(m_ficha, kTablaText, nIdUsuario, getpid(), globales);
    QApplication::instance()->installEventFilter(this);
}

ClientForm::~ClientForm() = default;

::get* ClientForm::AddGet(const QString& cCampo, const QString& cNombre) {
    auto* box = new ::get(this);
    box->setObjectName(cNombre);
    box->setAlias(kTablaText);
    box->setCampo(cCampo);
    m_gets[cCampo] = box;
    return box;
}

void ClientForm::BuildLayout() {
    auto* panel = new QWidget(this);
    setCentralWidget(panel);
    m_ctl = new CtlFicha(panel);
    m_ctl->setObjectName(QStringLiteral("ctlFicha"));
    m_ctl->MostrarBotonComentario(false); // the client's notes are a field of the form
    auto* fields = new QGroupBox(QStringLiteral("Datos del cliente"), panel);
    auto* grid = new QGridLayout(fields);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(6);

    m_id = new lbl(this);
    m_id->setObjectName(QStringLiteral("lblID"));
    m_id->setProperty("Alias", kTablaText);
    m_id->setProperty("Campo", QStringLiteral("ZolmarID"));
    m_id->setMinimumWidth(80);
    m_id->setFrameShape(QFrame::StyledPanel);
    m_tipo = new ::btn(this);
    m_tipo->setObjectName(QStringLiteral("optTipo"));
    m_tipo->setProperty("Alias", kTablaText);
    m_tipo->setProperty("Campo", QStringLiteral("tipo"));
    m_tipo->setTitle(QStringLiteral("Tipo de cliente"));
    m_tipo->setNumOptions(2);
    m_tipo->OptCaption(1, QStringLiteral("Particular"));
    m_tipo->OptCaption(2, QStringLiteral("Empresa"));

    ::get* codigo = AddGet(QStringLiteral("codigo"), QStringLiteral("txtCodigo"));
    ::get* nombre = AddGet(QStringLiteral("nombre"), QStringLiteral("txtNombre"));
    ::get* nif = AddGet(QStringLiteral("nif"), QStringLiteral("txtNif"));
    ::get* municipio = AddGet(QStringLiteral("municipio"), QStringLiteral("txtMunicipio"));
    ::get* nacimiento = AddGet(QStringLiteral("fnacimiento"), QStringLiteral("txtNacimiento"));
    ::get* limite = AddGet(QStringLiteral("limite"), QStringLiteral("txtLimite"));
    ::get* activo = AddGet(QStringLiteral("Activo"), QStringLiteral("txtActivo"));
    ::get* notas = AddGet(QStringLiteral("notas"), QStringLiteral("txtNotas"));
    WidthInCharacters(codigo, 10);
    WidthInCharacters(nif, 12);
    WidthInCharacters(municipio, 6);
    WidthInCharacters(nacimiento, 10, 24);
    WidthInCharacters(limite, 12);
    WidthInCharacters(activo, 3);

    m_townName = new ::get(this);
    m_townName->setObjectName(QStringLiteral("txtNombreMunicipio"));
    m_townName->setToolTip(QStringLiteral("Escriba el principio del nombre del municipio"));
    m_townName->setBtnCombo(true);
    m_townName->setEnabled(false);
    WidthInCharacters(m_townName, 28, 24);
    m_creditWords = new QLabel(this);
    m_creditWords->setWordWrap(true);
    m_creditWords->setStyleSheet(QStringLiteral("color: #505050; font-style: italic"));
    m_status = new QLabel(this);

    grid->addWidget(Caption(QStringLiteral("&Código"), codigo), 0, 0);
    grid->addWidget(codigo, 0, 1);
    grid->addWidget(Caption(QStringLiteral("Nº de ficha"), m_id), 0, 2);
    grid->addWidget(m_id, 0, 3, Qt::AlignLeft);
    grid->addWidget(Caption(QStringLiteral("N&ombre"), nombre), 1, 0);
    grid->addWidget(nombre, 1, 1, 1, 3);
    grid->addWidget(Caption(QStringLiteral("N&IF"), nif), 2, 0);
    grid->addWidget(nif, 2, 1);
    grid->addWidget(m_tipo, 2, 2, 2, 2, Qt::AlignLeft | Qt::AlignTop);
    grid->addWidget(Caption(QStringLiteral("&Fecha de nacimiento"), nacimiento), 3, 0);
    grid->addWidget(nacimiento, 3, 1);
    grid->addWidget(Caption(QStringLiteral("Munici&pio"), municipio), 4, 0);
    grid->addWidget(municipio, 4, 1);
    grid->addWidget(m_townName, 4, 2, 1, 2, Qt::AlignLeft);
    grid->addWidget(Caption(QStringLiteral("&Límite de crédito"), limite), 5, 0);
    grid->addWidget(limite, 5, 1);
    grid->addWidget(m_creditWords, 5, 2, 1, 2);
    grid->addWidget(Caption(QStringLiteral("&Estado"), activo), 6, 0);
    grid->addWidget(activo, 6, 1, Qt::AlignLeft);
    grid->addWidget(m_status, 6, 2, 1, 2);
    grid->addWidget(Caption(QStringLiteral("No&tas"), notas), 7, 0);
    grid->addWidget(notas, 7, 1, 1, 3);
    grid->setColumnStretch(3, 1);

    m_save = new QPushButton(QStringLiteral("&Guardar"), this);
    m_cancel = new QPushButton(QStringLiteral("&Cancelar"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_save);
    buttons->addWidget(m_cancel);

    auto* history = new QGroupBox(QStringLiteral("Historial de cambios"), this);
    m_log = new QTreeWidget(history);
    m_log->setHeaderLabels({QStringLiteral("Fecha"), QStringLiteral("Usuario"),
                            QStringLiteral("Operación"), QStringLiteral("Cambios")});
    m_log->setRootIsDecorated(false);
    m_log->setWordWrap(true);
    m_log->header()->setStretchLastSection(true);
    m_log->setColumnWidth(0, 150);
    m_log->setColumnWidth(1, 60);
    m_log->setColumnWidth(2, 80);
    auto* historyLayout = new QVBoxLayout(history);
    historyLayout->addWidget(m_log);

    auto* layout = new QVBoxLayout(panel);
    layout->addWidget(m_ctl, 0, Qt::AlignLeft);
    layout->addWidget(fields);
    layout->addLayout(buttons);
    layout->addWidget(history, 1);
}

void ClientForm::BindControls() {
    const cBindingPtr binding = m_ctl->BindingControls();
    binding->Init(this, m_cn);
    binding->Add(m_id, m_ficha, zlxBCNoEdit | zlxBCNoUpdate);
    for (const char* campo : {"codigo", "nombre", "nif"})
        binding->Add(m_gets.at(QString::fromLatin1(campo)), m_ficha);
    binding->Add(m_tipo, m_ficha);
    for (const char* campo : {"fnacimiento", "municipio", "limite", "Activo", "notas"})
        binding->Add(m_gets.at(QString::fromLatin1(campo)), m_ficha);
    binding->InitControls();
}

void ClientForm::ConnectControls() {
    connect(m_save, &QPushButton::clicked, this, [this] { Guardar(); });
    connect(m_cancel, &QPushButton::clicked, this, [this] { Cancelar(); });
    ::get* municipio = m_gets.at(QStringLiteral("municipio"));
    connect(m_townName, &::get::ClickCombo, this, [this] { ChooseTown(true); });
    connect(m_townName, &::get::Validate, this, [this](bool& Cancel) {
        if (!m_ctl->IsShowing() && !m_townName->Text().trimmed().isEmpty()) Cancel = !ChooseTown();
    });
    connect(municipio, &::get::Change, this, [this] { ShowTown(); });
    connect(municipio, &::get::Validate, this, [this](bool& Cancel) { ValidateTown(Cancel); });
    connect(m_gets.at(QStringLiteral("limite")), &::get::Change, this,
            [this] { ShowCreditInWords(); });
    connect(m_gets.at(QStringLiteral("Activo")), &::get::Change, this, [this] { ShowStatus(); });
}

I_DAVPtr ClientForm::Ctl2DAV(QObject* oControl) {
    const auto found = m_descriptors.find(oControl->property("Campo").toString());
    return found == m_descriptors.end() ? nullptr : found->second;
}

void ClientForm::Refresh() {
    update();
}

::get* ClientForm::Control(const QString& cCampo) const {
    const auto found = m_gets.find(cCampo);
    return found == m_gets.end() ? nullptr : found->second;
}

std::int32_t ClientForm::CurrentID() const {
    return m_ficha->IsValidRecord() ? m_ficha->ID() : 0;
}

// The derived data of the shown values, and the form's own buttons and town box enabled
// while a record is edited or created.
void ClientForm::ShowForm() {
    const bool showing = m_ctl->IsShowing();
    m_save->setEnabled(!showing);
    m_cancel->setEnabled(!showing);
    m_townName->setEnabled(!showing);
    ShowTown();
    ShowCreditInWords();
    ShowStatus();
    ShowChangeLog();
}

void ClientForm::ShowStatus() {
    m_status->setText(StatusText(m_gets.at(QStringLiteral("Activo"))->Value().toInt()));
}

void ClientForm::ShowTown() {
    const int code = m_gets.at(QStringLiteral("municipio"))->Value().toInt();
    const Variant name =
        m_cn->Execute(QStringLiteral("SELECT nombre FROM municipios WHERE codigo=%1").arg(code),
                      zlxExecuteReturn_Value, Variant(QString()), true);
    m_townName->setText(name.ToString().trimmed());
}

void ClientForm::ShowCreditInWords() {
    const double limit = m_gets.at(QStringLiteral("limite"))->Value().toDouble();
    m_creditWords->setText(limit == 0 ? QString() : cIdioma().Num2Text(limit));
}

void ClientForm::ShowChangeLog() {
    m_log->clear();
    if (m_ctl->IsNewRecord() || !m_ficha->IsValidRecord()) return;
    for (const ChangeLogRow& row : ChangeLog::Read(*m_cn, kTablaText, m_ficha->ID())) {
        auto* item = new QTreeWidgetItem(m_log);
        item->setText(0, row.fecha.toString(QStringLiteral("dd/MM/yyyy HH:mm:ss")));
        item->setText(1, QString::number(row.idUsuario));
        item->setText(2, row.borrado ? QStringLiteral("Borrado") : QStringLiteral("Cambio"));
        item->setText(3, row.cambios.join(u'\n'));
    }
}

bool ClientForm::ChooseTown(bool lForzarLista) {
    cValidCombo combo;
    combo.cCodigo = QStringLiteral("codigo");
    combo.cNombre = QStringLiteral("nombre");
    combo.lBuscarID = false;
    combo.oCtlSay = m_gets.at(QStringLiteral("municipio"));
    combo.aHeaders = Variant::Array({Variant("Código"), Variant("Municipio")});
    combo.aWidths = Variant::Array({Variant(8), Variant(30)});
    bool lUpdateControls = true;
    return combo.Run(m_towns, m_townName, lUpdateControls, lForzarLista) > 0;
}

void ClientForm::ValidateTown(bool& Cancel) {
    if (m_ctl->IsShowing()) return;
    const int code = m_gets.at(QStringLiteral("municipio"))->Value().toInt();
    if (code != 0 && m_townName->Text().isEmpty()) {
        ShowMessage(QStringLiteral("No existe ningún municipio con el código <B>%1</B>.").arg(code),
                    MsgIconWarning, QStringLiteral("Municipio"));
        Cancel = true;
    }
}

QString ClientForm::NextCode() const {
    const Variant highest =
        m_cn->Execute(QStringLiteral("SELECT MAX(codigo) FROM clientes WHERE codigo LIKE 'C%'"),
                      zlxExecuteReturn_Value, Variant(QString()), true);
    return QStringLiteral("C%1").arg(highest.ToString().mid(1).toInt() + 1, 4, 10, QChar(u'0'));
}

QString ClientForm::SavingErrors() const {
    QStringList errors;
    if (m_gets.at(QStringLiteral("codigo"))->Text().trimmed().isEmpty())
        errors << QStringLiteral("El <B>código</B> del cliente no puede quedar vacío.");
    if (m_gets.at(QStringLiteral("nombre"))->Text().trimmed().isEmpty())
        errors << QStringLiteral("El <B>nombre</B> del cliente no puede quedar vacío.");
    if (m_gets.at(QStringLiteral("municipio"))->Value().toInt() != 0 &&
        m_townName->Text().isEmpty())
        errors << QStringLiteral("El <B>municipio</B> no existe.");
    return errors.join(QStringLiteral("<BR>"));
}

} // namespace zlx::demo
