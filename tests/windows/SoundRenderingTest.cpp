#include <gtest/gtest.h>
#include <sndfile.h>
#include <taglib/flacfile.h>
#include <taglib/mpegfile.h>
#include <taglib/opusfile.h>
#include <taglib/tpropertymap.h>
#include <taglib/vorbisfile.h>

#include <algorithm>
#include <filesystem>

#include "base/RuntimeError.h"
#include "base/TaskPump.h"
#include "base/paths.h"
#include "platform/windows/ComSoundRendering.h"
#include "platform/windows/DirectSSControl.h"
#include "platform/windows/MissingSpeech.h"
#include "platform/windows/SapiVoice.h"
#include "platform/windows/wideText.h"
#include "tests/support/FakePorts.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/windows/speechServers.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;

// The test servers in the apartment that the engine lives in.
struct Servers {
  OfferedClass control{kDirectSSClass, &MakeDirectSS};
  OfferedClass voice{kSpVoiceClass, &MakeSpVoice};
  OfferedClass file{kSpFileStreamClass, &MakeSpFileStream};
};

class WindowsRenderings : public testing::Test {
 protected:
  WindowsRenderings() { SpeechServers::Here() = {}; }

  struct Renderer {
    explicit Renderer(SoundRendering& rendering) : made(rendering.Make(pump)) {
      made->Voice().OnEndOfText([this](const EndOfText& end) { ends.push_back(end); });
      made->Voice().OnWordHeard([this](const HeardWord& word) { words.push_back(word); });
    }
    bool WaitForEnd() {
      const auto until = std::chrono::steady_clock::now() + std::chrono::minutes(1);
      while (ends.empty() && std::chrono::steady_clock::now() < until) pump.RunPendingEvents();
      return !ends.empty() && ends.back().complete;
    }
    bool Render(const std::string& text, const std::string& file, SoundFormat format) {
      ends.clear();
      words.clear();
      made->SetSoundFile(file, format, SoundQuality::Usual);
      made->Voice().Speak(text);
      return WaitForEnd();
    }

    TaskPump pump;
    std::vector<EndOfText> ends;
    std::vector<HeardWord> words;
    std::unique_ptr<SoundRenderer> made;
  };

  [[nodiscard]] std::vector<fs::path> Files() const {
    const auto files = fs::directory_iterator(NativePath(folder.Path()));
    return {begin(files), end(files)};
  }

  TemporaryFolder folder;
  TemporaryFolder cache;
  FakeLog log;
  bool withControl = true;
  ComSoundRendering rendering{[this](EventPump& pump) -> std::unique_ptr<DirectSS> {
                                thread_local const Servers servers;
                                if (withControl) return DirectSSControl::Create(pump, log);
                                return SapiVoice::Create(pump, log);
                              },
                              cache.Path()};
  std::string rendered = folder.File(".part-a");
  std::string target = folder.File("a");
};

// A character is 20 ms long.
TEST_F(WindowsRenderings, TellEveryWordWithItsTimeAndTheLength) {
  Renderer renderer(rendering);
  ASSERT_TRUE(renderer.Render("Eins zwei drei. Vier.", rendered, SoundFormat::Opus));
  ASSERT_EQ(renderer.words.size(), 4U);
  EXPECT_EQ(renderer.words[1].begin, 5U);
  EXPECT_EQ(renderer.words[3].end, 20U);
  EXPECT_NEAR(static_cast<double>(renderer.words[0].time.count()), 0, 2);
  EXPECT_NEAR(static_cast<double>(renderer.words[3].time.count()), 320, 2);
  EXPECT_EQ(renderer.ends.back().length, milliseconds(420));
  EXPECT_EQ(Files().size(), 1U);
}

TEST_F(WindowsRenderings, AreAsLongAsTheyTell) {
  withControl = false;
  Renderer renderer(rendering);
  ASSERT_TRUE(renderer.Render("Eins zwei drei. Vier.", rendered, SoundFormat::Wav));
  const auto bytes = static_cast<double>(fs::file_size(NativePath(rendered)) - 44);
  EXPECT_NEAR(static_cast<double>(renderer.ends.back().length.count()), bytes / 44.1, 1);
  EXPECT_GT(bytes, 21 * 882);
}

