#pragma once

#include <filesystem>

namespace lorelin {

// Why there is no document when the computing time is used up.
inline constexpr const char* kTooSlowAnswer =
    "Das Einlesen wurde abgebrochen, weil es zu lange dauerte. Wahrscheinlich ist die Datei beschädigt oder "
    "viel zu "
    "groß.";

// What help says of it.
extern const char* const kConfinementText;

// From here on the process takes little memory, reads the document and what belongs to the system, writes no
// file, opens no connection, starts no program, looks into no other process, ends with its parent, and gains
// no rights. With `children` it may start programs, which may give themselves the right to write small
// temporary files. Windows keeps a process from files and connections only with accounts of its own: there it
// just takes little memory, starts no program and ends with its parent, see ImportJobRunner.
void Confine(const std::filesystem::path& document, bool children);

// The process ends with an answer that says so when it computes for so long; each call begins anew, 0 ends
// the watch.
void GiveComputingTime(int seconds);

// Seconds that the process has computed.
[[nodiscard]] double ComputingTime();

}  // namespace lorelin
