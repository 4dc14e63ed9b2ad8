#include "app/pronunciationCommands.h"

#include "base/text.h"
#include "base/textEncoding.h"
#include "german/characters.h"

namespace lorelin {
namespace {

constexpr std::string_view kSpellOutEntry = "mnuSpellOut";

bool BelongsToWord(const Character& character) {
  return IsLetter(character.code) || (character.code >= U'0' && character.code <= U'9');
}

// The first byte of the character that ends before `at`.
std::size_t Before(std::string_view text, std::size_t at) {
  do {
    --at;
  } while (at > 0 && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U);
  return at;
}

std::string WordAt(std::string_view text, std::size_t at) {
  std::size_t begin = at;
  while (begin > 0 && BelongsToWord(CharacterAt(text, Before(text, begin)))) begin = Before(text, begin);
  std::size_t end = at;
  while (end < text.size() && BelongsToWord(CharacterAt(text, end))) end += CharacterAt(text, end).length;
  return std::string(text.substr(begin, end - begin));
}

}  // namespace

std::string WordMeant(std::string_view selected, std::string_view text, std::size_t caret) {
  const std::string_view line = WithoutBlanks(selected.substr(0, selected.find('\n')));
  if (!line.empty()) return std::string(line);
  return WordAt(text, text.size() - FromCharacter(text, caret).size());
}

void AddPronunciationCommands(CommandTable& commands, Pronunciations& pronunciations,
                              PronunciationDialogs& dialogs, DocumentEditor& editor, MainView& view) {
  const auto showState = [&pronunciations, &view] {
    view.CheckMenuEntry(kSpellOutEntry, pronunciations.IsOn());
  };
  commands.Add("SwitchSpelling", [&pronunciations, showState] {
    pronunciations.SwitchOn(!pronunciations.IsOn());
    showState();
  });
  commands.Add("ChangePronunciation", [&] {
    dialogs.ChangePronunciation(WordMeant(editor.SelectedText(), editor.Text(), editor.SelectionStart()));
  });
  commands.Add("ShowPronunciations", [&] { dialogs.ShowPronunciations(); });
  showState();
}

}  // namespace lorelin
