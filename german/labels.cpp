#include "german/labels.h"

#include "german/wordLists.h"

namespace lorelin {
namespace {

// "z. B. 1 Glas", "zum Beispiel 1 Glas", but "Beispiel 1".
bool EndsForExample(const Tokens& tokens, std::size_t word) {
  if (tokens.Is(word, "Beispiel")) return IsOneOf(tokens.WordBefore(word), {"zum", "Zum"});
  const std::size_t point = tokens.Before(word);
  return tokens.Is(word, "B") && point != Tokens::kNone && point > 0 && tokens.Is(point, ".") &&
         IsOneOf(tokens.View(point - 1), {"z", "Z"});
}

}  // namespace

bool LabelBefore(const Tokens& tokens, std::size_t i) {
  std::size_t before = tokens.Before(i);
  const bool cut = before != Tokens::kNone && tokens.Is(before, ".") && before > 0;
  if (cut) --before;
  if (before == Tokens::kNone) return false;
  if (tokens.Is(before, "§")) return true;
  if (EndsForExample(tokens, before)) return false;
  // "A 7", "L 1100", but not "i. J. 1347" and "ü. d. M. 412 m".
  const std::size_t point = cut ? tokens.Before(before) : Tokens::kNone;
  const bool partOfCut = point != Tokens::kNone && tokens.Is(point, ".");
  if (!partOfCut && tokens.IsCapital(before) && tokens.View(before).size() == 1 && tokens.FreeBefore(before))
    return true;
  return tokens.IsWord(before) && IsLabel(tokens.View(before));
}

bool CodeBefore(const Tokens& tokens, std::size_t i) {
  const auto before = tokens.WordBefore(i);
  if (IsAllCaps(before) && !IsOneOf(before, {"KW", "SS", "WS"})) return true;
  return IsOneOf(before,
                 {"Nr",         "Nummer",       "Code",    "Artikelnummer", "Norm",         "Konto",
                  "Modell",     "Typ",          "Telefon", "Tel",           "Fax",          "Kennzeichen",
                  "Durchwahl",  "Aktenzeichen", "Az",      "Bestellnummer", "Kundennummer", "Rechnungsnummer",
                  "Drucksache", "Rechnung",     "Version", "Boeing",        "Airbus",       "Embraer",
                  "Fokker"});
}

}  // namespace lorelin
