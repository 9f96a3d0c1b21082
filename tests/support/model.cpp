#include "model.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace model {

namespace {

const std::string decimals = "0123456789";
const std::string blanks = "\1\2\3\4\5\6\7\b\t\n\v\f\r\16\17\20\21\22\23\24\25\26\27\30\31\32\33\34\35\36\37 ";

uint8_t byteAt(const std::string &string, size_t index) {
    return index < string.size() ? static_cast<uint8_t>(string[index]) : 0;
}

bool isContained(const std::string &bytes, char byte) { return bytes.find(byte) != std::string::npos; }

int32_t signedAt(const std::string &string, size_t index) {
    const int32_t value = byteAt(string, index);
    return value < 128 ? value : value - 256;
}

size_t blanksEnd(const std::string &string, size_t from) {
    return std::min(string.find_first_not_of(blanks, from), string.size());
}

std::string prefixOf(const std::string &text, const std::string &allowed) {
    return text.substr(0, text.find_first_not_of(allowed));
}

}  // namespace

std::string copied(const std::string &source, int64_t limit) {
    return source.substr(0, static_cast<size_t>(std::max<int64_t>(limit, 0)));
}

std::string lowered(std::string string) {
    for (char &byte : string) {
        if (byte >= 'A' && byte <= 'Z') byte = static_cast<char>(byte + 32);
    }
    return string;
}

int32_t compare(const std::string &first, const std::string &second, int64_t count) {
    const size_t positions = count < 0 ? 1 : static_cast<size_t>(count);
    for (size_t i = 0; i < positions && i <= std::max(first.size(), second.size()); ++i) {
        if (byteAt(first, i) != byteAt(second, i)) return signedAt(first, i) - signedAt(second, i);
    }
    return 0;
}

int32_t collate(const std::string &first, const std::string &second, const uint8_t *table) {
    const auto key = [&](const std::string &string) {
        const std::string mapped = converted(string, table);
        return mapped.substr(0, mapped.find('\0'));
    };
    return compare(key(first), key(second), INT32_MAX);
}

int32_t compareRanges(const std::string &first, const std::string &second) {
    const auto [a, b] = std::mismatch(first.begin(), first.end(), second.begin());
    return a == first.end() ? 0 : static_cast<uint8_t>(*a) - static_cast<uint8_t>(*b);
}

size_t findFirst(const std::string &string, char byte) { return string.find(byte); }
size_t findLast(const std::string &string, char byte) { return string.rfind(byte); }

size_t findFolded(const std::string &string, const std::string &substring) {
    if (substring.size() <= UINT16_MAX) return lowered(string).find(lowered(substring));
    return lowered(string).ends_with(lowered(substring)) ? string.size() - substring.size() : none;
}

bool isBlankLine(const std::string &string) { return string.find_first_not_of(blanks) == none; }

std::string converted(std::string string, const uint8_t *table) {
    for (char &byte : string) byte = static_cast<char>(table[static_cast<uint8_t>(byte)]);
    return string;
}

int32_t readInteger(const std::string &text) {
    const std::string rest = text.substr(blanksEnd(text, 0));
    const bool negative = rest.starts_with("-");
    const bool hexadecimal = rest.starts_with("0x");
    const std::string digits = hexadecimal ? "0123456789abcdef" : decimals;
    uint64_t value = 0;
    for (const char digit : prefixOf(lowered(rest.substr(hexadecimal ? 2 : negative)), digits))
        value = (value * digits.size() + digits.find(digit)) % (uint64_t{1} << 32);
    return static_cast<int32_t>(negative ? 0 - value : value);
}

std::optional<std::string> writtenInteger(int32_t value, int32_t size, int32_t radix) {
    if (value != 0 && (radix < 2 || radix > 36)) return std::nullopt;
    char digits[40];
    const uint64_t magnitude = static_cast<uint64_t>(std::abs(int64_t{value}));
    const auto end = std::to_chars(digits, digits + sizeof digits, magnitude, value == 0 ? 10 : radix);
    std::string text = value < 0 && radix == 10 ? "-" : "";
    for (const char *digit = digits; digit != end.ptr; ++digit)
        text += *digit < 'a' ? *digit : static_cast<char>(*digit - 32);
    return text.size() < static_cast<size_t>(size) ? std::optional(text) : std::nullopt;
}

