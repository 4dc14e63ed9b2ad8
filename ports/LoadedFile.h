#pragma once

#include <vector>

#include "ports/DocumentInfo.h"
#include "ports/TextFormat.h"

namespace lorelin {

// What is known of a file once its content is shown.
struct LoadedFile {
  TextFormat format;
  std::vector<Chapter> chapters;  // its headings
};

}  // namespace lorelin
