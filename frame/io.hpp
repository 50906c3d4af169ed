// Output of the core layer: a table of numbered units, the advisory unit and
// its record writer, all serialised by one process-wide lock.
//
// Units 0 to 99.  Unit 0 is the standard error stream, unit 5 standard input
// and unit 6 standard output (or the results file named by global_resfile
// when that is set).  Every other unit may be connected to a file with
// connect_unit; a unit that is not connected writes where unit 6 writes.
// Each unit has a line buffer of kLineBuffer bytes and a record length of
// kRecordLength characters: a longer record is written as several lines.
#pragma once
#include <string>
#include <string_view>

namespace zem::io {

inline constexpr int kUnits = 100;
inline constexpr int kRecordLength = 1024;
inline constexpr int kLineBuffer = kRecordLength + 1;

inline constexpr int kErrorUnit = 0;
inline constexpr int kInputUnit = 5;
inline constexpr int kOutputUnit = 6;

// The console set-up, run before the first write to standard output from
// x04bay, the printers and the units, and before the core's first output.
// There is no console to create on this platform, so it only records that
// it has run; after the first call it costs one atomic load.
void console_setup() noexcept;
bool console_ready() noexcept;

// The advisory unit number (initially 6).  action 0 reads it into *unit,
// action 1 sets it from *unit; other actions do nothing.
void advisory_unit(int action, int* unit) noexcept;

enum class BlankLine { KeepOne, Empty };

// Writes one record to `unit`.  A negative unit writes nothing.  Trailing
// blanks are removed; a record of blanks becomes one blank (KeepOne) or an
// empty line.  Returns false when nothing could be written: a unit above 99,
// the input unit, or a failed write to a connected file.
bool write_record(int unit, std::string_view text, BlankLine blank = BlankLine::KeepOne) noexcept;

// Writes one record to the advisory unit, read and used under one hold of
// the lock.
bool write_advisory(std::string_view text, BlankLine blank = BlankLine::KeepOne) noexcept;

// Reads one record from `unit` (unit 5, or a unit connected for reading)
// into `out`, without its newline; a line longer than the record length is
// cut to it and the rest of the line is skipped.  False at the end of the
// input, on a read error, or for a unit that cannot be read.
bool read_record(int unit, std::string& out) noexcept;

enum class Access { Read, Write, Append };

// Connects unit 1..99 (not 5 or 6) to the file at `path`.  False if the unit
// is reserved or already connected, or the file cannot be opened.
bool connect_unit(int unit, const char* path, Access access) noexcept;
// Closes the file of a connected unit; false if the unit was not connected
// or the close failed.  The unit is free afterwards in either case.
bool disconnect_unit(int unit) noexcept;

// RAII holder of the I/O lock, with the re-entry check: a thread that takes
// the lock while it holds it ends the process with "Recursive I/O reference".
class IoLock {
 public:
  IoLock() noexcept;
  ~IoLock();
  IoLock(const IoLock&) = delete;
  IoLock& operator=(const IoLock&) = delete;
};

}  // namespace zem::io
