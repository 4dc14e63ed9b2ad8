#include "import/importAnswer.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "base/RuntimeError.h"
#include "base/textEncoding.h"

namespace lorelin {
namespace {

constexpr std::size_t kNumber = 8;  // bytes
constexpr std::string_view kDocumentMark = "LorelinDocument1";
constexpr std::string_view kProblemMark = "LorelinProblem_1";

[[noreturn]] void Refuse() {
  throw RuntimeError(ErrorNumber::InvalidFileFormat, "Das Einlesen der Datei hat kein Dokument ergeben.");
}

void Need(bool condition) {
  if (!condition) Refuse();
}

// Numbers are little-endian, 8 bytes; texts and lists begin with their length.
class AnswerWriter {
 public:
  explicit AnswerWriter(std::string_view mark) : bytes_(mark) {}

  void Number(std::uint64_t number) {
    for (int i = 0; i < 8; ++i) bytes_ += static_cast<char>(number >> (8 * i) & 0xFFU);
  }
  void Signed(std::int64_t number) { Number(static_cast<std::uint64_t>(number)); }
  void Text(std::string_view text) {
    Number(text.size());
    bytes_ += text;
  }
  [[nodiscard]] std::string Take() { return std::move(bytes_); }

 private:
  std::string bytes_;
};

class AnswerReader {
 public:
  explicit AnswerReader(std::string_view bytes) : rest_(bytes) {}

  std::uint64_t Number() {
    Need(rest_.size() >= 8);
    std::uint64_t number = 0;
    for (std::size_t i = 8; i-- > 0;) number = number << 8U | static_cast<unsigned char>(rest_[i]);
    rest_.remove_prefix(8);
    return number;
  }
  // A number that is one of `0` to `last`.
  template <typename T>
  T Within(std::uint64_t last) {
    const std::uint64_t number = Number();
    Need(number <= last);
    return static_cast<T>(number);
  }
  std::int32_t Signed() {
    const auto number = static_cast<std::int64_t>(Number());
    Need(number >= std::numeric_limits<std::int32_t>::min() &&
         number <= std::numeric_limits<std::int32_t>::max());
    return static_cast<std::int32_t>(number);
  }
  bool Flag() { return Within<int>(1) == 1; }
  std::string Text() {
    const std::size_t size = Count(1);
    std::string text(rest_.substr(0, size));
    rest_.remove_prefix(size);
    Need(IsValidUtf8(text) && text.find('\0') == std::string::npos);
    return text;
  }
  std::string Line() {
    std::string text = Text();
    Need(text.find_first_of("\r\n") == std::string::npos);
    return text;
  }
  // How many elements of at least `bytes` follow; a lie costs no memory.
  std::size_t Count(std::size_t bytes) {
    const std::uint64_t count = Number();
    Need(count <= rest_.size() / bytes);
    return static_cast<std::size_t>(count);
  }
  void End() const { Need(rest_.empty()); }