namespace {

// The width that a run of digits gives: of its groups of seven, the last one counts.
uint32_t takeWidth(const std::string &format, size_t &at) {
    const std::string digits = prefixOf(format.substr(at), decimals);
    at += digits.size();
    if (digits.empty()) return UINT32_MAX;
    return static_cast<uint32_t>(std::stoul(digits.substr((digits.size() - 1) / 7 * 7)));
}

char escaped(char letter) { return letter == 'r' ? '\r' : letter == 't' ? '\t' : letter == 'n' ? '\n' : letter; }

}  // namespace

std::string print(uint32_t size, const std::string &format, const std::function<std::string(char)> &next) {
    std::string output;
    for (size_t at = 0; at < format.size();) {
        char byte = format[at++];
        if (byte == '%') {
            const uint32_t width = takeWidth(format, at);
            byte = format[at++];
            if (isContained("dsc", byte)) {
                std::string text = next(byte);
                const size_t bound = byte == 'd' ? std::min(width, 11u) : text.size();
                if (byte == 'd' && text.size() >= bound) text.clear();
                if (output.size() + bound < size) output += text;
                continue;
            }
        }
        if (byte == 0 || output.size() + 1 >= size) break;
        output += byte == '\\' && at < format.size() ? escaped(format[at++]) : byte;
    }
    return output + '\0';
}

namespace {

template <class Integer>
std::string stored(uint64_t value) {
    const auto integer = static_cast<Integer>(value);
    return {reinterpret_cast<const char *>(&integer), sizeof integer};
}

struct Directive {
    char kind;  // a conversion's letter, or 0 where a byte is to be matched
    char byte;
    uint32_t width;
    std::string stops;  // what ends the field
};

// The directive at a place, or the byte there: the NUL where the format ends. A size letter stays in force.
Directive takeDirective(const std::string &format, size_t &at, char &sizeLetter) {
    if (format[at] != '%') return {0, format[at++], 0, ""};
    const uint32_t width = takeWidth(format, ++at);
    char byte = format[at++];
    std::string stops = blanks;
    char kind = isContained("csiun", byte) ? byte : '\0';
    if (isContained("bhl", byte)) {
        sizeLetter = byte;
        byte = format[at++];
        if (isContained("iu", byte)) kind = byte;
    } else if (byte == '[' && (byte = format[at++]) == '^' && at < format.size()) {
        stops = format[at++];
        byte = format[at++];
        if (byte == ']') kind = '[';
    }
    return {kind, byte, width, stops};
}

// What a conversion stores, and how many bytes of the input it uses; none where it fails.
std::pair<std::string, size_t> convert(const Directive &directive, const std::string &input, size_t position,
                                       char sizeLetter) {
    const std::string rest = input.substr(position);
    switch (directive.kind) {
        case 'n': return {stored<uint32_t>(position), 0};
        case 'c': return {rest.substr(0, 1), std::min<size_t>(rest.size(), 1)};
        case 'i':
        case 'u': {
            const auto value = static_cast<uint32_t>(readInteger(rest));
            const size_t sign = rest.starts_with('-');
            const size_t digits = prefixOf(rest.substr(sign), decimals).size();
            const size_t used = digits == 0 ? 0 : sign + digits;
            if (sizeLetter == 'b') return {stored<uint8_t>(value), used};
            return {sizeLetter == 'h' ? stored<uint16_t>(value) : stored<uint32_t>(value), used};
        }
        default: {
            if (directive.width == 0) return {"", 0};
            const size_t length = std::min<size_t>(rest.find_first_of(directive.stops), directive.width - 1);
            const std::string field = rest.substr(0, length);
            return {field + '\0', field.size()};
        }
    }
}

}  // namespace

Scan scan(const std::string &input, const std::string &format) {
    Scan result = {-1, {}};
    if (input.empty()) return result;
    size_t position = blanksEnd(input, 0);
    std::string skipped = input.substr(0, position);  // for the pairs that open the format
    char sizeLetter = 'l';
    for (size_t at = 0; at < format.size();) {
        const Directive directive = takeDirective(format, at, sizeLetter);
        if (directive.kind != 0) {
            skipped.clear();
            const auto [bytes, used] = convert(directive, input, position, sizeLetter);
            result.fields.push_back({directive.kind, bytes});
            result.result = std::max(result.result, 0) + (used != 0);
            if (used == 0 && directive.kind != 'n') break;
            position += used;
            continue;
        }
        const bool pair = directive.byte == '\\';
        const char letter = pair ? format[at++] : directive.byte;
        const char byte = pair ? escaped(letter) : letter;
        if (byte == 0) break;
        if (byte == letter) skipped.clear();
        if (byte == ' ')
            position = blanksEnd(input, position);
        else if (input[position] == byte)
            ++position;
        else if (!isContained(skipped, byte))
            break;
    }
    return result;
}

