// Assertions for programming errors: always active, glibc-style message on stderr, then abort.
#pragma once

// The expression goes through one more macro level before it is turned into text, so macros
// inside it are expanded first: FP_ASSERT(p != NULL) reports "p != __null" with GCC and Clang.
#define FP_ASSERT_TEXT(expr) #expr
#define FP_ASSERT(expr)            \
    ((expr) ? static_cast<void>(0) \
            : FpAssertFail(FP_ASSERT_TEXT(expr), __FILE__, __LINE__, __PRETTY_FUNCTION__))

// Prints "<program>: <file>:<line>: <function>: Assertion `<expr>' failed." and aborts. The
// file is shown from "controller/" on when the path contains it.
[[noreturn]] void FpAssertFail(const char* expr, const char* file, unsigned line, const char* function);
