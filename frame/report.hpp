// The exported layer's frame: one object per exported call that clears the
// error record, runs the argument checks in order, and reports through
// p01acc.  A check returns true when the argument is bad and has been
// reported, so that a routine's checks read as a list:
//
//   zem::Call call("c05adc", fail);
//   if (call.real_le("xtol", xtol, 0.0, "0.0")) return;
//   if (call.real2_eq("a", a, "b", b)) return;
#pragma once
#include <cstdio>
#include <initializer_list>
#include "frame/catalogue.hpp"
#include "zem/p01.h"

namespace zem {

inline constexpr int kMessageLen = 512;

class Call {
 public:
  enum class Clear { CodeAndErrnum, CodeOnly };
  // Clears fail->code and, unless told otherwise, fail->errnum.
  Call(const char* routine, ZemError* fail, Clear clear = Clear::CodeAndErrnum) noexcept;

  const char* routine() const noexcept { return routine_; }
  ZemError* fail() const noexcept { return fail_; }
  // True once a report with a nonzero code was made through this call, or
  // the caller's record holds a nonzero code.
  bool failed() const noexcept { return failed_ || (fail_ && fail_->code != 0); }
  void set_errnum(int value) noexcept {
    if (fail_) fail_->errnum = value;
  }

  // First way: formats the catalogue row `code` with the arguments (which
  // must match the row's slots: names and texts as const char*, integers as
  // long, reals as double) and reports it.
  template <class... Args>
  void report(int code, Args... args) noexcept {
    char buf[kMessageLen];
    const char* fmt = catalogue_format(code);
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
    if (fmt) std::snprintf(buf, sizeof buf, fmt, args...);
#pragma GCC diagnostic pop
    send(fmt ? buf : nullptr, code);
  }
  // A per-routine format (first line names a catalogue row, text indented by
  // four blanks) with its own arguments, reported under `code`.
  template <class... Args>
  void report_own(int code, const char* fmt, Args... args) noexcept {
    char buf[kMessageLen];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
    std::snprintf(buf, sizeof buf, fmt, args...);
#pragma GCC diagnostic pop
    send(buf, code);
  }
  // Reports with a null message: the row's text reaches the reader as stored.
  void report_null(int code) noexcept { send(nullptr, code); }
  // Closing report of a successful call: only with a record whose code is
  // still 0.
  void success() noexcept {
    if (fail_ && fail_->code == 0) succeed();
  }

  // ---- Checks.  Each returns true when the argument is bad and reported.
  // Names and bounds are spelled as text, as they appear in the message.
  bool null(const char* name, const void* p) noexcept {  // NE_BAD_PARAM
    return p ? false : bad_param(name);
  }
  bool int_lt(const char* name, long v, long bound, const char* btext) noexcept; // v < bound: NE_INT_ARG_LT
  bool int_le(const char* name, long v, long bound, const char* btext) noexcept; // v <= bound: NE_INT_ARG_LE
  bool int_gt(const char* name, long v, long bound, const char* btext) noexcept; // v > bound: NE_INT_ARG_GT
  bool real_lt(const char* name, double v, double bound, const char* btext) noexcept;  // NE_REAL_ARG_LT
  bool real_le(const char* name, double v, double bound, const char* btext) noexcept;  // NE_REAL_ARG_LE
  // v1 < v2: NE_2_INT_ARG_LT ("name1 >= name2").
  bool int2_lt(const char* name1, long v1, const char* name2, long v2) noexcept;
  // v1 == v2: NE_2_REAL_ARG_EQ.
  bool real2_eq(const char* name1, double v1, const char* name2, double v2) noexcept;
  // v not among allowed: NE_ARG_INVALID with the list text ("0, 1, 2").
  bool not_in(const char* name, long v, std::initializer_list<long> allowed, const char* list) noexcept;
  // bad: NE_INT with the constraint text ("m >= 0").
  bool int_cons(bool bad, const char* name, long v, const char* constraint) noexcept;
  // An enumerator outside its set: NE_BAD_PARAM naming the argument.
  bool enum_in(const char* name, long v, std::initializer_list<long> allowed) noexcept {
    for (long a : allowed)
      if (a == v) return false;
    return bad_param(name);
  }

 private:
  void send(const char* message, int code) noexcept;
  // The out-of-line halves of the checks and of success(), which are
  // inline because most calls pass them and many routines are cheap.
  bool bad_param(const char* name) noexcept;
  void succeed() noexcept;

  const char* routine_;
  ZemError* fail_;
  bool failed_ = false;
};

// A record of its own for a routine that calls another fallible routine:
// everything 0, so nothing is printed and no handler runs.
inline ZemError quiet_record() noexcept {
  ZemError e{};
  return e;
}

}  // namespace zem
