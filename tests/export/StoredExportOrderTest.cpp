#include "export/storedExportOrder.h"

#include <gtest/gtest.h>

#include "tests/support/FakeRegistry.h"

namespace lorelin {
namespace {

class StoredExportOrders : public testing::Test {
 protected:
  FakeRegistry registry;
  SettingsStore settings{registry};
};

TEST_F(StoredExportOrders, BeginWithTheUsual) {
  const ExportOrder order = StoredExportOrder(settings, "/musik");
  EXPECT_EQ(order.choices, ExportChoices{});
  EXPECT_EQ(order.folder, "/musik");
}

TEST_F(StoredExportOrders, ComeBackAsTheyWere) {
  ExportOrder order;
  order.folder = "/bücher";
  for (const bool book : {false, true}) {
    order.choices = {.format = book ? SoundFormat::Mp3 : SoundFormat::Flac,
                     .quality = SoundQuality::High,
                     .fileForEachChapter = !book,
                     .subtitles = SubtitleFormat::Vtt,
                     .book = book};
    StoreExportOrder(settings, order);
    EXPECT_EQ(StoredExportOrder(settings, "/musik").choices, order.choices);
    EXPECT_EQ(StoredExportOrder(settings, "/musik").folder, "/bücher");
  }
}

TEST_F(StoredExportOrders, KeepNothingOfTheDocument) {
  ExportOrder order;
  order.title = "Titel";
  order.author = "Autor";
  StoreExportOrder(settings, order);
  EXPECT_EQ(StoredExportOrder(settings, "").title, "");
  EXPECT_EQ(StoredExportOrder(settings, "").author, "");
}

TEST_F(StoredExportOrders, DoNotMindNonsense) {
  for (const SettingKey* const key :
       {&setting::ExportFormat, &setting::ExportQuality, &setting::ExportSubtitles, &setting::ExportChapters})
    settings.Save(*key, "unsinn");
  EXPECT_EQ(StoredExportOrder(settings, "").choices, ExportChoices{});
}

}  // namespace
}  // namespace lorelin
