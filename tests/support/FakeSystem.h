#pragma once

#include "ports/SystemPorts.h"
#include "tests/support/FakeDirectSS.h"
#include "tests/support/FakePorts.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {

// What a program stands on, as fakes: system, engines, message boxes, and a program folder of its own.
struct FakeSystem {
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
  SystemPorts system{registry,   files,      fileSearch, clock,    log,       runLog,
                     automation, foreground, shell,      launcher, downloader};
};

}  // namespace lorelin
