/// @file
/// Filers write the properties of an object to a component file and read them again. A property is a block of
/// bytes with a name. The object defines each property with a function that reads it, a function that writes
/// it, and whether there is anything to write.
///
/// A file has one property after the other and then a byte 0. A property is its name (a byte with the length,
/// 1 to 255, then the bytes), the number of its data bytes (64 bits, lowest byte first) and the data.
#pragma once

#include <qxTools/base/Streams.h>
#include <qxTools/runtime/Persistent.h>

namespace qxTools {

/// A function that reads a property's data from a stream, or writes it to one.
using TStreamProc = std::function<void(TStream* stream)>;

/// The base of TReader and TWriter.
class QXTOOLS_API TFiler : public TObject {
 public:
  TFiler(const TFiler&) = delete;
  TFiler& operator=(const TFiler&) = delete;
  ~TFiler() override;

  /// Defines one property. A reader calls `readData` if this is the property that it has come to; a writer
  /// calls `writeData` if `hasData` is true.
  virtual void DefineBinaryProperty(std::string_view name, const TStreamProc& readData,
                                    const TStreamProc& writeData, bool hasData) = 0;

  /// Returns the ancestor that was given to WriteProperties, while it is running; otherwise null.
  TPersistent* GetAncestor() const { return ancestor_; }

 protected:
  /// Works on a stream, which must outlive the filer.
  explicit TFiler(TStream* stream) : stream_(stream) {}

  TStream* stream_;                  ///< The component file.
  TPersistent* ancestor_ = nullptr;  ///< The ancestor that was given to WriteProperties, or null.
};

/// Writes the properties of objects.
class QXTOOLS_API TWriter : public TFiler {
 public:
  /// Writes to a stream, which must outlive the writer.
  explicit TWriter(TStream* stream) : TFiler(stream) {}
  ~TWriter() override;

  /// Writes the properties that `object` defines, and the end mark. An object may leave out what it has in
  /// common with `ancestor`.
  /// @throws EWriteError if the stream cannot be written.
  void WriteProperties(TPersistent* object, TPersistent* ancestor = nullptr);

  /// Writes one property if `hasData` is true.
  /// @throws EWriteError if the name is empty or longer than 255 bytes, or the stream cannot be written.
  void DefineBinaryProperty(std::string_view name, const TStreamProc& readData, const TStreamProc& writeData,
                            bool hasData) override;
};

/// Reads what TWriter wrote.
class QXTOOLS_API TReader : public TFiler {
 public:
  /// Reads from a stream, which must outlive the reader.
  explicit TReader(TStream* stream) : TFiler(stream) {}
  ~TReader() override;

  /// Reads the properties that WriteProperties wrote, up to the end mark. Properties that were read before an
  /// error are kept.
  /// @throws EReadError "Stream read error", or "Property NAME does not exist" if the object does not define
  /// it.
  void ReadProperties(TPersistent* object);

  /// Calls `readData` with the data if this is the property that the reader has come to.
  /// @throws EReadError "Stream read error" if the data is not complete.
  void DefineBinaryProperty(std::string_view name, const TStreamProc& readData, const TStreamProc& writeData,
                            bool hasData) override;

 private:
  std::string ReadName();

  std::string name_;  // of the current property; empty once it has been read
};

}  // namespace qxTools
