#include "german/addresses.h"

#include <algorithm>

#include "german/characters.h"

namespace lorelin {
namespace {

constexpr std::size_t kLongest = 200;  // tokens

std::string_view NameOfSign(std::string_view sign) {
  struct Name {
    std::string_view sign;
    std::string_view name;
  };
  constexpr Name kNames[] = {{".", "Punkt"},        {"@", "at"},          {"/", "Schrägstrich"},
                             {"-", "Minus"},        {"_", "Unterstrich"}, {":", "Doppelpunkt"},
                             {"?", "Fragezeichen"}, {"=", "gleich"},      {"&", "und"},
                             {"#", "Raute"},        {"%", "Prozent"},     {"~", "Tilde"},
                             {"+", "plus"},         {",", "Komma"},       {"!", "Ausrufezeichen"},
                             {"*", "Stern"},        {"\\", "Backslash"}};
  for (const Name& one : kNames) {
    if (one.sign == sign) return one.name;
  }
  return {};
}

// The tokens of the address: up to a gap or a sign that stands in none, without the punctuation at its end.
std::size_t EndOfAddress(const Tokens& tokens, std::size_t i) {
  std::size_t end = i;
  while (end < tokens.Count() && end < i + kLongest) {
    const TokenKind kind = tokens.Kind(end);
    if (kind != TokenKind::Word && kind != TokenKind::Number && NameOfSign(tokens.View(end)).empty()) break;
    ++end;
  }
  while (end > i && IsOneOf(tokens.View(end - 1), {".", ",", ":", "?", "!", "-", "&", "*"})) --end;
  return end;
}

bool IsDomainEnding(std::string_view word) {
  return IsOneOf(word, {"de",  "com", "org",    "net",     "eu",     "at",    "ch",       "info", "io",
                        "gov", "edu", "uk",     "fr",      "it",     "es",    "nl",       "be",   "tv",
                        "app", "dev", "berlin", "hamburg", "bayern", "biz",   "me",       "li",   "lu",
                        "pl",  "dk",  "se",     "us",      "online", "shop",  "koeln",    "wiki", "int",
                        "ly",  "ai",  "museum", "example", "test",   "local", "localhost"});
}

bool IsFileEnding(std::string_view word) {
  return IsOneOf(
      word, {"pdf", "doc", "docx", "txt", "jpg", "jpeg", "png",  "gif", "zip",  "xls", "xlsx", "html", "htm",
             "exe", "mp3", "mp4",  "odt", "csv", "ppt",  "pptx", "wav", "py",   "js",  "cpp",  "json", "xml",
             "ini", "log", "sh",   "bat", "svg", "rtf",  "epub", "PDF", "conf", "md",  "iso",  "cfg"});
}

// "C:\\Programme", "\\\\Server", "~/Bilder", "/etc/app", "./start".
bool IsPath(const Tokens& tokens, std::size_t i, std::size_t end) {
  if (tokens.View(i).size() == 1 && tokens.IsWord(i) && tokens.Is(i + 1, ":") && tokens.Is(i + 2, "\\"))
    return true;
  if (tokens.Is(i, "\\")) return tokens.Is(i + 1, "\\") && tokens.IsWord(i + 2);
  if (IsOneOf(tokens.View(i), {"~", "."})) return tokens.Is(i + 1, "/") && tokens.IsWord(i + 2);
  if (!tokens.Is(i, "/") || !tokens.IsWord(i + 1)) return false;
  for (std::size_t at = i + 2; at < end; ++at) {
    if (tokens.Is(at, "/")) return true;
  }
  return false;
}

// "src/main.cpp".
bool EndsInFile(const Tokens& tokens, std::size_t at, std::size_t end) {
  return end >= at + 4 && tokens.Is(end - 2, ".") && tokens.IsWord(end - 1) &&
         IsFileEnding(tokens.View(end - 1));
}

bool IsAddress(const Tokens& tokens, std::size_t i, std::size_t end) {
  if (tokens.Is(i + 1, ":") && tokens.Is(i + 2, "/") && tokens.Is(i + 3, "/") && end > i + 4) return true;
  if (tokens.Is(i, "www") && tokens.Is(i + 1, ".") && end > i + 2) return true;
  for (std::size_t at = i + 1; at + 1 < end; ++at) {
    if (tokens.Is(at, "@")) return true;
    if (!tokens.Is(at, ".") || !tokens.IsWord(at + 1)) {
      if (tokens.Is(at, "/")) return EndsInFile(tokens, at, end);
      continue;
    }
    const auto word = tokens.View(at + 1);
    const bool last = at + 2 == end || tokens.Is(at + 2, "/") || tokens.Is(at + 2, ":") ||
                      tokens.Is(at + 2, "?") || tokens.Is(at + 2, "#");
    const bool named = tokens.View(i, at).size() > 1 || word == "com";  // "x.com"
    if (last && IsDomainEnding(word) && named) return true;
    if (at + 2 == end && IsFileEnding(word)) return true;
  }
  return false;
}

std::string SpokenAddress(const Tokens& tokens, std::size_t i, std::size_t end) {
  std::string words;
  for (std::size_t at = i; at < end; ++at) {
    const auto name = NameOfSign(tokens.View(at));
    if (!words.empty()) words += ' ';
    words += name.empty() ? tokens.View(at) : name;
  }
  return words;
}

// "TagDerArbeit" in words.
std::string SplitAtCapitals(std::string_view word) {
  std::string words;
  bool small = false;
  for (std::size_t at = 0; at < word.size();) {
    const Character c = CharacterAt(word, at);
    if (IsUpperLetter(c.code) && small) words += ' ';
    small = !IsUpperLetter(c.code);
    words += word.substr(at, c.length);
    at += c.length;
  }
  return words;
}

}  // namespace

Found PathAt(const Tokens& tokens, std::size_t i) {
  const bool free = i == 0 || tokens.IsGap(i - 1) || IsOneOf(tokens.View(i - 1), {"(", "„", "\"", "'"});
  if (!free || tokens.IsGap(i + 1)) return std::nullopt;
  const std::size_t end = EndOfAddress(tokens, i);
  if (end < i + 3 || !IsPath(tokens, i, end)) return std::nullopt;
  return Phrase{end, SpokenAddress(tokens, i, end)};
}

Found AddressAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.IsWord(i) && !tokens.IsNumber(i)) return std::nullopt;
  if (auto path = PathAt(tokens, i)) return path;
  if (i > 0 && (!tokens.FreeBefore(i) || IsOneOf(tokens.View(i - 1), {".", "@", "/", "-", "_"})))
    return std::nullopt;
  const TokenKind next = tokens.Kind(i + 1);
  if (next == TokenKind::Blank || next == TokenKind::Line || next == TokenKind::End) return std::nullopt;
  const std::size_t end = EndOfAddress(tokens, i);
  if (end < i + 3 || !IsAddress(tokens, i, end)) return std::nullopt;
  return Phrase{end, SpokenAddress(tokens, i, end)};
}

