/// @file
/// A small table of text: records with named fields in a list of lines, with a cursor, and a file for them.
///
///     TQXStringTable people("people.tbl");
///     people.AddField("Name");
///     people.AddField("Phone");
///     people.AddRecord({"Lee", "555-0100"});
///     people.Top();
///     people.GetField("phone");  // 555-0100
///     people.UpdateTable();
///
/// Line 0 names the fields, each further line is a record. A field is its text between "[#" and "#]":
/// `[#Name#][#Phone#]`. A text must not hold one of these, begin with "]" or end with "[", which would make
/// one with the mark beside it; nothing checks that. Field names ignore the case of ASCII letters, and of
/// equal names the first one counts. docs/table-format.md describes the file.
///
/// Not thread-safe. If memory runs out, std::bad_alloc is thrown and the table is unchanged.
#pragma once

#include <qxTools/runtime/StringList.h>

#include <memory>

namespace qxTools::QXStringTable {

// --- Lines -------------------------------------------------------------------
// Field i (1-based) is the text between the i-th "[#" and the i-th "#]". The number of fields is the smaller
// of the two counts.

/// Returns "[#", `s` without the spaces at both ends, and "#]".
QXTOOLS_API std::string GenField(std::string_view s);

/// Returns the number of the first field of `rec` whose text is `field`, letter case ignored; 0 if there is
/// none.
QXTOOLS_API Integer FieldIndex(std::string_view rec, std::string_view field);

/// Sets `pos` to the 1-based position of the text of the first field of `rec` whose text is `field`, letter
/// case ignored. On purpose: sets `len` to one less than its length. Sets both to 0 if `rec` is empty; leaves
/// them unchanged if there is no such field.
QXTOOLS_API void AtField(std::string_view rec, std::string_view field, Integer& pos, Integer& len);

/// Returns `rec` with `newText`, as it is, instead of the text of field `index`.
/// On purpose: if `rec` has no "[#" of that number, its first character stays in front, and if it has no
/// "#]", all of it follows: ReplaceField("abc", 0, "X") is "aXabc".
QXTOOLS_API std::string ReplaceField(std::string_view rec, Integer index, std::string_view newText);

// --- The table ---------------------------------------------------------------

/// The table, a list of its lines. The list's own functions can be used too; the cursor does not follow them.
class QXTOOLS_API TQXStringTable : public TStrings {
 public:
  /// Loads the file and moves the cursor to its first record. A file that does not exist is made, empty. With
  /// "" or
  /// "#TEMP", in any case, the table is in memory only.
  /// @throws EFOpenError, EReadError or EFCreateError.
  explicit TQXStringTable(const std::string& fileName);
  TQXStringTable(const TQXStringTable&) = delete;
  TQXStringTable& operator=(const TQXStringTable&) = delete;
  /// Saves nothing.
  ~TQXStringTable() override;

  /// Saves to the file, whole or not at all. Does nothing for a table in memory.
  /// @throws EFCreateError or EWriteError; the old file is unchanged then.
  void UpdateTable() const;
  /// Loads the file again, if it exists. The cursor does not move, even if it is then after the last record.
  /// @throws EFOpenError or EReadError; the table is unchanged then.
  void RevertTable();

  // --- Fields. Records are unchanged when the header changes -------------------

  /// Appends a field to the header, unless there is one of that name.
  void AddField(std::string_view name);
  /// Removes a field from the header. On purpose: one whose name has a single character is not removed.
  void RemoveField(std::string_view name);
  /// Returns the number of fields in the header; 0 for a table without a line.
  Integer GetFieldCount() const;

  // --- Records. The cursor does not move ---------------------------------------

  /// Appends a record with a field for each of the header's: values are trimmed, missing ones are empty, and
  /// further ones are ignored. Does nothing if there is no header.
  void AddRecord(const std::vector<std::string>& values);
  /// Appends a record of empty fields. Does nothing if there is no header.
  void NewEmptyRecord();
  /// Deletes a line. On purpose: 0 is the header's.
  /// @throws EListError "List index out of bounds (N)".
  void RemoveRecord(Integer index) { Delete(index); }
  /// Returns the number of records, which is that of the lines after the header.
  Integer GetReccount() const;
  /// Returns true if there is no line at all.
  bool GetEmpty() const { return GetCount() == 0; }

  // --- The cursor --------------------------------------------------------------

  /// Returns the number of the current record, counted from 1; 0 if there is none.
  Integer GetRecNo() const;
  /// Moves the cursor to the first record.
  void Top();
  /// Moves the cursor to the last record.
  void Bottom();
  /// Moves the cursor to the record before; at the first one it does not move.
  void Previous();
  /// Moves the cursor to the next record; at the last one it does not move.
  void Next();

  // --- The current record. With the cursor at 0 it is the header ---------------

  /// Returns the text of the first field of that name, or "" if the header has none. Reading all fields of a
  /// record is linear in its line.
  /// @throws EListError "List index out of bounds (N)" if the cursor is after the last record.
  std::string GetField(std::string_view name) const;
  /// Replaces the text of the first field of that name. On purpose: for an unknown name the record becomes
  /// what ReplaceField returns for field 0.
  /// @throws EListError "List index out of bounds (N)" if the cursor is after the last record.
  void SetField(std::string_view name, std::string_view value);

 private:
  struct State;

  std::unique_ptr<State> state_;
};

}  // namespace qxTools::QXStringTable
