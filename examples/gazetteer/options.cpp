#include "options.h"

#include <strlib.hpp>

#include "characters.h"
#include "text_file.h"

namespace {

bool equal(const char *first, const char *second) { return TQANSI_strcmp(first, second) == 0; }

const char *readText(const char *value, std::optional<Field> &text) {
    if (!isUtf8(value)) return "invalid UTF-8 behind";
    Field field{};
    if (TQANSI_strlen(value) >= static_cast<int32_t>(field.size())) return "text too long behind";
    copyPlain(field.data(), value);
    if (TQ_isBlankLine(field.data())) return "blank text behind";
    strlib::copy(field, value);
    text = field;
    return nullptr;
}

const char *readFind(const char *value, Options &options) { return readText(value, options.find); }
const char *readPrefix(const char *value, Options &options) { return readText(value, options.prefix); }

const char *readSortKey(const char *value, Options &options) {
    if (equal(value, "name"))
        options.sort = SortKey::name;
    else if (equal(value, "country"))
        options.sort = SortKey::country;
    else if (equal(value, "population"))
        options.sort = SortKey::population;
    else
        return "name, country or population must follow";
    return nullptr;
}

// An option that takes a value, as in "--find=text" or "--find text". Reading it gives null, or what is wrong with it.
struct ValueOption {
    const char *name;
    const char *(*read)(const char *value, Options &options);
};

constexpr ValueOption valueOptions[] = {{"--find", readFind}, {"--prefix", readPrefix}, {"--sort", readSortKey}};

bool isNamedBy(const ValueOption &option, const char *argument) {
    const int32_t length = TQANSI_strlen(option.name);
    return TQANSI_strncmp(argument, option.name, length) == 0 && (argument[length] == 0 || argument[length] == '=');
}

bool isOption(const char *argument) { return TQANSI_strncmp(argument, "-", 1) == 0 && !isStandardInput(argument); }

// Takes an option that stands alone; false if it is none of these.
bool takeAction(const char *argument, Options &options) {
    if (equal(argument, "--help") || equal(argument, "-h"))
        options.action = Action::printUsage;
    else if (equal(argument, "--version"))
        options.action = Action::printVersion;
    else
        return false;
    return true;
}

// Takes the option at an index, which moves on to the option's value if that is an argument of its own.
std::optional<UsageError> takeOption(std::span<char *const> arguments, size_t &index, Options &options) {
    const char *const argument = arguments[index];
    if (takeAction(argument, options)) return std::nullopt;
    for (const ValueOption &option : valueOptions) {
        if (!isNamedBy(option, argument)) continue;
        const char *const sign = TQANSI_strchr(argument, '=');
        if (sign == nullptr && ++index == arguments.size()) return UsageError{"nothing behind", option.name};
        const char *const reason = option.read(sign != nullptr ? sign + 1 : arguments[index], options);
        return reason != nullptr ? std::optional(UsageError{reason, option.name}) : std::nullopt;
    }
    return UsageError{"unknown option", argument};
}

}  // namespace

const char *const usage =
    "Usage: gazetteer [OPTION]... FILE\n"
    "Prints the capitals of a file as a table. FILE may be - for the standard input;\n"
    "of several files the last one counts.\n"
    "\n"
    "  --find TEXT    only those with TEXT in the name, the own name or the country\n"
    "  --prefix TEXT  only those with names that begin with TEXT\n"
    "  --sort KEY     sort by name (the default), country or population\n"
    "  --             end of the options: what follows is a file\n"
    "  -h, --help     print this text\n"
    "  --version      print the version\n"
    "\n"
    "--find=TEXT and the like mean the same. Capital and small letters are alike in\n"
    "Latin, Greek, Cyrillic and Armenian script, letters with and without accents in\n"
    "Latin and Greek. For --prefix and in sorting, each of -'.,/ counts as a space.\n"
    "\n"
    "The file is text in UTF-8, one capital a line, with six fields between\n"
    "semicolons, blanks around them allowed:\n"
    "\n"
    "  own name; English name; country; latitude; longitude; population\n"
    "  Wien; Vienna; Austria; 48.21; 16.37; 2006000\n"
    "\n"
    "Latitude and longitude are in degrees, those in the south and in the west with a\n"
    "minus sign, and are rounded to hundredths; the population has at most nine digits.\n"
    "A field takes up to 95 bytes, a line up to 511, the file up to 16 MiB. Empty lines\n"
    "and lines that begin with # are passed over.\n"
    "\n"
    "The exit status is 1 if the file or a line of it cannot be used, and 2 for a\n"
    "mistake in the command line. A line that cannot be used is named and left out.\n";

std::optional<UsageError> readOptions(std::span<char *const> arguments, Options &options) {
    bool mayBeOption = true;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const char *const argument = arguments[i];
        if (!mayBeOption || !isOption(argument)) {
            options.file = argument;
        } else if (equal(argument, "--")) {
            mayBeOption = false;
        } else if (const auto error = takeOption(arguments, i, options)) {
            return error;
        }
    }
    if (options.file == nullptr && options.action == Action::printTable) return UsageError{"no file named", ""};
    return std::nullopt;
}
