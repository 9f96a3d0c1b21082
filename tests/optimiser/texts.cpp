// Calls every routine on arrays of 1 to 40 bytes that only the stores right before the call have filled, and again
// after single stores: what an optimiser must not drop, move or fold when it sees the library's reads as well, which
// reach past the arrays. To be built so that it does see them. Exits with the number of wrong results, at most 1.
//
// What is expected is worked out on volatile twins of the arrays, so that nothing but the library reads the arrays.

#include <stdint.h>
#include <stdio.h>
#include <strlib.h>

#include <algorithm>
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

using Twin = const volatile uint8_t *;

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

struct Digest {
    void put(uint32_t byte) { value = value * 31 + (byte & 0xFF); }

    template <class Byte>
    void putString(const Byte *string) {
        while (*string != 0) put(static_cast<uint32_t>(*string++));
    }

    uint32_t value = 17;
};

template <class Byte>
int64_t digestOf(const Byte *string) {
    Digest digest;
    digest.putString(string);
    return digest.value;
}

template <class Byte>
int64_t digestOf(const Byte *bytes, size_t count) {
    Digest digest;
    for (size_t i = 0; i < count; ++i) digest.put(static_cast<uint32_t>(bytes[i]));
    return digest.value;
}

// What is expected, from the twins, byte by byte.

int64_t length(Twin string) {
    int64_t count = 0;
    while (string[count] != 0) ++count;
    return count;
}

int64_t firstOf(Twin string, uint8_t byte) {
    for (int64_t i = 0; string[i] != 0; ++i) {
        if (string[i] == byte) return i;
    }
    return -1;
}

int64_t lastOf(Twin string, uint8_t byte) {
    int64_t found = -1;
    for (int64_t i = 0; string[i] != 0; ++i) found = string[i] == byte ? i : found;
    return found;
}

bool isIn(Twin set, uint8_t byte) { return firstOf(set, byte) >= 0; }

int64_t firstIn(Twin string, Twin set, int64_t from = 0) {
    for (int64_t i = from; string[i] != 0; ++i) {
        if (isIn(set, string[i])) return i;
    }
    return -1;
}

int64_t firstNotIn(Twin string, Twin set) {
    for (int64_t i = 0; string[i] != 0; ++i) {
        if (!isIn(set, string[i])) return i;
    }
    return -1;
}

int32_t same(int32_t byte) { return byte; }
int32_t small(int32_t byte) { return byte >= 'A' && byte <= 'Z' ? byte + 32 : byte; }

int64_t find(Twin string, Twin sought, int32_t (*read)(int32_t)) {
    for (int64_t place = 0;; ++place) {
        int64_t i = 0;
        while (sought[i] != 0 && read(string[place + i]) == read(sought[i])) ++i;
        if (sought[i] == 0) return place;
        if (string[place] == 0) return -1;
    }
}

int64_t compare(Twin first, Twin second, size_t count, int32_t (*read)(int32_t)) {
    for (size_t i = 0; i < count; ++i) {
        const int32_t a = read(static_cast<int8_t>(first[i])), b = read(static_cast<int8_t>(second[i]));
        if (a != b || a == 0) return a - b;
    }
    return 0;
}

int64_t compareBytes(Twin first, Twin second, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        if (first[i] != second[i]) return first[i] - second[i];
    }
    return 0;
}

// The last four characters as signed digits.
int64_t lastDigits(Twin string) {
    uint32_t sum = 0;
    const int64_t end = length(string);
    for (int64_t i = end < 4 ? 0 : end - 4; i < end; ++i)
        sum = (sum << 8) + static_cast<uint32_t>(static_cast<int8_t>(string[i]));
    return sum;
}

int64_t decimal(Twin digits) {
    uint32_t value = 0;
    while (*digits >= '0' && *digits <= '9') value = value * 10 + (*digits++ - uint32_t{'0'});
    return static_cast<int32_t>(value);
}

