// Each line that ends in a name must not compile, and for the reason of that name; every other line compiles silently.
#include <array>
#include <string>
#include <strlib.hpp>
#include <vector>

template <class Type, char letter, char size = 'l', std::uint32_t width = 5>
concept Written = requires {
    typename std::bool_constant<(strlib::detail::checkOutput<Type>({letter, 0, size, width}), 1)>;
};
template <class Type, char letter, char size = 'l', std::uint32_t width = 5>
concept Read = requires {
    typename std::bool_constant<(strlib::detail::checkInput<Type>({letter, 0, size, width}), 1)>;
};

// Whether a type is right for each conversion with a letter, and for no other: %d, %s and %c of output, then %c, %n, %i
// and %u with each size, and fields of eight and nine bytes.
template <class Type>
constexpr bool suits(std::string_view letters) {
    const bool taken[] = {Written<Type, 'd'>,     Written<Type, 's'>,   Written<Type, 'c'>,   Read<Type, 'c'>,
                          Read<Type, 'n', 'h'>,   Read<Type, 'i'>,      Read<Type, 'u'>,      Read<Type, 'i', 'h'>,
                          Read<Type, 'u', 'h'>,   Read<Type, 'i', 'b'>, Read<Type, 'u', 'b'>, Read<Type, 's', 'l', 8>,
                          Read<Type, '[', 'l', 9>};
    for (std::size_t i = 0; i < std::size(taken); ++i)
        if (taken[i] != (letters[i] != '.')) return false;
    return true;
}

static_assert(suits<bool>("............."));
static_assert(suits<char>("..cc........."));
static_assert(suits<char32_t>("............."));
static_assert(suits<std::int8_t>("d.cc.....i..."));
static_assert(suits<std::uint8_t>("d.cc......u.."));
static_assert(suits<std::int16_t>("d......i....."));
static_assert(suits<std::uint16_t>("d.......u...."));
static_assert(suits<std::int32_t>("d...ni......."));
static_assert(suits<std::uint32_t>("....n.u......"));
static_assert(suits<std::int64_t>("............."));
static_assert(suits<float>("............."));
static_assert(suits<std::int32_t *>("............."));
static_assert(suits<std::nullptr_t>(".s..........."));
static_assert(suits<char *>(".s..........."));
static_assert(suits<const char[9]>(".s..........."));
static_assert(suits<std::string>(".s..........."));
static_assert(suits<std::string_view>("............."));
static_assert(suits<char[8]>(".s.........s."));
static_assert(suits<std::array<char, 9>>("...........s["));
static_assert(suits<std::span<char, 8>>("...........s."));
static_assert(suits<std::span<char>>("............."));
static_assert(suits<std::vector<char>>("............."));
static_assert(!strlib::DestinationOf<std::span<char>, 1> && !strlib::Destination<std::uint8_t[8]>);

static char one[1], two[2], four[4], five[5], six[6], seven[7], eight[8], line[32];
static const char constant[8] = "";
static char letter;
static std::uint8_t uint8;
static std::int16_t int16;
static std::int32_t int32;
static std::array<char, 8> array;
static std::span<char, 8> fixedSpan(eight);
static std::span<char> openSpan(eight);
static std::vector<char> vector(8);

void output(const char *text, char *room) {
    strlib::format(line, "%i", 1);             // noConversionBehindPercentSign
    strlib::format(line, text);                // notConstant
    strlib::format(line, "%1d", 1);            // widthThatWritesNoNumber
    strlib::format(line, "%d|%s|%c", 1, "a");  // moreConversionsThanArguments
    strlib::format(line, "\\%d", 1);           // moreArgumentsThanConversions
    strlib::format(line, "%s%d", 1, "a");      // argumentOfAnotherType
    strlib::format(four, "abcd");              // formatThatTheDestinationCannotHold
    strlib::format(array, "%4d%4d", 1, 2);     // formatThatTheDestinationCannotHold
    strlib::format(fixedSpan, "12345678");     // formatThatTheDestinationCannotHold
    strlib::format(room, "a");                 // noDestination
    strlib::format(line, "%2d%%\\%d\0%x", 1);
    strlib::format(line, "%s%s%s%s%s%s", "a", text, room, constant, std::string("b"), nullptr);
    strlib::format(line, "%d%c%c", int16, letter, uint8);
    strlib::format(four, "abc%s", "longer than the array");
    strlib::format(openSpan, "%d%d%d", 1, 2, 3);
}

void input(const char *text) {
    strlib::scan(text, "%d", int32);             // noConversionBehindPercentSign
    strlib::scan(text, text, int32);             // notConstant
    strlib::scan(text, "%i%n", int32);           // moreConversionsThanArguments
    strlib::scan(text, "%i", int32, int32);      // moreArgumentsThanConversions
    strlib::scan(text, "%hi,%i", int16, int32);  // argumentOfAnotherType
    strlib::scan(text, "%4s", constant);         // argumentOfAnotherType
    strlib::scan(text, "%i", 5);                 // noDestination
    strlib::scan(text, "%s", eight);             // fieldWithoutWidthOfTwoOrMore
    strlib::scan(text, "%1[^;]", eight);         // fieldWithoutWidthOfTwoOrMore
    strlib::scan(text, "%9s", fixedSpan);        // fieldWiderThanItsArray
    strlib::scan(text, "%8s", openSpan);         // fieldWiderThanItsArray
    strlib::scan(text, "%%\\n %i%%%hi,%i%n%bu", int32, int16, int16, int32, uint8);
    strlib::scan(text, "%8s%8[^;]%8s%2[^]]%c", eight, array, fixedSpan, two, letter);
}

void destinations(const char *text, char *room, const char *&rest) {
    strlib::copy(room, text);      // noDestination
    strlib::copy(constant, text);  // noDestination
    strlib::append(room, text);    // noDestination
    strlib::toText(room, 1);       // noDestination
    strlib::add(four, text, 1);    // noDestination
    strlib::encode(six, U'x');     // noDestination
    strlib::nextLine(one, rest);   // noDestination
    strlib::copy(four, text);
    strlib::append(vector, text);
    strlib::toText(openSpan, 1);
    strlib::add(five, text, 1);
    strlib::encode(seven, U'x');
    strlib::nextLine(two, rest);
}
