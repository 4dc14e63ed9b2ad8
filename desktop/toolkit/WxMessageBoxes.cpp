#include "desktop/toolkit/WxMessageBoxes.h"

#include "desktop/toolkit/activeWindow.h"
#include "desktop/toolkit/messageDialog.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

long ButtonStyle(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::Ok:
      return wxOK;
    case MessageButtons::YesNo:
      return wxYES_NO;
    case MessageButtons::YesNoCancel:
      return wxYES_NO | wxCANCEL;
    case MessageButtons::YesNoWarily:
      return wxYES_NO | wxNO_DEFAULT;
  }
  return wxOK;
}

MessageAnswer Answer(int id, MessageButtons buttons) {
  if (buttons == MessageButtons::Ok) return MessageAnswer::Ok;
  if (id == wxID_YES) return MessageAnswer::Yes;
  return id == wxID_CANCEL && buttons == MessageButtons::YesNoCancel ? MessageAnswer::Cancel
                                                                     : MessageAnswer::No;
}

}  // namespace

MessageAnswer WxMessageBoxes::Show(std::string_view text, std::string_view title, MessageIcon icon,
                                   MessageButtons buttons) {
  const auto dialog =
      MakeMessageDialog(OwnerOfDialog(parent_), ToWx(text), ToWx(title), ButtonStyle(buttons), icon);
  // The program speaks German whatever the system's language is.
  if (buttons == MessageButtons::Ok) {
    dialog->SetOKLabel("OK");
  } else if (buttons == MessageButtons::YesNoCancel) {
    dialog->SetYesNoCancelLabels("&Ja", "&Nein", "&Abbrechen");
  } else {
    dialog->SetYesNoLabels("&Ja", "&Nein");
  }
  return Answer(dialog->ShowModal(), buttons);
}

MessageAnswer WxMessageBoxes::Choose(std::string_view text, std::string_view title,
                                     const MessageChoices& choices) {
  constexpr MessageButtons kButtons = MessageButtons::YesNoCancel;
  const auto dialog = MakeMessageDialog(OwnerOfDialog(parent_), ToWx(text), ToWx(title),
                                        ButtonStyle(kButtons), MessageIcon::Question);
  dialog->SetYesNoCancelLabels(ToWx(choices.yes), ToWx(choices.no), ToWx(choices.cancel));
  return Answer(dialog->ShowModal(), kButtons);
}

}  // namespace lorelin
