// Output of the core layer: the advisory unit and its record writer,
// serialised by one process-wide lock.
#pragma once
#include <string_view>

namespace zem::io {

// The advisory unit number (initially 6).  action 0 reads it into *unit,
// action 1 sets it from *unit; other actions do nothing.
void advisory_unit(int action, int* unit) noexcept;

enum class BlankLine { KeepOne, Empty };

// Writes one record to `unit` (a negative unit writes nothing): trailing
// blanks are removed; a record of blanks becomes one blank or an empty line.
// Unit 0 is stderr; every other unit goes to the results file named by
// global_resfile, or standard output.  Serialised by the I/O lock; a thread
// that re-enters the lock ends the process with "Recursive I/O reference".
void write_record(int unit, std::string_view text, BlankLine blank = BlankLine::KeepOne) noexcept;

// RAII holder of the I/O lock, with the re-entry check.
class IoLock {
 public:
  IoLock() noexcept;
  ~IoLock();
  IoLock(const IoLock&) = delete;
  IoLock& operator=(const IoLock&) = delete;
};

}  // namespace zem::io
