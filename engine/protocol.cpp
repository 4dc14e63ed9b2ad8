#include "engine/protocol.h"

#include <utility>

namespace lorelin::engine {
namespace {

constexpr std::size_t kHeader = 5;

class FieldWriter {
 public:
  FieldWriter& Number(std::uint32_t number) {
    for (unsigned shift = 0; shift < 32; shift += 8) fields_.push_back(static_cast<char>(number >> shift));
    return *this;
  }
  FieldWriter& Signed(std::int32_t number) { return Number(static_cast<std::uint32_t>(number)); }
  FieldWriter& Text(std::string_view text) {
    Number(static_cast<std::uint32_t>(text.size()));
    fields_.append(text);
    return *this;
  }
  std::string Take() { return std::move(fields_); }

 private:
  std::string fields_;
};

class FieldReader {
 public:
  explicit FieldReader(std::string_view fields) : rest_(fields) {}

  std::uint32_t Number() {
    if (rest_.size() < 4) return Fail();
    std::uint32_t number = 0;
    for (unsigned i = 0; i < 4; ++i) number |= std::uint32_t{static_cast<unsigned char>(rest_[i])} << (8 * i);
    rest_.remove_prefix(4);
    return number;
  }
  std::int32_t Signed() { return static_cast<std::int32_t>(Number()); }
  std::string Text() {
    const std::uint32_t length = Number();
    if (length > rest_.size()) return Fail(), std::string();
    std::string text(rest_.substr(0, length));
    rest_.remove_prefix(length);
    return text;
  }
  [[nodiscard]] bool Failed() const { return failed_; }
  // Everything was there, and nothing is left over.
  [[nodiscard]] bool Complete() const { return !failed_ && rest_.empty(); }

 private:
  std::uint32_t Fail() {
    failed_ = true;
    rest_ = {};
    return 0;
  }

