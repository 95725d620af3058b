/// @file
/// Converts text between bytes (BIG5 as code page 950 has it), UTF-16 and UTF-8 by a built-in table. No
/// locale and no C library is used, so results are the same everywhere. Source of the table: the Unicode
/// Consortium's CP950.TXT.
///
/// A character is one byte 00 to 7F, or a lead byte 81 to FE and a trail byte 40 to 7E or A1 to FE that the
/// page has. The page's user-defined areas are mapped to Unicode's private use area in the order of their
/// codes: FA40 to FEFE from U+E000, 8E40 to A0FE from U+E311, 8140 to 8DFE from U+EEB8, C6A1 to C8FE from
/// U+F6B1. On purpose: all of C6A1 to C8FE is private use, also where later pages have kana and circled
/// numbers.
///
/// A byte that begins no character (80, FF, or a lead byte without a valid trail byte) becomes the lone
/// surrogate U+DC00 + byte; the next byte may begin a character. Converting back gives the byte again. So
/// bytes converted to wide text and back are unchanged, except for ten characters that the page has twice,
/// which become their main code: A2CC becomes A451, A2CE A4CA, F9E9 to F9EB A2A5 to A2A7, F9F9 A2A4, and F9FA
/// to F9FD become A27E, A2A1, A2A2 and A2A3.
///
/// The functions take time linear in the text and allocate only the result.
#pragma once

#include <qxTools/Export.h>

#include <string>
#include <string_view>

namespace qxTools {

/// Returns `s` as UTF-16, one unit for each character. There are no surrogate pairs in the result.
QXTOOLS_API std::u16string BytesToWide(std::string_view s);

/// Returns UTF-16 text in code page 950. A character that the page does not have becomes "?"; a surrogate
/// pair becomes one "?". A lone surrogate U+DC80 to U+DCFF becomes the byte 80 to FF; other lone surrogates
/// become "?".
QXTOOLS_API std::string WideToBytes(std::u16string_view s);

/// Returns code page 950 text as UTF-8. A byte that begins no character becomes U+FFFD (EF BF BD).
QXTOOLS_API std::string BytesToUtf8(std::string_view s);

/// Returns UTF-8 text in code page 950. A character that the page does not have becomes "?", and so does a
/// byte-order mark. Invalid UTF-8 (surrogates and overlong forms included) becomes one "?" for each longest
/// piece that could have begun a character.
QXTOOLS_API std::string Utf8ToBytes(std::string_view utf8);

/// Returns the position, counted from 0, of the first byte of `s` that begins no character, or npos if `s`
/// holds only whole characters. Linear; allocates nothing.
QXTOOLS_API std::size_t FindStrayByte(std::string_view s);

}  // namespace qxTools
