#include "options.h"

#include <strlib.h>

#include "characters.h"

namespace {

bool equal(const char *first, const char *second) { return TQANSI_strcmp(first, second) == 0; }

const char *readText(const char *argument, std::optional<Field> &text) {
    if (!isUtf8(argument)) return "invalid UTF-8 behind";
    Field field{};
    if (TQANSI_strlen(argument) >= static_cast<int32_t>(field.size())) return "text too long behind";
    copyPlain(field.data(), argument);
    if (TQ_isBlankLine(field.data())) return "blank text behind";
    TQANSI_strcpy(field.data(), argument);
    text = field;
    return nullptr;
}

const char *readSortKey(const char *argument, SortKey &key) {
    if (equal(argument, "name"))
        key = SortKey::name;
    else if (equal(argument, "country"))
        key = SortKey::country;
    else if (equal(argument, "population"))
        key = SortKey::population;
    else
        return "name, country or population must follow";
    return nullptr;
}

const char *readValue(const char *option, const char *value, Options &options) {
    if (equal(option, "--find")) return readText(value, options.find);
    if (equal(option, "--prefix")) return readText(value, options.prefix);
    return readSortKey(value, options.sort);
}

bool takesValue(const char *option) {
    return equal(option, "--find") || equal(option, "--prefix") || equal(option, "--sort");
}

}  // namespace

const char *const usage =
    "Usage: gazetteer [OPTION]... FILE\n"
    "Prints the capitals of a file as a table. Of several files the last one counts.\n"
    "\n"
    "  --find TEXT    only those with TEXT in the name, the own name or the country\n"
    "  --prefix TEXT  only those with names that begin with TEXT\n"
    "  --sort KEY     sort by name (as without the option), country or population\n"
    "  --help         print this text\n"
    "\n"
    "Case and Latin accents make no difference. The exit status is 1 if the file or a record cannot be used, and 2 "
    "for\n"
    "a mistake in the command line.\n";

std::optional<UsageError> readOptions(std::span<char *const> arguments, Options &options) {
    for (size_t i = 0; i < arguments.size(); ++i) {
        const char *const argument = arguments[i];
        if (TQANSI_strncmp(argument, "-", 1) != 0) {
            options.file = argument;
        } else if (equal(argument, "--help")) {
            options.help = true;
        } else if (!takesValue(argument)) {
            return UsageError{"unknown option", argument};
        } else if (++i == arguments.size()) {
            return UsageError{"nothing behind", argument};
        } else if (const char *const reason = readValue(argument, arguments[i], options)) {
            return UsageError{reason, argument};
        }
    }
    if (options.file == nullptr && !options.help) return UsageError{"no file named", ""};
    return std::nullopt;
}
