#include "catalogue.h"

#include <strlib.hpp>

#include <algorithm>
#include <iterator>

#include "characters.h"

namespace {

using Table = std::array<uint8_t, 256>;

// Maps every byte to 1 to 126. No value is negative when read as a signed byte, so that a text sorts behind those that
// it begins with; and each value leaves room for one above it, so that adding 1 to a key never needs a carry.
Table makeCollation() {
    Table table{};
    for (int32_t byte = 1; byte <= 0xFF; ++byte) {
        const bool isLetter = TQANSI_isalpha(byte) != 0;
        int32_t value = isLetter ? byte | 0x20 : byte;
        if (TQANSI_strchr("-'.,/", byte) != nullptr) value = ' ';
        table[static_cast<uint8_t>(byte)] = static_cast<uint8_t>(std::min<int32_t>(value, '~'));
    }
    return table;
}

const uint8_t *collation() {
    static const Table table = makeCollation();
    return table.data();
}

int32_t compareTexts(const Field &first, const Field &second) {
    const int32_t difference = customStricmp(first.data(), second.data(), collation());
    return difference != 0 ? difference : TQANSI_strcmp(first.data(), second.data());
}

bool nameLess(const Record &first, const Record &second) { return compareTexts(first.plainName, second.plainName) < 0; }

bool countryLess(const Record &first, const Record &second) {
    const int32_t difference = compareTexts(first.plainCountry, second.plainCountry);
    return difference != 0 ? difference < 0 : nameLess(first, second);
}

bool populationLess(const Record &first, const Record &second) {
    if (first.population != second.population) return first.population > second.population;
    return nameLess(first, second);
}

// The text as the collation sees it. Keys compare by TQANSI_strcmp as their texts do by customStricmp.
Field keyOf(const Field &text) {
    Field key{};
    strlib::copy(key, text.data());
    TQ_convertZstring(collation(), key.data());
    return key;
}

bool keyBefore(const Record &record, const Field &key) {
    return TQANSI_strcmp(keyOf(record.plainName).data(), key.data()) < 0;
}

Field plain(const Field &text) {
    Field result{};
    copyPlain(result.data(), text.data());
    return result;
}

bool contains(const Record &record, const Field &plainText) {
    return strlib::findFolded(record.plainName.data(), plainText.data()) ||
           strlib::findFolded(record.plainCountry.data(), plainText.data()) ||
           strlib::findFolded(record.plainOwnName.data(), plainText.data());
}

}  // namespace

void sortRecords(std::span<Record> records, SortKey key) {
    switch (key) {
        case SortKey::name: return std::sort(records.begin(), records.end(), nameLess);
        case SortKey::country: return std::sort(records.begin(), records.end(), countryLess);
        case SortKey::population: return std::sort(records.begin(), records.end(), populationLess);
    }
}

std::span<const Record> withPrefix(std::span<const Record> sortedByName, const Field &prefix) {
    const Field first = keyOf(plain(prefix));
    Field behind{};
    strlib::add(behind, first.data(), 1);
    const auto begin = std::lower_bound(sortedByName.begin(), sortedByName.end(), first, keyBefore);
    const auto end = std::lower_bound(begin, sortedByName.end(), behind, keyBefore);
    return {begin, end};
}

std::vector<Record> containing(std::span<const Record> records, const Field &text) {
    const Field plainText = plain(text);
    std::vector<Record> found;
    std::copy_if(records.begin(), records.end(), std::back_inserter(found),
                 [&](const Record &record) { return contains(record, plainText); });
    return found;
}

std::array<int32_t, 27> countInitials(std::span<const Record> records) {
    std::array<int32_t, 27> counts{};
    for (const Record &record : records) {
        const char initial[] = {keyOf(record.plainName)[0], 0};
        const int32_t letter = string_operator_diff(initial, "a");
        ++counts[letter >= 0 && letter < 26 ? static_cast<size_t>(letter) : 26];
    }
    return counts;
}
