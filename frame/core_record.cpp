#include "frame/core_record.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstdio>
#include <cstring>

namespace zem::core {

void record_none(char rec[kRecordLen]) noexcept {
  std::memset(rec, ' ', kRecordLen);
  std::memcpy(rec, "NONE", 4);
  rec[kRecordLen - 1] = '\0';
}

void edit_i16(char out[17], long v) noexcept {
  char tmp[32];
  int n = std::snprintf(tmp, sizeof tmp, "%16ld", v);
  if (n > 16) std::memset(tmp, '*', 16);  // the field overflows as in Fortran
  std::memcpy(out, tmp, 16);
  out[16] = '\0';
}

void edit_e12_4(char out[13], double v) noexcept {
  char tmp[96];
  if (std::isnan(v) || std::isinf(v)) {
    std::snprintf(tmp, sizeof tmp, "%12s", std::isnan(v) ? "NaN" : (v > 0 ? "Infinity" : "-Infinity"));
  } else {
    // 1P,E12.4: one digit before the point, four after, exponent of two
    // digits with its sign, or three digits without the letter E.
    char m[40];
    std::snprintf(m, sizeof m, "%.4E", v);
    char* e = std::strchr(m, 'E');
    int exp = std::atoi(e + 1);
    *e = '\0';
    char ex[16];
    if (std::abs(exp) < 100) std::snprintf(ex, sizeof ex, "E%c%02d", exp < 0 ? '-' : '+', std::abs(exp));
    else std::snprintf(ex, sizeof ex, "%c%03d", exp < 0 ? '-' : '+', std::abs(exp));
    char both[80];
    std::snprintf(both, sizeof both, "%s%s", m, ex);
    std::snprintf(tmp, sizeof tmp, "%12s", both);
  }
  std::memcpy(out, tmp, 12);
  out[12] = '\0';
}

void record_failure(char rec[kRecordLen], const char* name, int ifail, int msgno,
                    std::initializer_list<Field> values) noexcept {
  char buf[kRecordLen + 64];
  int pos = std::snprintf(buf, sizeof buf, "%-6.6s %5d %5d %5d", name, ifail, msgno,
                          static_cast<int>(values.size()));
  for (const Field& f : values) {
    char v[20];
    switch (f.kind) {
      case Field::Kind::Int: edit_i16(v, f.i); break;
      case Field::Kind::Letter: v[0] = f.c; v[1] = '\0'; break;
      case Field::Kind::Real: edit_e12_4(v, f.r); break;
    }
    pos += std::snprintf(buf + pos, sizeof buf - pos, " %s", v);
    if (pos >= kRecordLen) break;
  }
  std::memset(rec, ' ', kRecordLen);
  std::memcpy(rec, buf, std::min<std::size_t>(std::strlen(buf), kRecordLen - 1));
  rec[kRecordLen - 1] = '\0';
}

const Message* read_failure(Call& call, int ifail, const char rec[kRecordLen],
                            std::span<const Message> table, char values[4][20]) noexcept {
  call.set_errnum(ifail);
  char text[kRecordLen + 1];
  std::memcpy(text, rec, kRecordLen);
  text[kRecordLen] = '\0';
  char name[7];
  int f1 = 0, msgno = 0, nv = 0;
  if (std::sscanf(text, "%6s %d %d", name, &f1, &msgno) < 3) {
    call.report_null(NE_INTERNAL_ERROR);
    return nullptr;
  }
  const Message* m = nullptr;
  for (const Message& row : table)
    if (row.msgno == msgno) m = &row;
  if (!m) {
    call.report(NE_INTERNAL_ERROR);
    return nullptr;
  }
  char(*v)[20] = values;
  for (int i = 0; i < 4; ++i) v[i][0] = '\0';
  int got = 3;
  switch (std::min(m->nvalues, 4)) {
    case 0: break;
    case 1: got = std::sscanf(text, "%6s %d %d %d %19s", name, &f1, &msgno, &nv, v[0]); break;
    case 2: got = std::sscanf(text, "%6s %d %d %d %19s %19s", name, &f1, &msgno, &nv, v[0], v[1]); break;
    case 3:
      got = std::sscanf(text, "%6s %d %d %d %19s %19s %19s", name, &f1, &msgno, &nv, v[0], v[1], v[2]);
      break;
    default:
      got = std::sscanf(text, "%6s %d %d %d %19s %19s %19s %19s", name, &f1, &msgno, &nv, v[0], v[1],
                        v[2], v[3]);
      break;
  }
  const int want = m->nvalues == 0 ? 3 : 4 + std::min(m->nvalues, 4);
  if (got < want) {
    call.report_null(NE_INTERNAL_ERROR);
    return nullptr;
  }
  return m;
}

void report_failure(Call& call, int ifail, const char rec[kRecordLen],
                    std::span<const Message> table) noexcept {
  char v[4][20];
  const Message* m = read_failure(call, ifail, rec, table, v);
  if (!m) return;
  if (m->format) call.report_own(m->code, m->format, v[0], v[1], v[2], v[3]);
  else call.report_null(m->code);
  call.set_errnum(ifail);
}

}  // namespace zem::core
