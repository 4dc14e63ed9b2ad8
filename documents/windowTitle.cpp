#include "documents/windowTitle.h"

namespace lorelin {
namespace {

constexpr std::string_view kChanged = "• ";
constexpr std::string_view kProgram = "Lorelin";
constexpr std::string_view kBetween = " – ";

}  // namespace

std::string WindowTitle(const std::string& documentName, bool modified) {
  std::string title(modified ? kChanged : "");
  if (!documentName.empty()) title.append(documentName).append(kBetween);
  return title.append(kProgram);
}

std::string_view WithoutChangeMark(std::string_view title) {
  if (!title.starts_with(kChanged) || !title.ends_with(kProgram)) return title;
  const std::string_view rest = title.substr(kChanged.size());
  const std::string_view name = rest.substr(0, rest.size() - kProgram.size());
  return name.empty() || name.ends_with(kBetween) ? rest : title;
}

}  // namespace lorelin
