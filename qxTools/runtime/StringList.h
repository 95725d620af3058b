/// @file
/// A list of lines with a change event: what a command text, a declaration list or a table lives in.
///
/// Files are bytes: no conversion, no byte-order mark. A NUL in a line is an ordinary byte.
#pragma once

#include <qxTools/base/Types.h>

#include <vector>

namespace qxTools {

/// An ordered list of lines.
///
/// Every change fires the change event. Between BeginUpdate and EndUpdate it is held back, and the outermost
/// EndUpdate fires it once, whether anything changed or not. A bad index raises EListError, "List index out
/// of bounds (N)".
class QXTOOLS_API TStrings : public TObject {
 public:
  TStrings() = default;
  /// A list of these lines.
  TStrings(std::initializer_list<std::string> lines) : lines_(lines) {}
  /// Copies take the lines and not the event.
  TStrings(const TStrings& other) : TObject(other), lines_(other.lines_) {}
  /// The same as Assign.
  TStrings& operator=(const TStrings& other);
  ~TStrings() override;

  // --- Whole text ------------------------------------------------------------------------------------
  /// The lines joined with CR LF, with CR LF after the last one too; "" without lines.
  std::string GetText() const;
  /// Splits at CR LF, LF or CR. A break at the very end adds no empty line.
  void SetText(std::string_view text);
  /// Takes the lines of `source`, and not its event.
  void Assign(const TStrings& source);
  /// @throws EFOpenError when the file cannot be opened, EReadError when reading fails; nothing changes then.
  void LoadFromFile(const std::string& fileName);
  /// Saves the text, whole or not at all.
  /// @throws EFCreateError or EWriteError; the old file stays then.
  void SaveToFile(const std::string& fileName) const;

  // --- Lines, counted from 0 -------------------------------------------------------------------------
  Integer GetCount() const { return static_cast<Integer>(lines_.size()); }
  const std::string& GetStrings(Integer index) const;
  void SetStrings(Integer index, std::string_view line);
  /// Appends a line as it stands, breaks in it included.
  /// @return its index.
  Integer Add(std::string&& line);
  Integer Add(std::string_view line) { return Add(std::string(line)); }
  Integer Add(const char* line) { return Add(std::string(line)); }
  /// @throws EListError when `index` is outside 0 to the count.
  void Insert(Integer index, std::string_view line);
  /// Deletes a line.
  void Delete(Integer index);
  /// Deletes all lines.
  void Clear();

  // --- Change event ----------------------------------------------------------------------------------
  void SetOnChange(TNotifyEvent event) { onChange_ = std::move(event); }
  /// Holds the event back; calls nest.
  void BeginUpdate() { ++updates_; }
  /// Lets it go again.
  void EndUpdate();

 protected:
  /// Goes up with every change, so that what was worked out from the lines can be kept until the next.
  std::uint64_t GetChanges() const { return changes_; }

 private:
  std::size_t Checked(Integer index) const;
  void Changed();

  std::vector<std::string> lines_;
  TNotifyEvent onChange_;
  std::uint64_t changes_ = 0;
  int updates_ = 0;
};

/// The list that hosts make; the units take and give it by the shorter name.
using TStringList = TStrings;

}  // namespace qxTools
