#include "scripts/scriptChecker.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <utility>

#include "base/conversion.h"
#include "base/text.h"
#include "base/textEncoding.h"
#include "scripts/scriptLanguage.h"

namespace lorelin {
namespace {

constexpr std::size_t kMostFindings = 1000;
constexpr std::size_t kNearest = 2;  // edits that still make a likely slip

constexpr std::array<std::string_view, 4> kWithoutAction{"Speichern", "Stimme", "Beenden", "Springe"};

struct Signature {
  std::string_view name;
  std::string_view kind;
  std::size_t parameters = 0;
};

// The table of the picker, and what has to be typed.
std::vector<Signature> AllSignatures() {
  std::vector<Signature> all;
  for (const auto& commands : {ScriptCommands(), TypedCommands()}) {
    for (const ScriptCommand& command : commands) {
      all.push_back({command.name, command.kind, static_cast<std::size_t>(command.count[0] - '0')});
    }
  }
  return all;
}

std::string Quoted(std::string_view text) {
  return "„" + std::string(text) + "“";
}

std::size_t EditDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i);
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
      diagonal = std::exchange(row[j], std::min({row[j] + 1, row[j - 1] + 1, replaced}));
    }
  }
  return row[b.size()];
}

// The name that was probably meant; names are compared without case.
template <typename Names>
std::optional<std::string_view> Nearest(std::string_view typed, const Names& names) {
  constexpr std::size_t kLongestName = 20;
  if (typed.size() > kLongestName) return std::nullopt;
  const std::string lower = LowerAscii(typed);
  std::optional<std::string_view> best;
  std::size_t bestDistance = std::min(kNearest, typed.size() / 2) + 1;
  for (const std::string_view name : names) {
    const std::size_t distance = EditDistance(lower, LowerAscii(name));
    if (distance >= bestDistance) continue;
    bestDistance = distance;
    best = name;
  }
  return best;
}

bool HasVariable(std::string_view parameter) {
  return std::ranges::any_of(ScriptVariableNames(), [&](std::string_view name) {
    return parameter.find(name) != std::string_view::npos;
  });
}

bool IsCommentMark(std::string_view text) {
  return text.starts_with('#') || text.starts_with("//");
}

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool IsTwoDigits(std::string_view text, int highest) {
  if (text.size() != 2 || text.find_first_not_of("0123456789") != std::string_view::npos) return false;
  return (text[0] - '0') * 10 + (text[1] - '0') <= highest;
}

bool IsClockTime(std::string_view text) {
  return text.size() == 8 && text[2] == ':' && text[5] == ':' && IsTwoDigits(text.substr(0, 2), 23) &&
         IsTwoDigits(text.substr(3, 2), 59) && IsTwoDigits(text.substr(6, 2), 59);
}

std::size_t SeparatingCommas(std::string_view parameters) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (parameters[i] == ',' && (i == 0 || parameters[i - 1] != '\\')) ++count;
  }
  return count;
}

class Checker {
 public:
  std::vector<ScriptFinding> Check(std::string_view text) {
    CheckLineEnds(text);
    ForEachVisibleLine(text, [this](std::string_view line) { CheckLine(line); });
    Finish();
    return std::move(findings_);
  }

 private:
  template <typename Visit>
  static void ForEachVisibleLine(std::string_view text, const Visit& visit) {
    while (!text.empty()) {
      const auto end = text.find_first_of("\r\n");
      visit(text.substr(0, end));
      if (end == std::string_view::npos) return;
      text.remove_prefix(end + (text.substr(end).starts_with("\r\n") ? 2 : 1));
    }
  }

  void Add(FindingKind kind, std::string message) { AddAt(line_, kind, std::move(message)); }
  void AddAt(std::size_t line, FindingKind kind, std::string message) {
    if (findings_.size() < kMostFindings) {
      findings_.push_back({line, kind, std::move(message)});
    } else {
      ++more_;
    }
  }
  void Error(std::string message) { Add(FindingKind::Error, std::move(message)); }
  void Hint(std::string message) { Add(FindingKind::Hint, std::move(message)); }

