// The matrix printers' engine.  One layout routine serves every storage
// scheme through an index functor (element (i, j) -> position in a, or -1
// when the storage does not hold it) and both element types through two
// small cell writers.
#include "frame/printer.hpp"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <type_traits>

#include "frame/io.hpp"

namespace zem::printer {
namespace {

// ---- Formatting into strings.

// Appends fmt applied to v.  The formats are built here or validated by
// valid_format, so each takes exactly the one argument given.
template <class T>
void appendf(std::string& out, const char* fmt, T v) {
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
  char buf[128];
  const int len = std::snprintf(buf, sizeof buf, fmt, v);
  if (len < 0) return;
  if (static_cast<std::size_t>(len) < sizeof buf) {
    out.append(buf, static_cast<std::size_t>(len));
    return;
  }
  const std::size_t at = out.size();
  out.resize(at + static_cast<std::size_t>(len) + 1);
  std::snprintf(&out[at], static_cast<std::size_t>(len) + 1, fmt, v);
  out.resize(at + static_cast<std::size_t>(len));
#pragma GCC diagnostic pop
}

std::size_t without_trailing_blanks(const std::string& s) {
  const std::size_t last = s.find_last_not_of(' ');
  return last == std::string::npos ? 0 : last + 1;
}

// The format of one real value and the geometry that it gives.
struct NumberFormat {
  std::string fmt;
  std::size_t width = 0;    // characters of fmt applied to 1.0
  std::size_t content = 0;  // the same without its trailing blanks
};

// One printed cell: its width, the blanks that end it (column labels are
// right aligned to the end of the value, not of the blanks) and the lines
// that one row of the matrix takes.
struct Geometry {
  std::size_t width;
  std::size_t trailing;
  int lines;
};

Geometry geometry(const NumberFormat& f, bool complex, int32_t form) {
  const std::size_t trailing = f.width - f.content;
  if (!complex || form == Zem_AboveForm) return {f.width, trailing, complex ? 2 : 1};
  if (form == Zem_DirectForm) return {2 * f.width, trailing, 1};
  // "(re,im)": each part in the format's field without its trailing blanks,
  // and at least one blank before the next bracket.
  const std::size_t gap = std::max<std::size_t>(trailing, 1);
  return {2 * f.content + 3 + gap, gap, 1};
}

void put(std::string& line, const NumberFormat& f, const Geometry&, int32_t, double v, int) {
  appendf(line, f.fmt.c_str(), v);
}

// One part inside brackets: the format's field without its trailing
// blanks, so that the parts stay in columns.
void put_part(std::string& line, const NumberFormat& f, double v) {
  std::string s;
  appendf(s, f.fmt.c_str(), v);
  s.resize(without_trailing_blanks(s));
  if (s.size() < f.content) line.append(f.content - s.size(), ' ');
  line += s;
}

void put(std::string& line, const NumberFormat& f, const Geometry& g, int32_t form,
         const ZemComplex& v, int part) {
  switch (form) {
    case Zem_AboveForm:
      appendf(line, f.fmt.c_str(), part == 0 ? v.re : v.im);
      break;
    case Zem_DirectForm:
      appendf(line, f.fmt.c_str(), v.re);
      appendf(line, f.fmt.c_str(), v.im);
      break;
    default:  // Zem_BracketForm
      line += '(';
      put_part(line, f, v.re);
      line += ',';
      put_part(line, f, v.im);
      line += ')';
      line.append(g.trailing, ' ');
      break;
  }
}

template <class Elem>
Elem unit_value();
template <>
double unit_value<double>() {
  return 1.0;
}
template <>
ZemComplex unit_value<ZemComplex>() {
  return {1.0, 0.0};
}

// ---- The values that decide the automatic format.

struct Range {
  double largest = 0.0;
  double smallest = std::numeric_limits<double>::infinity();
  bool nonfinite = false;
  void add(double v) {
    if (!std::isfinite(v)) {
      nonfinite = true;
      return;
    }
    const double m = std::fabs(v);
    largest = std::max(largest, m);
    if (m != 0.0) smallest = std::min(smallest, m);
  }
  void add(const ZemComplex& z) {
    add(z.re);
    add(z.im);
  }
};

// ---- Element positions by storage scheme.

struct FullIndex {
  bool row_major;
  long ld;
  std::ptrdiff_t operator()(long i, long j) const { return row_major ? i * ld + j : i + j * ld; }
};

struct PackedIndex {
  bool row_major;
  bool upper;
  long n;
  std::ptrdiff_t operator()(long i, long j) const {
    if (upper ? i > j : i < j) return -1;
    if (upper) return row_major ? i * (2 * n - i - 1) / 2 + j : j * (j + 1) / 2 + i;
    return row_major ? i * (i + 1) / 2 + j : j * (2 * n - j - 1) / 2 + i;
  }
};

struct BandIndex {
  bool row_major;
  long kl, ku, ld;
  std::ptrdiff_t operator()(long i, long j) const {
    if (j - i > ku || i - j > kl) return -1;
    return row_major ? kl + j - i + i * ld : ku + i - j + j * ld;
  }
};

enum class Cell { Blank, Value, One };

// What is printed at (i, j): the triangle and the diagonal kind first, then
// whether the storage holds the element.
template <class Index>
Cell cell_at(const Request& r, const Index& index, long i, long j, std::ptrdiff_t& k) {
  if (r.matrix != Zem_GeneralMatrix) {
    if (r.matrix == Zem_LowerMatrix ? j > i : j < i) return Cell::Blank;
    if (i == j && r.diag == Zem_UnitDiag) return Cell::One;
    if (i == j && r.diag == Zem_NonRefDiag) return Cell::Blank;
  }
  k = index(i, j);
  return k < 0 ? Cell::Blank : Cell::Value;
}

// ---- Argument checks, in the order of their status numbers' rules.

bool one_of(int32_t v, std::initializer_list<int32_t> set) {
  return std::find(set.begin(), set.end(), v) != set.end();
}

Status check(const Request& r, bool have_a) {
  if (!one_of(r.order, {Zem_RowMajor, Zem_ColMajor})) return Status::Order;
  if (!one_of(r.matrix, {Zem_GeneralMatrix, Zem_LowerMatrix, Zem_UpperMatrix}) ||
      (r.storage == Storage::Packed && r.matrix == Zem_GeneralMatrix))
    return Status::Matrix;
  if (r.matrix != Zem_GeneralMatrix &&
      !one_of(r.diag, {Zem_NonUnitDiag, Zem_UnitDiag, Zem_NonRefDiag}))
    return Status::Diag;
  if (r.storage != Storage::Packed && r.m < 0) return Status::M;
  if (r.n < 0) return Status::N;
  if (r.storage == Storage::Band) {
    if (r.kl < 0) return Status::Kl;
    if (r.ku < 0) return Status::Ku;
    if (r.ld < r.kl + r.ku + 1) return Status::Ld;
  }
  if (r.storage == Storage::Full &&
      r.ld < std::max(1L, r.order == Zem_RowMajor ? r.n : r.m))
    return Status::Ld;
  if (r.complex_form && !one_of(r.form, {Zem_AboveForm, Zem_BracketForm, Zem_DirectForm}))
    return Status::Form;
  const auto labels_ok = [](int32_t kind, const char* const* labs) {
    return one_of(kind, {Zem_NoLabels, Zem_IntegerLabels, Zem_CharacterLabels}) &&
           (kind != Zem_CharacterLabels || labs != nullptr);
  };
  if (!labels_ok(r.labrow, r.rlabs)) return Status::LabRow;
  if (!labels_ok(r.labcol, r.clabs)) return Status::LabCol;
  if (!have_a && r.m > 0 && r.n > 0) return Status::Array;
  return Status::Ok;
}

// ---- Labels.

std::string integer_label_format(std::size_t width) {
  char f[32];
  std::snprintf(f, sizeof f, "%%%1ldld", static_cast<long>(width));
  return f;
}

std::string character_label_format(std::size_t width) {
  char f[48];
  std::snprintf(f, sizeof f, "%%%1ld.%1lds", static_cast<long>(width), static_cast<long>(width));
  return f;
}

// Digits of the largest integer label.
std::size_t integer_label_width(long count) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%16ld", count);
  const char* p = buf;
  while (*p == ' ') ++p;
  return std::strlen(p);
}

const char* label_text(const char* const* labs, long i) { return labs[i] ? labs[i] : ""; }

// ---- The output stream.

class Output {
 public:
  ~Output() {
    if (owned_ && f_) std::fclose(f_);
  }
  bool open(const char* path) {
    if (!path) {
      io::console_setup();
      f_ = stdout;
      return true;
    }
    f_ = std::fopen(path, "a");
    owned_ = true;
    return f_ != nullptr;
  }
  // Writes one line without its trailing blanks.  After a failed write the
  // rest is dropped.
  void line(std::string& s) {
    if (failed_) return;
    s.resize(without_trailing_blanks(s));
    s += '\n';
    failed_ = std::fwrite(s.data(), 1, s.size(), f_) != s.size();
  }
  // Flushes and closes; a failed write takes precedence over a failed close.
  Status finish() {
    const bool written = !failed_ && std::fflush(f_) == 0;
    if (owned_) {
      const int rc = std::fclose(f_);
      f_ = nullptr;
      if (written && rc != 0) return Status::Close;
    }
    return written ? Status::Ok : Status::Write;
  }