TEST_F(WindowsRenderings, NoticeAnEndThatNoEventTells) {
  withControl = false;
  SpeechServers::Here().quietAboutTheEnd = true;
  Renderer renderer(rendering);
  EXPECT_TRUE(renderer.Render("Eins. Zwei.", rendered, SoundFormat::Flac));
}

// Seconds of sound that another reader finds in the file, 0 when it is silent.
double SecondsIn(const std::string& path) {
  SF_INFO info{};
  SNDFILE* const file = sf_wchar_open(Wide(path).c_str(), SFM_READ, &info);
  if (file == nullptr) return -1;
  std::vector<std::int16_t> samples(1 << 20);
  const sf_count_t count = sf_read_short(file, samples.data(), static_cast<sf_count_t>(samples.size()));
  sf_close(file);
  if (*std::max_element(samples.begin(), samples.end()) < 4000) return 0;
  return static_cast<double>(count) / info.samplerate;
}

TEST_F(WindowsRenderings, AreWhatOthersDecode) {
  Renderer renderer(rendering);
  const std::vector<std::pair<SoundFormat, std::string>> formats{{SoundFormat::Wav, "ä.wav"},
                                                                 {SoundFormat::Opus, "ä.opus"},
                                                                 {SoundFormat::Vorbis, "ä.ogg"},
                                                                 {SoundFormat::Flac, "ä.flac"}};
  for (const auto& [format, name] : formats) {
    const std::string file = folder.File(name);
    ASSERT_TRUE(renderer.Render("Das sind fünfzig Zeichen. Das sind fünfzig Zeichen", file, format)) << name;
    EXPECT_NEAR(SecondsIn(file), 1.0, 0.03) << name;
  }
}

template <typename File>
TagLib::PropertyMap TagsOf(const std::string& path) {
  const File file(NativePath(path).c_str(), false);
  return file.isValid() ? file.properties() : TagLib::PropertyMap();
}

std::string Tag(const TagLib::PropertyMap& tags, const char* name) {
  return tags[name].toString().to8Bit(true);
}

TEST_F(WindowsRenderings, CarryTheirTags) {
  const SoundTags tags{.title = "Grüße & mehr",
                       .author = "Jürgen",
                       .album = "Łódź",
                       .language = "de-AT",
                       .track = 2,
                       .tracks = 12,
                       .length = milliseconds(1000),
                       .chapters = {{"Eins", milliseconds(0)}, {"Zwei 中", milliseconds(600)}}};
  using Reader = TagLib::PropertyMap (*)(const std::string&);
  const std::vector<std::tuple<SoundFormat, std::string, Reader>> formats{
      {SoundFormat::Mp3, "ł.mp3", &TagsOf<TagLib::MPEG::File>},
      {SoundFormat::Opus, "ł.opus", &TagsOf<TagLib::Ogg::Opus::File>},
      {SoundFormat::Vorbis, "ł.ogg", &TagsOf<TagLib::Ogg::Vorbis::File>},
      {SoundFormat::Flac, "ł.flac", &TagsOf<TagLib::FLAC::File>}};
  Renderer renderer(rendering);
  for (const auto& [format, name, read] : formats) {
    ASSERT_TRUE(renderer.Render("Guten Tag.", rendered, format));
    WriteFile(folder.File(name), "alt");
    rendering.PutInPlace(rendered, folder.File(name), format, tags);
    const TagLib::PropertyMap found = read(folder.File(name));
    EXPECT_EQ(Tag(found, "TITLE"), "Grüße & mehr") << name;
    EXPECT_EQ(Tag(found, "ARTIST"), "Jürgen") << name;
    EXPECT_EQ(Tag(found, "ALBUM"), "Łódź") << name;
    EXPECT_EQ(Tag(found, "LANGUAGE"), format == SoundFormat::Mp3 ? "deu" : "de-AT") << name;
    if (format == SoundFormat::Mp3) continue;  // its chapters are looked at from outside
    EXPECT_EQ(Tag(found, "CHAPTER002NAME"), "Zwei 中") << name;
  }
  EXPECT_EQ(Files().size(), formats.size());
}