 private:
  std::string_view rest_;
};

void WriteFormat(AnswerWriter& writer, const CharacterFormat& format) {
  writer.Number(format.font);
  writer.Number(format.halfPoints);
  writer.Signed(format.foreground);
  writer.Signed(format.background);
  writer.Number((format.bold ? 1U : 0U) | (format.italic ? 2U : 0U) | (format.underline ? 4U : 0U) |
                (format.strikeThrough ? 8U : 0U));
  writer.Number(static_cast<std::uint64_t>(format.position));
}

CharacterFormat ReadFormat(AnswerReader& reader, std::size_t fonts) {
  CharacterFormat format;
  format.font = reader.Within<std::uint16_t>(fonts - 1);
  format.halfPoints = reader.Within<std::uint16_t>(0xFFFF);
  format.foreground = reader.Signed();
  format.background = reader.Signed();
  const auto flags = reader.Within<unsigned>(15);
  format.bold = (flags & 1U) != 0;
  format.italic = (flags & 2U) != 0;
  format.underline = (flags & 4U) != 0;
  format.strikeThrough = (flags & 8U) != 0;
  format.position = reader.Within<ScriptPosition>(static_cast<std::uint64_t>(ScriptPosition::Subscript));
  return format;
}

void WriteText(AnswerWriter& writer, const RichText& text) {
  writer.Text(text.text);
  writer.Number(text.fonts.size());
  for (const auto& font : text.fonts) writer.Text(font);
  writer.Number(text.runs.size());
  for (const auto& run : text.runs) {
    writer.Number(run.bytes);
    WriteFormat(writer, run.format);
  }
  writer.Number(text.paragraphs.size());
  for (const auto& run : text.paragraphs) {
    writer.Number(run.paragraphs);
    writer.Number(static_cast<std::uint64_t>(run.format.alignment));
    writer.Signed(run.format.leftIndent);
    writer.Signed(run.format.rightIndent);
    writer.Signed(run.format.firstLineIndent);
  }
}

bool BeginsCharacter(std::string_view text, std::size_t at) {
  return at == text.size() || (static_cast<unsigned char>(text[at]) & 0xC0U) != 0x80U;
}

void ReadRuns(AnswerReader& reader, RichText& text) {
  std::size_t covered = 0;
  for (std::size_t left = reader.Count(7 * kNumber); left > 0; --left) {
    TextRun& run = text.runs.emplace_back();
    run.bytes = reader.Within<std::size_t>(text.text.size() - covered);
    covered += run.bytes;
    Need(BeginsCharacter(text.text, covered));
    run.format = ReadFormat(reader, text.fonts.size());
  }
}

void ReadParagraphs(AnswerReader& reader, RichText& text) {
  auto left = static_cast<std::size_t>(std::count(text.text.begin(), text.text.end(), '\n')) + 1;
  for (std::size_t count = reader.Count(5 * kNumber); count > 0; --count) {
    ParagraphRun& run = text.paragraphs.emplace_back();
    run.paragraphs = reader.Within<std::size_t>(left);
    left -= run.paragraphs;
    run.format.alignment = reader.Within<Alignment>(static_cast<std::uint64_t>(Alignment::Justified));
    run.format.leftIndent = reader.Signed();
    run.format.rightIndent = reader.Signed();
    run.format.firstLineIndent = reader.Signed();
  }
}

RichText ReadText(AnswerReader& reader) {
  RichText text;
  text.text = reader.Text();
  Need(text.text.find('\r') == std::string::npos);
  const std::size_t fonts = reader.Count(kNumber);
  Need(fonts > 0);
  text.fonts.clear();
  for (std::size_t i = 0; i < fonts; ++i) text.fonts.push_back(reader.Line());
  ReadRuns(reader, text);
  ReadParagraphs(reader, text);
  return text;
}

void WriteInfo(AnswerWriter& writer, const DocumentInfo& info) {
  writer.Text(info.title);
  writer.Text(info.author);
  writer.Text(info.language);
  writer.Number(info.chapters.size());
  for (const auto& chapter : info.chapters) {
    writer.Text(chapter.title);
    writer.Signed(chapter.level);
    writer.Number(chapter.position);
  }
}

DocumentInfo ReadInfo(AnswerReader& reader, std::size_t characters) {
  DocumentInfo info;
  info.title = reader.Line();
  info.author = reader.Line();
  info.language = reader.Line();
  std::size_t before = 0;
  for (std::size_t left = reader.Count(3 * kNumber); left > 0; --left) {
    Chapter& chapter = info.chapters.emplace_back();
    chapter.title = reader.Line();
    chapter.level = reader.Signed();
    Need(chapter.level >= 1);
    chapter.position = reader.Within<std::size_t>(characters);
    Need(chapter.position >= before);
    before = chapter.position;
  }
  return info;
}

}  // namespace

std::string WriteImportAnswer(const ImportedDocument& document) {
  AnswerWriter writer(kDocumentMark);
  WriteText(writer, document.text);
  WriteInfo(writer, document.info);
  writer.Text(document.notice);
  writer.Number(document.hasPages ? 1 : 0);
  return writer.Take();
}

std::string WriteImportProblem(std::string_view sentence) {
  return std::string(kProblemMark) + std::string(sentence);
}

ImportedDocument ReadImportAnswer(std::string_view bytes) {
  if (bytes.starts_with(kProblemMark)) {
    const std::string_view sentence = bytes.substr(kProblemMark.size());
    Need(!sentence.empty() && IsValidUtf8(sentence) && sentence.find('\0') == std::string_view::npos);
    throw RuntimeError(ErrorNumber::InvalidFileFormat, std::string(sentence));
  }
  Need(bytes.starts_with(kDocumentMark));
  AnswerReader reader(bytes.substr(kDocumentMark.size()));
  ImportedDocument document;
  document.text = ReadText(reader);
  document.info = ReadInfo(reader, CharacterCount(document.text.text));
  document.notice = reader.Text();
  document.hasPages = reader.Flag();
  reader.End();
  return document;
}

}  // namespace lorelin
