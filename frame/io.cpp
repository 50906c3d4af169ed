// x04bay and the core layer's record output.
#include "frame/io.hpp"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <thread>
#include "zem/x04.h"

extern "C" {
ZEM_API char* global_resfile = nullptr;
ZEM_API char* global_datafile = nullptr;
}

namespace zem::io {
namespace {

std::mutex io_mutex;  // the process-wide I/O lock
std::atomic<std::thread::id> io_owner{};
int advisory = 6;     // guarded by io_mutex

[[noreturn]] void recursive_io() {
  std::fputs("Recursive I/O reference", stderr);
  std::fputs("\nProgram terminated by fatal error\n", stderr);
  std::fflush(stderr);
  std::_Exit(1);
}

}  // namespace

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

void write_record(int unit, std::string_view text, BlankLine blank) noexcept {
  if (unit < 0) return;
  std::size_t len = text.size();
  while (len > 0 && text[len - 1] == ' ') --len;
  std::string line;
  line.reserve(len + 2);
  line.append(text.data(), len);
  if (len == 0 && !text.empty() && blank == BlankLine::KeepOne) line.push_back(' ');
  line.push_back('\n');
  IoLock lock;
  if (unit == 0) {
    std::fputs(line.c_str(), stderr);
    std::fflush(stderr);
  } else {
    x04bay(global_resfile, line.c_str());
  }
}

}  // namespace zem::io

extern "C" ZEM_API int32_t x04bay(const char* path, const char* text) {
  if (!text) text = "";
  if (path) {
    std::FILE* f = std::fopen(path, "a");
    if (!f) {
      std::fprintf(stderr, "Unable To Open Output File: %s\n", path);
      std::exit(1);
    }
    if (std::fprintf(f, "%s", text) < 0) {
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
  // There is no console to create on this platform: standard output is used
  // as it stands.
  if (std::fprintf(stdout, "%s", text) < 0) {
    std::fprintf(stderr, "Unable To Write to the stdout\n");
    std::exit(1);
  }
  return std::fflush(stdout);
}
