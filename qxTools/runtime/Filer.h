/// @file
/// Filers: how a component file asks an object for the properties that are more than its fields, here blocks
/// of bytes. The object defines each with a reader, a writer and whether there is anything to write.
///
/// A file holds one property after the other and then a byte 0. A property is its name (a byte with the
/// length, 1 to 255, then the bytes), the number of its data bytes (64 bits, little-endian) and the data.
#pragma once

#include <qxTools/base/Streams.h>
#include <qxTools/runtime/Persistent.h>

namespace qxTools {

/// Reads a property's data from a stream, or writes it to one.
using TStreamProc = std::function<void(TStream* stream)>;

/// What a reader and a writer have in common.
class QXTOOLS_API TFiler : public TObject {
 public:
  TFiler(const TFiler&) = delete;
  TFiler& operator=(const TFiler&) = delete;
  ~TFiler() override;

  /// A reader calls `readData` when it stands at this property; a writer calls `writeData` if `hasData`.
  virtual void DefineBinaryProperty(std::string_view name, const TStreamProc& readData,
                                    const TStreamProc& writeData, bool hasData) = 0;

  /// The object that this one was derived from, which has written its properties already, or null.
  TPersistent* GetAncestor() const { return ancestor_; }

 protected:
  /// `stream` stays the caller's.
  explicit TFiler(TStream* stream) : stream_(stream) {}

  TStream* stream_;                  ///< The file.
  TPersistent* ancestor_ = nullptr;  ///< See GetAncestor.
};

/// Writes the properties of objects.
class QXTOOLS_API TWriter : public TFiler {
 public:
  /// `stream` stays the caller's.
  explicit TWriter(TStream* stream) : TFiler(stream) {}
  ~TWriter() override;

  /// Writes the properties that `object` defines, and the end mark. With an ancestor the object leaves out
  /// what it has in common with it.
  void WriteProperties(TPersistent* object, TPersistent* ancestor = nullptr);

  /// @throws EWriteError for a name that is empty or longer than 255 bytes.
  void DefineBinaryProperty(std::string_view name, const TStreamProc& readData, const TStreamProc& writeData,
                            bool hasData) override;
};

/// Reads what TWriter wrote.
class QXTOOLS_API TReader : public TFiler {
 public:
  /// `stream` stays the caller's.
  explicit TReader(TStream* stream) : TFiler(stream) {}
  ~TReader() override;

  /// Reads what WriteProperties wrote.
  /// @throws EReadError "Stream read error", or "Property NAME does not exist" for one that the object does
  /// not define.
  void ReadProperties(TPersistent* object);

  void DefineBinaryProperty(std::string_view name, const TStreamProc& readData, const TStreamProc& writeData,
                            bool hasData) override;

 private:
  std::string ReadName();

  std::string name_;  // of the property at hand, empty once it has been read
};

}  // namespace qxTools
