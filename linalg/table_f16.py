"""Rows of the f16 chapter (the extended BLAS) for tools/gen_linalg.py.  Every
routine is written by hand in linalg/f16.cpp; the rows declare and document
them (the row format is described in linalg/routines.py).

Each routine reports under its long and short name together, as
"zem_dge_norm (f16rac)".  Matrices come with the storage order and a leading
dimension pdX as in the other dense chapters; band storage is as in f06pbc
(row-major: A(i,j) at a[i*pda + kl + j - i]) and packed storage as in f06pec.
"""
from table_f06 import manual

ORDER = 'Zem_RowMajor or Zem_ColMajor'
NORM = 'Zem_OneNorm, Zem_InfNorm, Zem_FrobeniusNorm or Zem_MaxNorm (largest |a(i,j)|);\n *            ' \
       'Zem_TwoNorm is refused'
REPORTS = ('NE_BAD_PARAM (null array, enumerator, order), NE_INT and NE_INT_2\n *   '
           '(sizes, increments, leading dimensions; errnum = -position of the argument).')


def rows():
    out = [
        manual('f16dbc', 'void f16dbc(int32_t n, int32_t alpha, int32_t x[], int32_t incx, ZemError *fail)',
               'zem_iload: loads an integer constant into a vector, x_i = alpha.',
               args=[('n', 'in: number of elements, >= 0'), ('alpha', 'in'),
                     ('x', 'out: vector, element i at x[i*incx] (x[(n-1-i)*|incx|] for incx < 0)'),
                     ('incx', 'in: not 0')],
               reports=REPORTS),
        manual('f16ecc', 'void f16ecc(int32_t n, double alpha, const double x[], int32_t incx, double beta, '
               'double y[], int32_t incy, ZemError *fail)',
               'zem_daxpby: y = alpha x + beta y.  With beta = 0, y is not read (its NaNs\n *   '
               'do not propagate); with alpha = 0, x is not read.',
               args=[('n', 'in: number of elements, >= 0'), ('alpha', 'in'), ('x', 'in: vector'),
                     ('incx', 'in: not 0'), ('beta', 'in'), ('y', 'in/out: vector'), ('incy', 'in: not 0')],
               reports=REPORTS),
        manual('f16fbc', 'void f16fbc(int32_t n, double alpha, double x[], int32_t incx, ZemError *fail)',
               'zem_dload: loads a constant into a vector, x_i = alpha.',
               args=[('n', 'in: number of elements, >= 0'), ('alpha', 'in'), ('x', 'out: vector'),
                     ('incx', 'in: not 0')],
               reports=REPORTS),
        manual('f16hbc', 'void f16hbc(int32_t n, ZemComplex alpha, ZemComplex x[], int32_t incx, ZemError *fail)',
               'zem_zload: loads a complex constant into a vector, x_i = alpha.',
               args=[('n', 'in: number of elements, >= 0'), ('alpha', 'in'), ('x', 'out: vector'),
                     ('incx', 'in: not 0')],
               reports=REPORTS),
    ]
    for short, long_, t, scalar in (('f16pjc', 'zem_dtrsv', 'double', 'double'),
                                    ('f16sjc', 'zem_ztrsv', 'ZemComplex', 'ZemComplex')):
        out.append(manual(
            short, f'void {short}(Zem_OrderType order, Zem_UploType uplo, Zem_TransType trans, Zem_DiagType diag, '
                   f'int32_t n, {scalar} alpha, const {t} a[], int32_t pda, {t} x[], int32_t incx, ZemError *fail)',
            f'{long_}: solves op(A) y = alpha x, A triangular of order n, and overwrites\n *   '
            'x with y (alpha = 0 sets x to 0 without a solve).  An exactly zero diagonal\n *   '
            'element gives infinities, as in f06pjc.',
            args=[('order', ORDER), ('uplo', 'Zem_Upper or Zem_Lower: the triangle of A that is used'),
                  ('trans', 'Zem_NoTrans, Zem_Trans or Zem_ConjTrans'),
                  ('diag', 'Zem_NonUnitDiag or Zem_UnitDiag (diagonal taken as 1, not referenced)'),
                  ('n', 'in: order, >= 0'), ('alpha', 'in'), ('a', 'in: A'), ('pda', 'in: leading dimension of A'),
                  ('x', 'in/out: vector of n elements'), ('incx', 'in: not 0')],
            reports=REPORTS))
    for short, long_, t in (('f16yjc', 'zem_dtrsm', 'double'), ('f16zjc', 'zem_ztrsm', 'ZemComplex')):
        out.append(manual(
            short, f'void {short}(Zem_OrderType order, Zem_SideType side, Zem_UploType uplo, Zem_TransType trans, '
                   f'Zem_DiagType diag, int32_t m, int32_t n, {t} alpha, const {t} a[], int32_t pda, {t} b[], '
                   'int32_t pdb, ZemError *fail)',
            f'{long_}: solves op(A) X = alpha B (side left) or X op(A) = alpha B (side\n *   '
            'right), A triangular, and overwrites the m by n matrix B with X.',
            args=[('order', ORDER), ('side', 'Zem_LeftSide or Zem_RightSide'),
                  ('uplo', 'Zem_Upper or Zem_Lower'), ('trans', 'Zem_NoTrans, Zem_Trans or Zem_ConjTrans'),
                  ('diag', 'Zem_NonUnitDiag or Zem_UnitDiag'), ('m', 'in: rows of B, >= 0'),
                  ('n', 'in: columns of B, >= 0'), ('alpha', 'in'),
                  ('a', 'in: A, of order m (side left) or n (side right)'), ('pda', 'in: leading dimension of A'),
                  ('b', 'in/out: B, then X'), ('pdb', 'in: leading dimension of B')],
            reports=REPORTS))
    for p, long_p, t in (('f16q', 'zem_d', 'double'), ('f16t', 'zem_z', 'ZemComplex')):
        out += [
            manual(p + 'ec', f'void {p}ec(Zem_OrderType order, Zem_UploType uplo, Zem_TransType trans, '
                   f'Zem_DiagType diag, int32_t n, const {t} a[], int32_t pda, {t} b[], int32_t pdb, ZemError *fail)',
                   f'{long_p}tr_copy: B = op(A) for a triangular A of order n.  Only the triangle\n *   '
                   'uplo of A is read; only the triangle of B that op(A) fills is written (the\n *   '
                   'same triangle for Zem_NoTrans, the other one otherwise).  With Zem_UnitDiag\n *   '
                   'the diagonal of A is not read and that of B is set to 1.',
                   args=[('order', ORDER), ('uplo', 'Zem_Upper or Zem_Lower: the triangle of A'),
                         ('trans', 'Zem_NoTrans, Zem_Trans or Zem_ConjTrans'),
                         ('diag', 'Zem_NonUnitDiag or Zem_UnitDiag'), ('n', 'in: order, >= 0'), ('a', 'in: A'),
                         ('pda', 'in: leading dimension of A'), ('b', 'out: B'),
                         ('pdb', 'in: leading dimension of B')],
                   reports=REPORTS),
            manual(p + 'fc', f'void {p}fc(Zem_OrderType order, Zem_TransType trans, int32_t m, int32_t n, '
                   f'const {t} a[], int32_t pda, {t} b[], int32_t pdb, ZemError *fail)',
                   f'{long_p}ge_copy: B = op(A), B m by n (A m by n for Zem_NoTrans, n by m\n *   '
                   'otherwise; Zem_ConjTrans conjugates).',
                   args=[('order', ORDER), ('trans', 'Zem_NoTrans, Zem_Trans or Zem_ConjTrans'),
                         ('m', 'in: rows of B, >= 0'), ('n', 'in: columns of B, >= 0'), ('a', 'in: A'),
                         ('pda', 'in: leading dimension of A'), ('b', 'out: B'),
                         ('pdb', 'in: leading dimension of B')],
                   reports=REPORTS),
            manual(p + 'gc', f'void {p}gc(Zem_OrderType order, Zem_UploType uplo, int32_t n, {t} alpha, {t} beta, '
                   f'{t} a[], int32_t pda, ZemError *fail)',
                   f'{long_p}tr_load: loads the triangle uplo of A (order n): alpha off the\n *   '
                   'diagonal, beta on it.  The other triangle is not written.',
                   args=[('order', ORDER), ('uplo', 'Zem_Upper or Zem_Lower'), ('n', 'in: order, >= 0'),
                         ('alpha', 'in'), ('beta', 'in'), ('a', 'out: A'), ('pda', 'in: leading dimension of A')],
                   reports=REPORTS),
            manual(p + 'hc', f'void {p}hc(Zem_OrderType order, int32_t m, int32_t n, {t} alpha, {t} beta, '
                   f'{t} a[], int32_t pda, ZemError *fail)',
                   f'{long_p}ge_load: loads the m by n matrix A: alpha off the diagonal, beta\n *   '
                   'on it (alpha = 0, beta = 1 gives the identity).',
                   args=[('order', ORDER), ('m', 'in: rows, >= 0'), ('n', 'in: columns, >= 0'), ('alpha', 'in'),
                         ('beta', 'in'), ('a', 'out: A'), ('pda', 'in: leading dimension of A')],
                   reports=REPORTS),
        ]
    norm_args = [('order', ORDER), ('norm', NORM)]
    result = ('r', 'out: the norm (0 for an empty matrix); NaN elements give NaN')
    for short, long_, t, kind in (
            ('f16rac', 'zem_dge_norm', 'double', 'ge'), ('f16rbc', 'zem_dgb_norm', 'double', 'gb'),
            ('f16rcc', 'zem_dsy_norm', 'double', 'sy'), ('f16rdc', 'zem_dsp_norm', 'double', 'sp'),
            ('f16rec', 'zem_dsb_norm', 'double', 'sb'), ('f16uac', 'zem_zge_norm', 'ZemComplex', 'ge'),
            ('f16ucc', 'zem_zhe_norm', 'ZemComplex', 'he'), ('f16udc', 'zem_zhp_norm', 'ZemComplex', 'hp'),
            ('f16uec', 'zem_zhb_norm', 'ZemComplex', 'hb'), ('f16ufc', 'zem_zsy_norm', 'ZemComplex', 'sy'),
            ('f16ugc', 'zem_zsp_norm', 'ZemComplex', 'sp')):
        herm = kind[0] == 'h'
        sym_word = 'Hermitian' if herm else ('complex symmetric' if t != 'double' else 'symmetric')
        what = {
            'ge': ('m by n matrix A', 'int32_t m, int32_t n', f'const {t} a[], int32_t pda',
                   [('m', 'in: rows, >= 0'), ('n', 'in: columns, >= 0'), ('a', 'in: A'),
                    ('pda', 'in: leading dimension of A')]),
            'gb': ('m by n band matrix A with kl sub- and ku super-diagonals',
                   'int32_t m, int32_t n, int32_t kl, int32_t ku', f'const {t} a[], int32_t pda',
                   [('m', 'in: rows, >= 0'), ('n', 'in: columns, >= 0'), ('kl', 'in: sub-diagonals, >= 0'),
                    ('ku', 'in: super-diagonals, >= 0'), ('a', 'in: A in band storage'),
                    ('pda', 'in: leading dimension, >= kl+ku+1')]),
            'sy': (f'{sym_word} matrix A of order n, given by its triangle uplo',
                   'Zem_UploType uplo, int32_t n', f'const {t} a[], int32_t pda',
                   [('uplo', 'Zem_Upper or Zem_Lower'), ('n', 'in: order, >= 0'), ('a', 'in: A'),
                    ('pda', 'in: leading dimension of A')]),
            'sp': (f'{sym_word} matrix A of order n, its triangle uplo packed',
                   'Zem_UploType uplo, int32_t n', f'const {t} ap[]',
                   [('uplo', 'Zem_Upper or Zem_Lower'), ('n', 'in: order, >= 0'),
                    ('ap', 'in: the packed triangle, n(n+1)/2 elements')]),
            'sb': (f'{sym_word} band matrix A of order n with k diagonals on the side uplo',
                   'Zem_UploType uplo, int32_t n, int32_t k', f'const {t} a[], int32_t pda',
                   [('uplo', 'Zem_Upper or Zem_Lower'), ('n', 'in: order, >= 0'), ('k', 'in: diagonals, >= 0'),
                    ('a', 'in: A in band storage'), ('pda', 'in: leading dimension, >= k+1')]),
        }[{'he': 'sy', 'hp': 'sp', 'hb': 'sb'}.get(kind, kind)]
        if herm:
            extra = '  The imaginary parts of the diagonal are taken as 0.'
        else:
            extra = ''
        out.append(manual(
            short, f'void {short}(Zem_OrderType order, Zem_NormType norm, {what[1]}, {what[2]}, double *r, '
                   'ZemError *fail)',
            f'{long_}: a norm of the {what[0]}.{extra}',
            args=norm_args + what[3] + [result], reports=REPORTS))
    return sorted(out, key=lambda r: r['name'])


ROWS = rows()
