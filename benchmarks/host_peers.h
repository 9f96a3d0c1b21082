#ifndef BENCHMARKS_HOST_PEERS_H
#define BENCHMARKS_HOST_PEERS_H

// Peers that only the host has, called with the arguments of ours.

#include <fmt/format.h>
#include <strings.h>
#include <utf8proc.h>

#include <cctype>
#include <charconv>
#include <cstring>

namespace host {

template <class Call>
struct Peer {
    const char *name;
    Call call;
};

inline const Peer memccpyThenEnd{"memccpy", [](char *destination, const char *source, int32_t count) {
                                     if (memccpy(destination, source, 0, count) == nullptr) destination[count] = 0;
                                     return destination;
                                 }};
inline const Peer strncpyThenEnd{"strncpy", [](char *destination, const char *source, int32_t count) {
                                     strncpy(destination, source, count)[count] = 0;
                                     return destination;
                                 }};
inline const Peer strcasecmpAsCollation{
    "strcasecmp", [](const char *first, const char *second, const uint8_t *) { return strcasecmp(first, second); }};

inline const Peer toupperInLine{"toupper in line", [](int32_t character) { return toupper(character); }};
inline const Peer isalphaInLine{"isalpha in line", [](int32_t character) { return isalpha(character); }};
inline const Peer isdigitInLine{"isdigit in line", [](int32_t character) { return isdigit(character); }};

inline const Peer fromChars{"from_chars", [](const char *text) {
                                int32_t value = 0;
                                std::from_chars(text, text + 11, value);
                                return value;
                            }};
inline const Peer toChars{"to_chars", [](int32_t value, char *buffer, int32_t size, int32_t) {
                              *std::to_chars(buffer, buffer + size - 1, value).ptr = 0;
                              return buffer;
                          }};

template <class... Values>
int32_t formatted(char *destination, uint32_t size, fmt::string_view format, const Values &...values) {
    const auto written = fmt::vformat_to_n(destination, size - 1, format, fmt::make_format_args(values...));
    *written.out = 0;
    return static_cast<int32_t>(written.size);
}

inline const Peer hexadecimal{"fmt", [](int32_t value, char *buffer, uint32_t size, int32_t) {
                                  formatted(buffer, size, "{:X}", value < 0 ? 0 - static_cast<uint32_t>(value) : value);
                                  return buffer;
                              }};

// What slots hold.
inline const char *text(intptr_t slot) { return reinterpret_cast<const char *>(slot); }
inline int32_t number(intptr_t slot) { return static_cast<int32_t>(slot); }
inline char character(intptr_t slot) { return static_cast<char>(slot); }

template <auto first, auto second, auto third>
auto printer(fmt::string_view format) {
    return [=](char *destination, uint32_t size, const char *, const intptr_t *slots) {
        return formatted(destination, size, format, first(slots[0]), second(slots[1]), third(slots[2]));
    };
}

inline const Peer printFields{"fmt", printer<number, text, character>("{}|{}|{}")};
inline const Peer printIntegers{"fmt", printer<number, number, number>("{},{},{}")};
inline const Peer printSentence{
    "fmt", printer<number, text, character>("The value {} of the sensor named {} is given in degrees {}.")};

inline int32_t decodeWhole(const char *input, int32_t *value) {
    return static_cast<int32_t>(utf8proc_iterate(reinterpret_cast<const uint8_t *>(input), -1, value));
}

inline const Peer encode{"utf8proc", [](uint32_t codePoint, char *buffer) {
                             const auto length = utf8proc_encode_char(codePoint, reinterpret_cast<uint8_t *>(buffer));
                             buffer[length] = 0;
                             return static_cast<int32_t>(length);
                         }};
inline const Peer decode{"utf8proc", [](const char *input, uint32_t *codePoint, int32_t *length) {
                             int32_t value = 0;
                             *length = decodeWhole(input, &value);
                             *codePoint = value;
                             return const_cast<char *>(input) + *length;
                         }};
inline const Peer readCharacter{"utf8proc", [](const char *input, int32_t *valid, char *character) {
                                    int32_t value = 0;
                                    const int32_t length = decodeWhole(input, &value);
                                    *valid = length > 0;
                                    memcpy(character, input, length);
                                    character[length] = 0;
                                    return const_cast<char *>(input) + length;
                                }};

}  // namespace host

#endif
