// CtlFichaLogic: keys turned into actions and into the status the form acts on, and the
// search-list mode that Shift holds.

#include "form/CtlFichaLogic.h"

namespace zlx {

namespace {

enum KeyCodes : std::int16_t {
    kKeyEnter = 13,
    kKeyShift = 16,
    kKeyAlt = 18,
    kKeyEscape = 27,
    kKeyPageUp = 33,
    kKeyPageDown = 34
};
constexpr std::int16_t kCtrlMask = 2;
constexpr std::int16_t kAltMask = 4;

// One keyboard handling at a time in the whole library: the clicks it makes raise events
// whose handlers may call it again.
bool g_keyDownRunning = false;

// The tint of the search-list mode: a light amber from the saved face colour (0x00BBGGRR),
// red fixed at 255, green at 232, the blue of the face reduced to a little over a half.
std::int32_t SearchListTint(std::int32_t saved, int red, int green) {
    const int blue = ((saved >> 16) & 0xFF) * green / 400;
    return (blue << 16) | (green << 8) | red;
}

} // namespace

int CtlFichaLogic::Def_KeyDown(std::int16_t& KeyCode, std::int16_t& Shift) {
    if (g_keyDownRunning) return zlxFormStat_Normal;
    g_keyDownRunning = true;
    ++m_uncompleted;
    const int result = KeyDownAction(KeyCode, Shift);
    --m_uncompleted;
    g_keyDownRunning = false;
    return result;
}

int CtlFichaLogic::KeyDownAction(std::int16_t& KeyCode, std::int16_t Shift) {
    const bool showing = IsShowing();
    const bool ctrl = (Shift & kCtrlMask) != 0;
    switch (KeyCode) {
    case kKeyShift:
        if (showing && !SearchListMode() &&
            !m_view.MovementButton(zlxCtlFichaMove_First).Highlighted())
            EnterSearchListMode();
        return zlxFormStat_Normal;
    case kKeyPageUp:
    case kKeyPageDown: {
        if (!showing) return zlxFormStat_Normal;
        const bool up = KeyCode == kKeyPageUp;
        KeyCode = 0;
        const int move = up ? (ctrl ? zlxCtlFichaMove_First : zlxCtlFichaMove_Previous)
                            : (ctrl ? zlxCtlFichaMove_Last : zlxCtlFichaMove_Next);
        m_view.MovementButton(move).Click();
        return zlxFormStat_Normal;
    }
    case kKeyEscape:
        if (ctrl) return zlxFormStat_Normal;
        KeyCode = 0;
        return showing ? zlxFormStat_Salir : zlxFormStat_Cancelando;
    case kKeyEnter:
        if (!ctrl || showing) return zlxFormStat_Normal;
        KeyCode = 0;
        return zlxFormStat_Guardando;
    case kKeyAlt:
        if (Shift == kAltMask) KeyCode = 0;
        return zlxFormStat_Normal;
    default:
        if (showing && !ctrl && KeyCode > 0 && m_hotKeys.contains(QChar(KeyCode)) &&
            ClickHotKey(QChar(KeyCode)))
            KeyCode = 0;
        return zlxFormStat_Normal;
    }
}

bool CtlFichaLogic::ClickHotKey(QChar letter) {
    const int nBtn = static_cast<int>(m_hotKeys.indexOf(letter));
    I_CtlFichaButton& button = m_view.Button(nBtn);
    if (!button.Visible() || !button.Enabled()) return false;
    button.Click();
    return true;
}

void CtlFichaLogic::Def_KeyUp(std::int16_t& KeyCode, std::int16_t& /*Shift*/) {
    if (KeyCode == kKeyShift && SearchListMode()) LeaveSearchListMode();
}

void CtlFichaLogic::EnterSearchListMode() {
    std::int32_t saved = m_view.MovementButton(zlxCtlFichaMove_First).BackColor();
    if (saved == -1) saved = m_view.ButtonFaceColor();
    m_savedMoveColor = saved == 0 ? 1 : saved; // the mode's flag must not be 0
    const std::int32_t tint = SearchListTint(saved, 255, 232);
    for (int n = 0; n < kFichaMoveButtons; ++n)
        m_view.MovementButton(n).BackColor(tint);
    m_view.Button(zlxCtlFichaBtn_Buscar).BackColor(tint);
}

void CtlFichaLogic::LeaveSearchListMode() {
    const std::int32_t saved = m_savedMoveColor;
    m_savedMoveColor = 0;
    for (int n = 0; n < kFichaMoveButtons; ++n)
        m_view.MovementButton(n).BackColor(saved);
    m_view.Button(zlxCtlFichaBtn_Buscar).BackColor(m_view.Button(zlxCtlFichaBtn_Nuevo).BackColor());
}

void CtlFichaLogic::ControlKeyDown(std::int16_t& KeyCode, std::int16_t& Shift) {
    ++m_uncompleted;
    if (!Form().Enabled()) {
        Form().AlertSound();
        KeyCode = 0;
        --m_uncompleted;
        return;
    }
    const int status = Def_KeyDown(KeyCode, Shift);
    if (status == zlxFormStat_Normal) {
        --m_uncompleted;
        return;
    }
    if (status == zlxFormStat_Salir) --m_uncompleted;
    Events().TeclaPulsada(status);
    if (status != zlxFormStat_Salir) --m_uncompleted;
}

void CtlFichaLogic::ControlKeyUp(std::int16_t& KeyCode, std::int16_t& Shift) {
    ++m_uncompleted;
    Def_KeyUp(KeyCode, Shift);
    --m_uncompleted;
}

} // namespace zlx
