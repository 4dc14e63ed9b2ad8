#include <cerrno>

#include "engine/TargetFile.h"

namespace lorelin::engine {

std::string WriteProblem(int errorNumber) {
  switch (errorNumber) {
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
      return "Auf dem Datenträger ist kein Speicherplatz mehr frei.";
    case EACCES:
    case EPERM:
    case EROFS:
      return "In die Datei darf nicht geschrieben werden.";
    case ENOENT:
    case ENOTDIR:
      return "Den Ordner gibt es nicht.";
    case EISDIR:
      return "Der Name gehört einem Ordner.";
    case EINVAL:
      return "Das ist keine gewöhnliche Datei.";
    case EBUSY:
      return "Sie wird gerade schon geschrieben.";
    case EFBIG:
      return "Das Dateisystem erlaubt keine so große Datei.";
    default:
      return "Beim Schreiben trat ein Fehler auf.";
  }
}

}  // namespace lorelin::engine
