// The x04ba routines (output to a path, input streams, one-record writes),
// the console set-up and the core layer's unit table.
#include "frame/io.hpp"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <thread>

#include "zem/x04.h"

extern "C" {
ZEM_API char* global_resfile = nullptr;
ZEM_API char* global_datafile = nullptr;
}

namespace zem::io {
namespace {

// ---- The console set-up.

std::atomic<bool> console_done{false};

// ---- Output to a path, opened and closed on each call; standard output
// when the path is null.  An output failure ends the process.

int32_t append_text(const char* path, const char* text, bool newline) {
  const char* end = newline ? "\n" : "";
  if (path) {
    std::FILE* f = std::fopen(path, "a");
    if (!f) {
      std::fprintf(stderr, "Unable To Open Output File: %s\n", path);
      std::exit(1);
    }
    if (std::fprintf(f, "%s%s", text, end) < 0) {
      std::fprintf(stderr, "Unable To Write to the Output File: %s\n", path);
      std::exit(1);
    }
    int rc = std::fclose(f);
    if (rc != 0) {
      std::fprintf(stderr, "Unable To Close the Output File: %s\n", path);
      std::exit(1);
    }
    return rc;
  }
  console_setup();
  if (std::fprintf(stdout, "%s%s", text, end) < 0) {
    std::fprintf(stderr, "Unable To Write to the stdout\n");
    std::exit(1);
  }
  return std::fflush(stdout);
}

// ---- The unit table, guarded by the I/O lock.

enum class Role : unsigned char { Free, Error, Input, Output, File };

struct Unit {
  Role role = Role::Free;
  Access access = Access::Write;
  std::FILE* file = nullptr;  // for Role::File
  char line[kLineBuffer] = {};
};

constexpr std::array<Unit, kUnits> initial_units() {
  std::array<Unit, kUnits> t{};
  t[kErrorUnit].role = Role::Error;
  t[kInputUnit].role = Role::Input;
  t[kOutputUnit].role = Role::Output;
  return t;
}

constinit std::array<Unit, kUnits> units = initial_units();

std::mutex io_mutex;  // the process-wide I/O lock
std::atomic<std::thread::id> io_owner{};
int advisory = 6;     // guarded by io_mutex

[[noreturn]] void recursive_io() {
  std::fputs("Recursive I/O reference", stderr);
  std::fputs("\nProgram terminated by fatal error\n", stderr);
  std::fflush(stderr);
  std::_Exit(1);
}

// Sends the NUL-terminated line held in u.line, and a newline, to the
// unit's destination.  The caller holds the lock.
bool send_line(Unit& u) {
  switch (u.role) {
    case Role::Error:
      std::fputs(u.line, stderr);
      std::fputc('\n', stderr);
      std::fflush(stderr);
      return true;
    case Role::Output:
    case Role::Free:
      append_text(global_resfile, u.line, true);
      return true;
    case Role::File: {
      if (u.access == Access::Read) return false;
      const bool ok = std::fputs(u.line, u.file) >= 0 && std::fputc('\n', u.file) != EOF;
      return std::fflush(u.file) == 0 && ok;
    }
    case Role::Input:
      return false;
  }
  return false;
}

// Writes the record as lines of at most kRecordLength characters through
// the unit's line buffer.  The caller holds the lock.
bool emit(Unit& u, std::string_view text, BlankLine blank) {
  if (u.role == Role::Input || (u.role == Role::File && u.access == Access::Read)) return false;
  std::size_t len = text.size();
  while (len > 0 && text[len - 1] == ' ') --len;
  bool ok = true;
  std::size_t pos = 0;
  do {
    std::size_t n = std::min<std::size_t>(kRecordLength, len - pos);
    std::memcpy(u.line, text.data() + pos, n);
    pos += n;
    while (n > 0 && u.line[n - 1] == ' ') --n;
    if (n == 0 && blank == BlankLine::KeepOne) u.line[n++] = ' ';
    u.line[n] = '\0';
    ok = send_line(u) && ok;
  } while (pos < len);
  return ok;
}

}  // namespace

void console_setup() noexcept {
  if (console_done.load(std::memory_order_acquire)) return;
  // The mutex belongs to this call alone and so excludes nobody: the set-up
  // is idempotent, and the second test of the flag only spares repeating it.
  std::mutex private_mutex;
  std::lock_guard<std::mutex> hold(private_mutex);
  if (console_done.load(std::memory_order_acquire)) return;
  // No console is created on this platform: standard output and standard
  // error are used as the process received them.
  console_done.store(true, std::memory_order_release);
}

bool console_ready() noexcept { return console_done.load(std::memory_order_acquire); }

IoLock::IoLock() noexcept {
  if (io_owner.load() == std::this_thread::get_id()) recursive_io();
  io_mutex.lock();
  io_owner.store(std::this_thread::get_id());
}

IoLock::~IoLock() {
  io_owner.store(std::thread::id{});
  io_mutex.unlock();
}

void advisory_unit(int action, int* unit) noexcept {
  IoLock lock;
  if (action == 0 && unit) *unit = advisory;
  else if (action == 1 && unit) advisory = *unit;
}

bool write_record(int unit, std::string_view text, BlankLine blank) noexcept {
  if (unit < 0) return true;
  if (unit >= kUnits) return false;
  console_setup();
  IoLock lock;
  return emit(units[unit], text, blank);
}

bool write_advisory(std::string_view text, BlankLine blank) noexcept {
  console_setup();
  IoLock lock;
  const int unit = advisory;
  if (unit < 0) return true;
  if (unit >= kUnits) return false;
  return emit(units[unit], text, blank);
}

bool read_record(int unit, std::string& out) noexcept {
  if (unit < 0 || unit >= kUnits) return false;
  IoLock lock;
  Unit& u = units[unit];
  std::FILE* in = nullptr;
  if (u.role == Role::Input) in = stdin;
  else if (u.role == Role::File && u.access == Access::Read) in = u.file;
  if (!in || !std::fgets(u.line, kLineBuffer, in)) return false;
  std::size_t n = std::strlen(u.line);
  if (n > 0 && u.line[n - 1] == '\n') {
    u.line[--n] = '\0';
  } else {
    // The record length is reached: skip the rest of the line.
    for (int c = std::getc(in); c != EOF && c != '\n'; c = std::getc(in)) {
    }
  }
  try {
    out.assign(u.line, n);
  } catch (...) {
    return false;
  }
  return true;
}

bool connect_unit(int unit, const char* path, Access access) noexcept {
  if (unit <= 0 || unit >= kUnits || !path) return false;
  IoLock lock;
  Unit& u = units[unit];
  if (u.role != Role::Free) return false;
  const char* mode = access == Access::Read ? "r" : access == Access::Write ? "w" : "a";
  std::FILE* f = std::fopen(path, mode);
  if (!f) return false;
  u.role = Role::File;
  u.access = access;
  u.file = f;
  return true;
}

bool disconnect_unit(int unit) noexcept {
  if (unit <= 0 || unit >= kUnits) return false;
  IoLock lock;
  Unit& u = units[unit];
  if (u.role != Role::File) return false;
  const int rc = std::fclose(u.file);
  u.role = Role::Free;
  u.file = nullptr;
  return rc == 0;
}

}  // namespace zem::io

