#ifndef TESTS_SUPPORT_CHOICES_H
#define TESTS_SUPPORT_CHOICES_H

// A property draws its inputs from a source of choices. The same property is then driven through every small input by
// an Enumeration, through long ones by a Random source, and through whatever finds new code by a fuzzer's bytes.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace tests {

// Where the bytes of an argument lie: right before or right behind a page that no one may touch, or between.
struct Placement {
    enum { atEnd, atStart, between } where;
    uint32_t alignment;
};

// What a round may come to, the least share of the rounds that must, how many have told, and how many have.
struct Outcome {
    const char *name;
    uint32_t percent;
    uint32_t told;
    uint32_t reached;
};

class Choices {
public:
    virtual ~Choices() = default;

    virtual uint32_t below(uint64_t bound) = 0;
    virtual Placement placement() = 0;

    // A text over the alphabet; up to `depth` bytes (a little more or less by the depth of the run) where all are
    // tried.
    virtual std::string text(std::string_view alphabet, uint32_t depth) = 0;

    // Whether inputs are long, so that what is rare among them must be made on purpose; all small ones come by anyway.
    virtual bool isLong() const = 0;
    bool steers() { return isLong() && flag(); }

    bool flag() { return below(2) != 0; }
    int32_t between(int64_t first, int64_t last) {
        return static_cast<int32_t>(first + below(static_cast<uint64_t>(last - first + 1)));
    }
    template <class Values>
    auto pick(const Values &values) {
        return std::data(values)[below(std::size(values))];
    }
    template <class Value>
    Value pick(std::initializer_list<Value> values) {
        return values.begin()[below(values.size())];
    }

    // Tells whether the round has come to something. Every round tells all of its property's outcomes.
    void outcome(const char *name, uint32_t percent, bool reached) {
        size_t index = 0;
        while (index < outcomes_.size() && std::strcmp(outcomes_[index].name, name) != 0) ++index;
        if (index == outcomes_.size()) outcomes_.push_back({name, percent, 0, 0});
        ++outcomes_[index].told;
        outcomes_[index].reached += reached;
    }
    const std::vector<Outcome> &outcomes() const { return outcomes_; }

private:
    std::vector<Outcome> outcomes_;
};

// -1 for slow targets, 0 for every day, 1 and more for long runs.
inline int depthShift() {
    static const char *const depth = std::getenv("STRLIB_TEST_DEPTH");
    return depth == nullptr ? 0 : std::atoi(depth);
}

inline uint32_t byDepth(uint32_t slow, uint32_t everyDay, uint32_t deep) {
    return depthShift() < 0 ? slow : depthShift() == 0 ? everyDay : deep;
}

// Every sequence of choices in turn: an odometer whose wheels appear as the property asks for them.
class Enumeration : public Choices {
public:
    uint32_t below(uint64_t bound) override {
        if (next_ == wheels_.size()) wheels_.push_back({0, bound});
        return wheels_[next_++].value;
    }
    Placement placement() override { return {Placement::atEnd, 0}; }
    std::string text(std::string_view alphabet, uint32_t depth) override {
        std::string text(static_cast<size_t>(between(0, std::max(int64_t{depth} + depthShift(), int64_t{1}))), ' ');
        for (char &byte : text) byte = pick(alphabet);
        return text;
    }
    bool isLong() const override { return false; }

    bool advance() {
        next_ = 0;
        while (!wheels_.empty() && ++wheels_.back().value == wheels_.back().bound) wheels_.pop_back();
        return !wheels_.empty();
    }

private:
    struct Wheel {
        uint32_t value;
        uint64_t bound;
    };
    std::vector<Wheel> wheels_;
    size_t next_ = 0;
};

// Long texts, a quarter of them over all byte values, most with long stretches that are alike so that comparisons get
// far.
class Stream : public Choices {
public:
    Placement placement() override { return {static_cast<decltype(Placement::where)>(below(3)), below(32)}; }
    std::string text(std::string_view alphabet, uint32_t) override {
        std::string text(below(pick({4u, 21u, 61u, 201u})), '\0');
        const uint32_t manner = below(4);
        const char repeated = pick(alphabet);
        for (char &byte : text) {
            if (manner == 0)
                byte = static_cast<char>(1 + below(255));
            else if (manner == 1 || below(16) == 0)
                byte = pick(alphabet);
            else
                byte = repeated;
        }
        return text;
    }
    bool isLong() const override { return true; }
};

class Random : public Stream {
public:
    explicit Random(uint32_t seed) : engine_(seed) {}
    uint32_t below(uint64_t bound) override { return static_cast<uint32_t>(engine_() % bound); }

private:
    std::mt19937 engine_;
};

}  // namespace tests

#endif
