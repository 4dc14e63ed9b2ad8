#include "german/scripture.h"

#include <array>

#include "german/numberWords.h"
#include "german/numbers.h"

namespace lorelin {
namespace {

struct Book {
  std::string_view written;
  std::string_view spoken;
};

constexpr std::array kBooks{Book{"Mt", "Matthäus"},
                            Book{"Mk", "Markus"},
                            Book{"Lk", "Lukas"},
                            Book{"Joh", "Johannes"},
                            Book{"Röm", "Römer"},
                            Book{"Kor", "Korinther"},
                            Book{"Gal", "Galater"},
                            Book{"Eph", "Epheser"},
                            Book{"Phil", "Philipper"},
                            Book{"Kol", "Kolosser"},
                            Book{"Tim", "Timotheus"},
                            Book{"Hebr", "Hebräer"},
                            Book{"Thess", "Thessalonicher"},
                            Book{"Jak", "Jakobus"},
                            Book{"Petr", "Petrus"},
                            Book{"Offb", "Offenbarung"},
                            Book{"Apg", "Apostelgeschichte"},
                            Book{"Gen", "Genesis"},
                            Book{"Ex", "Exodus"},
                            Book{"Lev", "Levitikus"},
                            Book{"Dtn", "Deuteronomium"},
                            Book{"Jos", "Josua"},
                            Book{"Sam", "Samuel"},
                            Book{"Kön", "Könige"},
                            Book{"Chr", "Chronik"},
                            Book{"Neh", "Nehemia"},
                            Book{"Est", "Ester"},
                            Book{"Ps", "Psalm"},
                            Book{"Spr", "Sprüche"},
                            Book{"Pred", "Prediger"},
                            Book{"Koh", "Kohelet"},
                            Book{"Hld", "Hoheslied"},
                            Book{"Jes", "Jesaja"},
                            Book{"Jer", "Jeremia"},
                            Book{"Klgl", "Klagelieder"},
                            Book{"Ez", "Ezechiel"},
                            Book{"Hes", "Hesekiel"},
                            Book{"Hos", "Hosea"},
                            Book{"Hab", "Habakuk"},
                            Book{"Zef", "Zefanja"},
                            Book{"Hag", "Haggai"},
                            Book{"Sach", "Sacharja"},
                            Book{"Mal", "Maleachi"},
                            Book{"Matth", "Matthäus"},
                            Book{"Tit", "Titus"},
                            Book{"Mos", "Mose"},
                            Book{"Mose", "Mose"},
                            Book{"Psalm", "Psalm"},
                            Book{"Johannes", "Johannes"},
                            Book{"Matthäus", "Matthäus"},
                            Book{"Lukas", "Lukas"},
                            Book{"Markus", "Markus"},
                            Book{"Römer", "Römer"},
                            Book{"Korinther", "Korinther"},
                            Book{"Galater", "Galater"},
                            Book{"Epheser", "Epheser"},
                            Book{"Philipper", "Philipper"},
                            Book{"Kolosser", "Kolosser"},
                            Book{"Hebräer", "Hebräer"},
                            Book{"Thessalonicher", "Thessalonicher"},
                            Book{"Timotheus", "Timotheus"},
                            Book{"Jakobus", "Jakobus"},
                            Book{"Petrus", "Petrus"},
                            Book{"Offenbarung", "Offenbarung"},
                            Book{"Apostelgeschichte", "Apostelgeschichte"},
                            Book{"Genesis", "Genesis"},
                            Book{"Exodus", "Exodus"},
                            Book{"Josua", "Josua"},
                            Book{"Samuel", "Samuel"},
                            Book{"Könige", "Könige"},
                            Book{"Chronik", "Chronik"},
                            Book{"Hiob", "Hiob"},
                            Book{"Sprüche", "Sprüche"},
                            Book{"Prediger", "Prediger"},
                            Book{"Kohelet", "Kohelet"},
                            Book{"Jesaja", "Jesaja"},
                            Book{"Jeremia", "Jeremia"},
                            Book{"Klagelieder", "Klagelieder"},
                            Book{"Ezechiel", "Ezechiel"},
                            Book{"Hesekiel", "Hesekiel"},
                            Book{"Daniel", "Daniel"},
                            Book{"Hosea", "Hosea"},
                            Book{"Joel", "Joel"},
                            Book{"Amos", "Amos"},
                            Book{"Jona", "Jona"},
                            Book{"Micha", "Micha"},
                            Book{"Nahum", "Nahum"},
                            Book{"Habakuk", "Habakuk"},
                            Book{"Zefanja", "Zefanja"},
                            Book{"Haggai", "Haggai"},
                            Book{"Sacharja", "Sacharja"},
                            Book{"Maleachi", "Maleachi"},
                            Book{"Titus", "Titus"},
                            Book{"Weisheit", "Weisheit"},
                            Book{"Sirach", "Sirach"},
                            Book{"Tobit", "Tobit"},
                            Book{"Judit", "Judit"},
                            Book{"Judas", "Judas"},
                            Book{"Philemon", "Philemon"}};

std::string_view NameOf(std::string_view written) {
  for (const Book& book : kBooks) {
    if (book.written == written) return book.spoken;
  }
  return {};
}

}  // namespace

Found ScriptureAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.IsNumber(tokens.Skip(i + 1)) && !tokens.Is(i + 1, ".")) return std::nullopt;
  const auto name = NameOf(tokens.View(i));
  if (name.empty() || !tokens.FreeBefore(i)) return std::nullopt;
  const std::size_t at = tokens.Skip(tokens.Is(i + 1, ".") ? i + 2 : i + 1);
  const auto chapter = DigitsAt(tokens, at, 3);
  // "1. Kor 13": the chapter alone, where a number tells which of the books.
  const std::size_t point = tokens.Before(i);
  if (chapter && point != Tokens::kNone && point > 0 && tokens.Is(point, ".") &&
      tokens.IsNumber(point - 1, 1, 1) && !IsOneOf(tokens.View(at + 1), {",", ":"}) &&
      tokens.FreeBehind(at) && name != tokens.View(i))
    return Phrase{at + 1, std::string(name) + " " + CardinalWords(*chapter)};
  const bool parted = tokens.Is(at + 1, ",") || (tokens.Is(at + 1, ":") && tokens.IsNumber(at + 2));
  const auto verse = parted ? DigitsAt(tokens, tokens.Skip(at + 2), 3) : std::nullopt;
  if (!chapter || !verse) return std::nullopt;
  // "Daniel 3:1 gegen Peter": a score, unless the verse is beyond it.
  if (tokens.Is(at + 1, ":") && *verse < 10 && *chapter < 10) return std::nullopt;
  std::string words = std::string(name) + " " + CardinalWords(*chapter) + ", " + CardinalWords(*verse);
  std::size_t end = tokens.Skip(at + 2) + 1;
  const auto last = tokens.IsDashAt(end) ? DigitsAt(tokens, end + 1, 3) : std::nullopt;
  if (last) {
    words += " bis " + CardinalWords(*last);
    end += 2;
  }
  if (!tokens.FreeBehind(end - 1)) return std::nullopt;
  return Phrase{end, words};
}

}  // namespace lorelin
