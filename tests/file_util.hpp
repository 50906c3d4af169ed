// Small helpers for tests that write files: a fresh temporary path and the
// whole text of a file.
#pragma once
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace zem::testing {

inline std::string slurp(const std::string& path) {
  std::ifstream in(path);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

// A path in /tmp that no file holds yet.
inline std::string temp_path() {
  char path[] = "/tmp/zem_test_XXXXXX";
  const int fd = mkstemp(path);
  if (fd >= 0) close(fd);
  std::remove(path);
  return path;
}

}  // namespace zem::testing
