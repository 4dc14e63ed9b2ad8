#pragma once

#include <string>
#include <utility>

#include "ports/SystemPorts.h"
#include "tests/support/FakeDirectSS.h"
#include "tests/support/FakeImportProcess.h"
#include "tests/support/FakePorts.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {

// What a program stands on, as fakes: system, engines, message boxes, and a program folder of its own.
struct FakeSystem {
  // An active extension that every text passes.
  void RegisterFilter(const std::string& name, FakeAutomation::Object object) {
    const std::string key = "Software\\VB and VBA Program Settings\\Lorelin\\Extensions\\" + name;
    registry.WriteValue(RegistryHive::CurrentUser, key, "Active", {RegistryType::String, "true"});
    registry.WriteValue(RegistryHive::CurrentUser, key, "ObjectName", {RegistryType::String, name});
    automation.objects[name] = std::move(object);
  }

  TemporaryFolder folder;
  CallLog calls;
  FakeLog log;
  FakeLog runLog;
  FakeDirectSS voice{"Voice", calls};
  FakeDirectSS voice2{"Voice2", calls};
  FakeMessageBoxes messageBoxes;
  FakeClock clock;
  FakeFileSearch fileSearch;
  FakeRegistry registry;
  FakeAutomation automation;
  FakeFileWriter files;
  FakeForegroundWindow foreground;
  FakeShell shell;
  FakeProgramLauncher launcher;
  FakeDownloader downloader;
  FakeImportProcess importer;
  SystemPorts system{registry,   files,      fileSearch, clock,    log,        runLog,
                     automation, foreground, shell,      launcher, downloader, importer};
};

}  // namespace lorelin
