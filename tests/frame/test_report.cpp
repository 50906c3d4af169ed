// The reporting road: p01acc's heading rule, handler order and abort, the
// catalogue and enumerator tables with their lookups, y99abc/y99aac, the
// argument-check vocabulary, the core failure record and the advisory exits.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <unistd.h>

#include "frame/catalogue.hpp"
#include "frame/core_record.hpp"
#include "frame/report.hpp"
#include "zem/p01.h"
#include "zem/x04.h"
#include "zem/y99.h"
#include "file_util.hpp"

namespace {

using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

using zem::testing::slurp;

// Points global_resfile at a fresh temporary file for the life of the object.
class ResultsFile {
 public:
  ResultsFile() {
    std::snprintf(path_, sizeof path_, "%s", "/tmp/zem_test_XXXXXX");
    int fd = mkstemp(path_);
    if (fd >= 0) close(fd);
    saved_ = global_resfile;
    global_resfile = path_;
  }
  ~ResultsFile() {
    global_resfile = saved_;
    std::remove(path_);
  }
  std::string text() const { return slurp(path_); }

 private:
  char path_[64];
  char* saved_;
};

struct Seen {
  int calls = 0;
  int code = -1;
  std::string message, routine, record_message;
};
thread_local Seen seen;
ZemError* watched = nullptr;

void remember(const char* message, int32_t code, const char* routine) {
  ++seen.calls;
  seen.code = code;
  seen.message = message;
  seen.routine = routine;
  if (watched) seen.record_message = watched->message;
}

ZemError record(int print = 0, ZemErrorHandler h = nullptr) {
  ZemError e{};
  e.print = print;
  e.handler = h;
  return e;
}

TEST(P01acc, SuccessWithoutRecordDoesNothing) {
  CaptureStderr();
  p01acc(nullptr, 0, "x", nullptr);
  EXPECT_EQ(GetCapturedStderr(), "");
}

TEST(P01acc, HeadingFollowsTheText) {
  ZemError e = record(1);
  struct Case {
    const char* text;
    bool error;
  } cases[] = {
      {"NE_INT:\n  x", true},      {"NW_INT:\n  x", false},     {"abNExyz", true},
      {"abNWxyz", false},          {"abcdeEx", true},           {"abcdeWx", false},
      {"    u(1,1) is zero.", false}, {"N", false},             {"", false},
  };
  for (const Case& c : cases) {
    CaptureStderr();
    p01acc(c.text, 5, "r01abc", &e);
    std::string out = GetCapturedStderr();
    std::string want = std::string(c.error ? "Error detected by ZEM routine r01abc:\n"
                                           : "Warning from ZEM routine r01abc:\n") +
                       c.text + "\n";
    EXPECT_EQ(out, want) << "text: " << c.text;
  }
}

TEST(P01acc, AnyNonzeroPrintFlagPrintsAndZeroIsQuiet) {
  ZemError loud = record(7), quiet = record(0);
  CaptureStderr();
  p01acc(nullptr, NE_ALLOC_FAIL, "c05nbc", &loud);
  EXPECT_NE(GetCapturedStderr().find("Error detected by ZEM routine c05nbc"), std::string::npos);
  CaptureStderr();
  p01acc(nullptr, NE_ALLOC_FAIL, "c05nbc", &quiet);
  EXPECT_EQ(GetCapturedStderr(), "");
  EXPECT_EQ(quiet.code, NE_ALLOC_FAIL);
  EXPECT_STREQ(quiet.message, zem::catalogue_format(NE_ALLOC_FAIL));
}

TEST(P01acc, HandlerSeesNewCodeAndPreviousMessage) {
  ZemError e = record(0, remember);
  watched = &e;
  seen = {};
  p01acc("NE_FIRST:\n  one", 3, "a", &e);
  EXPECT_EQ(seen.calls, 1);
  p01acc("NE_SECOND:\n  two", 4, "b", &e);
  EXPECT_EQ(seen.calls, 2);
  EXPECT_EQ(seen.code, 4);
  EXPECT_EQ(seen.routine, "b");
  EXPECT_EQ(seen.message, "NE_SECOND:\n  two");
  EXPECT_EQ(seen.record_message, "NE_FIRST:\n  one");
  EXPECT_STREQ(e.message, "NE_SECOND:\n  two");
  // A success report still calls the handler, with code 0.
  p01acc(nullptr, 0, "c", &e);
  EXPECT_EQ(seen.calls, 3);
  EXPECT_EQ(seen.code, 0);
  EXPECT_STREQ(e.message, "NE_NOERROR:\n  No error.");
  watched = nullptr;
}

TEST(P01accDeath, NullRecordAbortsOnErrorAndOnWarning) {
  EXPECT_DEATH(p01acc(nullptr, NE_ALLOC_FAIL, "c05adc", nullptr),
               "Error detected by ZEM routine c05adc:(.|\n)*\\.\\.\\.Program Aborted");
  const int warning = x04mbc("NW_INT");
  EXPECT_DEATH(p01acc(nullptr, warning, "c05adc", nullptr),
               "Warning from ZEM routine c05adc:(.|\n)*\\.\\.\\.Program Aborted");
}

TEST(Catalogue, RowsAreWellFormed) {
  int errors = 0, warnings = 0;
  std::set<std::string> names;
  for (int code = 0; code < zem::kCatalogueRows; ++code) {
    const char* name = zem::catalogue_name(code);
    const char* fmt = zem::catalogue_format(code);
    if (code == 716) {
      EXPECT_EQ(name, nullptr);
      continue;
    }
    ASSERT_NE(name, nullptr) << code;
    ASSERT_NE(fmt, nullptr) << code;
    EXPECT_TRUE(names.insert(name).second) << "duplicate " << name;
    std::string head = std::string(name) + ":\n  ";
    EXPECT_EQ(std::string(fmt).substr(0, head.size()), head) << name;
    EXPECT_LT(std::strlen(fmt), 440u) << name;
    if (std::strncmp(name, "NE_", 3) == 0) ++errors;
    else if (std::strncmp(name, "NW_", 3) == 0) ++warnings;
    // Later lines of a row begin with two blanks.
    for (const char* p = std::strchr(fmt, '\n'); p; p = std::strchr(p + 1, '\n'))
      EXPECT_EQ(std::strncmp(p + 1, "  ", 2), 0) << name;
    // Every conversion is one the reporting routines fill.
    for (const char* p = std::strchr(fmt, '%'); p; p = std::strchr(p + 2, '%')) {
      if (p[1] == '%') continue;
      std::string conversion;
      const char* q = p + 1;
      while (*q && std::strchr("0123456789.-+ ", *q)) ++q;
      while (*q == 'l') ++q;
      conversion.assign(p, q + 1);
      EXPECT_TRUE(std::strchr("sgeld", *q) != nullptr) << name << " has " << conversion;
    }
  }
  EXPECT_EQ(errors, 687);  // 725 assigned rows: 687 errors and 38 warnings
  EXPECT_EQ(warnings, 38);
  EXPECT_EQ(zem::catalogue_format(-1), nullptr);
  EXPECT_EQ(zem::catalogue_format(726), nullptr);
}

TEST(Lookups, NamesAndNumbers) {
  EXPECT_EQ(x04mbc("NE_NOERROR"), 0);
  EXPECT_EQ(x04mbc("NE_TOO_CLOSE_INTEGER"), 725);
  EXPECT_EQ(x04mbc("NE_S21_CONV"), 715);
  EXPECT_EQ(x04mbc("NE_INT_ARRAY"), 717);
  EXPECT_EQ(x04mbc("NE_SINGULAR"), NE_SINGULAR);
  EXPECT_EQ(x04mbc("ne_noerror"), -5438);
  EXPECT_EQ(x04mbc("NE_NOERROr"), -5438);
  EXPECT_EQ(x04mbc(nullptr), -5438);
  EXPECT_EQ(x04mac("Zem_RowMajor"), 101);
  EXPECT_EQ(x04mac("NoTranspose"), 1001);
  EXPECT_EQ(x04mac("Zem_QuasiRandom_Nied"), 1626);
  EXPECT_EQ(x04mac("zem_rowmajor"), -5438);
  char out[64];
  EXPECT_STREQ(x04mcc(0, out), "unknown_enum_value");
  EXPECT_STREQ(x04mcc(1026, out), "HermitianLower");
  // Every enumerator maps both ways, which also proves the values distinct.
  struct Named {
    const char* name;
    int value;
  };
#define ENUM_ROW(name, value) {#name, static_cast<int>(name) == (value) ? (value) : -1},
  static const Named all[] = {ZEM_ENUMERATORS(ENUM_ROW)};
#undef ENUM_ROW
  for (const Named& n : all) {
    ASSERT_GT(n.value, 0) << n.name << " has a value other than its table's";
    EXPECT_EQ(x04mac(n.name), n.value) << n.name;
    EXPECT_STREQ(x04mcc(n.value, out), n.name);
  }
  EXPECT_EQ(sizeof all / sizeof all[0], 665u);
}

TEST(Y99, RowNameOfAMessage) {
  ZemError e = record();
  EXPECT_STREQ(y99abc(5, "NE_SINGULAR:\n  u(1,1) is exactly zero.", &e), "NE_SINGULAR");
  EXPECT_EQ(y99abc(1, "NE_X:\n  y", &e), nullptr);
  EXPECT_EQ(e.code, NE_CODE_NOT_SET);
  char* name = y99abc(7, "no colon here", &e);
  EXPECT_EQ(e.code, NE_ERR_MSG_STRING);
  EXPECT_EQ(std::string(name).rfind("NE_ERR_MSG_STRING:\n  ", 0), 0u);
  EXPECT_NE(std::string(name).find("no colon here"), std::string::npos);
}

TEST(Y99, HandlerWritesNonzeroReportsToTheResultsFile) {
  ResultsFile out;
  y99aac("NE_NOERROR:\n  No error.", 0, "c05adc");
  EXPECT_EQ(out.text(), "");
  y99aac("NE_INT:\n  bad", 90, "c05adc");
  EXPECT_EQ(out.text(), "\nError from c05adc.\nNE_INT:\n  bad\n\n");
}

TEST(Call, ChecksReportTheFirstBadArgumentWithItsRow) {
  ZemError e = record();
  zem::Call call("c05adc", &e);
  EXPECT_FALSE(call.real_le("xtol", 1e-8, 0.0, "0.0"));
  EXPECT_FALSE(call.failed());
  EXPECT_TRUE(call.real_le("xtol", -1.0, 0.0, "0.0"));
  EXPECT_EQ(e.code, NE_REAL_ARG_LE);
  EXPECT_NE(std::string(e.message).find("xtol"), std::string::npos);
  EXPECT_NE(std::string(e.message).find("-1"), std::string::npos);
  EXPECT_TRUE(call.failed());

  zem::Call c2("x", &e);
  EXPECT_EQ(e.code, 0);  // a new call clears the record
  EXPECT_TRUE(c2.real_le("xtol", std::nan(""), 0.0, "0.0"));  // NaN is refused
  EXPECT_TRUE(c2.int_le("n", 0, 0, "0"));
  EXPECT_EQ(e.code, NE_INT_ARG_LE);
  EXPECT_TRUE(c2.int_lt("n", -3, 1, "1"));
  EXPECT_EQ(e.code, NE_INT_ARG_LT);
  EXPECT_NE(std::string(e.message).find("-3"), std::string::npos);
  EXPECT_TRUE(c2.int2_lt("tdfjac", 2, "n", 3));
  EXPECT_EQ(e.code, NE_2_INT_ARG_LT);
  EXPECT_TRUE(c2.real2_eq("a", 1.5, "b", 1.5));
  EXPECT_EQ(e.code, NE_2_REAL_ARG_EQ);
  EXPECT_TRUE(c2.not_in("ir", 3, {0, 1, 2}, "0, 1, 2"));
  EXPECT_EQ(e.code, NE_ARG_INVALID);
  EXPECT_NE(std::string(e.message).find("0, 1, 2"), std::string::npos);
  EXPECT_TRUE(c2.null("fvec", nullptr));
  EXPECT_EQ(e.code, NE_BAD_PARAM);
  EXPECT_NE(std::string(e.message).find("fvec"), std::string::npos);
  EXPECT_TRUE(c2.enum_in("order", 7, {Zem_RowMajor, Zem_ColMajor}));
  EXPECT_NE(std::string(e.message).find("order"), std::string::npos);
  EXPECT_TRUE(c2.int_cons(true, "m", -1, "m >= 0"));
  EXPECT_EQ(e.code, NE_INT);
  EXPECT_NE(std::string(e.message).find("m >= 0"), std::string::npos);
}

TEST(Call, SuccessOnlyWhenTheRecordIsClean) {
  ZemError e = record(0, remember);
  seen = {};
  {
    zem::Call call("r", &e);
    call.success();
  }
  EXPECT_EQ(seen.calls, 1);
  EXPECT_STREQ(e.message, "NE_NOERROR:\n  No error.");
  {
    zem::Call call("r", &e);
    call.report_null(NE_ALLOC_FAIL);
    call.success();
  }
  EXPECT_EQ(seen.calls, 2);
  EXPECT_EQ(e.code, NE_ALLOC_FAIL);
}

TEST(CoreRecord, EditDescriptors) {
  char e[13], i[17];
  zem::core::edit_e12_4(e, 123.456);
  EXPECT_STREQ(e, "  1.2346E+02");
  zem::core::edit_e12_4(e, -0.5);
  EXPECT_STREQ(e, " -5.0000E-01");
  zem::core::edit_e12_4(e, 0.0);
  EXPECT_STREQ(e, "  0.0000E+00");
  zem::core::edit_e12_4(e, 1e-300);
  EXPECT_STREQ(e, "  1.0000-300");
  zem::core::edit_e12_4(e, -2.5e200);
  EXPECT_STREQ(e, " -2.5000+200");
  zem::core::edit_i16(i, -42);
  EXPECT_STREQ(i, "             -42");
}

const zem::core::Message kTable[] = {
    {99999, NE_INT, 1, "NE_INT:\n    On entry, ndim = %s.\nConstraint: ndim >= 1."},
    {99998, NE_INT_2, 2, "NE_INT_2:\n    On entry, l = %s and n = %s.\nConstraint: l <= n."},
    {99997, NE_BAD_PARAM, 1, "NE_BAD_PARAM:\n    On entry, direct = %s."},
};

TEST(CoreRecord, WrapperTurnsTheRecordIntoItsRow) {
  char rec[zem::core::kRecordLen];
  ZemError e = record();
  zem::core::record_failure(rec, "C06PFF", 1, 99999, {zem::core::int_field(0)});
  EXPECT_EQ(std::string(rec).substr(0, 41), "C06PFF     1 99999     1                0");
  {
    zem::Call call("c06pfc", &e);
    zem::core::report_failure(call, 1, rec, kTable);
  }
  EXPECT_EQ(e.code, NE_INT);
  EXPECT_EQ(e.errnum, 1);
  EXPECT_STREQ(e.message, "NE_INT:\n    On entry, ndim = 0.\nConstraint: ndim >= 1.");

  zem::core::record_failure(rec, "C06PFF", 2, 99998, {zem::core::int_field(7), zem::core::int_field(3)});
  {
    zem::Call call("c06pfc", &e);
    zem::core::report_failure(call, 2, rec, kTable);
  }
  EXPECT_STREQ(e.message, "NE_INT_2:\n    On entry, l = 7 and n = 3.\nConstraint: l <= n.");
  EXPECT_EQ(e.errnum, 2);

  zem::core::record_failure(rec, "C06PFF", 3, 99997, {zem::core::letter_field('X')});
  {
    zem::Call call("c06pfc", &e);
    zem::core::report_failure(call, 3, rec, kTable);
  }
  EXPECT_STREQ(e.message, "NE_BAD_PARAM:\n    On entry, direct = X.");
}

TEST(CoreRecord, UnreadableOrUnknownRecordsAreInternalErrors) {
  char rec[zem::core::kRecordLen];
  ZemError e = record();
  zem::core::record_none(rec);
  {
    zem::Call call("c06pfc", &e);
    zem::core::report_failure(call, 1, rec, kTable);
  }
  EXPECT_EQ(e.code, NE_INTERNAL_ERROR);
  EXPECT_EQ(e.errnum, 1);
  EXPECT_STREQ(e.message, zem::catalogue_format(NE_INTERNAL_ERROR));

  zem::core::record_failure(rec, "C06PFF", 4, 99992, {});
  {
    zem::Call call("c06pfc", &e);
    zem::core::report_failure(call, 4, rec, kTable);
  }
  EXPECT_EQ(e.code, NE_INTERNAL_ERROR);
  // A known number whose record carries fewer values than its format needs.
  zem::core::record_failure(rec, "C06PFF", 2, 99998, {zem::core::int_field(7)});
  {
    zem::Call call("c06pfc", &e);
    zem::core::report_failure(call, 2, rec, kTable);
  }
  EXPECT_EQ(e.code, NE_INTERNAL_ERROR);
}

// p01abf_f's modes: what is written for each ifail, and the return value.
std::string exit_output(int ifail, int ierror, int nrec = 1) {
  ResultsFile out;
  const int32_t f = ifail, ie = ierror, nr = nrec;
  int32_t got = p01abf_f(&f, &ie, "C05ADF", &nr, " ** On entry, N .lt. 1: N =               0.   ", 6, 80);
  EXPECT_EQ(got, ierror);
  return out.text();
}

TEST(P01abf, ModesOfTheAdvisoryExit) {
  const std::string rec = " ** On entry, N .lt. 1: N =               0.\n";
  const std::string abnormal = " ** ABNORMAL EXIT from ZEM Library routine C05ADF: IFAIL =     2 **\n";
  const std::string soft = " ** ZEM soft failure - control returned\n";
  const std::string hard = " ** ZEM hard failure - execution terminated\n";
  EXPECT_EQ(exit_output(1, 2), "");
  EXPECT_EQ(exit_output(-5, 2), "");
  EXPECT_EQ(exit_output(0, 0), "");
  EXPECT_EQ(exit_output(0, 2), rec + abnormal + hard);  // returns nonetheless
  EXPECT_EQ(exit_output(10, 2), rec + abnormal + hard);
  EXPECT_EQ(exit_output(-1, 2), rec + abnormal + soft);
  EXPECT_EQ(exit_output(11, 2), rec + abnormal + soft);
  EXPECT_EQ(exit_output(21, 2), rec + abnormal + soft);
  EXPECT_EQ(exit_output(-13, 2), rec);
  EXPECT_EQ(exit_output(11, 2, 0), abnormal + soft);
}

TEST(P01abfDeath, CoreTwinStopsOnAHardFailure) {
  const char* rec[] = {" ** failure   "};
  EXPECT_EXIT(zem::core::advisory_exit(0, 3, "C02AKF", 1, rec, zem::core::ExitKind::Core),
              testing::ExitedWithCode(1), "");
  // A soft mode returns.
  EXPECT_EQ(zem::core::advisory_exit(1, 3, "C02AKF", 1, rec, zem::core::ExitKind::Core), 3);
}

}  // namespace
