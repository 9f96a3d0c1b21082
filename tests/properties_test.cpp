#include "properties.h"

#include <doctest/doctest.h>

#include <iostream>

namespace tests {

namespace {

void check(const Property &property, Choices &choices) {
    try {
        property.check(choices);
    } catch (const std::exception &failure) {
        const std::string told = std::string(property.name) + ": " + failure.what() + lastArguments();
        FAIL(told);
    }
}

}  // namespace

TEST_CASE("every property holds for all small inputs") {
    for (const Property &property : properties()) {
        uint64_t cases = 0;
        Enumeration choices;
        do {
            check(property, choices);
            ++cases;
        } while (choices.advance());
        std::cout << "  " << property.name << ": all " << cases << " small cases\n";
    }
}

TEST_CASE("every property holds for long random inputs at all alignments and page ends") {
    const uint32_t rounds = depthShift() < 0 ? 2000 : depthShift() == 0 ? 40000 : 2000000;
    for (const Property &property : properties()) {
        Random choices(20221);
        for (uint32_t i = 0; i < rounds; ++i) check(property, choices);
    }
}

}  // namespace tests
