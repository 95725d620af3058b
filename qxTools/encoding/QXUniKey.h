/// @file
/// 16-character record keys that are unique across machines and over time without a central counter.
///
/// A key mixes the address of the network adapter, the moment in steps of a ten-thousand-millionth of a day
/// (8.64 microseconds), and twenty draws from the shared random generator, which is never seeded here. With
/// clock and generator plugged in (qxTools/platform/Clock.h, Random.h) keys are repeatable. For one thread
/// at a time.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

#include <array>

namespace qxTools::QXUniKey {

/// The machine key that UKI has read, empty before its first call and again after the last package stop.
extern QXTOOLS_API AnsiString FUKI;

// --- Machine key -------------------------------------------------------------

/// Reads the adapter's address anew: 12 lower-case hexadecimal digits. Without an adapter it is
/// "FFFFFFFFFFFF", and "EEEEEEEEEEEE" when the system cannot be asked; never an error.
QXTOOLS_API AnsiString UniKeyInit();

/// The machine key, read at the first call and kept.
QXTOOLS_API AnsiString UKI();

// --- Keys --------------------------------------------------------------------

/// A key from the first 12 characters of `seed`; those that are no hexadecimal digits count as 0. Key
/// characters are 0-9, A-Z and a-x. A shorter seed gives "".
QXTOOLS_API AnsiString UniKey(std::string_view seed);

/// A key from the machine key.
QXTOOLS_API AnsiString UniKey();

/// Each byte as two upper-case hexadecimal digits.
QXTOOLS_API AnsiString UniKey16To32(std::string_view text);

/// Each pair of hexadecimal digits as one byte. A character that is no digit is skipped within its pair; a
/// last odd one is left out.
QXTOOLS_API AnsiString UniKey32To16(std::string_view text);

// --- For the library itself --------------------------------------------------

/// UniKey() without a string. @return false, and no key, when FUKI was set to fewer than 12 characters.
bool UniKeyBytes(std::array<char, 16>& key);

// For the package frame: the globals' first values, and giving back what they hold.
void FillGlobals();
void ReleaseGlobals();

}  // namespace qxTools::QXUniKey
