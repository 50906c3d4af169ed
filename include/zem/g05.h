/* g05: random numbers.  Three independent sources:
 *
 *  - the stored-state generator (g05c...), one state per thread, created
 *    on first use.  A thread that never seeds gets the same sequence as
 *    every other such thread; a seed or restore affects only the calling
 *    thread;
 *  - the seed-array generators (g05k...), whose whole state is the
 *    caller's igen and iseed[4]: igen 0 is the basic generator, igen
 *    1..273 one of 273 Wichmann-Hill generators;
 *  - the quasi-random sequences of g05yac and g05ybc (Sobol, Niederreiter
 *    base 2, Faure), whose state is the caller's record gf of 2013 words.
 *
 * The basic generator is x(k+1) = 13^13 x(k) mod 2^60, with the value
 * x 2^-60 clipped to at most 1 - x02ajc(); it is never 0. */
#ifndef ZEM_G05_H
#define ZEM_G05_H
#include "zem/types.h"
ZEM_BEGIN_DECLS

/* ---- Stored-state family (per thread). */

/* g05cac: the next value of the calling thread's generator, in (0, 1).
 * Values come from a batch of 63, refilled when it is used up. */
ZEM_API double g05cac(void);

/* g05cbc: sets a repeatable state from seed (seed and -seed give the same
 * state; 0 is allowed).  The pending values of the normal and gamma
 * samplers are cleared.  The first value after the call is a^2 x0, x0 the
 * state the seed spells. */
ZEM_API void g05cbc(int32_t seed);

/* g05ccc: sets a non-repeatable state from the calendar clock (seconds);
 * two calls in one second still give different states.  A clock that
 * cannot be read aborts the process with NE_SYSTEM_TIME. */
ZEM_API void g05ccc(void);

/* g05cxc: puts back the default state, the one a new thread starts in; the
 * first value after it is the first value of a fresh thread. */
ZEM_API void g05cxc(void);

/* g05cfc: saves the calling thread's state.
 *   istate  out  9 integers: a checksum, the generator's position in five
 *                words, a reserved word in three.
 *   xstate  out  4 doubles: a checksum and the three pending values of
 *                the samplers.
 * Null arrays are ignored. */
ZEM_API void g05cfc(int32_t istate[], double xstate[]);

/* g05cgc: restores a state saved by g05cfc; the values then follow as
 * they did after the save.
 * Reports: NE_BAD_PARAM (a null array), NE_STATE_CORRUPT (either checksum
 * disagrees with the arrays; the state is left as it was). */
ZEM_API void g05cgc(const int32_t istate[], const double xstate[], ZemError *fail);

/* g05caz: creates the calling thread's state if need be and hands out its
 * parts: *status 0, the digits (4 x 64 integers), the two pending doubles
 * of the uniform-recycling normal and gamma samplers, the batch (63
 * doubles, then the position in the batch as an integer in the 64th
 * slot), the pending normal.  Null pointers are skipped. */
ZEM_API void g05caz(int32_t *status, int32_t **digits, double **pending, double **batch,
                    double **pending_normal);

/* get_bg05ca: copies the two pending doubles (the recycled uniform, the
 * pending gamma half; -1.0 means empty) into pending[0..1]. */
ZEM_API void get_bg05ca(double pending[]);

/* get_dg05ca: the pending normal (256.0 means empty). */
ZEM_API double get_dg05ca(void);

/* ---- Seed-array family (state in igen, iseed). */

/* g05kac: one step of generator igen on iseed, returning the value in
 * [0, 1) (the basic generator: (0, 1)).  igen and iseed are normally set
 * up by g05kbc or g05kcc.  A null iseed returns 0.0 and draws nothing. */
ZEM_API double g05kac(int32_t igen, int32_t iseed[]);

/* g05kbc: makes igen and iseed a repeatable state.
 *   igen   in/out  <= 0: the basic generator, returned as 0, seeded from
 *                  iseed[0] as g05cbc seeds (one step is taken);
 *                  > 0: Wichmann-Hill, folded into 1..273 (274 is 1).
 *   iseed  in/out  Wichmann-Hill: each seed outside 1..16909320 is
 *                  replaced by (|s| + 1) mod 16909320 + 1.
 * Null pointers are ignored. */
