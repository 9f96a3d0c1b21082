#include "support/property.h"

using namespace tests;

static const Property copy("length and copy", [](Choices &choices) {
    const std::string text = choices.text(alphabet, 4);
    const char *const source = string(choices, 0, text);
    requireEqual(TQANSI_strlen(source), std::ssize(text), "length");
    char *const destination = region(1).room(text.size() + 1, choices.placement());
    if (choices.flag())
        require(TQANSI_strcpy(destination, source) == destination, "result");
    else
        requirePosition(TQ_strappend(destination, source), destination, text.size());
    requireBytes(1, text + '\0');
    choices.outcome("longer than 32 bytes", 15, text.size() > 32);
});

// A count that may bound a text, or not quite.
static int32_t countFor(Choices &choices, const std::string &text) { return choices.between(-1, std::ssize(text) + 2); }

static const Property boundedCopy("bounded copy", [](Choices &choices) {
    const std::string text = choices.text(alphabet, 4);
    const int32_t count = countFor(choices, text);
    const std::string expected = model::copied(text, count) + '\0';
    const char *const source = bounded(choices, 0, text, count);
    char *const destination = region(1).room(expected.size(), choices.placement());
    require(TQANSI_strncpy(destination, source, count) == destination, "result");
    requireBytes(1, expected);
    choices.outcome("cut behind byte 16", 10, expected.size() > 17 && expected.size() <= text.size());
    choices.outcome("whole", 10, expected.size() > text.size());
    choices.outcome("nothing to copy", 8, count <= 0);
});

static const Property concatenation("concatenation", [](Choices &choices) {
    const std::string front = choices.text("aAb\xE1", 4);
    const std::string text = choices.text(alphabet, 2);
    const bool whole = choices.flag();
    const int32_t count = whole ? INT32_MAX : countFor(choices, text);
    const std::string expected = front + model::copied(text, count) + '\0';
    const char *const source = bounded(choices, 0, text, count);
    char *const destination = region(1).room(expected.size(), choices.placement());
    std::memcpy(destination, front.c_str(), front.size() + 1);
    char *const result = whole ? TQANSI_strcat(destination, source) : TQANSI_strncat(destination, source, count);
    require(result == destination, "result");
    requireBytes(1, expected);
    choices.outcome("both longer than 16 bytes", 8, front.size() > 16 && expected.size() > front.size() + 17);
    choices.outcome("cut", 15, expected.size() <= front.size() + text.size());
});

// Copies within one buffer go byte by byte from the front, so what they store first may be what they read later.
static const Property overlappingCopy("overlapping copy", [](Choices &choices) {
    std::string text = choices.text(alphabet, 4);
    if (choices.steers()) text.resize(choices.below(900));
    for (size_t i = 0; choices.isLong() && i < text.size(); ++i) text[i] = static_cast<char>(1 + i % 251);
    const size_t distance = choices.steers() ? choices.below(140) : choices.below(text.size() + 3);
    const bool ahead = choices.flag();
    const bool isBounded = ahead || choices.flag();
    const int32_t count = choices.between(isBounded ? 0 : std::ssize(text) + 1, std::ssize(text) + 1 + isBounded);
    std::string image(text.size() + distance + static_cast<size_t>(count) + 2, Region::filler);
    const size_t from = ahead ? 0 : distance;
    const size_t to = ahead ? distance : 0;
    image.replace(from, text.size() + 1, text.c_str(), text.size() + 1);
    char *const buffer = region(0).place(image, choices.placement());

    size_t copied = 0;
    for (; copied < static_cast<size_t>(count) && image[from + copied] != 0; ++copied)
        image[to + copied] = image[from + copied];
    image[to + copied] = 0;
    if (isBounded)
        TQANSI_strncpy(buffer + to, buffer + from, count);
    else
        TQANSI_strcpy(buffer + to, buffer + from);
    requireBytes(0, image);
    choices.outcome("read what it had stored, behind byte 16", 3, ahead && distance != 0 && copied > distance + 16);
    choices.outcome("moved down by less than 34, for more", 4, !ahead && distance < 34 && copied > 34);
    choices.outcome("by less than 128, for more than 256", 8, distance < 128 && copied > 256);
});

static const Property fill("fill", [](Choices &choices) {
    const uint32_t count = choices.below(choices.isLong() ? 300 : 9);
    const int32_t byte = choices.pick({0x15A, -1, 0, 0x80});
    char *const destination = region(0).room(count, choices.placement());
    require(TQANSI_memset(destination, byte, count) == destination, "result");
    requireBytes(0, std::string(count, static_cast<char>(byte)));
    choices.outcome("more than 64 bytes", 35, count > 64);
});
