// The matrix printers: layouts against checked-in expected text, the
// storage schemes against BLAS (which reads band, packed and triangular
// storage by the same conventions), and every refusal.
#include <gtest/gtest.h>

#include <cblas.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <random>
#include <sstream>
#include <string>
#include <type_traits>
#include <unistd.h>
#include <vector>

#include "frame/printer.hpp"
#include "zem/x04.h"
#include "file_util.hpp"

namespace {

using zem::testing::slurp;
using zem::testing::temp_path;

// What the printing calls in `body` append to a fresh file.
std::string printed(const std::function<void(const char*)>& body) {
  const std::string path = temp_path();
  body(path.c_str());
  std::string text = slurp(path);
  std::remove(path.c_str());
  return text;
}

// Compares with tests/frame/golden/<name>; on a difference the output is
// also left in the working directory for inspection.
void expect_golden(const std::string& name, const std::string& actual) {
  const std::string want = slurp(std::string(ZEM_TEST_DATA) + "/../frame/golden/" + name);
  if (actual != want) std::ofstream("actual_" + name) << actual;
  EXPECT_EQ(actual, want) << "output differs from golden/" << name << " (see actual_" << name
                          << ")";
}

ZemError record() {
  ZemError e{};
  e.code = -1;
  return e;
}

#define EXPECT_OK(fail) EXPECT_EQ((fail).code, 0) << (fail).message

// ---------------------------------------------------------------- layouts

// 3 x 4, row-major, and the same matrix column-major.
const double kRow34[] = {1.1, -1.2, 1.3, 1.4, 2.1, 2.2, -2.3, 2.4, 3.1, 3.2, 3.3, -3.4};
const double kCol34[] = {1.1, 2.1, 3.1, -1.2, 2.2, 3.2, 1.3, -2.3, 3.3, 1.4, 2.4, -3.4};
// The same in a row-major array of stride 5 whose last column (99) is not
// part of the matrix.
const double kPadded[] = {1.1, -1.2, 1.3, 1.4, 99, 2.1, 2.2, -2.3, 2.4, 99, 3.1, 3.2, 3.3, -3.4, 99};
// 4 x 4, row-major, with a diagonal that differs from 1.
const double kSquare[] = {11, 12, 13, 14, 21, 22, 23, 24, 31, 32, 33, 34, 41, 42, 43, 44};
const char* const kRowNames[] = {"first", "second", "third", "fourth"};
const char* const kColNames[] = {"A", "Beta", "a very long column label", "D"};

TEST(PrinterGolden, RealFullStorage) {
  const std::string text = printed([](const char* out) {
    ZemError f = record();
    x04cac(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 3, 4, kRow34, 4,
           "General, row-major, easy form", out, &f);
    EXPECT_OK(f);
    x04cbc(Zem_ColMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 3, 4, kCol34, 3, nullptr,
           "Column-major, character labels, indent 2", Zem_CharacterLabels, kRowNames,
           Zem_CharacterLabels, kColNames, 80, 2, out, &f);
    EXPECT_OK(f);
    x04cbc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 3, 4, kPadded, 5, "%6.2f ",
           "No labels, format %6.2f, pda 5 reads a 3 x 4 window", Zem_NoLabels, nullptr,
           Zem_NoLabels, nullptr, 80, 0, out, &f);
    EXPECT_OK(f);
    x04cbc(Zem_RowMajor, Zem_UpperMatrix, Zem_NonUnitDiag, 4, 4, kSquare, 4, nullptr,
           "Upper, non-unit diagonal", Zem_IntegerLabels, nullptr, Zem_IntegerLabels, nullptr,
           80, 0, out, &f);
    EXPECT_OK(f);
    x04cbc(Zem_RowMajor, Zem_UpperMatrix, Zem_UnitDiag, 4, 4, kSquare, 4, nullptr,
           "Upper, unit diagonal", Zem_IntegerLabels, nullptr, Zem_CharacterLabels, kColNames,
           80, 0, out, &f);
    EXPECT_OK(f);
    x04cbc(Zem_RowMajor, Zem_LowerMatrix, Zem_NonRefDiag, 4, 4, kSquare, 4, nullptr,
           "Lower, diagonal not referenced", Zem_CharacterLabels, kRowNames, Zem_IntegerLabels,
           nullptr, 80, 0, out, &f);
    EXPECT_OK(f);
    x04cbc(Zem_ColMajor, Zem_LowerMatrix, Zem_UnitDiag, 4, 3, kSquare, 4, nullptr,
           "Lower trapezoid 4 x 3, unit diagonal, column-major", Zem_IntegerLabels, nullptr,
           Zem_IntegerLabels, nullptr, 80, 0, out, &f);
    EXPECT_OK(f);
    x04cac(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 0, 4, nullptr, 4,
           "m = 0: the title alone", out, &f);
    EXPECT_OK(f);
    x04cac(Zem_ColMajor, Zem_UpperMatrix, Zem_UnitDiag, 3, 0, nullptr, 3,
           "n = 0: the title alone", out, &f);
    EXPECT_OK(f);
  });
  expect_golden("real_full.txt", text);
}

