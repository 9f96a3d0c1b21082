#include <strings.h>
#include <strlib.h>

#include <cctype>
#include <cstring>
#include <initializer_list>

#include "contest.h"
#include "plain.h"

namespace {

constexpr char sought = '#';
constexpr std::initializer_list<std::size_t> shortAndLong{mix, 64, 256, 4096};

uint32_t length(int32_t count) { return static_cast<uint32_t>(count); }

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
    each.destination = workload.second(prose(workload, length(each.value)), 32 + size);
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
    if (size > 0 && size <= 32 && once(workload, 2)) other[length(workload.random(static_cast<int32_t>(size)))] = '~';
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
void fillSought(Workload &workload, std::size_t size, Case &each, char byte = sought) {
    std::string text = prose(workload, size);
    if (size > 32) text.back() = byte;
    if (size > 0 && size <= 32 && !once(workload, 4)) text[length(workload.random(static_cast<int32_t>(size)))] = byte;
    each.text = workload.source(text);
    each.count = static_cast<int32_t>(size);
    each.value = byte;
}

/** As in paths: the byte sought stands at several places, of which the last is near the end. */
void fillSoughtLast(Workload &workload, std::size_t size, Case &each) {
    std::string text = prose(workload, size);
    const auto tail = static_cast<int32_t>(size < 32 ? size : 32);
    for (std::size_t at = 20; at < size; at += 100) text[at] = sought;
    if (size > 0 && !once(workload, 4)) text[size - 1 - length(workload.random(tail))] = sought;
    each.text = workload.source(text);
    each.value = sought;
}

void fillAbsent(Workload &workload, std::size_t size, Case &each) {
    fillText(workload, size, each);
    each.value = sought;
}

Fill fillSet(const char *set) {
    return [=](Workload &workload, std::size_t size, Case &each) {
        const auto members = static_cast<int32_t>(std::strlen(set));
        fillSought(workload, size, each, set[length(workload.random(members))]);
        each.other = workload.second(set);
    };
}

void fillBlanks(Workload &workload, std::size_t size, Case &each) {
    std::string text(size, ' ');
    for (char &blank : text) blank = " \t\r\n"[length(workload.random(4))];
    if (size > 0 && size <= 32 && once(workload, 2)) text.back() = 'x';
    each.text = workload.source(text);
}

/** Haystacks and needles in which the needle stands at the end of the text, or not at all. */
Workloads substrings(bool anyCase) {
    const auto place = [=](Workload &workload, Case &each, const std::string &text, const std::string &needle) {
        each.text = workload.source(anyCase ? withRandomCase(workload, text) : text);
        each.other = workload.second(anyCase ? withRandomCase(workload, needle) : needle);
    };
    const auto repeat = [](std::size_t times, const std::string &piece) {
        std::string text;
        while (times-- > 0) text += piece;
        return text;
    };
    const Fill inProse = [=](Workload &workload, std::size_t size, Case &each) {
        static constexpr const char *needles[] = {"thereafter", "instead", "on a whim", "zenith"};
        const std::string needle = size <= 32 ? "the" : needles[workload.random(4)];
        place(workload, each, prose(workload, size) + (size <= 32 && once(workload, 2) ? "" : needle), needle);
    };
    return joined({sized(inProse, {mix, 256, 4096, 65536}, "prose-"),
                   repeated("long-needle-16384", 2,
                            [=](Workload &workload, Case &each) {
                                const std::string text = prose(workload, 16384);
                                place(workload, each, text, text.substr(text.size() - 1000));
                            }),
                   repeated("periodic-4096", 2,
                            [=](Workload &workload, Case &each) {
                                place(workload, each, std::string(4096, 'a') + 'b', std::string(31, 'a') + 'b');
                            }),
                   repeated("adversarial-4096", 2, [=](Workload &workload, Case &each) {
                       place(workload, each, repeat(64, std::string(63, 'a') + 'b'), std::string(64, 'a'));
                   })});
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

void enterCopying() {
    const Workloads texts = sized(fillText);
    const Workloads bounded = sized(fillBounded, shortAndLong);
    const Workloads appended = inTurn(sized(fillAppended, shortAndLong));
    contest(
        "TQANSI_strlen", texts, [](const Case &c) { return TQANSI_strlen(c.text); },
        Contender{"strlen", [](const Case &c) { return static_cast<int32_t>(strlen(c.text)); }});
    contest(
        "TQANSI_strcpy", texts, [](const Case &c) { return TQANSI_strcpy(c.destination, c.text); },
        Contender{"strcpy", [](const Case &c) { return strcpy(c.destination, c.text); }});
    contest(
        "TQ_strappend", texts, [](const Case &c) { return TQ_strappend(c.destination, c.text); },
        Contender{"stpcpy", [](const Case &c) { return stpcpy(c.destination, c.text); }});
    contest(
        "TQANSI_memset", texts, [](const Case &c) { return TQANSI_memset(c.destination, c.value, length(c.count)); },
        Contender{"memset", [](const Case &c) { return memset(c.destination, c.value, length(c.count)); }});
    contest(
        "TQANSI_strncpy", bounded, [](const Case &c) { return TQANSI_strncpy(c.destination, c.text, c.count); },
        Contender{"strncpy",
                  [](const Case &c) {
                      strncpy(c.destination, c.text, length(c.count))[c.count] = 0;
                      return c.destination;
                  }},
        Contender{"memccpy", [](const Case &c) {
                      const void *const end = memccpy(c.destination, c.text, 0, length(c.count));
                      if (end == nullptr) c.destination[c.count] = 0;
                      return c.destination;
                  }});
    contest(
        "TQANSI_strcat", appended,
        [](const Case &c) {
            *c.other = 0;
            return TQANSI_strcat(c.destination, c.text);
        },
        Contender{"strcat", [](const Case &c) {
                      *c.other = 0;
                      return strcat(c.destination, c.text);
                  }});
    contest(
        "TQANSI_strncat", appended,
        [](const Case &c) {
            *c.other = 0;
            return TQANSI_strncat(c.destination, c.text, c.count);
        },
        Contender{"strncat", [](const Case &c) {
                      *c.other = 0;
                      return strncat(c.destination, c.text, length(c.count));
                  }});
}

void enterComparison() {
    const Workloads pairs = sized(fillPair);
    const Workloads bounded = sized(fillBoundedPair, shortAndLong);
    const Workloads folded = sized(fillFoldedPair, shortAndLong);
    contest(
        "TQANSI_strcmp", pairs, [](const Case &c) { return Order{TQANSI_strcmp(c.text, c.other)}; },
        Contender{"strcmp", [](const Case &c) { return Order{strcmp(c.text, c.other)}; }});
    contest(
        "TQANSI_strncmp", bounded, [](const Case &c) { return Order{TQANSI_strncmp(c.text, c.other, c.count)}; },
        Contender{"strncmp", [](const Case &c) { return Order{strncmp(c.text, c.other, length(c.count))}; }});
    contest(
        "TQANSI_memcmp", pairs, [](const Case &c) { return Order{TQANSI_memcmp(c.text, c.other, length(c.count))}; },
        Contender{"memcmp", [](const Case &c) { return Order{memcmp(c.text, c.other, length(c.count))}; }});
    contest(
        "TQANSI_stricmp", folded, [](const Case &c) { return Order{TQANSI_stricmp(c.text, c.other)}; },
        Contender{"strcasecmp", [](const Case &c) { return Order{strcasecmp(c.text, c.other)}; }});
    contest(
        "TQANSI_strnicmp", folded, [](const Case &c) { return Order{TQANSI_strnicmp(c.text, c.other, c.count)}; },
        Contender{"strncasecmp", [](const Case &c) { return Order{strncasecmp(c.text, c.other, length(c.count))}; }});
    contest(
        "customStricmp", folded, [](const Case &c) { return customStricmp(c.text, c.other, tables.folded); },
        Contender{"plain", [](const Case &c) { return plain::compareCollated(c.text, c.other, tables.folded); }});
}

void enterSearch() {
    const Fill any = [](Workload &workload, std::size_t size, Case &each) { fillSought(workload, size, each); };
    contest(
        "TQANSI_strchr", sized(any), [](const Case &c) { return TQANSI_strchr(c.text, c.value); },
        Contender{"strchr", [](const Case &c) { return strchr(c.text, c.value); }});
    contest(
        "TQANSI_strrchr", joined({sized(fillSoughtLast), sized(fillAbsent, {256, 4096}, "absent-")}),
        [](const Case &c) { return TQANSI_strrchr(c.text, c.value); },
        Contender{"strrchr", [](const Case &c) { return strrchr(c.text, c.value); }});
    contest(
        "TQANSI_memchr", sized(any), [](const Case &c) { return TQANSI_memchr(c.text, c.value, length(c.count)); },
        Contender{"memchr", [](const Case &c) { return memchr(c.text, c.value, length(c.count)); }});
    contest(
        "TQANSI_strpbrk",
        joined({sized(fillSet("#;"), shortAndLong, "set2-"), sized(fillSet("#;/?"), shortAndLong, "set4-"),
                sized(fillSet("#;/?:@&=+$,%"), shortAndLong, "set12-"),
                sized(fillSet("#;/?:@&=+$,%0123456789"), shortAndLong, "set22-")}),
        [](const Case &c) { return TQANSI_strpbrk(c.text, c.other); },
        Contender{"strpbrk", [](const Case &c) { return strpbrk(c.text, c.other); }});
    contest(
        "TQANSI_strstr", substrings(false), [](const Case &c) { return TQANSI_strstr(c.text, c.other); },
        Contender{"strstr", [](const Case &c) { return strstr(c.text, c.other); }});
    contest(
        "TQ_stristr", substrings(true), [](const Case &c) { return TQ_stristr(c.text, c.other); },
        Contender{"strcasestr", [](const Case &c) { return strcasestr(c.text, c.other); }});
}

void enterClasses() {
    const Workloads bytes = repeated("bytes", 2048, [](Workload &workload, Case &each) {
        each = {.count = 1 + workload.random(3), .value = workload.random(256)};
    });
    const Fill mapped = [](Workload &workload, std::size_t size, Case &each) {
        each.destination = workload.second(withRandomCase(workload, prose(workload, size)));
    };
    contest(
        "TQANSI_toupper", bytes, [](const Case &c) { return TQANSI_toupper(c.value); },
        Contender{"toupper", [](const Case &c) { return toupper(c.value); }});
    contest(
        "TQANSI_isalpha", bytes, [](const Case &c) { return TQANSI_isalpha(c.value) != 0; },
        Contender{"isalpha", [](const Case &c) { return isalpha(c.value) != 0; }});
    contest(
        "TQANSI_isdigit", bytes, [](const Case &c) { return TQANSI_isdigit(c.value) != 0; },
        Contender{"isdigit", [](const Case &c) { return isdigit(c.value) != 0; }});
    contest(
        "TQ_isAttribute", bytes,
        [](const Case &c) { return TQ_isAttribute(length(c.count), tables.classes, c.value) != 0; },
        Contender{"plain",
                  [](const Case &c) { return plain::hasAttribute(length(c.count), tables.classes, c.value); }});
    contest(
        "TQ_isBlankLine", sized(fillBlanks, shortAndLong), [](const Case &c) { return TQ_isBlankLine(c.text) != 0; },
        Contender{"plain", [](const Case &c) { return plain::isBlank(c.text); }},
        Contender{"strspn", [](const Case &c) { return c.text[strspn(c.text, " \t\r\n\v\f")] == 0; }});
    contest(
        "TQ_convertZstring", sized(mapped, shortAndLong),
        [](const Case &c) {
            TQ_convertZstring(tables.swapCase, c.destination);
            return true;
        },
        Contender{"plain", [](const Case &c) {
                      plain::convert(tables.swapCase, c.destination);
                      return true;
                  }});
}

}  // namespace

void enterStrings() {
    enterCopying();
    enterComparison();
    enterSearch();
    enterClasses();
}
