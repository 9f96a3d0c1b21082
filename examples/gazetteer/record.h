#ifndef GAZETTEER_RECORD_H
#define GAZETTEER_RECORD_H

#include <array>
#include <cstdint>

// A string of at most 95 bytes.
using Field = std::array<char, 96>;

struct Record {
    Field ownName;
    Field name;
    Field country;
    // The same as copyPlain() leaves them, for sorting and finding.
    Field plainOwnName;
    Field plainName;
    Field plainCountry;
    // In hundredths of a degree, negative in the south and in the west.
    int32_t latitude;
    int32_t longitude;
    int32_t population;
};

// Reads "own name; name; country; latitude; longitude; population" from a line of UTF-8. Gives null, or the reason why
// the line is no record.
const char *readRecord(const char *line, Record &record);

#endif
