#include "german/clauses.h"

#include "german/grammar.h"
#include "german/units.h"
#include "german/wordLists.h"

namespace lorelin {

bool NamesAccountBehind(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 8;  // tokens
  for (std::size_t at = i; at < i + kNear; ++at) {
    if (HasSuffix(tokens.View(at), {"Konto", "konto", "Kto", "Bankverbindung"})) return true;
  }
  return false;
}

bool SendsSomething(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 24;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i + kNear && at < tokens.Count(); ++at) {
    const std::string word = WithLowerStart(tokens.View(at));
    for (const std::string_view stem : {"send", "schick", "richt", "wend", "zahl", "adress", "liefer",
                                        "überw", "schreib", "weiterleit", "zurück", "geh"}) {
      if (word.find(stem) != std::string::npos) return true;
    }
  }
  return false;
}

// "In 1 Becher geben": a verb of the clause tells that something goes there.
bool MovesSomething(const Tokens& tokens, std::size_t i) {
  constexpr std::size_t kNear = 32;  // tokens
  for (std::size_t at = i > kNear ? i - kNear : 0; at < i + kNear && at < tokens.Count(); ++at) {
    const std::string word = WithLowerStart(tokens.View(at));
    for (const std::string_view stem :
         {"geben", "gieß", "füll", "leg", "stellen", "stellt", "schütt", "tauch", "steck", "umfüll",
          "einfüll", "eingieß", "überweis", "überw"}) {
      if (word.starts_with(stem)) return true;
    }
  }
  return false;
}

// "Auf 1 Arzt kommen 500 Einwohner".
bool FallsTo(const Tokens& tokens, std::size_t first) {
  constexpr std::size_t kNear = 10;  // tokens
  // "Runde auf 1 Stelle", "warten auf 1 Platz".
  for (std::size_t at = first > kNear ? first - kNear : 0; at < first + kNear; ++at) {
    if (HasPrefix(WithLowerStart(tokens.View(at)),
                  {"runde", "gerundet", "aufgerundet", "kürz", "gekürzt", "begrenz", "beschränk", "reduzier",
                   "verteil", "warte", "hoff"}))
      return true;
  }
  // "Im Schnitt kommen auf 1 Arzt 500 Einwohner".
  const std::size_t preposition = tokens.WordIndexBefore(first);
  if (preposition != Tokens::kNone &&
      IsOneOf(tokens.WordBefore(preposition), {"kommen", "kommt", "entfallen", "entfällt", "entfielen"}))
    return true;
  for (std::size_t at = first; at < first + kNear; ++at) {
    if (IsOneOf(tokens.View(at), {"kommen", "kommt", "kamen", "kam", "entfallen", "entfällt", "entfielen"}))
      return true;
  }
  return false;
}

bool RepeatsPrice(const Tokens& tokens, std::size_t first, std::size_t behind) {
  constexpr int kSteps = 8;
  const std::size_t price = tokens.Skip(behind);
  std::size_t at = tokens.Before(first);
  if (at == Tokens::kNone || !IsOneOf(tokens.View(at), {",", "und", "u"}) ||
      !(tokens.IsNumber(price) || tokens.Is(price, "€")))
    return false;
  for (int step = 0; step < kSteps; ++step) {
    at = tokens.Before(at);
    if (at == Tokens::kNone || IsOneOf(tokens.View(at), {":", ";", "("})) return false;
    if (IsOneOf(tokens.View(at), {"kostet", "kosten", "kostete", "kosteten", "wiegt", "wiegen", "wog",
                                  "misst", "dauert", "dauern", "dauerte"}))
      return true;
  }
  return false;
}

