// Calls every routine on arrays of 1 to 42 bytes that only the stores right before the call have filled, and again
// after single stores: what an optimiser must not drop, move or fold when it sees the library's reads as well, which
// reach past the arrays. To be built so that it does see them. Exits with the number of wrong results, at most 1.
//
// What is expected is what the same call gives on copies of which the optimiser knows nothing: whether that is right is
// for the tests of the routines themselves.

#include <stdint.h>
#include <stdio.h>
#include <strlib.h>

#include <string_view>
#include <tuple>
#include <utility>

namespace {

constexpr size_t largestSize = 42;

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
    int32_t size;  // of the text

    int32_t half() const { return size / 2 + 1; }
};
using In = const Arrays &;

constexpr size_t roomFor(size_t size) { return 2 * size + 16; }

// Results: a number, a place in the text, or a digest of what was written.

int64_t placeIn(const char *text, const void *result) {
    return result == nullptr ? -1 : static_cast<const char *>(result) - text;
}

int64_t digestOf(const char *string) {
    uint32_t digest = 17;
    for (; *string != 0; ++string) digest = digest * 31 + static_cast<uint8_t>(*string);
    return digest;
}

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

// What texts are made of, each character that follows another one in the text as it does here.
constexpr char letters[] = "AbCdEfGhIjKlMnOpQrStUvWxYaBcDeFgHiJkLmNoPqRsTuVwXy", blanks[] = "\t \n\x01\r\x1F",
               digits[] = "7380415926", sequences[] = "\xE2\x82\xAC\xE2\x88\x80\xE2\x96\x93";

template <class Call>
struct Routine {
    const char *name;
    const char *alphabet;
    Call call;  // Arrays -> result
};

template <class Call>
Routine(const char *, const char *, Call) -> Routine<Call>;

