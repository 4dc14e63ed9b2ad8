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
// Where a package has told the desktop of the program, only what a package cannot do is done: the entry for
// GNOME's file manager, which looks for such entries in the user's folder alone.
class XdgFileAssociation final : public FileAssociation {
 public:
  // Owns none of them. `dataFolder` is $XDG_DATA_HOME; "" publishes nothing. `sharedFolders` is
  // $XDG_DATA_DIRS.
  XdgFileAssociation(std::string dataFolder, std::string sharedFolders, FileWriter& files,
                     ProgramLauncher& launcher, Log& log)
      : dataFolder_(std::move(dataFolder)),
        sharedFolders_(std::move(sharedFolders)),
        files_(files),
        launcher_(launcher),
        log_(log) {}

  void Publish(const FileAssociationData& data) override;

 private:
  [[nodiscard]] bool IsPublishedByPackage(const std::string& programFile) const;
  void PublishForDesktops(const FileAssociationData& data);
  void PublishForFileManager(const std::string& programFile);
  void RemoveLeftovers();
  void Remove(std::initializer_list<std::string_view> path);
  // Whether the file had another content.
  bool Write(std::initializer_list<std::string_view> path, std::string_view content);
  void WriteExecutable(std::initializer_list<std::string_view> path, std::string_view content);
  void Rebuild(const char* tool, const char* folder);

  std::string dataFolder_;
  std::string sharedFolders_;
  FileWriter& files_;
  ProgramLauncher& launcher_;
  Log& log_;
};

}  // namespace lorelin
