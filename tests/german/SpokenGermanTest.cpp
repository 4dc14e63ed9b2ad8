#include "german/spokenGerman.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "german/sentences.h"

namespace lorelin {
namespace {

std::string Spoken(std::string_view text) {
  return SpellOut(text).text;
}

TEST(SpokenGermanTest, PutsNumbersIntoTheCaseOfTheirNoun) {
  EXPECT_EQ(Spoken("Wir trinken Tee mit 1 Tasse Milch."), "Wir trinken Tee mit einer Tasse Milch.");
  EXPECT_EQ(Spoken("Nach 1 Tag kam er an."), "Nach einem Tag kam er an.");
  EXPECT_EQ(Spoken("Er ist aus 3. Hand."), "Er ist aus dritter Hand.");
  EXPECT_EQ(Spoken("Gemäß Abs. 1 Satz 1 gilt es."), "Gemäß Absatz eins Satz eins gilt es.");
}

TEST(SpokenGermanTest, ReadsTheNextOfARowAsAnOrdinal) {
  EXPECT_EQ(Spoken("Das ist die 5. Generation, dann folgt die 6."),
            "Das ist die fünfte Generation, dann folgt die sechste.");
  EXPECT_EQ(Spoken("Im Lotto fiel die 6."), "Im Lotto fiel die sechs.");
  EXPECT_EQ(Spoken("in 3., völlig neu bearbeiteter Aufl. erschienen"),
            "in dritter, völlig neu bearbeiteter Auflage erschienen");
}

TEST(SpokenGermanTest, ReadsSumsBelowOneAndNumbersOfComputers) {
  EXPECT_EQ(Spoken("Es kostet -,50 €."), "Es kostet fünfzig Cent.");
  EXPECT_EQ(Spoken("je angef. 1/2 Std. 5 €"), "je angefangene halbe Stunde fünf Euro");
  EXPECT_EQ(Spoken("Fehler 0x8Fa0"), "Fehler null x acht F A null");
}

TEST(SpokenGermanTest, TellsBySomebodysNameWhoDoesSomething) {
  EXPECT_EQ(Spoken("Nachts rief 1 Nachbar die Polizei."), "Nachts rief ein Nachbar die Polizei.");
  EXPECT_EQ(Spoken("Nachts rief er 1 Arzt."), "Nachts rief er einen Arzt.");
  EXPECT_EQ(Spoken("Du kannst 1 Zeuge sein."), "Du kannst ein Zeuge sein.");
  EXPECT_EQ(Spoken("Im Stall leben 1 Esel und 2 Ziegen."), "Im Stall leben ein Esel und zwei Ziegen.");
}

TEST(SpokenGermanTest, ReadsTheSecondNameBehindTheNumberOfARuler) {
  EXPECT_EQ(Spoken("Hier starb Maximilian I. Joseph."), "Hier starb Maximilian der Erste Joseph.");
  EXPECT_EQ(Spoken("Es folgte Ludwig I. Otto wurde König."), "Es folgte Ludwig der Erste. Otto wurde König.");
}

TEST(SpokenGermanTest, ReadsOutOfSomethingByItsGender) {
  EXPECT_EQ(Spoken("Er stammt a. d. 12. Jh."), "Er stammt aus dem zwölften Jahrhundert.");
  EXPECT_EQ(Spoken("Halle a. d. Saale"), "Halle an der Saale");
}

TEST(SpokenGermanTest, ReadsSpansOfSeasonsAndOfShortenedPages) {
  EXPECT_EQ(Spoken("Saison 2021/22–2023/24"),
            "Saison zweitausendeinundzwanzig zweiundzwanzig bis zweitausenddreiundzwanzig vierundzwanzig");
  EXPECT_EQ(Spoken("siehe S. 210-14"), "siehe Seite zweihundertzehn bis vierzehn");
  EXPECT_EQ(Spoken("siehe S. 210-09"), "siehe Seite zweihundertzehn-null neun");
}

TEST(SpokenGermanTest, ReadsMembersOfANumberAsMany) {
  EXPECT_EQ(Spoken("Die Anz. d. Teiln. ist 3."), "Die Anzahl der Teilnehmer ist drei.");
  EXPECT_EQ(Spoken("Name d. Teiln. ist Maier."), "Name des Teilnehmers ist Maier.");
}

TEST(SpokenGermanTest, ReadsTheNextOfARowByTheNounOfTheFirst) {
  EXPECT_EQ(Spoken("In 1. Linie geht es um ihn, in 2. um sie."),
            "In erster Linie geht es um ihn, in zweiter um sie.");
}

TEST(SpokenGermanTest, ReadsWhatIsCutBehindScoresAndWeights) {
  EXPECT_EQ(Spoken("2:1 (1:1) n. V. gewonnen"), "Zwei zu eins (eins zu eins) nach Verlängerung gewonnen");
  EXPECT_EQ(Spoken("Termin n. V."), "Termin nach Vereinbarung.");
  EXPECT_EQ(Spoken("5 mg/kg KG täglich"), "Fünf Milligramm pro Kilogramm Körpergewicht täglich");
  EXPECT_EQ(Spoken("Müller KG"), "Müller KG");
}

TEST(SpokenGermanTest, TellsTheSubjectBehindAPhraseAndItsVerb) {
  EXPECT_EQ(Spoken("Bei d. Kontrolle hatte d. Fahrer Glück."), "Bei der Kontrolle hatte der Fahrer Glück.");
  EXPECT_EQ(Spoken("Er sah d. Fahrer dort."), "Er sah den Fahrer dort.");
}

TEST(SpokenGermanTest, KeepsClausesApartThatEndWithAnInfinitive) {
  EXPECT_EQ(Spoken("Suppe mit 1 EL Öl aufkochen und 1 Apfel reiben."),
            "Suppe mit einem Esslöffel Öl aufkochen und einen Apfel reiben.");
}

TEST(SpokenGermanTest, ReadsTitlesThatAreCutBeforeNames) {
  EXPECT_EQ(Spoken("Es kam Bundespräs. Steinmeier."), "Es kam Bundespräsident Steinmeier.");
  EXPECT_EQ(Spoken("Sie traf den franz. Staatspräs. Macron."),
            "Sie traf den französischen Staatspräsidenten Macron.");
  EXPECT_EQ(Spoken("Das kam von Min.-Präs. Lang."), "Das kam von Ministerpräsident Lang.");
}

TEST(SpokenGermanTest, JoinsPlacesWithSuperlativesAndClasses) {
  EXPECT_EQ(Spoken("das 2.-beliebteste Ziel"), "das zweitbeliebteste Ziel");
  EXPECT_EQ(Spoken("der 3.-Größte"), "der Drittgrößte");
  EXPECT_EQ(Spoken("ein 4.-Klässler"), "ein Viertklässler");
}

TEST(SpokenGermanTest, ReadsAFractionBehindItsArticle) {
  EXPECT_EQ(Spoken("ein 1/4 der Leute"), "ein Viertel der Leute");
}

TEST(SpokenGermanTest, ReadsThreePartsBehindInAsADuration) {
  EXPECT_EQ(Spoken("Er lief in 2:59:59 ins Ziel."),
            "Er lief in zwei Stunden neunundfünfzig Minuten neunundfünfzig Sekunden ins Ziel.");
}

TEST(SpokenGermanTest, ReadsSpansOfRomanNumbersOfOneLetter) {
  EXPECT_EQ(Spoken("Blütezeit: V–VII"), "Blütezeit: fünf bis sieben");
}

TEST(SpokenGermanTest, ReadsACutNounAsManyBehindABareAdjective) {
  EXPECT_EQ(Spoken("bei starken Beschw. anrufen"), "bei starken Beschwerden anrufen");
  EXPECT_EQ(Spoken("bei einer starken Beschw. anrufen"), "bei einer starken Beschwerde anrufen");
}

TEST(SpokenGermanTest, KeepsTheEndOfASentenceAndInventsNone) {
  EXPECT_EQ(Spoken("Das war 1990. Danach ging er."), "Das war neunzehnhundertneunzig. Danach ging er.");
  EXPECT_EQ(Spoken("Äpfel, Birnen usw. Dann ging er."), "Äpfel, Birnen und so weiter. Dann ging er.");
  EXPECT_EQ(Spoken("Ich sah Dr. Meyer."), "Ich sah Doktor Meyer.");
  EXPECT_EQ(Spoken("Wir treffen uns am 5. Die Sitzung ist kurz."),
            "Wir treffen uns am fünften. Die Sitzung ist kurz.");
}

TEST(SpokenGermanTest, EndsASentenceBehindAUnitWhenAnotherSubjectHasItsVerb) {
  EXPECT_EQ(Spoken("Die Frist beträgt 6 Mon. Urlaub kann man nehmen."),
            "Die Frist beträgt sechs Monate. Urlaub kann man nehmen.");
  EXPECT_EQ(Spoken("Der Bus fährt alle 20 Min. Nachtbusse verkehren selten."),
            "Der Bus fährt alle zwanzig Minuten. Nachtbusse verkehren selten.");
  EXPECT_EQ(Spoken("Nach 30 Min. Fahrzeit sind wir da."), "Nach dreißig Minuten Fahrzeit sind wir da.");
}

TEST(SpokenGermanTest, KnowsLettersAndAgesFromNumbersAndRanks) {
  EXPECT_EQ(Spoken("Wir spielen in Gruppe C."), "Wir spielen in Gruppe C.");
  EXPECT_EQ(Spoken("Sie ist in Gruppe IV."), "Sie ist in Gruppe vier.");
  EXPECT_EQ(Spoken("Er ist älter als 12."), "Er ist älter als zwölf.");
  EXPECT_EQ(Spoken("Er hat mehr als 5."), "Er hat mehr als fünf.");
  EXPECT_EQ(Spoken("Er kam als 27. ins Ziel."), "Er kam als Siebenundzwanzigster ins Ziel.");
}

TEST(SpokenGermanTest, ReadsArrowsByWhatTheyJoin) {
  EXPECT_EQ(Spoken("Der Zug Berlin → Ulm hält."), "Der Zug Berlin nach Ulm hält.");
  EXPECT_EQ(Spoken("Klicken Sie auf Start → Drucker."), "Klicken Sie auf Start – Drucker.");
  EXPECT_EQ(Spoken("Das Netz (→ Abb. 3) ist alt."), "Das Netz (siehe Abbildung drei) ist alt.");
}

TEST(SpokenGermanTest, ReadsAnOrdinalBeforeAPriceOrYear) {
  EXPECT_EQ(Spoken("Es kostet 2 €, ab der 3. 5 € mehr."),
            "Es kostet zwei Euro, ab der dritten fünf Euro mehr.");
  EXPECT_EQ(Spoken("Das 1. Kind kam 1998, das 2. 2001."),
            "Das erste Kind kam neunzehnhundertachtundneunzig, das zweite zweitausendeins.");
}

TEST(SpokenGermanTest, ReadsPricesWithAPointAndPerTwoThings) {
  EXPECT_EQ(Spoken("Es kostet 4.99 € oder $3.50."),
            "Es kostet vier Euro neunundneunzig oder drei Dollar fünfzig.");
  EXPECT_EQ(Spoken("Es kostet 15 €/Pers./Nacht."), "Es kostet fünfzehn Euro pro Person und Nacht.");
  EXPECT_EQ(Spoken("Er nimmt es 4x/d ein."), "Er nimmt es viermal pro Tag ein.");
}

TEST(SpokenGermanTest, KeepsMetresApartFromMit) {
  EXPECT_EQ(Spoken("Über 200 m lief er 1:58,4 min."),
            "Über zweihundert Meter lief er eine Minute achtundfünfzig Komma vier Sekunden.");
  EXPECT_EQ(Spoken("Er holte 200 m 1:58,4 min."),
            "Er holte zweihundert Meter eine Minute achtundfünfzig Komma vier Sekunden.");
  EXPECT_EQ(Spoken("Es liefert 100 Einträge/Seite."), "Es liefert einhundert Einträge pro Seite.");
}

TEST(SpokenGermanTest, PutsOneIntoTheCaseOfItsVerbAndOverBrackets) {
  EXPECT_EQ(Spoken("Es bedarf 1 Unterschrift."), "Es bedarf einer Unterschrift.");
  EXPECT_EQ(Spoken("Er reist mit 1 Koffer (23 kg) und 1 Tasche."),
            "Er reist mit einem Koffer (dreiundzwanzig Kilogramm) und einer Tasche.");
  EXPECT_EQ(Spoken("Die Karte gilt für 1 Erw. und 2 Kinder."),
            "Die Karte gilt für einen Erwachsenen und zwei Kinder.");
}

TEST(SpokenGermanTest, LeavesAnyBytesThatAreNoText) {
  const std::string bytes("\xFF\xC3 \0\x80 \xE2\x80 \xC2", 10);
  EXPECT_EQ(Spoken(bytes), bytes);
  EXPECT_EQ(Spoken(""), "");
}

TEST(SpokenGermanTest, TellsWhereEveryReplacementWasWritten) {
  const SpokenText spoken = SpellOut("Ä: 5 €, z. B. so");
  EXPECT_EQ(spoken.text, "Ä: fünf Euro, zum Beispiel so");
  const std::vector<SpokenRun> wanted{{3, 12, 3, 6}, {14, 26, 8, 13}};
  EXPECT_EQ(spoken.runs, wanted);
}

TEST(SpokenGermanTest, TellsTheRunsOfALaterSentence) {
  const SpokenText spoken = SpellOut("Er kam am 3. Mai. Sie kam um 5 Uhr.");
  ASSERT_EQ(spoken.runs.size(), 2U);
  EXPECT_EQ(spoken.text, "Er kam am dritten Mai. Sie kam um fünf Uhr.");
  EXPECT_EQ(spoken.runs[1].writtenBegin, 29U);
  EXPECT_EQ(spoken.runs[1].spokenBegin, 34U);
}

TEST(SpokenGermanTest, StaysTheSameWhenItPassesTwice) {
  for (const std::string_view text :
       {"Am 3.10.2026 um 20:15 Uhr, z. B. 5,50 € usw.", "§ 5 Abs. 2 S. 1 BGB, S. 12 ff.",
        "info@web.de, #TagDerArbeit 😀 1/2 l, 80er, Ludwig XIV."}) {
    const std::string once = Spoken(text);
    EXPECT_EQ(Spoken(once), once);
  }
}

TEST(SpokenGermanTest, IsTheSameSentenceBySentence) {
  const std::string_view text =
      "Am 3. Mai kam Dr. Meyer. Er blieb bis zum 5. Danach war Ruhe! „Schade“, sagte Fr. Berg.\n\nEs kostet "
      "5 €. Gut.";
  std::string joined;
  for (const TextRange& range : Sentences(text))
    joined += Spoken(text.substr(range.begin, range.end - range.begin));
  EXPECT_EQ(joined, Spoken(text));
}

TEST(SpokenGermanTest, PrefersTheUsersOwnWords) {
  SpellingOptions options;
  options.ownWords =
      ParseWordList("VBG = Verwaltungsberufsgenossenschaft\nDr. = Doc\nAuto* = Karre\n~abc = Alphabet");
  const GermanSpeller speller(options);
  EXPECT_EQ(speller.SpellOut("Dr. X von der VBG, nicht VBGs").text,
            "Doc X von der Verwaltungsberufsgenossenschaft, nicht VBGs");
  EXPECT_EQ(speller.SpellOut("Die Autobahn, kein Rennauto").text, "Die Karrebahn, kein Rennauto");
  EXPECT_EQ(speller.SpellOut("Das ABC und das Abc").text, "Das Alphabet und das Alphabet");
}

TEST(SpokenGermanTest, CopiesOfASpellerKnowTheOwnWords) {
  SpellingOptions options;
  options.ownWords = {{"VBG", "Genossenschaft"}};
  GermanSpeller speller;
  {
    const GermanSpeller first(options);
    speller = first;
  }
  EXPECT_EQ(speller.SpellOut("die VBG").text, "die Genossenschaft");
}

TEST(SpokenGermanTest, SaysEmojiByNameOrNotAtAll) {
  EXPECT_EQ(Spoken("Gut 👍🏽!"), "Gut Daumen hoch!");
  SpellingOptions options;
  options.speakEmoji = false;
  EXPECT_EQ(GermanSpeller(options).SpellOut("Gut 👍🏽!").text, "Gut !");
}

TEST(SpokenGermanTest, EndsSentencesBehindWeekdaysRanksAndMillions) {
  EXPECT_EQ(Spoken("Offen Mo.–Fr. Am Samstag ist zu."), "Offen Montag bis Freitag. Am Samstag ist zu.");
  EXPECT_EQ(Spoken("Es spricht Fr. Am Ende."), "Es spricht Frau Am Ende.") << "a name";
  EXPECT_EQ(Spoken("Es beginnt am 1.9. Interesse?"), "Es beginnt am ersten September. Interesse?");
  EXPECT_EQ(Spoken("Hast du am 1.9. Zeit?"), "Hast du am ersten September Zeit?");
  EXPECT_EQ(Spoken("Er wurde 1. Zweiter war Beck."), "Er wurde Erster. Zweiter war Beck.");
  EXPECT_EQ(Spoken("Sie zählt 4 Mio. Tendenz steigend."), "Sie zählt vier Millionen. Tendenz steigend.");
}

TEST(SpokenGermanTest, TellsSubjectsFromObjectsOfOne) {
  EXPECT_EQ(Spoken("1 Teller kostet 9 €, 1 Becher 3 €."),
            "Ein Teller kostet neun Euro, ein Becher drei Euro.");
  EXPECT_EQ(Spoken("Uns bleibt noch 1 Tag."), "Uns bleibt noch ein Tag.");
  EXPECT_EQ(Spoken("Er bleibt noch 1 Tag hier."), "Er bleibt noch einen Tag hier.");
  EXPECT_EQ(Spoken("Das Bild ging an 1 Käufer."), "Das Bild ging an einen Käufer.");
  EXPECT_EQ(Spoken("Im Schnitt kommt auf 1 Arzt 1 Pfleger."), "Im Schnitt kommt auf einen Arzt ein Pfleger.");
  EXPECT_EQ(Spoken("Vor dem Haus parkt 1 Bus."), "Vor dem Haus parkt ein Bus.");
  EXPECT_EQ(Spoken("Nach über 1 Stunde kam der Arzt."), "Nach über einer Stunde kam der Arzt.");
  EXPECT_EQ(Spoken("Das Bild hing an 1 Nagel."), "Das Bild hing an einem Nagel.");
}

TEST(SpokenGermanTest, MakesNoCharacterOfStrayBytes) {
  SpellingOptions options;
  options.speakEmoji = false;
  EXPECT_EQ(GermanSpeller(options).SpellOut("\xE2\x85\U0001F44D\x93").text, "\xE2\x85 \x93") << "no ⅓";
}

TEST(SpokenGermanTest, ReadsComparisonsOfAgesAsPrepositions) {
  EXPECT_EQ(Spoken("Kindern (<12 Jahren)"), "Kindern (unter zwölf Jahren)");
  EXPECT_EQ(Spoken("Patienten (> 65 Jahren)"), "Patienten (über fünfundsechzig Jahren)");
  EXPECT_EQ(Spoken("p < 5"), "p kleiner als fünf");
}

TEST(SpokenGermanTest, ReadsTheMinuteBehindAScorerOfAnyName) {
  EXPECT_EQ(Spoken("Ausgleich durch Fuchs (71.)"), "Ausgleich durch Fuchs (einundsiebzigste Minute)");
}

TEST(SpokenGermanTest, ReadsLatitudesAndSpeedsWithoutAStroke) {
  EXPECT_EQ(Spoken("Auf 48° n. Br. liegt es"), "Auf achtundvierzig Grad nördlicher Breite liegt es");
  EXPECT_EQ(Spoken("Tempo 30kmh"), "Tempo dreißig Kilometer pro Stunde");
}

TEST(SpokenGermanTest, AppliesTheUsersRulesFirst) {
  SpellingOptions options;
  options.rules = TextRules(std::vector<TextRule>{{R"( ?\[[^\]]*\])", ""}});
  const GermanSpeller speller(options);
  const SpokenText spoken = speller.SpellOut("Er kam [12. Er ging.] um 5 Uhr.");
  EXPECT_EQ(spoken.text, "Er kam um fünf Uhr.");
  ASSERT_EQ(spoken.runs.size(), 2U);
  EXPECT_EQ(spoken.runs[1].writtenBegin, 25U);
}

TEST(SpokenGermanTest, CutsALongTextBehindItsSentences) {
  const GermanSpeller speller;
  EXPECT_EQ(speller.PieceEnd("Er kam. Sie ging.", 0), 8U);
  EXPECT_EQ(speller.PieceEnd("Er kam. Sie ging.", 8), 17U);
}

}  // namespace
}  // namespace lorelin
