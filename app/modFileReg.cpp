#include "app/modFileReg.h"

#include <utility>

#include "base/paths.h"
#include "base/text.h"

namespace lorelin {
ModFileReg::ModFileReg(Registry& registry, MessageBoxes& messageBoxes, std::string programFolder,
                       std::string programFile)
    : registry_(registry),
      messageBoxes_(messageBoxes),
      programFolder_(std::move(programFolder)),
      programFile_(std::move(programFile)) {}

void ModFileReg::RegisterFileType(std::string_view extension) {
  if (extension.empty()) {
    messageBoxes_.Show("Dateiendung benötigt.", "Lorelin", MessageIcon::Critical, MessageButtons::Ok);
    return;
  }
  const std::string lower = LowerAscii(extension);
  const std::string bare = lower.starts_with('.') ? lower.substr(1) : lower;
  const std::string className = bare + "file";
  const std::string program = PathText(NativePath(programFile_).stem());
  // No quotes anywhere: the command stays as it always was.
  WriteClassString(RegistryHive::ClassesRoot, "." + bare, "", className);
  WriteClassString(RegistryHive::ClassesRoot, className + "\\shell\\open\\command", "",
                   programFolder_ + "\\" + program + ".exe %1");
  WriteClassString(RegistryHive::ClassesRoot, className + "\\DefaultIcon", "", programFolder_ + "\\vts.ico");
}

void ModFileReg::WriteClassString(RegistryHive root, std::string_view key, std::string_view name,
                                  std::string_view value) {
  registry_.WriteValue(root, key, name, RegistryValue{RegistryType::String, std::string(value)});
}

}  // namespace lorelin
