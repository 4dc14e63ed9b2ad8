#include "export/subtitles.h"

#include <gtest/gtest.h>

#include "base/textEncoding.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;

// Every word of the text, one every half second.
std::vector<TimedWord> Words(std::string_view text) {
  std::vector<TimedWord> words;
  std::size_t place = 0;
  bool inWord = false;
  for (std::size_t at = 0; at < text.size(); ++place) {
    const bool blank = text[at] == ' ' || text[at] == '\n';
    if (!blank && !inWord)
      words.push_back({{place, place}, milliseconds(500 * static_cast<int>(words.size()))});
    if (!blank) words.back().written.end = place + 1;
    inWord = !blank;
    at += std::max<std::size_t>(Utf8Length(text.substr(at)), 1);
  }
  return words;
}

std::vector<Cue> CuesOf(std::string_view text) {
  const auto words = Words(text);
  return MakeCues(text, {0, CharacterCount(text)}, words, milliseconds(500 * static_cast<int>(words.size())));
}

std::vector<std::string> TextsOf(std::string_view text) {
  std::vector<std::string> texts;
  for (const Cue& cue : CuesOf(text)) texts.push_back(cue.text);
  return texts;
}

TEST(Subtitles, HaveACueForEverySentence) {
  const auto cues =
      CuesOf("Der erste Satz ist recht kurz, aber nicht allzu kurz. Der zweite Satz folgt ihm.");
  ASSERT_EQ(cues.size(), 2U);
  EXPECT_EQ(cues[0], (Cue{milliseconds(0), milliseconds(5000),
                          "Der erste Satz ist recht kurz, aber nicht allzu kurz."}));
  EXPECT_EQ(cues[1], (Cue{milliseconds(5000), milliseconds(7500), "Der zweite Satz folgt ihm."}));
}

TEST(Subtitles, PutShortSentencesOfAParagraphTogether) {
  EXPECT_EQ(TextsOf("Ja. Nein. Vielleicht.\nDoch."),
            (std::vector<std::string>{"Ja. Nein. Vielleicht.", "Doch."}));
}

TEST(Subtitles, CutALongSentenceBehindAComma) {
  EXPECT_EQ(TextsOf("Dies ist ein sehr langer Satz, der aus vielen Teilen besteht, die durch Kommas getrennt "
                    "sind."),
            (std::vector<std::string>{"Dies ist ein sehr langer Satz, der aus vielen Teilen besteht,",
                                      "die durch Kommas getrennt sind."}));
}

TEST(Subtitles, CutAWordWithoutEnd) {
  const std::string word(200, 'x');
  const auto texts = TextsOf(word);
  ASSERT_EQ(texts.size(), 1U);  // only its beginning is heard
  EXPECT_EQ(texts[0].size(), 84U);
}

TEST(Subtitles, NeverHaveMoreThanTwoLines) {
  std::string text;
  for (int i = 0; i < 300; ++i) text += i % 7 == 0 ? "Wörter, " : "über ";
  for (const std::string& cue : TextsOf(text)) EXPECT_LE(CharacterCount(cue), 84U);
}

TEST(Subtitles, LeaveOutWhatIsNotHeard) {
  const std::string_view text = "Hier.\n\n***\n\nDort.";
  const std::vector<TimedWord> words{{{0, 4}, milliseconds(0)}, {{12, 16}, milliseconds(700)}};
  const auto cues = MakeCues(text, {0, 17}, words, milliseconds(1000));
  ASSERT_EQ(cues.size(), 2U);
  EXPECT_EQ(cues[0].end, milliseconds(700));
  EXPECT_EQ(cues[1].text, "Dort.");
}

TEST(Subtitles, AreMadeOfAPartOfTheText) {
  const std::string_view text = "Früher einmal.\nGrüße.";
  const std::vector<TimedWord> words{{{15, 20}, milliseconds(40)}};
  const auto cues = MakeCues(text, {15, 21}, words, milliseconds(900));
  ASSERT_EQ(cues.size(), 1U);
  EXPECT_EQ(cues[0], (Cue{milliseconds(40), milliseconds(900), "Grüße."}));
}

TEST(Subtitles, OfNothingAreNone) {
  EXPECT_TRUE(MakeCues("", {0, 0}, {}, milliseconds(0)).empty());
  EXPECT_TRUE(MakeCues("Ungehört.", {0, 9}, {}, milliseconds(0)).empty());
}

const std::vector<Cue> kCues{
    {milliseconds(24), milliseconds(3723456), "Eins & <zwei>"},
    {milliseconds(3723456), milliseconds(3725000), "Eine Zeile, die zu lang ist, um eine einzige zu sein."}};

TEST(Subtitles, AreWrittenAsSrt) {
  EXPECT_EQ(WriteSubtitles(kCues, SubtitleFormat::Srt, {}),
            "1\n00:00:00,024 --> 01:02:03,456\nEins & <zwei>\n\n"
            "2\n01:02:03,456 --> 01:02:05,000\nEine Zeile, die zu lang ist,\num eine einzige zu sein.\n\n");
}

TEST(Subtitles, AreWrittenAsWebVtt) {
  EXPECT_EQ(WriteSubtitles(kCues, SubtitleFormat::Vtt, {}),
            "WEBVTT\n\n00:00:00.024 --> 01:02:03.456\nEins &amp; &lt;zwei&gt;\n\n"
            "01:02:03.456 --> 01:02:05.000\nEine Zeile, die zu lang ist,\num eine einzige zu sein.\n\n");
}

TEST(Subtitles, AreWrittenAsLyrics) {
  SoundTags tags;
  tags.title = "Titel";
  tags.author = "Jemand";
  EXPECT_EQ(WriteSubtitles(kCues, SubtitleFormat::Lrc, tags),
            "[ti:Titel]\n[ar:Jemand]\n[00:00.02]Eins & <zwei>\n"
            "[62:03.45]Eine Zeile, die zu lang ist, um eine einzige zu sein.\n");
}

TEST(Subtitles, AreKnownByTheirWords) {
  EXPECT_EQ(SubtitleFormatNamed("SRT"), SubtitleFormat::Srt);
  EXPECT_EQ(SubtitleFormatNamed("vtt"), SubtitleFormat::Vtt);
  EXPECT_FALSE(SubtitleFormatNamed("txt"));
}

}  // namespace
}  // namespace lorelin
