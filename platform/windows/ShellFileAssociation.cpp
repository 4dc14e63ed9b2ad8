#include "platform/windows/ShellFileAssociation.h"

#include <windows.h>
// the other needs windows.h before it
#include <shlobj.h>

namespace lorelin {

void ShellFileAssociation::Publish(const FileAssociationData&) {
  if (registry_.ClassesChanged()) SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
}

}  // namespace lorelin
