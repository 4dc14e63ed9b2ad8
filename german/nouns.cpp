#include "german/nouns.h"

#include <algorithm>
#include <string>
#include <vector>

#include "german/characters.h"
#include "german/tokens.h"

namespace lorelin {
namespace {

#include "german/data/nouns.inc"

constexpr unsigned kMasculine = 1;
constexpr unsigned kFeminine = 2;
constexpr unsigned kNeuter = 4;
constexpr unsigned kPlural = 8;
constexpr unsigned kGenitive = 16;
constexpr unsigned kDativePlural = 32;
constexpr std::size_t kLongestWord = 80;   // bytes; nothing longer is looked up
constexpr std::size_t kShortestWhole = 4;  // ... that makes it whole
constexpr std::size_t kShortestPart = 3;   // bytes of the last part of a compound

struct Lexicon {
  std::vector<std::uint32_t> hashes;  // sorted
  std::vector<std::uint8_t> forms;
};

std::uint32_t SixBits(char c) {
  if (c >= '0' && c <= '9') return static_cast<std::uint32_t>(c - '0');
  if (c >= 'A' && c <= 'Z') return static_cast<std::uint32_t>(c - 'A' + 10);
  if (c >= 'a' && c <= 'z') return static_cast<std::uint32_t>(c - 'a' + 36);
  return c == '-' ? 62 : 63;
}

std::uint32_t Number(std::string_view signs) {
  std::uint32_t number = 0;
  for (const char c : signs) number = number << 6 | SixBits(c);
  return number;
}

Lexicon Unpacked() {
  Lexicon lexicon;
  lexicon.hashes.reserve(kNounForms);
  lexicon.forms.reserve(kNounForms);
  std::uint32_t hash = 0;
  for (std::string_view line : kNouns) {
    while (!line.empty()) {
      const bool large = line.front() == '~';
      const std::size_t begin = large ? 1 : 0;
      const std::size_t length = large ? 5 : 3;
      hash += Number(line.substr(begin, length));
      lexicon.hashes.push_back(hash);
      lexicon.forms.push_back(static_cast<std::uint8_t>(SixBits(line[begin + length])));
      line.remove_prefix(begin + length + 1);
    }
  }
  return lexicon;
}

std::uint32_t HashOf(std::string_view text) {
  std::uint32_t value = 0x811C9DC5;
  for (const char c : text) value = (value ^ static_cast<unsigned char>(c)) * 0x01000193U;
  return value;
}

unsigned LookUp(std::string_view word) {
  static const Lexicon lexicon = Unpacked();
  const std::uint32_t hash = HashOf(word);
  const auto found = std::lower_bound(lexicon.hashes.begin(), lexicon.hashes.end(), hash);
  if (found == lexicon.hashes.end() || *found != hash) return 0;
  return lexicon.forms[static_cast<std::size_t>(found - lexicon.hashes.begin())];
}

// An adjective that became a noun: "Gute".
bool IsAdjectival(unsigned form) {
  return (form & kFeminine) != 0 && (form & kGenitive) != 0;
}

// "Fenster", "Fahrt" + "s", "Papp" of "Pappe".
bool IsFirstPart(std::string_view word) {
  const std::string upper = WithUpperStart(word);
  const auto isNoun = [](std::string_view part) { return LookUp(part) != 0 && !IsAdjectival(LookUp(part)); };
  if (isNoun(upper) || isNoun(upper + "e") || isNoun(upper + "en")) return true;
  for (const std::string_view ending : {"s", "es", "n", "en", "er", "-"}) {
    if (upper.size() > ending.size() + kShortestPart && upper.ends_with(ending) &&
        isNoun(std::string_view(upper).substr(0, upper.size() - ending.size())))
      return true;
  }
  return false;
}

// The longest last part that is a noun: "geschoss" of "Obergeschoss"; one behind a noun is better: "ecke" of
// "Fensterecke", not "recke".
unsigned LookUpLastPart(std::string_view word) {
  // The shortest first parts are few: "Anschrift".
  const int least = HasPrefix(word, {"An", "Ab", "Um", "Zu", "Un", "Ur", "Be", "Er"}) ? 2 : 3;
  unsigned longest = 0;
  std::size_t at = 0;
  for (int letters = 0; at < word.size(); ++letters) {
    if (letters >= least && word.size() - at >= kShortestPart && IsLetter(CharacterAt(word, at).code)) {
      const unsigned form = LookUp(WithUpperStart(word.substr(at)));
      if (form != 0 && !IsAdjectival(form)) {
        if (IsFirstPart(word.substr(0, at))) return form;
        if (longest == 0) longest = form;
      }
    }
    at += CharacterAt(word, at).length;
  }
  return longest;
}

// "Grades": the genitive with a vowel stands in no table where the one without does.
unsigned LookUpLongGenitive(std::string_view word) {
  if (!word.ends_with("es") || word.size() < 6) return 0;
  const unsigned form = LookUp(word.substr(0, word.size() - 2)) & (kMasculine | kNeuter);
  return form == 0 ? 0 : form | kGenitive;
}

// What the ending tells of a word that no lexicon knows.
unsigned GuessByEnding(std::string_view word) {
  if (HasSuffix(word, {"ungen", "heiten", "keiten", "schaften", "ionen", "täten"})) return kPlural;
  if (IsOneOf(word, {"Martin", "Benjamin", "Valentin", "Konstantin", "Augustin", "Justin", "Robin", "Kevin",
                     "Edwin", "Erwin", "Quentin", "Darwin", "Bitcoin", "Arthur", "Artur"}))
    return kMasculine;
  if (HasSuffix(word, {"chen", "lein"})) return kNeuter | kPlural;
  if (HasSuffix(word, {"sulin", "login", "plugin", "benzin", "protein"})) return kNeuter;
  if (HasSuffix(word, {"ung", "heit", "keit", "schaft", "ion", "tät", "erei", "enz",  "anz", "ik", "ur",
                       "ie",  "in",   "ette", "itis",   "ade", "age", "elle", "ille", "ose", "ess"}))
    return kFeminine;
  if (HasSuffix(word, {"ment", "um", "tum"})) return kNeuter;
  if (HasSuffix(word, {"ismus", "ling", "or", "ist", "ant", "eur"})) return kMasculine;
  if (HasSuffix(word, {"er"})) return kMasculine | kPlural;
  if (HasSuffix(word, {"en", "innen"})) return kPlural;
  // "Taverne", "Tunika": nine of ten.
  if (word.size() > 4 && (word.ends_with('e') || (word.ends_with('a') && !word.ends_with("ma"))))
    return kFeminine;
  return 0;
}

// Words that the lexicon does not hold.
unsigned LookUpMore(std::string_view word) {
  if (IsOneOf(word,
              {"Spindel", "Webcam", "Bewandtnis", "Geißel",     "Gischt",    "Suite", "Disk",     "Newsgroup",
               "Reibe",   "Taube",  "Elster",     "Hummel",     "Hyäne",     "Wüste", "Handvoll", "BahnCard",
               "OP",      "PIN",    "TAN",        "IBAN",       "GmbH",      "AG",    "KG",       "DVD",
               "CD",      "SIM",    "WG",         "Kita",       "NGO",       "FAQ",   "URL",      "SSD",
               "Card",    "Couch",  "Community",  "Smartwatch", "Challenge", "Crew",  "Jeans",    "Watch",
               "BIC",     "EU",     "Gruppe",     "App",        "Cloud",     "Mall",  "Area"}))
    return kFeminine;
  if (IsOneOf(word,
              {"Porsche",    "Biss",     "Radiergummi", "Rettich",     "Kohlrabi", "Muffin",     "Cookie",
               "Hoodie",     "Brownie",  "Zombie",      "Touchscreen", "Screen",   "Screenshot", "Voucher",
               "Cappuccino", "Junkie",   "Teenie",      "LKW",         "PKW",      "TV",         "Tweet",
               "Podcast",    "Blog",     "Account",     "Newsletter",  "Schmand",  "Döner",      "Wrap",
               "Shake",      "Smoothie", "Burger",      "Router",      "Stick",    "Beamer",     "Airbag",
               "Coupon",     "FC",       "SC"}))
    return kMasculine;
  if (IsOneOf(word, {"Gewand",    "Kliff",  "Riff",       "Atoll",         "Jackett",   "Gate", "Keyboard",
                     "Dashboard", "Board",  "Notebook",   "Unentschieden", "Remis",     "Like", "Selfie",
                     "Meme",      "GIF",    "PDF",        "WLAN",          "MRT",       "CT",   "EKG",
                     "E-Bike",    "Bike",   "Smartphone", "Tablet",        "Ticket",    "Abo",  "Event",
                     "Meeting",   "Update", "Backup",     "Level",         "Interview", "Date"}))
    return kNeuter;
  return 0;
}

// "Tickets", "Updates": many of those, or the genitive of one.
unsigned LookUpMoreWithEnding(std::string_view word) {
  if (!word.ends_with('s') || word.size() < 4) return 0;
  const unsigned form = LookUpMore(word.substr(0, word.size() - 1));
  if (form == 0) return 0;
  return (form & kFeminine) != 0 ? kPlural : form | kGenitive | kPlural;
}

// "Ersatzteil", "Anteil": the last part has another gender as the first part asks for another sense.
unsigned LookUpSensesOfLastPart(std::string_view word) {
  if (HasSuffix(word, {"netzteil",   "ersatzteil", "bauteil",     "einzelteil",  "fertigteil", "formteil",
                       "oberteil",   "unterteil",  "möbelteil",   "anbauteil",   "kleinteil",  "puzzleteil",
                       "seitenteil", "drehteil",   "schleißteil", "zubehörteil", "armband",    "tonband",
                       "gummiband",  "halsband",   "förderband",  "fließband",   "stirnband",  "maßband",
                       "klebeband",  "sperrband",  "magnetband",  "schweißband", "haarband"}))
    return kNeuter;
  if (HasSuffix(word, {"holgehalt",     "zuckergehalt", "fettgehalt",   "wassergehalt",  "salzgehalt",
                       "stoffgehalt",   "eisengehalt",  "eiweißgehalt", "feuchtegehalt", "keitsgehalt",
                       "energiegehalt", "heitsgehalt",  "kalkgehalt",   "ator",          "itor",
                       "ektor",         "aktor",        "zeitmesser",   "druckmesser",   "ungsmesser",
                       "zahlmesser"}))
    return kMasculine;
  if (HasSuffix(word, {"pauschale", "luftfeuchte", "bodenfeuchte", "restfeuchte", "haushaltsleiter",
                       "stehleiter", "trittleiter", "anlegeleiter"}))
    return kFeminine;
  return 0;
}

// Words that the lexicon has in another sense.
unsigned LookUpFirst(std::string_view word) {
  if (HasSuffix(word, {"teil", "band", "gehalt", "tor", "messer", "pauschale", "leiter", "feuchte"})) {
    if (const unsigned form = LookUpSensesOfLastPart(WithLowerStart(word))) return form;
  }
  if (word == "Feuchte") return kFeminine;
  if (IsOneOf(word, {"Kfz", "KFZ", "Gewerk", "Dragee", "Sachet", "Reagenz", "Lot", "Schauspiel", "Gestell",
                     "Gespinst"}))
    return kNeuter;
  if (IsOneOf(word, {"Garant", "Geograf"})) return kMasculine;
  // Things, not what is done: "einen Gefallen".
  if (IsOneOf(word, {"Gefallen", "Korken", "Knoten", "Fetzen", "Zinken", "Samen", "Husten", "Rochen"}))
    return kMasculine | kPlural;
  return 0;
}

Noun FromForm(unsigned form) {
  Noun noun;
  noun.singular = (form & (kMasculine | kFeminine | kNeuter)) != 0;
  noun.plural = (form & kPlural) != 0;
  noun.genitive = (form & kGenitive) != 0 && !IsAdjectival(form);
  noun.dativePlural = (form & kDativePlural) != 0;
  noun.adjectival = IsAdjectival(form);
  if ((form & kMasculine) != 0) {
    noun.gender = Gender::Masculine;
  } else if ((form & kFeminine) != 0) {
    noun.gender = Gender::Feminine;
  }
  return noun;
}

}  // namespace

namespace {

bool IsLastPartFrom(std::string_view word, std::size_t latest, bool behindFirstPart) {
  if (word.empty() || word.size() > kLongestWord) return false;
  if (LookUp(word) != 0) return true;
  std::size_t at = CharacterAt(word, 0).length;
  for (int letters = 1; at < word.size() && at <= latest; ++letters) {
    if (letters >= 3 && LookUp(WithUpperStart(word.substr(at))) != 0 &&
        (!behindFirstPart || BeginsCompounds(word.substr(0, at))))
      return true;
    at += CharacterAt(word, at).length;
  }
  return false;
}

}  // namespace

bool IsNounFrom(std::string_view word, std::size_t latest) {
  return IsLastPartFrom(word, latest, false);
}

bool IsNounOrCompound(std::string_view word, std::size_t latest) {
  return IsLastPartFrom(word, latest, true);
}

bool EndsInWholeNoun(std::string_view word, std::size_t moreThan) {
  if (HasSuffix(word, {"ungen", "heiten", "keiten", "schaften", "ionen", "täten", "ungs", "heits", "keits"}))
    return !word.ends_with('s');
  if (HasSuffix(word, {"schaft", "heit", "keit", "ung", "ität", "ling", "linge", "lings", "lingen"}))
    return true;
  for (const std::string_view ending : {"", "s", "es", "n", "en", "er", "ern"}) {
    if (!word.ends_with(ending) || word.size() < ending.size() + kShortestWhole) continue;
    const auto stem = word.substr(0, word.size() - ending.size());
    const std::size_t least = std::max(kShortestWhole, moreThan + 1 - std::min(moreThan, ending.size()));
    if (stem.size() >= least && IsNounFrom(stem, stem.size() - least)) return true;
    // "Ackerbau": so short a part tells only behind another.
    if (moreThan < kShortestPart && stem.size() > kShortestPart &&
        IsNounOrCompound(stem, stem.size() - kShortestPart))
      return true;
  }
  return false;
}

bool BeginsCompounds(std::string_view word) {
  if (word.size() < kShortestPart) return false;
  if (HasSuffix(word, {"ungs", "heits", "keits", "schafts", "ions", "täts"})) return true;
  const auto isNoun = [](const std::string& part) {
    return NounOf(part).whole ||
           (part.size() > kShortestWhole && IsNounFrom(part, part.size() - kShortestWhole));
  };
  const std::string upper = WithUpperStart(word);
  for (const std::string_view ending : {"s", "es", "n", "en", "er"}) {
    if (!upper.ends_with(ending) || upper.size() < ending.size() + kShortestPart) continue;
    if (isNoun(upper.substr(0, upper.size() - ending.size()))) return true;
  }
  for (const std::string_view ending : {"", "e", "en", "n", "ung"}) {
    if (isNoun(upper + std::string(ending))) return true;  // "Miet", "Fahr", "Rechn"
  }
  return IsOneOf(upper, {"Haupt", "Neben",  "Sonder",  "Gesamt", "Privat", "Ober",  "Unter", "Vor",
                         "Nach",  "Rück",   "Aus",     "Ein",    "Auf",    "Über",  "Mit",   "Groß",
                         "Klein", "Neu",    "Alt",     "Hoch",   "Tief",   "Voll",  "Teil",  "Selbst",
                         "Fach",  "Höchst", "Mindest", "Inter",  "Bundes", "Landes"});
}

Noun NounOf(std::string_view word) {
  if (word.empty() || word.size() > kLongestWord) return {};
  unsigned form = LookUpFirst(word);
  if (form == 0) form = LookUp(word);
  if (form == 0) form = LookUpLongGenitive(word);
  if (form == 0) form = LookUpMore(word);
  if (form == 0) form = LookUpMoreWithEnding(word);
  const bool whole = form != 0;
  if (form == 0) form = LookUpLastPart(word);
  // "Kalenderjahres".
  if (form == 0 && word.ends_with("es")) {
    form = LookUpLastPart(word.substr(0, word.size() - 2)) & (kMasculine | kNeuter);
    if (form != 0) form |= kGenitive;
  }
  Noun noun = FromForm(form);
  noun.known = form != 0;
  noun.whole = whole;
  if (form != 0) return noun;
  noun = FromForm(GuessByEnding(word));
  noun.guessed = noun.singular || noun.plural;
  return noun;
}

bool IsWeakNominative(std::string_view word) {
  const bool weak = HasSuffix(word, {"e", "ent", "ant", "ist", "at", "et", "it", "ot", "oph", "arch"}) ||
                    IsOneOf(word, {"Mensch", "Herr", "Bär", "Held", "Nachbar", "Bauer", "Fürst", "Graf",
                                   "Prinz", "Narr", "Christ", "Zar", "Fink", "Spatz"});
  const Noun noun = NounOf(word);
  if (!weak || !noun.whole || !noun.singular || noun.gender != Gender::Masculine) return false;
  const Noun bent = NounOf(std::string(word) + (word.ends_with('e') || word.ends_with("ar") ? "n" : "en"));
  return bent.whole && bent.singular && bent.plural && bent.gender == Gender::Masculine;
}

}  // namespace lorelin
