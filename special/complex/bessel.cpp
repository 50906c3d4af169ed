// Bessel, Hankel and Airy functions of complex argument: the cores.
#include "special/complex/bessel.hpp"

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace zem::sf::cbessel {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kEps = DBL_EPSILON;
constexpr double kLn2Hi = 6.93147180369123816490e-01;  // ln 2 to 32 bits
constexpr double kLn2Lo = 1.90821492927058770002e-10;  // ln 2 - kLn2Hi
// Radius from which Hankel's expansion of I reaches full precision.
constexpr double kHankelRadius = 21.8;
// Iteration cap of the continued fractions and recurrences.
constexpr long kMaxIter = 20000000;

// Taylor coefficients of 1/Gamma(1+x) at 0.
constexpr double kRecipGamma[] = {
    1.00000000000000000e+00,  5.77215664901532866e-01,  -6.55878071520253902e-01,
    -4.20026350340952370e-02, 1.66538611382291479e-01,  -4.21977345555443334e-02,
    -9.62197152787697303e-03, 7.21894324666309990e-03,  -1.16516759185906517e-03,
    -2.15241674114950975e-04, 1.28050282388116196e-04,  -2.01348547807882387e-05,
    -1.25049348214267063e-06, 1.13302723198169593e-06,  -2.05633841697760707e-07,
    6.11609510448141609e-09,  5.00200764446922295e-09,  -1.18127457048702004e-09,
    1.04342671169110054e-10,  7.78226343990507081e-12,  -3.69680561864220598e-12,
    5.10037028745447575e-13,  -2.05832605356650664e-14, -5.34812253942301782e-15,
    1.22677862823826084e-15,  -1.18125930169745883e-16, 1.18669225475160037e-18,
    1.41238065531803186e-18,  -2.29874568443537022e-19};
constexpr int kRecipGammaLen = sizeof kRecipGamma / sizeof kRecipGamma[0];

// e^x as a Big, exact in the split x = k ln 2 + r.
Big big_exp(double x) noexcept {
  const double k = std::nearbyint(x / 0.69314718055994530942);
  const double r = std::fma(-k, kLn2Hi, x) - k * kLn2Lo;
  return {cplx(std::exp(r), 0.0), static_cast<long>(k)};
}

// e^c for complex c as a Big.
Big big_cexp(cplx c) noexcept {
  Big b = big_exp(c.real());
  b.m = b.m.real() * cplx(std::cos(c.imag()), std::sin(c.imag()));
  return b;
}

inline Big big(cplx c) noexcept { return normalise({c, 0}); }

inline Big big_mulb(Big a, Big b) noexcept { return normalise({a.m * b.m, a.p + b.p}); }

// 1/Gamma(1+mu) for |mu| <= 1/2 and Temme's gamma1, gamma2.
struct TemmeGammas {
  double g1, g2, gpl, gmi;
};
TemmeGammas temme_gammas(double mu) noexcept {
  double even = 0.0, odd = 0.0;
  const double mu2 = mu * mu;
  for (int k = kRecipGammaLen - 1; k >= 0; --k) {
    if (k % 2 == 0) even = even * mu2 + kRecipGamma[k];
    else odd = odd * mu2 + kRecipGamma[k];
  }
  // 1/Gamma(1+mu) = even + mu*odd; 1/Gamma(1-mu) = even - mu*odd.
  return {-odd, even, even + mu * odd, even - mu * odd};
}

// K_mu(w), K_mu+1(w) for |mu| <= 1/2, Re w >= 0, w != 0.
Status k_base(double mu, cplx w, Big& k0, Big& k1) noexcept {
  const double mu2 = mu * mu;
  if (std::abs(w) <= 2.0) {
    // Temme's series.
    const cplx x2 = 0.5 * w;
    const double pimu = kPi * mu;
    const double fact = std::fabs(pimu) < kEps ? 1.0 : pimu / std::sin(pimu);
    cplx d = -std::log(x2);
    cplx e = mu * d;
    const cplx e2 = e * e;
    const cplx fact2 = std::abs(e) < 1e-2 ? 1.0 + e2 / 6.0 * (1.0 + e2 / 20.0 * (1.0 + e2 / 42.0))
                                          : std::sinh(e) / e;
    const TemmeGammas g = temme_gammas(mu);
    cplx ff = fact * (g.g1 * std::cosh(e) + g.g2 * fact2 * d);
    cplx sum = ff;
    e = std::exp(e);
    cplx p = 0.5 * e / g.gpl;
    cplx q = 0.5 / (e * g.gmi);
    cplx c = 1.0;
    d = x2 * x2;
    cplx sum1 = p;
    long i = 1;
    for (; i < 10000; ++i) {
      const double di = static_cast<double>(i);
      ff = (di * ff + p + q) / (di * di - mu2);
      c *= d / di;
      p /= (di - mu);
      q /= (di + mu);
      const cplx del = c * ff;
      sum += del;
      sum1 += c * (p - di * ff);
      if (std::abs(del) < std::abs(sum) * 0.5 * kEps) break;
    }
    if (i >= 10000) return Status::NoConvergence;
    k0 = big(sum);
    k1 = big(sum1 * 2.0 / w);
    return Status::Ok;
  }
  // Steed's evaluation of the continued fraction for K_mu+1/K_mu with the
  // normalising sum.
  cplx b = 2.0 * (1.0 + w);
  cplx d = 1.0 / b;
  cplx h = d, delh = d;
  cplx q1 = 0.0, q2 = 1.0;
  const double a1 = 0.25 - mu2;
  cplx q = a1, c = a1;
  double a = -a1;
  cplx s = 1.0 + q * delh;
  long i = 1;
  for (; i < kMaxIter; ++i) {
    const double di = static_cast<double>(i);
    a -= 2.0 * di;
    c = -a * c / (di + 1.0);
    const cplx qnew = (q1 - b * q2) / a;
    q1 = q2;
    q2 = qnew;
    q += c * qnew;
    b += 2.0;
    d = 1.0 / (b + a * d);
    delh = (b * d - 1.0) * delh;
    h += delh;
    const cplx dels = q * delh;
    s += dels;
    if (std::abs(dels) < std::abs(s) * 0.5 * kEps) break;
  }
  if (i >= kMaxIter) return Status::NoConvergence;
  h = a1 * h;
  // K_mu = sqrt(pi/(2w)) e^-w / s.
  Big km = big_cexp(-w);
  km = big_mul(km, std::sqrt(kPi / (2.0 * w)) / s);
  k0 = km;
  k1 = big_mul(km, (mu + w + 0.5 - h) / w);
  return Status::Ok;
}

// Debye's expansions for large order nu, w = nu z, Re w >= 0:
//   I_nu(nu z) ~ e^{nu eta} / (sqrt(2 pi nu) (1+z^2)^{1/4}) sum U_k(p)/nu^k,
//   K_nu(nu z) ~ sqrt(pi/(2 nu)) e^{-nu eta} / (1+z^2)^{1/4} sum (-1)^k U_k(p)/nu^k,
// p = (1+z^2)^{-1/2}, eta = (1+z^2)^{1/2} + ln(z/(1 + (1+z^2)^{1/2})).
// Used where the series settles within kDebyeTerms terms: large order away
// from the turning points w = +-i nu.
constexpr int kDebyeTerms = 14;
constexpr double kSqrt3Const = 1.73205080756887729353;
constexpr double kDebyeOrder = 40.0;

// Coefficients of U_k(t) in powers of t, k < kDebyeTerms, from
// U_{k+1} = t^2 (1-t^2) U_k'/2 + (1/8) int_0^t (1 - 5 s^2) U_k(s) ds.
struct DebyePolys {
  std::vector<double> c[kDebyeTerms];
  DebyePolys() {
    c[0] = {1.0};
    for (int k = 0; k + 1 < kDebyeTerms; ++k) {
      const std::vector<double>& u = c[k];
      std::vector<double> v(u.size() + 3, 0.0);
      for (std::size_t j = 0; j < u.size(); ++j) {
        if (u[j] == 0.0) continue;
        const double dj = static_cast<double>(j);
        if (j > 0) {
          v[j + 1] += 0.5 * dj * u[j];
          v[j + 3] -= 0.5 * dj * u[j];
        }
        v[j + 1] += u[j] / (8.0 * (dj + 1.0));
        v[j + 3] -= 5.0 * u[j] / (8.0 * (dj + 3.0));
      }
      c[k + 1] = v;
    }
  }
};

const DebyePolys& debye_polys() {
  static const DebyePolys polys;
  return polys;
}

// I_nu(w) (want_k false) or K_nu(w); false when the series does not settle.
bool debye(double nu, cplx w, bool want_k, Big& out) noexcept {
  if (nu < kDebyeOrder) return false;
  // For I the expansion holds with one exponential only for |arg w| <= pi/3:
  // nearer the imaginary axis, beyond the turning point, I takes a second one.
  if (!want_k && std::fabs(w.imag()) > kSqrt3Const * w.real()) return false;
  const DebyePolys& P = debye_polys();
  const cplx z = w / nu;
  // (1+z^2)^{1/2} continuous from the positive real axis over Re z >= 0,
  // with the sign of Im z on the imaginary axis beyond +-i.
  const cplx s = std::abs(z) <= 1.0 ? std::sqrt(1.0 + z * z) : z * std::sqrt(1.0 + 1.0 / (z * z));
  const cplx p = 1.0 / s;
  cplx sum = 0.0;
  double pw = 1.0, last = HUGE_VAL;
  bool settled = false;
  for (int k = 0; k < kDebyeTerms; ++k) {
    const std::vector<double>& c = P.c[k];
    cplx u = 0.0;
    for (std::size_t j = c.size(); j-- > 0;) u = u * p + c[j];
    cplx term = u / pw;
    if (want_k && (k % 2)) term = -term;
    sum += term;
    const double at = std::abs(term);
    if (k > 0 && at > last) return false;  // diverging: too near a turning point
    last = at;
    if (at <= 0.25 * kEps * std::abs(sum)) {
      settled = true;
      break;
    }
    pw *= nu;
  }
  if (!settled) return false;
  const cplx eta = s + std::log(z / (1.0 + s));
  const cplx ex = want_k ? -nu * eta : nu * eta;
  Big b = big_cexp(ex);
  const cplx pre = want_k ? std::sqrt(kPi / (2.0 * nu)) / std::sqrt(s)
                          : 1.0 / (std::sqrt(2.0 * kPi * nu) * std::sqrt(s));
  out = big_mul(b, pre * sum);
  return true;
}

// K_{fnu+k}(w), k = 0..n-1, Re w >= 0: base pair and forward recurrence.
Status k_right(double fnu, cplx w, int n, Big out[]) noexcept {
  double nl = std::floor(fnu + 0.5);
  double mu = fnu - nl;
  Big k0, k1;
  if (debye(fnu, w, true, k0) && debye(fnu + 1.0, w, true, k1)) {
    nl = 0.0;  // start the recurrence at fnu itself
    mu = fnu;
  } else {
    if (nl + n > static_cast<double>(kMaxIter)) return Status::NoConvergence;
    if (k_base(mu, w, k0, k1) != Status::Ok) return Status::NoConvergence;
  }
  // Common scale for the pair.
  long p = std::max(k0.p, k1.p);
  cplx a = std::ldexp(1.0, static_cast<int>(std::max(-2000L, k0.p - p))) * k0.m;
  cplx b = std::ldexp(1.0, static_cast<int>(std::max(-2000L, k1.p - p))) * k1.m;
  const long last = static_cast<long>(nl) + n - 1;  // index j of K_{mu+j}
  const cplx winv = 1.0 / w;
  for (long j = 0; j <= last; ++j) {
    if (j >= static_cast<long>(nl)) out[j - static_cast<long>(nl)] = normalise({a, p});
    if (j == last) break;
    // K_{mu+j+2} = K_{mu+j} + 2(mu+j+1)/w K_{mu+j+1}.
    const cplx next = a + 2.0 * (mu + static_cast<double>(j) + 1.0) * winv * b;
    a = b;
    b = next;
    const double mag = std::max(std::abs(b.real()), std::abs(b.imag()));
    if (mag > 0x1p500) {
      const int sh = std::ilogb(mag);
      a = cplx(std::ldexp(a.real(), -sh), std::ldexp(a.imag(), -sh));
      b = cplx(std::ldexp(b.real(), -sh), std::ldexp(b.imag(), -sh));
      p += sh;
    }
  }
  return Status::Ok;
}

// (w/2)^nu / Gamma(nu+1) as a Big, Re w >= 0.
Big series_prefactor(double nu, cplx w) noexcept {
  if (nu == 0.0) return big(1.0);
  const cplx h = 0.5 * w;
  const double lh = std::log(std::abs(h));
  const double ph = nu * std::arg(h);
  const cplx phase(std::cos(ph), std::sin(ph));
  if (nu < 170.0 && std::fabs(nu * lh) < 600.0)
    return big(std::pow(std::abs(h), nu) / std::tgamma(nu + 1.0) * phase);
  Big b = big_exp(nu * lh - std::lgamma(nu + 1.0));
  return big_mul(b, phase);
}

// I_nu(w) by its power series.
Big i_series(double nu, cplx w) noexcept {
  const cplx t = 0.25 * w * w;
  cplx term = 1.0, sum = 1.0;
  for (int k = 1; k < 100000; ++k) {
    term *= t / (static_cast<double>(k) * (nu + static_cast<double>(k)));
    sum += term;
    if (std::abs(term) < 0.5 * kEps * std::abs(sum)) break;
  }
  return big_mul(series_prefactor(nu, w), sum);
}

// I_nu(w) by Hankel's expansion, |w| large, Re w >= 0.
Big i_hankel(double nu, cplx w) noexcept {
  const double mu4 = 4.0 * nu * nu;
  cplx s1 = 1.0, s2 = 1.0, term = 1.0;
  const cplx r = 1.0 / (8.0 * w);
  double last = 1.0;
  for (int k = 1; k < 200; ++k) {
    const double odd = 2.0 * k - 1.0;
    term *= (mu4 - odd * odd) / static_cast<double>(k) * r;
    const double at = std::abs(term);
    if (at > last && k > 2) break;  // the expansion has begun to diverge
    s2 += term;
    s1 += (k % 2 ? -term : term);
    last = at;
    if (at < 0.5 * kEps * std::abs(s1) && at < 0.5 * kEps * std::abs(s2)) break;
  }
  const double sg = w.imag() >= 0.0 ? 1.0 : -1.0;
  const cplx second = cplx(0.0, sg) * cis_pi(sg * nu) * std::exp(-2.0 * w) * s2;
  Big b = big_cexp(w);
  return big_mul(b, (s1 + second) / std::sqrt(2.0 * kPi * w));
}

// I_{nu+1}(w)/I_nu(w) from its continued fraction (modified Lentz).
Status i_ratio(double nu, cplx w, cplx& f) noexcept {
  const double tiny = 1e-300;
  f = tiny;
  cplx c = f, d = 0.0;
  const cplx winv = 2.0 / w;
  const double past = std::abs(w) - nu;
  for (long k = 1; k < kMaxIter; ++k) {
    const cplx b = (nu + static_cast<double>(k)) * winv;
    d = b + d;
    if (d == 0.0) d = tiny;
    c = b + 1.0 / c;
    if (c == 0.0) c = tiny;
    d = 1.0 / d;
    const cplx del = c * d;
    f *= del;
    if (std::abs(del - 1.0) < 0.5 * kEps && static_cast<double>(k) > past) return Status::Ok;
  }
  return Status::NoConvergence;
}

// I_{fnu+k}(w), k = 0..n-1, Re w >= 0.
Status i_right(double fnu, cplx w, int n, Big out[]) noexcept {
  const double a = std::abs(w);
  const double top = fnu + n - 1;
  if (a == 0.0) {
    for (int k = 0; k < n; ++k) out[k] = big(fnu + k == 0.0 ? 1.0 : 0.0);
    return Status::Ok;
  }
  if (a <= 2.0 || 0.25 * a * a <= fnu + 1.0) {
    for (int k = 0; k < n; ++k) out[k] = i_series(fnu + k, w);
    return Status::Ok;
  }
  if (a >= kHankelRadius && (top <= 1.0 || 2.0 * a >= top * top)) {
    for (int k = 0; k < n; ++k) out[k] = i_hankel(fnu + k, w);
    return Status::Ok;
  }
  Big itop, iup;
  cplx r;
  if (debye(top, w, false, itop) && debye(top + 1.0, w, false, iup)) {
    // Debye's expansion at the two highest orders.
    const double d = static_cast<double>(iup.p - itop.p);
    r = iup.m / itop.m * std::exp2(d);
  } else {
    // Wronskian at the top order.  The continued fraction needs about
    // |w| - top terms.
    if (a - top > static_cast<double>(kMaxIter)) return Status::NoConvergence;
    std::vector<Big> kv(static_cast<std::size_t>(n) + 1);
    if (k_right(fnu, w, n + 1, kv.data()) != Status::Ok) return Status::NoConvergence;
    if (i_ratio(top, w, r) != Status::Ok) return Status::NoConvergence;
    const Big ktop = kv[static_cast<std::size_t>(n) - 1];
    const Big kup = kv[static_cast<std::size_t>(n)];
    const Big den = big_mul(big_add(kup, big_mul(ktop, r)), w);
    itop = normalise({1.0 / den.m, -den.p});
  }
  out[n - 1] = itop;
  if (n == 1) return Status::Ok;
  cplx hi = r * itop.m, cur = itop.m;  // I_{k+1}, I_k sharing the scale p
  long p = itop.p;
  for (int k = n - 2; k >= 0; --k) {
    const cplx prev = 2.0 * (fnu + k + 1.0) / w * cur + hi;
    hi = cur;
    cur = prev;
    const double mag = std::max(std::abs(cur.real()), std::abs(cur.imag()));
    if (mag > 0x1p500 || (mag < 0x1p-500 && mag > 0.0)) {
      const int sh = std::ilogb(mag);
      cur = cplx(std::ldexp(cur.real(), -sh), std::ldexp(cur.imag(), -sh));
      hi = cplx(std::ldexp(hi.real(), -sh), std::ldexp(hi.imag(), -sh));
      p += sh;
    }
    out[k] = normalise({cur, p});
  }
  return Status::Ok;
}

// K_{fnu+k}(w e^{i pi m}), m in {-1, 0, 1}, Re w >= 0.
Status k_sheet(double fnu, cplx w, int m, int n, Big out[]) noexcept {
  if (k_right(fnu, w, n, out) != Status::Ok) return Status::NoConvergence;
  if (m == 0) return Status::Ok;
  std::vector<Big> iv(static_cast<std::size_t>(n));
  if (i_right(fnu, w, n, iv.data()) != Status::Ok) return Status::NoConvergence;
  // K(w e^{i pi m}) = e^{-i pi m nu} K(w) - i pi m I(w).
  for (int k = 0; k < n; ++k) {
    const Big a = big_mul(out[k], cis_pi(-m * (fnu + k)));
    const Big b = big_mul(iv[static_cast<std::size_t>(k)], cplx(0.0, -kPi * m));
    out[k] = big_add(a, b);
  }
  return Status::Ok;
}

// The Maclaurin series of the Airy functions: f, g and their derivatives.
void airy_series(cplx z, cplx& f, cplx& g, cplx& fp, cplx& gp) noexcept {
  const cplx z3 = z * z * z;
  cplx t = 1.0, s = z, u = 0.5 * z * z, v = 1.0;
  f = t;
  g = s;
  fp = u;
  gp = v;
  for (int k = 1; k < 200; ++k) {
    const double dk = 3.0 * k;
    t *= z3 / (dk * (dk - 1.0));
    s *= z3 / ((dk + 1.0) * dk);
    if (k > 1) u *= z3 / ((dk - 3.0) * (dk - 1.0));
    v *= z3 / ((dk - 2.0) * dk);
    f += t;
    g += s;
    if (k > 1) fp += u;
    gp += v;
    if (std::abs(t) + std::abs(s) + std::abs(u) + std::abs(v) <
        0.25 * kEps * (std::abs(f) + std::abs(g) + std::abs(fp) + std::abs(gp)))
      break;
  }
}

constexpr double kAi0 = 0.355028053887817239260;   // Ai(0)
constexpr double kAip0 = 0.258819403792806798405;  // -Ai'(0)
constexpr double kSqrt3 = 1.73205080756887729353;

// zeta = (2/3) z^{3/2} on the sheet of arg z, as w e^{i pi m} with Re w >= 0.
void airy_zeta(cplx z, cplx& w, int& m) noexcept {
  const cplx zeta = (2.0 / 3.0) * z * std::sqrt(z);
  const double ph = std::arg(z);
  if (std::fabs(ph) <= kPi / 3.0) {
    w = zeta;
    m = 0;
    if (w.real() < 0.0) w = cplx(0.0, w.imag());
  } else {
    w = -zeta;
    m = ph > 0.0 ? 1 : -1;
    if (w.real() < 0.0) w = cplx(0.0, w.imag());
  }
}

}  // namespace

