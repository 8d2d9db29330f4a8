// Bytes in and out: the one place that knows the operating system.
#pragma once

#include <atomic>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace program {

/// What follows the name of the program, in UTF-8.
std::vector<std::string> arguments(int argc, char** argv);

/// True if the stream with this descriptor (1 standard output, 2 standard error) is a terminal.
bool is_terminal(int descriptor);

/// A file to read, "-" for standard input.
class InputFile {
public:
    /// Throws UsageError if it cannot be opened.
    explicit InputFile(const std::string& path);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    /// Waits for bytes, then reads what is there at once: until the buffer is full, the input pauses or ends. Returns how
    /// many bytes; 0 at the end, or after stop(). Throws UsageError if the file cannot be read.
    std::size_t read(std::span<char> buffer);
    /// Ends a read that waits on another thread.
    void stop() { stopped_ = true; }
    /// True if a read has met the end.
    [[nodiscard]] bool ended() const { return ended_; }
    /// Its size, if it is a regular file.
    [[nodiscard]] std::optional<std::size_t> size() const;
    [[nodiscard]] int descriptor() const { return descriptor_; }

private:
    [[nodiscard]] bool wait(int milliseconds) const;
    std::string path_;
    int descriptor_;
    bool ended_ = false; ///< a terminal may have more after its end
    std::atomic<bool> stopped_ = false;
};

/// A file to write, or standard output. Nothing is kept back: a failure shows at the write that fails.
class OutputFile {
public:
    /// An empty path: standard output. Otherwise the file is made, or emptied unless it is the input. Throws UsageError
    /// if that cannot be.
    explicit OutputFile(const std::string& path, const InputFile* input = nullptr);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Throws UsageError with the system's reason if not all of it is taken.
    void write(std::string_view text);
    /// Closes a file of its own. Throws UsageError as write does: some file systems tell a full disk here.
    void finish();
    [[nodiscard]] bool is_terminal() const;

private:
    [[noreturn]] void fail() const;
    std::string path_;
    int descriptor_;
};

/// Writes a whole file, or standard output if the path is empty. Throws UsageError as OutputFile does; no part of a file is
/// left then.
void write_whole(const std::string& path, std::string_view text);

} // namespace program
