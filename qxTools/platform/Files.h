/// @file
/// Whole files: reading one, and saving one so that a crash or a full disk leaves the old file whole.
#pragma once

#include <qxTools/base/Streams.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace qxTools {

/// True if something of that name exists, or if this cannot be checked (no permission): opening it will then
/// fail with the real reason, instead of the file silently counting as missing.
QXTOOLS_API bool FileExists(const std::string& fileName);

/// True if a folder of that name exists.
QXTOOLS_API bool FolderExists(const std::string& fileName);

/// Makes an empty file if nothing of that name exists. An existing file is never changed, not even one that
/// another program makes at the same moment.
/// @return true if the file was made.
/// @throws EFCreateError `Cannot create file "NAME". REASON`.
QXTOOLS_API bool CreateFileIfMissing(const std::string& fileName);

/// Returns all bytes of a file. If another program holds it for writing, tries again for up to
/// `waitMilliseconds`. Nothing else is waited for: a named pipe that no program has opened for writing is an
/// error.
/// @throws EFOpenError `Cannot open file "NAME". REASON`, also if the time is over or the file is larger than
/// a string can be.
/// @throws EReadError "Stream read error" if reading fails.
QXTOOLS_API std::string ReadWholeFile(const std::string& fileName, std::int64_t waitMilliseconds = 0);

/// Saves `bytes` as the whole file. This is a WholeFileWriter with one Write and a Commit.
/// @throws EFCreateError or EWriteError, as WholeFileWriter does.
QXTOOLS_API void SaveWholeFile(const std::string& fileName, std::string_view bytes);

class FileHold;

/// A stream into a new file that replaces the old one only when it is complete.
///
/// The bytes go to a temporary file in the same folder. Nobody else can read it, its name cannot be foreseen,
/// and where the file system allows it has no name at all. Commit flushes it to disk and puts it in the place
/// of the old file in one step: a crash, a kill or a full disk leaves the old file or the new one, whole.
/// What belongs to the old file besides its contents is kept: owner, permissions, extended attributes. A name
/// that is a link to a file leaves the link and replaces the file.
///
/// Replacing would change more than the contents if the old file has further names (hard links), if its owner
/// or its attributes cannot be kept, if the folder takes no new file, or if the file is a mount point. Then
/// Commit writes into the old file: it reserves the space, writes the bytes, flushes them, and cuts the
/// length last. A full disk leaves the old file whole there too. A crash in the middle of that writing leaves
/// a mix of old and new bytes. Pipes and devices are written to as they are.
///
/// The old file is opened for writing and locked until the writer is destroyed. If it is read-only, or locked
/// by another program, the constructor throws and the file is unchanged. A file system without locks is no
/// error.
///
/// On Linux the temporary file is made by O_TMPFILE. A kill between its getting a name and its taking the old
/// one's place (two system calls) leaves one complete file ".NAME.qx-" and 16 digits in the folder; without
/// O_TMPFILE a kill at any moment does. The next save of that file by the same user removes it.
class QXTOOLS_API WholeFileWriter : public TStream {
 public:
  /// Opens the old file, if there is one, and the temporary one.
  /// @throws EFCreateError `Cannot create file "NAME". REASON`.
  explicit WholeFileWriter(const std::string& fileName);
  /// Writes the file that `hold` holds. After Commit the hold holds the new file. The hold must outlive the
  /// writer.
  /// @throws EFCreateError `Cannot create file "NAME". REASON`.
  explicit WholeFileWriter(FileHold& hold);
  /// Without a Commit before, the old file stays and the temporary one is removed.
  ~WholeFileWriter() override;

  /// Reads back up to `count` bytes of the new file from the position on.
  /// @return the number of bytes read, fewer than `count` only at the end.
  /// @throws EReadError "Stream read error" if the system fails or after Commit.
  std::size_t Read(void* buffer, std::size_t count) override;
  /// Writes `count` bytes at the position.
  /// @return `count`.
  /// @throws EWriteError "Stream write error" if the disk does not take the bytes or after Commit.
  std::size_t Write(const void* buffer, std::size_t count) override;
  /// Writes all of `bytes` at the position.
  /// @throws EWriteError "Stream write error" if the disk does not take the bytes or after Commit.
  void Write(std::string_view bytes) { Write(bytes.data(), bytes.size()); }
  /// Moves the position. A place that the system cannot reach changes nothing.
  /// @return the new position.
  std::int64_t Seek(std::int64_t offset, TSeekOrigin origin) override;
  /// Returns the size of the new file so far, in bytes.
  std::int64_t GetSize() const override;
  /// Cuts the new file off at `size` bytes, or adds zeros.
  /// @throws EWriteError "Stream write error" if the disk does not take it, if `size` is negative, or after
  /// Commit.
  void SetSize(std::int64_t size) override;

  /// Puts the new file in the old one's place. The writer cannot be used any more.
  /// @throws EWriteError or EFCreateError; unless the file had to be written in place, it is unchanged then.
  void Commit();

 private:
  struct Target;

  std::unique_ptr<Target> target_;
};

}  // namespace qxTools