TEST(PrinterGolden, AutomaticAndGivenFormats) {
  const double zeros[4] = {0, 0, 0, -0.0};
  const double small[4] = {0.5, -0.001, 0.25, 0.999};
  const double middle[4] = {1, -9999.9999, 0.001, 42.5};
  const double large[4] = {1, 10000, -0.5, 2};
  const double tiny[4] = {0.5, 0.0009, 0, 0.25};
  const double awkward[4] = {1.0 / 3.0, -2.0 / 3.0, 1e300, -1e-300};
  const double special[4] = {INFINITY, -1, 0.5, 2};
  const std::string text = printed([&](const char* out) {
    ZemError f = record();
    const auto show = [&](const double* a, const char* fmt, const char* title) {
      x04cbc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 2, 2, a, 2, fmt, title,
             Zem_IntegerLabels, nullptr, Zem_IntegerLabels, nullptr, 80, 0, out, &f);
      EXPECT_OK(f);
    };
    show(zeros, nullptr, "All zero: %8.4f");
    show(small, "", "Below 1, nonzero at least 0.001: %8.4f");
    show(middle, nullptr, "From 1 up to 9999.99991: %11.4f");
    show(large, nullptr, "10000: %13.4e");
    show(tiny, nullptr, "A nonzero below 0.001: %13.4e");
    show(special, nullptr, "An infinity: %13.4e");
    show(awkward, "*", "Full precision");
    show(awkward, "%+.3e ", "Format %+.3e");
    show(small, "[%5.1f] ", "Format with text around the value");
    // Only the printed elements decide: the strict lower triangle (large
    // values) is not printed, the unit diagonal is printed as 1.
    const double tri[4] = {123.0, 0.5, 1e6, -1e7};
    x04cbc(Zem_RowMajor, Zem_UpperMatrix, Zem_UnitDiag, 2, 2, tri, 2, nullptr,
           "Upper, unit diagonal: the values 1 and 0.5 give %11.4f", Zem_IntegerLabels, nullptr,
           Zem_IntegerLabels, nullptr, 80, 0, out, &f);
    EXPECT_OK(f);
    x04cbc(Zem_RowMajor, Zem_UpperMatrix, Zem_NonRefDiag, 2, 2, tri, 2, nullptr,
           "Upper, no diagonal: 0.5 alone gives %8.4f", Zem_IntegerLabels, nullptr,
           Zem_IntegerLabels, nullptr, 80, 0, out, &f);
    EXPECT_OK(f);
  });
  expect_golden("real_formats.txt", text);
}

TEST(PrinterGolden, ColumnBlocks) {
  std::vector<double> a(3 * 11);
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 11; ++j) a[i * 11 + j] = (i + 1) * 100 + j + 0.5;
  const char* const rows[] = {"x", "a long row label", "yy"};
  const std::string text = printed([&](const char* out) {
    ZemError f = record();
    x04cbc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 3, 11, a.data(), 11, nullptr,
           "Width 50, indent 3: three columns a block", Zem_IntegerLabels, nullptr,
           Zem_IntegerLabels, nullptr, 50, 3, out, &f);
    EXPECT_OK(f);
    x04cbc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 3, 11, a.data(), 11, "%7.1f",
           "Long row labels leave room for fewer columns", Zem_CharacterLabels, rows,
           Zem_IntegerLabels, nullptr, 60, 0, out, &f);
    EXPECT_OK(f);
    x04cbc(Zem_RowMajor, Zem_LowerMatrix, Zem_NonUnitDiag, 3, 11, a.data(), 11, "*",
           "Full precision, lower: later blocks hold blank rows", Zem_IntegerLabels, nullptr,
           Zem_NoLabels, nullptr, 80, 0, out, &f);
    EXPECT_OK(f);
  });
  expect_golden("real_blocks.txt", text);
}

// Packed 4 x 4 triangles: the stored elements are numbered 1, 2, ... in
// storage order, so the picture shows the storage scheme.
TEST(PrinterGolden, RealPackedStorage) {
  double ap[10];
  for (int k = 0; k < 10; ++k) ap[k] = k + 1;
  const std::string text = printed([&](const char* out) {
    ZemError f = record();
    x04ccc(Zem_ColMajor, Zem_UpperMatrix, Zem_NonUnitDiag, 4, ap,
           "Upper, column-major packed (by columns)", out, &f);
    EXPECT_OK(f);
    x04ccc(Zem_RowMajor, Zem_UpperMatrix, Zem_NonUnitDiag, 4, ap,
           "Upper, row-major packed (by rows)", out, &f);
    EXPECT_OK(f);
    x04ccc(Zem_ColMajor, Zem_LowerMatrix, Zem_NonUnitDiag, 4, ap,
           "Lower, column-major packed (by columns)", out, &f);
    EXPECT_OK(f);
    x04ccc(Zem_RowMajor, Zem_LowerMatrix, Zem_NonUnitDiag, 4, ap,
           "Lower, row-major packed (by rows)", out, &f);
    EXPECT_OK(f);
    x04cdc(Zem_ColMajor, Zem_UpperMatrix, Zem_UnitDiag, 4, ap, "%5.1f ",
           "Upper, unit diagonal, format %5.1f, labels cut to 5", Zem_CharacterLabels, kRowNames,
           Zem_CharacterLabels, kColNames, 80, 0, out, &f);
    EXPECT_OK(f);
    x04cdc(Zem_RowMajor, Zem_LowerMatrix, Zem_NonRefDiag, 4, ap, nullptr,
           "Lower, diagonal not referenced, no labels", Zem_NoLabels, nullptr, Zem_NoLabels,
           nullptr, 80, 0, out, &f);
    EXPECT_OK(f);
  });
  expect_golden("real_packed.txt", text);
}

