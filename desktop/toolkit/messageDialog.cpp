#include "desktop/toolkit/messageDialog.h"

namespace lorelin {

long IconStyle(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::None:
      return wxICON_NONE;
    case MessageIcon::Information:
      return wxICON_INFORMATION;
    case MessageIcon::Question:
      return wxICON_QUESTION;
    case MessageIcon::Exclamation:
      return wxICON_WARNING;
    case MessageIcon::Critical:
      return wxICON_ERROR;
  }
  return wxICON_NONE;
}

}  // namespace lorelin
