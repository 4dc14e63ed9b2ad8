#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "german/nouns.h"
#include "german/tokens.h"

namespace lorelin {

// What has to stand around the letters for them to be this abbreviation.
enum class Around : std::uint8_t {
  Anything,
  Number,          // a number follows
  NumberBefore,    // a number stands before
  Capital,         // a capitalised word follows
  Name,            // a capitalised word that is no noun follows
  NoNumberBefore,  // no number stands before
  Digits,          // a number or a single letter follows
  NameBefore,      // a capitalised word stands before
  SmallWord,       // a word in small letters follows
  Closing,         // a letter or message ends with it and a name
  SmallBefore,     // a word in small letters stands before
  Colon,           // a colon follows
  Date,            // a date follows
  Age,             // a number of years follows
  Label,           // "Abs. 1", "§ 5" stand before and a number follows
  RulerBefore,     // a name stands before that others have borne
  Described,       // a noun follows, adjectives between them or not
  Spice,           // something that is ground follows
  Determined,      // an article or its like stands before
  Year,            // a number of four digits follows
  Length,          // a number of centimetres or the like follows
  Spoon,           // a spoon follows
  Lacking,         // what may be left out follows
  Finding,         // a noun and the end of a clause follow
  Attribute,       // a noun follows, and an article, preposition or nothing stands before
  Letter,          // a single capital or a size follows
  Percent,         // "%" stands before
  Section,         // "§" follows
  PageBefore,      // a page or paragraph stands before
  Person,          // a person is spoken of: "nat. u. jur. Personen"
  Sex,             // an age follows
  Court,           // "der" or "d." stands before in a text on a lawsuit
  OfMan,           // "der", "dem" or "des" opens the clause or stands before
  Quoted,          // what is quoted follows
  Motorway,        // a place follows, a motorway is spoken of
  Price,           // a sum of money follows
  OfBook,          // between commas, as in a list of books
  Closed,          // the sentence is over
  Degrees,         // degrees or their minutes stand before
  Clock,           // "Uhr" stands before
  Away,            // a distance or duration stands before
  Region,          // "im" stands before
  Wind,            // the wind is spoken of
  Inside,          // the clause has begun before
  Term,            // a number follows, and no article stands before
  BodyPart,        // a part of the body follows
  Passive,         // the sentence ends with it and tells what is done
  Opening,         // it opens a clause, and a noun follows
  PayGroup,        // a number follows, and what is paid is spoken of
  Hymn,            // a number follows, and a song is spoken of
  Lawful,          // what a law grants or asks follows
  NoHymn,          // no song is spoken of
  Wanted,          // "an", "für" or a comma stands before
  Release,         // a number with a point in it follows
  Greeted,         // from whom or to whom follows
  Ward,            // a stay in a hospital or the like follows
  Listed,          // a comma stands before
  Disease,         // a disease follows
  FirstOfClause,   // it opens a clause, and a number follows
  OfThing,         // an article stands before that only things have
  Scored,          // a score in brackets stands before
  Weighed,         // a unit of weight stands before
  OneOfTime,       // "jede weitere", "pro" or the like stands before
  Feminine,        // an article or adjective stands before that no man or thing has
  Weekday,         // a day of the week follows
  Prepared,        // the sentence ends with it, and something to eat is made in it
  Subject,         // studies or lessons are spoken of
  DayBefore,       // an ordinal stands before: "19. Jh."
  AsTitle,         // a name follows, and no verb or preposition stands before
  Continued        // the sentence goes on
};

// Whether the point is also that of a sentence, when a capitalised word follows.
enum class Ending : std::uint8_t {
  Never,    // "Dr. Meyer"
  Starter,  // only before a word that begins sentences
  Noun,     // not before a noun that may belong to it: "30 Min. Fahrzeit"
  Often     // always: "usw. Dann"
};

// How it bends.
enum class Bending : std::uint8_t {
  None,
  Adjective,  // "sog.": the ending of its case
  Plural,     // the plural behind a number other than 1
  Genitive    // an "s" behind "des"
};

struct Abbreviation {
  std::string_view written;  // a blank where one may stand
  std::string_view spoken;
  Around around = Around::Anything;
  Ending ending = Ending::Never;
  Bending bending = Bending::None;
  std::string_view plural = {};
};

struct FoundAbbreviation {
  const Abbreviation* abbreviation = nullptr;
  bool capital = false;  // written with a capital where the table has a small letter
  std::size_t end = 0;   // the token behind
  [[nodiscard]] bool EndsWithPoint() const { return abbreviation->written.ends_with('.'); }
};

// The abbreviation that begins at the token in the context it stands in: the longest one.
[[nodiscard]] std::optional<FoundAbbreviation> AbbreviationAt(const Tokens& tokens, std::size_t i);

// An adjective or adverb in "-lich" or "-weise" that is cut short, whatever it is: "nachrichtl.", "teilw.".
struct FoundEnding {
  std::string_view rest;  // what is missing, without the ending of the case
  bool adjective = false;
  std::size_t end = 0;
};
[[nodiscard]] std::optional<FoundEnding> CutAdjectiveAt(const Tokens& tokens, std::size_t i);

// The word with a point behind it is an abbreviation in some surroundings.
[[nodiscard]] bool IsOftenShortened(std::string_view word);

// A noun that is cut short and can be completed by the lexicon: "Tagesordn.", "Gasheizg.". Only where the
// sentence goes on behind the point.
struct CutNoun {
  std::string words;
  std::size_t end = 0;
};
[[nodiscard]] std::optional<CutNoun> CutNounAt(const Tokens& tokens, std::size_t i);

// "Hauptstr." and "Marktpl.": a name with an abbreviated end.
struct FoundStreet {
  std::size_t stemLength = 0;  // bytes of the word that stay
  std::string_view spoken;     // what stands in the place of the rest
  std::size_t end = 0;
};
[[nodiscard]] std::optional<FoundStreet> StreetAt(const Tokens& tokens, std::size_t i);

}  // namespace lorelin
