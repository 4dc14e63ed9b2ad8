#include "documents/Documents.h"

#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/paths.h"
#include "base/text.h"
#include "documents/windowTitle.h"
#include "import/importFormats.h"
#include "richtext/chapters.h"
#include "richtext/rtf.h"

namespace lorelin {
namespace {

constexpr std::string_view kOpenFilter =
    "Textbasierende Dateien (*.txt,*.rtf)|*.txt;*.rtf|Textdateien (*.txt)|*.txt|Wordpad Dateien "
    "(*.rtf)|*.rtf|Alle "
    "Dateien (*.*)|*.*";
constexpr std::string_view kSaveFilter =
    "Textdateien (*.txt)|*.txt|Wordpad Dateien (*.rtf)|*.rtf|Alle Dateien (*.*)|*.*";
constexpr int kNoOldFile = static_cast<int>(ErrorNumber::FileNotFound);

std::string FileName(const std::string& path) {
  return path.substr(path.find_last_of("/\\") + 1);
}

std::string Folder(const std::string& path) {
  const auto separator = path.find_last_of("/\\");
  return separator == std::string::npos ? "" : path.substr(0, separator);
}

// While the program itself changes the text.
class LoadingState {
 public:
  explicit LoadingState(bool& loading) : loading_(loading) { loading_ = true; }
  ~LoadingState() { loading_ = false; }
  LoadingState(const LoadingState&) = delete;
  LoadingState& operator=(const LoadingState&) = delete;

