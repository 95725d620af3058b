/// @file
/// What the records of packets and value lists are made of: a name of limited length that its list can still
/// find by after a caller has changed it, and storage in zero-filled blocks.
#pragma once

#include <qxTools/base/ShortString.h>
#include <qxTools/base/Types.h>

namespace qxTools {

/// Tells the lists that the name of some record was changed.
QXTOOLS_API void NoteNameChange();

/// A byte with the length, then up to N bytes; a longer name is cut. Callers who hold a record may assign its
/// name at any time.
template <std::size_t N>
class RecordName {
 public:
  RecordName() = default;
  /// The name, cut.
  explicit RecordName(std::string_view name) : text_(name) {}
  RecordName(const RecordName&) = default;

  /// Assigns a name, cut, and tells the lists.
  RecordName& operator=(const RecordName& other) { return *this = other.View(); }
  RecordName& operator=(std::string_view name) {
    text_ = ShortString<N>(name);
    NoteNameChange();
    return *this;
  }

  /// The bytes of the name.
  std::string_view View() const { return text_.View(); }
  /// The same.
  operator std::string_view() const { return View(); }
  friend bool operator==(const RecordName& a, const RecordName& b) { return a.View() == b.View(); }
  friend bool operator==(const RecordName& a, std::string_view b) { return a.View() == b; }
  friend std::ostream& operator<<(std::ostream& out, const RecordName& name) { return out << name.View(); }

 private:
  ShortString<N> text_;
};

/// The base of records that lie in zero-filled blocks of QXMemTools when they are made with `new`.
struct QXTOOLS_API BlockRecord {
  /// @throws std::bad_alloc
  static void* operator new(std::size_t size);
  static void operator delete(void* block);
};

}  // namespace qxTools
