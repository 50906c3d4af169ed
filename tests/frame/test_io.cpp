// Output to files, workspace, the banner, the test-driver helpers and the
// core layer's record writer.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

#include "frame/io.hpp"
#include "frame/workspace.hpp"
#include "zem/a00.h"
#include "zem/x04.h"
#include "file_util.hpp"
#include "zem/x05.h"
#include "zem/y07.h"

namespace {

using zem::testing::slurp;
using zem::testing::temp_path;

TEST(X04bay, AppendsAndClosesOnEachCall) {
  const std::string path = temp_path();
  EXPECT_EQ(x04bay(path.c_str(), "first line\n"), 0);
  EXPECT_EQ(x04bay(path.c_str(), "second line\n"), 0);
  EXPECT_EQ(slurp(path), "first line\nsecond line\n");
  std::remove(path.c_str());
}

TEST(X04bay, NullPathWritesStandardOutput) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(x04bay(nullptr, "to standard output\n"), 0);
  EXPECT_EQ(x04bay(nullptr, nullptr), 0);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "to standard output\n");
  EXPECT_TRUE(zem::io::console_ready());
}

TEST(X04bayDeath, UnopenablePathEndsTheProcess) {
  EXPECT_EXIT(x04bay("/", "x"), testing::ExitedWithCode(1), "Unable To Open Output File: /");
}

TEST(X04bayDeath, FailedCloseEndsTheProcess) {
  if (access("/dev/full", W_OK) != 0) GTEST_SKIP() << "no /dev/full";
  EXPECT_EXIT(x04bay("/dev/full", "x"), testing::ExitedWithCode(1),
              "Unable To Close the Output File: /dev/full");
}