constexpr std::tuple routines{
    Routine{"TQANSI_strlen", letters, [](In in) { return TQANSI_strlen(in.text); }},
    Routine{"TQANSI_strcpy", letters, [](In in) { return digestOf(TQANSI_strcpy(in.room, in.text)); }},
    Routine{"TQANSI_strncpy", letters, [](In in) { return digestOf(TQANSI_strncpy(in.room, in.text, in.half())); }},
    Routine{"TQANSI_strcat", letters, [](In in) { return digestOf(TQANSI_strcat(in.room, in.text)); }},
    Routine{"TQANSI_strncat", letters, [](In in) { return digestOf(TQANSI_strncat(in.room, in.text, in.half())); }},
    Routine{"TQ_strappend", letters,
            [](In in) { return placeIn(in.room, TQ_strappend(in.room, in.text)) + digestOf(in.room); }},
    Routine{"TQANSI_memset", letters,
            [](In in) { return digestOf(static_cast<char *>(TQANSI_memset(in.room, in.text[0], in.half()))); }},
    Routine{"TQANSI_strcmp", letters, [](In in) { return TQANSI_strcmp(in.text, in.like); }},
    Routine{"TQANSI_strncmp", letters, [](In in) { return TQANSI_strncmp(in.text, in.like, in.half()); }},
    Routine{"TQANSI_stricmp", letters, [](In in) { return TQANSI_stricmp(in.text, in.like); }},
    Routine{"TQANSI_strnicmp", letters, [](In in) { return TQANSI_strnicmp(in.text, in.like, in.half()); }},
    Routine{"customStricmp", letters, [](In in) { return customStricmp(in.text, in.like, successors.entries); }},
    Routine{"customStricmp", letters, [](In in) { return customStricmp(in.text, in.like, nullptr); }},
    Routine{"TQANSI_memcmp", letters, [](In in) { return TQANSI_memcmp(in.text, in.like, in.size); }},
    Routine{"TQANSI_strchr", letters, [](In in) { return placeIn(in.text, TQANSI_strchr(in.text, in.tail[0])); }},
    Routine{"TQANSI_strrchr", letters, [](In in) { return placeIn(in.text, TQANSI_strrchr(in.text, in.tail[0])); }},
    Routine{"TQANSI_memchr", letters, [](In in) { return placeIn(in.text, TQANSI_memchr(in.text, 0, in.size)); }},
    Routine{"TQANSI_strpbrk", letters, [](In in) { return placeIn(in.text, TQANSI_strpbrk(in.text, in.tail)); }},
    Routine{"TQANSI_strstr", letters, [](In in) { return placeIn(in.text, TQANSI_strstr(in.text, in.tail)); }},
    Routine{"TQ_stristr", letters, [](In in) { return placeIn(in.text, TQ_stristr(in.text, in.tail)); }},
    Routine{"TQANSI_toupper", letters, [](In in) { return TQANSI_toupper(in.text[0]); }},
    Routine{"TQANSI_isalpha", letters, [](In in) { return TQANSI_isalpha(in.text[0]); }},
    Routine{"TQANSI_isdigit", digits, [](In in) { return TQANSI_isdigit(in.text[0]); }},
    Routine{"TQ_isBlankLine", blanks, [](In in) { return 2 * TQ_isBlankLine(in.text) + TQ_isBlankLine(in.room); }},
    Routine{"TQ_isAttribute", letters,
            [](In in) { return TQ_isAttribute(1, reinterpret_cast<const uint8_t *>(in.text), in.size / 2); }},
    Routine{"TQ_convertZstring", letters,
            [](In in) { return TQ_convertZstring(successors.entries, in.room), digestOf(in.room); }},
    Routine{"TQANSI_atoi", digits, [](In in) { return TQANSI_atoi(in.text); }},
    Routine{"TQANSI_itoa", letters, [](In in) { return digestOf(TQANSI_itoa(in.text[0], in.room, in.size + 4, 10)); }},
    Routine{"TQ_sprintf", letters,
            [](In in) {
                const intptr_t arguments[] = {slot(in.text), slot(in.tail)};
                return TQ_sprintf(in.room, 2 * in.size + 2, "%s%s", arguments) + digestOf(in.room);
            }},
    Routine{"TQ_sprintf", letters,
            [](In in) { return TQ_sprintf(in.room, in.half(), in.text, nullptr) + digestOf(in.room); }},
    Routine{"TQ_sscanf", letters,
            [](In in) {
                const intptr_t arguments[] = {slot(in.room)};
                return TQ_sscanf(in.text, "%s", arguments) + digestOf(in.room);
            }},
    Routine{"X_TAMBRO_gets", letters,
            [](In in) { return X_TAMBRO_gets(in.room, in.size, in.text) + digestOf(in.room); }},
    Routine{"TQ_strtoklen", letters,
            [](In in) {
                uint16_t length = 0;
                return placeIn(in.text, TQ_strtoklen(in.text, in.tail, &length)) * 100 + length;
            }},
    Routine{"TQ_strtoken", letters,
            [](In in) {
                char *end = in.text;
                return placeIn(in.text, TQ_strtoken(in.text, in.tail, &end)) * 100 + placeIn(in.text, end);
            }},
    Routine{"unicodeToUtf8", letters,
            [](In in) { return unicodeToUtf8(0x2000U + in.text[0], in.room) + digestOf(in.room); }},
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
    Routine{"string_operator_diff", letters, [](In in) { return string_operator_diff(in.text, in.like); }},
    Routine{"string_operator_add", letters, [](In in) { return digestOf(string_operator_add(in.room, in.text, 1)); }},
};

int failures = 0;

// Copies an array to where the optimiser loses sight of it.
template <size_t count>
char *hidden(char *copy, const volatile uint8_t (&twin)[count]) {
    for (size_t i = 0; i < count; ++i) copy[i] = static_cast<char>(twin[i]);
    asm volatile("" : "+r"(copy) : : "memory");
    return copy;
}