Big normalise(Big b) noexcept {
  const double mag = std::max(std::fabs(b.m.real()), std::fabs(b.m.imag()));
  if (mag == 0.0 || !std::isfinite(mag)) return {b.m, mag == 0.0 ? 0 : b.p};
  const int q = std::ilogb(mag);
  if (q == 0) return b;
  return {cplx(std::ldexp(b.m.real(), -q), std::ldexp(b.m.imag(), -q)), b.p + q};
}

Big big_add(Big a, Big b) noexcept {
  if (a.m == 0.0) return b;
  if (b.m == 0.0) return a;
  const long d = a.p - b.p;
  if (d > 1100) return a;
  if (d < -1100) return b;
  if (d >= 0) {
    const cplx t(std::ldexp(b.m.real(), static_cast<int>(-d)), std::ldexp(b.m.imag(), static_cast<int>(-d)));
    return normalise({a.m + t, a.p});
  }
  const cplx t(std::ldexp(a.m.real(), static_cast<int>(d)), std::ldexp(a.m.imag(), static_cast<int>(d)));
  return normalise({b.m + t, b.p});
}

double big_log_abs(Big b) noexcept {
  if (b.m == 0.0) return -HUGE_VAL;
  return std::log(std::abs(b.m)) + static_cast<double>(b.p) * 0.69314718055994530942;
}

