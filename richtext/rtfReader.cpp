#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <optional>
#include <utility>

#include "base/codePages.h"
#include "base/text.h"
#include "base/textEncoding.h"
#include "richtext/rtf.h"

namespace lorelin {
namespace {

constexpr std::size_t kDeepest = 1000;
constexpr std::size_t kMostFonts = 65000;
constexpr std::size_t kMostColours = 65536;
constexpr std::size_t kLongestWord = 32;

enum class Destination : std::uint8_t { Body, Fonts, Colours, Skipped, Dropped };

struct Font {
  std::uint16_t index = 0;  // in RichText::fonts
  int codePage = 0;         // 0 for that of the document
};

// What a group inherits and gives back at its end.
struct State {
  CharacterFormat format;
  ParagraphFormat paragraph;
  int codePage = 0;
  int fallbackCharacters = 1;  // behind a \u
  Destination destination = Destination::Body;
  bool hidden = false;
  bool inTable = false;
};

enum class Word : std::uint8_t {
  Skip,  // a destination whose text is not part of the document
  Drop,  // one in which nothing is, since it says again what stands elsewhere
  Show,  // a destination whose text is, also in one that is skipped
  FontTable,
  ColourTable,
  Text,  // stands for a character
  Paragraph,
  Cell,
  Row,
  Bold,
  Italic,
  Underline,
  NoUnderline,
  Strike,
  Superscript,
  Subscript,
  NormalPosition,
  FontSize,
  FontNumber,
  Foreground,
  Background,
  Plain,
  Hidden,
  ParagraphDefaults,
  Align,
  LeftIndent,
  RightIndent,
  FirstIndent,
  InTable,
  Unicode,
  FallbackCount,
  Binary,
  CodePageNumber,
  CodePageFixed,
  DefaultFont,
  FontCharset,
  FontCodePage,
  Red,
  Green,
  Blue,
};

struct Entry {
  std::string_view name;
  Word word;
  char32_t value = 0;
};

// Sorted by name.
constexpr std::array kWords{
    Entry{"annotation", Word::Skip},
    Entry{"ansi", Word::CodePageFixed, 1252},
    Entry{"ansicpg", Word::CodePageNumber},
    Entry{"atnauthor", Word::Skip},
    Entry{"atnid", Word::Skip},
    Entry{"b", Word::Bold},
    Entry{"background", Word::Skip},
    Entry{"bin", Word::Binary},
    Entry{"blue", Word::Blue},
    Entry{"bullet", Word::Text, 0x2022},
    Entry{"cb", Word::Background},
    Entry{"cell", Word::Cell},
    Entry{"cf", Word::Foreground},
    Entry{"chcbpat", Word::Background},
    Entry{"colortbl", Word::ColourTable},
    Entry{"cpg", Word::FontCodePage},
    Entry{"datafield", Word::Skip},
    Entry{"deff", Word::DefaultFont},
    Entry{"deleted", Word::Hidden},
    Entry{"dn", Word::Subscript},
    Entry{"do", Word::Skip},
    Entry{"dptxbxtext", Word::Show},
    Entry{"emdash", Word::Text, 0x2014},
    Entry{"emspace", Word::Text, 0x2003},
    Entry{"endash", Word::Text, 0x2013},
    Entry{"enspace", Word::Text, 0x2002},
    Entry{"f", Word::FontNumber},
    Entry{"fcharset", Word::FontCharset},
    Entry{"fi", Word::FirstIndent},
    Entry{"filetbl", Word::Skip},
    Entry{"fldinst", Word::Skip},
    Entry{"fonttbl", Word::FontTable},
    Entry{"footer", Word::Skip},
    Entry{"footerf", Word::Skip},
    Entry{"footerl", Word::Skip},
    Entry{"footerr", Word::Skip},
    Entry{"formfield", Word::Skip},
    Entry{"fs", Word::FontSize},
    Entry{"ftncn", Word::Skip},
    Entry{"ftnsep", Word::Skip},
    Entry{"ftnsepc", Word::Skip},
    Entry{"green", Word::Green},
    Entry{"header", Word::Skip},
    Entry{"headerf", Word::Skip},
    Entry{"headerl", Word::Skip},
    Entry{"headerr", Word::Skip},
    Entry{"highlight", Word::Background},
    Entry{"i", Word::Italic},
    Entry{"info", Word::Skip},
    Entry{"intbl", Word::InTable},
    Entry{"ldblquote", Word::Text, 0x201C},
    Entry{"li", Word::LeftIndent},
    Entry{"line", Word::Paragraph},
    Entry{"lquote", Word::Text, 0x2018},
    Entry{"ltrmark", Word::Text, 0x200E},
    Entry{"mac", Word::CodePageFixed, 10000},
    Entry{"nestcell", Word::Cell},
    Entry{"nestrow", Word::Row},
    Entry{"nonesttables", Word::Skip},
    Entry{"nonshppict", Word::Skip},
    Entry{"nosupersub", Word::NormalPosition},
    Entry{"objdata", Word::Skip},
    Entry{"page", Word::Paragraph},
    Entry{"par", Word::Paragraph},
    Entry{"pard", Word::ParagraphDefaults},
    Entry{"pc", Word::CodePageFixed, 437},
    Entry{"pca", Word::CodePageFixed, 850},
    Entry{"pict", Word::Skip},
    Entry{"plain", Word::Plain},
    Entry{"qc", Word::Align, static_cast<char32_t>(Alignment::Centred)},
    Entry{"qj", Word::Align, static_cast<char32_t>(Alignment::Justified)},
    Entry{"ql", Word::Align, static_cast<char32_t>(Alignment::Left)},
    Entry{"qmspace", Word::Text, 0x2005},
    Entry{"qr", Word::Align, static_cast<char32_t>(Alignment::Right)},
    Entry{"rdblquote", Word::Text, 0x201D},
    Entry{"red", Word::Red},
    Entry{"revtbl", Word::Skip},
    Entry{"ri", Word::RightIndent},
    Entry{"row", Word::Row},
    Entry{"rquote", Word::Text, 0x2019},
    Entry{"rtlmark", Word::Text, 0x200F},
    Entry{"rxe", Word::Skip},
    Entry{"sect", Word::Paragraph},
    Entry{"shpinst", Word::Show},
    Entry{"shprslt", Word::Drop},
    Entry{"shptxt", Word::Show},
    Entry{"sp", Word::Skip},
    Entry{"strike", Word::Strike},
    Entry{"striked", Word::Strike},
    Entry{"stylesheet", Word::Skip},
    Entry{"sub", Word::Subscript},
    Entry{"super", Word::Superscript},
    Entry{"tab", Word::Text, '\t'},
    Entry{"tc", Word::Skip},
    Entry{"txe", Word::Skip},
    Entry{"u", Word::Unicode},
    Entry{"uc", Word::FallbackCount},
    Entry{"ud", Word::Show},
    Entry{"ul", Word::Underline},
    Entry{"uld", Word::Underline},
    Entry{"uldash", Word::Underline},
    Entry{"uldb", Word::Underline},
    Entry{"ulnone", Word::NoUnderline},
    Entry{"ulth", Word::Underline},
    Entry{"ulw", Word::Underline},
    Entry{"ulwave", Word::Underline},
    Entry{"up", Word::Superscript},
    Entry{"upr", Word::Skip},
    Entry{"v", Word::Hidden},
    Entry{"xe", Word::Skip},
    Entry{"zwj", Word::Text, 0x200D},
    Entry{"zwnj", Word::Text, 0x200C},
};
static_assert(std::ranges::is_sorted(kWords, {}, &Entry::name));

const Entry* Find(std::string_view name) {
  const auto* const found = std::ranges::lower_bound(kWords, name, {}, &Entry::name);
  return found != kWords.end() && found->name == name ? found : nullptr;
}

int CodePageOfCharset(int charset) {
  static const std::map<int, int> kCharsets{{0, 1252},   {77, 10000}, {161, 1253}, {162, 1254}, {163, 1258},
                                            {177, 1255}, {178, 1256}, {186, 1257}, {204, 1251}, {222, 874},
                                            {238, 1250}, {254, 437},  {255, 850}};
  const auto found = kCharsets.find(charset);
  return found != kCharsets.end() ? found->second : 0;
}

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

bool IsHighSurrogate(char32_t code) {
  return code >= 0xD800 && code <= 0xDBFF;
}
bool IsLowSurrogate(char32_t code) {
  return code >= 0xDC00 && code <= 0xDFFF;
}

// Symbol fonts put their bullets and arrows into the private use area.
char32_t WithoutSymbolFont(char32_t code) {
  if (code < 0xF020 || code > 0xF0FF) return code;
  return 0x2022;
}

class Reader {
 public:
  explicit Reader(std::string_view bytes) : rest_(bytes) { states_.emplace_back(); }

