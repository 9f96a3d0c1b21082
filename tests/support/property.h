#ifndef TESTS_SUPPORT_PROPERTY_H
#define TESTS_SUPPORT_PROPERTY_H

#include <strlib.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <vector>

#include "choices.h"
#include "memory.h"
#include "model.h"

namespace tests {

// A routine's result, its out-parameters and every byte that it may or must not write equal the model's. A property
// throws where they do not. Defined at namespace scope, it is one of those that the drivers run.
class Property {
public:
    Property(const char *ofName, void (*check)(Choices &)) : name(ofName), check_(check) { all().push_back(this); }

    static std::vector<const Property *> &all() {
        static std::vector<const Property *> properties;
        return properties;
    }

    // Tells what fails, and the arguments of the last call.
    bool holds(Choices &choices) const;

    const char *const name;

private:
    void (*const check_)(Choices &choices);
};

// One byte of each class that some routine tells apart.
inline constexpr std::string_view alphabet("aAbz0 \n\r\x7F\x80\xC3\xFF", 12);

void require(bool holds, const char *what);
void requireEqual(int64_t actual, int64_t expected, const char *what);
void requirePosition(const char *result, const char *start, size_t expected);
// Whether a region holds these bytes, and nothing else than filler around them.
void requireBytes(int index, const std::string &expected);

// Whether a region, of which so many bytes may hold anything, holds nothing but filler around them.
void requireNothingAround(int index, size_t size);

// Places a string and its NUL. Each argument has a region of its own.
char *string(Choices &choices, int index, const std::string &bytes);

// Places what a routine may read of a string when it stops at `count` bytes: no NUL unless it comes first.
char *bounded(Choices &choices, int index, const std::string &bytes, int64_t count);

// The text without bytes of the set but, most times, a single one at any place.
void plant(Choices &choices, std::string &text, const std::string &set);

// The same text with one letter in so many in the other case.
std::string recased(Choices &choices, std::string text, uint32_t oneIn);

// A number with whatever may stand around it.
std::string numeral(Choices &choices);

}  // namespace tests

#endif
