#include "platform/linux/XdgFileAssociation.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/paths.h"
#include "base/text.h"
#include "platform/linux/desktopFiles.h"

namespace lorelin {
namespace {

// GNOME's file manager lists these scripts in its context menu and passes the paths of the selected files.
constexpr std::string_view kNautilusScript =
    R"(#!/bin/sh
exec %1 --auswahl "$@"
)";

// As an argument of the key Exec: quoted, then escaped again as every string of the file is.
std::string ExecArgument(const std::string& path) {
  std::string quoted;
  for (const char c : path) {
    if (c == '"' || c == '`' || c == '$' || c == '\\') quoted += '\\';
    quoted += c;
    if (c == '%') quoted += '%';
  }
  ReplaceAll(quoted, "\\", "\\\\");
  return "\"" + quoted + "\"";
}

// As one word for a shell.
std::string ShellWord(std::string text) {
  ReplaceAll(text, "'", "'\\''");
  return "'" + text + "'";
}

std::string WithProgram(std::string_view form, const std::string& program) {
  std::string text(form);
  ReplaceAll(text, "%1", program);
  return text;
}

// An entry as the package has it, for a program that lies elsewhere.
std::string EntryFor(std::string_view entry, const std::string& argument) {
  std::string text(entry);
  ReplaceAll(text, "Exec=lorelin", "Exec=" + argument);
  return text;
}

bool LiesInOneOf(std::string_view folders, const std::filesystem::path& folder) {
  if (folders.empty()) folders = "/usr/local/share:/usr/share";
  while (!folders.empty()) {
    const auto end = std::min(folders.find(':'), folders.size());
    const auto candidate = (std::filesystem::path(folders.substr(0, end)) / "").lexically_normal();
    if (candidate == (folder / "").lexically_normal()) return true;
    folders.remove_prefix(std::min(end + 1, folders.size()));
  }
  return false;
}

// Whether the entry is one that was written here for a program that is not there any more. The user's own
// copies of entries name the program as the package does, without its folder.
bool IsLeftover(const std::string& entryFile) {
  if (!FileExists(entryFile)) return false;
  constexpr std::string_view kBegin = "\nExec=\"";
  const std::string entry = ReadFileBytes(entryFile);
  const auto begin = entry.find(kBegin);
  if (begin == std::string::npos) return false;
  const auto from = begin + kBegin.size();
  const std::string program = entry.substr(from, entry.find('"', from) - from);
  return program.find_first_of("\\%") == std::string::npos && !FileExists(program);
}

}  // namespace

void XdgFileAssociation::Publish(const FileAssociationData& data) {
  if (dataFolder_.empty()) return;
  try {
    if (IsPublishedByPackage(data.programFile)) {
      RemoveLeftovers();
    } else {
      PublishForDesktops(data);
    }
    PublishForFileManager(data.programFile);
  } catch (const RuntimeError& error) {
    log_.Write("Dateizuordnung: " + std::string(error.what()));
  }
}

bool XdgFileAssociation::IsPublishedByPackage(const std::string& programFile) const {
  const auto share = NativePath(programFile).parent_path().parent_path() / "share";
  return LiesInOneOf(sharedFolders_, share) &&
         FileExists(PathText(share / "applications" / "lorelin.desktop"));
}

void XdgFileAssociation::PublishForDesktops(const FileAssociationData& data) {
  const std::string argument = ExecArgument(data.programFile);
  const std::string entry = EntryFor(kDesktopEntry, argument);
  Write({"icons", "hicolor", "scalable", "apps", "lorelin.svg"}, data.programDrawing);
  Write({"icons", "hicolor", "scalable", "mimetypes", "application-x-lorelin-vts.svg"}, data.scriptDrawing);
  if (Write({"mime", "packages", "lorelin.xml"}, kMimeTypes)) Rebuild("update-mime-database", "mime");
  if (Write({"applications", "lorelin.desktop"}, entry)) Rebuild("update-desktop-database", "applications");
  WriteExecutable({"kio", "servicemenus", "lorelin.desktop"}, EntryFor(kServiceMenu, argument));
}

void XdgFileAssociation::PublishForFileManager(const std::string& programFile) {
  if (!std::filesystem::is_directory(NativePath(JoinPath(dataFolder_, {"nautilus"})))) return;
  WriteExecutable({"nautilus", "scripts", "Mit Lorelin vorlesen"},
                  WithProgram(kNautilusScript, ShellWord(programFile)));
}

// What a program that was only unpacked wrote hides what the package says.
void XdgFileAssociation::RemoveLeftovers() {
  if (!IsLeftover(JoinPath(dataFolder_, {"applications", "lorelin.desktop"}))) return;
  Remove({"kio", "servicemenus", "lorelin.desktop"});
  Remove({"mime", "packages", "lorelin.xml"});
  Remove({"applications", "lorelin.desktop"});
  Rebuild("update-mime-database", "mime");
  Rebuild("update-desktop-database", "applications");
}

void XdgFileAssociation::Remove(std::initializer_list<std::string_view> path) {
  std::error_code error;
  std::filesystem::remove(NativePath(JoinPath(dataFolder_, path)), error);
}

bool XdgFileAssociation::Write(std::initializer_list<std::string_view> path, std::string_view content) {
  const std::string file = JoinPath(dataFolder_, path);
  if (FileExists(file) && ReadFileBytes(file) == content) return false;
  std::error_code error;
  std::filesystem::create_directories(NativePath(file).parent_path(), error);
  files_.Replace(file, content);
  return true;
}

void XdgFileAssociation::WriteExecutable(std::initializer_list<std::string_view> path,
                                         std::string_view content) {
  Write(path, content);
  std::error_code error;
  std::filesystem::permissions(NativePath(JoinPath(dataFolder_, path)), std::filesystem::perms(0755), error);
}

void XdgFileAssociation::Rebuild(const char* tool, const char* folder) {
  try {
    launcher_.Start({tool, JoinPath(dataFolder_, {folder})});
  } catch (const RuntimeError& error) {
    log_.Write(std::string(tool) + ": " + error.what());
  }
}

}  // namespace lorelin
