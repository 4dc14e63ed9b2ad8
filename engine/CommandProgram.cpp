#include "engine/CommandProgram.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "base/textEncoding.h"

namespace lorelin::engine {
namespace {

using std::chrono::steady_clock;
using Outcome = ChildProgram::Outcome;
using Fate = ChildProgram::Fate;

// How long a program may still be there after it has closed its output.
constexpr std::chrono::seconds kLastSteps{2};

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// Ends of lines would part the sentence.
std::string InOneLine(std::string_view sentence) {
  std::string line;
  for (const char c : sentence) {
    if (!IsBlank(c)) {
      line += c;
    } else if (!line.empty() && line.back() != ' ') {
      line += ' ';
    }
  }
  while (line.ends_with(' ')) line.pop_back();
  return line + '\n';
}

// The sentence in pieces that begin with its words.
std::vector<std::string_view> Pieces(std::string_view sentence) {
  std::vector<std::string_view> pieces;
  std::size_t begin = 0;
  for (std::size_t at = 1; at <= sentence.size(); ++at) {
    const bool wordBegins = at < sentence.size() && IsBlank(sentence[at - 1]) && !IsBlank(sentence[at]);
    if (!wordBegins && at < sentence.size()) continue;
    pieces.push_back(sentence.substr(begin, at - begin));
    begin = at;
  }
  return pieces;
}

bool TooLong(const Sound& sound) {
  return sound.samples.size() >
         static_cast<std::size_t>(CommandProgram::kMostSeconds) * static_cast<std::size_t>(sound.sampleRate);
}

}  // namespace

bool CommandProgram::Fail(const std::string& reason) {
  problem_ = "das Programm „" + programName_ + "“ " + reason;
  return false;
}

bool CommandProgram::FailedBy(ChildProgram& program, Outcome outcome) {
  switch (outcome) {
    case Outcome::Stopped:
      return false;
    case Outcome::Late:
      return Fail("ist nach " + std::to_string(timeout_.count()) +
                  (timeout_.count() == 1 ? " Sekunde" : " Sekunden") + " noch nicht fertig");
    case Outcome::TooMuch:
      return Fail("gibt zu einem Satz mehr als 32 MB aus");
    default:
      return FailedByEnd(program, program.AwaitEnd(steady_clock::now() + kLastSteps));
  }
}

bool CommandProgram::FailedByEnd(ChildProgram& program, const Fate& fate) {
  const std::string complaint = program.Complaint();
  const std::string why = complaint.empty() ? "" : " („" + complaint + "“)";
  switch (fate.kind) {
    case Fate::Kind::NotStarted:
      return Fail(fate.number == EACCES || fate.number == ENOEXEC ? "lässt sich nicht ausführen"
                                                                  : "lässt sich nicht starten");
    case Fate::Kind::Crashed:
      return Fail("ist abgestürzt" + why);
    case Fate::Kind::Exited:
      if (fate.number != 0) return Fail("endet mit dem Fehler " + std::to_string(fate.number) + why);
      return Fail("endet, bevor der Satz gesprochen ist" + why);
    default:
      return Fail("gibt nichts mehr aus" + why);
  }
}

std::unique_ptr<ChildProgram> CommandProgram::Start(const CommandVoice& voice, const Utterance& utterance) {
  std::unique_ptr<ChildProgram> program;
  const auto outcome = starter_.Start(voice, utterance, program);
  if (outcome == ProgramStarter::Outcome::NotFound) return Fail("wurde nicht gefunden"), nullptr;
  if (!program) Fail("lässt sich nicht starten");
  return program;
}

std::optional<SaidSentence> CommandProgram::Say(const CommandVoice& voice, const Utterance& utterance,
                                                std::string_view sentence) {
  problem_.clear();
  programName_ = voice.command.front().front().text;
  timeout_ = voice.timeout;
  const Time until = steady_clock::now() + voice.timeout;
  if (voice.mode == CommandVoice::Mode::Once) return SayOnce(voice, utterance, InOneLine(sentence), until);
  std::optional<SaidSentence> said;
  if (Open(voice, utterance, until)) {
    said = voice.mode == CommandVoice::Mode::Module ? SayToModule(sentence, until)
                                                    : SayToStaying(InOneLine(sentence), until);
  }
  // What went wrong in the middle cannot be gone on with.
  if (!said) staying_.reset();
  return said;
}

std::optional<SaidSentence> CommandProgram::SayOnce(const CommandVoice& voice, const Utterance& utterance,
                                                    const std::string& line, Time until) {
  const auto program = Start(voice, utterance);
  if (!program) return std::nullopt;
  const Outcome outcome = program->Exchange(
      line, true, [] { return false; }, until, interruption_);
  if (outcome != Outcome::Ended) return FailedBy(*program, outcome), std::nullopt;
  const Fate fate = program->AwaitEnd(std::min(until, steady_clock::now() + kLastSteps));
  const bool wellEnded =
      fate.kind == Fate::Kind::Unknown || (fate.kind == Fate::Kind::Exited && fate.number == 0);
  if (!wellEnded) return FailedByEnd(*program, fate), std::nullopt;
  const std::string& bytes = program->Output();
  if (bytes.empty()) return Fail("gibt keinen Ton aus"), std::nullopt;
  auto sound = voice.rawRate != 0 ? ReadSamples(bytes, voice.rawRate) : ReadWave(bytes);
  if (!sound) return Fail("gibt etwas anderes aus als eine WAV-Datei"), std::nullopt;
  if (TooLong(*sound)) return Fail("spricht einen Satz länger als zehn Minuten"), std::nullopt;
  return SaidSentence{.sound = std::move(*sound), .words = {}};
}

void CommandProgram::GetReady(const CommandVoice& voice, const Utterance& utterance) {
  if (voice.mode == CommandVoice::Mode::Once) return;
  programName_ = voice.command.front().front().text;
  timeout_ = voice.timeout;
  if (!Open(voice, utterance, steady_clock::now() + voice.timeout)) staying_.reset();
  problem_.clear();  // it is told with the text
}

bool CommandProgram::Open(const CommandVoice& voice, const Utterance& utterance, Time until) {
  auto command = FilledCommand(voice, utterance);
  const bool same = stayingCommand_ == command && stayingFolder_ == voice.folder;
  if (staying_ && same && staying_->Output().empty() && staying_->IsThere()) return true;
  staying_.reset();
  staying_ = Start(voice, utterance);
  stayingCommand_ = std::move(command);
  stayingFolder_ = voice.folder;
  return staying_ && (voice.mode != CommandVoice::Mode::Module || GreetModule(voice, until));
}

std::optional<SaidSentence> CommandProgram::SayToStaying(const std::string& line, Time until) {
  std::string& bytes = staying_->Output();
  bool rubbish = false;
  std::size_t size = 0;
  const auto whole = [&] {
    if (bytes.size() < kWaveBeginning) return false;
    const auto told = ToldWaveSize(bytes);
    rubbish = !told;
    size = told.value_or(0);
    return rubbish || size > ChildProgram::kMostOutput || bytes.size() >= size;
  };
  const Outcome outcome = staying_->Exchange(line, false, whole, until, interruption_);
  if (outcome != Outcome::Enough) return FailedBy(*staying_, outcome), std::nullopt;
  if (size > ChildProgram::kMostOutput)
    return Fail("nennt in seiner WAV-Datei nicht, wie lang sie ist"), std::nullopt;
  auto sound = rubbish ? std::nullopt : ReadWave(std::string_view(bytes).substr(0, size));
  if (!sound) return Fail("gibt etwas anderes aus als eine WAV-Datei"), std::nullopt;
  if (TooLong(*sound)) return Fail("spricht einen Satz länger als zehn Minuten"), std::nullopt;
  bytes.erase(0, size);
  return SaidSentence{.sound = std::move(*sound), .words = {}};
}

bool CommandProgram::ExchangeWithModule(ModuleAnswers& answers, const std::string& text, std::size_t wanted,
                                        bool spoken, Time until) {
  const auto whole = [&] {
    answers.Read(staying_->Output());
    return answers.Broken() || !answers.Refusal().empty() || TooLong(answers.Spoken()) ||
           (answers.Count() >= wanted && (!spoken || answers.Ended()));
  };
  const Outcome outcome = staying_->Exchange(text, false, whole, until, interruption_);
  if (outcome != Outcome::Enough) return FailedBy(*staying_, outcome);
  if (answers.Broken()) return Fail("antwortet nicht wie ein Modul von speech-dispatcher");
  if (!answers.Refusal().empty()) return Fail("meldet: " + answers.Refusal());
  return TooLong(answers.Spoken()) ? Fail("spricht einen Satz länger als zehn Minuten") : true;
}

bool CommandProgram::GreetModule(const CommandVoice& voice, Time until) {
  ModuleAnswers answers;
  return ExchangeWithModule(answers, ModuleGreeting(voice.language, voice.moduleVoice), kAnswersToGreeting,
                            false, until);
}

std::optional<SaidSentence> CommandProgram::SayToModule(std::string_view sentence, Time until) {
  constexpr std::size_t kAnswersToSpeak = 2;
  const auto pieces = Pieces(sentence);
  ModuleAnswers answers;
  if (!ExchangeWithModule(answers, ModuleSentence(pieces), kAnswersToSpeak, true, until)) return std::nullopt;
  if (answers.Spoken().sampleRate == 0) return Fail("gibt keinen Ton aus"), std::nullopt;
  SaidSentence said;
  for (const auto& mark : answers.Marks()) {
    if (mark.piece >= pieces.size()) continue;
    const auto before = static_cast<std::size_t>(pieces[mark.piece].data() - sentence.data());
    said.words.push_back({CharacterCount(sentence.substr(0, before)), mark.sample});
  }
  said.sound = std::move(answers.Spoken());
  return said;
}

}  // namespace lorelin::engine
