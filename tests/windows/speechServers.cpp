#include "tests/windows/speechServers.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>
#include <map>
#include <mutex>

#include "base/paths.h"
#include "base/textEncoding.h"
#include "engine/waveHeader.h"
#include "platform/windows/wideText.h"
#include "tests/windows/eventSource.h"

namespace lorelin {

const CLSID kDirectSSClass = {0xEEE78591, 0xFE22, 0x11D0, {0x8B, 0xEF, 0x00, 0x60, 0x08, 0x18, 0x41, 0xDE}};
const CLSID kSpVoiceClass = {0x96749377, 0x3391, 0x11D2, {0x9E, 0xE3, 0x00, 0xC0, 0x4F, 0x79, 0x73, 0x96}};
const CLSID kSpFileStreamClass = {
    0x947812B3, 0x2AE1, 0x4644, {0xBA, 0x86, 0x9E, 0x90, 0xDE, 0xD7, 0xEC, 0x91}};

SpeechServers& SpeechServers::Here() {
  static SpeechServers servers;
  return servers;
}

std::size_t SpeechServers::Count(const std::string& call) const {
  return static_cast<std::size_t>(std::count(calls.begin(), calls.end(), call));
}

namespace {

constexpr IID kDirectSSEvents = {
    0xEEE78597, 0xFE22, 0x11D0, {0x8B, 0xEF, 0x00, 0x60, 0x08, 0x18, 0x41, 0xDE}};
constexpr IID kVoiceEvents = {0xA372ACD1, 0x3BEF, 0x4BBD, {0x8F, 0xFB, 0xCB, 0x3E, 0x2B, 0x41, 0x6A, 0xF8}};
constexpr std::uint32_t kRate = 22050;
constexpr std::size_t kSamplesPerCharacter = kRate / 50;

// Engines live on several threads.
void Note(const std::string& call) {
  static std::mutex noting;
  const std::lock_guard guard(noting);
  SpeechServers::Here().calls.push_back(call);
}
void FailIfWanted(const std::string& member) {
  if (SpeechServers::Here().failing.contains(member)) throw ComError(E_FAIL, "so gewollt");
}

void WriteTones(const std::string& path, std::size_t characters) {
  std::ofstream file(NativePath(path), std::ios::binary);
  file << engine::WaveHeader(kRate, static_cast<std::uint32_t>(characters * kSamplesPerCharacter * 2));
  std::vector<std::int16_t> tone(kSamplesPerCharacter);
  for (std::size_t i = 0; i < tone.size(); ++i) {
    tone[i] = static_cast<std::int16_t>(8000 * std::sin(static_cast<double>(i) * 0.1254));
  }
  for (std::size_t i = 0; i < characters; ++i)
    file.write(reinterpret_cast<const char*>(tone.data()), static_cast<std::streamsize>(tone.size() * 2));
}

// Calls back once, on this thread, while messages are handled.
class Alarm {
 public:
  ~Alarm() { Stop(); }
  Alarm() = default;
  Alarm(const Alarm&) = delete;
  Alarm& operator=(const Alarm&) = delete;

  void Start(UINT milliseconds, std::function<void()> work) {
    Stop();
    timer_ = SetTimer(nullptr, 0, milliseconds, &Alarm::Ring);
    All()[timer_] = this;
    work_ = std::move(work);
  }
  void Stop() {
    if (timer_ == 0) return;
    KillTimer(nullptr, timer_);
    All().erase(timer_);
    timer_ = 0;
  }

 private:
  // Timers belong to their threads.
  static std::map<UINT_PTR, Alarm*>& All() {
    static thread_local std::map<UINT_PTR, Alarm*> all;
    return all;
  }
  static void CALLBACK Ring(HWND, UINT, UINT_PTR timer, DWORD) {
    const auto alarm = All().find(timer);
    if (alarm == All().end()) return;
    const auto work = alarm->second->work_;
    alarm->second->Stop();
    work();
  }

  UINT_PTR timer_ = 0;
  std::function<void()> work_;
};

// Where words begin, in UTF-16 units; what stands in pointed brackets is none where the text is markup.
std::vector<std::int32_t> WordPlaces(const std::string& text, bool isMarkup) {
  std::vector<std::int32_t> places;
  bool inMarkup = false;
  bool inWord = false;
  std::int32_t place = 0;
  for (const wchar_t unit : Wide(text)) {
    if (unit == L'<') inMarkup = isMarkup;
    const bool letter = !inMarkup && unit != L' ';
    if (letter && !inWord) places.push_back(place);
    inWord = letter;
    if (unit == L'>') inMarkup = false;
    ++place;
  }
  return places;
}

UINT Duration(const std::string& text) {
  return 20 + static_cast<UINT>(std::min<std::size_t>(CharacterCount(text) / 50, 2000));
}

// The control as speech.h and its type library describe it.
class FakeDirectSS final : public EventSource {
 public:
  FakeDirectSS() : EventSource({}, kDirectSSEvents) {}

