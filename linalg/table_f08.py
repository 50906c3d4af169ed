"""Rows of the f08 chapter for tools/gen_linalg.py (the row format is described in
linalg/routines.py).

Enumerator arguments name their letters: job:enum(Zem_EigVals=N,Zem_DoBoth=V)
passes 'N' or 'V' to the kernel; the first pair is the value the generated
argument tests use.  job=jobz gives the kernel's name of an argument where it
differs from the export's (and ord=order keeps dstebz's ORDER apart from the
storage order).  :when(cond) marks an array that the kernel references only
under cond (compz!=N, side=LB: L or B, ncc>0); it may then be null, and its
leading dimension need only be >= 1.  :full(cond) makes a triangle a full
matrix on exit (the eigenvectors that overwrite a).
"""

# The enumerator maps that several rows share.
EIG_JOB = 'job=jobz:enum(Zem_DoBoth=V,Zem_EigVals=N)'
COMPZ = 'compz:enum(Zem_UpdateZ=V,Zem_InitZ=I,Zem_NotZ=N)'
TRANS_D = 'trans:enum(Zem_NoTrans=N,Zem_Trans=T)'
TRANS_Z = 'trans:enum(Zem_NoTrans=N,Zem_ConjTrans=C)'
SIDE3 = 'side:enum(Zem_RightSide=R,Zem_LeftSide=L,Zem_BothSides=B)'
BAL_JOB = 'job:enum(Zem_DoBoth=B,Zem_DoNothing=N,Zem_Permute=P,Zem_Scale=S)'
COMPQ3 = 'compq:enum(Zem_UpdateQ=V,Zem_InitQ=I,Zem_NotQ=N)'
COMPQ2 = 'compq:enum(Zem_UpdateQ=V,Zem_NotQ=N)'
HOWMNY3 = 'howmny:enum(Zem_ComputeAll=A,Zem_BackTransform=B,Zem_ComputeSelected=S)'
# ilo and ihi as the kernels check them: 1 <= ilo <= ihi <= n, or ilo = 1
# and ihi = 0 when n = 0.  Valid and refused values at size 3.
ILO_IHI = {'ilo': ('1', '0'), 'ihi': ('3', '4')}

# Reports of a positive info (catalogue row, the routine's own text filled
# with info), merged into routines.INFO.
INFO = {
    'eig_dc': ('NE_CONV',
               '    The divide and conquer algorithm failed to converge (info = %ld): an eigenvalue\n'
               '    could not be computed, or off-diagonal elements of an intermediate\n'
               '    tridiagonal form did not converge to zero.'),
    'tridiag_ql': ('NE_CONV',
                   '    The algorithm failed to find all the eigenvalues in 30n iterations;\n'
                   '    %ld off-diagonal elements have not converged to zero.'),
    'pteqr': ('NE_CONV',
              '    info = %ld.  If info <= n, the leading minor of order info is not positive\n'
              '    definite; otherwise info-n off-diagonal elements of the bidiagonal factor\n'
              '    did not converge to zero.'),
    'stebz': ('NE_CONV',
              '    info = %ld.  Bisection failed to converge for some eigenvalues (info 1 or 3:\n'
              '    iblock holds their blocks as negative numbers), or the Gershgorin interval\n'
              '    was too small to find the eigenvalues il to iu (info 2, 3 or 4).'),
    'stein': ('NE_EIGVEC',
              '    %ld eigenvectors failed to converge in the maximum number of iterations;\n'
              '    ifail holds their indices.'),
    'bdsqr': ('NE_CONV',
              '    %ld off-diagonal elements of an intermediate bidiagonal form did not\n'
              '    converge to zero.'),
    'hseqr': ('NE_QR_NOT_CONV',
              '    The QR algorithm failed to compute all the eigenvalues: elements\n'
              '    1 to ilo-1 and info+1 to n (info = %ld) of the eigenvalues have converged.'),
    'hsein': ('NE_EIGVEC',
              '    %ld eigenvectors (a complex pair counting once) failed to converge;\n'
              '    ifaill and ifailr mark them.'),
    'trexc': ('NE_EXCHANGE',
              '    Two adjacent blocks were too close to swap (info = %ld): t may have been\n'
              '    partially reordered, and ilst holds the current position of the block.'),
    'trsen': ('NE_REORDER',
              '    The reordering of t failed because some eigenvalues are too close to\n'
              '    separate (info = %ld); t may have been partially reordered.'),
    'trsyl': ('NE_PERTURBED',
              '    A and B have common or very close eigenvalues (info = %ld); perturbed\n'
              '    values were used to solve the equation.'),
    'pbstf': ('NE_NOT_POS_DEF',
              '    The factorization could not be completed: the update of element %ld\n'
              '    would take the square root of a negative number, and B is not\n'
              '    positive definite.'),
    'hgeqz': ('NE_ITERATIONS_QZ',
              '    The QZ iteration failed to converge (info = %ld).  When info <= n, the\n'
              '    eigenvalues info+1 to n are correct; otherwise a shift failed.'),
    'tgevc': ('NE_EIGVAL',
              '    The 2 by 2 block at row %ld does not have a complex eigenvalue pair;\n'
              '    the input is not a generalized Schur form.'),
}


