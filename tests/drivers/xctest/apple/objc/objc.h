#pragma once

// The basic types of Objective-C on the platform, where a BOOL is a bool.

#ifdef __OBJC_BOOL_IS_BOOL
#if __OBJC_BOOL_IS_BOOL
typedef bool BOOL;
#else
typedef signed char BOOL;
#endif
#else
typedef signed char BOOL;
#endif

typedef struct objc_class* Class;
typedef struct objc_object {
  Class isa;
} * id;
typedef struct objc_selector* SEL;
typedef id (*IMP)(id, SEL, ...);

#define YES __objc_yes
#define NO __objc_no
#define nil nullptr
#define Nil nullptr
