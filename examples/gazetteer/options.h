#ifndef GAZETTEER_OPTIONS_H
#define GAZETTEER_OPTIONS_H

#include <optional>
#include <span>

#include "catalogue.h"

enum class Action { printTable, printUsage, printVersion };

struct Options {
    Action action = Action::printTable;
    // "-" is the standard input.
    const char *file = nullptr;
    std::optional<Field> find;
    std::optional<Field> prefix;
    SortKey sort = SortKey::name;
};

// What is wrong with the command line.
struct UsageError {
    const char *reason;
    const char *argument;
};

// Reads a command line without the program's name.
std::optional<UsageError> readOptions(std::span<char *const> arguments, Options &options);

extern const char *const usage;

#endif