def _qr_rows(p, kind):
    """The QR and LQ rows of one precision: p 'd' or 'z'."""
    q = 'or' if p == 'd' else 'un'
    trans = TRANS_D if p == 'd' else TRANS_Z
    t = '^T' if p == 'd' else '^H'
    names = {'d': ('f08aec', 'f08afc', 'f08agc', 'f08ahc', 'f08ajc', 'f08akc'),
             'z': ('f08asc', 'f08atc', 'f08auc', 'f08avc', 'f08awc', 'f08axc')}[p]
    return [
        dict(name=names[0], kernel=p + 'geqrf',
             doc=f'QR factorisation of a {kind} m by n matrix, A = Q R: R in the upper trapezoid\n'
                 ' * of a, Q as min(m,n) elementary reflectors below the diagonal and in tau.',
             args='order m n a:ge(m,n):io pda tau:vec(MIN(m,n)):o'),
        dict(name=names[1], kernel=p + q + 'gqr',
             doc=f'forms the m by n matrix Q with orthonormal columns, the first n columns of the\n'
                 f' * product of the k reflectors from {names[0]} (a on entry as {names[0]} left it).',
             args='order m n:upto(m) k:upto(n) a:ge(m,n):io pda tau:vec(k)'),
        dict(name=names[2], kernel=p + q + 'mqr',
             doc=f'C <- op(Q) C (side Zem_LeftSide) or C op(Q) (Zem_RightSide), op(Q) = Q or Q{t},\n'
                 f' * with Q the product of k reflectors from {names[0]}; C is m by n.',
             args=f'order side {trans} m n k:upto(m|n;side) a:ge(m|n;side,k) pda tau:vec(k) c:ge(m,n):io pdc'),
        dict(name=names[3], kernel=p + 'gelqf',
             doc=f'LQ factorisation of a {kind} m by n matrix, A = L Q: L in the lower trapezoid\n'
                 ' * of a, Q as min(m,n) elementary reflectors above the diagonal and in tau.',
             args='order m n a:ge(m,n):io pda tau:vec(MIN(m,n)):o'),
        dict(name=names[4], kernel=p + q + 'glq',
             doc=f'forms the m by n matrix Q with orthonormal rows, the first m rows of the product\n'
                 f' * of the k reflectors from {names[3]}.',
             args='order m n:from(m) k:upto(m) a:ge(m,n):io pda tau:vec(k)'),
        dict(name=names[5], kernel=p + q + 'mlq',
             doc=f'C <- op(Q) C or C op(Q), op(Q) = Q or Q{t}, with Q the product of k reflectors\n'
                 f' * from {names[3]}; C is m by n.',
             args=f'order side {trans} m n k:upto(m|n;side) a:ge(k,m|n;side) pda tau:vec(k) c:ge(m,n):io pdc'),
    ]


def _sym_rows(p):
    """Symmetric (Hermitian) eigenproblems in full, packed and band storage."""
    d = p == 'd'
    q = 'or' if d else 'un'
    qp = 'op' if d else 'up'
    trans = TRANS_D if d else TRANS_Z
    kind = 'real symmetric' if d else 'complex Hermitian'
    w = 'vec' if d else 'rvec'
    n = {'d': ('f08fcc', 'f08fec', 'f08ffc', 'f08fgc', 'f08gcc', 'f08gec', 'f08gfc', 'f08ggc',
               'f08hcc', 'f08hec'),
         'z': ('f08fqc', 'f08fsc', 'f08ftc', 'f08fuc', 'f08gqc', 'f08gsc', 'f08gtc', 'f08guc',
               'f08hqc', 'f08hsc')}[p]
    he = 'sy' if d else 'he'
    hp = 'sp' if d else 'hp'
    hb = 'sb' if d else 'hb'
    jobdoc = '\n * job Zem_EigVals: eigenvalues only; Zem_DoBoth: eigenvalues and eigenvectors'
    work_b = {'work': 'n'} if d else {'work': 'n'}
    rows = [
        dict(name=n[0], kernel=p + he + 'evd',
             doc=f'all eigenvalues (ascending, in w) and optionally the eigenvectors of a\n'
                 f' * {kind} matrix A, by the divide and conquer method; {jobdoc}\n'
                 ' * (they overwrite a, the whole matrix, as orthonormal columns: A V = V diag(w)).',
             args=f'order {EIG_JOB} uplo n a:tri(n):io:full(job=V) pda w:{w}(n):o', info='eig_dc'),
        dict(name=n[1], kernel=p + he + 'trd',
             doc=f'reduces a {kind} matrix to real symmetric tridiagonal form\n'
                 ' * T = Q^H A Q: d the diagonal, e the off-diagonal, Q as n-1 reflectors in a (the\n'
                 ' * triangle uplo) and tau.',
             args=f'order uplo n a:tri(n):io pda d:{w}(n):o e:{w}(n-1):o tau:vec(n-1):o'),
        dict(name=n[2], kernel=p + q + 'gtr',
             doc=f'forms the n by n {"orthogonal" if d else "unitary"} matrix Q of the reduction by {n[1]}.',
             args='order uplo n a:ge(n,n):io pda tau:vec(n-1)'),
        dict(name=n[3], kernel=p + q + 'mtr',
             doc=f'C <- op(Q) C or C op(Q) with Q of the reduction by {n[1]}; C is m by n, and a\n'
                 ' * and tau are of order m (side Zem_LeftSide) or n (Zem_RightSide).',
             args=f'order side uplo {trans} m n a:ge(m|n;side,m|n;side) pda tau:vec(m-1|n-1;side) c:ge(m,n):io pdc'),
        dict(name=n[4], kernel=p + hp + 'evd',
             doc=f'all eigenvalues (ascending, in w) and optionally the orthonormal eigenvectors\n'
                 f' * (the columns of z) of a {kind} matrix in packed storage, by divide and\n'
                 f' * conquer; {jobdoc}.\n * ap is overwritten.',
             args=f'order {EIG_JOB} uplo n ap:pk(n):io w:{w}(n):o z:ge(n,n):o:when(job=V) pdz',
             info='eig_dc'),
        dict(name=n[5], kernel=p + hp + 'trd',
             doc=f'reduces a {kind} matrix in packed storage to real symmetric\n'
                 ' * tridiagonal form T = Q^H A Q (d, e), Q as reflectors in ap and tau.',
             args=f'order uplo n ap:pk(n):io d:{w}(n):o e:{w}(n-1):o tau:vec(n-1):o'),
        dict(name=n[6], kernel=p + qp + 'gtr',
             doc=f'forms the n by n matrix Q of the packed reduction by {n[5]}.',
             args='order uplo n ap:pk(n) tau:vec(n-1) q:ge(n,n):o pdq', work={'work': 'n'}),
        dict(name=n[7], kernel=p + qp + 'mtr',
             doc=f'C <- op(Q) C or C op(Q) with Q of the packed reduction by {n[5]}; ap is of\n'
                 ' * order m (side Zem_LeftSide) or n (Zem_RightSide).',
             args=f'order side uplo {trans} m n ap:pk(m|n;side) tau:vec(m-1|n-1;side) c:ge(m,n):io pdc',
             work={'work': 'MAX(m,n)'}),
        dict(name=n[8], kernel=p + hb + 'evd',
             doc=f'all eigenvalues (ascending, in w) and optionally the orthonormal eigenvectors\n'
                 f' * (the columns of z) of a {kind} band matrix with kd off-diagonals, by divide\n'
                 f' * and conquer; {jobdoc}.\n * ab is overwritten.',
             args=f'order {EIG_JOB} uplo n kd ab:sband(n,kd):io pdab w:{w}(n):o z:ge(n,n):o:when(job=V) pdz',
             info='eig_dc'),
        dict(name=n[9], kernel=p + hb + 'trd',
             doc=f'reduces a {kind} band matrix to real symmetric tridiagonal form\n'
                 ' * T = Q^H A Q (d, e); vect Zem_NotQ: Q is not formed, Zem_InitQ: q receives Q,\n'
                 ' * Zem_UpdateQ: q <- q Q.',
             args='order vect:enum(Zem_InitQ=V,Zem_UpdateQ=U,Zem_NotQ=N) uplo n kd ab:sband(n,kd):io pdab '
                  f'd:{w}(n):o e:{w}(n-1):o q:ge(n,n):io:when(vect!=N) pdq',
             work=work_b),
    ]
    return rows


