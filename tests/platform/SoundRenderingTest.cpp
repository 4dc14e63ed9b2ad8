#include "ports/SoundRendering.h"

#include <sys/stat.h>
#include <taglib/fileref.h>
#include <taglib/tpropertymap.h>

#include <gtest/gtest.h>
#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "base/RuntimeError.h"
#include "base/TaskPump.h"
#include "platform/linux/EngineSoundRendering.h"
#include "tests/support/FakePorts.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;

class SoundRenderings : public testing::Test {
 protected:
  SoundRenderings() {
    renderer->Voice().OnEndOfText([this](const EndOfText& end) { ends.push_back(end); });
    renderer->Voice().OnWordHeard([this](const HeardWord& word) { words.push_back(word); });
  }
  bool WaitForEnd() {
    const auto until = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (ends.empty() && std::chrono::steady_clock::now() < until) pump.WaitForEvents();
    return !ends.empty() && ends.back().complete;
  }
  void Render(const std::string& text, SoundFormat format) {
    renderer->SetSoundFile(rendered, format, SoundQuality::Usual);
    renderer->Voice().Speak(text);
    ASSERT_TRUE(WaitForEnd());
  }
  static std::string Tag(const TagLib::PropertyMap& tags, const char* name) {
    return tags[name].toString().to8Bit(true);
  }

  TemporaryFolder folder;
  TemporaryFolder cache;
  FakeClock clock;
  FakeLog log;
  TaskPump pump;
  EngineSoundRendering rendering{LORELIN_BIN_DIR "/lorelin-engine", cache.Path(), clock, log};
  std::unique_ptr<SoundRenderer> renderer = rendering.Make(pump);
  std::vector<EndOfText> ends;
  std::vector<HeardWord> words;
  std::string rendered = folder.File(".part-a");
  std::string target = folder.File("a");
};

TEST_F(SoundRenderings, TellEveryWordWithItsTimeAndTheLength) {
  Render("Eins zwei drei. Vier.", SoundFormat::Opus);
  ASSERT_EQ(words.size(), 4U);
  EXPECT_EQ(words[1].begin, 5U);
  EXPECT_EQ(words[1].end, 9U);
  for (std::size_t i = 1; i < words.size(); ++i) EXPECT_GT(words[i].time, words[i - 1].time);
  EXPECT_LT(words[0].time, milliseconds(100));
  EXPECT_GT(ends.back().length, words.back().time);
  EXPECT_TRUE(std::filesystem::exists(rendered));
}

TEST_F(SoundRenderings, AreAsLongAsTheyTell) {
  Render("Eins zwei drei. Vier.", SoundFormat::Wav);
  const auto bytes = static_cast<double>(std::filesystem::file_size(rendered) - 44);
  EXPECT_NEAR(static_cast<double>(ends.back().length.count()), bytes / 44.1, 1);
}

TEST_F(SoundRenderings, CarryTheirTags) {
  const SoundTags tags{.title = "Grüße & mehr",
                       .author = "Jürgen",
                       .album = "Łódź",
                       .language = "de-AT",
                       .track = 2,
                       .tracks = 12,
                       .length = milliseconds(1000),
                       .chapters = {{"Eins", milliseconds(0)}, {"Zwei 中", milliseconds(600)}}};
  const std::vector<std::pair<SoundFormat, std::string>> formats{{SoundFormat::Mp3, "a.mp3"},
                                                                 {SoundFormat::Opus, "a.opus"},
                                                                 {SoundFormat::Vorbis, "a.ogg"},
                                                                 {SoundFormat::Flac, "a.flac"}};
  for (const auto& [format, name] : formats) {
    ends.clear();
    Render("Guten Tag.", format);
    rendering.PutInPlace(rendered, folder.File(name), format, tags);
    const TagLib::FileRef file(folder.File(name).c_str());
    ASSERT_FALSE(file.isNull()) << name;
    const TagLib::PropertyMap read = file.file()->properties();
    EXPECT_EQ(Tag(read, "TITLE"), "Grüße & mehr") << name;
    EXPECT_EQ(Tag(read, "ARTIST"), "Jürgen") << name;
    EXPECT_EQ(Tag(read, "ALBUM"), "Łódź") << name;
    EXPECT_EQ(Tag(read, "LANGUAGE"), format == SoundFormat::Mp3 ? "deu" : "de-AT") << name;
    if (format == SoundFormat::Mp3) continue;  // its chapters are looked at from outside
    EXPECT_EQ(Tag(read, "CHAPTER001"), "00:00:00.000") << name;
    EXPECT_EQ(Tag(read, "CHAPTER002"), "00:00:00.600") << name;
    EXPECT_EQ(Tag(read, "CHAPTER002NAME"), "Zwei 中") << name;
  }
  EXPECT_FALSE(std::filesystem::exists(rendered));
}