bool IsWhatIsLeft(const Tokens& tokens, std::size_t first, std::size_t behind) {
  constexpr int kWords = 4;
  const std::size_t next = tokens.Skip(behind);
  if (!tokens.IsLast(behind) && !IsOneOf(tokens.View(next), {".", ",", "!", "?", "bis", "Zeit", "für", "um"}))
    return false;
  bool left = false;
  bool owner = false;
  std::size_t at = tokens.WordIndexBefore(first);
  for (int word = 0; word < kWords && at != Tokens::kNone; ++word) {
    const std::string small = WithLowerStart(tokens.View(at));
    left = left || IsOneOf(small, {"bleibt", "blieb", "fehlt", "fehlte", "verbleibt"});
    owner = owner || IsOneOf(small, {"es", "mir", "dir", "ihm", "uns", "euch", "ihnen", "dann"});
    at = tokens.WordIndexBefore(at);
  }
  return left && owner;
}

bool GoesToSomebody(const Tokens& tokens, std::size_t first) {
  constexpr std::size_t kNear = 16;  // tokens
  if (IsOneOf(tokens.View(tokens.Skip(first + 1)),
              {"Stelle", "Ort", "Seite", "Ecke", "Tag", "Abend", "Nachmittag", "Vormittag", "Morgen",
               "Wochenende", "Standort"}))
    return false;
  for (std::size_t at = first > kNear ? first - kNear : 0; at < first + kNear && at < tokens.Count(); ++at) {
    if (HasPrefix(
            WithLowerStart(tokens.View(at)),
            {"send",    "gesend",   "schick",      "geschick", "verschick", "ging",          "geht",
             "gehen",   "gegangen", "verkauf",     "spende",   "gespendet", "vergab",        "vergeben",
             "verlieh", "schrieb",  "geschrieben", "übergab",  "übergeben", "weitergegeben", "verschenk",
             "vermiet", "dachte",   "denk",        "gedacht",  "erinner",   "glaub"}))
      return true;
  }
  return false;
}

bool SpeaksAboutOne(const Tokens& tokens, std::size_t first) {
  const std::size_t next = tokens.Skip(first + 1);
  return tokens.Is(first, "1") && IsOneOf(tokens.WordBefore(first), {"über", "Über"}) &&
         !UnitAt(tokens, next) && !MultipleAt(tokens, next) &&
         !IsOneOf(tokens.View(next), {"Sekunde", "Minute", "Stunde", "Tag", "Nacht", "Woche", "Monat",
                                      "Quartal", "Jahr", "Jahrzehnt", "Jahrhundert", "Drittel", "Dutzend"});
}

// "auf 1,35 € steigen".
bool IsPriceAt(const Tokens& tokens, std::size_t first) {
  std::size_t at = first;
  while (tokens.IsNumber(at) || IsOneOf(tokens.View(at), {",", "."})) ++at;
  return CurrencyAt(tokens, tokens.Skip(at)).has_value();
}

bool RisesOrFalls(const Tokens& tokens, std::size_t first) {
  constexpr std::size_t kNear = 16;  // tokens
  for (std::size_t at = first > kNear ? first - kNear : 0; at < first + kNear; ++at) {
    if (HasPrefix(tokens.View(at), {"fiel", "fällt", "fallen", "gefallen", "sank", "sinkt", "sinken",
                                    "gesunken", "rutsch", "stürz", "drück", "gerutscht", "gedrückt"}))
      return true;
  }
  return false;
}

namespace {

bool IsPluralModalVerb(std::string_view word) {
  return IsOneOf(word, {"können", "müssen", "sollen", "dürfen", "wollen", "mögen", "möchten", "sollten",
                        "könnten", "müssten", "dürften", "konnten", "mussten"});
}

}  // namespace

bool IsModalVerb(std::string_view word) {
  return IsPluralModalVerb(word) || IsOneOf(word, {"muss", "soll", "kann", "darf", "will", "mag"});
}

bool IsFiniteVerb(std::string_view word) {
  return IsVerb(word) || IsLinkingVerb(word) || IsModalVerb(word);
}

bool IsPronoun(std::string_view word) {
  return IsOneOf(word, {"ich", "du", "er", "sie", "es", "wir", "ihr", "man", "Sie"});
}