template <class Call>
[[gnu::noinline]] void check(const Routine<Call> &routine, const char *when, int32_t size, int64_t result) {
    static char copies[4][roomFor(largestSize)];
    const int64_t expected = routine.call({hidden(copies[0], twins.text), hidden(copies[1], twins.like),
                                           hidden(copies[2], twins.tail), hidden(copies[3], twins.room), size});
    if (result == expected) return;
    ++failures;
    printf("%s, %s, arrays of %d bytes: %lld, expected %lld\n", routine.name, when, static_cast<int>(size),
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

template <size_t size, class Call>
[[gnu::always_inline]] inline void callTwice(const Routine<Call> &routine, In in) {
    store(in.text, twins.text, std::make_index_sequence<size>());
    store(in.like, twins.like, std::make_index_sequence<size>());
    store(in.tail, twins.tail, std::make_index_sequence<size - size / 2>());
    store(in.room, twins.room, std::make_index_sequence<size + 1>());
    check(routine, "first call", size, routine.call(in));
    if constexpr (size > 2) {
        change(in.text, twins.text, size / 4, '~');
        change(in.like, twins.like, 0, '!');
        change(in.tail, twins.tail, 0, '~');
    }
    change(in.text, twins.text, size / 2, 0);
    store(in.room, twins.room, std::make_index_sequence<size + 1>());
    check(routine, "second call", size, routine.call(in));
}

// Flattened: the library's code is seen in each of them, however many there are.

template <size_t size, class Call>
[[gnu::noinline, gnu::flatten]] void inLocalArrays(const Routine<Call> &routine) {
    char text[size], like[size], tail[size - size / 2], room[roomFor(size)];
    callTwice<size>(routine, {text, like, tail, room, size});
}

template <size_t size, class Call>
[[gnu::noinline, gnu::flatten]] void inStaticArrays(const Routine<Call> &routine) {
    static char text[size], like[size], tail[size - size / 2], room[roomFor(size)];
    callTwice<size>(routine, {text, like, tail, room, size});
}

void prepare(std::string_view alphabet, size_t size, size_t seed) {
    for (size_t i = 0; i < size; ++i) {
        const auto character = static_cast<uint8_t>(alphabet[(i + 3 * seed) % alphabet.size()]);
        twins.text[i] = i + 1 < size ? character : uint8_t{0};
        twins.like[i] = i + 2 == size ? uint8_t{'z'} : static_cast<uint8_t>(twins.text[i]);
        twins.room[i] = i + 1 < size ? character : uint8_t{'!'};
    }
    twins.room[size] = 0;
    for (size_t i = 0; i < size - size / 2; ++i) twins.tail[i] = twins.text[size / 2 + i];
}

// A turn, 1 to 14, takes every fourteenth size, which builds in seconds: all of them at once take many minutes.
#if !defined(TURN)
#define TURN 3
#endif

template <size_t size, class Call>
void run(const Routine<Call> &routine, size_t seed, void (*inArrays)(const Routine<Call> &)) {
    prepare(routine.alphabet, size, seed);
    inArrays(routine);
}

template <class... Call>
void runAll(size_t seed, const Routine<Call> &...routine) {
    (run<TURN>(routine, seed, inLocalArrays<TURN, Call>), ...);
    (run<TURN + 14>(routine, seed, inLocalArrays<TURN + 14, Call>), ...);
    (run<TURN + 28>(routine, seed, inLocalArrays<TURN + 28, Call>), ...);
    (run<TURN>(routine, seed, inStaticArrays<TURN, Call>), ...);
}

}  // namespace

int main(int argc, char **) {
    for (size_t seed = 0; seed < 50; seed += 17)
        std::apply([&](const auto &...routine) { runAll(seed + static_cast<size_t>(argc), routine...); }, routines);
    printf("%zu rows, turn %d, %d wrong results\n", std::tuple_size_v<decltype(routines)>, TURN, failures);
    return failures > 0;
}
