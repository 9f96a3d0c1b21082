// Every 32-bit value written, read and encoded, and every sequence of four bytes decoded, on all processors; a sample
// of them all unless the run is deep.

#include <strlib.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <thread>

#include "support/choices.h"
#include "support/model.h"

namespace {

constexpr uint64_t all = uint64_t{1} << 32;

std::atomic<uint64_t> faults = 0;

void check(bool holds, const char *what, uint64_t value) {
    if (!holds && ++faults <= 10) std::printf("FAILED %s: 0x%llX\n", what, static_cast<unsigned long long>(value));
}

// Calls work(first, last) for parts of the range, each processor taking one after the other.
template <class Work>
void share(const char *name, uint64_t first, uint64_t last, Work work) {
    const unsigned count = std::max(1u, std::thread::hardware_concurrency());
    const uint64_t parts = 64;
    const uint64_t each = (last - first + parts - 1) / parts;
    std::atomic<uint64_t> next = 0;
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < count; ++i) {
        threads.emplace_back([&] {
            for (uint64_t part; (part = next++) < parts;) {
                const uint64_t from = first + part * each;
                if (from < last) work(from, std::min(from + each, last));
            }
        });
    }
    for (std::thread &thread : threads) thread.join();
    std::printf("%s: done\n", name);
}

// A number as digits that counts by itself: no division once it has begun.
class Odometer {
public:
    Odometer(uint64_t value, uint64_t step, uint32_t radix) : radix_(radix) {
        for (uint32_t i = 0; i < count; ++i, value /= radix, step /= radix) {
            digits_[i] = static_cast<uint32_t>(value % radix);
            step_[i] = static_cast<uint32_t>(step % radix);
            if (digits_[i] != 0) length_ = i + 1;
        }
    }

    void advance() {
        uint32_t carry = 0;
        for (uint32_t i = 0; i < count; ++i) {
            digits_[i] += step_[i] + carry;
            carry = digits_[i] >= radix_;
            if (carry != 0) digits_[i] -= radix_;
            if (digits_[i] != 0 && i >= length_) length_ = i + 1;
        }
    }

    bool isShown(const char *text) const {
        for (uint32_t i = length_; i-- != 0;) {
            if (*text++ != "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"[digits_[i]]) return false;
        }
        return *text == 0;
    }

private:
    static constexpr uint32_t count = 33;

    uint32_t radix_;
    uint32_t digits_[count] = {};
    uint32_t step_[count] = {};
    uint32_t length_ = 1;
};

// Magnitudes from `first` on, with both signs, written in a radix and, where that reading exists, read back.
void checkRadix(uint32_t radix, uint64_t first, uint64_t last, uint64_t step) {
    Odometer odometer(first, step, radix);
    char buffer[40] = "0x";
    for (uint64_t magnitude = first; magnitude < last; magnitude += step, odometer.advance()) {
        for (const bool negative : {false, true}) {
            if (magnitude > INT32_MAX + uint64_t{negative}) continue;
            const auto value = static_cast<int32_t>(negative ? 0 - magnitude : magnitude);
            const bool isSigned = value < 0 && radix == 10;
            char *const text = buffer + 2;
            const bool written = TQANSI_itoa(value, text, 38, static_cast<int32_t>(radix)) == text;
            check(written && (!isSigned || *text == '-') && odometer.isShown(text + isSigned), "written", magnitude);
            if (radix == 10) check(TQANSI_atoi(text) == value, "read", magnitude);
            if (radix == 16)
                check(TQANSI_atoi(buffer) == static_cast<int32_t>(magnitude), "read in hexadecimal", magnitude);
        }
    }
}

// The sequence of the value before it, counted up: the last byte first, and one more byte when the lead is full.
struct Sequence {
    explicit Sequence(const std::string &text) : length(text.size()) { text.copy(bytes, length); }

    void advance() {
        static constexpr unsigned firstLeads[] = {0, 0, 0xC2, 0xE0, 0xF0, 0xF8, 0xFC, 0xFE};
        static constexpr unsigned firstSeconds[] = {0, 0, 0x80, 0xA0, 0x90, 0x88, 0x84};
        for (size_t i = length - 1; i != 0; --i) {
            if (at(i) != 0xBF) return set(i, at(i) + 1);
            set(i, 0x80);
        }
        if (at(0) + 1 != (length == 1 ? 0x80 : length == 2 ? 0xE0 : firstLeads[length + 1])) return set(0, at(0) + 1);
        ++length;
        set(0, firstLeads[length]);
        for (size_t i = 1; i < length; ++i) set(i, i == 1 ? firstSeconds[length] : 0x80);
    }

