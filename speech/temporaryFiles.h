#pragma once

#include <string>

#include "ports/FileSearch.h"
#include "ports/Log.h"

namespace lorelin {

// Deletes the files in the folder "temp" of the program folder: files only, links as links, folders stay;
// where "temp" itself is a link, nothing. Never fails.
void RemoveTemporaryFiles(const std::string& programFolder, FileSearch& fileSearch, Log& log);

// Deletes a file; what keeps it from that goes to the log.
void RemoveTemporaryFile(const std::string& path, Log& log);

}  // namespace lorelin
