#include "app/file_questions.h"

#include "app/Module1.h"
#include "app/string_table.h"
#include "platform/platform.h"

namespace qdw8 {
namespace {

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

} // namespace qdw8
