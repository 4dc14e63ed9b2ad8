#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ports/SoundFile.h"

namespace lorelin::engine {

// What passes between the program and lorelin-engine, over one stream socket. A message is a frame of a
// four-byte length (of what follows), a one-byte kind and the fields of that kind; whole numbers are 32 bits,
// least significant byte first; a text is its length in bytes and the bytes. Both ends are of one build:
// another version in Hello ends the connection, and so does a frame that is too long, of unknown kind or not
// filled by its fields.

inline constexpr std::uint32_t kProtocolVersion = 7;
inline constexpr std::uint32_t kMaxFrame = 256U << 20;
inline constexpr std::size_t kKindAt = 4;  // of a frame

enum class Kind : std::uint8_t {
  // from the engine
  Hello = 1,    // Capabilities
  Started = 2,  // utterance: its first samples are on their way to the device or file
  Ended = 3,    // Ended
  Pong = 4,     // number of the ping
  Notice = 5,   // NoticeCode
  Word = 6,     // HeardWord
  Remark = 7,   // German sentence about a voice that is there and cannot be used
  // to the engine
  Speak = 16,  // Utterance
  Pause = 17,
  Resume = 18,
  Reset = 19,
  Ping = 20,     // number
  More = 21,     // TextPart
  Prepare = 22,  // voice that a text is going to be spoken with
};

enum class NoticeCode : std::uint32_t {
  NoAudioDevice = 1,  // texts pass in silence from now on
  AudioDevice = 2,    // and are heard again
  Unconfined = 3,     // the system does not refuse the engine what it does not need
  FilesOpen = 4,      // it does, but for files, as systems without Landlock
};

struct Voice {
  std::string name;
  std::int32_t languageId = 0;
  std::int32_t gender = 0;  // 1 male, 2 female
};

struct Range {
  std::int32_t lowest = 0;
  std::int32_t highest = 100;
};

struct Capabilities {
  Range pitch;
  Range speed;
  Range volume;
  std::vector<Voice> voices;
};

struct Utterance {
  std::uint32_t id = 0;
  std::int32_t voice = 1;
  std::int32_t pitch = 0;
  std::int32_t speed = 0;
  std::int32_t volumeLeft = 0;
  std::int32_t volumeRight = 0;
  std::string waveFile;  // "" for the sound device
  std::string text;
  bool goesOn = false;                    // TextParts follow
  SoundFormat format = SoundFormat::Wav;  // of the file
  SoundQuality quality = SoundQuality::Usual;
  bool tellsWords = false;  // of a file; those that are heard are told anyway
};

// What follows of a text that goes on.
struct TextPart {
  std::uint32_t id = 0;  // of the utterance
  bool last = true;
  std::string text;
};

struct Ended {
  std::uint32_t id = 0;
  std::string reason;              // German sentence; "" when the whole text was processed
  std::uint32_t milliseconds = 0;  // how long it is
};

// The word of an utterance that the device or the file has come to; its place in the whole text, in
// characters.
struct HeardWord {
  std::uint32_t id = 0;
  std::uint32_t begin = 0;
  std::uint32_t end = 0;
  std::uint32_t milliseconds = 0;  // of a file
};

struct Message {
  Kind kind = Kind::Ping;
  std::string fields;
};

[[nodiscard]] std::string Frame(Kind kind, std::string_view fields = {});
[[nodiscard]] std::string FrameNumber(Kind kind, std::uint32_t number);
[[nodiscard]] std::string FrameHello(const Capabilities& capabilities);
[[nodiscard]] std::string FrameSpeak(const Utterance& utterance);
[[nodiscard]] std::string FrameMore(const TextPart& part);
[[nodiscard]] std::string FrameEnded(const Ended& ended);
[[nodiscard]] std::string FrameWord(const HeardWord& word);
[[nodiscard]] std::string FrameRemark(std::string_view text);

// The fields of a message; absent when they are not exactly what the kind has (for Hello: of this version).
[[nodiscard]] std::optional<std::uint32_t> ReadNumber(std::string_view fields);
[[nodiscard]] std::optional<Capabilities> ReadHello(std::string_view fields);
[[nodiscard]] std::optional<Utterance> ReadSpeak(std::string_view fields);
[[nodiscard]] std::optional<TextPart> ReadMore(std::string_view fields);
[[nodiscard]] std::optional<Ended> ReadEnded(std::string_view fields);
[[nodiscard]] std::optional<HeardWord> ReadWord(std::string_view fields);
[[nodiscard]] std::optional<std::string> ReadRemark(std::string_view fields);

// Puts frames together from the bytes of a stream.
class FrameReader {
 public:
  void Feed(std::string_view bytes) { buffer_.append(bytes); }
  // The next whole message, if there is one.
  [[nodiscard]] std::optional<Message> Next();
  // The stream holds a frame that cannot be; nothing more comes out of it.
  [[nodiscard]] bool Broken() const { return broken_; }

 private:
  std::string buffer_;
  std::size_t done_ = 0;
  bool broken_ = false;
};

}  // namespace lorelin::engine
