#pragma once

#include <cstddef>
#include <string_view>

#include "german/tokens.h"

namespace lorelin {

// What the clause around a token tells of the case that its prepositions and its verb ask for.

// "Rücksendung an o. g. Adresse".
[[nodiscard]] bool SendsSomething(const Tokens& tokens, std::size_t i);

// "Zahlen Sie auf u. g. Konto".
[[nodiscard]] bool NamesAccountBehind(const Tokens& tokens, std::size_t i);

// "In 1 Becher geben": a verb of the clause tells that something goes there.
[[nodiscard]] bool MovesSomething(const Tokens& tokens, std::size_t i);

// "Auf 1 Arzt kommen 500 Einwohner".
[[nodiscard]] bool FallsTo(const Tokens& tokens, std::size_t first);

// "auf 1,35 € steigen".
[[nodiscard]] bool IsPriceAt(const Tokens& tokens, std::size_t first);

// "1 Teller kostet 12 €, 1 Becher 3 €": the verb of the first clause holds for the second subject as well.
[[nodiscard]] bool RepeatsPrice(const Tokens& tokens, std::size_t first, std::size_t behind);

// "Uns bleibt noch 1 Tag": what is left is the subject.
[[nodiscard]] bool IsWhatIsLeft(const Tokens& tokens, std::size_t first, std::size_t behind);

// "ging an 1 Schule", "verkauft an 1 Händler": somebody gets it, it is no place.
[[nodiscard]] bool GoesToSomebody(const Tokens& tokens, std::size_t first);

// "Über 1 Antrag wurde abgestimmt", but "über 1 Meter".
[[nodiscard]] bool SpeaksAboutOne(const Tokens& tokens, std::size_t first);

// "kann", "müssen".
[[nodiscard]] bool IsModalVerb(std::string_view word);

// "fiel unter 1,50 €": a verb before tells of something that rises or falls.
[[nodiscard]] bool RisesOrFalls(const Tokens& tokens, std::size_t first);

[[nodiscard]] bool IsFiniteVerb(std::string_view word);

// "ich", "man".
[[nodiscard]] bool IsPronoun(std::string_view word);

// A word that opens a relative clause: "der", "welche", "was".
[[nodiscard]] bool IsRelative(std::string_view word);

// "1. Am 3. Mai", "a) Im 2. Stock", "§ 5 Der": the first word of an item or a heading.
[[nodiscard]] bool OpensItem(const Tokens& tokens, std::size_t i);

// "der Täter, der 1 Waffe trug": no article but the subject of the clause.
[[nodiscard]] bool OpensRelativeClause(const Tokens& tokens, std::size_t first);

// "ein Unfall, bei dem 1 Kind starb", "der Hund, den 1 Mann fand": the subject of the clause is still to
// come.
[[nodiscard]] bool RelativeAwaitsSubject(const Tokens& tokens, std::size_t first);

// "auf Rang 4, 1 Punkt hinter Köln", "1 Tag vor der Wahl": how far before or behind, and no subject.
[[nodiscard]] bool TellsHowFar(const Tokens& tokens, std::size_t first, std::size_t behind);

// A small word that ends as infinitives do.
[[nodiscard]] bool IsInfinitive(const Tokens& tokens, std::size_t i);

// "Ab Mai kostet 1 Liter 2 €", "Am Tor hielt 1 Wagen": behind a phrase with a preposition and the verb stands
// the subject.
[[nodiscard]] bool VerbAwaitsSubject(const Tokens& tokens, std::size_t i);

// The token before the bracket that closes here.
[[nodiscard]] std::size_t BeforeBracket(const Tokens& tokens, std::size_t closing);

// The verb before the token asks for an object: a subject has been there, or it is an order. `anyVerb`: not
// only verbs that are known to take one.
[[nodiscard]] bool VerbAsksForObject(const Tokens& tokens, std::size_t i, bool anyVerb);

// "1 Teelöffel Salz zugeben", "Anschließend 1 Ei unterrühren", but not "1 m lang".
[[nodiscard]] bool InfinitiveEnds(const Tokens& tokens, std::size_t first, std::size_t behind);

}  // namespace lorelin
