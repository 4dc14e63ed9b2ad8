#pragma once

#include <guiddef.h>

#include <string>
#include <vector>

#include "platform/windows/servedObject.h"

namespace lorelin {

// An extension that notes its calls and puts angle brackets around a text; Export of "fehler" fails.
inline constexpr const char* kExtensionName = "LorelinTest.Klammern";
inline constexpr const char* kExtensionClassText = "{1E2C0E6B-6A54-4F0B-9A57-3D0C7C1B5A11}";
extern const CLSID kExtensionClass;

[[nodiscard]] ServedObject* MakeExtension();
// "Startup()", "FilterText(&Guten Tag)": the ampersand stands for a reference.
[[nodiscard]] std::vector<std::string>& ExtensionCalls();

}  // namespace lorelin
