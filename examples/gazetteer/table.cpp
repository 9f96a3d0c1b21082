#include "table.h"

#include <strlib.hpp>

#include <algorithm>

#include "catalogue.h"
#include "characters.h"

namespace {

// Room for all columns at their widest, each with its padding.
using Line = std::array<char, 2048>;
using Cell = Field;

// What is left of a line. What does not fit there is left out by strlib::format().
std::span<char> from(char *at, Line &line) { return {at, line.data() + line.size()}; }

char digit(int32_t value) { return static_cast<char>('0' + value % 10); }

// Writes a number with a comma before each three digits; gives its end.
char *writeGrouped(int64_t value, char *at) {
    if (value < 1000) {
        const std::span<char, 4> room(at, 4);
        return at + strlib::toText(room, static_cast<int32_t>(value)).value_or("").size();
    }
    at = writeGrouped(value / 1000, at);
    const auto group = static_cast<int32_t>(value % 1000);
    const std::span<char, 5> room(at, 5);
    return at + strlib::format(room, ",%c%c%c", digit(group / 100), digit(group / 10), digit(group)).size();
}

void writeDegrees(int32_t hundredths, char positive, char negative, Cell &cell) {
    const int32_t magnitude = hundredths < 0 ? -hundredths : hundredths;
    strlib::format(cell, "%d.%c%c\u00B0%c", magnitude / 100, digit(magnitude / 10), digit(magnitude),
                   hundredths < 0 ? negative : positive);
}

void writeName(const Record &record, Cell &cell) { cell = record.name; }
void writeOwnName(const Record &record, Cell &cell) { cell = record.ownName; }
void writeCountry(const Record &record, Cell &cell) { cell = record.country; }
void writeLatitude(const Record &record, Cell &cell) { writeDegrees(record.latitude, 'N', 'S', cell); }
void writeLongitude(const Record &record, Cell &cell) { writeDegrees(record.longitude, 'E', 'W', cell); }
void writePopulation(const Record &record, Cell &cell) { writeGrouped(record.population, cell.data()); }

struct Column {
    const char *title;
    bool alignsRight;
    void (*write)(const Record &record, Cell &cell);
};

constexpr std::array<Column, 6> columns = {{
    {"Capital", false, writeName},
    {"Own name", false, writeOwnName},
    {"Country", false, writeCountry},
    {"Latitude", true, writeLatitude},
    {"Longitude", true, writeLongitude},
    {"Population", true, writePopulation},
}};
constexpr int32_t gap = 2;

using Widths = std::array<int32_t, columns.size()>;

Widths measure(std::span<const Record> records) {
    Widths widths{};
    for (size_t i = 0; i < columns.size(); ++i) {
        widths[i] = displayWidth(columns[i].title);
        for (const Record &record : records) {
            Cell cell;
            columns[i].write(record, cell);
            widths[i] = std::max(widths[i], displayWidth(cell.data()));
        }
    }
    return widths;
}

// A string of `count` spaces: the end of a longer one, which suffices, as no text takes more columns than bytes.
const char *spaces(int32_t count) {
    static const Field all = [] {
        Field field{};
        TQANSI_memset(field.data(), ' ', field.size() - 1);
        return field;
    }();
    return all.data() + all.size() - 1 - count;
}

char *appendCell(Line &line, char *at, const Column &column, int32_t width, const char *text) {
    const char *const padding = spaces(width - displayWidth(text));
    const char *const separation = spaces(at == line.data() ? 0 : gap);
    const char *const first = column.alignsRight ? padding : text;
    const char *const second = column.alignsRight ? text : padding;
    return at + strlib::format(from(at, line), "%s%s%s", separation, first, second).size();
}

void endLine(char *at, const Line &line, std::FILE *output) {
    TQ_strappend(at, "\n");
    std::fputs(line.data(), output);
}

void printTitles(const Widths &widths, std::FILE *output) {
    Line line;
    char *at = line.data();
    for (size_t i = 0; i < columns.size(); ++i) at = appendCell(line, at, columns[i], widths[i], columns[i].title);
    endLine(at, line, output);
}

void printRow(const Record &record, const Widths &widths, std::FILE *output) {
    Line line;
    char *at = line.data();
    for (size_t i = 0; i < columns.size(); ++i) {
        Cell cell;
        columns[i].write(record, cell);
        at = appendCell(line, at, columns[i], widths[i], cell.data());
    }
    endLine(at, line, output);
}

void printRule(const Widths &widths, std::FILE *output) {
    constexpr uint32_t horizontalLine = 0x2500;
    Line line;
    char *at = line.data();
    for (const int32_t width : widths) {
        if (at != line.data()) at = TQ_strappend(at, spaces(gap));
        for (int32_t i = 0; i < width; ++i) at += unicodeToUtf8(horizontalLine, at);
    }
    endLine(at, line, output);
}

void printTotals(std::span<const Record> records, std::FILE *output) {
    int64_t population = 0;
    for (const Record &record : records) population += record.population;
    Cell inhabitants;
    writeGrouped(population, inhabitants.data());
    const auto count = static_cast<int32_t>(records.size());
    const char *const plural = count == 1 ? "" : "s";
    Line line;
    const auto text = strlib::format(line, "%d capital%s, %s inhabitants", count, plural, inhabitants.data());
    endLine(line.data() + text.size(), line, output);
}

void printInitials(std::span<const Record> records, std::FILE *output) {
    const auto counts = countInitials(records);
    Line line;
    char *at = TQ_strappend(line.data(), "By initial:");
    for (int32_t i = 0; i < 26; ++i) {
        const int32_t count = counts[static_cast<size_t>(i)];
        const char letter = static_cast<char>(TQANSI_toupper('a' + i));
        if (count != 0) at += strlib::format(from(at, line), " %c %d", letter, count).size();
    }
    if (counts.back() != 0) at += strlib::format(from(at, line), " other %d", counts.back()).size();
    endLine(at, line, output);
}

}  // namespace

void printTable(std::span<const Record> records, std::FILE *output) {
    const Widths widths = measure(records);
    printTitles(widths, output);
    printRule(widths, output);
    for (const Record &record : records) printRow(record, widths, output);
    printRule(widths, output);
    printTotals(records, output);
    printInitials(records, output);
}
