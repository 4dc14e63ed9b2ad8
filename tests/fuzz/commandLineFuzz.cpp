#include <algorithm>
#include <string>
#include <vector>

#include "app/modAppMain.h"
#include "scripts/interpreter.h"
#include "tests/fuzz/input.h"

using lorelin::fuzz::Hold;

namespace {

bool Parts(char c) {
  return c == ' ' || c == '\t';
}

// Nothing but quotes and the blanks between arguments is lost.
void CheckThatNothingIsLost(std::string_view line, const std::vector<std::string>& arguments) {
  std::string joined;
  for (const std::string& argument : arguments) joined += argument;
  std::string kept;
  bool quoted = false;
  for (const char c : line) {
    if (c == '"') {
      quoted = !quoted;
    } else if (quoted || !Parts(c)) {
      kept += c;
    }
  }
  Hold(joined == kept);
}

// Arguments that are quoted come back one by one.
void CheckThatQuotesHoldTogether(const std::vector<std::string>& arguments) {
  std::string quoted;
  for (const std::string& argument : arguments) quoted += '"' + argument + "\" ";
  Hold(lorelin::SplitCommandLine(quoted) == arguments);
}

}  // namespace

// A command line is cut into arguments without loss, and the path in one is a part of it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view line(reinterpret_cast<const char*>(data), size);
  const std::vector<std::string> arguments = lorelin::SplitCommandLine(line);
  CheckThatNothingIsLost(line, arguments);
  CheckThatQuotesHoldTogether(arguments);
  const std::string path = lorelin::PathInCommandLine(line);
  Hold(line.find(path) != std::string_view::npos);
  if (std::count(line.begin(), line.end(), '"') == 2 && line.starts_with('"'))
    Hold(path == line.substr(1, line.rfind('"') - 1));
  return 0;
}
