#ifndef BENCHMARKS_CONTENDERS_H
#define BENCHMARKS_CONTENDERS_H

#include <concepts>
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

// What a routine and its peers have in common: the result or something of it, what is stored, or neither.
enum class Same { result, sign, truth, output, nothing };

// The implementations of one routine; null where there is none. Those of the C libraries have their own signatures.
template <auto ours, auto glibc = nullptr, auto newlib = nullptr, auto plain = nullptr>
struct Contenders {
    const char *routine;
    Same same = Same::result;
};

template <auto routine>
inline constexpr bool exists = !std::is_null_pointer_v<decltype(routine)>;

// A call that the compiler can see through, of a routine with its own signature.
template <auto routine>
struct Direct {
    template <class... Arguments>
    auto operator()(Arguments... arguments) const {
        return routine(arguments...);
    }
};

namespace outcome {

inline int64_t comparable(Same same, int64_t result) {
    if (same == Same::sign) return (result > 0) - (result < 0);
    if (same == Same::truth) return result != 0;
    return same == Same::output ? 0 : result;
}
inline int64_t comparable(Same same, const volatile void *result) {
    return comparable(same, static_cast<int64_t>(reinterpret_cast<intptr_t>(result)));
}

// What a call may have left behind an argument.
inline std::string left(char *text) { return text == nullptr ? "" : text; }
inline std::string left(char **pointer) { return std::to_string(reinterpret_cast<intptr_t>(*pointer)); }
template <std::integral Value>
requires(!std::is_const_v<Value>) std::string left(Value *value) { return std::to_string(*value); }
template <class Other>
std::string left(Other) {
    return "";
}

// The result of each call and what it leaves behind its arguments.
template <class Call, class Body>
std::vector<std::string> of(Same same, const Call &call, size_t calls, const Body &body) {
    std::vector<std::string> seen;
    const auto observed = [&](auto... arguments) {
        const auto note = [&](int64_t result) {
            seen.push_back((std::to_string(result) + ... + (' ' + left(arguments))));
        };
        if constexpr (std::is_void_v<decltype(call(arguments...))>) {
            call(arguments...);
            note(0);
        } else {
            const auto result = call(arguments...);
            note(comparable(same, result));
            return result;
        }
    };
    for (size_t index = 0; index < calls && same != Same::nothing; ++index) body(observed, index);
    return seen;
}

}  // namespace outcome

#endif
