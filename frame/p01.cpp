// p01acc, the reporter of the exported layer; p01abf_f and its core twin,
// the advisory exits of the core layer; y99abc and y99aac.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "frame/catalogue.hpp"
#include "frame/core_record.hpp"
#include "frame/io.hpp"
#include "zem/p01.h"
#include "zem/x04.h"
#include "zem/y99.h"

namespace {

// The heading is chosen from the text: find the first 'N' among the first
// five characters and look at the character after it (with no 'N' there, at
// the sixth character).  'E' means an error, anything else a warning.
bool reads_as_error(const char* msg) {
  std::size_t len = std::strlen(msg);
  std::size_t at = 5;
  for (std::size_t i = 0; i < 5 && i < len; ++i)
    if (msg[i] == 'N') {
      at = i + 1;
      break;
    }
  return at < len && msg[at] == 'E';
}

}  // namespace

extern "C" {

ZEM_API void p01acc(const char* message, int32_t code, const char* routine, ZemError* fail) {
  if (!message) {
    message = zem::catalogue_format(code);
    if (!message) message = "NE_INTERNAL_ERROR:\n  Unknown error code.";
  }
  if (!routine) routine = "";
  if (code != 0 && (!fail || fail->print)) {
    std::fprintf(stderr,
                 reads_as_error(message) ? "Error detected by ZEM routine %s:\n%s\n"
                                         : "Warning from ZEM routine %s:\n%s\n",
                 routine, message);
  }
  if (fail) {
    fail->code = code;
    // The handler sees the new code and the previous message.
    if (fail->handler) fail->handler(message, code, routine);
    std::size_t n = std::strlen(message);
    if (n >= sizeof fail->message) n = sizeof fail->message - 1;
    std::memmove(fail->message, message, n);
    fail->message[n] = '\0';
    return;
  }
  if (code == 0) return;
  std::fputs("...Program Aborted\n", stderr);
  std::fflush(stderr);
  std::abort();
}

ZEM_API char y99_buf[512];

ZEM_API char* y99abc(int32_t code, const char* message, ZemError* fail) {
  if (code == 1) {
    p01acc(nullptr, 1, "y99abc", fail);
    return nullptr;
  }
  if (!message) message = "";
  std::snprintf(y99_buf, sizeof y99_buf, "%s", message);
  if (char* colon = std::strchr(y99_buf, ':')) {
    *colon = '\0';
    return y99_buf;
  }
  char text[sizeof y99_buf];
  std::snprintf(text, sizeof text, "%s", message);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  std::snprintf(y99_buf, sizeof y99_buf, zem::catalogue_format(2), text);
#pragma GCC diagnostic pop
  p01acc(y99_buf, 2, "y99abc", fail);
  return y99_buf;
}

ZEM_API void y99aac(const char* message, int32_t code, const char* routine) {
  if (code == 0) return;
  char line[600];
  std::snprintf(line, sizeof line, "\nError from %s.\n", routine ? routine : "");
  x04bay(global_resfile, line);
  std::snprintf(line, sizeof line, "%s\n\n", message ? message : "");
  x04bay(global_resfile, line);
}

ZEM_API int32_t p01abf_f(const int32_t* ifail, const int32_t* ierror, const char* srname,
                         const int32_t* nrec, const char* rec, size_t, size_t) {
  int mode = ifail ? *ifail : 0;
  int err = ierror ? *ierror : 0;
  const char* lines[1] = {rec};
  int n = (nrec && *nrec != 0 && rec) ? 1 : 0;
  return zem::core::advisory_exit(mode, err, srname ? srname : "", n, lines,
                                  zem::core::ExitKind::Exported);
}

}  // extern "C"

namespace zem::core {

int advisory_exit(int ifail, int ierror, const char* srname, int nrec, const char* const* rec,
                  ExitKind kind) noexcept {
  if (ierror == 0) return 0;
  bool noisy = ifail == -1 || ifail == 0 || ifail == -13 || (ifail >= 1 && (ifail / 10) % 10 != 0);
  if (!noisy) return ierror;
  int unit = 0;
  io::advisory_unit(0, &unit);
  const io::BlankLine blank =
      kind == ExitKind::Core ? io::BlankLine::KeepOne : io::BlankLine::Empty;
  for (int i = 0; i < nrec; ++i)
    if (rec[i]) io::write_record(unit, rec[i], blank);
  if (ifail == -13) return ierror;
  char line[120];
  std::snprintf(line, sizeof line, " ** ABNORMAL EXIT from ZEM Library routine %s: IFAIL =%6ld **",
                srname, static_cast<long>(ierror));
  io::write_record(unit, line, blank);
  if (std::abs(ifail % 10) == 1) {
    io::write_record(unit, " ** ZEM soft failure - control returned", blank);
    return ierror;
  }
  io::write_record(unit, " ** ZEM hard failure - execution terminated", blank);
  if (kind == ExitKind::Core) std::exit(1);
  return ierror;
}

}  // namespace zem::core
