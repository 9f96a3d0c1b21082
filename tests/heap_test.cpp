// A user's program, not instrumented: every routine on heap blocks that end where their texts do. Run under a memory
// checker that watches machine code, it shows whether the library reads what is not there; by itself it checks results.

#include <strlib.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

// A copy of a text at so many bytes into a heap block of just that size.
class Heap {
public:
    Heap(const std::string &bytes, size_t offset)
        : block_(static_cast<char *>(std::malloc(offset + bytes.size() + 1))) {
        at_ = block_ + offset;
        std::memcpy(at_, bytes.c_str(), bytes.size() + 1);
    }
    Heap(const Heap &) = delete;
    Heap &operator=(const Heap &) = delete;
    ~Heap() { std::free(block_); }

    char *operator*() const { return at_; }

private:
    char *block_;
    char *at_;
};

int failures = 0;

void check(bool holds, const char *what) {
    if (holds) return;
    std::printf("wrong: %s\n", what);
    ++failures;
}

void useAll(size_t length, size_t offset) {
    const auto size = static_cast<int32_t>(length);
    const std::string text(length, 'a');
    const Heap a(text, offset);
    const Heap b(text, offset * 7 % 33);
    const Heap room(text, offset / 2);
    check(TQANSI_strlen(*a) == size, "length");
    check(TQANSI_strcmp(*a, *b) == 0 && TQANSI_stricmp(*a, *b) == 0, "comparison");
    check(TQANSI_strncmp(*a, *b, size + 3) == 0 && TQANSI_strnicmp(*a, *b, size + 3) == 0, "bounded comparison");
    check(TQANSI_memcmp(*a, *b, static_cast<uint32_t>(length) + 1) == 0, "range comparison");
    check(TQANSI_strchr(*a, 'z') == nullptr && TQANSI_strrchr(*a, 'z') == nullptr, "byte search");
    check(TQANSI_memchr(*a, 0, static_cast<uint32_t>(length) + 1) == *a + length, "range search");
    check(TQANSI_strpbrk(*a, "xyz") == nullptr && TQANSI_strpbrk(*a, "uvwxyz") == nullptr, "set search");
    check(TQANSI_strstr(*a, "ab") == nullptr && TQ_stristr(*a, "AB") == nullptr, "substring search");
    check(TQANSI_strstr(*a, *b) == *a, "whole substring");
    check(TQANSI_strpbrkUTF8(*a, "\xC3\xA9x") == nullptr, "character set search");
    check(TQANSI_strcpy(*room, *a) == *room && TQ_strappend(*room, *a) == *room + length, "copy");
    check(TQANSI_strncpy(*room, *a, size) == *room && std::strlen(*room) == length, "bounded copy");
    **room = 0;
    check(TQANSI_strcat(*room, *a) == *room && std::strlen(*room) == length, "concatenation");
    check(X_TAMBRO_gets(*room, size + 1, *a) == size && std::strlen(*room) == length, "line");
    char *end = nullptr;
    check(TQ_strtoken(*a, ",;", &end) == (length == 0 ? nullptr : *a), "token");
    const intptr_t slots[] = {reinterpret_cast<intptr_t>(*a)};
    check(TQ_sprintf(*room, static_cast<uint32_t>(length) + 1, "%s", slots) == size + 1, "formatted output");
    const intptr_t fields[] = {reinterpret_cast<intptr_t>(*room)};
    check(TQ_sscanf(*a, "%s", fields) == (length == 0 ? -1 : 1), "formatted input");
    check(string_operator_diff(*a, *b) == 0 && TQ_isBlankLine(*a) == (length == 0), "difference, blanks");
}

}  // namespace

int main() {
    for (size_t length = 0; length < 100; ++length) {
        for (size_t offset = 0; offset < 34; ++offset) useAll(length, offset);
    }
    return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