double cos_pi(double t) noexcept {
  double r = std::fmod(std::fabs(t), 2.0);  // exact
  if (r == 0.5 || r == 1.5) return 0.0;
  if (r == 0.0) return 1.0;
  if (r == 1.0) return -1.0;
  if (r > 1.0) r -= 2.0;  // r in (-1, 1]
  if (std::fabs(r) <= 0.25) return std::cos(kPi * r);
  if (r > 0.0) return -std::sin(kPi * (r - 0.5));
  return std::sin(kPi * (r + 0.5));
}

double sin_pi(double t) noexcept {
  double r = std::fmod(t, 2.0);  // exact, sign of t
  if (r == 0.0 || r == 1.0 || r == -1.0) return 0.0;
  if (r > 1.0) r -= 2.0;
  if (r < -1.0) r += 2.0;
  // r in (-1, 1)
  if (std::fabs(r) <= 0.25) return std::sin(kPi * r);
  if (std::fabs(r) <= 0.75) return std::copysign(std::cos(kPi * (std::fabs(r) - 0.5)), r);
  return std::copysign(std::sin(kPi * (1.0 - std::fabs(r))), r);
}

int to_complex(Big b, double shift, cplx& out) noexcept {
  if (b.m == 0.0) {
    out = 0.0;
    return 0;
  }
  Big s = big_exp(shift);
  s = normalise({b.m * s.m, b.p + s.p});
  const double l2 = static_cast<double>(s.p) + std::log2(std::abs(s.m));
  if (l2 > 1023.99) return 2;
  if (l2 < -1011.0) {  // below e^-700.9: set to zero and counted as underflow
    out = 0.0;
    return 1;
  }
  out = cplx(std::ldexp(s.m.real(), static_cast<int>(s.p)), std::ldexp(s.m.imag(), static_cast<int>(s.p)));
  return 0;
}

