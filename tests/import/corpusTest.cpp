#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "base/textEncoding.h"
#include "import/readDocument.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

namespace fs = std::filesystem;

// Without those of the one format that not every system reads.
std::vector<std::string> Files() {
  std::vector<std::string> files;
  for (const auto& entry : fs::directory_iterator(LORELIN_IMPORT_CORPUS)) {
    const auto ending = entry.path().extension();
    if (ending != ".expected" && ending != LORELIN_UNREAD_ENDING)
      files.push_back(entry.path().filename().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

// What the file beside it says: facts and chapters, an empty line, the text.
struct Expected {
  explicit Expected(const std::string& bytes) {
    const auto end = bytes.find("\n\n");
    text = bytes.substr(end + 2);
    facts = bytes.substr(0, end + 1);
  }
  std::string facts;
  std::string text;
};

std::string FactsOf(const ImportedDocument& document) {
  std::string facts = "title\t" + document.info.title + "\nauthor\t" + document.info.author + "\n";
  for (const Chapter& chapter : document.info.chapters) {
    facts += "chapter\t" + std::to_string(chapter.level) + "\t" + std::to_string(chapter.position) + "\t" +
             chapter.title + "\n";
  }
  return facts;
}

// The chapters' names at their places in the text, where paragraphs may stand closer than in the source.
std::string TitlesOf(const std::string& facts) {
  std::string titles;
  for (std::size_t at = 0; at < facts.size();) {
    const auto end = facts.find('\n', at);
    const std::string_view line = std::string_view(facts).substr(at, end - at);
    if (line.starts_with("chapter")) titles.append(line.substr(line.rfind('\t') + 1)).append("\n");
    at = end + 1;
  }
  return titles;
}

std::string WithoutEmptyLines(std::string text) {
  for (auto at = text.find("\n\n"); at != std::string::npos; at = text.find("\n\n", at)) text.erase(at, 1);
  return text;
}

class Corpus : public testing::TestWithParam<std::string> {
 protected:
  [[nodiscard]] static std::string Path() { return std::string(LORELIN_IMPORT_CORPUS) + "/" + GetParam(); }
  [[nodiscard]] static ImportedDocument Read() {
    return ReadDocument({Path(), false, false, {}}, [](int) {});
  }
};

TEST_P(Corpus, IsReadAsItsSourceSays) {
  const Expected expected(ReadFile(Path() + ".expected"));
  const ImportedDocument document = Read();
  EXPECT_TRUE(IsValidUtf8(document.text.text));
  if (GetParam().ends_with(".pdf")) {
    // Pages tell neither empty lines nor levels.
    EXPECT_EQ(WithoutEmptyLines(document.text.text), WithoutEmptyLines(expected.text));
    EXPECT_EQ(TitlesOf(FactsOf(document)), TitlesOf(expected.facts));
  } else {
    EXPECT_EQ(document.text.text, expected.text);
    EXPECT_EQ(FactsOf(document), expected.facts);
  }
}

TEST_P(Corpus, HasChaptersWhereTheirTitlesStand) {
  const ImportedDocument document = Read();
  for (const Chapter& chapter : document.info.chapters) {
    ASSERT_LE(chapter.position, CharacterCount(document.text.text));
    const std::string_view text = FromCharacter(document.text.text, chapter.position);
    const bool hand = GetParam().starts_with("hand") ||
                      GetParam() == "groff-verzeichnis.pdf";  // whose contents may call them otherwise
    EXPECT_TRUE(hand || text.starts_with(chapter.title)) << chapter.title << ": " << text.substr(0, 40);
  }
}

INSTANTIATE_TEST_SUITE_P(Files, Corpus, testing::ValuesIn(Files()), [](const auto& instance) {
  std::string name = instance.param;
  std::replace_if(
      name.begin(), name.end(), [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; }, '_');
  return name;
});

}  // namespace
}  // namespace lorelin