  std::string_view rest_;
  bool failed_ = false;
};

bool IsKnown(std::uint8_t kind) {
  return (kind >= 1 && kind <= 7) || (kind >= 16 && kind <= 22);
}

Range ReadRange(FieldReader& reader) {
  Range range;
  range.lowest = reader.Signed();
  range.highest = reader.Signed();
  return range;
}

}  // namespace

std::string Frame(Kind kind, std::string_view fields) {
  FieldWriter writer;
  writer.Number(static_cast<std::uint32_t>(fields.size() + 1));
  std::string frame = writer.Take();
  frame.push_back(static_cast<char>(kind));
  return frame.append(fields);
}

std::string FrameNumber(Kind kind, std::uint32_t number) {
  return Frame(kind, FieldWriter().Number(number).Take());
}

std::string FrameHello(const Capabilities& capabilities) {
  FieldWriter writer;
  writer.Number(kProtocolVersion);
  for (const Range& range : {capabilities.pitch, capabilities.speed, capabilities.volume}) {
    writer.Signed(range.lowest).Signed(range.highest);
  }
  writer.Number(static_cast<std::uint32_t>(capabilities.voices.size()));
  for (const Voice& voice : capabilities.voices) {
    writer.Text(voice.name).Signed(voice.languageId).Signed(voice.gender);
  }
  return Frame(Kind::Hello, writer.Take());
}

std::string FrameSpeak(const Utterance& utterance) {
  FieldWriter writer;
  writer.Number(utterance.id).Signed(utterance.voice).Signed(utterance.pitch).Signed(utterance.speed);
  writer.Signed(utterance.volumeLeft).Signed(utterance.volumeRight);
  writer.Text(utterance.waveFile).Text(utterance.text).Number(utterance.goesOn ? 1 : 0);
  writer.Number(static_cast<std::uint32_t>(utterance.format));
  writer.Number(static_cast<std::uint32_t>(utterance.quality)).Number(utterance.tellsWords ? 1 : 0);
  return Frame(Kind::Speak, writer.Take());
}

std::string FrameMore(const TextPart& part) {
  return Frame(Kind::More, FieldWriter().Number(part.id).Number(part.last ? 1 : 0).Text(part.text).Take());
}

std::string FrameEnded(const Ended& ended) {
  return Frame(Kind::Ended,
               FieldWriter().Number(ended.id).Text(ended.reason).Number(ended.milliseconds).Take());
}

std::string FrameWord(const HeardWord& word) {
  FieldWriter writer;
  writer.Number(word.id).Number(word.begin).Number(word.end).Number(word.milliseconds);
  return Frame(Kind::Word, writer.Take());
}

std::string FrameRemark(std::string_view text) {
  return Frame(Kind::Remark, FieldWriter().Text(text).Take());
}

std::optional<std::uint32_t> ReadNumber(std::string_view fields) {
  FieldReader reader(fields);
  const std::uint32_t number = reader.Number();
  if (!reader.Complete()) return std::nullopt;
  return number;
}

std::optional<Capabilities> ReadHello(std::string_view fields) {
  FieldReader reader(fields);
  if (reader.Number() != kProtocolVersion) return std::nullopt;
  Capabilities capabilities;
  capabilities.pitch = ReadRange(reader);
  capabilities.speed = ReadRange(reader);
  capabilities.volume = ReadRange(reader);
  for (std::uint32_t left = reader.Number(); left > 0 && !reader.Failed(); --left) {
    Voice voice;
    voice.name = reader.Text();
    voice.languageId = reader.Signed();
    voice.gender = reader.Signed();
    capabilities.voices.push_back(std::move(voice));
  }
  if (!reader.Complete()) return std::nullopt;
  return capabilities;
}

std::optional<Utterance> ReadSpeak(std::string_view fields) {
  FieldReader reader(fields);
  Utterance utterance;
  utterance.id = reader.Number();
  utterance.voice = reader.Signed();
  utterance.pitch = reader.Signed();
  utterance.speed = reader.Signed();
  utterance.volumeLeft = reader.Signed();
  utterance.volumeRight = reader.Signed();
  utterance.waveFile = reader.Text();
  utterance.text = reader.Text();
  utterance.goesOn = reader.Number() != 0;
  const std::uint32_t format = reader.Number();
  const std::uint32_t quality = reader.Number();
  utterance.tellsWords = reader.Number() != 0;
  if (!reader.Complete() || format >= kSoundFormats || quality >= kSoundQualities) return std::nullopt;
  utterance.format = static_cast<SoundFormat>(format);
  utterance.quality = static_cast<SoundQuality>(quality);
  return utterance;
}

std::optional<TextPart> ReadMore(std::string_view fields) {
  FieldReader reader(fields);
  TextPart part;
  part.id = reader.Number();
  part.last = reader.Number() != 0;
  part.text = reader.Text();
  if (!reader.Complete()) return std::nullopt;
  return part;
}

std::optional<Ended> ReadEnded(std::string_view fields) {
  FieldReader reader(fields);
  Ended ended;
  ended.id = reader.Number();
  ended.reason = reader.Text();
  ended.milliseconds = reader.Number();
  if (!reader.Complete()) return std::nullopt;
  return ended;
}

std::optional<HeardWord> ReadWord(std::string_view fields) {
  FieldReader reader(fields);
  HeardWord word;
  word.id = reader.Number();
  word.begin = reader.Number();
  word.end = reader.Number();
  word.milliseconds = reader.Number();
  if (!reader.Complete()) return std::nullopt;
  return word;
}

std::optional<std::string> ReadRemark(std::string_view fields) {
  FieldReader reader(fields);
  std::string text = reader.Text();
  if (!reader.Complete()) return std::nullopt;
  return text;
}

std::optional<Message> FrameReader::Next() {
  const std::string_view rest = std::string_view(buffer_).substr(done_);
  if (broken_ || rest.size() < kHeader) return std::nullopt;
  const std::uint32_t length = FieldReader(rest).Number();
  const auto kind = static_cast<std::uint8_t>(rest[kKindAt]);
  if (length < 1 || length > kMaxFrame || !IsKnown(kind)) {
    broken_ = true;
    return std::nullopt;
  }
  if (rest.size() < 4 + std::size_t{length}) return std::nullopt;
  Message message{static_cast<Kind>(kind), std::string(rest.substr(kHeader, length - 1))};
  done_ += 4 + std::size_t{length};
  if (done_ == buffer_.size()) {
    buffer_.clear();
    buffer_.shrink_to_fit();
    done_ = 0;
  }
  return message;
}

}  // namespace lorelin::engine
