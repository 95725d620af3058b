/// @file
/// The base of objects that can be assigned to one another.
#pragma once

#include <qxTools/base/Types.h>

namespace qxTools {

class TFiler;

/// An object that can be assigned. A derived class overrides Assign, copies the sources that it knows, and
/// calls this class's Assign for the others.
class QXTOOLS_API TPersistent : public TObject {
 public:
  ~TPersistent() override;

  /// Calls `source->AssignTo(this)`, so that a class can also define what it can be assigned to.
  /// @throws EConvertError "Cannot assign a SOURCE to a CLASS" if neither class knows the other.
  virtual void Assign(const TPersistent* source);

  /// Defines the object's properties to a reader or writer (runtime/Filer.h). This class defines none.
  virtual void DefineProperties(TFiler& filer);

  /// Returns the name of the object's class, for messages.
  virtual std::string ClassName() const;

 protected:
  /// Copies this object to `target`, whose Assign does not know it. This class throws EConvertError.
  virtual void AssignTo(TPersistent* target) const;
};

}  // namespace qxTools
