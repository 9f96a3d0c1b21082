#ifndef GAZETTEER_TABLE_H
#define GAZETTEER_TABLE_H

#include <cstdio>
#include <span>

#include "record.h"

// Prints the records, at least one, in aligned columns, with their totals below.
void printTable(std::span<const Record> records, std::FILE *output);

#endif
