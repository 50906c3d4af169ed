// Airy functions Ai, Bi and their derivatives of real argument.
//
// Near the origin (|x| < 2.09, and for Bi, Bi' up to 8.32) the Maclaurin
// series Ai = c1 f - c2 g, Bi = sqrt(3) (c1 f + c2 g) are summed in
// double-double arithmetic: for x > 0 the difference c1 f - c2 g cancels
// heavily, and the extra precision keeps Ai and Ai' accurate to the last
// bits.  Beyond, the asymptotic forms in zeta = 2/3 |x|^(3/2) use rational
// approximations in 1/zeta (S. L. Moshier, Cephes Math Library 2.8,
// airy.c), with
// zeta itself formed in double-double: its rounding error would otherwise
// be multiplied by zeta in exp(-zeta) or in the phase zeta + pi/4.
#include <cmath>

#include "special/dd.hpp"
#include "special/poly.hpp"
#include "special/real.hpp"

namespace zem::sf {

namespace {

using dd::DD;

constexpr DD kC1{0.3550280538878172, 2.05233632436212e-17};    // Ai(0)
constexpr DD kC2{0.2588194037928068, -2.522243111610832e-17};  // -Ai'(0)
constexpr DD kTwoThirds{0.6666666666666666, 3.700743415417188e-17};
constexpr double kSqrt3 = 1.732050807568877293527;
constexpr double kSqpii = 5.64189583547756286948E-1;  // 1/sqrt(pi)
constexpr double kInvSqrt2 = 0.70710678118654752440;


constexpr double AN[8] = {3.46538101525629032477E-1, 1.20075952739645805542E1,
                          7.62796053615234516538E1,  1.68089224934630576269E2,
                          1.59756391350164413639E2,  7.05360906840444183113E1,
                          1.40264691163389668864E1,  9.99999999999999995305E-1};
constexpr double AD[8] = {5.67594532638770212846E-1, 1.47562562584847203173E1,
                          8.45138970141474626562E1,  1.77318088145400459522E2,
                          1.64234692871529701831E2,  7.14778400825575695274E1,
                          1.40959135607834029598E1,  1.00000000000000000470E0};
constexpr double APN[8] = {6.13759184814035759225E-1, 1.47454670787755323881E1,
                           8.20584123476060982430E1,  1.71184781360976385540E2,
                           1.59317847137141783523E2,  6.99778599330103016170E1,
                           1.39470856980481566958E1,  1.00000000000000000550E0};
constexpr double APD[8] = {3.34203677749736953049E-1, 1.11810297306158156705E1,
                           7.11727352147859965283E1,  1.58778084372838313640E2,
                           1.53206427475809220834E2,  6.86752304592780337944E1,
                           1.38498634758259442477E1,  9.99999999999999994502E-1};
constexpr double BN16[5] = {-2.53240795869364152689E-1, 5.75285167332467384228E-1,
                            -3.29907036873225371650E-1, 6.44404068948199951727E-2,
                            -3.82519546641336734394E-3};
constexpr double BD16[5] = {-7.15685095054035237902E0, 1.06039580715664694291E1,
                            -5.23246636471251500874E0, 9.57395864378383833152E-1,
                            -5.50828147163549611107E-2};
constexpr double BPPN[5] = {4.65461162774651610328E-1, -1.08992173800493920734E0,
                            6.38800117371827987759E-1, -1.26844349553102907034E-1,
                            7.62487844342109852105E-3};
constexpr double BPPD[5] = {-8.70622787633159124240E0, 1.38993162704553213172E1,
                            -7.14116144616431159572E0, 1.34008595960680518666E0,
                            -7.84273211323341930448E-2};
constexpr double AFN[9] = {
    -1.31696323418331795333E-1, -6.26456544431912369773E-1, -6.93158036036933542233E-1,
    -2.79779981545119124951E-1, -4.91900132609500318020E-2, -4.06265923594885404393E-3,
    -1.59276496239262096340E-4, -2.77649108155232920844E-6, -1.67787698489114633780E-8};
constexpr double AFD[9] = {
    1.33560420706553243746E1,  3.26825032795224613948E1,  2.67367040941499554804E1,
    9.18707402907259625840E0,  1.47529146771666414581E0,  1.15687173795188044134E-1,
    4.40291641615211203805E-3, 7.54720348287414296618E-5, 4.51850092970580378464E-7};
constexpr double AGN[11] = {
    1.97339932091685679179E-2, 3.91103029615688277255E-1, 1.06579897599595591108E0,
    9.39169229816650230044E-1, 3.51465656105547619242E-1, 6.33888919628925490927E-2,
    5.85804113048388458567E-3, 2.82851600836737019778E-4, 6.98793669997260967291E-6,
    8.11789239554389293311E-8, 3.41551784765923618484E-10};
constexpr double AGD[10] = {9.30892908077441974853E0,  1.98352928718312140417E1,
                            1.55646628932864612953E1,  5.47686069422975497931E0,
                            9.54293611618961883998E-1, 8.64580826352392193095E-2,
                            4.12656523824222607191E-3, 1.01259085116509135510E-4,
                            1.17166733214413521882E-6, 4.91834570062930015649E-9};
constexpr double APFN[9] = {
    1.85365624022535566142E-1, 8.86712188052584095637E-1, 9.87391981747398547272E-1,
    4.01241082318003734092E-1, 7.10304926289631174579E-2, 5.90618657995661810071E-3,
    2.33051409401776799569E-4, 4.08718778289035454598E-6, 2.48379932900442457853E-8};
constexpr double APFD[9] = {
    1.47345854687502542552E1,  3.75423933435489594466E1,  3.14657751203046424330E1,
    1.09969125207298778536E1,  1.78885054766999417817E0,  1.41733275753662636873E-1,
    5.44066067017226003627E-3, 9.39421290654511171663E-5, 5.65978713036027009243E-7};
constexpr double APGN[11] = {
    -3.55615429033082288335E-2, -6.37311518129435504426E-1, -1.70856738884312371053E0,
    -1.50221872117316635393E0,  -5.63606665822102676611E-1, -1.02101031120216891789E-1,
    -9.48396695961445269093E-3, -4.60325307486780994357E-4, -1.14300836484517375919E-5,
    -1.33415518685547420648E-7, -5.63803833958893494476E-10};
constexpr double APGD[10] = {9.85865801696130355144E0,  2.16401867356585941885E1,
                             1.73130776389749389525E1,  6.17872175280828766327E0,
                             1.08848694396321495475E0,  9.95005543440888479402E-2,
                             4.78468199683886610842E-3, 1.18159633322838625562E-4,
                             1.37480673554219441465E-6, 5.79912514929147598821E-9};

enum class Which { Ai, Aip, Bi, Bip };

// Reciprocals of the factors of the series terms, to double-double
// precision: term k of f from term k-1 is divided by (3k-1)(3k), of g by
// (3k)(3k+1); of f' by (3k-3)(3k-1), of g' (term k-1 from k-2) by
// (3k-5)(3k-3).
struct Reciprocals {
  static constexpr int kN = 40;
  DD fa[kN], fb[kN], da[kN], db[kN];
};

const Reciprocals& reciprocals() {
  static const Reciprocals r = [] {
    Reciprocals t{};
    const DD one{1.0, 0.0};
    for (int k = 1; k < Reciprocals::kN; ++k) {
      t.fa[k] = dd::div(one, (3.0 * k - 1) * (3.0 * k));
      t.fb[k] = dd::div(one, (3.0 * k) * (3.0 * k + 1));
      if (k >= 2) {
        t.da[k] = dd::div(one, (3.0 * k - 3) * (3.0 * k - 1));
        t.db[k] = dd::div(one, (3.0 * k - 5) * (3.0 * k - 3));
      }
    }
    return t;
  }();
  return r;
}

// The Maclaurin series: Ai = c1 f - c2 g, Bi = sqrt3 (c1 f + c2 g) and the
// same with f', g' for the derivatives.
double series(double x, Which w) {
  if (std::fabs(x) < 1e-9) {
    // The terms in x^2 and beyond are below the last bit.
    double c1 = kC1.hi, c2 = kC2.hi;
    switch (w) {
      case Which::Ai:
        return c1 - c2 * x;
      case Which::Bi:
        return kSqrt3 * (c1 + c2 * x);
      case Which::Aip:
        return -c2;
      case Which::Bip:
        return kSqrt3 * c2;
    }
  }
  DD x2 = dd::two_prod(x, x);
  DD x3 = dd::mul(x2, x);
  DD u, v;  // leading terms of the two series
  DD su, sv;
  bool deriv = (w == Which::Aip || w == Which::Bip);
  if (!deriv) {
    u = {1.0, 0.0};  // f: x^3k / prod (3i-1)(3i)
    v = {x, 0.0};    // g: x^(3k+1) / prod (3i)(3i+1)
  } else {
    u = dd::mul(x2, 0.5);  // f' from its k = 1 term x^2 / 2
    v = {1.0, 0.0};        // g' from its k = 0 term 1
  }
  su = u;
  sv = v;
  // Leading terms in double-double; once both terms have fallen below 1e-4
  // of their sums, the rest in double (their rounding then stays below
  // 1e-19 of the sums, well inside what the cancellation allows).  The
  // divisions by the integer factors are multiplications by reciprocals
  // held to double-double precision.
  const Reciprocals& rec = reciprocals();
  const DD* ra = deriv ? rec.da : rec.fa;
  const DD* rb = deriv ? rec.db : rec.fb;
  int k = deriv ? 2 : 1;
  for (; k < Reciprocals::kN; ++k) {
    u = dd::mul(u, dd::mul(x3, ra[k]));
    v = dd::mul(v, dd::mul(x3, rb[k]));
    su = dd::add(su, u);
    sv = dd::add(sv, v);
    if (std::fabs(u.hi) <= 1e-4 * std::fabs(su.hi) && std::fabs(v.hi) <= 1e-4 * std::fabs(sv.hi))
      break;
  }
  double ud = u.hi, vd = v.hi, tu = 0.0, tv = 0.0;
  const double x3d = x3.hi;
  for (++k; k < 200; ++k) {
    double a, b;
    if (!deriv) {
      a = (3.0 * k - 1) * (3.0 * k);
      b = (3.0 * k) * (3.0 * k + 1);
    } else {
      a = (3.0 * k - 3) * (3.0 * k - 1);
      b = (3.0 * k - 5) * (3.0 * k - 3);
    }
    ud *= x3d / a;
    vd *= x3d / b;
    tu += ud;
    tv += vd;
    if (std::fabs(ud) <= 1e-20 * std::fabs(su.hi) && std::fabs(vd) <= 1e-20 * std::fabs(sv.hi))
      break;
  }
  su = dd::add(su, DD{tu, 0.0});
  sv = dd::add(sv, DD{tv, 0.0});
  DD cf = dd::mul(kC1, su);
  DD cg = dd::mul(kC2, sv);
  if (w == Which::Ai || w == Which::Aip) {
    DD r = dd::add(cf, dd::neg(cg));
    return r.hi + r.lo;
  }
  DD r = dd::add(cf, cg);
  return kSqrt3 * (r.hi + r.lo);
}

// zeta = 2/3 |x|^(3/2) as a double-double; t4 receives |x|^(1/4).
DD zeta_of(double ax, double& t4) {
  DD s = dd::sqrt_dd(ax);
  t4 = std::sqrt(s.hi);
  DD xs = dd::mul(s, ax);
  return dd::mul(xs, kTwoThirds);
}

double negative(double x, Which w) {
  if (std::isinf(x)) return 0.0;  // Ai, Bi decay and Ai', Bi' grow without limit
  double t4;
  DD zeta = zeta_of(-x, t4);
  double z = 1.0 / zeta.hi;
  double zz = z * z;
  // sin and cos of theta = zeta + pi/4 from the exact reduction of zeta.hi.
  double sz = std::sin(zeta.hi), cz = std::cos(zeta.hi);
  double s = sz + zeta.lo * cz, c = cz - zeta.lo * sz;
  double f = (s + c) * kInvSqrt2;  // sin(theta)
  double g = (c - s) * kInvSqrt2;  // cos(theta)
  if (w == Which::Ai || w == Which::Bi) {
    double uf = 1.0 + zz * polevl(zz, AFN) / p1evl(zz, AFD);
    double ug = z * polevl(zz, AGN) / p1evl(zz, AGD);
    double k = kSqpii / t4;
    return w == Which::Ai ? k * (f * uf - g * ug) : k * (g * uf + f * ug);
  }
  double uf = 1.0 + zz * polevl(zz, APFN) / p1evl(zz, APFD);
  double ug = z * polevl(zz, APGN) / p1evl(zz, APGD);
  double k = kSqpii * t4;
  return w == Which::Aip ? -k * (g * uf + f * ug) : k * (f * uf - g * ug);
}

double positive_ai(double x, Which w) {
  double t4;
  DD zeta = zeta_of(x, t4);
  if (zeta.hi > 745.0) return 0.0;
  double z = 1.0 / zeta.hi;
  double e = std::exp(-zeta.hi) * (1.0 - zeta.lo);  // exp(-zeta)
  if (w == Which::Ai) return kSqpii * (polevl(z, AN) / polevl(z, AD)) / (2.0 * t4) * e;
  return -0.5 * kSqpii * t4 * (polevl(z, APN) / polevl(z, APD)) * e;
}

double positive_bi(double x, Which w) {
  double t4;
  DD zeta = zeta_of(x, t4);
  double z = 1.0 / zeta.hi;
  double h = std::exp(0.5 * zeta.hi);
  double v;
  if (w == Which::Bi)
    v = kSqpii * (1.0 + z * polevl(z, BN16) / p1evl(z, BD16)) / t4;
  else
    v = kSqpii * t4 * (1.0 + z * polevl(z, BPPN) / p1evl(z, BPPD));
  return ((v * h) * h) * (1.0 + zeta.lo);
}

}  // namespace

double airy_ai(double x) {
  if (x < -2.09) return negative(x, Which::Ai);
  if (x >= 2.09) return positive_ai(x, Which::Ai);
  return series(x, Which::Ai);
}

double airy_aip(double x) {
  if (x < -2.09) return negative(x, Which::Aip);
  if (x >= 2.09) return positive_ai(x, Which::Aip);
  return series(x, Which::Aip);
}

double airy_bi(double x) {
  if (x < -2.09) return negative(x, Which::Bi);
  if (x > 8.3203353) return positive_bi(x, Which::Bi);
  return series(x, Which::Bi);
}

double airy_bip(double x) {
  if (x < -2.09) return negative(x, Which::Bip);
  if (x > 8.3203353) return positive_bi(x, Which::Bip);
  return series(x, Which::Bip);
}

}  // namespace zem::sf
