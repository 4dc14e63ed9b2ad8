#include "speech/ReadingStatus.h"

#include "base/paths.h"

namespace lorelin {
namespace {

constexpr std::string_view kBetween = "  ·  ";

// There is room for one beside the message.
std::string_view FirstSentence(std::string_view text) {
  const auto end = text.find(". ");
  return end == std::string_view::npos ? text : text.substr(0, end + 1);
}

std::string NameOf(const std::string& path) {
  return PathText(NativePath(path).filename());
}

void Append(std::string& line, std::string_view part) {
  if (part.empty()) return;
  if (!line.empty()) line += kBetween;
  line += part;
}

}  // namespace

void ReadingStatus::Reads() {
  Become(State::Reading);
}
void ReadingStatus::Pauses() {
  Become(State::Paused);
}
void ReadingStatus::Rests() {
  Become(State::Silent);
}

void ReadingStatus::Become(State state) {
  state_ = state;
  if (state != State::Silent) Forget();
  ShowStanding();
  if (changed_) changed_();
}

void ReadingStatus::Renders(bool rendering) {
  rendering_ = rendering;
  ShowStanding();
}

void ReadingStatus::ScriptRuns(std::string_view name) {
  script_ = name;
  if (!name.empty()) notSaved_.clear();
  ShowStanding();
}

void ReadingStatus::SetCondition(std::size_t instance, std::string_view text) {
  conditions_.at(instance) = FirstSentence(text);
  ShowStanding();
  if (!text.empty()) Say(text);
}

void ReadingStatus::Saved(const std::string& path) {
  notSaved_.clear();
  ShowStanding();
  Say("Gespeichert: " + NameOf(path));
}

void ReadingStatus::NotSaved(const std::string& path, std::string_view reason) {
  notSaved_ = "„" + NameOf(path) + "“ wurde nicht gespeichert.";
  ShowStanding();
  Say(reason);
}

void ReadingStatus::Say(std::string_view text) {
  said_ = text;
  // What is said again is told again.
  if (bar_.Message() == text) bar_.SetMessage("");
  bar_.SetMessage(text);
}

void ReadingStatus::Forget() {
  if (!said_.empty() && bar_.Message() == said_) bar_.SetMessage("");
  said_.clear();
}

void ReadingStatus::ShowStanding() {
  std::string line;
  if (state_ != State::Silent) Append(line, state_ == State::Reading ? "Liest vor …" : "Angehalten");
  if (rendering_) Append(line, "Export wird vorbereitet …");
  if (!script_.empty()) Append(line, "ESC beendet „" + script_ + "“");
  Append(line, notSaved_);
  Append(line, conditions_[0]);
  if (conditions_[1] != conditions_[0]) Append(line, conditions_[1]);
  if (line == shown_) return;
  shown_ = line;
  bar_.SetNotice("reading", line);
}

}  // namespace lorelin
