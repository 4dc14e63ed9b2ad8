#pragma once

#include <string>
#include <string_view>

#include "ports/FileAssociation.h"
#include "ports/FileWriter.h"
#include "ports/Log.h"
#include "ports/ProgramLauncher.h"

namespace lorelin {

// The files of the freedesktop.org specifications below the user's data folder: a desktop entry (Desktop
// Entry Specification), a MIME type (Shared MIME-info Database), drawings (Icon Theme Specification
// 0.13), and an entry each for the context menus of KDE's and, where it is used, GNOME's file manager. The
// tools that rebuild the desktop's caches are started only after a change, and may be missing.
class XdgFileAssociation final : public FileAssociation {
 public:
  // Owns none of them. `dataFolder` is $XDG_DATA_HOME; "" publishes nothing.
  XdgFileAssociation(std::string dataFolder, FileWriter& files, ProgramLauncher& launcher, Log& log)
      : dataFolder_(std::move(dataFolder)), files_(files), launcher_(launcher), log_(log) {}

  void Publish(const FileAssociationData& data) override;

 private:
  // Whether the file had another content.
  bool Write(std::initializer_list<std::string_view> path, std::string_view content);
  void WriteExecutable(std::initializer_list<std::string_view> path, std::string_view content);
  void Rebuild(const char* tool, const char* folder);

  std::string dataFolder_;
  FileWriter& files_;
  ProgramLauncher& launcher_;
  Log& log_;
};

}  // namespace lorelin
