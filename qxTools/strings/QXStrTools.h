/// @file
/// The string functions that the other units are built on.
///
/// Text is a byte string (BIG5 where Chinese) and positions count bytes from 1. Ignoring case concerns the
/// ASCII letters only, whole or half of a character; no locale is asked. Blank means the space character and
/// nothing else. A failed search answers 0 or less, so callers test `> 0`; no search raises. Searches take
/// the searched piece first and then the text; replacements take the text first. Searches and replacements
/// are linear in the text, however often the piece or a part of it occurs.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qxTools::QXStrTools {

/// Texts to look among.
using TArrayString = std::vector<std::string>;

// --- Trimming and blanks -----------------------------------------------------

/// Which ends are trimmed.
enum TTrimStyle { tsNotTrim, tsTrimAll, tsTrimLeft, tsTrimRight };

/// The code that Trim takes, by TTrimStyle.
inline constexpr Integer TrimOrign[] = {-1, 0, 1, 2};

/// `s` without the spaces at both ends; code 1 cuts only on the left, 2 only on the right, -1 not at all.
/// On purpose: every other code cuts at both ends, and tabs and line breaks stay.
QXTOOLS_API std::string Trim(std::string_view s, Integer code);

/// Whether `s` is empty or all spaces.
QXTOOLS_API bool Empty(std::string_view s);

/// What follows the first "=", trimmed at both ends; "" without one.
QXTOOLS_API std::string GetRightStr(std::string_view s);

// --- Pieces ------------------------------------------------------------------

/// `count` bytes of `s` from position `start`, at most as many as `s` has.
/// On purpose: positions outside `s` give NUL; substr("abc", 3, 9) is "c" and two NULs.
QXTOOLS_API std::string substr(std::string_view s, Integer start, Integer count);

/// `list` + `sep` + `item`, or `item` alone when `list` is empty. An empty item still adds the separator.
QXTOOLS_API std::string CommaAdd(std::string_view list, std::string_view item, std::string_view sep);

/// `n` spaces; "" for 0 or less.
QXTOOLS_API std::string Space(Integer n);

/// `s` written `n` times; "" for 0 or less.
QXTOOLS_API std::string Replicate(std::string_view s, Integer n);

/// `a` when `c` is true, else `b`.
QXTOOLS_API std::string IIF(bool c, std::string_view a, std::string_view b);
QXTOOLS_API Integer IIF(bool c, Integer a, Integer b);
QXTOOLS_API double IIF(bool c, double a, double b);

// --- Searching ---------------------------------------------------------------

/// Whether `b` begins with `a`.
QXTOOLS_API bool Atc(std::string_view a, std::string_view b);

/// Position of the n-th occurrence of `sub` in `s`; overlapping ones count: At("aa", "aaaa", 2) is 2. Without
/// it the result is 0, or -1 when the first byte of `sub` stands too near the end of `s` for the rest to fit,
/// as in At("cd", "abc", 1). An `n` of 0 and an empty `sub` give 0; a negative `n` is never reached.
QXTOOLS_API Integer At(std::string_view sub, std::string_view s, Integer n);

/// How often `sub` occurs in `s`; overlapping occurrences count. 0 for an empty `sub`.
QXTOOLS_API Integer Occurs(std::string_view sub, std::string_view s);

/// Whether `s` equals an element of `list`.
QXTOOLS_API bool InList(std::string_view s, const TArrayString& list, bool caseSensitive);

// --- Fields between separators -----------------------------------------------
// With an empty separator, and where the separator does not occur, the result is `s`.

/// Field `n` of `s`, from 1. Past the last field it is the last one; for 0 or less, and between separators
/// that overlap, it is "". Each call reads `s` from its start: to take all the fields, split once instead.
QXTOOLS_API std::string GetAt(std::string_view sep, std::string_view s, Integer n);

/// What stands before the n-th occurrence of `sep`; `s` when there is none.
QXTOOLS_API std::string GetAtLeft(std::string_view sep, std::string_view s, Integer n);

/// What stands behind the n-th occurrence of `sep`; `s` when there is none.
QXTOOLS_API std::string GetAtRight(std::string_view sep, std::string_view s, Integer n);

// --- Replacing ---------------------------------------------------------------
// An empty `old` changes nothing.

