#include "frame/report.hpp"

#include <algorithm>
#include <cstring>

namespace zem {

Call::Call(const char* routine, ZemError* fail, Clear clear) noexcept : routine_(routine), fail_(fail) {
  if (fail_) {
    fail_->code = 0;
    if (clear == Clear::CodeAndErrnum) fail_->errnum = 0;
  }
}

void Call::send(const char* message, int code) noexcept {
  if (code != 0) failed_ = true;
  p01acc(message, code, routine_, fail_);
}

// What p01acc does for a success on a record with no handler: code 0 and
// the row's text into the message, a copy of known length.
void Call::succeed() noexcept {
  if (fail_->handler) {
    p01acc(nullptr, NE_NOERROR, routine_, fail_);
    return;
  }
  static_assert(sizeof kNoErrorFormat <= sizeof fail_->message);
  fail_->code = NE_NOERROR;
  std::memcpy(fail_->message, kNoErrorFormat, sizeof kNoErrorFormat);
}

bool Call::bad_param(const char* name) noexcept {
  report(NE_BAD_PARAM, name);
  return true;
}

bool Call::int_lt(const char* name, long v, long bound, const char* btext) noexcept {
  if (v >= bound) return false;
  report(NE_INT_ARG_LT, name, btext, name, v);
  return true;
}

bool Call::int_le(const char* name, long v, long bound, const char* btext) noexcept {
  if (v > bound) return false;
  report(NE_INT_ARG_LE, name, btext, name, v);
  return true;
}

bool Call::int_gt(const char* name, long v, long bound, const char* btext) noexcept {
  if (v <= bound) return false;
  report(NE_INT_ARG_GT, name, btext, name, v);
  return true;
}

bool Call::real_lt(const char* name, double v, double bound, const char* btext) noexcept {
  // A NaN is refused too: it is not at or above the bound.
  if (v >= bound) return false;
  report(NE_REAL_ARG_LT, name, btext, name, v);
  return true;
}

bool Call::real_le(const char* name, double v, double bound, const char* btext) noexcept {
  // A NaN is refused too: it is not above the bound.
  if (v > bound) return false;
  report(NE_REAL_ARG_LE, name, btext, name, v);
  return true;
}

bool Call::int2_lt(const char* name1, long v1, const char* name2, long v2) noexcept {
  if (v1 >= v2) return false;
  report(NE_2_INT_ARG_LT, name1, v1, name2, v2, name1, name2);
  return true;
}

bool Call::real2_eq(const char* name1, double v1, const char* name2, double v2) noexcept {
  if (v1 != v2) return false;
  report(NE_2_REAL_ARG_EQ, name1, v1, name2, v2, name1, name2);
  return true;
}

bool Call::not_in(const char* name, long v, std::initializer_list<long> allowed,
                  const char* list) noexcept {
  if (std::find(allowed.begin(), allowed.end(), v) != allowed.end()) return false;
  report(NE_ARG_INVALID, name, v, name, list);
  return true;
}

bool Call::int_cons(bool bad, const char* name, long v, const char* constraint) noexcept {
  if (!bad) return false;
  report(NE_INT, name, v, constraint);
  return true;
}


}  // namespace zem
