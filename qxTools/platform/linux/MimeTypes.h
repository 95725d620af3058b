#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qxTools {

/// The MIME types that the desktop has for these extensions (UTF-8, with their dots): of each the one that
/// goes first, without those whose names begin with `ignoredPrefix`. No type is there twice.
/// @throws EStreamError if the desktop's list cannot be read.
std::vector<std::string> MimeTypesOf(const std::vector<std::string>& extensions,
                                     std::string_view ignoredPrefix);

}  // namespace qxTools
