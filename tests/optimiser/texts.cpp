// Calls every routine on arrays of 1 to 40 bytes that only the stores right before the call have filled, and again
// after single stores: what an optimiser must not drop, move or fold when it sees the library's reads as well, which
// reach past the arrays. To be built so that it does see them. Exits with the number of wrong results, at most 1.
//
// What is expected is what the same call gives on copies of which the optimiser knows nothing: whether that is right is
// for the tests of the routines themselves.

#include <stdint.h>
#include <stdio.h>
#include <strlib.h>

#include <tuple>
#include <utility>

namespace {

constexpr size_t largestSize = 40;

// What the arrays are filled with: each byte known at run time only.
struct Twins {
    volatile uint8_t text[largestSize];      // a string that fills its array
    volatile uint8_t like[largestSize];      // the same but for its last character
    volatile uint8_t tail[largestSize];      // the second half of the text
    volatile uint8_t room[largestSize + 1];  // the text with a '!' behind it
} twins;

// The arrays of one call. Behind the string in it, the room has space for another one and more.
struct Arrays {
    char *text;
    char *like;
    char *tail;
    char *room;
    size_t size;  // of the text
};

constexpr size_t roomFor(size_t size) { return 2 * size + 16; }

// Results: a number, a place in the text, or a digest of what was written.

int64_t placeIn(const char *text, const void *result) {
    return result == nullptr ? -1 : static_cast<const char *>(result) - text;
}

int64_t digestOf(const char *bytes, size_t count) {
    uint32_t digest = 17;
    for (size_t i = 0; i < count; ++i) digest = digest * 31 + static_cast<uint8_t>(bytes[i]);
    return digest;
}

int64_t digestOf(const char *string) {
    size_t count = 0;
    while (string[count] != 0) ++count;
    return digestOf(string, count);
}

size_t half(size_t size) { return size / 2 + 1; }

struct Table {
    uint8_t entries[256] = {};
};

// Every byte but NUL by its successor, 0xFF by 1.
constexpr Table successors = [] {
    Table table;
    for (uint32_t byte = 1; byte < 256; ++byte) table.entries[byte] = static_cast<uint8_t>(byte % 255 + 1);
    return table;
}();

intptr_t slot(const void *address) { return reinterpret_cast<intptr_t>(address); }

enum class Alphabet { letters, blanks, digits, sequences };

template <class Call>
struct Routine {
    const char *name;
    Alphabet alphabet;
    Call call;  // Arrays -> result
};

template <class Call>
Routine(const char *, Alphabet, Call) -> Routine<Call>;

constexpr auto letters = Alphabet::letters, blanks = Alphabet::blanks, digits = Alphabet::digits,
               sequences = Alphabet::sequences;
using In = const Arrays &;

constexpr std::tuple routines{
    Routine{"TQANSI_strlen", letters, [](In in) -> int64_t { return TQANSI_strlen(in.text); }},
    Routine{"TQANSI_strcpy", letters, [](In in) { return digestOf(TQANSI_strcpy(in.room, in.text)); }},
    Routine{"TQANSI_strncpy", letters,
            [](In in) { return digestOf(TQANSI_strncpy(in.room, in.text, static_cast<int32_t>(half(in.size)))); }},
    Routine{"TQANSI_strcat", letters, [](In in) { return digestOf(TQANSI_strcat(in.room, in.text)); }},
    Routine{"TQANSI_strncat", letters,
            [](In in) { return digestOf(TQANSI_strncat(in.room, in.text, static_cast<int32_t>(half(in.size)))); }},
    Routine{"TQ_strappend", letters,
            [](In in) { return placeIn(in.room, TQ_strappend(in.room, in.text)) + digestOf(in.room); }},
    Routine{"TQANSI_memset", letters,
            [](In in) {
                TQANSI_memset(in.room, in.tail[0], static_cast<uint32_t>(half(in.size)));
                return digestOf(in.room, in.size + 1);
            }},
    Routine{"TQANSI_strcmp", letters, [](In in) -> int64_t { return TQANSI_strcmp(in.text, in.like); }},
    Routine{"TQANSI_strncmp", letters,
            [](In in) -> int64_t { return TQANSI_strncmp(in.text, in.like, static_cast<int32_t>(half(in.size))); }},
    Routine{"TQANSI_stricmp", letters, [](In in) -> int64_t { return TQANSI_stricmp(in.text, in.like); }},
    Routine{"TQANSI_strnicmp", letters,
            [](In in) -> int64_t { return TQANSI_strnicmp(in.text, in.like, static_cast<int32_t>(half(in.size))); }},
    Routine{"customStricmp", letters,
            [](In in) -> int64_t { return customStricmp(in.text, in.like, successors.entries); }},
    Routine{"customStricmp", letters, [](In in) -> int64_t { return customStricmp(in.text, in.like, nullptr); }},
    Routine{"TQANSI_memcmp", letters,
            [](In in) -> int64_t { return TQANSI_memcmp(in.text, in.like, static_cast<uint32_t>(in.size)); }},
    Routine{"TQANSI_strchr", letters, [](In in) { return placeIn(in.text, TQANSI_strchr(in.text, in.tail[0])); }},
    Routine{"TQANSI_strrchr", letters, [](In in) { return placeIn(in.text, TQANSI_strrchr(in.text, in.tail[0])); }},
    Routine{"TQANSI_memchr", letters,
            [](In in) { return placeIn(in.text, TQANSI_memchr(in.text, 0, static_cast<uint32_t>(in.size))); }},
    Routine{"TQANSI_strpbrk", letters, [](In in) { return placeIn(in.text, TQANSI_strpbrk(in.text, in.tail)); }},
    Routine{"TQANSI_strstr", letters, [](In in) { return placeIn(in.text, TQANSI_strstr(in.text, in.tail)); }},
    Routine{"TQ_stristr", letters, [](In in) { return placeIn(in.text, TQ_stristr(in.text, in.tail)); }},
    Routine{"TQANSI_toupper", letters, [](In in) -> int64_t { return TQANSI_toupper(in.text[0]); }},
    Routine{"TQANSI_isalpha", letters, [](In in) -> int64_t { return TQANSI_isalpha(in.text[0]); }},
    Routine{"TQANSI_isdigit", digits, [](In in) -> int64_t { return TQANSI_isdigit(in.text[0]); }},
    Routine{"TQ_isBlankLine", blanks,
            [](In in) -> int64_t { return 2 * TQ_isBlankLine(in.text) + TQ_isBlankLine(in.room); }},
    Routine{"TQ_isAttribute", letters,
            [](In in) -> int64_t {
                return TQ_isAttribute(1, reinterpret_cast<const uint8_t *>(in.text), static_cast<int32_t>(in.size / 2));
            }},
    Routine{"TQ_convertZstring", letters,
            [](In in) {
                TQ_convertZstring(successors.entries, in.room);
                return digestOf(in.room);
            }},
    Routine{"TQANSI_atoi", digits, [](In in) -> int64_t { return TQANSI_atoi(in.text); }},
    Routine{"TQANSI_itoa", letters,
            [](In in) { return digestOf(TQANSI_itoa(in.text[0], in.room, static_cast<int32_t>(in.size + 4), 10)); }},
    Routine{"TQ_sprintf", letters,
            [](In in) {
                const intptr_t arguments[] = {slot(in.text), slot(in.tail)};
                const int32_t stored = TQ_sprintf(in.room, static_cast<uint32_t>(roomFor(in.size)), "%s%s", arguments);
                return stored + digestOf(in.room);
            }},
    Routine{"TQ_sprintf", letters,
            [](In in) {
                return TQ_sprintf(in.room, static_cast<uint32_t>(half(in.size)), in.text, nullptr) + digestOf(in.room);
            }},
    Routine{"TQ_sscanf", letters,
            [](In in) {
                const intptr_t arguments[] = {slot(in.room)};
                return TQ_sscanf(in.text, "%s", arguments) + (in.text[0] == 0 ? 0 : digestOf(in.room));
            }},
    Routine{"X_TAMBRO_gets", letters,
            [](In in) { return X_TAMBRO_gets(in.room, static_cast<int32_t>(in.size), in.text) + digestOf(in.room); }},
    Routine{"TQ_strtoklen", letters,
            [](In in) {
                uint16_t tokenLength = 0;
                const int64_t place = placeIn(in.text, TQ_strtoklen(in.text, in.tail, &tokenLength));
                return place * 100 + tokenLength;
            }},
    Routine{"TQ_strtoken", letters,
            [](In in) {
                char *end = in.text;
                const int64_t place = placeIn(in.text, TQ_strtoken(in.text, in.tail, &end));
                return place * 100 + placeIn(in.text, end);
            }},
    Routine{"unicodeToUtf8", letters,
            [](In in) {
                return unicodeToUtf8(uint32_t{0x2000} + static_cast<uint32_t>(in.text[0]), in.room) + digestOf(in.room);
            }},
    Routine{"utf8ToUnicode", sequences,
            [](In in) {
                uint32_t codePoint = 0;
                int32_t bytes = 0;
                const int64_t place = placeIn(in.text, utf8ToUnicode(in.text, &codePoint, &bytes));
                return place * 100 + bytes + (bytes == 3 ? int64_t{codePoint} << 32 : 0);
            }},
    Routine{"utf8ReadChar", sequences,
            [](In in) {
                int32_t valid = 0;
                const int64_t place = placeIn(in.text, utf8ReadChar(in.text, &valid, in.room));
                return place * 2 + valid + digestOf(in.room);
            }},
    Routine{"TQANSI_strpbrkUTF8", sequences,
            [](In in) { return placeIn(in.text, TQANSI_strpbrkUTF8(in.text, in.tail)); }},
    Routine{"string_operator_diff", letters, [](In in) -> int64_t { return string_operator_diff(in.text, in.like); }},
    Routine{"string_operator_add", letters, [](In in) { return digestOf(string_operator_add(in.room, in.text, 1)); }},
};

constexpr size_t rows = std::tuple_size_v<decltype(routines)>;

int failures = 0;

// Copies an array to where the optimiser loses sight of it.
template <size_t count>
char *hidden(char *copy, const volatile uint8_t (&twin)[count]) {
    for (size_t i = 0; i < count; ++i) copy[i] = static_cast<char>(twin[i]);
    asm volatile("" : "+r"(copy) : : "memory");
    return copy;
}

template <size_t row>
[[gnu::noinline]] void check(const char *storage, size_t size, const char *call, int64_t result) {
    constexpr auto routine = std::get<row>(routines);
    static char copies[4][roomFor(largestSize)];
    const int64_t expected = routine.call({hidden(copies[0], twins.text), hidden(copies[1], twins.like),
                                           hidden(copies[2], twins.tail), hidden(copies[3], twins.room), size});
    if (result == expected) return;
    ++failures;
    printf("%s, %s array of %zu bytes, %s call: %lld, expected %lld\n", routine.name, storage, size, call,
           static_cast<long long>(result), static_cast<long long>(expected));
}

// Stores without a loop, as programs fill short arrays.
template <size_t... i>
[[gnu::always_inline]] inline void store(char *array, const volatile uint8_t *twin, std::index_sequence<i...>) {
    ((array[i] = static_cast<char>(twin[i])), ...);
}

[[gnu::always_inline]] inline void change(char *array, volatile uint8_t *twin, size_t at, uint8_t byte) {
    array[at] = static_cast<char>(byte);
    twin[at] = byte;
}

template <size_t row, size_t size>
[[gnu::always_inline]] inline void callTwice(Arrays in, const char *storage) {
    constexpr auto routine = std::get<row>(routines);
    in.size = size;
    store(in.text, twins.text, std::make_index_sequence<size>());
    store(in.like, twins.like, std::make_index_sequence<size>());
    store(in.tail, twins.tail, std::make_index_sequence<size - size / 2>());
    store(in.room, twins.room, std::make_index_sequence<size + 1>());
    check<row>(storage, size, "first", routine.call(in));
    if constexpr (size > 2) {
        change(in.text, twins.text, size / 4, '~');
        change(in.like, twins.like, 0, '!');
        change(in.tail, twins.tail, 0, '~');
    }
    change(in.text, twins.text, size / 2, 0);
    store(in.room, twins.room, std::make_index_sequence<size + 1>());
    check<row>(storage, size, "second", routine.call(in));
}

// Flattened: the library's code is seen in each of them, however many there are.

template <size_t row, size_t size>
[[gnu::noinline, gnu::flatten]] void inLocalArrays() {
    char text[size], like[size], tail[size - size / 2], room[roomFor(size)];
    callTwice<row, size>({text, like, tail, room, size}, "local");
}

template <size_t row, size_t size>
[[gnu::noinline, gnu::flatten]] void inStaticArrays() {
    static char text[size], like[size], tail[size - size / 2], room[roomFor(size)];
    callTwice<row, size>({text, like, tail, room, size}, "static");
}

uint8_t character(Alphabet alphabet, size_t i, uint32_t seed) {
    const uint32_t mixed = (static_cast<uint32_t>(i) * 7 + seed) % 50;
    switch (alphabet) {
        case Alphabet::letters: return static_cast<uint8_t>(mixed < 25 ? 'A' + mixed : 'a' + mixed - 25);
        case Alphabet::blanks: return static_cast<uint8_t>(1 + mixed % 32);
        case Alphabet::digits: return static_cast<uint8_t>('0' + mixed % 10);
        default: return static_cast<uint8_t>(i % 3 == 0 ? 0xE2 : 0x80 + mixed);
    }
}

void prepare(Alphabet alphabet, size_t size, uint32_t seed) {
    for (size_t i = 0; i < size; ++i) {
        twins.text[i] = i + 1 < size ? character(alphabet, i, seed) : uint8_t{0};
        twins.like[i] = i + 2 == size ? uint8_t{'z'} : static_cast<uint8_t>(twins.text[i]);
        twins.room[i] = i + 1 < size ? static_cast<uint8_t>(twins.text[i]) : uint8_t{'!'};
    }
    twins.room[size] = 0;
    for (size_t i = 0; i < size - size / 2; ++i) twins.tail[i] = twins.text[size / 2 + i];
}

template <size_t row, size_t size>
void runLocal(uint32_t seed) {
    if constexpr (size <= largestSize) {
        prepare(std::get<row>(routines).alphabet, size, seed);
        inLocalArrays<row, size>();
    }
}

template <size_t row, size_t size>
void runStatic(uint32_t seed) {
    prepare(std::get<row>(routines).alphabet, size, seed);
    inStaticArrays<row, size>();
}

// A turn, 1 to 14, takes every fourteenth size, which builds in seconds: all of them at once take many minutes.
#if !defined(TURN)
#define TURN 3
#endif

template <size_t row>
void runRow(uint32_t seed) {
    runLocal<row, TURN>(seed);
    runLocal<row, TURN + 14>(seed);
    runLocal<row, TURN + 28>(seed);
    runStatic<row, TURN>(seed);
}

template <size_t... row>
void runAll(uint32_t seed, std::index_sequence<row...>) {
    (runRow<row>(seed), ...);
}

constexpr bool sameName(const char *name, const char *other) {
    for (; *name == *other && *name != 0; ++name, ++other) {
    }
    return *name == *other;
}

// Rows of one routine follow each other.
template <size_t... row>
constexpr size_t countRoutines(std::index_sequence<row...>) {
    return 1 + (size_t{!sameName(std::get<row>(routines).name, std::get<row + 1>(routines).name)} + ...);
}

static_assert(countRoutines(std::make_index_sequence<rows - 1>()) == 38, "every routine has its row");

}  // namespace

int main(int argc, char **) {
    for (uint32_t seed = 0; seed < 50; seed += 17)
        runAll(seed + static_cast<uint32_t>(argc), std::make_index_sequence<rows>());
    printf("%zu rows, turn %d, %d wrong results\n", rows, TURN, failures);
    return failures > 0;
}
