#ifndef TESTS_PROPERTIES_H
#define TESTS_PROPERTIES_H

#include <span>

#include "support/choices.h"

namespace tests {

// A routine's result, its out-parameters and every byte that it may or must not write equal the model's. A property
// throws where they do not.
struct Property {
    const char *name;
    void (*check)(Choices &choices);
};

std::span<const Property> properties();

// The bytes of the arguments of the last call, to tell a failure by.
std::string lastArguments();

}  // namespace tests

#endif
