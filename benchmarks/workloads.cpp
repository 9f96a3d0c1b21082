#include "workloads.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace {

constexpr std::size_t half = (std::size_t{1} << 18) + 1536;
constexpr std::size_t mixedTexts = 512;
constexpr std::size_t mixedCalls = 4096;

}  // namespace

Workload::Workload(std::string workloadName) : name(std::move(workloadName)), memory(2 * half), nextSecond(half) {}

char *Workload::place(std::size_t &next, std::string_view text, std::size_t size) {
    const std::size_t at = next + random(std::size_t{16});
    const std::size_t limit = next < half ? half : memory.size();
    if (at + size > limit) throw std::length_error("the workload " + name + " is too large");
    next = at + size;
    text.copy(memory.data() + at, text.size());
    return memory.data() + at;
}

void Workload::shuffle(std::size_t length) {
    const std::vector<Case> pool = std::move(cases);
    cases.resize(length);
    for (Case &each : cases) each = pool[random(pool.size())];
    calls = length;
}

Workloads sized(const Fill &fill, const std::vector<std::size_t> &sizes, const std::string &prefix) {
    Workloads workloads;
    for (const std::size_t size : sizes) {
        const auto workload = std::make_shared<Workload>(prefix + (size == mix ? "mix" : std::to_string(size)));
        workload->cases.resize(size == mix ? mixedTexts : std::clamp<std::size_t>(8192 / size, 1, 64));
        for (Case &each : workload->cases) {
            fill(*workload, size == mix ? workload->random(std::size_t{33}) : size, each);
        }
        workload->shuffle(size == mix ? mixedCalls : workload->cases.size());
        workloads.push_back(workload);
    }
    return workloads;
}

Workloads repeated(const std::string &name, std::size_t count, const std::function<void(Workload &, Case &)> &fill) {
    const auto workload = std::make_shared<Workload>(name);
    workload->cases.resize(count);
    workload->calls = count;
    for (Case &each : workload->cases) fill(*workload, each);
    return {workload};
}

Workloads walk(const std::string &name, std::size_t calls, const std::function<std::string(Workload &)> &text) {
    const Workloads workloads = repeated(name, 1, [&](Workload &workload, Case &each) {
        const std::string whole = text(workload);
        each = {.text = workload.source(whole),
                .destination = workload.second("", whole.size()),
                .count = static_cast<int32_t>(whole.size())};
    });
    workloads.front()->calls = calls;
    return workloads;
}

Workloads joined(const std::vector<Workloads> &parts) {
    Workloads all;
    for (const Workloads &part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::string prose(Workload &workload, std::size_t length) {
    static constexpr std::array words{"the",  "of",    "and",    "to",   "in",     "that",      "is",    "was",
                                      "with", "there", "after",  "on",   "inside", "statement", "which", "a",
                                      "as",   "we",    "their",  "from", "other",  "reading",   "long",  "part",
                                      "by",   "two",   "within", "what", "number", "character", "first", "line"};
    std::string text;
    while (text.size() < length) {
        text += words[workload.random(words.size())];
        text += ' ';
    }
    text.resize(length);
    return text;
}

std::string withRandomCase(Workload &workload, std::string text) {
    for (char &each : text) {
        if (each >= 'a' && each <= 'z' && workload.random(2) == 0) each = static_cast<char>(each - 'a' + 'A');
    }
    return text;
}

std::string utf8(uint32_t codePoint) {
    if (codePoint < 0x80) return {static_cast<char>(codePoint)};
    const int32_t following = codePoint < 0x800 ? 1 : codePoint < 0x10000 ? 2 : 3;
    const uint32_t lead = (0xFF00u >> (following + 1)) & 0xFF;
    std::string bytes{static_cast<char>(lead | (codePoint >> (6 * following)))};
    for (int32_t left = following; left-- > 0;) bytes += static_cast<char>(0x80 | (codePoint >> (6 * left) & 0x3F));
    return bytes;
}