Status bessel_i(double fnu, cplx z, int n, Big out[]) noexcept {
  if (z.real() >= 0.0) return i_right(fnu, z, n, out);
  const int m = z.imag() >= 0.0 ? 1 : -1;  // z = (-z) e^{i pi m}
  if (i_right(fnu, -z, n, out) != Status::Ok) return Status::NoConvergence;
  for (int k = 0; k < n; ++k) out[k] = big_mul(out[k], cis_pi(m * (fnu + k)));
  return Status::Ok;
}

Status bessel_k(double fnu, cplx z, int n, Big out[]) noexcept {
  if (z.real() >= 0.0) return k_sheet(fnu, z, 0, n, out);
  return k_sheet(fnu, -z, z.imag() >= 0.0 ? 1 : -1, n, out);
}

Status bessel_j(double fnu, cplx z, int n, Big out[]) noexcept {
  // J(z) = e^{i pi nu/2} I(-iz) for Im z >= 0, e^{-i pi nu/2} I(iz) below.
  const bool upper = z.imag() >= 0.0;
  const cplx w = upper ? cplx(z.imag(), -z.real()) : cplx(-z.imag(), z.real());
  if (i_right(fnu, w, n, out) != Status::Ok) return Status::NoConvergence;
  const double sg = upper ? 0.5 : -0.5;
  for (int k = 0; k < n; ++k) out[k] = big_mul(out[k], cis_pi(sg * (fnu + k)));
  return Status::Ok;
}

