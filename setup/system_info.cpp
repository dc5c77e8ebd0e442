#include "setup/system_info.h"

#include "app/Module1.h"
#include "app/string_table.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/port_words.h"
#include "platform/platform.h"
#include "platform/port_info.h"
#include "version/version.h"

namespace qdw8 {
namespace {

std::string Joined(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& part : parts) {
        text += (text.empty() ? "" : ", ") + part;
    }
    return text;
}

std::string LineState() {
    const std::string mode = ResText(IsSet(OffLineFlag) ? 3 : 2);
    return ResText(MSComm1().PortOpen() ? 3301 : 3302, {mode});
}

} // namespace

std::string ProductLine() {
    return ResText(201) + " Ver" + version::kShown;
}

std::vector<SystemLine> SystemInformation() {
    const DesktopFacts facts = ThePlatform().GetDesktopFacts();
    std::vector<SystemLine> lines{
        {ResText(1204), facts.system},
        {ResText(1205), facts.screen},
        {ResText(3299), PortSentence(PortNo, LookAtPort(PortNo))},
        {ResText(3300), LineState()},
        {ResText(3303), CtVersion.empty() ? ResText(3304) : CtVersion},
        {ResText(1202), ThePlatform().programFolder},
        {ResText(3305), ThePlatform().settingsFolder},
        {ResText(3298), Joined(facts.libraries)},
    };
    for (SystemLine& line : lines) {
        if (line.value.empty()) {
            line.value = ResText(1206);
        }
    }
    return lines;
}

void CopySystemInformation() {
    std::string text = ProductLine() + "\n";
    for (const SystemLine& line : SystemInformation()) {
        text += line.label + ": " + line.value + "\n";
    }
    ThePlatform().TheClipboard.SetText(text);
}

} // namespace qdw8