bool OpensItem(const Tokens& tokens, std::size_t i) {
  const std::size_t before = tokens.Before(i);
  return before != Tokens::kNone && (tokens.IsNumber(before) || IsOneOf(tokens.View(before), {".", ")"}));
}

bool IsRelative(std::string_view word) {
  return IsOneOf(word, {"der", "die", "das", "welcher", "welche", "welches", "wer", "was", "Wer"});
}

std::size_t BeforeBracket(const Tokens& tokens, std::size_t closing) {
  constexpr std::size_t kLong = 30;  // tokens
  for (std::size_t at = closing; at > 0 && closing - at < kLong; --at) {
    if (tokens.Is(at, "(")) return tokens.Before(at);
  }
  return Tokens::kNone;
}

namespace {

constexpr int kWordsInClause = 10;  // to either side of a verb

// A small word of no closed class: a verb, an adverb, an adjective.
bool MayBeVerb(std::string_view word) {
  if (IsOneOf(word, {"muss", "müssen", "soll", "sollen", "kann", "können", "darf", "dürfen", "will", "wollen",
                     "möchte", "möchten", "sollte", "sollten", "musste", "mussten", "konnte", "konnten"}))
    return true;
  return !IsUpperWord(word) && word.size() > 2 && !StartsSentences(WithUpperStart(word)) &&
         !IsDegreeWord(word) && !IsDeterminer(word) && !CaseOfPreposition(word);
}

// "Reserviere 1 Tisch": an order, or what a buyer or seller writes.
bool IsOrder(std::string_view word) {
  return HasSuffix(word, {"e", "en"}) && !StartsSentences(word) && !NounOf(word).whole;
}

// "hatte 3 Schwestern, aber nur 1 Bruder": the verb holds for what stands behind such a comma as well.
bool GoesOnBehindComma(const Tokens& tokens, std::size_t comma) {
  return tokens.Is(comma, ",") && IsOneOf(tokens.View(tokens.Skip(comma + 1)), {"aber", "sondern", "jedoch"});
}

bool IsAdverbOfTimeOrPlace(std::string_view word) {
  return IsOneOf(
      word, {"heute",        "gestern", "vorgestern", "morgen",       "dann",    "danach",   "dort",
             "hier",         "nun",     "jetzt",      "später",       "zuletzt", "abends",   "nachts",
             "morgens",      "mittags", "früher",     "damals",       "zuerst",  "endlich",  "plötzlich",
             "daraufhin",    "täglich", "jährlich",   "leider",       "zudem",   "außerdem", "schließlich",
             "anschließend", "bald",    "kürzlich",   "gleichzeitig", "draußen", "drinnen"});
}

// "Letzte Woche", "Jeden Tag".
bool TellsWhen(std::string_view adjective, std::string_view noun) {
  return HasPrefix(adjective, {"letzte", "vorige", "vergangene", "nächste", "jede", "diese"}) &&
         HasSuffix(noun, {"Woche", "Monat", "Jahr", "Nacht", "Abend", "Morgen", "Tag", "tag", "woch",
                          "Sommer", "Winter", "Herbst", "Mal"});
}

// "Dem Ort", "Ihrem Verein" at the beginning are no subject.
bool IsDativeArticle(std::string_view word) {
  return IsOneOf(word, {"dem", "einem", "jedem", "diesem", "seinem", "ihrem", "unserem", "meinem"});
}

// "Uns", "Ihm".
bool IsObjectPronoun(std::string_view word) {
  return IsOneOf(word, {"mir", "dir", "ihm", "uns", "euch", "ihnen", "mich", "dich", "ihn"});
}

}  // namespace

