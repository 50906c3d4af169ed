// Bessel functions J0, J1, Y0, Y1 and modified Bessel functions I0, I1, K0,
// K1 of real argument.
//
// J and Y: rational approximations on [0, 5] with the zeros of J0 and J1
// factored out, and beyond 5 the Hankel asymptotic form
//   sqrt(2/(pi x)) (P cos(x - phase) - Q sin(x - phase))
// with P, Q rational in 25/x^2.  The phase shift is applied through the
// exact sines and cosines of x, so that no rounding of x - pi/4 reaches the
// result for large x.  I and K: Chebyshev expansions, and for I0, I1 near
// the origin their power series.  Coefficient tables: S. L. Moshier, Cephes
// Math Library 2.8 (j0.c, j1.c, i0.c, i1.c, k0.c, k1.c), after his "Methods
// and Programs for Mathematical Functions" (1989).
#include <cmath>

#include "special/dd.hpp"
#include "special/poly.hpp"
#include "special/real.hpp"

namespace zem::sf {

namespace {

constexpr double kTwoOverPi = 0.63661977236758134308;


// Order 0, x > 5.
constexpr double PP0[7] = {7.96936729297347051624E-4, 8.28352392107440799803E-2,
                           1.23953371646414299388E0,  5.44725003058768775090E0,
                           8.74716500199817011941E0,  5.30324038235394892183E0,
                           9.99999999999999997821E-1};
constexpr double PQ0[7] = {9.24408810558863637013E-4, 8.56288474354474431428E-2,
                           1.25352743901058953537E0,  5.47097740330417105182E0,
                           8.76190883237069594232E0,  5.30605288235394617618E0,
                           1.00000000000000000218E0};
constexpr double QP0[8] = {-1.13663838898469149931E-2, -1.28252718670509318512E0,
                           -1.95539544257735972385E1,  -9.32060152123768231369E1,
                           -1.77681167980488050595E2,  -1.47077505154951170175E2,
                           -5.14105326766599330220E1,  -6.05014350600728481186E0};
constexpr double QQ0[7] = {6.43178256118178023184E1, 8.56430025976980587198E2,
                           3.88240183605401609683E3, 7.24046774195652478189E3,
                           5.93072701187316984827E3, 2.06209331660327847417E3,
                           2.42005740240291393179E2};
// J0 on [0, 5]: (z - r1^2)(z - r2^2) RP(z)/RQ(z), z = x^2.
// The squares of the first two zeros of J0, as double-doubles.
constexpr dd::DD DR1{5.783185962946784, 4.123247343506204e-16};
constexpr dd::DD DR2{30.471262343662087, -2.366534485750659e-16};
constexpr double RP0[4] = {-4.79443220978201773821E9, 1.95617491946556577543E12,
                           -2.49248344360967716204E14, 9.70862251047306323952E15};
constexpr double RQ0[8] = {4.99563147152651017219E2,  1.73785401676374683123E5,
                           4.84409658339962045305E7,  1.11855537045356834862E10,
                           2.11277520115489217587E12, 3.10518229857422583814E14,
                           3.18121955943204943306E16, 1.71086294081043136091E18};
// Y0 on [0, 5]: Y0 - (2/pi) ln x J0.
constexpr double YP0[8] = {1.55924367855235737965E4,  -1.46639295903971606143E7,
                           5.43526477051876500413E9,  -9.82136065717911466409E11,
                           8.75906394395366999549E13, -3.46628303384729719441E15,
                           4.42733268572569800351E16, -1.84950800436986690637E16};
constexpr double YQ0[7] = {1.04128353664259848412E3,  6.26107330137134956842E5,
                           2.68919633393814121987E8,  8.64002487103935000337E10,
                           2.02979612750105546709E13, 3.17157752842975028269E15,
                           2.50596256172653059228E17};

// Order 1.
constexpr double RP1[4] = {-8.99971225705559398224E8, 4.52228297998194034323E11,
                           -7.27494245221818276015E13, 3.68295732863852883286E15};
constexpr double RQ1[8] = {6.20836478118054335476E2,  2.56987256757748830383E5,
                           8.35146791431949253037E7,  2.21511595479792499675E10,
                           4.74914122079991414898E12, 7.84369607876235854894E14,
                           8.95222336184627338078E16, 5.32278620332680085395E18};
constexpr double PP1[7] = {7.62125616208173112003E-4, 7.31397056940917570436E-2,
                           1.12719608129684925192E0,  5.11207951146807644818E0,
                           8.42404590141772420927E0,  5.21451598682361504063E0,
                           1.00000000000000000254E0};
constexpr double PQ1[7] = {5.71323128072548699714E-4, 6.88455908754495404082E-2,
                           1.10514232634061696926E0,  5.07386386128601488557E0,
                           8.39985554327604159757E0,  5.20982848682361821619E0,
                           9.99999999999999997461E-1};
constexpr double QP1[8] = {5.10862594750176621635E-2, 4.98213872951233449420E0,
                           7.58238284132545283818E1,  3.66779609360150777800E2,
                           7.10856304998926107277E2,  5.97489612400613639965E2,
                           2.11688757100572135698E2,  2.52070205858023719784E1};
constexpr double QQ1[7] = {7.42373277035675149943E1, 1.05644886038262816351E3,
                           4.98641058337653607651E3, 9.56231892404756170795E3,
                           7.99704160447350683650E3, 2.82619278517639096600E3,
                           3.36093607810698293419E2};
constexpr double YP1[6] = {1.26320474790178026440E9,  -6.47355876379160291031E11,
                           1.14509511541823727583E14, -8.12770255501325109621E15,
                           2.02439475713594898196E17, -7.78877196265950026825E17};
constexpr double YQ1[8] = {5.94301592346128195359E2,  2.35564092943068577943E5,
                           7.34811944459721705660E7,  1.87601316108706159478E10,
                           3.88231277496238566008E12, 6.20557727146953693363E14,
                           6.87141087355300489866E16, 3.97270608116560655612E18};
// The squares of the first two zeros of J1, as double-doubles.
constexpr dd::DD Z1{14.681970642123893, -9.858177825793294e-17};
constexpr dd::DD Z2{49.2184563216946, 5.086354069436341e-16};

// The Hankel form for x > 5: sqrt(2/(pi x)) (p cos(x - s) - w q sin(x - s))
// with s = pi/4 (order 0) or 3 pi/4 (order 1); which selects J (false) or
// Y (true), the latter using sin and cos swapped.
double hankel(double x, bool order1, bool y) {
  if (std::isinf(x)) return 0.0;  // the limit of the decaying oscillation
  double w = 5.0 / x;
  double z = w * w;
  double p, q;
  if (!order1) {
    p = polevl(z, PP0) / polevl(z, PQ0);
    q = polevl(z, QP0) / p1evl(z, QQ0);
  } else {
    p = polevl(z, PP1) / polevl(z, PQ1);
    q = polevl(z, QP1) / p1evl(z, QQ1);
  }
  // The phase x - s as a double-double: x - s.hi exactly by two_sum, then
  // s.lo; cos and sin of its high part take the library's exact reduction.
  constexpr dd::DD kPi4{0.7853981633974483, 3.061616997868383e-17};
  constexpr dd::DD k3Pi4{2.356194490192345, 9.184850993605148e-17};
  const dd::DD& sh = order1 ? k3Pi4 : kPi4;
  dd::DD ph = dd::two_sum(x, -sh.hi);
  ph.lo -= sh.lo;
  double sp = std::sin(ph.hi), cp = std::cos(ph.hi);
  double cs = cp - ph.lo * sp;  // cos(x - s)
  double ss = sp + ph.lo * cp;  // sin(x - s)
  double v = y ? p * ss + w * q * cs : p * cs - w * q * ss;
  return v * std::sqrt(kTwoOverPi / x);
}

// I0: exp(-x) I0(x) on [0, 8] in x/2 - 2; I0, I1: exp(-x) sqrt(x) I(x) beyond
// 8 in 32/x - 2.
constexpr double AI0[30] = {
    -4.41534164647933937950E-18, 3.33079451882223809783E-17,  -2.43127984654795469359E-16,
    1.71539128555513303061E-15,  -1.16853328779934516808E-14, 7.67618549860493561688E-14,
    -4.85644678311192946090E-13, 2.95505266312963983461E-12,  -1.72682629144155570723E-11,
    9.67580903537323691224E-11,  -5.18979560163526290666E-10, 2.65982372468238665035E-9,
    -1.30002500998624804212E-8,  6.04699502254191894932E-8,   -2.67079385394061173391E-7,
    1.11738753912010371815E-6,   -4.41673835845875056359E-6,  1.64484480707288970893E-5,
    -5.75419501008210370398E-5,  1.88502885095841655729E-4,   -5.76375574538582365885E-4,
    1.63947561694133579842E-3,   -4.32430999505057594430E-3,  1.05464603945949983183E-2,
    -2.37374148058994688156E-2,  4.93052842396707084878E-2,   -9.49010970480476444210E-2,
    1.71620901522208775349E-1,   -3.04682672343198398683E-1,  6.76795274409476084995E-1};
constexpr double BI0[25] = {
    -7.23318048787475395456E-18, -4.83050448594418207126E-18, 4.46562142029675999901E-17,
    3.46122286769746109310E-17,  -2.82762398051658348494E-16, -3.42548561967721913462E-16,
    1.77256013305652638360E-15,  3.81168066935262242075E-15,  -9.55484669882830764870E-15,
    -4.15056934728722208663E-14, 1.54008621752140982691E-14,  3.85277838274214270114E-13,
    7.18012445138366623367E-13,  -1.79417853150680611778E-12, -1.32158118404477131188E-11,
    -3.14991652796324136454E-11, 1.18891471078464383424E-11,  4.94060238822496958910E-10,
    3.39623202570838634515E-9,   2.26666899049817806459E-8,   2.04891858946906374183E-7,
    2.89137052083475648297E-6,   6.88975834691682398426E-5,   3.36911647825569408990E-3,
    8.04490411014108831608E-1};
constexpr double BI1[25] = {
    7.51729631084210481353E-18,  4.41434832307170791151E-18,  -4.65030536848935832153E-17,
    -3.20952592199342395980E-17, 2.96262899764595013876E-16,  3.30820231092092828324E-16,
    -1.88035477551078244854E-15, -3.81440307243700780478E-15, 1.04202769841288027642E-14,
    4.27244001671195135429E-14,  -2.10154184277266431302E-14, -4.08355111109219731823E-13,
    -7.19855177624590851209E-13, 2.03562854414708950722E-12,  1.41258074366137813316E-11,
    3.25260358301548823856E-11,  -1.89749581235054123450E-11, -5.58974346219658380687E-10,
    -3.83538038596423702205E-9,  -2.63146884688951950684E-8,  -2.51223623787020892529E-7,
    -3.88256480887769039346E-6,  -1.10588938762623716291E-4,  -9.76109749136146840777E-3,
    7.78576235018280120474E-1};
// K0: K0 + ln(x/2) I0 on [0, 2] in x^2 - 2.
constexpr double AK0[10] = {1.37446543561352307156E-16, 4.25981614279661018399E-14,
                            1.03496952576338420167E-11, 1.90451637722020886025E-9,
                            2.53479107902614945675E-7,  2.28621210311945178607E-5,
                            1.26461541144692592338E-3,  3.59799365153615016266E-2,
                            3.44289899924628486886E-1,  -5.35327393233902768720E-1};
// K0 from 1 on in three pieces, Y0 and Y1 on [2, 5] with their zeros
// divided out (generated by tools/s_real_cheb.py; do not edit).
// exp(x) sqrt(x) K0(x) on [1, 2], t = 2x - 3
constexpr double CK0_1_2[20] = {
    5.70196208228243693e-17,  -3.51724746568660173e-16, 2.17525693645908653e-15,
    -1.34913528070415055e-14, 8.39386750929314611e-14,  -5.24051733756564620e-13,
    3.28442210238143951e-12,  -2.06734352919147850e-11, 1.30757599171385037e-10,
    -8.31568376424186280e-10, 5.32154607674496819e-09,  -3.42996676443002625e-08,
    2.22920214513513323e-07,  -1.46295626174468771e-06, 9.71198748443603250e-06,
    -6.53675299372275090e-05, 4.47359767291619331e-04,  -3.12489465051390492e-03,
    2.23897516734889862e-02,  2.34100378380041807e+00,
};
// exp(x) sqrt(x) K0(x) on [2, 8], t = (16/x - 5)/3
constexpr double CK0_2_8[17] = {
    5.33526021695291141e-17,  -3.34965425514956254e-16, 2.15641257102146305e-15,
    -1.42733284188454853e-14, 9.74497849782591811e-14,  -6.88957474100787103e-13,
    5.06804069818857531e-12,  -3.90235328696218424e-11, 3.16942965809749971e-10,
    -2.74270554990020124e-09, 2.56371303640346916e-08,  -2.63936722200966495e-07,
    3.08170017386297470e-06,  -4.28100668888609917e-05, 7.73418115469385790e-04,
    -2.23565260569981890e-02, 2.42356052096672059e+00,
};
// exp(x) sqrt(x) K0(x) on [8, inf), t = 16/x - 1
constexpr double CK0_8_INF[14] = {
    -2.34168511757924248e-17, 2.06219802919781816e-16,  -1.92755480583895619e-15,
    1.92578728058991707e-14,  -2.07433138739834786e-13, 2.43501803936504099e-12,
    -3.15859299786056590e-11, 4.61118257617971774e-10,  -7.77011043852173814e-09,
    1.56783181085231079e-07,  -4.01361417543570979e-06, 1.44455093177500585e-04,
    -9.17485269102569570e-03, 2.48798130173692389e+00,
};
constexpr double kY0Zero2[2] = {3.95767841931485798e+00, -1.07643406975627060e-16};
constexpr double kY1Zero1[2] = {2.19714132603101708e+00, -4.82598358764549657e-17};
// Y0(x) / (x - y0,2) on [2, 5], t = (2x - 7)/3
constexpr double CY0_2_5[25] = {
    3.69929945056493233e-18,  -1.71060653161962866e-17, 7.92310106445740654e-17,
    -3.67631927512332576e-16, 1.70910921084352248e-15,  -7.96230481422095957e-15,
    3.71795024299466307e-14,  -1.74043389821040294e-13, 8.16965486653096019e-13,
    -3.84667914305406568e-12, 1.81771455763484464e-11,  -8.61379445893397699e-11,
    4.08247881103120804e-10,  -1.97222745555972816e-09, 1.00405692488541410e-08,
    -4.32997655698401300e-08, 9.28819710325146681e-08,  -1.45481526628351160e-06,
    2.36662535526431114e-05,  7.57625371520529423e-06,  -1.41279672415425806e-03,
    -2.09534756747018847e-03, 6.73033063320305353e-02,  -1.55538659972490091e-02,
    -6.88523934724965647e-01,
};
constexpr double kY1Zero2[2] = {5.42968104079413472e+00, 4.16251402667037701e-16};
// Y1(x) / ((x - y1,1)(x - y1,2)) on [2, 5], t = (2x - 7)/3
constexpr double CY1_2_5[26] = {
    2.17228610707542896e-18,  -9.64283740761591258e-18, 4.28018621204519670e-17,
    -1.89970157643383979e-16, 8.43076102955143748e-16,  -3.74109899536371869e-15,
    1.65986648907660081e-14,  -7.36337251713415755e-14, 3.26584119566801286e-13,
    -1.44813479000808507e-12, 6.41938009979333219e-12,  -2.84453806690888988e-11,
    1.25991585294868097e-10,  -5.57821459343020001e-10, 2.46588210060805097e-09,
    -1.08525809358843805e-08, 4.83048216646773488e-08,  -2.23348248577325503e-07,
    8.86727098883198562e-07,  -2.06831275918980142e-06, 2.33044762346399455e-05,
    -2.93692545052537900e-04, -7.86906072410635516e-05, 1.13103970187919279e-02,
    1.78171406247069862e-02,  -3.03105657105842363e-01,
};

// K1: x (K1 - ln(x/2) I1) on [0, 2]; exp(x) sqrt(x) K1 beyond.
constexpr double AK1[11] = {
    -7.02386347938628759343E-18, -2.42744985051936593393E-15, -6.66690169419932900609E-13,
    -1.41148839263352776110E-10, -2.21338763073472585583E-8,  -2.43340614156596823496E-6,
    -1.73028895751305206302E-4,  -6.97572385963986435018E-3,  -1.22611180822657148235E-1,
    -3.53155960776544875667E-1,  1.52530022733894777053E0};
constexpr double BK1[25] = {
    -5.75674448366501715755E-18, 1.79405087314755922667E-17,  -5.68946255844285935196E-17,
    1.83809354436663880070E-16,  -6.05704724837331885336E-16, 2.03870316562433424052E-15,
    -7.01983709041831346144E-15, 2.47715442448130437068E-14,  -8.97670518232499435011E-14,
    3.34841966607842919884E-13,  -1.28917396095102890680E-12, 5.13963967348173025100E-12,
    -2.12996783842756842877E-11, 9.21831518760500529508E-11,  -4.19035475934189648750E-10,
    2.01504975519703286596E-9,   -1.03457624656780970260E-8,  5.74108412545004946722E-8,
    -3.50196060308781257119E-7,  2.40648494783721712015E-6,   -1.93619797416608296024E-5,
    1.95215518471351631108E-4,   -2.85781685962277938680E-3,  1.03923736576817238437E-1,
    2.72062619048444266945E0};

// exp(x) * v without overflowing where the product is finite.
inline double scale_exp(double v, double x) {
  if (x < 700.0) return v * std::exp(x);
  double h = std::exp(0.5 * x);
  return (v * h) * h;
}

}  // namespace

// x^2 - r for x^2 and r given as double-doubles: near a zero of the
// function the factor keeps its relative accuracy.
inline double sq_minus(dd::DD sq, dd::DD r) {
  dd::DD d = dd::two_sum(sq.hi, -r.hi);
  return d.hi + (d.lo + (sq.lo - r.lo));
}

double bessel_j0(double x) {
  x = std::fabs(x);
  if (x <= 5.0) {
    double z = x * x;
    if (x < 0x1p-27) return 1.0;  // 1 - x^2/4 rounds to 1
    dd::DD sq = dd::two_prod(x, x);
    return sq_minus(sq, DR1) * sq_minus(sq, DR2) * polevl(z, RP0) / p1evl(z, RQ0);
  }
  return hankel(x, false, false);
}

double bessel_y0(double x) {
  // Below 1e-10 the terms in x^2 are below the last bit: the rational part
  // is its value at 0, and squares would only produce subnormal numbers.
  if (x < 1e-10) return YP0[7] / YQ0[6] + kTwoOverPi * std::log(x);
  if (x >= 2.0 && x <= 5.0)  // (x - zero) is exact here (x within [z/2, 2z])
    return ((x - kY0Zero2[0]) - kY0Zero2[1]) * chbevl((4.0 * x - 14.0) / 3.0, CY0_2_5);
  if (x <= 5.0) {
    double z = x * x;
    return polevl(z, YP0) / p1evl(z, YQ0) + kTwoOverPi * std::log(x) * bessel_j0(x);
  }
  return hankel(x, false, true);
}

double bessel_j1(double x) {
  double ax = std::fabs(x);
  if (ax < 0x1p-27) return 0.5 * x;  // x/2 - x^3/16 + ...
  if (ax <= 5.0) {
    double z = x * x;
    dd::DD sq = dd::two_prod(x, x);
    return polevl(z, RP1) / p1evl(z, RQ1) * x * sq_minus(sq, Z1) * sq_minus(sq, Z2);
  }
  double v = hankel(ax, true, false);
  return x < 0 ? -v : v;
}

double bessel_y1(double x) {
  if (x < 1e-10) return -kTwoOverPi / x;  // the next terms are O(x ln x)
  if (x >= 2.0 && x <= 5.0)
    return ((x - kY1Zero1[0]) - kY1Zero1[1]) * ((x - kY1Zero2[0]) - kY1Zero2[1]) *
           chbevl((4.0 * x - 14.0) / 3.0, CY1_2_5);
  if (x <= 5.0) {
    double z = x * x;
    double w = x * (polevl(z, YP1) / p1evl(z, YQ1));
    return w + kTwoOverPi * (bessel_j1(x) * std::log(x) - 1.0 / x);
  }
  return hankel(x, true, true);
}

double bessel_i0e(double x) {
  x = std::fabs(x);
  if (x <= 8.0) return chbevl(x / 2.0 - 2.0, AI0);
  return chbevl(32.0 / x - 2.0, BI0) / std::sqrt(x);
}

double bessel_i0(double x) {
  x = std::fabs(x);
  return scale_exp(bessel_i0e(x), x);
}

// I1(x) = (x/2) S(z), S(z) = sum z^k / (k! (k+1)!), z = x^2/4, for |x| <= 8:
// positive terms.  z is split exactly as hi + lo and S(z) ~ S(hi) + lo S'(hi),
// so that the rounding of x^2 does not grow with the order of the terms.
double i1_series(double ax) {
  if (ax < 0x1p-27) return 0.5 * ax;
  dd::DD sq = dd::two_prod(ax, ax);
  double z = 0.25 * sq.hi, zl = 0.25 * sq.lo;
  double t = 1.0, s = 1.0, ds = 0.0;
  for (int k = 1; k < 60; ++k) {
    t *= z / (k * (k + 1.0));
    s += t;
    ds += k * t;
    if (t < 1e-17 * s) break;
  }
  if (z > 0) s += zl * ds / z;
  return 0.5 * ax * s;
}

double bessel_i1e(double x) {
  double z = std::fabs(x);
  double v;
  if (z <= 8.0)
    v = i1_series(z) * std::exp(-z);
  else
    v = chbevl(32.0 / z - 2.0, BI1) / std::sqrt(z);
  return x < 0 ? -v : v;
}

double bessel_i1(double x) {
  double z = std::fabs(x);
  double v = z <= 8.0 ? i1_series(z) : scale_exp(chbevl(32.0 / z - 2.0, BI1) / std::sqrt(z), z);
  return x < 0 ? -v : v;
}

// x^2 - 2 with the square's rounding error carried: the Chebyshev sums in
// x^2 - 2 near x = 2 would otherwise magnify it.
inline double sq_minus_2(double x) {
  if (x < 0x1p-27) return -2.0;  // x^2 below half an ulp of 2
  dd::DD sq = dd::two_prod(x, x);
  return (sq.hi - 2.0) + sq.lo;
}

// c[0] + c[1] z + ... + c[12] z^12 in Estrin's arrangement.
inline double estrin13(const double c[13], double z) {
  const double z2 = z * z, z4 = z2 * z2, z8 = z4 * z4;
  const double p01 = c[0] + c[1] * z, p23 = c[2] + c[3] * z, p45 = c[4] + c[5] * z;
  const double p67 = c[6] + c[7] * z, p89 = c[8] + c[9] * z, p1011 = c[10] + c[11] * z;
  const double p0_3 = p01 + z2 * p23, p4_7 = p45 + z2 * p67, p8_11 = p89 + z2 * p1011;
  return (p0_3 + z4 * p4_7) + z8 * (p8_11 + z4 * c[12]);
}

// I0(x) for 0 <= x <= 2 from its power series sum z^k / (k!)^2, z = x^2/4
// <= 1, in Estrin's arrangement: positive terms, so the order of the
// additions costs no accuracy and the short dependency chains cost less
// time than a Chebyshev sum.
inline double i0_small(double x) {
  static constexpr double c[13] = {1.0,
                                   1.0,
                                   0.25,
                                   1.0 / 36,
                                   1.0 / 576,
                                   1.0 / 14400,
                                   1.0 / 518400,
                                   1.0 / 25401600,
                                   1.0 / 1625702400,
                                   1.0 / 131681894400.0,
                                   1.0 / 13168189440000.0,
                                   1.0 / 1593350922240000.0,
                                   1.0 / 229442532802560000.0};
  return estrin13(c, 0.25 * x * x);
}

// I1(x) / (x/2) for 0 <= x <= 2: sum z^k / (k! (k+1)!), likewise.
inline double i1_small_ratio(double x) {
  static constexpr double c[13] = {1.0,
                                   0.5,
                                   1.0 / 12,
                                   1.0 / 144,
                                   1.0 / 2880,
                                   1.0 / 86400,
                                   1.0 / 3628800,
                                   1.0 / 203212800,
                                   1.0 / 14631321600.0,
                                   1.0 / 1316818944000.0,
                                   1.0 / 144850083840000.0,
                                   1.0 / 19120211066880000.0,
                                   1.0 / 2982752926433280000.0};
  return estrin13(c, 0.25 * x * x);
}

// exp(x) sqrt(x) K0(x) for x > 1.
inline double k0_scaled_sqrt(double x) {
  if (x <= 2.0) return chbevl(4.0 * x - 6.0, CK0_1_2);
  if (x <= 8.0) return chbevl((32.0 / x - 10.0) / 3.0, CK0_2_8);
  return chbevl(32.0 / x - 2.0, CK0_8_INF);
}

// Below 1: K0 = A(x^2 - 2) - ln(x/2) I0(x), where the two parts cancel
// less than they do towards 2.
double bessel_k0(double x) {
  if (x <= 1.0) return chbevl(sq_minus_2(x), AK0) - std::log(0.5 * x) * i0_small(x);
  if (x > 745.2) return 0.0;
  return std::exp(-x) * k0_scaled_sqrt(x) / std::sqrt(x);
}

double bessel_k0e(double x) {
  if (x <= 1.0) return bessel_k0(x) * std::exp(x);
  return k0_scaled_sqrt(x) / std::sqrt(x);
}

double bessel_k1(double x) {
  if (x <= 2.0)
    return std::log(0.5 * x) * (0.5 * x * i1_small_ratio(x)) + chbevl(sq_minus_2(x), AK1) / x;
  if (x > 745.2) return 0.0;
  return std::exp(-x) * chbevl(8.0 / x - 2.0, BK1) / std::sqrt(x);
}

double bessel_k1e(double x) {
  if (x <= 2.0) return bessel_k1(x) * std::exp(x);
  return chbevl(8.0 / x - 2.0, BK1) / std::sqrt(x);
}

}  // namespace zem::sf
