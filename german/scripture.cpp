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
                            Book{"Ps", "Psalm"},
                            Book{"Psalm", "Psalm"},
                            Book{"Spr", "Sprüche"},
                            Book{"Jes", "Jesaja"},
                            Book{"Jer", "Jeremia"},
                            Book{"Ez", "Ezechiel"},
                            Book{"Hos", "Hosea"},
                            Book{"Mose", "Mose"},
                            Book{"Johannes", "Johannes"},
                            Book{"Matthäus", "Matthäus"},
                            Book{"Lukas", "Lukas"},
                            Book{"Markus", "Markus"},
                            Book{"Römer", "Römer"},
                            Book{"Korinther", "Korinther"},
                            Book{"Jesaja", "Jesaja"}};

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
  const auto verse = tokens.Is(at + 1, ",") ? DigitsAt(tokens, tokens.Skip(at + 2), 3) : std::nullopt;
  if (!chapter || !verse) return std::nullopt;
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
