/// @file
/// 16-character record keys that are unique across machines and over time without a central counter.
///
/// A key mixes the address of the network adapter, the time in steps of a ten-thousand-millionth of a day
/// (8.64 microseconds), and twenty random numbers of the shared generator, which is never seeded here. With a
/// clock and a generator plugged in (qxTools/platform/Clock.h, Random.h) keys are repeatable. Not
/// thread-safe.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

#include <array>

namespace qxTools::QXUniKey {

/// The machine key that UKI has read; empty before its first call and again after the last package stop. A
/// host may set it; with fewer than 12 characters UniKey() returns "".
extern QXTOOLS_API AnsiString FUKI;

// --- Machine key -------------------------------------------------------------

/// Reads the network adapter's address and returns it as 12 lower-case hexadecimal digits. Returns
/// "FFFFFFFFFFFF" if there is no adapter and "EEEEEEEEEEEE" if the system cannot be asked. Never throws for
/// these.
QXTOOLS_API AnsiString UniKeyInit();

/// Returns the machine key, which is read at the first call and kept in FUKI.
QXTOOLS_API AnsiString UKI();

// --- Keys --------------------------------------------------------------------

/// Returns a new key made from the first 12 characters of `seed`; a character that is not a hexadecimal digit
/// counts as 0. A key has 16 of the characters 0-9, A-Z and a-x. Returns "" if the seed is shorter.
QXTOOLS_API AnsiString UniKey(std::string_view seed);

/// Returns a new key made from the machine key.
QXTOOLS_API AnsiString UniKey();

/// Returns each byte of `text` as two upper-case hexadecimal digits.
QXTOOLS_API AnsiString UniKey16To32(std::string_view text);

/// Returns each pair of hexadecimal digits as one byte. A character that is not a digit is skipped within its
/// pair: "G7" is the byte 7. A last character without a partner is ignored.
QXTOOLS_API AnsiString UniKey32To16(std::string_view text);

// --- For the library itself --------------------------------------------------

/// Sets `key` as UniKey() would return it, without a string. Returns false and sets nothing if FUKI was set
/// to fewer than 12 characters.
bool UniKeyBytes(std::array<char, 16>& key);

/// Gives the globals their first values at a package start.
void FillGlobals();
/// Frees what the globals hold at the last package stop.
void ReleaseGlobals();

}  // namespace qxTools::QXUniKey