def _tridiag_rows():
    r = 'symmetric tridiagonal\n * matrix T (diagonal d, off-diagonal e)'
    compz = ('compz Zem_NotZ: eigenvalues only; Zem_InitZ: z receives the eigenvectors of T;\n'
             ' * Zem_UpdateZ: z holds Q of a reduction A = Q T Q^H on entry and receives the\n'
             ' * eigenvectors of A')
    return [
        dict(name='f08jcc', kernel='dstevd',
             doc=f'all eigenvalues (ascending, in d) and optionally the orthonormal eigenvectors\n'
                 f' * (the columns of z) of a real {r}, by divide and conquer;\n'
                 ' * job Zem_EigVals: eigenvalues only; Zem_DoBoth: both.  e is overwritten.',
             args=f'order {EIG_JOB} n d:vec(n):io e:vec(n):io z:ge(n,n):o:when(job=V) pdz', info='eig_dc'),
        dict(name='f08jec', kernel='dsteqr',
             doc=f'all eigenvalues (ascending, in d) and optionally eigenvectors of a real\n'
                 f' * {r} by the implicit QL or QR method;\n * {compz}.',
             args=f'order {COMPZ} n d:vec(n):io e:vec(n-1):io z:ge(n,n):io:when(compz!=N) pdz',
             work={'work': '2*n'}, info='tridiag_ql'),
        dict(name='f08jfc', kernel='dsterf',
             doc=f'all eigenvalues (ascending, in d) of a real {r} by the\n'
                 ' * square-root-free QL or QR method; e is overwritten.',
             args='order n d:vec(n):io e:vec(n-1):io', info='tridiag_ql'),
        dict(name='f08jgc', kernel='dpteqr',
             doc='all eigenvalues (descending, in d) and optionally eigenvectors of a real\n'
                 ' * symmetric positive definite tridiagonal matrix, from its Cholesky factor and\n'
                 f' * the bidiagonal QR algorithm (high relative accuracy);\n * {compz}.',
             args=f'order {COMPZ} n d:vec(n):io e:vec(n-1):io z:ge(n,n):io:when(compz!=N) pdz',
             work={'work': '4*n'}, info='pteqr'),
        dict(name='f08jjc', kernel='dstebz',
             doc=f'selected eigenvalues of a real {r} by bisection:\n'
                 ' * range Zem_AllValues: all; Zem_Interval: those in (vl, vu]; Zem_Indices: the il-th\n'
                 ' * to the iu-th smallest.  ord Zem_ByBlock: w in order within each block of the\n'
                 ' * splitting (iblock, isplit); Zem_Entire: w ascending over the whole matrix.\n'
                 ' * abstol is the absolute tolerance (<= 0: a default); m returns how many were found.',
             args='order range:enum(Zem_AllValues=A,Zem_Interval=V,Zem_Indices=I) '
                  'ord=order:enum(Zem_Entire=E,Zem_ByBlock=B) n vl:real vu:real il:int iu:int abstol:real '
                  'd:vec(n) e:vec(n-1) m:iout:o nsplit:iout:o w:vec(n):o iblock:ivec(n):o isplit:ivec(n):o',
             work={'work': '4*n', 'iwork': '3*n'}, info='stebz'),
        dict(name='f08jkc', kernel='dstein',
             doc=f'eigenvectors (the columns of z) of a real {r} for the m\n'
                 ' * eigenvalues in w, given in blocks as f08jjc returns them with ord Zem_ByBlock, by inverse\n'
                 ' * iteration; ifail lists those that failed to converge.',
             args='order n d:vec(n) e:vec(n-1) m:upto(n) w:vec(n) iblock:ivec(n) isplit:ivec(n) '
                  'z:ge(n,m):o pdz ifail:ivec(m):o',
             work={'work': '5*n', 'iwork': 'n'}, validates=('w', 'iblock'), info='stein'),
        dict(name='f08jsc', kernel='zsteqr',
             doc=f'all eigenvalues (ascending, in d) and optionally eigenvectors of a real\n'
                 f' * {r} by the implicit QL or QR method, z complex;\n * {compz}.',
             args=f'order {COMPZ} n d:rvec(n):io e:rvec(n-1):io z:ge(n,n):io:when(compz!=N) pdz',
             work={'work': '2*n'}, info='tridiag_ql'),
        dict(name='f08juc', kernel='zpteqr',
             doc='all eigenvalues (descending, in d) and optionally eigenvectors of a real\n'
                 ' * symmetric positive definite tridiagonal matrix, z complex (the unitary Q of a\n'
                 f' * Hermitian reduction for Zem_UpdateZ);\n * {compz}.',
             args=f'order {COMPZ} n d:rvec(n):io e:rvec(n-1):io z:ge(n,n):io:when(compz!=N) pdz',
             work={'work': '4*n'}, info='pteqr'),
        dict(name='f08jxc', kernel='zstein',
             doc=f'eigenvectors (the complex columns of z, with zero imaginary parts) of a\n'
                 f' * real {r} for the m eigenvalues in w, as f08jkc.',
             args='order n d:rvec(n) e:rvec(n-1) m:upto(n) w:rvec(n) iblock:ivec(n) isplit:ivec(n) '
                  'z:ge(n,m):o pdz ifail:ivec(m):o',
             work={'work': '5*n', 'iwork': 'n'}, validates=('w', 'iblock'), info='stein'),
    ]


