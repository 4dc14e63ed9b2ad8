// fontconfig never gives back what it keeps of its configuration, and libxml2 loses the value of an entity
// that nobody wants. The process that reads documents ends after each of them.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier)
  return "leak:libfontconfig\nleak:xmlParseEntityValue\n";
}
