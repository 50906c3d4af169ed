"""Rows of the f06 chapter for tools/gen_linalg.py (the row format is described in
linalg/routines.py)."""

ROWS = [
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
]


# ---- f06: level-1 and helper routines, and the kernel forms ---------------------
# Written by hand in linalg/blas1.cpp (vectors and scalars) and linalg/f16.cpp
# (matrices); the rows declare and document them.


def manual(name, proto, what, args=(), result=None, reports=None):
    """A hand-written export's row: its C prototype and a structured comment
    (what it computes, each argument, the result, the reports)."""
    lines = [what]
    if args:
        lines.append('Arguments:')
        for arg, text in args:
            lines.append(f'  {arg:8s} {text}')
    if result:
        lines.append('Returns: ' + result)
    if reports:
        lines.append('Reports: ' + reports)
    return dict(name=name, proto=proto, doc='\n * '.join(lines))


# The reports of the level-1 helpers, which have no error record.
KERNEL_REPORT = ('a negative n, a null array that would be referenced, or an\n *   '
                 'increment of 0 for a vector that the routine writes: NE_F06_BAD_PARAM\n *   '
                 'with the argument\'s position through f06aaz (standard error stream),\n *   '
                 'and nothing else is done.')
VECTOR = 'vector of n elements, increment {}'
INCREMENTS = ('Vectors follow the reference BLAS: element i (0-based) of x is\n *   '
              'x[i*incx] for incx > 0 and x[(n-1-i)*|incx|] for incx < 0; a vector that is\n *   '
              'only read may have incx = 0 (n copies of x[0]).  n = 0 does nothing.')
MATRIX_TYPE = 'Zem_GeneralMatrix, Zem_UpperMatrix (elements i <= j) or Zem_LowerMatrix (i >= j)'
NORM_KIND = 'Zem_OneNorm, Zem_InfNorm, Zem_FrobeniusNorm or Zem_MaxNorm (largest |a(i,j)|)'
C_REPORTS = ('NE_BAD_PARAM (null array, enumerator, order), NE_INT and NE_INT_2\n *   '
             '(sizes, leading dimensions; errnum = -position of the argument).')

