#include <strlib.h>

#include "detail/bytes.h"
#include "detail/scan.h"
#include "numbers/dialect.h"

using namespace strlib;

namespace {

// The bytes that a number takes at most, its NUL counted.
constexpr uint32_t largestBound = 11;

// The one way into the destination. What is stored always leaves a byte for the NUL.
class Output {
public:
    Output(char *destination, uint32_t size) : destination_(bytesOf(destination)), size_(size) {}

    bool hasRoomFor(size_t count) const { return count < size_ - count_; }

    void putByte(uint8_t byte) { destination_[count_++] = byte; }

    void putBytes(const uint8_t *bytes, uint32_t count) {
        for (uint32_t i = 0; i < count; ++i) destination_[count_ + i] = bytes[i];
        count_ += count;
    }

    void putNumber(int32_t value, uint32_t bound) {
        uint8_t *const at = destination_ + count_;
        const char *const text = TQANSI_itoa(value, charsOf(at), static_cast<int32_t>(bound), 10);
        if (text != nullptr) count_ += static_cast<uint32_t>(measure(at));
    }

    int32_t finish() {
        destination_[count_] = 0;
        return static_cast<int32_t>(count_ + 1);
    }

private:
    uint8_t *destination_;
    uint32_t size_;
    uint32_t count_ = 0;
};

bool isConversion(uint8_t letter) { return letter == 'd' || letter == 's' || letter == 'c'; }

void convertNumber(Output &output, int32_t value, int32_t width) {
    const uint32_t bound = width == noWidth ? largestBound : static_cast<uint32_t>(width);
    const uint32_t used = bound < largestBound ? bound : largestBound;
    if (output.hasRoomFor(used)) output.putNumber(value, used);
}

void convertString(Output &output, const char *string) {
    if (string == nullptr) return;
    const size_t length = measure(bytesOf(string));
    if (output.hasRoomFor(length)) output.putBytes(bytesOf(string), static_cast<uint32_t>(length));
}

void convertByte(Output &output, uint8_t byte) {
    if (output.hasRoomFor(1)) output.putByte(byte);
}

void convert(Output &output, uint8_t letter, int32_t width, intptr_t slot) {
    switch (letter) {
        case 'd': return convertNumber(output, static_cast<int32_t>(slot), width);
        case 's': return convertString(output, reinterpret_cast<const char *>(slot));
        default: return convertByte(output, lowByte(static_cast<uint32_t>(slot)));
    }
}

}  // namespace

int32_t TQ_sprintf(char *destination, uint32_t size, const char *format, const intptr_t *arguments) {
    if (destination == nullptr || format == nullptr) return 0;
    if (size == 0) return -1;
    Output output(destination, size);
    const uint8_t *at = bytesOf(format);
    while (*at != 0) {
        if (*at == directiveSign) {
            const int32_t width = readWidth(++at);
            if (isConversion(*at)) {
                convert(output, *at++, width, *arguments++);
                continue;
            }
            if (*at == 0) break;
        }
        if (!output.hasRoomFor(1)) break;
        const bool pair = at[0] == escapeSign && at[1] != 0;
        output.putByte(pair ? escaped(at[1]) : at[0]);
        at += pair ? 2 : 1;
    }
    return output.finish();
}
