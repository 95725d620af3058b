/// @file
/// Streams: a sequence of bytes with a current position. TMemoryStream keeps the bytes in memory; TFileStream
/// (platform/FileStream.h) keeps them in a file.
///
/// Sizes and positions count bytes from 0. A position may be beyond the end: reading there returns nothing,
/// and writing there fills the gap with zeros. Only one thread may use a stream at a time.
#pragma once

#include <qxTools/base/Interfaces.h>

#include <cstdlib>
#include <memory>

namespace qxTools {

/// The place that an offset counts from.
enum TSeekOrigin {
  soBeginning,  ///< The start of the stream.
  soCurrent,    ///< The current position.
  soEnd         ///< The end of the stream.
};

/// The base of all streams.
class QXTOOLS_API TStream : public TObject {
 public:
  /// Makes a stream whose position is 0.
  TStream() = default;
  TStream(const TStream&) = delete;
  TStream& operator=(const TStream&) = delete;
  ~TStream() override;

  /// Reads up to `count` bytes into `buffer` and moves the position past them.
  /// @return the number of bytes read; fewer than `count` only at the end of the stream.
  /// @throws EReadError if the system reports an error.
  virtual std::size_t Read(void* buffer, std::size_t count) = 0;
  /// Writes `count` bytes at the position, over existing bytes or past the end, and moves the position past
  /// them.
  /// @return the number of bytes written.
  /// @throws EWriteError if the system reports an error.
  virtual std::size_t Write(const void* buffer, std::size_t count) = 0;
  /// Moves the position to `offset` from `origin`. A place before the start becomes the start. A place that
  /// the system cannot reach leaves the position unchanged.
  /// @return the new position.
  virtual std::int64_t Seek(std::int64_t offset, TSeekOrigin origin) = 0;
  /// Returns the number of bytes.
  virtual std::int64_t GetSize() const = 0;
  /// Deletes the bytes past `size`, or appends zeros up to it. A position past the new end is moved to it.
  /// @throws EWriteError "Stream write error" if that is not possible or `size` is negative.
  virtual void SetSize(std::int64_t size) = 0;

  /// Returns the position.
  std::int64_t GetPosition() { return Seek(0, soCurrent); }
  /// Moves the position, as Seek from the start does.
  void SetPosition(std::int64_t position) { Seek(position, soBeginning); }

  /// Reads exactly `count` bytes into `buffer`.
  /// @throws EReadError "Stream read error" if there are fewer; those have been read.
  void ReadBuffer(void* buffer, std::size_t count);
  /// Writes exactly `count` bytes.
  /// @throws EWriteError "Stream write error" if fewer could be written.
  void WriteBuffer(const void* buffer, std::size_t count);

  /// Copies the next `count` bytes of `source`. Memory is allocated only as the bytes arrive.
  /// @throws EReadError if the source ends before, or `count` is negative.
  /// @throws EWriteError if this stream cannot be written. Bytes that were copied before an error are kept.
  virtual void CopyFrom(TStream& source, std::int64_t count);

 protected:
  /// Returns `base` + `offset`, at least 0 and at most the largest number.
  static std::int64_t Place(std::int64_t base, std::int64_t offset);
};

/// A stream of bytes in memory. Appending takes time linear in the final size. If memory runs out, Write
/// writes nothing and returns 0, and the other functions throw EWriteError.
class QXTOOLS_API TMemoryStream : public TStream {
 public:
  /// Makes an empty stream.
  TMemoryStream() = default;
  ~TMemoryStream() override;

  /// Reads up to `count` bytes into `buffer` and moves the position past them.
  /// @return the number of bytes read; fewer than `count` only at the end of the stream.
  std::size_t Read(void* buffer, std::size_t count) override;
  /// Writes `count` bytes at the position, over existing bytes or past the end, and moves the position past
  /// them.
  /// @return `count`, or 0 if memory runs out; nothing has changed then.
  std::size_t Write(const void* buffer, std::size_t count) override;
  /// Moves the position to `offset` from `origin`. A place before the start becomes the start.
  /// @return the new position.
  std::int64_t Seek(std::int64_t offset, TSeekOrigin origin) override;
  /// Returns the number of bytes.
  std::int64_t GetSize() const override { return size_; }
  /// Deletes the bytes past `size`, or appends zeros up to it. A position past the new end is moved to it.
  /// @throws EWriteError "Stream write error" if memory runs out or `size` is negative; nothing has changed
  /// then.
  void SetSize(std::int64_t size) override;
  /// Copies the next `count` bytes of `source`. Memory is allocated only as the bytes arrive.
  /// @throws EReadError if the source ends before, or `count` is negative.
  /// @throws EWriteError if memory runs out. Bytes that were copied before an error are kept.
  void CopyFrom(TStream& source, std::int64_t count) override;

  /// Deletes all bytes and frees their memory. The position is 0 then.
  void Clear();
  /// Returns all bytes, whatever the position is. The view is valid until the next change.
  std::string_view GetBytes() const { return {memory_.get(), static_cast<std::size_t>(size_)}; }

 private:
  struct Release {
    void operator()(char* memory) const { std::free(memory); }
  };

  bool Reserve(std::int64_t size);
  void FillGap();

  std::unique_ptr<char, Release> memory_;  // not zeroed: what is copied in would be written twice
  std::int64_t capacity_ = 0;
  std::int64_t size_ = 0;
  std::int64_t position_ = 0;
};

/// An object that can be loaded from a stream and saved to one.
class QXTOOLS_API IStreamPersist : public IInterface {
 public:
  /// The identifier of this interface.
  static constexpr GUID IID = MakeGuid("6E0B1F5C-93D4-4A57-8C2E-1D5A70F4B963");

  /// Loads this object from the stream's current position.
  virtual void LoadFromStream(TStream* stream) = 0;
  /// Saves this object at the stream's current position.
  virtual void SaveToStream(TStream* stream) = 0;

 protected:
  ~IStreamPersist() = default;
};

}  // namespace qxTools
