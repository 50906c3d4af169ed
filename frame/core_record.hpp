// The core layer's failure record and its reading by the exported layer.
//
// A core routine that fails writes one record of at most 200 characters:
//   name (6 letters), ifail, message number, count of values, each as
//   " %5d", then the values, each after one blank, in Fortran-style edit
//   descriptors: I16 for integers, A1 for a letter, 1P,E12.4 for reals.
// Message numbers count down from 99999 in the order of the routine's checks.
// The exported wrapper clears the record, calls the core with ifail = 1,
// and on failure turns the record back into a catalogue report through a
// table of the routine's message numbers.
#pragma once
#include <initializer_list>
#include <span>

#include "frame/report.hpp"

namespace zem::core {

inline constexpr int kRecordLen = 200;

// One value field of a failure record.
struct Field {
  enum class Kind { Int, Letter, Real } kind;
  long i = 0;
  char c = ' ';
  double r = 0.0;
};
inline Field int_field(long v) { return {Field::Kind::Int, v, ' ', 0.0}; }
inline Field letter_field(char c) { return {Field::Kind::Letter, 0, c, 0.0}; }
inline Field real_field(double v) { return {Field::Kind::Real, 0, ' ', v}; }

// "NONE" padded with blanks: what a core leaves on entry.
void record_none(char rec[kRecordLen]) noexcept;
// Writes the failure record.
void record_failure(char rec[kRecordLen], const char* name, int ifail, int msgno,
                    std::initializer_list<Field> values) noexcept;
// Fortran edit descriptors, exposed for tests: I16 and 1P,E12.4.
void edit_i16(char out[17], long v) noexcept;
void edit_e12_4(char out[13], double v) noexcept;

// One failure that a wrapper knows: the core's message number, the
// catalogue row reported and the routine's own format (its value slots all
// %s, in the order of the record's values), or a null format to report the
// row with a null message.
struct Message {
  int msgno;
  int code;
  int nvalues;
  const char* format;
};

// Reads a core failure record against the routine's table: errnum takes
// ifail; returns the matching row with its value texts in `values`, or
// reports NE_INTERNAL_ERROR (an unreadable record, a message number not in
// the table, fewer values than the row needs) and returns null.
const Message* read_failure(Call& call, int ifail, const char rec[kRecordLen],
                            std::span<const Message> table, char values[4][20]) noexcept;

// read_failure, then the report of the row found.
void report_failure(Call& call, int ifail, const char rec[kRecordLen],
                    std::span<const Message> table) noexcept;

// The advisory exit of the core layer and of the exported p01abf_f.
enum class ExitKind { Core, Exported };
int advisory_exit(int ifail, int ierror, const char* srname, int nrec, const char* const* rec,
                  ExitKind kind) noexcept;

}  // namespace zem::core
