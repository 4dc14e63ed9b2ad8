#include "settings/clsRegistryAccess.h"

#include <gtest/gtest.h>

#include <fstream>

#include "base/modFile.h"
#include "base/paths.h"
#include "tests/support/FakePorts.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

// An export is read again.
class PlainFileWriter final : public FileWriter {
 public:
  void Replace(const std::string& path, std::string_view bytes) override {
    std::ofstream file(NativePath(path), std::ios::binary);
    if (!(file << bytes)) throw RuntimeError(ErrorNumber::PathNotFound);
  }
  bool Copy(const std::string&, const std::string&, const std::function<bool(double)>&) override {
    return false;
  }
  void Join(const std::string&, std::span<const FilePiece>) override {}
};

class RegistryAccess : public testing::Test {
 protected:
  RegistryAccess() { access.CreateKeyIfDoesntExists(true); }
  bool Import(const std::string& text) {
    WriteFile(file, text);
    return access.ImportFromReg(file);
  }
  std::string Exported(const std::string& path) {
    EXPECT_TRUE(access.ExportToReg(path, file));
    return ReadFileBytes(file);
  }

  TemporaryFolder folder;
  std::string file = folder.File("x.reg");
  PlainFileWriter files;
  FakeRegistry registry;
  ClsRegistryAccess access{registry, files};
};

TEST_F(RegistryAccess, TakesShortAndLongRootsForTheSame) {
  const std::pair<const char*, const char*> roots[] = {
      {"HKCU", "HKEY_CURRENT_USER"},  {"HKLM", "HKEY_LOCAL_MACHINE"},    {"HKCR", "HKEY_CLASSES_ROOT"},
      {"HKUS", "HKEY_USERS"},         {"HKPD", "HKEY_PERFORMANCE_DATA"}, {"HKDD", "HKEY_DYN_DATA"},
      {"HKCC", "HKEY_CURRENT_CONFIG"}};
  for (const auto& [shortName, longName] : roots) {
    ASSERT_TRUE(access.WriteString(std::string(shortName) + "\\A", "n", shortName)) << shortName;
    EXPECT_EQ(access.ReadString(std::string(longName) + "\\A", "n"), shortName);
  }
}

TEST_F(RegistryAccess, ReplacesShortNamesAnywhereInAPath) {
  ASSERT_TRUE(access.CreateKey("HKCU\\HKLM"));
  EXPECT_TRUE(registry.KeyExists(RegistryHive::CurrentUser, "HKEY_LOCAL_MACHINE"));
}

TEST_F(RegistryAccess, RefusesAnUnknownRoot) {
  EXPECT_FALSE(access.CreateKey("HKXX\\A"));
  EXPECT_FALSE(access.KeyExists(""));
  EXPECT_FALSE(access.WriteString("A\\B", "n", "x"));
  EXPECT_EQ(access.ReadString("A\\B", "n"), "");
  EXPECT_FALSE(access.KillKey("HKCU"));
}

TEST_F(RegistryAccess, CreatesKeysForValuesOnlyWhenToldTo) {
  access.CreateKeyIfDoesntExists(false);
  EXPECT_FALSE(access.WriteString("HKCU\\A", "n", "x"));
  EXPECT_FALSE(access.KeyExists("HKCU\\A"));
  ASSERT_TRUE(access.CreateKey("HKCU\\A"));
  EXPECT_TRUE(access.WriteString("HKCU\\A", "n", "x"));
  access.CreateKeyIfDoesntExists(true);
  EXPECT_TRUE(access.CreateKeyIfDoesntExists());
  EXPECT_TRUE(access.WriteDWORD("HKCU\\B", "n", 1));
  EXPECT_FALSE(ClsRegistryAccess(registry, files).CreateKeyIfDoesntExists());
}

TEST_F(RegistryAccess, NamesTheSubkeys) {
  access.CreateKey("HKCU\\A\\x");
  access.CreateKey("HKCU\\A\\y\\z");
  std::vector<std::string> names;
  std::size_t count = 0;
  ASSERT_TRUE(access.EnumKeys("HKCU\\A", names, count));
  EXPECT_EQ(names, (std::vector<std::string>{"x", "y"}));
  EXPECT_EQ(count, 2U);
  EXPECT_TRUE(access.HaveSubkey("HKCU\\A"));
  EXPECT_FALSE(access.HaveSubkey("HKCU\\A\\x"));
  EXPECT_FALSE(access.EnumKeys("HKCU\\fehlt", names, count));
  EXPECT_EQ(count, 0U);
}