    unsigned at(size_t index) const { return static_cast<uint8_t>(bytes[index]); }
    void set(size_t index, unsigned byte) { bytes[index] = static_cast<char>(byte); }

    size_t length;
    char bytes[8] = {};
};

void checkEncoding(uint64_t first, uint64_t last) {
    Sequence expected(model::encode(static_cast<uint32_t>(first)));
    for (uint64_t value = first; value < last; ++value) {
        char buffer[8] = "*******";
        const int32_t written = unicodeToUtf8(static_cast<uint32_t>(value), buffer);
        const size_t length = expected.length;
        check(written == static_cast<int32_t>(length) && std::memcmp(buffer, expected.bytes, length) == 0 &&
                  buffer[length] == 0 && buffer[length + 1] == (length < 6 ? '*' : 0),
              "encoded", value);
        uint32_t codePoint = 0;
        int32_t decoded = 0;
        const char *const next = utf8ToUnicode(buffer, &codePoint, &decoded);
        check(codePoint == value && decoded == written && next == buffer + length, "decoded", value);
        if (value < INT32_MAX) expected.advance();
    }
}

void checkNoSequence(uint64_t first, uint64_t last, uint64_t step) {
    for (uint64_t value = first; value < last; value += step) {
        char buffer[8] = "***";
        check(unicodeToUtf8(static_cast<uint32_t>(value), buffer) == 0 && std::memcmp(buffer, " \0*", 4) == 0,
              "without a sequence", value);
    }
}

void checkDecoding(uint64_t first, uint64_t last, uint64_t step) {
    for (uint64_t value = first; value < last; value += step) {
        std::string text;
        for (int shift = 24; shift >= 0; shift -= 8) text += static_cast<char>(value >> shift & 0xFF);
        const model::Decoded decoded = model::decode(text, 4711);
        uint32_t codePoint = 4711;
        int32_t length = -1;
        const char *const next = utf8ToUnicode(text.c_str(), &codePoint, &length);
        check(length == decoded.length && codePoint == decoded.codePoint &&
                  next - text.c_str() == (length == 0 ? 1 : length),
              "decoded like the model", value);
        const model::Character character = model::readCharacter(text);
        char copy[8] = "*******";
        int32_t valid = -1;
        const char *const after = utf8ReadChar(text.c_str(), &valid, copy);
        check(valid == character.valid && after - text.c_str() == static_cast<ptrdiff_t>(character.advance) &&
                  std::string(copy, 7) == character.copy + std::string(7 - character.copy.size(), '*'),
              "read like the model", value);
    }
}

}  // namespace

int main() {
    const int depth = tests::depthShift();
    const uint64_t step = depth > 0 ? 1 : depth == 0 ? 1009 : 100003;
    share("radix 10", 0, all / 2 + 1, [&](uint64_t first, uint64_t last) { checkRadix(10, first, last, step); });
    share("radices 2 to 36", 2, 37, [&](uint64_t first, uint64_t last) {
        for (uint64_t radix = first; radix < last; ++radix) {
            for (uint64_t power = 1; power <= all / 2; power *= radix) {
                checkRadix(static_cast<uint32_t>(radix), power > 100 ? power - 100 : 0,
                           std::min(power + 100, all / 2 + 1), 1);
            }
            checkRadix(static_cast<uint32_t>(radix), 1, all / 2 + 1, depth > 0 ? 499 : step * 101);
        }
    });
    // The expected sequence counts by one: samples are of neighbours, also around the changes of length.
    const uint64_t run = depth > 0 ? all : depth == 0 ? 40000 : 500;
    share("encoding", 0, all / 2,
          [&](uint64_t first, uint64_t last) { checkEncoding(first, std::min(last, first + run)); });
    for (const uint64_t change : {0x80u, 0x800u, 0x10000u, 0x200000u, 0x4000000u})
        checkEncoding(change - 100, change + 100);
    checkEncoding(all / 2 - 100, all / 2);
    share("no sequence", all / 2, all, [&](uint64_t first, uint64_t last) { checkNoSequence(first, last, step); });
    share("four bytes", 0, all, [&](uint64_t first, uint64_t last) { checkDecoding(first, last, step); });
    std::printf("%llu faults\n", static_cast<unsigned long long>(faults));
    return faults == 0 ? 0 : 1;
}