Found TagAt(const Tokens& tokens, std::size_t i) {
  const bool hash = tokens.Is(i, "#");
  if ((!hash && !tokens.Is(i, "@")) || !(tokens.IsWord(i + 1) || (hash && tokens.IsNumber(i + 1))))
    return std::nullopt;
  if (i > 0 && !tokens.IsGap(i - 1) && !IsOneOf(tokens.View(i - 1), {"(", "„", "\"", "#", "."}))
    return std::nullopt;
  if (tokens.IsNumber(i + 1)) return Phrase{i + 1, "Nummer "};
  std::string words = hash ? "Hashtag" : "at";
  std::size_t at = i + 1;
  for (; at < i + kLongest; ++at) {
    if (tokens.Is(at, "_") && (tokens.IsWord(at + 1) || tokens.IsNumber(at + 1))) continue;
    if (!hash && tokens.Is(at, ".") && tokens.IsWord(at + 1) && !IsUpperWord(tokens.View(at + 1))) {
      words += " Punkt";
      continue;
    }
    if (!tokens.IsWord(at) && !tokens.IsNumber(at)) break;
    words += " " + (hash ? SplitAtCapitals(tokens.View(at)) : std::string(tokens.View(at)));
  }
  return Phrase{at, words};
}

}  // namespace lorelin