TEST_F(RegistryAccess, KillsAKeyWithAllBelowIt) {
  access.WriteString("HKCU\\A\\y\\z", "n", "x");
  EXPECT_TRUE(access.KillKey("HKCU\\A"));
  EXPECT_FALSE(access.KeyExists("HKCU\\A"));
  EXPECT_FALSE(access.KillKey("HKCU\\A"));
}

TEST_F(RegistryAccess, KillsNothingBelowARootWhateverSeparatorsStandBehindIt) {
  access.WriteString("HKCU\\A\\y", "n", "x");
  for (const auto* const path : {"HKCU", "HKCU\\", "HKCU\\\\", "HKCU\\\\\\"}) {
    EXPECT_FALSE(access.KillKey(path)) << path;
    EXPECT_TRUE(access.KeyExists("HKCU\\A\\y")) << path;
  }
}

TEST_F(RegistryAccess, ReadsAndWritesEveryKind) {
  access.WriteString("HKCU\\A", "s", "Größe");
  access.WriteDWORD("HKCU\\A", "d", 0xFFFFFFFF);
  access.WriteBinary("HKCU\\A", "b", std::string("\0A\xFF", 3));
  EXPECT_EQ(access.ReadString("HKCU\\A", "s"), "Größe");
  EXPECT_EQ(access.ReadDWORD("HKCU\\A", "d"), 0xFFFFFFFF);
  EXPECT_EQ(access.ReadBinary("HKCU\\A", "b"), std::string("\0A\xFF", 3));
  EXPECT_TRUE(access.ValueExists("HKCU\\A", "d"));
  EXPECT_TRUE(access.KillValue("HKCU\\A", "d"));
  EXPECT_FALSE(access.ValueExists("HKCU\\A", "d"));
}

TEST_F(RegistryAccess, ReadsAMissingOrOtherValueAsNothing) {
  access.WriteDWORD("HKCU\\A", "d", 7);
  EXPECT_EQ(access.ReadString("HKCU\\A", "fehlt"), "");
  EXPECT_EQ(access.ReadString("HKCU\\A", "d"), "");
  EXPECT_EQ(access.ReadDWORD("HKCU\\A", "fehlt"), 0U);
  EXPECT_EQ(access.ReadBinary("HKCU\\A", "d"), "");
}

TEST_F(RegistryAccess, NamesTheValuesOfAType) {
  access.WriteString("HKCU\\A", "s", "x");
  access.WriteDWORD("HKCU\\A", "d", 7);
  std::vector<std::string> names;
  std::vector<RegistryValue> values;
  EXPECT_EQ(access.EnumValues("HKCU\\A", RegistryType::DoubleWord, names, values), 1U);
  EXPECT_EQ(names, std::vector<std::string>{"d"});
  EXPECT_EQ(DoubleWordOf(values[0]), 7U);
}

TEST_F(RegistryAccess, TurnsBytesIntoTextAndBack) {
  EXPECT_EQ(ClsRegistryAccess::BinToStr("A\x0A\xFF"), "41 0A FF ");
  EXPECT_EQ(ClsRegistryAccess::BinToStr(std::string_view("\0", 1)), "00 ");
  EXPECT_EQ(ClsRegistryAccess::StrToBin("41 0A FF "), "A\x0A\xFF");
  EXPECT_EQ(ClsRegistryAccess::StrToBin("4 1ff"), "A\xFF");
  EXPECT_EQ(ClsRegistryAccess::StrToBin("00"), std::string(1, '\0'));
  EXPECT_EQ(ClsRegistryAccess::StrToBin(""), "");
}

TEST_F(RegistryAccess, KnowsWhatBytesLookLike) {
  EXPECT_TRUE(ClsRegistryAccess::isBinValid(" 41 0a fF "));
  EXPECT_FALSE(ClsRegistryAccess::isBinValid("41 0G"));
  EXPECT_FALSE(ClsRegistryAccess::isBinValid(""));
  EXPECT_FALSE(ClsRegistryAccess::isBinValid("41,0A"));
}

