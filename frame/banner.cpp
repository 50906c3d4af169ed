// The implementation banner and the result-block helpers of test drivers.
#include <cstdio>
#include <cstring>

#include "build_info.h"
#include "zem/a00.h"
#include "zem/x04.h"
#include "zem/y07.h"

namespace {

// The banner's lines for the given release text.
template <class Sink>
void banner(const char* release, Sink sink) {
  char line[256];
  sink("*** ZEM C Library Implementation ***\n");
  std::snprintf(line, sizeof line, "    %s\n", ZEM_BUILD_PLATFORM);
  sink(line);
  std::snprintf(line, sizeof line, "    Implementation code (%s)\n", ZEM_BUILD_IMPL_CODE);
  sink(line);
  std::snprintf(line, sizeof line, "    Built with %s\n", ZEM_BUILD_COMPILER);
  sink(line);
  std::snprintf(line, sizeof line, "      and with %s\n", ZEM_BUILD_COMPILER2);
  sink(line);
  std::snprintf(line, sizeof line, "    At %s\n", ZEM_BUILD_TIME);
  sink(line);
  std::snprintf(line, sizeof line, "    Mark %s\n", release);
  sink(line);
  sink("    Copyright 2026 The Zem developers\n");
}

}  // namespace

extern "C" {

ZEM_API void a00aac(void) {
  banner("7a", [](const char* s) { std::printf("%s", s); });
  std::fflush(stdout);
}

ZEM_API void a00abc(const char* path) {
  banner("7", [path](const char* s) { x04bay(path, s); });
}

ZEM_API void y07abc(const char* path) { x04bay(path, ".--.\n"); }

ZEM_API void y07acc(const char* path) { x04bay(path, ".+-.\n"); }

ZEM_API void y07adc(FILE* stream) {
  if (stream) {
    int rc = std::fscanf(stream, "%*[^\n]");
    (void)rc;
  }
}

ZEM_API void y07aec(FILE* stream, const char* path) {
  if (!stream) return;
  char line[82];
  if (!std::fgets(line, sizeof line, stream)) return;
  if (std::strspn(line, " \t\r\n\f\v") == std::strlen(line)) {
    if (!std::fgets(line, sizeof line, stream)) return;
  }
  x04bay(path, line);
}

}  // extern "C"
