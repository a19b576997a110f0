#pragma once
// ZLX_ASSERT(condition, "what must hold"): a programmer error (a broken invariant, a call out of
// order) stops the program at once with the place and the reason, in every build. Failures that
// data or the environment can cause are raised as errors instead.

#include <cstdio>
#include <cstdlib>

namespace zlx::detail {

[[noreturn]] inline void AssertionFailed(const char* condition, const char* why, const char* file,
                                         int line) {
    std::fprintf(stderr, "%s:%d: ZLX_ASSERT(%s) failed: %s\n", file, line, condition, why);
    std::abort();
}

} // namespace zlx::detail

#define ZLX_ASSERT(condition, why)                                                                 \
    ((condition) ? static_cast<void>(0)                                                            \
                 : ::zlx::detail::AssertionFailed(#condition, why, __FILE__, __LINE__))
