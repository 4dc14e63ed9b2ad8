#include <fstream>
#include <map>

#include "base/text.h"
#include "base/textEncoding.h"
#include "scripts/scriptLanguage.h"
#include "tests/support/ScriptFixture.h"

namespace lorelin {
namespace {

// Every file in the folder "cases" is a script that says in its comments what surrounds it and what it does:
//   //< NAME VALUE   a circumstance, see Arrange
//   //> NAME VALUE   an effect, see Effects; all effects have to be named, those of one name in their order
// The files have LF line ends; the script gets the pairs that it needs, unless a circumstance says otherwise.
using Effects = std::map<std::string, std::vector<std::string>>;

struct Line {
  std::string name;
  std::string value;
};

std::vector<Line> LinesMarked(std::string_view mark, const std::string& text) {
  std::vector<Line> marked;
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    if (!line.starts_with(mark)) continue;
    const std::string_view content = line.substr(mark.size());
    const auto blank = content.find(' ');
    std::string value(blank == std::string_view::npos ? "" : content.substr(blank + 1));
    ReplaceAll(value, "\\n", "\n");
    marked.push_back({std::string(content.substr(0, blank)), std::move(value)});
  }
  return marked;
}

class InterpreterScripts : public ScriptFixture, public testing::WithParamInterface<std::string> {
 protected:
  InterpreterScripts() {
    settings.Save(setting::Speed, "0");
    settings.Save(setting::Pitch, "0");
    settings.Save(setting::Volume, "0");
    fileSearch.names = {"fall.vts"};
    pump.onTurn = [this] { Turn(); };
  }

  void Arrange(const Line& line) {
    if (line.name == "document") document.text = line.value;
    if (line.name == "clipboard") clipboard.text = line.value;
    if (line.name == "selection") Select(line.value);
    if (line.name == "clock") SetClock(line.value);
    if (line.name == "forbid") settings.SaveSetting("Settings", line.value, "0");
    if (line.name == "answer")
      messageBoxes.answers.push_back(line.value == "No" ? MessageAnswer::No : MessageAnswer::Yes);
    if (line.name == "escape") escapeTurn_ = std::stoi(line.value);
    if (line.name == "file")
      document.files[line.value.substr(0, line.value.find('='))] =
          line.value.substr(line.value.find('=') + 1);
    if (line.name == "folder") fileSearch.names = {line.value};
    if (line.name == "target") WriteFile(folder.File(line.value), "x");
    if (line.name == "endless") endless_ = true;
    if (line.name == "LF") lineEnd_ = "\n";
  }

  void Select(const std::string& text) {
    const auto begin = document.text.find(text);
    document.selectionStart = CharacterCount(document.text.substr(0, begin));
    document.selectionBytes = text.size();
  }

  void SetClock(const std::string& time) {
    clock.now.hour = std::stoi(time.substr(0, 2));
    clock.now.minute = std::stoi(time.substr(3, 2));
    clock.now.second = std::stoi(time.substr(6, 2));
  }

  // Time goes on by a second in every second turn, and what is spoken ends.
  void Turn() {
    NoteSpoken();
    if (++turns_ == escapeTurn_) {
      speech.Stop();
      interpreter.Cancel();
    }
    if (turns_ % 2 == 0) clock.now = Next(clock.now);
    if (!voice.Speaking() || endless_) return;
    voice2.Finish();
    voice.Finish();
    if (turns_ > 500) throw std::logic_error("the script waits for ever");
  }

  static LocalTime Next(LocalTime time) {
    if (++time.second < 60) return time;
    time.second = 0;
    if (++time.minute < 60) return time;
    time.minute = 0;
    time.hour = (time.hour + 1) % 24;
    return time;
  }

  void NoteSpoken() {
    if (!voice.Speaking() || noted_ == voice.SpokenText()) return;
    noted_ = voice.SpokenText();
    effects_["speaks"].push_back(std::string(WithoutBlanks(noted_)));
  }

  Effects EffectsOf(const std::string& script) {
    std::string text = script;
    ReplaceAll(text, "\n", lineEnd_);
    ReplaceAll(text, "FOLDER", folder.Path());
    WriteScript("fall.vts", text);
    const std::string documentBefore = document.text;
    interpreter.SetCurrentScriptFile("fall.vts");
    interpreter.ExecuteSkript(1);
    NoteSpoken();
    if (document.text != documentBefore) effects_["document"] = {document.text};
    for (const auto& box : messageBoxes.boxes) effects_["box"].push_back(box.title + ": " + box.text);
    for (const auto& message : statusBar.messages) effects_["status"].push_back(message);
    for (const auto& [url, target] : downloader.fetched) effects_["downloads"].push_back(url + " " + target);
    for (const auto& arguments : launcher.started) effects_["starts"].push_back(Joined(arguments));
    NoteSetting("Speed", "speed");
    NoteSetting("Pitch", "pitch");
    NoteSetting("Volume", "volume");
    if (!voice2.renderedTo.empty() && voice2.renderedTo != speech.TempWavPath())
      effects_["wave"] = {voice2.renderedTo};
    return effects_;
  }

  static std::string Joined(const std::vector<std::string>& arguments) {
    std::string joined;
    for (const auto& argument : arguments) joined += "[" + argument + "]";
    return joined;
  }

  void NoteSetting(const char* key, const char* name) {
    if (const std::string value = settings.GetSetting("Voice", key, "0"); value != "0")
      effects_[name] = {value};
  }

 private:
  Effects effects_;
  std::string noted_;
  std::string lineEnd_ = "\r\n";
  bool endless_ = false;
  int turns_ = 0;
  int escapeTurn_ = -1;
};

constexpr std::string_view kEnd = "Ausführung des Taskscripts beendet.";

// What every run does is left to a test of its own.
Effects WithoutHints(Effects effects) {
  auto& status = effects["status"];
  std::erase_if(status, [](const std::string& text) {
    return text == kEnd || text == ReadingStatus::kReadToTheEnd || text.starts_with("Drücken Sie ESC") ||
           text.starts_with("Gespeichert: ") || text.empty();
  });
  if (status.empty()) effects.erase("status");
  return effects;
}

TEST_P(InterpreterScripts, HaveTheirEffects) {
  const std::string script = ReadFile(std::string(LORELIN_CASES) + "/" + GetParam() + ".vts");
  for (const Line& line : LinesMarked("//< ", script)) Arrange(line);
  Effects expected;
  for (Line& line : LinesMarked("//> ", script)) {
    ReplaceAll(line.value, "FOLDER", folder.Path());
    expected[line.name].push_back(line.value);
  }
  EXPECT_EQ(WithoutHints(EffectsOf(script)), expected);
  EXPECT_FALSE(interpreter.ScriptRunning());
}

std::vector<std::string> CaseNames() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(LORELIN_CASES)) {
    names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

INSTANTIATE_TEST_SUITE_P(Cases, InterpreterScripts, testing::ValuesIn(CaseNames()),
                         [](const auto& info) { return info.param; });

}  // namespace
}  // namespace lorelin
