/// @file
/// A list of lines with a change event. Command texts, declaration lists and tables are kept in such lists.
///
/// Files are read and written as bytes: nothing is converted and no byte-order mark is added or removed. A
/// NUL in a line is an ordinary byte.
#pragma once

#include <qxTools/base/Types.h>

#include <forward_list>
#include <initializer_list>
#include <memory>
#include <vector>

namespace qxTools {

/// An ordered list of lines.
///
/// Every change fires the change event once, after the change. Between BeginUpdate and EndUpdate the event is
/// held back; the outermost EndUpdate fires it once, whether anything changed or not. What the handler throws
/// reaches the caller; the change has been made then. If memory runs out during a change, std::bad_alloc is
/// thrown and the list is unchanged. Copies of a list share the bytes of its lines.
class QXTOOLS_API TStrings : public TObject {
 public:
  /// Makes an empty list without a change event.
  TStrings() = default;
  /// Makes a list of these lines.
  TStrings(std::initializer_list<std::string> lines);
  /// Copies the lines. The change event is not copied.
  TStrings(const TStrings& other);
  /// Replaces the lines with those of `other`, as Assign does. The change event of this list is kept and
  /// fired.
  TStrings& operator=(const TStrings& other);
  ~TStrings() override;

  // --- Whole text ------------------------------------------------------------------------------------
  /// Returns the lines, each followed by CR LF. Returns "" if there are none.
  std::string GetText() const;
  /// Replaces the lines with those of `text`, which is split at CR LF, LF or CR. A line break at the very end
  /// adds no empty line.
  void SetText(std::string_view text);
  /// Replaces the lines with those of `source`. The change event of this list is kept and fired.
  void Assign(const TStrings& source);
  /// Replaces the lines with those of a file, split as SetText does.
  /// @throws EFOpenError if the file cannot be opened, EReadError if it cannot be read; the list is unchanged
  /// then.
  void LoadFromFile(const std::string& fileName);
  /// Writes GetText() to a file. The file is replaced only when all of it has been written.
  /// @throws EFCreateError if the file cannot be created, EWriteError if it cannot be written.
  void SaveToFile(const std::string& fileName) const;

  // --- Lines, counted from 0 -------------------------------------------------------------------------
  /// Returns the number of lines.
  Integer GetCount() const { return static_cast<Integer>(lines_.size()); }
  /// Returns a copy of the line at `index`.
  /// @throws EListError "List index out of bounds (N)".
  std::string GetStrings(Integer index) const { return std::string(GetView(index)); }
  /// Returns the line at `index` without copying it. The view is valid until the next change of the list.
  /// @throws EListError "List index out of bounds (N)".
  std::string_view GetView(Integer index) const { return lines_[Checked(index)]; }
  /// Replaces the line at `index`. Line breaks in `line` are kept in it.
  /// @throws EListError "List index out of bounds (N)".
  void SetStrings(Integer index, std::string_view line);
  /// Appends a copy of `line` and returns its index. Line breaks in `line` are kept in it.
  Integer Add(std::string_view line);
  /// Appends a line and returns its index; a long one is not copied. Line breaks in `line` are kept in it.
  Integer Add(std::string&& line);
  /// Appends a copy of a zero-terminated line and returns its index. Line breaks in it are kept.
  Integer Add(const char* line) { return Add(std::string_view(line)); }
  /// Inserts a line before the line at `index`, or at the end if `index` is the number of lines.
  /// @throws EListError "List index out of bounds (N)" for any other index.
  void Insert(Integer index, std::string_view line);
  /// Deletes the line at `index`.
  /// @throws EListError "List index out of bounds (N)".
  void Delete(Integer index);
  /// Deletes all lines. If there are none, the event is not fired.
  void Clear();

  // --- Change event ----------------------------------------------------------------------------------
  /// Sets the function that is called after each change, or none. The handler may set another one.
  void SetOnChange(TNotifyEvent event);
  /// Holds the event back until the matching EndUpdate; calls nest. StringsUpdate does both in a block.
  void BeginUpdate() { ++updates_; }
  /// Ends one BeginUpdate. The last one fires the event once. Without a BeginUpdate it only fires the event.
  void EndUpdate();

 protected:
  /// Returns a number that grows with every change, so that what was derived from the lines can be kept until
  /// the next one.
  std::uint64_t GetChanges() const { return changes_; }

 private:
  // Lists that are copies of each other share their texts, whose bytes never move or change.
  using Texts = std::forward_list<std::shared_ptr<std::string>>;

  std::size_t Checked(Integer index) const;
  void Changed();
  void SetWholeText(std::string&& text);
  std::string_view Keep(std::string_view line);
  Texts Gather();

  std::vector<std::string_view> lines_;
  Texts texts_;                // that hold the lines
  bool hasRoom_ = false;       // in the first text, which is this list's to append to
  std::size_t size_ = 0;       // of the texts
  std::size_t abandoned_ = 0;  // bytes of lines that were replaced or deleted
  std::shared_ptr<TNotifyEvent> onChange_;
  std::uint64_t changes_ = 0;
  int updates_ = 0;
};

/// An alias of TStrings, kept for ported code.
using TStringList = TStrings;

/// Holds back the change event of a list in a block, which ends with End():
///
///     StringsUpdate update(list);
///     list.Add("a");
///     update.End();
class QXTOOLS_API StringsUpdate {
 public:
  /// Calls `list.BeginUpdate()`. The list must outlive this object.
  explicit StringsUpdate(TStrings& list) : list_(&list) { list.BeginUpdate(); }
  StringsUpdate(const StringsUpdate&) = delete;
  StringsUpdate& operator=(const StringsUpdate&) = delete;
  /// If an exception left the block before End, calls EndUpdate; what the handler of the event throws then is
  /// dropped, so that the first exception is kept.
  ~StringsUpdate();

  /// Calls EndUpdate. What the handler of the event throws reaches the caller. To be called once.
  void End();

 private:
  TStrings* list_;
};

}  // namespace qxTools
