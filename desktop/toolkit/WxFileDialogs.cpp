#include "desktop/toolkit/WxFileDialogs.h"

#include <wx/filedlg.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/tokenzr.h>

#include "desktop/toolkit/activeWindow.h"
#include "desktop/toolkit/addressDialog.h"
#include "desktop/toolkit/text.h"

namespace lorelin {
namespace {

// The ending that a typed name without one gets: that of the chosen filter when it stands for a single one.
wxString EndingFor(const FileDialogRequest& request, int filter) {
  const wxArrayString parts = wxStringTokenize(ToWx(request.filter), "|", wxTOKEN_RET_EMPTY_ALL);
  const auto index = 2 * static_cast<std::size_t>(filter) + 1;
  if (index < parts.size()) {
    wxString ending;
    if (parts[index].StartsWith("*.", &ending) && ending.find_first_of("*;?") == wxString::npos)
      return "." + ending;
  }
  return ToWx(request.defaultExtension);
}

}  // namespace

std::optional<WxFileDialogs::Choice> WxFileDialogs::Ask(const FileDialogRequest& request, long style) {
  const wxString folder = request.folder.empty() ? lastFolder_ : ToWx(request.folder);
  wxFileDialog dialog(OwnerOfDialog(parent_), ToWx(request.title), folder, ToWx(request.fileName),
                      ToWx(request.filter), style);
  if (dialog.ShowModal() != wxID_OK) return std::nullopt;
  lastFolder_ = wxFileName(dialog.GetPath()).GetPath();
  return Choice{.path = dialog.GetPath(), .filter = dialog.GetFilterIndex()};
}

std::optional<std::string> WxFileDialogs::AskForFile(const FileDialogRequest& request) {
  const auto choice = Ask(request, wxFD_OPEN | wxFD_FILE_MUST_EXIST);
  if (!choice) return std::nullopt;
  return FromWx(choice->path);
}

std::optional<std::string> WxFileDialogs::AskForAddress(const std::string& proposed) {
  return AskForWebAddress(OwnerOfDialog(parent_), proposed);
}

bool WxFileDialogs::MayReplace(const wxString& path) {
  if (!wxFileExists(path)) return true;
  return messageBoxes_.Show("Die Datei „" + FromWx(wxFileName(path).GetFullName()) +
                                "“ gibt es schon. Soll sie ersetzt werden?",
                            "Frage", MessageIcon::Question, MessageButtons::YesNo) == MessageAnswer::Yes;
}

// The dialog asks for the name as it was typed; the one with its ending has to be asked for as well.
std::optional<std::string> WxFileDialogs::AskForTarget(const FileDialogRequest& request) {
  FileDialogRequest next = request;
  while (true) {
    const auto choice = Ask(next, wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (!choice) return std::nullopt;
    wxFileName name(choice->path);
    if (name.HasExt()) return FromWx(choice->path);
    const wxString path = choice->path + EndingFor(request, choice->filter);
    if (MayReplace(path)) return FromWx(path);
    next.folder = FromWx(name.GetPath());
    next.fileName = FromWx(name.GetFullName());
  }
}

}  // namespace lorelin
