#include "cli/check.h"

#include <algorithm>
#include <ostream>

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/textEncoding.h"
#include "scripts/scriptChecker.h"

namespace lorelin::cli {
namespace {

ExitCode CheckFile(const std::string& file, std::ostream& out) {
  const auto findings = CheckScript(DecodeText(ReadFileBytes(file)));
  for (const ScriptFinding& finding : findings) {
    out << file << ':' << finding.line << ": " << (finding.kind == FindingKind::Hint ? "Hinweis: " : "")
        << finding.message << '\n';
  }
  if (findings.empty()) out << file << ": in Ordnung\n";
  const bool errors = std::any_of(findings.begin(), findings.end(),
                                  [](const ScriptFinding& f) { return f.kind == FindingKind::Error; });
  return errors ? ExitCode::NotToTheEnd : ExitCode::Done;
}

}  // namespace

ExitCode CheckScripts(std::span<const std::string> files, std::ostream& out, std::ostream& err) {
  ExitCode worst = ExitCode::Done;
  for (const std::string& file : files) {
    try {
      worst = std::max(worst, CheckFile(file, out));
    } catch (const RuntimeError& error) {
      err << "lorelin-cli: „" << file << "“ kann nicht gelesen werden: " << error.what() << ".\n";
      worst = ExitCode::NoInput;
    }
  }
  return worst;
}

}  // namespace lorelin::cli