/// `s` with the first occurrence of `old` replaced.
QXTOOLS_API std::string ReplaceStr(std::string_view s, std::string_view old, std::string_view replacement,
                                   bool ignoreCase);

/// `s` after as many replacements of the then first `old` as there are occurrences in `s`, overlapping ones
/// counted.
/// On purpose: each replacement sees what the earlier ones put in, unchanged in case, so a replacement that
/// holds `old` is itself replaced again: ReplaceAllStr("xAx", "x", "xx", false) is "xxxAx".
/// Time grows with the text and the result. Where replacements become part of further occurrences, each of
/// those costs the lengths of `old` and `replacement` as well; that shows only for a long `old` that repeats
/// itself, such as a thousand times "a".
QXTOOLS_API std::string ReplaceAllStr(std::string_view s, std::string_view old, std::string_view replacement,
                                      bool ignoreCase);

// --- Numbers -----------------------------------------------------------------

/// Decimal digits of `value` with zeros in front up to `width`.
/// On purpose: a negative value has no digits, so the result is all zeros: StrEx(-7, 3) is "000".
QXTOOLS_API std::string StrEx(Integer value, Integer width);

/// The number that `s` begins with, up to the first byte that is no "+", "-" or digit; 0 without digits.
/// On purpose: a "-" counts wherever the value is still 0 and is passed over elsewhere ("--5" and "0-5" are
/// -5, "12-3" is 123), and the value wraps at 32 bits without a sign of it.
QXTOOLS_API Integer IntEx(std::string_view s);

/// Value of a hexadecimal digit; 0 for any other byte.
QXTOOLS_API Integer HexToInt(char c);

/// The number made of the hexadecimal digits of `s`; all other bytes are passed over. Wraps at 32 bits.
QXTOOLS_API Integer HexsToInt(std::string_view s);

/// The remainder of a / b, with the sign of `a`, but `b` in place of 0: it maps a counter to the cycle 1 to
/// b.
/// @throws EDivByZero when `b` is 0.
QXTOOLS_API Integer ModEx(Integer a, Integer b);

// --- Copies between strings and zero-terminated buffers -------------------------
// A null buffer is an empty text.

/// Puts a copy of `src`, up to its first NUL, into a new buffer, which the caller gives to StrDispose; what
/// `dest` pointed to is left alone.
/// @return the number of bytes before the NUL at the end.
QXTOOLS_API Integer PCopyEx(char*& dest, const char* src);

/// The same with all of `src`, NULs in it included.
QXTOOLS_API Integer PCopyEx(char*& dest, std::string_view src);

/// The bytes of `p` up to its first NUL.
QXTOOLS_API std::string SCopy(const char* p);

/// Sets `dest` to the bytes of `src` up to its first NUL.
QXTOOLS_API void SCopyEx(std::string& dest, const char* src);

/// Sets `dest` to `src`.
/// On purpose: where `src` holds NUL the byte of the old `dest` at that position stays (NUL behind its end).
QXTOOLS_API void SCopyEx(std::string& dest, std::string_view src);

// --- Key names and formatting ------------------------------------------------

/// Display name of a Windows virtual-key code; "" for a key without one.
/// On purpose: 19 (Pause) is "NumLock", as 144 is.
QXTOOLS_API std::string KeyToStr(std::uint16_t key);

/// `code` with the number at its end advanced by `step`, in at least as many digits: "A0099" gives "A0100".
/// On purpose: a negative result leaves only zeros ("A0005" and -10 give "A0000"), and the number wraps at 32
/// bits, so that a run of ten digits or more may come out as another number altogether.
QXTOOLS_API std::string SerialNO(std::string_view code, Integer step);

/// `fmt` with each "#S" or "#s" replaced by `value`, unless another "#" stands in front of it in `fmt`.
QXTOOLS_API std::string FormatEx(std::string_view fmt, std::string_view value);

// --- Encoder -----------------------------------------------------------------

/// The first 20 bytes of `s` as 128 decimal digits, other ones at every call: they mix in numbers drawn from
/// the shared generator. It scrambles; it does not protect.
QXTOOLS_API std::string EDS(std::string_view s);

/// The text that EDS was given. Altered digits give other text and no error.
/// @throws Exception "EnCode Length <> 128" for a code of another length.
/// @throws EDivByZero when one of the last five bytes is "0" or no digit.
QXTOOLS_API std::string DDS(std::string_view code);

}  // namespace qxTools::QXStrTools
