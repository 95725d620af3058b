/// @file
/// The name of a record of a packet or a value list: a text of limited length that a caller may change at any
/// time, and that the list of the record can still find it by.
#pragma once

#include <qxTools/base/ShortString.h>
#include <qxTools/base/Types.h>

namespace qxTools {

/// Reports to all lists that the name of a record has changed. RecordName calls it.
QXTOOLS_API void NoteNameChange();

/// A byte with the length, then up to N bytes of text. A longer name is cut.
template <std::size_t N>
class RecordName {
 public:
  /// Makes an empty name.
  RecordName() = default;
  /// Makes a name of the first N bytes of `name`.
  explicit RecordName(std::string_view name) : text_(name) {}
  /// Copies a name.
  RecordName(const RecordName&) = default;

  /// Copies a name and reports the change to the lists.
  RecordName& operator=(const RecordName& other) { return *this = other.View(); }
  /// Takes the first N bytes of `name` and reports the change to the lists.
  RecordName& operator=(std::string_view name) {
    text_ = ShortString<N>(name);
    NoteNameChange();
    return *this;
  }

  /// Returns the bytes of the name. The view is valid until the name changes.
  std::string_view View() const { return text_.View(); }
  /// Returns the bytes of the name. The view is valid until the name changes.
  operator std::string_view() const { return View(); }
  /// Compares the bytes of two names.
  friend bool operator==(const RecordName& a, const RecordName& b) { return a.View() == b.View(); }
  /// Compares the bytes of a name with a text.
  friend bool operator==(const RecordName& a, std::string_view b) { return a.View() == b; }
  /// Writes the bytes of the name.
  friend std::ostream& operator<<(std::ostream& out, const RecordName& name) { return out << name.View(); }

 private:
  ShortString<N> text_;
};

}  // namespace qxTools