 protected:
  Variant Perform(DISPID member, WORD flags, std::vector<Variant> arguments) override {
    const std::string name = std::to_string(member);
    FailIfWanted(name);
    if ((flags & DISPATCH_PROPERTYPUT) != 0) return Put(member, name, arguments.at(0)), Variant();
    switch (member) {
      case 6:
        Note("6(" + arguments.at(0).Text() + ")");
        return Speak(arguments.at(0).Text()), Variant();
      case 35:
        Note(name);
        return Hold(true), Variant();
      case 36:
        Note(name);
        return Reset(), Variant();
      case 37:
        Note(name);
        return Hold(false), Variant();
      case 18:
        return Variant(std::int32_t{3});
      case 23:
        return Variant(std::string_view(arguments.at(0).Number() == 3 ? "Mary" : "Deutsche Stimme"));
      case 25:
        return Variant(std::int32_t{arguments.at(0).Number() == 1 ? 2 : 1});
      case 30:
        return Variant(std::int32_t{arguments.at(0).Number() == 3 ? 1033 : 1031});
      case 61:
        return Variant(speaking_);
      default:
        break;
    }
    const auto value = values_.find(member);
    if (value == values_.end()) throw ComError(DISP_E_MEMBERNOTFOUND, name);
    return Variant(value->second);
  }

 private:
  void Put(DISPID member, const std::string& name, const Variant& value) {
    Note(name + "=" + value.Text());
    if (member == 68) {
      file_ = value.Text();
    } else if (values_.contains(member)) {
      values_[member] = value.Number();
    } else {
      throw ComError(DISP_E_MEMBERNOTFOUND, name);
    }
  }
  void Speak(const std::string& text) {
    text_ = text;
    speaking_ = true;
    if (!paused_) GoOn();
  }
  void GoOn() {
    alarm_.Start(Duration(text_), [this] {
      for (const std::int32_t place : WordPlaces(text_, false))
        Raise(7, Arguments(std::int32_t{0}, std::int32_t{0}, place * 2));
      if (!file_.empty()) WriteTones(file_, CharacterCount(text_));
      if (!SpeechServers::Here().quietAboutTheEnd)
        Raise(10, Arguments(std::int32_t{0}, std::int32_t{0}, std::int32_t{0}));
      alarm_.Start(10, [this] {
        speaking_ = false;
        Raise(4, Arguments(std::int32_t{0}, std::int32_t{0}));
      });
    });
  }
  void Hold(bool paused) {
    paused_ = paused;
    if (paused) alarm_.Stop();
    if (!paused && speaking_) GoOn();
  }
  void Reset() {
    alarm_.Stop();
    speaking_ = false;
  }

  std::map<DISPID, std::int32_t> values_{{7, 100},    {8, 200}, {9, 50},     {10, 150}, {11, 300},  {12, 30},
                                         {13, 65535}, {69, 1},  {72, 65535}, {73, 0},   {74, 65535}};
  std::string file_;
  std::string text_;
  bool speaking_ = false;
  bool paused_ = false;
  Alarm alarm_;
};

// An object that only answers.
class Answers final : public ServedObject {
 public:
  using Answer = std::function<Variant(DISPID member, WORD flags, std::vector<Variant>& arguments)>;
  Answers(std::vector<Member> members, Answer answer)
      : ServedObject(std::move(members)), answer_(std::move(answer)) {}

 protected:
  Variant Perform(DISPID member, WORD flags, std::vector<Variant> arguments) override {
    return answer_(member, flags, arguments);
  }

 private:
  Answer answer_;
};

Variant Owned(ServedObject* object) {
  return Variant(static_cast<IDispatch*>(object));
}

Variant MakeToken(std::size_t index) {
  return Owned(new Answers(
      {{"GetDescription", 1}, {"GetAttribute", 2}}, [index](DISPID member, WORD, auto& arguments) {
        if (member == 1) return Variant(std::string_view("Stimme " + std::to_string(index)));
        const std::string wanted = arguments.at(0).Text();
        if (wanted == "Gender") return Variant(std::string_view(index % 2 == 0 ? "Female" : "Male"));
        if (wanted == "Language")
          return Variant(std::string_view(SpeechServers::Here().languages.at(index) + ";9"));
        throw ComError(E_INVALIDARG, wanted);
      }));
}

Variant MakeTokens() {
  return Owned(new Answers({{"Count", 1}, {"Item", 2}}, [](DISPID member, WORD, auto& arguments) {
    const auto count = SpeechServers::Here().languages.size();
    if (member == 1) return Variant(static_cast<std::int32_t>(count));
    return MakeToken(static_cast<std::size_t>(arguments.at(0).Number()));
  }));
}

constexpr DISPID kStreamPath = 100;

class FakeSpVoice final : public EventSource {
 public:
  FakeSpVoice()
      : EventSource({{"Voice", 1},
                     {"Rate", 2},
                     {"Volume", 3},
                     {"EventInterests", 4},
                     {"AudioOutputStream", 5},
                     {"AllowAudioOutputFormatChangesOnNextSet", 6},
                     {"Speak", 7},
                     {"GetVoices", 8},
                     {"Pause", 9},
                     {"Resume", 10},
                     {"WaitUntilDone", 11}},
                    kVoiceEvents) {}

