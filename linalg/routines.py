"""The dense linear-algebra exports, one row each; tools/gen_linalg.py makes
the headers, the wrappers and their argument tests from this table.

A row gives the export, its LAPACK kernel, what it computes, and its
arguments in order.  Argument tokens:

  order                  Zem_RowMajor or Zem_ColMajor
  trans uplo diag side norm
                         enumerators, passed to the kernel as letters
  m n nrhs kl ku kd ...  dimensions (int32_t, >= 0)
  pdX                    leading dimension of matrix X
  X:ge(r,c)              general r by c matrix
  X:tri(n)               order n matrix of which the triangle uplo is used
  X:band(r,c,kl,ku[,f])  band matrix (f extra super-diagonals of workspace)
  X:pk(n)                triangle uplo of an order n matrix, packed
  X:vec(len) X:ivec(len) X:rvec(len)
                         vectors of the element type, of int32_t, of double
  X:real                 a real scalar argument
  X:scalar               a scalar of the element type (ZemComplex for z kernels)
  incX                   increment of vector X (not 0)
  x|y;arg                in a size: x when the enumerator arg is NoTrans,
                         LeftSide or Upper, else y
  X:out                  a real scalar result (double *)
  ...:i :o :io           input (default), output, both

Sizes are C expressions of the dimensions (MIN and MAX allowed), and read as
written in the constraint texts.  `work` gives the sizes of the kernel's
workspace arrays; a kernel with lwork is asked for its optimal size.
`info` names the report of a positive info (INFO below).
"""

CHAPTERS = {
    'f06': 'f06: matrix-vector and matrix-matrix operations (BLAS levels 2 and 3) over CBLAS.',
    'f07': 'f07: linear equations (LU, Cholesky and related factorisations) over LAPACK.',
}

# Reports of a positive info: the catalogue row and the routine's own text,
# which begins with four blanks and is filled with info (once or twice).
INFO = {
    'lu': ('NE_SINGULAR',
           '    u(%ld,%ld) is exactly zero.\n    The factorization has been completed, but the factor U is exactly\n'
           '    singular, and division by zero will occur if it is used to solve a\n    system of equations.'),
    'lu_inverse': ('NE_SINGULAR',
                   '    u(%ld,%ld) is exactly zero.\n    U is singular, and the inverse of A cannot be computed.'),
    'posdef': ('NE_NOT_POS_DEF',
               '    The leading minor of order %ld is not positive definite\n'
               '    and the factorization could not be completed.'),
    'ldl': ('NE_SINGULAR',
            '    d(%ld,%ld) is exactly zero.\n    The factorization has been completed, but the block diagonal\n'
            '    matrix D is exactly singular, and division by zero will occur if it\n'
            '    is used to solve a system of equations.'),
    'ldl_inverse': ('NE_SINGULAR',
                    '    d(%ld,%ld) is exactly zero; D is singular and the inverse of A\n    cannot be computed.'),
    'tri': ('NE_SINGULAR',
            '    a(%ld,%ld) is exactly zero; the triangular matrix is singular and the\n'
            '    system cannot be solved.'),
    'tri_inverse': ('NE_SINGULAR',
                    '    a(%ld,%ld) is exactly zero; the triangular matrix is singular and its\n'
                    '    inverse cannot be computed.'),
    'chol_inverse': ('NE_SINGULAR',
                     '    The diagonal element %ld of the Cholesky factor is zero;\n'
                     '    the matrix is singular and its inverse cannot be computed.'),
}

# Rows with api='cblas' call the CBLAS routine, which takes the storage order
# itself: the wrapper checks and calls, and copies nothing.

