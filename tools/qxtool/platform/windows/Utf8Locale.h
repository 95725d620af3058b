// A locale for calls that ask one.
#pragma once

namespace qxtool {

/// Nothing: no call of this system asks a locale for what the tool gives it.
class Utf8Locale {
 public:
  Utf8Locale() {}
};

}  // namespace qxtool
