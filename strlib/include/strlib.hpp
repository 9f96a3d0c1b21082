#ifndef STRLIB_HPP
#define STRLIB_HPP

#include <strlib.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>

/**
 * @file strlib.hpp
 * @brief The routines of strlib.h as C++20 would have them: destinations know their size, formats are checked when they
 *        are compiled.
 *
 * Each function calls one routine, named in its contract, and compiles to little or nothing more than that call. The
 * terms are those of strlib.h. Routines without a counterpart here are called as they are.
 *
 * A *destination* is an array of `char`, a `std::array`, a `std::span` or any other contiguous range with a size: all
 * of it may be written. Some functions need one whose type tells its size. What does not fit is cut or left out, as the
 * routine does it; a destination of no bytes is never written.
 *
 * ```
 * char line[32], country[8];
 * std::int32_t people = 0;
 * strlib::format(line, "%s has %d inhabitants", "Lima", 11);  // the std::string_view "Lima has 11 inhabitants"
 * strlib::scan("Peru;34", "%8[^;];%i", country, people);      // 2, country holds "Peru", people is 34
 * for (const char *rest = "a,b"; const auto token = strlib::nextToken(rest, ",");)
 *     use(*token);                                            // "a", then "b"
 * ```
 * What does not compile:
 * ```
 * strlib::format(line, "%d", "Lima");                // %d takes no text
 * strlib::format(line, "%d,%d,%d,%d", 1, 2, 3, 4);   // four numbers may take 48 bytes
 * strlib::scan(text, "%s", country);                 // nothing bounds %s
 * strlib::scan(text, "%9s", country);                // 9 bytes are more than country has
 * ```
 */

namespace strlib {

/** Any contiguous range of `char` that has a size and may be written to. */
template <class Type>
concept Destination = requires(Type &range) {
    { *std::span(range).data() } -> std::same_as<char &>;
};

/* What the functions below are made of; not for callers. */
namespace detail {

/* g++ 11 deduces the span's type in a function only. */
template <Destination Type>
auto spanOf(Type &range) {
    return std::span(range);
}

/* The size of a destination where its type tells it, else std::dynamic_extent. */
template <Destination Type>
constexpr std::size_t extentOf = decltype(spanOf(std::declval<Type &>()))::extent;

template <class Type, class... Others>
concept AnyOf = (std::same_as<Type, Others> || ...);

/* An integer that stands for a number: no truth value and no character. */
template <class Type>
concept Number = std::integral<Type> && !AnyOf<Type, bool, char, wchar_t, char8_t, char16_t, char32_t>;

template <class Type>
concept Byte = std::same_as<Type, char> ||(Number<Type> && sizeof(Type) == 1);

template <class Type>
concept HasCString = requires(const Type &text) {
    { text.c_str() } -> std::same_as<const char *>;
};

template <class Type>
concept Text = std::convertible_to<const Type &, const char *> || HasCString<Type>;

inline std::int32_t limited(std::size_t size) {
    constexpr std::size_t most = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(size < most ? size : most);
}

inline std::string_view viewOf(const char *string) { return {string, static_cast<std::size_t>(TQANSI_strlen(string))}; }

inline std::optional<std::size_t> positionOf(const char *found, const char *string) {
    if (found == nullptr) return std::nullopt;
    return static_cast<std::size_t>(found - string);
}

/* What a format does next. */
struct Step {
    char letter = 0;         /* of a conversion, '[' for "%[^x]"; '%' for a byte to store or match; 0 at the end */
    char byte = 0;           /* the byte to store or match; the x of "%[^x]" */
    char size = 'l';         /* the size letter in force */
    std::uint32_t width = 0; /* unbounded where there is none */
};

constexpr std::uint32_t unbounded = std::numeric_limits<std::uint32_t>::max();

/* Goes through a format as the routines do. */
class Format {
public:
    enum Dialect : bool { output, input };

    constexpr Format(Dialect dialect, const char *format) : dialect_(dialect), at_(format) {}

    /* Whether no '%' so far stood before anything but a conversion or another '%'. */
    constexpr bool isClean() const { return clean_; }

