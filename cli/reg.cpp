#include "cli/reg.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <ostream>
#include <system_error>

#include "base/modFile.h"
#include "base/text.h"
#include "cli/Failure.h"
#include "platform/common/caseFold.h"
#include "settings/clsRegistryAccess.h"

namespace lorelin::cli {
namespace {

using Words = std::span<const std::string>;

// The default value as people can write it.
std::string NameOf(const std::string& word) {
  return word == "@" ? "" : word;
}
std::string ShownName(const std::string& name) {
  return name.empty() ? "@" : name;
}

std::string Hexadecimal(std::uint32_t number) {
  std::string digits;
  for (; number > 0 || digits.empty(); number >>= 4) digits.insert(0, 1, "0123456789ABCDEF"[number & 0xF]);
  return digits;
}

// In the form in which it can be typed in.
std::string DataText(const RegistryValue& value) {
  switch (value.type) {
    case RegistryType::String:
    case RegistryType::ExpandString:
      return value.data;
    case RegistryType::DoubleWord:
      return "dword:" + Hexadecimal(DoubleWordOf(value).value_or(0));
    case RegistryType::Binary:
      break;
  }
  return "hex:" + ClsRegistryAccess::BinToStr(value.data);
}

class Editor {
 public:
  Editor(Registry& registry, FileWriter& files, std::ostream& out)
      : registry_(registry), access_(registry, files), out_(out) {
    access_.CreateKeyIfDoesntExists(true);
  }

  void Query(Words words) {
    RequireKey(words[0]);
    if (words.size() == 1) return ShowKey(words[0]);
    const std::string name = NameOf(words[1]);
    if (!ShowValues(words[0], &name))
      Refuse("Den Wert „" + words[1] + "“ gibt es in „" + words[0] + "“ nicht.");
  }

  void Add(Words words) {
    RequireLasting();
    const std::string& path = words[0];
    if (words.size() == 2) throw UsageError("Hinter dem Namen fehlen die Daten.");
    const bool done = words.size() == 1 ? access_.CreateKey(path) : Write(path, NameOf(words[1]), words[2]);
    if (!done)
      Refuse("„" + path + "“ ließ sich nicht schreiben. Der Pfad muss mit einem Stamm wie HKCU beginnen.");
  }

  void Delete(Words words) {
    RequireLasting();
    RequireKey(words[0]);
    if (words.size() == 1) {
      if (!access_.KillKey(words[0])) Refuse("Der Schlüssel „" + words[0] + "“ ließ sich nicht löschen.");
      return;
    }
    if (!access_.KillValue(words[0], NameOf(words[1]))) {
      Refuse("Den Wert „" + words[1] + "“ gibt es in „" + words[0] + "“ nicht.");
    }
  }

  void Export(Words words) {
    RequireKey(words[0]);
    if (!access_.ExportToReg(words[0], words[1])) {
      throw Failure(ExitCode::NoTarget, "„" + words[1] + "“ ließ sich nicht schreiben.");
    }
  }

  void Import(Words words) {
    if (!FileExists(words[0]))
      throw Failure(ExitCode::NoInput, "„" + words[0] + "“ kann nicht gelesen werden.");
    RequireLasting();
    if (!access_.ImportFromReg(words[0])) {
      const auto& problems = access_.ImportProblems();
      const std::string why = problems.empty() ? "Die Datei kann nicht gelesen werden." : problems[0].reason;
      Refuse("Aus „" + words[0] + "“ wurde nichts eingelesen: " + why);
    }
    const auto& problems = access_.ImportProblems();
    for (const ImportProblem& problem : problems) {
      out_ << words[0] << ':' << problem.line << ": " << problem.reason << '\n';
    }
    if (problems.empty()) return;
    Refuse(problems.size() == 1 ? std::string("Eine Zeile wurde nicht eingelesen.")
                                : std::to_string(problems.size()) + " Zeilen wurden nicht eingelesen.");
  }

 private:
  [[noreturn]] static void Refuse(const std::string& why) { throw Failure(ExitCode::Refused, why); }