 private:
  std::FILE* f_ = nullptr;
  bool owned_ = false;
  bool failed_ = false;
};

// ---- The engine.

template <class Elem, class Index>
Status run(const Request& r, const Elem* a, const Index& index) {
  constexpr bool is_complex = std::is_same_v<Elem, ZemComplex>;
  if (Status s = check(r, a != nullptr); s != Status::Ok) return s;

  const long ncols = (r.ncols < 1 || r.ncols > 132) ? 80 : r.ncols;
  const long indent = (r.indent < 0 || r.indent >= ncols) ? 0 : r.indent;
  const std::size_t width = static_cast<std::size_t>(ncols - indent);
  const int32_t form = is_complex ? r.form : Zem_AboveForm;

  NumberFormat nf;
  if (!r.format || !*r.format) {
    Range range;
    std::ptrdiff_t k = 0;
    for (long i = 0; i < r.m; ++i)
      for (long j = 0; j < r.n; ++j) switch (cell_at(r, index, i, j, k)) {
          case Cell::Value: range.add(a[k]); break;
          case Cell::One: range.add(unit_value<Elem>()); break;
          case Cell::Blank: break;
        }
    nf.fmt = automatic_format(range.largest, range.smallest, range.nonfinite);
  } else if (std::strcmp(r.format, "*") == 0) {
    nf.fmt = full_precision_format();
  } else if (valid_format(r.format)) {
    nf.fmt = r.format;
  } else {
    return Status::Format;
  }
  // The format tried on 1.0 gives the column width.
  std::string trial;
  appendf(trial, nf.fmt.c_str(), 1.0);
  nf.width = trial.size();
  nf.content = without_trailing_blanks(trial);
  if (nf.content == 0) return Status::Format;

  Output out;
  if (!out.open(r.outfile)) return Status::Open;

  // Row labels: right aligned in the width of the widest, then one blank.
  std::size_t label_width = 0;
  std::string row_format;
  if (r.labrow == Zem_IntegerLabels) {
    label_width = integer_label_width(r.m);
    row_format = integer_label_format(label_width);
  } else if (r.labrow == Zem_CharacterLabels) {
    for (long i = 0; i < r.m; ++i)
      label_width = std::max(label_width, std::strlen(label_text(r.rlabs, i)));
    row_format = character_label_format(label_width);
  }
  const std::size_t lead = label_width > 0 ? label_width + 1 : 0;
  const Geometry g = geometry(nf, is_complex, form);
  const bool empty = r.m == 0 || r.n == 0;
  if (!empty && width < lead + g.width) return Status::ColWidth;
  const long per_block = empty ? 1 : static_cast<long>((width - lead) / g.width);

  const std::string margin(static_cast<std::size_t>(indent), ' ');
  std::string line;
  if (r.title && *r.title) {
    line = margin + r.title;
    out.line(line);
  }
  const std::size_t col_label_width = g.width - g.trailing;
  const std::string col_int_format = integer_label_format(col_label_width);
  const std::string col_char_format = character_label_format(col_label_width);
  const Elem one = unit_value<Elem>();
  for (long j0 = 0; !empty && j0 < r.n; j0 += per_block) {
    const long j1 = std::min(r.n, j0 + per_block);
    if (j0 > 0) {
      line.clear();
      out.line(line);
    }
    if (r.labcol != Zem_NoLabels) {
      line = margin;
      line.append(lead, ' ');
      for (long j = j0; j < j1; ++j) {
        if (r.labcol == Zem_IntegerLabels) appendf(line, col_int_format.c_str(), j + 1);
        else appendf(line, col_char_format.c_str(), label_text(r.clabs, j));
        line.append(g.trailing, ' ');
      }
      out.line(line);
    }
    for (long i = 0; i < r.m; ++i)
      for (int part = 0; part < g.lines; ++part) {
        line = margin;
        if (lead > 0) {
          if (part > 0) line.append(label_width, ' ');
          else if (r.labrow == Zem_IntegerLabels) appendf(line, row_format.c_str(), i + 1);
          else appendf(line, row_format.c_str(), label_text(r.rlabs, i));
          line += ' ';
        }
        for (long j = j0; j < j1; ++j) {
          std::ptrdiff_t k = 0;
          switch (cell_at(r, index, i, j, k)) {
            case Cell::Blank: line.append(g.width, ' '); break;
            case Cell::One: put(line, nf, g, form, one, part); break;
            case Cell::Value: put(line, nf, g, form, a[k], part); break;
          }
        }
        out.line(line);
      }
  }
  return out.finish();
}

}  // namespace

