#include <strlib.h>
#include <utf8proc.h>

#include <algorithm>
#include <cstring>

#include "contest.h"
#include "plain.h"

namespace {

constexpr char delimiters[] = " \t,";
constexpr int32_t longestLine = 1024;

/** So many pieces of random sizes from least to most, each with its end. */
Workloads pieces(const std::string &name, int32_t count, int32_t least, int32_t most, char filling,
                 const std::string &end) {
    return walk(name, static_cast<std::size_t>(count), [&](Workload &workload) {
        std::string text;
        for (int32_t left = count; left > 0; --left) {
            const auto size = static_cast<std::size_t>(least + workload.random(most - least + 1));
            text += (filling == 0 ? prose(workload, size) : std::string(size, filling)) + end;
        }
        return text;
    });
}

const uint8_t *unsignedBytes(const char *text) { return reinterpret_cast<const uint8_t *>(text); }

/** The outcome of a walk: what was met, summed up so that no call's result is without use. */
int64_t ourLines(const Case &c) {
    int64_t sum = 0;
    for (const char *at = c.text;;) {
        const int32_t last = X_TAMBRO_gets(c.destination, longestLine, at);
        sum += last + c.destination[last / 2];
        if (at[last] == 0) return sum;
        at += last + 1;
    }
}

int64_t memchrLines(const Case &c) {
    int64_t sum = 0;
    const char *const end = c.text + c.count;
    for (const char *at = c.text;;) {
        const auto left = static_cast<std::size_t>(end - at);
        const auto *const feed = static_cast<const char *>(memchr(at, '\n', left));
        const std::size_t last = feed == nullptr ? left : static_cast<std::size_t>(feed - at);
        std::size_t size = std::min<std::size_t>(last, longestLine);
        if (size > 0 && at[size - 1] == '\r') --size;
        memcpy(c.destination, at, size);
        c.destination[size] = 0;
        sum += static_cast<int32_t>(last) + c.destination[last / 2];
        if (feed == nullptr) return sum;
        at = feed + 1;
    }
}

int64_t ourTokens(const Case &c) {
    int64_t sum = 0;
    char *end = c.text;
    while (const char *const token = TQ_strtoken(end, delimiters, &end)) sum += end - token;
    return sum;
}

int64_t ourTokenLengths(const Case &c) {
    int64_t sum = 0;
    uint16_t length = 0;
    for (const char *at = c.text; (at = TQ_strtoklen(at, delimiters, &length)) != nullptr; at += length) sum += length;
    return sum;
}

int64_t spannedTokens(const Case &c) {
    int64_t sum = 0;
    for (const char *at = c.text;;) {
        at += strspn(at, delimiters);
        if (*at == 0) return sum;
        const std::size_t length = strcspn(at, delimiters);
        sum += static_cast<int64_t>(length);
        at += length;
    }
}

void enterLinesAndTokens() {
    contest("X_TAMBRO_gets",
            joined({pieces("short", 2048, 0, 60, 0, "\r\n"), pieces("short-lf", 2048, 0, 60, 0, "\n"),
                    pieces("400", 64, 380, 420, 0, "\r\n")}),
            ourLines, Peer{"memchr+memcpy", memchrLines});
    const Workloads tokens = joined({pieces("short", 4096, 1, 12, 'x', " "), pieces("long", 128, 100, 300, 'x', ", ")});
    contest("TQ_strtoken", tokens, ourTokens, Peer{"strspn+strcspn", spannedTokens});
    contest("TQ_strtoklen", tokens, ourTokenLengths, Peer{"strspn+strcspn", spannedTokens});
}

uint32_t latin(Workload &workload) {
    static constexpr uint32_t accented[] = {0xE4, 0xE9, 0xFC, 0xE8, 0xF1, 0xE0};
    return workload.random(8) == 0 ? accented[workload.random(6)] : 'a' + static_cast<uint32_t>(workload.random(26));
}

uint32_t cjk(Workload &workload) { return 0x4E00 + static_cast<uint32_t>(workload.random(0x5000)); }

/** One to four bytes in equal parts. */
uint32_t mixed(Workload &workload) {
    static constexpr uint32_t firsts[] = {0x20, 0x80, 0x800, 0x10000};
    return firsts[workload.random(4)] + static_cast<uint32_t>(workload.random(0x5E));
}

struct Script {
    const char *name;
    uint32_t (*next)(Workload &);
};
constexpr Script scripts[] = {{"latin", latin}, {"cjk", cjk}, {"mixed", mixed}};

std::string encoded(Workload &workload, const Script &script, int32_t characters) {
    std::string text;
    while (characters-- > 0) text += utf8(script.next(workload));
    return text;
}

int64_t ourDecoding(const Case &c) {
    int64_t sum = 0;
    uint32_t codePoint = 0;
    int32_t length = 0;
    for (const char *at = c.text; *at != 0 && (at = utf8ToUnicode(at, &codePoint, &length), length != 0);)
        sum += codePoint;
    return sum;
}

int64_t peerDecoding(const Case &c) {
    int64_t sum = 0;
    int32_t codePoint = 0;
    for (const char *at = c.text; *at != 0;) {
        const utf8proc_ssize_t length = utf8proc_iterate(unsignedBytes(at), -1, &codePoint);
        if (length <= 0) break;
        sum += codePoint;
        at += length;
    }
    return sum;
}

int64_t ourReading(const Case &c) {
    int64_t sum = 0;
    int32_t valid = 0;
    for (const char *at = c.text;;) {
        const char *const next = utf8ReadChar(at, &valid, c.destination);
        if (next == at) return sum;
        sum += valid + c.destination[next - at - 1];
        at = next;
    }
}

int64_t peerReading(const Case &c) {
    int64_t sum = 0;
    int32_t codePoint = 0;
    for (const char *at = c.text; *at != 0;) {
        const utf8proc_ssize_t length = utf8proc_iterate(unsignedBytes(at), -1, &codePoint);
        const std::size_t size = length > 0 ? static_cast<std::size_t>(length) : 1;
        memcpy(c.destination, at, size);
        c.destination[size] = 0;
        sum += (length > 0) + c.destination[size - 1];
        at += size;
    }
    c.destination[0] = 0;
    return sum;
}

int32_t peerEncoding(const Case &c) {
    auto *const bytes = reinterpret_cast<uint8_t *>(c.destination);
    const auto length = static_cast<int32_t>(utf8proc_encode_char(c.value, bytes));
    bytes[length] = 0;
    return length;
}

void enterCodec() {
    std::vector<Workloads> texts, codePoints;
    for (const Script &script : scripts) {
        texts.push_back(walk(script.name, 4096, [&](Workload &workload) { return encoded(workload, script, 4096); }));
        codePoints.push_back(repeated(script.name, 2048, [&](Workload &workload, Case &each) {
            each.value = static_cast<int32_t>(script.next(workload));
            each.destination = workload.second("", 8);
        }));
    }
    contest("unicodeToUtf8", joined(codePoints), CALL(unicodeToUtf8(static_cast<uint32_t>(c.value), c.destination)),
            Peer{"utf8proc", peerEncoding});
    contest("utf8ToUnicode", joined(texts), ourDecoding, Peer{"utf8proc", peerDecoding});
    contest("utf8ReadChar", joined(texts), ourReading, Peer{"utf8proc", peerReading});
}

/** Texts at whose end a character of the set stands. Many other characters begin with the same byte. */
Workloads setPlaces(const std::string &name, std::size_t count, int32_t most, const Script &script,
                    std::u32string_view set) {
    std::string members;
    for (const char32_t member : set) members += utf8(member);
    return repeated(name + script.name, count, [&](Workload &workload, Case &each) {
        const int32_t characters = most <= 16 ? workload.random(most) : most;
        each.text = workload.source(encoded(workload, script, characters) + utf8(set[workload.random(set.size())]));
        each.other = workload.second(members);
    });
}

void enterSetSearch() {
    constexpr std::u32string_view letters = U"ßöø€";
    constexpr std::u32string_view stops = U"。，！？";
    contest("TQANSI_strpbrkUTF8",
            joined({setPlaces("near-", 1024, 16, scripts[0], letters), setPlaces("near-", 1024, 16, scripts[1], stops),
                    setPlaces("long-", 4, 3600, scripts[0], letters), setPlaces("long-", 4, 1365, scripts[1], stops)}),
            CALL(TQANSI_strpbrkUTF8(c.text, c.other)), Peer{"plain", CALL(plain::findUtf8(c.text, c.other))});
}

/** Names whose last bytes differ or are counted up. */
void enterArithmetic() {
    const Fill names = [](Workload &workload, std::size_t size, Case &each) {
        each.text = workload.source(prose(workload, std::max<std::size_t>(size, 4)));
        each.other = workload.second(prose(workload, std::max<std::size_t>(size, 4)));
        each.destination = workload.second("", std::max<std::size_t>(size, 4));
        each.value = 1 + workload.random(1000);
    };
    const Workloads texts = sized(names, {mix, 64, 256});
    contest("string_operator_diff", texts, CALL(string_operator_diff(c.text, c.other)),
            Peer{"plain", CALL(plain::difference(c.text, c.other))});
    contest("string_operator_add", texts, CALL(string_operator_add(c.destination, c.text, c.value)),
            Peer{"plain", CALL(plain::add(c.destination, c.text, c.value))});
}

}  // namespace

void enterTexts() {
    enterLinesAndTokens();
    enterCodec();
    enterSetSearch();
    enterArithmetic();
}
