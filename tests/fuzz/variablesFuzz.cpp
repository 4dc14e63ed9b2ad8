#include <string>
#include <utility>

#include "base/text.h"
#include "scripts/scriptLanguage.h"
#include "speech/TracedText.h"
#include "tests/fuzz/input.h"

using lorelin::fuzz::Hold;

namespace {

// Values of which every one may hold what looks like another variable.
class Values final : public lorelin::ScriptVariables {
 public:
  explicit Values(lorelin::fuzz::Input& input)
      : clipboard_(input.Text()), selection_(input.Text()), document_(input.Text()) {}

  std::string Clipboard() override { return Count(0), clipboard_; }
  std::string TimeOfDay() override { return Count(1), "09:05"; }
  std::string Date() override { return Count(2), "03.10.2026"; }
  std::string WindowsFolder() override { return Count(3), "/$Markiert"; }
  std::string Selection() override { return Count(4), selection_; }
  std::string DocumentText() override { return Count(5), document_; }

  [[nodiscard]] int Asked(std::size_t variable) const { return asked_[variable]; }

 private:
  // In their order, and none twice.
  void Count(std::size_t variable) {
    Hold(++asked_[variable] == 1);
    for (std::size_t later = variable + 1; later < 6; ++later) Hold(asked_[later] == 0);
  }

  std::string clipboard_;
  std::string selection_;
  std::string document_;
  int asked_[6]{};
};

// The same as the product, written once more in the plainest way.
std::string Replaced(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  while (!text.empty()) {
    if (text.starts_with(from)) {
      result += to;
      text.remove_prefix(from.size());
    } else {
      result += text.front();
      text.remove_prefix(1);
    }
  }
  return result;
}

std::string Expected(std::string text, lorelin::fuzz::Input input) {
  Values values(input);
  const std::pair<std::string_view, std::string> variables[] = {{"$Zwischenablage", values.Clipboard()},
                                                                {"$Zeit", values.TimeOfDay()},
                                                                {"$Datum", values.Date()},
                                                                {"$Windows", values.WindowsFolder()},
                                                                {"$Markiert", values.Selection()},
                                                                {"$Text", values.DocumentText()}};
  for (const auto& [name, value] : variables) text = Replaced(text, name, value);
  return text;
}

// As the text is spoken; what is put in keeps the trace to where it came from.
void CheckTimes(const std::string& text) {
  lorelin::TracedText spoken(text, 0);
  std::string expected = text;
  for (const auto& [name, value] : {std::pair{"$Zeit[s]", "7"}, std::pair{"$Zeit[m]", "5"}}) {
    spoken.Replace(name, value);
    expected = Replaced(expected, name, value);
  }
  Hold(spoken.Text() == expected);
  const std::size_t written = lorelin::CountCharacters(text);
  const std::size_t heard = lorelin::CountCharacters(expected);
  for (std::size_t at = 0; at < heard; ++at) {
    const auto source = spoken.Source({at, at + 1});
    Hold(source && source->begin <= source->end && source->end <= written);
  }
}

}  // namespace

// One variable after the other is expanded, each value asked for once and only when it is needed.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lorelin::fuzz::Input input(data, size);
  const std::string text(input.Text());
  const lorelin::fuzz::Input rest = input;
  Values values(input);
  std::string parameter = text;
  lorelin::ExpandVariables(parameter, values);
  Hold(values.Asked(0) == 1);
  if (text.find('$') == std::string::npos) Hold(parameter == text);
  Hold(parameter == Expected(text, rest));
  CheckTimes(text);
  std::string commas = text;
  lorelin::RestoreCommas(commas);
  Hold(commas == Replaced(text, "%KOMMA%", ","));
  return 0;
}
