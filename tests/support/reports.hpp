// Catches what the library writes to its output units, and puts the error record back.
#pragma once

#include <cstdio>
#include <ktl/ktlftn.h>
#include <string>
#include <vector>

namespace ktl::test {

/// While it lives, lines of one unit are kept here, and ktlerr may be changed freely.
class Reports {
public:
    explicit Reports(int unit = 6) : unit_(unit), before_(ktlerr) { ktl_connect_unit(unit_, stream_); }
    ~Reports() {
        ktl_connect_unit(unit_, nullptr);
        std::fclose(stream_);
        ktlerr = before_;
    }
    Reports(const Reports&) = delete;
    Reports& operator=(const Reports&) = delete;

    /// The lines so far, and forgets them.
    std::vector<std::string> lines() {
        std::vector<std::string> out(1);
        std::fseek(stream_, read_, SEEK_SET);
        for (int c = std::fgetc(stream_); c != EOF; c = std::fgetc(stream_)) {
            if (c == '\n')
                out.emplace_back();
            else
                out.back() += static_cast<char>(c);
        }
        if (out.back().empty()) out.pop_back();
        read_ = std::ftell(stream_);
        std::fseek(stream_, 0, SEEK_END); // between reading and writing
        return out;
    }
    std::size_t count() { return lines().size(); }

private:
    int unit_;
    ktlerr_record before_;
    FILE* stream_ = std::tmpfile();
    long read_ = 0;
};

} // namespace ktl::test
