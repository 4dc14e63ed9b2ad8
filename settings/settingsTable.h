#pragma once

#include <array>
#include <string_view>

namespace lorelin {

// The stored form of a setting. It is fixed for each key: other programs read these values too.
enum class SettingForm { Text, Path, OneZero, TrueFalse, YesFalse, Number };

struct SettingKey {
  std::string_view section;
  std::string_view name;
  SettingForm form;
  std::string_view defaultText;  // what a missing value reads as
  std::string_view meaning;
};

namespace setting {

inline constexpr SettingKey Path{"settings", "path", SettingForm::Path, "",
                                 "program folder, written at every start"};
inline constexpr SettingKey Version{"settings", "version", SettingForm::Text, "",
                                    "program version, written at every start"};
inline constexpr SettingKey StartUpFile{"settings", "StartUpFile", SettingForm::Path, "",
                                        "file to open at start"};
inline constexpr SettingKey ShowWB{"settings", "ShowWB", SettingForm::OneZero, "1",
                                   "start in interactive mode"};
inline constexpr SettingKey ShowLastDoc{"Settings", "ShowLastDoc", SettingForm::OneZero, "0",
                                        "open the last document at start"};
inline constexpr SettingKey LastDoc{"settings", "LastDoc", SettingForm::Path, "",
                                    "document that was open when the program was last closed"};
// The load sequence reads the same value under the other spelling of the section.
inline constexpr SettingKey LastDocAtStart{"Settings", "LastDoc", SettingForm::Path, "", LastDoc.meaning};
inline constexpr SettingKey ReadTitleOnAppChange{"settings", "ReadTitleOnAppChange", SettingForm::OneZero,
                                                 "0", "speak the title of a newly activated program"};
inline constexpr SettingKey ReadClipboardOnChange{"settings", "ReadClipboardOnChange", SettingForm::OneZero,
                                                  "0", "speak the whole clipboard when it changes"};
inline constexpr SettingKey Prefix{"settings", "prefix", SettingForm::Text, "", "spoken before every text"};
inline constexpr SettingKey Suffix{"settings", "suffix", SettingForm::Text, "", "spoken after every text"};
inline constexpr SettingKey VTSAllow{"Settings", "VTSAllow", SettingForm::OneZero, "1",
                                     "task scripts may run"};
inline constexpr SettingKey VTSAllowRead{"Settings", "VTSAllowRead", SettingForm::OneZero, "1",
                                         "scripts may open, show, run and delete local files"};
inline constexpr SettingKey VTSAllowDownload{"Settings", "VTSAllowDownload", SettingForm::OneZero, "1",
                                             "scripts may download files"};
inline constexpr SettingKey ShowVTS{"Settings", "ShowVTS", SettingForm::OneZero, "0",
                                    "keep the extension in script captions"};
inline constexpr SettingKey ShowPauseMsg{"Settings", "ShowPauseMsg", SettingForm::YesFalse, "yes",
                                         "the pause hint is still to be shown"};
inline constexpr SettingKey Survey{"Settings", "Survey", SettingForm::TrueFalse, "true", "offer the survey"};
inline constexpr SettingKey Voice{"Voice", "Voice", SettingForm::Number, "1",
                                  "position of the voice, from 0"};
inline constexpr SettingKey VoiceName{"Voice", "VoiceName", SettingForm::Text, "",
                                      "position and name of the chosen voice, as in 12:Deutsch"};
inline constexpr SettingKey VoiceAddress{"Voice", "VoiceAddress", SettingForm::Text,
                                         "https://huggingface.co/rhasspy/piper-voices/resolve/main/",
                                         "address below which natural voices are fetched"};
inline constexpr SettingKey VoiceCatalogue{"Voice", "VoiceCatalogue", SettingForm::Path, "",
                                           "list of natural voices in place of the shipped one"};
inline constexpr SettingKey Speed{"Voice", "Speed", SettingForm::Number, "25", "speaking rate in per cent"};
inline constexpr SettingKey Pitch{"Voice", "Pitch", SettingForm::Number, "50", "pitch in per cent"};
inline constexpr SettingKey Volume{"Voice", "Volume", SettingForm::Number, "100", "volume in per cent"};
// The dialogs propose a faster and brighter voice than the speaker uses until something was saved.
inline constexpr SettingKey SpeedInDialog{"Voice", "Speed", SettingForm::Number, "60", Speed.meaning};
inline constexpr SettingKey PitchInDialog{"Voice", "Pitch", SettingForm::Number, "60", Pitch.meaning};
inline constexpr SettingKey SpellOut{"Settings", "SpellOut", SettingForm::OneZero, "1",
                                     "German voices get numbers and abbreviations in words"};
inline constexpr SettingKey SpeakEmoji{"Settings", "SpeakEmoji", SettingForm::OneZero, "1",
                                       "emoji are spoken by their German names; else they are silent"};
inline constexpr SettingKey LogTexts{"Settings", "LogTexts", SettingForm::OneZero, "0",
                                     "the log holds every text that is read, too"};
inline constexpr SettingKey LaunchMailProgram{"Extension Settings", "LaunchMailProgram",
                                              SettingForm::TrueFalse, "false",
                                              "open the e-mail program after an export"};
inline constexpr SettingKey Placement{"Window", "Placement", SettingForm::Text, "",
                                      "where the main window stood, in the toolkit's form"};
inline constexpr SettingKey TextSize{"Window", "TextSize", SettingForm::Number, "0",
                                     "how many steps larger texts are shown than usual"};
inline constexpr SettingKey FollowMode{"Window", "FollowMode", SettingForm::Text, "",
                                       "what is marked in the text while it is read: Word, Sentence or Off; "
                                       "else both word and sentence"};
inline constexpr SettingKey ReadingFont{"Window", "ReadingFont", SettingForm::Text, "",
                                        "font in which the document is shown; empty for the usual one"};
inline constexpr SettingKey ReadingPoints{"Window", "ReadingPoints", SettingForm::Number, "0",
                                          "size of that font; 0 for the usual one"};
inline constexpr SettingKey ReadingLines{"Window", "ReadingLines", SettingForm::Number, "100",
                                         "spacing of the lines in per cent"};
inline constexpr SettingKey ReadingLetters{"Window", "ReadingLetters", SettingForm::Number, "0",
                                           "more room between letters, in hundredths of the font's size"};
inline constexpr SettingKey ReadingColumn{"Window", "ReadingColumn", SettingForm::Number, "0",
                                          "width of the text in characters; 0 for that of the window"};
inline constexpr SettingKey ReadingColours{"Window", "ReadingColours", SettingForm::Text, "",
                                           "Cream, Dark, YellowOnBlack or Own; else those of the system"};
inline constexpr SettingKey ReadingText{"Window", "ReadingText", SettingForm::Text, "000000",
                                        "own colour of the letters, as in RRGGBB"};
inline constexpr SettingKey ReadingGround{"Window", "ReadingGround", SettingForm::Text, "FFFFFF",
                                          "own colour of the ground"};
inline constexpr SettingKey ExportFormat{
    "Export", "Format", SettingForm::Text, "mp3",
    "what sound files were made last: mp3, opus, ogg, flac, wav or epub"};
inline constexpr SettingKey ExportQuality{"Export", "Quality", SettingForm::Text, "mittel",
                                          "their quality: klein, mittel or hoch"};
inline constexpr SettingKey ExportSubtitles{"Export", "Subtitles", SettingForm::Text, "",
                                            "subtitles beside them: srt, lrc or vtt; else none"};
inline constexpr SettingKey ExportChapters{"Export", "FileForEachChapter", SettingForm::OneZero, "0",
                                           "each chapter became a file of its own"};
inline constexpr SettingKey ExportFolder{"Export", "Folder", SettingForm::Path, "",
                                         "where they went; empty for the folder for music"};

// Every setting, in the order above.
inline constexpr std::array All{
    &Path,
    &Version,
    &StartUpFile,
    &ShowWB,
    &ShowLastDoc,
    &LastDoc,
    &LastDocAtStart,
    &ReadTitleOnAppChange,
    &Prefix,
    &Suffix,
    &ReadClipboardOnChange,
    &VTSAllow,
    &VTSAllowRead,
    &VTSAllowDownload,
    &ShowVTS,
    &ShowPauseMsg,
    &Survey,
    &Voice,
    &VoiceName,
    &VoiceAddress,
    &VoiceCatalogue,
    &Speed,
    &Pitch,
    &Volume,
    &SpeedInDialog,
    &PitchInDialog,
    &SpellOut,
    &SpeakEmoji,
    &LogTexts,
    &LaunchMailProgram,
    &Placement,
    &TextSize,
    &FollowMode,
    &ReadingFont,
    &ReadingPoints,
    &ReadingLines,
    &ReadingLetters,
    &ReadingColumn,
    &ReadingColours,
    &ReadingText,
    &ReadingGround,
    &ExportFormat,
    &ExportQuality,
    &ExportSubtitles,
    &ExportChapters,
    &ExportFolder,
};

}  // namespace setting

// What allows scripts something; a value that cannot be known allows nothing.
inline constexpr std::array kPermissions{&setting::VTSAllow, &setting::VTSAllowRead,
                                         &setting::VTSAllowDownload};

// A "1"/"0" switch is on only when its text is "1" exactly; a "true"/"false" one only when it is "true"
// exactly.
[[nodiscard]] constexpr bool IsOn(const SettingKey& key, std::string_view text) {
  return text == (key.form == SettingForm::TrueFalse ? "true" : "1");
}

}  // namespace lorelin