def _bidiag_rows(p):
    d = p == 'd'
    q = 'or' if d else 'un'
    trans = TRANS_D if d else TRANS_Z
    kind = 'real' if d else 'complex'
    rv = 'vec' if d else 'rvec'
    n = {'d': ('f08kec', 'f08kfc', 'f08kgc', 'f08lec', 'f08mec'),
         'z': ('f08ksc', 'f08ktc', 'f08kuc', 'f08lsc', 'f08msc')}[p]
    gb_work = {'work': '2*MAX(m,n)'} if d else {'work': 'MAX(m,n)', 'rwork': 'MAX(m,n)'}
    return [
        dict(name=n[0], kernel=p + 'gebrd',
             doc=f'reduces a {kind} m by n matrix to real bidiagonal form B = Q^H A P (upper when\n'
                 ' * m >= n, lower otherwise): d the diagonal, e the off-diagonal, Q and P^H as\n'
                 ' * reflectors in a, tauq and taup.',
             args=f'order m n a:ge(m,n):io pda d:{rv}(MIN(m,n)):o e:{rv}(MIN(m,n)-1):o '
                  'tauq:vec(MIN(m,n)):o taup:vec(MIN(m,n)):o'),
        dict(name=n[1], kernel=p + q + 'gbr',
             doc=f'forms Q (vect Zem_FormQ, m by n from the reduction of an m by k matrix) or P^H\n'
                 f' * (Zem_FormP, m by n from a k by n matrix) of the bidiagonal reduction by {n[0]}.',
             args='order vect:enum(Zem_FormQ=Q,Zem_FormP=P) m n k a:ge(m,n):io pda tau:vec(MIN(m,k)|MIN(n,k);vect=Q)'),
        dict(name=n[2], kernel=p + q + 'mbr',
             doc=f'C <- op(X) C or C op(X), X = Q (vect Zem_ApplyQ) or P (Zem_ApplyP) of the\n'
                 f' * bidiagonal reduction by {n[0]} of a matrix with k columns (Q) or k rows (P).',
             args=f'order vect:enum(Zem_ApplyQ=Q,Zem_ApplyP=P) side {trans} m n k '
                  'a:ge(nq|MIN(nq,k);vect=Q,MIN(nq,k)|nq;vect=Q) pda tau:vec(MIN(nq,k)) c:ge(m,n):io pdc',
             let={'nq': 'm|n;side'}),
        dict(name=n[3], kernel=p + 'gbbrd',
             doc=f'reduces a {kind} m by n band matrix (kl sub-, ku super-diagonals) to upper\n'
                 ' * bidiagonal form B = Q^H A P (d, e); vect Zem_FormQ, Zem_FormP, Zem_FormBoth:\n'
                 ' * q receives Q, pt receives P^H, or both; Zem_DoNotForm: neither.  C (m by ncc)\n'
                 ' * is overwritten by Q^H C.',
             args='order vect:enum(Zem_FormBoth=B,Zem_FormQ=Q,Zem_FormP=P,Zem_DoNotForm=N) m n ncc kl ku '
                  f'ab:band(m,n,kl,ku):io pdab d:{rv}(MIN(m,n)):o e:{rv}(MIN(m,n)-1):o '
                  'q:ge(m,m):o:when(vect=QB) pdq pt:ge(n,n):o:when(vect=PB) pdpt c:ge(m,ncc):io:when(ncc>0) pdc',
             work=gb_work),
        dict(name=n[4], kernel=p + 'bdsqr',
             doc='singular value decomposition B = Q S P^T of a real n by n bidiagonal matrix\n'
                 ' * (uplo: upper or lower; d the diagonal, e the off-diagonal) by the implicit\n'
                 ' * zero-shift QR algorithm: d receives the singular values in decreasing order,\n'
                 ' * vt <- P^T vt (n by ncvt), u <- u Q (nru by n), c <- Q^T c (n by ncc).',
             args=f'order uplo n ncvt nru ncc d:{rv}(n):io e:{rv}(n-1):io vt:ge(n,ncvt):io:when(ncvt>0) pdvt '
                  'u:ge(nru,n):io:when(nru>0) pdu c:ge(n,ncc):io:when(ncc>0) pdc',
             work={'work': '4*n'} if d else {'rwork': '4*n'}, info='bdsqr'),
    ]


