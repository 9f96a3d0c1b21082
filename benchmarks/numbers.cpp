#include <fmt/format.h>
#include <strlib.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>

#include "contest.h"

namespace {

constexpr int32_t room = 128;

template <class Pointer>
intptr_t slot(Pointer *pointer) {
    return reinterpret_cast<intptr_t>(pointer);
}

/** A number of 1 to so many digits, each count as likely as the others, a quarter of them negative. */
int32_t numberOf(Workload &workload, int32_t digits) {
    int64_t limit = 1;
    for (int32_t left = 1 + workload.random(digits); left > 0; --left) limit *= 10;
    const int64_t least = limit == 10 ? 0 : limit / 10;
    const int64_t most = limit > 2147483647 ? 2147483647 : limit;
    const auto magnitude = static_cast<int32_t>(least + workload.random(static_cast<int32_t>(most - least)));
    return workload.random(4) == 0 ? -magnitude : magnitude;
}

/** All cases write to one place, or the destinations alone would fill the cache. */
char *sharedRoom(Workload &workload) {
    char *const first = workload.cases.front().destination;
    return first == nullptr ? workload.second("", 2 * room) : first;
}

Workloads integers(const std::string &name, int32_t digits) {
    return repeated(name, 2048, [=](Workload &workload, Case &each) {
        each.value = numberOf(workload, digits);
        const std::string text = std::to_string(each.value);
        each.text = workload.source(text);
        each.count = static_cast<int32_t>(text.size());
        each.destination = sharedRoom(workload);
    });
}

/** What a log line is made of: a word, some text and two numbers. */
Workloads logged(const std::string &name) {
    return repeated(name, 1024, [](Workload &workload, Case &each) {
        each.text = workload.source(prose(workload, static_cast<std::size_t>(4 + workload.random(12))));
        each.other = workload.source(prose(workload, static_cast<std::size_t>(workload.random(32))));
        each.destination = sharedRoom(workload);
        each.count = numberOf(workload, 4);
        each.value = numberOf(workload, 9);
    });
}

/** Texts for formatted input. Words hold no blanks. */
Workloads inputs(const std::string &name, const std::function<std::string(Workload &)> &text) {
    return repeated(name, 1024, [&](Workload &workload, Case &each) {
        each.text = workload.source(text(workload));
        each.destination = sharedRoom(workload);
    });
}

std::string word(Workload &workload) {
    return std::string(static_cast<std::size_t>(1 + workload.random(12)), static_cast<char>('a' + workload.random(26)));
}

int32_t fromChars(const char *text, int32_t size) {
    int32_t value = 0;
    std::from_chars(text, text + size, value);
    return value;
}

int32_t terminated(const fmt::format_to_n_result<char *> &written) {
    *written.out = 0;
    return static_cast<int32_t>(written.size);
}

/** A vector of arguments as our formats take it. */
template <class... Slots>
int32_t format(char *destination, const char *text, Slots... slots) {
    const intptr_t arguments[] = {slots...};
    return TQ_sprintf(destination, room, text, arguments) - 1;
}

template <class... Slots>
int32_t scan(const char *input, const char *text, Slots... slots) {
    const intptr_t arguments[] = {slots...};
    return TQ_sscanf(input, text, arguments);
}

/** The fields of a line of input; the sum is without use but for the comparison of results. */
struct Fields {
    int32_t first = 0, second = 0;
    char mark = 0;
    int64_t sum(int32_t conversions) const { return int64_t{first} + second + mark + conversions; }
};

void enterIntegers() {
    const Workloads decimal = joined({integers("short", 2), integers("mixed", 10)});
    const Workloads magnitudes = repeated("radix-16", 2048, [](Workload &workload, Case &each) {
        each.value = std::abs(numberOf(workload, 10));
        each.destination = sharedRoom(workload);
    });
    contest("TQANSI_atoi", decimal, CALL(TQANSI_atoi(c.text)), Peer{"from_chars", CALL(fromChars(c.text, c.count))},
            Peer{"atoi", CALL(atoi(c.text))});
    contest("TQANSI_itoa", decimal, CALL(TQANSI_itoa(c.value, c.destination, 12, 10) != nullptr),
            Peer{"to_chars", CALL(*std::to_chars(c.destination, c.destination + 11, c.value).ptr = 0, true)},
            Peer{"snprintf", CALL(snprintf(c.destination, 12, "%d", c.value) > 0)});
    contest("TQANSI_itoa", magnitudes, CALL(TQANSI_itoa(c.value, c.destination, 12, 16) != nullptr),
            Peer{"fmt", CALL(terminated(fmt::format_to_n(c.destination, 11, "{:X}", c.value)) > 0)},
            Peer{"snprintf", CALL(snprintf(c.destination, 12, "%X", static_cast<uint32_t>(c.value)) > 0)});
}

void enterFormattedOutput() {
    contest("TQ_sprintf", logged("number"), CALL(format(c.destination, "%d", c.value)),
            Peer{"fmt", CALL(terminated(fmt::format_to_n(c.destination, room - 1, "{}", c.value)))},
            Peer{"snprintf", CALL(snprintf(c.destination, room, "%d", c.value))});
    contest(
        "TQ_sprintf", logged("strings"), CALL(format(c.destination, "Content %s: %s.", slot(c.text), slot(c.other))),
        Peer{"fmt", CALL(terminated(fmt::format_to_n(c.destination, room - 1, "Content {}: {}.", c.text, c.other)))},
        Peer{"snprintf", CALL(snprintf(c.destination, room, "Content %s: %s.", c.text, c.other))});
    contest("TQ_sprintf", logged("fields"),
            CALL(format(c.destination, "%s (%d): %s; %c=%d", slot(c.text), c.count, slot(c.other), 'x', c.value)),
            Peer{"fmt", CALL(terminated(fmt::format_to_n(c.destination, room - 1, "{} ({}): {}; {}={}", c.text, c.count,
                                                         c.other, 'x', c.value)))},
            Peer{"snprintf",
                 CALL(snprintf(c.destination, room, "%s (%d): %s; %c=%d", c.text, c.count, c.other, 'x', c.value))});
}

int64_t ourNumbers(const Case &c) {
    Fields got;
    return got.sum(scan(c.text, "%i %i", slot(&got.first), slot(&got.second)));
}

int64_t peerNumbers(const Case &c) {
    Fields got;
    return got.sum(sscanf(c.text, "%d %d", &got.first, &got.second));
}

int64_t ourFields(const Case &c) {
    Fields got;
    return got.sum(
        scan(c.text, "%64s %i,%c %i", slot(c.destination), slot(&got.first), slot(&got.mark), slot(&got.second)));
}

int64_t peerFields(const Case &c) {
    Fields got;
    return got.sum(sscanf(c.text, "%63s %d,%c %d", c.destination, &got.first, &got.mark, &got.second));
}

void enterFormattedInput() {
    const Workloads numbers = inputs("numbers", [](Workload &workload) {
        return std::to_string(numberOf(workload, 9)) + ' ' + std::to_string(numberOf(workload, 4));
    });
    const Workloads pairs =
        inputs("key-value", [](Workload &workload) { return word(workload) + '=' + word(workload); });
    const Workloads fields = inputs("fields", [](Workload &workload) {
        return word(workload) + ' ' + std::to_string(numberOf(workload, 9)) + ",x " +
               std::to_string(numberOf(workload, 4));
    });
    contest("TQ_sscanf", numbers, ourNumbers, Peer{"sscanf", peerNumbers});
    contest("TQ_sscanf", pairs,
            CALL(scan(c.text, "%64[^=]=%64s", slot(c.destination), slot(c.destination + room)) + c.destination[room]),
            Peer{"sscanf",
                 CALL(sscanf(c.text, "%63[^=]=%63s", c.destination, c.destination + room) + c.destination[room])});
    contest("TQ_sscanf", fields, ourFields, Peer{"sscanf", peerFields});
}

}  // namespace

void enterNumbers() {
    enterIntegers();
    enterFormattedOutput();
    enterFormattedInput();
}
