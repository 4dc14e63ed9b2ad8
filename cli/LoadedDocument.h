#pragma once

#include <string>
#include <vector>

#include "ports/DocumentInfo.h"
#include "ports/ImportProcess.h"
#include "richtext/RichText.h"

namespace lorelin::cli {

// A text that was asked for, and what its file tells of it.
struct LoadedDocument {
  std::string text;
  DocumentInfo info;
  std::vector<TextRun> formats;  // of the text
  std::string name;              // of the file, without its ending
};

// The document of a file, of a pipe, or of standard input ("-"): what the importer reads, RTF without its
// formats, everything else as text. What is missing of an imported document is named on standard error.
// Throws Failure with NoInput, and Interruption while it waits.
[[nodiscard]] LoadedDocument LoadDocument(const std::string& input, ImportProcess& importer);
// The same, to be read aloud: a blank text is none.
[[nodiscard]] LoadedDocument LoadSpeakable(const std::string& input, ImportProcess& importer);

}  // namespace lorelin::cli