  RichText Read() {
    while (!rest_.empty() && !ended_) Step();
    EndParagraphs();
    return std::move(result_);
  }

 private:
  State& Now() { return states_.back(); }

  void Step() {
    const char c = rest_.front();
    rest_.remove_prefix(1);
    switch (c) {
      case '{':
        return OpenGroup();
      case '}':
        return CloseGroup();
      case '\\':
        return Control();
      case '\r':
      case '\n':
      case '\0':
        return;
      default:
        Literal(static_cast<unsigned char>(c));
    }
  }

  void OpenGroup() {
    fallback_ = 0;
    ignorable_ = false;
    if (states_.size() > kDeepest) {
      ++tooDeep_;
    } else {
      states_.push_back(states_.back());
    }
  }

  void CloseGroup() {
    fallback_ = 0;
    ignorable_ = false;
    FinishTables();
    if (tooDeep_ > 0) {
      --tooDeep_;
    } else if (states_.size() > 1) {
      states_.pop_back();
      ended_ = states_.size() == 1;
    }
  }

  // A group inside a table ends one entry of it; text may stand there without a semicolon.
  void FinishTables() {
    if (Now().destination == Destination::Fonts && !fontName_.empty()) EndFont();
  }

  void Control() {
    if (rest_.empty()) return;
    if (IsLetter(rest_.front())) return ControlWord();
    const char symbol = rest_.front();
    rest_.remove_prefix(1);
    Symbol(symbol);
  }

