/// @file
/// Whole files: reading one, and saving one so that a crash or a full disk leaves the old file whole.
#pragma once

#include <qxTools/Export.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace qxTools {

/// Whether something of that name is there. What may not be looked at counts as there: it will fail when it
/// is opened, where a missing file would pass unseen.
QXTOOLS_API bool FileExists(const std::string& fileName);

/// The bytes of a file.
/// @throws EFOpenError `Cannot open file "NAME". REASON`, or EReadError when reading breaks off.
QXTOOLS_API std::string ReadWholeFile(const std::string& fileName);

/// Saves `bytes` as the whole file, as WholeFileWriter does.
QXTOOLS_API void SaveWholeFile(const std::string& fileName, std::string_view bytes);

/// Writes a file that replaces the old one only when it is complete.
///
/// The bytes go to a temporary file in the same folder; Commit flushes it to disk and renames it over the old
/// one. Mode bits are kept and symbolic links are followed. Where a rename would change more than the
/// contents (the target is no regular file, has further hard links, would change its owner, or its folder
/// takes no new file) the bytes are gathered in memory and Commit writes them in place.
///
/// An old file is opened for writing first and locked meanwhile (flock): one that is read-only, or locked by
/// somebody else, raises and stays. A file system without locks is no error.
class QXTOOLS_API WholeFileWriter {
 public:
  /// @throws EFCreateError `Cannot create file "NAME". REASON`.
  explicit WholeFileWriter(const std::string& fileName);
  WholeFileWriter(const WholeFileWriter&) = delete;
  WholeFileWriter& operator=(const WholeFileWriter&) = delete;
  /// Without a Commit before, the old file stays and the temporary one is removed.
  ~WholeFileWriter();

  /// @throws EWriteError "Stream write error" when the disk does not take the bytes.
  void Write(std::string_view bytes);

  /// The next Write goes over what stands at `position` (0 or above), or behind it; a gap is zeros.
  /// @throws EWriteError for a place that the system cannot reach.
  void SetPosition(std::int64_t position);

  /// Puts the file in its place and is done with it: any further call raises EWriteError.
  /// @throws EWriteError or EFCreateError; a file that was to be renamed over stays as it was.
  void Commit();

 private:
  struct Target;
  Target& Open();

  std::unique_ptr<Target> target_;
};

}  // namespace qxTools
