/// @file
/// Stores: objects that save and load themselves through streams, files and component files, with a modified
/// flag, events and equality by content; and the store of a block of bytes with a comment.
///
/// A file store's file, integers little-endian:
///
///     offset  size  content
///          0     1  length of the flag, 3
///          1     3  "QXF"
///          4     4  zeros, ignored when reading
///          8     8  number of data bytes, signed
///         16     1  length of the comment, 0 to 50
///         17    50  the comment, then zeros, ignored when reading
///         67     5  zeros, ignored when reading
///         72        the data
#pragma once

#include <qxTools/base/ShortString.h>
#include <qxTools/painting/Geometry.h>
#include <qxTools/runtime/Filer.h>
#include <qxTools/runtime/InterfacedPersistent.h>

namespace qxTools::qxStore {

/// The letters that a file begins with, at most three.
using TFileFlag = ShortString<3>;

/// The stages of a long operation.
enum TProgressStage {
  psStarting,  ///< It begins.
  psRunning,   ///< It is going on.
  psEnding,    ///< It has ended.
};

/// A progress event. `sender` is the object that works, `stage` and `percentDone` (0 to 255) say how far it
/// is; `redrawNow` asks to redraw the rectangle `r` at once; `msg` is a text for the user.
using TProgressEvent = std::function<void(TObject* sender, TProgressStage stage, std::uint8_t percentDone,
                                          bool redrawNow, const TRect& r, const std::string& msg)>;

/// The base of all stores, whatever they hold. Streams and stores that are passed to it remain the caller's.
class QXTOOLS_API TQXCustomStore : public TInterfacedPersistent, public IStreamPersist {
 public:
  /// Makes a store that is not modified and has no events.
  TQXCustomStore() = default;
  TQXCustomStore(const TQXCustomStore&) = delete;
  TQXCustomStore& operator=(const TQXCustomStore&) = delete;
  ~TQXCustomStore() override;
  QXTOOLS_INTERFACED_OBJECT

  /// Sets the modified flag and fires OnChange.
  ///
  /// On purpose: the sender of the event is this store, not `sender`.
  virtual void Changed(TObject* sender);
  /// Returns whether both stores are empty, or both are of exactly the same class and write the same bytes.
  /// Returns false for null.
  virtual bool Equals(TQXCustomStore* other);
  /// Returns whether the store holds nothing.
  virtual bool GetEmpty() const = 0;
  /// Reads the property "Data" of a component file, by LoadFromStream.
  virtual void ReadData(TStream* stream);
  /// Writes the property "Data" of a component file, by SaveToStream.
  virtual void WriteData(TStream* stream);
  /// Fires OnProgress with these six arguments.
  virtual void Progress(TObject* sender, TProgressStage stage, std::uint8_t percentDone, bool redrawNow,
                        const TRect& r, const std::string& msg);
  /// Loads the store from a file, by LoadFromStream.
  /// @throws EFOpenError if the file cannot be opened, or if another program is writing to it. What
  /// LoadFromStream throws reaches the caller.
  virtual void LoadFromFile(const std::string& fileName);
  /// Saves whole or not at all: SaveToStream gets a stream of its own, which can also be read back, sought
  /// and resized, and replaces the file when it is complete (platform/Files.h, WholeFileWriter).
  /// @throws EFCreateError or EWriteError, or what SaveToStream throws; the old file is unchanged then.
  virtual void SaveToFile(const std::string& fileName);

  /// Defines the binary property "Data". It is written if the ancestor is not a store, or is one that is not
  /// equal; without an ancestor it is written if this store is not empty.
  void DefineProperties(TFiler& filer) override;
  /// Returns "TQXCustomStore".
  std::string ClassName() const override { return "TQXCustomStore"; }

  /// Returns the modified flag.
  bool GetModified() const { return modified_; }
  /// True calls Changed. False clears the modified flag and fires no event.
  void SetModified(bool value);
  /// Returns the event that Changed fires.
  const TNotifyEvent& GetOnChange() const { return onChange_; }
  /// Sets the event that Changed fires, or none.
  void SetOnChange(TNotifyEvent value) { onChange_ = std::move(value); }
  /// Returns the event that Progress fires.
  const TProgressEvent& GetOnProgress() const { return onProgress_; }
  /// Sets the event that Progress fires, or none.
  void SetOnProgress(TProgressEvent value) { onProgress_ = std::move(value); }

 protected:
  /// Returns the store's IStreamPersist or IInterface, or null for another identifier.
  void* FindInterface(const GUID& iid) override;

 private:
  TNotifyEvent onChange_;
  bool modified_ = false;
  TProgressEvent onProgress_;
};

/// A block of bytes and a short comment.
class QXTOOLS_API TQXFileStore : public TQXCustomStore {
 public:
  /// Makes an empty store without a comment.
  TQXFileStore() = default;
  ~TQXFileStore() override;

  /// Returns whether there are no data bytes; the comment does not count.
  bool GetEmpty() const override { return data_.GetSize() == 0; }

  /// Loads comment and data from the stream's current position. The modified flag is unchanged. Memory is
  /// taken as the bytes arrive, whatever size the header states.
  /// @throws EReadError "Stream read error" if there are fewer bytes than a header has; the store is
  /// unchanged then. Also if there are fewer data bytes than the header states, or if it states a negative
  /// number; the store is empty then and has the new comment.
  /// @throws EWriteError if memory runs out; the store is empty then and has the new comment.
  ///
  /// On purpose: a stream with another flag is ignored. It is not an error; the stream is after the 72 bytes
  /// of the header then.
  void LoadFromStream(TStream* stream) override;
  /// Writes header and data at the stream's current position, and sets the position of the data stream to 0.
  /// @throws EWriteError "Stream write error", also if `stream` is the data stream of this store.
  void SaveToStream(TStream* stream) override;

  /// Returns the letters that a file begins with, "QXF". A derived class may return others.
  virtual TFileFlag GetFlag() const;

  /// Returns the data, to be filled or read. They belong to the store.
  TMemoryStream* GetStream() { return &data_; }
  /// Returns the comment.
  const AnsiString& GetComment() const { return comment_; }
  /// Sets the comment. Its first 50 bytes are saved.
  ///
  /// On purpose: the store does not become modified.
  void SetComment(std::string_view value) { comment_ = value; }
  /// Returns "TQXFileStore".
  std::string ClassName() const override { return "TQXFileStore"; }

 private:
  TMemoryStream data_;
  AnsiString comment_;
};

}  // namespace qxTools::qxStore
