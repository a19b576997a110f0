#pragma once
// The language service: the application's Spanish texts translated from the `idioma` table
// (and, in learning mode, unknown texts recorded there for the translators), and numbers
// written out in Spanish words.

#include "connection/MsgTranslator.h"
#include "platform/companion/cMatriz.h"
#include "platform/variant/Variant.h"

class QWidget;

namespace zlx {

class cConexion;
class cDatos;

enum zlxIdiomaConstants {
    zlxIdiomaDefault = 0,
    zlxIdiomaCastellano = 1,
    zlxIdiomaCatalan = 2,
    zlxIdiomaGallego = 3,
    zlxIdiomaVasco = 4,
    zlxIdiomaIngles = 5,
    zlxIdiomaFrances = 6,
    zlxIdiomaPortugues = 7,
    zlxIdiomaAleman = 8,
    zlxIdiomaItaliano = 9
};

class cIdioma : public Object, public MsgTranslator {
public:
    cIdioma();
    ~cIdioma() override;
    QString TypeName() const override { return QStringLiteral("cIdioma"); }

    // The language list: (number, display name) rows.
    cMatrizPtr oMatrizIdiomas() const { return m_languages; }
    void oMatrizIdiomas(cMatrizPtr languages) { m_languages = std::move(languages); }

    // Loads the dictionary of the language (0 stands for Castellano) from cMainDB..idioma.
    void Init(std::shared_ptr<cConexion> oActiveCn, int nNumIdioma, const QString& cMainDB);
    int Idioma() const { return m_language; }
    void Idioma(int nNumIdioma) { m_language = nNumIdioma; }
    QString Name() const;
    bool ModoAprendizaje() const { return m_learning; }
    void ModoAprendizaje(bool lOn) { m_learning = lOn; }

    // The translation of a Spanish text (the text itself when there is none).
    QString Msg(const QString& cTexto, const QString& cClave = QString()) override;
    // The captions of a form and of its controls, translated in place.
    void FormStrings(QWidget* oFrm);
    // The message box's button captions, translated.
    void SetMsgBoxStrings(cMsgBox& oMBox) override;

    // nNum in words with its unit and fraction unit ("un euro con cincuenta céntimos").
    // With lMoneda the empty unit texts become euro/euros and céntimo/céntimos.
    QString Num2Text(double nNum, int nDecimals = 2, const QString& cUnidad = QString(),
                     const QString& cUnidades = QString(), const QString& cFraccion = QString(),
                     const QString& cFracciones = QString(), bool lGeneroFemenino = false,
                     bool lMoneda = true);
    // A whole number alone, masculine ("mil quinientos quince").
    QString Long2Text(std::int32_t nNum);

private:
    void LoadDictionary();
    QString Learn(const QString& cTexto, const QString& cClave);

    cMatrizPtr m_languages;
    int m_language = zlxIdiomaCastellano;
    std::shared_ptr<cConexion> m_conexion;
    QString m_table;
    bool m_learning = false;
    bool m_busy = false;
    std::shared_ptr<cDatos> m_dictionary;
    std::int32_t m_dictionarySize = 0;

    QString Units(int n) const;
    QString Tens(int n) const;
    QString Hundreds(int n) const;
    QString Thousands(std::int64_t n) const;
    QString OneWord() const { return m_feminine ? QStringLiteral("una") : QStringLiteral("un"); }
    bool m_feminine = false;
};

using cIdiomaPtr = std::shared_ptr<cIdioma>;

} // namespace zlx
