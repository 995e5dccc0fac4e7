#include "model/strings.h"

#include <cstring>

namespace velumo {

Verdict compare(const char *a, const char *b, u32 n) {
    Verdict verdict = Verdict::nothing_compared;
    u32 i = 0;
    // On purpose: the verdict is overwritten at each character, so only the last one counts, and
    // n + 1 characters are compared.
    for (; a[i] != '\0' && b[i] != '\0' && i <= n; ++i) {
        verdict = a[i] == b[i] ? Verdict::equal : Verdict::different;
    }
    if (i >= n) return verdict;
    return a[i] == '\0' && b[i] == '\0' ? Verdict::equal : Verdict::different;
}

u32 length_of(const char *string) { return static_cast<u32>(std::strlen(string)); }

void copy_up_to(u32 n, const char *source, char *destination) {
    // On purpose: n is the index of the last character, so n + 1 characters are copied. They are
    // copied one by one, from the first on, so a string may be moved to the left within its field.
    std::size_t count = 0;
    for (; count <= n && source[count] != '\0'; ++count) destination[count] = source[count];
    destination[count] = '\0';
}

u32 copy_nonempty(const char *source, char *destination) {
    u32 count = 0;
    // On purpose: the first byte is copied before any test.
    do {
        destination[count] = source[count];
        ++count;
    } while (source[count] != '\0');
    destination[count] = '\0';
    return count;
}

} // namespace velumo