Status hankel(int kind, double fnu, cplx z, int n, Big out[]) noexcept {
  cplx w;
  int m;
  if (kind == 1) {
    // H1(z) = 2/(pi i) e^{-i pi nu/2} K(z e^{-i pi/2}).
    if (z.imag() >= 0.0) {
      w = cplx(z.imag(), -z.real());
      m = 0;
    } else {
      w = cplx(-z.imag(), z.real());
      m = -1;
    }
  } else {
    // H2(z) = -2/(pi i) e^{i pi nu/2} K(z e^{i pi/2}).
    if (z.imag() < 0.0 || (z.imag() == 0.0 && z.real() > 0.0)) {
      w = cplx(-z.imag(), z.real());
      m = 0;
    } else {
      w = cplx(z.imag(), -z.real());
      m = 1;
    }
  }
  if (w.real() < 0.0) w = cplx(0.0, w.imag());
  if (k_sheet(fnu, w, m, n, out) != Status::Ok) return Status::NoConvergence;
  const double sg = kind == 1 ? -0.5 : 0.5;
  const cplx c = kind == 1 ? cplx(0.0, -2.0 / kPi) : cplx(0.0, 2.0 / kPi);
  for (int k = 0; k < n; ++k) out[k] = big_mul(out[k], c * cis_pi(sg * (fnu + k)));
  return Status::Ok;
}

