#include <strlib.h>

#include "core/dialect.h"
#include "core/digits.h"

using namespace strlib;

namespace {

// The bytes that a number takes at most, its NUL counted.
constexpr uint32_t largestBound = 11;

bool isPlain(uint8_t byte) {
    switch (byte) {
        case 0:
        case directiveSign:
        case escapeSign: return false;
        default: return true;
    }
}

// What ends a run of plain bytes.
struct Signs {
    block::Flags operator()(block::Block bytes) const {
        const block::Flags percents = block::equals(bytes, block::splat(directiveSign));
        const block::Flags escapes = block::equals(bytes, block::splat(escapeSign));
        return static_cast<block::Flags>(percents | escapes | block::zeros(bytes));
    }
};

// The one way into the destination. What is stored always leaves a byte for the NUL.
class Output {
public:
    Output(char *destination, uint32_t size) : first_(bytesOf(destination)), at_(first_), room_(size - 1) {}

    bool hasRoomFor(size_t count) const { return count <= room_; }

    void putByte(uint8_t byte) {
        *at_ = byte;
        advance(1);
    }

    void putBytes(const uint8_t *bytes, size_t count) {
        copyPiece(at_, bytes, count);
        advance(count);
    }

    // Puts plain bytes and gives the first that is none or has no room. Blocks are worth it from four bytes on.
    const uint8_t *putPlain(const uint8_t *format) {
        for (; isPlain(format[0]) && room_ != 0; ++format) {
            if (block::size > 1 && isPlain(format[1]) && isPlain(format[2]) && isPlain(format[3])) {
                const size_t count = scanUpTo<Steps::blocks>(format, room_, Signs());
                putBytes(format, count);
                return format + count;
            }
            putByte(format[0]);
        }
        return format;
    }

    void putNumber(int32_t value, uint32_t bound) {
        if (TQANSI_itoa(value, charsOf(at_), static_cast<int32_t>(bound), 10) != nullptr)
            advance(block::sizeCountsMore ? measure<Steps::blocks>(at_) : decimalLength(value));
    }

    int32_t finish() {
        *at_ = 0;
        return static_cast<int32_t>(at_ - first_ + 1);
    }

private:
    void advance(size_t count) {
        at_ += count;
        room_ -= count;
    }

    uint8_t *first_;
    uint8_t *at_;
    size_t room_;
};

void convertNumber(Output &output, int32_t value, uint32_t width) {
    const uint32_t used = width < largestBound ? width : largestBound;
    if (output.hasRoomFor(used)) output.putNumber(value, used);
}

void convertString(Output &output, const char *string) {
    if (string == nullptr) return;
    const size_t length = measure<Steps::blocks>(bytesOf(string));
    if (output.hasRoomFor(length)) output.putBytes(bytesOf(string), length);
}

void convertByte(Output &output, uint8_t byte) {
    if (output.hasRoomFor(1)) output.putByte(byte);
}

// Whether the letter stands for a conversion; if so, the next slot is used up.
bool convertTo(Output &output, uint8_t letter, uint32_t width, const intptr_t *&slot) {
    switch (letter) {
        case 'd': convertNumber(output, static_cast<int32_t>(*slot++), width); return true;
        case 's': convertString(output, reinterpret_cast<const char *>(*slot++)); return true;
        case 'c': convertByte(output, lowByte(static_cast<uint32_t>(*slot++))); return true;
        default: return false;
    }
}

}  // namespace

int32_t TQ_sprintf(char *destination, uint32_t size, const char *format, const intptr_t *arguments) {
    if (destination == nullptr || format == nullptr) return 0;
    if (size == 0) return -1;
    Output output(destination, size);
    for (const uint8_t *at = bytesOf(format);;) {
        at = output.putPlain(at);
        if (*at == directiveSign) {
            const uint32_t width = readWidth(++at);
            if (convertTo(output, *at, width, arguments)) {
                ++at;
                continue;
            }
        }
        if (*at == 0 || !output.hasRoomFor(1)) break;
        const bool pair = at[0] == escapeSign && at[1] != 0;
        output.putByte(pair ? escaped(at[1]) : at[0]);
        at += pair ? 2 : 1;
    }
    return output.finish();
}
