/// @file
/// A list of values with names; a value that is asked for by a name that is not there yet is made.
///
/// Names match without regard to the case of the ASCII letters, and to the bytes up to 32 at both ends.
/// Look-ups by name take constant time on average; after a name was changed in a record that was handed out,
/// or records were inserted or deleted, the next one takes a walk.
#pragma once

#include <qxTools/data/NamedRecord.h>
#include <qxTools/data/RecordIndex.h>
#include <qxTools/runtime/OwnedList.h>
#include <qxTools/runtime/Variant.h>

namespace qxTools::QXValueTools {

/// One value; a new one has an empty name and is unassigned.
struct QXTOOLS_API TValueRecord : BlockRecord {
  TValueRecord() = default;
  /// A record of that name and value.
  TValueRecord(std::string_view name, Variant value) : Name(name), Value(std::move(value)) {}

  RecordName<100> Name;  ///< As given, cut to 100 bytes; it can be assigned.
  Variant Value;         ///< Empty at first.
};

/// The list, which owns its records; they keep their address until they are deleted. A bad index raises
/// EListError, "List index out of bounds (N)". When memory is short, std::bad_alloc is raised and the list
/// stays as it was.
class QXTOOLS_API TQXValueList : public TObject {
 public:
  TQXValueList();
  TQXValueList(const TQXValueList&) = delete;
  TQXValueList& operator=(const TQXValueList&) = delete;
  ~TQXValueList() override;

  /// Whether unknown names and places past the end make records; at first they do.
  bool GetAutoCreate() const { return autoCreate_; }
  void SetAutoCreate(bool value) { autoCreate_ = value; }
  Integer GetCount() const { return records_.GetCount(); }

  // --- By place, from 0 ------------------------------------------------------------------------------
  /// Appends a blank record.
  TValueRecord* Add();
  /// The record at `index`. With auto create a place past the end is reached by appending blank records.
  TValueRecord* GetItem(Integer index);
  /// Copies name and value of `record` over the record at `index`, which is reached as by GetItem.
  void SetItem(Integer index, const TValueRecord& record);
  /// Inserts a copy of `*record` at `index`, 0 to the count; auto create makes no difference.
  void Insert(Integer index, const TValueRecord* record);
  /// Deletes the record at `index`.
  void Delete(Integer index);
  /// Deletes all records.
  void Clear();
  /// Replaces the records by copies of those of `source`; nothing happens for null. Auto create stays.
  /// On purpose: a list that is assigned to itself ends empty, being cleared first.
  void Assign(TQXValueList* source);

  // --- By name ---------------------------------------------------------------------------------------
  /// The place of the LAST record of that name, or -1.
  Integer IndexOf(std::string_view name);
  /// Deletes the last record of that name. On purpose: an unknown name raises EListError for the index -1.
  void Delete(std::string_view name);
  /// The value of the FIRST record of that name. An unknown one is appended, as given, with the value Null,
  /// which is the result. On purpose: a name longer than 100 bytes is stored cut and never found again.
  /// @throws Exception "Index (NAME) is not find." without auto create.
  Variant GetValue(std::string_view name);
  /// Sets the value of the LAST record of that name; an unknown one is appended as by GetValue.
  /// @throws Exception "Index (NAME) is not find." without auto create.
  void SetValue(std::string_view name, const Variant& v);

 private:
  RecordIndex::Places Find(std::string_view name);
  TValueRecord* Append(std::unique_ptr<TValueRecord> record);
  void AppendUnknown(std::string_view name, const Variant& value);
  void Grow(Integer index);

  OwnedList<TValueRecord> records_;
  bool autoCreate_ = true;
  RecordIndex index_;
};

}  // namespace qxTools::QXValueTools