  void Symbol(char symbol) {
    switch (symbol) {
      case '\'':
        return HexByte();
      case '*':
        ignorable_ = true;
        return;
      case '\\':
      case '{':
      case '}':
        return Literal(static_cast<unsigned char>(symbol));
      case '~':
        return Character(0x00A0);
      case '-':
        return Character(0x00AD);
      case '_':
        return Character(0x2011);
      case '\r':
      case '\n':
        return EndParagraph();
      default:
        return;
    }
  }

  void HexByte() {
    const int high = rest_.size() >= 2 ? HexDigit(rest_[0]) : -1;
    const int low = rest_.size() >= 2 ? HexDigit(rest_[1]) : -1;
    if (high < 0 || low < 0) return;
    rest_.remove_prefix(2);
    Literal(static_cast<unsigned>(high * 16 + low));
  }

  void ControlWord() {
    const auto end = std::find_if_not(rest_.begin(), rest_.end(), IsLetter);
    const std::string_view name = rest_.substr(0, static_cast<std::size_t>(end - rest_.begin()));
    rest_.remove_prefix(name.size());
    const std::optional<int> number = Number();
    if (rest_.starts_with(' ')) rest_.remove_prefix(1);
    const bool ignorable = std::exchange(ignorable_, false);
    const Entry* const entry = name.size() <= kLongestWord ? Find(name) : nullptr;
    if (entry == nullptr) {
      if (ignorable && Now().destination != Destination::Dropped) Now().destination = Destination::Skipped;
      return;
    }
    if (tooDeep_ == 0 || entry->word == Word::Binary) Apply(*entry, number);
  }

  // A number that does not fit is as good as none.
  std::optional<int> Number() {
    std::size_t length = rest_.starts_with('-') ? 1 : 0;
    while (length < rest_.size() && rest_[length] >= '0' && rest_[length] <= '9') ++length;
    int number = 0;
    const auto [stop, error] = std::from_chars(rest_.data(), rest_.data() + length, number);
    if (stop == rest_.data()) return std::nullopt;
    rest_.remove_prefix(length);
    return error == std::errc{} ? std::optional(number) : std::nullopt;
  }

  void Apply(const Entry& entry, std::optional<int> number) {
    const bool on = number.value_or(1) != 0;
    State& state = Now();
    switch (entry.word) {
      case Word::Skip:
        if (state.destination != Destination::Dropped) state.destination = Destination::Skipped;
        return;
      case Word::Drop:
        state.destination = Destination::Dropped;
        return;
      case Word::Show:
        if (state.destination != Destination::Dropped) state.destination = Destination::Body;
        return;
      case Word::FontTable:
        state.destination = Destination::Fonts;
        return;
      case Word::ColourTable:
        state.destination = Destination::Colours;
        return;
      case Word::Binary:
        return SkipBinary(number.value_or(0));
      case Word::CodePageNumber:
      case Word::CodePageFixed:
        codePage_ = entry.word == Word::CodePageFixed ? static_cast<int>(entry.value) : number.value_or(1252);
        return;
      case Word::DefaultFont:
        defaultFont_ = number.value_or(0);
        return;
      case Word::FallbackCount:
        state.fallbackCharacters = std::max(number.value_or(1), 0);
        return;
      case Word::Unicode:
        return Unicode(number.value_or(0));
      default:
        break;
    }
    if (state.destination == Destination::Fonts) return ApplyToFont(entry.word, number);
    if (state.destination == Destination::Colours) return ApplyToColour(entry.word, number.value_or(0));
    if (state.destination == Destination::Body) ApplyToText(entry, number, on);
  }

