// Catches what the library writes to its output units, and puts the error record back.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <ktl/ktlftn.h>
#include <sstream>
#include <string>
#include <vector>

namespace ktl::test {

/// While it lives, lines of one unit are kept here, and ktlerr may be changed freely.
class Reports {
public:
    explicit Reports(int unit = 6) : unit_(unit), before_(ktlerr) {
        stream_ = open_memstream(&text_, &size_);
        ktl_connect_unit(unit_, stream_);
    }
    ~Reports() {
        ktl_connect_unit(unit_, nullptr);
        std::fclose(stream_);
        std::free(text_);
        ktlerr = before_;
    }
    Reports(const Reports&) = delete;
    Reports& operator=(const Reports&) = delete;

    /// The lines so far, and forgets them.
    std::vector<std::string> lines() {
        std::fflush(stream_);
        std::vector<std::string> out;
        std::istringstream text(std::string(text_ + read_, size_ - read_));
        read_ = size_;
        for (std::string line; std::getline(text, line);) out.push_back(line);
        return out;
    }
    std::size_t count() { return lines().size(); }

private:
    int unit_;
    ktlerr_record before_;
    char* text_ = nullptr;
    std::size_t size_ = 0;
    std::size_t read_ = 0;
    FILE* stream_;
};

} // namespace ktl::test
