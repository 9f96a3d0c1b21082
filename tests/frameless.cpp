// The properties on random inputs without the test framework: MemorySanitizer takes what compiled libraries have
// written for uninitialised, and the framework uses such.

#include <cstdio>

#include "properties.h"

int main() {
    for (const tests::Property &property : tests::properties()) {
        tests::Random choices(20221);
        for (uint32_t round = 0; round < 20000; ++round) {
            try {
                property.check(choices);
            } catch (const std::exception &failure) {
                std::printf("%s: %s%s\n", property.name, failure.what(), tests::lastArguments().c_str());
                return 1;
            }
        }
    }
    std::printf("%zu properties hold\n", tests::properties().size());
    return 0;
}
