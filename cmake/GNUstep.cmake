# What Objective-C++ is compiled with off the phone: a clang that can do it, GNUstep's Foundation, and the run time of
# GCC. Sets GNUSTEP_FOUND, or GNUSTEP_MISSING to what is missing, in words.

find_program(QUOBRAK_OBJCXX clang++-16 DOC "The compiler for Objective-C++")
find_library(GNUSTEP_BASE gnustep-base)
find_library(BLOCKS_RUNTIME BlocksRuntime)
find_path(GNUSTEP_HEADERS Foundation/Foundation.h PATHS /usr/include/GNUstep NO_DEFAULT_PATH)
file(GLOB objc_folders /usr/lib/gcc/*/12)
find_library(GCC_OBJC objc PATHS ${objc_folders} NO_DEFAULT_PATH)

set(GNUSTEP_MISSING "")
foreach(need QUOBRAK_OBJCXX GNUSTEP_BASE BLOCKS_RUNTIME GNUSTEP_HEADERS GCC_OBJC)
  if(NOT ${need})
    list(APPEND GNUSTEP_MISSING ${need})
  endif()
endforeach()
if(GNUSTEP_MISSING)
  list(JOIN GNUSTEP_MISSING ", " GNUSTEP_MISSING)
  set(GNUSTEP_MISSING "not found: ${GNUSTEP_MISSING} (packages clang-16 libgnustep-base-dev libobjc-12-dev "
                      "libblocksruntime-dev)")
  list(JOIN GNUSTEP_MISSING "" GNUSTEP_MISSING)
  set(GNUSTEP_FOUND OFF)
else()
  set(GNUSTEP_FOUND ON)
endif()

# What the platform's objects are checked with: headers of a C++ library and of a C library that compile for the platform.
find_path(APPLE_LIBCXX __config PATHS /usr/lib/llvm-16/include/c++/v1 NO_DEFAULT_PATH)
find_path(APPLE_LIBC features.h
  PATHS /usr/include/x86_64-linux-musl /usr/include/aarch64-linux-musl NO_DEFAULT_PATH)
find_program(QUOBRAK_OBJDUMP llvm-objdump-16 DOC "Reads the platform's object files")
