#ifndef BENCHMARKS_ARMV7_TEXTS_H
#define BENCHMARKS_ARMV7_TEXTS_H

#include <array>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

// The same texts at the same addresses in every run.
inline std::mt19937 generator(1);

inline uint32_t below(uint32_t limit) { return static_cast<uint32_t>(generator()) % limit; }

inline char *room(size_t size, size_t alignment) {
    alignas(4096) static std::array<char, 4 << 20> arena;
    static size_t used = 0;
    used = (used + 31) / 32 * 32;
    char *const at = arena.data() + used + alignment;
    used += alignment + size;
    return at;
}

inline char *place(const std::string &bytes, size_t alignment) {
    char *const at = room(bytes.size() + 1, alignment);
    std::memcpy(at, bytes.c_str(), bytes.size() + 1);
    return at;
}

inline std::string letters(size_t length) {
    std::string text(length, ' ');
    for (char &letter : text) letter = static_cast<char>('a' + below(26));
    return text;
}

struct Sizes {
    const char *workload;
    std::vector<size_t> lengths;
    bool isMix;

    // In a mix any alignment; else all alignments of a word, those of two texts alike in every second pair.
    size_t alignment(size_t index, size_t textNumber) const {
        return isMix ? below(32) : index * (1 + 2 * textNumber) % 8;
    }
};

inline std::vector<Sizes> allSizes() {
    Sizes mix = {"mix", std::vector<size_t>(512), true};
    for (size_t &length : mix.lengths) length = below(33);
    const auto eight = [](const char *name, size_t length) {
        return Sizes{name, std::vector<size_t>(8, length), false};
    };
    return {mix, eight("64", 64), eight("256", 256), eight("4096", 4096)};
}

struct Text {
    char *at;
    uint32_t length;
};

// Texts of small letters, changed by the function given before they are placed.
template <class Change>
std::vector<Text> makeTexts(const Sizes &sizes, const Change &change, size_t textNumber = 0) {
    std::vector<Text> texts;
    for (size_t index = 0; index < sizes.lengths.size(); ++index) {
        std::string bytes = letters(sizes.lengths[index]);
        change(bytes);
        texts.push_back({place(bytes, sizes.alignment(index, textNumber)), static_cast<uint32_t>(bytes.size())});
    }
    return texts;
}

inline std::vector<Text> makeTexts(const Sizes &sizes) {
    return makeTexts(sizes, [](std::string &) {});
}

inline std::vector<char *> makeRooms(const Sizes &sizes, size_t extra) {
    std::vector<char *> rooms;
    for (size_t index = 0; index < sizes.lengths.size(); ++index)
        rooms.push_back(room(sizes.lengths[index] + extra, sizes.alignment(index, 1)));
    return rooms;
}

#endif
