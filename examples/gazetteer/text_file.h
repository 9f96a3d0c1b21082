#ifndef GAZETTEER_TEXT_FILE_H
#define GAZETTEER_TEXT_FILE_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

// Why a line, or with line 0 the whole file, cannot be used.
struct Problem {
    int32_t line;
    const char *reason;
};

// The name that stands for the standard input.
bool isStandardInput(const char *path);

// Reads a whole file as one string, its NUL included. After a problem the text is of no use.
std::optional<Problem> readTextFile(const char *path, std::vector<char> &text);

// Steps through the lines of a text.
class LineReader {
public:
    explicit LineReader(const char *text);

    // Takes the next line; false at the end of the text.
    bool next();

    const char *line() const { return line_; }
    int32_t number() const { return number_; }
    // Why the line cannot be used, or null.
    const char *problem() const { return problem_; }

private:
    static constexpr size_t maxLength = 511;

    const char *rest_;
    const char *problem_ = nullptr;
    int32_t number_ = 0;
    // One byte more than allowed, by which a line that is too long shows; and the NUL.
    char line_[maxLength + 2] = {};
};

#endif