// Band storage with the stored positions numbered in storage order; the
// corners of the array that hold no element are -99 and must not appear.
TEST(PrinterGolden, RealBandStorage) {
  const std::string text = printed([&](const char* out) {
    ZemError f = record();
    {  // 5 x 6, kl = 2, ku = 1, column-major, pdab = 4
      std::vector<double> ab(4 * 6, -99);
      for (int j = 0; j < 6; ++j)
        for (int i = std::max(0, j - 1); i <= std::min(4, j + 2); ++i) ab[1 + i - j + j * 4] = 10 * (i + 1) + j + 1;
      x04cec(Zem_ColMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 5, 6, 2, 1, ab.data(), 4,
             "5 x 6, kl 2, ku 1, column-major: element (i,j) shows ij", out, &f);
      EXPECT_OK(f);
    }
    {  // the same matrix row-major, pdab = 5 (one spare column)
      std::vector<double> ab(5 * 5, -99);
      for (int i = 0; i < 5; ++i)
        for (int j = std::max(0, i - 2); j <= std::min(5, i + 1); ++j) ab[2 + j - i + i * 5] = 10 * (i + 1) + j + 1;
      x04cfc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 5, 6, 2, 1, ab.data(), 5,
             "%6.1f", "The same, row-major with pdab 5", Zem_IntegerLabels, nullptr,
             Zem_IntegerLabels, nullptr, 80, 0, out, &f);
      EXPECT_OK(f);
    }
    {  // 4 x 4 lower triangular band, kl = 1, ku = 0, unit diagonal
      const double ab[] = {-99, 21, -99, 32, -99, 43, -99, -99};
      x04cfc(Zem_ColMajor, Zem_LowerMatrix, Zem_UnitDiag, 4, 4, 1, 0, ab, 2, nullptr,
             "Lower bidiagonal, unit diagonal", Zem_IntegerLabels, nullptr, Zem_IntegerLabels,
             nullptr, 80, 0, out, &f);
      EXPECT_OK(f);
    }
    {  // a general band matrix seen as upper: the sub-diagonal is left blank
      const double ab[] = {-99, 11, 21, 12, 22, 32, 23, 33, -99};
      x04cfc(Zem_ColMajor, Zem_UpperMatrix, Zem_NonUnitDiag, 3, 3, 1, 1, ab, 3, nullptr,
             "Tridiagonal printed as upper", Zem_IntegerLabels, nullptr, Zem_IntegerLabels,
             nullptr, 80, 0, out, &f);
      EXPECT_OK(f);
    }
  });
  expect_golden("real_band.txt", text);
}

TEST(PrinterGolden, ComplexLayoutsAndStorage) {
  const ZemComplex z[6] = {{1, 2}, {-3, 4.5}, {0.5, -0.25}, {7, 8}, {9, 10}, {-11, 12}};
  const ZemComplex t[9] = {{1, 1}, {2, -2}, {3, 3}, {-9, -9}, {5, 0.5}, {6, 6}, {-9, -9}, {-9, -9}, {9, -0.125}};
  const ZemComplex packed[6] = {{1, 0.5}, {2, 0}, {3, -1}, {4, 0.25}, {5, 5}, {6, -6}};
  const std::string text = printed([&](const char* out) {
    ZemError f = record();
    x04dac(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 2, 3, z, 3,
           "Easy form: real parts above imaginary parts", out, &f);
    EXPECT_OK(f);
    x04dbc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 2, 3, z, 3, Zem_BracketForm,
           nullptr, "Bracket form", Zem_CharacterLabels, kRowNames, Zem_CharacterLabels,
           kColNames, 80, 0, out, &f);
    EXPECT_OK(f);
    x04dbc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 2, 3, z, 3, Zem_DirectForm,
           "%7.2f", "Direct form, %7.2f", Zem_IntegerLabels, nullptr, Zem_IntegerLabels,
           nullptr, 80, 0, out, &f);
    EXPECT_OK(f);
    x04dbc(Zem_RowMajor, Zem_UpperMatrix, Zem_UnitDiag, 3, 3, t, 3, Zem_BracketForm,
           "%7.3f ", "Upper, unit diagonal, bracket form", Zem_IntegerLabels, nullptr,
           Zem_IntegerLabels, nullptr, 80, 0, out, &f);
    EXPECT_OK(f);
    x04dbc(Zem_ColMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 2, 3, z, 2, Zem_BracketForm, "*",
           "Full precision, brackets: blocks of one column", Zem_IntegerLabels, nullptr,
           Zem_IntegerLabels, nullptr, 80, 0, out, &f);
    EXPECT_OK(f);
    x04dcc(Zem_ColMajor, Zem_LowerMatrix, Zem_NonUnitDiag, 3, packed,
           "Lower, column-major packed, easy form", out, &f);
    EXPECT_OK(f);
    x04ddc(Zem_RowMajor, Zem_UpperMatrix, Zem_NonRefDiag, 3, packed, Zem_DirectForm, nullptr,
           "Upper, row-major packed, diagonal not referenced, direct form", Zem_NoLabels,
           nullptr, Zem_IntegerLabels, nullptr, 80, 0, out, &f);
    EXPECT_OK(f);
    // Position 0 of the array holds no element in either use below.
    const ZemComplex band[8] = {{-9, -9}, {1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}, {6, 6}, {7, 7}};
    x04dec(Zem_ColMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 4, 4, 0, 1, band, 2,
           "Upper bidiagonal band, easy form", out, &f);
    EXPECT_OK(f);
    x04dfc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 3, 3, 1, 0, band, 2,
           Zem_BracketForm, nullptr, "Lower bidiagonal, row-major band, bracket form",
           Zem_IntegerLabels, nullptr, Zem_IntegerLabels, nullptr, 40, 0, out, &f);
    EXPECT_OK(f);
  });
  expect_golden("complex.txt", text);
}

