#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace lorelin {

enum class TokenKind : std::uint8_t {
  Word,    // letters
  Number,  // digits 0 to 9
  Blank,   // blanks of any width and tabs
  Line,    // the end of one line
  Sign,    // any other character, or one byte that belongs to none
  End      // behind the last
};

struct Token {
  TokenKind kind = TokenKind::End;
  std::size_t begin = 0;  // bytes
  std::size_t end = 0;
};

// The token that begins at a byte of the text; its kind is End behind the last one.
[[nodiscard]] Token TokenAt(std::string_view text, std::size_t at);

[[nodiscard]] bool IsUpperWord(std::string_view word);  // begins with a capital
[[nodiscard]] bool IsAllCaps(std::string_view word);    // two or more letters, all of them capitals
[[nodiscard]] bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> words);
[[nodiscard]] bool IsDash(std::string_view sign);  // a hyphen, a dash or a minus
// The word with its first letter small or large.
[[nodiscard]] std::string WithLowerStart(std::string_view word);
[[nodiscard]] std::string WithUpperStart(std::string_view word);
[[nodiscard]] bool HasPrefix(std::string_view word, std::initializer_list<std::string_view> beginnings);
[[nodiscard]] bool HasSuffix(std::string_view word, std::initializer_list<std::string_view> endings);

// The tokens of a sentence, with the text that they lie in. Asking before the first or behind the last gives
// an End.
class Tokens {
 public:
  explicit Tokens(std::string_view text) : text_(text) {}

  void Add(const Token& token) { list_.push_back(token); }
  void Clear() { list_.clear(); }
  void Shrink(std::size_t count) { list_.resize(count); }

  [[nodiscard]] std::string_view Text() const { return text_; }
  [[nodiscard]] std::size_t Count() const { return list_.size(); }
  [[nodiscard]] Token At(std::size_t i) const { return i < list_.size() ? list_[i] : Token{}; }
  [[nodiscard]] TokenKind Kind(std::size_t i) const {
    return i < list_.size() ? list_[i].kind : TokenKind::End;
  }
  [[nodiscard]] std::string_view View(std::size_t i) const {
    if (i >= list_.size()) return {};
    return {text_.data() + list_[i].begin, list_[i].end - list_[i].begin};
  }
  // From the first of them to the last, that one not included.
  [[nodiscard]] std::string_view View(std::size_t first, std::size_t last) const;

  [[nodiscard]] bool Is(std::size_t i, std::string_view text) const { return View(i) == text; }
  [[nodiscard]] bool IsWord(std::size_t i) const { return Kind(i) == TokenKind::Word; }
  [[nodiscard]] bool IsNumber(std::size_t i) const { return Kind(i) == TokenKind::Number; }
  [[nodiscard]] bool IsBlank(std::size_t i) const { return Kind(i) == TokenKind::Blank; }
  // Digits of this many places.
  [[nodiscard]] bool IsNumber(std::size_t i, std::size_t least, std::size_t most) const;
  [[nodiscard]] bool IsCapital(std::size_t i) const { return IsWord(i) && IsUpperWord(View(i)); }
  [[nodiscard]] bool IsDashAt(std::size_t i) const { return Kind(i) == TokenKind::Sign && IsDash(View(i)); }
  [[nodiscard]] bool IsGap(std::size_t i) const;  // a blank, an end of a line, or nothing
  // Nothing of a word or number touches the token on this side.
  [[nodiscard]] bool FreeBefore(std::size_t i) const;
  [[nodiscard]] bool FreeBehind(std::size_t i) const;

  // The next token that is no blank; the one before, kNone before the first.
  [[nodiscard]] std::size_t Skip(std::size_t i) const { return IsBlank(i) ? i + 1 : i; }
  [[nodiscard]] std::size_t Before(std::size_t i) const;
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  // The word right before, a gap between them or not; empty when something else stands there.
  [[nodiscard]] std::string_view WordBefore(std::size_t i) const;
  [[nodiscard]] std::size_t WordIndexBefore(std::size_t i) const;

  // Nothing but closing brackets, quotes and gaps follows behind the token.
  [[nodiscard]] bool IsLast(std::size_t i) const;
  // The token behind something that ends there, without the point that also ends the sentence.
  [[nodiscard]] std::size_t WithoutLastPoint(std::size_t end) const;
  // The token opens a sentence or a clause: only opening signs stand before.
  [[nodiscard]] bool OpensClause(std::size_t i) const;
  [[nodiscard]] bool OpensLine(std::size_t i) const;

 private:
  std::string_view text_;
  std::vector<Token> list_;
};

}  // namespace lorelin
