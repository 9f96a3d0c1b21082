// Runs the properties: strlib_properties small|random [NAME]. A program of its own without the test framework:
// MemorySanitizer takes what compiled libraries have written for uninitialised.

#include <cstdio>
#include <cstring>

#include "support/property.h"

using namespace tests;

namespace {

bool holdsForSmall(const Property &property) {
    uint64_t cases = 0;
    Enumeration choices;
    do {
        if (!property.holds(choices)) return false;
        ++cases;
    } while (choices.advance());
    std::printf("%s: all %llu small cases\n", property.name, static_cast<unsigned long long>(cases));
    return true;
}

// Whether the rounds came to what they are meant to come to, none of them left early.
bool areTelling(const Choices &choices, uint32_t rounds) {
    bool good = !choices.outcomes().empty();
    for (const Outcome &outcome : choices.outcomes()) {
        const double share = 100.0 * outcome.reached / rounds;
        const bool enough = outcome.told == rounds && share >= outcome.percent;
        std::printf("%s%6.1f %% of at least %u: %s\n", enough ? "  " : "FAILED", share, outcome.percent, outcome.name);
        if (outcome.told != rounds) std::printf("  told in %u rounds only\n", outcome.told);
        good = good && enough;
    }
    return good;
}

// Long inputs at all alignments and page ends.
bool holdsForRandom(const Property &property) {
    const uint32_t rounds = byDepth(2000, 40000, 2000000);
    Random choices(20221);
    for (uint32_t round = 0; round < rounds; ++round) {
        if (!property.holds(choices)) return false;
    }
    std::printf("%s: %u rounds\n", property.name, rounds);
    return areTelling(choices, rounds);
}

}  // namespace

int main(int count, char **arguments) {
    const bool small = count >= 2 && std::strcmp(arguments[1], "small") == 0;
    if (count < 2 || count > 3 || (!small && std::strcmp(arguments[1], "random") != 0)) {
        std::fprintf(stderr, "usage: strlib_properties small|random [NAME]\n");
        return 2;
    }
    uint32_t run = 0;
    uint32_t failed = 0;
    for (const Property *property : Property::all()) {
        if (count == 3 && std::strcmp(property->name, arguments[2]) != 0) continue;
        ++run;
        failed += !(small ? holdsForSmall(*property) : holdsForRandom(*property));
    }
    std::printf("%u properties, %u failed\n", run, failed);
    return run != 0 && failed == 0 ? 0 : 1;
}
