/* libzem: the umbrella header.  Includes every chapter of the library. */
#ifndef ZEM_H
#define ZEM_H

#include "zem/types.h"
#include "zem/a00.h"
#include "zem/a02.h"
#include "zem/c02.h"
#include "zem/c05.h"
#include "zem/c06.h"
#include "zem/d01.h"
#include "zem/f06.h"
#include "zem/f07.h"
#include "zem/f08.h"
#include "zem/f16.h"
#include "zem/g05.h"
#include "zem/m01.h"
#include "zem/p01.h"
#include "zem/s.h"
#include "zem/x01.h"
#include "zem/x02.h"
#include "zem/x03.h"
#include "zem/x04.h"
#include "zem/x05.h"
#include "zem/y07.h"
#include "zem/y99.h"

#endif /* ZEM_H */