Status bessel_y(double fnu, cplx z, int n, Big out[]) noexcept {
  std::vector<Big> h2(static_cast<std::size_t>(n));
  if (hankel(1, fnu, z, n, out) != Status::Ok) return Status::NoConvergence;
  if (hankel(2, fnu, z, n, h2.data()) != Status::Ok) return Status::NoConvergence;
  // Y = (H1 - H2)/(2i).
  for (int k = 0; k < n; ++k) {
    const Big d = big_add(out[k], big_mul(h2[static_cast<std::size_t>(k)], -1.0));
    out[k] = big_mul(d, cplx(0.0, -0.5));
  }
  return Status::Ok;
}

Status airy_ai(cplx z, bool deriv, Big& out) noexcept {
  if (std::abs(z) <= 1.0) {
    cplx f, g, fp, gp;
    airy_series(z, f, g, fp, gp);
    out = big(deriv ? kAi0 * fp - kAip0 * gp : kAi0 * f - kAip0 * g);
    return Status::Ok;
  }
  cplx w;
  int m;
  airy_zeta(z, w, m);
  const double nu = deriv ? 2.0 / 3.0 : 1.0 / 3.0;
  Big k;
  if (k_sheet(nu, w, m, 1, &k) != Status::Ok) return Status::NoConvergence;
  // Ai = sqrt(z/3)/pi K_1/3(zeta), Ai' = -z/(pi sqrt 3) K_2/3(zeta).
  out = big_mul(k, deriv ? -z / (kPi * kSqrt3) : std::sqrt(z / 3.0) / kPi);
  return Status::Ok;
}

