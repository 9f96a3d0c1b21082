#include "model.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace model {

namespace {

uint8_t byteAt(const std::string &string, size_t index) {
    return index < string.size() ? static_cast<uint8_t>(string[index]) : 0;
}

bool isContained(const std::string &bytes, char byte) { return bytes.find(byte) != std::string::npos; }

const std::string &blanks() {
    static const std::string all = [] {
        std::string bytes;
        for (char byte = 1; byte <= 32; ++byte) bytes += byte;
        return bytes;
    }();
    return all;
}

std::string lowered(std::string string) {
    for (char &byte : string) {
        if (byte >= 'A' && byte <= 'Z') byte = static_cast<char>(byte + 32);
    }
    return string;
}

int32_t signedAt(const std::string &string, size_t index) {
    const int32_t value = byteAt(string, index);
    return value < 128 ? value : value - 256;
}

std::string prefixOf(const std::string &text, const std::string &allowed) {
    return text.substr(0, text.find_first_not_of(allowed));
}

const std::string decimals = "0123456789";

}  // namespace

std::string copied(const std::string &source, int64_t limit) {
    return source.substr(0, static_cast<size_t>(std::max<int64_t>(limit, 0)));
}

int32_t compare(const std::string &first, const std::string &second, Bytes bytes, int64_t count) {
    const std::string a = bytes == Bytes::folded ? lowered(first) : first;
    const std::string b = bytes == Bytes::folded ? lowered(second) : second;
    const size_t positions = count < 0 ? 1 : static_cast<size_t>(count);
    for (size_t i = 0; i < positions && i <= std::max(a.size(), b.size()); ++i) {
        if (byteAt(a, i) != byteAt(b, i)) return signedAt(a, i) - signedAt(b, i);
    }
    return 0;
}

int32_t collate(const std::string &first, const std::string &second, const uint8_t *table) {
    const auto key = [&](const std::string &string) {
        std::string mapped;
        for (const char byte : string) mapped += static_cast<char>(table[static_cast<uint8_t>(byte)]);
        return mapped.substr(0, mapped.find('\0'));
    };
    return compare(key(first), key(second), Bytes::exact, INT32_MAX);
}

int32_t compareRanges(const std::string &first, const std::string &second) {
    const auto [a, b] = std::mismatch(first.begin(), first.end(), second.begin());
    return a == first.end() ? 0 : static_cast<uint8_t>(*a) - static_cast<uint8_t>(*b);
}

size_t findFirst(const std::string &string, uint8_t byte) { return string.find(static_cast<char>(byte)); }
size_t findLast(const std::string &string, uint8_t byte) { return string.rfind(static_cast<char>(byte)); }

size_t findSubstring(std::string string, std::string substring, Bytes bytes) {
    if (bytes == Bytes::exact) return string.find(substring);
    string = lowered(std::move(string));
    substring = lowered(std::move(substring));
    const bool onlyAtTheEnd = substring.size() > UINT16_MAX;
    if (!onlyAtTheEnd) return string.find(substring);
    return string.ends_with(substring) ? string.size() - substring.size() : none;
}

bool isBlankLine(const std::string &string) { return string.find_first_not_of(blanks()) == none; }

std::string converted(const std::string &string, const uint8_t *table) {
    std::string result = string;
    std::transform(string.begin(), string.end(), result.begin(),
                   [&](char byte) { return static_cast<char>(table[static_cast<uint8_t>(byte)]); });
    return result;
}

int32_t readInteger(const std::string &text) {
    const size_t start = std::min(text.find_first_not_of(blanks()), text.size());
    std::string rest = text.substr(start);
    if (rest.starts_with("0x")) {
        const std::string digits = prefixOf(rest.substr(2), "0123456789abcdefABCDEF");
        const std::string last = digits.substr(digits.size() - std::min<size_t>(digits.size(), 8));
        return static_cast<int32_t>(last.empty() ? 0 : std::stoul(last, nullptr, 16));
    }
    const bool negative = rest.starts_with("-");
    uint64_t value = 0;
    for (const char digit : prefixOf(rest.substr(negative), decimals)) {
        value = (value * 10 + decimals.find(digit)) % (uint64_t{1} << 32);
    }
    return static_cast<int32_t>(static_cast<uint32_t>(negative ? -value : value));
}

