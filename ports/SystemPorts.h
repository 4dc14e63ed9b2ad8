#pragma once

#include "ports/Automation.h"
#include "ports/Clock.h"
#include "ports/Downloader.h"
#include "ports/FileSearch.h"
#include "ports/FileWriter.h"
#include "ports/ForegroundWindow.h"
#include "ports/ImportProcess.h"
#include "ports/Log.h"
#include "ports/ProgramLauncher.h"
#include "ports/Registry.h"
#include "ports/Shell.h"

namespace lorelin {

// What the system gives, for those who put modules together; a module itself takes only the ports that it
// needs. Owns none of it.
struct SystemPorts {
  Registry& registry;
  FileWriter& files;
  FileSearch& fileSearch;
  Clock& clock;
  Log& log;
  Log& scriptLog;  // what task scripts did
  Automation& automation;
  ForegroundWindow& foreground;
  Shell& shell;
  ProgramLauncher& launcher;
  Downloader& downloader;
  ImportProcess& importer;
};

}  // namespace lorelin
