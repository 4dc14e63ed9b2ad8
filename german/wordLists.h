#pragma once

#include <string_view>

namespace lorelin {

// Words of the closed classes and their like; what they are asked for stands with each. In small letters if
// nothing else is said.

// "nur", "etwa", "mindestens": stand between a preposition and its number.
[[nodiscard]] bool IsDegreeWord(std::string_view word);
// "ist", "fehlt": what stands behind is no object.
[[nodiscard]] bool IsLinkingVerb(std::string_view word);
// "hat", "kostet", "ich": an object in the accusative is to come.
[[nodiscard]] bool TakesObject(std::string_view word);
// Finite verbs that look like adjectives: "wurde", "belegte".
[[nodiscard]] bool IsVerb(std::string_view word);
// "erste", "dreizehnten".
[[nodiscard]] bool IsOrdinalWord(std::string_view word);
// Nouns that are numbered by ordinals even without an article: "1. Klasse", "2. Vorsitzender".
[[nodiscard]] bool IsNumberedHead(std::string_view noun);
// "Elisabeth", "Annas": the first name of a woman, its genitive as well.
[[nodiscard]] bool IsWomansName(std::string_view name);
// "seit", "Sommer": a number of four digits behind it is a year.
[[nodiscard]] bool GoesBeforeYears(std::string_view word);

// "lang", "entfernt", "später": how far or how long, behind a measure.
[[nodiscard]] bool IsExtent(std::string_view word);

// "20 Tropfen auf 1 Glas Wasser".
[[nodiscard]] bool IsVessel(std::string_view word);

// "Saft 1 Zitrone": what is of the thing behind it.
[[nodiscard]] bool IsPartOfThing(std::string_view word);

// "in 1 cm dicke Scheiben": the measure belongs to the adjective, whatever stands before it.
[[nodiscard]] bool IsBentExtent(std::string_view word);

// "Es bedarf 1 Unterschrift".
[[nodiscard]] bool AsksForGenitive(std::string_view verb);

// A word behind which a number is a name: "Kapitel 3", "Zimmer 12", "Goethestraße 5".
[[nodiscard]] bool IsLabel(std::string_view word);

}  // namespace lorelin