  void SkipBinary(int size) {
    rest_.remove_prefix(std::min(static_cast<std::size_t>(std::max(size, 0)), rest_.size()));
  }

  void ApplyToText(const Entry& entry, std::optional<int> number, bool on) {
    State& state = Now();
    CharacterFormat& format = state.format;
    switch (entry.word) {
      case Word::Text:
        return Character(entry.value);
      case Word::Paragraph:
        return state.inTable ? Character(' ') : EndParagraph();
      case Word::Cell:
        return Character('\t');
      case Word::Row:
        return EndRow();
      case Word::Bold:
        format.bold = on;
        return;
      case Word::Italic:
        format.italic = on;
        return;
      case Word::Underline:
        format.underline = on;
        return;
      case Word::NoUnderline:
        format.underline = false;
        return;
      case Word::Strike:
        format.strikeThrough = on;
        return;
      case Word::Superscript:
        format.position = on ? ScriptPosition::Superscript : ScriptPosition::Normal;
        return;
      case Word::Subscript:
        format.position = on ? ScriptPosition::Subscript : ScriptPosition::Normal;
        return;
      case Word::NormalPosition:
        format.position = ScriptPosition::Normal;
        return;
      case Word::FontSize:
        format.halfPoints = static_cast<std::uint16_t>(std::clamp(number.value_or(24), 0, 2000));
        return;
      case Word::FontNumber:
        return ChooseFont(number.value_or(0));
      case Word::Foreground:
        format.foreground = ColourAt(number.value_or(0));
        return;
      case Word::Background:
        format.background = ColourAt(number.value_or(0));
        return;
      case Word::Plain:
        state.format = {};
        state.hidden = false;
        ChooseFont(defaultFont_);
        return;
      case Word::Hidden:
        state.hidden = on;
        return;
      default:
        ApplyToParagraph(entry, number.value_or(0));
    }
  }

  void ApplyToParagraph(const Entry& entry, int number) {
    State& state = Now();
    switch (entry.word) {
      case Word::ParagraphDefaults:
        state.paragraph = {};
        state.inTable = false;
        return;
      case Word::Align:
        state.paragraph.alignment = static_cast<Alignment>(entry.value);
        return;
      case Word::LeftIndent:
        state.paragraph.leftIndent = number;
        return;
      case Word::RightIndent:
        state.paragraph.rightIndent = number;
        return;
      case Word::FirstIndent:
        state.paragraph.firstLineIndent = number;
        return;
      case Word::InTable:
        state.inTable = true;
        return;
      default:
        return;
    }
  }

  // Fonts

  void ApplyToFont(Word word, std::optional<int> number) {
    if (word == Word::FontNumber) {
      fontNumber_ = number.value_or(0);
      fontCodePage_ = 0;
    } else if (word == Word::FontCharset) {
      fontCodePage_ = CodePageOfCharset(number.value_or(0));
    } else if (word == Word::FontCodePage) {
      fontCodePage_ = number.value_or(0);
    }
  }

  void EndFont() {
    std::string name = std::exchange(fontName_, {});
    if (fonts_.size() >= kMostFonts) return;
    const auto begin = name.find_first_not_of(' ');
    name = begin == std::string::npos ? std::string() : name.substr(begin);
    fonts_[fontNumber_] = {.index = FontIndex(name), .codePage = fontCodePage_};
    if (fontNumber_ != defaultFont_) return;
    for (State& state : states_) {
      state.format.font = fonts_[fontNumber_].index;
      state.codePage = fonts_[fontNumber_].codePage;
    }
  }

  std::uint16_t FontIndex(const std::string& name) {
    const auto [entry, added] =
        fontIndex_.try_emplace(name, static_cast<std::uint16_t>(result_.fonts.size()));
    if (added && !name.empty()) result_.fonts.push_back(name);
    if (name.empty()) entry->second = 0;
    return entry->second;
  }

  void ChooseFont(int number) {
    const auto found = fonts_.find(number);
    if (found == fonts_.end()) return;
    Now().format.font = found->second.index;
    Now().codePage = found->second.codePage;
  }

  // Colours

