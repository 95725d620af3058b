/// @file
/// Files as streams.
#pragma once

#include <qxTools/base/Streams.h>

namespace qxTools {

/// How a file is opened.
enum TFileMode {
  fmOpenRead,       ///< An existing file, to read.
  fmOpenWrite,      ///< An existing file, to write over.
  fmOpenReadWrite,  ///< An existing file, to read and to write over.
  fmCreate          ///< A new file, or an existing one that is emptied, to read and write.
};

class SystemFile;  // the system's open file

/// An open file, closed with the object. Nothing is buffered: every Write goes to the system.
///
/// The file is locked meanwhile: other programs can read it too if it is open for reading only, and otherwise
/// they cannot open it by this library. A file system without locks is no error. On Linux these are advisory
/// locks (flock).
class QXTOOLS_API TFileStream : public TStream {
 public:
  /// Opens the file. It never waits: a pipe that nobody reads cannot be opened for writing.
  /// @throws EFOpenError `Cannot open file "NAME". REASON`, or EFCreateError `Cannot create file ...` in the
  /// mode fmCreate, also if another program has locked the file; the file is unchanged then.
  TFileStream(const std::string& fileName, TFileMode mode);
  /// Closes the file.
  ~TFileStream() override;

  /// Reads up to `count` bytes from the position on.
  /// @return the number of bytes read, fewer than `count` only at the end.
  /// @throws EReadError "Stream read error" if the system fails, or for a named pipe that no program has
  /// opened for writing.
  std::size_t Read(void* buffer, std::size_t count) override;
  /// Writes `count` bytes at the position.
  /// @return `count`.
  /// @throws EWriteError "Stream write error" if the system does not take all bytes.
  std::size_t Write(const void* buffer, std::size_t count) override;
  /// Moves the position. A place that the system cannot reach changes nothing. A pipe is always at 0.
  /// @return the new position.
  std::int64_t Seek(std::int64_t offset, TSeekOrigin origin) override;
  /// Returns the size of the file in bytes; 0 for a pipe or a device.
  std::int64_t GetSize() const override;
  /// Cuts the file off at `size` bytes, or adds zeros.
  /// @throws EWriteError "Stream write error" if the system does not do it, or if `size` is negative.
  void SetSize(std::int64_t size) override;

 private:
  std::unique_ptr<SystemFile> file_;
};

}  // namespace qxTools
