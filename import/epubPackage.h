#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "ports/DocumentInfo.h"

namespace lorelin {

// What the package document of a book says. Files are named as in the archive.
struct EpubPackage {
  std::vector<std::string> pages;  // in the order in which they are read
  std::string navigation;          // the table of contents of EPUB 3, "" for none
  std::string contents;            // that of EPUB 2
  DocumentInfo info;
};

// An entry of a table of contents.
struct EpubEntry {
  std::string title;
  int level = 1;
  std::string place;  // the page's name, with "#" and the place's name where one is given
};

[[nodiscard]] EpubPackage ReadEpubPackage(std::string_view bytes, const std::string& name);
[[nodiscard]] std::vector<EpubEntry> ReadEpubNavigation(std::string_view bytes, const std::string& name);
[[nodiscard]] std::vector<EpubEntry> ReadEpubContents(std::string_view bytes, const std::string& name);

}  // namespace lorelin
