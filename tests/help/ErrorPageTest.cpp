#include "help/errorPage.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/FakePorts.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {
namespace {

class ErrorPageTest : public testing::Test {
 protected:
  ErrorPageTest() { std::filesystem::create_directory(folder.File("hypertext")); }
  void Template(std::string_view text) { WriteFile(folder.File("hypertext/err.html"), text); }
  std::string Written() { return files.files[folder.File("hypertext/err2.html")]; }

  TemporaryFolder folder;
  CallLog calls;
  FakeLog log;
  FakeFileWriter files;
  FakeMainView view{calls};
  FakeBrowserPane browser{calls};
  ErrorPage page{
      {.view = view, .browser = browser, .files = files, .log = log, .programFolder = folder.Path()}};
};

TEST_F(ErrorPageTest, DoesNothingForNumberZero) {
  Template("%MOREINFO");
  page.ShowErrorPage(0, "x");
  EXPECT_TRUE(files.files.empty());
  EXPECT_TRUE(calls.Entries().empty());
}

TEST_F(ErrorPageTest, PutsTheDetailsInEveryPlace) {
  Template("a %MOREINFO b %MOREINFO %moreinfo");
  page.ShowErrorPage(53, "Datei nicht gefunden");
  const std::string details = "<p><p>Fehlernummer: 53<br>Fehlerbeschreibung: Datei nicht gefunden";
  EXPECT_EQ(Written(), "a " + details + " b " + details + " %moreinfo");
}

TEST_F(ErrorPageTest, SaysThatTheDescriptionIsMissing) {
  Template("%MOREINFO");
  page.ShowErrorPage(13, "");
  EXPECT_EQ(Written(), "<p><p>Fehlernummer: 13<br>Fehlerbeschreibung: (keine Fehlernummer!)");
}

TEST_F(ErrorPageTest, KeepsTheBytesOfTheTemplate) {
  using namespace std::string_view_literals;
  Template("\xFC\x00\r\n\xFF%MOREINFO\x80"sv);
  page.ShowErrorPage(1, "x");
  const std::string written = Written();
  EXPECT_EQ(std::string_view(written).substr(0, 5), "\xFC\x00\r\n\xFF"sv);
  EXPECT_EQ(written.back(), '\x80');
}

TEST_F(ErrorPageTest, ShowsAnEmptyPageWithoutATemplate) {
  page.ShowErrorPage(5, "x");
  EXPECT_EQ(Written(), "");
  EXPECT_TRUE(calls.Has("browser.navigate " + folder.File("hypertext/err2.html")));
  EXPECT_TRUE(view.browserVisible);
}

TEST_F(ErrorPageTest, ShowsTheOldPageWhenTheNewOneCannotBeWritten) {
  files.error = ErrorNumber::DiskFull;
  page.ShowErrorPage(5, "x");
  EXPECT_TRUE(calls.Has("browser.navigate " + folder.File("hypertext/err2.html")));
}

}  // namespace
}  // namespace lorelin