extern "C" {

ZEM_API int32_t x04bay(const char* path, const char* text) {
  return zem::io::append_text(path, text ? text : "", false);
}

ZEM_API FILE* x04bax(const char* path) {
  if (!path) return stdin;
  std::FILE* f = std::fopen(path, "r");
  if (!f) {
    std::fprintf(stderr, "Unable To Open Input File: %s", path);
    std::exit(1);
  }
  return f;
}

ZEM_API int32_t x04bau(FILE* stream) {
  if (stream == stdin) {
    // Standard input stays open for the rest of the process.
    std::fputs("stdin in MS Windows environment\n", stderr);
    return 1;
  }
  if (!stream || std::fclose(stream) != 0) {
    std::fputs("Unable to close file pointer\n", stderr);
    return 1;
  }
  return 0;
}

ZEM_API void x04bah(FILE* stream, const char* text, int32_t length, int32_t* status) {
  long len = (text && length > 0) ? static_cast<long>(strnlen(text, static_cast<std::size_t>(length))) : 0;
  while (len > 0 && text[len - 1] == ' ') --len;
  int failed = 1;
  if (stream) {
    char format[32];
    std::snprintf(format, sizeof format, "%%.%1lds\n", len);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    const int rc = std::fprintf(stream, format, len > 0 ? text : "");
#pragma GCC diagnostic pop
    // A buffered write fails only when the buffer goes out: flush to learn it.
    failed = (rc < 0 || std::fflush(stream) != 0) ? 1 : 0;
  }
  if (status) *status = failed;
}

ZEM_API void x04aaf_f(const int32_t* iflag, int32_t* nerr) {
  if (iflag && nerr && *iflag == 0) *nerr = 6;
}

}  // extern "C"
