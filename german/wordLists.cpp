#include "german/wordLists.h"

#include <algorithm>
#include <string>
#include <unordered_set>

#include "german/grammar.h"
#include "german/tokens.h"

namespace lorelin {
namespace {

// A set of words, made of one text with blanks between them.
class Words {
 public:
  explicit Words(std::string_view list) {
    for (std::size_t at = 0; at < list.size();) {
      const std::size_t end = std::min(list.find(' ', at), list.size());
      if (end > at) set_.insert(list.substr(at, end - at));
      at = end + 1;
    }
  }
  [[nodiscard]] bool Has(std::string_view word) const { return set_.contains(word); }

 private:
  std::unordered_set<std::string_view> set_;
};

}  // namespace

bool IsDegreeWord(std::string_view word) {
  static const Words words(
      "nur etwa ca rd insges circa zirka rund knapp gut fast genau mindestens höchstens maximal minimal max "
      "mind min "
      "je jeweils noch "
      "erst schon bereits weiteren ungefähr annähernd beinahe lediglich bloß insgesamt nahezu wenigstens "
      "exakt ganz spätestens frühestens einschließlich "
      "mehr als zu vorauss voraussichtlich voraussichtl vsl evtl eventuell wohl vermutlich ggf "
      "gegebenenfalls völlig vollständig komplett gründlich grundlegend stark leicht");
  return words.Has(word);
}

bool IsLinkingVerb(std::string_view word) {
  static const Words words(
      "lebten lebte wohnten wohnte arbeiteten arbeitete standen kamen kommen lagen saßen fehlten folgten "
      "erschienen starben hingen gingen sterben liegen stehen "
      "sitzen hängen "
      "ist sind war waren wird werden wurde wurden bleibt bleiben blieb fehlt fehlen fehlte liegt steht "
      "kommt kam heißt "
      "folgt reicht genügt gilt gelten befindet befinden sei wäre existiert passt gehört entsteht verbleibt "
      "lautet "
      "entspricht entsprechen stand standen saß sitzt lag hängt hing lebt wohnt arbeitet wächst beginnt "
      "begann endet endete klingelt klingelte "
      "passierte geschah erschien erscheint gesucht starb stirbt scheint schien spielt mitspielt singt "
      "tritt trat gehören gehörte gehörten fällt fallen fiel fielen reichen genügen genügte passen "
      "existieren existierte drohen droht drohte landete explodierte brennt brannte verschwand verschwanden "
      "bestand bestehen entstand entstanden verunglückte ertrank erklingt erklang blieben verbleiben wohnen "
      "zählen zählte gehe gehen ging kostenlos passierten ereignete handelt handelte "
      "gelang gelingt unterlief unterläuft");
  return words.Has(word);
}

bool TakesObject(std::string_view word) {
  static const Words words(
      "hätte hätten möchte möchten bräuchte bräuchten wünsche wünschen gibt gab habe hat haben hatte hatten "
      "hast habt nehmen nimmt nahm nehme nimm kostet kosten kostete "
      "dauert dauerte beträgt "
      "betrug kauft kaufte kaufen braucht brauchte brauchen benötigt benötigen enthält enthielt enthalten "
      "bekommt bekam "
      "bekommen erhält erhielt erhalten ich er wir man du trinkt trinken trank isst essen aß wiegt wog "
      "umfasst umfasste bietet "
      "zahlt zahlte zahlten zahlen bezahlt kauften bekamen brauchten verloren gewannen erhielten tranken "
      "sparten bestellten "
      "spendeten suchten fanden sahen spart sparen verliert verlor gewann gewinnt gewinnen holte holt "
      "belegte "
      "belegt erreichte erreicht "
      "geben gebe gib fügen füge sucht suchen suche wartet warten wartete schläft verkauft verkaufte "
      "bestellt bestellte "
      "misst maß spendet spendete lief läuft fuhr fährt macht machte machen ergibt schrieb schreibt feiert "
      "feierte sah "
      "verschenke verkaufe biete tausche benötige sieht fand findet stellt stellte mietete vermietet besitzt "
      "überweise überweist überweisen sende senden sendet schicke schicken schickt verordne verordnet bitte "
      "bitten "
      "bringt bringen brachte brachten besaß hält hielt verursacht erzielte erzielt schoss");
  return words.Has(word);
}

bool IsVerb(std::string_view word) {
  static const Words words(
      "wurde wurden werde werden belegte erreichte holte hatte hatten habe haben konnte konnten machte "
      "sollte wollte musste "
      "mussten sagte waren wäre wären würde würden gelten spielten wohnen gehen kommen lesen siehe startete "
      "landete feierte "
      "endete beendete beginnen ergeben gab geben kosten blieben bleiben fahren war zählt zeigte kaufte "
      "brauchte suche "
      "sehe nehmen nahm nahmen sah kam kamen ging gingen lag stand fand trug schrieb");
  return words.Has(word) || TakesObject(word);
}

bool IsOrdinalWord(std::string_view word) {
  if (!HasSuffix(word, {"te", "ten", "ter", "tes", "tem"})) return false;
  return HasSuffix(word.substr(0, word.rfind('t') + 1),
                   {"erst", "zweit", "dritt", "viert", "fünft", "sechst", "siebt", "acht", "neunt", "zehnt",
                    "elft", "zwölft", "zigst", "ßigst"});
}

bool IsNumberedHead(std::string_view noun) {
  static const Words words(
      "Min Std Sek Szene Olympiade Jahrestag Aufl Ausg Kl Bd Kap HZ Qu Sem Lj Jh Jhd Jhdt Jahrh Jt Klasse "
      "Vorsitzender "
      "Vorsitzende Vorsitzenden "
      "Vorstand Bürgermeister Bürgermeisterin Platz Platzes "
      "Preis Rang Liga Bundesliga Kreisliga Regionalliga "
      "Landesliga Advent Weltkrieg Weltkriegs Weltkrieges Auflage Stock Stockwerk Etage Obergeschoss "
      "Untergeschoss OG UG Halbzeit Quartal "
      "Quartals Halbjahr Halbjahres Jahrhundert Jahrhunderts Jahrtausend Semester Lesung Instanz Grades Grad "
      "Ordnung Generation Mahnung Rate Hand "
      "Wahl Person Teil Kapitel Akt Aufzug Satz Strophe Sinfonie Symphonie Runde Spieltag Etappe Tag Woche "
      "Monat Jahr Stunde "
      "Staffel Folge Ausgabe Band Buch Bundesligist Sieger Siegerin Senat Kammer Zivilsenat Strafsenat "
      "Bezirk Schritt Geburtstag Hochzeitstag Todestag "
      "Lebensjahr Lebensjahres Schuljahr Lehrjahr Ausbildungsjahr Gang Hauptsatz Fassung Änderung Nachtrag "
      "Termin Versuch Anlauf Mal "
      "Kind Sohn Tochter Ehe Stufe Version Impfung Dosis Spiel Tor Drittel Viertel Durchgang Wahlgang "
      "Feiertag Weihnachtstag "
      "Weihnachtsfeiertag Osterfeiertag Pfingsttag Kompanie Bataillon Division Armee Regiment Republik Reich "
      "FC Kläger Klägerin Beklagter "
      "Zeuge Offizier Stellvertreter Trainer Torwart Mannschaft Herren Damen Oberliga Reihe Gebot Buch Brief "
      "Korintherbrief Mose Advents Klassen "
      "Bürgerversammlung Sitzung Ausschuss Entwurf Sonntag Montag Dienstag Mittwoch Donnerstag Freitag "
      "Samstag "
      "Januar Februar März April Mai Juni Juli August September Oktober November Dezember Minute Sekunde "
      "Stelle "
      "Zeile Besuch Werktag Lauf Versuch Saison Spielzeit Amtszeit Schwangerschaftswoche SSW Hälfte BL Halbs "
      "HS Halbsatz "
      "Alternative Unterabs Unterabsatz Zone Zahlung Fuhre Ziehung Hj Schuljahr Grundgesetz Petr Thess Tim "
      "Kor Zahlungserinnerung Zahlungsaufforderung Wohnsitz Nebenwohnsitz Staatsexamen Staatsprüfung "
      "Abschlag "
      "Abschlagszahlung Abschlagsrechnung Teilrechnung Teilzahlung Ratenzahlung Bauabschnitt Lesejahr "
      "Elternteil "
      "Fachsemester Rettungsweg Angebotsrunde Bieterrunde Korrektur Überarbeitung Fortschreibung "
      "Stadtrat Stadtdirektor Beigeordneter Beigeordnete Sekretär Staatsanwalt Staatsanwältin Geiger "
      "Geigerin "
      "Violine Kapellmeister Konzertmeister Konzertmeisterin Landesrat Minister Landrat Steuermann Assistent "
      "Assistentin Geschäftsführer Direktor Vizepräsident Vizepräsidentin Kassierer Schriftführer "
      "Schriftführerin Botschafter Ehefrau Ehemann Frau "
      "Korinther Petrus Timotheus Thessalonicher Samuel Könige");
  if (words.Has(noun)) return true;
  // "Verhandlungstag", "Strafkammer": what is counted by its last part.
  constexpr std::size_t kShortestFirstPart = 3;
  for (const std::string_view part :
       {"tag",         "woche",      "klasse",   "liga",         "kammer",      "senat",         "runde",
        "etage",       "geschoss",   "auflage",  "semester",     "jahr",        "minute",        "platz",
        "rang",        "sitzung",    "auflage",  "etappe",       "spieltag",    "impfung",       "mahnung",
        "wahl",        "geburtstag", "kreis",    "vorsitzender", "vorsitzende", "bürgermeister", "instanz",
        "stufe",       "staffel",    "wahlgang", "durchgang",    "lehrgang",    "jahrgang",      "bezirk",
        "versammlung", "turnier",    "rennen"}) {
    if (noun.ends_with(part) && noun.size() >= part.size() + kShortestFirstPart) return true;
  }
  return false;
}

bool GoesBeforeYears(std::string_view word) {
  static const Words words(
      "Jahr Jahre Jahres Jahren im in seit von bis ab um vor nach Januar Februar März April Mai Juni Juli "
      "August "
      "September Oktober November Dezember Sommer Winter Herbst Frühjahr Frühling Anfang Ende Mitte "
      "Weihnachten "
      "Ostern Silvester geboren gestorben Baujahr Jahrgang zwischen Seit Von Bis Ab Um Vor Nach Im In");
  return words.Has(word);
}

bool StartsSentences(std::string_view word) {
  static const Words words(
      "Der Die Das Den Dem Des Ein Eine Einen Einem Einer Eines Ich Du Er Sie Es Wir Ihr Man Mein Meine "
      "Meinem Meinen "
      "Meiner Dein Deine Sein Seine Seinem Seinen Seiner Ihre Ihrem Ihren Ihrer Unser Unsere Unserem Unseren "
      "Euer Eure "
      "Kein Keine Keiner Keinen Dieser Diese Dieses Diesem Diesen Jener Jene Jeder Jede Jedes Jedem Jeden "
      "Alle Alles Allen Aller "
      "Viele Vielen Einige Manche Mehrere Beide Beiden Am Im In An Auf Bei Beim Mit Nach Vor Von Vom Zu Zum "
      "Zur Für Durch "
      "Gegen Ohne Um Aus Seit Ab Bis Über Unter Während Wegen Trotz Und Oder Aber Denn Doch Sondern Wenn Als "
      "Ob Dass Weil Da "
      "Damit Danach Dann Dort Hier Heute Gestern Morgen Jetzt Nun Nur Auch Noch Schon Sehr So Wie Was Wer "
      "Wen Wem Wo Wann Warum "
      "Wieso Weshalb Welche Welcher Welches Bitte Nein Ja Nicht Nichts Leider Später Früher Zuerst Zuletzt "
      "Außerdem Deshalb Daher Dabei "
      "Dazu Dafür Dagegen Daran Darauf Darin Darum Davon Davor Trotzdem Jedoch Allerdings Insgesamt "
      "Inzwischen Anschließend Schließlich "
      "Zudem Ferner Weiter Weitere Weiteres Ebenso Etwa Rund Zwei Drei Vier Fünf Sechs Sieben Acht Neun Zehn "
      "Circa Ca Etwas Jemand Niemand "
      "Nie Immer Oft Manchmal Selten Meist Meistens Zwar Sonst Sobald Solange Obwohl Falls Nachdem Bevor "
      "Bereits Erst Eigentlich "
      "Vielleicht Wahrscheinlich Vermutlich Natürlich Selbstverständlich Vielen Viel Mehr Wenig Weniger Ganz "
      "Genau Gerade Kurz "
      "Lange Nachts Abends Morgens Mittags Vormittags Nachmittags Täglich Zunächst Zugleich Gleichzeitig "
      "Dadurch Hierbei Hierzu "
      "Hiermit Sowohl Weder Entweder Statt Anstatt Laut Gemäß Neben Zwischen Hinter Innerhalb Außerhalb Ist "
      "Sind War Waren Hat Haben "
      "Wird Werden Wurde Kann Können Konnte Muss Müssen Soll Sollen Sollte Darf Dürfen Will Wollen Möchten "
      "Würde Hätte Gibt Kommt "
      "Geht Rufen Kommen Nehmen Geben Lesen Senden Melden Wenden Beachten Prüfen Überweisen Zahlen "
      "Legen Stellen "
      "Drücken Klicken Öffnen Schließen Danke Hallo Tschüss Gruß Grüße Liebe Lieber Sehr Denken Bringen Wer "
      "Somit Folglich Demnach "
      "Seitdem Bisher Künftig Zurzeit Derzeit Momentan Mittlerweile Plötzlich Endlich Sogar Besonders Vor "
      "Neu Neue Letzte Letzten Nächste "
      "Nächsten Gut Schön Schade Klar Okay Ok Lass Lasst Kannst Bist Hast Weißt Siehst Mir Mich Uns Dir Dich "
      "Euch Ihm Ihn Ihnen Guten Herzlichen Herzliche Genaueres Näheres Einzelheiten "
      "Andernfalls Ansonsten Hingegen Stattdessen Daraufhin Daneben Dahinter Dennoch Indes Indessen "
      "Wiederum Ausnahmsweise Anfangs Anfänglich Ursprünglich Einst Fortan Seither Einmal Zweimal "
      "Beispielsweise Möglicherweise Glücklicherweise Hierfür Hiervon Hieraus Daraus Dementsprechend "
      "Infolgedessen Jeweils Diesmal Vorher Nachher Hinterher Draußen Drinnen Oben Unten Links Rechts "
      "Damals Letztlich Letztendlich Übrigens Immerhin Offenbar Angeblich Normalerweise Üblicherweise "
      "Teilweise Nebenan Gegenüber Unterdessen Währenddessen Zusätzlich Gegebenenfalls Mindestens Höchstens "
      "Spätestens Frühestens Ungefähr Fast Knapp Nahezu Sämtliche Solche Etliche Zahlreiche Andere Anderen "
      "Anders Derartige Wenngleich Sofern Soweit Sodass Indem Irgendwann Kaum Samstags Sonntags Montags "
      "Feiertags Werktags Könnten Könntest Könnt Magst Sag Gib Nimm Denk Denkt Schreib Meld Melde Meldet "
      "Vergiss Vergesst Hol Lies Komm Sollten Solltest Wollt Willst Habt Seid Wirst Würden Würdest Wären "
      "Dürfte Müsste Musst Hatte Hatten Wurden Kam Kamen Lag Lagen Liegt Steht Erscheint Erscheinen Reichen "
      "Füllen Vereinbaren Vermeiden Bewahren Verwenden Achten Halten Setzen Entnehmen Ungeachtet Angesichts "
      "Aufgrund Anstelle Infolge Hinsichtlich Bezüglich Mithilfe Zuvor Daheim Zuhause Weitaus Vorerst "
      "Vorläufig Vorsichtshalber Erstmals Letztmals Keinesfalls Niemals Nirgends Überall Dorthin Hierher "
      "Unweit Nördlich Südlich Östlich Westlich Zusammen Allein Gemeinsam Jedenfalls Ebenfalls Gleichfalls "
      "Womöglich Sicherlich Bestimmt Tatsächlich Eigens Lediglich Ausschließlich Überwiegend Vorwiegend "
      "Hauptsächlich Insbesondere Vorausgesetzt Dienstags Mittwochs Donnerstags Freitags Wochentags Bring "
      "Bringt "
      "Frag Fragt Ruft Warte Wartet Mach Schick Schickt Stell Stellt Leg Legt Schaut Hör Hört Kauft Bleib "
      "Bleibt");
  return words.Has(word);
}

bool IsWomansName(std::string_view name) {
  static const Words words(
      "Elisabeth Maria Katharina Margarethe Margarete Margareta Victoria Viktoria Christina Christine "
      "Beatrix "
      "Juliana Wilhelmina Isabella Anna Anne Mary Olga Kleopatra Elizabeth Margrethe Sophie Sophia Louise "
      "Luise Johanna Sonja Silvia Theresia Therese Teresa Barbara Hildegard Hedwig Brigitta Brigitte "
      "Birgitta "
      "Cäcilia Lucia Luzia Agnes Agatha Ursula Walburga Notburga Helena Helene Klara Clara Monika Rita "
      "Veronika Magdalena Martha Marta Edith Gertrud Mechthild Kunigunde Adelheid Odilia Ottilie Afra "
      "Apollonia "
      "Dorothea Genoveva Gudula Lioba Irmgard Bernadette Birgit Petra Sabine Susanne Karin Ingrid Heike "
      "Claudia Andrea Angela Ulrike Renate Julia Laura Lena Lisa Sarah Sara Emma Mia Hannah Hanna Leonie "
      "Marie "
      "Amelie Eva Ida Frieda Greta Charlotte Gisela Helga Erika Ilse Irene Ruth Doris Inge Ute Gabriele "
      "Cornelia Kerstin Silke Anja Nicole Stefanie Stephanie Melanie Nadine Sandra Katja Kathrin Katrin Nina "
      "Jana Franziska Lea Paula Mathilde Auguste Henriette Friederike Karoline Caroline Amalie");
  if (name == "Andreas") return false;
  return words.Has(name) || (name.ends_with('s') && words.Has(name.substr(0, name.size() - 1)));
}

bool IsExtent(std::string_view word) {
  return IsOneOf(word, {"lang",     "hoch",    "breit",  "tief",   "dick",  "schwer", "groß",   "weit",
                        "entfernt", "alt",     "später", "früher", "zuvor", "danach", "länger", "höher",
                        "mehr",     "weniger", "lange",  "vorher", "vorn",  "vorne",  "zurück", "hinten"});
}

bool IsVessel(std::string_view word) {
  return IsOneOf(word, {"Glas", "Tasse", "Becher", "Eimer", "Kanne", "Flasche", "Schüssel", "Schale",
                        "Esslöffel", "Teelöffel", "Portion", "Person", "Gießkanne", "Topf", "Krug"});
}

bool IsPartOfThing(std::string_view word) {
  return IsOneOf(
      word, {"Saft",      "Schale",     "Abrieb",    "Mark",    "Inhalt",      "Fruchtfleisch", "Zesten",
             "Preis",     "Gewicht",    "Hälfte",    "Dauer",   "Kosten",      "Wert",          "Blätter",
             "Blättchen", "Kaufpreis",  "Miete",     "Bau",     "Kauf",        "Verlust",       "Vorlage",
             "Abgabe",    "Begleitung", "Gegenwart", "Beisein", "Anwesenheit", "Ablauf"});
}

bool IsBentExtent(std::string_view word) {
  const std::size_t ending = HasSuffix(word, {"en", "er", "es", "em"}) ? 2 : 1;
  if (word.size() < 5 || !HasSuffix(word, {"e", "en", "er", "es", "em"})) return false;
  const auto stem = word.substr(0, word.size() - ending);
  return IsOneOf(stem, {"lang", "hoh", "breit", "tief", "dick", "schwer", "groß", "weit", "entfernt", "alt",
                        "stark", "starke"});
}

bool AsksForGenitive(std::string_view verb) {
  return IsOneOf(verb, {"bedarf", "bedürfen", "bedurfte", "bedurften", "bedürfte"});
}

bool IsLabel(std::string_view word) {
  static const Words words(
      "Nummer Nr Nrn Nummern Kapitel Kap Seite Seiten S Zimmer Zi Raum Absatz Abs Satz Artikel Art Paragraf "
      "Paragraph Paragrafen Gleis Gl "
      "Linie Linien Punkt Ziffer Ziff Version Haus Hausnummer Hausnr Teil Tor Halle Phase Gruppe Abbildung "
      "Abb Tabelle Tab Anlage Anl Anhang "
      "Abschnitt Abschn Aufgabe Übung Frage Bild Lektion Vers Spalte Zeile Bus Tram Zug Wagen Tür Typ Modell "
      "Größe Code PLZ Box "
      "Block Sektor Level Route Station Autobahn Bundesstraße Landstraße Konto Kontonummer Kundennummer "
      "Rechnungsnummer Aktenzeichen Az Vorgang "
      "Bestellnummer Artikelnummer Mitgliedsnummer Telefon Tel Fax Notruf Port PIN Kanal Sender Startnummer "
      "Rückennummer Trikotnummer "
      "Quartal Apartment Appartement Whg Wohnung Steckplatz Sitzplatz Sitz Reihe Ebene Position Pos Fach "
      "Schalter Terminal Buchstabe Fußnote Anm Anmerkung "
      "Beispiel Bsp Formel Gleichung Stufe Pflegestufe Pflegegrad Steuerklasse Lohnsteuerklasse Lektionen "
      "ICE IC RE RB ISO DIN EN IEC A B BGH "
      "UAbs Unterabs Unterabsatz Halbsatz Kabinett Bd Heft Ausgabe Folge Staffel Bundestagsdrucksache "
      "Drucksache Drs Klasse Randnummer Rn Rdnr "
      "Tz Kunden Postfach Zone Schritt Schlüssel Figur Variante Szene Postleitzahl");
  if (words.Has(word)) return true;
  constexpr std::size_t kShortestName = 3;  // of a street, before its last part
  for (const std::string_view part :
       {"straße", "strasse", "str", "weg", "allee", "gasse", "ring", "ufer", "nummer", "nr", "damm"}) {
    if (word.ends_with(part) && word.size() >= part.size() + kShortestName) return true;
  }
  return false;
}

}  // namespace lorelin
