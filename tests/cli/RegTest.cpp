#include "cli/reg.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "cli/Failure.h"
#include "tests/support/FakePorts.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin::cli {
namespace {

class Reg : public testing::Test {
 protected:
  std::string Does(const std::vector<std::string>& words) {
    std::ostringstream out;
    try {
      EXPECT_EQ(UseRegistry(words, registry, files, out), ExitCode::Done);
    } catch (const Failure& failure) {
      return out.str() + "! " + failure.what();
    } catch (const UsageError& error) {
      return std::string("? ") + error.what();
    }
    return out.str();
  }
  TemporaryFolder folder;
  FakeRegistry registry;
  FakeFileWriter files;
};

TEST_F(Reg, AddsAndShows) {
  EXPECT_EQ(Does({"add", "HKCU\\A", "s", "Größe"}), "");
  EXPECT_EQ(Does({"add", "HKCU\\A", "@", "Standard"}), "");
  EXPECT_EQ(Does({"add", "HKCU\\A", "d", "dword:FF"}), "");
  EXPECT_EQ(Does({"add", "HKCU\\A", "b", "hex:41,0A"}), "");
  EXPECT_EQ(Does({"add", "HKCU\\A\\B"}), "");
  EXPECT_EQ(Does({"query", "HKCU\\A"}), "@=Standard\ns=Größe\nb=hex:41 0A \nd=dword:FF\n[HKCU\\A\\B]\n");
  EXPECT_EQ(Does({"query", "HKCU\\A", "S"}), "s=Größe\n");
}

TEST_F(Reg, SaysWhatItRefuses) {
  EXPECT_EQ(Does({"query", "HKCU\\A"}), "! Den Schlüssel „HKCU\\A“ gibt es nicht.");
  EXPECT_EQ(Does({"add", "A\\B"}),
            "! „A\\B“ ließ sich nicht schreiben. Der Pfad muss mit einem Stamm wie HKCU beginnen.");
  (void)Does({"add", "HKCU\\A"});
  EXPECT_EQ(Does({"query", "HKCU\\A", "n"}), "! Den Wert „n“ gibt es in „HKCU\\A“ nicht.");
  EXPECT_EQ(Does({"delete", "HKCU\\A", "n"}), "! Den Wert „n“ gibt es in „HKCU\\A“ nicht.");
  EXPECT_EQ(Does({"import", folder.File("fehlt.reg")}),
            "! „" + folder.File("fehlt.reg") + "“ kann nicht gelesen werden.");
  files.error = ErrorNumber::DiskFull;
  EXPECT_EQ(Does({"export", "HKCU\\A", folder.File("x.reg")}),
            "! „" + folder.File("x.reg") + "“ ließ sich nicht schreiben.");
}

TEST_F(Reg, RefusesChangesThatWouldBeForgotten) {
  (void)Does({"add", "HKCU\\A", "n", "x"});
  registry.lasting = false;
  const std::string refusal = "! Nichts wurde geändert: Der Speicher lässt sich nicht beschreiben.";
  EXPECT_EQ(Does({"add", "HKCU\\A", "n", "y"}), refusal);
  EXPECT_EQ(Does({"delete", "HKCU\\A", "n"}), refusal);
  const std::string file = folder.File("x.reg");
  WriteFile(file, "REGEDIT4\r\n[HKCU\\A]\r\n\"n\"=\"z\"\r\n");
  EXPECT_EQ(Does({"import", file}), refusal);
  EXPECT_EQ(Does({"query", "HKCU\\A"}), "n=x\n");
}

TEST_F(Reg, DoesNotTakeWhatCannotBeReadForMissing) {
  registry.state = RegistryState::Unreadable;
  EXPECT_EQ(Does({"query", "HKCU\\A"}), "! Der Speicher lässt sich nicht lesen.");
  EXPECT_EQ(Does({"export", "HKCU\\A", folder.File("x.reg")}), "! Der Speicher lässt sich nicht lesen.");
}

TEST_F(Reg, SaysWhenTheDiskIsFull) {
  registry.writesUntilFull = 0;
  EXPECT_THAT(Does({"add", "HKCU\\A", "n", "x"}), testing::StartsWith("! "));
  const std::string file = folder.File("x.reg");
  WriteFile(file, "REGEDIT4\r\n[HKCU\\A]\r\n\"n\"=\"z\"\r\n");
  EXPECT_EQ(Does({"import", file}),
            file + ":3: Der Wert ließ sich nicht schreiben.\n! Eine Zeile wurde nicht eingelesen.");
}

TEST_F(Reg, ShowsNumbersAsTheyAreTypedIn) {
  for (const auto* const number : {"dword:0", "dword:FF", "dword:DEADBEEF"}) {
    (void)Does({"add", "HKCU\\A", "d", number});
    EXPECT_EQ(Does({"query", "HKCU\\A", "d"}), std::string("d=") + number + "\n");
  }
}

TEST_F(Reg, ComparesNamesInAllItsWordsAlike) {
  (void)Does({"add", "HKCU\\A", "Größe", "x"});
  EXPECT_EQ(Does({"query", "HKCU\\A", "GRÖßE"}), "Größe=x\n");
  EXPECT_EQ(Does({"delete", "HKCU\\A", "gRÖße"}), "");
  EXPECT_EQ(Does({"query", "HKCU\\A"}), "");
}

TEST_F(Reg, KnowsItsWords) {
  EXPECT_EQ(Does({}), "? „reg“ braucht „query“, „add“, „delete“, „export“ oder „import“.");
  EXPECT_EQ(Does({"kill"}), "? „reg kill“ gibt es nicht.");
  EXPECT_EQ(Does({"export", "HKCU"}), "? „reg export“ hat zu wenige Angaben.");
  EXPECT_EQ(Does({"import", "a", "b"}), "? „reg import“ hat zu viele Angaben.");
  EXPECT_EQ(Does({"add", "HKCU\\A", "n", "dword:-1"}),
            "? „dword:-1“ ist keine Zahl aus bis zu acht hexadezimalen Ziffern.");
  EXPECT_EQ(Does({"add", "HKCU\\A", "n", "hex:xy"}), "? „hex:xy“ sind keine Bytes.");
  EXPECT_EQ(Does({"add", "HKCU\\A", "n"}), "? Hinter dem Namen fehlen die Daten.");
}

TEST_F(Reg, DeletesKeysAndValues) {
  (void)Does({"add", "HKCU\\A\\B", "n", "x"});
  EXPECT_EQ(Does({"delete", "HKCU\\A\\B", "n"}), "");
  EXPECT_EQ(Does({"delete", "HKCU\\A"}), "");
  EXPECT_FALSE(registry.KeyExists(RegistryHive::CurrentUser, "A"));
}

TEST_F(Reg, NamesTheLinesThatItDidNotUnderstand) {
  const std::string file = folder.File("x.reg");
  WriteFile(file, "REGEDIT4\r\n[HKCU\\A]\r\nUnsinn\r\n\"n\"=\"x\"\r\n");
  EXPECT_EQ(Does({"import", file}),
            file + ":3: Die Zeile ist weder Schlüssel noch Wert.\n! Eine Zeile wurde nicht eingelesen.");
  EXPECT_EQ(Does({"query", "HKCU\\A"}), "n=x\n");
  WriteFile(file, "x");
  EXPECT_EQ(Does({"import", file}),
            "! Aus „" + file + "“ wurde nichts eingelesen: Die Datei beginnt nicht mit REGEDIT4.");
  WriteFile(file, "REGEDIT4\n\n[HKCU\\A]\n\"n\"=\"y\"\n");
  EXPECT_EQ(Does({"import", file}), "! Aus „" + file +
                                        "“ wurde nichts eingelesen: Die Zeilen enden mit LF; dieses Format "
                                        "verlangt CR LF.");
  EXPECT_EQ(Does({"query", "HKCU\\A"}), "n=x\n");
}

}  // namespace
}  // namespace lorelin::cli
