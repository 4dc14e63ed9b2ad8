#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "base/codePages.h"
#include "richtext/rtf.h"
#include "richtext/rtfTables.h"
#include "richtext/rtfText.h"
#include "richtext/rtfTokens.h"
#include "richtext/rtfWords.h"

namespace lorelin {
namespace {

using rtf::Word;

constexpr std::size_t kDeepest = 1000;

enum class Destination : std::uint8_t { Body, Fonts, Colours, Skipped, Dropped };

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

void ApplyToParagraph(State& state, const rtf::Entry& entry, int number) {
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
    case Word::OutlineLevel:
      // The file counts from 0, and the ninth is the level of what is no heading.
      state.paragraph.outlineLevel = number >= 0 && number < 9 ? static_cast<std::uint8_t>(number + 1) : 0;
      return;
    case Word::InTable:
      state.inTable = true;
      return;
    default:
      return;
  }
}

void ApplyToCharacters(CharacterFormat& format, Word word, std::optional<int> number) {
  const bool on = number.value_or(1) != 0;
  const auto raised = [on](ScriptPosition position) { return on ? position : ScriptPosition::Normal; };
  switch (word) {
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
      format.position = raised(ScriptPosition::Superscript);
      return;
    case Word::Subscript:
      format.position = raised(ScriptPosition::Subscript);
      return;
    case Word::NormalPosition:
      format.position = ScriptPosition::Normal;
      return;
    case Word::FontSize:
      format.halfPoints = static_cast<std::uint16_t>(std::clamp(number.value_or(24), 0, 2000));
      return;
    default:
      return;
  }
}

class Reader {
 public:
  explicit Reader(std::string_view bytes) : tokens_(bytes) { states_.emplace_back(); }

  RichText Read() {
    while (!ended_) Step(tokens_.Next());
    RichText result = text_.Finish();
    result.fonts = fonts_.TakeNames();
    return result;
  }

 private:
  State& Now() { return states_.back(); }

  void Step(const rtf::Token& token) {
    switch (token.kind) {
      case rtf::TokenKind::End:
        ended_ = true;
        return;
      case rtf::TokenKind::GroupBegin:
        return OpenGroup();
      case rtf::TokenKind::GroupEnd:
        return CloseGroup();
      case rtf::TokenKind::Byte:
        return Literal(token.byte);
      case rtf::TokenKind::Word:
        return ControlWord(token);
      case rtf::TokenKind::Symbol:
        return Symbol(token.byte);
    }
  }

  // Groups and destinations

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
    if (Now().destination == Destination::Fonts && fonts_.HasName()) EndFont();
    if (tooDeep_ > 0) {
      --tooDeep_;
    } else if (states_.size() > 1) {
      states_.pop_back();
      ended_ = states_.size() == 1;
    }
  }

  void Enter(Destination destination) {
    if (Now().destination != Destination::Dropped) Now().destination = destination;
  }

