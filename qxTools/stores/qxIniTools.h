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
/// The older names are root key for a section and item key for a record. Section and value names ignore the
/// case of ASCII letters, and of equal ones the first counts. Texts are bytes, kept up to their first NUL.
/// The file's form is described in docs/ini-format.md. What a save cannot write (comments of a loaded file,
/// values without a name or text) is not in the saved file.
///
/// All lies in a tree (qxTools/stores/qxTreeList.h): sections at level 1, records at level 2, values at level
/// 3. A section that was deleted stays open, and so does a record: what is added then finds no parent and
/// becomes a level-1 node. For one thread at a time.
#pragma once

#include <qxTools/base/Exceptions.h>
#include <qxTools/stores/qxTreeList.h>

#include <memory>
#include <string_view>
#include <vector>

namespace qxTools::qxIniTools {

using qxTreeList::pQXTreeNode;
using qxTreeList::pQXTreeNodeLink;
using qxTreeList::TEnumTreeNodeProc;

/// The data of a section's node ("RootKey" and the section's name) or of a value's. Both end with NUL and are
/// null when empty. Callers read it and never write.
struct TQXIniPair {
  char* Name;   ///< Ends with NUL.
  char* Value;  ///< Ends with NUL.
};
/// What a node's data points at.
using pQXIniPair = TQXIniPair*;

static_assert(sizeof(TQXIniPair) == 2 * sizeof(void*));

/// A load that broke off. What came before is loaded.
class QXTOOLS_API EIniLoadError : public Exception {
 public:
  /// The message and the line it is about.
  EIniLoadError(const std::string& message, Integer line) : Exception(message), line_(line) {}
  ~EIniLoadError() override;
  Integer GetLine() const { return line_; }  ///< Counted from 1.

 private:
  Integer line_;
};

/// The settings, and where one stands in them: an open section and an open record.
class QXTOOLS_API TQXIniFile : public TObject {
 public:
  TQXIniFile();
  /// Frees everything, also the pairs that deleting leaves in memory.
  ~TQXIniFile() override;
  TQXIniFile(const TQXIniFile&) = delete;
  TQXIniFile& operator=(const TQXIniFile&) = delete;

  // --- Whole files -------------------------------------------------------------

  /// Replaces all contents by the file's; the last section stays open. A missing file is no error and changes
  /// nothing.
  /// @throws EFOpenError or EReadError; nothing has changed then.
  /// @throws EIniLoadError "RootKey not Open." for a record before any section.
  void LoadFromFile(const std::string& fileName);
  /// Saves whole or not at all. @throws EFCreateError or EWriteError; the old file stays then.
  void SaveToFile(const std::string& fileName) const;

  /// The same from and to the text of a file.
  void SetText(std::string_view text);
  std::string GetText() const;

  /// Deletes everything. On purpose: section and record count as open as before.
  void Clear();

  // --- Sections ------------------------------------------------------------------

  /// Opens the section of that name, the first one, or a new one at the end. No record is open then.
  void SetRootKey(std::string_view name);
  /// The node of the first section of that name.
  bool FindRootKey(std::string_view name, pQXTreeNode& node) const;
  /// Deletes a section. On purpose: when it was the open one it counts as open still.
  /// @throws Exception "RootKey not Find."
  void DeleteRootKey(std::string_view name);
  /// Replaces the open section by a new, empty one of its name, behind all others. On purpose: does nothing
  /// unless a file was loaded before.
  /// @throws Exception "RootKey not Open."
  void ClearKeys();

  // --- Records of the open section -----------------------------------------------
  // On purpose: an index counts, from 1, the section's records and values together, each record before its
  // values. With records A (values a1, a2) and B, 2 is a1 and 4 is B. A value opened so is the open record
  // until another one is. Going from index to index takes constant time, any other index its distance.

  /// Appends an empty record and opens it. @throws Exception "RootKey not Open."
  void AppendKey();
  /// Closes the open record and opens the one with that index, if there is one.
  void OpenKey(Integer index);
  /// The same with index 1.
  void OpenFirstKey();
  /// Open a record beside the open one; without such a record none is open. On purpose: they find none until
  /// a file was loaded.
  void OpenPrevKey();
  /// The same for the next record.
  void OpenNextKey();
  /// The same for the last record.
  void OpenLastKey();
  /// No record is open then.
  void CloseKey();
  /// The node with that index.
  bool FindKeyIndex(Integer index, pQXTreeNode& node) const;
  /// Deletes the record (or value) with that index, if there is one. @throws Exception "RootKey not Open."
  void DeleteKey(Integer index);

  // --- Values of the open record -------------------------------------------------

  /// The text, or "" when there is no such value. @throws Exception "Item Key not open."
  std::string GetValue(std::string_view name) const;
  /// Replaces the text, or adds the value at the end. @throws Exception "Item Key not open."
  void SetValue(std::string_view name, std::string_view value);
  /// Does nothing when no record is open or there is no such value.
  void DeleteValue(std::string_view name);
  /// @throws Exception "ItemKey not opend"
  bool FindField(std::string_view name, pQXTreeNode& node) const;

  // --- All nodes -----------------------------------------------------------------

  /// Calls `proc` for each node: sections, records and values, parents first.
  void EnumTreeNode(const TEnumTreeNodeProc& proc) const { tree_.EnumAllTreeNode(proc); }

 private:
  struct Lookup;

  pQXTreeNodeLink FindSection(std::string_view name) const;
  pQXTreeNodeLink FindNumber(Integer index) const;
  pQXTreeNodeLink FindValue(std::string_view name) const;
  void RequireSection() const;
  void RequireRecord() const;
  pQXTreeNodeLink AddPair(pQXTreeNodeLink parent, std::string_view name, std::string_view value);
  void FreePair(pQXTreeNode node);
  void FreeOrKeepPair(pQXTreeNode node);
  void KeepPair(pQXTreeNode node);
  void DeleteBranch(pQXTreeNodeLink link);
  pQXTreeNodeLink OrRoot(pQXTreeNodeLink link) const;
  bool CanMove() const;
  void OpenRecord(pQXTreeNodeLink link);

  qxTreeList::TQXTreeNodes tree_;
  std::string rootKeyName_;
  bool rootOpened_ = false;
  bool itemOpened_ = false;
  bool loaded_ = false;
  pQXTreeNodeLink section_ = nullptr;  // the opened ones, null once they are deleted
  pQXTreeNodeLink record_ = nullptr;
  std::vector<pQXIniPair> kept_;  // pairs that deletes leave in memory, freed with the object
  std::unique_ptr<Lookup> lookup_;
};

}  // namespace qxTools::qxIniTools