bool VerbAwaitsSubject(const Tokens& tokens, std::size_t i) {
  // "Im Hof brannten 3 Autos und 1 Schuppen": what the first of a list is, the others are.
  for (int step = 0; step < 3; ++step) {
    const std::size_t joint = tokens.Before(i);
    const std::size_t noun = joint == Tokens::kNone ? joint : tokens.Before(joint);
    const std::size_t number = noun == Tokens::kNone ? noun : tokens.Before(noun);
    if (number == Tokens::kNone || !IsOneOf(tokens.View(joint), {"und", ",", "sowie"}) ||
        !tokens.IsCapital(noun) || !tokens.IsNumber(number))
      break;
    i = number;
  }
  std::size_t verb = tokens.Before(i);
  const bool reflexive =
      verb != Tokens::kNone && tokens.Is(verb, "sich");  // "Daraus lässt sich 1 Topf machen"
  for (int step = 0;
       step < 3 && verb != Tokens::kNone && (IsDegreeWord(tokens.View(verb)) || tokens.Is(verb, "sich"));
       ++step)
    verb = tokens.Before(verb);
  if (verb == Tokens::kNone || !tokens.IsWord(verb) || tokens.IsCapital(verb)) return false;
  const auto word = tokens.View(verb);
  const bool past = HasSuffix(word, {"te", "ten"}) && word != "bitte" && !IsOrdinalWord(word);
  // "Im Stall leben 1 Esel und 2 Ziegen"
  const bool many = word.ends_with("en") && word.size() > 4 && !CaseOfPreposition(word) &&
                    !StartsSentences(WithUpperStart(word)) && !IsDegreeWord(word) && !IsDeterminer(word) &&
                    !IsOneOf(word, {"zusammen", "daneben", "hinten", "außen"});
  // "Vor dem Haus parkt 1 Bus"
  const bool present =
      word.ends_with('t') && word.size() > 4 && tokens.WordIndexBefore(verb) != Tokens::kNone &&
      tokens.IsCapital(tokens.WordIndexBefore(verb)) && !CaseOfPreposition(word) &&
      !StartsSentences(WithUpperStart(word)) && !IsDegreeWord(word) &&
      !IsOneOf(word, {"selbst", "meist", "nicht", "überhaupt", "zuerst", "längst", "direkt"});
  const bool verbal =
      (IsVerb(word) || TakesObject(word) || past || many || present || (reflexive && word.ends_with('t'))) &&
      !IsPronoun(word) && !IsOneOf(word, {"bitte", "heißt"}) &&
      !(word.ends_with('e') && !past);  // "kaufe" has its subject
  std::size_t first = verb;
  for (int step = 0; step < 2 * kWordsInClause; ++step) {
    const std::size_t before = tokens.Before(first);
    const bool point = before != Tokens::kNone && before > 0 && tokens.Is(before, ".");  // "3.", "Kontr."
    if (before == Tokens::kNone || !(tokens.IsWord(before) || tokens.IsNumber(before) || point)) break;
    first = before;
    if (IsPronoun(tokens.View(first)) || IsFiniteVerb(tokens.View(first))) return false;
  }
  if (!verbal || first == verb || !tokens.IsCapital(first)) return false;
  const std::string opening = WithLowerStart(tokens.View(first));
  return CaseOfPreposition(opening) || IsOneOf(opening, {"im", "am", "zum", "zur", "beim", "vom"}) ||
         (reflexive && StartsSentences(tokens.View(first))) || IsDativeArticle(opening) ||
         (first + 2 == verb && IsObjectPronoun(opening)) ||
         (first + 2 == verb && IsAdverbOfTimeOrPlace(opening)) ||
         (first + 4 == verb && TellsWhen(opening, tokens.View(first + 2)));
}

bool IsInfinitive(const Tokens& tokens, std::size_t i) {
  const auto word = tokens.View(i);
  return tokens.IsWord(i) && !IsUpperWord(word) && word.size() > 4 && HasSuffix(word, {"en", "ern", "eln"});
}