ROWS += [
    manual('f06aaz', 'void f06aaz(const char *name, int32_t number)',
           'Reports a bad parameter of a kernel: formats row NE_F06_BAD_PARAM with\n *   '
           'number and passes it to p01acc with a local record whose print is 1, so\n *   '
           'that the text goes to the standard error stream and the process goes on.',
           args=[('name', 'in: the kernel, e.g. "F08AFF/DORGQR"'),
                 ('number', 'in: the position of the bad argument in the kernel\'s list')]),
    manual('f06aaz_d', 'void f06aaz_d(const char *name, const int32_t *number)',
           'f06aaz with the number passed by address, as the f06 wrappers call it\n *   '
           '(name of the kind "f06pac/dgemv").',
           args=[('name', 'in: the routine and its kernel'),
                 ('number', 'in: address of the position of the bad argument')]),
    manual('f06bcc', 'void f06bcc(double t, double *c, double *s)',
           'Recovers the plane rotation (c, s) from its tangent t = s/c:\n *   '
           'c = 1/sqrt(1 + t^2) >= 0 and s = c t, without overflow for any t\n *   '
           '(t = +-infinity gives c = 0, s = +-1).',
           args=[('t', 'in: the tangent'), ('c', 'out: cosine'), ('s', 'out: sine')],
           reports='a null c or s: NE_F06_BAD_PARAM through f06aaz.'),
    manual('f06bmc', 'double f06bmc(double scale, double ssq)',
           'The norm scale * sqrt(ssq) held by a scaled sum of squares (see f06fjc),\n *   '
           'without overflow where the norm is representable; 0 when scale is 0.',
           args=[('scale', 'in: scale factor, >= 0'), ('ssq', 'in: scaled sum of squares, >= 0')],
           result='the norm, or NaN after a report.',
           reports='a negative scale or ssq: NE_F06_BAD_PARAM through f06aaz.'),
    manual('f06bnc', 'double f06bnc(double a, double b)',
           'sqrt(a^2 + b^2) without overflow or destructive underflow (the result is\n *   '
           'infinite only when it is not representable, or a or b is infinite).',
           args=[('a', 'in'), ('b', 'in')], result='the hypotenuse.'),
    manual('f06dbc', 'void f06dbc(int32_t n, int32_t alpha, int32_t x[], int32_t incx)',
           'Loads an integer constant into a vector: x_i = alpha.\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('alpha', 'in: the constant'),
                 ('x', 'out: ' + VECTOR.format('incx (not 0)')), ('incx', 'in')],
           reports=KERNEL_REPORT),
    manual('f06dfc', 'void f06dfc(int32_t n, const int32_t x[], int32_t incx, int32_t y[], int32_t incy)',
           'Copies an integer vector: y_i = x_i.\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('x', 'in: ' + VECTOR.format('incx')),
                 ('incx', 'in'), ('y', 'out: ' + VECTOR.format('incy (not 0)')), ('incy', 'in')],
           reports=KERNEL_REPORT),
    manual('f06eac', 'double f06eac(int32_t n, const double x[], int32_t incx, const double y[], int32_t incy)',
           'The dot product sum x_i y_i (the BLAS ddot).\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('x', 'in: ' + VECTOR.format('incx')), ('incx', 'in'),
                 ('y', 'in: ' + VECTOR.format('incy')), ('incy', 'in')],
           result='the dot product (0 for n = 0).', reports=KERNEL_REPORT),
    manual('f06eaf_f', 'double f06eaf_f(const int32_t *n, const double x[], const int32_t *incx, '
           'const double y[], const int32_t *incy)',
           'f06eac with every argument by address (the kernel form, "F06EAF/DDOT").',
           args=[('n', 'in: address of n'), ('x', 'in'), ('incx', 'in: address of incx'), ('y', 'in'),
                 ('incy', 'in: address of incy')],
           result='the dot product.', reports=KERNEL_REPORT + '  A null address is reported too.'),
    manual('f06ecc', 'void f06ecc(int32_t n, double alpha, const double x[], int32_t incx, double y[], int32_t incy)',
           'y = alpha x + y (the BLAS daxpy).\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('alpha', 'in'), ('x', 'in: ' + VECTOR.format('incx')),
                 ('incx', 'in'), ('y', 'in/out: ' + VECTOR.format('incy (not 0)')), ('incy', 'in')],
           reports=KERNEL_REPORT),
    manual('f06edc', 'void f06edc(int32_t n, double alpha, double x[], int32_t incx)',
           'x = alpha x (the BLAS dscal); alpha = 0 sets x to 0 whatever it held.\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('alpha', 'in'),
                 ('x', 'in/out: ' + VECTOR.format('incx (not 0)')), ('incx', 'in')],
           reports=KERNEL_REPORT),
    manual('f06edf_f', 'void f06edf_f(const int32_t *n, const double *alpha, double x[], const int32_t *incx)',
           'f06edc with every argument by address (the kernel form, "F06EDF/DSCAL").',
           args=[('n', 'in: address of n'), ('alpha', 'in: address of alpha'), ('x', 'in/out'),
                 ('incx', 'in: address of incx')],
           reports=KERNEL_REPORT + '  A null address is reported too.'),
    manual('f06efc', 'void f06efc(int32_t n, const double x[], int32_t incx, double y[], int32_t incy)',
           'y = x (the BLAS dcopy).\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('x', 'in: ' + VECTOR.format('incx')), ('incx', 'in'),
                 ('y', 'out: ' + VECTOR.format('incy (not 0)')), ('incy', 'in')],
           reports=KERNEL_REPORT),
    manual('f06egc', 'void f06egc(int32_t n, double x[], int32_t incx, double y[], int32_t incy)',
           'Swaps x and y (the BLAS dswap).\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('x', 'in/out: ' + VECTOR.format('incx (not 0)')),
                 ('incx', 'in'), ('y', 'in/out: ' + VECTOR.format('incy (not 0)')), ('incy', 'in')],
           reports=KERNEL_REPORT),
    manual('f06ejc', 'double f06ejc(int32_t n, const double x[], int32_t incx)',
           'The Euclidean norm ||x||_2 (the BLAS dnrm2), without overflow or\n *   '
           'destructive underflow wherever the norm is representable.\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('x', 'in: ' + VECTOR.format('incx')), ('incx', 'in')],
           result='the norm (0 for n = 0; NaN when an element is NaN).', reports=KERNEL_REPORT),
    manual('f06ekc', 'double f06ekc(int32_t n, const double x[], int32_t incx)',
           'The sum of magnitudes sum |x_i| (the BLAS dasum).\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('x', 'in: ' + VECTOR.format('incx')), ('incx', 'in')],
           result='the sum (0 for n = 0).', reports=KERNEL_REPORT),
    manual('f06epc', 'void f06epc(int32_t n, double x[], int32_t incx, double y[], int32_t incy, double c, double s)',
           'Applies the plane rotation (c, s): x_i = c x_i + s y_i, y_i = c y_i - s x_i\n *   '
           '(the BLAS drot).\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('x', 'in/out: ' + VECTOR.format('incx (not 0)')),
                 ('incx', 'in'), ('y', 'in/out: ' + VECTOR.format('incy (not 0)')), ('incy', 'in'),
                 ('c', 'in: cosine'), ('s', 'in: sine')],
           reports=KERNEL_REPORT),
    manual('f06fbc', 'void f06fbc(int32_t n, double alpha, double x[], int32_t incx)',
           'Loads a constant into a vector: x_i = alpha.\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('alpha', 'in'),
                 ('x', 'out: ' + VECTOR.format('incx (not 0)')), ('incx', 'in')],
           reports=KERNEL_REPORT),
    manual('f06fdc', 'void f06fdc(int32_t n, double alpha, const double x[], int32_t incx, double y[], int32_t incy)',
           'Scales a vector into another: y = alpha x.\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('alpha', 'in'), ('x', 'in: ' + VECTOR.format('incx')),
                 ('incx', 'in'), ('y', 'out: ' + VECTOR.format('incy (not 0)')), ('incy', 'in')],
           reports=KERNEL_REPORT),
    manual('f06fgc', 'void f06fgc(int32_t n, double x[], int32_t incx)',
           'Negates a vector: x = -x.\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('x', 'in/out: ' + VECTOR.format('incx (not 0)')),
                 ('incx', 'in')],
           reports=KERNEL_REPORT),
    manual('f06fjc', 'void f06fjc(int32_t n, const double x[], int32_t incx, double *scale, double *sumsq)',
           'Updates a scaled sum of squares with the elements of x:\n *   '
           'scale_out^2 sumsq_out = x^T x + scale_in^2 sumsq_in, with scale_out >= scale_in\n *   '
           'chosen so that nothing overflows where the norm is representable (f06bmc\n *   '
           'gives the norm scale sqrt(sumsq)).  Start with scale = 0, sumsq = 1.\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('x', 'in: ' + VECTOR.format('incx')), ('incx', 'in'),
                 ('scale', 'in/out: scale factor, >= 0'), ('sumsq', 'in/out: scaled sum of squares, >= 0')],
           reports=KERNEL_REPORT + '  A null or negative scale or sumsq is reported too.'),
    manual('f06frc', 'void f06frc(int32_t n, double *alpha, double x[], int32_t incx, double *tau)',
           'Generates an elementary reflection H = I - tau v v^T of order n with\n *   '
           'H (alpha, x) = (beta, 0) and v = (1, x_out): on exit alpha holds beta and x\n *   '
           'holds the rest of v.  tau = 0 (H = I) when x is 0; else 1 <= tau <= 2.\n *   '
           'x has n-1 elements.\n *   ' + INCREMENTS,
           args=[('n', 'in: order of H, >= 0'), ('alpha', 'in/out: first element, then beta'),
                 ('x', 'in/out: ' + VECTOR.format('incx (not 0 when n > 1)').replace('n elements', 'n-1 elements')),
                 ('incx', 'in'), ('tau', 'out: the factor tau')],
           reports=KERNEL_REPORT),
    manual('f06gbc', 'ZemComplex f06gbc(int32_t n, const ZemComplex x[], int32_t incx, const ZemComplex y[], '
           'int32_t incy)',
           'The conjugated dot product sum conj(x_i) y_i (the BLAS zdotc).\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('x', 'in: ' + VECTOR.format('incx')), ('incx', 'in'),
                 ('y', 'in: ' + VECTOR.format('incy')), ('incy', 'in')],
           result='the dot product (0 for n = 0).', reports=KERNEL_REPORT),
    manual('f06gcc', 'void f06gcc(int32_t n, ZemComplex alpha, const ZemComplex x[], int32_t incx, ZemComplex y[], '
           'int32_t incy)',
           'y = alpha x + y for complex vectors (the BLAS zaxpy).\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('alpha', 'in'), ('x', 'in: ' + VECTOR.format('incx')),
                 ('incx', 'in'), ('y', 'in/out: ' + VECTOR.format('incy (not 0)')), ('incy', 'in')],
           reports=KERNEL_REPORT),
    manual('f06gdc', 'void f06gdc(int32_t n, ZemComplex alpha, ZemComplex x[], int32_t incx)',
           'x = alpha x for a complex vector (the BLAS zscal); alpha = 0 sets x to 0.\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('alpha', 'in'),
                 ('x', 'in/out: ' + VECTOR.format('incx (not 0)')), ('incx', 'in')],
           reports=KERNEL_REPORT),
    manual('f06gfc', 'void f06gfc(int32_t n, const ZemComplex x[], int32_t incx, ZemComplex y[], int32_t incy)',
           'y = x for complex vectors (the BLAS zcopy).\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('x', 'in: ' + VECTOR.format('incx')), ('incx', 'in'),
                 ('y', 'out: ' + VECTOR.format('incy (not 0)')), ('incy', 'in')],
           reports=KERNEL_REPORT),
    manual('f06ggc', 'void f06ggc(int32_t n, ZemComplex x[], int32_t incx, ZemComplex y[], int32_t incy)',
           'Swaps complex vectors x and y (the BLAS zswap).\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('x', 'in/out: ' + VECTOR.format('incx (not 0)')),
                 ('incx', 'in'), ('y', 'in/out: ' + VECTOR.format('incy (not 0)')), ('incy', 'in')],
           reports=KERNEL_REPORT),
    manual('f06hbc', 'void f06hbc(int32_t n, ZemComplex alpha, ZemComplex x[], int32_t incx)',
           'Loads a complex constant into a vector: x_i = alpha.\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('alpha', 'in'),
                 ('x', 'out: ' + VECTOR.format('incx (not 0)')), ('incx', 'in')],
           reports=KERNEL_REPORT),
    manual('f06jdc', 'void f06jdc(int32_t n, double alpha, ZemComplex x[], int32_t incx)',
           'x = alpha x for a complex vector and a real alpha (the BLAS zdscal);\n *   '
           'alpha = 0 sets x to 0.\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('alpha', 'in'),
                 ('x', 'in/out: ' + VECTOR.format('incx (not 0)')), ('incx', 'in')],
           reports=KERNEL_REPORT),
    manual('f06jjc', 'double f06jjc(int32_t n, const ZemComplex x[], int32_t incx)',
           'The Euclidean norm of a complex vector, sqrt(sum |x_i|^2) (the BLAS\n *   '
           'dznrm2), without overflow or destructive underflow.\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('x', 'in: ' + VECTOR.format('incx')), ('incx', 'in')],
           result='the norm (0 for n = 0).', reports=KERNEL_REPORT),
    manual('f06jkc', 'double f06jkc(int32_t n, const ZemComplex x[], int32_t incx)',
           'sum (|Re x_i| + |Im x_i|) (the BLAS dzasum).\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('x', 'in: ' + VECTOR.format('incx')), ('incx', 'in')],
           result='the sum (0 for n = 0).', reports=KERNEL_REPORT),
    manual('f06jlc', 'int32_t f06jlc(int32_t n, const double x[], int32_t incx)',
           'The index of the first element of largest magnitude |x_i| (the BLAS\n *   '
           'idamax, but 0-based); a NaN counts as larger than any number, so that\n *   '
           'the first NaN is found.\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('x', 'in: ' + VECTOR.format('incx')), ('incx', 'in')],
           result='i, 0 <= i < n, in the element numbering above; -1 for n = 0.', reports=KERNEL_REPORT),
    manual('f06jmc', 'int32_t f06jmc(int32_t n, const ZemComplex x[], int32_t incx)',
           'The index of the first element of largest |Re x_i| + |Im x_i| (the BLAS\n *   '
           'izamax, but 0-based); a NaN counts as larger than any number.\n *   ' + INCREMENTS,
           args=[('n', 'in: number of elements, >= 0'), ('x', 'in: ' + VECTOR.format('incx')), ('incx', 'in')],
           result='i, 0 <= i < n; -1 for n = 0.', reports=KERNEL_REPORT),
    manual('f06paf_f', 'void f06paf_f(const char *trans, const int32_t *m, const int32_t *n, const double *alpha, '
           'const double a[], const int32_t *lda, const double x[], const int32_t *incx, const double *beta, '
           'double y[], const int32_t *incy)',
           'The kernel form of f06pac, every argument by address (callable from\n *   '
           'Fortran; hidden string lengths are ignored): y = alpha op(A) x + beta y,\n *   '
           'A an m by n column-major matrix.',
           args=[('trans', 'in: "N", "T" or "C" (either case)'), ('m', 'in: rows of A, >= 0'),
                 ('n', 'in: columns of A, >= 0'), ('alpha', 'in'), ('a', 'in: A, column-major'),
                 ('lda', 'in: leading dimension of A, >= max(1,m)'),
                 ('x', 'in: vector of n (or m with trans) elements'), ('incx', 'in: not 0'), ('beta', 'in'),
                 ('y', 'in/out: vector of m (or n) elements; not read when beta = 0'), ('incy', 'in: not 0')],
           reports='a bad argument: NE_F06_BAD_PARAM with its position through f06aaz\n *   '
                   '(name "F06PAF/DGEMV"), and nothing else is done.'),
    manual('f06phf', 'void f06phf(char uplo, char trans, char diag, int32_t n, const double ap[], double x[], '
           'int32_t incx)',
           'The kernel form of f06phc: x = op(A) x, A triangular of order n packed\n *   '
           'column by column (A(i,j) at ap[i + j(j+1)/2] for uplo "U", at\n *   '
           'ap[i - j + j(2n-j+1)/2] for "L").',
           args=[('uplo', 'in: "U" or "L"'), ('trans', 'in: "N", "T" or "C"'),
                 ('diag', 'in: "N" or "U" (unit diagonal, not referenced)'), ('n', 'in: order, >= 0'),
                 ('ap', 'in: the packed triangle'), ('x', 'in/out: vector of n elements'), ('incx', 'in: not 0')],
           reports='a bad argument: NE_F06_BAD_PARAM with its position through f06aaz\n *   '
                   '(name "F06PHF/DTPMV"), and nothing else is done.'),
    manual('f06phf_f', 'void f06phf_f(const char *uplo, const char *trans, const char *diag, const int32_t *n, '
           'const double ap[], double x[], const int32_t *incx)',
           'f06phf with every argument by address (callable from Fortran).',
           args=[('uplo', 'in'), ('trans', 'in'), ('diag', 'in'), ('n', 'in'), ('ap', 'in'), ('x', 'in/out'),
                 ('incx', 'in')],
           reports='as f06phf.'),
    manual('f06qfc', 'void f06qfc(Zem_OrderType order, Zem_MatrixType matrix, int32_t m, int32_t n, '
           'const double a[], int32_t pda, double b[], int32_t pdb, ZemError *fail)',
           'Copies the m by n matrix A, or its upper or lower trapezoid, into B; the\n *   '
           'other elements of B are not written.',
           args=[('order', 'Zem_RowMajor or Zem_ColMajor'), ('matrix', MATRIX_TYPE), ('m', 'in: rows, >= 0'),
                 ('n', 'in: columns, >= 0'), ('a', 'in: A'), ('pda', 'in: leading dimension of A'),
                 ('b', 'out: B'), ('pdb', 'in: leading dimension of B')],
           reports=C_REPORTS),
    manual('f06qff_f', 'void f06qff_f(const char *matrix, const int32_t *m, const int32_t *n, const double a[], '
           'const int32_t *lda, double b[], const int32_t *ldb)',
           'The kernel form of f06qfc, column-major, every argument by address.',
           args=[('matrix', 'in: "G" general, "U" upper or "L" lower trapezoid'), ('m', 'in: rows, >= 0'),
                 ('n', 'in: columns, >= 0'), ('a', 'in'), ('lda', 'in: >= max(1,m)'), ('b', 'out'),
                 ('ldb', 'in: >= max(1,m)')],
           reports='a bad argument: NE_F06_BAD_PARAM with its position through f06aaz\n *   '
                   '(name "F06QFF/DMCOPY"), and nothing else is done.'),
    manual('f06qgc', 'void f06qgc(Zem_OrderType order, Zem_NormType norm, Zem_MatrixType matrix, int32_t m, '
           'int32_t n, const double a[], int32_t pda, double *r, ZemError *fail)',
           'A norm of the m by n matrix A or of its upper or lower trapezoid (the\n *   '
           'other elements taken as 0).  NaN elements give a NaN norm.',
           args=[('order', 'Zem_RowMajor or Zem_ColMajor'), ('norm', NORM_KIND), ('matrix', MATRIX_TYPE),
                 ('m', 'in: rows, >= 0'), ('n', 'in: columns, >= 0'), ('a', 'in: A'),
                 ('pda', 'in: leading dimension of A'), ('r', 'out: the norm (0 when m or n is 0)')],
           reports=C_REPORTS),
    manual('f06qhc', 'void f06qhc(Zem_OrderType order, Zem_MatrixType matrix, int32_t m, int32_t n, double alpha, '
           'double beta, double a[], int32_t pda, ZemError *fail)',
           'Loads the m by n matrix A, or its upper or lower trapezoid: alpha off the\n *   '
           'diagonal, beta on it (alpha = 0, beta = 1 gives the identity).',
           args=[('order', 'Zem_RowMajor or Zem_ColMajor'), ('matrix', MATRIX_TYPE), ('m', 'in: rows, >= 0'),
                 ('n', 'in: columns, >= 0'), ('alpha', 'in'), ('beta', 'in'), ('a', 'out: A'),
                 ('pda', 'in: leading dimension of A')],
           reports=C_REPORTS),
    manual('f06rac', 'void f06rac(Zem_OrderType order, Zem_NormType norm, int32_t m, int32_t n, const double a[], '
           'int32_t pda, double *r, ZemError *fail)',
           'A norm of the m by n matrix A (as LAPACK dlange).  NaN elements give NaN.',
           args=[('order', 'Zem_RowMajor or Zem_ColMajor'), ('norm', NORM_KIND), ('m', 'in: rows, >= 0'),
                 ('n', 'in: columns, >= 0'), ('a', 'in: A'), ('pda', 'in: leading dimension of A'),
                 ('r', 'out: the norm (0 when m or n is 0)')],
           reports=C_REPORTS),
    manual('f06tfc', 'void f06tfc(Zem_OrderType order, Zem_MatrixType matrix, int32_t m, int32_t n, '
           'const ZemComplex a[], int32_t pda, ZemComplex b[], int32_t pdb, ZemError *fail)',
           'Copies the complex m by n matrix A, or its upper or lower trapezoid, into\n *   '
           'B; the other elements of B are not written.',
           args=[('order', 'Zem_RowMajor or Zem_ColMajor'), ('matrix', MATRIX_TYPE), ('m', 'in: rows, >= 0'),
                 ('n', 'in: columns, >= 0'), ('a', 'in: A'), ('pda', 'in: leading dimension of A'),
                 ('b', 'out: B'), ('pdb', 'in: leading dimension of B')],
           reports=C_REPORTS),
    manual('f06thc', 'void f06thc(Zem_OrderType order, Zem_MatrixType matrix, int32_t m, int32_t n, '
           'ZemComplex alpha, ZemComplex beta, ZemComplex a[], int32_t pda, ZemError *fail)',
           'Loads the complex m by n matrix A, or its upper or lower trapezoid: alpha\n *   '
           'off the diagonal, beta on it.',
           args=[('order', 'Zem_RowMajor or Zem_ColMajor'), ('matrix', MATRIX_TYPE), ('m', 'in: rows, >= 0'),
                 ('n', 'in: columns, >= 0'), ('alpha', 'in'), ('beta', 'in'), ('a', 'out: A'),
                 ('pda', 'in: leading dimension of A')],
           reports=C_REPORTS),
    manual('f06uaf', 'double f06uaf(char norm, int32_t m, int32_t n, const ZemComplex a[], int32_t lda)',
           'The kernel form of a complex general matrix norm (as LAPACK zlange):\n *   '
           'column-major, the norm as a letter.',
           args=[('norm', 'in: "M" largest |a(i,j)|, "1" or "O" one-norm, "I" infinity-norm,\n *            '
                          '"F" or "E" Frobenius norm (either case)'),
                 ('m', 'in: rows, >= 0'), ('n', 'in: columns, >= 0'), ('a', 'in: A, column-major'),
                 ('lda', 'in: >= max(1,m)')],
           result='the norm (0 when m or n is 0, or after a report).',
           reports='a bad argument: NE_F06_BAD_PARAM with its position through f06aaz\n *   '
                   '(name "F06UAF/ZLANGE").'),
    manual('f06vgc', 'void f06vgc(Zem_OrderType order, Zem_NormType norm, Zem_MatrixType matrix, int32_t m, '
           'int32_t n, const ZemComplex a[], int32_t pda, double *r, ZemError *fail)',
           'A norm of the complex m by n matrix A or of its upper or lower trapezoid\n *   '
           '(the complex twin of f06qgc); |a(i,j)| is the modulus.',
           args=[('order', 'Zem_RowMajor or Zem_ColMajor'), ('norm', NORM_KIND), ('matrix', MATRIX_TYPE),
                 ('m', 'in: rows, >= 0'), ('n', 'in: columns, >= 0'), ('a', 'in: A'),
                 ('pda', 'in: leading dimension of A'), ('r', 'out: the norm (0 when m or n is 0)')],
           reports=C_REPORTS),
]