def _hessenberg_rows(p):
    d = p == 'd'
    q = 'or' if d else 'un'
    trans = TRANS_D if d else TRANS_Z
    kind = 'real' if d else 'complex'
    n = {'d': ('f08nec', 'f08nfc', 'f08ngc', 'f08nhc', 'f08njc', 'f08pec', 'f08pkc'),
         'z': ('f08nsc', 'f08ntc', 'f08nuc', 'f08nvc', 'f08nwc', 'f08psc', 'f08pxc')}[p]
    w = 'wr:vec(n):o wi:vec(n):o' if d else 'w:vec(n):o'
    rows = [
        dict(name=n[0], kernel=p + 'gehrd',
             doc=f'reduces a {kind} matrix to upper Hessenberg form H = Q^H A Q; rows and columns\n'
                 ' * outside ilo..ihi are already triangular (1 and n when not balanced); Q as\n'
                 ' * reflectors below the subdiagonal of a and in tau.',
             args='order n ilo:int ihi:int a:ge(n,n):io pda tau:vec(n-1):o', probe=ILO_IHI),
        dict(name=n[1], kernel=p + q + 'ghr',
             doc=f'forms the n by n matrix Q of the Hessenberg reduction by {n[0]}.',
             args='order n ilo:int ihi:int a:ge(n,n):io pda tau:vec(n-1)', probe=ILO_IHI),
        dict(name=n[2], kernel=p + q + 'mhr',
             doc=f'C <- op(Q) C or C op(Q) with Q of the Hessenberg reduction by {n[0]}; a and tau\n'
                 ' * are of order m (side Zem_LeftSide) or n (Zem_RightSide).',
             args=f'order side {trans} m n ilo:int ihi:int a:ge(m|n;side,m|n;side) pda tau:vec(m-1|n-1;side) '
                  'c:ge(m,n):io pdc', probe=ILO_IHI),
        dict(name=n[3], kernel=p + 'gebal',
             doc=f'balances a {kind} matrix, A <- D^-1 P^T A P D: job Zem_Permute permutes to\n'
                 ' * isolate eigenvalues (rows and columns outside ilo..ihi), Zem_Scale scales\n'
                 ' * rows and columns to make their norms close, Zem_DoBoth does both and\n'
                 ' * Zem_DoNothing neither; scale records the permutations and the factors.',
             args=f'order {BAL_JOB} n a:ge(n,n):io pda ilo:iout:o ihi:iout:o scale:rvec(n):o'),
        dict(name=n[4], kernel=p + 'gebak',
             doc=f'back-transforms the right (side Zem_RightSide) or left (Zem_LeftSide)\n'
                 f' * eigenvectors in the n by m matrix v of a matrix balanced by {n[3]} with the same\n'
                 ' * job, ilo, ihi and scale.',
             args=f'order {BAL_JOB} side n ilo:int ihi:int scale:rvec(n) m v:ge(n,m):io pdv', probe=ILO_IHI),
        dict(name=n[5], kernel=p + 'hseqr',
             doc=f'eigenvalues of a {kind} upper Hessenberg matrix H and optionally its Schur form\n'
                 ' * T (job Zem_Schur; Zem_EigVals: eigenvalues only) by the QR algorithm, H = Z T Z^H:\n'
                 f' * {COMPZ_DOC}',
             args=f'order job:enum(Zem_Schur=S,Zem_EigVals=E) {COMPZ} n ilo:int ihi:int h:ge(n,n):io pdh {w} '
                  'z:ge(n,n):io:when(compz!=N) pdz', probe=ILO_IHI, info='hseqr'),
    ]
    if d:
        rows.append(dict(
            name=n[6], kernel='dhsein',
            doc='right (side Zem_RightSide), left (Zem_LeftSide) or both eigenvectors of a real\n'
                ' * upper Hessenberg matrix for the eigenvalues (wr, wi) chosen by select, by inverse\n'
                ' * iteration, in the columns of vl and vr (a complex pair in two columns, real and\n'
                ' * imaginary parts); eigsrc Zem_HSEQRSource: the eigenvalues come from f08pec;\n'
                ' * initv Zem_UserVec: vl and vr hold starting vectors, Zem_NoVec: none.  m returns\n'
                ' * the columns used.',
            args=f'order {SIDE3} eigsrc:enum(Zem_HSEQRSource=Q,Zem_NotKnown=N) initv:enum(Zem_NoVec=N,Zem_UserVec=U) '
                 'select:bvec(n):io n h:ge(n,n) pdh wr:vec(n):io wi:vec(n) vl:ge(n,mm):io:when(side=LB) pdvl '
                 'vr:ge(n,mm):io:when(side=RB) pdvr mm m:iout:o ifaill:ivec(mm):o:when(side=LB) '
                 'ifailr:ivec(mm):o:when(side=RB)',
            work={'work': '(n+2L)*n'}, info='hsein'))
    else:
        rows.append(dict(
            name=n[6], kernel='zhsein',
            doc='right (side Zem_RightSide), left (Zem_LeftSide) or both eigenvectors of a complex\n'
                ' * upper Hessenberg matrix for the eigenvalues w chosen by select, by inverse\n'
                ' * iteration; eigsrc and initv as f08pkc.  m returns the columns used.',
            args=f'order {SIDE3} eigsrc:enum(Zem_HSEQRSource=Q,Zem_NotKnown=N) initv:enum(Zem_NoVec=N,Zem_UserVec=U) '
                 'select:bvec(n) n h:ge(n,n) pdh w:vec(n):io vl:ge(n,mm):io:when(side=LB) pdvl '
                 'vr:ge(n,mm):io:when(side=RB) pdvr mm m:iout:o ifaill:ivec(mm):o:when(side=LB) '
                 'ifailr:ivec(mm):o:when(side=RB)',
            work={'work': '1L*n*n', 'rwork': 'n'}, info='hsein'))
    return rows


