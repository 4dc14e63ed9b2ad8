#include "scripts/scriptChecker.h"

#include <algorithm>
#include <array>
#include <cstdint>
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

bool IsHoursAndMinutes(std::string_view text) {
  return text.size() == 5 && text[2] == ':' && IsTwoDigits(text.substr(0, 2), 23) &&
         IsTwoDigits(text.substr(3, 2), 59);
}

bool IsDate(std::string_view text) {
  return text.size() == 10 && text[2] == '.' && text[5] == '.' && IsTwoDigits(text.substr(0, 2), 31) &&
         IsTwoDigits(text.substr(3, 2), 12) && IsTwoDigits(text.substr(6, 2), 99) &&
         IsTwoDigits(text.substr(8, 2), 99);
}

// "$Zeit:59": the variable stands for hours and minutes, the seconds are given.
std::optional<std::string_view> SecondsBehindTime(std::string_view text) {
  constexpr std::string_view kTime = "$Zeit:";
  if (!text.starts_with(kTime)) return std::nullopt;
  const std::string_view seconds = text.substr(kTime.size());
  return IsTwoDigits(seconds, 59) ? std::optional(seconds) : std::nullopt;
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
      AddAt(
          line, FindingKind::Error,
          "Diese Zeile endet nicht mit CR LF, darum gehört die nächste noch zu ihr. Öffnen Sie das Skript im "
          "Taskscript Editor, löschen Sie im Namen „.vts“ und speichern Sie es: dann stimmen die Zeilen.");
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
    if (end == std::string_view::npos && signature.parameters == 0) {
      Hint("Am Ende fehlt " + Quoted(visible.ends_with(')') ? ";" : ");") +
           "; der Befehl wird trotzdem ausgeführt.");
      return false;
    }
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
    CheckEmpty(cut, signature.name);
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

  // Without their first text these do nothing, fail, or do something else.
  void CheckEmpty(const ScriptLine& cut, std::string_view command) {
    struct Reason {
      std::string_view command;
      std::string_view text;
    };
    static constexpr std::array kReasons{
        Reason{"Laden", "Ohne Dateinamen lädt „Laden“ nichts: das ist ein Fehler."},
        Reason{"Löschen", "Ohne Dateinamen löscht „Löschen“ nichts: das ist ein Fehler."},
        Reason{"Exportieren", "Ohne Dateinamen entsteht hinter „Exportieren“ keine Datei, die bleibt."},
        Reason{"Ausführen", "Ohne Programm führt „Ausführen“ nichts aus: das ist ein Fehler."},
        Reason{"Download", "Ohne Adresse lädt „Download“ nichts herunter."},
        Reason{"Ersetzen", "„Ersetzen“ sucht hier nach nichts und ändert darum nichts."},
        Reason{"Sprechen2", "Ohne Text spricht „Sprechen2“ das ganze Dokument."}};
    if (command == "Download" && cut.parameter2.empty()) {
      return Error("Ohne Dateinamen lädt „Download“ nichts herunter.");
    }
    const auto* const found = std::find_if(kReasons.begin(), kReasons.end(),
                                           [&](const Reason& reason) { return reason.command == command; });
    if (found == kReasons.end()) return;
    const bool blanksCount = command == "Ersetzen";
    if (!(blanksCount ? cut.parameter1 : WithoutBlanks(cut.parameter1)).empty()) return;
    Add(command == "Sprechen2" ? FindingKind::Hint : FindingKind::Error, std::string(found->text));
  }

  void CheckSeconds(const std::string& value) {
    if (!IsNumeric(value)) {
      Error(Quoted(value) + " ist keine Zahl: „Warten“ erwartet Sekunden.");
    } else if (ToDouble(value) > kLongestWait) {
      Error("„Warten“ nimmt höchstens " + std::to_string(static_cast<std::int64_t>(kLongestWait)) +
            " Sekunden; mehr ist ein Fehler.");
    } else if (ToDouble(value) < -0.5) {
      Error("Eine Zeit in der Vergangenheit kommt nicht mehr: „Warten“ würde nicht enden.");
    }
  }

  void CheckPercent(std::string_view command, const std::string& text) {
    const std::string_view value = WithoutBlanks(text);
    const bool whole = !value.empty() && value.size() <= 3 &&
                       value.find_first_not_of("0123456789") == std::string::npos &&
                       std::stoi(std::string(value)) <= 100;
    if (!whole)
      Error(Quoted(command) + " erwartet eine ganze Zahl von 0 bis 100, nicht " + Quoted(text) + ".");
  }

  void CheckConditions(const ScriptLine& cut, std::string_view command) {
    const bool positive = command == "Wenn";
    if (!positive && command != "Wenn_nicht") return;
    CheckComparison(cut.parameter1, cut.parameter2);
    CheckComparison(cut.parameter2, cut.parameter1);
    if (cut.parameter2.starts_with(' ')) {
      Hint("Das Leerzeichen hinter dem Komma gehört zum Text und wird mitverglichen.");
    }
    if (!conditionsTold_.insert(command).second) return;
    Hint(positive
             ? "„Wenn“ macht nur weiter, wenn beide Texte gleich sind; sonst endet das Skript."
             : "„Wenn_nicht“ macht nur weiter, wenn beide Texte verschieden sind; sonst endet das Skript.");
  }

  // A variable of a fixed form against a text that never has this form.
  void CheckComparison(std::string_view variable, std::string_view text) {
    if (HasVariable(text)) return;
    const std::string_view value = WithoutBlanks(text);
    if (variable == "$Zeit" && !IsHoursAndMinutes(value)) {
      Error("„$Zeit“ hat immer die Form HH:MM, etwa 09:05, und ist darum nie gleich " + Quoted(value) + ".");
    } else if (variable == "$Datum" && !IsDate(value)) {
      Error("„$Datum“ hat immer die Form TT.MM.JJJJ, etwa 01.02.2027, und ist darum nie gleich " +
            Quoted(value) + ".");
    }
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
    if (command == "WartenBis") CheckWaitForTime(cut.parameter1);
  }

  void CheckWaitForTime(const std::string& time) {
    if (time.find("$Zeit") == std::string::npos) return;
    const auto seconds = SecondsBehindTime(time);
    if (!seconds) {
      Error(
          "„$Zeit“ hat keine Sekunden, „WartenBis“ vergleicht aber HH:MM:SS: darauf würde ohne Ende "
          "gewartet.");
    } else if (*seconds != "59") {
      Hint("Ist die Sekunde " + std::string(*seconds) +
           " dieser Minute schon vorbei, wartet „WartenBis“ bis zum nächsten Tag.");
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
    RememberExport(command);
    RememberSpeech(command);
    lastCommand_ = command;
    lastCommandAt_ = line_;
  }

  // What the next text is rendered into: a file of the script's that still waits for it, one that already
  // holds a text, or a temporary one.
  void RememberExport(std::string_view command) {
    if (command == "Exportieren") {
      TellExportWithoutFile();
      exportedAt_ = line_;
      writtenAt_.reset();
    } else if (command == "Sprechen") {
      if (writtenAt_) {
        Error("Dieses „Sprechen“ überschreibt die Datei von „Exportieren“ in Zeile " +
              std::to_string(*writtenAt_) + ". Geben Sie ihm mit „Exportieren“ eine eigene.");
      }
      if (exportedAt_) writtenAt_ = std::exchange(exportedAt_, std::nullopt);
    } else if (command == "Sprechen2") {
      if (exportedAt_) {
        Error("„Sprechen2“ spricht in eine neue Datei: die von „Exportieren“ in Zeile " +
              std::to_string(*exportedAt_) + " entsteht nicht. Sie braucht „Sprechen();“.");
      }
      exportedAt_.reset();
      writtenAt_.reset();
    }
  }

  void TellExportWithoutFile() {
    if (!exportedAt_) return;
    AddAt(*exportedAt_, FindingKind::Error,
          "Hinter „Exportieren“ fehlt „Sprechen();“: so entsteht keine Datei.");
  }

  void RememberSpeech(std::string_view command) {
    const bool speaks = command == "Sprechen" || command == "Sprechen2";
    if (speaks && spokenAt_) {
      Hint("Hier bricht „" + std::string(command) + "“ ab, was „Sprechen2“ in Zeile " +
           std::to_string(*spokenAt_) + " zu sprechen begann. Dazwischen fehlt ein „Warten“.");
    }
    if (command == "Sprechen2") {
      spokenAt_ = line_;
    } else if (speaks || command == "Warten" || command == "WartenBis" || command == "Meldung") {
      spokenAt_.reset();
    }
  }

  void Finish() {
    TellExportWithoutFile();
    if (lastCommand_ == "Text") {
      AddAt(lastCommandAt_, FindingKind::Hint,
            "Als letzter Befehl ist „Text“ nicht zu lesen: gleich danach steht in der Statusleiste, dass das "
            "Skript zu Ende ist.");
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
  std::optional<std::size_t> exportedAt_;  // a file waits for its text
  std::optional<std::size_t> writtenAt_;   // a file has its text and is still the target
  std::optional<std::size_t> spokenAt_;    // a text that is not waited for
  std::string lastCommand_;
  std::size_t lastCommandAt_ = 0;
  std::set<std::string_view> conditionsTold_;
};

}  // namespace

std::vector<ScriptFinding> CheckScript(std::string_view text) {
  return Checker().Check(text);
}

}  // namespace lorelin
