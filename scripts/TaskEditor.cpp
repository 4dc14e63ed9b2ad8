#include "scripts/TaskEditor.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/paths.h"
#include "base/text.h"
#include "base/textEncoding.h"

namespace lorelin {
namespace {

constexpr std::string_view kEnding = ".vts";
constexpr std::string_view kFilter = "Voice Taskscripts (*.vts)|*.vts";

std::string FileName(const std::string& path) {
  return path.substr(path.find_last_of("/\\") + 1);
}

bool IsControl(char c) {
  return static_cast<unsigned char>(c) < 0x20;
}

bool IsSameFile(const std::string& a, const std::string& b) {
  std::error_code error;
  return !a.empty() && !b.empty() && std::filesystem::equivalent(NativePath(a), NativePath(b), error);
}

}  // namespace

// The name goes too: under the former one the new script would replace the old.
void TaskEditor::New() {
  if (!MayDiscard()) return;
  parts_.view.SetScriptText("");
  parts_.view.SetScriptName("");
  file_.clear();
  Discard();
}

void TaskEditor::Open() {
  if (!MayDiscard()) return;
  FileDialogRequest request{.title = "Taskscript öffnen",
                            .folder = {},
                            .fileName = {},
                            .filter = std::string(kFilter),
                            .defaultExtension = ".vts"};
  if (!std::exchange(folderSet_, true)) request.folder = JoinPath(parts_.programFolder, {"scripts"});
  const auto path = parts_.fileDialogs.AskForFile(request);
  if (path) Load(*path);
}

// The name keeps its ending, so that saving writes a second file beside the opened one.
void TaskEditor::Load(const std::string& path) {
  try {
    parts_.view.SetScriptText(ReadTextFile(path));
  } catch (const RuntimeError& error) {
    parts_.messageBoxes.Show("Das Taskscript konnte nicht geöffnet werden: " + std::string(error.what()) +
                                 " (" + std::to_string(error.Number()) + ")",
                             "Fehler", MessageIcon::Exclamation, MessageButtons::Ok);
    return;
  }
  file_ = path;
  parts_.view.SetScriptName(FileName(path));
  Discard();
}

void TaskEditor::NameChanged() {
  const std::string name = parts_.view.ScriptName();
  const bool doubled = LowerAscii(name).ends_with(kEnding);
  parts_.view.ShowNameHint(doubled ? "Gespeichert wird „" + name + std::string(kEnding) +
                                         "“, neben dem geöffneten Taskscript. Ohne „.vts“ im Namen wird "
                                         "dieses selbst ersetzt."
                                   : "");
}

std::string TaskEditor::Path(const std::string& name) const {
  return JoinPath(parts_.programFolder, {"scripts", name + std::string(kEnding)});
}

bool TaskEditor::Refuse(const std::string& reason) {
  parts_.messageBoxes.Show(reason, "Fehler", MessageIcon::Exclamation, MessageButtons::Ok);
  return false;
}

bool TaskEditor::MayReplace(const std::string& path, const std::string& name) {
  if (!FileExists(path) || IsSameFile(path, file_)) return true;
  return parts_.messageBoxes.Show("Ein Taskscript „" + name + "“ gibt es schon. Soll es ersetzt werden?",
                                  "Frage", MessageIcon::Question,
                                  MessageButtons::YesNo) == MessageAnswer::Yes;
}

bool TaskEditor::Save() {
  const std::string name = parts_.view.ScriptName();
  if (WithoutBlanks(name).empty()) return Refuse("Bitte geben Sie dem Taskscript zuerst einen Namen.");
  if (name.find_first_of("/\\") != std::string::npos || std::any_of(name.begin(), name.end(), IsControl)) {
    return Refuse("Der Name eines Taskscripts darf weder „/“ noch „\\“ enthalten.");
  }
  if (!MayReplace(Path(name), name)) return false;
  const std::string text = parts_.view.ScriptText();
  std::string stored = text;
  ReplaceAll(stored, "\n", "\r\n");
  try {
    parts_.files.Replace(Path(name), EncodeText(stored));
  } catch (const RuntimeError& error) {
    return Refuse("Das Taskscript konnte nicht gespeichert werden: " + std::string(error.what()) + " (" +
                  std::to_string(error.Number()) + ")");
  }
  saved_ = text;
  file_ = Path(name);
  parts_.scriptsChanged();
  return true;
}

void TaskEditor::Append(std::string_view line) {
  parts_.view.AppendText("\n" + std::string(line));
}

bool TaskEditor::MayDiscard() {
  if (parts_.view.ScriptText() == saved_) return true;
  switch (parts_.messageBoxes.Show("Möchten Sie das Taskscript speichern?", "Frage", MessageIcon::Question,
                                   MessageButtons::YesNoCancel)) {
    case MessageAnswer::Yes:
      return Save();
    case MessageAnswer::No:
      return true;
    case MessageAnswer::Ok:
    case MessageAnswer::Cancel:
      return false;
  }
  return false;
}

}  // namespace lorelin