  void Symbol(unsigned symbol) {
    switch (symbol) {
      case '*':
        ignorable_ = true;
        return;
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

  void ControlWord(const rtf::Token& token) {
    const bool ignorable = std::exchange(ignorable_, false);
    const rtf::Entry* const entry = rtf::FindWord(token.name);
    if (entry == nullptr) {
      if (ignorable) Enter(Destination::Skipped);
    } else if (entry->word == Word::Binary) {
      tokens_.Skip(token.number.value_or(0));
    } else if (tooDeep_ == 0 && !ChangesDestination(entry->word) && !ChangesDocument(*entry, token.number)) {
      Apply(*entry, token.number);
    }
  }

  bool ChangesDestination(Word word) {
    switch (word) {
      case Word::Skip:
        Enter(Destination::Skipped);
        return true;
      case Word::Show:
        Enter(Destination::Body);
        return true;
      case Word::Drop:
        Now().destination = Destination::Dropped;
        return true;
      case Word::FontTable:
        Now().destination = Destination::Fonts;
        return true;
      case Word::ColourTable:
        Now().destination = Destination::Colours;
        return true;
      default:
        return false;
    }
  }

  // Words that count wherever they stand.
  bool ChangesDocument(const rtf::Entry& entry, std::optional<int> number) {
    switch (entry.word) {
      case Word::CodePageNumber:
        codePage_ = number.value_or(1252);
        return true;
      case Word::CodePageFixed:
        codePage_ = static_cast<int>(entry.value);
        return true;
      case Word::DefaultFont:
        defaultFont_ = number.value_or(0);
        return true;
      case Word::FallbackCount:
        Now().fallbackCharacters = std::max(number.value_or(1), 0);
        return true;
      case Word::Unicode:
        Unicode(number.value_or(0));
        return true;
      default:
        return false;
    }
  }

  void Apply(const rtf::Entry& entry, std::optional<int> number) {
    switch (Now().destination) {
      case Destination::Fonts:
        return fonts_.Apply(entry.word, number);
      case Destination::Colours:
        return colours_.Apply(entry.word, number.value_or(0));
      case Destination::Body:
        return ApplyToText(entry, number);
      case Destination::Skipped:
      case Destination::Dropped:
        return;
    }
  }

  void ApplyToText(const rtf::Entry& entry, std::optional<int> number) {
    State& state = Now();
    switch (entry.word) {
      case Word::Text:
        return Character(entry.value);
      case Word::Paragraph:
        return state.inTable ? Character(' ') : EndParagraph();
      case Word::Cell:
        return Character('\t');
      case Word::Row:
        text_.DropLastTab();
        return EndParagraph();
      case Word::FontNumber:
        return ChooseFont(number.value_or(0));
      case Word::Foreground:
        state.format.foreground = colours_.At(number.value_or(0));
        return;
      case Word::Background:
        state.format.background = colours_.At(number.value_or(0));
        return;
      case Word::Plain:
        state.format = {};
        state.hidden = false;
        return ChooseFont(defaultFont_);
      case Word::Hidden:
        state.hidden = number.value_or(1) != 0;
        return;
      default:
        ApplyToCharacters(state.format, entry.word, number);
        ApplyToParagraph(state, entry, number.value_or(0));
    }
  }

  void EndFont() {
    const auto ended = fonts_.EndFont();
    if (!ended || ended->first != defaultFont_) return;
    for (State& state : states_) {
      state.format.font = ended->second.index;
      state.codePage = ended->second.codePage;
    }
  }

  void ChooseFont(int number) {
    const auto font = fonts_.Find(number);
    if (!font) return;
    Now().format.font = font->index;
    Now().codePage = font->codePage;
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
        return code == ';' ? EndFont() : fonts_.Append(code);
      case Destination::Colours:
        if (code == ';') colours_.EndColour();
        return;
      case Destination::Skipped:
      case Destination::Dropped:
        return;
      case Destination::Body:
        if (!Now().hidden) Append(WithoutSymbolFont(code));
    }
  }

  void Append(char32_t code) {
    text_.Append(code, Now().format, Now().paragraph);
    highSurrogate_ = 0;
  }

  void EndParagraph() {
    fallback_ = 0;
    if (tooDeep_ > 0 || Now().destination != Destination::Body) return;
    text_.EndParagraph(Now().format, Now().paragraph);
  }

  rtf::Tokens tokens_;
  rtf::TextBuilder text_;
  rtf::FontTable fonts_;
  rtf::ColourTable colours_;
  std::vector<State> states_;
  std::size_t tooDeep_ = 0;
  bool ended_ = false;
  bool ignorable_ = false;
  int fallback_ = 0;
  char32_t highSurrogate_ = 0;
  int codePage_ = 1252;
  int defaultFont_ = 0;
};

}  // namespace

bool IsRtf(std::string_view bytes) {
  return bytes.starts_with("{\\rtf");
}

RichText ReadRtf(std::string_view bytes) {
  return Reader(bytes).Read();
}

}  // namespace lorelin
