#include "german/units.h"

#include "german/numberWords.h"
#include "german/numbers.h"
#include "german/unitSurroundings.h"

#include <array>
#include <unordered_map>

namespace lorelin {
namespace {

constexpr auto kM = Gender::Masculine;
constexpr auto kF = Gender::Feminine;
constexpr auto kN = Gender::Neuter;

// A unit by its sign; `point` says whether its sign is an abbreviation with a point: always, never, or both
// ways.
enum class Point { Never, Always, Maybe };

struct UnitName {
  std::string_view sign;
  std::string_view singular;
  std::string_view plural;
  Gender gender = kM;
  Point point = Point::Never;
  std::string_view dativePlural = {};
};

constexpr std::array kUnits{
    UnitName{"m²", "Quadratmeter", "Quadratmeter"},
    UnitName{"m2", "Quadratmeter", "Quadratmeter"},
    UnitName{"qm", "Quadratmeter", "Quadratmeter"},
    UnitName{"qkm", "Quadratkilometer", "Quadratkilometer"},
    UnitName{"km²", "Quadratkilometer", "Quadratkilometer"},
    UnitName{"km2", "Quadratkilometer", "Quadratkilometer"},
    UnitName{"dm²", "Quadratdezimeter", "Quadratdezimeter"},
    UnitName{"cm²", "Quadratzentimeter", "Quadratzentimeter"},
    UnitName{"cm2", "Quadratzentimeter", "Quadratzentimeter"},
    UnitName{"mm²", "Quadratmillimeter", "Quadratmillimeter"},
    UnitName{"m³", "Kubikmeter", "Kubikmeter"},
    UnitName{"m3", "Kubikmeter", "Kubikmeter"},
    UnitName{"cbm", "Kubikmeter", "Kubikmeter"},
    UnitName{"km³", "Kubikkilometer", "Kubikkilometer"},
    UnitName{"dm³", "Kubikdezimeter", "Kubikdezimeter"},
    UnitName{"cm³", "Kubikzentimeter", "Kubikzentimeter"},
    UnitName{"ccm", "Kubikzentimeter", "Kubikzentimeter"},
    UnitName{"mm³", "Kubikmillimeter", "Kubikmillimeter"},
    UnitName{"ha", "Hektar", "Hektar"},
    UnitName{"Ztr", "Zentner", "Zentner", kM, Point::Always},
    UnitName{"Pfd", "Pfund", "Pfund", kN, Point::Always},
    UnitName{"t", "Tonne", "Tonnen", kF},
    UnitName{"kt", "Kilotonne", "Kilotonnen", kF},
    UnitName{"Mt", "Megatonne", "Megatonnen", kF},
    UnitName{"° C", "Grad Celsius", "Grad Celsius"},
    UnitName{"U", "Umdrehung", "Umdrehungen", kF},
    UnitName{"°C", "Grad Celsius", "Grad Celsius"},
    UnitName{"Grad C", "Grad Celsius", "Grad Celsius", kN, Point::Maybe},
    UnitName{"℃", "Grad Celsius", "Grad Celsius"},
    UnitName{"°F", "Grad Fahrenheit", "Grad Fahrenheit"},
    UnitName{"° Grad", "Grad", "Grad"},
    UnitName{"°", "Grad", "Grad"},
    UnitName{"%", "Prozent", "Prozent", kN},
    UnitName{"‰", "Promille", "Promille", kN},
    UnitName{"min", "Minute", "Minuten", kF, Point::Maybe},
    UnitName{"Min", "Minute", "Minuten", kF, Point::Maybe},
    UnitName{"Std", "Stunde", "Stunden", kF, Point::Maybe},
    UnitName{"std", "Stunde", "Stunden", kF, Point::Maybe},
    UnitName{"Stdn", "Stunde", "Stunden", kF, Point::Always},
    UnitName{"h", "Stunde", "Stunden", kF},
    UnitName{"Sek", "Sekunde", "Sekunden", kF, Point::Maybe},
    UnitName{"sek", "Sekunde", "Sekunden", kF, Point::Maybe},
    UnitName{"sec", "Sekunde", "Sekunden", kF, Point::Maybe},
    UnitName{"s", "Sekunde", "Sekunden", kF},
    UnitName{"s²", "Quadratsekunde", "Quadratsekunden", kF},
    UnitName{"ms", "Millisekunde", "Millisekunden", kF},
    UnitName{"µs", "Mikrosekunde", "Mikrosekunden", kF},
    UnitName{"ns", "Nanosekunde", "Nanosekunden", kF},
    UnitName{"T", "Tag", "Tage", kM, Point::Always, "Tagen"},
    UnitName{"Tg", "Tag", "Tage", kM, Point::Always, "Tagen"},
    UnitName{"Wo", "Woche", "Wochen", kF, Point::Always},
    UnitName{"Wchn", "Woche", "Wochen", kF, Point::Always},
    UnitName{"Mon", "Monat", "Monate", kM, Point::Always, "Monaten"},
    UnitName{"Mt", "Monat", "Monate", kM, Point::Always, "Monaten"},
    UnitName{"J", "Jahr", "Jahre", kN, Point::Always, "Jahren"},
    UnitName{"Bft", "Beaufort", "Beaufort", kN},
    UnitName{"PS", "PS", "PS", kN},
    UnitName{"kcal", "Kilokalorie", "Kilokalorien", kF},
    UnitName{"cal", "Kalorie", "Kalorien", kF},
    UnitName{"dB", "Dezibel", "Dezibel", kN},
    UnitName{"hPa", "Hektopascal", "Hektopascal", kN},
    UnitName{"bar", "Bar", "Bar", kN},
    UnitName{"mbar", "Millibar", "Millibar", kN},
    UnitName{"mmHg", "Millimeter Quecksilbersäule", "Millimeter Quecksilbersäule"},
    UnitName{"kmh", "Kilometer pro Stunde", "Kilometer pro Stunde", kM},
    UnitName{"rpm", "Umdrehung pro Minute", "Umdrehungen pro Minute", kF},
    UnitName{"dpi", "dpi", "dpi"},
    UnitName{"px", "Pixel", "Pixel", kN},
    UnitName{"MP", "Megapixel", "Megapixel", kN},
    UnitName{"Mbit", "Megabit", "Megabit", kN},
    UnitName{"Mbps", "Megabit pro Sekunde", "Megabit pro Sekunde", kN},
    UnitName{"Gbit", "Gigabit", "Gigabit", kN},
    UnitName{"kbit", "Kilobit", "Kilobit", kN},
    UnitName{"MBit", "Megabit", "Megabit", kN},
    UnitName{"GBit", "Gigabit", "Gigabit", kN},
    UnitName{"kBit", "Kilobit", "Kilobit", kN},
    UnitName{"Mb", "Megabit", "Megabit", kN},
    UnitName{"Gb", "Gigabit", "Gigabit", kN},
    UnitName{"Bit", "Bit", "Bit", kN},
    UnitName{"kB", "Kilobyte", "Kilobyte", kN},
    UnitName{"KB", "Kilobyte", "Kilobyte", kN},
    UnitName{"MB", "Megabyte", "Megabyte", kN},
    UnitName{"GB", "Gigabyte", "Gigabyte", kN},
    UnitName{"TB", "Terabyte", "Terabyte", kN},
    UnitName{"MiB", "Mebibyte", "Mebibyte", kN},
    UnitName{"GiB", "Gibibyte", "Gibibyte", kN},
    UnitName{"nl", "Nanoliter", "Nanoliter"},
    UnitName{"µg", "Mikrogramm", "Mikrogramm", kN},
    UnitName{"mcg", "Mikrogramm", "Mikrogramm", kN},
    UnitName{"I.E", "Internationale Einheit", "Internationale Einheiten", kF, Point::Always},
    UnitName{"IE", "Internationale Einheit", "Internationale Einheiten", kF},
    UnitName{"mU", "Milliunit", "Milliunits", kF},
    UnitName{"mmol", "Millimol", "Millimol", kN},
    UnitName{"mol", "Mol", "Mol", kN},
    UnitName{"Tbl", "Tablette", "Tabletten", kF, Point::Always},
    UnitName{"Filmtbl", "Filmtablette", "Filmtabletten", kF, Point::Always},
    UnitName{"Filmtabl", "Filmtablette", "Filmtabletten", kF, Point::Always},
    UnitName{"Kaps", "Kapsel", "Kapseln", kF, Point::Always},
    UnitName{"Gr", "Grad", "Grad", kM, Point::Always},
    UnitName{"Kps", "Kapsel", "Kapseln", kF, Point::Always},
    UnitName{"Drg", "Dragee", "Dragees", kN, Point::Always},
    UnitName{"Zig", "Zigarette", "Zigaretten", kF, Point::Always},
    UnitName{"Ktn", "Karton", "Kartons", kM, Point::Always},
    UnitName{"Krt", "Karton", "Kartons", kM, Point::Always},
    UnitName{"Pal", "Palette", "Paletten", kF, Point::Always},
    UnitName{"Amp", "Ampulle", "Ampullen", kF, Point::Always},
    UnitName{"Btl", "Beutel", "Beutel", kM, Point::Always},
    UnitName{"Sch", "Scheibe", "Scheiben", kF, Point::Always},
    UnitName{"Zehen", "Zehe", "Zehen", kF},
    UnitName{"Tabl", "Tablette", "Tabletten", kF, Point::Always},
    UnitName{"Tr", "Tropfen", "Tropfen", kM, Point::Always},
    UnitName{"Trpf", "Tropfen", "Tropfen", kM, Point::Always},
    UnitName{"EL", "Esslöffel", "Esslöffel", kM, Point::Maybe},
    UnitName{"TL", "Teelöffel", "Teelöffel", kM, Point::Maybe},
    UnitName{"Essl", "Esslöffel", "Esslöffel", kM, Point::Always},
    UnitName{"Teel", "Teelöffel", "Teelöffel", kM, Point::Always},
    UnitName{"Msp", "Messerspitze", "Messerspitzen", kF, Point::Maybe},
    UnitName{"Pck", "Päckchen", "Päckchen", kN, Point::Maybe},
    UnitName{"Päck", "Päckchen", "Päckchen", kN, Point::Always},
    UnitName{"P", "Päckchen", "Päckchen", kN, Point::Always},
    UnitName{"Pkt", "Punkt", "Punkte", kM, Point::Always, "Punkten"},
    UnitName{"Pkg", "Packung", "Packungen", kF, Point::Always},
    UnitName{"Pack", "Packung", "Packungen", kF, Point::Always},
    UnitName{"Packg", "Packung", "Packungen", kF, Point::Always},
    UnitName{"Pckg", "Packung", "Packungen", kF, Point::Always},
    UnitName{"Pckch", "Päckchen", "Päckchen", kN, Point::Always},
    UnitName{"Pkch", "Päckchen", "Päckchen", kN, Point::Always},
    UnitName{"Port", "Portion", "Portionen", kF, Point::Always},
    UnitName{"Zw", "Zweig", "Zweige", kM, Point::Always, "Zweigen"},
    UnitName{"Stg", "Stange", "Stangen", kF, Point::Always},
    UnitName{"Übern", "Übernachtung", "Übernachtungen", kF, Point::Always},
    UnitName{"Stk", "Stück", "Stück", kN, Point::Maybe},
    UnitName{"Stck", "Stück", "Stück", kN, Point::Always},
    UnitName{"St", "Stück", "Stück", kN, Point::Always},
    UnitName{"Bd", "Bund", "Bund", kN, Point::Always},
    UnitName{"Fl", "Flasche", "Flaschen", kF, Point::Always},
    UnitName{"Ds", "Dose", "Dosen", kF, Point::Always},
    UnitName{"Gl", "Glas", "Gläser", kN, Point::Always},
    UnitName{"Tas", "Tasse", "Tassen", kF, Point::Always},
    UnitName{"Pr", "Prise", "Prisen", kF, Point::Always},
    UnitName{"Pers", "Person", "Personen", kF, Point::Always},
    UnitName{"Zi", "Zimmer", "Zimmer", kN, Point::Always},
    UnitName{"Ew", "Einwohner", "Einwohner", kM, Point::Maybe, "Einwohnern"},
    UnitName{"Einw", "Einwohner", "Einwohner", kM, Point::Always, "Einwohnern"},
    UnitName{"Pkte", "Punkt", "Punkte", kM, Point::Always},
    UnitName{"K", "Kelvin", "Kelvin", kN},
    UnitName{"Lj", "Lichtjahr", "Lichtjahre", kN, Point::Always, "Lichtjahren"},
    UnitName{"gtt", "Tropfen", "Tropfen", kM, Point::Maybe},
    UnitName{"Ki", "Kind", "Kinder", kN, Point::Always, "Kindern"},
    UnitName{"Messl", "Messlöffel", "Messlöffel", kM, Point::Always},
    UnitName{"Lm", "Luftmasche", "Luftmaschen", kF},
    UnitName{"fM", "feste Masche", "feste Maschen", kF},
    UnitName{"Stb", "Stäbchen", "Stäbchen", kN, Point::Maybe},
    UnitName{"Hm", "Höhenmeter", "Höhenmeter"},
    UnitName{"hm", "Höhenmeter", "Höhenmeter"},
    UnitName{"Km", "Kilometer", "Kilometer"},
    UnitName{"Tkm", "tausend Kilometer", "tausend Kilometer"},
    UnitName{"tkm", "tausend Kilometer", "tausend Kilometer"},
    UnitName{"lfm", "laufender Meter", "laufende Meter"},
    UnitName{"rm", "Raummeter", "Raummeter"},
    UnitName{"SRM", "Schüttraummeter", "Schüttraummeter"},
    UnitName{"fm", "Festmeter", "Festmeter"},
    UnitName{"Fm", "Festmeter", "Festmeter"},
    UnitName{"BE", "Broteinheit", "Broteinheiten", kF},
    UnitName{"µSv", "Mikrosievert", "Mikrosievert", kN},
    UnitName{"mSv", "Millisievert", "Millisievert", kN},
    UnitName{"Bq", "Becquerel", "Becquerel", kN},
    UnitName{"kVA", "Kilovoltampere", "Kilovoltampere", kN},
    UnitName{"mph", "Meile pro Stunde", "Meilen pro Stunde", kF},
    UnitName{"oz", "Unze", "Unzen", kF},
    UnitName{"lb", "Pfund", "Pfund", kN},
    UnitName{"BRT", "Bruttoregistertonne", "Bruttoregistertonnen", kF},
    UnitName{"PB", "Petabyte", "Petabyte", kN},
    UnitName{"KiB", "Kibibyte", "Kibibyte", kN},
    UnitName{"TiB", "Tebibyte", "Tebibyte", kN},
    UnitName{"GE", "Großvieheinheit", "Großvieheinheiten", kF, Point::Always},
    UnitName{"Ω", "Ohm", "Ohm", kN},
    UnitName{"kΩ", "Kiloohm", "Kiloohm", kN},
    UnitName{"lx", "Lux", "Lux", kN},
    UnitName{"lm", "Lumen", "Lumen", kN},
    UnitName{"kn", "Knoten", "Knoten", kM},
    UnitName{"sm", "Seemeile", "Seemeilen", kF},
    UnitName{"ppm", "ppm", "ppm"},
    UnitName{"mAh", "Milliamperestunde", "Milliamperestunden", kF},
    UnitName{"Ah", "Amperestunde", "Amperestunden", kF},
    UnitName{"VA", "Voltampere", "Voltampere", kN},
    UnitName{"kWp", "Kilowatt Peak", "Kilowatt Peak", kN},
    UnitName{"Ct", "Cent", "Cent", kM, Point::Maybe},
    UnitName{"ct", "Cent", "Cent", kM, Point::Maybe},
    UnitName{"Cent", "Cent", "Cent"},
};

// Units that take the prefixes of the thousands.
struct Base {
  std::string_view sign;
  std::string_view singular;
  std::string_view plural;
  Gender gender;
  std::string_view prefixes;  // "k" for kilo, "-" for none
};
constexpr std::array kBases{Base{"m", "Meter", "Meter", kM, "-kcmdµn"},
                            Base{"l", "Liter", "Liter", kM, "-mcdhµ"},
                            Base{"L", "Liter", "Liter", kM, "-m"},
                            Base{"g", "Gramm", "Gramm", kN, "-km"},
                            Base{"W", "Watt", "Watt", kN, "-kMGTm"},
                            Base{"Wh", "Wattstunde", "Wattstunden", kF, "-kMGT"},
                            Base{"V", "Volt", "Volt", kN, "-kmM"},
                            Base{"A", "Ampere", "Ampere", kN, "-mk"},
                            Base{"Hz", "Hertz", "Hertz", kN, "-kMGT"},
                            Base{"J", "Joule", "Joule", kN, "-kM"},
                            Base{"Pa", "Pascal", "Pascal", kN, "-kM"},
                            Base{"N", "Newton", "Newton", kN, "k"},
                            Base{"Nm", "Newtonmeter", "Newtonmeter", kM, "-"}};

std::string_view PrefixName(char32_t prefix) {
  switch (prefix) {
    case U'k':
      return "Kilo";
    case U'c':
      return "Zenti";
    case U'm':
      return "Milli";
    case U'd':
      return "Dezi";
    case U'h':
      return "Hekto";
    case U'M':
      return "Mega";
    case U'G':
      return "Giga";
    case U'T':
      return "Tera";
    case U'n':
      return "Nano";
    default:
      return "Mikro";
  }
}

struct Entry {
  std::string singular;
  std::string plural;
  std::string dativePlural;
  Gender gender;
  Point point;
};

using Table = std::unordered_map<std::string, Entry>;

void AddBase(Table& table, const Base& base) {
  for (const char prefix : base.prefixes) {
    if (prefix == '-') {
      table.try_emplace(std::string(base.sign), Entry{std::string(base.singular), std::string(base.plural),
                                                      "", base.gender, Point::Never});
      continue;
    }
    if (static_cast<unsigned char>(prefix) >= 0x80) continue;
    const std::string name(PrefixName(static_cast<char32_t>(prefix)));
    table.try_emplace(prefix + std::string(base.sign),
                      Entry{name + WithLowerStart(base.singular), name + WithLowerStart(base.plural), "",
                            base.gender, Point::Never});
  }
}

const Table& Units() {
  static const Table table = [] {
    Table made;
    for (const UnitName& one : kUnits) {
      made.try_emplace(std::string(one.sign), Entry{std::string(one.singular), std::string(one.plural),
                                                    std::string(one.dativePlural), one.gender, one.point});
    }
    for (const Base& base : kBases) AddBase(made, base);
    made.try_emplace("µm", Entry{"Mikrometer", "Mikrometer", "", kM, Point::Never});
    made.try_emplace("µl", Entry{"Mikroliter", "Mikroliter", "", kM, Point::Never});
    return made;
  }();
  return table;
}

Unit FromEntry(const Entry& entry, std::size_t end) {
  Unit unit;
  unit.singular = entry.singular;
  unit.plural = entry.plural;
  unit.dativePlural = entry.dativePlural.empty() ? entry.plural : entry.dativePlural;
  unit.gender = entry.gender;
  unit.end = end;
  return unit;
}

// The sign of the unit that begins here with all of its tokens, "°C", "m²": the longest one that is in the
// table.
std::optional<Unit> SimpleUnitAt(const Tokens& tokens, std::size_t i) {
  if (tokens.View(i).size() > 8 || tokens.IsGap(i)) return std::nullopt;
  if (auto unit = UnitBySurroundings(tokens, i)) return unit;
  for (std::size_t length = 3; length > 0; --length) {
    const std::size_t end = i + length;
    const auto view = tokens.View(i, end);
    if (view.empty() || view.size() > 8 || end > tokens.Count()) continue;
    const auto found = Units().find(std::string(view));
    if (found == Units().end() || found->second.singular.empty()) continue;
    const bool letters = tokens.IsWord(end - 1);
    if (letters && tokens.IsNumber(end)) continue;
    if (tokens.IsWord(end)) continue;
    const bool point = tokens.Is(end, ".") && found->second.point != Point::Never;
    if (found->second.point == Point::Always && !point) continue;
    Unit unit = FromEntry(found->second, point ? end + 1 : end);
    unit.endsWithPoint = point;
    // "1 Pkt. Backpulver".
    if (view == "Pkt" && tokens.IsCapital(tokens.Skip(unit.end)) && tokens.IsBlank(unit.end)) {
      unit.singular = unit.plural = unit.dativePlural = "Päckchen";
      unit.gender = kN;
    }
    // "bei 180 Gr. backen", but "100 Gr. Mehl".
    if (view == "Gr" && tokens.IsCapital(tokens.Skip(unit.end)) &&
        !IsOneOf(tokens.View(tokens.Skip(unit.end)), {"Ober", "Umluft", "Heißluft", "Celsius"}))
      unit.singular = unit.plural = unit.dativePlural = "Gramm";
    // "bis 5 P.", but "1 P. Vanillezucker".
    if (view == "P" && !tokens.IsCapital(tokens.Skip(unit.end))) {
      unit.singular = "Person";
      unit.plural = unit.dativePlural = "Personen";
      unit.gender = kF;
    }
    // "in 2 Bd.", but "1 Bd. Petersilie".
    if (view == "Bd" && !tokens.IsCapital(tokens.Skip(unit.end))) {
      unit.singular = "Band";
      unit.plural = "Bände";
      unit.dativePlural = "Bänden";
      unit.gender = kM;
    }
    unit.doubtfulPoint = point && !IsUpperWord(view);
    return unit;
  }
  return std::nullopt;
}

struct WordForms {
  std::string_view singular;
  std::string_view plural;
  Gender gender;
};

// Units in full, behind which only the number changes.
constexpr std::array kWordUnits{WordForms{"Uhr", "Uhr", kF},
                                WordForms{"Meter", "Meter", kM},
                                WordForms{"Kilometer", "Kilometer", kM},
                                WordForms{"Zentimeter", "Zentimeter", kM},
                                WordForms{"Millimeter", "Millimeter", kM},
                                WordForms{"Liter", "Liter", kM},
                                WordForms{"Gramm", "Gramm", kN},
                                WordForms{"Kilogramm", "Kilogramm", kN},
                                WordForms{"Kilo", "Kilo", kN},
                                WordForms{"Prozent", "Prozent", kN},
                                WordForms{"Grad", "Grad", kM},
                                WordForms{"Tonne", "Tonnen", kF},
                                WordForms{"Stunde", "Stunden", kF},
                                WordForms{"Minute", "Minuten", kF},
                                WordForms{"Sekunde", "Sekunden", kF},
                                WordForms{"Quadratmeter", "Quadratmeter", kM},
                                WordForms{"Hektar", "Hektar", kM},
                                WordForms{"Cent", "Cent", kM}};

constexpr std::string_view kPeriods[] = {
    "Monat",     "Jahr",       "Tag",    "Woche",        "Stunde",         "Minute",     "Sekunde",
    "Person",    "Stück",      "Nacht",  "Kopf",         "Kind",           "Liter",      "Kilo",
    "Kilogramm", "Kilometer",  "Meter",  "Quadratmeter", "Kilowattstunde", "Haushalt",   "Einwohner",
    "Paar",      "Packung",    "Zimmer", "Flasche",      "Portion",        "Teilnehmer", "Quartal",
    "Halbjahr",  "Kubikmeter", "Gramm",  "Tonne",        "Beutel",         "Dose",       "Glas",
    "Std",       "Abend",      "Hektar"};

std::optional<PerUnit> PerUnitBehind(const Tokens& tokens, std::size_t i) {
  if (auto both = PerTwoUnitsBehind(tokens, i)) return both;
  if (tokens.Is(i, "100") && tokens.IsWord(tokens.Skip(i + 1))) {
    const auto unit = SimpleUnitAt(tokens, tokens.Skip(i + 1));
    if (unit)
      return PerUnit{(unit->plural == "Kilometer" ? " auf hundert " : " pro hundert ") + unit->plural,
                     unit->end};
    return std::nullopt;
  }
  // "9,90 €/10 Tage".
  if (tokens.IsNumber(i, 1, 3) && tokens.IsBlank(i + 1) &&
      IsOneOf(tokens.View(i + 2),
              {"Tage", "Stück", "Personen", "Monate", "Minuten", "Stunden", "Wochen", "Jahre"}))
    return PerUnit{" pro " + CardinalWords(*DigitsAt(tokens, i, 3)), i + 1};
  // "125 m/50 g", "5 mg/2 ml".
  if (tokens.IsNumber(i, 1, 4) && tokens.IsWord(tokens.Skip(i + 1)) && tokens.FreeBehind(i)) {
    const auto value = DigitsAt(tokens, i, 4);
    const auto unit = SimpleUnitAt(tokens, tokens.Skip(i + 1));
    if (value && *value > 1 && unit && !unit->endsWithPoint && MayBeDividedBy(*unit))
      return PerUnit{" pro " + CardinalWords(*value) + " " + unit->plural, unit->end};
  }
  if (tokens.Is(i + 1, ".") && IsOneOf(tokens.View(i), {"Mt", "N"}))  // "80 €/Mt.", "59 €/N."
    return PerUnit{tokens.Is(i, "N") ? " pro Nacht" : " pro Monat", tokens.IsLast(i + 1) ? i + 1 : i + 2};
  // "1,08 USD/EUR".
  if (IsOneOf(tokens.View(i), {"EUR", "USD", "CHF", "GBP"}) && tokens.FreeBehind(i))
    return PerUnit{" pro " + std::string(CurrencyAt(tokens, i)->name), i + 1};
  if (const auto unit = RunningMeterAt(tokens, i)) return PerUnit{" pro laufendem Meter", unit->end};
  if (const auto unit = SimpleUnitAt(tokens, i))
    return PerUnit{" pro " + unit->singular,
                   unit->endsWithPoint && tokens.IsLast(unit->end - 1) ? unit->end - 1 : unit->end};
  if (tokens.Is(i, "a") && tokens.FreeBehind(i)) return PerUnit{" pro Jahr", i + 1};
  if (tokens.Is(i, "d") && tokens.FreeBehind(i)) return PerUnit{" pro Tag", i + 1};
  if (tokens.Is(i, "TN")) return PerUnit{" pro Teilnehmer", i + 1};
  for (const auto period : kPeriods) {
    if (tokens.Is(i, period)) return PerUnit{" pro " + std::string(period), i + 1};
  }
  // "20 ct/Anruf": whatever is counted.
  const Noun noun = NounOf(tokens.View(i));
  if (tokens.IsCapital(i) && noun.known && noun.singular && tokens.FreeBehind(i) && !tokens.IsDashAt(i + 1) &&
      i >= 2 && !tokens.IsBlank(i - 2))
    return PerUnit{" pro " + std::string(tokens.View(i)), i + 1};
  return std::nullopt;
}

struct CurrencyName {
  std::string_view sign;
  std::string_view name;
  std::string_view hundredth;
  Gender gender = kM;
};

constexpr std::array kCurrencies{CurrencyName{"€", "Euro", "Cent"},
                                 CurrencyName{"EUR", "Euro", "Cent"},
                                 CurrencyName{"Euro", "Euro", "Cent"},
                                 CurrencyName{"$", "Dollar", "Cent"},
                                 CurrencyName{"Dollar", "Dollar", "Cent"},
                                 CurrencyName{"USD", "US-Dollar", "Cent"},
                                 CurrencyName{"£", "Pfund", "Pence", kN},
                                 CurrencyName{"GBP", "Pfund", "Pence", kN},
                                 CurrencyName{"CHF", "Franken", "Rappen"},
                                 CurrencyName{"Franken", "Franken", "Rappen"},
                                 CurrencyName{"SFr", "Franken", "Rappen"},
                                 CurrencyName{"sFr", "Franken", "Rappen"},
                                 CurrencyName{"¥", "Yen", ""},
                                 CurrencyName{"JPY", "Yen", ""},
                                 CurrencyName{"DM", "D-Mark", "Pfennig", kF},
                                 CurrencyName{"Mark", "Mark", "Pfennig", kF},
                                 CurrencyName{"PLN", "Zloty", "Groszy"},
                                 CurrencyName{"CZK", "Kronen", "Heller", kF},
                                 CurrencyName{"DKK", "Dänische Kronen", "Öre", kF},
                                 CurrencyName{"SEK", "Schwedische Kronen", "Öre", kF},
                                 CurrencyName{"₺", "Lira", "Kuruş", kF},
                                 CurrencyName{"₿", "Bitcoin", ""},
                                 CurrencyName{"BTC", "Bitcoin", ""}};

}  // namespace

std::optional<Currency> CurrencyAt(const Tokens& tokens, std::size_t i) {
  for (const CurrencyName& one : kCurrencies) {
    if (!tokens.Is(i, one.sign)) continue;
    if (tokens.IsWord(i) && !tokens.FreeBehind(i) && !tokens.IsNumber(i + 1)) continue;
    return Currency{one.name, one.hundredth, one.gender, i + 1, one.sign == one.name};
  }
  if (tokens.Is(i, "Fr") && tokens.Is(i + 1, ".") && i >= 2 && tokens.IsNumber(tokens.Before(i)))
    return Currency{"Franken", "Rappen", kM, i + 2, false};
  if (tokens.Is(i, "US") && tokens.Is(i + 1, "$")) return Currency{"US-Dollar", "Cent", kM, i + 2, false};
  if (tokens.Is(i, "US") && tokens.Is(i + 1, "-") && tokens.Is(i + 2, "$"))
    return Currency{"US-Dollar", "Cent", kM, i + 3, false};
  // "4,5 T€", "300 TEUR".
  if (tokens.Is(i, "T") && tokens.Is(i + 1, "€")) return Currency{"tausend Euro", "", kM, i + 2, false};
  if (IsOneOf(tokens.View(i), {"TEUR", "TEuro", "kEUR", "Teuro"}) && tokens.FreeBehind(i))
    return Currency{"tausend Euro", "", kM, i + 1, false};
  if (tokens.Is(i, "k") && tokens.Is(i + 1, "€")) return Currency{"tausend Euro", "", kM, i + 2, false};
  if (tokens.Is(i, "US") && tokens.Is(i + 1, "-") && tokens.Is(i + 2, "Dollar"))
    return Currency{"US-Dollar", "Cent", kM, i + 3, true};
  return std::nullopt;
}

std::optional<PerUnit> PerAt(const Tokens& tokens, std::size_t i) {
  if ((!tokens.Is(i, "/") && !tokens.Is(i, "∕")) || tokens.Is(i + 2, ":")) return std::nullopt;
  auto per = PerUnitBehind(tokens, i + 1);
  if (!per || !tokens.Is(per->end, "/") || tokens.IsNumber(per->end + 1)) return per;
  // "15 €/Pers./Nacht", "75 kWh/m²/a".
  constexpr std::string_view kPro = " pro ";
  const auto second = PerUnitBehind(tokens, per->end + 1);
  if (!second || !second->words.starts_with(kPro)) return per;
  return PerUnit{per->words + " und " + second->words.substr(kPro.size()), second->end};
}

std::optional<Unit> MultipleAt(const Tokens& tokens, std::size_t i) {
  struct Multiple {
    std::string_view sign;
    std::string_view singular;
    std::string_view plural;
    Gender gender;
  };
  constexpr std::array kMultiples{Multiple{"Mio", "Million", "Millionen", kF},
                                  Multiple{"Mill", "Million", "Millionen", kF},
                                  Multiple{"Mrd", "Milliarde", "Milliarden", kF},
                                  Multiple{"Mia", "Milliarde", "Milliarden", kF},
                                  Multiple{"Bio", "Billion", "Billionen", kF},
                                  Multiple{"Tsd", "tausend", "tausend", kN},
                                  Multiple{"Tausend", "tausend", "tausend", kN},
                                  Multiple{"Million", "Million", "Millionen", kF},
                                  Multiple{"Millionen", "Million", "Millionen", kF},
                                  Multiple{"Milliarde", "Milliarde", "Milliarden", kF},
                                  Multiple{"Milliarden", "Milliarde", "Milliarden", kF},
                                  Multiple{"Billionen", "Billion", "Billionen", kF}};
  for (const Multiple& one : kMultiples) {
    if (!tokens.Is(i, one.sign) || tokens.IsNumber(i + 1)) continue;
    const bool word = one.sign == one.singular || one.sign == one.plural;
    const bool point = !word && tokens.Is(i + 1, ".");
    if (one.sign == "Mill" && !point) continue;
    Unit unit;
    unit.singular = one.singular;
    unit.plural = unit.dativePlural = one.plural;
    unit.gender = one.gender;
    unit.end = point ? i + 2 : i + 1;
    unit.endsWithPoint = point;
    unit.multiplies = true;
    unit.isWord = word;
    return unit;
  }
  return std::nullopt;
}

std::optional<Unit> UnitAt(const Tokens& tokens, std::size_t i) {
  auto unit = RunningMeterAt(tokens, i);
  if (!unit) unit = SimpleUnitAt(tokens, i);
  if (!unit) unit = ArcMinuteAt(tokens, i);
  if (!unit) unit = InchAt(tokens, i);
  if (!unit) {
    for (const WordForms& one : kWordUnits) {
      if (one.singular == "Uhr" || (!tokens.Is(i, one.singular) && !tokens.Is(i, one.plural))) continue;
      unit = Unit{std::string(one.singular),
                  std::string(one.plural),
                  std::string(one.plural),
                  one.gender,
                  i + 1,
                  false,
                  false,
                  false,
                  true};
      if (one.singular == "Grad" && IsOneOf(tokens.View(i + 2), {"Celsius", "Fahrenheit"}) &&
          tokens.IsBlank(i + 1)) {
        unit->singular = unit->plural = unit->dativePlural = "Grad " + std::string(tokens.View(i + 2));
        unit->end = i + 3;
      }
      break;
    }
  }
  if (!unit) return std::nullopt;
  if (const auto per = PerAt(tokens, unit->end); per && !unit->isWord) {
    unit->singular += per->words;
    unit->plural += per->words;
    unit->dativePlural += per->words;
    unit->end = per->end;
    unit->endsWithPoint = tokens.Is(per->end - 1, ".");
  }
  return unit;
}

}  // namespace lorelin
