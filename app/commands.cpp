#include "app/commands.h"

#include <array>

namespace lorelin {
namespace {

constexpr MenuEntry kSeparator{"", "-", "", ""};

constexpr std::array kFileMenu{
    MenuEntry{"mnuNeu", "Neu", "NewDoc", "Ctrl+N"},
    MenuEntry{"mnuOpen", "&Öffnen", "OpenDoc", "Ctrl+O"},
    MenuEntry{"mnuSave", "&Speichern", "SaveDoc", "Ctrl+S"},
    MenuEntry{"mnuSaveAs", "&Speichern unter", "SaveAs", "Ctrl+Shift+S"},
    MenuEntry{"mnuSplit", "-", "", ""},
    MenuEntry{"mnuExport", "Exportieren", "ExportDoc", "Ctrl+E"},
    MenuEntry{"mnuExportSound", "Als &Tondatei exportieren …", "ExportSound", "Ctrl+Shift+E"},
    MenuEntry{"mnuShowExports", "Tondateien &in Arbeit …", "ShowExports", ""},
    kSeparator,
    MenuEntry{"mnuOpenBook", "&Buch oder Dokument öffnen …", "OpenBook", "Ctrl+Shift+O"},
    MenuEntry{"mnuOpenAddress", "A&dresse öffnen …", "OpenAddress", "Ctrl+L"},
    MenuEntry{"mnuRecent", "&Zuletzt verwendet", "OpenRecent", ""},
    MenuEntry{"mnuPrivate", "&Privates löschen …", "ClearPrivate", ""},
    MenuEntry{"mnuStrich", "-", "", ""},
    MenuEntry{"mnuExit", "&Beenden", "ExitLo", "Ctrl+Q"},
};

constexpr MenuEntry kCut{"mnuCut", "&Ausschneiden", "Cut", "Ctrl+X", true};
constexpr MenuEntry kCopy{"mnuCopy", "&Kopieren", "Copy", "Ctrl+C", true};
constexpr MenuEntry kInsert{"mnuInsert", "&Einfügen", "Insert", "Ctrl+V", true};
constexpr MenuEntry kDelete{"mnuDelete", "&Löschen", "Delete", "Del", true};
constexpr MenuEntry kSelectAll{"mnuSelectAll", "Alles &markieren", "SelectAll", "Ctrl+A"};
constexpr MenuEntry kReadSelection{"mnuReadSelection", "Auswahl &vorlesen", "ReadSelection", "Shift+F5"};
constexpr MenuEntry kReadFromCur{"mnuReadFromCur", "Text ab Cursorposition lesen", "ReadFromCursor", "F7"};
constexpr MenuEntry kPronounce{"mnuPronounce", "Aussprache än&dern …", "ChangePronunciation", ""};

constexpr std::array kEditMenu{
    kCut,
    kCopy,
    kInsert,
    kDelete,
    kSeparator,
    MenuEntry{"mnuUndo", "&Rückgängig", "Undo", "Ctrl+Z"},
    MenuEntry{"mnuRedo", "&Wiederherstellen", "Redo", "Ctrl+Y"},
    kSeparator,
    kSelectAll,
    MenuEntry{"mnuFind", "&Suchen …", "Find", "Ctrl+F"},
    MenuEntry{"mnuFindAgain", "Weitersu&chen", "FindAgain", "F3"},
    MenuEntry{"mnuReplace", "Erse&tzen …", "Replace", "Ctrl+H"},
    kSeparator,
    kPronounce,
};

constexpr MenuEntry kReadFromHere{"mnuReadFromHere", "Ab &hier vorlesen", "ReadFromHere", "Ctrl+F7"};

constexpr MenuEntry WhileReading(std::string_view name, std::string_view caption, std::string_view command,
                                 std::string_view shortcut) {
  return {name, caption, command, shortcut, false, "", "&Beim Vorlesen"};
}

constexpr MenuEntry Following(std::string_view name, std::string_view caption, std::string_view command) {
  return {name, caption, command, "", false, "", "&Mitlesen", true};
}

constexpr MenuEntry Sleeping(std::string_view name, std::string_view caption, std::string_view command) {
  return {name, caption, command, "", false, "", "S&chlafzeit", true};
}

constexpr std::array kActionMenu{
    MenuEntry{"mnuSpeak", "&Sprechen", "Speak", "F5"},
    MenuEntry{"mnuStop", "Sto&p", "Stop", "F8"},
    MenuEntry{"mnuPause", "P&ause", "Pause", "F6"},
    kSeparator,
    kReadFromCur,
    kReadFromHere,
    kReadSelection,
    MenuEntry{"mnuContinueReading", "Wei&terlesen", "ContinueReading", "Shift+F7"},
    WhileReading("mnuSentenceBack", "Einen Satz &zurück", "SentenceBack", "Shift+F9"),
    WhileReading("mnuSentenceOn", "Einen Satz &weiter", "SentenceOn", "Ctrl+F9"),
    WhileReading("mnuRepeatSentence", "Satz wieder&holen", "RepeatSentence", "F9"),
    WhileReading("mnuParagraphBack", "Einen &Absatz zurück", "ParagraphBack", "Shift+F11"),
    WhileReading("mnuParagraphOn", "Einen A&bsatz weiter", "ParagraphOn", "Ctrl+F11"),
    WhileReading("mnuChapterBack", "Ein &Kapitel zurück", "PreviousChapter", "Shift+F12"),
    WhileReading("mnuChapterOn", "Ein Ka&pitel weiter", "NextChapter", "Ctrl+F12"),
    WhileReading("mnuFaster", "S&chneller", "Faster", "Alt+PageUp"),
    WhileReading("mnuSlower", "&Langsamer", "Slower", "Alt+PageDown"),
    WhileReading("mnuReturnToVoice", "Zur Lese&stelle", "ReturnToVoice", "Alt+Home"),
    WhileReading("mnuChoosePlace", "Lesestelle &verschieben", "ChoosePlace", "Alt+End"),
    Sleeping("mnuSleepOff", "&aus", "SleepOff"),
    Sleeping("mnuSleep15", "in &15 Minuten", "SleepIn15"),
    Sleeping("mnuSleep30", "in &30 Minuten", "SleepIn30"),
    Sleeping("mnuSleep60", "in &60 Minuten", "SleepIn60"),
    Sleeping("mnuSleepParagraph", "am &Ende des Absatzes", "SleepAtParagraph"),
    kSeparator,
    MenuEntry{"mnuVoice", "Stimme &wählen", "ChooseVoice", "Ctrl+Shift+T"},
    MenuEntry{"mnuVolume", "&Lautstärke ändern", "ChangeVolume", "Ctrl+Shift+L"},
    MenuEntry{"mnuSpeed", "&Geschwindigkeit ändern", "ChangeSpeed", "Ctrl+Shift+G"},
    MenuEntry{"mnuPitch", "&Helligkeit ändern", "ChangePitch", "Ctrl+Shift+H"},
};

constexpr std::array kViewMenu{
    MenuEntry{"mnuTextmode", "Textmodus", "Textmode", "Ctrl+1"},
    MenuEntry{"mnuInternet", "Interaktivmodus", "InteractiveMode", "Ctrl+2"},
    kSeparator,
    Following("mnuFollowBoth", "Wort &und Satz", "FollowWordAndSentence"),
    Following("mnuFollowWord", "&Wort", "FollowWord"),
    Following("mnuFollowSentence", "&Satz", "FollowSentence"),
    Following("mnuFollowOff", "&aus", "FollowNothing"),
    kSeparator,
    MenuEntry{"mnuReadingLook", "&Lesedarstellung …", "ReadingLook", ""},
    MenuEntry{"mnuLarger", "Schrift &größer", "Larger", "Ctrl++", false, "Ctrl+KP_Add"},
    MenuEntry{"mnuSmaller", "Schrift &kleiner", "Smaller", "Ctrl+-", false, "Ctrl+KP_Subtract"},
    MenuEntry{"mnuUsualSize", "Schrift &normal", "UsualSize", "Ctrl+0", false, "Ctrl+KP_0"},
};

constexpr std::array kExtrasMenu{
    MenuEntry{"mnuSettings", "Einstellungen", "Settings", ""},
    MenuEntry{"mnuSpellOut", "&Zahlen und Abkürzungen ausschreiben", "SwitchSpelling", ""},
    MenuEntry{"mnuPronunciations", "Eigene &Aussprachen …", "ShowPronunciations", ""},
    MenuEntry{"mnuXMGR", "Erweiterungen verwalten", "ManageExtensions", ""},
};

constexpr std::array kHelpMenu{
    MenuEntry{"mnuShowHelp", "Hilfe", "ShowHelp", "F1"},
    MenuEntry{"mnuGetMoreVoices", "Weitere Stimmen herunterladen", "GetMoreVoices", ""},
    MenuEntry{"mnuReportError", "Fehler b&erichten", "ReportError", ""},
    MenuEntry{"mnuNone", "-", "", ""},
    MenuEntry{"mnuMoreInfo", "Weitere Informationen", "MoreInfo", ""},
    MenuEntry{"mnuSearchForUpdates", "Aktualisierungen suchen", "SearchForUpdates", ""},
    MenuEntry{"mnuAbout", "&Über Lorelin", "About", ""},
};

constexpr std::array kMainMenus{
    Menu{"mnuDatei", "&Datei", kFileMenu},     Menu{"mnuBearbeiten", "&Bearbeiten", kEditMenu},
    Menu{"mnuAktion", "&Aktion", kActionMenu}, Menu{"mnuView", "A&nsicht", kViewMenu},
    Menu{"mnuXTras", "E&xtras", kExtrasMenu},  Menu{"mnuHelp", "&?", kHelpMenu},
};

constexpr std::array kEditorMenu{
    kReadSelection, kReadFromHere, kReadFromCur, kPronounce, kSeparator, kCut,
    kCopy,          kInsert,       kDelete,      kSeparator, kSelectAll,
};

constexpr ToolbarButton kGap{"", "", "", ""};

// The export button is the tenth, the gaps counted.
constexpr std::array kToolbarButtons{
    ToolbarButton{"Neu", "Neues Dokument anlegen", "new", "NewDoc"},
    kGap,
    ToolbarButton{"Öffnen", "Dokument öffnen", "open", "OpenDoc"},
    ToolbarButton{"Speichern", "Dokument speichern", "save", "SaveDoc"},
    kGap,
    ToolbarButton{"Sprechen", "Text vorlesen", "speak", "SpeakDocument"},
    ToolbarButton{"Pause", "Sprachausgabe anhalten oder fortsetzen", "pause", "Pause"},
    ToolbarButton{"Stop", "Sprachausgabe beenden", "stop", "Stop"},
    kGap,
    ToolbarButton{"Exportieren", "Text als *.wav Datei abspeichern", "export", "ExportDoc"},
    kGap,
    ToolbarButton{"Zurück", "Einen Satz zurück", "back", "SentenceBack"},
    ToolbarButton{"Weiter", "Einen Satz weiter", "on", "SentenceOn"},
};

constexpr std::array kSpeechTasks{
    TaskPaneEntry{101, "Text vorlesen", "Speak"},
    TaskPaneEntry{202, "Text abspeichern", "SaveDoc"},
    TaskPaneEntry{404, "Stimme wählen", "ChooseVoice"},
    TaskPaneEntry{303, "Lautstärke ändern", "ChangeVolume"},
    TaskPaneEntry{505, "Geschwindigkeit ändern", "ChangeSpeed"},
    TaskPaneEntry{606, "Helligkeit ändern", "ChangePitch"},
};

}  // namespace

std::span<const Menu> MainMenus() {
  return kMainMenus;
}
std::span<const MenuEntry> EditorMenu() {
  return kEditorMenu;
}
std::span<const ToolbarButton> ToolbarButtons() {
  return kToolbarButtons;
}
std::span<const TaskPaneEntry> SpeechTasks() {
  return kSpeechTasks;
}

void CommandTable::Add(std::string_view name, Effect effect) {
  effects_.insert_or_assign(std::string(name), std::move(effect));
}

void CommandTable::AddCondition(std::string_view name, Condition possible) {
  conditions_.insert_or_assign(std::string(name), std::move(possible));
}

std::optional<bool> CommandTable::IsPossible(std::string_view name) const {
  const auto found = conditions_.find(name);
  if (found == conditions_.end()) return std::nullopt;
  return found->second();
}

bool CommandTable::Has(std::string_view name) const {
  return effects_.find(name) != effects_.end();
}

bool CommandTable::Run(std::string_view name) const {
  const auto found = effects_.find(name);
  if (found == effects_.end()) return false;
  found->second();
  return true;
}

}  // namespace lorelin
