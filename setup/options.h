#pragma once

#include <cstdint>
#include <string>

/// The options: what stands behind the window `frmOptions2`.
///
/// The window shows a form that `LoadOptions` fills, and hands it back. Only OK stores anything;
/// Apply and Cancel close the window, and the form is forgotten.
namespace qdw8 {

/// The tabs, in their order.
enum class OptionsTab : std::uint8_t { Port, Posi, Unit, Language, Teaching };

/// What the controls show. Options are numbered from 0, in the order of the window.
struct OptionsForm {
    std::string txtPortNo;
    bool chkPortOccupy = false;
    int optSutiSyori = 0;    ///< 0 half a pulse goes up, 1 it goes down
    int optHyojiKirikae = 0; ///< 0 pulses, 1 mm
    int optLanguege = 0;     ///< 0 Japanese, 1 English
    std::string txtJogVel;   ///< 1 to 60
    int optJogAcc = 0;       ///< 0 to 2 mean 1 to 3
    int optJogAcc2 = 0;      ///< the same for a QD-61F

    bool operator==(const OptionsForm&) const = default;
};

/// What can be typed: so many characters, and these. A port from 4 to 9 can only come from the
/// store.
inline constexpr int kPortCharacters = 1;
inline constexpr int kJogVelCharacters = 2;
constexpr bool TakesPortKey(char key) {
    return key >= '0' && key <= '3';
}
inline constexpr int kJogVelLowest = 1;
inline constexpr int kJogVelHighest = 60;

/// The form as the window opens: what is in force, and where that can't be, what is stored.
OptionsForm LoadOptions();

/// The port that OK would take: the number in the field, or the stored one if that is not 1 to 9.
std::int16_t PortOfOptions(const OptionsForm& form);

/// The tab may be left. False: a box has told why.
bool MayLeaveOptionsTab(OptionsTab tab, const OptionsForm& form);

/// What became of OK.
enum class OptionsOk : std::uint8_t {
    Done,        ///< all is stored; the window closes
    PortRefused, ///< nothing has happened, and a box has told why; the window stays, with the field
    SpeedRefused, ///< the same, for `txtJogVel`
};

/// Stores the form. Another port closes the line and goes off line at once; another language is
/// kept for the end of the run; another unit needs a grid without errors, and where that fails a
/// box tells so, the view stays, and the rest is stored all the same.
OptionsOk cmdOK_Click(const OptionsForm& form);

} // namespace qdw8
