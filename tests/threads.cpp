// Threads that work on neighbouring bytes of one array, as they may: none reads or writes what another one writes. The
// results are checked in every build; built with ThreadSanitizer, the program fails where a routine looks further.

#include <strlib.h>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <thread>

namespace {

constexpr int rounds = 2000;

std::atomic<int> faults = 0;

// Two texts side by side, and a third behind them, of eight bytes each with their NULs.
struct alignas(64) Array {
    char read[8] = "abcdefg";
    char written[8] = "";
    char alsoRead[8] = "abCdefG";
};

// Readers look at `read` and `alsoRead` only; each gives true for the right result.
using Reader = bool (*)(const Array &);
constexpr Reader readers[] = {
    [](const Array &a) { return TQANSI_strlen(a.read) == 7; },
    [](const Array &a) { return TQANSI_strchr(a.read, 'g') == a.read + 6 && TQANSI_strrchr(a.read, 'z') == nullptr; },
    [](const Array &a) { return TQANSI_memchr(a.read, 'z', 8) == nullptr; },
    [](const Array &a) { return TQANSI_strpbrk(a.read, "gz") == a.read + 6; },
    [](const Array &a) { return TQANSI_strpbrkUTF8(a.read, "gz") == a.read + 6; },
    [](const Array &a) { return TQANSI_strstr(a.read, "fg") == a.read + 5 && TQ_stristr(a.read, "Gh") == nullptr; },
    [](const Array &a) { return TQANSI_strcmp(a.read, a.alsoRead) == 32 && TQANSI_stricmp(a.read, a.alsoRead) == 0; },
    [](const Array &a) {
        return TQANSI_strncmp(a.read, a.alsoRead, 2) == 0 && TQANSI_memcmp(a.read, "abcdefg", 8) == 0;
    },
    [](const Array &a) { return TQ_isBlankLine(a.read) == 0 && TQANSI_atoi(a.read) == 0; },
    [](const Array &a) { return string_operator_diff(a.read, a.alsoRead) == 32; },
    [](const Array &a) { return TQ_strtoken(a.read, ";", nullptr) == a.read; },
    [](const Array &a) {
        char copy[9];
        const intptr_t slots[] = {reinterpret_cast<intptr_t>(copy)};
        return TQ_sscanf(a.read, "%s", slots) == 1 && TQANSI_strcmp(copy, a.read) == 0;
    },
    [](const Array &a) {
        char copy[9];
        return X_TAMBRO_gets(copy, 8, a.read) == 7 && TQANSI_strcpy(copy, a.read) == copy;
    },
    [](const Array &a) {
        char copy[9];
        const intptr_t slots[] = {reinterpret_cast<intptr_t>(a.read)};
        return TQ_sprintf(copy, 9, "%s", slots) == 8 && TQANSI_strncpy(copy, a.read, 7) == copy;
    },
};

// Writers store up to seven bytes and a NUL into `written` only.
using Writer = void (*)(Array &);
constexpr Writer writers[] = {
    [](Array &a) { TQANSI_strcpy(a.written, "1234567"); },
    [](Array &a) { TQANSI_strncpy(a.written, "123456789", 7); },
    [](Array &a) {
        a.written[0] = 0;
        TQANSI_strcat(a.written, "1234567");
    },
    [](Array &a) { TQANSI_memset(a.written, '7', 8); },
    [](Array &a) { TQANSI_itoa(1234567, a.written, 8, 10); },
    [](Array &a) { X_TAMBRO_gets(a.written, 7, "1234567"); },
    [](Array &a) { string_operator_add(a.written, "123456", 1); },
    [](Array &a) { TQ_sprintf(a.written, 8, "1234567", nullptr); },
};

void run(Reader reader, Writer writer) {
    Array array;
    std::atomic<bool> started = false;
    std::thread thread([&] {
        started = true;
        for (int i = 0; i < rounds; ++i) writer(array);
    });
    while (!started) std::this_thread::yield();
    for (int i = 0; i < rounds; ++i) faults += !reader(array);
    thread.join();
    faults += std::memcmp(array.read, "abcdefg", 8) != 0 || std::memcmp(array.alsoRead, "abCdefG", 8) != 0;
}

}  // namespace

int main() {
    for (const Reader reader : readers) {
        for (const Writer writer : writers) run(reader, writer);
    }
    std::printf("%d faults\n", faults.load());
    return faults == 0 ? 0 : 1;
}
