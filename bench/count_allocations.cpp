// Counts the allocations that the library asks for while it is switched on. For LD_PRELOAD;
// library.cpp switches it.
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>

#include <dlfcn.h>

extern "C" {
void *__libc_malloc(std::size_t);
void *__libc_calloc(std::size_t, std::size_t);
void *__libc_realloc(void *, std::size_t);
}

namespace {

bool counting = false;
long count = 0;

// What the C++ library asks for counts as the library's, because SDL is written in C.
bool is_own(const void *caller) {
    Dl_info info;
    if (dladdr(caller, &info) == 0 || info.dli_fname == nullptr) return false;
    return std::strstr(info.dli_fname, "libvelumo") != nullptr ||
           std::strstr(info.dli_fname, "libstdc++") != nullptr;
}

void note(const void *caller) {
    if (!counting) return;
    counting = false; // for what dladdr allocates
    if (is_own(caller)) ++count;
    counting = true;
}

} // namespace

extern "C" {

void start_counting() {
    count = 0;
    counting = true;
}

long stop_counting() {
    counting = false;
    return count;
}

void *malloc(std::size_t size) {
    note(__builtin_return_address(0));
    return __libc_malloc(size);
}

void *calloc(std::size_t number, std::size_t size) {
    note(__builtin_return_address(0));
    return __libc_calloc(number, size);
}

void *realloc(void *block, std::size_t size) {
    note(__builtin_return_address(0));
    return __libc_realloc(block, size);
}

} // extern "C"

void *operator new(std::size_t size) {
    note(__builtin_return_address(0));
    if (void *const block = __libc_malloc(size)) return block;
    std::abort();
}

void *operator new[](std::size_t size) {
    note(__builtin_return_address(0));
    if (void *const block = __libc_malloc(size)) return block;
    std::abort();
}