TEST_F(RegistryAccess, ExportsInItsOrder) {
  access.WriteDWORD("HKCU\\A", "d", 255);
  access.WriteBinary("HKCU\\A", "b", "A\x0A\xFF");
  access.WriteString("HKCU\\A", "s", "C:\\x \"y\"");
  access.WriteString("HKCU\\A", "", "Standard");
  access.WriteString("HKCU\\A\\B", "t", "");
  EXPECT_EQ(
      Exported("HKCU\\A"),
      "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\A]\r\n@=\"Standard\"\r\n\"s\"=\"C:\\x \"y\"\"\r\n"
      "\"b\"=hex:41,0A,FF\r\n\"d\"=dword:000000FF\r\n\r\n[HKEY_CURRENT_USER\\A\\B]\r\n\"t\"=\"\"\r\n\r\n");
}

TEST_F(RegistryAccess, WritesOneHeaderForTwoTrees) {
  access.WriteString("HKCU\\A", "s", "x");
  (void)Exported("HKCU\\A");
  const std::string twice = Exported("HKCU\\A");
  EXPECT_EQ(twice.find("REGEDIT4"), twice.rfind("REGEDIT4"));
  EXPECT_NE(twice.find("[HKEY_CURRENT_USER\\A]"), twice.rfind("[HKEY_CURRENT_USER\\A]"));
}

TEST_F(RegistryAccess, ExportsOtherTypesAsComments) {
  registry.WriteValue(RegistryHive::CurrentUser, "A", "p", {RegistryType::ExpandString, "%x"});
  EXPECT_NE(Exported("HKCU\\A").find("\r\n;\"p\"=hex(2):25,78\r\n"), std::string::npos);
  FakeRegistry empty;
  ClsRegistryAccess other(empty, files);
  ASSERT_TRUE(other.ImportFromReg(file));
  EXPECT_TRUE(other.ImportProblems().empty());
  EXPECT_FALSE(other.ValueExists("HKCU\\A", "p"));
}

TEST_F(RegistryAccess, ExportsNoMissingKey) {
  EXPECT_FALSE(access.ExportToReg("HKCU\\fehlt", file));
  EXPECT_FALSE(FileExists(file));
  access.CreateKey("HKCU\\A");
  EXPECT_FALSE(access.ExportToReg("HKCU\\A", folder.File("fehlt/x.reg")));
}

TEST_F(RegistryAccess, ImportsWhatItExportedTwice) {
  access.WriteString("HKCU\\A", "", "Standard");
  access.WriteString("HKCU\\A", "Größe ♥", "10 € = viel; [x] @");
  access.WriteString("HKCU\\A\\B\\C", "leer", "");
  access.CreateKey("HKCU\\A\\ohne Werte");
  access.WriteBinary("HKCU\\A\\B", "b", std::string("\0\1\xFE", 3));
  access.WriteBinary("HKCU\\A\\B", "", "x");
  access.WriteBinary("HKCU\\A\\B", "keine", "");
  access.WriteDWORD("HKCU\\A\\B", "d", 0xDEADBEEF);
  (void)Exported("HKCU\\A");
  (void)Exported("HKCU\\A");
  FakeRegistry empty;
  ClsRegistryAccess other(empty, files);
  ASSERT_TRUE(other.ImportFromReg(file));
  EXPECT_TRUE(other.ImportProblems().empty());
  const std::string again = folder.File("y.reg");
  ASSERT_TRUE(other.ExportToReg("HKCU\\A", again));
  ASSERT_TRUE(other.ExportToReg("HKCU\\A", again));
  EXPECT_EQ(ReadFileBytes(again), ReadFileBytes(file));
  EXPECT_EQ(other.ReadString("HKCU\\A", "Größe ♥"), "10 € = viel; [x] @");
}

TEST_F(RegistryAccess, LosesQuotationMarksOnImport) {
  access.WriteString("HKCU\\A", "s", "a \"b\" c");
  (void)Exported("HKCU\\A");
  ASSERT_TRUE(access.ImportFromReg(file));
  EXPECT_EQ(access.ReadString("HKCU\\A", "s"), "a b c");
}

TEST_F(RegistryAccess, ImportsOnlyWhatBeginsAsItHasTo) {
  EXPECT_FALSE(access.ImportFromReg(folder.File("fehlt.reg")));
  EXPECT_FALSE(Import("Windows Registry Editor Version 5.00\r\n[HKCU\\A]\r\n"));
  EXPECT_FALSE(Import("\r\nREGEDIT4\r\n[HKCU\\A]\r\n"));
  EXPECT_FALSE(access.KeyExists("HKCU\\A"));
  EXPECT_TRUE(Import("regedit4\r\n[HKCU\\A]\r\n"));
  EXPECT_TRUE(access.KeyExists("HKCU\\A"));
}