COMPZ_DOC = ('compz Zem_NotZ: no Schur vectors; Zem_InitZ: z receives Z; Zem_UpdateZ: z <- z Z\n'
             ' * (z holding Q of a Hessenberg reduction gives the Schur vectors of A).')


def _schur_rows(p):
    d = p == 'd'
    kind = 'real' if d else 'complex'
    n = {'d': ('f08qfc', 'f08qgc', 'f08qhc', 'f08qkc', 'f08qlc'),
         'z': ('f08qtc', 'f08quc', 'f08qvc', 'f08qxc', 'f08qyc')}[p]
    schur = 'upper quasi-triangular Schur form T' if d else 'upper triangular Schur form T'
    schur_ab = 'upper quasi-triangular (real Schur forms)' if d else 'upper triangular'
    trn = ('trana:enum(Zem_NoTrans=N,Zem_Trans=T,Zem_ConjTrans=C) tranb:enum(Zem_NoTrans=N,Zem_Trans=T,Zem_ConjTrans=C)'
           if d else 'trana:enum(Zem_NoTrans=N,Zem_ConjTrans=C) tranb:enum(Zem_NoTrans=N,Zem_ConjTrans=C)')
    rows = [
        dict(name=n[0], kernel=p + 'trexc',
             doc=f'reorders the {schur} by a unitary similarity\n'
                 ' * T <- Q^H T Q so that the diagonal ' + ('block' if d else 'element') + ' at row ifst moves to row ilst;\n'
                 ' * compq Zem_UpdateQ: q <- q Q, Zem_NotQ: q is not referenced.' + (
                     '\n * ifst and ilst are adjusted to the first row of their 2 by 2 blocks.' if d else ''),
             args=f'order {COMPQ2} n t:ge(n,n):io pdt q:ge(n,n):io:when(compq=V) pdq ' + (
                 'ifst:iout:io ilst:iout:io' if d else 'ifst:int ilst:int'),
             **({'work': {'work': 'n'}, 'info': 'trexc'} if d else {'probe': {'ifst': ('1', '0')}})),
        dict(name=n[1], kernel=p + 'trsen',
             doc=f'reorders the {schur} so that the eigenvalues chosen by\n'
                 ' * select lead, with compq Zem_UpdateQ: q <- q Q (the Schur vectors of the\n'
                 ' * invariant subspace first);\n'
                 ' * job Zem_EigVals: s receives the reciprocal condition number of the cluster of\n'
                 ' * selected eigenvalues, Zem_Subspace: sep that of the invariant subspace,\n'
                 ' * Zem_DoBoth: both, Zem_DoNothing: neither.  m returns the dimension of the subspace.',
             args=f'order job:enum(Zem_DoBoth=B,Zem_DoNothing=N,Zem_EigVals=E,Zem_Subspace=V) {COMPQ2} '
                  'select:bvec(n) n t:ge(n,n):io pdt q:ge(n,n):io:when(compq=V) pdq '
                  + ('wr:vec(n):o wi:vec(n):o' if d else 'w:vec(n):o')
                  + ' m:iout:o s:out:when(job=EB) sep:out:when(job=VB)',
             query_reads=True, **({'info': 'trsen'} if d else {})),
        dict(name=n[2], kernel=p + 'trsyl',
             doc=f'solves the Sylvester equation op(A) X + isgn X op(B) = scale C (isgn 1 or -1) for\n'
                 ' * the m by n matrix X, which overwrites c; A (m by m) and B (n by n) are\n'
                 f' * {schur_ab}, and op is chosen by trana and tranb; scale <= 1 is\n'
                 ' * chosen to avoid overflow.',
             args=f'order {trn} isgn:int m n a:ge(m,m) pda b:ge(n,n) pdb c:ge(m,n):io pdc scale:out',
             probe={'isgn': ('1', '0')}, info='trsyl'),
        dict(name=n[3], kernel=p + 'trevc',
             doc=f'right (side Zem_RightSide), left (Zem_LeftSide) or both eigenvectors of the\n'
                 f' * {schur}:\n * howmny Zem_ComputeAll: all of them; Zem_BackTransform: all,\n'
                 ' * multiplied by the matrices in vl and vr (the Schur vectors, giving those of A);\n'
                 ' * Zem_ComputeSelected: those chosen by select.  m returns the columns used.',
             args=f'order {SIDE3} {HOWMNY3} select:bvec(n){":io" if d else ""}:when(howmny=S) n '
                  't:ge(n,n)' + ('' if d else ':io') + ' pdt '
                  'vl:ge(n,mm):io:when(side=LB) pdvl vr:ge(n,mm):io:when(side=RB) pdvr mm m:iout:o',
             work={'work': '3*n'} if d else {'work': '2*n', 'rwork': 'n'}),
        dict(name=n[4], kernel=p + 'trsna',
             doc=f'reciprocal condition numbers of eigenvalues (job Zem_EigVals: s), of\n'
                 f' * eigenvectors (Zem_EigVecs: sep) or both (Zem_DoBoth) of the\n * {schur},\n'
                 ' * given its left and right eigenvectors in vl and vr (needed for s); howmny\n'
                 ' * Zem_ComputeAll: all, Zem_ComputeSelected: those chosen by select.  m returns\n'
                 ' * how many were computed.',
             args='order job:enum(Zem_DoBoth=B,Zem_EigVals=E,Zem_EigVecs=V) '
                  'howmny:enum(Zem_ComputeAll=A,Zem_ComputeSelected=S) select:bvec(n):when(howmny=S) n '
                  't:ge(n,n) pdt vl:ge(n,mm):when(job=EB) pdvl vr:ge(n,mm):when(job=EB) pdvr '
                  + ('s:vec(mm):o:when(job=EB) sep:vec(mm):o:when(job=VB)' if d
                     else 's:rvec(mm):o:when(job=EB) sep:rvec(mm):o:when(job=VB)') + ' mm m:iout:o',
             extra={'ldwork': 'MAX(1,n)'},
             work=({'work': 'ldwork*(n+6L)', 'iwork': '2*n'} if d else {'work': 'ldwork*(n+1L)', 'rwork': 'n'})),
    ]
    return rows


