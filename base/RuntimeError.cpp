#include "base/RuntimeError.h"

namespace lorelin {

std::string ErrorText(ErrorNumber number) {
  switch (number) {
    case ErrorNumber::InvalidCall:
      return "Ungültiger Prozeduraufruf oder ungültiges Argument";
    case ErrorNumber::Overflow:
      return "Überlauf";
    case ErrorNumber::OutOfMemory:
      return "Nicht genügend Speicher";
    case ErrorNumber::TypeMismatch:
      return "Typen unverträglich";
    case ErrorNumber::OutOfStringSpace:
      return "Nicht genügend Zeichenfolgenspeicher";
    case ErrorNumber::BadFileName:
      return "Dateiname oder -nummer falsch";
    case ErrorNumber::FileNotFound:
      return "Datei nicht gefunden";
    case ErrorNumber::FileAlreadyOpen:
      return "Datei bereits geöffnet";
    case ErrorNumber::DeviceError:
      return "Ein-/Ausgabefehler des Geräts";
    case ErrorNumber::DiskFull:
      return "Datenträger voll";
    case ErrorNumber::PermissionDenied:
      return "Zugriff verweigert";
    case ErrorNumber::PathFileAccess:
      return "Fehler beim Zugriff auf Pfad/Datei";
    case ErrorNumber::PathNotFound:
      return "Pfad nicht gefunden";
    case ErrorNumber::InvalidFileFormat:
      return "Ungültiges Dateiformat";
    case ErrorNumber::InvalidPropertyValue:
      return "Ungültiger Eigenschaftswert";
    case ErrorNumber::CannotCreateObject:
      return "Objekterstellung nicht möglich";
    case ErrorNumber::NoSuchMethod:
      return "Objekt unterstützt diese Eigenschaft oder Methode nicht";
    case ErrorNumber::AutomationFailed:
      return "Automatisierungsfehler";
  }
  return "Unbekannter Fehler";
}

}  // namespace lorelin
