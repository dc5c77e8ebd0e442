#include "app/program_end.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/string_table.h"

namespace qdw8 {

bool AskToEndProgram() {
    if (AskBox(ResText(390), BoxButtons::OkCancel) != BoxAnswer::Ok) {
        return false;
    }
    ProgramEndFlag = kSet;
    return true;
}

} // namespace qdw8
