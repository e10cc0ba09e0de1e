#pragma once
#include_next <objc/objc.h>
#undef YES
#undef NO
#define YES __objc_yes
#define NO __objc_no
