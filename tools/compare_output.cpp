// Compares two text outputs token by token: numbers agree to a relative
// 1e-6 (or absolutely below 1e-12), other tokens exactly.  Lines that begin
// with "#" in the expected file are free (build data, timings).
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

std::vector<std::string> tokens(const char* path, bool skip_free) {
  std::ifstream in(path);
  std::vector<std::string> out;
  std::string line, tok;
  while (std::getline(in, line)) {
    if (skip_free && !line.empty() && line[0] == '#') {
      out.push_back("\x01");  // marks a free line
      continue;
    }
    std::istringstream ls(line);
    while (ls >> tok) out.push_back(tok);
    out.push_back("\n");
  }
  return out;
}

bool as_number(const std::string& s, double* v) {
  char* end = nullptr;
  *v = std::strtod(s.c_str(), &end);
  return end && *end == '\0' && end != s.c_str();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: %s expected actual\n", argv[0]);
    return 2;
  }
  std::vector<std::string> want = tokens(argv[1], true), got = tokens(argv[2], false);
  std::size_t i = 0, j = 0;
  while (i < want.size() && j < got.size()) {
    if (want[i] == "\x01") {  // skip one line of the actual output
      while (j < got.size() && got[j] != "\n") ++j;
      ++i, ++j;
      continue;
    }
    double a, b;
    bool same = want[i] == got[j];
    if (!same && as_number(want[i], &a) && as_number(got[j], &b))
      same = std::fabs(a - b) <= 1e-6 * std::fmax(std::fabs(a), std::fabs(b)) || std::fabs(a - b) < 1e-12;
    if (!same) {
      std::fprintf(stderr, "mismatch at token %zu: expected '%s', got '%s'\n", i, want[i].c_str(),
                   got[j].c_str());
      return 1;
    }
    ++i, ++j;
  }
  if (i != want.size() || j != got.size()) {
    std::fprintf(stderr, "outputs differ in length\n");
    return 1;
  }
  return 0;
}
