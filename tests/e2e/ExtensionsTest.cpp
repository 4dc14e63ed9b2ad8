#include <gio/gio.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>

#include "base/RuntimeError.h"
#include "extensions/modAddin.h"
#include "platform/common/SystemClock.h"
#include "platform/linux/DBusAutomation.h"
#include "tests/support/FakePorts.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

// Extensions as programs of their own on a real session bus.
class Extensions : public testing::Test {
 protected:
  Extensions() {
    g_setenv("PROTOKOLL", Log().c_str(), TRUE);
    std::filesystem::create_directories(folder.File("services"));
    g_test_dbus_add_service_dir(bus, folder.File("services").c_str());
    AddService("org.lorelin.example.Protokoll", LORELIN_EXTENSIONS "/python/protokoll.py");
    for (const std::string kind :
         {"one", "two", "lacks", "raises", "dies", "sleeps", "huge", "number", "bytes", "nothing"}) {
      AddService("org.lorelin.test." + kind,
                 LORELIN_E2E "/difficult.py org.lorelin.test." + kind + " " + kind);
    }
    WriteFile(folder.File("services/org.lorelin.Abkuerzungen.service"),
              "[D-BUS Service]\nName=org.lorelin.Abkuerzungen\nExec=" LORELIN_BIN_DIR
              "/lorelin-abkuerzungen\n");
    g_setenv("XDG_CONFIG_HOME", folder.Path().c_str(), TRUE);
    g_test_dbus_up(bus);
    automation = std::make_unique<DBusAutomation>(log);
    extensions = std::make_unique<ModAddin>(registry, files, *automation, log);
  }
  ~Extensions() override {
    extensions.reset();
    automation.reset();
    g_test_dbus_down(bus);
    g_object_unref(bus);
  }

  std::string Log() { return folder.File("protokoll.txt"); }
  std::string Logged() { return std::filesystem::exists(Log()) ? ReadFile(Log()) : ""; }
  void AddService(const std::string& name, const std::string& command) {
    WriteFile(folder.File("services/" + name + ".service"),
              "[D-BUS Service]\nName=" + name + "\nExec=/usr/bin/python3 " + command + "\n");
  }
  void Register(const std::string& key, const std::string& objectName, const std::string& active = "true") {
    const std::string path = "Software\\VB and VBA Program Settings\\Lorelin\\Extensions\\" + key;
    registry.WriteValue(RegistryHive::CurrentUser, path, "Active", {RegistryType::String, active});
    registry.WriteValue(RegistryHive::CurrentUser, path, "ObjectName", {RegistryType::String, objectName});
  }
  ErrorNumber Refusal(const std::string& name) {
    try {
      (void)automation->CreateObject(name);
    } catch (const RuntimeError& error) {
      return static_cast<ErrorNumber>(error.Number());
    }
    return ErrorNumber{0};
  }
  ErrorNumber Failure(const std::string& name) {
    const auto object = automation->CreateObject(name);
    try {
      (void)object->Invoke("FilterText", "x");
    } catch (const RuntimeError& error) {
      return static_cast<ErrorNumber>(error.Number());
    }
    return ErrorNumber{0};
  }

  TemporaryFolder folder;
  FakeLog log;
  FakeFileWriter files;
  FakeRegistry registry;
  GTestDBus* bus = g_test_dbus_new(G_TEST_DBUS_NONE);
  std::unique_ptr<DBusAutomation> automation;
  std::unique_ptr<ModAddin> extensions;
};

TEST_F(Extensions, AreCalledByEveryHook) {
  Register("Protokoll", "org.lorelin.example.Protokoll");
  extensions->Startup();
  extensions->OpenFile("/home/müller/brief.txt");
  extensions->SaveFile("/b.rtf");
  extensions->NewFile();
  extensions->Export("/c.wav");
  extensions->TaskScript("Uhr.vts");
  EXPECT_EQ(extensions->FilterText("Grüße ♥"), "Grüße ♥");
  extensions->Close();
  EXPECT_EQ(Logged(),
            "Startup\nOpen /home/müller/brief.txt\nSaveFile /b.rtf\nNewFile\nExport /c.wav\nTaskScript "
            "Uhr.vts\nFilterText Grüße ♥\nClose\n");
}

TEST_F(Extensions, FilterOneAfterTheOther) {
  Register("A", "org.lorelin.test.one");
  Register("B", "org.lorelin.test.two");
  EXPECT_EQ(extensions->FilterText("x"), "x+one+two");
}