def _generalised_rows(p):
    d = p == 'd'
    kind = 'real symmetric' if d else 'complex Hermitian'
    n = {'d': ('f08sec', 'f08tec', 'f08uec', 'f08ufc', 'f08wec', 'f08whc', 'f08wjc', 'f08xec', 'f08ykc'),
         'z': ('f08ssc', 'f08tsc', 'f08usc', 'f08utc', 'f08wsc', 'f08wvc', 'f08wwc', 'f08xsc', 'f08yxc')}[p]
    cx = '' if d else '^H'
    itype = (' * itype 1: C = U^-H A U^-1 or L^-1 A L^-H; itype 2 or 3: C = U A U^H or L^H A L,\n'
             ' * with B = U^H U or L L^H (uplo) the Cholesky factorisation held in b')
    rows = [
        dict(name=n[0], kernel=p + ('sygst' if d else 'hegst'),
             doc=f'reduces the {kind}-definite generalised eigenproblem A x = lambda B x\n'
                 ' * (itype 1), A B x = lambda x (2) or B A x = lambda x (3) to the standard form C y =\n'
                 f' * lambda y; C overwrites the triangle uplo of a:\n{itype}.',
             args='order itype:int uplo n a:tri(n):io pda b:tri(n) pdb', probe={'itype': ('1', '0')}),
        dict(name=n[1], kernel=p + ('spgst' if d else 'hpgst'),
             doc=f'the reduction of {n[0]} in packed storage: C overwrites ap, bp holds the packed\n'
                 ' * Cholesky factor of B.',
             args='order itype:int uplo n ap:pk(n):io bp:pk(n)', probe={'itype': ('1', '0')}),
        dict(name=n[2], kernel=p + ('sbgst' if d else 'hbgst'),
             doc=f'reduces the {kind}-definite banded problem A x = lambda B x to\n'
                 ' * C y = lambda y with C = X^H A X of the same bandwidth ka, given the split\n'
                 f' * Cholesky factor of B from {n[3]} in bb;\n'
                 ' * vect Zem_FormX: x receives X, Zem_DoNotForm: it is not formed.',
             args='order vect:enum(Zem_FormX=V,Zem_DoNotForm=N) uplo n ka kb:upto(ka) ab:sband(n,ka):io pdab '
                  'bb:sband(n,kb) pdbb x:ge(n,n):o:when(vect=V) pdx',
             work={'work': '2*n'} if d else {'work': 'n', 'rwork': 'n'}),
        dict(name=n[3], kernel=p + 'pbstf',
             doc=f'split Cholesky factorisation B = S^H S of a {kind} positive definite band\n'
                 ' * matrix (S upper triangular in its leading half and lower in the rest), for\n'
                 f' * {n[2]}.',
             args='order uplo n kd ab:sband(n,kd):io pdab', info='pbstf'),
        dict(name=n[4], kernel=p + 'gghrd',
             doc=f'reduces a pair (A, B), B upper triangular, to generalised upper Hessenberg form\n'
                 f' * Q^H A Z = H (in a), Q^H B Z = T (in b) by orthogonal transformations; rows and\n'
                 ' * columns outside ilo..ihi are already reduced.  compq/compz Zem_InitQ/Zem_InitZ:\n'
                 ' * q, z receive Q, Z; Zem_UpdateQ/Zem_UpdateZ: q <- q Q, z <- z Z; Zem_NotQ/Zem_NotZ:\n'
                 ' * not referenced.',
             args=f'order {COMPQ3} {COMPZ} n ilo:int ihi:int a:ge(n,n):io pda b:ge(n,n):io pdb '
                  'q:ge(n,n):io:when(compq!=N) pdq z:ge(n,n):io:when(compz!=N) pdz', probe=ILO_IHI),
        dict(name=n[5], kernel=p + 'ggbal',
             doc='balances a pair of general matrices (A, B): job Zem_Permute permutes them to\n'
                 ' * isolate eigenvalues, Zem_Scale scales rows and columns, Zem_DoBoth both,\n'
                 ' * Zem_DoNothing neither; lscale and rscale record the left and right permutations\n'
                 ' * and factors, ilo and ihi the part left to reduce.',
             args=f'order {BAL_JOB} n a:ge(n,n):io pda b:ge(n,n):io pdb ilo:iout:o ihi:iout:o '
                  'lscale:rvec(n):o rscale:rvec(n):o', work={'work': '6*n'}),
        dict(name=n[6], kernel=p + 'ggbak',
             doc=f'back-transforms the right (side Zem_RightSide) or left (Zem_LeftSide) eigenvectors\n'
                 f' * in the n by m matrix v of a pair balanced by {n[5]} with the same job, ilo, ihi,\n'
                 ' * lscale and rscale.',
             args=f'order {BAL_JOB} side n ilo:int ihi:int lscale:rvec(n) rscale:rvec(n) m v:ge(n,m):io pdv',
             probe=ILO_IHI),
        dict(name=n[7], kernel=p + 'hgeqz',
             doc=f'eigenvalues of a generalised upper Hessenberg pair (H, T) by the QZ method and\n'
                 ' * optionally (job Zem_Schur; Zem_EigVals: eigenvalues only) its generalised Schur\n'
                 f' * form Q^H H Z = S (in h), Q^H T Z = P (in t); the eigenvalues are\n'
                 + (' * (alphar + i alphai) / beta' if d else ' * alpha / beta')
                 + '; compq and compz as f08wec.',
             args=f'order job:enum(Zem_Schur=S,Zem_EigVals=E) {COMPQ3} {COMPZ} n ilo:int ihi:int h:ge(n,n):io pdh '
                  't:ge(n,n):io pdt ' + ('alphar:vec(n):o alphai:vec(n):o beta:vec(n):o' if d
                                         else 'alpha:vec(n):o beta:vec(n):o')
                  + ' q:ge(n,n):io:when(compq!=N) pdq z:ge(n,n):io:when(compz!=N) pdz',
             probe=ILO_IHI, info='hgeqz', **({} if d else {'work': {'rwork': 'n'}})),
        dict(name=n[8], kernel=p + 'tgevc',
             doc='right (side Zem_RightSide), left (Zem_LeftSide) or both generalised eigenvectors\n'
                 f' * of a pair (S, P) in generalised Schur form from {n[7]}: howmny as f08qkc (with\n'
                 ' * Zem_BackTransform the matrices in vl and vr multiply them).  m returns the\n'
                 ' * columns used.',
             args=f'order {SIDE3} {HOWMNY3} select:bvec(n):when(howmny=S) n s:ge(n,n) pds p:ge(n,n) pdp '
                  'vl:ge(n,mm):io:when(side=LB) pdvl vr:ge(n,mm):io:when(side=RB) pdvr mm m:iout:o',
             work={'work': '6*n'} if d else {'work': '2*n', 'rwork': '2*n'}, **({'info': 'tgevc'} if d else {})),
    ]
    return rows


