/// @file
/// A small table of text: records with named fields in a list of lines, with a cursor, and a file behind it.
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
/// `[#Name#][#Phone#]`. Texts hold neither, nor do they begin with "]" or end with "[", which would make one
/// with the mark beside it; nothing checks that. Field names ignore the case of ASCII letters, and of equal
/// ones the first counts. The file's form is described in docs/table-format.md. For one thread at a time.
#pragma once

#include <qxTools/runtime/StringList.h>

#include <memory>

namespace qxTools::QXStringTable {

// --- Lines -------------------------------------------------------------------
// A line's field i, from 1, stands between its i-th "[#" and its i-th "#]". It has as many fields as it has
// of the rarer one.

/// "[#" + `s` without the spaces at both ends + "#]".
QXTOOLS_API std::string GenField(std::string_view s);

/// The number of the first field of `rec` whose text is `Field`, letter case aside; 0 when there is none.
QXTOOLS_API Integer FieldIndex(std::string_view rec, std::string_view field);

/// Sets `pos` to the position of that field's text, from 1, and `len`, on purpose, to one less than its
/// length. Both are 0 when `rec` is empty, and left alone when there is no such field.
QXTOOLS_API void AtField(std::string_view rec, std::string_view field, Integer& pos, Integer& len);

/// `rec` with `newText`, as it stands, for the text of field `index`.
/// On purpose: where `rec` has no "[#" of that number its first character stays in front, and where it has no
/// "#]" all of it follows behind: ReplaceField("abc", 0, "X") is "aXabc".
QXTOOLS_API std::string ReplaceField(std::string_view rec, Integer index, std::string_view newText);

// --- The table ---------------------------------------------------------------

/// The list's own calls work too; the cursor does not follow them.
class QXTOOLS_API TQXStringTable : public TStrings {
 public:
  /// Loads the file, the cursor on its first record; a file that does not exist is made, empty. With "" or
  /// "#TEMP", in any case, the table is in memory only.
  /// @throws EFOpenError, EReadError or EFCreateError.
  explicit TQXStringTable(const std::string& fileName);
  TQXStringTable(const TQXStringTable&) = delete;
  TQXStringTable& operator=(const TQXStringTable&) = delete;
  /// Saves nothing.
  ~TQXStringTable() override;

  /// Saves to the file, whole or not at all; nothing for a table in memory.
  /// @throws EFCreateError or EWriteError; the old file stays then.
  void UpdateTable() const;
  /// Loads the file again, if it exists. The cursor stays, even behind the last record.
  void RevertTable();

  // Fields. Records are left as they are when the header changes.

  /// Appends a field to the header, unless there is one of that name.
  void AddField(std::string_view name);
  /// Takes a field out of the header. On purpose: one whose name has a single character stays.
  void RemoveField(std::string_view name);
  /// The number of fields in the header.
  Integer GetFieldCount() const;

  // Records. Nothing is added to a table without a header, and the cursor stays.

  /// Appends a record with a field for each of the header's: values are trimmed, missing ones empty, and
  /// those beyond left out.
  void AddRecord(const std::vector<std::string>& values);
  /// The same without values.
  void NewEmptyRecord();
  /// Deletes a line. On purpose: 0 is the header's.
  /// @throws EListError
  void RemoveRecord(Integer index) { Delete(index); }
  /// The number of lines behind the header.
  Integer GetReccount() const;
  /// Whether there is no line at all.
  bool GetEmpty() const { return GetCount() == 0; }

  // The cursor: the number of the current record from 1, or 0 for none.

  Integer GetRecNo() const { return recNo_; }
  /// To the first record.
  void Top();
  /// To the last record.
  void Bottom();
  /// To the record before; the first one stays.
  void Previous();
  /// To the next record; the last one stays.
  void Next();

  // The current record. With the cursor at 0 it is the header.

  /// The text of the first field of that name, "" when the header has none. Reading all fields of a record is
  /// linear in its line.
  /// @throws EListError when the cursor is behind the last record.
  std::string GetField(std::string_view name) const;
  /// Replaces that text by ReplaceField, whose number for an unknown name is 0.
  /// @throws EListError when the cursor is behind the last record.
  void SetField(std::string_view name, std::string_view value);

 private:
  struct Cache;

  Integer NumberOf(std::string_view name) const;

  std::string fileName_;
  Integer recNo_ = 0;
  bool temp_ = false;
  std::unique_ptr<Cache> cache_;
};

}  // namespace qxTools::QXStringTable
