#pragma once

#include <string>

#include "export/SoundExport.h"
#include "settings/SettingsStore.h"

namespace lorelin {

// What was chosen last time, but for what belongs to a document; `usualFolder` as long as nothing was. What
// is stored and means nothing counts as the default.
[[nodiscard]] ExportOrder StoredExportOrder(const SettingsStore& settings, const std::string& usualFolder);

void StoreExportOrder(SettingsStore& settings, const ExportOrder& order);

}  // namespace lorelin
