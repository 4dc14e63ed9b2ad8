// What every fuzz target asks of AddressSanitizer: long histories of allocations and freed memory that is
// kept for long cost a fifth of the time, and each run is short.
extern "C" const char* __asan_default_options() {
  return "malloc_context_size=6:quarantine_size_mb=16";
}
