#include "extensions/german/measures.h"

#include <array>

#include "extensions/german/textLooks.h"

namespace lorelin {
namespace {

struct Unit {
  std::string_view sign;
  std::string_view singular;
  std::string_view plural;
  Gender gender = Gender::Masculine;
  bool counts = false;
};

// The longer signs before those that they begin with.
constexpr std::array kUnits{
    Unit{"km/h", "Kilometer pro Stunde", "Kilometer pro Stunde"},
    Unit{"km²", "Quadratkilometer", "Quadratkilometer"},
    Unit{"km", "Kilometer", "Kilometer"},
    Unit{"m/s", "Meter pro Sekunde", "Meter pro Sekunde"},
    Unit{"m²", "Quadratmeter", "Quadratmeter"},
    Unit{"qm", "Quadratmeter", "Quadratmeter"},
    Unit{"m³", "Kubikmeter", "Kubikmeter"},
    Unit{"cm²", "Quadratzentimeter", "Quadratzentimeter"},
    Unit{"cm³", "Kubikzentimeter", "Kubikzentimeter"},
    Unit{"cm", "Zentimeter", "Zentimeter"},
    Unit{"mm", "Millimeter", "Millimeter"},
    Unit{"ml", "Milliliter", "Milliliter"},
    Unit{"mg", "Milligramm", "Milligramm", Gender::Neuter},
    Unit{"min.", "Minute", "Minuten", Gender::Feminine},
    Unit{"min", "Minute", "Minuten", Gender::Feminine},
    Unit{"Min.", "Minute", "Minuten", Gender::Feminine},
    Unit{"Std.", "Stunde", "Stunden", Gender::Feminine},
    Unit{"Sek.", "Sekunde", "Sekunden", Gender::Feminine},
    Unit{"m", "Meter", "Meter"},
    Unit{"ha", "Hektar", "Hektar"},
    Unit{"cl", "Zentiliter", "Zentiliter"},
    Unit{"l/100 km", "Liter auf hundert Kilometer", "Liter auf hundert Kilometer"},
    Unit{"l", "Liter", "Liter"},
    Unit{"L", "Liter", "Liter"},
    Unit{"kg", "Kilogramm", "Kilogramm", Gender::Neuter},
    Unit{"g", "Gramm", "Gramm", Gender::Neuter},
    Unit{"t", "Tonne", "Tonnen", Gender::Feminine},
    Unit{"°C", "Grad Celsius", "Grad Celsius"},
    Unit{"°F", "Grad Fahrenheit", "Grad Fahrenheit"},
    Unit{"°", "Grad", "Grad"},
    Unit{"%", "Prozent", "Prozent", Gender::Neuter},
    Unit{"‰", "Promille", "Promille", Gender::Neuter},
    Unit{"kWh", "Kilowattstunde", "Kilowattstunden", Gender::Feminine},
    Unit{"kW", "Kilowatt", "Kilowatt", Gender::Neuter},
    Unit{"MW", "Megawatt", "Megawatt", Gender::Neuter},
    Unit{"W", "Watt", "Watt", Gender::Neuter},
    Unit{"V", "Volt", "Volt", Gender::Neuter},
    Unit{"A", "Ampere", "Ampere", Gender::Neuter},
    Unit{"kHz", "Kilohertz", "Kilohertz", Gender::Neuter},
    Unit{"MHz", "Megahertz", "Megahertz", Gender::Neuter},
    Unit{"GHz", "Gigahertz", "Gigahertz", Gender::Neuter},
    Unit{"Hz", "Hertz", "Hertz", Gender::Neuter},
    Unit{"kB", "Kilobyte", "Kilobyte", Gender::Neuter},
    Unit{"MB", "Megabyte", "Megabyte", Gender::Neuter},
    Unit{"GB", "Gigabyte", "Gigabyte", Gender::Neuter},
    Unit{"TB", "Terabyte", "Terabyte", Gender::Neuter},
    Unit{"hPa", "Hektopascal", "Hektopascal", Gender::Neuter},
    Unit{"kcal", "Kilokalorie", "Kilokalorien", Gender::Feminine},
    Unit{"kJ", "Kilojoule", "Kilojoule", Gender::Neuter},
    Unit{"dB", "Dezibel", "Dezibel", Gender::Neuter},
    Unit{"PS", "PS", "PS", Gender::Neuter},
    Unit{"EL", "Esslöffel", "Esslöffel"},
    Unit{"TL", "Teelöffel", "Teelöffel"},
    Unit{"Msp.", "Messerspitze", "Messerspitzen", Gender::Feminine},
    Unit{"Pck.", "Päckchen", "Päckchen", Gender::Neuter},
    Unit{"Pkg.", "Packung", "Packungen", Gender::Feminine},
    Unit{"Stk.", "Stück", "Stück", Gender::Neuter},
    Unit{"St.", "Stück", "Stück", Gender::Neuter},
    Unit{"Bd.", "Bund", "Bund"},
    Unit{"Mio.", "Million", "Millionen", Gender::Feminine, true},
    Unit{"Mrd.", "Milliarde", "Milliarden", Gender::Feminine, true},
    Unit{"Tsd.", "Tausend", "Tausend", Gender::Neuter, true},
    Unit{"s", "Sekunde", "Sekunden", Gender::Feminine},
    Unit{"h", "Stunde", "Stunden", Gender::Feminine},
};

struct Sign {
  std::string_view sign;
  std::string_view name;
  std::string_view part;
};

constexpr std::array kCurrencies{Sign{"€", "Euro", "Cent"},        Sign{"EUR", "Euro", "Cent"},
                                 Sign{"Euro", "Euro", "Cent"},     Sign{"$", "Dollar", "Cent"},
                                 Sign{"USD", "US-Dollar", "Cent"}, Sign{"£", "Pfund", "Pence"},
                                 Sign{"CHF", "Franken", "Rappen"}, Sign{"Fr.", "Franken", "Rappen"}};

}  // namespace

std::optional<Measure> MeasureAt(std::string_view text, std::size_t at) {
  const std::size_t begin = SkipBlanks(text, at, 1);
  for (const Unit& unit : kUnits) {
    if (!StandsAt(text, begin, unit.sign)) continue;
    const std::size_t end = begin + unit.sign.size();
    if (end < text.size() && (IsDigit(text[end]) || text[end] == '/')) continue;
    // A point of its own that also ends the text stays one.
    const bool ends = unit.sign.back() == '.' && (end >= text.size() || text[end] == '\n');
    return Measure{unit.singular, unit.plural, unit.gender, unit.counts, ends ? end - 1 : end};
  }
  return std::nullopt;
}

std::optional<Currency> CurrencyAt(std::string_view text, std::size_t at) {
  for (const Sign& one : kCurrencies) {
    if (StandsAt(text, at, one.sign)) return Currency{one.name, one.part, at + one.sign.size()};
  }
  return std::nullopt;
}

}  // namespace lorelin