namespace {

// "Der Mann, der dort stand, trug 1 Hut": the sentence goes on with its verb behind the clause between.
bool GoesOnBehindRelative(const Tokens& tokens, std::size_t comma) {
  const auto verb = tokens.View(tokens.Skip(comma + 1));
  if (!(IsVerb(verb) || TakesObject(verb) || HasSuffix(verb, {"te", "ten"})) || IsPronoun(verb)) return false;
  for (std::size_t at = tokens.Before(comma); at != Tokens::kNone; at = tokens.Before(at)) {
    if (!tokens.Is(at, ",")) {
      if (tokens.Before(at) == Tokens::kNone) return IsOneOf(tokens.View(at), {"Wer", "Was"});
      continue;
    }
    const std::size_t pronoun = tokens.Skip(at + 1);
    return IsRelative(tokens.View(pronoun)) || IsRelative(tokens.View(tokens.Skip(pronoun + 1)));
  }
  return false;
}

// Nothing but adverbs and phrases with prepositions stand before: "Anschließend", "Zum Schluss".
bool OnlyAdverbsBefore(const Tokens& tokens, std::size_t first) {
  std::size_t at = tokens.Before(first);
  for (int step = 0; step < kWordsInClause && at != Tokens::kNone; ++step) {
    if (IsOneOf(tokens.View(at), {".", "!", "?", ":", ";", ",", "(", "–"})) return true;
    const std::string word = WithLowerStart(tokens.View(at));
    if (!(tokens.IsWord(at) || tokens.IsNumber(at)) || IsFiniteVerb(word)) return false;
    const std::size_t before = tokens.Before(at);
    if (tokens.IsNumber(at) && (before == Tokens::kNone || tokens.OpensClause(at))) return true;
    const bool opens = before == Tokens::kNone || tokens.OpensClause(at);
    if (opens)
      return StartsSentences(WithUpperStart(word)) || CaseOfPreposition(word) || word.ends_with("end") ||
             word.ends_with('s');
    at = before;
  }
  return at == Tokens::kNone;
}

}  // namespace

bool OpensRelativeClause(const Tokens& tokens, std::size_t first) {
  std::size_t pronoun = tokens.Before(first);
  while (pronoun != Tokens::kNone && IsDegreeWord(tokens.View(pronoun))) pronoun = tokens.Before(pronoun);
  if (pronoun == Tokens::kNone || !IsRelative(tokens.View(pronoun))) return false;
  if (tokens.Is(pronoun, "Wer") && tokens.OpensClause(pronoun))
    return true;  // "Wer 1 Fehler macht, verliert"
  const std::size_t comma = tokens.Before(pronoun);
  const std::size_t noun = comma == Tokens::kNone ? comma : tokens.Before(comma);
  return noun != Tokens::kNone && tokens.Is(comma, ",") && tokens.IsCapital(noun);
}

bool TellsHowFar(const Tokens& tokens, std::size_t first, std::size_t behind) {
  const std::size_t next = tokens.Skip(behind);
  const bool linked =
      IsOneOf(tokens.WordBefore(first), {"ist", "sind", "war", "waren", "fehlt", "fehlte", "bleibt", "blieb",
                                         "reicht", "genügt", "bleiben", "nur", "noch"});
  return !linked && behind > 0 && !tokens.OpensLine(first) &&
         IsOneOf(tokens.View(next), {"vor", "hinter", "nach", "über", "unter"}) &&
         HasSuffix(tokens.View(behind - 1), {"Punkt", "Zähler", "Platz", "Rang", "Tag", "Monat", "Meter",
                                             "Kilometer", "meter", "Grad", "Schlag"});
}

bool RelativeAwaitsSubject(const Tokens& tokens, std::size_t first) {
  std::size_t pronoun = tokens.Before(first);
  while (pronoun != Tokens::kNone && IsDegreeWord(tokens.View(pronoun))) pronoun = tokens.Before(pronoun);
  if (pronoun == Tokens::kNone) return false;
  const auto word = tokens.View(pronoun);
  const std::size_t before = tokens.Before(pronoun);
  const bool phrase =
      before != Tokens::kNone && tokens.IsWord(before) && CaseOfPreposition(tokens.View(before));
  const std::size_t comma = phrase ? tokens.Before(before) : before;
  const std::size_t noun = comma == Tokens::kNone ? comma : tokens.Before(comma);
  if (noun == Tokens::kNone || !tokens.Is(comma, ",") || !tokens.IsCapital(noun)) return false;
  if (phrase) return IsRelative(word) || IsOneOf(word, {"dem", "den", "denen", "welchem", "welchen"});
  const bool ofWoman = word == "der" && NounOf(tokens.View(noun)).gender == Gender::Feminine &&
                       NounOf(tokens.View(noun)).singular;
  return ofWoman || IsOneOf(word, {"dem", "den", "denen", "welchem", "welchen"});
}

