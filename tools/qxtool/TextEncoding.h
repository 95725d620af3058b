// The encodings that qxtool convert knows.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qxtool {

enum class TextEncoding { kBig5, kGb2312, kGbk, kUtf8 };

/// The encoding of this name, in any letter case: big5, gb2312, gbk, utf8 or a usual alias of them.
/// @throws Failure, which lists the names.
TextEncoding FindEncoding(const std::string& name);

/// The names without their aliases.
std::vector<std::string> EncodingNames();

std::string NameOf(TextEncoding encoding);

/// From a character of 16 bits to one of another encoding, 0 where there is none. A character is a UTF-16
/// unit, or the two bytes of a double-byte encoding, the first one high.
using CodeMap = std::vector<std::uint16_t>;

/// The characters of `from`, each with its counterpart in `to`. Between gb2312 or gbk and big5 characters
/// change script; otherwise they stay the same ones.
/// @throws Failure if there is no way from one to the other.
CodeMap MakeCodeMap(TextEncoding from, TextEncoding to);

/// A unit of the basic plane as UTF-8.
std::string Utf8Of(char16_t unit);

}  // namespace qxtool
