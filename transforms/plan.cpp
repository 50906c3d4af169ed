#include "transforms/plan.hpp"

#include <algorithm>

namespace zem::fft {

SingleStatus check_single(long n) noexcept {
  long rest = n;
  int count = 0;
  for (long d = 2; d <= kSingleMaxPrime && rest > 1; ++d) {
    while (rest % d == 0) {
      rest /= d;
      if (rest % d == 0) {
        rest /= d;
        count += 2;  // a square factor
      } else {
        count += 1;  // a single factor
      }
    }
  }
  if (rest > 1) return SingleStatus::PrimeTooLarge;
  if (count > kSingleMaxFactors) return SingleStatus::TooManyFactors;
  return SingleStatus::Ok;
}

int trial_factors(long n, int32_t out[]) noexcept {
  if (n <= 1) {
    out[0] = 1;
    out[1] = 0;
    return 1;
  }
  static constexpr long kFirst[] = {4, 2, 3, 5};
  long rest = n;
  int count = 0;
  long trial = kFirst[0];
  for (int j = 0; rest > 1; ++j) {
    trial = j < 4 ? kFirst[j] : trial + 2;
    if (trial * trial > rest && trial > 5) {  // what is left is prime
      out[count++] = static_cast<int32_t>(rest);
      break;
    }
    while (rest % trial == 0) {
      out[count++] = static_cast<int32_t>(trial);
      rest /= trial;
    }
  }
  out[count] = 0;
  return count;
}

int prime_factor_count(long n) noexcept {
  int count = 0;
  for (long d = 2; d * d <= n; ++d)
    while (n % d == 0) {
      n /= d;
      ++count;
    }
  return count + (n > 1 ? 1 : 0);
}

bool Plan::middle_in_place() const noexcept {
  int a = 1, b = 1;  // the two largest middle digits
  for (int i = nleft; i < nleft + nmid; ++i) {
    if (dig[i] > a) {
      b = a;
      a = dig[i];
    } else if (dig[i] > b) {
      b = dig[i];
    }
  }
  return nmid < 2 || a * b <= kStackRadix * kStackRadix / 4;
}

namespace {

// Powers of 2 of one half, as few passes as possible and no radix 2 when a
// pair of 4s does as well: 3h bits -> eights; 3h+1 -> eights and two 4s;
// 3h+2 -> eights and one 4.
int half_power_of_two(int bits, int out[]) {
  int k = 0;
  if (bits == 1) {
    out[k++] = 2;
    return k;
  }
  int eights = bits / 3, rem = bits % 3;
  if (rem == 1) eights -= 1;
  for (int i = 0; i < eights; ++i) out[k++] = 8;
  if (rem == 1) {
    out[k++] = 4;
    out[k++] = 4;
  } else if (rem == 2) {
    out[k++] = 4;
  }
  return k;
}

}  // namespace

namespace {
Plan build_plan(long n) noexcept;
}  // namespace

// Repeated calls with one length (the common case of a program that
// transforms many sequences) reuse the thread's last plan instead of
// factorising again.
Plan make_plan(long n) noexcept {
  thread_local Plan last;
  thread_local bool valid = false;
  if (valid && last.n == n) return last;
  last = build_plan(n);
  valid = true;
  return last;
}

namespace {

Plan build_plan(long n) noexcept {
  Plan plan;
  plan.n = n;
  if (n <= 1) return plan;

  // Prime factorisation.
  long primes[kMaxDigits];
  int expo[kMaxDigits];
  int np = 0;
  long rest = n;
  if (rest % 2 == 0) {
    const int e = __builtin_ctzl(static_cast<unsigned long>(rest));
    primes[np] = 2;
    expo[np++] = e;
    rest >>= e;
  }
  for (long d = 3; d * d <= rest; d += 2) {
    if (rest % d) continue;
    primes[np] = d;
    expo[np] = 0;
    while (rest % d == 0) {
      rest /= d;
      ++expo[np];
    }
    ++np;
  }
  if (rest > 1) {
    primes[np] = rest;
    expo[np++] = 1;
  }
  const int e2 = (np > 0 && primes[0] == 2) ? expo[0] : 0;
  const int first_odd = e2 > 0 ? 1 : 0;

  // Odd part: pairs to the halves, singles to the middle.
  int odd_half[kMaxDigits], odd_mid[kMaxDigits];
  int nodd_half = 0, nodd_mid = 0;
  for (int i = np - 1; i >= first_odd; --i) {  // larger radices first
    for (int k = 0; k < expo[i] / 2; ++k) odd_half[nodd_half++] = static_cast<int>(primes[i]);
  }
  for (int i = first_odd; i < np; ++i)
    if (expo[i] % 2) odd_mid[nodd_mid++] = static_cast<int>(primes[i]);

  // Power of 2: c bits in the middle (same parity as e2), the rest split.
  double best_cost = 1e300;
  int best_c = e2 % 2;
  for (int c = e2 % 2; c <= std::min(3, e2); c += 2) {
    int half[kMaxDigits];
    const int nh = half_power_of_two((e2 - c) / 2, half);
    const int nmid = nodd_mid + (c > 0 ? 1 : 0);
    int twos = 0;
    for (int i = 0; i < nh; ++i) twos += half[i] == 2;
    twos = 2 * twos + (c == 1 ? 1 : 0);
    const double cost = 2.0 * (nh + nodd_half) + nmid + 0.75 * nmid * (nmid - 1) / 2 + 0.1 * twos;
    if (cost < best_cost) {
      best_cost = cost;
      best_c = c;
    }
  }
  int half2[kMaxDigits];
  const int nh2 = half_power_of_two((e2 - best_c) / 2, half2);

  int k = 0;
  for (int i = 0; i < nh2; ++i) plan.dig[k++] = half2[i];
  for (int i = 0; i < nodd_half; ++i) plan.dig[k++] = odd_half[i];
  plan.nleft = k;
  if (best_c > 0) plan.dig[k++] = 1 << best_c;
  for (int i = 0; i < nodd_mid; ++i) plan.dig[k++] = odd_mid[i];
  plan.nmid = k - plan.nleft;
  for (int i = plan.nleft - 1; i >= 0; --i) plan.dig[k++] = plan.dig[i];
  plan.ndig = k;
  for (int i = 0; i < k; ++i) plan.max_radix = std::max(plan.max_radix, plan.dig[i]);
  return plan;
}

}  // namespace

}  // namespace zem::fft
