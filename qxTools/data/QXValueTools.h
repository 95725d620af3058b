/// @file
/// A list of values with names. Asking for a name that the list does not have makes a value of that name.
///
/// Names match in any case of the ASCII letters, and without the bytes up to 32 at both ends. A look-up by
/// name takes constant time on average. After a name was changed in a record, or records were inserted or
/// deleted, the next look-up walks the list.
#pragma once

#include <qxTools/base/Exceptions.h>
#include <qxTools/data/BlockRecord.h>
#include <qxTools/data/RecordName.h>
#include <qxTools/runtime/Variant.h>

#include <memory>

namespace qxTools::QXValueTools {

/// One value with its name.
struct QXTOOLS_API TValueRecord : BlockRecord {
  /// Makes a record with an empty name and an empty variant.
  TValueRecord() = default;
  /// Makes a record of that name (its first 100 bytes) and value.
  TValueRecord(std::string_view name, Variant value) : Name(name), Value(std::move(value)) {}

  RecordName<100> Name;  ///< At most 100 bytes; callers may assign to it.
  Variant Value;         ///< Callers may assign to it.
};

/// The list. It owns its records; they keep their address until they are deleted. If memory runs out,
/// std::bad_alloc is thrown and the list is unchanged.
///
///     TQXValueList list;
///     list.SetValue("Port", 1433);
///     list.GetValue(" port ");  // 1433
///     list.GetValue("Host");    // null, and the list has a record "Host" now
class QXTOOLS_API TQXValueList : public TObject {
 public:
  /// Makes an empty list with auto create on.
  TQXValueList();
  TQXValueList(const TQXValueList&) = delete;
  TQXValueList& operator=(const TQXValueList&) = delete;
  ~TQXValueList() override;

  /// Returns whether unknown names and indexes past the end make records; true at first.
  bool GetAutoCreate() const { return autoCreate_; }
  /// Sets whether unknown names and indexes past the end make records.
  void SetAutoCreate(bool value) { autoCreate_ = value; }
  /// Returns the number of records.
  Integer GetCount() const;

  // --- By index, from 0 ------------------------------------------------------------------------------
  /// Appends a record with an empty name and an empty variant, and returns it.
  TValueRecord* Add();
  /// Returns the record at `index` (0-based). With auto create on, records with an empty name are appended up
  /// to an index past the end.
  /// @throws EListError "List index out of bounds (N)"; with auto create on only for a negative index and for
  /// 2147483647.
  TValueRecord* GetItem(Integer index);
  /// Copies name and value of `record` into the record that GetItem(index) returns.
  /// @throws EListError "List index out of bounds (N)", as GetItem.
  void SetItem(Integer index, const TValueRecord& record);
  /// Inserts a copy of `*record` before the record at `index`, or at the end if `index` is the count. Auto
  /// create makes no difference.
  /// @throws EListError "List index out of bounds (N)" for any other index.
  void Insert(Integer index, const TValueRecord* record);
  /// Deletes the record at `index` (0-based).
  /// @throws EListError "List index out of bounds (N)".
  void Delete(Integer index);
  /// Deletes all records.
  void Clear();
  /// Replaces the records with copies of those of `source`. Does nothing if it is null. Auto create is
  /// unchanged.
  ///
  /// On purpose: a list that is assigned to itself is empty afterwards.
  void Assign(TQXValueList* source);

  // --- By name ---------------------------------------------------------------------------------------
  /// Returns the index (0-based) of the LAST record of that name, or -1 if there is none.
  Integer IndexOf(std::string_view name);
  /// Deletes the LAST record of that name.
  ///
  /// On purpose: an unknown name throws EListError "List index out of bounds (-1)".
  void Delete(std::string_view name);
  /// Returns the value of the FIRST record of that name. With auto create on, an unknown name is appended as
  /// it was given, with the value null, which is returned.
  /// @throws Exception "Index (NAME) is not find." for an unknown name with auto create off.
  ///
  /// On purpose: a name longer than 100 bytes is stored cut and is never found again.
  Variant GetValue(std::string_view name);
  /// Sets the value of the LAST record of that name. With auto create on, an unknown name is appended as it
  /// was given, with this value.
  /// @throws Exception "Index (NAME) is not find." for an unknown name with auto create off.
  ///
  /// On purpose: a name longer than 100 bytes is stored cut and is never found again.
  void SetValue(std::string_view name, const Variant& v);

 private:
  struct State;

  void AppendUnknown(std::string_view name, const Variant& value);
  void Grow(Integer index);

  std::unique_ptr<State> state_;
  bool autoCreate_ = true;
};

}  // namespace qxTools::QXValueTools
