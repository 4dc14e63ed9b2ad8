#pragma once

#include <string>
#include <string_view>

#include "ports/MessageBoxes.h"
#include "ports/Registry.h"

namespace lorelin {

// Associates a script file extension with the program in the class registry, anew on every start, so that a
// moved program repairs its association.
class ModFileReg {
 public:
  // Owns none of them. `programFile` is the path of the running executable; its folder is the program folder
  // of the association.
  ModFileReg(Registry& registry, MessageBoxes& messageBoxes, std::string programFolder,
             std::string programFile);

  // The extension with or without its dot, in any case; an empty one is refused with a message. Registry
  // failures are ignored.
  void RegisterFileType(std::string_view extension);
  // Creates or opens the key and sets one string value; an empty name is the default value.
  void WriteClassString(RegistryHive root, std::string_view key, std::string_view name,
                        std::string_view value);

 private:
  Registry& registry_;
  MessageBoxes& messageBoxes_;
  std::string programFolder_;
  std::string programFile_;
};

}  // namespace lorelin
