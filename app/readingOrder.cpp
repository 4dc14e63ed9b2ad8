#include "app/readingOrder.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/paths.h"

namespace lorelin {
namespace {

bool IsSwitch(const std::string& argument) {
  return argument == "/t" || argument == "/s";
}

}  // namespace

std::optional<RemoteOrder> TakeReadingOrder(std::vector<std::string>& arguments) {
  if (std::erase(arguments, "--auswahl") == 0) return std::nullopt;
  const auto firstFile = std::stable_partition(arguments.begin(), arguments.end(), &IsSwitch);
  std::vector<std::string> files;
  // The program that runs already may be in another folder.
  std::transform(firstFile, arguments.end(), std::back_inserter(files), &AbsolutePath);
  arguments.erase(firstFile, arguments.end());
  if (files.empty()) return RemoteOrder(RemoteRequest::ReadSelection);
  return RemoteOrder(RemoteRequest::ReadFiles, std::move(files));
}

}  // namespace lorelin