bool valid_format(const char* fmt) noexcept {
  if (!fmt) return false;
  const auto digits = [](const char*& p) {
    int count = 0;
    while (std::isdigit(static_cast<unsigned char>(*p))) ++p, ++count;
    return count;
  };
  int conversions = 0;
  for (const char* p = fmt; *p; ++p) {
    const unsigned char c = static_cast<unsigned char>(*p);
    if (c < 0x20 || c == 0x7f) return false;
    if (c != '%') continue;
    ++p;
    if (*p == '%') continue;
    while (*p && std::strchr("-+ #0", *p)) ++p;
    if (digits(p) > 3) return false;
    if (*p == '.') {
      ++p;
      if (digits(p) > 3) return false;
    }
    if (*p == 'l') ++p;
    if (!*p || !std::strchr("fFeEgGaA", *p)) return false;
    ++conversions;
  }
  return conversions == 1;
}

const char* automatic_format(double largest, double smallest_nonzero, bool nonfinite) noexcept {
  if (nonfinite) return "%13.4e ";
  if (largest == 0.0) return "%8.4f ";
  if (smallest_nonzero < 0.001) return "%13.4e ";
  if (largest < 1.0) return "%8.4f ";
  if (largest < 9999.99991) return "%11.4f ";
  return "%13.4e ";
}