// ------------------------------------------------- width rules and streams

std::string show_34(int32_t ncols, int32_t indent, const char* format = nullptr) {
  return printed([&](const char* out) {
    ZemError f = record();
    x04cbc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 3, 4, kRow34, 4, format, "T",
           Zem_IntegerLabels, nullptr, Zem_IntegerLabels, nullptr, ncols, indent, out, &f);
    EXPECT_OK(f);
  });
}

TEST(PrinterWidth, OutOfRangeSettingsAreRepaired) {
  const std::string plain = show_34(80, 0);
  EXPECT_EQ(show_34(200, 0), plain);   // ncols outside 1..132 is 80
  EXPECT_EQ(show_34(0, 0), plain);
  EXPECT_EQ(show_34(80, 80), plain);   // indent not below ncols is 0
  EXPECT_EQ(show_34(80, -3), plain);
  // 132 columns are allowed: all four full-precision columns fit, not so
  // in 80.
  const std::string wide = show_34(132, 0, "*");
  const std::string narrow = show_34(80, 0, "*");
  EXPECT_EQ(std::count(wide.begin(), wide.end(), '\n'), 5);
  EXPECT_EQ(std::count(narrow.begin(), narrow.end(), '\n'), 10);
  // Every line keeps within the width, and begins with the indent.
  const std::string indented = show_34(40, 6);
  std::istringstream lines(indented);
  std::string line;
  while (std::getline(lines, line)) {
    EXPECT_LE(line.size(), 40u) << line;
    if (!line.empty()) {
      EXPECT_EQ(line.compare(0, 6, "      "), 0) << line;
    }
  }
}

TEST(PrinterWidth, RowMajorAndColumnMajorPrintAlike) {
  const auto show = [](int32_t order, const double* a, int32_t pda) {
    return printed([&](const char* out) {
      ZemError f = record();
      x04cac(order, Zem_GeneralMatrix, Zem_NonUnitDiag, 3, 4, a, pda, "same", out, &f);
      EXPECT_OK(f);
    });
  };
  EXPECT_EQ(show(Zem_RowMajor, kRow34, 4), show(Zem_ColMajor, kCol34, 3));
}

TEST(PrinterWidth, NoColumnFits) {
  const std::string path = temp_path();
  ZemError f = record();
  x04cbc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 3, 4, kRow34, 4, "*", "T",
         Zem_IntegerLabels, nullptr, Zem_IntegerLabels, nullptr, 20, 0, path.c_str(), &f);
  EXPECT_EQ(f.code, NE_COL_WIDTH);
  EXPECT_EQ(f.errnum, 13);
  EXPECT_NE(std::strstr(f.message, "ncols - indent"), nullptr) << f.message;
  EXPECT_EQ(slurp(path), "");  // nothing is written
  // Wide row labels take the room: 21 columns hold "second", a blank and
  // one %13.4e column, but not with an indent of 1.
  x04cbc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 2, 2, kRow34, 2, "%13.4e ", "T",
         Zem_CharacterLabels, kRowNames, Zem_NoLabels, nullptr, 21, 0, path.c_str(), &f);
  EXPECT_OK(f);
  x04cbc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 2, 2, kRow34, 2, "%13.4e ", "T",
         Zem_CharacterLabels, kRowNames, Zem_NoLabels, nullptr, 21, 1, path.c_str(), &f);
  EXPECT_EQ(f.code, NE_COL_WIDTH);
  // An empty matrix needs no column.
  x04cbc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 0, 2, kRow34, 2, "*", "T",
         Zem_IntegerLabels, nullptr, Zem_IntegerLabels, nullptr, 5, 0, path.c_str(), &f);
  EXPECT_OK(f);
  std::remove(path.c_str());
}

TEST(PrinterStreams, StandardOutputMatchesTheFile) {
  testing::internal::CaptureStdout();
  ZemError f = record();
  x04dac(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 1, 2,
         std::vector<ZemComplex>{{1, 2}, {3, 4}}.data(), 2, "stdout", nullptr, &f);
  const std::string shown = testing::internal::GetCapturedStdout();
  EXPECT_OK(f);
  const std::string filed = printed([](const char* out) {
    ZemError g = record();
    const ZemComplex z[2] = {{1, 2}, {3, 4}};
    x04dac(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 1, 2, z, 2, "stdout", out, &g);
  });
  EXPECT_EQ(shown, filed);
  EXPECT_FALSE(shown.empty());
}

