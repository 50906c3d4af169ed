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
  X:int                  an integer scalar that only the kernel checks (ilo)
  X:iout                 an integer scalar result (int32_t *), or :io both
  X:bvec(len)            a Boolean vector (int32_t)
  X:upto(b) X:from(b)    dimensions with a bound: 0 <= X <= b, X >= b
  X:enum(Zem_A=L,...)    an enumerator with its own letters (the first pair
                         is the value of the argument tests)
  X=K:...                K is the kernel's name of the argument
  ...:when(c)            referenced only under c (arg!=L, arg=LM, dim>0):
                         else it may be null, its leading dimension >= 1
  ...:full(c)            a triangle on entry, a full matrix on exit under c
  ...:i :o :io           input (default), output, both

A row may also give `let` (names for sizes, in size syntax), `extra`
(kernel arguments the export does not have, as C expressions), `validates`
(arrays whose contents the kernel checks), `query_reads` (the workspace
query reads the matrices, so it runs after the copies) and `probe` (for integer
scalars: a valid value and one the kernel refuses, at size 3, for the
argument tests).  A negative info that names an argument other than a
dimension or leading dimension is reported as NE_BAD_PARAM naming it.

Sizes are C expressions of the dimensions (MIN and MAX allowed), and read as
written in the constraint texts; x|y;arg=L selects x when the enumerator
arg has the letter L (by default its first: NoTrans, LeftSide, Upper).
`work` gives the sizes of the kernel's workspace arrays; a kernel with
lwork (lrwork, liwork) is asked for its optimal sizes.
`info` names the report of a positive info (INFO below).

Rows with api='cblas' call the CBLAS routine, which takes the storage order
itself: the wrapper checks and calls, and copies nothing.

A row with `proto` instead of `kernel` is written by hand (its definition
lives in linalg/); the generator only declares it, with its documentation,
in the chapter's header.

The rows of each chapter are in table_<chapter>.py.
"""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import table_f06  # noqa: E402
import table_f07  # noqa: E402
import table_f08  # noqa: E402
import table_f16  # noqa: E402

CHAPTERS = {
    'f06': 'f06: vector, matrix-vector and matrix-matrix operations (BLAS levels 1, 2 and 3).',
    'f07': 'f07: linear equations (LU, Cholesky and related factorisations) over LAPACK.',
    'f08': 'f08: eigenproblems, orthogonal factorisations and the singular value decomposition over LAPACK.',
    'f16': 'f16: the extended BLAS (vector and matrix loads, copies, norms and triangular solves).',
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


INFO.update(table_f08.INFO)

ROUTINES = table_f06.ROWS + table_f07.ROWS + table_f08.ROWS + table_f16.ROWS