Line line(const std::string &source, size_t size) {
    Line result = {"", 0};
    for (;; ++result.stop) {
        const uint8_t byte = byteAt(source, result.stop);
        if (byte == 0 || byte == '\n') return result;
        if (byte != '\r') result.content += static_cast<char>(byte);
        if (result.content.size() == size) return result;
    }
}

Token token(const std::string &string, const std::string &delimiters) {
    const size_t first = string.find_first_not_of(delimiters);
    return {first, std::min(string.find_first_of(delimiters, first), string.size())};
}

namespace {

// The first of the bytes that begin sequences of a length; 0 for those that begin none.
struct Lead {
    uint8_t first;
    size_t length;
};
constexpr Lead leads[] = {{0xFE, 0}, {0xFC, 6}, {0xF8, 5}, {0xF0, 4}, {0xE0, 3}, {0xC0, 2}, {0x80, 0}, {0x00, 1}};

Lead leadOf(uint8_t byte) {
    const Lead *lead = leads;
    while (byte < lead->first) ++lead;
    return *lead;
}

size_t continuations(const std::string &input, size_t most) {
    size_t count = 0;
    while (count < most && byteAt(input, 1 + count) / 64 == 2) ++count;
    return count;
}

}  // namespace

std::string encode(uint32_t codePoint) {
    if (codePoint > INT32_MAX) return " ";
    if (codePoint < 0x80) return std::string(1, static_cast<char>(codePoint));
    std::string tail;
    for (size_t index = 5;; --index) {
        tail.insert(tail.begin(), static_cast<char>(0x80 + codePoint % 64));
        codePoint /= 64;
        const uint32_t lead = leads[index].first + codePoint;
        if (lead < leads[index - 1].first) return static_cast<char>(lead) + tail;
    }
}

Decoded decode(const std::string &input, uint32_t before) {
    const uint8_t first = byteAt(input, 0);
    const Lead lead = leadOf(first);
    if (first < 0xC0) return {1, first % 128u};
    if (lead.length == 0) return {0, before};
    const size_t count = first < 0xC2 ? 0 : continuations(input, lead.length - 1);
    uint32_t value = first - uint32_t{lead.first};
    for (size_t i = 1; i < lead.length; ++i) value = value * 64 + (i <= count ? byteAt(input, i) % 64u : 0u);
    return {count == lead.length - 1 ? static_cast<int32_t>(lead.length) : 0, value};
}

Character readCharacter(const std::string &input) {
    const uint8_t first = byteAt(input, 0);
    const Lead lead = leadOf(first);
    if (first == 0) return {true, 0, std::string(1, '\0')};
    if (lead.length == 0 || lead.length > 4 || first == 0xC0 || first == 0xC1) return {false, 1, std::string(1, '\0')};
    const size_t count = continuations(input, lead.length - 1);
    if (count == lead.length - 1) return {true, lead.length, input.substr(0, lead.length) + '\0'};
    return {false, 1, '\0' + input.substr(1, count)};
}

size_t findAnyCharacter(const std::string &string, const std::string &set) {
    for (size_t position = 0; position < string.size(); ++position) {
        for (size_t offset = 0;;) {
            const Lead lead = leadOf(byteAt(set, offset));
            if (lead.length == 0 || lead.length > 4) return none;
            if (offset + lead.length > set.size()) break;
            if (string.compare(position, lead.length, set, offset, lead.length) == 0) return position;
            offset += lead.length;
        }
    }
    return none;
}

int32_t stringDifference(const std::string &first, const std::string &second) {
    int64_t sum = 0;
    int64_t weight = 1;
    // Beyond the front, where the index wraps, bytes are 0.
    for (size_t k = 1; k <= 4; ++k, weight *= 256)
        sum += weight * (signedAt(first, first.size() - k) - signedAt(second, second.size() - k));
    return static_cast<int32_t>(sum);
}

std::string stringSum(std::string source, int32_t addend) {
    for (size_t k = 1; k <= 4 && addend != 0; ++k) {
        if (k > source.size()) source.insert(source.begin(), '\0');
        char &digit = source[source.size() - k];
        const int32_t lowByte = (addend % 256 + 256) % 256;
        digit = static_cast<char>(digit + lowByte);
        addend = (addend - lowByte) / 256;
        if (addend == -1) addend = 0;
    }
    return source.substr(0, source.find('\0'));
}

}  // namespace model