 protected:
  Variant Perform(DISPID member, WORD flags, std::vector<Variant> arguments) override {
    static const std::map<DISPID, std::string> names{
        {1, "Voice"},         {2, "Rate"},  {3, "Volume"},    {4, "EventInterests"}, {5, "AudioOutputStream"},
        {6, "AllowFormat"},   {7, "Speak"}, {8, "GetVoices"}, {9, "Pause"},          {10, "Resume"},
        {11, "WaitUntilDone"}};
    const std::string& name = names.at(member);
    FailIfWanted(name);
    const bool putting = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (member == 1) {
      Note("Voice=" +
           Dispatch(arguments.at(0).Object()).Call("GetDescription", Arguments(std::int32_t{0})).Text());
    } else if (member == 5) {
      output_ = Dispatch(arguments.at(0).Object());
      Note("AudioOutputStream");
    } else if (member == 7) {
      return Variant(Speak(arguments.at(0).Text(), arguments.at(1).Number()));
    } else if (member == 8) {
      return MakeTokens();
    } else if (member == 9 || member == 10) {
      Note(name);
      Hold(member == 9);
    } else if (member == 11) {
      return Variant(streams_.empty());
    } else if (putting) {
      Note(name + "=" + arguments.at(0).Text());
    }
    return Variant();
  }

 private:
  struct Stream {
    std::int32_t number;
    std::string text;
  };

  std::int32_t Speak(const std::string& text, std::int32_t flags) {
    Note("Speak(" + text + ", " + std::to_string(flags) + ")");
    if ((flags & 2) != 0) {
      alarm_.Stop();
      streams_.clear();
    }
    if (text.empty()) return ++last_;
    streams_.push_back({++last_, text});
    if (!paused_) GoOn();
    return last_;
  }
  void GoOn() {
    if (streams_.empty()) return;
    alarm_.Start(Duration(streams_.front().text), [this] {
      const Stream stream = streams_.front();
      streams_.erase(streams_.begin());
      for (const std::int32_t place : WordPlaces(stream.text, true))
        Raise(5, Arguments(stream.number, std::int32_t{0}, place, std::int32_t{1}));
      if (output_) WriteTones(output_.Property(kStreamPath).Text(), CharacterCount(stream.text));
      if (!SpeechServers::Here().quietAboutTheEnd) Raise(2, Arguments(stream.number, std::int32_t{0}));
      GoOn();
    });
  }
  void Hold(bool paused) {
    paused_ = paused;
    if (paused) alarm_.Stop();
    if (!paused) GoOn();
  }

  Dispatch output_;
  std::vector<Stream> streams_;
  std::int32_t last_ = 0;
  bool paused_ = false;
  Alarm alarm_;
};

class FakeFileStream final : public ServedObject {
 public:
  FakeFileStream() : ServedObject({{"Format", 1}, {"Open", 2}, {"Close", 3}}) {}

 protected:
  Variant Perform(DISPID member, WORD, std::vector<Variant> arguments) override {
    switch (member) {
      case 1:
        return Owned(new Answers({{"Type", 1}}, [](DISPID, WORD, auto& type) {
          Note("Format=" + type.at(0).Text());
          return Variant();
        }));
      case 2:
        FailIfWanted("Open");
        path_ = arguments.at(0).Text();
        Note("Open(" + arguments.at(1).Text() + ")");
        WriteTones(path_, 0);
        return Variant();
      case 3:
        Note("Close");
        return Variant();
      case kStreamPath:
        return Variant(std::string_view(path_));
      default:
        throw ComError(DISP_E_MEMBERNOTFOUND, "SpFileStream");
    }
  }

 private:
  std::string path_;
};

}  // namespace

ServedObject* MakeDirectSS() {
  return new FakeDirectSS;
}
ServedObject* MakeSpVoice() {
  return new FakeSpVoice;
}
ServedObject* MakeSpFileStream() {
  return new FakeFileStream;
}

OfferedClass::OfferedClass(const CLSID& id, ServedObject* (*make)()) {
  auto* const factory = new ServedClass(make);
  factory->AddRef();
  CoRegisterClassObject(id, factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration_);
  factory->Release();
}
OfferedClass::~OfferedClass() {
  CoRevokeClassObject(registration_);
}

}  // namespace lorelin
