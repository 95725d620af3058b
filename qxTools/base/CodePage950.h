/// @file
/// Text between bytes (BIG5 as code page 950 has it), UTF-16 units and UTF-8, from a built-in table:
/// no locale and no C library is asked, so results are the same everywhere.
///
/// A character is one byte 00 to 7F, or a lead byte 81 to FE and a trail byte 40 to 7E or A1 to FE that the
/// page holds. The page's user-defined areas are private use, in order of their codes: FA40 to FEFE from
/// U+E000, 8E40 to A0FE from U+E311, 8140 to 8DFE from U+EEB8, C6A1 to C8FE from U+F6B1.
/// On purpose: C6A1 to C8FE is private use as a whole, also where later pages put kana and numbered circles.
///
/// A byte that begins no character (80, FF, a lead byte without a fitting trail) stands alone: it is read as
/// the lone surrogate U+DC00 + byte, the next byte is looked at afresh, and writing gives the byte back. So
/// bytes to wide and back is the identity for every input, but for ten characters that the page holds twice,
/// which come back as their main code: A2CC as A451, A2CE as A4CA, F9E9 to F9EB as A2A5 to A2A7, F9F9 as
/// A2A4, F9FA to F9FD as A27E, A2A1, A2A2 and A2A3.
///
/// The four conversions are linear and allocate nothing but the result.
#pragma once

#include <qxTools/Export.h>

#include <string>
#include <string_view>

namespace qxTools {

/// `s` as UTF-16 units, one a character; never a surrogate pair.
QXTOOLS_API std::u16string BytesToWide(std::string_view s);

/// `s` in code page 950. What the page lacks becomes "?": a unit, or a surrogate pair as a whole (one "?").
/// A lone U+DC80 to U+DCFF becomes the byte 80 to FF; the other lone surrogates "?".
QXTOOLS_API std::string WideToBytes(std::u16string_view s);

/// `s` as UTF-8. A byte that begins no character has no UTF-8 form and becomes U+FFFD (EF BF BD).
QXTOOLS_API std::string BytesToUtf8(std::string_view s);

/// `utf8` in code page 950. What the page lacks becomes "?", a byte-order mark too. Invalid UTF-8 (surrogates
/// and overlong forms too) becomes one "?" for each longest piece that could have begun a character.
QXTOOLS_API std::string Utf8ToBytes(std::string_view utf8);

/// Returns the position, counted from 0, of the first byte of `s` that begins no character, or npos if `s`
/// holds only whole characters. Linear; allocates nothing.
QXTOOLS_API std::size_t FindStrayByte(std::string_view s);

}  // namespace qxTools
