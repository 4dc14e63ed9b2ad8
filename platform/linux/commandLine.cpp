#include "ports/Platform.h"

#include <algorithm>

#include "base/modFile.h"

namespace lorelin {
namespace {

std::string Quoted(std::string argument) {
  std::replace(argument.begin(), argument.end(), '/', '\\');
  return '"' + argument + '"';
}

}  // namespace

std::string CommandLineText(std::span<char* const> arguments) {
  std::string text;
  for (const std::string argument : arguments) {
    if (!text.empty()) text.push_back(' ');
    text += FileExists(argument) ? Quoted(argument) : argument;
  }
  return text;
}

}  // namespace lorelin
