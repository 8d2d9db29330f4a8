#include "files.hpp"

#include "number.hpp"
#include "tables.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#if defined(_WIN32)
#ifndef NOMINMAX
#define NOMINMAX // no macros min and max
#endif
#define WIN32_LEAN_AND_MEAN
#include <io.h>
#include <windows.h>

#include <shellapi.h>
#else
#include <poll.h>
#include <unistd.h>
#endif

namespace program {

namespace {

constexpr int standard_input = 0, standard_output = 1;
/// How often a reader that waits looks whether it is to stop, ms.
constexpr int patience = 200;

#if defined(_WIN32)
constexpr int text_mode_off = _O_BINARY;
constexpr std::size_t most_at_once = std::size_t{1} << 30;
using Size = unsigned;
bool make_empty(int descriptor) { return ::_chsize_s(descriptor, 0) == 0; }

// The program has UTF-8 in its texts; the system has it in UTF-16, and its plain calls take the letters of one language.
std::wstring to_wide(const std::string& text) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0'); // never shorter
    wide.resize(static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size)));
    return wide;
}
std::string to_utf8(const std::wstring& text) {
    const int size = static_cast<int>(text.size());
    std::string utf8(3 * text.size(), '\0'); // never shorter
    utf8.resize(static_cast<std::size_t>(::WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(),
                                                               static_cast<int>(utf8.size()), nullptr, nullptr)));
    return utf8;
}
int open_file(const std::string& path, int flags) { return ::_wopen(to_wide(path).c_str(), flags, 0666); }
void remove_file(const std::string& path) { ::_wunlink(to_wide(path).c_str()); }
#else
constexpr int text_mode_off = O_CLOEXEC;
constexpr std::size_t most_at_once = std::size_t{1} << 30;
using Size = std::size_t;
bool make_empty(int descriptor) { return ::ftruncate(descriptor, 0) == 0; }
int open_file(const std::string& path, int flags) { return ::open(path.c_str(), flags, 0666); }
void remove_file(const std::string& path) {
    struct stat about {};
    if (::stat(path.c_str(), &about) == 0 && S_ISREG(about.st_mode)) ::unlink(path.c_str()); // no device, no pipe
}
#endif

bool same_file(int a, int b) {
    struct stat about_a {
    }, about_b{};
    return ::fstat(a, &about_a) == 0 && ::fstat(b, &about_b) == 0 && S_ISREG(about_a.st_mode) &&
           about_a.st_dev == about_b.st_dev && about_a.st_ino == about_b.st_ino && about_a.st_ino != 0;
}

} // namespace

std::vector<std::string> arguments(int argc, char** argv) {
#if defined(_WIN32)
    // argv is in the letters of one language
    if (wchar_t** const words = ::CommandLineToArgvW(::GetCommandLineW(), &argc); words != nullptr) {
        std::vector<std::string> out;
        for (int k = 1; k < argc; ++k) out.push_back(to_utf8(words[k]));
        ::LocalFree(words);
        return out;
    }
#endif
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

bool is_terminal(int descriptor) { return ::isatty(descriptor) != 0; }

InputFile::InputFile(const std::string& path)
    : path_(path), descriptor_(path == "-" ? standard_input : open_file(path, O_RDONLY | text_mode_off)) {
    if (descriptor_ < 0) throw UsageError("cannot read " + in_quotes(path_) + ": " + std::strerror(errno));
#if defined(_WIN32)
    ::_setmode(descriptor_, _O_BINARY);
#endif
}

InputFile::~InputFile() {
    if (descriptor_ != standard_input) ::close(descriptor_);
}

/// True if a read would not wait: there are bytes, or the end, or an error.
bool InputFile::wait(int milliseconds) const {
#if defined(_WIN32)
    return milliseconds != 0; // a pipe there cannot be asked: every read is handed on as it comes
#else
    pollfd waiting{descriptor_, POLLIN, 0};
    return ::poll(&waiting, 1, milliseconds) != 0;
#endif
}

std::size_t InputFile::read(std::span<char> buffer) {
    std::size_t filled = 0;
    while (!stopped_ && !ended_ && filled < buffer.size()) {
        if (!wait(filled == 0 ? patience : 0)) {
            if (filled == 0) continue;
            break;
        }
        const auto count = ::read(descriptor_, buffer.data() + filled,
                                  static_cast<Size>(std::min(buffer.size() - filled, most_at_once)));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throw UsageError("cannot read " + in_quotes(path_) + ": " + std::strerror(errno));
        ended_ = count == 0;
        filled += static_cast<std::size_t>(count);
    }
    return stopped_ ? 0 : filled;
}

std::optional<std::size_t> InputFile::size() const {
    struct stat about {};
    if (::fstat(descriptor_, &about) != 0 || !S_ISREG(about.st_mode)) return std::nullopt;
    return static_cast<std::size_t>(about.st_size);
}

OutputFile::OutputFile(const std::string& path, const InputFile* input) : path_(path), descriptor_(standard_output) {
    if (path.empty()) {
#if defined(_WIN32)
        ::_setmode(descriptor_, _O_BINARY);
#endif
        return;
    }
    descriptor_ = open_file(path, O_WRONLY | O_CREAT | text_mode_off);
    if (descriptor_ < 0) fail();
    struct stat about {};
    const bool is_input = input != nullptr && same_file(descriptor_, input->descriptor());
    const bool regular = ::fstat(descriptor_, &about) == 0 && S_ISREG(about.st_mode);
    const bool emptied = is_input || !regular || make_empty(descriptor_);
    if (!is_input && emptied) return;
    ::close(descriptor_); // no destructor runs
    if (is_input) throw UsageError("the results would overwrite their own input " + in_quotes(path_));
    fail();
}

OutputFile::~OutputFile() {
    if (descriptor_ >= 0 && descriptor_ != standard_output) ::close(descriptor_);
}

void OutputFile::fail() const {
    const std::string to = path_.empty() ? "" : " to " + in_quotes(path_);
    throw UsageError("cannot write the results" + to + ": " + std::strerror(errno));
}

void OutputFile::write(std::string_view text) {
    while (!text.empty()) {
        const auto count = ::write(descriptor_, text.data(), static_cast<Size>(std::min(text.size(), most_at_once)));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) fail();
        text.remove_prefix(static_cast<std::size_t>(count));
    }
}

void OutputFile::finish() {
    if (descriptor_ == standard_output) return;
    const int descriptor = descriptor_;
    descriptor_ = -1;
    if (::close(descriptor) != 0) fail();
}

bool OutputFile::is_terminal() const { return program::is_terminal(descriptor_); }

void write_whole(const std::string& path, std::string_view text) {
    OutputFile file(path);
    try {
        file.write(text);
        file.finish();
    } catch (const UsageError&) {
        if (!path.empty()) remove_file(path);
        throw;
    }
}

} // namespace program