 private:
  bool& loading_;
};

// Formats are kept in RTF only.
std::string ProposedName(const Document& document) {
  const std::string name = FileName(document.path);
  return document.copy && !name.empty() ? name.substr(0, name.find_last_of('.')) + ".rtf" : name;
}

}  // namespace

// What the text was made of is never written, nor taken for something that this program could have written.
bool Documents::IsOriginal(const std::string& path) const {
  std::error_code error;
  return document_.copy && !document_.shown.empty() &&
         (path == document_.shown ||
          std::filesystem::equivalent(NativePath(path), NativePath(document_.shown), error));
}

void Documents::NewDoc() {
  if (!parts_.editor.IsEmpty()) {
    switch (
        parts_.messageBoxes.Show("Möchten Sie das aktuelle Dokument speichern bevor Sie ein neues anlegen?",
                                 "Frage", MessageIcon::Question, MessageButtons::YesNoCancel)) {
      case MessageAnswer::Yes:
        SaveDoc();
        break;
      case MessageAnswer::No:
        parts_.unwanted();
        parts_.editor.SetText("");
        document_.path.clear();
        document_.format = {};
        Stored();
        break;
      case MessageAnswer::Ok:
      case MessageAnswer::Cancel:
        return;
    }
  }
  parts_.extensions.NewFile();
}

// Only the name decides; what is in the file does not matter.
bool Documents::IsTextFile(const std::string& path) {
  const std::string lower = LowerAscii(path);
  if (lower.ends_with(".txt") || lower.ends_with(".rtf")) return true;
  return parts_.messageBoxes.Show(
             "Die von Ihnen ausgewählte Datei scheint keine darstellbare, textbasierende Datei zu "
             "sein.\n\nMöchten Sie "
             "diese trotzdem öffnen?",
             "Frage", MessageIcon::Question, MessageButtons::YesNo) == MessageAnswer::Yes;
}

bool Documents::OpenDoc() {
  const auto path = parts_.fileDialogs.AskForFile({.title = "Öffnen",
                                                   .folder = Folder(document_.path),
                                                   .fileName = {},
                                                   .filter = std::string(kOpenFilter),
                                                   .defaultExtension = document_.defaultExtension});
  return path && OpenPath(*path);
}

bool Documents::OpenPath(const std::string& path) {
  return IsTextFile(path) && OpenReadable(path);
}

bool Documents::OpenReadable(const std::string& path) {
  parts_.pump.RunPendingEvents();
  parts_.extensions.OpenFile(path);
  try {
    Load(path);
  } catch (const RuntimeError& error) {
    TellUnreadable(path, error);
    return false;
  }
  // Only now: a name whose file is not shown would be overwritten with another text.
  SetPath(path);
  parts_.used(path);
  return true;
}

// Only what could be shown, and would be destroyed on saving, has to be explained.
void Documents::TellUnreadable(const std::string& path, const RuntimeError& error) {
  parts_.log.Write(path + ": " + error.what());
  if (error.Number() == static_cast<int>(ErrorNumber::OutOfMemory)) TellTooLarge(error.what());
  if (error.Number() != static_cast<int>(ErrorNumber::InvalidFileFormat)) return;
  const std::string reason = IsImportable(path)
                                 ? "„" + FileName(path) + "“: " + error.what()
                                 : "Die Datei „" + FileName(path) +
                                       "“ enthält keinen Text, den Lorelin anzeigen oder vorlesen könnte.";
  parts_.messageBoxes.Show(reason, "Öffnen", MessageIcon::Exclamation, MessageButtons::Ok);
}

void Documents::TellTooLarge(const std::string& reason) {
  parts_.messageBoxes.Show(reason, "Öffnen", MessageIcon::Exclamation, MessageButtons::Ok);
}

// The stamp comes first: what is written during the reading is noticed later.
void Documents::Load(const std::string& path) {
  const FileStamp stamp = StampOf(path);
  Become(path, stamp, ShowFile(path));
}

Documents::Shown Documents::ShowFile(const std::string& path) {
  if (IsImportable(path)) return ShowImported(Import(path));
  const LoadingState loading(loading_);
  LoadedFile loaded = parts_.editor.LoadFile(path);
  return {.format = loaded.format, .info = {.chapters = std::move(loaded.chapters)}};
}

Documents::Shown Documents::ShowImported(const ImportedDocument& document) {
  const LoadingState loading(loading_);
  RichText text = document.text;
  MarkHeadings(text, document.info.chapters);
  parts_.editor.ShowRichText(WriteRtf(text));
  return {.info = document.info, .copy = true, .notice = document.notice};
}

// Pages without a text are of no use to anybody; what has some is shown as it is.
ImportedDocument Documents::Import(const std::string& path) {
  ImportedDocument document = parts_.import.Run({.path = path});
  if (!document.text.text.empty()) return document;
  if (document.hasPages && WantsRecognition(path)) {
    document = parts_.import.Run({.path = path, .recognisePages = true});
    if (!document.text.text.empty()) return document;
  } else if (document.hasPages) {
    throw RuntimeError(ErrorNumber::Cancelled);
  }
  throw RuntimeError(ErrorNumber::InvalidFileFormat,
                     document.notice.empty() ? "Das Dokument enthält keinen Text." : document.notice);
}

bool Documents::WantsRecognition(const std::string& path) {
  return parts_.messageBoxes.Show("„" + FileName(path) +
                                      "“ enthält nur Bilder von Seiten.\n\nSoll Lorelin den Text darauf "
                                      "erkennen? Das dauert einige Sekunden für jede Seite.",
                                  "Frage", MessageIcon::Question,
                                  MessageButtons::YesNo) == MessageAnswer::Yes;
}

void Documents::Become(const std::string& path, const FileStamp& stamp, Shown shown) {
  document_.format = shown.format;
  document_.info = std::move(shown.info);
  document_.copy = shown.copy;
  document_.shown = path;
  document_.stamp = stamp;
  known_ = stamp;
  Stored();
  if (!shown.notice.empty()) parts_.statusBar.SetMessage(shown.notice);
}

bool Documents::OpenPage(const std::string& file, const std::string& address, const std::string& charset) {
  parts_.pump.RunPendingEvents();
  parts_.extensions.OpenFile(address);
  try {
    ImportedDocument page = parts_.import.Run(
        {.path = file, .articleOnly = file.ends_with(".html"), .source = address, .charset = charset});
    if (page.text.text.empty())
      throw RuntimeError(ErrorNumber::InvalidFileFormat, "Die Seite enthält keinen Text.");
    Become("", {}, ShowImported(page));
  } catch (const RuntimeError& error) {
    parts_.log.Write(error.what());
    if (error.Number() == static_cast<int>(ErrorNumber::InvalidFileFormat))
      parts_.messageBoxes.Show(error.what(), "Adresse öffnen", MessageIcon::Exclamation, MessageButtons::Ok);
    return false;
  }
  SetPath("");
  return true;
}

void Documents::LoadAtStart(const std::string& path) {
  try {
    Load(path);
    parts_.used(AbsolutePath(path));
  } catch (const RuntimeError& error) {
    parts_.log.Write(path + ": " + error.what());
    if (error.Number() == static_cast<int>(ErrorNumber::OutOfMemory)) {
      parts_.pump.Post([this, reason = std::string(error.what())] { TellTooLarge(reason); });
    }
  }
}

void Documents::Restore(const std::string& snapshot) {
  Load(snapshot);
  document_.format = {};
  document_.path.clear();
  modified_ = true;
  DocumentInfo info = std::move(document_.info);
  Replaced();
  document_.info = std::move(info);
  parts_.stateChanged();
}

void Documents::SetPath(const std::string& path) {
  document_.path = path;
  parts_.stateChanged();
}

void Documents::Stored() {
  modified_ = false;
  parts_.stored();
  parts_.stateChanged();
}

void Documents::Changed() {
  if (!loading_ && !std::exchange(modified_, true)) parts_.stateChanged();
}

void Documents::Replaced() {
  if (loading_) return;
  document_.shown.clear();
  document_.stamp = {};
  document_.info = {};
  document_.copy = false;
  parts_.stateChanged();
}

std::string Documents::Title() const {
  const bool isFile = !document_.shown.empty();
  return WindowTitle(isFile ? FileName(document_.shown) : document_.info.title, modified_);
}

int Documents::WriteText(const std::string& path) {
  const int result =
      WriteTextFile(path, StoredText(parts_.editor.Text(), document_.format), parts_.files, parts_.pump);
  if (result == 0 || result == kNoOldFile) {
    Written(path);
  } else {
    TellUnsaved(path, ErrorText(static_cast<ErrorNumber>(result)));
  }
  return result;
}

void Documents::TellError(int number) {
  parts_.messageBoxes.Show("Während des Speichervorganges ist ein Fehler aufgetreten: " +
                               ErrorText(static_cast<ErrorNumber>(number)) + " (" + std::to_string(number) +
                               ")",
                           "Fehler", MessageIcon::Exclamation, MessageButtons::Ok);
}

bool Documents::SaveRichText(const std::string& path) {
  try {
    parts_.files.Replace(path, parts_.editor.RichText());
  } catch (const RuntimeError& error) {
    TellUnsaved(path, error.what());
    return false;
  }
  Written(path);
  return true;
}

// Only now is it the document's: the window must not claim what is not so.
void Documents::Written(const std::string& path) {
  document_.path = path;
  document_.shown = path;
  document_.copy = false;
  document_.stamp = StampOf(path);
  known_ = document_.stamp;
  Stored();
  parts_.used(path);
  parts_.statusBar.SetMessage("Gespeichert: " + FileName(path));
}

void Documents::TellUnsaved(const std::string& path, const std::string& reason) {
  parts_.log.Write(path + ": " + reason);
  parts_.statusBar.SetMessage("„" + FileName(path) + "“ wurde nicht gespeichert: " + reason);
}

bool Documents::WriteAsEnded(const std::string& path) {
  if (!path.ends_with(".txt")) return SaveRichText(path);
  const int result = WriteText(path);
  if (result == 0 || result == kNoOldFile) return true;
  TellError(result);
  return false;
}

bool Documents::SaveDoc() {
  const auto path = parts_.fileDialogs.AskForTarget({.title = "Speichern",
                                                     .folder = Folder(document_.path),
                                                     .fileName = ProposedName(document_),
                                                     .filter = std::string(kSaveFilter),
                                                     .defaultExtension = document_.defaultExtension});
  if (!path) return false;
  if (IsOriginal(*path)) {
    parts_.messageBoxes.Show(
        "Das Original „" + FileName(*path) +
            "“ bleibt, wie es ist. Bitte speichern Sie den Text unter einem anderen Namen.",
        "Speichern", MessageIcon::Exclamation, MessageButtons::Ok);
    return false;
  }
  const bool saved = WriteAsEnded(*path);
  parts_.extensions.SaveFile(*path);
  return saved;
}

void Documents::SaveAs() {
  const std::string path = document_.path;
  if (path.empty() || IsOriginal(path)) {
    SaveDoc();
  } else if (document_.shown != path && StampOf(path).exists) {
    OverwriteOtherText();
  } else if (OthersWroteIt()) {
    SaveOverOthers();
  } else {
    (void)WriteText(path);
  }
}

// The file dialogs share a path that may have stayed behind when another text came.
void Documents::OverwriteOtherText() {
  switch (parts_.messageBoxes.Choose(
      "Die Datei „" + FileName(document_.path) + "“ enthält einen anderen Text als den, der hier steht.",
      "Frage", {.yes = "&Überschreiben", .no = "Speichern &unter …", .cancel = "&Abbrechen"})) {
    case MessageAnswer::Yes:
      (void)WriteText(document_.path);
      return;
    case MessageAnswer::No:
      SaveDoc();
      return;
    case MessageAnswer::Ok:
    case MessageAnswer::Cancel:
      return;
  }
}

bool Documents::OthersWroteIt() const {
  const FileStamp now = StampOf(document_.shown);
  return now.exists && document_.stamp.exists && now != document_.stamp;
}

void Documents::SaveOverOthers() {
  switch (parts_.messageBoxes.Choose(
      "Die Datei „" + FileName(document_.path) + "“ wurde inzwischen von einem anderen Programm geändert.",
      "Frage", {.yes = "&Neu laden", .no = "&Trotzdem speichern", .cancel = "Speichern &unter …"})) {
    case MessageAnswer::Yes:
      return Reload();
    case MessageAnswer::No:
      (void)WriteText(document_.path);
      return;
    case MessageAnswer::Ok:
    case MessageAnswer::Cancel:
      SaveDoc();
      return;
  }
}

void Documents::Reload() {
  const std::string path = document_.shown;
  try {
    Load(path);
  } catch (const RuntimeError& error) {
    TellUnreadable(path, error);
  }
}

// Once for each change: a text that is to stay is asked about again only when it is saved.
void Documents::LookAtFile() {
  if (asking_ || !OthersWroteIt()) return;
  const FileStamp now = StampOf(document_.shown);
  if (now == std::exchange(known_, now)) return;
  asking_ = true;
  const std::string changes = modified_ ? "\n\nIhre Änderungen bleiben links unter den nicht gespeicherten "
                                          "Texten erhalten."
                                        : "";
  const MessageAnswer answer = parts_.messageBoxes.Show(
      "Die Datei „" + FileName(document_.shown) +
          "“ wurde von einem anderen Programm geändert.\n\nMöchten Sie sie neu laden?" + changes,
      "Frage", MessageIcon::Question, MessageButtons::YesNo);
  asking_ = false;
  if (answer == MessageAnswer::Yes) Reload();
}

bool Documents::MayExit() {
  switch (parts_.messageBoxes.Show("Möchten Sie das aktuelle Dokument speichern bevor Sie Lorelin beenden?",
                                   "Frage", MessageIcon::Question, MessageButtons::YesNoCancel)) {
    case MessageAnswer::Yes:
      return SaveDoc();
    case MessageAnswer::No:
      Stored();
      return true;
    case MessageAnswer::Ok:
    case MessageAnswer::Cancel:
      return false;
  }
  return false;
}

}  // namespace lorelin
