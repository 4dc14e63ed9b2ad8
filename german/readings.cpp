#include "german/readings.h"

#include "german/abbreviations.h"
#include "german/addresses.h"
#include "german/alternatives.h"
#include "german/amounts.h"
#include "german/clauses.h"
#include "german/codes.h"
#include "german/cutNouns.h"
#include "german/cutWords.h"
#include "german/dates.h"
#include "german/gluedWords.h"
#include "german/grammar.h"
#include "german/labels.h"
#include "german/loneUnits.h"
#include "german/numbers.h"
#include "german/ordinals.h"
#include "german/plainNumbers.h"
#include "german/romans.h"
#include "german/scripture.h"
#include "german/signs.h"
#include "german/spans.h"
#include "german/times.h"
#include "german/units.h"
#include "german/wordLists.h"

namespace lorelin {
namespace {

bool HasNounOrGovernor(const Tokens& tokens, std::size_t i, std::size_t noun) {
  return noun != Tokens::kNone || HasDeterminer(tokens, i);
}

bool LooksLikeWomansName(std::string_view name) {
  if (HasSuffix(name, {"a",       "ine",    "anne",   "ike",    "ilde",  "trud",  "beth",  "lie",
                       "rie",     "ette",   "ute",    "Ute",    "Heide", "Silke", "Anke",  "Antje",
                       "Imke",    "Birgit", "Ingrid", "Astrid", "Doris", "Iris",  "Karin", "Katrin",
                       "Kerstin", "Carmen", "Ellen",  "Susann", "Marion"}))
    return !IsOneOf(name, {"Luca", "Joshua", "Noah", "Sascha", "Mika"});
  return false;
}

// "Diplomingenieurin" before a woman's name or behind "Frau".
std::string ForWoman(const Tokens& tokens, std::size_t i, std::size_t end, std::string title) {
  const auto name = tokens.View(tokens.Skip(end));
  const bool woman = IsOneOf(tokens.WordBefore(i), {"Frau", "Architektin", "Gutachterin"}) ||
                     (LooksLikeWomansName(name) && !StartsSentences(name));
  if (!woman || title.ends_with("frau")) return title;
  if (title.ends_with('e')) title.pop_back();
  if (title.ends_with("kaufmann")) return title.substr(0, title.size() - 4) + "frau";
  return title + "in";
}

// "zu 1) und 2)".
bool NamesSeveral(const Tokens& tokens, std::size_t end) {
  const std::size_t zu = tokens.Skip(end);
  const std::size_t joint = tokens.Skip(zu + 4);
  return tokens.Is(zu, "zu") && tokens.IsNumber(zu + 2) && IsOneOf(tokens.View(zu + 3), {")", "."}) &&
         IsOneOf(tokens.View(joint), {"und", "bis", "u"});
}

// "Bericht d. Vorstands": what belongs to the noun before.
bool BelongsToNounBefore(const Tokens& tokens, std::size_t i) {
  std::size_t before = tokens.Before(i);
  if (before == Tokens::kNone) return false;
  if (tokens.Is(before, "%")) return true;                                  // "20 % d. Kosten"
  if (tokens.IsNumber(before) && LabelBefore(tokens, before)) return true;  // "Nr. 3 d. Serie"
  if (tokens.Is(before, ".") && before > 0) --before;                       // "Zeugn. d. Klasse"
  return tokens.IsCapital(before) && !CaseOfPreposition(tokens.View(before)) &&
         !(tokens.OpensClause(before) && StartsSentences(tokens.View(before)));
}

// "von der Bekl.", "Antrag der Bekl.": behind a noun or preposition "der" is that of a woman.
bool IsOfWoman(const Tokens& tokens, std::size_t i) {
  const std::size_t article = tokens.WordIndexBefore(i);
  if (article == Tokens::kNone || !tokens.Is(article, "der")) return false;
  const auto before = tokens.WordBefore(article);
  return IsUpperWord(before) || CaseOfPreposition(before).has_value();
}

// "sog." with the ending of its case; an adverb where no noun follows.
std::string BentAdjective(const Tokens& tokens, std::size_t i, std::size_t end, const std::string& words) {
  if (IsOneOf(words, {"Vorsitzend", "Beklagt", "Angeklagt"})) {
    const bool many = words != "Vorsitzend" && NamesSeveral(tokens, end);
    const Gender gender = IsOfWoman(tokens, i) ? Gender::Feminine : Gender::Masculine;
    return words + std::string(EndingAt(tokens, i, {gender, many, false, true}));
  }
  if (words == "angefangen" && IsOneOf(tokens.WordBefore(i), {"je", "Je", "pro"})) {
    const Agreement each = AgreementAt(tokens, NounBehind(tokens, tokens.Skip(end)));
    return words + (each.gender == Gender::Masculine ? "en" : (each.gender == Gender::Feminine ? "e" : "es"));
  }
  const std::size_t number = tokens.Before(i);
  const bool counted = number != Tokens::kNone && tokens.IsNumber(number);
  if (IsOneOf(words, {"Jugendlich", "Erwachsen"}) && counted && tokens.Is(number, "1"))  // "für 1 Erw."
    return words + (OneBefore(tokens, number, i + 1, AgreementOf(Gender::Masculine)) == "ein" ? "er" : "en");
  if (IsOneOf(words, {"Jugendlich", "Erwachsen"}) || (words == "Abgeordnet" && counted))  // "mit 47 Abg."
    return words +
           std::string(EndingAt(tokens, counted ? number : i, {Gender::Masculine, true, false, true, true}));
  const std::size_t noun = NounBehind(tokens, tokens.Skip(end));
  if (!HasNounOrGovernor(tokens, i, noun)) return words;
  // "(1865, dt. Von der Erde zum Mond)": the title in another language.
  if (words.ends_with("sch") && tokens.IsCapital(tokens.Skip(end)) &&
      StartsSentences(tokens.View(tokens.Skip(end))))
    return words;
  // "(lat. Lynx lynx)": the language of a name.
  if (i > 0 && tokens.Is(i - 1, "(") && words.ends_with("isch") && noun != Tokens::kNone &&
      !NounOf(tokens.View(noun)).known &&
      !HasSuffix(tokens.View(noun), {"in", "er", "ist", "or", "ent", "ant"}))
    return words;
  // "i. H. v. mtl. 50 €".
  const bool sum = noun == Tokens::kNone && tokens.IsNumber(tokens.Skip(end));
  if (sum && tokens.WordBefore(i).empty()) return words;
  Agreement agreement = AgreementAt(tokens, noun);
  // "2 geh. EL".
  const std::size_t count = tokens.Before(i);
  if (noun != Tokens::kNone && count != Tokens::kNone && tokens.IsNumber(count, 1, 3) &&
      !tokens.Is(count, "1") && UnitAt(tokens, noun))
    agreement = {Gender::Masculine, true, false, true};
  // Most words that no lexicon knows are masculine, and those with an "s" are many.
  if (!agreement.known)
    agreement = {
        Gender::Masculine,
        noun == Tokens::kNone || (tokens.View(noun).ends_with('s') && WithLowerStart(words) != "heilig"),
        false, true};
  if (noun != Tokens::kNone && tokens.View(noun).ends_with('a'))
    agreement = {Gender::Feminine, false, false, true};
  return words + std::string(EndingAt(tokens, i, agreement));
}

// "a. d. 12. Jh.": a preposition of one letter before the token.
bool IsCutPreposition(const Tokens& tokens, std::size_t i) {
  const std::size_t point = tokens.Before(i);
  return point != Tokens::kNone && point > 0 && tokens.Is(point, ".") &&
         IsOneOf(tokens.View(point - 1), {"a", "i", "v", "n", "f", "b", "m", "s", "z"});
}

// "des 19. Jh.".
bool StandsInGenitive(const Tokens& tokens, std::size_t i) {
  std::size_t at = tokens.Before(i);
  if (at == Tokens::kNone) return false;
  if (tokens.Is(at, ".") && at > 0) --at;
  const std::size_t article = tokens.Before(at);
  // "Ende d. 16. Jh.", but "seit d. 16. Jh."
  if (article != Tokens::kNone && article > 0 && tokens.Is(article, ".") && tokens.Is(article - 1, "d"))
    return !CaseOfPreposition(tokens.WordBefore(article - 1)) && !IsCutPreposition(tokens, article - 1);
  return tokens.WordBefore(at) == "des" || tokens.WordBefore(at) == "eines";
}

// "Deutsch u. a. Sprachen": between a noun and many others.
bool JoinsPlural(const Tokens& tokens, std::size_t i, std::size_t end) {
  const std::size_t before = tokens.WordIndexBefore(i);
  const std::size_t next = tokens.Skip(end);
  if (before == Tokens::kNone || !tokens.IsCapital(before) || !tokens.IsCapital(next)) return false;
  const Noun noun = NounOf(tokens.View(next));
  const Noun first = NounOf(tokens.View(before));
  return noun.known && noun.plural && (!noun.singular || (first.known && first.plural && !first.singular));
}

// "Peter u. a. kamen".
bool ManyDo(std::string_view verb) {
  return IsOneOf(verb, {"kamen", "waren", "sind", "haben", "hatten", "wurden", "werden", "gingen", "kommen",
                        "sagten", "fordern", "spielten", "spielen", "feierten", "sprachen", "nahmen"});
}

// "Karl Weber u. a., Berlin".
bool EndsNames(const Tokens& tokens, std::size_t i, std::size_t end) {
  const std::size_t before = tokens.WordIndexBefore(i);
  if (before == Tokens::kNone || !tokens.IsCapital(before)) return false;
  const bool initial = before >= 3 && tokens.Is(before - 2, ".") && tokens.View(before - 3).size() == 1;
  return (initial || !NounOf(tokens.View(before)).known) &&
         (tokens.IsLast(end - 1) || IsOneOf(tokens.View(end), {",", ")", "("}) ||
          ManyDo(tokens.View(tokens.Skip(end))));
}

// "hrsg. von K. Müller u. a.".
bool NamesInDative(const Tokens& tokens, std::size_t i) {
  std::size_t at = tokens.Before(i);
  for (int step = 0; step < 6 && at != Tokens::kNone; ++step) {
    if (IsOneOf(tokens.View(at), {"von", "mit", "bei", "v"})) return true;
    at = tokens.Before(at);
  }
  return false;
}

bool IsManOrThing(const Tokens& tokens, std::size_t noun) {
  const Noun what = NounOf(tokens.View(noun));
  return what.whole && what.singular && what.gender != Gender::Feminine;
}

// "Gruß a. d. Urlaub", "a. d. 12. Jh.", "stammt a. d. Zeit", but "Halle a. d. Saale".
std::string OutOfOrAt(const Tokens& tokens, std::size_t i, std::size_t end) {
  const std::size_t next = tokens.Skip(end);
  const bool ordinal = tokens.IsNumber(next, 1, 2) && tokens.Is(next + 1, ".");
  const Agreement noun = AgreementAt(tokens, ordinal ? NounOfOrdinal(tokens, next + 2) : next);
  const bool manOrThing =
      ordinal ? noun.known && noun.gender != Gender::Feminine : IsManOrThing(tokens, next);
  if (manOrThing) return "aus dem";
  const bool origin =
      IsOneOf(tokens.WordBefore(i), {"stammt", "stammen", "stammte", "stammten", "kommt", "kommen"});
  return ordinal || origin ? "aus der" : "an der";
}

// "Preußen", "Bayern", "Deutschland".
bool LooksLikePlace(std::string_view word) {
  return HasSuffix(word,
                   {"ern", "ßen", "sen", "land", "burg", "heim", "ingen", "stadt", "berg", "reich", "ien"}) &&
         NounOf(word).gender == Gender::Neuter;
}

bool IsAllCapsOrLetter(std::string_view word) {
  return IsAllCaps(word) || (word.size() == 1 && IsUpperWord(word));
}

// "v. Mieter", but "Otto v. Stein" and "v. Herrn Roth".
std::string VonOrVom(const Tokens& tokens, std::size_t i, std::size_t end) {
  const std::size_t before = tokens.WordIndexBefore(i);
  const bool name = before != Tokens::kNone && tokens.IsCapital(before) &&
                    (!tokens.OpensClause(before) ||
                     (!StartsSentences(tokens.View(before)) && !NounOf(tokens.View(before)).whole));
  // "Friedrich II. v. Preußen", "v. Bayern".
  const std::size_t sign = tokens.Before(i);
  const bool ruler =
      sign != Tokens::kNone && sign > 0 && tokens.Is(sign, ".") && IsAllCapsOrLetter(tokens.View(sign - 1));
  // "v. Do., 2.5.", but "v. Mo. bis Mi."
  const std::size_t weekday = tokens.Skip(end);
  if (IsOneOf(tokens.View(weekday), {"Mo", "Di", "Mi", "Do", "Fr", "Sa", "So"}) ||
      tokens.View(weekday).ends_with("tag")) {
    std::size_t date = weekday + 1;
    while (tokens.IsBlank(date) || IsOneOf(tokens.View(date), {".", ","})) ++date;
    return DateShapeAt(tokens, date) ? "vom" : "von";
  }
  if (ruler || MonthAt(tokens, tokens.Skip(end)) || LooksLikePlace(tokens.View(tokens.Skip(end))))
    return "von";
  const bool person = IsOneOf(tokens.View(tokens.Skip(end)), {"Herrn", "Herr", "Frau", "Dr", "Prof"});
  return !name && !person && IsManOrThing(tokens, tokens.Skip(end)) ? "vom" : "von";
}

// "5 Min. z. S-Bahn".
bool ToHer(const Tokens& tokens, std::size_t end) {
  const std::size_t noun = tokens.Skip(end);
  const Agreement agreement = tokens.IsCapital(noun) ? AgreementAt(tokens, noun) : Agreement{};
  return agreement.known && agreement.gender == Gender::Feminine;
}

// "vertr. d. d. Eltern", "vertr. d. d. Hausverw."
bool ByHerOrThem(const Tokens& tokens, std::size_t end) {
  const std::size_t noun = NounBehind(tokens, tokens.Skip(end));
  const Agreement agreement = AgreementAt(tokens, noun);
  return agreement.known && (agreement.plural || agreement.gender == Gender::Feminine);
}

// "jd. 2. Samstag", "jd. Woche".
std::string EachWord(const Tokens& tokens, std::size_t end) {
  const std::size_t next = tokens.Skip(end);
  const bool ordinal = tokens.IsNumber(next) && tokens.Is(next + 1, ".");
  const Agreement noun =
      AgreementAt(tokens, ordinal ? NounOfOrdinal(tokens, next + 2) : NounBehind(tokens, next));
  if (!noun.known || noun.gender == Gender::Masculine) return "jeden";
  return noun.gender == Gender::Feminine ? "jede" : "jedes";
}

// "der Kl. 5–7".
bool SpansNumbers(const Tokens& tokens, std::size_t end) {
  const std::size_t first = tokens.Skip(end);
  const std::size_t joint = tokens.Skip(first + 1);
  return tokens.IsNumber(first, 1, 2) &&
         (tokens.IsDashAt(joint) || IsOneOf(tokens.View(joint), {"und", "bis", "u"})) &&
         tokens.IsNumber(tokens.Skip(joint + (tokens.Is(joint, "u") ? 2 : 1)));
}

// "n. ca. 30 Min.", "n. tel. Vereinb.", but "n. in Celle" and "n. verl. wird".
bool GoesBehindNach(const Tokens& tokens, std::size_t end) {
  const std::size_t next = tokens.Skip(end);
  const auto word = tokens.View(next);
  if (!tokens.IsWord(next) || tokens.IsCapital(next) || IsDeterminer(word) || IsDegreeWord(word)) return true;
  if (IsOneOf(word, {"d", "oben", "unten", "links", "rechts", "hinten", "vorn", "vorne", "außen", "innen",
                     "draußen", "drüben", "tel", "tgl"}))
    return true;
  return NounBehind(tokens, next) != Tokens::kNone && !CaseOfPreposition(word);
}

// "uns. Angebot", "uns. Kunden" at the beginning of a clause.
std::string OurWord(const Tokens& tokens, std::size_t end) {
  const Agreement agreement = AgreementAt(tokens, tokens.Skip(end));
  return agreement.known && (agreement.plural || agreement.gender == Gender::Feminine) ? "unsere" : "unser";
}

// "durch s. Roman", "m. s. Familie": behind a preposition it is no "siehe".
std::string HisWord(const Tokens& tokens, std::size_t i, std::size_t end) {
  const std::size_t noun = NounBehind(tokens, tokens.Skip(end));
  const Agreement agreement = AgreementAt(tokens, noun);
  const bool object =
      IsOneOf(tokens.WordBefore(i), {"hat", "hatte", "verlor", "behielt", "verkaufte", "verlegte", "verließ",
                                     "beendete", "begann", "verbrachte"});
  if (!(HasPreposition(tokens, i) || object) || !agreement.known || !tokens.IsCapital(tokens.Skip(end)))
    return "siehe";
  if (!agreement.plural) return "s" + OneBefore(tokens, i, noun + 1, agreement);
  return CaseAt(tokens, i, noun + 1) == Case::Dative ? "seinen" : "seine";
}

// "ins Engl. und Frz.", "aus dem Engl.": the name of a language behind its article.
std::string LanguageEnding(const Tokens& tokens, std::size_t i) {
  std::size_t at = tokens.Before(i);
  if (at != Tokens::kNone && IsOneOf(tokens.View(at), {"und", "u", "oder", ","})) at = tokens.Before(at);
  if (at != Tokens::kNone && at > 0 && tokens.Is(at, ".")) at = tokens.Before(at - 1);
  if (at == Tokens::kNone) return {};
  if (IsOneOf(tokens.View(at), {"ins", "das"})) return "e";
  return IsOneOf(tokens.View(at), {"im", "vom", "zum", "dem"}) ? "en" : "";
}

Found AbbreviationPhraseAt(const Tokens& tokens, std::size_t i) {
  const auto found = AbbreviationAt(tokens, i);
  if (!found) return std::nullopt;
  std::string words(found->abbreviation->spoken);
  if (found->abbreviation->bending == Bending::None && IsUpperWord(words) && words.ends_with("isch"))
    words += LanguageEnding(tokens, i);
  const auto written = found->abbreviation->written;
  if (words == "der Große" || words == "der Ältere" || words == "der Jüngere")
    words = WithNameOf(tokens, i, std::string_view(words).substr(4, words.size() - 5));
  // At its end "u. a." is no more than what has been told.
  if (written == "u. a." && tokens.IsLast(found->end - 1)) words = "und anderes";
  if (written == "u. a." && (JoinsPlural(tokens, i, found->end) || EndsNames(tokens, i, found->end)))
    words = NamesInDative(tokens, i) ? "und anderen" : "und andere";
  if (IsOneOf(written, {"o. Ä.", "o. ä.", "u. Ä.", "u. ä."}) && NamesInDative(tokens, i)) words.back() = 'm';
  if (written == "i. d.")
    words = IsManOrThing(tokens, NounBehind(tokens, tokens.Skip(found->end))) ? "in dem" : "in der";
  if (written == "a. d.") words = OutOfOrAt(tokens, i, found->end);
  if (written == "z." && words == "zum" && LooksLikePlace(tokens.View(tokens.Skip(found->end)))) words = "zu";
  if (written == "z." && words == "zum" && ToHer(tokens, found->end)) words = "zur";
  if (written == "vertr. d. d." && ByHerOrThem(tokens, found->end)) words = "vertreten durch die";
  if (written == "n." && words == "nach" && !GoesBehindNach(tokens, found->end)) words = "nicht";
  if (written == "uns.") words = OurWord(tokens, found->end);
  if (written == "s." && words == "siehe") words = HisWord(tokens, i, found->end);
  if (written == "jd.") words = EachWord(tokens, found->end);
  if (written == "v." && words == "von") words = VonOrVom(tokens, i, found->end);
  if (found->abbreviation->bending == Bending::Adjective) words = BentAdjective(tokens, i, found->end, words);
  if (written == "Kl." && words == "Klägerin" && tokens.WordBefore(i).empty())
    words = BelongsToNounBefore(tokens, i - 3) ? "Klägers" : "Kläger";  // "d. Kl."
  if (found->abbreviation->bending == Bending::None && !PluralOf(words).empty())
    words = BentNoun(tokens, i, words, PluralOf(words));
  if (IsOneOf(words, {"Klasse", "Jahrgangsstufe", "Größe"}) &&
      (SpansNumbers(tokens, found->end) || tokens.WordBefore(i) == "den"))
    words += 'n';
  if (found->abbreviation->bending == Bending::Genitive && StandsInGenitive(tokens, i)) words += 's';
  const bool bendsForWoman = (words.starts_with("Diplom") && words.size() > 8) ||
                             (IsOneOf(words, {"Inhaber", "Pfarrer", "Direktor", "Bürgermeister", "Präsident",
                                              "Leiter", "Dozent", "Stellvertreter", "Geschäftsführer"}) &&
                              tokens.IsCapital(tokens.Skip(found->end)));
  if (bendsForWoman) words = ForWoman(tokens, i, found->end, words);
  if (found->capital) words = WithUpperStart(words);
  const bool keepsPoint = found->EndsWithPoint() && tokens.IsLast(found->end - 1);
  return Phrase{keepsPoint ? found->end - 1 : found->end, words};
}

Found StreetPhraseAt(const Tokens& tokens, std::size_t i) {
  const auto street = StreetAt(tokens, i);
  if (!street) return std::nullopt;
  const bool keepsPoint = tokens.Is(street->end - 1, ".") && tokens.IsLast(street->end - 1);
  std::string words = std::string(tokens.View(i).substr(0, street->stemLength)) + std::string(street->spoken);
  if (words.ends_with("jahr") && StandsInGenitive(tokens, i)) words += "es";  // "des 18. Lebensj."
  const auto plural = PluralOf(WithUpperStart(street->spoken));               // "150 Betriebsstd."
  if (tokens.Is(i + 1, ".") && !plural.empty())
    words = BentNoun(tokens, i, words, words.substr(0, street->stemLength) + WithLowerStart(plural));
  return Phrase{keepsPoint ? street->end - 1 : street->end, words};
}

// "Anspr.", "gleichz.": what was cut, bent as it stands in the sentence.
Found CutWordPhraseAt(const Tokens& tokens, std::size_t i) {
  const auto cut = CutWordAt(tokens, i);
  if (!cut) return std::nullopt;
  const std::size_t end = tokens.IsLast(i + 1) ? i + 1 : i + 2;
  if (cut->kind == CutKind::Noun) return Phrase{end, BentNoun(tokens, i, cut->words, cut->plural)};
  if (cut->kind == CutKind::Fixed) return Phrase{end, cut->words};
  return Phrase{end, BentAdjective(tokens, i, i + 2, cut->words)};
}

Found CutNounPhraseAt(const Tokens& tokens, std::size_t i) {
  auto cut = CutNounAt(tokens, i);
  if (!cut) return std::nullopt;
  return Phrase{cut->end, std::move(cut->words)};
}

// "die restl. 5", "folg. 3 Tage": what is counted behind the adjective is many.
bool CountsManyBehind(const Tokens& tokens, std::size_t end) {
  const std::size_t next = tokens.Skip(end);
  return next > end && tokens.IsNumber(next, 1, 4) && !tokens.Is(next, "1") && !tokens.Is(next + 1, ".");
}

Found CutAdjectivePhraseAt(const Tokens& tokens, std::size_t i) {
  const auto cut = CutAdjectiveAt(tokens, i);
  if (!cut) return std::nullopt;
  std::string words = std::string(tokens.View(i)) + std::string(cut->rest);
  if (tokens.IsLast(cut->end - 1)) return Phrase{cut->end - 1, words};
  if (CountsManyBehind(tokens, cut->end) && HasDeterminer(tokens, i)) return Phrase{cut->end, words + "en"};
  if (!cut->adjective) return Phrase{cut->end, words};
  Agreement agreement = AgreementAt(tokens, NounBehind(tokens, tokens.Skip(cut->end)));
  if (!agreement.known) agreement = {Gender::Masculine, false, false, true};
  return Phrase{cut->end, words + std::string(EndingAt(tokens, i, agreement))};
}

std::string ArticleWord(const Tokens& tokens, std::size_t i, const Agreement& noun) {
  const bool feminine = noun.plural || noun.gender == Gender::Feminine;
  if (noun.genitive && !noun.plural) return "des";
  // "kostete 6 Mio. Menschen d. Leben": without its "s" it is no genitive, unless it is cut.
  const std::size_t next = NounBehind(tokens, tokens.Skip(i + 2));
  const bool whole = next != Tokens::kNone && !tokens.Is(next + 1, ".") && next == tokens.Skip(i + 2);
  const bool genitive = feminine || !whole || !noun.known;
  if (genitive && BelongsToNounBefore(tokens, i)) return feminine ? "der" : "des";
  // "Die Kosten trägt d. Bekl.": who does something stands there more often than to whom it is done.
  if (IsOneOf(tokens.View(next), {"Bekl", "Kl"}) && !tokens.WordBefore(i).empty() &&
      !CaseOfPreposition(tokens.WordBefore(i)))
    return "der";
  // "Bei der Kontrolle hatte d. Fahrer Glück."
  if (noun.gender == Gender::Masculine && !noun.plural && VerbAwaitsSubject(tokens, i)) return "der";
  const auto ending = EndingAt(tokens, i, noun);
  if (ending == "e") return "die";
  return ending == "es" ? "das" : "d" + std::string(ending);
}

// "solange d. Vorrat reicht", "Wahl d. 2. Vors.": the article that the noun and its case ask for.
Found ArticlePhraseAt(const Tokens& tokens, std::size_t i) {
  const bool opens =
      tokens.Is(i, "D") && tokens.OpensClause(i) && tokens.IsBlank(i + 2);  // "D. Vorstand lädt ein"
  if ((!tokens.Is(i, "d") && !opens) || !tokens.Is(i + 1, ".") || !tokens.FreeBefore(i)) return std::nullopt;
  const std::size_t next = tokens.Skip(i + 2);
  // "die Lehrerin d. 4b".
  if (tokens.IsNumber(next, 1, 2) && tokens.IsWord(next + 1) && tokens.View(next + 1).size() == 1 &&
      BelongsToNounBefore(tokens, i))
    return Phrase{i + 2, "der"};
  if (DateShapeAt(tokens, next)) return Phrase{i + 2, "dem"};
  const bool ordinal = tokens.IsNumber(next, 1, 2) && tokens.Is(next + 1, ".");
  const std::size_t noun = ordinal ? NounOfOrdinal(tokens, next + 2) : NounBehind(tokens, next);
  // "d. letzten 3 Tage": what is counted behind the adjective is many.
  const std::size_t count = tokens.Skip(next + 1);
  if (tokens.IsWord(next) && tokens.View(next).ends_with("en") && !tokens.IsCapital(next) &&
      tokens.IsNumber(count, 1, 3) && !tokens.Is(count + 1, "."))
    return Phrase{i + 2, ArticleWord(tokens, i, {Gender::Feminine, true, false, true})};
  const Agreement agreement = AgreementAt(tokens, noun);
  if (noun == Tokens::kNone || !agreement.known ||
      (opens && !NounOf(tokens.View(noun)).known && !tokens.Is(noun + 1, ".")))
    return std::nullopt;
  const bool members = CountsMembers(tokens, i) && !PluralOf(WholeNounAt(tokens, noun)).empty();
  const std::string article = members ? "der" : ArticleWord(tokens, i, agreement);
  return Phrase{i + 2, opens ? WithUpperStart(article) : article};
}

// "e. Abschluss", "Ende e. Monats", "e. neues Zuhause".
Found IndefiniteArticleAt(const Tokens& tokens, std::size_t i) {
  if (!tokens.Is(i, "e") || !tokens.Is(i + 1, ".") || !tokens.FreeBefore(i) || !tokens.IsBlank(i + 2))
    return std::nullopt;
  const std::size_t noun = NounBehind(tokens, i + 3);
  if (noun == Tokens::kNone || tokens.View(noun).size() < 3 || StartsSentences(tokens.View(i + 3)))
    return std::nullopt;
  const Agreement agreement = AgreementAt(tokens, noun);
  if (!agreement.known || agreement.plural) return std::nullopt;
  if (BelongsToNounBefore(tokens, i) && tokens.WordBefore(i) != "Uhr" &&
      !CaseOfPreposition(tokens.WordBefore(i)))
    return Phrase{i + 2, agreement.gender == Gender::Feminine ? "einer" : "eines"};
  return Phrase{i + 2, OneBefore(tokens, i, noun + 1, agreement)};
}

bool IsSchoolSubject(std::string_view word) {
  return IsOneOf(word, {"Mathe", "Mathematik", "Deutsch", "Englisch", "Bio", "Biologie", "Physik", "Chemie",
                        "Sport", "Musik", "Kunst", "Religion", "Geschichte", "Latein", "Informatik", "Höhe"});
}

// "i. Gemeindesaal".
Found InPhraseAt(const Tokens& tokens, std::size_t i) {
  const std::size_t noun = tokens.Skip(i + 2);
  if (!tokens.Is(i, "i") || !tokens.Is(i + 1, ".") || !tokens.FreeBefore(i) || noun == i + 2 ||
      tokens.View(noun).size() < 3)
    return std::nullopt;
  const Agreement agreement = AgreementAt(tokens, noun);
  // "geb. 1921 i. Wien".
  if (tokens.IsCapital(noun) && (!agreement.known || agreement.plural) &&
      tokens.IsNumber(tokens.Before(i), 4, 4))
    return Phrase{i + 2, "in"};
  if (!tokens.IsCapital(noun) || !agreement.known || agreement.plural) return std::nullopt;
  if (IsSchoolSubject(tokens.View(noun)) || LooksLikePlace(tokens.View(noun))) return Phrase{i + 2, "in"};
  return Phrase{i + 2, agreement.gender == Gender::Feminine ? "in der" : "im"};
}

using Reading = Found (*)(const Tokens&, std::size_t);

template <std::size_t N>
Found FirstOf(const Reading (&readings)[N], const Tokens& tokens, std::size_t i) {
  for (const Reading reading : readings) {
    if (auto found = reading(tokens, i)) return found;
  }
  return std::nullopt;
}

constexpr Reading kOfWords[] = {&AddressAt,
                                &AlternativesAt,
                                &CreditorAt,
                                &IbanAt,
                                &ScriptureAt,
                                &CalendarWordAt,
                                &RomanAt,
                                &SectionAt,
                                &AbbreviationPhraseAt,
                                &StreetPhraseAt,
                                &CutWordPhraseAt,
                                &CutAdjectivePhraseAt,
                                &CutNounPhraseAt,
                                &CurrencyFirstAt,
                                &UnitBehindWordAt,
                                &UnitBehindBracketsAt,
                                &UnitOfCompoundAt,
                                &LoneUnitAt,
                                &TimesBetweenMeasuresAt,
                                &ArticlePhraseAt,
                                &IndefiniteArticleAt,
                                &InPhraseAt};
constexpr Reading kOfNumbers[] = {&AddressAt, &DateAt,        &CodeAt,    &TimeAt,
                                  &GluedAt,   &AmountAt,      &SpanAt,    &FractionPhraseAt,
                                  &OrdinalAt, &PlainNumberAt, &VersionAt, &IntegerAt};
constexpr Reading kOfSigns[] = {
    &DashBetweenSumsAt, &PathAt,           &PartOfHourAt,     &CodeAt,        &SignedAt,
    &CurrencyFirstAt,   &AmountAt,         &FractionPhraseAt, &TagAt,         &AbbreviationPhraseAt,
    &UnitBehindWordAt,  &UnitOfCompoundAt, &LoneUnitAt,       &WordPerUnitAt, &SignAt};

// What only parts sentences and clauses.
bool IsPunctuation(std::string_view sign) {
  return sign.size() == 1 && std::string_view(".,;:!?)\"'").find(sign.front()) != std::string_view::npos;
}

}  // namespace

Found ReadingAt(const Tokens& tokens, std::size_t i) {
  switch (tokens.Kind(i)) {
    case TokenKind::Word:
      return FirstOf(kOfWords, tokens, i);
    case TokenKind::Number:
      return tokens.FreeBefore(i) ? FirstOf(kOfNumbers, tokens, i) : NumberBehindLettersAt(tokens, i);
    case TokenKind::Sign:
      return IsPunctuation(tokens.View(i)) ? PunctuationAt(tokens, i) : FirstOf(kOfSigns, tokens, i);
    default:
      return std::nullopt;
  }
}

}  // namespace lorelin
