#include "extensions/registrations.h"

#include "base/text.h"

namespace lorelin {
namespace {

std::string KeyOf(std::string_view name) {
  return std::string(kExtensionRoot) + "\\" + std::string(name);
}

}  // namespace

bool IsActive(std::string_view active) {
  return active == "true";
}
bool IsActiveForExport(std::string_view active) {
  return active.find("true") != std::string_view::npos;
}
bool IsActiveForFilter(std::string_view active) {
  return LowerAscii(WithoutBlanks(active)).starts_with("true");
}

std::vector<Registration> Registrations::List() {
  std::vector<std::string> names;
  std::size_t count = 0;
  registry_.EnumKeys(kExtensionRoot, names, count);
  std::vector<Registration> list;
  for (const std::string& name : names) {
    const std::string key = KeyOf(name);
    list.push_back({name, registry_.ReadString(key, "ObjectName"), registry_.ReadString(key, "Active")});
  }
  return list;
}

bool Registrations::SetActive(const std::string& name, bool active) {
  return registry_.WriteString(KeyOf(name), "Active", active ? "true" : "false");
}

std::string Registrations::Add(std::string_view name, std::string_view objectName) {
  const std::string shortName(WithoutBlanks(name));
  const std::string object(WithoutBlanks(objectName));
  if (shortName.empty()) return "Bitte geben Sie der Erweiterung einen Namen.";
  if (shortName.find('\\') != std::string::npos)
    return "Der Name darf keinen umgekehrten Schrägstrich enthalten.";
  if (object.empty()) return "Bitte geben Sie den Objektnamen der Erweiterung an.";
  const std::string key = KeyOf(shortName);
  if (registry_.KeyExists(key)) return "Eine Erweiterung „" + shortName + "“ gibt es schon.";
  const bool added = registry_.CreateKey(key) && registry_.WriteString(key, "ObjectName", object) &&
                     registry_.WriteString(key, "Active", "true");
  return added ? "" : "Die Einstellungen ließen sich nicht schreiben.";
}

bool Registrations::Remove(const std::string& name) {
  return registry_.KillKey(KeyOf(name));
}

}  // namespace lorelin
