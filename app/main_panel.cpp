#include "app/main_panel.h"

#include "app/screens.h"

namespace qdw8 {
namespace {

MainPanel panel;

template<typename Value> void Change(Value& held, const Value& value) {
    if (held != value) {
        held = value;
        if (Screens().frmMainPanel) {
            Screens().frmMainPanel();
        }
    }
}

} // namespace

const MainPanel& ThePanel() {
    return panel;
}

void SetPanel(bool MainPanel::*lamp, bool on) {
    Change(panel.*lamp, on);
}

void SetPanel(std::string MainPanel::*field, const std::string& text) {
    Change(panel.*field, text);
}

void SetPanelText(std::array<std::string, kAxes> MainPanel::*field, std::size_t axis,
                  const std::string& text) {
    Change((panel.*field)[axis], text);
}

void SetPanelLine(const LinePanel& line) {
    Change(panel.line, line);
}

void SetPanelScale(const std::string& pulsesPerMm, const std::string& mmPerPulse) {
    Change(panel.scale[0], pulsesPerMm);
    Change(panel.scale[1], mmPerPulse);
}

void ResetMainPanel() {
    panel = MainPanel{};
}

} // namespace qdw8
