#include "scripts/scriptChecker.h"

#include <gtest/gtest.h>

namespace lorelin {
namespace {

// The findings as "line kind message", separated by "|"; E is an error, H a hint.
std::string Findings(std::string_view text) {
  std::string all;
  for (const ScriptFinding& finding : CheckScript(text)) {
    if (!all.empty()) all += "|";
    all +=
        std::to_string(finding.line) + (finding.kind == FindingKind::Error ? " E " : " H ") + finding.message;
  }
  return all;
}

// Exactly one finding of this kind, with these words in it.
void ExpectFinding(std::string_view text, char kind, std::string_view words) {
  const std::string all = Findings(text);
  EXPECT_EQ(all.find('|'), std::string::npos) << all;
  EXPECT_EQ(all.substr(0, 4), std::string("1 ") + kind + " ") << all;
  EXPECT_NE(all.find(words), std::string::npos) << all;
}

TEST(CheckScript, HasNothingToSayAboutSoundScripts) {
  EXPECT_EQ(Findings(""), "");
  EXPECT_EQ(Findings("# Kommentar\r\n// Sprechen();\r\n\r\n   \r\n"), "");
  EXPECT_EQ(Findings("Sprechen();\r\nPause();\r\nPause(x);\r\nLautstärke(50);\r\nLöschen(a.txt);\r\n"), "");
  EXPECT_EQ(
      Findings("Warten(10);\r\nWarten(1.5);\r\nWarten(1\\,5);\r\nWarten($Text);\r\nWartenBis(21:05:11);"),
      "");
  EXPECT_EQ(Findings("Sprechen2(a\\,b $Datum);\r\nErsetzen(alt,neu);\r\nDokument(x,0);\r\nDokument(x,);"),
            "");
  EXPECT_EQ(Findings("Exportieren(a.wav);\r\nSprechen();"), "");
  EXPECT_EQ(Findings("Meldung(Das kostet $5 und $US.);"), "");
}

TEST(CheckScript, NamesUnknownAndMisspeltCommands) {
  ExpectFinding("Singen();", 'E', "„Singen“ gibt es nicht; die Zeile tut nichts");
  ExpectFinding("sprechen();", 'E', "der Befehl heißt „Sprechen“");
  ExpectFinding("Sprechn();", 'E', "Meinten Sie „Sprechen“?");
  ExpectFinding("Ausfuhren(x);", 'E', "Meinten Sie „Ausführen“?");
}

TEST(CheckScript, NamesCommandsWithoutAction) {
  for (const auto* const line : {"Speichern(a.txt);", "Stimme(Anna);", "Beenden(0);", "Springe(1);"}) {
    ExpectFinding(line, 'E', "bewirkt nichts");
  }
}

TEST(CheckScript, NamesLinesThatAreSkipped) {
  ExpectFinding("Das ist ein Satz.", 'H', "wird übersprungen");
  ExpectFinding("X();", 'E', "zu kurz");
  ExpectFinding(" # Sprechen();", 'H', "Kommentarzeichen");
  EXPECT_EQ(Findings(" # nur Text"), "");
}

TEST(CheckScript, NamesWhatCutsAText) {
  ExpectFinding("Sprechen2(Hallo (Welt));", 'E', "gelesen wird nur „Hallo “");
  ExpectFinding("Sprechen2(a,b);", 'E', "„\\,“");
  ExpectFinding("Warten(1,5);", 'E', "„\\,“");
  ExpectFinding("Ersetzen(a,b,c);", 'E', "„\\,“");
}

TEST(CheckScript, NamesAWrongEndOfTheLine) {
  ExpectFinding("Sprechen2(Hallo)", 'E', "fehlt das „;“");
  ExpectFinding("Sprechen()", 'H', "fehlt „;“; der Befehl wird trotzdem ausgeführt");
  ExpectFinding("Stopp(", 'H', "fehlt „);“; der Befehl wird trotzdem ausgeführt");
  ExpectFinding("Sprechen2(Hallo", 'E', "fehlt „);“");
  ExpectFinding("Sprechen2(a);b);", 'E', "wird entfernt");
  ExpectFinding("Sprechen2(a); # laut", 'E', "wird entfernt");
  ExpectFinding("Meldung(a); ", 'H', "Leerzeichen");
}

TEST(CheckScript, NamesParametersThatDoNotFit) {
  ExpectFinding("Sprechen(Hallo);", 'H', "braucht keinen Parameter");
  ExpectFinding("Ersetzen(a);", 'E', "zwei Parameter");
  ExpectFinding("Dokument(a,2);", 'E', "nur 0 ersetzt");
  ExpectFinding("Dokument(a, 0);", 'E', "nur 0 ersetzt");
}

TEST(CheckScript, NamesNumbersThatAreNone) {
  ExpectFinding("Warten(x);", 'E', "keine Zahl");
  ExpectFinding("Warten();", 'E', "keine Zahl");
  ExpectFinding("Warten(-5);", 'E', "nicht enden");
  ExpectFinding("Geschwindigkeit(101);", 'E', "0 bis 100");
  ExpectFinding("Helligkeit(12.5);", 'E', "0 bis 100");
  ExpectFinding("Lautstärke(laut);", 'E', "0 bis 100");
  ExpectFinding("WartenBis(21:05);", 'E', "HH:MM:SS");
  ExpectFinding("WartenBis(24:00:00);", 'E', "HH:MM:SS");
  ExpectFinding("WartenBis($Zeit);", 'E', "keine Sekunden");
  ExpectFinding("WartenBis($Zeit:5);", 'E', "keine Sekunden");
  ExpectFinding("WartenBis($Zeit:30);", 'H', "wartet „WartenBis“ bis zum nächsten Tag");
  EXPECT_EQ(Findings("WartenBis($Zeit:59);"), "");
  ExpectFinding("Warten(99999999999);", 'E', "höchstens 3000000000 Sekunden");
  EXPECT_EQ(Findings("Warten(3000000000);"), "");
  EXPECT_EQ(Findings("Geschwindigkeit( 50);\r\nHelligkeit(50 );"), "");
}

TEST(CheckScript, NamesParametersThatAreEmpty) {
  ExpectFinding("Laden();", 'E', "lädt „Laden“ nichts");
  ExpectFinding("Löschen();", 'E', "löscht „Löschen“ nichts");
  ExpectFinding("Ausführen( );", 'E', "führt „Ausführen“ nichts aus");
  ExpectFinding("Exportieren();\r\nSprechen();", 'E', "keine Datei, die bleibt");
  ExpectFinding("Ersetzen(,x);", 'E', "ändert darum nichts");
  EXPECT_EQ(Findings("Ersetzen( ,x);"), "");
  ExpectFinding("Download(,a.txt);", 'E', "Ohne Adresse");
  ExpectFinding("Download(http://a.de/b,);", 'E', "Ohne Dateinamen");
  ExpectFinding("Sprechen2();", 'H', "das ganze Dokument");
}

TEST(CheckScript, NamesComparisonsThatAreNeverEqual) {
  EXPECT_NE(Findings("Wenn($Zeit,12:00:00);").find("E „$Zeit“ hat immer die Form HH:MM"), std::string::npos);
  EXPECT_NE(Findings("Wenn_nicht(9:05,$Zeit);").find("nie gleich „9:05“"), std::string::npos);
  EXPECT_NE(Findings("Wenn($Datum,1.1.2027);").find("E „$Datum“ hat immer die Form TT.MM.JJJJ"),
            std::string::npos);
  EXPECT_NE(Findings("Wenn($Datum,32.01.2027);").find("nie gleich"), std::string::npos);
  for (const auto* const sound : {"Wenn($Zeit,12:00);", "Wenn($Datum,01.01.2027);", "Wenn($Zeit,$Text);",
                                  "Wenn_nicht($Text,12:00:00);", "Wenn($Zeit Uhr,12:00 Uhr);"}) {
    EXPECT_EQ(Findings(sound).find(" E "), std::string::npos) << sound;
  }
}

TEST(CheckScript, NamesVariablesThatDoNotExist) {
  ExpectFinding("Meldung($zeit);", 'E', "Meinten Sie „$Zeit“?");
  ExpectFinding("Ersetzen(a,$Datm);", 'E', "Meinten Sie „$Datum“?");
  ExpectFinding("Meldung($Wochentag);", 'H', "der Text bleibt so stehen");
  ExpectFinding("Sprechen2(Es ist $Zeit[h] Uhr);", 'H', "nur im Dokument");
}

TEST(CheckScript, TellsOnceHowConditionsAct) {
  ExpectFinding("Wenn($Datum,01.01.2027);\r\nWenn($Zeit,12:00);", 'H',
                "nur weiter, wenn beide Texte gleich sind");
  ExpectFinding("Wenn_nicht($Zwischenablage,);", 'H', "nur weiter, wenn beide Texte verschieden sind");
  EXPECT_NE(Findings("Wenn($Zeit, 12:00);").find("mitverglichen"), std::string::npos);
}

TEST(CheckScript, TellsOnceWhatIsNeverReached) {
  EXPECT_EQ(Findings("Stopp();\r\nSprechen();\r\nSprechen();"),
            "2 H Ab hier wird nichts mehr ausgeführt: Zeile 1 beendet das Skript oder beginnt es neu.");
}

TEST(CheckScript, NamesAnExportThatLeavesNoFile) {
  ExpectFinding("Exportieren(a.wav);", 'E', "fehlt „Sprechen();“");
  EXPECT_NE(Findings("Exportieren(a.wav);\r\nSprechen2(x);\r\nSprechen();")
                .find("2 E „Sprechen2“ spricht in eine neue"),
            std::string::npos);
}

TEST(CheckScript, NamesASpeechThatOverwritesAnExportedFile) {
  EXPECT_EQ(Findings("Exportieren(a.wav);\r\nSprechen();\r\nSprechen();"),
            "3 E Dieses „Sprechen“ überschreibt die Datei von „Exportieren“ in Zeile 1. Geben Sie ihm mit "
            "„Exportieren“ eine eigene.");
  EXPECT_EQ(Findings("Exportieren(a.wav);\r\nSprechen();\r\nExportieren(b.wav);\r\nSprechen();"), "");
  EXPECT_EQ(Findings("Exportieren(a.wav);\r\nSprechen();\r\nSprechen2(x);\r\nWarten(3);\r\nSprechen();"), "");
  EXPECT_EQ(Findings("Exportieren(a.wav);\r\nExportieren(b.wav);\r\nSprechen();"),
            "1 E Hinter „Exportieren“ fehlt „Sprechen();“: so entsteht keine Datei.");
}

TEST(CheckScript, NamesASpeechThatIsCutOff) {
  EXPECT_EQ(
      Findings("Sprechen2(a);\r\nText(x);\r\nSprechen2(b);\r\nMeldung(c);\r\nSprechen();"),
      "3 H Hier bricht „Sprechen2“ ab, was „Sprechen2“ in Zeile 1 zu sprechen begann. Dazwischen fehlt ein "
      "„Warten“.");
  EXPECT_EQ(Findings("Sprechen2(a);\r\nWarten(5);\r\nSprechen();\r\nSprechen();"), "");
}

TEST(CheckScript, NamesAStatusTextThatNobodyCanRead) {
  EXPECT_NE(Findings("Sprechen();\r\nText(fertig);").find("2 H Als letzter Befehl"), std::string::npos);
  EXPECT_EQ(Findings("Text(es geht los);\r\nSprechen();"), "");
}

TEST(CheckScript, TellsTruthfullyHowToMendLineEnds) {
  EXPECT_NE(Findings("Stopp();\nText(b);").find("löschen Sie im Namen „.vts“ und speichern Sie es"),
            std::string::npos);
}

TEST(CheckScript, NamesLoneLineEndsOnceAndChecksTheLinesAllTheSame) {
  const std::string all = Findings("Text(a);\r\nText(b);\nWarten(x);\nX();\n");
  EXPECT_EQ(all.find("2 E Diese Zeile endet nicht mit CR LF"), 0U) << all;
  EXPECT_NE(all.find("3 E „x“ ist keine Zahl"), std::string::npos) << all;
  EXPECT_NE(all.find("4 E Die Zeile ist zu kurz"), std::string::npos) << all;
  EXPECT_EQ(all.find("CR LF", all.find("CR LF") + 1), std::string::npos) << all;
}

TEST(CheckScript, CountsWhatIsTooMuchToList) {
  std::string text;
  for (int i = 0; i < 1500; ++i) text += "X();\r\n";
  const auto findings = CheckScript(text);
  ASSERT_EQ(findings.size(), 1001U);
  EXPECT_EQ(findings.back().message, "Und noch 500 weitere Stellen.");
}

}  // namespace
}  // namespace lorelin
