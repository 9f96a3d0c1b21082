#ifndef GAZETTEER_CATALOGUE_H
#define GAZETTEER_CATALOGUE_H

#include <array>
#include <span>
#include <vector>

#include "record.h"

enum class SortKey { name, country, population };

// Names and countries in alphabetical order without regard to case and accents; the largest population first.
void sortRecords(std::span<Record> records, SortKey key);

// The records, sorted by name, whose names begin with a text.
std::span<const Record> withPrefix(std::span<const Record> sortedByName, const Field &prefix);

// The records of which name, own name or country contains a text.
std::vector<Record> containing(std::span<const Record> records, const Field &text);

// How many names begin with each letter of the alphabet and, in the last place, with anything else.
std::array<int32_t, 27> countInitials(std::span<const Record> records);

#endif
