#include "platform/linux/XdgFileAssociation.h"

#include <filesystem>
#include <system_error>

#include "base/RuntimeError.h"
#include "base/modFile.h"
#include "base/paths.h"
#include "base/text.h"

namespace lorelin {
namespace {

constexpr std::string_view kMimeType =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<mime-info xmlns="http://www.freedesktop.org/standards/shared-mime-info">
  <mime-type type="application/x-lorelin-vts">
    <comment>Lorelin task script</comment>
    <comment xml:lang="de">Lorelin-Taskscript</comment>
    <sub-class-of type="text/plain"/>
    <icon name="application-x-lorelin-vts"/>
    <glob pattern="*.vts"/>
  </mime-type>
</mime-info>
)";

constexpr std::string_view kEntry =
    R"([Desktop Entry]
Type=Application
Name=Lorelin
GenericName=Text Reader
GenericName[de]=Vorleseprogramm
Comment=Reads texts aloud
Comment[de]=Liest Texte vor
Exec=%1 %f
Icon=lorelin
Terminal=false
Categories=Utility;Accessibility;
MimeType=application/x-lorelin-vts;text/plain;application/rtf;text/rtf;
StartupNotify=true
StartupWMClass=lorelin
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

}  // namespace

void XdgFileAssociation::Publish(const FileAssociationData& data) {
  if (dataFolder_.empty()) return;
  try {
    std::string entry(kEntry);
    ReplaceAll(entry, "%1", ExecArgument(data.programFile));
    Write({"icons", "hicolor", "scalable", "apps", "lorelin.svg"}, data.programDrawing);
    Write({"icons", "hicolor", "scalable", "mimetypes", "application-x-lorelin-vts.svg"}, data.scriptDrawing);
    if (Write({"mime", "packages", "lorelin.xml"}, kMimeType)) Rebuild("update-mime-database", "mime");
    if (Write({"applications", "lorelin.desktop"}, entry)) Rebuild("update-desktop-database", "applications");
  } catch (const RuntimeError& error) {
    log_.Write("Dateizuordnung: " + std::string(error.what()));
  }
}

bool XdgFileAssociation::Write(std::initializer_list<std::string_view> path, std::string_view content) {
  const std::string file = JoinPath(dataFolder_, path);
  if (FileExists(file) && ReadFileBytes(file) == content) return false;
  std::error_code error;
  std::filesystem::create_directories(NativePath(file).parent_path(), error);
  files_.Replace(file, content);
  return true;
}

void XdgFileAssociation::Rebuild(const char* tool, const char* folder) {
  try {
    launcher_.Start({tool, JoinPath(dataFolder_, {folder})});
  } catch (const RuntimeError& error) {
    log_.Write(std::string(tool) + ": " + error.what());
  }
}

}  // namespace lorelin
