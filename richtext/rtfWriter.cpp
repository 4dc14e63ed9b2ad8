#include <algorithm>
#include <charconv>
#include <map>

#include "base/textEncoding.h"
#include "richtext/rtf.h"

namespace lorelin {
namespace {

constexpr std::size_t kLineLength = 120;

class Writer {
 public:
  explicit Writer(const RichText& text) : text_(text) {}

  std::string Write() {
    out_ = "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0";
    WriteFonts();
    WriteColours();
    out_ += "\n";
    lineStart_ = out_.size();
    WriteBody();
    out_ += "\\par\n}\n";
    return std::move(out_);
  }

 private:
  void WriteFonts() {
    out_ += "{\\fonttbl";
    for (std::size_t i = 0; i < text_.fonts.size(); ++i) {
      out_ += "{\\f" + std::to_string(i) + "\\fnil ";
      WriteText(text_.fonts[i]);
      out_ += ";}";
    }
    out_ += "}";
  }

  void WriteColours() {
    out_ += "{\\colortbl;";
    for (const TextRun& run : text_.runs) {
      AddColour(run.format.foreground);
      AddColour(run.format.background);
    }
    out_ += "}";
  }

  void AddColour(Colour colour) {
    if (colour == kAutomaticColour || !colours_.try_emplace(colour, colours_.size() + 1).second) return;
    out_ += "\\red" + std::to_string(colour >> 16 & 0xFF) + "\\green" + std::to_string(colour >> 8 & 0xFF) +
            "\\blue" + std::to_string(colour & 0xFF) + ";";
  }

  [[nodiscard]] std::size_t ColourNumber(Colour colour) const {
    const auto found = colours_.find(colour);
    return found != colours_.end() ? found->second : 0;
  }

  void WriteBody() {
    auto run = text_.runs.begin();
    std::size_t left = run != text_.runs.end() ? run->bytes : 0;
    BeginParagraph();
    std::string_view rest = text_.text;
    if (run != text_.runs.end()) ChangeFormat(run->format);
    while (!rest.empty()) {
      while (run != text_.runs.end() && left == 0) {
        ++run;
        left = run != text_.runs.end() ? run->bytes : rest.size();
        ChangeFormat(run != text_.runs.end() ? run->format : CharacterFormat{});
      }
      const std::size_t length = std::min(run != text_.runs.end() ? left : rest.size(), rest.size());
      WriteLines(rest.substr(0, length));
      rest.remove_prefix(length);
      left -= std::min(left, length);
    }
  }

  void WriteLines(std::string_view piece) {
    while (!piece.empty()) {
      const auto end = piece.find('\n');
      WriteText(piece.substr(0, end));
      if (end == std::string_view::npos) return;
      piece.remove_prefix(end + 1);
      out_ += "\\par\n";
      lineStart_ = out_.size();
      BeginParagraph();
    }
  }

  void BeginParagraph() {
    while (paragraphRun_ < text_.paragraphs.size() &&
           paragraphsDone_ >= text_.paragraphs[paragraphRun_].paragraphs) {
      ++paragraphRun_;
      paragraphsDone_ = 0;
    }
    ++paragraphsDone_;
    const ParagraphFormat format =
        paragraphRun_ < text_.paragraphs.size() ? text_.paragraphs[paragraphRun_].format : ParagraphFormat{};
    if (begun_ && format == paragraph_) return;
    begun_ = true;
    paragraph_ = format;
    out_ += "\\pard";
    constexpr const char* kAlignments[] = {"", "\\qc", "\\qr", "\\qj"};
    out_ += kAlignments[static_cast<std::size_t>(format.alignment)];
    if (format.leftIndent != 0) out_ += "\\li" + std::to_string(format.leftIndent);
    if (format.rightIndent != 0) out_ += "\\ri" + std::to_string(format.rightIndent);
    if (format.firstLineIndent != 0) out_ += "\\fi" + std::to_string(format.firstLineIndent);
    if (format.outlineLevel != 0) out_ += "\\outlinelevel" + std::to_string(format.outlineLevel - 1);
    out_ += " ";
  }

  // From the defaults anew: short, and right whatever stood before.
  void ChangeFormat(const CharacterFormat& format) {
    out_ += "\\plain";
    if (format.font != 0) out_ += "\\f" + std::to_string(format.font);
    if (format.halfPoints != 0) out_ += "\\fs" + std::to_string(format.halfPoints);
    if (format.bold) out_ += "\\b";
    if (format.italic) out_ += "\\i";
    if (format.underline) out_ += "\\ul";
    if (format.strikeThrough) out_ += "\\strike";
    if (format.position == ScriptPosition::Superscript) out_ += "\\super";
    if (format.position == ScriptPosition::Subscript) out_ += "\\sub";
    if (const auto number = ColourNumber(format.foreground); number != 0)
      out_ += "\\cf" + std::to_string(number);
    // Word processors show \highlight only in their own sixteen colours; the other two are for them and the
    // rest.
    if (const auto number = ColourNumber(format.background); number != 0) {
      out_ += "\\chshdng0\\chcbpat" + std::to_string(number) + "\\cb" + std::to_string(number);
    }
    out_ += " ";
  }

  void WriteText(std::string_view text) {
    while (!text.empty()) {
      WritePlain(text);
      if (text.empty()) return;
      const std::size_t length = std::max<std::size_t>(Utf8Length(text), 1);
      WriteCharacter(Utf8Length(text) == 0 ? U'\uFFFD' : FirstCharacter(text));
      text.remove_prefix(length);
      BreakLine(text);
    }
  }

  // Most of a text goes out as it is.
  void WritePlain(std::string_view& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), IsPlain);
    std::size_t length = static_cast<std::size_t>(end - text.begin());
    while (length > 0) {
      const std::size_t used = out_.size() - lineStart_;
      const std::size_t part = std::min(length, used < kLineLength ? kLineLength - used : 1);
      out_ += text.substr(0, part);
      text.remove_prefix(part);
      length -= part;
      BreakLine(text);
    }
  }

  static bool IsPlain(char c) { return c >= 0x20 && c < 0x7F && c != '\\' && c != '{' && c != '}'; }

  // A line end in the file means nothing.
  void BreakLine(std::string_view rest) {
    if (out_.size() - lineStart_ < kLineLength || rest.empty() || rest[0] == ' ') return;
    out_ += "\n";
    lineStart_ = out_.size();
  }

  void WriteCharacter(char32_t code) {
    if (code == '\t') {
      out_ += "\\tab ";
    } else if (code == '\\' || code == '{' || code == '}') {
      out_ += {'\\', static_cast<char>(code)};
    } else if (code < 0x10000) {
      WriteUnit(code);
    } else {
      WriteUnit(0xD800 + ((code - 0x10000) >> 10));
      WriteUnit(0xDC00 + ((code - 0x10000) & 0x3FF));
    }
  }

  // A signed 16-bit number, and a question mark for readers that do not know it.
  void WriteUnit(char32_t unit) {
    const int number = unit >= 0x8000 ? static_cast<int>(unit) - 0x10000 : static_cast<int>(unit);
    out_ += "\\u" + std::to_string(number) + "?";
  }

  const RichText& text_;
  std::string out_;
  std::size_t lineStart_ = 0;
  std::map<Colour, std::size_t> colours_;
  std::size_t paragraphRun_ = 0;
  std::size_t paragraphsDone_ = 0;
  ParagraphFormat paragraph_;
  bool begun_ = false;
};

}  // namespace

std::string WriteRtf(const RichText& text) {
  return Writer(text).Write();
}

}  // namespace lorelin