TEST_F(Extensions, EndTheFilteringWhenTheyFail) {
  Register("A", "org.lorelin.test.one");
  Register("C", "org.lorelin.test.two");
  for (const auto* const kind : {"lacks", "raises", "dies", "huge", "number", "bytes", "nothing"}) {
    Register("B", std::string("org.lorelin.test.") + kind);
    EXPECT_EQ(extensions->FilterText("x"), "x+one") << kind;
  }
}

TEST_F(Extensions, FailInTheirOwnWays) {
  EXPECT_EQ(Failure("org.lorelin.test.lacks"), ErrorNumber::NoSuchMethod);
  EXPECT_EQ(Failure("org.lorelin.test.raises"), ErrorNumber::AutomationFailed);
  EXPECT_EQ(Failure("org.lorelin.test.dies"), ErrorNumber::AutomationFailed);
  EXPECT_EQ(Failure("org.lorelin.test.huge"), ErrorNumber::AutomationFailed);
}

TEST_F(Extensions, SpellOutAbbreviations) {
  Register("Abkürzungen", "org.lorelin.Abkuerzungen");
  extensions->Startup();
  extensions->OpenFile("/x.txt");
  EXPECT_TRUE(log.lines.empty());
  Register("B", "org.lorelin.test.one");
  EXPECT_EQ(extensions->FilterText("Dr. Meyer, z. B. am 3.10. um 9 Uhr"),
            "Doktor Meyer, zum Beispiel am dritten Oktober um neun Uhr+one");
  std::filesystem::create_directories(folder.File("lorelin"));
  WriteFile(folder.File("lorelin/abkuerzungen.txt"), "VBG = Berufsgenossenschaft\n");
  EXPECT_EQ(extensions->FilterText("die VBG"), "die Berufsgenossenschaft+one");
}

TEST_F(Extensions, OfAMovedLorelinFindItsOwnWords) {
  const std::string command = "LORELIN_HOME='" + folder.File("moved") + "' XDG_DATA_HOME='" +
                              folder.File("data") + "' '" LORELIN_BIN_DIR "/lorelin-abkuerzungen' --install";
  ASSERT_EQ(std::system(command.c_str()), 0);
  EXPECT_NE(ReadFile(folder.File("data/dbus-1/services/org.lorelin.Abkuerzungen.service"))
                .find(" --home \"" + folder.File("moved") + "\"\n"),
            std::string::npos);
}

TEST_F(Extensions, AreGivenUpAtOnceWhenNobodyWantsToWait) {
  Register("A", "org.lorelin.test.one");
  (void)extensions->FilterText("x");
  Register("A", "org.lorelin.test.sleeps");
  (void)automation->CreateObject("org.lorelin.test.sleeps");
  int turns = 0;
  SystemClock clock;
  extensions->WhileWaiting(
      {.clock = clock, .tell = [](const std::string&) {}, .turn = [&] { return ++turns < 50; }});
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(extensions->FilterText("x"), std::nullopt);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(3));
}

TEST_F(Extensions, SayInGermanWhyTheyCannotBeCreated) {
  AddService("org.lorelin.test.broken", "/nirgends.py");
  for (const std::string name : {"org.lorelin.fehlt", "org.lorelin.test.broken"}) {
    try {
      (void)automation->CreateObject(name);
      ADD_FAILURE() << name;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(std::string(error.what()).find("GDBus"), std::string::npos) << error.what();
      EXPECT_NE(std::string(error.what()).find("Programm"), std::string::npos) << error.what();
    }
  }
}

TEST_F(Extensions, CannotBeCreatedUnderAWrongName) {
  for (const auto* const name : {"org.lorelin.fehlt", "kein Name", "", "Excel", ":1.0", "a..b", "ä.b"}) {
    EXPECT_EQ(Refusal(name), ErrorNumber::CannotCreateObject) << name;
  }
}

TEST_F(Extensions, AreGivenUpAfterTenSeconds) {
  Register("A", "org.lorelin.test.sleeps");
  int turns = 0;
  automation->WhileWaiting([&] { return ++turns > 0; });
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(extensions->FilterText("x"), "x");
  const auto taken = std::chrono::steady_clock::now() - begin;
  EXPECT_GE(taken, std::chrono::seconds(9));
  EXPECT_LT(taken, std::chrono::seconds(13));
  EXPECT_GT(turns, 100);  // the window could be drawn all the time
}

TEST(NoBus, IsNoReasonToStartOne) {
  g_unsetenv("DBUS_SESSION_BUS_ADDRESS");
  g_unsetenv("XDG_RUNTIME_DIR");
  FakeLog log;
  DBusAutomation automation(log);
  EXPECT_THROW((void)automation.CreateObject("org.lorelin.test.one"), RuntimeError);
}

}  // namespace
}  // namespace lorelin
