/// @file
/// The names that every unit uses for text, numbers, time and events.
#pragma once

#include <qxTools/Export.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace qxTools {

using AnsiString = std::string;     ///< Bytes; BIG5 (code page 950) where Chinese.
using WideString = std::u16string;  ///< UTF-16 units.
using Integer = std::int32_t;       ///< The 32-bit integer of the interfaces.
using TDateTime = double;           ///< Days since 30 December 1899; the fraction is the time of day.
using TColor = std::uint32_t;       ///< Red in the low byte, then green, then blue.
#if defined(_WIN32)
using HRESULT = long;  ///< 32 bits, the system's own type: 0 is success, negative is failure.
#else
using HRESULT = std::int32_t;  ///< 0 is success, negative is failure.
#endif

/// The root of classes whose objects are passed as "some object", for example as the sender of an event.
class QXTOOLS_API TObject {
 public:
  /// Makes an object.
  TObject() = default;
  TObject(const TObject&) = default;
  TObject& operator=(const TObject&) = default;
  virtual ~TObject();
};

/// A function that is called after an object has changed. Its argument is the object that changed.
using TNotifyEvent = std::function<void(TObject* sender)>;

}  // namespace qxTools
