// Threads that work on neighbouring bytes of one array, as they may: none reads or writes what another one writes. The
// results are checked in every build; built with ThreadSanitizer, the program fails where a routine looks further.

#include <strlib.h>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <thread>

namespace {

constexpr int rounds = 20000;

// Two texts side by side, and a third behind them, of eight bytes each with their NULs.
struct alignas(64) Array {
    char read[8] = "abcdefg";
    char written[8] = "";
    char alsoRead[8] = "abCdefG";
};

// Looks at `read` and `alsoRead` only; whether all results are right.
bool readAll(const Array &array) {
    const char *const text = array.read;
    const char *const other = array.alsoRead;
    char copy[9];
    const intptr_t input[] = {reinterpret_cast<intptr_t>(copy)};
    const intptr_t output[] = {reinterpret_cast<intptr_t>(text)};
    return TQANSI_strlen(text) == 7 && TQANSI_strchr(text, 'g') == text + 6 && TQANSI_strrchr(text, 'z') == nullptr &&
           TQANSI_memchr(text, 'z', 8) == nullptr && TQANSI_strpbrk(text, "gz") == text + 6 &&
           TQANSI_strpbrkUTF8(text, "gz") == text + 6 && TQANSI_strstr(text, "fg") == text + 5 &&
           TQ_stristr(text, "Gh") == nullptr && TQANSI_strcmp(text, other) == 32 && TQANSI_stricmp(text, other) == 0 &&
           TQANSI_strncmp(text, other, 2) == 0 && TQANSI_memcmp(text, "abcdefg", 8) == 0 && TQ_isBlankLine(text) == 0 &&
           TQANSI_atoi(text) == 0 && string_operator_diff(text, other) == 32 &&
           TQ_strtoken(text, ";", nullptr) == text && TQ_sscanf(text, "%s", input) == 1 &&
           TQANSI_strcmp(copy, text) == 0 && X_TAMBRO_gets(copy, 8, text) == 7 && TQANSI_strcpy(copy, text) == copy &&
           TQ_sprintf(copy, 9, "%s", output) == 8 && TQANSI_strncpy(copy, text, 7) == copy;
}

// Stores up to seven bytes and a NUL, each time into `written` only.
void writeAll(Array &array) {
    char *const room = array.written;
    TQANSI_strcpy(room, "1234567");
    TQANSI_strncpy(room, "123456789", 7);
    *room = 0;
    TQANSI_strcat(room, "1234567");
    TQANSI_memset(room, '7', 8);
    TQANSI_itoa(1234567, room, 8, 10);
    X_TAMBRO_gets(room, 7, "1234567");
    string_operator_add(room, "123456", 1);
    TQ_sprintf(room, 8, "1234567", nullptr);
}

}  // namespace

int main() {
    Array array;
    int faults = 0;
    std::atomic<bool> started = false;
    std::thread thread([&] {
        started = true;
        for (int i = 0; i < rounds; ++i) writeAll(array);
    });
    while (!started) std::this_thread::yield();
    for (int i = 0; i < rounds; ++i) faults += !readAll(array);
    thread.join();
    faults += std::memcmp(array.read, "abcdefg", 8) != 0 || std::memcmp(array.alsoRead, "abCdefG", 8) != 0;
    std::printf("%d faults\n", faults);
    return faults == 0 ? 0 : 1;
}
