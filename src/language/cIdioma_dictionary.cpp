#include "connection/SqlConstants.h"
#include "connection/SqlText.h"
#include "connection/cConexion.h"
#include "language/cIdioma.h"
#include "platform/companion/cMsgBox.h"
#include "table/cDatos.h"

namespace zlx {

namespace {

constexpr qsizetype kLongestText = 500;

QString WithoutTrailingBlanks(const QString& text) {
    qsizetype end = text.size();
    while (end > 0 && text[end - 1] == u' ')
        --end;
    return text.left(end);
}

} // namespace

cIdioma::cIdioma() : m_languages(std::make_shared<cMatriz>()) {
    static const char* const names[] = {"Por defecto", "Castellano", "Catalán", "Gallego",
                                        "Vasco",       "Inglés",     "Francés", "Portugués",
                                        "Alemán",      "Italiano"};
    m_languages->Dimension(1, 2, 1, 10);
    for (std::int32_t i = 0; i < 10; ++i) {
        m_languages->SetValue(1, i + 1, Variant(i));
        m_languages->SetValue(2, i + 1, Variant(QString::fromUtf8(names[i])));
    }
}

cIdioma::~cIdioma() = default;

void cIdioma::Init(std::shared_ptr<cConexion> oActiveCn, int nNumIdioma, const QString& cMainDB) {
    m_conexion = std::move(oActiveCn);
    m_language = nNumIdioma == zlxIdiomaDefault ? zlxIdiomaCastellano : nNumIdioma;
    m_table = cMainDB + QStringLiteral("..idioma");
    m_learning = false;
    LoadDictionary();
}

void cIdioma::LoadDictionary() {
    m_dictionary.reset();
    m_dictionarySize = 0;
    if (!m_conexion) return;
    const Variant result = m_conexion->Execute(
        QStringLiteral("SELECT texto, traduccion FROM %1 WHERE idioma=%2 ORDER BY texto")
            .arg(m_table)
            .arg(m_language),
        zlxExecuteReturn_cDatos_Disconnected, Variant(), true);
    m_dictionary = result.IsObject() ? result.As<cDatos>() : nullptr;
    if (!m_dictionary) return;
    m_dictionary->Indexed(QStringLiteral("Texto"), true);
    m_dictionarySize = m_dictionary->RecCount();
}

QString cIdioma::Name() const {
    return m_languages->LookupValue(Variant(m_language), 1, 2, Variant(QString())).ToString();
}

QString cIdioma::Msg(const QString& cTexto, const QString& cClave) {
    if (cTexto.trimmed().isEmpty() || m_language == zlxIdiomaCastellano || m_busy) return cTexto;
    if (m_dictionarySize == 0 && !m_learning) return cTexto;
    m_busy = true;
    const QString text = WithoutTrailingBlanks(cTexto);
    QString result = cTexto;
    if (m_dictionary &&
        m_dictionary->Locate(QStringLiteral("texto=") + SqlText::PonComillas(Variant(text))) > 0) {
        const Variant found = m_dictionary->Field(QStringLiteral("traduccion"));
        const QString translation = found.IsNull() ? QString() : found.ToString();
        if (!translation.isEmpty()) {
            m_busy = false;
            return translation;
        }
    }
    if (m_learning) {
        const QString learned = Learn(text, cClave);
        if (!learned.isEmpty()) result = learned;
    }
    m_busy = false;
    return result;
}

// Learning mode: the table is asked directly (it may hold texts learned since the dictionary
// was loaded); an unknown text is recorded to await its translation, a text changed under
// its key is flagged for review. Answers the translation, "" when there is none.
QString cIdioma::Learn(const QString& text, const QString& cClave) {
    if (!m_conexion) return {};
    const QString quoted = SqlText::PonComillas(Variant(text));
    QString sql = QStringLiteral("SELECT zolmarID, texto, traduccion FROM ") + m_table +
                  QStringLiteral(" WHERE idioma=") + QString::number(m_language) +
                  QStringLiteral(" AND (texto=") + quoted + QStringLiteral(" OR traduccion=") +
                  quoted + u')';
    if (!cClave.isEmpty())
        sql += QStringLiteral(" AND clave = ") + SqlText::PonComillas(Variant(cClave));
    const Variant rows = m_conexion->Execute(sql, zlxExecuteReturn_Array, Variant::Null(), true);
    if (m_conexion->GetLastError() != 0) {
        cMsgBox box;
        box.SetIcon(MsgIconError);
        box.ShowMessage(QStringLiteral("Instrucción SQL: ") + sql, 0,
                        QStringLiteral("Error traduciendo texto"));
        return {};
    }
    if (const VariantArrayPtr found = rows.ToArray(); found && found->Size() > 0) {
        const std::int32_t row = found->LBound(2);
        const std::int32_t column = found->LBound(1);
        const Variant stored = found->At(column + 1, row);
        if (!cClave.isEmpty() && (stored.IsNull() || stored.ToString() != text)) {
            m_conexion->Execute(QStringLiteral("UPDATE ") + m_table +
                                QStringLiteral(" SET texto = ") + quoted +
                                QStringLiteral(", revisar = 1 WHERE zolmarID=") +
                                found->At(column, row).ToString());
        }
        const Variant translation = found->At(column + 2, row);
        return translation.IsNull() ? QString() : WithoutTrailingBlanks(translation.ToString());
    }
    if (text.size() <= kLongestText) {
        m_conexion->Execute(QStringLiteral("INSERT INTO ") + m_table +
                            QStringLiteral(" (clave, idioma, texto) VALUES (") +
                            SqlText::PonComillas(Variant(cClave)) + u',' +
                            QString::number(m_language) + u',' + quoted + u')');
    }
    return {};
}

void cIdioma::SetMsgBoxStrings(cMsgBox& oMBox) {
    oMBox.SetButtonCaptions(
        Msg(QStringLiteral("&Sí")), Msg(QStringLiteral("&No")), Msg(QStringLiteral("&Cancelar")),
        Msg(QStringLiteral("&Intentar de nuevo")), Msg(QStringLiteral("Continuar &adelante")));
}

} // namespace zlx
