/// @file
/// The string functions that the other units are built on: trimming, searching, fields between separators,
/// replacing, numbers in text.
///
/// Text is a byte string (BIG5 where it is Chinese) and positions count bytes from 1. Case-insensitive
/// functions fold the ASCII letters only, byte by byte; a byte that is half of a double-byte character is
/// folded too. No locale is used. Blank means the space character and nothing else.
///
/// A search that finds nothing returns 0 or -1, so test the result with `> 0`. Searches never throw. Searches
/// take the searched text first and then the text to search in; replacements take the text first. Searches
/// and replacements are linear in the text, however often the searched text or a part of it occurs.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qxTools::QXStrTools {

/// The list of texts that InList searches.
using TArrayString = std::vector<std::string>;

// --- Trimming and blanks -----------------------------------------------------

/// Which ends of a text are trimmed: an index into TrimOrign.
enum TTrimStyle { tsNotTrim, tsTrimAll, tsTrimLeft, tsTrimRight };

/// The code that Trim takes for each TTrimStyle: TrimOrign[tsTrimLeft] is 1.
inline constexpr Integer TrimOrign[] = {-1, 0, 1, 2};

/// Returns `s` without the spaces at its ends: both ends for code 0, only the left for 1, only the right for
/// 2, neither for -1. Trim("  a ", 1) is "a ". On purpose: every other code trims both ends, and tabs and
/// line breaks are not trimmed.
QXTOOLS_API std::string Trim(std::string_view s, Integer code);

/// Returns true if `s` is empty or holds only spaces.
QXTOOLS_API bool Empty(std::string_view s);

/// Returns the text after the first "=", trimmed at both ends; "" if there is no "=". GetRightStr("Port =
/// 25") is "25".
QXTOOLS_API std::string GetRightStr(std::string_view s);

// --- Pieces ------------------------------------------------------------------

/// Returns `count` bytes of `s` from position `start` (1-based), but not more bytes than `s` has in all; ""
/// if `count` <= 0. substr("abcde", 2, 3) is "bcd". On purpose: positions outside `s` give NUL bytes.
/// substr("abc", 3, 9) is "c" and two NULs.
QXTOOLS_API std::string substr(std::string_view s, Integer start, Integer count);

/// Returns `list` + `sep` + `item`, or only `item` if `list` is empty. CommaAdd("a,b", "c", ",") is "a,b,c".
/// An empty item still adds the separator.
QXTOOLS_API std::string CommaAdd(std::string_view list, std::string_view item, std::string_view sep);

/// Returns `n` spaces; "" if `n` <= 0.
QXTOOLS_API std::string Space(Integer n);

/// Returns `s` repeated `n` times; "" if `n` <= 0. Replicate("ab", 3) is "ababab".
QXTOOLS_API std::string Replicate(std::string_view s, Integer n);

/// Returns the text `a` if `c` is true, otherwise the text `b`.
QXTOOLS_API std::string IIF(bool c, std::string_view a, std::string_view b);

/// Returns the integer `a` if `c` is true, otherwise the integer `b`.
QXTOOLS_API Integer IIF(bool c, Integer a, Integer b);

/// Returns the real number `a` if `c` is true, otherwise the real number `b`.
QXTOOLS_API double IIF(bool c, double a, double b);

// --- Searching ---------------------------------------------------------------

/// Returns true if `b` begins with `a`; an empty `a` begins every text. Case matters.
QXTOOLS_API bool Atc(std::string_view a, std::string_view b);

/// Returns the position of the n-th occurrence of `sub` in `s`; overlapping occurrences count:
/// At("aa", "aaaa", 2) is 2. Returns 0 if there is none; returns -1 if the first byte of `sub` occurs so near
/// the end of `s` that the rest cannot follow: At("cd", "abc", 1). Returns 0 if `n` is 0 or `sub` is empty; a
/// negative `n` finds nothing. Case matters.
QXTOOLS_API Integer At(std::string_view sub, std::string_view s, Integer n);

/// Returns how often `sub` occurs in `s`; overlapping occurrences count: Occurs("aa", "aaaa") is 3. Returns 0
/// if `sub` is empty. Case matters.
QXTOOLS_API Integer Occurs(std::string_view sub, std::string_view s);

/// Returns true if `s` equals an element of `list`. If `caseSensitive` is false, ASCII letters are compared
/// without regard to case.
QXTOOLS_API bool InList(std::string_view s, const TArrayString& list, bool caseSensitive);

// --- Fields between separators -----------------------------------------------

/// Returns field `n` (1-based): GetAt(",", "a,b,c", 2) is "b". If `n` is past the last field, returns the
/// last field: GetAt(",", "a,b,c", 9) is "c". Returns "" if `n` <= 0, and between separators that overlap.
/// Returns `s` if `sep` is empty or does not occur, whatever `n` is. Reads `s` from the start each time: to
/// read all fields, split once.
QXTOOLS_API std::string GetAt(std::string_view sep, std::string_view s, Integer n);

/// Returns the text before the n-th occurrence of `sep`: GetAtLeft(",", "a,b,c", 2) is "a,b". Returns `s` if
/// there is no n-th occurrence or `sep` is empty.
QXTOOLS_API std::string GetAtLeft(std::string_view sep, std::string_view s, Integer n);

/// Returns the text after the n-th occurrence of `sep`: GetAtRight(",", "a,b,c", 1) is "b,c". Returns `s` if
/// there is no n-th occurrence or `sep` is empty.
QXTOOLS_API std::string GetAtRight(std::string_view sep, std::string_view s, Integer n);