    /* A '%' before what is no conversion goes unheeded, and so do the letters that have followed it by then. */
    constexpr Step next() {
        if (*at_ != '%') return plain();
        ++at_;
        readWidth();
        if (*at_ == '%' && at_[-1] == '%') return plain();
        if (holds(dialect_ == output ? "dsc" : "iuscn", *at_)) return conversion(*at_);
        if (dialect_ == input && holds("bhl", *at_)) {
            size_ = *at_++;
            if (holds("iu", *at_)) return conversion(*at_);
        } else if (dialect_ == input && *at_ == '[') {
            ++at_;
            if (at_[0] == '^' && at_[1] != 0) {
                at_ += 2;
                if (*at_ == ']') return conversion('[', at_[-1]);
            }
        }
        clean_ = false;
        return plain();
    }

private:
    static constexpr bool holds(std::string_view letters, char letter) { return letters.find(letter) != letters.npos; }

    /* In groups of seven digits, of which the last counts. */
    constexpr void readWidth() {
        width_ = unbounded;
        for (int digits = 0; *at_ >= '0' && *at_ <= '9'; ++at_, ++digits) {
            if (digits % 7 == 0) width_ = 0;
            width_ = width_ * 10 + static_cast<std::uint32_t>(*at_ - '0');
        }
    }

    constexpr Step conversion(char letter, char excluded = 0) {
        ++at_;
        return {letter, excluded, size_, width_};
    }

    constexpr Step plain() {
        if (*at_ == 0) return {};
        const char first = *at_++;
        if (first != '\\' || *at_ == 0) return {'%', first};
        const char second = *at_++;
        return {'%', second == 'n' ? '\n' : second == 't' ? '\t' : second == 'r' ? '\r' : second};
    }