TEST(PrinterStreams, FileFailures) {
  ZemError f = record();
  for (const char* bad : {"/tmp", "/nonexistent_zem_dir/out.txt"}) {
    x04cac(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 3, 4, kRow34, 4, "T", bad, &f);
    EXPECT_EQ(f.code, NE_NOT_WRITE_FILE) << bad;
    EXPECT_EQ(f.errnum, 17);
    EXPECT_NE(std::strstr(f.message, "outfile"), nullptr) << f.message;
  }
  if (access("/dev/full", W_OK) == 0) {
    x04cac(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 3, 4, kRow34, 4, "T", "/dev/full",
           &f);
    EXPECT_EQ(f.code, NE_NOT_APPEND_FILE);
    EXPECT_EQ(f.errnum, 18);
    // Output larger than the stream's buffer fails during the writes.
    std::vector<double> big(100 * 100, 1.5);
    x04cac(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 100, 100, big.data(), 100, "T",
           "/dev/full", &f);
    EXPECT_EQ(f.code, NE_NOT_APPEND_FILE);
  }
}

TEST(PrinterStreams, AppendsToWhatIsThere) {
  const std::string path = temp_path();
  std::ofstream(path) << "kept\n";
  ZemError f = record();
  x04cac(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 0, 0, nullptr, 1, "one", path.c_str(), &f);
  x04cac(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 0, 0, nullptr, 1, "", path.c_str(), &f);
  x04cac(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 0, 0, nullptr, 1, nullptr, path.c_str(), &f);
  x04cac(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 0, 0, nullptr, 1, "two", path.c_str(), &f);
  EXPECT_OK(f);
  EXPECT_EQ(slurp(path), "kept\none\ntwo\n");
  std::remove(path.c_str());
}

// ---------------------------------------------------------------- refusals

struct Refusal {
  const char* what;
  std::function<void(ZemError*)> call;
  int code;
  int status;
  const char* name;  // in the message
};

TEST(PrinterRefusals, EachCheckInItsOrder) {
  const double* a = kSquare;
  const ZemComplex z[4] = {};
  const char* const* none = nullptr;
  const int G = Zem_GeneralMatrix, U = Zem_UpperMatrix, R = Zem_RowMajor, C = Zem_ColMajor,
            N = Zem_NonUnitDiag, I = Zem_IntegerLabels, L = Zem_CharacterLabels;
  const std::vector<Refusal> cases = {
      {"order", [&](ZemError* f) { x04cac(0, G, N, 2, 2, a, 2, "", "/tmp", f); }, NE_BAD_PARAM, 1, "order"},
      {"order before matrix", [&](ZemError* f) { x04cac(Zem_Upper, 0, N, 2, 2, a, 2, "", nullptr, f); }, NE_BAD_PARAM, 1, "order"},
      {"matrix", [&](ZemError* f) { x04cac(R, Zem_Upper, N, 2, 2, a, 2, "", nullptr, f); }, NE_BAD_PARAM, 2, "matrix"},
      {"packed general", [&](ZemError* f) { x04ccc(R, G, N, 2, a, "", nullptr, f); }, NE_BAD_PARAM, 2, "matrix"},
      {"diag", [&](ZemError* f) { x04cac(R, U, Zem_Lower, 2, 2, a, 2, "", nullptr, f); }, NE_BAD_PARAM, 3, "diag"},
      {"m", [&](ZemError* f) { x04cac(R, U, N, -1, 2, a, 0, "", nullptr, f); }, NE_INT_ARG_LT, 4, "m = -1"},
      {"n", [&](ZemError* f) { x04cac(C, G, N, 2, -2, a, 0, "", nullptr, f); }, NE_INT_ARG_LT, 5, "n = -2"},
      {"packed n", [&](ZemError* f) { x04cdc(R, U, N, -1, a, "%d", "", 0, none, 0, none, 80, 0, nullptr, f); }, NE_INT_ARG_LT, 5, "n = -1"},
      {"kl", [&](ZemError* f) { x04cec(R, G, N, 2, 2, -1, 0, a, 0, "", nullptr, f); }, NE_INT_ARG_LT, 6, "kl = -1"},
      {"ku", [&](ZemError* f) { x04dec(R, G, N, 2, 2, 0, -3, z, 0, "", nullptr, f); }, NE_INT_ARG_LT, 11, "ku = -3"},
      {"pda row-major", [&](ZemError* f) { x04cac(R, G, N, 4, 3, a, 2, "", nullptr, f); }, NE_BAD_PARAM, 7, "pda"},
      {"pda column-major", [&](ZemError* f) { x04cac(C, G, N, 4, 3, a, 3, "", nullptr, f); }, NE_BAD_PARAM, 7, "pda"},
      {"pda at least 1", [&](ZemError* f) { x04dac(C, G, N, 0, 0, nullptr, 0, "", nullptr, f); }, NE_BAD_PARAM, 7, "pda"},
      {"pdab", [&](ZemError* f) { x04cfc(C, G, N, 3, 3, 1, 1, a, 2, nullptr, "", I, none, I, none, 80, 0, nullptr, f); }, NE_BAD_PARAM, 7, "pdab"},
      {"form", [&](ZemError* f) { x04dbc(R, G, N, 2, 2, z, 2, Zem_NoLabels, nullptr, "", I, none, I, none, 80, 0, nullptr, f); }, NE_BAD_PARAM, 9, "form"},
      {"packed form", [&](ZemError* f) { x04ddc(R, U, N, 2, z, 0, nullptr, "", I, none, I, none, 80, 0, nullptr, f); }, NE_BAD_PARAM, 9, "form"},
      {"labrow", [&](ZemError* f) { x04cbc(R, G, N, 2, 2, a, 2, nullptr, "", Zem_AboveForm, none, I, none, 80, 0, nullptr, f); }, NE_BAD_PARAM, 10, "labrow"},
      {"row labels missing", [&](ZemError* f) { x04cbc(R, G, N, 2, 2, a, 2, nullptr, "", L, none, I, none, 80, 0, nullptr, f); }, NE_BAD_PARAM, 10, "labrow"},
      {"labcol", [&](ZemError* f) { x04cbc(R, G, N, 2, 2, a, 2, nullptr, "", I, none, 7, none, 80, 0, nullptr, f); }, NE_BAD_PARAM, 12, "labcol"},
      {"column labels missing", [&](ZemError* f) { x04dfc(R, G, N, 2, 2, 0, 0, z, 1, Zem_DirectForm, "%d", "", I, none, L, none, 80, 0, nullptr, f); }, NE_BAD_PARAM, 12, "labcol"},
      {"a", [&](ZemError* f) { x04cac(R, G, N, 2, 2, nullptr, 2, "", nullptr, f); }, NE_BAD_PARAM, 14, "argument a "},
      {"format after the labels", [&](ZemError* f) { x04cbc(R, G, N, 2, 2, a, 2, "%d", "", I, none, I, none, 80, 0, "/tmp", f); }, NE_BAD_PARAM, 8, "format"},
      {"format before the file", [&](ZemError* f) { x04ddc(C, U, N, 2, z, Zem_BracketForm, "%s", "", I, none, I, none, 80, 0, "/tmp", f); }, NE_BAD_PARAM, 8, "format"},
      {"file before the width", [&](ZemError* f) { x04cbc(R, G, N, 2, 2, a, 2, "*", "", I, none, I, none, 10, 0, "/tmp", f); }, NE_NOT_WRITE_FILE, 17, "outfile"},
  };
  for (const Refusal& c : cases) {
    ZemError f = record();
    f.errnum = -1;
    c.call(&f);
    EXPECT_EQ(f.code, c.code) << c.what << ": " << f.message;
    EXPECT_EQ(f.errnum, c.status) << c.what;
    EXPECT_NE(std::strstr(f.message, c.name), nullptr) << c.what << ": " << f.message;
  }
}

