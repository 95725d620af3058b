/// @file
/// The settings file: named sections, in each a list of unnamed records, in each a list of named texts.
///
///     TQXIniFile settings;
///     settings.LoadFromFile("app.ini");
///     settings.SetRootKey("Main");        // opens the section, or makes it
///     settings.OpenFirstKey();            // opens its first record
///     settings.GetValue("Port");          // 1433
///     settings.SetValue("Mode", "slow");
///     settings.SaveToFile("app.ini");
///
/// A section is also called root key, and a record item key. Section and value names ignore the case of ASCII
/// letters; of equal names the first one counts. Texts are bytes, kept up to their first NUL.
/// docs/ini-format.md describes the file. What a save cannot write is not in the saved file: comments of a
/// loaded file, values without a name or text.
///
/// Everything is in a tree (qxTools/stores/qxTreeList.h): sections at level 1, records at level 2, values at
/// level 3. On purpose: a section that was deleted counts as open still, and so does a record. What is added
/// then finds no parent and becomes a level-1 node.
///
/// Not thread-safe. If memory runs out, std::bad_alloc is thrown and nothing has changed, except as
/// LoadFromFile and SetText say.
#pragma once

#include <qxTools/base/Exceptions.h>
#include <qxTools/stores/qxTreeList.h>

#include <memory>
#include <string_view>

namespace qxTools::qxIniTools {

using qxTreeList::pQXTreeNode;
using qxTreeList::pQXTreeNodeLink;
using qxTreeList::TEnumTreeNodeProc;

/// The data of a section's node ("RootKey" and the section's name) or of a value's. Callers only read it.
struct TQXIniPair {
  char* Name;   ///< Ends with NUL; null if empty.
  char* Value;  ///< Ends with NUL; null if empty.
};
/// What a node's data points at.
using pQXIniPair = TQXIniPair*;

static_assert(sizeof(TQXIniPair) == 2 * sizeof(void*));

/// Thrown when a load stops at a bad line. What was read before that line stays loaded.
class QXTOOLS_API EIniLoadError : public Exception {
 public:
  /// Takes the message and the number of the line.
  EIniLoadError(const std::string& message, Integer line) : Exception(message), line_(line) {}
  ~EIniLoadError() override;
  /// Returns the number of the bad line, counted from 1.
  Integer GetLine() const { return line_; }

 private:
  Integer line_;
};

/// The settings, the currently open section and the currently open record.
class QXTOOLS_API TQXIniFile : public TObject {
 public:
  /// Makes settings without a section.
  TQXIniFile();
  /// Frees everything, also the pairs that a delete keeps in memory.
  ~TQXIniFile() override;
  TQXIniFile(const TQXIniFile&) = delete;
  TQXIniFile& operator=(const TQXIniFile&) = delete;

  // --- Whole files -------------------------------------------------------------

  /// Replaces everything by the contents of the file; its last section stays open. A missing file is not an
  /// error and changes nothing.
  /// @throws EFOpenError or EReadError if the file cannot be read; nothing has changed then.
  /// @throws EIniLoadError "RootKey not Open." at a record before any section; what was read before stays
  /// loaded.
  /// @throws std::bad_alloc; what was read before memory ran out stays loaded, or nothing has changed.
  void LoadFromFile(const std::string& fileName);
  /// Saves everything to the file, whole or not at all.
  /// @throws EFCreateError or EWriteError; the old file is unchanged then.
  void SaveToFile(const std::string& fileName) const;

  /// Replaces everything by `text`, the contents of a file; its last section stays open.
  /// @throws EIniLoadError "RootKey not Open." at a record before any section; what was read before stays
  /// loaded.
  /// @throws std::bad_alloc; what was read before memory ran out stays loaded, or nothing has changed.
  void SetText(std::string_view text);
  /// Returns the contents of the file that SaveToFile would save.
  std::string GetText() const;

  /// Deletes everything. On purpose: a section or a record that was open counts as open still.
  void Clear();

  // --- Sections ------------------------------------------------------------------

  /// Opens the first section of that name, or a new one at the end. No record is open afterwards.
  void SetRootKey(std::string_view name);
  /// Sets `node` to the node of the first section of that name. Returns false if there is none; `node` is
  /// unchanged then.
  bool FindRootKey(std::string_view name, pQXTreeNode& node) const;
  /// Deletes the first section of that name. On purpose: if it is the open one it counts as open still.
  /// @throws Exception "RootKey not Find." if there is none.
  void DeleteRootKey(std::string_view name);
  /// Replaces the open section by a new empty one of its name, after all others. On purpose: does nothing
  /// unless a file was loaded before.
  /// @throws Exception "RootKey not Open."
  void ClearKeys();

  // --- Records of the open section -----------------------------------------------
  // On purpose: an index numbers records and values together, starting at 1; each record comes before its
  // values. For records A (values a1, a2) and B: 1 = A, 2 = a1, 3 = a2, 4 = B. OpenKey on a value's index
  // makes that value the open record. Going from one index to the next takes constant time, to any other
  // index its distance.

  /// Appends an empty record and opens it. @throws Exception "RootKey not Open."
  void AppendKey();
  /// Opens the record with that index; if there is none, no record is open afterwards.
  void OpenKey(Integer index);
  /// Opens the first record; if there is none, no record is open afterwards.
  void OpenFirstKey();
  /// Opens the record before the open one; if there is none, no record is open afterwards. On purpose: until
  /// a file was loaded there is never one.
  void OpenPrevKey();
  /// Opens the record after the open one; if there is none, no record is open afterwards. On purpose: until a
  /// file was loaded there is never one.
  void OpenNextKey();
  /// Opens the last record; if no record is open, none is open afterwards. On purpose: until a file was
  /// loaded there is never one.
  void OpenLastKey();
  /// Closes the open record.
  void CloseKey();
  /// Sets `node` to the node with that index. Returns false if there is none; `node` is unchanged then.
  bool FindKeyIndex(Integer index, pQXTreeNode& node) const;
  /// Deletes the record or value with that index. An index without one is ignored.
  /// @throws Exception "RootKey not Open."
  void DeleteKey(Integer index);

  // --- Values of the open record -------------------------------------------------

  /// Returns the text of the first value of that name, or "" if there is none.
  /// @throws Exception "Item Key not open."
  std::string GetValue(std::string_view name) const;
  /// Replaces the text of the first value of that name, or appends a value.
  /// @throws Exception "Item Key not open."
  void SetValue(std::string_view name, std::string_view value);
  /// Deletes the first value of that name. Does nothing if there is none or no record is open.
  void DeleteValue(std::string_view name);
  /// Sets `node` to the node of the first value of that name. Returns false if there is none; `node` is
  /// unchanged then.
  /// @throws Exception "ItemKey not opend"
  bool FindField(std::string_view name, pQXTreeNode& node) const;

  // --- All nodes -----------------------------------------------------------------

  /// Calls `proc` for each node: sections, records and values, parents before children.
  void EnumTreeNode(const TEnumTreeNodeProc& proc) const;

 private:
  struct State;

  void Load(std::string&& text);

  std::unique_ptr<State> state_;
};

}  // namespace qxTools::qxIniTools
