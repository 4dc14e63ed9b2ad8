#pragma once

#include "cli/options.h"
#include "settings/SettingsStore.h"

namespace lorelin::cli {

// What the command line says holds for this run, whatever is stored.
void OverrideSettings(SettingsStore& settings, const Options& options);

}  // namespace lorelin::cli
