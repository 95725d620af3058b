/// @file
/// The base of objects that copy themselves from one another.
#pragma once

#include <qxTools/base/Types.h>

namespace qxTools {

class TFiler;

/// An object that can be assigned. A derived class overrides Assign, takes the sources that it knows and
/// leaves the others to this one.
class QXTOOLS_API TPersistent : public TObject {
 public:
  ~TPersistent() override;

  /// Lets the source write itself into this object (AssignTo).
  /// @throws EConvertError "Cannot assign a SOURCE to a CLASS" when neither knows the other.
  virtual void Assign(const TPersistent* source);

  /// Tells a component file's reader or writer the properties that are more than fields; here none.
  virtual void DefineProperties(TFiler& filer);

  /// The name of the object's class, for messages.
  virtual std::string ClassName() const;

 protected:
  /// Writes this object into `target`, which did not know it.
  virtual void AssignTo(TPersistent* target) const;
};

}  // namespace qxTools
