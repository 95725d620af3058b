#include <qxTools/platform/FileAssociations.h>
#include <windows.h>
// After windows.h, which it needs.
#include <shlobj.h>

namespace qxTools {

std::string AssociationId(std::string_view typeName) { return std::string(typeName); }

// The values in the classes root are all that the shell needs.
std::vector<PlannedChange> PlannedChangesOf(const FileAssociation&) { return {}; }

bool IsAssociationPublished(const FileAssociation&) { return true; }

bool PublishAssociation(const FileAssociation&) {
  ::SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
  return true;
}

}  // namespace qxTools
