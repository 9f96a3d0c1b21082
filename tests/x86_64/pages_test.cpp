// Texts at every place in two pages between pages that no one may touch: loads that reach past a text, and steps back
// at the end of a page, stay inside. Results are compared with the C library's.

#include <strlib.h>
#include <sys/mman.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

namespace {

constexpr size_t page = 4096;

// Two pages between two that may not be touched.
char *makePages() {
    void *const all = mmap(nullptr, 4 * page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    char *const at = static_cast<char *>(all) + page;
    if (all == MAP_FAILED || mprotect(at, 2 * page, PROT_READ | PROT_WRITE) != 0) std::exit(2);
    return at;
}

int sign(int32_t value) { return (value > 0) - (value < 0); }

void require(bool holds, const char *what, size_t offset, size_t other, size_t length) {
    if (holds) return;
    std::printf("%s: %zu bytes at %zu and %zu of the pages\n", what, length, offset, other);
    std::exit(1);
}

// A text of a length at two places, alike or with a difference in the last byte.
void compareAt(char *a, char *b, size_t length) {
    const size_t offset = reinterpret_cast<size_t>(a) % (2 * page), other = reinterpret_cast<size_t>(b) % (2 * page);
    std::memset(a, 'a', length);
    std::memset(b, 'a', length);
    a[length] = b[length] = 0;
    const auto count = static_cast<int32_t>(length);
    for (const char last : {'a', 'A', 'c'}) {
        if (length != 0) b[length - 1] = last;
        require(sign(TQANSI_strcmp(a, b)) == sign(std::strcmp(a, b)), "exact", offset, other, length);
        require(sign(TQANSI_stricmp(a, b)) == sign(strcasecmp(a, b)), "folded", offset, other, length);
        require(TQANSI_memcmp(a, b, static_cast<uint32_t>(length) + 1) == (length == 0 ? 0 : 'a' - last), "range",
                offset, other, length);
        require(TQANSI_strpbrk(b, "BCDEFc") == std::strpbrk(b, "c"), "set", offset, other, length);
        require(TQANSI_strstr(b, "ac") == std::strstr(b, "ac"), "substring", offset, other, length);
        // No NUL behind what counts.
        a[length] = b[length] = 'x';
        const int32_t exact = length == 0 ? 0 : 'a' - last, folded = last == 'A' ? 0 : exact;
        require(sign(TQANSI_strncmp(a, b, count)) == sign(exact), "bounded", offset, other, length);
        require(sign(TQANSI_strnicmp(a, b, count)) == sign(folded), "bounded, folded", offset, other, length);
        a[length] = b[length] = 0;
    }
}

}  // namespace

int main() {
    char *const a = makePages();
    char *const b = makePages();
    // Ends at the end of the pages, and starts at their start, of one text and both; crossings of both kinds.
    for (size_t length = 0; length < 140; ++length) {
        char *const aEnd = a + 2 * page - length - 1;
        char *const bEnd = b + 2 * page - length - 1;
        for (size_t offset = 0; offset < 70; ++offset) {
            compareAt(aEnd, b + offset, length);
            compareAt(a + offset, bEnd, length);
            compareAt(aEnd, b + page - offset, length);
            compareAt(a + page - offset, b + page - offset / 2, length);
        }
        compareAt(aEnd, bEnd, length);
    }
    // Long ones, in which the search goes on by rare bytes.
    for (size_t start = 0; start < 100; ++start) {
        for (size_t end = 1; end < 40; ++end) {
            std::memset(a, 'e', 2 * page);
            a[2 * page - end] = 0;
            require(TQANSI_strstr(a + start, "eeez") == nullptr, "far substring", start, 0, end);
            if (end == 40 - 1) a[2 * page - end - 1] = 'z';
            require(TQANSI_strstr(a + start, "eeez") == std::strstr(a + start, "eeez"), "last substring", start, 0,
                    end);
            std::memcpy(b + start, a + start, 2 * page - start);
            require(TQANSI_strcmp(a + start, b + start) == 0, "long texts", start, start, end);
        }
    }
    return 0;
}