std::optional<std::string> writtenInteger(int32_t value, int32_t size, int32_t radix) {
    if (value != 0 && (radix < 2 || radix > 36)) return std::nullopt;
    char digits[40];
    const int64_t wide = value;
    const auto end = std::to_chars(digits, digits + sizeof digits, wide < 0 ? -wide : wide, value == 0 ? 10 : radix);
    std::string text(digits, end.ptr);
    for (char &digit : text) {
        if (digit >= 'a') digit = static_cast<char>(digit - 32);
    }
    if (wide < 0 && radix == 10) text = '-' + text;
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

std::string print(uint32_t size, const std::string &format, const std::function<Argument(char)> &next) {
    std::string output;
    for (size_t at = 0; at < format.size();) {
        char byte = format[at++];
        if (byte == '%') {
            const uint32_t width = takeWidth(format, at);
            if (at == format.size()) break;
            byte = format[at++];
            if (isContained("dsc", byte)) {
                const Argument argument = next(byte);
                std::string item;
                size_t bound = 11;
                if (byte == 'd') {
                    bound = std::min<size_t>(width, bound);
                    item = std::to_string(std::get<int32_t>(argument));
                    if (item.size() >= bound) item.clear();
                } else if (byte == 'c') {
                    item = static_cast<char>(std::get<int32_t>(argument));
                    bound = 1;
                } else {
                    const char *const string = std::get<const char *>(argument);
                    item = string == nullptr ? "" : string;
                    bound = item.size();
                }
                if (output.size() + bound < size) output += item;
                continue;
            }
        }
        if (output.size() + 1 >= size) break;
        output += byte == '\\' && at < format.size() ? escaped(format[at++]) : byte;
    }
    return output + '\0';
}

namespace {

std::string littleEndian(uint32_t value, size_t bytes) {
    std::string result;
    for (size_t i = 0; i < bytes; ++i) result += static_cast<char>(value >> 8 * i & 0xFF);
    return result;
}

// One conversion of a scan; whether it succeeds.
bool scanField(char kind, const std::string &input, size_t &at, uint32_t width, const std::string &stops, size_t size,
               std::string &bytes) {
    if (kind == 'n') {
        bytes = littleEndian(static_cast<uint32_t>(at), 4);
        return true;
    }
    const std::string rest = input.substr(at);
    if (kind == 'c') {
        bytes = rest.substr(0, 1);
        at += bytes.size();
        return !bytes.empty();
    }
    if (kind == 'i' || kind == 'u') {
        bytes = littleEndian(static_cast<uint32_t>(readInteger(rest)), size);
        const size_t sign = rest.starts_with('-');
        const size_t digits = prefixOf(rest.substr(sign), decimals).size();
        if (digits != 0) at += sign + digits;
        return digits != 0;
    }
    if (width == 0) return false;
    const std::string field = rest.substr(0, std::min<size_t>(rest.find_first_of(stops), width - 1));
    bytes = field + '\0';
    at += field.size();
    return !field.empty();
}

}  // namespace

Scan scan(const std::string &input, const std::string &format) {
    Scan result = {-1, {}};
    if (input.empty()) return result;
    size_t position = std::min(input.find_first_not_of(blanks()), input.size());
    std::string skipped = input.substr(0, position);  // for the pairs that open the format
    size_t size = 4;
    for (size_t at = 0; at < format.size();) {
        uint32_t width = UINT32_MAX;
        std::string stops = blanks();
        char kind = 0;
        char byte = format[at++];
        if (byte == '%') {
            width = takeWidth(format, at);
            if (at == format.size()) break;
            byte = format[at++];
            if (isContained("csiun", byte)) {
                kind = byte;
            } else if (isContained("bhl", byte)) {
                size = byte == 'b' ? 1 : byte == 'h' ? 2 : 4;
                if (at == format.size()) break;
                byte = format[at++];
                if (byte == 'i' || byte == 'u') kind = byte;
            } else if (byte == '[') {
                const size_t length = format[at] == '^' ? 3 : 1;
                if (at + length > format.size()) break;
                stops = format[at + 1];
                at += length;
                byte = format[at - 1];
                if (length == 3 && byte == ']') kind = '[';
            }
        }
        if (kind != 0) {
            result.result = std::max(result.result, 0);
            result.fields.push_back({kind, ""});
            if (!scanField(kind, input, position, width, stops, size, result.fields.back().bytes)) break;
            result.result += kind != 'n';
            skipped.clear();
            continue;
        }
        const bool pair = byte == '\\';
        if (pair && at == format.size()) break;
        if (!pair || !isContained("rtn", format[at])) skipped.clear();
        if (pair) byte = escaped(format[at++]);
        if (byte == ' ')
            position = std::min(input.find_first_not_of(blanks(), position), input.size());
        else if (byteAt(input, position) == static_cast<uint8_t>(byte))
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

std::string encode(uint32_t codePoint) {
    if (codePoint > INT32_MAX) return " ";
    if (codePoint < 0x80) return std::string(1, static_cast<char>(codePoint));
    std::string tail;
    uint32_t room = 0x40;  // values that fit in the lead byte
    while (codePoint >= room) {
        tail.insert(tail.begin(), static_cast<char>(0x80 + codePoint % 64));
        codePoint /= 64;
        room = tail.size() == 1 ? 0x20 : room / 2;
    }
    static constexpr uint32_t marks[] = {0, 0xC0, 0xE0, 0xF0, 0xF8, 0xFC};
    return static_cast<char>(marks[tail.size()] + codePoint) + tail;
}

namespace {

// By the first byte of a sequence: its length (0 for none) and the payload it carries.
struct Lead {
    size_t length;
    uint32_t payload;
};

Lead leadOf(uint8_t byte) {
    if (byte < 0x80) return {1, byte};
    if (byte < 0xC0) return {0, 0};
    if (byte < 0xE0) return {2, byte - 0xC0u};
    if (byte < 0xF0) return {3, byte - 0xE0u};
    if (byte < 0xF8) return {4, byte - 0xF0u};
    if (byte < 0xFC) return {5, byte - 0xF8u};
    if (byte < 0xFE) return {6, byte - 0xFCu};
    return {0, 0};
}

size_t continuations(const std::string &input, size_t most) {
    size_t count = 0;
    while (count < most && byteAt(input, 1 + count) / 64 == 2) ++count;
    return count;
}

}  // namespace

Decoded decode(const std::string &input, uint32_t before) {
    const uint8_t first = byteAt(input, 0);
    const Lead lead = leadOf(first);
    if (first < 0xC0) return {1, first % 128u};
    if (lead.length == 0) return {0, before};
    const size_t count = first < 0xC2 ? 0 : continuations(input, lead.length - 1);
    uint32_t value = lead.payload;
    for (size_t i = 1; i < lead.length; ++i) value = value * 64 + (i <= count ? byteAt(input, i) % 64 : 0);
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
    for (size_t k = 1; k <= 4; ++k, weight *= 256) {
        if (k <= first.size()) sum += weight * signedAt(first, first.size() - k);
        if (k <= second.size()) sum -= weight * signedAt(second, second.size() - k);
    }
    return static_cast<int32_t>(static_cast<uint32_t>(static_cast<uint64_t>(sum)));
}

std::string stringSum(const std::string &source, int32_t addend) {
    std::string reversed(source.rbegin(), source.rend());
    for (size_t k = 0; k < 4; ++k) {
        if (k >= reversed.size() && addend == 0) break;
        if (k >= reversed.size()) reversed += '\0';
        reversed[k] = static_cast<char>(reversed[k] + addend % 256);
        addend = addend < 0 ? -((-(addend + 1)) / 256) - 1 : addend / 256;  // rounds down
        if (addend == -1) addend = 0;
    }
    const std::string sum(reversed.rbegin(), reversed.rend());
    return sum.substr(0, sum.find('\0'));
}

}  // namespace model