TEST_F(WindowsRenderings, LeaveWhatWasThereWhenTheyCannotTakeItsPlace) {
  Renderer renderer(rendering);
  ASSERT_TRUE(renderer.Render("Guten Tag.", rendered, SoundFormat::Mp3));
  fs::create_directory(NativePath(target));
  EXPECT_THROW(rendering.PutInPlace(rendered, target, SoundFormat::Mp3, {}), RuntimeError);
  EXPECT_TRUE(fs::is_directory(NativePath(target)));
  EXPECT_FALSE(fs::exists(NativePath(rendered)));
}

TEST_F(WindowsRenderings, ThatAreNoSoundAreNotTagged) {
  WriteFile(rendered, "kein Ton");
  WriteFile(target, "alt");
  EXPECT_THROW(rendering.PutInPlace(rendered, target, SoundFormat::Opus, {}), RuntimeError);
  EXPECT_EQ(ReadFile(target), "alt");
}

TEST_F(WindowsRenderings, ThatAreGivenUpLeaveNothing) {
  std::string text;
  for (int i = 0; i < 2000; ++i) text += "Ein langer Satz. ";
  {
    Renderer renderer(rendering);
    renderer.made->SetSoundFile(rendered, SoundFormat::Opus, SoundQuality::Usual);
    renderer.made->Voice().Speak(text);
    const auto until = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (renderer.words.empty() && std::chrono::steady_clock::now() < until)
      renderer.pump.RunPendingEvents();
    EXPECT_TRUE(renderer.made->Voice().Speaking());
  }
  EXPECT_TRUE(Files().empty());
}

TEST_F(WindowsRenderings, StandOnAListAsLongAsTheyAreUnfinished) {
  const auto lists = [this] { return !fs::is_empty(NativePath(cache.Path())); };
  Renderer renderer(rendering);
  ASSERT_TRUE(renderer.Render("Guten Tag.", rendered, SoundFormat::Opus));
  EXPECT_TRUE(lists());
  rendering.PutInPlace(rendered, target, SoundFormat::Opus, {});
  EXPECT_FALSE(lists());
}

TEST_F(WindowsRenderings, AreTakenBackByAReset) {
  Renderer renderer(rendering);
  renderer.made->SetSoundFile(rendered, SoundFormat::Mp3, SoundQuality::Usual);
  renderer.made->Voice().SpeakBeginning("Eins. Zwei.");
  renderer.made->Voice().ResetAudio();
  EXPECT_FALSE(renderer.made->Voice().Speaking());
  EXPECT_TRUE(Files().empty());
  EXPECT_TRUE(renderer.Render("Drei.", rendered, SoundFormat::Mp3));
  EXPECT_EQ(renderer.ends.size(), 1U);
}

TEST_F(WindowsRenderings, TellThatTheEngineFailed) {
  SpeechServers::Here().failing.insert("6");
  Renderer renderer(rendering);
  EXPECT_FALSE(renderer.Render("Guten Tag.", rendered, SoundFormat::Mp3));
  ASSERT_EQ(renderer.ends.size(), 1U);
  EXPECT_NE(renderer.ends[0].reason, "");
  EXPECT_TRUE(Files().empty());
}

TEST_F(WindowsRenderings, TellThatThereIsNoEngine) {
  ComSoundRendering without{[](EventPump& pump) { return std::make_unique<MissingSpeech>(pump); },
                            cache.Path()};
  Renderer renderer(without);
  EXPECT_FALSE(renderer.Render("Guten Tag.", rendered, SoundFormat::Mp3));
  ASSERT_EQ(renderer.ends.size(), 1U);
  EXPECT_EQ(renderer.ends[0].reason, MissingSpeech::kReason);
}

TEST_F(WindowsRenderings, AreMadeSideBySide) {
  Renderer first(rendering);
  Renderer second(rendering);
  for (Renderer* const renderer : {&first, &second}) {
    const bool isFirst = renderer == &first;
    renderer->made->SetSoundFile(folder.File(isFirst ? "1" : "2"), SoundFormat::Vorbis, SoundQuality::Small);
    renderer->made->Voice().Speak("Eins. Zwei. Drei. Vier. Fünf. Sechs.");
  }
  EXPECT_TRUE(first.WaitForEnd());
  EXPECT_TRUE(second.WaitForEnd());
  EXPECT_EQ(first.words, second.words);
  EXPECT_EQ(Files().size(), 2U);
}

}  // namespace
}  // namespace lorelin
