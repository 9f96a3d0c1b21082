#include "record.h"

#include <strlib.hpp>

#include <optional>

#include "characters.h"

namespace {

constexpr int32_t fieldCount = 6;
constexpr const char *separator = ";";

using Fields = std::array<Field, fieldCount>;

constexpr uint8_t blankClass = 1;
constexpr uint8_t digitClass = 2;
constexpr uint8_t pointClass = 4;

std::array<uint8_t, 256> makeClasses() {
    std::array<uint8_t, 256> classes{};
    for (int32_t byte = 1; byte <= ' '; ++byte) classes[static_cast<uint8_t>(byte)] = blankClass;
    for (int32_t byte = '0'; byte <= '9'; ++byte) classes[static_cast<uint8_t>(byte)] = digitClass;
    classes['.'] = pointClass;
    return classes;
}

bool belongsTo(uint8_t mask, char byte) {
    static const std::array<uint8_t, 256> classes = makeClasses();
    return TQ_isAttribute(mask, classes.data(), byte) != 0;
}

bool isMadeOf(uint8_t mask, const char *text) {
    while (belongsTo(mask, *text)) ++text;
    return *text == 0;
}

// The tokenizer takes a run of separators for one, so that empty fields must be looked for beforehand.
bool hasEmptyField(const char *line) {
    const char *const last = TQANSI_strrchr(line, *separator);
    return *line == *separator || TQANSI_strstr(line, ";;") != nullptr || (last != nullptr && last[1] == 0);
}

int32_t countFields(const char *line) {
    int32_t count = 0;
    while (strlib::nextToken(line, separator)) ++count;
    return count;
}

// Takes a field's bytes without the blanks around them.
const char *takeField(std::string_view token, Field &field) {
    while (!token.empty() && belongsTo(blankClass, token.front())) token.remove_prefix(1);
    while (!token.empty() && belongsTo(blankClass, token.back())) token.remove_suffix(1);
    if (token.empty()) return "empty field";
    if (token.size() >= field.size()) return "field too long";
    strlib::copy(field, token);
    return nullptr;
}

const char *splitLine(const char *line, Fields &fields) {
    if (hasEmptyField(line)) return "empty field";
    const int32_t count = countFields(line);
    if (count != fieldCount) return count < fieldCount ? "too few fields" : "too many fields";
    for (Field &field : fields) {
        const auto token = strlib::nextToken(line, separator);
        if (const char *const reason = takeField(token.value_or(""), field)) return reason;
    }
    return nullptr;
}

// Reads degrees, in thousandths; further digits are dropped. The sign is taken beforehand, as "-0" has none; and the
// scan would also take blanks and "0x1F", which the classes keep out.
std::optional<int32_t> readThousandths(const char *text) {
    const bool isNegative = *text == '-';
    if (isNegative) ++text;
    if (!isMadeOf(digitClass | pointClass, text)) return std::nullopt;
    uint32_t degrees = 0;
    int32_t point = 0;
    // Three digits, and room for the zeros that make up for missing ones.
    char fraction[6] = "";
    const int32_t count = strlib::scan(text, "%u%n.%4s", degrees, point, fraction);
    if (count < 1 || (count == 1 && text[point] != 0)) return std::nullopt;
    if (count == 2 && !isMadeOf(digitClass, text + point + 1)) return std::nullopt;
    strlib::append(fraction, "00");
    fraction[3] = 0;
    // More digits may have wrapped around; they count as a number that is out of every range.
    if (point > 3) degrees = 999;
    const int32_t thousandths = static_cast<int32_t>(degrees) * 1000 + TQANSI_atoi(fraction);
    return isNegative ? -thousandths : thousandths;
}

// Reads a coordinate, rounded to hundredths of a degree. Tells what is wrong with it, if anything is.
const char *readCoordinate(const char *text, int32_t limit, const char *malformed, const char *outOfRange,
                           int32_t &result) {
    const std::optional<int32_t> thousandths = readThousandths(text);
    if (!thousandths) return malformed;
    if (*thousandths < -limit || *thousandths > limit) return outOfRange;
    result = (*thousandths + (*thousandths < 0 ? -5 : 5)) / 10;
    return nullptr;
}

// More than nine digits could wrap around without a sign of it.
const char *readPopulation(const char *text, int32_t &result) {
    constexpr int32_t maxDigits = 9;
    int32_t digits = 0;
    while (TQANSI_isdigit(text[digits])) ++digits;
    if (text[digits] != 0) return "population is no number";
    if (digits > maxDigits) return "population out of range";
    result = TQANSI_atoi(text);
    return nullptr;
}

}  // namespace

const char *readRecord(const char *line, Record &record) {
    if (!isPrintable(line)) return "control character";
    Fields fields{};
    const char *reason = splitLine(line, fields);
    if (reason == nullptr) {
        reason =
            readCoordinate(fields[3].data(), 90000, "latitude is no number", "latitude out of range", record.latitude);
    }
    if (reason == nullptr) {
        reason = readCoordinate(fields[4].data(), 180000, "longitude is no number", "longitude out of range",
                                record.longitude);
    }
    if (reason == nullptr) reason = readPopulation(fields[5].data(), record.population);
    if (reason != nullptr) return reason;
    record.ownName = fields[0];
    record.name = fields[1];
    record.country = fields[2];
    copyPlain(record.plainOwnName.data(), record.ownName.data());
    copyPlain(record.plainName.data(), record.name.data());
    copyPlain(record.plainCountry.data(), record.country.data());
    return nullptr;
}