// --- Replacing ---------------------------------------------------------------

/// Returns `s` with the first occurrence of `old` replaced; `s` itself if `old` is empty or does not occur.
/// If `ignoreCase` is true, ASCII letters are searched without regard to case.
QXTOOLS_API std::string ReplaceStr(std::string_view s, std::string_view old, std::string_view replacement,
                                   bool ignoreCase);

/// Counts the occurrences of `old` in `s` (overlapping ones included) and then replaces the first remaining
/// occurrence that many times: ReplaceAllStr("a-b-c", "-", "+", false) is "a+b+c". Returns `s` if `old` is
/// empty. If `ignoreCase` is true, ASCII letters of `s` are searched without regard to case. On purpose: each
/// replacement sees the text that earlier ones put in, and that text is never folded. So a replacement that
/// contains `old` is replaced again: ReplaceAllStr("xAx", "x", "xx", false) is "xxxAx". Linear in the text
/// and the result. If a replacement creates a new occurrence, that occurrence costs another |old| +
/// |replacement|.
QXTOOLS_API std::string ReplaceAllStr(std::string_view s, std::string_view old, std::string_view replacement,
                                      bool ignoreCase);

// --- Numbers -----------------------------------------------------------------

/// Returns the decimal digits of `value`, filled up with zeros on the left to `width`: StrEx(7, 3) is "007".
/// A longer number is not cut. On purpose: a negative value has no digits, so the result is all zeros.
/// StrEx(-7, 3) is "000".
QXTOOLS_API std::string StrEx(Integer value, Integer width);

/// Returns the number at the beginning of `s`, read up to the first byte that is not "+", "-" or a digit; 0
/// if there are no digits. IntEx("12 pieces") is 12. Never throws. On purpose: a "-" makes the number
/// negative if the value is still 0, and is ignored elsewhere ("--5" and "0-5" are -5, "12-3" is 123), and
/// the value wraps at 32 bits silently.
QXTOOLS_API Integer IntEx(std::string_view s);

/// Returns the value of a hexadecimal digit, 0 to 15, in either case; 0 for any other byte.
QXTOOLS_API Integer HexToInt(char c);

/// Returns the number made of the hexadecimal digits of `s`; all other bytes are ignored: HexsToInt("0x1F")
/// is 31. The value wraps at 32 bits silently.
QXTOOLS_API Integer HexsToInt(std::string_view s);

/// Returns the remainder of a / b, with the sign of `a`, but `b` instead of 0. It maps a counter to the cycle
/// 1 to b: ModEx(12, 12) is 12, ModEx(13, 12) is 1.
/// @throws EDivByZero if `b` is 0.
QXTOOLS_API Integer ModEx(Integer a, Integer b);

// --- Copies between strings and zero-terminated buffers -------------------------

/// Sets `dest` to a new zero-terminated copy of `src`, read up to its first NUL; a null `src` is an empty
/// text. Free the copy with StrDispose. The buffer that `dest` pointed to before is not freed.
/// @return the number of bytes before the NUL at the end.
QXTOOLS_API Integer PCopyEx(char*& dest, const char* src);

/// Sets `dest` to a new zero-terminated copy of all of `src`, NUL bytes in it included. Free the copy with
/// StrDispose. The buffer that `dest` pointed to before is not freed.
/// @return the number of bytes before the NUL at the end.
QXTOOLS_API Integer PCopyEx(char*& dest, std::string_view src);

/// Returns the bytes of `p` up to its first NUL; "" if `p` is null.
QXTOOLS_API std::string SCopy(const char* p);

/// Sets `dest` to the bytes of `src` up to its first NUL; to "" if `src` is null.
QXTOOLS_API void SCopyEx(std::string& dest, const char* src);

/// Sets `dest` to `src`.
/// On purpose: where `src` holds a NUL, the byte of the old `dest` at that position is kept; past the end of
/// the old `dest` it is NUL.
QXTOOLS_API void SCopyEx(std::string& dest, std::string_view src);

// --- Key names and formatting ------------------------------------------------

/// Returns the display name of a Windows virtual-key code; "" for a key without a name. KeyToStr(112) is
/// "F1". On purpose: 19 (Pause) is "NumLock", and so is 144.
QXTOOLS_API std::string KeyToStr(std::uint16_t key);

/// Returns `code` with the number at its end increased by `step`, in at least as many digits:
/// SerialNO("A0099", 1) is "A0100". On purpose: a negative result leaves only zeros (SerialNO("A0005", -10)
/// is "A0000"), and the number wraps at 32 bits silently, so that ten digits or more can become an unrelated
/// number.
QXTOOLS_API std::string SerialNO(std::string_view code, Integer step);

/// Returns `fmt` with each "#S" or "#s" replaced by `value`, unless another "#" precedes it in `fmt`:
/// FormatEx("No. #S", "7") is "No. 7".
QXTOOLS_API std::string FormatEx(std::string_view fmt, std::string_view value);

// --- Encoder -----------------------------------------------------------------

/// Encodes the first 20 bytes of `s` as 128 decimal digits. Each call gives different digits, because random
/// numbers are mixed in. This is scrambling, not encryption: DDS needs no key.
QXTOOLS_API std::string EDS(std::string_view s);

/// Returns the text that EDS encoded. Altered digits give another text and no error.
/// @throws Exception "EnCode Length <> 128" if the code has another length.
/// @throws EDivByZero if one of the last five bytes is "0" or not a digit.
QXTOOLS_API std::string DDS(std::string_view code);

}  // namespace qxTools::QXStrTools
