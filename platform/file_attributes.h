#pragma once

namespace qdw8 {

/// Gives the open file `to` the owner, group, rights and extended attributes (an access list among
/// them) of the open file `from`, as far as the user may. True if both are alike in all of them
/// afterwards.
bool TakeAttributes(int from, int to);

} // namespace qdw8
