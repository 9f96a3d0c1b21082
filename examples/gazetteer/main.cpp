// Prints a gazetteer of capitals from a file of records, and finds records in it.

#include <strlib.hpp>

#include <cstdio>
#include <new>

#include "catalogue.h"
#include "characters.h"
#include "options.h"
#include "table.h"
#include "text_file.h"

namespace {

constexpr int exitFailure = 1;
constexpr int exitBadUsage = 2;

void complain(const char *file, Problem problem) {
    std::fputs(isStandardInput(file) ? "standard input" : file, stderr);
    std::fputs(":", stderr);
    if (problem.line != 0) {
        char line[12];
        std::fputs(strlib::toText(line, problem.line).value_or("?").data(), stderr);
        std::fputs(":", stderr);
    }
    std::fputs(" ", stderr);
    std::fputs(problem.reason, stderr);
    std::fputs("\n", stderr);
}

bool isComment(const char *line) { return TQANSI_strncmp(line, "#", 1) == 0; }

// Takes the record of a line, if it holds one. Gives null, or the reason why the line cannot be used.
const char *takeLine(const LineReader &lines, std::vector<Record> &records) {
    const char *const line = lines.line();
    if (lines.problem() != nullptr) return lines.problem();
    if (!isUtf8(line)) return "invalid UTF-8";
    if (TQ_isBlankLine(line) || isComment(line)) return nullptr;
    Record record{};
    const char *const reason = readRecord(line, record);
    if (reason == nullptr) records.push_back(record);
    return reason;
}

// Reads the records of a file; false if the file or one of its lines cannot be used.
bool readRecords(const char *file, std::vector<Record> &records) {
    std::vector<char> text;
    if (const auto problem = readTextFile(file, text)) {
        complain(file, *problem);
        return false;
    }
    bool isGood = true;
    for (LineReader lines(text.data()); lines.next();) {
        const char *const reason = takeLine(lines, records);
        if (reason == nullptr) continue;
        complain(file, {lines.number(), reason});
        isGood = false;
    }
    if (isGood && records.empty()) {
        complain(file, {0, "no records"});
        return false;
    }
    return isGood;
}

std::vector<Record> select(std::span<Record> records, const Options &options) {
    sortRecords(records, SortKey::name);
    const std::span<const Record> range = options.prefix ? withPrefix(records, *options.prefix) : records;
    std::vector<Record> selected =
        options.find ? containing(range, *options.find) : std::vector<Record>(range.begin(), range.end());
    sortRecords(selected, options.sort);
    return selected;
}

void print(std::span<const Record> records) {
    if (records.empty())
        std::fputs("No capital matches.\n", stdout);
    else
        printTable(records, stdout);
}

bool finishOutput() {
    if (std::fflush(stdout) == 0 && !std::ferror(stdout)) return true;
    std::fputs("gazetteer: cannot write the output\n", stderr);
    return false;
}

int printFile(const Options &options) {
    std::vector<Record> records;
    const bool isGood = readRecords(options.file, records);
    if (!records.empty()) print(select(records, options));
    return finishOutput() && isGood ? 0 : exitFailure;
}

int refuse(const UsageError &error) {
    const char *const pieces[] = {"gazetteer: ", error.reason, *error.argument ? " " : "", error.argument,
                                  " (--help tells more)\n"};
    for (const char *piece : pieces) std::fputs(piece, stderr);
    return exitBadUsage;
}

int run(const Options &options) {
    switch (options.action) {
        case Action::printTable: return printFile(options);
        case Action::printUsage: std::fputs(usage, stdout); break;
        case Action::printVersion: std::fputs("gazetteer " GAZETTEER_VERSION "\n", stdout); break;
    }
    return finishOutput() ? 0 : exitFailure;
}

}  // namespace

int main(int argumentCount, char *argumentValues[]) try {
    const std::span<char *const> arguments(argumentValues, static_cast<size_t>(argumentCount));
    Options options;
    if (const auto error = readOptions(arguments.subspan(argumentCount > 0 ? 1 : 0), options)) return refuse(*error);
    return run(options);
} catch (const std::bad_alloc &) {
    std::fputs("gazetteer: out of memory\n", stderr);
    return exitFailure;
}
