// What the libraries that are opened at run time leave behind when the program ends is not ours to free. The
// leak detector asks for it by this name.
extern "C" const char* __lsan_default_suppressions();  // NOLINT(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libonnxruntime\n";
}