TEST(PrinterRefusals, BadFormatsAreRefusedNotUsed) {
  const char* const bad[] = {"%d",    "%s",       "%n",     "abc",      "%f %f", "%",
                             "%*.4f", "%8.*f",    "%Lf",    "%8.4f%n",  "%ld",   "%10000f",
                             "%.1234e", "x\n%f",  "%'8.2f", "%8.4f %%%s"};
  for (const char* fmt : bad) {
    EXPECT_FALSE(zem::printer::valid_format(fmt)) << fmt;
    ZemError f = record();
    const std::string text = printed([&](const char* out) {
      x04cbc(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 3, 4, kRow34, 4, fmt, "T",
             Zem_IntegerLabels, nullptr, Zem_IntegerLabels, nullptr, 80, 0, out, &f);
    });
    EXPECT_EQ(f.code, NE_BAD_PARAM) << fmt;
    EXPECT_EQ(f.errnum, 8) << fmt;
    EXPECT_NE(std::strstr(f.message, "format"), nullptr) << f.message;
    EXPECT_EQ(text, "") << fmt;
  }
  for (const char* fmt : {"%8.4f ", "%e", "%-+ #012.3lE", "x=%G;", "%a", "%%%.2F%%", "%999.999g"})
    EXPECT_TRUE(zem::printer::valid_format(fmt)) << fmt;
}

TEST(PrinterRefusals, NullRecordAbortsOnError) {
  EXPECT_DEATH(x04cac(0, Zem_GeneralMatrix, Zem_NonUnitDiag, 1, 1, kRow34, 1, "", nullptr, nullptr),
               "x04cac");
}

TEST(PrinterRefusals, SuccessClosesTheRecord) {
  ZemError f = record();
  f.errnum = 5;
  x04cac(Zem_RowMajor, Zem_GeneralMatrix, Zem_NonUnitDiag, 0, 0, nullptr, 1, "", "/dev/null", &f);
  EXPECT_EQ(f.code, 0);
  EXPECT_EQ(f.errnum, 0);
  EXPECT_EQ(std::string(f.message).rfind("NE_NOERROR", 0), 0u);
}

