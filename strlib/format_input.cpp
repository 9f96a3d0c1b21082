#include <strlib.h>

#include "core/dialect.h"
#include "core/digits.h"

using namespace strlib;

namespace {

// What the format asks for next.
enum class Ask : uint8_t { nothing, blanks, literal, lineEscape, conversion };

struct Item {
    Ask ask;
    uint8_t byte;  // of a literal or escape: the byte to match; of a conversion: its letter
    uint8_t excluded;
    uint32_t width;
};

class Format {
public:
    explicit Format(const uint8_t *format) : at_(format) {}

    // A directive that turns out to be none is the literal at which it does.
    Item next() {
        if (*at_ == directiveSign) {
            ++at_;
            const uint32_t width = readWidth(at_);
            switch (*at_) {
                case 'c':
                case 's':
                case 'i':
                case 'u':
                case 'n': return {Ask::conversion, take(), 0, width};
                case 'b':
                case 'h':
                case 'l':
                    sizeLetter_ = take();
                    if (*at_ == 'i' || *at_ == 'u') return {Ask::conversion, take(), 0, width};
                    break;
                case '[':
                    take();
                    if (*at_ != '^') break;
                    take();
                    if (const uint8_t excluded = take(); *at_ == ']') {
                        take();
                        return {Ask::conversion, '[', excluded, width};
                    }
                    break;
                default: break;
            }
        }
        return literal();
    }

    // The size letter in force: it outlives its directive, to the next size letter or the end of the call.
    uint8_t sizeLetter() const { return sizeLetter_; }

private:
    // Never moves past the NUL.
    uint8_t take() {
        const uint8_t byte = *at_;
        if (byte != 0) ++at_;
        return byte;
    }

    static Item plain(uint8_t byte) {
        if (byte == 0) return {Ask::nothing, 0, 0, 0};
        return {byte == ' ' ? Ask::blanks : Ask::literal, byte, 0, 0};
    }

    Item literal() {
        const uint8_t byte = take();
        if (byte != escapeSign) return plain(byte);
        const uint8_t letter = take();
        const uint8_t meant = escaped(letter);
        return meant == letter ? plain(letter) : Item{Ask::lineEscape, meant, 0, 0};
    }

    const uint8_t *at_;
    uint8_t sizeLetter_ = 'l';
};

// Destinations are whatever integers the caller declared, of any type of the size.
using Int32 __attribute__((may_alias)) = uint32_t;
using Int16 __attribute__((may_alias)) = uint16_t;

void storeNumber(intptr_t destination, uint32_t value, uint8_t sizeLetter) {
    if (sizeLetter == 'b')
        *reinterpret_cast<uint8_t *>(destination) = lowByte(value);
    else if (sizeLetter == 'h')
        *reinterpret_cast<Int16 *>(destination) = static_cast<uint16_t>(value);
    else
        *reinterpret_cast<Int32 *>(destination) = value;
}

// What ends a field: the bytes up to a limit, and one more.
struct FieldEnd {
    block::Flags operator()(block::Block bytes) const {
        return block::orEquals(block::atMost(bytes, upTo), bytes, block::splat(byte));
    }

    uint8_t upTo;
    uint8_t byte;
};

class Input {
public:
    explicit Input(const uint8_t *input) : start_(input), at_(input) {
        for (; isBlank(*at_); ++at_) blanksAtStart_ |= bitOf(*at_);
    }

    uint32_t consumed() const { return static_cast<uint32_t>(at_ - start_); }

    void skip() { at_ = skipBlanks(at_); }

    bool match(uint8_t byte) {
        if (*at_ != byte) return false;
        ++at_;
        return true;
    }

    bool blanksAtStartHold(uint8_t byte) const { return (blanksAtStart_ & bitOf(byte)) != 0; }

    bool readByte(uint8_t *destination) {
        if (*at_ == 0) return false;
        *destination = *at_++;
        return true;
    }

    // Copies the bytes up to one that ends the field, as far as the width has room for them and a NUL.
    bool readField(uint8_t *destination, uint32_t width, FieldEnd ends) {
        if (width == 0) return false;
        const size_t count = scanUpTo<Steps::blocks>(at_, width - 1, ends);
        copyPiece(destination, at_, count);
        destination[count] = 0;
        at_ += count;
        return count != 0;
    }

    // TQANSI_atoi() alone tells what is stored; what it would read as a decimal number here needs no second pass.
    bool readNumber(intptr_t destination, uint8_t sizeLetter) {
        Decimal number = readDecimal(at_);
        if (!number.hasDigits || isHexadecimalMark(at_))
            number.value = static_cast<uint32_t>(TQANSI_atoi(resultAt(at_)));
        storeNumber(destination, number.value, sizeLetter);
        if (number.hasDigits) at_ = number.end;
        return number.hasDigits;
    }

private:
    // One bit for each of the 32 blanks.
    static uint32_t bitOf(uint8_t blank) { return uint32_t{1} << (blank % 32); }

    const uint8_t *start_;
    const uint8_t *at_;
    uint32_t blanksAtStart_ = 0;
};

bool convert(Input &input, const Item &item, intptr_t destination, uint8_t sizeLetter) {
    uint8_t *const bytes = reinterpret_cast<uint8_t *>(destination);
    switch (item.byte) {
        case 'c': return input.readByte(bytes);
        case 's': return input.readField(bytes, item.width, {' ', 0});
        case '[': return input.readField(bytes, item.width, {0, item.excluded});
        case 'n': storeNumber(destination, input.consumed(), 'l'); return true;
        default: return input.readNumber(destination, sizeLetter);
    }
}

}  // namespace

int32_t TQ_sscanf(const char *input, const char *format, const intptr_t *arguments) {
    if (isEmpty(input) || isEmpty(format)) return -1;
    Input text(bytesOf(input));
    Format items(bytesOf(format));
    int32_t result = -1;
    bool opening = true;  // nothing but line escapes so far
    for (;;) {
        const Item item = items.next();
        opening = opening && item.ask == Ask::lineEscape;
        switch (item.ask) {
            case Ask::nothing: return result;
            case Ask::blanks: text.skip(); break;
            case Ask::literal:
                if (!text.match(item.byte)) return result;
                break;
            case Ask::lineEscape:
                // The blanks passed over at the start may be the very line ends that an opening format asks for.
                if (!text.match(item.byte) && !(opening && text.blanksAtStartHold(item.byte))) return result;
                break;
            case Ask::conversion:
                if (result < 0) result = 0;
                if (!convert(text, item, *arguments++, items.sizeLetter())) return result;
                if (item.byte != 'n') ++result;
                break;
        }
    }
}
