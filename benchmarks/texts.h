#ifndef BENCHMARKS_TEXTS_H
#define BENCHMARKS_TEXTS_H

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <new>
#include <random>

#include "meter.h"

// The same texts at the same addresses in every run.
inline std::mt19937 generator(1);

inline uint32_t below(uint32_t limit) { return static_cast<uint32_t>(generator()) % limit; }

alignas(4096) inline std::array<char, (measuresTime ? 8 : 3) << 20> arena;
inline size_t used = 0;

// What is placed next begins so far behind the start of a page. Texts and the rooms that they are copied to lie half a
// page apart, or loads would wait for stores to addresses that are alike in their low bits.
inline void startPage(size_t offset) { used = (used + 4095) / 4096 * 4096 + offset; }

inline char *room(size_t size, size_t alignment) {
    used = (used + 31) / 32 * 32;
    char *const at = arena.data() + used + alignment;
    used += alignment + size;
    if (used > arena.size()) throw std::bad_alloc();
    return at;
}

inline char *place(const std::string &bytes, size_t alignment) {
    char *const at = room(bytes.size() + 1, alignment);
    std::memcpy(at, bytes.c_str(), bytes.size() + 1);
    return at;
}

// Random letters, of so many different ones; if they are skewed, the first is the most frequent.
inline std::string letters(size_t length, uint32_t different = 26, bool areSkewed = false) {
    std::string text(length, ' ');
    for (char &letter : text) letter = static_cast<char>('a' + below(areSkewed ? 1 + below(different) : different));
    return text;
}

inline std::string repeated(const std::string &piece, size_t length) {
    std::string text;
    while (text.size() < length) text += piece;
    return text;
}

// Random words, the first of them the most frequent.
inline std::string prose(size_t length) {
    std::vector<std::string> words;
    for (int word = 0; word < 200; ++word) words.push_back(letters(1 + below(5) + below(5)));
    std::string text;
    while (text.size() < length) text += words[std::min(below(200), below(200))] + ' ';
    text.resize(length);
    return text;
}

struct Sizes {
    std::string workload;
    std::vector<size_t> lengths;
    bool isMix;

    // Any alignment in a mix and where time is measured; where instructions are counted, which is exact, all alignments
    // of a word, those of two texts alike in every second pair.
    size_t alignment(size_t index, size_t textNumber) const {
        return isMix || measuresTime ? below(32) : index * (1 + 2 * textNumber) % 8;
    }
};

// Long texts are as many as stay in the nearest cache, where time is measured.
inline Sizes alike(size_t length) {
    const size_t count = measuresTime ? std::clamp<size_t>(8192 / length, 1, 64) : 8;
    return {std::to_string(length), std::vector<size_t>(count, length), false};
}

inline std::vector<Sizes> allSizes() {
    Sizes mix = {"mix", std::vector<size_t>(512), true};
    for (size_t &length : mix.lengths) length = below(33);
    std::vector<Sizes> all = {mix, alike(64), alike(256), alike(4096)};
    if (measuresTime) all.push_back(alike(65536));
    return all;
}

// Texts of small letters, changed by the function given, if any, before they are placed.
inline Workload makeTexts(const Sizes &sizes, const std::function<void(std::string &)> &change = {}) {
    Workload texts{sizes.workload};
    startPage(0);
    for (const size_t length : sizes.lengths) {
        std::string bytes = letters(length);
        if (change) change(bytes);
        char *const text = place(bytes, sizes.alignment(texts.cases.size(), 0));
        texts.cases.push_back({text, nullptr, static_cast<uint32_t>(length)});
    }
    return texts;
}

#endif
