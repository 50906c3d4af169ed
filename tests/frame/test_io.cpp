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
#include "zem/x05.h"
#include "zem/y07.h"

namespace {

std::string slurp(const std::string& path) {
  std::ifstream in(path);
  std::stringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

std::string temp_path() {
  char path[] = "/tmp/zem_io_XXXXXX";
  int fd = mkstemp(path);
  if (fd >= 0) close(fd);
  std::remove(path);
  return path;
}

TEST(X04bay, AppendsAndClosesOnEachCall) {
  const std::string path = temp_path();
  EXPECT_EQ(x04bay(path.c_str(), "first line\n"), 0);
  EXPECT_EQ(x04bay(path.c_str(), "second line\n"), 0);
  EXPECT_EQ(slurp(path), "first line\nsecond line\n");
  std::remove(path.c_str());
}

TEST(X04bayDeath, UnopenablePathEndsTheProcess) {
  EXPECT_EXIT(x04bay("/", "x"), testing::ExitedWithCode(1), "Unable To Open Output File: /");
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
