#include "extensions/german/abbreviationRule.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <vector>

namespace lorelin {
namespace {

// What has to follow for the letters to be this abbreviation.
enum class Follows { Anything, Number, Capital };

struct Abbreviation {
  std::string_view written;  // a blank where one may stand
  std::string_view spoken;
  Follows follows = Follows::Anything;
  bool endsSentences = false;  // its point is often also that of the sentence
};

constexpr std::array kAbbreviations{
    Abbreviation{"z. B.", "zum Beispiel"},
    Abbreviation{"Z. B.", "Zum Beispiel"},
    Abbreviation{"d. h.", "das heißt"},
    Abbreviation{"D. h.", "Das heißt"},
    Abbreviation{"u. a.", "unter anderem"},
    Abbreviation{"U. a.", "Unter anderem"},
    Abbreviation{"u. Ä.", "und Ähnliches", Follows::Anything, true},
    Abbreviation{"o. Ä.", "oder Ähnliches", Follows::Anything, true},
    Abbreviation{"u. v. m.", "und vieles mehr", Follows::Anything, true},
    Abbreviation{"u. v. a.", "und viele andere", Follows::Anything, true},
    Abbreviation{"u. s. w.", "und so weiter", Follows::Anything, true},
    Abbreviation{"usw.", "und so weiter", Follows::Anything, true},
    Abbreviation{"usf.", "und so fort", Follows::Anything, true},
    Abbreviation{"etc.", "et cetera", Follows::Anything, true},
    Abbreviation{"i. d. R.", "in der Regel"},
    Abbreviation{"I. d. R.", "In der Regel"},
    Abbreviation{"i. Allg.", "im Allgemeinen"},
    Abbreviation{"i. A.", "im Auftrag"},
    Abbreviation{"i. V.", "in Vertretung"},
    Abbreviation{"i. H. v.", "in Höhe von"},
    Abbreviation{"z. T.", "zum Teil"},
    Abbreviation{"z. Zt.", "zurzeit"},
    Abbreviation{"zz.", "zurzeit"},
    Abbreviation{"z. Hd.", "zu Händen"},
    Abbreviation{"z. H.", "zu Händen"},
    Abbreviation{"s. o.", "siehe oben", Follows::Anything, true},
    Abbreviation{"s. u.", "siehe unten", Follows::Anything, true},
    Abbreviation{"u. U.", "unter Umständen"},
    Abbreviation{"v. a.", "vor allem"},
    Abbreviation{"V. a.", "Vor allem"},
    Abbreviation{"m. E.", "meines Erachtens"},
    Abbreviation{"o. g.", "oben genannte"},
    Abbreviation{"b. w.", "bitte wenden", Follows::Anything, true},
    Abbreviation{"a. D.", "außer Dienst", Follows::Anything, true},
    Abbreviation{"a. M.", "am Main", Follows::Anything, true},
    Abbreviation{"p. a.", "pro Jahr", Follows::Anything, true},
    Abbreviation{"v. Chr.", "vor Christus", Follows::Anything, true},
    Abbreviation{"n. Chr.", "nach Christus", Follows::Anything, true},
    Abbreviation{"Jh.", "Jahrhundert", Follows::Anything, true},
    Abbreviation{"Jhs.", "Jahrhunderts", Follows::Anything, true},
    Abbreviation{"bzw.", "beziehungsweise"},
    Abbreviation{"bspw.", "beispielsweise"},
    Abbreviation{"ca.", "circa"},
    Abbreviation{"Ca.", "Circa"},
    Abbreviation{"evtl.", "eventuell"},
    Abbreviation{"Evtl.", "Eventuell"},
    Abbreviation{"ggf.", "gegebenenfalls"},
    Abbreviation{"Ggf.", "Gegebenenfalls"},
    Abbreviation{"inkl.", "inklusive"},
    Abbreviation{"exkl.", "exklusive"},
    Abbreviation{"einschl.", "einschließlich"},
    Abbreviation{"zzgl.", "zuzüglich"},
    Abbreviation{"abzgl.", "abzüglich"},
    Abbreviation{"vgl.", "vergleiche"},
    Abbreviation{"Vgl.", "Vergleiche"},
    Abbreviation{"sog.", "sogenannte"},
    Abbreviation{"lt.", "laut"},
    Abbreviation{"gem.", "gemäß"},
    Abbreviation{"gez.", "gezeichnet"},
    Abbreviation{"geb.", "geboren"},
    Abbreviation{"gest.", "gestorben"},
    Abbreviation{"verh.", "verheiratet"},
    Abbreviation{"max.", "maximal"},
    Abbreviation{"Max.", "Maximal", Follows::Number},
    Abbreviation{"mind.", "mindestens"},
    Abbreviation{"min.", "mindestens", Follows::Number},
    Abbreviation{"Dr. med.", "Doktor der Medizin"},
    Abbreviation{"Dr.", "Doktor"},
    Abbreviation{"Prof.", "Professor"},
    Abbreviation{"Dipl.-Ing.", "Diplomingenieur"},
    Abbreviation{"Dipl.", "Diplom"},
    Abbreviation{"Ing.", "Ingenieur"},
    Abbreviation{"Hrn.", "Herrn"},
    Abbreviation{"Hr.", "Herr"},
    Abbreviation{"Fr.", "Frau", Follows::Capital},
    Abbreviation{"St.", "Sankt", Follows::Capital},
    Abbreviation{"Fa.", "Firma"},
    Abbreviation{"Art.-Nr.", "Artikelnummer"},
    Abbreviation{"Tel.-Nr.", "Telefonnummer"},
    Abbreviation{"Nrn.", "Nummern"},
    Abbreviation{"Nr.", "Nummer"},
    Abbreviation{"Str.", "Straße"},
    Abbreviation{"Pl.", "Platz", Follows::Number},
    Abbreviation{"Tel.", "Telefon"},
    Abbreviation{"Abs.", "Absatz", Follows::Number},
    Abbreviation{"Art.", "Artikel", Follows::Number},
    Abbreviation{"Aufl.", "Auflage"},
    Abbreviation{"Bd.", "Band"},
    Abbreviation{"Kap.", "Kapitel"},
    Abbreviation{"Abb.", "Abbildung"},
    Abbreviation{"Tab.", "Tabelle", Follows::Number},
    Abbreviation{"Abschn.", "Abschnitt"},
    Abbreviation{"Anm.", "Anmerkung"},
    Abbreviation{"Anl.", "Anlage"},
    Abbreviation{"ff.", "folgende", Follows::Anything, true},
    Abbreviation{"Hrsg.", "Herausgeber"},
    Abbreviation{"S.", "Seite", Follows::Number},
    Abbreviation{"Gl.", "Gleis", Follows::Number},
    Abbreviation{"Zi.", "Zimmer", Follows::Number},
    Abbreviation{"Bhf.", "Bahnhof"},
    Abbreviation{"Hbf.", "Hauptbahnhof"},
    Abbreviation{"Hbf", "Hauptbahnhof"},
    Abbreviation{"MwSt.", "Mehrwertsteuer", Follows::Anything, true},
    Abbreviation{"MwSt", "Mehrwertsteuer"},
    Abbreviation{"Mo.", "Montag", Follows::Number},
    Abbreviation{"Di.", "Dienstag", Follows::Number},
    Abbreviation{"Mi.", "Mittwoch", Follows::Number},
    Abbreviation{"Do.", "Donnerstag", Follows::Number},
    Abbreviation{"Fr.", "Freitag", Follows::Number},
    Abbreviation{"Sa.", "Samstag", Follows::Number},
    Abbreviation{"So.", "Sonntag", Follows::Number},
};

struct Weekday {
  std::string_view written;
  std::string_view spoken;
};
constexpr std::array kWeekdays{Weekday{"Mo", "Montag"},   Weekday{"Di", "Dienstag"},
                               Weekday{"Mi", "Mittwoch"}, Weekday{"Do", "Donnerstag"},
                               Weekday{"Fr", "Freitag"},  Weekday{"Sa", "Samstag"},
                               Weekday{"So", "Sonntag"}};

struct FoundDay {
  std::string_view spoken;
  std::size_t end;
};

std::optional<FoundDay> WeekdayAt(std::string_view text, std::size_t at) {
  for (const Weekday& day : kWeekdays) {
    if (!StandsAt(text, at, day.written)) continue;
    const std::size_t end = at + day.written.size();
    return FoundDay{day.spoken, end < text.size() && text[end] == '.' ? end + 1 : end};
  }
  return std::nullopt;
}

// "Mo–Fr", "Sa. - So.".
std::optional<SpokenMatch> WeekdaysAt(std::string_view text, std::size_t at) {
  const auto first = WeekdayAt(text, at);
  if (!first) return std::nullopt;
  std::size_t dash = SkipBlanks(text, first->end, 1);
  const std::size_t length = DashAt(text, dash);
  if (length == 0) return std::nullopt;
  const auto second = WeekdayAt(text, SkipBlanks(text, dash + length, 1));
  if (!second) return std::nullopt;
  return SpokenMatch{second->end - at, std::string(first->spoken) + " bis " + std::string(second->spoken)};
}

using Index = std::unordered_map<char, std::vector<const Abbreviation*>>;

// By their first byte; the longer ones are tried first.
const Index& ByFirstByte() {
  static const Index index = [] {
    Index made;
    for (const Abbreviation& one : kAbbreviations) made[one.written.front()].push_back(&one);
    for (auto& [first, list] : made) {
      std::stable_sort(list.begin(), list.end(),
                       [](auto* a, auto* b) { return a->written.size() > b->written.size(); });
    }
    return made;
  }();
  return index;
}

// Where the abbreviation ends, its blanks there or not; 0 when it is not the one.
std::size_t EndOf(std::string_view text, std::size_t at, std::string_view written) {
  for (std::size_t i = 0; i < written.size(); ++i) {
    if (written[i] == ' ') {
      at = SkipBlanks(text, at, 1);
    } else if (at < text.size() && text[at] == written[i]) {
      ++at;
    } else {
      return 0;
    }
  }
  const bool letterFollows = !WordAt(text, at).empty();
  return written.back() != '.' && letterFollows ? 0 : at;
}

bool IsSentenceEnd(std::string_view text, std::size_t at) {
  const std::size_t next = SkipBlanks(text, at);
  if (next >= text.size() || text[next] == '\n') return true;
  return next > at && IsUpperAt(text, next);
}

bool Fits(const Abbreviation& one, std::string_view text, std::size_t end) {
  const std::size_t next = SkipBlanks(text, end, 1);
  switch (one.follows) {
    case Follows::Anything:
      return true;
    case Follows::Number: {
      // "Mo., 3.10."
      const std::size_t digit =
          next < text.size() && text[next] == ',' ? SkipBlanks(text, next + 1, 1) : next;
      return digit < text.size() && IsDigit(text[digit]);
    }
    case Follows::Capital:
      return next > end && IsUpperAt(text, next);
  }
  return false;
}

}  // namespace

std::optional<SpokenMatch> AbbreviationAt(std::string_view text, std::size_t at) {
  if (auto days = WeekdaysAt(text, at)) return days;
  const auto found = ByFirstByte().find(text[at]);
  if (found == ByFirstByte().end()) return std::nullopt;
  for (const Abbreviation* const one : found->second) {
    const std::size_t end = EndOf(text, at, one->written);
    if (end == 0 || !Fits(*one, text, end)) continue;
    std::string words(one->spoken);
    const std::size_t next = SkipBlanks(text, end);
    const bool textEnds = next >= text.size() || text[next] == '\n' || text[next] == '\r';
    if (one->written.back() == '.' && (textEnds || (one->endsSentences && IsSentenceEnd(text, end))))
      words += '.';
    return SpokenMatch{end - at, words};
  }
  return std::nullopt;
}

}  // namespace lorelin