ROUTINES = [
    # ---- f06: BLAS level 2 ------------------------------------------------------
    dict(name='f06pac', kernel='dgemv', api='cblas', doc='y = alpha op(A) x + beta y, A general m by n.',
         args='order trans m n alpha:real a:ge(m,n) pda x:vec incx beta:real y:vec:io incy'),
    dict(name='f06pbc', kernel='dgbmv', api='cblas', doc='y = alpha op(A) x + beta y, A an m by n band matrix.',
         args='order trans m n kl ku alpha:real a:band(m,n,kl,ku) pda x:vec incx beta:real y:vec:io incy'),
    dict(name='f06pcc', kernel='dsymv', api='cblas', doc='y = alpha A x + beta y, A symmetric.',
         args='order uplo n alpha:real a:tri(n) pda x:vec incx beta:real y:vec:io incy'),
    dict(name='f06pdc', kernel='dsbmv', api='cblas', doc='y = alpha A x + beta y, A a symmetric band matrix.',
         args='order uplo n k alpha:real a:sband(n,k) pda x:vec incx beta:real y:vec:io incy'),
    dict(name='f06pec', kernel='dspmv', api='cblas', doc='y = alpha A x + beta y, A symmetric in packed storage.',
         args='order uplo n alpha:real ap:pk(n) x:vec incx beta:real y:vec:io incy'),
    dict(name='f06pfc', kernel='dtrmv', api='cblas', doc='x = op(A) x, A triangular.',
         args='order uplo trans diag n a:tri(n) pda x:vec:io incx'),
    dict(name='f06pgc', kernel='dtbmv', api='cblas', doc='x = op(A) x, A a triangular band matrix.',
         args='order uplo trans diag n k a:sband(n,k) pda x:vec:io incx'),
    dict(name='f06phc', kernel='dtpmv', api='cblas', doc='x = op(A) x, A triangular in packed storage.',
         args='order uplo trans diag n ap:pk(n) x:vec:io incx'),
    dict(name='f06pjc', kernel='dtrsv', api='cblas', doc='solves op(A) x = b (x overwrites b), A triangular.',
         args='order uplo trans diag n a:tri(n) pda x:vec:io incx'),
    dict(name='f06pkc', kernel='dtbsv', api='cblas', doc='solves op(A) x = b, A a triangular band matrix.',
         args='order uplo trans diag n k a:sband(n,k) pda x:vec:io incx'),
    dict(name='f06plc', kernel='dtpsv', api='cblas', doc='solves op(A) x = b, A triangular in packed storage.',
         args='order uplo trans diag n ap:pk(n) x:vec:io incx'),
    dict(name='f06pmc', kernel='dger', api='cblas', doc='A = alpha x y^T + A, the rank-one update.',
         args='order m n alpha:real x:vec incx y:vec incy a:ge(m,n):io pda'),
    dict(name='f06ppc', kernel='dsyr', api='cblas', doc='A = alpha x x^T + A, A symmetric.',
         args='order uplo n alpha:real x:vec incx a:tri(n):io pda'),
    dict(name='f06pqc', kernel='dspr', api='cblas', doc='A = alpha x x^T + A, A symmetric in packed storage.',
         args='order uplo n alpha:real x:vec incx ap:pk(n):io'),
    dict(name='f06prc', kernel='dsyr2', api='cblas', doc='A = alpha x y^T + alpha y x^T + A, A symmetric.',
         args='order uplo n alpha:real x:vec incx y:vec incy a:tri(n):io pda'),
    dict(name='f06psc', kernel='dspr2', api='cblas', doc='A = alpha x y^T + alpha y x^T + A, A packed symmetric.',
         args='order uplo n alpha:real x:vec incx y:vec incy ap:pk(n):io'),
    dict(name='f06sac', kernel='zgemv', api='cblas', doc='y = alpha op(A) x + beta y, A complex general.',
         args='order trans m n alpha:scalar a:ge(m,n) pda x:vec incx beta:scalar y:vec:io incy'),
    dict(name='f06sbc', kernel='zgbmv', api='cblas', doc='y = alpha op(A) x + beta y, A a complex band matrix.',
         args='order trans m n kl ku alpha:scalar a:band(m,n,kl,ku) pda x:vec incx beta:scalar y:vec:io incy'),
    dict(name='f06scc', kernel='zhemv', api='cblas', doc='y = alpha A x + beta y, A Hermitian.',
         args='order uplo n alpha:scalar a:tri(n) pda x:vec incx beta:scalar y:vec:io incy'),
    dict(name='f06sdc', kernel='zhbmv', api='cblas', doc='y = alpha A x + beta y, A a Hermitian band matrix.',
         args='order uplo n k alpha:scalar a:sband(n,k) pda x:vec incx beta:scalar y:vec:io incy'),
    dict(name='f06sec', kernel='zhpmv', api='cblas', doc='y = alpha A x + beta y, A Hermitian in packed storage.',
         args='order uplo n alpha:scalar ap:pk(n) x:vec incx beta:scalar y:vec:io incy'),
    dict(name='f06sfc', kernel='ztrmv', api='cblas', doc='x = op(A) x, A complex triangular.',
         args='order uplo trans diag n a:tri(n) pda x:vec:io incx'),
    dict(name='f06sgc', kernel='ztbmv', api='cblas', doc='x = op(A) x, A a complex triangular band matrix.',
         args='order uplo trans diag n k a:sband(n,k) pda x:vec:io incx'),
    dict(name='f06shc', kernel='ztpmv', api='cblas', doc='x = op(A) x, A complex triangular, packed.',
         args='order uplo trans diag n ap:pk(n) x:vec:io incx'),
    dict(name='f06sjc', kernel='ztrsv', api='cblas', doc='solves op(A) x = b, A complex triangular.',
         args='order uplo trans diag n a:tri(n) pda x:vec:io incx'),
    dict(name='f06skc', kernel='ztbsv', api='cblas', doc='solves op(A) x = b, A a complex triangular band matrix.',
         args='order uplo trans diag n k a:sband(n,k) pda x:vec:io incx'),
    dict(name='f06slc', kernel='ztpsv', api='cblas', doc='solves op(A) x = b, A complex triangular, packed.',
         args='order uplo trans diag n ap:pk(n) x:vec:io incx'),
    dict(name='f06smc', kernel='zgeru', api='cblas', doc='A = alpha x y^T + A.',
         args='order m n alpha:scalar x:vec incx y:vec incy a:ge(m,n):io pda'),
    dict(name='f06snc', kernel='zgerc', api='cblas', doc='A = alpha x y^H + A.',
         args='order m n alpha:scalar x:vec incx y:vec incy a:ge(m,n):io pda'),
    dict(name='f06spc', kernel='zher', api='cblas', doc='A = alpha x x^H + A, A Hermitian, alpha real.',
         args='order uplo n alpha:real x:vec incx a:tri(n):io pda'),
    dict(name='f06sqc', kernel='zhpr', api='cblas', doc='A = alpha x x^H + A, A packed Hermitian, alpha real.',
         args='order uplo n alpha:real x:vec incx ap:pk(n):io'),
    dict(name='f06src', kernel='zher2', api='cblas', doc='A = alpha x y^H + conj(alpha) y x^H + A, A Hermitian.',
         args='order uplo n alpha:scalar x:vec incx y:vec incy a:tri(n):io pda'),
    dict(name='f06ssc', kernel='zhpr2', api='cblas', doc='A = alpha x y^H + conj(alpha) y x^H + A, A packed Hermitian.',
         args='order uplo n alpha:scalar x:vec incx y:vec incy ap:pk(n):io'),

    # ---- f06: BLAS level 3 ------------------------------------------------------
    dict(name='f06yac', kernel='dgemm', api='cblas', doc='C = alpha op(A) op(B) + beta C.',
         args='order transa transb m n k alpha:real a:ge(m|k;transa,k|m;transa) pda '
              'b:ge(k|n;transb,n|k;transb) pdb beta:real c:ge(m,n):io pdc'),
    dict(name='f06ycc', kernel='dsymm', api='cblas', doc='C = alpha A B + beta C (side left) or alpha B A + beta C, A symmetric.',
         args='order side uplo m n alpha:real a:tri(m|n;side) pda b:ge(m,n) pdb beta:real c:ge(m,n):io pdc'),
    dict(name='f06yfc', kernel='dtrmm', api='cblas', doc='B = alpha op(A) B or alpha B op(A), A triangular.',
         args='order side uplo trans diag m n alpha:real a:tri(m|n;side) pda b:ge(m,n):io pdb'),
    dict(name='f06yjc', kernel='dtrsm', api='cblas', doc='solves op(A) X = alpha B or X op(A) = alpha B (X overwrites B), A triangular.',
         args='order side uplo trans diag m n alpha:real a:tri(m|n;side) pda b:ge(m,n):io pdb'),
    dict(name='f06ypc', kernel='dsyrk', api='cblas', doc='C = alpha A A^T + beta C or alpha A^T A + beta C, C symmetric.',
         args='order uplo trans n k alpha:real a:ge(n|k;trans,k|n;trans) pda beta:real c:tri(n):io pdc'),
    dict(name='f06yrc', kernel='dsyr2k', api='cblas', doc='C = alpha (A B^T + B A^T) + beta C or alpha (A^T B + B^T A) + beta C, C symmetric.',
         args='order uplo trans n k alpha:real a:ge(n|k;trans,k|n;trans) pda b:ge(n|k;trans,k|n;trans) pdb '
              'beta:real c:tri(n):io pdc'),
    dict(name='f06zac', kernel='zgemm', api='cblas', doc='C = alpha op(A) op(B) + beta C, complex.',
         args='order transa transb m n k alpha:scalar a:ge(m|k;transa,k|m;transa) pda '
              'b:ge(k|n;transb,n|k;transb) pdb beta:scalar c:ge(m,n):io pdc'),
    dict(name='f06zcc', kernel='zhemm', api='cblas', doc='C = alpha A B + beta C or alpha B A + beta C, A Hermitian.',
         args='order side uplo m n alpha:scalar a:tri(m|n;side) pda b:ge(m,n) pdb beta:scalar c:ge(m,n):io pdc'),
    dict(name='f06zfc', kernel='ztrmm', api='cblas', doc='B = alpha op(A) B or alpha B op(A), A complex triangular.',
         args='order side uplo trans diag m n alpha:scalar a:tri(m|n;side) pda b:ge(m,n):io pdb'),
    dict(name='f06zjc', kernel='ztrsm', api='cblas', doc='solves op(A) X = alpha B or X op(A) = alpha B, A complex triangular.',
         args='order side uplo trans diag m n alpha:scalar a:tri(m|n;side) pda b:ge(m,n):io pdb'),
    dict(name='f06zpc', kernel='zherk', api='cblas', doc='C = alpha A A^H + beta C or alpha A^H A + beta C, C Hermitian, alpha and beta real.',
         args='order uplo trans n k alpha:real a:ge(n|k;trans,k|n;trans) pda beta:real c:tri(n):io pdc'),
    dict(name='f06zrc', kernel='zher2k', api='cblas', doc='C = alpha A B^H + conj(alpha) B A^H + beta C (or the transposed form), C Hermitian, beta real.',
         args='order uplo trans n k alpha:scalar a:ge(n|k;trans,k|n;trans) pda b:ge(n|k;trans,k|n;trans) pdb '
              'beta:real c:tri(n):io pdc'),
    dict(name='f06ztc', kernel='zsymm', api='cblas', doc='C = alpha A B + beta C or alpha B A + beta C, A complex symmetric.',
         args='order side uplo m n alpha:scalar a:tri(m|n;side) pda b:ge(m,n) pdb beta:scalar c:ge(m,n):io pdc'),
    dict(name='f06zuc', kernel='zsyrk', api='cblas', doc='C = alpha A A^T + beta C or alpha A^T A + beta C, C complex symmetric.',
         args='order uplo trans n k alpha:scalar a:ge(n|k;trans,k|n;trans) pda beta:scalar c:tri(n):io pdc'),
    dict(name='f06zwc', kernel='zsyr2k', api='cblas', doc='C = alpha (A B^T + B A^T) + beta C (or the transposed form), C complex symmetric.',
         args='order uplo trans n k alpha:scalar a:ge(n|k;trans,k|n;trans) pda b:ge(n|k;trans,k|n;trans) pdb '
              'beta:scalar c:tri(n):io pdc'),

    # ---- f07a: general matrices ------------------------------------------------
    dict(name='f07adc', kernel='dgetrf',
         doc='LU factorisation of a real m by n matrix with partial pivoting, A = P L U.',
         args='order m n a:ge(m,n):io pda ipiv:ivec(MIN(m,n)):o', info='lu'),
    dict(name='f07aec', kernel='dgetrs',
         doc='solves A X = B or A^T X = B with the LU factorisation from f07adc.',
         args='order trans n nrhs a:ge(n,n) pda ipiv:ivec(n) b:ge(n,nrhs):io pdb'),
    dict(name='f07agc', kernel='dgecon',
         doc='estimates the reciprocal condition number of a real matrix in the 1-norm or the\n'
             ' * infinity-norm from its LU factorisation and the norm anorm of the original matrix.',
         args='order norm n a:ge(n,n) pda anorm:real rcond:out', work={'work': '4*n', 'iwork': 'n'}),
    dict(name='f07ahc', kernel='dgerfs',
         doc='refines the solution X of A X = B or A^T X = B and returns forward and backward\n'
             ' * error bounds, given A, its LU factorisation af and ipiv from f07adc.',
         args='order trans n nrhs a:ge(n,n) pda af:ge(n,n) pdaf ipiv:ivec(n) b:ge(n,nrhs) pdb '
              'x:ge(n,nrhs):io pdx ferr:vec(nrhs):o berr:vec(nrhs):o',
         work={'work': '3*n', 'iwork': 'n'}),
    dict(name='f07ajc', kernel='dgetri',
         doc='computes the inverse of a real matrix from its LU factorisation (f07adc).',
         args='order n a:ge(n,n):io pda ipiv:ivec(n)', info='lu_inverse'),
    dict(name='f07arc', kernel='zgetrf',
         doc='LU factorisation of a complex m by n matrix with partial pivoting, A = P L U.',
         args='order m n a:ge(m,n):io pda ipiv:ivec(MIN(m,n)):o', info='lu'),
    dict(name='f07asc', kernel='zgetrs',
         doc='solves A X = B, A^T X = B or A^H X = B with the LU factorisation from f07arc.',
         args='order trans n nrhs a:ge(n,n) pda ipiv:ivec(n) b:ge(n,nrhs):io pdb'),
    dict(name='f07auc', kernel='zgecon',
         doc='estimates the reciprocal condition number of a complex matrix from its LU\n'
             ' * factorisation (f07arc) and the norm anorm of the original matrix.',
         args='order norm n a:ge(n,n) pda anorm:real rcond:out', work={'work': '2*n', 'rwork': '2*n'}),
    dict(name='f07avc', kernel='zgerfs',
         doc='refines the solution X of A X = B, A^T X = B or A^H X = B and returns error bounds,\n'
             ' * given A and its LU factorisation from f07arc.',
         args='order trans n nrhs a:ge(n,n) pda af:ge(n,n) pdaf ipiv:ivec(n) b:ge(n,nrhs) pdb '
              'x:ge(n,nrhs):io pdx ferr:rvec(nrhs):o berr:rvec(nrhs):o',
         work={'work': '2*n', 'rwork': 'n'}),
    dict(name='f07awc', kernel='zgetri',
         doc='computes the inverse of a complex matrix from its LU factorisation (f07arc).',
         args='order n a:ge(n,n):io pda ipiv:ivec(n)', info='lu_inverse'),

    # ---- f07b: general band matrices (ab holds kl extra rows for the LU fill) ---
    dict(name='f07bdc', kernel='dgbtrf',
         doc='LU factorisation of a real m by n band matrix with kl sub- and ku\n'
             ' * super-diagonals, with partial pivoting; U has kl+ku super-diagonals.',
         args='order m n kl ku ab:band(m,n,kl,ku,kl):io pdab ipiv:ivec(MIN(m,n)):o', info='lu'),
    dict(name='f07bec', kernel='dgbtrs',
         doc='solves A X = B or A^T X = B for a band matrix factorised by f07bdc.',
         args='order trans n kl ku nrhs ab:band(n,n,kl,ku,kl) pdab ipiv:ivec(n) b:ge(n,nrhs):io pdb'),
    dict(name='f07bgc', kernel='dgbcon',
         doc='estimates the reciprocal condition number of a real band matrix from its LU\n'
             ' * factorisation (f07bdc) and the norm anorm of the original matrix.',
         args='order norm n kl ku ab:band(n,n,kl,ku,kl) pdab ipiv:ivec(n) anorm:real rcond:out',
         work={'work': '3*n', 'iwork': 'n'}),
    dict(name='f07bhc', kernel='dgbrfs',
         doc='refines the solution of a real band system and returns error bounds, given A\n'
             ' * and its factorisation afb, ipiv from f07bdc.',
         args='order trans n kl ku nrhs ab:band(n,n,kl,ku) pdab afb:band(n,n,kl,ku,kl) pdafb ipiv:ivec(n) '
              'b:ge(n,nrhs) pdb x:ge(n,nrhs):io pdx ferr:vec(nrhs):o berr:vec(nrhs):o',
         work={'work': '3*n', 'iwork': 'n'}),
    dict(name='f07brc', kernel='zgbtrf',
         doc='LU factorisation of a complex m by n band matrix with partial pivoting.',
         args='order m n kl ku ab:band(m,n,kl,ku,kl):io pdab ipiv:ivec(MIN(m,n)):o', info='lu'),
    dict(name='f07bsc', kernel='zgbtrs',
         doc='solves A X = B, A^T X = B or A^H X = B for a band matrix factorised by f07brc.',
         args='order trans n kl ku nrhs ab:band(n,n,kl,ku,kl) pdab ipiv:ivec(n) b:ge(n,nrhs):io pdb'),
    dict(name='f07buc', kernel='zgbcon',
         doc='estimates the reciprocal condition number of a complex band matrix from its LU\n'
             ' * factorisation (f07brc).',
         args='order norm n kl ku ab:band(n,n,kl,ku,kl) pdab ipiv:ivec(n) anorm:real rcond:out',
         work={'work': '2*n', 'rwork': 'n'}),
    dict(name='f07bvc', kernel='zgbrfs',
         doc='refines the solution of a complex band system and returns error bounds.',
         args='order trans n kl ku nrhs ab:band(n,n,kl,ku) pdab afb:band(n,n,kl,ku,kl) pdafb ipiv:ivec(n) '
              'b:ge(n,nrhs) pdb x:ge(n,nrhs):io pdx ferr:rvec(nrhs):o berr:rvec(nrhs):o',
         work={'work': '2*n', 'rwork': 'n'}),

    # ---- f07f: symmetric or Hermitian positive definite matrices ---------------
    dict(name='f07fdc', kernel='dpotrf',
         doc='Cholesky factorisation of a real symmetric positive definite matrix,\n'
             ' * A = U^T U (uplo Zem_Upper) or A = L L^T (Zem_Lower).',
         args='order uplo n a:tri(n):io pda', info='posdef'),
    dict(name='f07fec', kernel='dpotrs',
         doc='solves A X = B with the Cholesky factorisation from f07fdc.',
         args='order uplo n nrhs a:tri(n) pda b:ge(n,nrhs):io pdb'),
    dict(name='f07fgc', kernel='dpocon',
         doc='estimates the reciprocal 1-norm condition number of a real symmetric positive\n'
             ' * definite matrix from its Cholesky factorisation and its 1-norm anorm.',
         args='order uplo n a:tri(n) pda anorm:real rcond:out', work={'work': '3*n', 'iwork': 'n'}),
    dict(name='f07fhc', kernel='dporfs',
         doc='refines the solution of A X = B for a real symmetric positive definite A and\n'
             ' * returns error bounds, given A and its Cholesky factorisation af.',
         args='order uplo n nrhs a:tri(n) pda af:tri(n) pdaf b:ge(n,nrhs) pdb x:ge(n,nrhs):io pdx '
              'ferr:vec(nrhs):o berr:vec(nrhs):o',
         work={'work': '3*n', 'iwork': 'n'}),
    dict(name='f07fjc', kernel='dpotri',
         doc='computes the inverse of a real symmetric positive definite matrix from its\n'
             ' * Cholesky factorisation (f07fdc); the triangle uplo of a is overwritten.',
         args='order uplo n a:tri(n):io pda', info='chol_inverse'),
    dict(name='f07frc', kernel='zpotrf',
         doc='Cholesky factorisation of a complex Hermitian positive definite matrix,\n'
             ' * A = U^H U (uplo Zem_Upper) or A = L L^H (Zem_Lower).',
         args='order uplo n a:tri(n):io pda', info='posdef'),
    dict(name='f07fsc', kernel='zpotrs',
         doc='solves A X = B with the Cholesky factorisation from f07frc.',
         args='order uplo n nrhs a:tri(n) pda b:ge(n,nrhs):io pdb'),
    dict(name='f07fuc', kernel='zpocon',
         doc='estimates the reciprocal 1-norm condition number of a complex Hermitian positive\n'
             ' * definite matrix from its Cholesky factorisation and its 1-norm anorm.',
         args='order uplo n a:tri(n) pda anorm:real rcond:out', work={'work': '2*n', 'rwork': 'n'}),
    dict(name='f07fvc', kernel='zporfs',
         doc='refines the solution of A X = B for a complex Hermitian positive definite A and\n'
             ' * returns error bounds, given A and its Cholesky factorisation af.',
         args='order uplo n nrhs a:tri(n) pda af:tri(n) pdaf b:ge(n,nrhs) pdb x:ge(n,nrhs):io pdx '
              'ferr:rvec(nrhs):o berr:rvec(nrhs):o',
         work={'work': '2*n', 'rwork': 'n'}),
    dict(name='f07fwc', kernel='zpotri',
         doc='computes the inverse of a complex Hermitian positive definite matrix from its\n'
             ' * Cholesky factorisation (f07frc); the triangle uplo of a is overwritten.',
         args='order uplo n a:tri(n):io pda', info='chol_inverse'),
    dict(name='f07fdc_0', same_as='f07fdc'),

    # ---- f07g: positive definite matrices in packed storage -------------------
    dict(name='f07gdc', kernel='dpptrf',
         doc='Cholesky factorisation of a real symmetric positive definite matrix in packed storage.',
         args='order uplo n ap:pk(n):io', info='posdef'),
    dict(name='f07gec', kernel='dpptrs',
         doc='solves A X = B with the packed Cholesky factorisation from f07gdc.',
         args='order uplo n nrhs ap:pk(n) b:ge(n,nrhs):io pdb'),
    dict(name='f07ggc', kernel='dppcon',
         doc='estimates the reciprocal 1-norm condition number of a packed real symmetric\n'
             ' * positive definite matrix from its Cholesky factorisation.',
         args='order uplo n ap:pk(n) anorm:real rcond:out', work={'work': '3*n', 'iwork': 'n'}),
    dict(name='f07ghc', kernel='dpprfs',
         doc='refines the solution of A X = B for a packed real symmetric positive definite A\n'
             ' * and returns error bounds.',
         args='order uplo n nrhs ap:pk(n) afp:pk(n) b:ge(n,nrhs) pdb x:ge(n,nrhs):io pdx '
              'ferr:vec(nrhs):o berr:vec(nrhs):o', work={'work': '3*n', 'iwork': 'n'}),
    dict(name='f07gjc', kernel='dpptri',
         doc='computes the inverse of a packed real symmetric positive definite matrix from its\n'
             ' * Cholesky factorisation (f07gdc).',
         args='order uplo n ap:pk(n):io', info='chol_inverse'),
    dict(name='f07grc', kernel='zpptrf',
         doc='Cholesky factorisation of a complex Hermitian positive definite matrix in packed storage.',
         args='order uplo n ap:pk(n):io', info='posdef'),
    dict(name='f07gsc', kernel='zpptrs',
         doc='solves A X = B with the packed Cholesky factorisation from f07grc.',
         args='order uplo n nrhs ap:pk(n) b:ge(n,nrhs):io pdb'),
    dict(name='f07guc', kernel='zppcon',
         doc='estimates the reciprocal 1-norm condition number of a packed complex Hermitian\n'
             ' * positive definite matrix from its Cholesky factorisation.',
         args='order uplo n ap:pk(n) anorm:real rcond:out', work={'work': '2*n', 'rwork': 'n'}),
    dict(name='f07gvc', kernel='zpprfs',
         doc='refines the solution of A X = B for a packed complex Hermitian positive definite A.',
         args='order uplo n nrhs ap:pk(n) afp:pk(n) b:ge(n,nrhs) pdb x:ge(n,nrhs):io pdx '
              'ferr:rvec(nrhs):o berr:rvec(nrhs):o', work={'work': '2*n', 'rwork': 'n'}),
    dict(name='f07gwc', kernel='zpptri',
         doc='computes the inverse of a packed complex Hermitian positive definite matrix.',
         args='order uplo n ap:pk(n):io', info='chol_inverse'),

    # ---- f07h: positive definite band matrices ---------------------------------
    dict(name='f07hdc', kernel='dpbtrf',
         doc='Cholesky factorisation of a real symmetric positive definite band matrix with kd\n'
             ' * super-diagonals (uplo Zem_Upper) or sub-diagonals (Zem_Lower).',
         args='order uplo n kd ab:sband(n,kd):io pdab', info='posdef'),
    dict(name='f07hec', kernel='dpbtrs',
         doc='solves A X = B with the band Cholesky factorisation from f07hdc.',
         args='order uplo n kd nrhs ab:sband(n,kd) pdab b:ge(n,nrhs):io pdb'),
    dict(name='f07hgc', kernel='dpbcon',
         doc='estimates the reciprocal 1-norm condition number of a real symmetric positive\n'
             ' * definite band matrix from its Cholesky factorisation.',
         args='order uplo n kd ab:sband(n,kd) pdab anorm:real rcond:out', work={'work': '3*n', 'iwork': 'n'}),
    dict(name='f07hhc', kernel='dpbrfs',
         doc='refines the solution of a real symmetric positive definite band system.',
         args='order uplo n kd nrhs ab:sband(n,kd) pdab afb:sband(n,kd) pdafb b:ge(n,nrhs) pdb '
              'x:ge(n,nrhs):io pdx ferr:vec(nrhs):o berr:vec(nrhs):o', work={'work': '3*n', 'iwork': 'n'}),
    dict(name='f07hrc', kernel='zpbtrf',
         doc='Cholesky factorisation of a complex Hermitian positive definite band matrix.',
         args='order uplo n kd ab:sband(n,kd):io pdab', info='posdef'),
    dict(name='f07hsc', kernel='zpbtrs',
         doc='solves A X = B with the band Cholesky factorisation from f07hrc.',
         args='order uplo n kd nrhs ab:sband(n,kd) pdab b:ge(n,nrhs):io pdb'),
    dict(name='f07huc', kernel='zpbcon',
         doc='estimates the reciprocal 1-norm condition number of a complex Hermitian positive\n'
             ' * definite band matrix from its Cholesky factorisation.',
         args='order uplo n kd ab:sband(n,kd) pdab anorm:real rcond:out', work={'work': '2*n', 'rwork': 'n'}),
    dict(name='f07hvc', kernel='zpbrfs',
         doc='refines the solution of a complex Hermitian positive definite band system.',
         args='order uplo n kd nrhs ab:sband(n,kd) pdab afb:sband(n,kd) pdafb b:ge(n,nrhs) pdb '
              'x:ge(n,nrhs):io pdx ferr:rvec(nrhs):o berr:rvec(nrhs):o', work={'work': '2*n', 'rwork': 'n'}),

    # ---- f07m: symmetric (real) or Hermitian (complex) indefinite matrices ----
    dict(name='f07mdc', kernel='dsytrf',
         doc='Bunch-Kaufman factorisation of a real symmetric indefinite matrix,\n'
             ' * A = U D U^T or L D L^T with D block diagonal (1 by 1 and 2 by 2 blocks).',
         args='order uplo n a:tri(n):io pda ipiv:ivec(n):o', info='ldl'),
    dict(name='f07mec', kernel='dsytrs',
         doc='solves A X = B with the factorisation from f07mdc.',
         args='order uplo n nrhs a:tri(n) pda ipiv:ivec(n) b:ge(n,nrhs):io pdb'),
    dict(name='f07mgc', kernel='dsycon',
         doc='estimates the reciprocal 1-norm condition number of a real symmetric matrix from\n'
             ' * its factorisation (f07mdc).',
         args='order uplo n a:tri(n) pda ipiv:ivec(n) anorm:real rcond:out', work={'work': '2*n', 'iwork': 'n'}),
    dict(name='f07mhc', kernel='dsyrfs',
         doc='refines the solution of a real symmetric indefinite system and returns error bounds.',
         args='order uplo n nrhs a:tri(n) pda af:tri(n) pdaf ipiv:ivec(n) b:ge(n,nrhs) pdb x:ge(n,nrhs):io pdx '
              'ferr:vec(nrhs):o berr:vec(nrhs):o', work={'work': '3*n', 'iwork': 'n'}),
    dict(name='f07mjc', kernel='dsytri',
         doc='computes the inverse of a real symmetric indefinite matrix from its factorisation.',
         args='order uplo n a:tri(n):io pda ipiv:ivec(n)', work={'work': 'n'}, info='ldl_inverse'),
    dict(name='f07mrc', kernel='zhetrf',
         doc='Bunch-Kaufman factorisation of a complex Hermitian indefinite matrix,\n'
             ' * A = U D U^H or L D L^H.',
         args='order uplo n a:tri(n):io pda ipiv:ivec(n):o', info='ldl'),
    dict(name='f07msc', kernel='zhetrs',
         doc='solves A X = B with the factorisation from f07mrc.',
         args='order uplo n nrhs a:tri(n) pda ipiv:ivec(n) b:ge(n,nrhs):io pdb'),
    dict(name='f07muc', kernel='zhecon',
         doc='estimates the reciprocal 1-norm condition number of a complex Hermitian matrix\n'
             ' * from its factorisation (f07mrc).',
         args='order uplo n a:tri(n) pda ipiv:ivec(n) anorm:real rcond:out', work={'work': '2*n'}),
    dict(name='f07mvc', kernel='zherfs',
         doc='refines the solution of a complex Hermitian indefinite system.',
         args='order uplo n nrhs a:tri(n) pda af:tri(n) pdaf ipiv:ivec(n) b:ge(n,nrhs) pdb x:ge(n,nrhs):io pdx '
              'ferr:rvec(nrhs):o berr:rvec(nrhs):o', work={'work': '2*n', 'rwork': 'n'}),
    dict(name='f07mwc', kernel='zhetri',
         doc='computes the inverse of a complex Hermitian indefinite matrix from its factorisation.',
         args='order uplo n a:tri(n):io pda ipiv:ivec(n)', work={'work': 'n'}, info='ldl_inverse'),

    # ---- f07n: complex symmetric matrices ---------------------------------------
    dict(name='f07nrc', kernel='zsytrf',
         doc='Bunch-Kaufman factorisation of a complex symmetric matrix, A = U D U^T or L D L^T.',
         args='order uplo n a:tri(n):io pda ipiv:ivec(n):o', info='ldl'),
    dict(name='f07nsc', kernel='zsytrs',
         doc='solves A X = B with the factorisation from f07nrc.',
         args='order uplo n nrhs a:tri(n) pda ipiv:ivec(n) b:ge(n,nrhs):io pdb'),
    dict(name='f07nuc', kernel='zsycon',
         doc='estimates the reciprocal 1-norm condition number of a complex symmetric matrix.',
         args='order uplo n a:tri(n) pda ipiv:ivec(n) anorm:real rcond:out', work={'work': '2*n'}),
    dict(name='f07nvc', kernel='zsyrfs',
         doc='refines the solution of a complex symmetric system.',
         args='order uplo n nrhs a:tri(n) pda af:tri(n) pdaf ipiv:ivec(n) b:ge(n,nrhs) pdb x:ge(n,nrhs):io pdx '
              'ferr:rvec(nrhs):o berr:rvec(nrhs):o', work={'work': '2*n', 'rwork': 'n'}),
    dict(name='f07nwc', kernel='zsytri',
         doc='computes the inverse of a complex symmetric matrix from its factorisation (f07nrc).',
         args='order uplo n a:tri(n):io pda ipiv:ivec(n)', work={'work': '2*n'}, info='ldl_inverse'),

    # ---- f07p: symmetric or Hermitian indefinite matrices, packed --------------
    dict(name='f07pdc', kernel='dsptrf',
         doc='Bunch-Kaufman factorisation of a real symmetric indefinite matrix in packed storage.',
         args='order uplo n ap:pk(n):io ipiv:ivec(n):o', info='ldl'),
    dict(name='f07pec', kernel='dsptrs',
         doc='solves A X = B with the packed factorisation from f07pdc.',
         args='order uplo n nrhs ap:pk(n) ipiv:ivec(n) b:ge(n,nrhs):io pdb'),
    dict(name='f07pgc', kernel='dspcon',
         doc='estimates the reciprocal 1-norm condition number of a packed real symmetric matrix.',
         args='order uplo n ap:pk(n) ipiv:ivec(n) anorm:real rcond:out', work={'work': '2*n', 'iwork': 'n'}),
    dict(name='f07phc', kernel='dsprfs',
         doc='refines the solution of a packed real symmetric indefinite system.',
         args='order uplo n nrhs ap:pk(n) afp:pk(n) ipiv:ivec(n) b:ge(n,nrhs) pdb x:ge(n,nrhs):io pdx '
              'ferr:vec(nrhs):o berr:vec(nrhs):o', work={'work': '3*n', 'iwork': 'n'}),
    dict(name='f07pjc', kernel='dsptri',
         doc='computes the inverse of a packed real symmetric indefinite matrix.',
         args='order uplo n ap:pk(n):io ipiv:ivec(n)', work={'work': 'n'}, info='ldl_inverse'),
    dict(name='f07prc', kernel='zhptrf',
         doc='Bunch-Kaufman factorisation of a complex Hermitian indefinite matrix in packed storage.',
         args='order uplo n ap:pk(n):io ipiv:ivec(n):o', info='ldl'),
    dict(name='f07psc', kernel='zhptrs',
         doc='solves A X = B with the packed factorisation from f07prc.',
         args='order uplo n nrhs ap:pk(n) ipiv:ivec(n) b:ge(n,nrhs):io pdb'),
    dict(name='f07puc', kernel='zhpcon',
         doc='estimates the reciprocal 1-norm condition number of a packed complex Hermitian matrix.',
         args='order uplo n ap:pk(n) ipiv:ivec(n) anorm:real rcond:out', work={'work': '2*n'}),
    dict(name='f07pvc', kernel='zhprfs',
         doc='refines the solution of a packed complex Hermitian indefinite system.',
         args='order uplo n nrhs ap:pk(n) afp:pk(n) ipiv:ivec(n) b:ge(n,nrhs) pdb x:ge(n,nrhs):io pdx '
              'ferr:rvec(nrhs):o berr:rvec(nrhs):o', work={'work': '2*n', 'rwork': 'n'}),
    dict(name='f07pwc', kernel='zhptri',
         doc='computes the inverse of a packed complex Hermitian indefinite matrix.',
         args='order uplo n ap:pk(n):io ipiv:ivec(n)', work={'work': 'n'}, info='ldl_inverse'),

    # ---- f07q: complex symmetric matrices, packed -------------------------------
    dict(name='f07qrc', kernel='zsptrf',
         doc='Bunch-Kaufman factorisation of a complex symmetric matrix in packed storage.',
         args='order uplo n ap:pk(n):io ipiv:ivec(n):o', info='ldl'),
    dict(name='f07qsc', kernel='zsptrs',
         doc='solves A X = B with the packed factorisation from f07qrc.',
         args='order uplo n nrhs ap:pk(n) ipiv:ivec(n) b:ge(n,nrhs):io pdb'),
    dict(name='f07quc', kernel='zspcon',
         doc='estimates the reciprocal 1-norm condition number of a packed complex symmetric matrix.',
         args='order uplo n ap:pk(n) ipiv:ivec(n) anorm:real rcond:out', work={'work': '2*n'}),
    dict(name='f07qvc', kernel='zsprfs',
         doc='refines the solution of a packed complex symmetric system.',
         args='order uplo n nrhs ap:pk(n) afp:pk(n) ipiv:ivec(n) b:ge(n,nrhs) pdb x:ge(n,nrhs):io pdx '
              'ferr:rvec(nrhs):o berr:rvec(nrhs):o', work={'work': '2*n', 'rwork': 'n'}),
    dict(name='f07qwc', kernel='zsptri',
         doc='computes the inverse of a packed complex symmetric matrix from its factorisation.',
         args='order uplo n ap:pk(n):io ipiv:ivec(n)', work={'work': 'n'}, info='ldl_inverse'),

    # ---- f07t, f07u, f07v: triangular matrices in full, packed, band storage ----
    dict(name='f07tec', kernel='dtrtrs',
         doc='solves T X = B or T^T X = B for a real triangular matrix T.',
         args='order uplo trans diag n nrhs a:tri(n) pda b:ge(n,nrhs):io pdb', info='tri'),
    dict(name='f07tgc', kernel='dtrcon',
         doc='estimates the reciprocal condition number of a real triangular matrix.',
         args='order norm uplo diag n a:tri(n) pda rcond:out', work={'work': '3*n', 'iwork': 'n'}),
    dict(name='f07thc', kernel='dtrrfs',
         doc='returns error bounds for the solution of a real triangular system.',
         args='order uplo trans diag n nrhs a:tri(n) pda b:ge(n,nrhs) pdb x:ge(n,nrhs) pdx '
              'ferr:vec(nrhs):o berr:vec(nrhs):o', work={'work': '3*n', 'iwork': 'n'}),
    dict(name='f07tjc', kernel='dtrtri',
         doc='computes the inverse of a real triangular matrix in place.',
         args='order uplo diag n a:tri(n):io pda', info='tri_inverse'),
    dict(name='f07tsc', kernel='ztrtrs',
         doc='solves T X = B, T^T X = B or T^H X = B for a complex triangular matrix T.',
         args='order uplo trans diag n nrhs a:tri(n) pda b:ge(n,nrhs):io pdb', info='tri'),
    dict(name='f07tuc', kernel='ztrcon',
         doc='estimates the reciprocal condition number of a complex triangular matrix.',
         args='order norm uplo diag n a:tri(n) pda rcond:out', work={'work': '2*n', 'rwork': 'n'}),
    dict(name='f07tvc', kernel='ztrrfs',
         doc='returns error bounds for the solution of a complex triangular system.',
         args='order uplo trans diag n nrhs a:tri(n) pda b:ge(n,nrhs) pdb x:ge(n,nrhs) pdx '
              'ferr:rvec(nrhs):o berr:rvec(nrhs):o', work={'work': '2*n', 'rwork': 'n'}),
    dict(name='f07twc', kernel='ztrtri',
         doc='computes the inverse of a complex triangular matrix in place.',
         args='order uplo diag n a:tri(n):io pda', info='tri_inverse'),
    dict(name='f07uec', kernel='dtptrs',
         doc='solves T X = B or T^T X = B for a real triangular matrix T in packed storage.',
         args='order uplo trans diag n nrhs ap:pk(n) b:ge(n,nrhs):io pdb', info='tri'),
    dict(name='f07ugc', kernel='dtpcon',
         doc='estimates the reciprocal condition number of a real triangular matrix in packed storage.',
         args='order norm uplo diag n ap:pk(n) rcond:out', work={'work': '3*n', 'iwork': 'n'}),
    dict(name='f07uhc', kernel='dtprfs',
         doc='returns error bounds for the solution of a packed real triangular system.',
         args='order uplo trans diag n nrhs ap:pk(n) b:ge(n,nrhs) pdb x:ge(n,nrhs) pdx '
              'ferr:vec(nrhs):o berr:vec(nrhs):o', work={'work': '3*n', 'iwork': 'n'}),
    dict(name='f07ujc', kernel='dtptri',
         doc='computes the inverse of a real triangular matrix in packed storage.',
         args='order uplo diag n ap:pk(n):io', info='tri_inverse'),
    dict(name='f07usc', kernel='ztptrs',
         doc='solves T X = B, T^T X = B or T^H X = B for a packed complex triangular matrix.',
         args='order uplo trans diag n nrhs ap:pk(n) b:ge(n,nrhs):io pdb', info='tri'),
    dict(name='f07uuc', kernel='ztpcon',
         doc='estimates the reciprocal condition number of a packed complex triangular matrix.',
         args='order norm uplo diag n ap:pk(n) rcond:out', work={'work': '2*n', 'rwork': 'n'}),
    dict(name='f07uvc', kernel='ztprfs',
         doc='returns error bounds for the solution of a packed complex triangular system.',
         args='order uplo trans diag n nrhs ap:pk(n) b:ge(n,nrhs) pdb x:ge(n,nrhs) pdx '
              'ferr:rvec(nrhs):o berr:rvec(nrhs):o', work={'work': '2*n', 'rwork': 'n'}),
    dict(name='f07uwc', kernel='ztptri',
         doc='computes the inverse of a packed complex triangular matrix.',
         args='order uplo diag n ap:pk(n):io', info='tri_inverse'),
    dict(name='f07vec', kernel='dtbtrs',
         doc='solves T X = B or T^T X = B for a real triangular band matrix T.',
         args='order uplo trans diag n kd nrhs ab:sband(n,kd) pdab b:ge(n,nrhs):io pdb', info='tri'),
    dict(name='f07vgc', kernel='dtbcon',
         doc='estimates the reciprocal condition number of a real triangular band matrix.',
         args='order norm uplo diag n kd ab:sband(n,kd) pdab rcond:out', work={'work': '3*n', 'iwork': 'n'}),
    dict(name='f07vhc', kernel='dtbrfs',
         doc='returns error bounds for the solution of a real triangular band system.',
         args='order uplo trans diag n kd nrhs ab:sband(n,kd) pdab b:ge(n,nrhs) pdb x:ge(n,nrhs) pdx '
              'ferr:vec(nrhs):o berr:vec(nrhs):o', work={'work': '3*n', 'iwork': 'n'}),
    dict(name='f07vsc', kernel='ztbtrs',
         doc='solves T X = B, T^T X = B or T^H X = B for a complex triangular band matrix.',
         args='order uplo trans diag n kd nrhs ab:sband(n,kd) pdab b:ge(n,nrhs):io pdb', info='tri'),
    dict(name='f07vuc', kernel='ztbcon',
         doc='estimates the reciprocal condition number of a complex triangular band matrix.',
         args='order norm uplo diag n kd ab:sband(n,kd) pdab rcond:out', work={'work': '2*n', 'rwork': 'n'}),
    dict(name='f07vvc', kernel='ztbrfs',
         doc='returns error bounds for the solution of a complex triangular band system.',
         args='order uplo trans diag n kd nrhs ab:sband(n,kd) pdab b:ge(n,nrhs) pdb x:ge(n,nrhs) pdx '
              'ferr:rvec(nrhs):o berr:rvec(nrhs):o', work={'work': '2*n', 'rwork': 'n'}),
]
