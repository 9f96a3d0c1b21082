#include "text_file.h"

#include <strlib.hpp>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace {

constexpr size_t chunkSize = 65536;
// Keeps endless input out, and every position far below what a 32-bit integer holds.
constexpr size_t maxFileSize = size_t{16} << 20;

struct Closer {
    void operator()(std::FILE *file) const { std::fclose(file); }
};

const char *readBytes(std::FILE *file, std::vector<char> &bytes) {
    for (size_t count = chunkSize; count == chunkSize && bytes.size() <= maxFileSize;) {
        const size_t size = bytes.size();
        bytes.resize(size + chunkSize);
        count = std::fread(bytes.data() + size, 1, chunkSize, file);
        if (std::ferror(file)) return std::strerror(errno);
        bytes.resize(size + count);
    }
    if (bytes.empty()) return "empty file";
    return bytes.size() <= maxFileSize ? nullptr : "larger than 16 MiB";
}

const char *readFile(const char *path, std::vector<char> &bytes) {
    if (isStandardInput(path)) return readBytes(stdin, bytes);
    const std::unique_ptr<std::FILE, Closer> file(std::fopen(path, "rb"));
    return file ? readBytes(file.get(), bytes) : std::strerror(errno);
}

int32_t lineAt(const char *text, const char *position) {
    int32_t line = 1;
    while ((text = static_cast<const char *>(TQANSI_memchr(text, '\n', static_cast<uint32_t>(position - text)))) !=
           nullptr) {
        ++line;
        ++text;
    }
    return line;
}

const char *lineEnd(const char *at) {
    const char *const feed = TQANSI_strchr(at, '\n');
    return feed != nullptr ? feed : at + TQANSI_strlen(at);
}

// The routine that takes lines drops every carriage return; only one right before the line's end may be dropped.
bool hasStrayReturn(const char *line, const char *end) {
    const void *const found = TQANSI_memchr(line, '\r', static_cast<uint32_t>(end - line));
    return found != nullptr && found != end - 1;
}

const char *behindByteOrderMark(const char *text) {
    const char *const mark = "\uFEFF";
    const int32_t length = TQANSI_strlen(mark);
    return TQANSI_strncmp(text, mark, length) == 0 ? text + length : text;
}

}  // namespace

bool isStandardInput(const char *path) { return TQANSI_strcmp(path, "-") == 0; }

std::optional<Problem> readTextFile(const char *path, std::vector<char> &text) {
    text.clear();
    if (const char *const reason = readFile(path, text)) return Problem{0, reason};
    const void *const nul = TQANSI_memchr(text.data(), 0, static_cast<uint32_t>(text.size()));
    if (nul != nullptr) return Problem{lineAt(text.data(), static_cast<const char *>(nul)), "NUL byte in the file"};
    text.push_back(0);
    return std::nullopt;
}

LineReader::LineReader(const char *text) : rest_(behindByteOrderMark(text)) {}

bool LineReader::next() {
    const char *const start = rest_;
    const char *const end = lineEnd(start);
    const auto line = strlib::nextLine(line_, rest_);
    if (!line) return false;
    ++number_;
    problem_ = nullptr;
    if (line->size() > maxLength)
        problem_ = "line too long";
    else if (hasStrayReturn(start, end))
        problem_ = "carriage return inside the line";
    rest_ = *end == 0 ? end : end + 1;
    return true;
}
