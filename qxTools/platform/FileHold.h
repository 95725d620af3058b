/// @file
/// Holding a file from reading it to saving it, so that two programs that change it lose nothing.
#pragma once

#include <qxTools/Export.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace qxTools {

/// What a hold does about a file that does not exist.
enum class IfMissing {
  kFail,  ///< It throws.
  kMake,  ///< It makes an empty file, and removes it at the end if nothing was saved.
};

/// A file that this program alone may read and save until the hold is destroyed.
///
///     FileHold hold("settings.qxi", IfMissing::kMake, 10000);
///     settings.SetText(hold.Read());
///     settings.SetValue("Count", "2");
///     hold.Save(settings.GetText());
///
/// Other holds of the same file wait for the end of this one, and then read what was saved. Everything else
/// in the library that opens the file meanwhile, in this program too, fails as it does for any locked file;
/// use Read, Save or a WholeFileWriter on the hold. A file system without locks is no error.
///
/// The program should not keep a hold while it waits for a person.
class QXTOOLS_API FileHold {
 public:
  /// Holds the file. If another program has it open and locked, tries again for up to `waitMilliseconds`.
  /// If the file was replaced meanwhile, the new one is held.
  /// @throws EFOpenError `Cannot open file "NAME". REASON`, also if the time is over, the file is read-only
  /// or it is not a regular file.
  /// @throws EFCreateError `Cannot create file "NAME". REASON` if a missing file cannot be made.
  FileHold(const std::string& fileName, IfMissing ifMissing, std::int64_t waitMilliseconds);
  FileHold(const FileHold&) = delete;
  FileHold& operator=(const FileHold&) = delete;
  /// Lets the file go. A file that the hold made is removed if nothing was saved in it.
  ~FileHold();

  /// True if the hold made the file and nothing was saved in it yet.
  bool IsNew() const;
  /// Returns all bytes of the file as it is now.
  /// @throws EFOpenError if the file is larger than a string can be.
  /// @throws EReadError "Stream read error" if reading fails.
  std::string Read() const;
  /// Saves `bytes` as the whole file, which stays held.
  /// @throws EFCreateError or EWriteError, as WholeFileWriter does.
  void Save(std::string_view bytes);

 private:
  friend class WholeFileWriter;
  struct State;

  std::unique_ptr<State> state_;
};

}  // namespace qxTools
