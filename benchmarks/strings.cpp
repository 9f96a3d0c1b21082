#include <strings.h>
#include <strlib.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <initializer_list>

#include "contest.h"
#include "plain.h"

namespace {

constexpr char sought = '#';
constexpr std::initializer_list<std::size_t> shortAndLong{mix, 64, 256, 4096};

bool once(Workload &workload, int32_t in) { return workload.random(in) == 0; }

void fillText(Workload &workload, std::size_t size, Case &each) {
    each.text = workload.source(prose(workload, size));
    each.destination = workload.second("", size);
    each.count = static_cast<int32_t>(size);
    each.value = 1 + workload.random(255);
}

/** Texts for bounded copies: on the mix the bound is as random as the length, else it is the length. */
void fillBounded(Workload &workload, std::size_t size, Case &each) {
    fillText(workload, size, each);
    if (size <= 32) each.count = workload.random(33);
    each.destination = workload.second("", 32 + size);
}

/** The destination holds a string of each.value bytes, to which the call appends. */
void fillAppended(Workload &workload, std::size_t size, Case &each) {
    fillBounded(workload, size, each);
    each.value = workload.random(17);
    each.destination = workload.second(prose(workload, static_cast<std::size_t>(each.value)), 32 + size);
}

/** Each case gets the place where the case before it appended, to cut that string short again: not its own, which
 *  would be read before the store is through. */
Workloads inTurn(const Workloads &workloads) {
    for (const std::shared_ptr<Workload> &workload : workloads) {
        const Case *before = &workload->cases.back();
        for (Case &each : workload->cases) {
            each.other = before->destination + before->value;
            before = &each;
        }
    }
    return workloads;
}

/** Half of the short pairs differ somewhere, the long ones are equal. */
void fillPair(Workload &workload, std::size_t size, Case &each) {
    const std::string text = prose(workload, size);
    std::string other = text;
    if (size > 0 && size <= 32 && once(workload, 2)) other[workload.random(size)] = '~';
    each.text = workload.source(text);
    each.other = workload.second(other);
    each.count = static_cast<int32_t>(size);
}

void fillBoundedPair(Workload &workload, std::size_t size, Case &each) {
    fillPair(workload, size, each);
    if (size <= 32) each.count = workload.random(33);
}

void fillFoldedPair(Workload &workload, std::size_t size, Case &each) {
    fillBoundedPair(workload, size, each);
    each.text = workload.source(withRandomCase(workload, each.text));
    each.other = workload.second(withRandomCase(workload, each.other));
}

/** The bytes sought stand at a random place of the short texts, if at all, and at the end of the long ones. */
void placeSought(Workload &workload, std::size_t size, Case &each, char byte) {
    std::string text = prose(workload, size);
    if (size > 32) text.back() = byte;
    if (size > 0 && size <= 32 && !once(workload, 4)) text[workload.random(size)] = byte;
    each.text = workload.source(text);
    each.count = static_cast<int32_t>(size);
    each.value = byte;
}

void fillSought(Workload &workload, std::size_t size, Case &each) { placeSought(workload, size, each, sought); }

/** As in paths: the byte sought stands at several places, of which the last is near the end. */
void fillSoughtLast(Workload &workload, std::size_t size, Case &each) {
    std::string text = prose(workload, size);
    for (std::size_t at = 20; at < size; at += 100) text[at] = sought;
    if (size > 0 && !once(workload, 4)) text[size - 1 - workload.random(std::min<std::size_t>(size, 32))] = sought;
    each.text = workload.source(text);
    each.value = sought;
}

void fillAbsent(Workload &workload, std::size_t size, Case &each) {
    fillText(workload, size, each);
    each.value = sought;
}

Fill fillSet(const char *set) {
    return [=](Workload &workload, std::size_t size, Case &each) {
        placeSought(workload, size, each, set[workload.random(std::strlen(set))]);
        // One set for all, as it is mostly a literal.
        char *const first = workload.cases.front().other;
        each.other = first == nullptr ? workload.second(set) : first;
    };
}

void fillBlanks(Workload &workload, std::size_t size, Case &each) {
    std::string text(size, ' ');
    for (char &blank : text) blank = " \t\r\n"[workload.random(4)];
    if (size > 0 && size <= 32 && once(workload, 2)) text.back() = 'x';
    each.text = workload.source(text);
}

std::string exactCase(Workload &, std::string text) { return text; }

/** Haystacks and needles; those of prose and the long ones are found at the very end, if at all. */
Workloads substrings(std::string (*written)(Workload &, std::string)) {
    const auto place = [=](Workload &workload, Case &each, const std::string &text, const std::string &needle) {
        each.text = workload.source(written(workload, text));
        each.other = workload.second(written(workload, needle));
    };
    const Fill shortProse = [=](Workload &workload, std::size_t size, Case &each) {
        place(workload, each, prose(workload, size) + (once(workload, 2) ? "the" : ""), "the");
    };
    const auto longProse = [=](std::size_t size, std::size_t count) {
        return repeated("prose-" + std::to_string(size), count, [=](Workload &workload, Case &each) {
            static constexpr const char *needles[] = {"thereafter", "instead", "on a whim", "zenith"};
            const std::string needle = needles[&each - workload.cases.data()];
            place(workload, each, prose(workload, size - needle.size()) + needle, needle);
        });
    };
    const auto longNeedle = [=](Workload &workload, Case &each) {
        const std::string text = prose(workload, 16384);
        place(workload, each, text, text.substr(text.size() - 1000));
    };
    const auto periodic = [=](Workload &workload, Case &each) {
        place(workload, each, std::string(4095, 'a') + 'b', std::string(31, 'a') + 'b');
    };
    const auto adversarial = [=](Workload &workload, Case &each) {
        std::string text(4096, 'a');
        for (std::size_t at = 63; at < text.size(); at += 64) text[at] = 'b';
        place(workload, each, text, std::string(64, 'a'));
    };
    return joined({sized(shortProse, {mix}, "prose-"), longProse(256, 4), longProse(4096, 4), longProse(65536, 2),
                   repeated("long-needle-16384", 2, longNeedle), repeated("periodic-4096", 2, periodic),
                   repeated("adversarial-4096", 2, adversarial)});
}

void fillInPlace(Workload &workload, std::size_t size, Case &each) {
    each.destination = workload.second(withRandomCase(workload, prose(workload, size)));
}

struct Tables {
    uint8_t swapCase[256], folded[256], classes[256];
    Tables() {
        for (int32_t byte = 0; byte < 256; ++byte) {
            swapCase[byte] = static_cast<uint8_t>(std::isalpha(byte) != 0 ? byte ^ 0x20 : byte);
            folded[byte] = static_cast<uint8_t>(std::tolower(byte));
            classes[byte] = static_cast<uint8_t>((std::isalpha(byte) != 0) | (std::isdigit(byte) != 0) << 1);
        }
    }
};
const Tables tables;

char *copyBounded(char *destination, const char *source, std::size_t count) {
    if (memccpy(destination, source, 0, count) == nullptr) destination[count] = 0;
    return destination;
}

void enterCopying() {
    const Workloads texts = sized(fillText);
    const Workloads bounded = sized(fillBounded, shortAndLong);
    const Workloads appended = inTurn(sized(fillAppended, shortAndLong));
    contest("TQANSI_strlen", texts, CALL(TQANSI_strlen(c.text)), Peer{"strlen", CALL(strlen(c.text))});
    contest("TQANSI_strcpy", texts, CALL(TQANSI_strcpy(c.destination, c.text)),
            Peer{"strcpy", CALL(strcpy(c.destination, c.text))});
    contest("TQANSI_strncpy", bounded, CALL(TQANSI_strncpy(c.destination, c.text, c.count)),
            Peer{"strncpy", CALL(strncpy(c.destination, c.text, c.size())[c.count] = 0, c.destination)},
            Peer{"memccpy", CALL(copyBounded(c.destination, c.text, c.size()))});
    contest("TQANSI_strcat", appended, CALL(*c.other = 0, TQANSI_strcat(c.destination, c.text)),
            Peer{"strcat", CALL(*c.other = 0, strcat(c.destination, c.text))});
    contest("TQANSI_strncat", appended, CALL(*c.other = 0, TQANSI_strncat(c.destination, c.text, c.count)),
            Peer{"strncat", CALL(*c.other = 0, strncat(c.destination, c.text, c.size()))});
    contest("TQ_strappend", texts, CALL(TQ_strappend(c.destination, c.text)),
            Peer{"stpcpy", CALL(stpcpy(c.destination, c.text))});
    contest("TQANSI_memset", texts, CALL(TQANSI_memset(c.destination, c.value, c.size())),
            Peer{"memset", CALL(memset(c.destination, c.value, c.size()))});
}

void enterComparison() {
    const Workloads pairs = sized(fillPair);
    const Workloads bounded = sized(fillBoundedPair, shortAndLong);
    const Workloads folded = sized(fillFoldedPair, shortAndLong);
    contest("TQANSI_strcmp", pairs, CALL(Order{TQANSI_strcmp(c.text, c.other)}),
            Peer{"strcmp", CALL(Order{strcmp(c.text, c.other)})});
    contest("TQANSI_strncmp", bounded, CALL(Order{TQANSI_strncmp(c.text, c.other, c.count)}),
            Peer{"strncmp", CALL(Order{strncmp(c.text, c.other, c.size())})});
    contest("TQANSI_stricmp", folded, CALL(Order{TQANSI_stricmp(c.text, c.other)}),
            Peer{"strcasecmp", CALL(Order{strcasecmp(c.text, c.other)})});
    contest("TQANSI_strnicmp", folded, CALL(Order{TQANSI_strnicmp(c.text, c.other, c.count)}),
            Peer{"strncasecmp", CALL(Order{strncasecmp(c.text, c.other, c.size())})});
    contest("customStricmp", folded, CALL(customStricmp(c.text, c.other, tables.folded)),
            Peer{"plain", CALL(plain::compareCollated(c.text, c.other, tables.folded))});
    contest("TQANSI_memcmp", pairs, CALL(Order{TQANSI_memcmp(c.text, c.other, c.size())}),
            Peer{"memcmp", CALL(Order{memcmp(c.text, c.other, c.size())})});
}

void enterSearch() {
    const Workloads texts = sized(fillSought);
    const Workloads sets =
        joined({sized(fillSet("#;"), shortAndLong, "set2-"), sized(fillSet("#;/?"), shortAndLong, "set4-"),
                sized(fillSet("#;/?:@&=+$,%"), shortAndLong, "set12-"),
                sized(fillSet("#;/?:@&=+$,%0123456789"), shortAndLong, "set22-")});
    contest("TQANSI_strchr", texts, CALL(TQANSI_strchr(c.text, c.value)),
            Peer{"strchr", CALL(strchr(c.text, c.value))});
    contest("TQANSI_strrchr", joined({sized(fillSoughtLast), sized(fillAbsent, {256, 4096}, "absent-")}),
            CALL(TQANSI_strrchr(c.text, c.value)), Peer{"strrchr", CALL(strrchr(c.text, c.value))});
    contest("TQANSI_memchr", texts, CALL(TQANSI_memchr(c.text, c.value, c.size())),
            Peer{"memchr", CALL(memchr(c.text, c.value, c.size()))});
    contest("TQANSI_strpbrk", sets, CALL(TQANSI_strpbrk(c.text, c.other)),
            Peer{"strpbrk", CALL(strpbrk(c.text, c.other))});
    contest("TQANSI_strstr", substrings(exactCase), CALL(TQANSI_strstr(c.text, c.other)),
            Peer{"strstr", CALL(strstr(c.text, c.other))});
    contest("TQ_stristr", substrings(withRandomCase), CALL(TQ_stristr(c.text, c.other)),
            Peer{"strcasestr", CALL(strcasestr(c.text, c.other))});
}

void enterClasses() {
    const Workloads bytes = repeated("bytes", 2048, [](Workload &workload, Case &each) {
        each = {.count = 1 + workload.random(3), .value = workload.random(256)};
    });
    const Workloads words = sized(fillInPlace, shortAndLong);
    contest("TQANSI_toupper", bytes, CALL(TQANSI_toupper(c.value)), Peer{"toupper", CALL(toupper(c.value))});
    contest("TQANSI_isalpha", bytes, CALL(TQANSI_isalpha(c.value) != 0), Peer{"isalpha", CALL(isalpha(c.value) != 0)});
    contest("TQANSI_isdigit", bytes, CALL(TQANSI_isdigit(c.value) != 0), Peer{"isdigit", CALL(isdigit(c.value) != 0)});
    contest("TQ_isBlankLine", sized(fillBlanks, shortAndLong), CALL(TQ_isBlankLine(c.text) != 0),
            Peer{"plain", CALL(plain::isBlank(c.text))},
            Peer{"strspn", CALL(c.text[strspn(c.text, " \t\r\n\v\f")] == 0)});
    contest("TQ_isAttribute", bytes, CALL(TQ_isAttribute(c.size(), tables.classes, c.value) != 0),
            Peer{"plain", CALL(plain::hasAttribute(c.size(), tables.classes, c.value))});
    contest("TQ_convertZstring", words, CALL(TQ_convertZstring(tables.swapCase, c.destination), true),
            Peer{"plain", CALL(plain::convert(tables.swapCase, c.destination), true)});
}

}  // namespace

void enterStrings() {
    enterCopying();
    enterComparison();
    enterSearch();
    enterClasses();
}
