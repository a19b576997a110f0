#pragma once
// The edit mask of a "get" text box: "x" any text, "(7,2)" a number of up to 7 integer
// digits and 2 decimals ("(7)" is "(7,0)"). Numbers are typed the Spanish way, "," before the
// decimals, and shown with "." grouping thousands and every decimal of the mask. A number
// mask may name its display layout after a semicolon, as a Format layout: "(5,0);00000"
// shows a code as 04013, without grouping.

#include <QString>
#include <optional>

namespace zlx {

class GetMask {
public:
    GetMask() = default;
    // A mask that is not a number mask is a text mask.
    explicit GetMask(const QString& mask);

    const QString& Text() const { return m_text; }
    bool IsNumber() const { return m_number; }
    int Digits() const { return m_digits; }
    int Decimals() const { return m_decimals; }

    // "1.234,50" for 1234.5 under "(7,2)"; "04013" for 4013 under "(5,0);00000".
    QString Display(double value) const;
    // The number in typed text ("1234,5", "1.234,50", "-3"); an empty text is 0, a text that
    // is no number has no value.
    std::optional<double> Parse(const QString& text) const;
    // Whether the text can be the start of a number the mask allows.
    bool Accepts(const QString& text) const;

private:
    QString m_text = QStringLiteral("x");
    bool m_number = false;
    int m_digits = 0;
    int m_decimals = 0;
    QString m_layout;
};

} // namespace zlx