    Dialect dialect_;
    const char *at_;
    bool clean_ = true;
    char size_ = 'l';
    std::uint32_t width_ = unbounded;
};

/* The bytes that must be free for a step's output: of a string at least none. */
constexpr std::size_t roomFor(const Step &step) {
    if (step.letter == 'd') return step.width < 11 ? step.width : 11;
    return step.letter == 's' ? 0 : 1;
}

/* A consteval function that comes to one of these does not compile, and the compiler names it. */
namespace refused {
void noConversionBehindPercentSign();
void moreConversionsThanArguments();
void moreArgumentsThanConversions();
void argumentOfAnotherType();
void widthThatWritesNoNumber();
void formatThatTheDestinationCannotHold();
void fieldWithoutWidthOfTwoOrMore();
void fieldWiderThanItsArray();
}  // namespace refused

using SlotCheck = void (*)(const Step &step);

/* Checks a format against its arguments, one check for each, and gives the size that its output needs. */
consteval std::size_t check(Format format, std::span<const SlotCheck> slots) {
    std::size_t size = 1;
    std::size_t used = 0;
    for (Step step = format.next(); step.letter != 0; step = format.next()) {
        size += roomFor(step);
        if (step.letter == '%') continue;
        if (used == slots.size()) refused::moreConversionsThanArguments();
        slots[used++](step);
    }
    if (!format.isClean()) refused::noConversionBehindPercentSign();
    if (used < slots.size()) refused::moreArgumentsThanConversions();
    return size;
}

template <class Argument>
constexpr void checkOutput(const Step &step) {
    constexpr bool isNumber =
        Number<Argument> && (sizeof(Argument) < 4 || (sizeof(Argument) == 4 && std::is_signed_v<Argument>));
    const bool fits = step.letter == 'd' ? isNumber : step.letter == 'c' ? Byte<Argument> : Text<Argument>;
    if (!fits) refused::argumentOfAnotherType();
    if (step.letter == 'd' && step.width < 2) refused::widthThatWritesNoNumber();
}

template <class Argument>
constexpr void checkInput(const Step &step) {
    if (step.letter == 's' || step.letter == '[') {
        if constexpr (Destination<Argument>) {
            if (step.width == unbounded || step.width < 2) refused::fieldWithoutWidthOfTwoOrMore();
            if (extentOf<Argument> == std::dynamic_extent || step.width > extentOf<Argument>)
                refused::fieldWiderThanItsArray();
        } else {
            refused::argumentOfAnotherType();
        }
        return;
    }
    const std::size_t size = step.letter == 'n' || step.size == 'l' ? 4 : step.size == 'h' ? 2 : 1;
    const bool fits = step.letter == 'c'   ? Byte<Argument>
                      : step.letter == 'n' ? Number<Argument>
                      : step.letter == 'i' ? Number<Argument> && std::signed_integral<Argument>
                                           : Number<Argument> && std::unsigned_integral<Argument>;
    if (!fits || (step.letter != 'c' && sizeof(Argument) != size)) refused::argumentOfAnotherType();
}

/* As many slots as arguments, but one at least, as an array has to have. */
template <class... Arguments>
using Slots = std::intptr_t[sizeof...(Arguments) + (sizeof...(Arguments) == 0)];

template <class Argument>
std::intptr_t slotOf(const Argument &value) {
    if constexpr (HasCString<Argument>)
        return reinterpret_cast<std::intptr_t>(value.c_str());
    else if constexpr (Text<Argument>)
        return reinterpret_cast<std::intptr_t>(static_cast<const char *>(value));
    else if constexpr (std::integral<Argument>)
        return static_cast<std::intptr_t>(value);
    else
        return 0; /* refused by its format */
}

template <class Argument>
std::intptr_t addressOf(Argument &destination) {
    if constexpr (Destination<Argument>)
        return reinterpret_cast<std::intptr_t>(std::span(destination).data());
    else
        return reinterpret_cast<std::intptr_t>(&destination);
}

/* A format that has been checked for a destination of a size and for arguments of these types. */
template <std::size_t size, class... Arguments>
struct OutputFormat {
    consteval OutputFormat(const char *format) : text(format) {
        const SlotCheck slots[] = {checkOutput<Arguments>..., nullptr};
        if (check({Format::output, format}, {slots, sizeof...(Arguments)}) > size)
            refused::formatThatTheDestinationCannotHold();
    }
    const char *text;
};

template <class... Arguments>
struct InputFormat {
    consteval InputFormat(const char *format) : text(format) {
        const SlotCheck slots[] = {checkInput<Arguments>..., nullptr};
        check({Format::input, format}, {slots, sizeof...(Arguments)});
    }
    const char *text;
};

}  // namespace detail

/** A destination whose type tells that it has room for a number of bytes. */
template <class Type, std::size_t bytes>
concept DestinationOf = Destination<Type> && detail::extentOf<Type>
!= std::dynamic_extent &&detail::extentOf<Type> >= bytes;

/**
 * @brief Copies a string by TQANSI_strncpy(), as much of it as the destination has room for beside the NUL.
 * @param destination Where to.
 * @param source A string, or null.
 * @return The copy, measured only if it is used; an empty text, with nothing written, if the source is null or the
 *         destination has no bytes.
 */
template <Destination To>
std::string_view copy(To &&destination, const char *source) {
    const std::span room(destination);
    if (room.empty()) return {};
    TQANSI_strncpy(room.data(), source, detail::limited(room.size() - 1));
    return source == nullptr ? std::string_view() : detail::viewOf(room.data());
}

/**
 * @brief Copies a text that needs no NUL of its own. It ends at its first NUL if it has one.
 * @param destination Where to.
 * @param source Any text.
 * @return As above.
 */
template <Destination To>
std::string_view copy(To &&destination, std::string_view source) {
    const std::span room(destination);
    return copy(room.first(room.size() <= source.size() ? room.size() : source.size() + 1), source.data());
}

/**
 * @brief Appends a string, as much of it as the destination has room for behind its own, by TQANSI_strncpy().
 * @param destination Holds a string.
 * @param source A string, or null.
 * @return The string that the destination then holds. Measured only if it is used.
 */
template <Destination To>
std::string_view append(To &&destination, const char *source) {
    const std::span room(destination);
    copy(room.subspan(static_cast<std::size_t>(TQANSI_strlen(room.data()))), source);
    return detail::viewOf(room.data());
}

/**
 * @brief Adds an integer to a string by string_operator_add(), which tells what that is.
 * @param destination Where to; it may be the source's own array.
 * @param source A string, not null.
 * @param addend The integer.
 * @return The sum; nothing, with nothing written, if the destination has no room for the source and its NUL.
 */
template <DestinationOf<5> To>
std::optional<std::string_view> add(To &&destination, const char *source, std::int32_t addend) {
    const std::span room(destination);
    if (static_cast<std::size_t>(TQANSI_strlen(source)) >= room.size()) return std::nullopt;
#pragma GCC diagnostic push
#if !defined(__clang__)
#pragma GCC diagnostic ignored "-Wattribute-warning" /* where GCC knows the source but not what has been tested */
#endif
    return detail::viewOf(string_operator_add(room.data(), source, addend));
#pragma GCC diagnostic pop
}

/**
 * @brief Writes an integer as text by TQANSI_itoa().
 * @param destination Where to.
 * @param value The integer.
 * @param radix 2 to 36.
 * @return The text; nothing if it does not fit.
 */
template <Destination To>
std::optional<std::string_view> toText(To &&destination, std::int32_t value, std::int32_t radix = 10) {
    const std::span room(destination);
    const char *const text = TQANSI_itoa(value, room.data(), detail::limited(room.size()), radix);
    if (text == nullptr) return std::nullopt;
    return detail::viewOf(text);
}

/**
 * @brief Renders a format by TQ_sprintf(), which tells what "%d", "%s", "%c", widths and escapes do.
 *
 * What does not compile: a '%' before anything but a conversion or another '%'; more or fewer conversions than
 * arguments; "%d" with a width of 0 or 1, which writes nothing; an argument that does not fit its conversion; and, for
 * a destination whose type tells its size, a format whose bytes, with 11 for each "%d" or its width if that is less, 1
 * for each "%c" and 1 for the NUL, exceed that size. Strings take what room is left, or are left out.
 * @param destination Where to.
 * @param format A constant.
 * @param arguments For "%d" an integer whose every value fits 32 bits with a sign; for "%c" a `char` or an integer of
 *        one byte; for "%s" a string, what has a c_str(), or null.
 * @return The text written.
 */
template <Destination To, class... Arguments>
std::string_view format(To &&destination,
                        std::type_identity_t<detail::OutputFormat<detail::extentOf<To>, Arguments...>> format,
                        const Arguments &...arguments) {
    const std::span room(destination);
    const detail::Slots<Arguments...> slots = {detail::slotOf(arguments)...};
    const std::int32_t stored =
        TQ_sprintf(room.data(), static_cast<std::uint32_t>(detail::limited(room.size())), format.text, slots);
    if (room.extent == std::dynamic_extent && stored < 1) return {};
    return {room.data(), static_cast<std::size_t>(stored) - 1};
}

/**
 * @brief Reads fields out of a text by TQ_sscanf(), which tells what conversions, literals and spaces do.
 *
 * What does not compile: a '%' before anything but a conversion or another '%'; more or fewer conversions than
 * arguments; an argument that does not fit its conversion; "%s" and "%[^x]" without a width, or with one that is not 2
 * to the size of the array.
 * @param input A string, or null.
 * @param format A constant.
 * @param arguments Receive the fields, as far as the scan comes: for "%c" a `char` or an integer of one byte; for "%s"
 *        and "%[^x]" a destination whose type tells its size; for "%i" a signed and for "%u" an unsigned integer of the
 *        size that the size letter in force means ("%hi,%i" takes two of 16 bits); for "%n" an integer of 32 bits.
 * @return As TQ_sscanf(): the number of conversions that succeeded, "%n" not counted; -1 if none was reached.
 */
template <class... Arguments>
std::int32_t scan(const char *input, std::type_identity_t<detail::InputFormat<Arguments...>> format,
                  Arguments &...arguments) {
    const detail::Slots<Arguments...> slots = {detail::addressOf(arguments)...};
    return TQ_sscanf(input, format.text, slots);
}

/**
 * @brief Takes the next line out of a text by X_TAMBRO_gets(), without its line feed and any carriage return.
 *
 * A line that is longer than the destination comes in pieces.
 * @param destination Where to.
 * @param rest The text that is left, not null; moved behind what was taken.
 * @return The line, measured only if it is used; nothing at the end of the text.
 */
template <DestinationOf<2> To>
std::optional<std::string_view> nextLine(To &&destination, const char *&rest) {
    if (*rest == 0) return std::nullopt;
    const std::span room(destination);
    rest += X_TAMBRO_gets(room.data(), detail::limited(room.size() - 1), rest);
    if (*rest != 0) ++rest;
    return detail::viewOf(room.data());
}

/**
 * @brief Takes the next token out of a text by TQ_strtoken().
 * @param rest The text that is left, or null; moved behind the token.
 * @param delimiters A string whose bytes are the delimiters, or null.
 * @return The token, where it stands in the text; nothing if there is none.
 */
inline std::optional<std::string_view> nextToken(const char *&rest, const char *delimiters) {
    char *end;
    const char *const token = TQ_strtoken(rest, delimiters, &end);
    if (token == nullptr) return std::nullopt;
    rest = end;
    return std::string_view(token, static_cast<std::size_t>(end - token));
}

/**
 * @brief Takes the next character of one to four bytes out of a text by utf8ReadChar().
 * @param rest The text that is left, not null; moved behind the character, or by one byte if it is invalid.
 * @return The character, where it stands in the text; empty at the end of the text; nothing for an invalid one.
 */
inline std::optional<std::string_view> nextCharacter(const char *&rest) {
    const char *const first = rest;
    std::int32_t valid = 0;
    rest = utf8ReadChar(first, &valid, nullptr);
    if (valid == 0) return std::nullopt;
    return std::string_view(first, static_cast<std::size_t>(rest - first));
}

/**
 * @brief Decodes the next character of one to six bytes of a text by utf8ToUnicode().
 * @param rest The text that is left, not null; moved behind the character, or by one byte where there is none. Unlike
 *        utf8ToUnicode() it stays at the NUL.
 * @return The code point, 0 at the end of the text; nothing where the bytes encode none.
 */
inline std::optional<char32_t> nextCodePoint(const char *&rest) {
    std::uint32_t codePoint = 0;
    std::int32_t length = 0;
    const char *const next = utf8ToUnicode(rest, &codePoint, &length);
    if (*rest != 0) rest = next;
    if (length == 0) return std::nullopt;
    return static_cast<char32_t>(codePoint);
}

/**
 * @brief Encodes a code point by unicodeToUtf8().
 * @param destination Where to.
 * @param codePoint The value.
 * @return Its bytes; nothing for a value from 0x80000000 up, with a space and a NUL written.
 */
template <DestinationOf<7> To>
std::optional<std::string_view> encode(To &&destination, char32_t codePoint) {
    const std::span room(destination);
    const std::int32_t length = unicodeToUtf8(codePoint, room.data());
    if (length == 0) return std::nullopt;
    return std::string_view(room.data(), static_cast<std::size_t>(length));
}

/**
 * @brief Finds the first occurrence of a byte by TQANSI_strchr(), of a string by TQANSI_strstr().
 * @param string A string, or null.
 * @param sought The byte, or a string, or null.
 * @return The position; nothing where there is none.
 */
inline std::optional<std::size_t> find(const char *string, char sought) {
    return detail::positionOf(TQANSI_strchr(string, sought), string);
}

/** @copydoc find(const char *, char) */
inline std::optional<std::size_t> find(const char *string, const char *sought) {
    return detail::positionOf(TQANSI_strstr(string, sought), string);
}

/**
 * @brief Finds the last occurrence of a byte by TQANSI_strrchr().
 * @param string A string, or null.
 * @param sought The byte.
 * @return The position; nothing where there is none.
 */
inline std::optional<std::size_t> findLast(const char *string, char sought) {
    return detail::positionOf(TQANSI_strrchr(string, sought), string);
}

/**
 * @brief Finds the first occurrence of a string after folding by TQ_stristr().
 * @param string A string, or null.
 * @param sought A string, or null.
 * @return The position; nothing where there is none.
 */
inline std::optional<std::size_t> findFolded(const char *string, const char *sought) {
    return detail::positionOf(TQ_stristr(string, sought), string);
}

/**
 * @brief Finds the first byte that belongs to a set by TQANSI_strpbrk().
 * @param string A string, or null.
 * @param set A string whose bytes are the set, or null.
 * @return The position; nothing where there is none.
 */
inline std::optional<std::size_t> findAnyOf(const char *string, const char *set) {
    return detail::positionOf(TQANSI_strpbrk(string, set), string);
}

/**
 * @brief Finds the first character that belongs to a UTF-8 set by TQANSI_strpbrkUTF8().
 * @param string A string, or null.
 * @param set A string whose characters are the set, or null.
 * @return The position; nothing where there is none.
 */
inline std::optional<std::size_t> findAnyCharacterOf(const char *string, const char *set) {
    return detail::positionOf(TQANSI_strpbrkUTF8(string, set), string);
}

}  // namespace strlib

#endif
