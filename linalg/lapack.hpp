// Prototypes of the Fortran LAPACK routines that the library calls.
//
// Fortran conventions: every argument by address, matrices column-major
// with a leading dimension, INTEGER is 32 bits, and each CHARACTER argument
// adds a hidden length, passed by value as size_t after all the others, in
// the order of the character arguments (1 for a single letter).
#pragma once
#include <cstddef>

using lapack_int = int;

extern "C" {

// Balances a general matrix (job 'N', 'P', 'S' or 'B'): A <- D^-1 P^T A P D.
void dgebal_(const char* job, const lapack_int* n, double* a, const lapack_int* lda,
             lapack_int* ilo, lapack_int* ihi, double* scale, lapack_int* info, std::size_t job_len);

// Eigenvalues of an upper Hessenberg matrix and, with job 'S', its Schur
// form T in h; compz 'N', 'I' or 'V' for the Schur vectors.
void dhseqr_(const char* job, const char* compz, const lapack_int* n, const lapack_int* ilo,
             const lapack_int* ihi, double* h, const lapack_int* ldh, double* wr, double* wi,
             double* z, const lapack_int* ldz, double* work, const lapack_int* lwork,
             lapack_int* info, std::size_t job_len, std::size_t compz_len);

// Right and/or left eigenvectors of a quasi-triangular Schur form T.
void dtrevc_(const char* side, const char* howmny, lapack_int* select, const lapack_int* n,
             const double* t, const lapack_int* ldt, double* vl, const lapack_int* ldvl, double* vr,
             const lapack_int* ldvr, const lapack_int* mm, lapack_int* m, double* work,
             lapack_int* info, std::size_t side_len, std::size_t howmny_len);

// Reciprocal condition numbers of eigenvalues (s) and/or eigenvectors (sep)
// of a quasi-triangular Schur form T.
void dtrsna_(const char* job, const char* howmny, const lapack_int* select, const lapack_int* n,
             const double* t, const lapack_int* ldt, const double* vl, const lapack_int* ldvl,
             const double* vr, const lapack_int* ldvr, double* s, double* sep,
             const lapack_int* mm, lapack_int* m, double* work, const lapack_int* ldwork,
             lapack_int* iwork, lapack_int* info, std::size_t job_len, std::size_t howmny_len);

// Eigenvalues and optionally eigenvectors of a general matrix.
void dgeev_(const char* jobvl, const char* jobvr, const lapack_int* n, double* a,
            const lapack_int* lda, double* wr, double* wi, double* vl, const lapack_int* ldvl,
            double* vr, const lapack_int* ldvr, double* work, const lapack_int* lwork,
            lapack_int* info, std::size_t jobvl_len, std::size_t jobvr_len);

// Norm of a general matrix: 'M' largest element, '1'/'O' one-norm, 'I'
// infinity-norm, 'F'/'E' Frobenius norm.  work: m doubles for 'I'.
double dlange_(const char* norm, const lapack_int* m, const lapack_int* n, const double* a,
               const lapack_int* lda, double* work, std::size_t norm_len);

}  // extern "C"
