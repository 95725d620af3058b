#pragma once

#include <sys/stat.h>

namespace qxTools {

/// Gives the open file `made` what belongs to the file `old` besides its contents: owner, extended attributes
/// (access lists are among them) and mode. `info` is the state of `old`.
/// @return false if something cannot be read or given; nobody else may read more of `made` then than before.
bool TakeOverAttributes(int made, int old, const struct stat& info);

}  // namespace qxTools
