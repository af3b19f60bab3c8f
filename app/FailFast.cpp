// Replaces the handlers that the C++ library calls before it ends the program because of a fault:
// an exception that nothing catches, or a failed check inside the library. The library's own
// handlers print to a console, which the program does not have, and then show a box. While that box
// is open, no alarm rings. The handlers below end the process at once, and Windows records the
// place of the fault. Leaving the library's handlers out also makes the program a tenth smaller.

// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,cert-dcl58-cpp,readability-identifier-naming)

namespace __gnu_cxx {

[[noreturn]] void __verbose_terminate_handler();
void __verbose_terminate_handler() { __builtin_trap(); }

}  // namespace __gnu_cxx

namespace std {

[[noreturn]] void __glibcxx_assert_fail(const char* file, int line, const char* function,
                                        const char* condition) noexcept;
void __glibcxx_assert_fail(const char* /*file*/, int /*line*/, const char* /*function*/,
                           const char* /*condition*/) noexcept {
    __builtin_trap();
}

}  // namespace std

// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,cert-dcl58-cpp,readability-identifier-naming)
