#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

/** The arguments of one call, or of one walk through a text. Each routine takes from it what it needs. */
struct Case {
    char *text = nullptr;
    char *other = nullptr;
    char *destination = nullptr;
    int32_t count = 0;
    int32_t value = 0;

    uint32_t size() const { return static_cast<uint32_t>(count); }
};

/** Inputs that are the same in every run, at random alignments: sources lie in one half of the memory, the second
 *  operands and destinations in the other, so far apart modulo 4096 that stores do not shadow loads. */
class Workload {
public:
    explicit Workload(std::string workloadName);

    char *source(std::string_view text) { return place(nextSource, text, text.size() + 1); }
    char *second(std::string_view text, std::size_t room = 0) {
        return place(nextSecond, text, text.size() + 1 + room);
    }
    /** From 0 up, below the limit. */
    template <std::integral Number>
    Number random(Number limit) {
        return static_cast<Number>(engine() % static_cast<uint32_t>(limit));
    }
    void shuffle(std::size_t length);

    std::string name;
    std::vector<Case> cases;
    /** Library calls that one pass through the cases makes. */
    std::size_t calls = 0;
    std::vector<char> memory;

private:
    char *place(std::size_t &next, std::string_view text, std::size_t size);

    std::mt19937 engine;
    std::size_t nextSource = 0;
    std::size_t nextSecond;
};

using Workloads = std::vector<std::shared_ptr<Workload>>;
using Fill = std::function<void(Workload &, std::size_t length, Case &)>;

/** "mix" is many texts of 0 to 32 bytes in random order, any other size is its own name. */
inline constexpr std::size_t mix = 0;
Workloads sized(const Fill &fill, const std::vector<std::size_t> &sizes = {mix, 64, 256, 4096, 65536},
                const std::string &prefix = "");

/** One workload of a number of cases that are all filled alike. */
Workloads repeated(const std::string &name, std::size_t count, const std::function<void(Workload &, Case &)> &fill);

/** One workload of a single text and the number of calls that a walk through it makes. */
Workloads walk(const std::string &name, std::size_t calls, const std::function<std::string(Workload &)> &text);

Workloads joined(const std::vector<Workloads> &parts);

/** Exactly length bytes of words and spaces. */
std::string prose(Workload &workload, std::size_t length);

std::string withRandomCase(Workload &workload, std::string text);

/** The UTF-8 form of a code point, for the building of inputs. */
std::string utf8(uint32_t codePoint);
