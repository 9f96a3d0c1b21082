#include "support/property.h"

namespace {

// The fuzzer's bytes as choices; zeros once they are used up.
class Bytes : public tests::Stream {
public:
    Bytes(const uint8_t *data, size_t size) : data_(data), end_(data + size) {}

    uint32_t below(uint64_t bound) override {
        uint64_t value = 0;
        for (uint64_t range = 1; range < bound && data_ != end_; range *= 256) value = value * 256 + *data_++;
        return static_cast<uint32_t>(value % bound);
    }

private:
    const uint8_t *data_;
    const uint8_t *end_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    Bytes choices(data, size);
    if (!choices.pick(tests::Property::all())->holds(choices)) std::abort();
    return 0;
}
