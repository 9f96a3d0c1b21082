// Each line that ends in a name must not compile, and for the reason of that name; every other line compiles silently.
#include <array>
#include <string>
#include <strlib.hpp>
#include <vector>

static char two[2], four[4], eight[8], line[32];
static const char constant[8] = "";
static char letter;
static std::int8_t int8;
static std::uint8_t uint8;
static std::int16_t int16;
static std::uint16_t uint16;
static std::int32_t int32;
static std::uint32_t uint32;
static std::int64_t int64;
static bool truth;
static std::array<char, 8> array;
static std::span<char, 8> fixedSpan(eight);
static std::span<char> openSpan(eight);
static std::vector<char> vector(8);

void outputDialect(const char *text) {
    strlib::format(line, "%x");             // noConversionBehindPercentSign
    strlib::format(line, "%i", 1);          // noConversionBehindPercentSign
    strlib::format(line, "%-5d");           // noConversionBehindPercentSign
    strlib::format(line, "100%");           // noConversionBehindPercentSign
    strlib::format(line, "%5");             // noConversionBehindPercentSign
    strlib::format(line, "%5%");            // noConversionBehindPercentSign
    strlib::format(line, "%\\n");           // noConversionBehindPercentSign
    strlib::format(line, "% d");            // noConversionBehindPercentSign
    strlib::format(line, text);             // notConstant
    strlib::format(line, "%0d", 1);         // widthThatWritesNoNumber
    strlib::format(line, "%1d", 1);         // widthThatWritesNoNumber
    strlib::format(line, "%99999991d", 1);  // widthThatWritesNoNumber
    strlib::format(line, "100%%");
    strlib::format(line, "\\%d");
    strlib::format(line, "%2d", 1);
    strlib::format(line, "a\0%x");
}

void outputArguments(std::string_view view, const char *text, char *room) {
    strlib::format(line, "%d");                // moreConversionsThanArguments
    strlib::format(line, "%d|%s|%c", 1, "a");  // moreConversionsThanArguments
    strlib::format(line, "%d", 1, 2);          // moreArgumentsThanConversions
    strlib::format(line, "\\%d", 1);           // moreArgumentsThanConversions
    strlib::format(line, "", 1);               // moreArgumentsThanConversions
    strlib::format(line, "%d", "Lima");        // argumentOfAnotherType
    strlib::format(line, "%d", uint32);        // argumentOfAnotherType
    strlib::format(line, "%d", int64);         // argumentOfAnotherType
    strlib::format(line, "%d", letter);        // argumentOfAnotherType
    strlib::format(line, "%d", truth);         // argumentOfAnotherType
    strlib::format(line, "%d", 1.5);           // argumentOfAnotherType
    strlib::format(line, "%d", &int32);        // argumentOfAnotherType
    strlib::format(line, "%s", 1);             // argumentOfAnotherType
    strlib::format(line, "%s", letter);        // argumentOfAnotherType
    strlib::format(line, "%s", view);          // argumentOfAnotherType
    strlib::format(line, "%s", array);         // argumentOfAnotherType
    strlib::format(line, "%c", 65);            // argumentOfAnotherType
    strlib::format(line, "%c", "A");           // argumentOfAnotherType
    strlib::format(line, "%c", truth);         // argumentOfAnotherType
    strlib::format(line, "%s%d", 1, "a");      // argumentOfAnotherType
    strlib::format(line, "%d", int32);
    strlib::format(line, "%d", int16);
    strlib::format(line, "%d", uint16);
    strlib::format(line, "%5d", uint8);
    strlib::format(line, "%c%c%c", letter, int8, uint8);
    strlib::format(line, "%s%s%s%s%s", "a", text, room, constant, std::string("b"));
    strlib::format(line, "%s", nullptr);
}

void outputRoom(char *room) {
    strlib::format(four, "abcd");                          // formatThatTheDestinationCannotHold
    strlib::format(four, "a\\nb%%");                       // formatThatTheDestinationCannotHold
    strlib::format(four, "%c%c%c%c", 'a', 'b', 'c', 'd');  // formatThatTheDestinationCannotHold
    strlib::format(eight, "%d", 1);                        // formatThatTheDestinationCannotHold
    strlib::format(eight, "%8d", 1);                       // formatThatTheDestinationCannotHold
    strlib::format(array, "%4d%4d", 1, 2);                 // formatThatTheDestinationCannotHold
    strlib::format(fixedSpan, "12345678");                 // formatThatTheDestinationCannotHold
    strlib::format(line, "%d%d%d", 1, 2, 3);               // formatThatTheDestinationCannotHold
    strlib::format(room, "a");                             // noDestination
    strlib::format(constant, "a");                         // noDestination
    strlib::format(std::string_view("a"), "a");            // noDestination
    strlib::format(four, "abc");
    strlib::format(four, "\\n%%\\t");
    strlib::format(four, "%c%c%s%c", 'a', 'b', "longer than the array", 'c');
    strlib::format(eight, "%7d", 1);
    strlib::format(line, "%20d%20d", 1, 2);
    strlib::format(openSpan, "%d%d%d", 1, 2, 3);
    strlib::format(vector, "%d%d%d", 1, 2, 3);
}