  void CheckLineEnds(std::string_view text) {
    std::size_t line = 1;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] != '\r' && text[i] != '\n') continue;
      if (text.substr(i).starts_with("\r\n")) {
        ++i;
        ++line;
        continue;
      }
      AddAt(line, FindingKind::Error,
            "Diese Zeile endet nicht mit CR LF, darum gehört die nächste noch zu ihr. Öffnen und speichern "
            "Sie das Skript "
            "im Taskscript Editor, dann stimmt es.");
      return;
    }
  }

  void CheckLine(std::string_view line) {
    ++line_;
    const std::string_view visible = WithoutBlanks(line);
    if (visible.empty()) return;
    if (line.find('(') == std::string_view::npos) {
      if (!IsCommentMark(visible))
        Hint("Ohne „(“ ist das kein Befehl: die Zeile wird übersprungen. Kommentare beginnen mit „#“.");
      return;
    }
    const auto cut = CutLine(line);
    if (!cut) {
      if (!IsCommentMark(line)) Error("Die Zeile ist zu kurz für einen Befehl und wird übersprungen.");
      return;
    }
    if (IsCommentMark(cut->command)) {
      return Hint(
          "Vor dem Kommentarzeichen steht ein Leerzeichen; die Zeile tut nur nichts, weil es keinen solchen "
          "Befehl gibt.");
    }
    CheckCommand(line, *cut);
  }

  void CheckCommand(std::string_view line, const ScriptLine& cut) {
    const auto found = std::find_if(signatures_.begin(), signatures_.end(),
                                    [&](const Signature& s) { return s.name == cut.command; });
    if (found == signatures_.end()) return UnknownCommand(cut.command);
    TellUnreachable();
    if (std::find(kWithoutAction.begin(), kWithoutAction.end(), cut.command) != kWithoutAction.end()) {
      return Error(Quoted(cut.command) +
                   " bewirkt nichts: der Befehl ist vorgesehen, wird aber nicht ausgeführt.");
    }
    if (CheckEnd(line, cut, *found)) CheckParameters(line, cut, *found);
    Remember(cut.command);
  }

  void UnknownCommand(const std::string& command) {
    std::vector<std::string_view> names;
    for (const Signature& signature : signatures_) names.push_back(signature.name);
    const auto meant = Nearest(command, names);
    if (!meant) return Error("Den Befehl " + Quoted(command) + " gibt es nicht; die Zeile tut nichts.");
    if (LowerAscii(command) == LowerAscii(*meant)) {
      return Error("Groß- und Kleinschreibung zählt: der Befehl heißt " + Quoted(*meant) + ", nicht " +
                   Quoted(command) + ".");
    }
    Error("Den Befehl " + Quoted(command) + " gibt es nicht. Meinten Sie " + Quoted(*meant) + "?");
  }

  void TellUnreachable() {
    if (!endedBy_ || std::exchange(unreachableTold_, true)) return;
    Hint("Ab hier wird nichts mehr ausgeführt: Zeile " + std::to_string(*endedBy_) +
         " beendet das Skript oder beginnt es neu.");
  }

  // False when the rest of the line is not what its writer thinks.
  bool CheckEnd(std::string_view line, const ScriptLine& cut, const Signature& signature) {
    const std::string_view rest = line.substr(line.find('(') + 1);
    if (const auto second = rest.find('('); second != std::string_view::npos) {
      Error("Eine „(“ im Text schneidet ihn ab: gelesen wird nur " + Quoted(rest.substr(0, second)) + ".");
      return false;
    }
    const std::string_view visible = WithoutBlanks(rest);
    const auto end = visible.find(");");
    if (end == std::string_view::npos) {
      Error(visible.ends_with(')') ? "Am Ende fehlt das „;“: die Klammer „)“ wird Teil des Textes."
                                   : "Am Ende fehlt „);“.");
      return false;
    }
    if (end + 2 != visible.size()) {
      Error(
          "Jedes „);“ im Text wird entfernt; was dahinter steht, gehört noch zum Text. Ein Befehl, eine "
          "Zeile.");
      return false;
    }
    if (signature.parameters > 0 && rest.size() != visible.size() && rest.ends_with(' ')) {
      Hint("Hinter „);“ steht ein Leerzeichen: es wird Teil von " +
           Quoted(cut.parameter2.empty() ? "Text" : "Text2") + ".");
    }
    return true;
  }

  void CheckParameters(std::string_view line, const ScriptLine& cut, const Signature& signature) {
    const std::string_view rest = line.substr(line.find('(') + 1);
    const std::string_view parameters = rest.substr(0, rest.find(");"));
    const std::size_t count = parameters.empty() ? 0 : SeparatingCommas(parameters) + 1;
    if (signature.name == "Pause") return;
    if (signature.parameters == 0) {
      if (count > 0)
        Hint(Quoted(signature.name) +
             " braucht keinen Parameter; was in der Klammer steht, wird nicht beachtet.");
      return;
    }
    if (count > signature.parameters) {
      Error("Ein Komma im Text wird als „\\,“ geschrieben: so endet der Text vor dem Komma.");
    } else if (signature.parameters == 2 && count < 2 && signature.name != "Dokument") {
      Error(Quoted(signature.name) + " braucht zwei Parameter, durch ein Komma getrennt.");
    }
    CheckVariables(cut, signature.name);
    CheckKind(cut, signature, count);
    CheckConditions(cut, signature.name);
    CheckDocument(cut, signature.name);
  }

  void CheckKind(const ScriptLine& cut, const Signature& signature, std::size_t count) {
    std::string value = cut.parameter1;
    RestoreCommas(value);
    if (HasVariable(value) || count > signature.parameters) return;
    if (signature.name == "Warten") CheckSeconds(value);
    if (signature.kind == "Prozent") CheckPercent(signature.name, value);
    if (signature.kind == "Zeit" && !IsClockTime(value)) {
      Error(Quoted(value) + " ist keine Uhrzeit der Form HH:MM:SS; darauf würde ohne Ende gewartet.");
    }
  }

  void CheckSeconds(const std::string& value) {
    if (!IsNumeric(value)) {
      Error(Quoted(value) + " ist keine Zahl: „Warten“ erwartet Sekunden.");
    } else if (ToDouble(value) < -0.5) {
      Error("Eine Zeit in der Vergangenheit kommt nicht mehr: „Warten“ würde nicht enden.");
    }
  }

  void CheckPercent(std::string_view command, const std::string& value) {
    const bool whole = !value.empty() && value.size() <= 3 &&
                       value.find_first_not_of("0123456789") == std::string::npos && std::stoi(value) <= 100;
    if (!whole)
      Error(Quoted(command) + " erwartet eine ganze Zahl von 0 bis 100, nicht " + Quoted(value) + ".");
  }

  void CheckConditions(const ScriptLine& cut, std::string_view command) {
    const bool positive = command == "Wenn";
    if (!positive && command != "Wenn_nicht") return;
    if (cut.parameter2.starts_with(' ')) {
      Hint("Das Leerzeichen hinter dem Komma gehört zum Text und wird mitverglichen.");
    }
    if (!conditionsTold_.insert(command).second) return;
    Hint(positive
             ? "„Wenn“ macht nur weiter, wenn beide Texte gleich sind; sonst endet das Skript."
             : "„Wenn_nicht“ macht nur weiter, wenn beide Texte verschieden sind; sonst endet das Skript.");
  }

  void CheckDocument(const ScriptLine& cut, std::string_view command) {
    const std::string& mode = cut.parameter2;
    if (command != "Dokument" || mode == "0" || mode == "1" || mode.empty() || HasVariable(mode)) return;
    Error("Der zweite Parameter ist " + Quoted(mode) + ": nur 0 ersetzt den Text, alles andere hängt an.");
  }

  void CheckVariables(const ScriptLine& cut, std::string_view command) {
    for (const std::string* parameter : {&cut.parameter1, &cut.parameter2}) {
      for (auto at = parameter->find('$'); at != std::string::npos; at = parameter->find('$', at + 1)) {
        CheckVariable(std::string_view(*parameter).substr(at), command);
      }
    }
    if (command == "WartenBis" && cut.parameter1.find("$Zeit") != std::string::npos) {
      Error(
          "„$Zeit“ hat keine Sekunden, „WartenBis“ vergleicht aber HH:MM:SS: darauf würde ohne Ende "
          "gewartet.");
    }
  }

  void CheckVariable(std::string_view text, std::string_view command) {
    if (text.starts_with("$Zeit[") && command != "WartenBis") {
      return Hint(
          "Das Skript setzt für „$Zeit“ die Uhrzeit ein, bevor vorgelesen wird: „$Zeit[s]“, „$Zeit[m]“, "
          "„$Zeit[h]“ und "
          "„$Zeit[w]“ wirken nur im Dokument.");
    }
    const bool known = std::ranges::any_of(ScriptVariableNames(),
                                           [&](std::string_view name) { return text.starts_with(name); });
    if (known) return;
    const auto end = std::find_if_not(text.begin() + 1, text.end(), IsLetter);
    const std::string_view name = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    if (name.size() < 4) return;  // an amount of money
    const auto meant = Nearest(name, ScriptVariableNames());
    if (meant) {
      Error("Eine Variable " + Quoted(name) + " gibt es nicht. Meinten Sie " + Quoted(*meant) + "?");
    } else {
      Hint("Eine Variable " + Quoted(name) + " gibt es nicht; der Text bleibt so stehen.");
    }
  }

  void Remember(std::string_view command) {
    if ((command == "Stopp" || command == "Wiederholen") && !endedBy_) endedBy_ = line_;
    if (command == "Exportieren") exportedAt_ = line_;
    if (command == "Exportieren" || command == "Sprechen2") filledFrom_.reset();
    if (command == "Sprechen" && filledFrom_) {
      Error("Auch dieses „Sprechen“ schreibt in die Datei von „Exportieren“ in Zeile " +
            std::to_string(*filledFrom_) + " und ersetzt, was darin steht.");
    }
    if (command == "Sprechen" && exportedAt_) filledFrom_ = std::exchange(exportedAt_, std::nullopt);
    if (command == "Sprechen2" && exportedAt_) {
      Error("„Sprechen2“ spricht in eine neue Datei: die von „Exportieren“ in Zeile " +
            std::to_string(*exportedAt_) + " entsteht nicht. Sie braucht „Sprechen();“.");
      exportedAt_.reset();
    }
  }

  void Finish() {
    if (exportedAt_) {
      AddAt(*exportedAt_, FindingKind::Error,
            "Hinter „Exportieren“ fehlt „Sprechen();“: so entsteht keine Datei.");
    }
    std::stable_sort(findings_.begin(), findings_.end(),
                     [](const ScriptFinding& a, const ScriptFinding& b) { return a.line < b.line; });
    if (more_ > 0) {
      findings_.push_back(
          {line_, FindingKind::Error, "Und noch " + std::to_string(more_) + " weitere Stellen."});
    }
  }

  std::vector<Signature> signatures_ = AllSignatures();
  std::vector<ScriptFinding> findings_;
  std::size_t more_ = 0;
  std::size_t line_ = 0;
  std::optional<std::size_t> endedBy_;
  bool unreachableTold_ = false;
  std::optional<std::size_t> exportedAt_;
  std::optional<std::size_t> filledFrom_;  // the line that named the file which has its text already
  std::set<std::string_view> conditionsTold_;
};

}  // namespace

std::vector<ScriptFinding> CheckScript(std::string_view text) {
  return Checker().Check(text);
}

}  // namespace lorelin
