#include "desktop/toolkit/WxFolderWatch.h"

#include "tests/gui/FormFixture.h"

namespace lorelin {
namespace {

class FolderWatch : public FormFixture {
 protected:
  // The folder is watched as soon as the window system runs; a file that came before is no news.
  void Begin() {
    for (int turn = 0; turn < 10; ++turn) pump.WaitForEvents();
    changes = 0;
  }
  bool TellsWithinTime() {
    const bool told = WaitUntil([&] { return changes > 0; });
    changes = 0;
    return told;
  }

  int changes = 0;
  std::string watched = folder.File("beobachtet");
  bool made = std::filesystem::create_directories(watched);
  WxFolderWatch watch{watched, [this] { ++changes; }};
};

TEST_F(FolderWatch, TellsThatFilesComeGoAndAreRenamed) {
  Begin();
  WriteFile(watched + "/a.vts", "");
  EXPECT_TRUE(TellsWithinTime());
  std::filesystem::rename(watched + "/a.vts", watched + "/b.vts");
  EXPECT_TRUE(TellsWithinTime());
  std::filesystem::remove(watched + "/b.vts");
  EXPECT_TRUE(TellsWithinTime());
}

TEST_F(FolderWatch, TellsOnceOfManyFiles) {
  Begin();
  for (int i = 0; i < 50; ++i) WriteFile(watched + "/" + std::to_string(i) + ".vts", "");
  EXPECT_TRUE(WaitUntil([&] { return changes > 0; }));
  EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace lorelin
