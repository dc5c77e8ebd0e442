#pragma once

#include <array>
#include <cstddef>
#include <string>

/// The parameters compared with what a file or the controller holds.
namespace qdw8 {

inline constexpr std::size_t kReportGroups = 6;
/// Per group of items what differs, each with a comma behind it: "PUSH(2),"; group 1 stays empty.
extern std::array<std::string, kReportGroups> VerifyReport;

/// Compares `ParaSet` with `ParaRowTable`, the items of the axes in use and the common ones; the
/// acceleration setting has no part in it. A cell that is no number differs from every number.
/// Fills `VerifyReport`. True: something differs.
bool CompareParaSet();

/// Shows what `CompareParaSet` found, or that nothing differs.
void ShowParaReport();

} // namespace qdw8