ZEM_API void g05kbc(int32_t *igen, int32_t iseed[]);

/* g05kcc: as g05kbc, with seeds from clock_seed instead of iseed. */
ZEM_API void g05kcc(int32_t *igen, int32_t iseed[]);

/* g05kec: a Boolean that is true with probability p, one step of igen.
 *   p      in   0.0 <= p <= 1.0 (0.0 is never true, 1.0 always).
 * Reports: NE_BAD_PARAM (null iseed), NE_REAL (p outside [0, 1] or NaN;
 * nothing is drawn and the result is false). */
ZEM_API int32_t g05kec(double p, int32_t igen, int32_t iseed[], ZemError *fail);

/* clock_seed: a seed in 0..16909320 from the calendar time and the
 * processor time of the process, varied with k. */
ZEM_API int32_t clock_seed(int32_t k);

/* ---- Quasi-random sequences. */

typedef int32_t Zem_QuasiRandom_State; /* Zem_QuasiRandom_Init, _Cont, _Finish */
typedef int32_t Zem_QuasiRandom_Seq;   /* Zem_QuasiRandom_Sobol, _Nied, _Faure */

/* g05yac: points of a quasi-random sequence in [0, 1)^idim.
 *   state  in   Zem_QuasiRandom_Init: set up gf for the sequence and skip
 *               iskip points; _Cont: the next point into quasi; _Finish:
 *               frees the tables of a Faure record (ignored otherwise).
 *               Call Init once, then Cont; Faure records need a Finish.
 *   seq    in   Zem_QuasiRandom_Sobol (Bratley-Fox polynomials and
 *               initial values; the first point is 0.5, ..., 0.5),
 *               Zem_QuasiRandom_Nied (Niederreiter base 2; the first point
 *               is the origin), Zem_QuasiRandom_Faure (base the smallest
 *               prime >= idim; the first point is that of n = iskip + 1).
 *   iskip  in   Init only: points to skip, >= 0 (Sobol < 2^30, Niederreiter
 *               < 536870911, Faure below base^digits).
 *   idim   in   1..40 (Faure 2..40); at Cont at most the idim of the Init.
 *   quasi  out  idim values (Cont).
 *   gf     in/out  the record, 2013 words.
 * Reports: NE_BAD_PARAM (null quasi or gf; state or seq invalid), NE_INT
 * (idim out of range; iskip < 0 or too large), NE_INITIALISATION (gf not
 * set up for seq, or idim above the Init's), NE_TOO_MANY_CALLS (the
 * sequence is exhausted), NE_INTERNAL_ERROR (Faure's counter overflowed,
 * or no memory for Faure's tables). */
ZEM_API void g05yac(Zem_QuasiRandom_State state, Zem_QuasiRandom_Seq seq, int32_t iskip,
                    int32_t idim, double quasi[], int32_t gf[], ZemError *fail);

/* g05ybc: quasi-random normal (lnorm 0) or log-normal (lnorm nonzero)
 * points: each pair (u0, u1) of a g05yac point becomes
 *   quasi[2j+1] = r cos(2 pi u0) std[2j+1] + xmean[2j+1],
 *   quasi[2j]   = r sin(2 pi u0) std[2j] + xmean[2j],  r = sqrt(-2 ln u1),
 * then exp of each when lnorm is set.  idim even, 2..40; std[i] > 0.
 * Niederreiter's first point is the origin, whose pairs have no normal
 * image: skip it (iskip >= 1).
 * Reports: as g05yac, and NE_BAD_PARAM (null xmean or std, or a std[i]
 * <= 0), NE_INT (idim odd). */
ZEM_API void g05ybc(Zem_QuasiRandom_State state, Zem_QuasiRandom_Seq seq, int32_t lnorm,
                    const double xmean[], const double std_dev[], int32_t iskip, int32_t idim,
                    double quasi[], int32_t gf[], ZemError *fail);

ZEM_END_DECLS
#endif /* ZEM_G05_H */