void inputDialect(const char *text) {
    strlib::scan(text, "%d", int32);       // noConversionBehindPercentSign
    strlib::scan(text, "%hd", int16);      // noConversionBehindPercentSign
    strlib::scan(text, "%h5i", int16);     // noConversionBehindPercentSign
    strlib::scan(text, "%*i");             // noConversionBehindPercentSign
    strlib::scan(text, "%[abc]", eight);   // noConversionBehindPercentSign
    strlib::scan(text, "%4[^ab]", eight);  // noConversionBehindPercentSign
    strlib::scan(text, "%[^", eight);      // noConversionBehindPercentSign
    strlib::scan(text, "%[^%%");           // noConversionBehindPercentSign
    strlib::scan(text, "%h%");             // noConversionBehindPercentSign
    strlib::scan(text, "% i", int32);      // noConversionBehindPercentSign
    strlib::scan(text, "%");               // noConversionBehindPercentSign
    strlib::scan(text, text, int32);       // notConstant
    strlib::scan(text, "%%\\n %i%%", int32);
    strlib::scan(text, "%4[^]]%4[^^]%4[^%]", eight, eight, eight);
}

void inputArguments(const char *text, char *room) {
    strlib::scan(text, "%i");                               // moreConversionsThanArguments
    strlib::scan(text, "%i%n", int32);                      // moreConversionsThanArguments
    strlib::scan(text, "%i", int32, int32);                 // moreArgumentsThanConversions
    strlib::scan(text, "%i", uint32);                       // argumentOfAnotherType
    strlib::scan(text, "%u", int32);                        // argumentOfAnotherType
    strlib::scan(text, "%i", int16);                        // argumentOfAnotherType
    strlib::scan(text, "%hi,%i", int16, int32);             // argumentOfAnotherType
    strlib::scan(text, "%hi,%li,%i", int16, int32, int16);  // argumentOfAnotherType
    strlib::scan(text, "%hi", int32);                       // argumentOfAnotherType
    strlib::scan(text, "%bi", letter);                      // argumentOfAnotherType
    strlib::scan(text, "%i", int64);                        // argumentOfAnotherType
    strlib::scan(text, "%i", truth);                        // argumentOfAnotherType
    strlib::scan(text, "%i", eight);                        // argumentOfAnotherType
    strlib::scan(text, "%c", int32);                        // argumentOfAnotherType
    strlib::scan(text, "%c", eight);                        // argumentOfAnotherType
    strlib::scan(text, "%n", int16);                        // argumentOfAnotherType
    strlib::scan(text, "%hi%n", int16, int16);              // argumentOfAnotherType
    strlib::scan(text, "%4s", int32);                       // argumentOfAnotherType
    strlib::scan(text, "%4s", room);                        // argumentOfAnotherType
    strlib::scan(text, "%4s", constant);                    // argumentOfAnotherType
    strlib::scan(text, "%i", 5);                            // noDestination
    strlib::scan(text, "%hi,%i", int16, int16);
    strlib::scan(text, "%hi,%li,%i", int16, int32, int32);
    strlib::scan(text, "%bi,%bu,%u", int8, uint8, uint8);
    strlib::scan(text, "%hu%n", uint16, int32);
    strlib::scan(text, "%n%u", uint32, uint32);
    strlib::scan(text, "%c%c%c", letter, int8, uint8);
}

void inputWidths(const char *text) {
    strlib::scan(text, "%s", eight);          // fieldWithoutWidthOfTwoOrMore
    strlib::scan(text, "%[^;]", eight);       // fieldWithoutWidthOfTwoOrMore
    strlib::scan(text, "%0s", eight);         // fieldWithoutWidthOfTwoOrMore
    strlib::scan(text, "%1s", eight);         // fieldWithoutWidthOfTwoOrMore
    strlib::scan(text, "%1[^;]", eight);      // fieldWithoutWidthOfTwoOrMore
    strlib::scan(text, "%9s", eight);         // fieldWiderThanItsArray
    strlib::scan(text, "%9[^;]", array);      // fieldWiderThanItsArray
    strlib::scan(text, "%9s", fixedSpan);     // fieldWiderThanItsArray
    strlib::scan(text, "%12345679s", eight);  // fieldWiderThanItsArray
    strlib::scan(text, "%4s", openSpan);      // fieldWiderThanItsArray
    strlib::scan(text, "%4s", vector);        // fieldWiderThanItsArray
    strlib::scan(text, "%8s%8[^;]%8s%2s", eight, array, fixedSpan, two);
    strlib::scan(text, "%12345678s", eight);
}

void destinations(const char *text, char *room, const char *&rest) {
    strlib::copy(room, text);          // noDestination
    strlib::copy(constant, text);      // noDestination
    strlib::copy(uint8, text);         // noDestination
    strlib::append(room, text);        // noDestination
    strlib::toText(room, 1);           // noDestination
    strlib::add(four, text, 1);        // noDestination
    strlib::add(openSpan, text, 1);    // noDestination
    strlib::encode(four, U'x');        // noDestination
    strlib::encode(openSpan, U'x');    // noDestination
    strlib::nextLine(room, rest);      // noDestination
    strlib::nextLine(openSpan, rest);  // noDestination
    strlib::copy(four, text);
    strlib::append(vector, text);
    strlib::toText(openSpan, 1);
    strlib::add(eight, text, 1);
    strlib::encode(array, U'x');
    strlib::nextLine(two, rest);
}
