#include "app/file_questions.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/string_table.h"
#include "platform/platform.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <filesystem>
#include <utility>

namespace qdw8 {
namespace {

constexpr std::int16_t kOneAtATime = 3390;
constexpr std::int16_t kOtherExtension = 3391; ///< in front of the extension
constexpr std::int16_t kNoFileHere = 3397;
constexpr std::int16_t kOpeningCancelled = 20;

std::optional<FileAnswer> dropped; ///< the answer to the next question for a file to open

bool HasExtension(const std::filesystem::path& file, const char* wanted) {
    const std::string extension = file.extension().string();
    return std::equal(extension.begin(), extension.end(), wanted, wanted + std::strlen(wanted),
                      [](char one, char other) {
                          return std::tolower(static_cast<unsigned char>(one)) == other;
                      });
}

std::optional<FileAnswer> Ask(const FileQuestion& question) {
    if (IsSet(ProgramEndFlag)) {
        return {};
    }
    auto answer = ThePlatform().CommonDialog1.ShowFile(question);
    if (answer && answer->path.empty()) {
        answer.reset();
    }
    return answer;
}

} // namespace

std::optional<FileAnswer> AskFileToOpen(const FileKind& kind, std::int16_t titleId,
                                        const std::string& folder) {
    if (auto answer = std::exchange(dropped, {})) {
        return answer;
    }
    return Ask({FileQuestion::Kind::Open,
                ResText(titleId),
                ResText(kind.filterId),
                kind.defaultExt,
                {},
                folder,
                kFileMustExist});
}

std::optional<FileAnswer> AskFileToSave(const FileKind& kind, std::int16_t titleId,
                                        const std::string& proposedName,
                                        const std::string& folder) {
    return Ask({FileQuestion::Kind::Save, ResText(titleId), ResText(kind.filterId), kind.defaultExt,
                proposedName, folder, kOverwritePrompt});
}

void OpenDropped(const FileKind& kind, const std::vector<std::string>& paths,
                 const std::function<void()>& open) {
    const std::string extension = std::string(".") + kind.defaultExt;
    const std::filesystem::path file(paths.size() == 1 ? paths.front() : "");
    if (paths.size() > 1) {
        ShowTexts({kOneAtATime, kOpeningCancelled});
    } else if (file.empty()) {
        ShowTexts({kNoFileHere, kOpeningCancelled});
    } else if (!HasExtension(file, extension.c_str())) {
        ShowBox(Lines({ResText(kOtherExtension) + extension, ResText(kOpeningCancelled)}));
    } else {
        const struct Kept {
            ~Kept() { dropped.reset(); }
        } kept; // a command that asked for none leaves nothing to the next one
        dropped = {file.string(), file.filename().string()};
        open();
    }
}

} // namespace qdw8
