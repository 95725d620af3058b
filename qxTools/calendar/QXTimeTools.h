/// @file
/// Times of day as text of the form HH:MM, five characters, called TSTime.
///
/// Nearly every function takes MaxHour, the largest hour that the caller accepts and the modulus at which
/// hours wrap; usually 24. Digits out of range are normalised, never reported; a text of the wrong shape
/// raises. Hours and minutes are characters 1-2 and 4-5, read as IntEx reads them. Of several misshapen texts
/// the first that is read is named; they are read from left to right unless a function says otherwise.
///
/// Functions that take texts and MaxHour, CheckTimeFormat aside, raise Exception, "'TEXT' is invalid TSTime
/// format.", for a text without ":" or of another length than five. An empty one is no error: it stands for
/// BaseTime. A MaxHour of 0 raises EDivByZero when an hour is above it.
#pragma once

#include <qxTools/Export.h>
#include <qxTools/base/Types.h>

namespace qxTools::QXTimeTools {

/// What CheckTime gives for an empty text, at first "00:00". A host may change it; it is not checked.
extern QXTOOLS_API std::string BaseTime;

// --- Checking ----------------------------------------------------------------

/// Whether the text is two digits, ":" and two digits, with minutes below 60 and an hour up to MaxHour:
/// 24:59 is good for 24. Never raises.
QXTOOLS_API bool CheckTimeFormat(std::string_view text, Integer maxHour);

/// The text as a canonical TSTime; BaseTime for an empty one. An hour above MaxHour wraps; MaxHour itself
/// stays with minutes 0 and becomes 0 with others: 24:00 stays, 24:05 is 00:05. Negative numbers become 0.
/// On purpose: 60 minutes stay as they are, more carry one hour: 12:60 stays, 12:61 is 13:01. Where the ":"
/// stands is not checked.
QXTOOLS_API std::string CheckTime(std::string_view text, Integer maxHour);

// --- Minutes -----------------------------------------------------------------

/// The minutes since midnight of the checked text.
/// On purpose: they are read off the canonical text by position, so an hour that CheckTime made a three-digit
/// one counts wrongly: TimetoMin("99:75", 200) reads 100:15 as 10 hours.
QXTOOLS_API Integer TimetoMin(std::string_view text, Integer maxHour);

/// The time of so many minutes since midnight: with 24, 1440 is 24:00 and 1450 is 00:10.
/// On purpose: negative hours and minutes become 0, nothing is borrowed: -30 is 00:00.
QXTOOLS_API std::string MintoTime(Integer minutes, Integer maxHour);

/// Hour and minute as they stand in the text, which is checked for its shape only.
/// On purpose: the numbers are not normalised. Minute("10:75", 24) is 75; for an empty text both are 0.
QXTOOLS_API Integer Hour(std::string_view text, Integer maxHour);
QXTOOLS_API Integer Minute(std::string_view text, Integer maxHour);

// --- Arithmetic --------------------------------------------------------------
// Sums of minutes wrap at 32 bits.

/// The time so many minutes later.
QXTOOLS_API std::string AddTime(std::string_view text, Integer minutes, Integer maxHour);
QXTOOLS_API std::string AddTime(std::string_view text1, std::string_view text2, Integer maxHour);

/// The time so many minutes earlier; whole days of MaxHour hours are borrowed: 01:00 less 120 is 23:00.
/// With two texts the second is read first.
/// @throws EDivByZero when it must borrow and a day has 0 minutes.
QXTOOLS_API std::string SubTime(std::string_view text, Integer minutes, Integer maxHour);
QXTOOLS_API std::string SubTime(std::string_view text1, std::string_view text2, Integer maxHour);

// --- Comparing ---------------------------------------------------------------

/// The minutes from text2 to text1: negative, 0 or positive.
QXTOOLS_API Integer CompTime(std::string_view text1, std::string_view text2, Integer maxHour);

/// Whether the time lies between the bounds, both included, in whatever order they are. The bounds are read
/// first.
/// On purpose: no range goes past midnight; 22:00 and 02:00 are the bounds of the day between them.
QXTOOLS_API bool BetWeen(std::string_view text, std::string_view bound1, std::string_view bound2,
                         Integer maxHour);

// --- Other forms -------------------------------------------------------------

/// Hour and minute in Chinese (BIG5): 09時05分.
/// On purpose: nothing is checked; both are cut as substr cuts, with NUL past the end of the text.
QXTOOLS_API std::string ChinaTime(std::string_view text);

/// The time of day, rounded to the millisecond; seconds are dropped.
/// @throws EConvertError outside the years 1 to 9999.
QXTOOLS_API std::string TimeToTST(TDateTime time);

// For the package frame: the globals' first values, and giving back what they hold.
void FillGlobals();
void ReleaseGlobals();

}  // namespace qxTools::QXTimeTools
