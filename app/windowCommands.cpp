#include "app/windowCommands.h"

#include <string>
#include <utility>

namespace lorelin {
namespace {

// The document is out of sight while a page is shown, and left alone.
CommandTable::Effect InText(EditorCommands& editing, CommandTable::Effect effect) {
  return [&editing, effect = std::move(effect)] {
    if (!editing.ShowsPage()) effect();
  };
}

void CopySelection(DocumentEditor& editor, Clipboard& clipboard) {
  const std::string selected = editor.SelectedText();
  // Nothing selected: what the clipboard holds is worth more than nothing.
  if (!selected.empty()) clipboard.SetText(selected);
}

void CutSelection(DocumentEditor& editor, Clipboard& clipboard) {
  CopySelection(editor, clipboard);
  editor.ReplaceSelection("");
}

}  // namespace

void AddSpeechCommands(CommandTable& commands, ModSpeak& speech, ModExport& exporter, VoiceDialogs& dialogs) {
  commands.Add("Speak", [&] { speech.SpeakMenu(); });
  commands.Add("SpeakDocument", [&] { speech.SpeakToolbar(); });
  commands.Add("ReadFromCursor", [&] { speech.ReadFromCursor(); });
  commands.Add("ReadSelection", [&] { speech.ReadSelection(); });
  commands.Add("Pause", [&] { speech.PauseSpeech(); });
  commands.Add("ExportDoc", [&] { exporter.ExportDoc(); });
  commands.Add("ChooseVoice", [&] { dialogs.ChooseVoice(); });
  commands.Add("ChangeVolume", [&] { dialogs.ChangeParameter(VoiceParameter::Volume); });
  commands.Add("ChangeSpeed", [&] { dialogs.ChangeParameter(VoiceParameter::Speed); });
  commands.Add("ChangePitch", [&] { dialogs.ChangeParameter(VoiceParameter::Pitch); });
}

void AddConditions(CommandTable& commands, ModSpeak& speech, EditorCommands& editing) {
  const auto speaking = [&speech] { return speech.Voice().Speaking(); };
  // A rendering that goes on behind a speech that has ended can be stopped, too.
  commands.AddCondition("Stop", [=, &speech] { return speaking() || speech.Voice2().Speaking(); });
  // Who paused before a stop has to be able to take the pause back.
  commands.AddCondition("Pause", [=, &speech] { return speaking() || speech.IsPaused(); });
  commands.AddCondition("ReadSelection", [&] { return editing.HasSelection(); });
  for (const auto* const command : {"Cut", "Insert", "Delete", "Replace"})
    commands.AddCondition(command, [&] { return !editing.ShowsPage(); });
  commands.AddCondition("Undo", [&] { return !editing.ShowsPage() && editing.CanUndo(); });
  commands.AddCondition("Redo", [&] { return !editing.ShowsPage() && editing.CanRedo(); });
}

void AddDocumentCommands(CommandTable& commands, Documents& documents, FileOpening& opening) {
  commands.Add("NewDoc", [&] { documents.NewDoc(); });
  commands.Add("OpenDoc", [&] { opening.Choose(); });
  commands.Add("OpenBook", [&] { opening.ChooseBook(); });
  commands.Add("OpenRecent", [&] { opening.OpenRecent(0); });
  commands.Add("SaveDoc", [&] { documents.SaveDoc(); });
  commands.Add("SaveAs", [&] { documents.SaveAs(); });
}

void AddEditingCommands(CommandTable& commands, DocumentEditor& editor, Clipboard& clipboard,
                        EditorCommands& editing) {
  commands.Add("Cut", InText(editing, [&] { CutSelection(editor, clipboard); }));
  commands.Add("Copy", [&] {
    if (editing.ShowsPage()) return editing.CopyFromPage();
    CopySelection(editor, clipboard);
  });
  commands.Add("Insert", InText(editing, [&] { editor.ReplaceSelection(clipboard.Text()); }));
  commands.Add("Delete", InText(editing, [&] { editor.ReplaceSelection(""); }));
  commands.Add("Undo", InText(editing, [&] { editing.Undo(); }));
  commands.Add("Redo", InText(editing, [&] { editing.Redo(); }));
  commands.Add("SelectAll", [&] { editing.SelectAll(); });
  commands.Add("Find", [&] { editing.ShowSearch(false); });
  commands.Add("FindAgain", [&] { editing.SearchAgain(); });
  commands.Add("Replace", InText(editing, [&] { editing.ShowSearch(true); }));
}

void AddTextSizeCommands(CommandTable& commands, TextSize& size) {
  commands.Add("Larger", [&] { size.Larger(); });
  commands.Add("Smaller", [&] { size.Smaller(); });
  commands.Add("UsualSize", [&] { size.Usual(); });
}

void AddHelpCommands(CommandTable& commands, Modes& modes, HelpDialogs& dialogs, Launches& launches) {
  commands.Add("Settings", [&] { dialogs.ShowSettings(); });
  commands.Add("ManageExtensions", [&] { launches.ManageExtensions(); });
  commands.Add("ShowHelp", [&] { modes.ShowPage("hilfe.htm"); });
  commands.Add("GetMoreVoices", [&] { launches.GetMoreVoices(); });
  commands.Add("ReportError", [&] { launches.ReportError(); });
  commands.Add("MoreInfo", [&] { modes.ShowPage("About.htm"); });
  commands.Add("SearchForUpdates", [&] { launches.SearchForUpdates(); });
  commands.Add("About", [&] { dialogs.ShowAbout(); });
}

}  // namespace lorelin
