#include "app/modAppMain.h"

#include <exception>

#include "base/modFile.h"

namespace lorelin {
namespace {

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

void TakePath(const MainParts& parts, std::string_view commandLine) {
  const std::string path = PathInCommandLine(commandLine);
  if (FileExists(path)) parts.startup.startupFilePath = path;
}

void TakeTextSwitch(const MainParts& parts, std::string_view commandLine) {
  if (Contains(commandLine, "/t")) parts.textmode();
}

void TakeSpeakSwitch(const MainParts& parts, std::string_view commandLine) {
  if (!Contains(commandLine, "/s")) return;
  parts.startup.speakOnStart = true;
  parts.textmode();
}

}  // namespace

std::string PathInCommandLine(std::string_view commandLine) {
  const auto first = commandLine.find('"');
  const auto last = commandLine.rfind('"');
  // Counted from 1 the last quote stands at last + 1.
  if (first == std::string_view::npos || last < 1) return {};
  return std::string(commandLine.substr(first + 1, last - 1));
}

StartResult Main(const MainParts& parts, std::string_view commandLine) {
  const auto step = [&](const auto& action) {
    try {
      action();
    } catch (const std::exception& error) {
      parts.log.Write(std::string("Start: ") + error.what());
    }
  };
  bool second = false;
  step([&] { second = parts.singleInstance.IsAlreadyRunning(); });
  if (second) {
    parts.messageBoxes.Show("Eine Instanz von Lorelin läuft bereits.", "Lorelin", MessageIcon::Information,
                            MessageButtons::Ok);
    return StartResult::SecondInstance;
  }
  step(parts.registerFileType);
  step([&] { parts.startup.startupFilePath = parts.settings.Get(setting::StartUpFile); });
  if (!commandLine.empty()) {
    step([&] { TakePath(parts, commandLine); });
    step([&] { TakeTextSwitch(parts, commandLine); });
    step([&] { TakeSpeakSwitch(parts, commandLine); });
  }
  step(parts.loadMainWindow);
  return StartResult::Started;
}

}  // namespace lorelin