Status airy_bi(cplx z, bool deriv, Big& out) noexcept {
  if (std::abs(z) <= 1.0) {
    cplx f, g, fp, gp;
    airy_series(z, f, g, fp, gp);
    out = big(kSqrt3 * (deriv ? kAi0 * fp + kAip0 * gp : kAi0 * f + kAip0 * g));
    return Status::Ok;
  }
  cplx w;
  int m;
  airy_zeta(z, w, m);
  const double nu = deriv ? 2.0 / 3.0 : 1.0 / 3.0;
  Big iv, kv;
  if (i_right(nu, w, 1, &iv) != Status::Ok || k_right(nu, w, 1, &kv) != Status::Ok)
    return Status::NoConvergence;
  // I_{-nu}(w) = I_nu(w) + (2/pi) sin(nu pi) K_nu(w) = I_nu(w) + sqrt3/pi K_nu(w);
  // I_{+-nu}(w e^{i pi m}) = e^{+-i pi m nu} I_{+-nu}(w).
  const Big ineg = big_add(iv, big_mul(kv, kSqrt3 / kPi));
  const Big sum = big_add(big_mul(ineg, cis_pi(-m * nu)), big_mul(iv, cis_pi(m * nu)));
  // Bi = sqrt(z/3) (I_-1/3 + I_1/3), Bi' = z/sqrt3 (I_-2/3 + I_2/3).
  out = big_mul(sum, deriv ? z / kSqrt3 : std::sqrt(z / 3.0));
  return Status::Ok;
}

}  // namespace zem::sf::cbessel