std::string full_precision_format() {
  // A 53-bit significand needs 16 significant decimal digits; the exponent
  // of the largest double, 1024*log10(2) = 308.25, needs 3 digits, so the
  // exponent field "e+308" takes 5 characters.  The field: a blank, the
  // sign, one digit, the point, 15 decimals and the exponent.
  const long digits = static_cast<long>(std::ceil(53 * std::log10(2.0)));
  const long exponent = 2 + static_cast<long>(std::ceil(std::log10(1024 * std::log10(2.0))));
  const long field = 1 + 1 + 1 + 1 + (digits - 1) + exponent;
  char f[32];
  std::snprintf(f, sizeof f, "%%%1ld.%1lde ", field, digits - 1);
  return f;
}

template <class Elem>
Status print(const Request& r, const Elem* a) {
  const bool row_major = r.order == Zem_RowMajor;
  switch (r.storage) {
    case Storage::Packed:
      return run(r, a, PackedIndex{row_major, r.matrix == Zem_UpperMatrix, r.n});
    case Storage::Band:
      return run(r, a, BandIndex{row_major, r.kl, r.ku, r.ld});
    case Storage::Full:
      break;
  }
  return run(r, a, FullIndex{row_major, r.ld});
}

template Status print<double>(const Request&, const double*);
template Status print<ZemComplex>(const Request&, const ZemComplex*);

}  // namespace zem::printer
