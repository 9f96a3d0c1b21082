#ifndef TESTS_SUPPORT_MODEL_H
#define TESTS_SUPPORT_MODEL_H

// What each family must do, written once more on C++ strings: slowly, in another manner than the library, and without
// one routine using another. Positions are indices, and `none` where there is nothing.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace model {

inline constexpr size_t none = std::string::npos;

std::string copied(const std::string &source, int64_t limit);

std::string lowered(std::string string);
int32_t compare(const std::string &first, const std::string &second, int64_t count);
int32_t collate(const std::string &first, const std::string &second, const uint8_t *table);
int32_t compareRanges(const std::string &first, const std::string &second);

size_t findFirst(const std::string &string, char byte);
size_t findLast(const std::string &string, char byte);
size_t findFolded(const std::string &string, const std::string &substring);

bool isBlankLine(const std::string &string);
std::string converted(std::string string, const uint8_t *table);

int32_t readInteger(const std::string &text);
// Nothing for a text that does not fit.
std::optional<std::string> writtenInteger(int32_t value, int32_t size, int32_t radix);

// The bytes stored, with the final NUL; `next` gives the text of each conversion's argument, told its letter.
std::string print(uint32_t size, const std::string &format, const std::function<std::string(char)> &next);

// What a scan stores: for each conversion reached its letter, and the bytes written.
struct Field {
    char kind;
    std::string bytes;
};
struct Scan {
    int32_t result;
    std::vector<Field> fields;
};
Scan scan(const std::string &input, const std::string &format);

struct Line {
    std::string content;
    size_t stop;
};
Line line(const std::string &source, size_t size);

struct Token {
    size_t first;
    size_t end;
};
Token token(const std::string &string, const std::string &delimiters);

std::string encode(uint32_t codePoint);
struct Decoded {
    int32_t length;
    uint32_t codePoint;
};
Decoded decode(const std::string &input, uint32_t before);
struct Character {
    bool valid;
    size_t advance;
    std::string copy;  // what the buffer holds, written bytes only
};
Character readCharacter(const std::string &input);
size_t findAnyCharacter(const std::string &string, const std::string &set);

int32_t stringDifference(const std::string &first, const std::string &second);
std::string stringSum(std::string source, int32_t addend);

}  // namespace model

#endif
