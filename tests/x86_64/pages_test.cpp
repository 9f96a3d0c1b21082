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

void require(bool holds, const char *what, const char *a, const char *b, size_t length) {
    if (holds) return;
    std::printf("%s: %zu bytes, texts at %p and %p\n", what, length, static_cast<const void *>(a),
                static_cast<const void *>(b));
    std::exit(1);
}

// A text of a length at two places, alike or with a difference in the last byte.
void compareAt(char *a, char *b, size_t length) {
    const auto count = static_cast<int32_t>(length);
    for (const char last : {'a', 'A', 'c'}) {
        std::memset(a, 'a', length);
        std::memset(b, 'a', length);
        if (length != 0) b[length - 1] = last;
        const int32_t exact = length == 0 ? 0 : 'a' - last, folded = last == 'A' ? 0 : exact;
        a[length] = b[length] = 0;
        require(TQANSI_strcmp(a, b) == exact, "exact", a, b, length);
        require(TQANSI_stricmp(a, b) == folded, "folded", a, b, length);
        require(TQANSI_memcmp(a, b, static_cast<uint32_t>(length) + 1) == exact, "range", a, b, length);
        require(TQANSI_strpbrk(b, "BCDEFc") == std::strpbrk(b, "c"), "set", a, b, length);
        require(TQANSI_strstr(b, "ac") == std::strstr(b, "ac"), "substring", a, b, length);
        // No NUL behind what counts.
        a[length] = b[length] = 'x';
        require(TQANSI_strncmp(a, b, count) == exact, "bounded", a, b, length);
        require(TQANSI_strnicmp(a, b, count) == folded, "bounded, folded", a, b, length);
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
            char *const text = a + start, *const last = a + 2 * page - end - 1;
            require(TQANSI_strstr(text, "eeez") == nullptr, "far substring", text, text, end);
            *last = 'z';
            require(TQANSI_strstr(text, "eeez") == last - 3, "last substring", text, text, end);
            std::memcpy(b + start, text, 2 * page - start);
            require(TQANSI_strcmp(text, b + start) == 0, "long texts", text, b + start, end);
        }
    }
    return 0;
}
