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
char *sharedRoom(Workload &workload, std::size_t size) {
    char *const first = workload.cases.front().destination;
    return first == nullptr ? workload.second("", size) : first;
}

Workloads integers(const std::string &name, int32_t digits) {
    return repeated(name, 2048, [=](Workload &workload, Case &each) {
        each.value = numberOf(workload, digits);
        const std::string text = std::to_string(each.value);
        each.text = workload.source(text);
        each.count = static_cast<int32_t>(text.size());
        each.destination = sharedRoom(workload, 16);
    });
}

/** What a log line is made of: a word, some text and two numbers. */
Workloads fields(const std::string &name) {
    return repeated(name, 1024, [](Workload &workload, Case &each) {
        each.text = workload.source(prose(workload, static_cast<std::size_t>(4 + workload.random(12))));
        each.other = workload.source(prose(workload, static_cast<std::size_t>(workload.random(32))));
        each.destination = sharedRoom(workload, room);
        each.count = numberOf(workload, 4);
        each.value = numberOf(workload, 9);
    });
}

/** Texts for formatted input. Words hold no blanks. */
Workloads inputs(const std::string &name, const std::function<std::string(Workload &)> &text) {
    return repeated(name, 1024, [&](Workload &workload, Case &each) {
        each.text = workload.source(text(workload));
        each.destination = sharedRoom(workload, 2 * room);
    });
}

std::string word(Workload &workload) {
    return std::string(static_cast<std::size_t>(1 + workload.random(12)), static_cast<char>('a' + workload.random(26)));
}

void enterIntegers() {
    const Workloads decimal = joined({integers("short", 2), integers("mixed", 10)});
    contest(
        "TQANSI_atoi", decimal, [](const Case &c) { return TQANSI_atoi(c.text); },
        Contender{"from_chars",
                  [](const Case &c) {
                      int32_t value = 0;
                      std::from_chars(c.text, c.text + c.count, value);
                      return value;
                  }},
        Contender{"atoi", [](const Case &c) { return atoi(c.text); }});
    contest(
        "TQANSI_itoa", decimal, [](const Case &c) { return TQANSI_itoa(c.value, c.destination, 12, 10); },
        Contender{"to_chars",
                  [](const Case &c) {
                      *std::to_chars(c.destination, c.destination + 11, c.value).ptr = 0;
                      return c.destination;
                  }},
        Contender{"snprintf", [](const Case &c) {
                      snprintf(c.destination, 12, "%d", c.value);
                      return c.destination;
                  }});
    const Workloads magnitudes = repeated("radix-16", 2048, [](Workload &workload, Case &each) {
        each.value = std::abs(numberOf(workload, 10));
        each.destination = sharedRoom(workload, 16);
    });
    contest(
        "TQANSI_itoa", magnitudes, [](const Case &c) { return TQANSI_itoa(c.value, c.destination, 12, 16); },
        Contender{"snprintf",
                  [](const Case &c) {
                      snprintf(c.destination, 12, "%X", static_cast<uint32_t>(c.value));
                      return c.destination;
                  }},
        Contender{"fmt", [](const Case &c) {
                      *fmt::format_to_n(c.destination, 11, "{:X}", c.value).out = 0;
                      return c.destination;
                  }});
}

/** One format in the three dialects. Each call returns the length of its text. */
void enterOutput(const std::string &name, const auto &ours, const auto &formatTo, const auto &print) {
    contest("TQ_sprintf", fields(name), ours,
            Contender{"fmt",
                      [=](const Case &c) {
                          const auto written = formatTo(c);
                          *written.out = 0;
                          return static_cast<int32_t>(written.size);
                      }},
            Contender{"snprintf", print});
}

void enterFormattedOutput() {
    enterOutput(
        "number",
        [](const Case &c) {
            const intptr_t arguments[] = {c.value};
            return TQ_sprintf(c.destination, room, "%d", arguments) - 1;
        },
        [](const Case &c) { return fmt::format_to_n(c.destination, room - 1, "{}", c.value); },
        [](const Case &c) { return snprintf(c.destination, room, "%d", c.value); });
    enterOutput(
        "strings",
        [](const Case &c) {
            const intptr_t arguments[] = {slot(c.text), slot(c.other)};
            return TQ_sprintf(c.destination, room, "Content %s: %s.", arguments) - 1;
        },
        [](const Case &c) { return fmt::format_to_n(c.destination, room - 1, "Content {}: {}.", c.text, c.other); },
        [](const Case &c) { return snprintf(c.destination, room, "Content %s: %s.", c.text, c.other); });
    enterOutput(
        "fields",
        [](const Case &c) {
            const intptr_t arguments[] = {slot(c.text), c.count, slot(c.other), 'x', c.value};
            return TQ_sprintf(c.destination, room, "%s (%d): %s; %c=%d", arguments) - 1;
        },
        [](const Case &c) {
            return fmt::format_to_n(c.destination, room - 1, "{} ({}): {}; {}={}", c.text, c.count, c.other, 'x',
                                    c.value);
        },
        [](const Case &c) {
            return snprintf(c.destination, room, "%s (%d): %s; %c=%d", c.text, c.count, c.other, 'x', c.value);
        });
}

void enterFormattedInput() {
    const Workloads numbers = inputs("numbers", [](Workload &workload) {
        return std::to_string(numberOf(workload, 9)) + ' ' + std::to_string(numberOf(workload, 4));
    });
    contest(
        "TQ_sscanf", numbers,
        [](const Case &c) {
            int32_t first = 0, second = 0;
            const intptr_t arguments[] = {slot(&first), slot(&second)};
            return TQ_sscanf(c.text, "%i %i", arguments) + int64_t{first} + second;
        },
        Contender{"sscanf", [](const Case &c) {
                      int32_t first = 0, second = 0;
                      return sscanf(c.text, "%d %d", &first, &second) + int64_t{first} + second;
                  }});
    const Workloads pairs =
        inputs("key-value", [](Workload &workload) { return word(workload) + '=' + word(workload); });
    contest(
        "TQ_sscanf", pairs,
        [](const Case &c) {
            const intptr_t arguments[] = {slot(c.destination), slot(c.destination + room)};
            return TQ_sscanf(c.text, "%64[^=]=%64s", arguments);
        },
        Contender{"sscanf",
                  [](const Case &c) { return sscanf(c.text, "%63[^=]=%63s", c.destination, c.destination + room); }});
    const Workloads mixed = inputs("fields", [](Workload &workload) {
        return word(workload) + ' ' + std::to_string(numberOf(workload, 9)) + ",x " +
               std::to_string(std::abs(numberOf(workload, 4)));
    });
    contest(
        "TQ_sscanf", mixed,
        [](const Case &c) {
            int32_t first = 0;
            uint32_t second = 0;
            char mark = 0;
            const intptr_t arguments[] = {slot(c.destination), slot(&first), slot(&mark), slot(&second)};
            return TQ_sscanf(c.text, "%64s %i,%c %u", arguments) + int64_t{first} + mark + second;
        },
        Contender{"sscanf", [](const Case &c) {
                      int32_t first = 0;
                      uint32_t second = 0;
                      char mark = 0;
                      return sscanf(c.text, "%63s %d,%c %u", c.destination, &first, &mark, &second) + int64_t{first} +
                             mark + second;
                  }});
}

}  // namespace

void enterNumbers() {
    enterIntegers();
    enterFormattedOutput();
    enterFormattedInput();
}
