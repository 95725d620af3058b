/// @file
/// Stores: objects that save and load themselves through streams, files and component files, with a modified
/// flag, events and equality by content; and the store of a block of bytes with a comment.
///
/// A file store's file, integers little-endian:
///
///     offset  size  content
///          0     1  length of the flag, 3
///          1     3  "QXF"
///          4     4  zeros, not read
///          8     8  number of data bytes, signed
///         16     1  length of the comment, 0 to 50
///         17    50  the comment; bytes behind its length are zeros, not read
///         67     5  zeros, not read
///         72        the data
#pragma once

#include <qxTools/base/ShortString.h>
#include <qxTools/painting/Geometry.h>
#include <qxTools/runtime/Filer.h>
#include <qxTools/runtime/InterfacedPersistent.h>

namespace qxTools::qxStore {

/// What a file begins with.
using TFileFlag = ShortString<3>;

/// Where a long work stands.
enum TProgressStage { psStarting, psRunning, psEnding };

/// `percentDone` is 0 to 255.
using TProgressEvent = std::function<void(TObject* sender, TProgressStage stage, std::uint8_t percentDone,
                                          bool redrawNow, const TRect& r, const std::string& msg)>;

/// What a store is, whatever it holds. Streams and stores given to it stay the caller's.
class QXTOOLS_API TQXCustomStore : public TInterfacedPersistent, public IStreamPersist {
 public:
  TQXCustomStore() = default;
  TQXCustomStore(const TQXCustomStore&) = delete;
  TQXCustomStore& operator=(const TQXCustomStore&) = delete;
  ~TQXCustomStore() override;
  QXTOOLS_INTERFACED_OBJECT

  /// Sets the modified flag and fires OnChange. On purpose: the event's sender is this store, not `Sender`.
  virtual void Changed(TObject* sender);
  /// Whether both are empty, or both are of the very same class and write the same bytes. False for null.
  virtual bool Equals(TQXCustomStore* other);
  virtual bool GetEmpty() const = 0;
  /// The property "Data" of a component file: LoadFromStream.
  virtual void ReadData(TStream* stream);
  /// The same: SaveToStream.
  virtual void WriteData(TStream* stream);
  /// Fires OnProgress with all six arguments.
  virtual void Progress(TObject* sender, TProgressStage stage, std::uint8_t percentDone, bool redrawNow,
                        const TRect& r, const std::string& msg);
  /// @throws EFOpenError, also for a file that somebody else writes to; and what LoadFromStream raises.
  virtual void LoadFromFile(const std::string& fileName);
  /// Saves whole or not at all: SaveToStream gets a stream of its own, which can also be read back, sought
  /// and resized, and replaces the file when it is complete (platform/Files.h, WholeFileWriter).
  /// @throws EFCreateError or EWriteError, or what SaveToStream throws; the old file is unchanged then.
  virtual void SaveToFile(const std::string& fileName);

  /// Defines the binary property "Data". It is written when the ancestor is no store or not equal, and
  /// without an ancestor when this store is not empty.
  void DefineProperties(TFiler& filer) override;
  std::string ClassName() const override { return "TQXCustomStore"; }

  bool GetModified() const { return modified_; }
  /// True calls Changed; false clears the flag without an event.
  void SetModified(bool value);
  const TNotifyEvent& GetOnChange() const { return onChange_; }
  void SetOnChange(TNotifyEvent value) { onChange_ = std::move(value); }
  const TProgressEvent& GetOnProgress() const { return onProgress_; }
  void SetOnProgress(TProgressEvent value) { onProgress_ = std::move(value); }

 protected:
  void* FindInterface(const GUID& iid) override;

 private:
  TNotifyEvent onChange_;
  bool modified_ = false;
  TProgressEvent onProgress_;
};

/// A block of bytes and a short comment.
class QXTOOLS_API TQXFileStore : public TQXCustomStore {
 public:
  TQXFileStore() = default;
  ~TQXFileStore() override;

  bool GetEmpty() const override { return data_.GetSize() == 0; }

  /// Takes comment and data; the modified flag stays as it is. The announced size is never believed: memory
  /// is asked for as the bytes arrive.
  ///
  /// On purpose: a stream that begins with another flag changes nothing and is no error; it is left behind
  /// the 72 bytes of the header.
  /// @throws EReadError "Stream read error" when there are fewer bytes than the header has, or than it
  /// announces, or when it announces less than nothing; in the last two cases, and when memory is short
  /// (EWriteError), the store is empty then and has the new comment.
  void LoadFromStream(TStream* stream) override;
  /// Writes header and data, and rewinds the data stream. @throws EWriteError, also for the data stream
  /// itself.
  void SaveToStream(TStream* stream) override;

  /// What a file begins with. @return "QXF".
  virtual TFileFlag GetFlag() const;

  /// The data themselves, to be filled or read; they stay the store's.
  TMemoryStream* GetStream() { return &data_; }
  const AnsiString& GetComment() const { return comment_; }
  /// Sets the comment, of which 50 bytes reach a file. On purpose: the store does not become modified.
  void SetComment(std::string_view value) { comment_ = value; }
  std::string ClassName() const override { return "TQXFileStore"; }

 private:
  TMemoryStream data_;
  AnsiString comment_;
};

}  // namespace qxTools::qxStore
