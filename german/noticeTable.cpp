#include "german/abbreviationTable.h"

namespace lorelin {
namespace {

using enum Around;
using enum Ending;
using enum Bending;
using A = Abbreviation;

// clang-format off
constexpr Abbreviation kTable[] = {
    // Flats, cars and other advertisements.
    A{"sof.", "sofort"}, A{"ges. ab", "gesucht ab"}, A{"ges. zum", "gesucht zum"}, A{"ges. z.", "gesucht z."},
    A{"Einbaukü.", "Einbauküche"}, A{"Wohnkü.", "Wohnküche"}, A{"Kellerabt.", "Kellerabteil", Anything, Starter},
    A{"Prov.-frei", "provisionsfrei"}, A{"provisionsfr.", "provisionsfrei"}, A{"Zi.", "Zimmer", Anything, Starter},
    A{"NR", "Nichtraucher", Wanted}, A{"Fam.-Haus", "Familien-Haus"}, A{"Grdst.", "Grundstück"},
    A{"EZ", "Erstzulassung", Number}, A{"Hd.", "Hand", DayBefore, Noun}, A{"Etg.", "Etage", Anything, Noun},
    A{"Stck.", "Stock", DayBefore, Noun}, A{"Hinterhs.", "Hinterhaus", Anything, Noun},
    A{"Vorderhs.", "Vorderhaus", Anything, Noun}, A{"Kt.", "Kaution", Closed}, A{"Fußw.", "Fußweg", Anything, Noun},
    A{"Verm. möbl.", "Vermiete möbl."}, A{"abzug.", "abzugeben"}, A{"verz.", "verzinkt", Closed},
    A{"Nettokaltm.", "Nettokaltmiete"}, A{"Gartenant.", "Gartenanteil"}, A{"SZ", "Schlafzimmer", NumberBefore},
    A{"Raumh.", "Raumhöhe"}, A{"gehob. Ausst.", "gehobene Ausstattung"}, A{"Ausst.", "Ausstattung", Described},
    // Letters and offices.
    A{"Kennz.", "Kennzeichen"}, A{"Verh.", "Verhältnis"}, A{"Folg.", "Folgendes", SmallWord},
    A{"Folgend.", "Folgendes", SmallWord}, A{"b. d.", "bei d."},
    A{"uns. Schreiben", "unser Schreiben"}, A{"uns. Kunden", "unsere Kunden"}, A{"uns. Haus", "unser Haus"},
    A{"Hochachtungsv.", "Hochachtungsvoll"}, A{"hochachtungsv.", "hochachtungsvoll"},
    A{"Staatsang.", "Staatsangehörigkeit"}, A{"Mitgl.-Vers.", "Mitgliederversammlung"},
    A{"Mitgl.-Beitrag", "Mitgliedsbeitrag"}, A{"n.", "nach", Section}, A{"m.", "mit", Section},
    A{"ev.", "evangelisch", Closed}, A{"kath.", "katholisch", Closed}, A{"rk.", "römisch-katholisch", Closed},
    A{"im Gr.", "im Großen"}, A{"Im Gr.", "Im Großen"}, A{"im Kl. Saal", "im Kleinen Saal"},
    A{"d. Inn.", "des Inneren"}, A{"verarb. wir", "verarbeiten wir"}, A{"abzugsf.", "abzugsfähig"},
    A{"Reisepassnr.", "Reisepassnummer"}, A{"wh.", "wohnhaft"}, A{"Fahrerl.", "Fahrerlaubnis"},
    // Medicine.
    A{"ü.", "über", Number}, A{"art.", "arteriell", Described, Never, Adjective},
    A{"b. Verschl.", "bei Verschlechterung"}, A{"verschr.-pfl.", "verschreibungspflichtig"},
    A{"Apothekenpfl.", "Apothekenpflichtig"}, A{"reichl.", "reichlich"}, A{"unverd.", "unverdünnt"},
    A{"V. a. auf", "Verdacht auf"}, A{"Allg.-Zustand", "Allgemeinzustand"}, A{"AU-Besch.", "AU-Bescheinigung"},
    // News, sports, school, art.
    A{"gew.", "gewann", Number}, A{"verl.", "verlor", Number}, A{"Endst.", "Endstand", Number},
    A{"sonn- u. feiert.", "sonn- und feiertags"}, A{"sonn- und feiert.", "sonn- und feiertags"},
    A{"So.- und Feiert.", "Sonn- und Feiertag"}, A{"Krz.", "Kreuz", Capital}, A{"Öl a. Lw.", "Öl auf Leinwand"},
    A{"entst.", "entstand", SmallWord}, A{"entst.", "entstand", Number}, A{"stud. Med.", "studierte Medizin"},
    A{"stud. Jura", "studierte Jura"}, A{"HS", "Hörsaal", Number}, A{"Symph.", "Symphonie", Anything, Noun},
    A{"Sinf.", "Sinfonie", Anything, Noun}, A{"arb.", "arbeiten", Closed}, A{"Vers.", "Version", Release},
    A{"+ Entf", "plus Entfernen"}, A{"Std.-Plan", "Stundenplan"}, A{"Std.-Lohn", "Stundenlohn"},
    A{"zus.str.", "zusammenstricken"}, A{"zus.str", "zusammenstricken"}, A{"wdh.", "wiederholen"},
    A{"LL", "Lauflänge", Number}, A{"Str.", "Strophe", Hymn}, A{"Jh.s", "Jahrhunderts"},
    A{"Hj.", "Halbjahr", Anything, Noun}, A{"Lin.", "Lineatur", Number}, A{"RH", "Rahmenhöhe", Length},
    A{"FP", "Festpreis", Number}, A{"Schulj.", "Schuljahr", Anything, Noun}, A{"Sj.", "Schuljahr", Anything, Noun},
    A{"Kor.", "Korinther", Number}, A{"Röm.", "Römer", Number}, A{"Mt.", "Matthäus", Number},
    A{"Lk.", "Lukas", Number}, A{"Mk.", "Markus", Number}, A{"Ps.", "Psalm", Number}, A{"Petr.", "Petrus", Number},
    A{"Eph.", "Epheser", Number}, A{"Hebr.", "Hebräer", Number}, A{"Jes.", "Jesaja", Number},
    A{"Apg.", "Apostelgeschichte", Number}, A{"Offb.", "Offenbarung", Number}, A{"Gal.", "Galater", Number},
    A{"Thess.", "Thessalonicher", Number}, A{"Tim.", "Timotheus", Number}, A{"Spr.", "Sprüche", Number},
    A{"EG", "Entgeltgruppe", PayGroup}, A{"in VZ", "in Vollzeit"}, A{"in TZ", "in Teilzeit"},
    A{"VZ/TZ", "Vollzeit oder Teilzeit"}, A{"Jgst.", "Jahrgangsstufe"}, A{"min", "Minute", DayBefore},
    A{"Lj.", "Lebensjahr", DayBefore, Noun}, A{"Zimmer-App.", "Zimmer-Apartment", Anything, Noun}, A{"R.", "Raum", Number},
    A{"der J.", "der Jahre", Year}, A{"den J.", "den Jahren", Year}, A{"die J.", "die Jahre", Year},
    // Law, papers and news.
    A{"d. s.", "das sind"}, A{"d. A.", "der Akte", NumberBefore, Noun}, A{"Rs.", "Rechtssache"},
    A{"nach st. Rspr.", "nach ständiger Rechtsprechung"}, A{"Nach st. Rspr.", "Nach ständiger Rechtsprechung"},
    A{"gem. st. Rspr.", "gemäß ständiger Rechtsprechung"}, A{"i. Vgl. zum", "im Vergleich zum"},
    A{"i. Vgl. zur", "im Vergleich zur"}, A{"i. Vgl.", "im Vergleich"}, A{"v.", "von", SmallWord},
    A{"n. Trin.", "nach Trinitatis", Anything, Noun}, A{"bürgerl.", "bürgerlich", Name},
    A{"nördl. Breite", "nördlicher Breite"}, A{"südl. Breite", "südlicher Breite"},
    A{"östl. Länge", "östlicher Länge"}, A{"westl. Länge", "westlicher Länge"},
    A{"präop.", "präoperativ"}, A{"angef. Std.", "angefangene Stunde", Anything, Noun}, A{"angef.", "angefangen", Described, Never, Adjective},
    A{"Prov.", "Provision", Closed}, A{"keine Prov.", "keine Provision", Anything, Noun},
    A{"ohne Prov.", "ohne Provision", Anything, Noun},
    // Notes, minutes and recipes.
    A{"o. re.", "oben rechts"}, A{"o. li.", "oben links"}, A{"u. re.", "unten rechts"}, A{"u. li.", "unten links"},
    A{"li.", "link", BodyPart, Never, Adjective}, A{"re.", "recht", BodyPart, Never, Adjective},
    A{"w. f.", "wie folgt"}, A{"Priv.", "Privat"}, A{"b. Arzt", "beim Arzt"}, A{"b. Zahnarzt", "beim Zahnarzt"},
    A{"b. Bäcker", "beim Bäcker"}, A{"b. Friseur", "beim Friseur"}, A{"b. Chef", "beim Chef"},
    A{"b. Finanzamt", "beim Finanzamt"}, A{"b. Amt", "beim Amt"}, A{"b. Hausmeister", "beim Hausmeister"},
    A{"Kl.-Lehrerin", "Klassenlehrerin"}, A{"Kl.-Lehrer", "Klassenlehrer"}, A{"Kühlschr.", "Kühlschrank"},
    A{"Kleiderschr.", "Kleiderschrank"}, A{"Ges.-Betr.", "Gesamtbetrag"}, A{"ohne Abz.", "ohne Abzug", Anything, Noun},
    A{"überw. Sie", "überweisen Sie"}, A{"Bei Rückfr.", "Bei Rückfragen"}, A{"bei Rückfr.", "bei Rückfragen"},
    A{"außer Betr.", "außer Betrieb", Anything, Noun}, A{"in Betr.", "in Betrieb", Anything, Noun},
    A{"Fahrst.", "Fahrstuhl"}, A{"Trinkw.", "Trinkwasser"}, A{"Durchg. verb.", "Durchgang verboten"},
    A{"Elt.", "Eltern"}, A{"Vors. Stufe", "Vorsicht Stufe"}, A{"Mittagsr.", "Mittagsruhe"},
    A{"Ausf. freihalten", "Ausfahrt freihalten"}, A{"Einf. freihalten", "Einfahrt freihalten"},
    A{"Einl. ab", "Einlass ab"}, A{"Einl. um", "Einlass um"}, A{"Sz.", "Szene", DayBefore, Noun},
    A{"Weltkr.", "Weltkrieg", Anything, Starter},
    A{"Ki.", "Kinder", SmallWord}, A{"Bft.", "Beaufort", Number}, A{"Bft", "Beaufort", Number},
    A{"ggw.", "gegenwärtig"}, A{"f. Anf.", "für Anfänger"}, A{"auß.", "außer"}, A{"Akad.", "Akademie"},
    A{"d. Wiss.", "der Wissenschaften"}, A{"Fl.", "Flasche", Name}, A{"geh. lassen", "gehen lassen"},
    A{"schn.", "schneiden", Closed}, A{"würf.", "würfeln", Closed}, A{"anbr.", "anbraten", Closed},
    A{"back.", "backen", Closed}, A{"unterr.", "unterrühren", Closed}, A{"aufk.", "aufkochen", Closed},
    A{"hinzug.", "hinzugeben", Closed}, A{"erhitz.", "erhitzen", Closed}, A{"Unterh.", "Unterhitze"},
    A{"darüberstr.", "darüberstreuen"}, A{"bestr.", "bestreuen", Closed}, A{"Bstg.", "Bahnsteig", Number},
    A{"Anschl.", "Anschluss", Inside}, A{"Anschl. wird", "Anschluss wird"}, A{"Anschl. nach", "Anschluss nach"},
    A{"Anschl. an", "Anschluss an"}, A{"Ma.", "Mathe"}, A{"Vok.", "Vokabeln"}, A{"Hausaufg.", "Hausaufgaben"},
    A{"spr.", "sprach", SmallWord}, A{"zur.", "zurück", Closed}, A{"Min.präs.", "Ministerpräsident"},
    A{"Wolfg.", "Wolfgang", Name}, A{"v.", "von", Closed}, A{"verw.", "verwendet", Passive},
    A{"gew.", "gewählt", Passive}, A{"zerst.", "zerstört"}, A{"aufgeb.", "aufgebaut"}, A{"uns.", "unser", Opening},
    A{"rückfr.", "rückfragen"}, A{"begr.", "begrüßt", SmallWord}, A{"Anw.", "Anwesend", Colon},
    A{"zur Anw.", "zur Anwendung"}, A{"Zur Anw.", "Zur Anwendung"}, A{"einst.", "einstimmig"},
    A{"angen.", "angenommen"}, A{"entsch.", "entschuldigt"}, A{"Verschied.", "Verschiedenes", Closed},
    A{"verl. wird", "verlängert wird"}, A{"verl. werden", "verlängert werden"},
    A{"ges. Best.", "gesetzlichen Bestimmungen"}, A{"Der Verk.", "Der Verkäufer"}, A{"bevollm.", "bevollmächtige"},
    A{"rechtskr.", "rechtskräftig"}, A{"geeig.", "geeignet"}, A{"Lichtgesch.", "Lichtgeschützt"},
    A{"Umg.", "Umgebung"}, A{"funkt.fähig", "funktionsfähig"}, A{"Reinigungskr.", "Reinigungskraft", Anything, Noun},
    A{"Aushilfskr.", "Aushilfskraft", Anything, Noun}, A{"Fachkr.", "Fachkraft", Anything, Noun},
    A{"Pflegekr.", "Pflegekraft", Anything, Noun}, A{"Lehrkr.", "Lehrkraft", Anything, Noun},
    A{"betr. Altersvors.", "betriebliche Altersvorsorge", Anything, Noun}, A{"Url.", "Urlaub", Anything, Noun},
    A{"Gesamtn.", "Gesamtnote"}, A{"Notend.", "Notendurchschnitt"},
};
// clang-format on

}  // namespace

std::span<const Abbreviation> NoticeTable() {
  return kTable;
}

}  // namespace lorelin