  void ApplyToColour(Word word, int number) {
    const Colour part = std::clamp(number, 0, 255);
    if (word == Word::Red) colour_ = (colour_ < 0 ? 0 : colour_ & 0x00FFFF) | part << 16;
    if (word == Word::Green) colour_ = (colour_ < 0 ? 0 : colour_ & 0xFF00FF) | part << 8;
    if (word == Word::Blue) colour_ = (colour_ < 0 ? 0 : colour_ & 0xFFFF00) | part;
  }

  [[nodiscard]] Colour ColourAt(int number) const {
    const auto index = static_cast<std::size_t>(std::max(number, 0));
    return index < colours_.size() ? colours_[index] : kAutomaticColour;
  }

  // Text

  void Literal(unsigned byte) {
    if (byte < 0x80) return Character(byte);
    const int page = Now().codePage != 0 ? Now().codePage : codePage_;
    Character(CodePageFor(page)[byte - 0x80]);
  }

  void Unicode(int number) {
    const auto code = static_cast<char32_t>(number < 0 ? number + 65536 : number);
    fallback_ = 0;
    if (IsHighSurrogate(code)) {
      highSurrogate_ = code;
    } else if (IsLowSurrogate(code)) {
      if (highSurrogate_ != 0) Character(0x10000 + ((highSurrogate_ - 0xD800) << 10) + (code - 0xDC00));
      highSurrogate_ = 0;
    } else {
      Character(code);
    }
    fallback_ = Now().fallbackCharacters;
  }

  void Character(char32_t code) {
    if (fallback_ > 0) {
      --fallback_;
      return;
    }
    if (tooDeep_ > 0 || code == 0 || code > 0x10FFFF) return;
    switch (Now().destination) {
      case Destination::Fonts:
        return code == ';' ? EndFont() : AppendUtf8(fontName_, code);
      case Destination::Colours:
        if (code == ';' && colours_.size() < kMostColours)
          colours_.push_back(std::exchange(colour_, kAutomaticColour));
        return;
      case Destination::Skipped:
      case Destination::Dropped:
        return;
      case Destination::Body:
        if (!Now().hidden) Append(WithoutSymbolFont(code));
    }
  }

  void Append(char32_t code) {
    const std::size_t before = result_.text.size();
    if (code == '\n' || code == '\r') code = ' ';
    AppendUtf8(result_.text, code);
    auto& runs = result_.runs;
    if (runs.empty() || !(runs.back().format == Now().format)) runs.push_back({0, Now().format});
    runs.back().bytes += result_.text.size() - before;
    lastParagraph_ = Now().paragraph;
    highSurrogate_ = 0;
  }

  void EndParagraph() {
    fallback_ = 0;
    if (tooDeep_ > 0 || Now().destination != Destination::Body) return;
    result_.text.push_back('\n');
    if (result_.runs.empty()) result_.runs.push_back({0, Now().format});
    ++result_.runs.back().bytes;
    AddParagraph(Now().paragraph);
  }

  // The tab behind the last cell separates nothing.
  void EndRow() {
    if (result_.text.ends_with('\t')) {
      result_.text.pop_back();
      --result_.runs.back().bytes;
    }
    EndParagraph();
  }

  void AddParagraph(const ParagraphFormat& format) {
    auto& paragraphs = result_.paragraphs;
    if (paragraphs.empty() || !(paragraphs.back().format == format)) paragraphs.push_back({0, format});
    ++paragraphs.back().paragraphs;
  }

  // Every writer ends the last paragraph, too; that begins no new one.
  void EndParagraphs() {
    if (result_.text.ends_with('\n')) {
      result_.text.pop_back();
      --result_.runs.back().bytes;
    } else if (!result_.text.empty()) {
      AddParagraph(lastParagraph_);
    }
    std::erase_if(result_.runs, [](const TextRun& run) { return run.bytes == 0; });
  }

  std::string_view rest_;
  RichText result_;
  ParagraphFormat lastParagraph_;  // of the text read last
  std::vector<State> states_;
  std::size_t tooDeep_ = 0;
  bool ended_ = false;
  bool ignorable_ = false;
  int fallback_ = 0;
  char32_t highSurrogate_ = 0;
  int codePage_ = 1252;
  int defaultFont_ = 0;
  std::map<int, Font> fonts_;
  std::map<std::string, std::uint16_t> fontIndex_;
  int fontNumber_ = 0;
  int fontCodePage_ = 0;
  std::string fontName_;
  std::vector<Colour> colours_;
  Colour colour_ = kAutomaticColour;
};

}  // namespace

bool IsRtf(std::string_view bytes) {
  return bytes.starts_with("{\\rtf");
}

RichText ReadRtf(std::string_view bytes) {
  return Reader(bytes).Read();
}

}  // namespace lorelin