def _qp3_rows():
    return [
        dict(name='f08bec', kernel='dgeqp3',
             doc='QR factorisation with column pivoting of a real m by n matrix, A P = Q R; on entry\n'
                 ' * a nonzero jpvt[j] moves column j to the front, on exit jpvt[j] = k (1-based)\n'
                 ' * when column j of A P is column k of A.  R and the reflectors as f08aec.',
             args='order m n a:ge(m,n):io pda jpvt:ivec(n):io tau:vec(MIN(m,n)):o'),
        dict(name='f08bsc', kernel='zgeqp3',
             doc='QR factorisation with column pivoting of a complex m by n matrix, A P = Q R;\n'
                 ' * jpvt as f08bec.',
             args='order m n a:ge(m,n):io pda jpvt:ivec(n):io tau:vec(MIN(m,n)):o', work={'rwork': '2*n'}),
    ]


ROWS = (_qr_rows('d', 'real') + _qr_rows('z', 'complex') + _qp3_rows()
        + _sym_rows('d') + _sym_rows('z') + _tridiag_rows()
        + _bidiag_rows('d') + _bidiag_rows('z')
        + _hessenberg_rows('d') + _hessenberg_rows('z')
        + _schur_rows('d') + _schur_rows('z')
        + _generalised_rows('d') + _generalised_rows('z'))
ROWS.sort(key=lambda r: r['name'])
