#include "export/storedExportOrder.h"

#include <string_view>

#include "base/text.h"
#include "export/soundFormats.h"

namespace lorelin {

ExportOrder StoredExportOrder(const SettingsStore& settings, const std::string& usualFolder) {
  ExportOrder order;
  const std::string format = settings.Get(setting::ExportFormat);
  order.choices.book = LowerAscii(format) == kBookWord;
  order.choices.format = SoundFormatNamed(format).value_or(SoundFormat::Mp3);
  order.choices.quality =
      SoundQualityNamed(settings.Get(setting::ExportQuality)).value_or(SoundQuality::Usual);
  order.choices.subtitles = SubtitleFormatNamed(settings.Get(setting::ExportSubtitles));
  order.choices.fileForEachChapter = IsOn(setting::ExportChapters, settings.Get(setting::ExportChapters));
  order.folder = settings.Get(setting::ExportFolder);
  if (order.folder.empty()) order.folder = usualFolder;
  return order;
}

void StoreExportOrder(SettingsStore& settings, const ExportOrder& order) {
  const ExportChoices& choices = order.choices;
  settings.Save(setting::ExportFormat, choices.book ? kBookWord : NameOf(choices.format).word);
  settings.Save(setting::ExportQuality, NameOf(choices.quality));
  settings.Save(setting::ExportSubtitles,
                choices.subtitles ? EndingOf(*choices.subtitles).substr(1) : std::string_view());
  settings.Save(setting::ExportChapters, choices.fileForEachChapter ? "1" : "0");
  settings.Save(setting::ExportFolder, order.folder);
}

}  // namespace lorelin
