#include "engine/SpeechModule.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace lorelin::engine {
namespace {

// "700-1": a line in front of others of the same number; "700 INDEX MARK": the last one.
constexpr std::size_t kNumberSize = 3;
constexpr std::size_t kMostMarks = 100000;
constexpr std::string_view kBlock{"AUDIO\0", 6};
constexpr char kEscape = 0x7D;
constexpr char kEscaped = 0x20;

enum Event { kMark = 700, kBegin = 701, kEnd = 702, kStopped = 703, kLastEvent = 799 };

// The whole number that the text is; `none` when it is something else.
std::uint32_t WholeNumber(std::string_view text, std::uint32_t none) {
  std::uint32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? number : none;
}

// As a part of one line of SSML.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      case '\n':
      case '\r':
      case '\t':
        escaped += ' ';
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

// Ends of lines and the sign itself are escaped in the sound.
std::string Unescaped(std::string_view bytes) {
  std::string plain;
  plain.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const bool escape = bytes[i] == kEscape && i + 1 < bytes.size();
    plain += escape ? static_cast<char>(bytes[++i] ^ kEscaped) : bytes[i];
  }
  return plain;
}

}  // namespace

std::string ModuleGreeting(std::string_view language, std::string_view voice) {
  std::string text = "INIT\nAUDIO\naudio_output_method=server\n.\nSET\n";
  text += "punctuation_mode=none\nspelling_mode=off\ncap_let_recogn=none\nrate=0\npitch=0\nvolume=100\n";
  text += "language=" + std::string(language) + "\nvoice=male1\nsynthesis_voice=";
  text += voice.empty() ? std::string_view("NULL") : voice;
  return text + "\n.\n";
}

std::string ModuleSentence(const std::vector<std::string_view>& pieces) {
  std::string text = "SPEAK\n<speak>";
  for (std::size_t i = 0; i < pieces.size(); ++i)
    text += "<mark name=\"" + std::to_string(i) + "\"/>" + Escaped(pieces[i]);
  return text + "</speak>\n.\n";
}

void ModuleAnswers::Read(std::string& bytes) {
  std::string_view rest = bytes;
  for (std::size_t end = rest.find('\n'); end != std::string_view::npos; end = rest.find('\n')) {
    ReadLine(rest.substr(0, end));
    rest.remove_prefix(end + 1);
  }
  bytes.erase(0, bytes.size() - rest.size());
}

void ModuleAnswers::ReadLine(std::string_view line) {
  constexpr std::uint32_t kNone = 0;
  const std::uint32_t number =
      line.size() > kNumberSize ? WholeNumber(line.substr(0, kNumberSize), kNone) : kNone;
  if (number < 100 || (line[kNumberSize] != ' ' && line[kNumberSize] != '-')) {
    broken_ = true;
    return;
  }
  const std::string_view text = line.substr(kNumberSize + 1);
  if (line[kNumberSize] == '-') return ReadHint(static_cast<int>(number), text);
  if (number >= kMark && number <= kLastEvent) {
    ended_ = ended_ || number == kEnd || number == kStopped;
    return;
  }
  ++count_;
  if (number >= 300 && refusal_.empty()) refusal_ = line;
}

void ModuleAnswers::ReadHint(int number, std::string_view text) {
  constexpr std::uint32_t kNoPiece = std::numeric_limits<std::uint32_t>::max();
  if (number == kMark && marks_.size() < kMostMarks) {
    const std::uint32_t piece = WholeNumber(text, kNoPiece);
    if (piece != kNoPiece) marks_.push_back({piece, sound_.samples.size()});
  }
  if (number != kMark + 5) return;
  if (text.starts_with(kBlock)) {
    ReadBlock(text.substr(kBlock.size()));
  } else {
    ReadForm(text);
  }
}

// What is told of a block before it comes.
void ModuleAnswers::ReadForm(std::string_view text) {
  const std::size_t sign = std::min(text.find('='), text.size());
  const std::string_view key = text.substr(0, sign);
  const std::uint32_t value = WholeNumber(text.substr(std::min(sign + 1, text.size())), 0);
  if (key == "bits") bits_ = value;
  if (key == "num_channels") channels_ = value;
  if (key == "big_endian") highFirst_ = value != 0;
  if (key != "sample_rate") return;
  const bool other = sound_.sampleRate != 0 && value != static_cast<std::uint32_t>(sound_.sampleRate);
  if (other || value < kLowestRate || value > kHighestRate) {
    broken_ = true;
  } else {
    sound_.sampleRate = static_cast<int>(value);
  }
}

void ModuleAnswers::ReadBlock(std::string_view block) {
  broken_ = broken_ || bits_ != 16 || channels_ < 1 || channels_ > 2 || sound_.sampleRate == 0;
  if (broken_) return;
  std::string bytes = Unescaped(block);
  for (std::size_t i = 0; highFirst_ && i + 1 < bytes.size(); i += 2) std::swap(bytes[i], bytes[i + 1]);
  const Sound read = ReadSamples(bytes, sound_.sampleRate);
  for (std::size_t i = 0; i + channels_ <= read.samples.size(); i += channels_) {
    float sum = 0;
    for (std::uint32_t channel = 0; channel < channels_; ++channel) sum += read.samples[i + channel];
    sound_.samples.push_back(sum / static_cast<float>(channels_));
  }
}

}  // namespace lorelin::engine