  // Nobody is told that something was done which is forgotten with the end of this program.
  void RequireLasting() {
    if (!registry_.IsLasting()) Refuse("Nichts wurde geändert: Der Speicher lässt sich nicht beschreiben.");
  }

  void RequireKey(const std::string& path) {
    // Whether there is a key can be said only of what can be read.
    const bool there = access_.KeyExists(path);
    if (registry_.State() == RegistryState::Unreadable) Refuse("Der Speicher lässt sich nicht lesen.");
    if (!there) Refuse("Den Schlüssel „" + path + "“ gibt es nicht.");
  }

  void ShowKey(const std::string& path) {
    ShowValues(path, nullptr);
    std::vector<std::string> names;
    std::size_t count = 0;
    access_.EnumKeys(path, names, count);
    for (const std::string& name : names) out_ << '[' << path << '\\' << name << "]\n";
  }

  // All values, or the one with this name; whether there was any.
  bool ShowValues(const std::string& path, const std::string* only) {
    bool shown = false;
    for (const RegistryType type :
         {RegistryType::String, RegistryType::ExpandString, RegistryType::Binary, RegistryType::DoubleWord}) {
      std::vector<std::string> names;
      std::vector<RegistryValue> values;
      access_.EnumValues(path, type, names, values);
      for (std::size_t i = 0; i < names.size(); ++i) {
        if (only != nullptr && FoldCase(names[i]) != FoldCase(*only)) continue;
        out_ << ShownName(names[i]) << '=' << DataText(values[i]) << '\n';
        shown = true;
      }
    }
    return shown;
  }

  bool Write(const std::string& path, const std::string& name, const std::string& data) {
    const std::string lower = LowerAscii(data);
    if (lower.starts_with("hex:")) {
      std::string spaced = data.substr(4);
      std::replace(spaced.begin(), spaced.end(), ',', ' ');
      if (!ClsRegistryAccess::isBinValid(spaced)) throw UsageError("„" + data + "“ sind keine Bytes.");
      return access_.WriteBinary(path, name, ClsRegistryAccess::StrToBin(spaced));
    }
    if (!lower.starts_with("dword:")) return access_.WriteString(path, name, data);
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(data.data() + 6, data.data() + data.size(), number, 16);
    if (error != std::errc{} || end != data.data() + data.size()) {
      throw UsageError("„" + data + "“ ist keine Zahl aus bis zu acht hexadezimalen Ziffern.");
    }
    return access_.WriteDWORD(path, name, number);
  }

  Registry& registry_;
  ClsRegistryAccess access_;
  std::ostream& out_;
};

struct Verb {
  std::string_view name;
  std::size_t fewest;
  std::size_t most;
  void (Editor::*run)(Words);
};

constexpr std::array kVerbs{Verb{"query", 1, 2, &Editor::Query}, Verb{"add", 1, 3, &Editor::Add},
                            Verb{"delete", 1, 2, &Editor::Delete}, Verb{"export", 2, 2, &Editor::Export},
                            Verb{"import", 1, 1, &Editor::Import}};

}  // namespace

ExitCode UseRegistry(std::span<const std::string> words, Registry& registry, FileWriter& files,
                     std::ostream& out) {
  if (words.empty()) throw UsageError("„reg“ braucht „query“, „add“, „delete“, „export“ oder „import“.");
  const auto* const verb =
      std::find_if(kVerbs.begin(), kVerbs.end(), [&](const Verb& v) { return v.name == words.front(); });
  if (verb == kVerbs.end()) throw UsageError("„reg " + words.front() + "“ gibt es nicht.");
  const Words rest = words.subspan(1);
  if (rest.size() < verb->fewest || rest.size() > verb->most) {
    throw UsageError("„reg " + words.front() + "“ hat " +
                     (rest.size() < verb->fewest ? "zu wenige" : "zu viele") + " Angaben.");
  }
  Editor editor(registry, files, out);
  (editor.*verb->run)(rest);
  return ExitCode::Done;
}

}  // namespace lorelin::cli