// The first characters of a string behind others.
int64_t joined(Twin front, Twin back, size_t count) {
    Digest digest;
    digest.putString(front);
    for (size_t i = 0; i < count && back[i] != 0; ++i) digest.put(back[i]);
    return digest.value;
}

const volatile uint8_t nothing[] = {0};

size_t half(size_t size) { return size / 2 + 1; }

// The bytes of the sequence of three at the start of a text that are there.
int64_t sequenceBytes(Twin text) {
    int64_t count = 0;
    while (count < 3 && text[count] >= 0x80) ++count;
    return count;
}

int64_t firstSequence(Twin string, Twin set) {
    for (int64_t place = 0; string[place] != 0; ++place) {
        for (int64_t i = 0; set[i] != 0;) {
            const int64_t bytes = set[i] < 0x80 ? 1 : set[i] >= 0xC0 ? 3 : 0;
            if (bytes == 0) return -1;
            int64_t matching = 0;
            while (matching < bytes && set[i + matching] != 0 && set[i + matching] == string[place + matching])
                ++matching;
            if (matching == bytes) return place;
            for (int64_t k = 0; k < bytes && set[i] != 0; ++k) ++i;
        }
    }
    return -1;
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

int64_t converted(Twin string) {
    Digest digest;
    for (; *string != 0; ++string) digest.put(*string % 255u + 1);
    return digest.value;
}

intptr_t slot(const void *address) { return reinterpret_cast<intptr_t>(address); }

enum class Alphabet { letters, blanks, digits, sequences };

template <class Call, class Expected>
struct Routine {
    const char *name;
    Alphabet alphabet;
    Call call;          // Arrays -> result
    Expected expected;  // size of the text -> result
};

template <class Call, class Expected>
Routine(const char *, Alphabet, Call, Expected) -> Routine<Call, Expected>;

constexpr auto letters = Alphabet::letters, blanks = Alphabet::blanks, digits = Alphabet::digits,
               sequences = Alphabet::sequences;
using In = const Arrays &;

constexpr std::tuple routines{
    Routine{"TQANSI_strlen", letters, [](In in) -> int64_t { return TQANSI_strlen(in.text); },
            [](size_t) { return length(twins.text); }},
    Routine{"TQANSI_strcpy", letters, [](In in) { return digestOf(TQANSI_strcpy(in.room, in.text)); },
            [](size_t) { return joined(nothing, twins.text, largestSize); }},
    Routine{"TQANSI_strncpy", letters,
            [](In in) { return digestOf(TQANSI_strncpy(in.room, in.text, static_cast<int32_t>(half(in.size)))); },
            [](size_t size) { return joined(nothing, twins.text, half(size)); }},
    Routine{"TQANSI_strcat", letters, [](In in) { return digestOf(TQANSI_strcat(in.room, in.text)); },
            [](size_t) { return joined(twins.room, twins.text, largestSize); }},
    Routine{"TQANSI_strncat", letters,
            [](In in) { return digestOf(TQANSI_strncat(in.room, in.text, static_cast<int32_t>(half(in.size)))); },
            [](size_t size) { return joined(twins.room, twins.text, half(size)); }},
    Routine{"TQ_strappend", letters,
            [](In in) { return placeIn(in.room, TQ_strappend(in.room, in.text)) + digestOf(in.room); },
            [](size_t) { return length(twins.text) + joined(nothing, twins.text, largestSize); }},
    Routine{"TQANSI_memset", letters,
            [](In in) {
                TQANSI_memset(in.room, in.tail[0], static_cast<uint32_t>(half(in.size)));
                return digestOf(in.room, in.size + 1);
            },
            [](size_t size) {
                Digest digest;
                for (size_t i = 0; i <= size; ++i) digest.put(i < half(size) ? twins.tail[0] : twins.room[i]);
                return int64_t{digest.value};
            }},
    Routine{"TQANSI_strcmp", letters, [](In in) -> int64_t { return TQANSI_strcmp(in.text, in.like); },
            [](size_t) { return compare(twins.text, twins.like, largestSize, same); }},
    Routine{"TQANSI_strncmp", letters,
            [](In in) -> int64_t { return TQANSI_strncmp(in.text, in.like, static_cast<int32_t>(half(in.size))); },
            [](size_t size) { return compare(twins.text, twins.like, half(size), same); }},
    Routine{"TQANSI_stricmp", letters, [](In in) -> int64_t { return TQANSI_stricmp(in.text, in.like); },
            [](size_t) { return compare(twins.text, twins.like, largestSize, small); }},
    Routine{"TQANSI_strnicmp", letters,
            [](In in) -> int64_t { return TQANSI_strnicmp(in.text, in.like, static_cast<int32_t>(half(in.size))); },
            [](size_t size) { return compare(twins.text, twins.like, half(size), small); }},
    Routine{
        "customStricmp", letters, [](In in) -> int64_t { return customStricmp(in.text, in.like, successors.entries); },
        [](size_t) {
            return compare(twins.text, twins.like, largestSize, [](int32_t byte) { return byte == 0 ? 0 : byte + 1; });
        }},
    Routine{"customStricmp", letters, [](In in) -> int64_t { return customStricmp(in.text, in.like, nullptr); },
            [](size_t) { return compare(twins.text, twins.like, largestSize, same); }},
    Routine{"TQANSI_memcmp", letters,
            [](In in) -> int64_t { return TQANSI_memcmp(in.text, in.like, static_cast<uint32_t>(in.size)); },
            [](size_t size) { return compareBytes(twins.text, twins.like, size); }},
    Routine{"TQANSI_strchr", letters, [](In in) { return placeIn(in.text, TQANSI_strchr(in.text, in.tail[0])); },
            [](size_t) { return firstOf(twins.text, twins.tail[0]); }},
    Routine{"TQANSI_strrchr", letters, [](In in) { return placeIn(in.text, TQANSI_strrchr(in.text, in.tail[0])); },
            [](size_t) { return lastOf(twins.text, twins.tail[0]); }},
    Routine{"TQANSI_memchr", letters,
            [](In in) { return placeIn(in.text, TQANSI_memchr(in.text, 0, static_cast<uint32_t>(in.size))); },
            [](size_t) { return length(twins.text); }},
    Routine{"TQANSI_strpbrk", letters, [](In in) { return placeIn(in.text, TQANSI_strpbrk(in.text, in.tail)); },
            [](size_t) { return firstIn(twins.text, twins.tail); }},
    Routine{"TQANSI_strstr", letters, [](In in) { return placeIn(in.text, TQANSI_strstr(in.text, in.tail)); },
            [](size_t) { return find(twins.text, twins.tail, same); }},
    Routine{"TQ_stristr", letters, [](In in) { return placeIn(in.text, TQ_stristr(in.text, in.tail)); },
            [](size_t) { return find(twins.text, twins.tail, small); }},
    Routine{"TQANSI_toupper", letters, [](In in) -> int64_t { return TQANSI_toupper(in.text[0]); },
            [](size_t) -> int64_t { return twins.text[0] - (twins.text[0] >= 'a' && twins.text[0] <= 'z' ? 32 : 0); }},
    Routine{"TQANSI_isalpha", letters, [](In in) -> int64_t { return TQANSI_isalpha(in.text[0]); },
            [](size_t) -> int64_t { return small(twins.text[0]) >= 'a' && small(twins.text[0]) <= 'z'; }},
    Routine{"TQANSI_isdigit", digits, [](In in) -> int64_t { return TQANSI_isdigit(in.text[0]); },
            [](size_t) -> int64_t { return twins.text[0] >= '0' && twins.text[0] <= '9'; }},
    Routine{"TQ_isBlankLine", blanks,
            [](In in) -> int64_t { return 2 * TQ_isBlankLine(in.text) + TQ_isBlankLine(in.room); },
            [](size_t) -> int64_t {
                const auto isBlank = [](Twin string) {
                    while (*string >= 1 && *string <= 32) ++string;
                    return *string == 0;
                };
                return 2 * isBlank(twins.text) + isBlank(twins.room);
            }},
    Routine{"TQ_isAttribute", letters,
            [](In in) -> int64_t {
                return TQ_isAttribute(1, reinterpret_cast<const uint8_t *>(in.text), static_cast<int32_t>(in.size / 2));
            },
            [](size_t size) -> int64_t { return twins.text[size / 2] & 1; }},
    Routine{"TQ_convertZstring", letters,
            [](In in) {
                TQ_convertZstring(successors.entries, in.room);
                return digestOf(in.room);
            },
            [](size_t) { return converted(twins.room); }},
    Routine{"TQANSI_atoi", digits, [](In in) -> int64_t { return TQANSI_atoi(in.text); },
            [](size_t) { return decimal(twins.text); }},
    Routine{"TQANSI_itoa", letters,
            [](In in) { return digestOf(TQANSI_itoa(in.text[0], in.room, static_cast<int32_t>(in.size + 4), 10)); },
            [](size_t) {
                Digest digest;
                for (uint32_t unit = 100; unit != 0; unit /= 10) {
                    if (twins.text[0] >= unit || unit == 1) digest.put('0' + twins.text[0] / unit % 10);
                }
                return int64_t{digest.value};
            }},
    Routine{"TQ_sprintf", letters,
            [](In in) {
                const intptr_t arguments[] = {slot(in.text), slot(in.tail)};
                const int32_t stored = TQ_sprintf(in.room, static_cast<uint32_t>(roomFor(in.size)), "%s%s", arguments);
                return stored + digestOf(in.room);
            },
            [](size_t) {
                return length(twins.text) + length(twins.tail) + 1 + joined(twins.text, twins.tail, largestSize);
            }},
    Routine{"TQ_sprintf", letters,
            [](In in) {
                return TQ_sprintf(in.room, static_cast<uint32_t>(half(in.size)), in.text, nullptr) + digestOf(in.room);
            },
            [](size_t size) {
                const int64_t stored = std::min<int64_t>(length(twins.text), static_cast<int64_t>(half(size)) - 1);
                return stored + 1 + joined(nothing, twins.text, static_cast<size_t>(stored));
            }},
    Routine{"TQ_sscanf", letters,
            [](In in) {
                const intptr_t arguments[] = {slot(in.room)};
                return TQ_sscanf(in.text, "%s", arguments) + (in.text[0] == 0 ? 0 : digestOf(in.room));
            },
            [](size_t) { return twins.text[0] == 0 ? -1 : 1 + joined(nothing, twins.text, largestSize); }},
    Routine{"X_TAMBRO_gets", letters,
            [](In in) { return X_TAMBRO_gets(in.room, static_cast<int32_t>(in.size), in.text) + digestOf(in.room); },
            [](size_t) { return length(twins.text) + joined(nothing, twins.text, largestSize); }},
    Routine{"TQ_strtoklen", letters,
            [](In in) {
                uint16_t tokenLength = 0;
                const int64_t place = placeIn(in.text, TQ_strtoklen(in.text, in.tail, &tokenLength));
                return place * 100 + tokenLength;
            },
            [](size_t) -> int64_t {
                const int64_t token = firstNotIn(twins.text, twins.tail);
                if (token < 0) return -100;
                const int64_t end = firstIn(twins.text, twins.tail, token);
                return token * 100 + (end < 0 ? length(twins.text) : end) - token;
            }},
    Routine{"TQ_strtoken", letters,
            [](In in) {
                char *end = in.text;
                const int64_t place = placeIn(in.text, TQ_strtoken(in.text, in.tail, &end));
                return place * 100 + placeIn(in.text, end);
            },
            [](size_t) -> int64_t {
                const int64_t token = firstNotIn(twins.text, twins.tail);
                if (token < 0) return -100;
                const int64_t end = firstIn(twins.text, twins.tail, token);
                return token * 100 + (end < 0 ? length(twins.text) : end);
            }},
    Routine{"unicodeToUtf8", letters,
            [](In in) {
                return unicodeToUtf8(uint32_t{0x2000} + static_cast<uint32_t>(in.text[0]), in.room) + digestOf(in.room);
            },
            [](size_t) {
                Digest digest;
                digest.put(0xE2);
                digest.put(0x80u + twins.text[0] / 64u);
                digest.put(0x80u + twins.text[0] % 64u);
                return 3 + int64_t{digest.value};
            }},
    Routine{"utf8ToUnicode", sequences,
            [](In in) {
                uint32_t codePoint = 0;
                int32_t bytes = 0;
                const int64_t place = placeIn(in.text, utf8ToUnicode(in.text, &codePoint, &bytes));
                return place * 100 + bytes + (bytes == 3 ? int64_t{codePoint} << 32 : 0);
            },
            [](size_t) -> int64_t {
                if (twins.text[0] < 0x80) return 101;
                if (sequenceBytes(twins.text) < 3) return 100;
                return 303 + (int64_t{0x2000 + (twins.text[1] & 0x3F) * 64 + (twins.text[2] & 0x3F)} << 32);
            }},
    Routine{"utf8ReadChar", sequences,
            [](In in) {
                int32_t valid = 0;
                const int64_t place = placeIn(in.text, utf8ReadChar(in.text, &valid, in.room));
                return place * 2 + valid + digestOf(in.room);
            },
            [](size_t) {
                const int64_t bytes = sequenceBytes(twins.text);
                if (twins.text[0] < 0x80) return int64_t{twins.text[0] != 0} * 2 + 1 + joined(nothing, twins.text, 1);
                if (bytes < 3) return 2 + digestOf(nothing);
                return 7 + joined(nothing, twins.text, 3);
            }},
    Routine{"TQANSI_strpbrkUTF8", sequences,
            [](In in) { return placeIn(in.text, TQANSI_strpbrkUTF8(in.text, in.tail)); },
            [](size_t) { return firstSequence(twins.text, twins.tail); }},
    Routine{"string_operator_diff", letters, [](In in) -> int64_t { return string_operator_diff(in.text, in.like); },
            [](size_t) -> int64_t {
                return static_cast<int32_t>(static_cast<uint32_t>(lastDigits(twins.text) - lastDigits(twins.like)));
            }},
    Routine{"string_operator_add", letters, [](In in) { return digestOf(string_operator_add(in.room, in.text, 1)); },
            [](size_t) {
                Digest digest;
                const int64_t end = length(twins.text);
                for (int64_t i = 0; i < end; ++i) digest.put(twins.text[i] + uint32_t{i == end - 1});
                if (end == 0) digest.put(1);
                return int64_t{digest.value};
            }},
};

constexpr size_t rows = std::tuple_size_v<decltype(routines)>;

int failures = 0;

template <size_t row>
[[gnu::noinline]] void check(const char *storage, size_t size, const char *call, int64_t result) {
    constexpr auto routine = std::get<row>(routines);
    const int64_t expected = routine.expected(size);
    if (result == expected) return;
    ++failures;
    printf("%s, %s array of %zu bytes, %s call: %lld, expected %lld\n", routine.name, storage, size, call,
           static_cast<long long>(result), static_cast<long long>(expected));
}

// Stores without a loop, as programs fill short arrays.
template <size_t... i>
[[gnu::always_inline]] inline void store(char *array, Twin twin, std::index_sequence<i...>) {
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
