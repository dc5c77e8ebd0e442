#pragma once

namespace qdw8 {

/// Asks whether the program is to end, where its only way on is an answer. True: confirmed, and
/// `ProgramEndFlag` is set for whoever runs the program.
bool AskToEndProgram();

} // namespace qdw8
