#pragma once

#include "cli/options.h"

namespace lorelin::cli {

// Lists, fetches and removes natural voices, as the options ask. Throws Failure and Interruption.
[[nodiscard]] ExitCode ManageVoices(const Options& options);

}  // namespace lorelin::cli
