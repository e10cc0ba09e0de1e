#pragma once

#include <objc/objc.h>

// Names that Foundation's headers mention; nothing that is checked uses what is behind them.

typedef struct objc_method* Method;
typedef struct objc_ivar* Ivar;
typedef struct objc_property* objc_property_t;
@class Protocol;
