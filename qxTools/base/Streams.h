/// @file
/// Streams: a row of bytes with a position in it. TMemoryStream keeps them in memory; TFileStream, which
/// platform has, in a file.
///
/// Sizes and positions are bytes from 0. A position may lie beyond the end: nothing is read there, and
/// writing fills the gap with zeros. A stream is for one thread at a time.
#pragma once

#include <qxTools/base/Interfaces.h>

#include <cstdlib>
#include <memory>

namespace qxTools {

/// What an offset counts from.
enum TSeekOrigin { soBeginning, soCurrent, soEnd };

/// What all streams have.
class QXTOOLS_API TStream : public TObject {
 public:
  TStream() = default;
  TStream(const TStream&) = delete;
  TStream& operator=(const TStream&) = delete;
  ~TStream() override;

  /// Reads up to `count` bytes and moves the position behind them.
  /// @return how many, fewer than asked for only at the end. @throws EReadError when the system fails.
  virtual std::size_t Read(void* buffer, std::size_t count) = 0;
  /// Writes `count` bytes over what is there and behind it, and moves the position behind them.
  /// @return how many were taken. @throws EWriteError when the system fails.
  virtual std::size_t Write(const void* buffer, std::size_t count) = 0;
  /// Moves the position; a place before the start counts as the start, and one that the system cannot reach
  /// changes nothing.
  /// @return the new position.
  virtual std::int64_t Seek(std::int64_t offset, TSeekOrigin origin) = 0;
  virtual std::int64_t GetSize() const = 0;
  /// Cuts the bytes off behind `size`, or adds zeros. A position behind the new end moves there.
  /// @throws EWriteError "Stream write error" when that is not possible, or below 0.
  virtual void SetSize(std::int64_t size) = 0;

  std::int64_t GetPosition() { return Seek(0, soCurrent); }
  void SetPosition(std::int64_t position) { Seek(position, soBeginning); }

  /// Reads exactly `count` bytes. @throws EReadError "Stream read error" when there are fewer.
  void ReadBuffer(void* buffer, std::size_t count);
  /// Writes exactly `count` bytes. @throws EWriteError "Stream write error" when fewer are taken.
  void WriteBuffer(const void* buffer, std::size_t count);

  /// Copies the next `count` bytes of `source`, in pieces: memory is asked for only as the bytes arrive.
  /// @throws EReadError when the source ends before, or `count` is below 0; EWriteError when this stream does
  /// not take them. Bytes copied until then stay.
  virtual void CopyFrom(TStream& source, std::int64_t count);

 protected:
  /// The place `offset` from `base`, neither before the start nor beyond the numbers.
  static std::int64_t Place(std::int64_t base, std::int64_t offset);
};

/// Bytes in memory. Appending is linear in the final size.
class QXTOOLS_API TMemoryStream : public TStream {
 public:
  TMemoryStream() = default;
  ~TMemoryStream() override;

  std::size_t Read(void* buffer, std::size_t count) override;
  std::size_t Write(const void* buffer, std::size_t count) override;
  std::int64_t Seek(std::int64_t offset, TSeekOrigin origin) override;
  std::int64_t GetSize() const override { return size_; }
  void SetSize(std::int64_t size) override;
  void CopyFrom(TStream& source, std::int64_t count) override;

  /// Drops the bytes and gives their memory back.
  void Clear();
  /// All the bytes, whatever the position; good until the next change.
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

/// An object that loads itself from a stream and saves itself to one.
class QXTOOLS_API IStreamPersist : public IInterface {
 public:
  static constexpr GUID IID = MakeGuid("6E0B1F5C-93D4-4A57-8C2E-1D5A70F4B963");

  /// From the position on.
  virtual void LoadFromStream(TStream* stream) = 0;
  /// At the position.
  virtual void SaveToStream(TStream* stream) = 0;

 protected:
  ~IStreamPersist() = default;
};

}  // namespace qxTools
