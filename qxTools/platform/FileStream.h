/// @file
/// Files as streams.
#pragma once

#include <qxTools/base/Streams.h>

namespace qxTools {

/// How a file is opened; fmCreate makes it, or empties the one that is there.
enum TFileMode { fmOpenRead, fmOpenWrite, fmOpenReadWrite, fmCreate };

class SystemFile;  // the system's open file

/// An open file, closed with the object. Nothing is held back: every Write is the system's.
///
/// It is locked meanwhile (flock): shared when it is only read, exclusively otherwise. A file system without
/// locks is no error.
class QXTOOLS_API TFileStream : public TStream {
 public:
  /// @throws EFOpenError `Cannot open file "NAME". REASON`, or EFCreateError `Cannot create file ...`, also
  /// when somebody else holds a lock; the file is as it was then.
  TFileStream(const std::string& fileName, TFileMode mode);
  ~TFileStream() override;

  std::size_t Read(void* buffer, std::size_t count) override;
  std::size_t Write(const void* buffer, std::size_t count) override;
  std::int64_t Seek(std::int64_t offset, TSeekOrigin origin) override;
  std::int64_t GetSize() const override;
  void SetSize(std::int64_t size) override;

 private:
  std::unique_ptr<SystemFile> file_;
};

}  // namespace qxTools
