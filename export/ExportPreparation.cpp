#include "export/ExportPreparation.h"

#include <algorithm>
#include <utility>

#include "base/textEncoding.h"
#include "speech/decoration.h"

namespace lorelin {

namespace {

// A document that was edited may have lost some, or have them in another order.
void Tidy(std::vector<Chapter>& chapters, std::size_t characters) {
  std::erase_if(chapters, [&](const Chapter& chapter) { return chapter.position >= characters; });
  std::ranges::stable_sort(chapters, {}, &Chapter::position);
}

}  // namespace

std::shared_ptr<const ExportText> ExportPreparation::TextOf(std::string written, DocumentInfo info,
                                                            std::vector<TextRun> formats) {
  Tidy(info.chapters, CharacterCount(written));
  TracedText spoken(written, 0);
  std::optional<std::string> filtered = parts_.extensions.FilterText(written);
  if (!filtered) return nullptr;
  spoken.Rewritten(std::move(*filtered));
  Decorate(spoken, parts_.settings, parts_.clock.Now());
  return std::make_shared<const ExportText>(ExportText{.written = std::move(written),
                                                       .spoken = std::move(spoken),
                                                       .info = std::move(info),
                                                       .formats = std::move(formats)});
}

std::shared_ptr<const ExportVoice> ExportPreparation::Voice() {
  return std::make_shared<const ExportVoice>(
      ExportVoice{.profile = StoredVoiceProfile(parts_.settings),
                  .speller = parts_.pronunciations.IsOn() ? parts_.pronunciations.Speller() : nullptr});
}

}  // namespace lorelin
