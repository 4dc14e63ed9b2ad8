#include "german/abbreviationTable.h"

namespace lorelin {
namespace {

using enum Around;
using enum Ending;
using enum Bending;
using A = Abbreviation;

// clang-format off
constexpr Abbreviation kTable[] = {
    // Adverbs that become adjectives before a noun.
    A{"max.", "maximal", Attribute, Never, Adjective}, A{"min.", "minimal", Attribute, Never, Adjective},
    A{"vorauss.", "voraussichtlich", Attribute, Never, Adjective}, A{"evtl.", "eventuell", Attribute, Never, Adjective},
    A{"eventl.", "eventuell", Attribute, Never, Adjective}, A{"eventl.", "eventuell"},
    A{"jew.", "jeweilig", Attribute, Never, Adjective}, A{"entspr.", "entsprechend", Attribute, Never, Adjective},
    A{"bes.", "besonder", Attribute, Never, Adjective}, A{"eigtl.", "eigentlich", Attribute, Never, Adjective},
    A{"eigentl.", "eigentlich", Attribute, Never, Adjective}, A{"urspr.", "ursprünglich", Attribute, Never, Adjective},
    A{"tatsächl.", "tatsächlich", Attribute, Never, Adjective}, A{"mögl.", "möglich", Attribute, Never, Adjective},
    A{"notw.", "notwendig", Attribute, Never, Adjective}, A{"erf.", "erforderlich", Attribute, Never, Adjective},
    A{"erforderl.", "erforderlich", Attribute, Never, Adjective}, A{"erforderl.", "erforderlich"},
    A{"gegenw.", "gegenwärtig", Attribute, Never, Adjective}, A{"vermutl.", "vermutlich", Attribute, Never, Adjective},
    A{"zus.", "zusätzlich", Attribute, Never, Adjective}, A{"empf.", "empfohlen", Attribute, Never, Adjective},
    A{"spez.", "speziell", Attribute, Never, Adjective}, A{"autom.", "automatisch", Attribute, Never, Adjective},
    A{"natürl.", "natürlich", Attribute, Never, Adjective}, A{"freiw.", "freiwillig", Attribute, Never, Adjective},
    A{"kostenl.", "kostenlos", Attribute, Never, Adjective}, A{"anschl.", "anschließend", Attribute, Never, Adjective},
    A{"chron.", "chronisch", Attribute, Never, Adjective},
    A{"gült.", "gültig", Attribute, Never, Adjective}, A{"rückw.", "rückwirkend", Attribute, Never, Adjective},
    A{"amb.", "ambulant", Attribute, Never, Adjective},
    A{"gepl.", "geplant", Attribute, Never, Adjective}, A{"gepl.", "geplant"},
    A{"eingeschr.", "eingeschränkt", Attribute, Never, Adjective},
    A{"re.", "recht", Attribute, Never, Adjective}, A{"li.", "link", Attribute, Never, Adjective},
    A{"bish.", "bisherig", Attribute, Never, Adjective}, A{"gen.", "genannt", Attribute, Never, Adjective},
    A{"zuk.", "zukünftig", Attribute, Never, Adjective},
    // Adjectives that are known by their noun.
    A{"ländl.", "ländlich", Described, Never, Adjective}, A{"kirchl.", "kirchlich", Described, Never, Adjective},
    A{"gesellschaftl.", "gesellschaftlich", Described, Never, Adjective},
    A{"restl.", "restlich", Described, Never, Adjective}, A{"ges.", "gesamt", Described, Never, Adjective},
    A{"gemeins.", "gemeinsam", Described, Never, Adjective},
    A{"geschäftl.", "geschäftlich", Described, Never, Adjective},
    A{"steuerl.", "steuerlich", Described, Never, Adjective},
    A{"verantwortl.", "verantwortlich", Described, Never, Adjective},
    A{"nichtöffentl.", "nichtöffentlich", Described, Never, Adjective},
    A{"öffentl.", "öffentlich", Described, Never, Adjective}, A{"westl.", "westlich", Described, Never, Adjective},
    A{"östl.", "östlich", Described, Never, Adjective}, A{"südl.", "südlich", Described, Never, Adjective},
    A{"nördl.", "nördlich", Described, Never, Adjective}, A{"einf.", "einfach", Described, Never, Adjective},
    A{"herzl.", "herzlich", Described, Never, Adjective}, A{"freundl.", "freundlich", Described, Never, Adjective},
    A{"frdl.", "freundlich", Described, Never, Adjective}, A{"geh.", "gehäuft", Spoon, Never, Adjective}, A{"geh.", "gehackt", Described, Never, Adjective},
    A{"freil.", "freilaufend", Described, Never, Adjective},
    A{"voraussichtl.", "voraussichtlich", Described, Never, Adjective},
    A{"hauptamtl.", "hauptamtlich", Described, Never, Adjective},
    A{"ehrenamtl.", "ehrenamtlich", Described, Never, Adjective},
    A{"gehob.", "gehoben", Described, Never, Adjective}, A{"versch.", "verschieden", Described, Never, Adjective},
    A{"hochw.", "hochwertig", Described, Never, Adjective}, A{"derzeit.", "derzeitig", Described, Never, Adjective},
    A{"bisher.", "bisherig", Described, Never, Adjective}, A{"nachf.", "nachfolgend", Described, Never, Adjective},
    A{"gleichl.", "gleichlautend", Described, Never, Adjective},
    A{"ärztl.", "ärztlich", Described, Never, Adjective}, A{"telef.", "telefonisch", Described, Never, Adjective},
    A{"wöchentl.", "wöchentlich", Described, Never, Adjective}, A{"mtl.", "monatlich", Described, Never, Adjective},
    A{"monatl.", "monatlich", Described, Never, Adjective}, A{"tägl.", "täglich", Described, Never, Adjective},
    A{"jährl.", "jährlich", Described, Never, Adjective}, A{"mündl.", "mündlich", Described, Never, Adjective},
    A{"schriftl.", "schriftlich", Described, Never, Adjective},
    A{"staatl.", "staatlich", Described, Never, Adjective}, A{"amtl.", "amtlich", Described, Never, Adjective},
    A{"persönl.", "persönlich", Described, Never, Adjective},
    A{"pers.", "persönlich", Described, Never, Adjective}, A{"mediz.", "medizinisch", Described, Never, Adjective},
    A{"jurist.", "juristisch", Described, Never, Adjective}, A{"süddt.", "süddeutsch", Described, Never, Adjective},
    A{"norddt.", "norddeutsch", Described, Never, Adjective},
    A{"westf.", "westfälisch", Described, Never, Adjective}, A{"rhein.", "rheinisch", Described, Never, Adjective},
    A{"fränk.", "fränkisch", Described, Never, Adjective}, A{"hess.", "hessisch", Described, Never, Adjective},
    A{"zusätzl.", "zusätzlich", Described, Never, Adjective}, A{"zahlr.", "zahlreich", Described, Never, Adjective},
    A{"wissensch.", "wissenschaftlich", Described, Never, Adjective},
    A{"wirtsch.", "wirtschaftlich", Described, Never, Adjective},
    A{"vorh.", "vorhanden", Described, Never, Adjective}, A{"vollst.", "vollständig", Described, Never, Adjective},
    A{"vertragl.", "vertraglich", Described, Never, Adjective},
    A{"unbek.", "unbekannt", Described, Never, Adjective}, A{"übl.", "üblich", Described, Never, Adjective},
    A{"türk.", "türkisch", Described, Never, Adjective}, A{"tschech.", "tschechisch", Described, Never, Adjective},
    A{"theor.", "theoretisch", Described, Never, Adjective}, A{"soz.", "sozial", Described, Never, Adjective},
    A{"schwäb.", "schwäbisch", Described, Never, Adjective},
    A{"schwed.", "schwedisch", Described, Never, Adjective},
    A{"schott.", "schottisch", Described, Never, Adjective}, A{"sämtl.", "sämtlich", Described, Never, Adjective},
    A{"sächs.", "sächsisch", Described, Never, Adjective},
    A{"röm.-kath.", "römisch-katholisch", Described, Never, Adjective},
    A{"röm.", "römisch", Described, Never, Adjective}, A{"regelm.", "regelmäßig", Described, Never, Adjective},
    A{"rechtl.", "rechtlich", Described, Never, Adjective}, A{"psych.", "psychisch", Described, Never, Adjective},
    A{"priv.", "privat", Described, Never, Adjective}, A{"preuß.", "preußisch", Described, Never, Adjective},
    A{"prakt.", "praktisch", Described, Never, Adjective},
    A{"portug.", "portugiesisch", Described, Never, Adjective},
    A{"polit.", "politisch", Described, Never, Adjective}, A{"poln.", "polnisch", Described, Never, Adjective},
    A{"phys.", "physikalisch", Described, Never, Adjective}, A{"örtl.", "örtlich", Described, Never, Adjective},
    A{"offiz.", "offiziell", Described, Never, Adjective}, A{"notw.", "notwendig", Described, Never, Adjective},
    A{"norw.", "norwegisch", Described, Never, Adjective},
    A{"niederl.", "niederländisch", Described, Never, Adjective},
    A{"nat.", "natürlich", Person, Never, Adjective}, A{"nat.", "national", Described, Never, Adjective}, A{"milit.", "militärisch", Described, Never, Adjective},
    A{"menschl.", "menschlich", Described, Never, Adjective}, A{"weibl.", "weiblich", Described, Never, Adjective},
    A{"männl.", "männlich", Described, Never, Adjective},
    A{"landw.", "landwirtschaftlich", Described, Never, Adjective},
    A{"künstl.", "künstlich", Described, Never, Adjective}, A{"kompl.", "komplett", Described, Never, Adjective},
    A{"jap.", "japanisch", Described, Never, Adjective}, A{"intern.", "international", Described, Never, Adjective},
    A{"internat.", "international", Described, Never, Adjective},
    A{"hist.", "historisch", Described, Never, Adjective}, A{"gewerbl.", "gewerblich", Described, Never, Adjective},
    A{"gesetzl.", "gesetzlich", Described, Never, Adjective},
    A{"geogr.", "geografisch", Described, Never, Adjective}, A{"gebr.", "gebraucht", Described, Never, Adjective},
    A{"ext.", "extern", Described, Never, Adjective}, A{"evang.", "evangelisch", Described, Never, Adjective},
    A{"ermäß.", "ermäßigt", Described, Never, Adjective}, A{"erm.", "ermäßigt", Described, Never, Adjective},
    A{"elektron.", "elektronisch", Described, Never, Adjective},
    A{"elektr.", "elektrisch", Described, Never, Adjective},
    A{"durchg.", "durchgehend", Described, Never, Adjective}, A{"dän.", "dänisch", Described, Never, Adjective},
    A{"chin.", "chinesisch", Described, Never, Adjective}, A{"chem.", "chemisch", Described, Never, Adjective},
    A{"biol.", "biologisch", Described, Never, Adjective}, A{"berufl.", "beruflich", Described, Never, Adjective},
    A{"unbefr.", "unbefristet", Described, Never, Adjective}, A{"befr.", "befristet", Described, Never, Adjective},
    A{"ausf.", "ausführlich", Described, Never, Adjective}, A{"außergew.", "außergewöhnlich", Described, Never, Adjective}, A{"prof.", "professionell", Described, Never, Adjective}, A{"akt.", "aktuell", Described, Never, Adjective},
};
// clang-format on

}  // namespace

std::span<const Abbreviation> AdjectiveTable() {
  return kTable;
}

}  // namespace lorelin