TEST(PrinterFormats, AutomaticChoiceAndFullPrecision) {
  using zem::printer::automatic_format;
  const double inf = INFINITY;
  EXPECT_STREQ(automatic_format(0, inf, false), "%8.4f ");
  EXPECT_STREQ(automatic_format(0.9999, 0.001, false), "%8.4f ");
  EXPECT_STREQ(automatic_format(0.5, 0.00099999, false), "%13.4e ");
  EXPECT_STREQ(automatic_format(1.0, 1.0, false), "%11.4f ");
  EXPECT_STREQ(automatic_format(9999.9999, 0.001, false), "%11.4f ");
  EXPECT_STREQ(automatic_format(9999.99991, 0.5, false), "%13.4e ");
  EXPECT_STREQ(automatic_format(2.0, 0.5, true), "%13.4e ");
  EXPECT_EQ(zem::printer::full_precision_format(), "%24.15e ");
  // The full-precision field holds the widest doubles, and gives back a
  // value to within half a unit of its 16th digit.
  char buf[64];
  EXPECT_EQ(std::snprintf(buf, sizeof buf, "%24.15e ", -1.7976931348623157e308), 25);
  EXPECT_STREQ(buf, " -1.797693134862316e+308 ");
  EXPECT_EQ(std::snprintf(buf, sizeof buf, "%24.15e ", -4.9406564584124654e-324), 25);
  for (double v : {-1.0 / 3.0, 2.2250738585072014e-308, 6.02214076e23, 0.1}) {
    std::snprintf(buf, sizeof buf, "%24.15e ", v);
    EXPECT_NEAR(std::strtod(buf, nullptr), v, std::fabs(v) * 5e-16) << buf;
  }
}

// ------------------------------------------ storage schemes against BLAS

// Reads back a matrix printed with format "*", no labels, 132 columns:
// cells of 25 characters (50 for the direct complex form), blocks separated
// by one empty line.  A blank cell is reported through `blank`.
template <class Elem>
std::vector<Elem> read_back(const std::string& text, int m, int n, std::vector<bool>& blank) {
  constexpr bool cplx = std::is_same_v<Elem, ZemComplex>;
  const std::size_t part = 25, cell = cplx ? 2 * part : part;
  const int per = static_cast<int>(132 / cell);
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string l; std::getline(in, l);) lines.push_back(l);
  std::vector<Elem> out(static_cast<std::size_t>(m) * n);
  blank.assign(out.size(), false);
  std::size_t at = 0;
  const auto field = [](const std::string& line, std::size_t from, std::size_t len) {
    std::string s = from < line.size() ? line.substr(from, len) : "";
    return s;
  };
  for (int j0 = 0; j0 < n; j0 += per) {
    if (j0 > 0) {
      EXPECT_EQ(lines.at(at++), "");
    }
    for (int i = 0; i < m; ++i) {
      const std::string& line = lines.at(at++);
      for (int j = j0; j < std::min(n, j0 + per); ++j) {
        const std::size_t from = (j - j0) * cell;
        const std::string s = field(line, from, cell);
        const std::size_t k = static_cast<std::size_t>(i) * n + j;
        blank[k] = s.find_first_not_of(' ') == std::string::npos;
        if (blank[k]) continue;
        if constexpr (cplx) {
          out[k] = {std::strtod(field(line, from, part).c_str(), nullptr),
                    std::strtod(field(line, from + part, part).c_str(), nullptr)};
        } else {
          out[k] = std::strtod(s.c_str(), nullptr);
        }
      }
    }
  }
  EXPECT_EQ(at, lines.size());
  return out;
}

double re(double v) { return v; }
double re(const ZemComplex& v) { return v.re; }
double im(double) { return 0.0; }
double im(const ZemComplex& v) { return v.im; }

enum class Kind { General, Triangular, Packed, Band };