// What another program says of a file's chapters: begin and end in milliseconds, and title.
std::string ChaptersOf(const std::string& file) {
  const std::string command =
      "ffprobe -v error -show_chapters -of compact=nokey=1:print_section=0 -show_entries "
      "chapter=start_time,end_time:chapter_tags=title '" +
      file + "'";
  FILE* const answer = popen(command.c_str(), "r");
  std::string text;
  std::array<char, 4096> block{};
  while (const std::size_t size = fread(block.data(), 1, block.size(), answer))
    text.append(block.data(), size);
  pclose(answer);
  return text;
}

TEST_F(SoundRenderings, HaveChaptersThatOtherProgramsKnow) {
  Render("Guten Tag. Das ist das Ende.", SoundFormat::Mp3);
  SoundTags tags;
  tags.length = ends.back().length;
  tags.chapters = {{"Eins", milliseconds(0)}, {"Zwei & Ümlaut", milliseconds(600)}};
  for (int i = 0; i < 300; ++i) tags.chapters.push_back({"Viele", milliseconds(1000 + i)});
  rendering.PutInPlace(rendered, folder.File("a.mp3"), SoundFormat::Mp3, tags);
  const std::string mp3 = ChaptersOf(folder.File("a.mp3"));
  EXPECT_EQ(mp3.substr(0, mp3.find("1.001")),
            "0.000000|0.600000|Eins\n0.600000|1.000000|Zwei & Ümlaut\n1.000000|")
      << mp3.substr(0, 200);
  EXPECT_EQ(std::count(mp3.begin(), mp3.end(), '\n'), 302);
  ends.clear();
  Render("Guten Tag. Das ist das Ende.", SoundFormat::Opus);
  rendering.PutInPlace(rendered, folder.File("a.opus"), SoundFormat::Opus, tags);
  const std::string opus = ChaptersOf(folder.File("a.opus"));
  EXPECT_EQ(opus.substr(0, 23), "0.000000|0.600000|Eins\n") << opus.substr(0, 200);
}

TEST_F(SoundRenderings, KeepThePermissionsOfWhatTheyReplace) {
  WriteFile(target, "alt");
  chmod(target.c_str(), 0640);
  Render("Guten Tag.", SoundFormat::Flac);
  rendering.PutInPlace(rendered, target, SoundFormat::Flac, {});
  struct stat status {};
  stat(target.c_str(), &status);
  EXPECT_EQ(status.st_mode & 0777, 0640U);
  EXPECT_EQ(ReadFile(target).substr(0, 4), "fLaC");
}

TEST_F(SoundRenderings, LeaveWhatWasThereWhenTheyCannotTakeItsPlace) {
  Render("Guten Tag.", SoundFormat::Mp3);
  std::filesystem::create_directory(target);
  EXPECT_THROW(rendering.PutInPlace(rendered, target, SoundFormat::Mp3, {}), RuntimeError);
  EXPECT_TRUE(std::filesystem::is_directory(target));
  EXPECT_FALSE(std::filesystem::exists(rendered));
}

TEST_F(SoundRenderings, ThatAreNoSoundAreNotTagged) {
  WriteFile(rendered, "kein Ton");
  WriteFile(target, "alt");
  EXPECT_THROW(rendering.PutInPlace(rendered, target, SoundFormat::Opus, {}), RuntimeError);
  EXPECT_EQ(ReadFile(target), "alt");
}

TEST_F(SoundRenderings, ThatAreGivenUpLeaveNothing) {
  std::string text;
  for (int i = 0; i < 20000; ++i) text += "Ein langer Satz. ";
  renderer->SetSoundFile(rendered, SoundFormat::Opus, SoundQuality::Usual);
  renderer->Voice().Speak(text);
  const auto until = std::chrono::steady_clock::now() + std::chrono::minutes(1);
  while (words.empty() && std::chrono::steady_clock::now() < until) pump.WaitForEvents();
  EXPECT_TRUE(std::filesystem::exists(folder.File(".part-.part-a")));
  renderer.reset();
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

}  // namespace
}  // namespace lorelin
