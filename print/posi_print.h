#pragma once

#include "print/posi_print_data.h"

/// The pages of positions: two lines for each.
namespace qdw8 {

/// Head of the page, heads of the columns, and foot, with the number `PrintPageNo`.
void PrintPosiHeader(const PosiPrint& print);

/// All pages.
void PrintPosiPages(const PosiPrint& print);

/// Lines of text of the lowest page on which a position has room.
inline constexpr int kPosiPageLines = 13;

} // namespace qdw8