// One random case: the storage array is filled with random values
// everywhere (so that reading an unused position shows), printed, read
// back, and compared with the columns A e_j that BLAS computes from the
// same array.
template <class Elem>
void check_case(Kind kind, std::mt19937& gen) {
  constexpr bool cplx = std::is_same_v<Elem, ZemComplex>;
  std::uniform_int_distribution<int> size(1, 6), width(0, 3), pad(0, 2), coin(0, 1);
  std::uniform_real_distribution<double> value(-1000.0, 1000.0);
  const bool row = coin(gen) == 1;
  const int order = row ? Zem_RowMajor : Zem_ColMajor;
  const CBLAS_ORDER corder = row ? CblasRowMajor : CblasColMajor;
  int m = size(gen), n = size(gen);
  const int kl = width(gen), ku = width(gen);
  const bool upper = coin(gen) == 1, unit = coin(gen) == 1;
  const int matrix = kind == Kind::General || kind == Kind::Band ? Zem_GeneralMatrix
                     : upper                                     ? Zem_UpperMatrix
                                                                 : Zem_LowerMatrix;
  const int diag = unit ? Zem_UnitDiag : Zem_NonUnitDiag;
  if (kind == Kind::Triangular || kind == Kind::Packed) m = n;
  int ld = 0;
  std::size_t count = 0;
  switch (kind) {
    case Kind::General:
    case Kind::Triangular:
      ld = (row ? n : m) + pad(gen);
      count = static_cast<std::size_t>(ld) * (row ? m : n);
      break;
    case Kind::Packed: count = static_cast<std::size_t>(n) * (n + 1) / 2; break;
    case Kind::Band:
      ld = kl + ku + 1 + pad(gen);
      count = static_cast<std::size_t>(ld) * (row ? m : n);
      break;
  }
  std::vector<Elem> a(count);
  for (Elem& e : a) {
    if constexpr (cplx) e = {value(gen), value(gen)};
    else e = value(gen);
  }
  const char* title = "";
  const std::string text = printed([&](const char* out) {
    ZemError f = record();
    const int nl = Zem_NoLabels;
    if constexpr (cplx) {
      const int form = Zem_DirectForm;
      if (kind == Kind::Packed)
        x04ddc(order, matrix, diag, n, a.data(), form, "*", title, nl, nullptr, nl, nullptr, 132, 0, out, &f);
      else if (kind == Kind::Band)
        x04dfc(order, matrix, diag, m, n, kl, ku, a.data(), ld, form, "*", title, nl, nullptr, nl, nullptr, 132, 0, out, &f);
      else
        x04dbc(order, matrix, diag, m, n, a.data(), ld, form, "*", title, nl, nullptr, nl, nullptr, 132, 0, out, &f);
    } else {
      if (kind == Kind::Packed)
        x04cdc(order, matrix, diag, n, a.data(), "*", title, nl, nullptr, nl, nullptr, 132, 0, out, &f);
      else if (kind == Kind::Band)
        x04cfc(order, matrix, diag, m, n, kl, ku, a.data(), ld, "*", title, nl, nullptr, nl, nullptr, 132, 0, out, &f);
      else
        x04cbc(order, matrix, diag, m, n, a.data(), ld, "*", title, nl, nullptr, nl, nullptr, 132, 0, out, &f);
    }
    EXPECT_OK(f);
  });
  std::vector<bool> blank;
  const std::vector<Elem> shown = read_back<Elem>(text, m, n, blank);

  const CBLAS_UPLO uplo = upper ? CblasUpper : CblasLower;
  const CBLAS_DIAG cdiag = unit ? CblasUnit : CblasNonUnit;
  Elem one{}, zero{};
  if constexpr (cplx) one = {1.0, 0.0};
  else one = 1.0;
  for (int j = 0; j < n; ++j) {
    std::vector<Elem> x(n, zero), y(m, zero);
    x[j] = one;
    if constexpr (cplx) {
      switch (kind) {
        case Kind::General: cblas_zgemv(corder, CblasNoTrans, m, n, &one, a.data(), ld, x.data(), 1, &zero, y.data(), 1); break;
        case Kind::Triangular: cblas_ztrmv(corder, uplo, CblasNoTrans, cdiag, n, a.data(), ld, x.data(), 1); y = x; break;
        case Kind::Packed: cblas_ztpmv(corder, uplo, CblasNoTrans, cdiag, n, a.data(), x.data(), 1); y = x; break;
        case Kind::Band: cblas_zgbmv(corder, CblasNoTrans, m, n, kl, ku, &one, a.data(), ld, x.data(), 1, &zero, y.data(), 1); break;
      }
    } else {
      switch (kind) {
        case Kind::General: cblas_dgemv(corder, CblasNoTrans, m, n, 1.0, a.data(), ld, x.data(), 1, 0.0, y.data(), 1); break;
        case Kind::Triangular: cblas_dtrmv(corder, uplo, CblasNoTrans, cdiag, n, a.data(), ld, x.data(), 1); y = x; break;
        case Kind::Packed: cblas_dtpmv(corder, uplo, CblasNoTrans, cdiag, n, a.data(), x.data(), 1); y = x; break;
        case Kind::Band: cblas_dgbmv(corder, CblasNoTrans, m, n, kl, ku, 1.0, a.data(), ld, x.data(), 1, 0.0, y.data(), 1); break;
      }
    }
    for (int i = 0; i < m; ++i) {
      const std::size_t k = static_cast<std::size_t>(i) * n + j;
      const bool zero_there = re(y[i]) == 0.0 && im(y[i]) == 0.0;
      // Random values are never 0: a blank field is exactly a position the
      // storage does not hold.
      EXPECT_EQ(blank[k], zero_there) << "(" << i << "," << j << ") of " << m << "x" << n << "\n" << text;
      EXPECT_NEAR(re(shown[k]), re(y[i]), 1e-15 * std::fabs(re(y[i]))) << i << "," << j << "\n" << text;
      EXPECT_NEAR(im(shown[k]), im(y[i]), 1e-15 * std::fabs(im(y[i]))) << i << "," << j << "\n" << text;
    }
  }
}

TEST(PrinterStorage, RealSchemesReadAsBlasReadsThem) {
  std::mt19937 gen(20240611);
  for (Kind kind : {Kind::General, Kind::Triangular, Kind::Packed, Kind::Band})
    for (int t = 0; t < 40; ++t) check_case<double>(kind, gen);
}

TEST(PrinterStorage, ComplexSchemesReadAsBlasReadsThem) {
  std::mt19937 gen(7);
  for (Kind kind : {Kind::General, Kind::Triangular, Kind::Packed, Kind::Band})
    for (int t = 0; t < 40; ++t) check_case<ZemComplex>(kind, gen);
}

}  // namespace