bool VerbAsksForObject(const Tokens& tokens, std::size_t i, bool anyVerb) {
  if (anyVerb && VerbAwaitsSubject(tokens, i)) return false;
  std::size_t at = tokens.Before(i);
  bool subject = false;
  bool verb = false;
  for (int step = 0; step < 2 * kWordsInClause && at != Tokens::kNone; ++step) {
    if (tokens.Is(at, ")")) at = BeforeBracket(tokens, at);  // "bringt 3 Hefte (A5) und 1 Block mit"
    if (at == Tokens::kNone) return false;
    const bool list =
        tokens.Is(at, ",") && (tokens.IsNumber(at + 2) || tokens.IsNumber(at + 1));  // "1,5 kg, 1 l"
    if (anyVerb && tokens.Is(at, ",") && GoesOnBehindRelative(tokens, at)) return true;
    if (!list && !GoesOnBehindComma(tokens, at) && IsOneOf(tokens.View(at), {":", ";", "(", "–", ","}))
      return false;
    const std::string word = WithLowerStart(tokens.View(at));
    if (IsLinkingVerb(word)) return false;
    if (TakesObject(word)) return true;
    const std::size_t before = tokens.Before(at);
    const bool named = before == Tokens::kNone || !CaseOfPreposition(tokens.View(before));
    if (anyVerb && tokens.IsCapital(at) && before == Tokens::kNone && IsOrder(tokens.View(at))) return true;
    subject = subject || (tokens.IsCapital(at) && named && !StartsSentences(tokens.View(at)));
    subject = subject || tokens.Is(at, "Sie");
    // "Lassen Sie 1 Monat verstreichen".
    if (anyVerb && tokens.Is(at, "Sie") && before != Tokens::kNone && tokens.OpensClause(before) &&
        HasSuffix(tokens.View(before), {"en", "ern", "eln"}))
      return true;
    verb = verb || (tokens.IsWord(at) && MayBeVerb(tokens.View(at)));
    at = before;
  }
  return anyVerb && subject && verb;
}

bool InfinitiveEnds(const Tokens& tokens, std::size_t first, std::size_t behind) {
  // "Zwiebel hacken und 1 Apfel reiben".
  const std::size_t joint = tokens.Before(first);
  const bool second = joint != Tokens::kNone && IsOneOf(tokens.View(joint), {"und", "u"}) &&
                      tokens.Before(joint) != Tokens::kNone && IsInfinitive(tokens, tokens.Before(joint));
  if (!tokens.OpensClause(first) && !second && !OnlyAdverbsBefore(tokens, first)) return false;
  if (VerbAwaitsSubject(tokens, first)) return false;
  std::string_view last;
  for (std::size_t i = behind; i < tokens.Count() && i < behind + 40; ++i) {
    // "500 g Mehl, 1 Würfel Hefe und 1 Ei verkneten": the verb stands behind the whole list.
    const bool list = tokens.Is(i, ",") && (tokens.IsNumber(i + 2) || tokens.IsCapital(i + 2));
    if (list) continue;
    if (tokens.IsWord(i)) {
      last = tokens.View(i);
      if (IsLinkingVerb(last) || IsPluralModalVerb(last)) return false;
    } else if (IsOneOf(tokens.View(i), {",", ";", ":", "("})) {
      break;
    }
  }
  return !last.empty() && !IsUpperWord(last) && HasSuffix(last, {"en", "ern", "eln"}) && !IsDegreeWord(last);
}

}  // namespace lorelin