// The set-up runs before the first write to standard output, both from
// x04bay and from the core's units.  Each check runs in a fresh process.
TEST(ConsoleDeath, SetUpPrecedesTheFirstWrite) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        const bool before = zem::io::console_ready();
        x04bay(nullptr, "");
        std::_Exit(!before && zem::io::console_ready() ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
  EXPECT_EXIT(
      {
        const bool before = zem::io::console_ready();
        zem::io::write_record(6, "");
        std::_Exit(!before && zem::io::console_ready() ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST(X04bax, NullIsStandardInputAndFilesOpenForReading) {
  EXPECT_EQ(x04bax(nullptr), stdin);
  const std::string path = temp_path();
  std::ofstream(path) << "data 42\n";
  std::FILE* f = x04bax(path.c_str());
  ASSERT_NE(f, nullptr);
  int v = 0;
  EXPECT_EQ(std::fscanf(f, "data %d", &v), 1);
  EXPECT_EQ(v, 42);
  EXPECT_EQ(x04bau(f), 0);
  std::remove(path.c_str());
}

TEST(X04baxDeath, MissingFileEndsTheProcess) {
  EXPECT_EXIT(x04bax("/nonexistent_zem_dir/data"), testing::ExitedWithCode(1),
              "Unable To Open Input File: /nonexistent_zem_dir/data");
}

TEST(X04bau, StandardInputStaysOpenAndFailuresAreTold) {
  testing::internal::CaptureStderr();
  EXPECT_EQ(x04bau(stdin), 1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "stdin in MS Windows environment\n");
  testing::internal::CaptureStderr();
  EXPECT_EQ(x04bau(nullptr), 1);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Unable to close file pointer\n");
  if (std::FILE* full = std::fopen("/dev/full", "w")) {
    testing::internal::CaptureStderr();  // (flushes every stream: before the write)
    std::fputs("lost", full);             // the close must flush this and fails
    EXPECT_EQ(x04bau(full), 1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Unable to close file pointer\n");
  }
}

TEST(X04bah, WritesOneRecordWithoutTrailingBlanks) {
  const std::string path = temp_path();
  std::FILE* f = std::fopen(path.c_str(), "w");
  ASSERT_NE(f, nullptr);
  int32_t status = -1;
  x04bah(f, "abc   ", 6, &status);
  EXPECT_EQ(status, 0);
  x04bah(f, "abcdef", 3, &status);       // at most length characters
  x04bah(f, "ab", 10, &status);          // and no further than the NUL
  x04bah(f, "    ", 4, &status);         // a record of blanks is empty
  x04bah(f, "ignored", 0, &status);
  x04bah(f, "100%s %d %n", 11, &status);  // the text is data, not a format
  EXPECT_EQ(status, 0);
  std::fclose(f);
  EXPECT_EQ(slurp(path), "abc\nabc\nab\n\n\n100%s %d %n\n");
  std::remove(path.c_str());
  x04bah(nullptr, "x", 1, &status);
  EXPECT_EQ(status, 1);
  if (std::FILE* full = std::fopen("/dev/full", "w")) {
    status = 0;
    x04bah(full, "no room", 7, &status);
    EXPECT_EQ(status, 1);
    std::fclose(full);
  }
}

TEST(X04aaf, AdvisoryUnitNumber) {
  int32_t nerr = -1;
  const int32_t read = 0, other = 1;
  x04aaf_f(&read, &nerr);
  EXPECT_EQ(nerr, 6);
  nerr = -1;
  x04aaf_f(&other, &nerr);
  EXPECT_EQ(nerr, -1);
}

TEST(Workspace, AllocatesFreesAndRefusesOverflow) {
  void* p = x04bbc(0);
  EXPECT_NE(p, nullptr);
  p = x04bcc(p, 1000);
  ASSERT_NE(p, nullptr);
  std::memset(p, 1, 1000);
  x04bdc(&p);
  EXPECT_EQ(p, nullptr);
  x04bdc(&p);  // harmless on a null pointer
  x04bdc(nullptr);
  EXPECT_EQ(p, nullptr);
  zem::Workspace<double> w(0);
  ASSERT_TRUE(w);
  w[0] = 1.0;
  zem::Workspace<double> huge(static_cast<std::size_t>(-1) / 4);
  EXPECT_FALSE(huge);
}

TEST(Text, LowerCase) {
  char s[] = "Zem_RowMajor ABC-123 xyz";
  x04bcz(s);
  EXPECT_STREQ(s, "zem_rowmajor abc-123 xyz");
  x04bcz(nullptr);
}

TEST(Clock, SecondsSinceTheEpoch) {
  const double t = x05aac();
  EXPECT_NEAR(t, static_cast<double>(std::time(nullptr)), 2.0);
}

TEST(Banner, BothFormsCarryTheBuildData) {
  testing::internal::CaptureStdout();
  a00aac();
  const std::string shown = testing::internal::GetCapturedStdout();
  const std::string path = temp_path();
  a00abc(path.c_str());
  const std::string written = slurp(path);
  std::remove(path.c_str());
  EXPECT_EQ(shown.rfind("*** ZEM C Library Implementation ***\n", 0), 0u);
  EXPECT_NE(shown.find("    Mark 7a\n"), std::string::npos);
  EXPECT_NE(written.find("    Mark 7\n"), std::string::npos);
  EXPECT_NE(shown.find("    Implementation code ("), std::string::npos);
  EXPECT_NE(shown.find("    Built with "), std::string::npos);
  EXPECT_NE(shown.find("      and with "), std::string::npos);
  // Apart from the release the two are the same eight lines.
  std::string a = shown, b = written;
  a.replace(a.find("Mark 7a"), 7, "Mark 7");
  EXPECT_EQ(a, b);
  EXPECT_EQ(std::count(b.begin(), b.end(), '\n'), 8);
}

TEST(TestDriverHelpers, ResultBlocksAndDataLines) {
  const std::string out = temp_path(), in = temp_path();
  {
    std::ofstream f(in);
    f << "header to skip\n   \nfirst data line\nsecond\n";
  }
  std::FILE* data = std::fopen(in.c_str(), "r");
  ASSERT_NE(data, nullptr);
  y07abc(out.c_str());
  y07adc(data);                    // skips the rest of "header to skip"
  std::fgetc(data);                // the newline itself
  y07aec(data, out.c_str());       // a blank line is passed over
  y07acc(out.c_str());
  std::fclose(data);
  EXPECT_EQ(slurp(out), ".--.\nfirst data line\n.+-.\n");
  std::remove(out.c_str());
  std::remove(in.c_str());
}

TEST(CoreOutput, RecordsLoseTrailingBlanksAndInterleaveWhole) {
  const std::string path = temp_path();
  std::vector<char> name(path.begin(), path.end());
  name.push_back('\0');
  char* saved = global_resfile;
  global_resfile = name.data();
  zem::io::write_record(6, "abc   ");
  zem::io::write_record(6, "     ");
  zem::io::write_record(6, "     ", zem::io::BlankLine::Empty);
  zem::io::write_record(-1, "not written");
  EXPECT_EQ(slurp(path), "abc\n \n\n");
  std::remove(path.c_str());
  // Threads writing at once: every line arrives whole.
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([t] {
      const std::string line(60, static_cast<char>('a' + t));
      for (int i = 0; i < 200; ++i) zem::io::write_record(6, line);
    });
  for (auto& th : threads) th.join();
  global_resfile = saved;
  std::istringstream lines(slurp(path));
  std::string line;
  int count = 0;
  while (std::getline(lines, line)) {
    ++count;
    ASSERT_EQ(line.size(), 60u);
    EXPECT_EQ(line.find_first_not_of(line[0]), std::string::npos);
  }
  EXPECT_EQ(count, 800);
  std::remove(path.c_str());
}

TEST(CoreUnits, ConnectedFileTakesRecords) {
  using zem::io::Access;
  const std::string path = temp_path(), other = temp_path(), results = temp_path();
  ASSERT_TRUE(zem::io::connect_unit(9, path.c_str(), Access::Write));
  EXPECT_FALSE(zem::io::connect_unit(9, other.c_str(), Access::Write));  // already connected
  EXPECT_TRUE(zem::io::write_record(9, "first   "));
  EXPECT_TRUE(zem::io::write_record(9, "   "));
  EXPECT_TRUE(zem::io::write_record(9, "   ", zem::io::BlankLine::Empty));
  // A record longer than 1024 characters continues on the next line.
  const std::string head(1024, 'a');
  EXPECT_TRUE(zem::io::write_record(9, head + "tail  "));
  EXPECT_TRUE(zem::io::disconnect_unit(9));
  EXPECT_FALSE(zem::io::disconnect_unit(9));
  EXPECT_EQ(slurp(path), "first\n \n\n" + head + "\ntail\n");
  // A unit that is not connected writes where unit 6 writes.
  std::vector<char> name(results.begin(), results.end());
  name.push_back('\0');
  char* saved = global_resfile;
  global_resfile = name.data();
  EXPECT_TRUE(zem::io::write_record(9, "to the results file"));
  EXPECT_TRUE(zem::io::write_record(6, "and unit 6"));
  global_resfile = saved;
  EXPECT_EQ(slurp(results), "to the results file\nand unit 6\n");
  // The unit can be connected again, here to append.
  ASSERT_TRUE(zem::io::connect_unit(9, path.c_str(), Access::Append));
  EXPECT_TRUE(zem::io::write_record(9, "more"));
  EXPECT_TRUE(zem::io::disconnect_unit(9));
  EXPECT_EQ(slurp(path), "first\n \n\n" + head + "\ntail\nmore\n");
  for (const std::string& p : {path, other, results}) std::remove(p.c_str());
}

TEST(CoreUnits, ReservedAndMissingUnits) {
  using zem::io::Access;
  const std::string path = temp_path();
  for (int unit : {-1, 0, 5, 6, 100})
    EXPECT_FALSE(zem::io::connect_unit(unit, path.c_str(), Access::Write)) << unit;
  EXPECT_FALSE(zem::io::connect_unit(12, "/nonexistent_zem_dir/x", Access::Write));
  EXPECT_FALSE(zem::io::connect_unit(12, nullptr, Access::Write));
  EXPECT_FALSE(zem::io::disconnect_unit(12));
  EXPECT_FALSE(zem::io::disconnect_unit(6));
  EXPECT_FALSE(zem::io::write_record(5, "input only"));
  EXPECT_FALSE(zem::io::write_record(100, "no such unit"));
  std::string text;
  EXPECT_FALSE(zem::io::read_record(6, text));
  EXPECT_FALSE(zem::io::read_record(13, text));   // not connected
  EXPECT_FALSE(zem::io::read_record(100, text));
  // A negative unit writes nothing, and that is no failure.
  testing::internal::CaptureStdout();
  EXPECT_TRUE(zem::io::write_record(-1, "nothing"));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  std::remove(path.c_str());
}

TEST(CoreUnits, RecordsAreReadLineByLine) {
  using zem::io::Access;
  const std::string path = temp_path();
  std::ofstream(path) << "one\n" << std::string(1500, 'y') << "\n\nlast";
  ASSERT_TRUE(zem::io::connect_unit(11, path.c_str(), Access::Read));
  EXPECT_FALSE(zem::io::write_record(11, "not for writing"));
  std::string text;
  ASSERT_TRUE(zem::io::read_record(11, text));
  EXPECT_EQ(text, "one");
  ASSERT_TRUE(zem::io::read_record(11, text));
  EXPECT_EQ(text, std::string(1024, 'y'));  // cut to the record length
  ASSERT_TRUE(zem::io::read_record(11, text));
  EXPECT_EQ(text, "");
  ASSERT_TRUE(zem::io::read_record(11, text));
  EXPECT_EQ(text, "last");
  EXPECT_FALSE(zem::io::read_record(11, text));
  EXPECT_TRUE(zem::io::disconnect_unit(11));
  std::remove(path.c_str());
}

TEST(CoreUnits, AdvisoryWriterFollowsTheAdvisoryUnit) {
  const std::string path = temp_path();
  ASSERT_TRUE(zem::io::connect_unit(9, path.c_str(), zem::io::Access::Write));
  int unit = 9;
  zem::io::advisory_unit(1, &unit);
  EXPECT_TRUE(zem::io::write_advisory(" ** advice   "));
  unit = -1;
  zem::io::advisory_unit(1, &unit);
  EXPECT_TRUE(zem::io::write_advisory("not written"));
  unit = 6;
  zem::io::advisory_unit(1, &unit);
  EXPECT_TRUE(zem::io::disconnect_unit(9));
  EXPECT_EQ(slurp(path), " ** advice\n");
  std::remove(path.c_str());
}

TEST(CoreUnits, ThreadsWriteWholeRecordsToAFile) {
  const std::string path = temp_path();
  ASSERT_TRUE(zem::io::connect_unit(10, path.c_str(), zem::io::Access::Write));
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([t] {
      const std::string line(300, static_cast<char>('a' + t));
      for (int i = 0; i < 250; ++i) zem::io::write_record(10, line);
    });
  for (auto& th : threads) th.join();
  EXPECT_TRUE(zem::io::disconnect_unit(10));
  std::istringstream lines(slurp(path));
  std::string line;
  int count[4] = {};
  while (std::getline(lines, line)) {
    ASSERT_EQ(line.size(), 300u);
    ASSERT_EQ(line.find_first_not_of(line[0]), std::string::npos);
    ++count[line[0] - 'a'];
  }
  for (int c : count) EXPECT_EQ(c, 250);
  std::remove(path.c_str());
}

TEST(CoreOutput, AdvisoryUnitIsReadAndSet) {
  int unit = -99;
  zem::io::advisory_unit(0, &unit);
  EXPECT_EQ(unit, 6);
  int other = 9;
  zem::io::advisory_unit(1, &other);
  zem::io::advisory_unit(0, &unit);
  EXPECT_EQ(unit, 9);
  int six = 6;
  zem::io::advisory_unit(1, &six);
  zem::io::advisory_unit(7, &other);  // any other action leaves it alone
  zem::io::advisory_unit(0, &unit);
  EXPECT_EQ(unit, 6);
}

TEST(CoreOutputDeath, ReentryByTheHolderEndsTheProcess) {
  EXPECT_EXIT(
      {
        zem::io::IoLock outer;
        zem::io::IoLock inner;
      },
      testing::ExitedWithCode(1), "Recursive I/O reference\nProgram terminated by fatal error");
}

}  // namespace
