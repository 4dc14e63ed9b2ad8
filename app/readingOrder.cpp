#include "app/readingOrder.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>
#include <utility>

#include "base/paths.h"

namespace lorelin {
namespace {

bool IsSwitch(const std::string& argument) {
  return argument == "/t" || argument == "/s";
}

// The program that runs already may be in another folder.
std::string Absolute(const std::string& path) {
  std::error_code error;
  const auto absolute = std::filesystem::absolute(NativePath(path), error);
  return error ? path : PathText(absolute);
}

}  // namespace

std::optional<RemoteOrder> TakeReadingOrder(std::vector<std::string>& arguments) {
  if (std::erase(arguments, "--auswahl") == 0) return std::nullopt;
  const auto firstFile = std::stable_partition(arguments.begin(), arguments.end(), &IsSwitch);
  std::vector<std::string> files;
  std::transform(firstFile, arguments.end(), std::back_inserter(files), &Absolute);
  arguments.erase(firstFile, arguments.end());
  if (files.empty()) return RemoteOrder(RemoteRequest::ReadSelection);
  return RemoteOrder(RemoteRequest::ReadFiles, std::move(files));
}

}  // namespace lorelin