TEST_F(RegistryAccess, ImportsDeletions) {
  access.WriteString("HKCU\\A", "s", "x");
  access.WriteString("HKCU\\B", "s", "x");
  ASSERT_TRUE(Import("REGEDIT4\r\n[-HKCU\\A]\r\n[HKCU\\B]\r\n\"s\"= - \r\n"));
  EXPECT_FALSE(access.KeyExists("HKCU\\A"));
  EXPECT_FALSE(access.ValueExists("HKCU\\B", "s"));
  EXPECT_TRUE(access.ImportProblems().empty());
}

TEST_F(RegistryAccess, ImportsValuesBelowADeletionIntoTheKeyBeforeIt) {
  access.WriteString("HKCU\\Weg", "s", "x");
  ASSERT_TRUE(Import("REGEDIT4\r\n[HKCU\\A]\r\n[-HKCU\\Weg]\r\n\"s\"=\"y\"\r\n"));
  EXPECT_FALSE(access.KeyExists("HKCU\\Weg"));
  EXPECT_EQ(access.ReadString("HKCU\\A", "s"), "y");
  EXPECT_TRUE(access.ImportProblems().empty());
}

TEST_F(RegistryAccess, NamesFilesWithOtherLineEnds) {
  EXPECT_FALSE(Import("REGEDIT4\n[HKCU\\A]\n\"s\"=\"x\"\n"));
  ASSERT_EQ(access.ImportProblems().size(), 1U);
  EXPECT_EQ(access.ImportProblems()[0].reason, "Die Zeilen enden mit LF; dieses Format verlangt CR LF.");
  EXPECT_TRUE(Import("REGEDIT4\r\n[HKCU\\A]\n\"s\"=\"[x]\"\n"));
  ASSERT_EQ(access.ImportProblems().size(), 1U);
  EXPECT_EQ(access.ImportProblems()[0].reason, "Die Zeile endet mit LF; dieses Format verlangt CR LF.");
  EXPECT_FALSE(access.KeyExists("HKCU\\A"));
}

TEST_F(RegistryAccess, ImportsValuesOfEveryKind) {
  ASSERT_TRUE(Import(
      "REGEDIT4\r\n\r\n  [HKCU\\A]  \r\n@=\"d\"\r\n\"b\"=HEX:41,0a\r\n\"n\"=DWORD:ff\r\n;\"x\"=\"y\"\r\n"));
  EXPECT_EQ(access.ReadString("HKCU\\A", ""), "d");
  EXPECT_EQ(access.ReadBinary("HKCU\\A", "b"), "A\n");
  EXPECT_EQ(access.ReadDWORD("HKCU\\A", "n"), 255U);
  EXPECT_FALSE(access.ValueExists("HKCU\\A", "x"));
}

TEST_F(RegistryAccess, ReportsWhatItDoesNotUnderstand) {
  ASSERT_TRUE(
      Import("REGEDIT4\r\n\"früh\"=\"x\"\r\n[HKCU\\A]\r\nUnsinn\r\n\"n\"=dword:xyz\r\n\"b\"=hex:4\r\n"
             "[HKCU\\B\r\n\"w\"=\"x\"\r\n[HKXX\\C]\r\n\"g\"=hex(2):41,00\r\n[HKCU\\D]\r\n\"ok\"=\"ja\"\r\n"));
  std::vector<std::size_t> lines;
  for (const ImportProblem& problem : access.ImportProblems()) lines.push_back(problem.line);
  EXPECT_EQ(lines, (std::vector<std::size_t>{2, 4, 5, 6, 7, 8, 9, 10}));
  EXPECT_EQ(access.ImportProblems()[1].text, "Unsinn");
  EXPECT_EQ(access.ReadString("HKCU\\D", "ok"), "ja");
  EXPECT_FALSE(access.ValueExists("HKCU\\A", "w"));
}

TEST_F(RegistryAccess, KeepsATextWithAnEqualsSignWhole) {
  ASSERT_TRUE(Import("REGEDIT4\r\n[HKCU\\A]\r\n\"s\"=\"a=b=c\"\r\n"));
  EXPECT_EQ(access.ReadString("HKCU\\A", "s"), "a=b=c");
}

}  // namespace
}  // namespace lorelin
