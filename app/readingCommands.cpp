#include "app/readingCommands.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "base/textEncoding.h"
#include "speech/voiceSettings.h"

namespace lorelin {
namespace {

constexpr std::int32_t kSpeedStep = 10;  // percent

struct FollowEntry {
  FollowMode mode;
  std::string_view command;
  std::string_view menuEntry;
};
constexpr std::array kFollowEntries{
    FollowEntry{FollowMode::WordAndSentence, "FollowWordAndSentence", "mnuFollowBoth"},
    FollowEntry{FollowMode::Word, "FollowWord", "mnuFollowWord"},
    FollowEntry{FollowMode::Sentence, "FollowSentence", "mnuFollowSentence"},
    FollowEntry{FollowMode::Off, "FollowNothing", "mnuFollowOff"}};

void AddFollowing(CommandTable& commands, const ReadingEdges& edges) {
  for (const FollowEntry& entry : kFollowEntries) {
    commands.Add(entry.command, [edges, mode = entry.mode] {
      edges.along.SetMode(mode);
      ShowFollowMode(edges);
    });
    commands.AddCondition(entry.command, [edges] { return edges.marks.CanShow(); });
  }
}

void AddSteering(CommandTable& commands, ReadingAlong& along) {
  const auto add = [&](std::string_view name, CommandTable::Effect effect) {
    commands.Add(name, std::move(effect));
    commands.AddCondition(name, [&along] { return along.CanSteer(); });
  };
  add("SentenceBack", [&along] { along.SentenceBack(); });
  add("SentenceOn", [&along] { along.SentenceOn(); });
  add("RepeatSentence", [&along] { along.RepeatSentence(); });
  add("ParagraphBack", [&along] { along.ParagraphBack(); });
  add("ParagraphOn", [&along] { along.ParagraphOn(); });
  add("ReturnToVoice", [&along] { along.Return(); });
}

// The sentence that is heard begins again, with the new speed.
void ChangeSpeedBy(const ReadingEdges& edges, std::int32_t step) {
  // What is spoken with counts, not what the dialog proposes.
  const SliderDialog spoken{VoiceParameter::Speed, "", "", setting::Speed, setting::Speed};
  const std::int32_t speed = ShownPercentage(spoken, edges.settings);
  const std::int32_t changed = std::clamp(speed + step, 0, 100);
  edges.settings.Save(setting::Speed, std::to_string(changed));
  edges.statusBar.SetMessage("Geschwindigkeit: " + std::to_string(changed) + " %");
  if (changed != speed) edges.along.RepeatSentence();
}

// From the beginning of the word at the caret, or of the selection.
void ReadFromHere(const ReadingEdges& edges) {
  if (edges.editing.ShowsPage()) return;
  const std::string text = edges.document.Text();
  const std::size_t caret = edges.document.SelectionStart();
  const std::string_view before =
      std::string_view(text).substr(0, text.size() - FromCharacter(text, caret).size());
  const std::size_t gap = before.find_last_of(" \t\n");
  const std::string_view word = gap == std::string_view::npos ? before : before.substr(gap + 1);
  edges.speech.ReadFrom(caret - CharacterCount(word));
}

}  // namespace

void AddReadingCommands(CommandTable& commands, const ReadingEdges& edges) {
  AddFollowing(commands, edges);
  AddSteering(commands, edges.along);
  commands.Add("Faster", [edges] { ChangeSpeedBy(edges, kSpeedStep); });
  commands.Add("Slower", [edges] { ChangeSpeedBy(edges, -kSpeedStep); });
  commands.Add("ReadFromHere", [edges] { ReadFromHere(edges); });
  commands.AddCondition("ReadFromHere", [edges] { return !edges.editing.ShowsPage(); });
  commands.Add("Stop", [edges] { edges.along.Stop(); });
}

void ShowFollowMode(const ReadingEdges& edges) {
  for (const FollowEntry& entry : kFollowEntries) {
    edges.view.CheckMenuEntry(entry.menuEntry, entry.mode == edges.along.Mode());
  }
}

}  // namespace lorelin
