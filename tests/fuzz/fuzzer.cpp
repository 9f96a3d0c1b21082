#include <cstdio>

#include "support/property.h"

namespace {

// The fuzzer's bytes as choices; zeros once they are used up.
class Bytes : public tests::Stream {
public:
    Bytes(const uint8_t *data, size_t size) : data_(data), end_(data + size) {}

    uint32_t below(uint32_t bound) override {
        uint32_t value = 0;
        for (uint32_t range = 1; range < bound && data_ != end_; range = range > 0xFFFFFF ? bound : range * 256) {
            value = value * 256 + *data_++;
        }
        return value % bound;
    }

private:
    const uint8_t *data_;
    const uint8_t *end_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    Bytes choices(data, size);
    const tests::Property &property = *choices.pick(tests::Property::all());
    try {
        property.check(choices);
    } catch (const std::exception &failure) {
        std::fprintf(stderr, "%s: %s%s\n", property.name, failure.what(), tests::lastArguments().c_str());
        std::abort();
    }
    return 0;
}
