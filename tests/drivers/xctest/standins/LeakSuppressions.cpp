/// What the leak checker of a sanitized build must not report: the run time of Objective-C and Foundation keep what
/// they know of classes until the process ends. The name is the checker's.
extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions() {
  return "leak:libobjc.so\nleak:libgnustep-base.so\n";
}
